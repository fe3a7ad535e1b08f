// Question files as fields and lines: what is asked, what is dropped and what is copied, however the text is cut.
#include "console/questioner.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "foundation/line_maker.h"
#include "tests/console/asked.h"
#include "tests/language/every_cut.h"

namespace {

// Writes output as it stands, and a question between brackets: "[" for its start, "]" where it is asked.
class Transcriber final : public LineReceiver {
public:
    Transcriber(std::string& text, bool asking) : text_(text), asking_(asking) {}
    void Start(uint64_t) override { text_ += "["; }
    void Text(const unsigned char* begin, const unsigned char* end) override {
        text_.append(reinterpret_cast<const char*>(begin), reinterpret_cast<const char*>(end));
    }
    void EndOfLine(uint64_t, uint64_t) override { text_ += asking_ ? "$" : "\n"; }
    void Finish(uint64_t) override { text_ += asking_ ? "]" : ""; }

private:
    std::string& text_;
    bool asking_;
};

std::string Outcome(const Runs& runs) {
    std::string text;
    Transcriber output(text, false);
    Transcriber asker(text, true);
    Questioner questioner;
    questioner.SetReceivers(output, asker);
    LineMaker lines(questioner);
    // The maker of lines passes Start on; the runs come as from a file.
    lines.Start(0);
    for (const std::string_view run : runs) {
        const std::string copy(run);
        const ConstData data(copy);
        lines.Data(data.begin, data.end);
    }
    lines.Finish();
    return text;
}

// The outcome, the same for every cut of the text.
std::string Read(std::string_view text) { return OutcomeOfEveryCut(text, Outcome); }

TEST(Questioner, AQuestionIsAskedAtTheEndOfTheText) {
    EXPECT_EQ(Read("Q: 1 + 2\n"), "Q: [1 + 2$]");
    EXPECT_EQ(Read("Q: 1 + 2"), "Q: [1 + 2]");
}

TEST(Questioner, AQuestionIsAskedAtTheNextField) {
    EXPECT_EQ(Read("Q: 1\nQ: 2\n"), "Q: [1$]Q: [2$]");
    EXPECT_EQ(Read("Q: 1\nplain\n"), "Q: [1$]plain\n");
}

TEST(Questioner, OneBlankJoinsTheLinesOfAQuestion) {
    EXPECT_EQ(Read("Q: 1 +\n   2\n"), "Q: [1 +$ 2$]");
    EXPECT_EQ(Read("Q: 1 +\n \t \t2\n\t+ 3"), "Q: [1 +$ 2$ + 3]");
    EXPECT_EQ(Read("Q:\n 1"), "Q: [$ 1]");
    EXPECT_EQ(Read("Q: 1\n    \nQ: 2"), "Q: [1$ $]Q: [2]");
}

TEST(Questioner, WhiteSpaceBehindTheColonIsDroppedAndWhiteSpaceWithinKept) {
    EXPECT_EQ(Read("Q:1"), "Q: [1]");
    EXPECT_EQ(Read("Q: \t  1 \t 2  \n"), "Q: [1 \t 2  $]");
}

TEST(Questioner, FieldsOfAnEarlierRunAreDroppedWithTheirContinuations) {
    EXPECT_EQ(Read("A: 3\nT: 100\nE: x\nI: integer\n"), "");
    EXPECT_EQ(Read("A: 3\n   and: more\nplain\n"), "plain\n");
    EXPECT_EQ(Read("a:3\ne:\nT:\ni: \n"), "");
}

TEST(Questioner, ABlankLineBehindADroppedFieldIsDropped) { EXPECT_EQ(Read("A: 3\n\n\nplain\n"), "plain\n"); }

TEST(Questioner, NamesAreComparedWithoutRegardToCase) {
    EXPECT_EQ(Read("q: true\n"), "Q: [true$]");
    EXPECT_EQ(Read("x-relevant-when: true\n"), "Q: [true$]");
    EXPECT_EQ(Read("X-Relevant-WHEN: true\n"), "Q: [true$]");
}

TEST(Questioner, OtherFieldsAreCopiedWithoutTheWhiteSpaceBehindTheColon) {
    EXPECT_EQ(Read("Comment: hello\n"), "Comment:hello\n");
    EXPECT_EQ(Read("Comment:\t hello: again\n"), "Comment:hello: again\n");
    EXPECT_EQ(Read("Comment:\n"), "Comment:\n");
    EXPECT_EQ(Read("Q : 1\n"), "Q :1\n");
    EXPECT_EQ(Read("QQ: 1\nx-relevant-whe: 1\n"), "QQ:1\nx-relevant-whe:1\n");
}

TEST(Questioner, ACopiedFieldKeepsOneBlankOfItsContinuation) {
    EXPECT_EQ(Read("Comment: hello\n    world\n"), "Comment:hello\n world\n");
}

TEST(Questioner, AnEmptyNameIsAName) { EXPECT_EQ(Read(": x\n:\n"), ":x\n:\n"); }

TEST(Questioner, ALineWithoutAColonIsCopied) {
    EXPECT_EQ(Read("plain text\n"), "plain text\n");
    EXPECT_EQ(Read("plain text\n  and more: this\n"), "plain text\n and more: this\n");
}

TEST(Questioner, ANameHasFortyBytes) {
    const std::string forty(40, 'n');
    EXPECT_EQ(Read(forty + ": x\n"), forty + ":x\n");
    EXPECT_EQ(Read(forty + "\n"), forty + "\n");
    EXPECT_EQ(Read(forty + "n: x\n"), forty + "n: x\n");
    EXPECT_EQ(Read(forty + "n\n"), forty + "n\n");
    EXPECT_EQ(Read(forty + forty + forty + " : x\nQ: 1\n"), forty + forty + forty + " : x\nQ: [1$]");
    EXPECT_EQ(Read(forty + "nnn\n   more\nplain\n"), forty + "nnn\n more\nplain\n");
}

TEST(Questioner, ABlankLineLeavesAQuestionOpenAndIsNotCopied) {
    EXPECT_EQ(Read("Q: 1\n\n\nQ: 2\n"), "Q: [1$$$]Q: [2$]");
    EXPECT_EQ(Read("Q: 1 +\n\n 2\n"), "Q: [1 +$$ 2$]");
}

TEST(Questioner, ABlankLineBehindACopiedFieldIsCopied) {
    EXPECT_EQ(Read("Comment: x\n\nplain\n\n\n"), "Comment:x\n\nplain\n\n\n");
    EXPECT_EQ(Read("\n\nplain\n"), "\n\nplain\n");
}

TEST(Questioner, ALastLineWithoutAnEndAndWithoutAColonIsLost) {
    EXPECT_EQ(Read("plain\nlost"), "plain\n");
    EXPECT_EQ(Read("Q: 1\nlost"), "Q: [1$]");
    EXPECT_EQ(Read("kept: x"), "kept:x");
    const std::string long_(41, 'n');
    EXPECT_EQ(Read(long_), long_);
}

TEST(Questioner, TheFirstLineIsNeverAContinuation) {
    EXPECT_EQ(Read(" Q: 1\n"), " Q:1\n");
    EXPECT_EQ(Read("  plain\n"), "  plain\n");
}

TEST(Questioner, NothingGivesNothing) { EXPECT_EQ(Read(""), ""); }

TEST(Questioner, EveryLineEndIsALineEnd) {
    EXPECT_EQ(Read("Q: 1\r\nQ: 2\rQ: 3\n"), "Q: [1$]Q: [2$]Q: [3$]");
    EXPECT_EQ(Read("Comment: a\r\n\r\nb\n"), "Comment:a\n\nb\n");
}

TEST(Questioner, BytesOfEveryValuePass) {
    const std::string bytes("Q: \0\x01\x7f\xff:%\n\0: \0\n", 15);
    EXPECT_EQ(Read(bytes), std::string("Q: [\0\x01\x7f\xff:%$]\0:\0\n", 16));
}

TEST(Questioner, AStreamBehindAnotherStartsAfresh) {
    std::string text;
    Transcriber output(text, false);
    Transcriber asker(text, true);
    Questioner questioner;
    questioner.SetReceivers(output, asker);
    LineMaker lines(questioner);
    for (const std::string_view file : {"Q: 1\n", " Q: x\nlost", ": y\n"}) {
        lines.Start(0);
        const ConstData data(file);
        lines.Data(data.begin, data.end);
        lines.Finish();
    }
    EXPECT_EQ(text, "Q: [1$] Q:x\n:y\n");
}

TEST(Questioner, TheConsolesOutputIsTheSameForEveryCut) {
    const std::string text =
        "Remarks stand as they are\nComment:  x\n\nQ: 1 +\n   2\nA: 4\n T: 1\nQ: (1;\n\t2;1 / 0)\n\nq: \"%25\"\n"
        "Q: 1 2\n\nQ: )\nQ: () + !\nX-Relevant-When: 9223372036854775808\nA line with no colon in its first forty "
        "bytes is text: x\n"
        "Q: 4";
    const std::string out = OutcomeOfEveryCut(text, [](const Runs& runs) {
        BatchConsole console;
        console.chain.questioner.Start(0);
        LineMaker lines(console.chain.questioner);
        lines.Start(0);
        for (const std::string_view run : runs) {
            const ConstData data(run);
            lines.Data(data.begin, data.end);
        }
        lines.Finish();
        return console.Text();
    });
    EXPECT_EQ(out,
              "Remarks stand as they are\nComment:x\n\nQ: 1 + 2\nA: 3\n\nQ: (1; 2;1 / 0)\nA: 1\nA: 2\n"
              "E: Singular expression refers to nonexistent object.\n\nQ: \"%25\"\nA: %25\n\n"
              "Q: 1 2\nE: This expression could not be parsed.\n\nQ: )\nE: This expression could not be parsed.\n\n"
              "Q: () + !\nE: This expression could not be parsed.\n\n"
              "Q: 9223372036854775808\nE: Singular expression refers to nonexistent object.\n\n"
              "A line with no colon in its first forty bytes is text: x\nQ: 4\nA: 4\n\n");
}

// At the prompt the lines are sent by hand: the prompt opens a field, and the typed text comes with its terminator.
TEST(Questioner, APromptClosesTheQuestionBeforeIt) {
    std::string text;
    Transcriber output(text, false);
    Transcriber asker(text, true);
    Questioner questioner;
    questioner.SetReceivers(output, asker);
    questioner.Start(0);
    for (const std::string_view piece : {"Q: ", "1\n", "Q: ", "\n", "Q: ", "  2\n", "Q: "}) {
        const ConstData data(piece);
        questioner.Text(data.begin, data.end);
        if (piece.back() == '\n') {
            questioner.EndOfLine(0, 0);
        }
    }
    EXPECT_EQ(text, "Q: [1\n$]Q: [\n$]Q: [2\n$]Q: [");
}

}  // namespace
