#include "inspectors/debver.h"

#include <functional>

#include "inspectors/debian_support_library.h"

DebianVersionParts SplitDebianVersion(std::string_view version) {
    DebianVersionParts parts{"0", version, std::nullopt};
    if (const size_t colon = version.find(':'); colon != std::string_view::npos) {
        parts.epoch = version.substr(0, colon);
        parts.upstream = version.substr(colon + 1);
    }
    if (const size_t dash = parts.upstream.rfind('-'); dash != std::string_view::npos) {
        parts.revision = parts.upstream.substr(dash + 1);
        parts.upstream = parts.upstream.substr(0, dash);
    }
    return parts;
}

namespace {

// Null where there is no support library.
const wrp_pkgVersioningSystem* VersioningSystem() {
    static bool attempted = false;
    const DebianSupportLibrary& library = ProcessDebianSupportLibrary();
    if (!library.IsLoaded() && !attempted) {
        attempted = true;
        LoadDebianSupportLibraryForOurVersion();
    }
    return library.IsLoaded() ? library.VersioningSystem() : nullptr;
}

}  // namespace

std::optional<int> CompareDebianVersions(DebianVersionStringType type, std::string_view a, std::string_view b) {
    try {
        const wrp_pkgVersioningSystem* system = VersioningSystem();
        if (system == nullptr) {
            return std::nullopt;
        }
        if (type == DebianVersionStringType::Version) {
            return system->CmpVersion(a.data(), b.data());
        }
        return system->CmpPart(a.data(), a.data() + a.size(), b.data(), b.data() + b.size());
    } catch (...) {
        return std::nullopt;
    }
}

namespace {

debian_package_version_epoch Epoch(const debian_package_version& version) {
    return debian_package_version_epoch(SplitDebianVersion(version.View()).epoch);
}

debian_package_upstream_version Upstream(const debian_package_version& version) {
    return debian_package_upstream_version(SplitDebianVersion(version.View()).upstream);
}

std::optional<debian_package_version_revision> Revision(const debian_package_version& version) {
    const DebianVersionParts parts = SplitDebianVersion(version.View());
    return parts.revision ? std::optional(debian_package_version_revision(*parts.revision)) : std::nullopt;
}

template <class V>
V Itself(const V& version) {
    return version;
}

template <class V>
V OfText(const inspector_string& text) {
    return V(text);
}

template <class V>
inspector_string AsString(const V& version) {
    return inspector_string(version.View());
}

// The relation of a version and a string: the string is made a version of the same kind.
template <class V, auto Relation>
std::optional<boolean> WithString(const V& a, const inspector_string& b) {
    return V::template Compare<Relation>(a, V(b));
}
template <class V, auto Relation>
std::optional<boolean> OfString(const inspector_string& a, const V& b) {
    return V::template Compare<Relation>(V(a), b);
}

constexpr std::equal_to<int> kIsEqual;
constexpr std::less<int> kIsLess;
constexpr std::less_equal<int> kIsLessOrEqual;

// clang-format off
using String = inspector_string;

// What each of the four types has.
template <class V>
struct DebverRegistration : UniqueValuesInspectorRegistration<V, unless_incomparable<unique_value_aggregator<V>, V>> {
    DebverRegistration(const char* singular, const char* plural) : ofItself{singular, plural}, ofString{singular, plural} {}

    Type<V>                                                                                     type;
    PropertyByIndexOfWorld<V, V, Itself<V>>                                                     ofItself;
    NamedGlobalProperty<V, OfText<V>>                                                           ofString;
    Cast<String, V, AsString<V>>                                                                toString            {"string"};
    Cast<V, V, Itself<V>>                                                                       toItself            {InspectorTypeInfo<V>::Name};

    RelationEqual<V, V, V::template Compare<kIsEqual>>                                          equal               {ByValueOnly};
    RelationLess<V, V, V::template Compare<kIsLess>>                                            less                {ByValueOnly};
    RelationLessOrEqual<V, V, V::template Compare<kIsLessOrEqual>>                              lessOrEqual         {ByValueOnly};
    RelationEqual<V, String, WithString<V, kIsEqual>>                                           equalString         {ByValueOnly};
    RelationLess<V, String, WithString<V, kIsLess>>                                             lessString          {ByValueOnly};
    RelationLessOrEqual<V, String, WithString<V, kIsLessOrEqual>>                               lessOrEqualString   {ByValueOnly};
    RelationEqual<String, V, OfString<V, kIsEqual>>                                             stringEqual         {ByValueOnly};
    RelationLess<String, V, OfString<V, kIsLess>>                                               stringLess          {ByValueOnly};
    RelationLessOrEqual<String, V, OfString<V, kIsLessOrEqual>>                                 stringLessOrEqual   {ByValueOnly};

    AggregatingProperty<unless_incomparable<minimum_aggregator<V>, V>, V, V>                    minimum             {"minimum", "minima", ByValueOnly};
    AggregatingProperty<unless_incomparable<maximum_aggregator<V>, V>, V, V>                    maximum             {"maximum", "maxima", ByValueOnly};
    AggregatingProperty<unless_incomparable<extrema_aggregator<V>, V>, V, InspectorTuple2<V, V>> extrema            {"extrema", "extremas", ByValueOnly};
};

using Version = debian_package_version;

DebverRegistration<debian_package_version>                                  version  {"debian package version", "debian package versions"};
DebverRegistration<debian_package_version_epoch>                            epoch    {"debian package version epoch", "debian package version epochs"};
DebverRegistration<debian_package_upstream_version>                         upstream {"debian package version upstream", "debian package version upstreams"};
DebverRegistration<debian_package_version_revision>                         revision {"debian package version revision", "debian package version revisions"};

Property<Version, debian_package_version_epoch, Epoch>                      epochOf    {"epoch", "epochs"};
Property<Version, debian_package_upstream_version, Upstream>                upstreamOf {"upstream", "upstreams"};
Property<Version, debian_package_version_revision, Revision>                revisionOf {"revision", "revisions"};
// clang-format on

}  // namespace
