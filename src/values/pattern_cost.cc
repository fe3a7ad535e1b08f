#include "values/pattern_cost.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace {

constexpr size_t kMost = std::numeric_limits<size_t>::max();

size_t Sum(size_t a, size_t b) { return a > kMost - b ? kMost : a + b; }
size_t Product(size_t a, size_t b) { return a != 0 && b > kMost / a ? kMost : a * b; }

PatternCost Both(const PatternCost& a, const PatternCost& b) {
    return {Sum(a.nodes, b.nodes), Sum(a.free, b.free), std::max(a.nesting, b.nesting)};
}

// One level of brackets: what is complete, and the last item, which a repetition may still multiply.
struct Level {
    PatternCost before;
    PatternCost last;

    void Begin(const PatternCost& item) {
        before = Both(before, last);
        last = item;
    }
    PatternCost All() const { return Both(before, last); }
};

class PatternReader {
public:
    explicit PatternReader(std::string_view pattern) : rest_(pattern) {}

    PatternCost Read() {
        while (!rest_.empty()) {
            const char c = rest_.front();
            rest_.remove_prefix(1);
            ReadItem(c);
        }
        while (!outer_.empty()) {
            Close();
        }
        return level_.All();
    }

private:
    // An atom and the node that joins it to what is before it.
    static constexpr PatternCost kAtom = {2, 0, 0};

    void ReadItem(char c) {
        switch (c) {
            case '\\':
                rest_.remove_prefix(std::min<size_t>(1, rest_.size()));
                level_.Begin(kAtom);
                break;
            case '[':
                SkipSet();
                level_.Begin(kAtom);
                break;
            case '(':
                outer_.push_back(level_);
                level_ = {};
                break;
            case ')':
                if (outer_.empty()) {
                    level_.Begin(kAtom);
                } else {
                    Close();
                }
                break;
            case '|':
                level_.Begin({2, 2, 0});
                break;
            case '*':
            case '?':
                Repeat(1, 1);
                break;
            case '+':
                Repeat(2, 1);
                break;
            case '{':
                ReadBound();
                break;
            default:
                level_.Begin(kAtom);
                break;
        }
    }

    // A group is a node that opens, one that closes, and one that stands for both.
    void Close() {
        const PatternCost group = Both(level_.All(), {4, 2, 0});
        level_ = outer_.back();
        outer_.pop_back();
        level_.Begin(group);
    }

    // The last item written out `copies` times, each with the node that joins it; `optional` of them may be passed by.
    void Repeat(size_t copies, size_t optional) {
        PatternCost& last = level_.last;
        last.nodes = Product(Sum(last.nodes, 2), copies);
        last.free = Sum(Product(last.free, copies), optional);
        last.nesting = Sum(last.nesting, optional == 0 ? 0 : 1);
    }

    // Behind "[": a "]" that comes first belongs to the set, and so does one in "[:name:]" and its like.
    void SkipSet() {
        size_t i = rest_.starts_with('^') ? 1 : 0;
        if (i < rest_.size() && rest_[i] == ']') {
            ++i;
        }
        while (i < rest_.size() && rest_[i] != ']') {
            if (rest_[i] == '[' && i + 1 < rest_.size() && std::string_view(":.=").find(rest_[i + 1]) < 3) {
                const char closing[] = {rest_[i + 1], ']'};
                const size_t end = rest_.find(std::string_view(closing, 2), i + 2);
                i = end == std::string_view::npos ? i + 1 : end + 2;
            } else {
                ++i;
            }
        }
        rest_.remove_prefix(std::min(i + 1, rest_.size()));
    }

    // Behind "{": "n}", "n,}", ",m}" or "n,m}" repeats; anything else stands for itself.
    void ReadBound() {
        std::string_view rest = rest_;
        const size_t least = ReadNumber(rest);
        size_t most = least;
        size_t optional = 0;
        if (rest.starts_with(",}")) {
            rest.remove_prefix(1);
            most = Sum(least, 1);
            optional = 1;
        } else if (rest.starts_with(',')) {
            rest.remove_prefix(1);
            most = std::max(least, ReadNumber(rest));
            optional = most - least;
        }
        if (!rest.starts_with('}')) {
            level_.Begin(kAtom);
            return;
        }
        rest_ = rest.substr(1);
        Repeat(std::max<size_t>(most, 1), optional);
    }

    static size_t ReadNumber(std::string_view& rest) {
        size_t number = 0;
        while (!rest.empty() && rest.front() >= '0' && rest.front() <= '9') {
            number = Sum(Product(number, 10), static_cast<size_t>(rest.front() - '0'));
            rest.remove_prefix(1);
        }
        return number;
    }

    std::string_view rest_;
    Level level_;
    std::vector<Level> outer_;
};

}  // namespace

PatternCost CostOfPattern(std::string_view pattern) { return PatternReader(pattern).Read(); }
