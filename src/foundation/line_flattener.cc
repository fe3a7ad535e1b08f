#include "foundation/line_flattener.h"

#include <utility>

const ConstData LineFlattener::cr("\r", 1);
const ConstData LineFlattener::lf("\n", 1);
const ConstData LineFlattener::crlf("\r\n", 2);
const ConstData LineFlattener::space(" ", 1);
const ConstData LineFlattener::nothing("", size_t{0});

void LineFlattener::Start(uint64_t) {
    if (next_ != nullptr) {
        next_->Start();
    }
}

void LineFlattener::Text(const unsigned char* begin, const unsigned char* end) {
    if (next_ != nullptr) {
        next_->Data(begin, end);
    }
}

void LineFlattener::EndOfLine(uint64_t, uint64_t) {
    if (next_ != nullptr) {
        next_->Data(terminator_.begin, terminator_.end);
    }
}

void LineFlattener::Finish(uint64_t) {
    if (DataReceiver* const next = std::exchange(next_, nullptr)) {
        next->Finish();
    }
}
