// The program as its users meet it: a process with arguments, files, a pipe or a terminal.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "tests/console/program_run.h"
#include "tests/console/untimed.h"
#include "tests/foundation/temporary_place.h"

namespace {

struct Ended {
    int status;
    std::string output;
    std::string errors;
};

Ended RunWith(const std::vector<std::string>& arguments, std::string_view input = "", const std::string& folder = "") {
    Program program(arguments, Program::Input::Pipe, folder);
    program.Type(input);
    program.CloseInput();
    const int status = program.Status();
    return {status, program.output, program.errors};
}

std::string Content(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(ConsoleProcess, HelpPrintsTheUsageAndEndsWithOneAndReadsNothing) {
    const TemporaryPlace place;
    place.File("asked", "Q: 1\n");
    const Ended run = RunWith({"-t", place.Path("asked"), "-help", "-o"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors,
              "   zendry [-t] [-showtypes] [-o output-file name] [zero or more input-file names]\n"
              "        -t displays execution time in non-interactive mode\n"
              "        -showtypes shows the result type of each query on a line prefixed by \"I:\"\n"
              "        -help prints this message.\n");
}

TEST(ConsoleProcess, ReadsItsFilesInOrder) {
    const TemporaryPlace place;
    place.File("a", "Q: 1\n");
    place.File("b", "Comment: x\nQ: 2 +\n  3");
    const Ended run = RunWith({place.Path("b"), place.Path("a"), place.Path("b")});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output, "Comment:x\nQ: 2 + 3\nA: 5\n\nQ: 1\nA: 1\n\nComment:x\nQ: 2 + 3\nA: 5\n\n");
    EXPECT_EQ(run.errors, "");
}

TEST(ConsoleProcess, AFileThatCannotBeReadIsReportedAndTheNextIsRead) {
    const TemporaryPlace place;
    place.File("a", "Q: 1\n");
    const Ended run =
        RunWith({place.Path("missing"), place.Path("a"), place.Path("a/below"), place.Path(), place.Path("a")});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output, "Q: 1\nA: 1\n\nQ: 1\nA: 1\n\n");
    EXPECT_EQ(run.errors, place.Path("missing") + ": No such file or directory\n" + place.Path("a/below") +
                              ": Not a directory\n" + place.Path() + ": Is a directory\n");
}

TEST(ConsoleProcess, WhatHasNoPositionsIsReportedAndTheNextFileIsRead) {
    const TemporaryPlace place;
    place.File("a", "Q: 1\n");
    ASSERT_EQ(mkfifo(place.Path("fifo").c_str(), 0600), 0);
    const Ended run = RunWith({place.Path("fifo"), "/dev/stdin", "/proc/kmsg", "", place.Path("a")}, "Q: 2\n");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output, "Q: 1\nA: 1\n\n");
    EXPECT_EQ(run.errors,
              place.Path("fifo") + ": Illegal seek\n/dev/stdin: Illegal seek\n/proc/kmsg: Success\nSuccess\n");
}

TEST(ConsoleProcess, AFinalOutputOptionIsAFileOfThatName) {
    const TemporaryPlace place;
    const Ended missing = RunWith({"-o"}, "", place.Path());
    EXPECT_EQ(missing.status, 0);
    EXPECT_EQ(missing.output, "");
    EXPECT_EQ(missing.errors, "-o: No such file or directory\n");
    place.File("-o", "Q: 1\n");
    EXPECT_EQ(RunWith({"-o"}, "", place.Path()).output, "Q: 1\nA: 1\n\n");
}

TEST(ConsoleProcess, TheStatusIsZeroWhateverTheQuestionsDid) {
    const TemporaryPlace place;
    place.File("a", "Q: )\nQ: ?\nQ: foo\nQ: 1/0\nQ: error \"x\"\n");
    EXPECT_EQ(RunWith({place.Path("a")}).status, 0);
    EXPECT_EQ(RunWith({}, ")\n?\nfoo\n1/0\n").status, 0);
}

TEST(ConsoleProcess, TimesAndTypesArePrintedWhenAskedFor) {
    const TemporaryPlace place;
    place.File("a", "Q: (1;2)\nQ: foo\nQ: 1/0\nQ: 1, true\n");
    EXPECT_EQ(Untimed(RunWith({"-t", place.Path("a"), "-showtypes"}).output),
              "Q: (1;2)\nA: 1\nA: 2\nT: #\nI: integer\n\nQ: foo\nE: The operator \"foo\" is not defined.\n\n"
              "Q: 1/0\nE: Singular expression refers to nonexistent object.\nT: #\nI: integer\n\n"
              "Q: 1, true\nA: 1, True\nT: #\nI: ( integer, boolean )\n\n");
    EXPECT_EQ(RunWith({place.Path("a")}).output,
              "Q: (1;2)\nA: 1\nA: 2\n\nQ: foo\nE: The operator \"foo\" is not defined.\n\n"
              "Q: 1/0\nE: Singular expression refers to nonexistent object.\n\nQ: 1, true\nA: 1, True\n\n");
}

// The answers that the prompt gives, each with its time.
TEST(ConsoleProcess, ThePromptAsksEachLineAndAlwaysTellsTheTime) {
    const Ended run = RunWith({}, "1 + 1\n(1;2)\nfoo\n1/0\n");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(Untimed(run.output),
              "Q: A: 2\nT: #\n\nQ: A: 1\nA: 2\nT: #\n\nQ: E: The operator \"foo\" is not defined.\n\n"
              "Q: E: Singular expression refers to nonexistent object.\nT: #\n\nQ: \n");
    EXPECT_EQ(run.errors, "");
    EXPECT_EQ(Untimed(RunWith({"-t", "-showtypes"}, "1\n").output), "Q: A: 1\nT: #\nI: integer\n\nQ: \n");
}

TEST(ConsoleProcess, AnEmptyLineAtThePromptIsAQuestion) {
    EXPECT_EQ(RunWith({}, "\n").output, "Q: E: This expression could not be parsed.\n\nQ: \n");
    EXPECT_EQ(RunWith({}, "  \t \n").output, "Q: E: This expression could not be parsed.\n\nQ: \n");
}

TEST(ConsoleProcess, ALineAtThePromptIsNoField) {
    EXPECT_EQ(RunWith({}, "Q: 1\n").output,
              "Q: E: This expression contained a character which is not allowed.\n\nQ: \n");
    EXPECT_EQ(RunWith({}, " 1 : 2\n").output,
              "Q: E: This expression contained a character which is not allowed.\n\nQ: \n");
}

TEST(ConsoleProcess, WhatIsTypedWithoutALineEndIsNotAsked) {
    EXPECT_EQ(Untimed(RunWith({}, "1\n2").output), "Q: A: 1\nT: #\n\nQ: \n");
    EXPECT_EQ(RunWith({}, "2").output, "Q: \n");
    EXPECT_EQ(RunWith({}, "").output, "Q: \n");
}

TEST(ConsoleProcess, ALineOfAnyLengthIsOneLine) {
    for (const size_t length : {1021u, 1022u, 1023u, 1024u, 1025u, 2046u, 2047u, 5000u, 100000u}) {
        std::string line = "1";
        line.resize(length, ' ');
        EXPECT_EQ(Untimed(RunWith({}, line + "+ 2\n3\n").output), "Q: A: 3\nT: #\n\nQ: A: 3\nT: #\n\nQ: \n") << length;
    }
}

// A carriage return ends a line where a read happens to end with it.
TEST(ConsoleProcess, CarriageReturnsAreWhiteSpace) {
    EXPECT_EQ(Untimed(RunWith({}, "1\r\n1 +\r2\r\n").output), "Q: A: 1\nT: #\n\nQ: A: 3\nT: #\n\nQ: \n");
    const std::string line = "1" + std::string(1021, ' ') + "\r";
    EXPECT_EQ(Untimed(RunWith({}, line + "2\n").output), "Q: A: 1\nT: #\n\nQ: A: 2\nT: #\n\nQ: \n");
}

TEST(ConsoleProcess, AZeroByteAtTheStartOfALineEndsTheInput) {
    EXPECT_EQ(Untimed(RunWith({}, std::string_view("1\n\0"
                                                   "2\n3\n",
                                                   7))
                          .output),
              "Q: A: 1\nT: #\n\nQ: \n");
}

// The rest of a line behind a zero byte is not seen, its end included.
TEST(ConsoleProcess, AZeroByteWithinALineHidesTheRestOfIt) {
    EXPECT_EQ(Untimed(RunWith({}, std::string_view("1 +\0 7\n2\n", 9)).output), "Q: A: 3\nT: #\n\nQ: \n");
}

TEST(ConsoleProcess, AClosedInputIsAnEnd) {
    Program program({}, Program::Input::Closed);
    EXPECT_EQ(program.Status(), 0);
    EXPECT_EQ(program.output, "Q: \n");
}

// A folder as standard input gives an error at each read.
TEST(ConsoleProcess, AnInputThatCannotBeReadIsAnEnd) {
    Program program({}, Program::Input::Closed, "/");
    EXPECT_EQ(program.Status(), 0);
    std::string command = "exec env";
    for (const auto& [name, value] : ExampleAgent()) {
        command += " " + name + "='" + value + "'";
    }
    command += std::string(" timeout 10 ") + ZENDRY_PROGRAM + " < / ; exit 9";
    FILE* pipe = popen(command.c_str(), "r");
    std::string output;
    for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe)) {
        output += static_cast<char>(c);
    }
    EXPECT_EQ(pclose(pipe), 0);
    EXPECT_EQ(output, "Q: \n");
}

TEST(ConsoleProcess, AnswersArriveBeforeTheNextLineIsTyped) {
    Program program({}, Program::Input::Pipe);
    EXPECT_TRUE(program.WaitFor("Q: "));
    program.Type("1 + 1\n");
    EXPECT_TRUE(program.WaitFor("A: 2\n")) << program.output;
    EXPECT_TRUE(program.WaitFor("\n\nQ: "));
    program.Type("2 + 2\n");
    EXPECT_TRUE(program.WaitFor("A: 4\n"));
    program.CloseInput();
    EXPECT_EQ(program.Status(), 0);
}

TEST(ConsoleProcess, AtATerminalItPromptsAndAnswers) {
    Program program({}, Program::Input::Terminal);
    EXPECT_TRUE(program.WaitFor("Q: "));
    program.Type("1 + 1\n");
    EXPECT_TRUE(program.WaitFor("\n\nQ: ")) << program.output;
    program.Type("absolute value of (1;2)\n");
    EXPECT_TRUE(program.WaitFor("non-unique object.\n")) << program.output;
    EXPECT_TRUE(program.WaitFor("\n\nQ: "));
    program.Type("1 + 2");
    program.Type("\x04\x04");
    EXPECT_EQ(program.Status(), 0);
    EXPECT_EQ(Untimed(program.output),
              "Q: A: 2\nT: #\n\nQ: A: 1\nE: Singular expression refers to non-unique object.\nT: #\n\nQ: \n");
}

TEST(ConsoleProcess, AChildsEndDoesNotEndTheInput) {
    Program program({}, Program::Input::Pipe);
    EXPECT_TRUE(program.WaitFor("Q: "));
    for (int i = 0; i < 5; ++i) {
        program.Signal(SIGCHLD);
        usleep(20000);
    }
    program.Type("1 + ");
    usleep(50000);
    program.Signal(SIGCHLD);
    usleep(50000);
    program.Type("1\n");
    EXPECT_TRUE(program.WaitFor("A: 2\n")) << program.output << program.errors;
    program.CloseInput();
    EXPECT_EQ(program.Status(), 0);
}

TEST(ConsoleProcess, AnOutputFileTakesABatchsLinesAndNothingElse) {
    const TemporaryPlace place;
    place.File("a", "Q: 1\nplain\n");
    place.File("out", "a longer content than what will come\nand more\n");
    const Ended run = RunWith({place.Path("a"), "-o", place.Path("out"), place.Path("missing")});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors, place.Path("missing") + ": No such file or directory\n");
    EXPECT_EQ(Content(place.Path("out")), "Q: 1\nA: 1\n\nplain\n");
}

TEST(ConsoleProcess, AnOutputFileTakesThePromptsAndAnswersAndNotWhatIsTyped) {
    const TemporaryPlace place;
    const Ended run = RunWith({"-o", place.Path("out")}, "1 + 1\nfoo\n");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output, "\n");
    EXPECT_EQ(Untimed(Content(place.Path("out"))),
              "Q: A: 2\nT: #\n\nQ: E: The operator \"foo\" is not defined.\n\nQ: ");
}

TEST(ConsoleProcess, AnOutputFileThatCannotBeOpenedIsStandardOutputWithoutAWord) {
    const TemporaryPlace place;
    place.File("a", "Q: 1\n");
    const Ended batch = RunWith({place.Path("a"), "-o", place.Path("no/such")});
    EXPECT_EQ(batch.output, "Q: 1\nA: 1\n\n");
    EXPECT_EQ(batch.errors, "");
    const Ended prompt = RunWith({"-o", place.Path("no/such")}, "1\n");
    EXPECT_EQ(Untimed(prompt.output), "Q: A: 1\nT: #\n\nQ: \n");
    EXPECT_EQ(prompt.errors, "");
}

TEST(ConsoleProcess, OfSeveralOutputFilesTheLastIsWrittenAlone) {
    const TemporaryPlace place;
    place.File("a", "Q: 1\n");
    RunWith({"-o", place.Path("one"), place.Path("a"), "-o", place.Path("two")});
    EXPECT_FALSE(std::filesystem::exists(place.Path("one")));
    EXPECT_EQ(Content(place.Path("two")), "Q: 1\nA: 1\n\n");
}

TEST(ConsoleProcess, WhatItMakesIsWritableByItsGroupAndNotByOthers) {
    const TemporaryPlace place;
    const mode_t before = umask(077);
    RunWith({"-o", place.Path("out")}, "1\n");
    umask(before);
    struct stat status {};
    ASSERT_EQ(stat(place.Path("out").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0664u);
}

TEST(ConsoleProcess, ASavedRunComesOutAsItWentIn) {
    const TemporaryPlace place;
    place.File("a", "A remark\n\nQ: (1;2)\nQ: 1/0\nQ: 1 ?\n\nQ: \"%e4%25\"\n");
    const std::string first = RunWith({place.Path("a")}).output;
    place.File("b", first);
    EXPECT_EQ(RunWith({place.Path("b")}).output, first);
}

// Each message that a question can bring about, through the program.
TEST(ConsoleProcess, EveryMessageThatAQuestionCanBringAbout) {
    const std::string word(64, 'w');
    std::string phrase;
    for (int i = 0; i < 8; ++i) {
        phrase += std::string(63, 'p') + " ";
    }
    const std::pair<std::string, std::string> rows[] = {
        {"(1;2) + 1", "A singular expression is required."},
        {"not 1", "A boolean expression is required."},
        {"1; true", "Incompatible types."},
        {"it", "\"It\" used outside of \"whose\" clause."},
        {"foo", "The operator \"foo\" is not defined."},
        {"(if true then foo else 1)", "The operator \"foo\" is not defined."},
        {"1 +", "This expression could not be parsed."},
        {word, "This expression has a very long word."},
        {phrase, "This expression has a very long phrase."},
        {"\"" + std::string(513, 's') + "\"", "This expression has a very long string."},
        {"\"", "A string constant had no ending quotation mark."},
        {"\"%\"", "A string constant had an improper %25-sequence."},
        {"18446744073709551616", "An integer constant was too large."},
        {"!", "This expression has strange punctuation."},
        {"?", "This expression contained a character which is not allowed."},
        {"item 7 of (1, 2)", "The tuple index 7 is out of range."},
        {"item 4294967296 of (1, 2)", "The tuple index 4294967296 is out of range."},
        {"item (1 + 1) of (1, 2)", "This expression contained a tuple index which was not an integer literal."},
        {"/*", "A comment was not terminated."},
        {"p " + phrase.substr(64) + std::string(62, 'p'), "The expression could not be understood: DataOverflow"},
        {"1/0", "Singular expression refers to nonexistent object."},
        {"error \"some words\"", "User-defined error: some words"},
        {"if true then not 1 else true", "The expression could not be evaluated: BooleanExpressionRequired"},
        {"integers in (1, 2, 0)", "The expression could not be evaluated: \"integers in\" step argument must not be 0"},
    };
    const TemporaryPlace place;
    std::string questions;
    std::string expected;
    for (const auto& [question, message] : rows) {
        questions += "Q: " + question + "\n";
        expected += "Q: " + question + "\nE: " + message + "\n\n";
    }
    place.File("a", questions);
    EXPECT_EQ(RunWith({place.Path("a")}).output, expected);
    EXPECT_EQ(Untimed(RunWith({}, "absolute value of (1;2)\n").output),
              "Q: A: 1\nE: Singular expression refers to non-unique object.\nT: #\n\nQ: \n");
}

#ifndef __SANITIZE_ADDRESS__  // whose own mappings no limit lets through

TEST(ConsoleProcess, AQuestionThatOutgrowsTheMemoryIsToldSoAndTheNextIsAsked) {
    const TemporaryPlace place;
    std::string doubled = "length of ";
    for (int i = 0; i < 40; ++i) {
        doubled += "(it & it) of ";
    }
    doubled += "\"0123456789\"";
    place.File("a", "Q: " + doubled + "\nQ: 1 + 1\n");
    rlimit limit{};
    ASSERT_EQ(getrlimit(RLIMIT_DATA, &limit), 0);
    rlimit lowered = limit;
    lowered.rlim_cur = std::min<rlim_t>(limit.rlim_cur, rlim_t{256} << 20);
    ASSERT_EQ(setrlimit(RLIMIT_DATA, &lowered), 0);
    const Ended run = RunWith({place.Path("a")});
    ASSERT_EQ(setrlimit(RLIMIT_DATA, &limit), 0);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output, "Q: " + doubled + "\nE: There's not enough memory.\n\nQ: 1 + 1\nA: 2\n\n");
}

#endif

}  // namespace
