#include "foundation/boundary_finder.h"

#include <algorithm>
#include <cstring>

#include "foundation/character_set.h"

namespace {

constexpr unsigned char kDashes[] = {'-', '-'};

uint32_t Hash(ConstData text) {
    uint32_t hash = 2166136261u;
    for (; !text.Empty(); ++text.begin) {
        hash = (hash ^ *text.begin) * 16777619u;
    }
    return hash;
}

ConstData WithoutBlanksAtEnd(ConstData text) {
    while (!text.Empty() && CharacterSets::whiteSpace.Contains(text.end[-1])) {
        --text.end;
    }
    return text;
}

// True as long as `line` and "--" agree.
bool BeginsLikeABoundary(ConstData line) {
    return std::equal(line.begin, line.begin + std::min(line.Length(), sizeof kDashes), kDashes);
}

}  // namespace

bool BoundaryFinder::Push(ConstData boundary) {
    boundary = WithoutBlanksAtEnd(boundary);
    if (boundary.Empty() || boundary.Length() > kLongestBoundary || open_ == kMostOpen) {
        return false;
    }
    Multipart& multipart = open_ < multiparts_.Size() ? multiparts_[open_] : multiparts_.Append();
    std::copy(boundary.begin, boundary.end, multipart.text);
    multipart.length = static_cast<uint8_t>(boundary.Length());
    multipart.hash = Hash(boundary);
    uint16_t& bucket = buckets_[multipart.hash % buckets_.size()];
    multipart.nextInBucket = bucket;
    bucket = static_cast<uint16_t>(open_++);
    return true;
}

void BoundaryFinder::CloseTo(size_t count) {
    while (open_ > count) {
        const Multipart& multipart = multiparts_[--open_];
        buckets_[multipart.hash % buckets_.size()] = multipart.nextInBucket;
    }
}

uint16_t BoundaryFinder::Find(ConstData boundary) const {
    const uint32_t hash = Hash(boundary);
    uint16_t level = buckets_[hash % buckets_.size()];
    while (level != kNone &&
           !(multiparts_[level].hash == hash && multiparts_[level].Text().View() == boundary.View())) {
        level = multiparts_[level].nextInBucket;
    }
    return level;
}

void BoundaryFinder::Start(uint64_t position) {
    open_ = 0;
    buckets_.fill(kNone);
    hold_ = false;
    line_.write = line_.begin;
    candidate_ = true;
    isHeld_ = false;
    terminatorStart_ = position;
    next_.Start(position);
}

void BoundaryFinder::Text(const unsigned char* begin, const unsigned char* end) {
    if (begin == end) {
        return;
    }
    if (candidate_) {
        ConstData run(begin, end);
        const size_t taken = std::min(run.Length(), line_.Room());
        const bool fits = taken == run.Length();
        const ConstData before = line_.Filled();
        if (open_ != 0 && fits && (!before.Empty() || *begin == '-')) {
            std::memcpy(line_.write, begin, taken);
            line_.write += taken;
            if (BeginsLikeABoundary(line_.Filled())) {
                return;
            }
            line_.write -= taken;
        }
        candidate_ = false;
        PassHeld();
    }
    next_.Text(begin, end);
}

void BoundaryFinder::EndOfLine(uint64_t start, uint64_t end) {
    if (EndCandidate(end)) {
        return;
    }
    terminatorStart_ = start;
    if (hold_ && open_ != 0) {
        held_ = {start, end};
        isHeld_ = true;
    } else {
        next_.EndOfLine(start, end);
    }
}

void BoundaryFinder::Finish(uint64_t position) {
    EndCandidate(position);
    next_.Finish(position);
}

// At the end of a line: tells of the boundary that it was, or passes what was held of it.
bool BoundaryFinder::EndCandidate(uint64_t end) {
    const bool wasCandidate = candidate_;
    candidate_ = true;
    if (!wasCandidate) {
        return false;
    }
    ConstData boundary = WithoutBlanksAtEnd(line_.Filled());
    if (boundary.Length() > sizeof kDashes) {
        boundary.begin += sizeof kDashes;
        uint16_t level = Find(boundary);
        bool last = false;
        if (level == kNone && boundary.View().ends_with("--")) {
            boundary.end -= sizeof kDashes;
            level = Find(boundary);
            last = true;
        }
        if (level != kNone) {
            const uint64_t start = terminatorStart_;
            terminatorStart_ = end;
            line_.write = line_.begin;
            isHeld_ = false;
            next_.Boundary(level, last, start, end);
            return true;
        }
    }
    PassHeld();
    return false;
}

void BoundaryFinder::PassHeld() {
    if (isHeld_) {
        isHeld_ = false;
        next_.EndOfLine(held_.start, held_.end);
    }
    if (!line_.Filled().Empty()) {
        const ConstData line = line_.Filled();
        line_.write = line_.begin;
        next_.Text(line.begin, line.end);
    }
}
