// Reads a MIME message with all the parts that lie in it, however deep, for a MessageReceiver.
//
// It is one machine for all depths: a line costs the same at the bottom of a thousand parts as at the top, nothing
// recurses, and what is held is a fixed record for each multipart that is open.
#ifndef FOUNDATION_MULTIPART_SPLITTER_H
#define FOUNDATION_MULTIPART_SPLITTER_H

#include "foundation/boundary_finder.h"
#include "foundation/content_type_receiver.h"
#include "foundation/extensible_array.h"
#include "foundation/header_maker.h"
#include "foundation/line_receiver.h"
#include "foundation/message_receiver.h"
#include "foundation/structured_field_maker.h"

// One stream of lines is one message; the splitter may then be given the next.  An exception of a receiver passes
// through, and the splitter can be used again from Start.
//
// A boundary of an outer multipart ends all that is open inside it, and so does the end of the stream.  What comes
// before the first part of a multipart and after its last is dropped.
class MultipartSplitter final : public LineReceiver {
public:
    // Multiparts that lie deeper are given whole.
    static constexpr size_t kDeepest = BoundaryFinder::kMostOpen;

    explicit MultipartSplitter(MessageReceiver& message) : parts_(message) {}

    void Start(uint64_t position) override { parts_.finder.Start(position); }
    void Text(const unsigned char* begin, const unsigned char* end) override { parts_.finder.Text(begin, end); }
    void EndOfLine(uint64_t start, uint64_t end) override { parts_.finder.EndOfLine(start, end); }
    void Finish(uint64_t position) override { parts_.finder.Finish(position); }

private:
    struct Multipart {
        MessageReceiver* message;
        size_t parts;  // begun so far
        unsigned defaultType;
    };

    // What stands behind the boundary finder: the headers and bodies of one part after the other.
    class Parts final : public MultipartBoundaryReceiver, private HeaderReceiver {
    public:
        explicit Parts(MessageReceiver& message) : message_(message) {}
        Parts(const Parts&) = delete;
        Parts& operator=(const Parts&) = delete;

        void Start(uint64_t position) override;
        void Text(const unsigned char* begin, const unsigned char* end) override { sink_->Text(begin, end); }
        void EndOfLine(uint64_t start, uint64_t end) override { sink_->EndOfLine(start, end); }
        void Finish(uint64_t position) override;
        void Boundary(size_t level, bool last, uint64_t start, uint64_t end) override;

        BoundaryFinder finder{*this};

    private:
        DataReceiver& StartHeader(ConstData name) override;
        LineReceiver& EndHeaders(uint64_t position) override;

        void BeginPart(MessageReceiver& message, unsigned defaultType, uint64_t position);
        void EndPart(uint64_t position);
        void EndMultipartsInside(size_t count, uint64_t position);

        MessageReceiver& message_;
        ExtensibleArray<Multipart>
            multiparts_;                   // as many as the finder has open, the others are there to be used again
        MessageReceiver* part_ = nullptr;  // null before the first part of a multipart
        uint64_t partStart_ = 0;
        HeaderMaker headers_{*this};
        LineReceiver* sink_ = &ignored_;  // headers_, or what swallows the text after the last part
        ContentTypeReceiver type_;
        StructuredFieldMaker typeMaker_{type_, ContentTypeReceiver::extraSpecial};
        IgnoreLineReceiver ignored_;
    };

    Parts parts_;
};

#endif
