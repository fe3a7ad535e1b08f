// Arbitrary bytes as a file of questions, asked through the console's own chain with the whole vocabulary.
//
// The work that one input can bring about is bounded: its text is short, and after so many checks a running evaluation
// is interrupted.  What it asks can read the machine and change nothing.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "console/question_chain.h"
#include "evaluator/failure.h"
#include "evaluator/inspector_context.h"
#include "foundation/line_maker.h"

namespace {

constexpr size_t kLongestInput = 2048;

class BoundedContext final : public InspectorContext, public InspectorInterrupter, public InspectorInterrupterPort {
public:
    bool ShouldContinue() override { return checks_ < kMostChecks && ++checks_ < kMostChecks; }
    void Interrupted() override { throw InspectorInterruption(); }

    // Once for the whole input: each question has what those before it left.
    void RestartClock() override {}
    void Begin() { checks_ = 0; }

private:
    static constexpr unsigned kMostChecks = 2000;
    unsigned checks_ = 0;
};

ZendryCommandLine IntoNothing() {
    ZendryCommandLine line;
    line.outputFile = "/dev/null";
    line.showTypes = true;
    line.timing = true;
    return line;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size > kLongestInput) {
        return 0;
    }
    static BoundedContext context;
    static QuestionChain chain(IntoNothing(), &context, false);
    context.Begin();
    LineMaker lines(chain.questioner);
    lines.Start(0);
    // In two runs, cut where the first byte says.
    const size_t cut = size == 0 ? 0 : data[0] % (size + 1);
    lines.Data(data, data + cut);
    lines.Data(data + cut, data + size);
    lines.Finish();
    return 0;
}
