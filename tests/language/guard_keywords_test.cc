#include "language/guard_keywords.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/language/token_recorder.h"

namespace {

struct Row {
    const char* phrase;
    const char* action;  // token, and what it tells the semantics: op<code>/<flags>
};

// clang-format off
const Row rows[] = {
    {"and ",                             "7"},
    {"as ",                              "15"},
    {"contains ",                        "6:op11"},
    {"does not contain ",                "6:op11/256"},
    {"does not end with ",               "6:op10/256"},
    {"does not equal ",                  "6:op6/256"},
    {"does not start with ",             "6:op9/256"},
    {"else ",                            "20"},
    {"ends with ",                       "6:op10"},
    {"equals ",                          "6:op6"},
    {"exist ",                           "16"},
    {"exist no ",                        "17"},
    {"exists ",                          "16"},
    {"exists no ",                       "17"},
    {"if ",                              "18"},
    {"is ",                              "6:op6"},
    {"is contained by ",                 "6:op11/1"},
    {"is equal to ",                     "6:op6"},
    {"is greater than ",                 "6:op7/1"},
    {"is greater than or equal to ",     "6:op8/1"},
    {"is less than ",                    "6:op7"},
    {"is less than or equal to ",        "6:op8"},
    {"is not ",                          "6:op6/256"},
    {"is not contained by ",             "6:op11/257"},
    {"is not equal to ",                 "6:op6/256"},
    {"is not greater than ",             "6:op7/257"},
    {"is not greater than or equal to ", "6:op8/257"},
    {"is not less than ",                "6:op7/256"},
    {"is not less than or equal to ",    "6:op8/256"},
    {"it ",                              "21:It"},
    {"mod ",                             "4:op4"},
    {"not ",                             "2"},
    {"of ",                              "13"},
    {"or ",                              "8"},
    {"starts with ",                     "6:op9"},
    {"then ",                            "19"},
    {"there do not exist ",              "17"},
    {"there does not exist ",            "17"},
    {"there exist ",                     "16"},
    {"there exist no ",                  "17"},
    {"there exists ",                    "16"},
    {"there exists no ",                 "17"},
    {"whose ",                           "14"},
};
// clang-format on

TEST(GuardKeywords, AreThe43OfTheLanguageInTheirOrder) {
    const GuardTable table = GuardKeywords();
    ASSERT_EQ(table.size(), 43u);
    ASSERT_EQ(std::size(rows), 43u);
    for (size_t i = 0; i < table.size(); ++i) {
        EXPECT_STREQ(table[i].word, rows[i].phrase);
        EXPECT_EQ(Describe(*table[i].value), rows[i].action) << rows[i].phrase;
    }
}

TEST(GuardKeywords, EachIsOneTokenAloneAndBetweenNames) {
    for (const Row& row : rows) {
        const std::string phrase = row.phrase;
        EXPECT_EQ(Tokens(phrase), row.action) << phrase;
        EXPECT_EQ(Tokens("foo " + phrase + "bar"), "<foo> " + std::string(row.action) + " <bar>") << phrase;
    }
}

TEST(GuardKeywords, EachIsKnownWithoutTheBlankBehindIt) {
    for (const Row& row : rows) {
        std::string phrase = row.phrase;
        phrase.pop_back();
        EXPECT_EQ(Tokens(phrase), row.action) << phrase;
        EXPECT_EQ(Tokens(phrase + "("), std::string(row.action) + " 0") << phrase;
    }
}

TEST(GuardKeywords, EachIsKnownInAnyCaseOverLineEndsAndWithArticlesInIt) {
    for (const Row& row : rows) {
        std::string phrase;
        for (const char c : std::string_view(row.phrase)) {
            phrase += c == ' ' ? "\r\n\t The  " : std::string(1, static_cast<char>(std::toupper(c)));
        }
        EXPECT_EQ(Tokens(phrase), row.action) << phrase;
    }
}

}  // namespace
