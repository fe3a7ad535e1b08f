// Feeds a text to a lexer in every way in which a stream may come: whole, cut in two at each position, byte by byte,
// and with empty runs between.
#ifndef TESTS_LANGUAGE_EVERY_CUT_H
#define TESTS_LANGUAGE_EVERY_CUT_H

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/data_receiver.h"

using Runs = std::vector<std::string_view>;

// A run is copied to its own heap block, so that reading past its end is seen by the sanitizer and a lexeme that keeps
// a pointer into an earlier run is found out.
inline void Feed(DataReceiver& receiver, const Runs& runs) {
    receiver.Start();
    for (const std::string_view run : runs) {
        const std::unique_ptr<unsigned char[]> copy(new unsigned char[run.size()]);
        std::copy(run.begin(), run.end(), copy.get());
        receiver.Data(copy.get(), copy.get() + run.size());
    }
    receiver.Finish();
}

// Calls `outcome` with the whole text as one run, and then with each other cut, and expects the same each time.
// Returns the common outcome.
inline std::string OutcomeOfEveryCut(std::string_view text, const std::function<std::string(const Runs&)>& outcome) {
    const std::string whole = outcome({text});
    for (size_t cut = 0; cut <= text.size(); ++cut) {
        EXPECT_EQ(outcome({text.substr(0, cut), text.substr(cut)}), whole) << "cut at " << cut;
    }
    Runs bytes;
    Runs bytesAndNothing;
    for (size_t i = 0; i < text.size(); ++i) {
        bytes.push_back(text.substr(i, 1));
        bytesAndNothing.push_back(text.substr(i, 1));
        bytesAndNothing.push_back({});
    }
    EXPECT_EQ(outcome(bytes), whole) << "byte by byte";
    EXPECT_EQ(outcome(bytesAndNothing), whole) << "byte by byte with empty runs";
    return whole;
}

#endif
