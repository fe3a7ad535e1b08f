// The text form of tuples: items joined by ", ", an item that would not read back as it stands put between
// parentheses with a blank on each side.
#ifndef FOUNDATION_TUPLE_TEXT_H
#define FOUNDATION_TUPLE_TEXT_H

#include <cstddef>
#include <string_view>

#include "foundation/debuggable_exception.h"

struct MismatchedParentheses : DebuggableException {
    MismatchedParentheses() noexcept : DebuggableException("MismatchedParentheses") {}
};
struct BadTupleString : DebuggableException {
    BadTupleString() noexcept : DebuggableException("BadTupleString") {}
};

// How many parentheses an item needs in front of it and behind it to read back as one item.
struct TupleItemWrapping {
    size_t opening = 0;
    size_t closing = 0;

    // The bytes that writing `text` takes, its separator not counted.
    size_t Length(std::string_view text) const {
        return text.size() + (opening != 0 ? opening + 1 : 0) + (closing != 0 ? closing + 1 : 0);
    }
};
TupleItemWrapping WrappingOfTupleItem(std::string_view text);

// Writes the wrapped item at `out`, which has room for its Length; returns the end of what was written.
char* WriteTupleItem(std::string_view text, TupleItemWrapping wrapping, char* out);

// Walks the items of a tuple string, front to back.  Nothing is looked at behind the item that was taken last.
class TupleTextReader {
public:
    explicit TupleTextReader(std::string_view text) : rest_(text), atEnd_(text.empty()) {}

    // True when no item is left; the empty string has none.
    bool AtEnd() const { return atEnd_; }

    // Takes the next item, unwrapped.  Throws MismatchedParentheses and BadTupleString.
    std::string_view Next();

private:
    std::string_view rest_;
    bool atEnd_;
};

// The bytes of `text` before its first comma outside parentheses; the whole where there is none.
// Throws MismatchedParentheses where a parenthesis has no partner.
std::string_view BeforeTopLevelComma(std::string_view text);

#endif
