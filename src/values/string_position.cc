#include "values/string_position.h"

#include "evaluator/adapters.h"
#include "values/substring.h"

namespace {

std::optional<string_position> position(integer n, const inspector_string& text) {
    if (static_cast<uint64_t>(n.Value()) > text.length) {
        return std::nullopt;
    }
    return string_position(static_cast<size_t>(n.Value()), text);
}

// From before the first byte to behind the last one: always one more than there are bytes.
class position_iterator {
public:
    void Start(Of, const inspector_string&) { next_ = 0; }
    bool Finished(Of, const inspector_string& text) const { return next_ > text.length; }
    string_position Next(Of, const inspector_string& text) { return {next_++, text}; }

private:
    size_t next_ = 0;
};

substring PrecedingText(const string_position& position) { return {0, position.Offset(), position.Parent()}; }

substring FollowingText(const string_position& position) {
    return {position.Offset(), position.Parent().length - position.Offset(), position.Parent()};
}

using String = inspector_string;
using iterator = position_iterator;

// clang-format off
Type<string_position>                                               type;

NumberedProperty<String, string_position, position>                 numbered   {"position", "positions"};
IteratedPropertyOfObject<iterator, string_position, String, &iterator::Next, &iterator::Next, &iterator::Start,
                         &iterator::Finished>                       all        {"position", "positions"};
Property<string_position, substring, PrecedingText>                 preceding  {"preceding text", "preceding texts"};
Property<string_position, substring, FollowingText>                 following  {"following text", "following texts"};
// clang-format on

}  // namespace
