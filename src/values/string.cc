// Strings: counted bytes, compared as bytes, with no locale and no notion of a character beyond the byte.
#include "values/string.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "evaluator/adapters.h"
#include "evaluator/inspector_context.h"
#include "foundation/ascii.h"
#include "values/byte_search.h"
#include "values/integer.h"

inspector_string FilteredString(const inspector_string& text, DataFilter& filter, size_t capacity) {
    auto* memory = static_cast<unsigned char*>(InspectorAllocate(capacity));
    Buffer out(memory, memory + capacity);
    ConstData in = text.Data();
    filter.Filter(in, out);
    filter.Finish();
    if (!filter.IsFinished()) {
        filter.Filter(in, out);
    }
    if (!in.Empty() || !filter.IsFinished()) {
        throw DataOverflow();
    }
    return {reinterpret_cast<const char*>(memory), out.Filled().Length()};
}

inspector_string CopiedString(std::string_view text) {
    char* const memory = static_cast<char*>(InspectorAllocate(text.size()));
    text.copy(memory, text.size());
    return {memory, text.size()};
}

inspector_string JoinedString(std::initializer_list<std::string_view> pieces) {
    size_t length = 0;
    for (std::string_view piece : pieces) {
        length += piece.size();
    }
    char* const start = static_cast<char*>(InspectorAllocate(length));
    char* out = start;
    for (std::string_view piece : pieces) {
        out = std::copy(piece.begin(), piece.end(), out);
    }
    return {start, length};
}

namespace {

inspector_string Identity(const inspector_string& text) { return text; }

// Every byte, so that a string of one byte needs no memory of its own.
constexpr auto kBytes = [] {
    std::array<char, 256> bytes{};
    for (size_t i = 0; i < bytes.size(); ++i) {
        bytes[i] = static_cast<char>(i);
    }
    return bytes;
}();

std::optional<inspector_string> character_of(integer n) {
    if (n.Value() > 255) {
        return std::nullopt;
    }
    return inspector_string(&kBytes[static_cast<size_t>(n.Value())], 1);
}

integer Length(const inspector_string& text) { return static_cast<int64_t>(text.length); }

// The digest is the host's affair.  A host without one and no host at all are told alike.
inspector_string StringSHA1(const inspector_string& text) {
    const auto& crypto = ContextInterface<CryptoInspectorContext, NoInspectorContext>();
    if (crypto.sha1OfBytes == nullptr) {
        throw NoInspectorContext();
    }
    const ConstData bytes = text.Data();
    return crypto.sha1OfBytes(bytes.begin, bytes.end);
}

inspector_string AsUppercase(const inspector_string& text) {
    Ascii::CaseRaisingFilter filter;
    return FilteredString(text, filter, text.length);
}

inspector_string AsLowercase(const inspector_string& text) {
    Ascii::CaseLoweringFilter filter;
    return FilteredString(text, filter, text.length);
}

// The blanks are these four; vertical tab and form feed are none.
constexpr std::string_view kBlanks = " \t\n\r";

inspector_string LeftTrimmedString(const inspector_string& text) {
    const size_t blanks = std::min(text.View().find_first_not_of(kBlanks), text.length);
    return {text.start + blanks, text.length - blanks};
}

inspector_string RightTrimmedString(const inspector_string& text) {
    return {text.start, text.View().find_last_not_of(kBlanks) + 1};
}

inspector_string TrimmedString(const inspector_string& text) { return LeftTrimmedString(RightTrimmedString(text)); }

// In a chain of concatenations the left side is what was made last, and grows where it stands, so that a chain takes
// the memory of its result and not of all its beginnings.
inspector_string Concatenated(const inspector_string& a, const inspector_string& b) {
    StackAllocatorBase& memory = InspectorAllocator();
    const size_t length = a.length + b.length;
    char* const end = const_cast<char*>(a.start) + a.length;
    if (memory.GrowText(end, b.length)) {
        std::copy_n(b.start, b.length, end);
        return {a.start, length};
    }
    char* bytes = memory.AllocateText(length);
    std::copy_n(a.start, a.length, bytes);
    std::copy_n(b.start, b.length, bytes + a.length);
    return {bytes, length};
}

boolean Equal(const inspector_string& a, const inspector_string& b) { return a.View() == b.View(); }
boolean Less(const inspector_string& a, const inspector_string& b) { return a.View() < b.View(); }
boolean LessOrEqual(const inspector_string& a, const inspector_string& b) { return a.View() <= b.View(); }
boolean StartsWith(const inspector_string& a, const inspector_string& b) { return a.View().starts_with(b.View()); }
boolean EndsWith(const inspector_string& a, const inspector_string& b) { return a.View().ends_with(b.View()); }
boolean Contains(const inspector_string& a, const inspector_string& b) {
    return FindBytes(a.View(), b.View()) != std::string_view::npos;
}

using String = inspector_string;

// clang-format off
Type<String>                                                        type;

NamedGlobalProperty<String, Identity>                               ofString     {"string", "strings"};
NumberedGlobalProperty<String, character_of>                        character    {"character", "characters"};
Property<String, integer, Length>                                   length       {"length", "lengths"};
Property<String, String, StringSHA1>                                sha1         {"sha1", "sha1s"};

Cast<String, String, Identity>                                      toString     {"string"};
Cast<String, String, AsUppercase>                                   uppercase    {"uppercase"};
Cast<String, String, AsLowercase>                                   lowercase    {"lowercase"};
Cast<String, String, LeftTrimmedString>                             leftTrimmed  {"left trimmed string"};
Cast<String, String, RightTrimmedString>                            rightTrimmed {"right trimmed string"};
Cast<String, String, TrimmedString>                                 trimmed      {"trimmed string"};

OperatorConcatenate<String, String, String, Concatenated>           concatenate;
RelationEqual<String, String, Equal>                                equal;
RelationLess<String, String, Less>                                  less;
RelationLessOrEqual<String, String, LessOrEqual>                    lessOrEqual;
RelationStartsWith<String, String, StartsWith>                      startsWith;
RelationEndsWith<String, String, EndsWith>                          endsWith;
RelationContains<String, String, Contains>                          contains;
// clang-format on

}  // namespace
