// A receiver that keeps the beginning of a stream: what short tokens of foreign text are gathered in.
#ifndef FOUNDATION_BOUNDED_TEXT_H
#define FOUNDATION_BOUNDED_TEXT_H

#include "foundation/const_data.h"
#include "foundation/data_filter.h"
#include "foundation/data_receiver.h"

// Keeps the first `Capacity` bytes that the filter writes and drops the rest without a word.  Start forgets what was
// kept before; Finish leaves it to be read.
template <size_t Capacity>
class BoundedText final : public DataReceiver {
public:
    // The filter must outlive the text and hold nothing back.
    explicit BoundedText(DataFilter& filter = DataFilter::copy) : filter_(filter) {}
    BoundedText(const BoundedText&) = delete;
    BoundedText& operator=(const BoundedText&) = delete;

    void Clear() { buffer_.write = buffer_.begin; }
    ConstData Text() const { return buffer_.Filled(); }

    void Start() override { Clear(); }
    void Data(const unsigned char* begin, const unsigned char* end) override {
        ConstData in(begin, end);
        if (!in.Empty()) {
            filter_.Filter(in, buffer_);
        }
    }
    void Finish() override {}

private:
    DataFilter& filter_;
    unsigned char bytes_[Capacity];
    Buffer buffer_{bytes_, bytes_ + Capacity};
};

#endif
