// Filters turn runs of bytes into other bytes; DataFilterer puts one between two receivers.
#ifndef FOUNDATION_DATA_FILTER_H
#define FOUNDATION_DATA_FILTER_H

#include "foundation/const_data.h"
#include "foundation/data_receiver.h"

class DataFilter {
public:
    virtual ~DataFilter() = default;

    // Consumes from `in` and writes to `out`; returns when either is exhausted.
    virtual void Filter(ConstData& in, Buffer& out) = 0;

    // True when the filter has nothing held back.  What is held back after Finish comes out in further calls of Filter
    // with no input.
    virtual bool IsFinished() const { return true; }
    virtual void Finish() {}

    // The identity.
    static DataFilter& copy;
};

// Applies a filter and hands what it writes to the next receiver, in runs of at most 1024 bytes.
class DataFilterer final : public DataReceiver {
public:
    DataFilterer(DataFilter& filter, DataReceiver& next) : filter_(filter), next_(next) {}
    void Start() override { next_.Start(); }
    void Data(const unsigned char* begin, const unsigned char* end) override;
    void Finish() override;

private:
    DataFilter& filter_;
    DataReceiver& next_;
};

#endif
