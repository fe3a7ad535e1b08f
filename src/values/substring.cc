#include "values/substring.h"

#include "evaluator/adapters.h"
#include "values/byte_search.h"
#include "values/string_position.h"

namespace {

using String = inspector_string;
using Pair = InspectorTuple2<integer, integer>;

std::optional<substring> first_characters(integer n, const String& text) {
    const auto count = static_cast<size_t>(n.Value());
    return count > text.length ? std::nullopt : std::optional<substring>(substring(0, count, text));
}

std::optional<substring> last_characters(integer n, const String& text) {
    const auto count = static_cast<size_t>(n.Value());
    return count > text.length ? std::nullopt : std::optional<substring>(substring(text.length - count, count, text));
}

std::optional<substring> Match(size_t offset, const String& sought, const String& text) {
    return offset == std::string_view::npos ? std::nullopt
                                            : std::optional<substring>(substring(offset, sought.length, text));
}

std::optional<substring> first_match(const String& sought, const String& text) {
    return Match(FindBytes(text.View(), sought.View()), sought, text);
}

std::optional<substring> last_match(const String& sought, const String& text) {
    return Match(FindLastBytes(text.View(), sought.View()), sought, text);
}

// The pair is the offset of the first byte and the count of bytes.
std::optional<substring> Substring(const Pair& range, Of, const String& text) {
    const int64_t start = TupleElement<integer>(&range, 0).Value();
    const int64_t count = TupleElement<integer>(&range, 1).Value();
    int64_t end;
    if (start < 0 || count < 0 || __builtin_add_overflow(start, count, &end) ||
        static_cast<size_t>(end) > text.length) {
        return std::nullopt;
    }
    return substring(static_cast<size_t>(start), static_cast<size_t>(count), text);
}

std::optional<substring> character(integer n, const String& text) {
    const auto offset = static_cast<size_t>(n.Value());
    return offset >= text.length ? std::nullopt : std::optional<substring>(substring(offset, 1, text));
}

// Every occurrence of a text: the search goes on one byte behind the start of the last one, so that they may overlap.
class match_iterator {
public:
    void Start(const String&, Of, const String&) { from_ = 0; }
    bool Finished(const String& sought, Of, const String& text) {
        match_ = FindBytes(text.View(), sought.View(), from_);
        return match_ == std::string_view::npos;
    }
    substring Next(const String& sought, Of, const String& text) {
        from_ = match_ + 1;
        return {match_, sought.length, text};
    }

private:
    size_t from_ = 0;
    size_t match_ = 0;
};

class character_iterator {
public:
    void Start(Of, const String&) { next_ = 0; }
    bool Finished(Of, const String& text) const { return next_ == text.length; }
    substring Next(Of, const String& text) { return {next_++, 1, text}; }

private:
    size_t next_ = 0;
};

string_position start(const substring& text) { return {text.Offset(), text.Parent()}; }
string_position end(const substring& text) { return {text.EndOffset(), text.Parent()}; }

substring PrecedingText(const substring& text) { return {0, text.Offset(), text.Parent()}; }
substring FollowingText(const substring& text) {
    return {text.EndOffset(), text.Parent().length - text.EndOffset(), text.Parent()};
}

using every = match_iterator;
using bytes = character_iterator;

// clang-format off
Type<substring>                                                     type;

NumberedProperty<String, substring, first_characters>               firstCount  {"first", "firsts"};
NumberedProperty<String, substring, last_characters>                lastCount   {"last", "lasts"};
NamedProperty<String, substring, first_match>                       firstMatch  {"first", "firsts"};
NamedProperty<String, substring, last_match>                        lastMatch   {"last", "lasts"};
PropertyByIndexOfObject<String, Pair, substring, Substring>         range       {"substring", "substrings"};
IteratedPropertyByIndexOfObject<every, substring, String, String, &every::Next, &every::Next, &every::Start,
                                &every::Finished>                   matches     {"substring", "substrings"};
NumberedProperty<String, substring, character>                      numbered    {"character", "characters"};
IteratedPropertyOfObject<bytes, substring, String, &bytes::Next, &bytes::Next, &bytes::Start, &bytes::Finished>
                                                                    characters  {"character", "characters"};
Property<substring, string_position, start>                         startOf     {"start", "starts"};
Property<substring, string_position, end>                           endOf       {"end", "ends"};
Property<substring, substring, PrecedingText>                       preceding   {"preceding text", "preceding texts"};
Property<substring, substring, FollowingText>                       following   {"following text", "following texts"};
// clang-format on

}  // namespace
