// The costs that are told of patterns.
#include "values/pattern_cost.h"

#include <gtest/gtest.h>
#include <regex.h>

#include <string>

namespace {

std::string Times(size_t count, std::string_view text) {
    std::string all;
    for (size_t i = 0; i < count; ++i) {
        all += text;
    }
    return all;
}

bool IsAffordable(const std::string& pattern) { return CostOfPattern(pattern).IsAffordable(); }

TEST(PatternCost, WhatPeopleWriteIsAffordable) {
    EXPECT_TRUE(IsAffordable(""));
    EXPECT_TRUE(IsAffordable("^[[:space:]]*([a-z_]+)=(\"[^\"]*\"|'[^']*')[])}]?$"));
    EXPECT_TRUE(IsAffordable("([0-9]{1,3}\\.){3}[0-9]{1,3}"));
    EXPECT_TRUE(IsAffordable("(((a+)+)+)+"));
    EXPECT_TRUE(IsAffordable("a{32767}"));
    EXPECT_TRUE(IsAffordable("a{1000}{1000}"));
    EXPECT_TRUE(IsAffordable(Times(100000, "abcdefghij")));
    EXPECT_TRUE(IsAffordable(Times(4000, "word|")));
    EXPECT_TRUE(IsAffordable(Times(2000, "a*")));
}

TEST(PatternCost, WhatWouldTakeEverythingIsNot) {
    EXPECT_FALSE(IsAffordable("a{1000}{1000}{1000}"));
    EXPECT_FALSE(IsAffordable("(a{1000}){5000}"));
    EXPECT_FALSE(IsAffordable("(a?){32767}"));
    EXPECT_FALSE(IsAffordable("a{0,32767}"));
    EXPECT_FALSE(IsAffordable(Times(20000, "(")));
    EXPECT_FALSE(IsAffordable(Times(20000, "(") + "a" + Times(20000, ")")));
    EXPECT_FALSE(IsAffordable("a" + Times(20000, "*")));
    EXPECT_FALSE(IsAffordable("a" + Times(40, "+")));
    EXPECT_FALSE(IsAffordable(Times(100000, "a|")));
    EXPECT_FALSE(IsAffordable(Times(9, "(") + "a" + Times(9, "{9,32767})")));
    EXPECT_FALSE(IsAffordable("a{99999999999999999999999999}"));
}

TEST(PatternCost, RepetitionsAreWrittenOut) {
    EXPECT_EQ(CostOfPattern("aa").nodes, 2 * CostOfPattern("a").nodes);
    EXPECT_GE(CostOfPattern("a{7}").nodes, 7 * CostOfPattern("a").nodes);
    EXPECT_GE(CostOfPattern("(a|b){7}").nodes, 7 * CostOfPattern("a|b").nodes);
    EXPECT_EQ(CostOfPattern("a{7}").free, 0u);
    EXPECT_EQ(CostOfPattern("a{3,7}").free, 4u);
    EXPECT_EQ(CostOfPattern("a{,7}").free, 7u);
    EXPECT_EQ(CostOfPattern("a{3,}").free, 1u);
    EXPECT_EQ(CostOfPattern("a*b?c+").free, 3u);
    EXPECT_EQ(CostOfPattern("((a*)*)*").nesting, 3u);
    EXPECT_EQ(CostOfPattern("a*b*").nesting, 1u);
}

// What only looks like a repetition or a group.
TEST(PatternCost, OtherBytesStandForThemselves) {
    const size_t one = CostOfPattern("a").nodes;
    EXPECT_EQ(CostOfPattern("[a*+?(|]").nodes, one);
    EXPECT_EQ(CostOfPattern("[]{1000}]").nodes, one);
    EXPECT_EQ(CostOfPattern("[^]{1000}]").nodes, one);
    EXPECT_EQ(CostOfPattern("[[:alpha:]{9}]").nodes, one);
    EXPECT_EQ(CostOfPattern("[[.].]{9}]").nodes, one);
    EXPECT_EQ(CostOfPattern("\\(").nodes, one);
    EXPECT_EQ(CostOfPattern("\\*").free, 0u);
    EXPECT_EQ(CostOfPattern("a)").nodes, 2 * one);
    EXPECT_EQ(CostOfPattern("a{b").nodes, 3 * one);
    EXPECT_EQ(CostOfPattern("{").nodes, one);
}

TEST(PatternCost, APatternMayEndAnywhere) {
    const std::string pattern = "(a[[:alpha:]]\\){2,3}|[^]b]{4,}";
    for (size_t length = 0; length <= pattern.size(); ++length) {
        EXPECT_TRUE(IsAffordable(pattern.substr(0, length)));
    }
}

// The most that is let through, given to the C library on an ordinary stack of its own.
TEST(PatternCost, WhatIsAffordableCompiles) {
    const std::string patterns[] = {
        Times(4900, "(") + "a" + Times(4900, ")"), Times(4900, "a|"),  Times(4900, "a*"), "a{1000}{1000}", "(a*){3000}",
        Times(490, "(") + "a" + Times(490, ")*"),  "((a{1,90}){1,90})"};
    for (const std::string& pattern : patterns) {
        ASSERT_TRUE(IsAffordable(pattern)) << pattern.substr(0, 20);
        regex_t compiled;
        ASSERT_EQ(regcomp(&compiled, pattern.c_str(), REG_EXTENDED), 0) << pattern.substr(0, 20);
        regfree(&compiled);
    }
}

}  // namespace
