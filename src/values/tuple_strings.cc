// The items of a text in the form that tuples have as strings.
#include "evaluator/adapters.h"
#include "foundation/tuple_text.h"
#include "values/integer.h"

namespace {

// Takes the next item; none where the text is malformed or ends before it.
std::optional<inspector_string> NextItem(TupleTextReader& reader) {
    if (reader.AtEnd()) {
        return std::nullopt;
    }
    try {
        return inspector_string(reader.Next());
    } catch (const BadTupleString&) {
        return std::nullopt;
    } catch (const MismatchedParentheses&) {
        return std::nullopt;
    }
}

class TupleStringItemIterator {
public:
    std::optional<inspector_string> First(const inspector_string& text) {
        reader_ = TupleTextReader(text.View());
        return NextItem(reader_);
    }
    std::optional<inspector_string> Next(const inspector_string&) { return NextItem(reader_); }

private:
    TupleTextReader reader_{std::string_view()};
};

// Found by the same walk, which stops there: what is malformed behind the item does not matter.
std::optional<inspector_string> TupleStringItem(integer n, const inspector_string& text) {
    TupleTextReader reader(text.View());
    std::optional<inspector_string> item = NextItem(reader);
    for (int64_t i = 0; i < n.Value() && item; ++i) {
        item = NextItem(reader);
    }
    return item;
}

// clang-format off
IteratedProperty<TupleStringItemIterator, inspector_string, inspector_string> items     {"tuple string item", "tuple string items"};
NumberedProperty<inspector_string, inspector_string, TupleStringItem>         numbered  {"tuple string item", "tuple string items"};
// clang-format on

}  // namespace
