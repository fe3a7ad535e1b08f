#include "console/guard_receiver.h"

#include "registry/registration.h"

zendryGuardReceiver::zendryGuardReceiver(InspectorContext* context)
    : interrupter_(dynamic_cast<InspectorInterrupterPort*>(context)), engine_(context), context_(context) {
    const InspectorContextMaintainer installed(context_);
    ClearCaches(false);
}

void zendryGuardReceiver::Feed(std::string_view text) {
    if (!ok_) {
        return;
    }
    try {
        engine_.Feed(text);
    } catch (...) {
        ok_ = false;
        throw;
    }
}

void zendryGuardReceiver::Start() {
    if (started_) {
        Feed("and(");
        return;
    }
    if (interrupter_ != nullptr) {
        interrupter_->RestartClock();
    }
    started_ = true;
    Feed("(");
}

void zendryGuardReceiver::Data(const unsigned char* begin, const unsigned char* end) {
    Feed(std::string_view(reinterpret_cast<const char*>(begin), static_cast<size_t>(end - begin)));
}

void zendryGuardReceiver::Finish() { Feed(")"); }

void zendryGuardReceiver::Reset() {
    try {
        engine_.Reset();
    } catch (...) {
    }
    ok_ = true;
    started_ = false;
    finished_ = false;
}

void zendryGuardReceiver::Close() {
    if (!finished_ && started_ && ok_) {
        try {
            engine_.EndOfText();
        } catch (...) {
            ok_ = false;
            throw;
        }
    }
    finished_ = true;
}
