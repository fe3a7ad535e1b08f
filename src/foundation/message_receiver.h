// What a MIME message is read for: its headers, and then either its body or its parts, each a message again.
#ifndef FOUNDATION_MESSAGE_RECEIVER_H
#define FOUNDATION_MESSAGE_RECEIVER_H

#include "foundation/content_type_receiver.h"
#include "foundation/data_receiver.h"
#include "foundation/line_receiver.h"

// A MultipartSplitter calls, in this order: StartMessage, StartHeader for each header, EndHeaders; then StartBody once,
// or StartPart for each part; and EndMessage.  Whatever is returned must live until its own end has been told.
// Positions are those of the stream: what lies between StartMessage and EndMessage is, byte for byte, the part that a
// signature is made over.
//
// Unless overridden, headers and bodies are ignored, and parts are read by receivers that ignore them.
class MessageReceiver {
public:
    enum class Body { Whole, Parts };

    virtual ~MessageReceiver() = default;
    virtual void StartMessage(uint64_t) {}

    // The receiver of the value of the header `name`, which is in lower case.  "content-type" is never asked for: its
    // value comes with EndHeaders.
    virtual DataReceiver& StartHeader(ConstData name);

    // How the body is to be read.  One that is no multipart, has no boundary, or lies deeper than the splitter goes is
    // given whole even when parts are asked for.
    virtual Body EndHeaders(const ContentTypeReceiver& type);

    virtual LineReceiver& StartBody();
    virtual MessageReceiver& StartPart(size_t index);
    virtual void EndMessage(uint64_t) {}
};

// For parts that nobody wants.
class IgnoreMessageReceiver final : public MessageReceiver {
public:
    Body EndHeaders(const ContentTypeReceiver&) override { return Body::Whole; }
};

#endif
