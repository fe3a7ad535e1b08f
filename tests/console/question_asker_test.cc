// The printing sequence of a question, with each combination of the asker's flags.
#include "console/question_asker.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "evaluator/adapters.h"
#include "tests/console/asked.h"
#include "tests/console/untimed.h"
#include "values/integer.h"

// A type without a text form, and one whose text form is no text.
struct speechless {};
struct misleading {};

template <>
struct InspectorTypeInfo<speechless> : InspectorTypeBasics<speechless, 0> {
    static constexpr char Name[] = "speechless";
    static constexpr unsigned Size = 1;
};
template <>
struct InspectorTypeInfo<misleading> : InspectorTypeBasics<misleading, 0> {
    static constexpr char Name[] = "misleading";
    static constexpr unsigned Size = 1;
};

namespace {

speechless Speechless() { return {}; }
misleading Misleading() { return {}; }
integer AsNumber(const misleading&) { return 5; }

std::optional<integer> Thrown(integer n) {
    switch (n.Value()) {
        case 0:
            throw InspectorInterruption();
        case 1:
            throw NoInspectorContext();
        case 2:
            throw InspectorDefinedError("an inspector's own words");
        case 3:
            throw CannotEvaluateNow();
        case 4:
            throw std::bad_alloc();
        case 5:
            throw std::runtime_error("not told");
        case 6:
            throw ExceptionCannotBeCopied();
        case 7:
            throw 7;
        case 8:
            throw ValueNotConverted();
        case 9:
            throw InspectorInternalError("unit.cc", 9);
        default:
            return n;
    }
}

// clang-format off
Type<speechless>                            speechlessType;
Type<misleading>                            misleadingType;
GlobalProperty<speechless, Speechless>      speechlessProperty  {"speechless thing", "speechless things"};
GlobalProperty<misleading, Misleading>      misleadingProperty  {"misleading thing", "misleading things"};
Cast<integer, misleading, AsNumber>         misleadingText      {"string"};
NumberedGlobalProperty<integer, Thrown>     thrown              {"thrown", "throwns"};
// clang-format on

struct Flags {
    bool printErrors;
    bool printTiming;
    bool evaluate;
    bool printTypes;
    bool echo;
};

// What one question prints, with the microseconds written as "#".
std::string Ask(const Flags& flags, const std::vector<std::string_view>& runs) {
    BatchConsole console;
    console.chain.asker.Configure(flags.printErrors, flags.printTiming, flags.evaluate, flags.printTypes);
    console.chain.asker.SetEcho(flags.echo);
    console.chain.asker.Start(0);
    for (const std::string_view run : runs) {
        const ConstData data(run);
        console.chain.asker.Text(data.begin, data.end);
    }
    console.chain.asker.EndOfLine(0, 0);
    console.chain.asker.Finish(0);
    return Untimed(console.Text());
}

std::vector<Flags> EveryCombination() {
    std::vector<Flags> all;
    for (unsigned bits = 0; bits < 32; ++bits) {
        all.push_back({(bits & 1) != 0, (bits & 2) != 0, (bits & 4) != 0, (bits & 8) != 0, (bits & 16) != 0});
    }
    return all;
}

std::string Tell(const Flags& f) {
    return std::string(f.printErrors ? "errors " : "") + (f.printTiming ? "timing " : "") +
           (f.evaluate ? "evaluate " : "") + (f.printTypes ? "types " : "") + (f.echo ? "echo" : "");
}

enum class Ends { InTheText, InTheParse, InTheEvaluation, Well };

struct Question {
    std::string_view text;
    std::string answers;
    std::string error;
    std::string type;
    Ends ends;
};

const std::vector<Question>& Questions() {
    static const std::vector<Question> questions = {
        {"1 + 1", "A: 2\n", "", "integer", Ends::Well},
        {"(1;2)", "A: 1\nA: 2\n", "", "integer", Ends::Well},
        {"1, true", "A: 1, True\n", "", "( integer, boolean )", Ends::Well},
        {"(1;2) whose (false)", "", "", "integer", Ends::Well},
        {"1; 1/0", "A: 1\n", "Singular expression refers to nonexistent object.", "integer", Ends::InTheEvaluation},
        {"nothing", "", "Singular expression refers to nonexistent object.", "undefined", Ends::InTheEvaluation},
        {"1 ? 2", "", "This expression contained a character which is not allowed.", "", Ends::InTheText},
        {"", "", "This expression could not be parsed.", "", Ends::InTheParse},
        {"if true then 1", "", "This expression could not be parsed.", "", Ends::InTheParse},
        {"and", "", "This expression could not be parsed.", "", Ends::InTheText},
        {"/* x", "", "A comment was not terminated.", "", Ends::InTheParse},
        {"no such", "", "The operator \"no such\" is not defined.", "", Ends::InTheParse},
        {"speechless thing", "", "The operator \"string\" is not defined.", "", Ends::InTheParse},
        {"misleading thing", "", "The conversion \"as string\" does not produce the required type.", "",
         Ends::InTheParse},
    };
    return questions;
}

// The sequence, step by step.
std::string Expected(const Flags& flags, const Question& question) {
    std::string out = flags.echo ? std::string(question.text) + "\n" : "";
    if (!flags.evaluate) {
        return out;
    }
    const std::string error = flags.printErrors ? "E: " + question.error + "\n" : "";
    if (question.ends == Ends::InTheText) {
        return out + (flags.printErrors ? error + "\n" : "");
    }
    if (question.ends == Ends::InTheParse) {
        return out + error + "\n";
    }
    out += question.answers;
    if (question.ends == Ends::InTheEvaluation) {
        out += error;
    }
    return out + (flags.printTiming ? "T: #\n" : "") + (flags.printTypes ? "I: " + question.type + "\n" : "") + "\n";
}

TEST(QuestionAsker, PrintsEachQuestionByItsFlags) {
    for (const Flags& flags : EveryCombination()) {
        for (const Question& question : Questions()) {
            EXPECT_EQ(Ask(flags, {question.text}), Expected(flags, question)) << question.text << ": " << Tell(flags);
        }
    }
}

constexpr Flags kBatch = {true, false, true, false, true};

TEST(QuestionAsker, PrintsNoErrorsAndNoTimesAndNoTypesUnlessToldTo) {
    CapturedOutput file;
    CoutLineReceiver output(file.Path(), false);
    ExpressionMessageMaker messages;
    zendryGuardReceiver receiver(nullptr);
    QuestionAsker asker(receiver, messages, output);
    for (const std::string_view text : {"1; 1/0", "1 ?"}) {
        asker.Start(0);
        const ConstData data(text);
        asker.Text(data.begin, data.end);
        asker.Finish(0);
    }
    output.Flush();
    EXPECT_EQ(file.Text(), "1; 1/0\nA: 1\n\n1 ?\n");
}

TEST(QuestionAsker, EchoesTheWholeQuestionWhereItsTextFailedInTheMiddle) {
    EXPECT_EQ(Ask(kBatch, {"1 ? 2", " and more %41 \x01"}),
              "1 ? 2 and more %41 \x01\nE: This expression contained a character which is not allowed.\n\n");
    EXPECT_EQ(Ask(kBatch, {"\"%zz", "\" & 1"}), "\"%zz\" & 1\nE: A string constant had an improper %25-sequence.\n\n");
}

TEST(QuestionAsker, TheFirstFailureIsTheOneThatIsTold) {
    EXPECT_EQ(Ask(kBatch, {"1 ? ", "! \"%zz"}),
              "1 ? ! \"%zz\nE: This expression contained a character which is not allowed.\n\n");
}

TEST(QuestionAsker, TellsWhatInspectorsThrow) {
    const std::pair<int, const char*> rows[] = {
        {0, "Inspector interrupted."},
        {1, "No inspector context."},
        {2, "an inspector's own words"},
        {3, "Cannot evaluate expression now or in this context."},
        {4, "There's not enough memory."},
        {5, "The expression could not be evaluated for an unknown reason."},
        {6, "The expression could not be evaluated: ExceptionCannotBeCopied"},
        {7, "The expression could not be evaluated for an unknown reason."},
        {8, "Could not convert value to required type."},
        {9, "Inspector internal error (file: unit.cc line: 9)"},
    };
    BatchConsole console;
    for (const auto& [number, words] : rows) {
        EXPECT_EQ(Answers(console, "10; thrown " + std::to_string(number) + "; 11"),
                  std::string("A: 10\nE: ") + words + "\n");
    }
    EXPECT_EQ(Answers(console, "thrown 12"), "A: 12\n");
}

// Whatever the left of a bar throws is caught; in a condition only the interruption passes.
TEST(QuestionAsker, WhatInspectorsThrowIsCaughtByTheBarAndByConditions) {
    BatchConsole console;
    for (int n = 0; n < 10; ++n) {
        const std::string number = std::to_string(n);
        EXPECT_EQ(Answers(console, "thrown " + number + " | 5"), "A: 5\n") << n;
        EXPECT_EQ(Answers(console, "(10; " + number + ") whose (thrown it = 10)"),
                  n == 0 ? "A: 10\nE: Inspector interrupted.\n" : "A: 10\n")
            << n;
    }
}

TEST(QuestionAsker, EscapesAllBytesOfAnAnswerButPrintableAscii) {
    std::string question = "\"";
    std::string answer = "A: ";
    const char digits[] = "0123456789abcdef";
    for (int byte = 0; byte < 256; ++byte) {
        const char escape[] = {'%', digits[byte >> 4], digits[byte & 15]};
        question.append(escape, sizeof escape);
        if (byte < 32 || byte > 126 || byte == '%') {
            answer.append(escape, sizeof escape);
        } else {
            answer += static_cast<char>(byte);
        }
    }
    question += "\"";
    EXPECT_EQ(Ask(kBatch, {question}), question + "\n" + answer + "\n\n");
}

TEST(QuestionAsker, EscapesTheMessageAndNeitherTheEchoNorTheType) {
    EXPECT_EQ(Ask(kBatch, {"error \"%e4%25\""}), "error \"%e4%25\"\nE: User-defined error: %e4%25\n\n");
    EXPECT_EQ(Ask(kBatch, {"1 \xe4 %"}),
              "1 \xe4 %\nE: This expression contained a character which is not allowed.\n\n");
}

TEST(QuestionAsker, CutsAMessageAt256BytesBeforeItIsEscaped) {
    std::string text;
    std::string escaped;
    for (int i = 0; i < 236; ++i) {
        escaped += "%0a";
    }
    for (int i = 0; i < 300; ++i) {
        text += "%0a";
    }
    EXPECT_EQ(Ask(kBatch, {"error \"", text, "\""}),
              "error \"" + text + "\"\nE: User-defined error: " + escaped + "\n\n");
}

TEST(QuestionAsker, AnswersStandWhereALaterOneFails) {
    EXPECT_EQ(Ask(kBatch, {"absolute value of (1;2)"}),
              "absolute value of (1;2)\nA: 1\nE: Singular expression refers to non-unique object.\n\n");
}

TEST(QuestionAsker, ServesOneQuestionAfterAnother) {
    BatchConsole console;
    for (int round = 0; round < 3; ++round) {
        for (const Question& question : Questions()) {
            EXPECT_EQ(console.Run("Q: " + std::string(question.text) + "\n"), "Q: " + Expected(kBatch, question));
        }
    }
}

// Nothing has been started where the clock could not be, and what was never started is neither parsed to its end nor
// told of.
class BrokenClock final : public InspectorContext, public InspectorInterrupterPort {
public:
    void RestartClock() override { throw CannotEvaluateNow(); }
};

TEST(QuestionAsker, PrintsNothingForAQuestionThatWasNeverStarted) {
    BrokenClock context;
    BatchConsole console(&context);
    EXPECT_EQ(console.Run("Q: (1\n"), "Q: (1\n");
    EXPECT_EQ(console.Run("Q: 1\n"), "Q: 1\n");
}

}  // namespace
