// Views of bytes: what every stream of the system hands on.
//
// A view owns nothing.  A handler that takes a ConstData by reference advances its `begin` past what it has consumed,
// so that what is left in it afterwards is what nobody has taken yet.
#ifndef FOUNDATION_CONST_DATA_H
#define FOUNDATION_CONST_DATA_H

#include <cstddef>
#include <cstring>
#include <string_view>

#include "foundation/debuggable_exception.h"

struct ConstDataCapacityExceeded : DebuggableException {
    ConstDataCapacityExceeded() noexcept : DebuggableException("ConstDataCapacityExceeded") {}
};
struct ConstDataTooSmall : DebuggableException {
    ConstDataTooSmall() noexcept : DebuggableException("ConstDataTooSmall") {}
};
struct DataOverflow : DebuggableException {
    DataOverflow() noexcept : DebuggableException("DataOverflow") {}
};
struct DataTooSmall : DebuggableException {
    DataTooSmall() noexcept : DebuggableException("DataTooSmall") {}
};
struct NoMoreData : DebuggableException {
    NoMoreData() noexcept : DebuggableException("NoMoreData") {}
};

struct ConstData {
    const unsigned char* begin = nullptr;
    const unsigned char* end = nullptr;

    constexpr ConstData() = default;
    constexpr ConstData(const unsigned char* first, const unsigned char* last) : begin(first), end(last) {}
    ConstData(const void* first, size_t length)
        : begin(static_cast<const unsigned char*>(first)), end(begin + length) {}
    explicit ConstData(std::string_view text) : ConstData(text.data(), text.size()) {}

    bool Empty() const { return begin == end; }
    size_t Length() const { return static_cast<size_t>(end - begin); }
    std::string_view View() const { return {reinterpret_cast<const char*>(begin), Length()}; }
};

// The same view where its use as a cursor is the point.
using ConstBuffer = ConstData;

// A fixed stretch of memory that is being filled: [begin, write) holds bytes, [write, end) is free.
struct Buffer {
    unsigned char* begin = nullptr;
    unsigned char* write = nullptr;
    unsigned char* end = nullptr;

    constexpr Buffer() = default;
    constexpr Buffer(unsigned char* first, unsigned char* last) : begin(first), write(first), end(last) {}

    size_t Room() const { return static_cast<size_t>(end - write); }
    bool Full() const { return write == end; }
    ConstData Filled() const { return {begin, write}; }
};

// A pair of stream positions, in bytes from the start of the stream.
template <class T>
struct Range {
    T start{};
    T end{};
};

#endif
