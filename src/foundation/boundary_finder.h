// Finds, in a stream of lines, those that separate the parts of multiparts.
//
// Multiparts lie in each other, and a line may be the boundary of any that is open.  Looking it up takes one hash,
// however many are open, so that deep nesting costs no more per line than none.
#ifndef FOUNDATION_BOUNDARY_FINDER_H
#define FOUNDATION_BOUNDARY_FINDER_H

#include <array>
#include <cstdint>

#include "foundation/const_data.h"
#include "foundation/extensible_array.h"
#include "foundation/line_receiver.h"

// Is given all lines that are no boundaries, and the boundaries by themselves.
class MultipartBoundaryReceiver : public LineReceiver {
public:
    // A boundary of the open multipart `level`, counted from 0 for the outermost; `last` is the one after its last
    // part.  `start` is where the part before it ends, which is before the line terminator that precedes the
    // boundary; `end` is where the next part begins.
    virtual void Boundary(size_t level, bool last, uint64_t start, uint64_t end) = 0;
};

// A boundary is "--", the multipart's boundary text, "--" again if it is the last, and blanks up to the end of the
// line. A line that could be one is held until its end, in a fixed buffer; all others pass as they come.
class BoundaryFinder final : public LineReceiver {
public:
    // As many multiparts can be open at one time.
    static constexpr size_t kMostOpen = 4096;
    static constexpr size_t kLongestBoundary = 80;

    explicit BoundaryFinder(MultipartBoundaryReceiver& next) : next_(next) {}
    BoundaryFinder(const BoundaryFinder&) = delete;
    BoundaryFinder& operator=(const BoundaryFinder&) = delete;

    size_t Open() const { return open_; }

    // Opens a multipart inside those that are open.  False, and nothing is opened, when the text is empty or too long
    // or too many are open.
    bool Push(ConstData boundary);

    // Closes all but the outermost `count`.
    void CloseTo(size_t count);

    // In a body the terminator of a line is held back until the next line is known to be no boundary, since it would
    // belong to that; in headers it passes at once, since it may be what opens the next multipart.
    void HoldTerminators(bool hold) { hold_ = hold; }

    // Start closes all multiparts and holds no terminators.
    void Start(uint64_t position) override;
    void Text(const unsigned char* begin, const unsigned char* end) override;
    void EndOfLine(uint64_t start, uint64_t end) override;
    void Finish(uint64_t position) override;

private:
    static constexpr uint16_t kNone = 0xffff;
    struct Multipart {
        unsigned char text[kLongestBoundary];
        uint8_t length;
        uint16_t nextInBucket;
        uint32_t hash;
        ConstData Text() const { return {text, text + length}; }
    };

    uint16_t Find(ConstData boundary) const;
    bool EndCandidate(uint64_t end);
    void PassHeld();

    MultipartBoundaryReceiver& next_;
    ExtensibleArray<Multipart> multiparts_;  // the first open_ are open, the others are there to be used again
    size_t open_ = 0;
    std::array<uint16_t, 512> buckets_;  // the innermost of each hash, and from there outward
    bool hold_ = false;

    unsigned char lineBytes_[256];
    Buffer line_{lineBytes_, lineBytes_ + sizeof lineBytes_};
    bool candidate_ = true;  // the line may still be a boundary, and line_ is all of it so far
    Range<uint64_t> held_;   // the terminator that is held back
    bool isHeld_ = false;
    uint64_t terminatorStart_ = 0;  // that of the line before, or its end when that was a boundary
};

#endif
