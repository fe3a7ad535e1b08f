// Questions of great depth and length: each is answered, or is told that there is not enough memory, and the next one
// is answered.  Depth is memory, and never the machine stack's end.
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "tests/console/asked.h"

namespace {

constexpr int kThousand = 1000;
constexpr int kMillion = 1000000;

std::string Times(int count, std::string_view text) {
    std::string repeated;
    repeated.reserve(static_cast<size_t>(count) * text.size());
    for (int i = 0; i < count; ++i) {
        repeated += text;
    }
    return repeated;
}

// The lines that answer the question.  The echo is left out: a text of megabytes is no use in a report.
std::string AnswersTo(const std::string& question) {
    BatchConsole console;
    console.chain.asker.SetEcho(false);
    std::string out = console.Run("Q: " + question + "\n");
    EXPECT_EQ(console.Run("Q: 1 + 1\n"), "Q: A: 2\n\n");
    return out.substr(0, 100);
}

constexpr const char* kNoMemory = "Q: E: There's not enough memory.\n\n";

int asked = 0;
int answered = 0;

// Lack of memory is an answer, but these depths fit into the memory of a machine that can build the system.
class Depth : public testing::Test {
protected:
    static void TearDownTestSuite() { EXPECT_GE(answered * 10, asked * 9) << answered << " of " << asked; }
};

void ExpectAnswerOrLackOfMemory(const std::string& question, const std::string& answer) {
    const std::string out = AnswersTo(question);
    ++asked;
    answered += out == "Q: " + answer + "\n" ? 1 : 0;
    EXPECT_TRUE(out == "Q: " + answer + "\n" || out == kNoMemory) << question.substr(0, 60) << ": " << out;
}

TEST_F(Depth, AMillionParentheses) {
    ExpectAnswerOrLackOfMemory(Times(kMillion, "(") + "1" + Times(kMillion, ")"), "A: 1\n");
    ExpectAnswerOrLackOfMemory(Times(kMillion, "(") + "1", "E: This expression could not be parsed.\n");
    ExpectAnswerOrLackOfMemory(Times(kMillion, "("), "E: This expression could not be parsed.\n");
}

TEST_F(Depth, PrefixOperators) {
    ExpectAnswerOrLackOfMemory(Times(100 * kThousand, "not ") + "true", "A: True\n");
    ExpectAnswerOrLackOfMemory(Times(100 * kThousand, "- ") + "1", "A: 1\n");
    ExpectAnswerOrLackOfMemory(Times(100 * kThousand, "exists ") + "1", "A: True\n");
    ExpectAnswerOrLackOfMemory(Times(100 * kThousand, "exists no ") + "1", "A: False\n");
    ExpectAnswerOrLackOfMemory(Times(100 * kThousand, "-"), "E: This expression could not be parsed.\n");
}

TEST_F(Depth, ChainsOfOperators) {
    ExpectAnswerOrLackOfMemory("1" + Times(10 * kThousand, " + 1"), "A: 10001\n");
    ExpectAnswerOrLackOfMemory("1" + Times(100 * kThousand, " * 1"), "A: 1\n");
    ExpectAnswerOrLackOfMemory("true" + Times(100 * kThousand, " and true"), "A: True\n");
    ExpectAnswerOrLackOfMemory("false" + Times(100 * kThousand, " or false"), "A: False\n");
    ExpectAnswerOrLackOfMemory("(1/0)" + Times(100 * kThousand, " | (1/0)") + " | 5", "A: 5\n");
    ExpectAnswerOrLackOfMemory("length of (\"a\"" + Times(100 * kThousand, " & \"b\"") + ")", "A: 100001\n");
    ExpectAnswerOrLackOfMemory(Times(50 * kThousand, "(1 + ") + "1" + Times(50 * kThousand, ")"), "A: 50001\n");
}

// Nested to the right, each value comes up through all levels before it; so that one is short.
TEST_F(Depth, LongCollections) {
    ExpectAnswerOrLackOfMemory("number of (1" + Times(100 * kThousand, "; 1") + ")", "A: 100001\n");
    ExpectAnswerOrLackOfMemory("sum of (1" + Times(100 * kThousand, "; 1") + ")", "A: 100001\n");
    ExpectAnswerOrLackOfMemory("sum of " + Times(3 * kThousand, "(1; ") + "1" + Times(3 * kThousand, ")"), "A: 3001\n");
}

TEST_F(Depth, LongTuples) {
    ExpectAnswerOrLackOfMemory("item 19999 of (0" + Times(20 * kThousand - 1, ", 7") + ")", "A: 7\n");
    ExpectAnswerOrLackOfMemory("item 20000 of (0" + Times(20 * kThousand - 1, ", 7") + ")",
                               "E: The tuple index 20000 is out of range.\n");
    EXPECT_EQ(AnswersTo("0" + Times(20 * kThousand - 1, ", 7")).substr(0, 16), "Q: A: 0, 7, 7, 7");
    EXPECT_EQ(AnswersTo(Times(2 * kThousand, "(1, ") + "1" + Times(2 * kThousand, ")")).substr(0, 10), "Q: A: 1, (");
}

TEST_F(Depth, TheStructuralConstructs) {
    ExpectAnswerOrLackOfMemory(Times(100 * kThousand, "absolute value of ") + "(-1)", "A: 1\n");
    ExpectAnswerOrLackOfMemory(Times(100 * kThousand, "(it) of ") + "1", "A: 1\n");
    ExpectAnswerOrLackOfMemory(Times(100 * kThousand, "number of ") + "1", "A: 1\n");
    ExpectAnswerOrLackOfMemory("1" + Times(100 * kThousand, " whose (it = 1)"), "A: 1\n");
    ExpectAnswerOrLackOfMemory(Times(20 * kThousand, "1 whose (exists ") + "1" + Times(20 * kThousand, ")"), "A: 1\n");
    ExpectAnswerOrLackOfMemory(Times(100 * kThousand, "if true then 1 else ") + "2", "A: 1\n");
    ExpectAnswerOrLackOfMemory(Times(100 * kThousand, "if false then 1 else ") + "2", "A: 2\n");
    ExpectAnswerOrLackOfMemory(Times(50 * kThousand, "if true then ") + "1" + Times(50 * kThousand, " else 2"),
                               "A: 1\n");
    ExpectAnswerOrLackOfMemory("1" + Times(100 * kThousand, " as integer"), "A: 1\n");
    ExpectAnswerOrLackOfMemory(Times(50 * kThousand, "integer (") + "1" + Times(50 * kThousand, ")"), "A: 1\n");
}

// A failure at the bottom comes all the way up.
TEST_F(Depth, FailuresFromBelow) {
    ExpectAnswerOrLackOfMemory(Times(100 * kThousand, "- ") + "true",
                               "E: The operator \"- <boolean>\" is not defined.\n");
    ExpectAnswerOrLackOfMemory(Times(100 * kThousand, "- ") + "(1/0)",
                               "E: Singular expression refers to nonexistent object.\n");
    ExpectAnswerOrLackOfMemory(Times(100 * kThousand, "number of ") + "error \"x\"", "E: User-defined error: x\n");
    ExpectAnswerOrLackOfMemory(Times(20 * kThousand, "if true then ") + "foo" + Times(20 * kThousand, " else 2"),
                               "E: The operator \"foo\" is not defined.\n");
    ExpectAnswerOrLackOfMemory(Times(kMillion, ")"), "E: This expression could not be parsed.\n");
}

}  // namespace
