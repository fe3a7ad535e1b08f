// The push interface through which all bulk data flows.
//
// A producer brackets a stream with one Start and one Finish and calls Data with runs of any size, an empty one
// included.  No receiver may assume that a unit of meaning arrives in one run.
#ifndef FOUNDATION_DATA_RECEIVER_H
#define FOUNDATION_DATA_RECEIVER_H

#include <string>

#include "foundation/const_data.h"

class DataReceiver {
public:
    DataReceiver& operator()(const unsigned char* begin, const unsigned char* end) {
        Data(begin, end);
        return *this;
    }
    DataReceiver& operator()(ConstData data) { return (*this)(data.begin, data.end); }

    virtual ~DataReceiver() = default;
    virtual void Start() = 0;
    virtual void Data(const unsigned char* begin, const unsigned char* end) = 0;
    virtual void Finish() = 0;
};

class IgnoreDataReceiver final : public DataReceiver {
public:
    void Start() override {}
    void Data(const unsigned char*, const unsigned char*) override {}
    void Finish() override {}
};

// Appends all data to a string that the caller owns; Start does not clear it.
class StringReceiver final : public DataReceiver {
public:
    explicit StringReceiver(std::string& text) : text_(text) {}
    void Start() override {}
    void Data(const unsigned char* begin, const unsigned char* end) override { text_.append(begin, end); }
    void Finish() override {}

private:
    std::string& text_;
};

#endif
