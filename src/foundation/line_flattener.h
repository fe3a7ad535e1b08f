// Turns lines back into a stream of bytes, each line ended by one and the same terminator.
#ifndef FOUNDATION_LINE_FLATTENER_H
#define FOUNDATION_LINE_FLATTENER_H

#include "foundation/const_data.h"
#include "foundation/data_receiver.h"
#include "foundation/line_receiver.h"

// Serves one stream: Finish lets go of the next receiver, and whatever comes after it goes nowhere.
class LineFlattener final : public LineReceiver {
public:
    static const ConstData cr;
    static const ConstData lf;
    static const ConstData crlf;
    static const ConstData space;
    static const ConstData nothing;

    // The bytes of `terminator` must outlive the stream.
    LineFlattener(ConstData terminator, DataReceiver& next) : terminator_(terminator), next_(&next) {}

    void Start(uint64_t position) override;
    void Text(const unsigned char* begin, const unsigned char* end) override;
    void EndOfLine(uint64_t start, uint64_t end) override;
    void Finish(uint64_t position) override;

private:
    ConstData terminator_;
    DataReceiver* next_;
};

#endif
