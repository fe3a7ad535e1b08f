#include "values/version.h"

#include <algorithm>
#include <cstring>

#include "evaluator/adapters.h"
#include "values/version_text_rule.h"

namespace {

constexpr uint32_t kGreatestComponent = 65535;

const char* TerminatedCopy(std::string_view text) {
    char* copy = static_cast<char*>(InspectorAllocate(text.size() + 1));
    *std::copy(text.begin(), text.end(), copy) = '\0';
    return copy;
}

}  // namespace

inspector_version::inspector_version(const inspector_string& text) : text_(TerminatedCopy(text.View())) {
    Parse(text.View());
}

inspector_version::inspector_version(const inspector_string& text, TextAlone) : text_(TerminatedCopy(text.View())) {}

// Kept as it stands: the end of the text closes a component like a separator does, so that "1.2." has three, and
// "1.2.3.4." would have five and is no number.
void inspector_version::Parse(std::string_view text) {
    if (text.empty()) {
        numeric_ = true;
        return;
    }
    uint16_t components[kMostComponents] = {};
    uint32_t count = 0;
    uint32_t component = 0;
    for (const char c : text) {
        if (c >= '0' && c <= '9') {
            component = 10 * component + static_cast<uint32_t>(c - '0');
            if (component > kGreatestComponent) {
                return;
            }
        } else if ((c == '.' || c == ',') && count + 1 < kMostComponents) {
            components[count++] = static_cast<uint16_t>(component);
            component = 0;
        } else {
            return;
        }
    }
    components[count++] = static_cast<uint16_t>(component);
    std::copy(std::begin(components), std::end(components), components_);
    count_ = count;
    numeric_ = true;
}

bool operator==(const inspector_version& a, const inspector_version& b) {
    if (a.numeric_ && b.numeric_) {
        return std::equal(a.components_, a.components_ + std::min(a.count_, b.count_), b.components_);
    }
    return CompareVersionTexts(a.text_, b.text_) == 0;
}

bool operator<=(const inspector_version& a, const inspector_version& b) {
    if (a.numeric_ && b.numeric_) {
        const uint32_t common = std::min(a.count_, b.count_);
        const auto [inA, inB] = std::mismatch(a.components_, a.components_ + common, b.components_);
        return inA == a.components_ + common || *inA < *inB;
    }
    return CompareVersionTexts(a.text_, b.text_) < 1;
}

bool operator==(const inspector_strverscmp_version& a, const inspector_strverscmp_version& b) {
    return strverscmp(a.Text(), b.Text()) == 0;
}

bool operator<(const inspector_strverscmp_version& a, const inspector_strverscmp_version& b) {
    return strverscmp(a.Text(), b.Text()) < 0;
}

bool operator<=(const inspector_strverscmp_version& a, const inspector_strverscmp_version& b) {
    return strverscmp(a.Text(), b.Text()) < 1;
}

namespace {

inspector_version version_of(const inspector_string& text) { return inspector_version(text); }

inspector_version AsVersion(const inspector_string& text) { return inspector_version(text); }

inspector_version VersionAsVersion(const inspector_version& version) { return version; }

inspector_string AsString(const inspector_version& version) {
    return inspector_string(std::string_view(version.Text()));
}

inspector_strverscmp_version strverscmp_version_of(const inspector_string& text) {
    return inspector_strverscmp_version(text);
}

// The relation of a version and a string: the string is made a version of the same kind.
template <class Version, auto Relation>
boolean WithString(const Version& a, const inspector_string& b) {
    return Relation(a, Version(b));
}
template <class Version, auto Relation>
boolean OfString(const inspector_string& a, const Version& b) {
    return Relation(Version(a), b);
}

// clang-format off
using String     = inspector_string;
using Version    = inspector_version;
using Strverscmp = inspector_strverscmp_version;
using adapters::kEqual;
using adapters::kLess;
using adapters::kLessOrEqual;

Type<Version>                                                                           type;

NamedGlobalProperty<Version, version_of>                                                ofString            {"version", "versions"};

Cast<Version, String, AsVersion>                                                        stringAsVersion     {"version"};
Cast<Version, Version, VersionAsVersion>                                                versionAsVersion    {"version"};
Cast<String, Version, AsString>                                                         toString            {"string"};

ComparableInspectorRegistration<Version>                                                comparable;
RelationEqual<Version, String, WithString<Version, kEqual>>                             equalString;
RelationLess<Version, String, WithString<Version, kLess>>                               lessString;
RelationLessOrEqual<Version, String, WithString<Version, kLessOrEqual>>                 lessOrEqualString;
RelationEqual<String, Version, OfString<Version, kEqual>>                               stringEqual;
RelationLess<String, Version, OfString<Version, kLess>>                                 stringLess;
RelationLessOrEqual<String, Version, OfString<Version, kLessOrEqual>>                   stringLessOrEqual;

Type<Strverscmp>                                                                        strverscmpType;

NamedGlobalProperty<Strverscmp, strverscmp_version_of>                                  strverscmpOfString  {"strverscmp version", "strverscmp versions"};

Cast<Strverscmp, String, strverscmp_version_of>                                         stringAsStrverscmp  {"strverscmp version"};

RelationEqual<Strverscmp>                                                               strverscmpEqual;
RelationLess<Strverscmp>                                                                strverscmpLess;
RelationLessOrEqual<Strverscmp>                                                         strverscmpLessOrEqual;
RelationEqual<Strverscmp, String, WithString<Strverscmp, kEqual>>                       strverscmpEqualString;
RelationLess<Strverscmp, String, WithString<Strverscmp, kLess>>                         strverscmpLessString;
RelationLessOrEqual<Strverscmp, String, WithString<Strverscmp, kLessOrEqual>>           strverscmpLessOrEqualString;
RelationEqual<String, Strverscmp, OfString<Strverscmp, kEqual>>                         stringEqualStrverscmp;
RelationLess<String, Strverscmp, OfString<Strverscmp, kLess>>                           stringLessStrverscmp;
RelationLessOrEqual<String, Strverscmp, OfString<Strverscmp, kLessOrEqual>>             stringLessOrEqualStrverscmp;
// clang-format on

}  // namespace
