#include "foundation/multipart_splitter.h"

#include <algorithm>
#include <string_view>
#include <utility>

void MultipartSplitter::Parts::Start(uint64_t position) { BeginPart(message_, ContentTypes::other, position); }

void MultipartSplitter::Parts::Finish(uint64_t position) {
    EndPart(position);
    EndMultipartsInside(0, position);
}

void MultipartSplitter::Parts::Boundary(size_t level, bool last, uint64_t start, uint64_t end) {
    // The terminator before the boundary of an empty part is that of the boundary before it.
    const uint64_t partEnd = std::max(start, partStart_);
    EndPart(partEnd);
    EndMultipartsInside(level + 1, partEnd);
    Multipart& multipart = multiparts_[level];
    if (last) {
        // The text after the last part still belongs to this message, which ends with the part that it is.
        finder.CloseTo(level);
        part_ = multipart.message;
        sink_ = &ignored_;
    } else {
        BeginPart(multipart.message->StartPart(multipart.parts++), multipart.defaultType, end);
    }
}

void MultipartSplitter::Parts::BeginPart(MessageReceiver& message, unsigned defaultType, uint64_t position) {
    part_ = &message;
    partStart_ = position;
    type_.Reset(defaultType);
    finder.HoldTerminators(false);
    sink_ = &headers_;
    message.StartMessage(position);
    headers_.Start(position);
}

// Its headers may end with it, and open one more multipart.
void MultipartSplitter::Parts::EndPart(uint64_t position) {
    if (std::exchange(sink_, &ignored_) == &headers_) {
        headers_.Finish(position);
    }
    if (MessageReceiver* const part = std::exchange(part_, nullptr)) {
        part->EndMessage(position);
    }
}

void MultipartSplitter::Parts::EndMultipartsInside(size_t count, uint64_t position) {
    while (finder.Open() > count) {
        finder.CloseTo(finder.Open() - 1);
        multiparts_[finder.Open()].message->EndMessage(position);
    }
}

DataReceiver& MultipartSplitter::Parts::StartHeader(ConstData name) {
    if (name.View() == "content-type") {
        return typeMaker_;
    }
    return part_->StartHeader(name);
}

LineReceiver& MultipartSplitter::Parts::EndHeaders(uint64_t) {
    finder.HoldTerminators(true);
    const MessageReceiver::Body body = part_->EndHeaders(type_);
    if (body == MessageReceiver::Body::Whole || !type_.IsMultipart() || !finder.Push(type_.Boundary())) {
        return part_->StartBody();
    }
    Multipart& multipart = finder.Open() <= multiparts_.Size() ? multiparts_[finder.Open() - 1] : multiparts_.Append();
    const bool isDigest = type_.ContentType() == ContentTypes::multipartDigest;
    multipart = {std::exchange(part_, nullptr), 0, isDigest ? ContentTypes::messageRfc822 : ContentTypes::other};
    return ignored_;
}
