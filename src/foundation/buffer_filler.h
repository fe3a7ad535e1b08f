// A receiver that copies a stream into a fixed stretch of memory.
#ifndef FOUNDATION_BUFFER_FILLER_H
#define FOUNDATION_BUFFER_FILLER_H

#include "foundation/const_data.h"
#include "foundation/data_receiver.h"

struct NullBufferFiller : DebuggableException {
    NullBufferFiller() noexcept : DebuggableException("NullBufferFiller") {}
};

// Appends at the `write` position of the caller's buffer.  Throws NullBufferFiller when it has no buffer, and
// DataOverflow when a run does not fit, of which nothing is then copied.
class BufferFiller final : public DataReceiver {
public:
    // `buffer` may be null, and must otherwise outlive the stream.
    explicit BufferFiller(Buffer* buffer) : buffer_(buffer) {}

    void Start() override { Target(); }
    void Data(const unsigned char* begin, const unsigned char* end) override {
        Buffer& buffer = Target();
        const ConstData run(begin, end);
        if (run.Length() > buffer.Room()) {
            throw DataOverflow();
        }
        if (!run.Empty()) {
            std::memcpy(buffer.write, begin, run.Length());
            buffer.write += run.Length();
        }
    }
    void Finish() override {}

private:
    Buffer& Target() const {
        if (buffer_ == nullptr) {
            throw NullBufferFiller();
        }
        return *buffer_;
    }

    Buffer* buffer_;
};

#endif
