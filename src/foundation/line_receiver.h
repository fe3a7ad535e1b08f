// The push interface for text lines, one level above DataReceiver.
//
// One line may arrive in several Text calls, and an empty line in none.  Positions are 64-bit offsets from the start
// of the stream; those of EndOfLine bracket the line's terminator.
#ifndef FOUNDATION_LINE_RECEIVER_H
#define FOUNDATION_LINE_RECEIVER_H

#include <cstdint>

class LineReceiver {
public:
    virtual ~LineReceiver() = default;
    virtual void Start(uint64_t position) = 0;
    virtual void Text(const unsigned char* begin, const unsigned char* end) = 0;
    virtual void EndOfLine(uint64_t start, uint64_t end) = 0;
    virtual void Finish(uint64_t position) = 0;
};

class IgnoreLineReceiver final : public LineReceiver {
public:
    void Start(uint64_t) override {}
    void Text(const unsigned char*, const unsigned char*) override {}
    void EndOfLine(uint64_t, uint64_t) override {}
    void Finish(uint64_t) override {}
};

#endif
