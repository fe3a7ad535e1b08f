#include "foundation/data_filter.h"

#include <algorithm>

namespace {

class CopyFilter final : public DataFilter {
public:
    void Filter(ConstData& in, Buffer& out) override {
        const size_t count = std::min(in.Length(), out.Room());
        std::copy_n(in.begin, count, out.write);
        in.begin += count;
        out.write += count;
    }
};

CopyFilter copyFilter;

}  // namespace

DataFilter& DataFilter::copy = copyFilter;

void DataFilterer::Data(const unsigned char* begin, const unsigned char* end) {
    unsigned char block[1024];
    ConstData in(begin, end);
    while (!in.Empty()) {
        Buffer out(block, block + sizeof block);
        filter_.Filter(in, out);
        next_.Data(out.begin, out.write);
    }
}

// What the filter held back comes out before the stream ends.
void DataFilterer::Finish() {
    filter_.Finish();
    while (!filter_.IsFinished()) {
        unsigned char block[1024];
        ConstData nothing;
        Buffer out(block, block + sizeof block);
        filter_.Filter(nothing, out);
        next_.Data(out.begin, out.write);
    }
    next_.Finish();
}
