// "substrings before", "after", "between" and "separated by": the words of a text between the occurrences of a
// separator.  Occurrences do not overlap here: each search starts behind the last one.
#include "evaluator/adapters.h"
#include "values/byte_search.h"
#include "values/substring.h"

namespace {

using String = inspector_string;

// The separator at `from` or behind it.  An empty separator is never found.
size_t FindSeparator(const String& separator, const String& text, size_t from) {
    if (from > text.length) {
        throw InspectorInternalError("c/word_iterator", 39);
    }
    return separator.length == 0 ? std::string_view::npos : FindBytes(text.View(), separator.View(), from);
}

// The four differ in two things: whether the text before the first separator is a word, and whether the text behind
// the last one is.
template <bool GivesHead, bool GivesTail>
class word_iterator {
public:
    void Start(const String& separator, Of, const String& text) {
        from_ = 0;
        ended_ = false;
        if constexpr (!GivesHead) {
            const size_t first = FindSeparator(separator, text, 0);
            ended_ = first == std::string_view::npos;
            from_ = ended_ ? 0 : first + separator.length;
        }
    }

    bool Finished(const String& separator, Of, const String& text) {
        if (!ended_) {
            found_ = FindSeparator(separator, text, from_);
            ended_ = !GivesTail && found_ == std::string_view::npos;
        }
        return ended_;
    }

    substring Next(const String& separator, Of, const String& text) {
        const size_t start = from_;
        if (found_ == std::string_view::npos) {
            ended_ = true;
            return {start, text.length - start, text};
        }
        from_ = found_ + separator.length;
        return {start, found_ - start, text};
    }

private:
    size_t from_ = 0;
    size_t found_ = 0;
    bool ended_ = false;
};

using word_before_iterator = word_iterator<true, false>;
using word_after_iterator = word_iterator<false, true>;
using word_between_iterator = word_iterator<false, false>;
using word_separated_iterator = word_iterator<true, true>;

template <class Iterator>
using Words = IteratedPropertyByIndexOfObject<Iterator, substring, String, String, &Iterator::Next, &Iterator::Next,
                                              &Iterator::Start, &Iterator::Finished>;

// clang-format off
Words<word_before_iterator>                                         before       {"substring before", "substrings before"};
Words<word_after_iterator>                                          after        {"substring after", "substrings after"};
Words<word_between_iterator>                                        between      {"substring between", "substrings between"};
Words<word_separated_iterator>                                      separatedBy  {"substring separated by", "substrings separated by"};
// clang-format on

}  // namespace
