// What a fuzz target holds true: a fault stops the fuzzer.
#ifndef FUZZ_EXPECT_H
#define FUZZ_EXPECT_H

#include <cstdlib>

inline void Expect(bool holds) {
    if (!holds) {
        std::abort();
    }
}

#endif
