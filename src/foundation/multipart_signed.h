// Reads a signed message: a multipart/signed of two parts, the content and the signature over it.
#ifndef FOUNDATION_MULTIPART_SIGNED_H
#define FOUNDATION_MULTIPART_SIGNED_H

#include "foundation/debuggable_exception.h"
#include "foundation/message_receiver.h"

struct NotASignedMessage : DebuggableException {
    NotASignedMessage() noexcept : DebuggableException("NotASignedMessage") {}
};

// What a signed message is read for.  A receiver that checks the signature finds the digest and the protocol in the
// type that StartSigned is given, and the signed bytes between the positions that the content is told.
class MultipartSignedReceiver {
public:
    virtual ~MultipartSignedReceiver() = default;
    virtual void StartSigned(const ContentTypeReceiver&) {}
    virtual MessageReceiver& StartContent() = 0;
    virtual MessageReceiver& StartSignature() = 0;
};

// Reads the content and passes the signature over: for what has to be known before signatures can be checked.
class MultipartSignedSignatureIgnorer final : public MultipartSignedReceiver {
public:
    // `content` must outlive the message.
    explicit MultipartSignedSignatureIgnorer(MessageReceiver& content) : content_(content) {}
    MessageReceiver& StartContent() override { return content_; }
    MessageReceiver& StartSignature() override { return ignored_; }

private:
    MessageReceiver& content_;
    IgnoreMessageReceiver ignored_;
};

// Hands the first part on as the content and the second as the signature; any further part is ignored.  Throws
// NotASignedMessage at the end of the headers of a message of another type.
class MultipartSignedSplitter final : public MessageReceiver {
public:
    explicit MultipartSignedSplitter(MultipartSignedReceiver& receiver) : receiver_(receiver) {}

    Body EndHeaders(const ContentTypeReceiver& type) override {
        if (type.ContentType() != ContentTypes::multipartSigned) {
            throw NotASignedMessage();
        }
        receiver_.StartSigned(type);
        return Body::Parts;
    }
    MessageReceiver& StartPart(size_t index) override {
        switch (index) {
            case 0:
                return receiver_.StartContent();
            case 1:
                return receiver_.StartSignature();
            default:
                return ignored_;
        }
    }

private:
    MultipartSignedReceiver& receiver_;
    IgnoreMessageReceiver ignored_;
};

#endif
