#include "evaluator/inspector_context.h"

ThreadLocalPtr<InspectorContext, DoNotDispose> InspectorContextMaintainer::current;
ThreadLocalPtr<InspectorInterrupter, DoNotDispose> InspectorContextMaintainer::currentInterrupter;

namespace {

class DoNotInterrupt final : public InspectorInterrupter {
public:
    bool ShouldContinue() override { return true; }
    void Interrupted() override {}
};

DoNotInterrupt theDoNotInterrupt;

}  // namespace

InspectorInterrupter& doNotInterrupt = theDoNotInterrupt;

InspectorInterrupter& CurrentInterrupter() {
    InspectorInterrupter* interrupter = InspectorContextMaintainer::currentInterrupter.Get();
    if (interrupter == nullptr) {
        interrupter = dynamic_cast<InspectorInterrupter*>(InspectorContextMaintainer::current.Get());
        if (interrupter == nullptr) {
            interrupter = &doNotInterrupt;
        }
        InspectorContextMaintainer::currentInterrupter.Set(interrupter);
    }
    return *interrupter;
}
