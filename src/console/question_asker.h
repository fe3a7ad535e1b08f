// One question at a time: its text goes to the evaluator, its answers to the output.
#ifndef CONSOLE_QUESTION_ASKER_H
#define CONSOLE_QUESTION_ASKER_H

#include <string_view>

#include "console/cout_line_receiver.h"
#include "console/expression_message_maker.h"
#include "console/guard_receiver.h"
#include "console/stopwatch.h"
#include "foundation/line_receiver.h"

// A failed question never ends the stream of questions: what the evaluator throws becomes an "E: " line.
class QuestionAsker final : public LineReceiver {
public:
    // All three must outlive the asker.
    QuestionAsker(zendryGuardReceiver& receiver, ExpressionMessageMaker& messages, CoutLineReceiver& output)
        : receiver_(receiver), messages_(messages), output_(output) {}

    void Configure(bool printErrors, bool printTiming, bool evaluate, bool printTypes) {
        printErrors_ = printErrors;
        printTiming_ = printTiming;
        evaluate_ = evaluate;
        printTypes_ = printTypes;
    }
    void SetEcho(bool echoQuestion) { echoQuestion_ = echoQuestion; }

    // Has the time of the question counted from now, where times are told.
    void RestartTimer() {
        if (printTiming_) {
            timer_.RestartFromZero();
        }
    }

    void Start(uint64_t position) override;
    void Text(const unsigned char* begin, const unsigned char* end) override;
    // A question may go on in a continuation line.
    void EndOfLine(uint64_t, uint64_t) override {}
    // Asks the question and prints what comes of it.
    void Finish(uint64_t position) override;

private:
    void CloseAndConvert();
    void PrintAnswers();
    void PrintErrorLine();
    void PrintFailed();
    void PrintClosing();
    void WriteSanitised(std::string_view text);

    zendryGuardReceiver& receiver_;
    ExpressionMessageMaker& messages_;
    CoutLineReceiver& output_;
    Stopwatch timer_;
    std::string_view typeName_;  // Of the result as parsed; the engine's own text.
    bool errorSeen_ = false;
    bool printErrors_ = false;
    bool printTiming_ = false;
    bool evaluate_ = true;
    bool printTypes_ = false;
    bool echoQuestion_ = true;
};

#endif
