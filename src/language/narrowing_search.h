// A search that follows a text through a sorted table byte by byte.
//
// Unlike a look-up of a whole word it can be asked after every byte whether any row still begins with what came so
// far, and whether one ends here.
#ifndef LANGUAGE_NARROWING_SEARCH_H
#define LANGUAGE_NARROWING_SEARCH_H

#include <cstddef>
#include <span>

#include "language/reserved_word.h"

// The rows [low, high) share their first `depth` bytes with the text so far.  Since a row sorts before those that it
// begins, a row that ends here is the one at `low`.
template <class T>
class NarrowingSearch {
public:
    using Row = ReservedWord<T>;

    explicit NarrowingSearch(std::span<const Row> table) : table_(table) { Restart(); }

    void Restart() {
        low_ = table_.data();
        high_ = low_ + table_.size();
        depth_ = 0;
    }

    // Narrows the rows to those that go on with `byte`.  When there are none it returns false and leaves the search
    // as it was.  A zero byte of the text is no row's end: it leaves no rows.
    bool Narrow(unsigned char byte) {
        if (byte == 0) {
            return false;
        }
        const Row* const low = FirstNotBefore(low_, byte);
        if (low == high_ || ByteOf(*low) != byte) {
            return false;
        }
        high_ = FirstNotBefore(low, byte + 1u);
        low_ = low;
        ++depth_;
        return true;
    }

    size_t Depth() const { return depth_; }

    // The row that ends exactly here, or null.
    const Row* Match() const { return depth_ != 0 && ByteOf(*low_) == 0 ? low_ : nullptr; }

    // True when a single row is left, so that nothing longer than it can match.
    bool Single() const { return high_ - low_ == 1; }

private:
    // In all rows of the range `depth_` is at most the row's terminating zero.
    unsigned ByteOf(const Row& row) const { return static_cast<unsigned char>(row.word[depth_]); }

    const Row* FirstNotBefore(const Row* low, unsigned byte) const {
        const Row* high = high_;
        while (low != high) {
            const Row* const middle = low + (high - low) / 2;
            if (ByteOf(*middle) < byte) {
                low = middle + 1;
            } else {
                high = middle;
            }
        }
        return low;
    }

    std::span<const Row> table_;
    const Row* low_ = nullptr;
    const Row* high_ = nullptr;
    size_t depth_ = 0;
};

#endif
