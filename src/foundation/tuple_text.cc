#include "foundation/tuple_text.h"

#include <algorithm>
#include <cstring>

TupleItemWrapping WrappingOfTupleItem(std::string_view text) {
    size_t unopened = 0;
    size_t unclosed = 0;
    bool comma = false;
    for (char c : text) {
        if (c == '(') {
            ++unclosed;
        } else if (c == ')') {
            if (unclosed != 0) {
                --unclosed;
            } else {
                ++unopened;
            }
        } else if (c == ',' && unclosed == 0) {
            comma = true;
        }
    }
    const bool parenthesised = !text.empty() && text.front() == '(' && text.back() == ')';
    const size_t extra = comma || unopened != 0 || unclosed != 0 || parenthesised ? 1 : 0;
    return {unopened + extra, unclosed + extra};
}

char* WriteTupleItem(std::string_view text, TupleItemWrapping wrapping, char* out) {
    if (wrapping.opening != 0) {
        out = std::fill_n(out, wrapping.opening, '(');
        *out++ = ' ';
    }
    out = std::copy(text.begin(), text.end(), out);
    if (wrapping.closing != 0) {
        *out++ = ' ';
        out = std::fill_n(out, wrapping.closing, ')');
    }
    return out;
}

std::string_view BeforeTopLevelComma(std::string_view text) {
    size_t depth = 0;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '(') {
            ++depth;
        } else if (text[i] == ')') {
            if (depth == 0) {
                throw MismatchedParentheses();
            }
            --depth;
        } else if (text[i] == ',' && depth == 0) {
            return text.substr(0, i);
        }
    }
    if (depth != 0) {
        throw MismatchedParentheses();
    }
    return text;
}

namespace {

// Takes away the parentheses that protect an item, and the blanks inside them.  Kept as it stands: an inside with a
// blank on neither side was not written by us and is the item as it is; a blank on one side only is a fault.
std::string_view Unwrapped(std::string_view raw) {
    if (raw.empty() || raw.front() != '(' || raw.back() != ')') {
        return raw;
    }
    const size_t first = raw.find_first_not_of('(');
    const size_t last = raw.find_last_not_of(')');
    if (first == std::string_view::npos || last == std::string_view::npos || first > last) {
        throw BadTupleString();
    }
    const std::string_view inside = raw.substr(first, last + 1 - first);
    const bool blankBefore = inside.front() == ' ';
    const bool blankBehind = inside.back() == ' ';
    if (!blankBefore && !blankBehind) {
        return inside;
    }
    if (!blankBefore || !blankBehind || inside.size() < 2) {
        throw BadTupleString();
    }
    return inside.substr(1, inside.size() - 2);
}

}  // namespace

std::string_view TupleTextReader::Next() {
    const std::string_view raw = BeforeTopLevelComma(rest_);
    const std::string_view behind = rest_.substr(raw.size());
    if (behind.empty()) {
        atEnd_ = true;
    } else if (behind.size() < 2 || behind[1] != ' ') {
        throw BadTupleString();
    } else {
        rest_ = behind.substr(2);
    }
    return Unwrapped(raw);
}
