// Rows of sorted word tables, and the check that they are sorted.
#ifndef LANGUAGE_RESERVED_WORD_H
#define LANGUAGE_RESERVED_WORD_H

#include <cstddef>
#include <string_view>

template <class T>
struct ReservedWord {
    const char* word;
    T value;
};

// True when the words stand in strictly rising order of their bytes, as every search by halving needs them.
template <class T, size_t N>
constexpr bool IsSorted(const ReservedWord<T> (&table)[N]) {
    for (size_t i = 1; i < N; ++i) {
        if (!(std::string_view(table[i - 1].word) < std::string_view(table[i].word))) {
            return false;
        }
    }
    return true;
}

#endif
