// Where the next line feed or carriage return lies in a stretch of bytes that is looked through from left to right.
#ifndef INSPECTORS_LINE_END_SEARCH_H
#define INSPECTORS_LINE_END_SEARCH_H

#include <algorithm>
#include <cstddef>
#include <cstring>

// Remembers the next of each of the two, so that no byte is looked at more than once for each of them, however the
// lines of the stretch end: a text without carriage returns costs one fast search to a line.
class LineEndSearch {
public:
    // Begins anew with a stretch that has no bytes yet.
    void Restart(const unsigned char* begin) { feed_ = return_ = begin; }

    // The stretch, which ended at `oldEnd`, goes on to `end`.
    void Extend(const unsigned char* oldEnd, const unsigned char* end) {
        Extend(feed_, '\n', oldEnd, end);
        Extend(return_, '\r', oldEnd, end);
    }

    // All bytes of the stretch have moved to the left.
    void Move(size_t distance) {
        feed_ -= distance;
        return_ -= distance;
    }

    // The first of either kind in [from, end), `end` where there is none.  `from` never goes back, and `end` is the end
    // of the stretch.
    const unsigned char* First(const unsigned char* from, const unsigned char* end) {
        if (feed_ < from) {
            feed_ = Find('\n', from, end);
        }
        if (return_ < from) {
            return_ = Find('\r', from, end);
        }
        return std::min(feed_, return_);
    }

private:
    static const unsigned char* Find(char byte, const unsigned char* from, const unsigned char* end) {
        const void* found = std::memchr(from, byte, static_cast<size_t>(end - from));
        return found == nullptr ? end : static_cast<const unsigned char*>(found);
    }
    static void Extend(const unsigned char*& next, char byte, const unsigned char* oldEnd, const unsigned char* end) {
        if (next == oldEnd) {
            next = Find(byte, oldEnd, end);
        }
    }

    const unsigned char* feed_ = nullptr;
    const unsigned char* return_ = nullptr;
};

#endif
