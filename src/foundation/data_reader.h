// The pull interface for bytes: the consumer asks, and the reader fills what it is given.
#ifndef FOUNDATION_DATA_READER_H
#define FOUNDATION_DATA_READER_H

#include "foundation/const_data.h"

// Asking whether there is more may cost a look at the source, so none of the operations is constant.
class DataReader {
public:
    virtual ~DataReader() = default;

    virtual bool AtEnd() = 0;
    virtual bool HasData() { return !AtEnd(); }

    // Writes as much as it likes, up to the room that `out` has, and advances its `write`.
    virtual void Fill(Buffer& out) = 0;

    // Fills all of [begin, end), or throws NoMoreData when the data ends first.
    virtual void Read(unsigned char* begin, unsigned char* end);
};

class EmptyDataReader final : public DataReader {
public:
    bool AtEnd() override { return true; }
    void Fill(Buffer&) override {}
};

#endif
