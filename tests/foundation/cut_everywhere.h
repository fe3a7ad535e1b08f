// Gives one text to a reader in every way in which it can come: whole, in two runs cut at every byte, byte by byte and
// with empty runs between.
#ifndef TESTS_FOUNDATION_CUT_EVERYWHERE_H
#define TESTS_FOUNDATION_CUT_EVERYWHERE_H

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

using Runs = std::vector<std::string_view>;

// `outcome` takes Runs, reads them with a reader of its own and returns what came of it.  Returns that of the whole
// text, having checked that all others are the same.
template <class Outcome>
std::string CutEverywhere(std::string_view text, Outcome outcome) {
    const std::string whole = outcome(Runs{text});
    Runs bytes;
    for (size_t i = 0; i <= text.size(); ++i) {
        EXPECT_EQ(outcome(Runs{text.substr(0, i), text.substr(i)}), whole) << "cut at " << i;
        bytes.push_back(text.substr(i, 1));
        bytes.push_back({});
    }
    EXPECT_EQ(outcome(bytes), whole) << "byte by byte";
    return whole;
}

#endif
