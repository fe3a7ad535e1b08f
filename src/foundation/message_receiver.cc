#include "foundation/message_receiver.h"

namespace {

IgnoreDataReceiver ignoredValue;
IgnoreLineReceiver ignoredBody;
IgnoreMessageReceiver ignoredPart;

}  // namespace

DataReceiver& MessageReceiver::StartHeader(ConstData) { return ignoredValue; }

MessageReceiver::Body MessageReceiver::EndHeaders(const ContentTypeReceiver& type) {
    return type.IsMultipart() ? Body::Parts : Body::Whole;
}

LineReceiver& MessageReceiver::StartBody() { return ignoredBody; }

MessageReceiver& MessageReceiver::StartPart(size_t) { return ignoredPart; }
