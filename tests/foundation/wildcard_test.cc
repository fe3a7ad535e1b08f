#include "foundation/wildcard.h"

#include <gtest/gtest.h>

#include <string>

namespace {

// The match as it is told: every restart position tried, recursively.
bool Told(std::string_view name, std::string_view pattern) {
    if (pattern.empty()) {
        return name.empty();
    }
    if (pattern.front() == '*') {
        for (size_t i = 0; i <= name.size(); ++i) {
            if (Told(name.substr(i), pattern.substr(1))) {
                return true;
            }
        }
        return false;
    }
    return !name.empty() && (pattern.front() == '?' || pattern.front() == name.front()) &&
           Told(name.substr(1), pattern.substr(1));
}

// All texts of up to `longest` letters.
template <class Use>
void ForAll(std::string_view letters, size_t longest, const std::string& start, const Use& use) {
    use(start);
    if (start.size() < longest) {
        for (const char letter : letters) {
            ForAll(letters, longest, start + letter, use);
        }
    }
}

TEST(Wildcard, AgreesWithTryingEveryRestart) {
    ForAll("ab*?", 5, "", [](const std::string& pattern) {
        ForAll("ab", 4, "", [&](const std::string& name) {
            EXPECT_EQ(MatchesWildcard(name, pattern), Told(name, pattern)) << name << " / " << pattern;
        });
    });
}

TEST(Wildcard, CaseCounts) {
    EXPECT_TRUE(MatchesWildcard("A", "A"));
    EXPECT_FALSE(MatchesWildcard("a", "A"));
}

TEST(Wildcard, AStarInANameIsAByteLikeAnyOther) {
    EXPECT_TRUE(MatchesWildcard("*", "?"));
    EXPECT_FALSE(MatchesWildcard("*", "a"));
    EXPECT_TRUE(MatchesWildcard("a*b", "a*b"));
}

TEST(Wildcard, AHostilePatternCostsNeitherTimeNorStack) {
    std::string pattern;
    for (int i = 0; i < 120; ++i) {
        pattern += "*a";
    }
    EXPECT_FALSE(MatchesWildcard(std::string(254, 'a') + "b", pattern));
    EXPECT_TRUE(MatchesWildcard(std::string(200, 'a'), std::string(1000000, '*')));
}

TEST(WildcardPath, SplitsAtTheLastSlashWhenAWildcardFollows) {
    const WildcardPath star = SplitWildcardPath("/var/log/*.log");
    EXPECT_EQ(star.folder.Text(), "/var/log");
    EXPECT_EQ(star.pattern, "*.log");
    const WildcardPath mark = SplitWildcardPath("/var/lo?");
    EXPECT_EQ(mark.folder.Text(), "/var");
    EXPECT_EQ(mark.pattern, "lo?");
}

TEST(WildcardPath, WithoutAWildcardAllIsTheFolder) {
    const WildcardPath plain = SplitWildcardPath("/var/log");
    EXPECT_EQ(plain.folder.Text(), "/var/log");
    EXPECT_FALSE(plain.pattern.has_value());
    const WildcardPath inside = SplitWildcardPath("/v*r/log");
    EXPECT_EQ(inside.folder.Text(), "/v*r/log");
    EXPECT_FALSE(inside.pattern.has_value());
}

TEST(WildcardPath, WhatStandsBeforeTheSlashMayBeNothing) {
    EXPECT_TRUE(SplitWildcardPath("/*").folder.IsEmpty());
    EXPECT_EQ(SplitWildcardPath("/*").pattern, "*");
    EXPECT_TRUE(SplitWildcardPath("a*").folder.IsEmpty());
    EXPECT_EQ(SplitWildcardPath("a*").pattern, "a*");
}

}  // namespace
