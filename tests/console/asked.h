// Question files run through the console's own chain, within the test's process.
#ifndef TESTS_CONSOLE_ASKED_H
#define TESTS_CONSOLE_ASKED_H

#include <string>
#include <string_view>

#include "console/question_chain.h"
#include "foundation/const_data.h"
#include "foundation/line_maker.h"
#include "tests/console/captured_output.h"

// A batch console: what a file would go through between its bytes and the output.
class BatchConsole {
public:
    explicit BatchConsole(InspectorContext* context = nullptr, bool showTypes = false)
        : chain(Line(output, showTypes), context, false), lines_(chain.questioner) {}

    // Takes the text as one file and gives what came out for it.
    std::string Run(std::string_view text) {
        const size_t before = Size();
        lines_.Start(0);
        const ConstData data(text);
        lines_.Data(data.begin, data.end);
        lines_.Finish();
        return Text(before);
    }

    // What has come out so far.
    size_t Size() {
        chain.output.Flush();
        return output.Size();
    }
    std::string Text(size_t from = 0) {
        chain.output.Flush();
        return output.Text(from);
    }

    CapturedOutput output;
    QuestionChain chain;

private:
    static ZendryCommandLine Line(const CapturedOutput& output, bool showTypes) {
        ZendryCommandLine line;
        line.outputFile = output.Path();
        line.showTypes = showTypes;
        return line;
    }

    LineMaker lines_;
};

// The lines that answer one question, without its echo and the closing blank line.
inline std::string Answers(BatchConsole& console, std::string_view question) {
    const std::string echo = "Q: " + std::string(question) + "\n";
    std::string out = console.Run("Q: " + std::string(question));
    if (out.compare(0, echo.size(), echo) != 0 || out.size() < 2 || out.substr(out.size() - 1) != "\n") {
        return "not an answer: " + out;
    }
    return out.substr(echo.size(), out.size() - echo.size() - 1);
}

#endif
