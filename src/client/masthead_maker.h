// Reads a masthead: a signed message whose content is a multipart/related of the masthead's own type, and whose first
// part carries the masthead's headers.
#ifndef CLIENT_MASTHEAD_MAKER_H
#define CLIENT_MASTHEAD_MAKER_H

#include "client/masthead_header_receiver.h"
#include "foundation/debuggable_exception.h"
#include "foundation/file_location.h"
#include "foundation/header_maker.h"
#include "foundation/message_receiver.h"
#include "foundation/multipart_signed.h"

struct NotAMasthead : DebuggableException {
    NotAMasthead() noexcept : DebuggableException("NotAMasthead") {}
};

// For hosts that check signatures: a masthead's does not hold, or holds and is that of nobody who may sign it.
struct NoVerifiedSignature : DebuggableException {
    NoVerifiedSignature() noexcept : DebuggableException("NoVerifiedSignature") {}
};
struct NoAuthorizedSignature : DebuggableException {
    NoAuthorizedSignature() noexcept : DebuggableException("NoAuthorizedSignature") {}
};

// Reads the part with the headers: those of the part itself, and where its content is header lines again, those too.
class MastheadHeaderSetMaker final : public MessageReceiver, private HeaderReceiver {
public:
    // `headers` must outlive the maker, here and below.
    explicit MastheadHeaderSetMaker(MastheadHeaderReceiver& headers) : headers_(headers) {}

    // Whether a part has been read to its end.
    bool IsComplete() const { return complete_; }

    DataReceiver& StartHeader(ConstData name) override { return headers_.StartHeader(name); }
    Body EndHeaders(const ContentTypeReceiver&) override { return Body::Whole; }
    LineReceiver& StartBody() override { return content_; }
    void EndMessage(uint64_t) override { complete_ = true; }

private:
    LineReceiver& EndHeaders(uint64_t) override { return ignored_; }

    MastheadHeaderReceiver& headers_;
    HeaderMaker content_{*this};
    IgnoreLineReceiver ignored_;
    bool complete_ = false;
};

// Reads what is signed.  Throws NotAMasthead at the end of the headers of a message that is no masthead.
class MastheadContentMaker final : public MessageReceiver {
public:
    explicit MastheadContentMaker(MastheadHeaderReceiver& headers) : headerSet_(headers) {}

    bool IsComplete() const { return headerSet_.IsComplete(); }

    Body EndHeaders(const ContentTypeReceiver& type) override;
    MessageReceiver& StartPart(size_t index) override;

private:
    MastheadHeaderSetMaker headerSet_;
    IgnoreMessageReceiver ignored_;
};

// Reads the whole, or the content alone; the signature is passed over.  Throws NotAMasthead for any other message.
class MastheadMaker final : public MessageReceiver {
public:
    explicit MastheadMaker(MastheadHeaderReceiver& headers) : content_(headers) {}

    // Whether there is anything that could be a signature: a bare content says what anybody may have put there.
    bool IsSigned() const { return reader_ == &signed_; }

    // Whether all headers have been read; what follows adds nothing.
    bool IsComplete() const { return content_.IsComplete(); }

    Body EndHeaders(const ContentTypeReceiver& type) override;
    MessageReceiver& StartPart(size_t index) override { return reader_->StartPart(index); }

private:
    MastheadContentMaker content_;
    MultipartSignedSignatureIgnorer signature_{content_};
    MultipartSignedSplitter signed_{signature_};
    MessageReceiver* reader_ = &content_;
};

// Reads the file of a signed masthead, as far as it has headers.  Throws NotASignedMessage, NotAMasthead, FileIOError
// and std::bad_alloc.
void ReadMasthead(const FileLocation& location, MastheadHeaderReceiver& headers);

// Whether the masthead at `location` requires FIPS cryptography.  What is no regular file, cannot be read or is no
// signed masthead requires nothing.  Throws std::bad_alloc.
bool ReadFipsRequirement(const FileLocation& location);

#endif
