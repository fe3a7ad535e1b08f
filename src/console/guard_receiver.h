// The current question as the evaluator is fed it: its text in parentheses.
#ifndef CONSOLE_GUARD_RECEIVER_H
#define CONSOLE_GUARD_RECEIVER_H

#include "evaluator/guard_evaluator.h"
#include "foundation/data_receiver.h"

// Made once for a loop and reset for each question.
class zendryGuardReceiver final : public DataReceiver {
public:
    // Makes the engine, and has the inspectors' caches swept with the current time.
    explicit zendryGuardReceiver(InspectorContext* context);

    // Opens a clause; clauses behind the first join it as a conjunction.  Throws as the engine does.
    void Start() override;
    void Data(const unsigned char* begin, const unsigned char* end) override;
    void Finish() override;

    // Makes ready for the next question; what the engine reports of the last one is swallowed.
    void Reset();

    // Ends the parse, which binds the expression.  Throws the failures of parsing and binding.
    void Close();

    bool Ok() const { return ok_; }
    bool Started() const { return started_; }
    GuardEvaluator& Engine() { return engine_; }

private:
    void Feed(std::string_view text);

    InspectorInterrupterPort* interrupter_;
    bool ok_ = true;         // Nothing has failed in this question.
    bool started_ = false;   // A first clause has been started.
    bool finished_ = false;  // The parse has been closed.
    GuardEvaluator engine_;
    InspectorContext* context_;
};

#endif
