// What a fuzz target holds true: a fault stops the fuzzer.
#ifndef FUZZ_EXPECT_H
#define FUZZ_EXPECT_H

#include <cstdio>
#include <cstdlib>

inline void Expect(bool holds) {
    if (!holds) {
        std::abort();
    }
}

// The same, and says what does not hold.
inline void Expect(bool holds, const char* what) {
    if (!holds) {
        std::fprintf(stderr, "%s\n", what);
        std::abort();
    }
}

#endif
