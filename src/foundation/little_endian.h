// Numbers as bytes, the least byte first.
#ifndef FOUNDATION_LITTLE_ENDIAN_H
#define FOUNDATION_LITTLE_ENDIAN_H

#include <cstddef>
#include <cstdint>
#include <string_view>

// The number that all these bytes are, 8 at most.
constexpr uint64_t LittleEndian(std::string_view bytes) {
    uint64_t number = 0;
    for (size_t i = bytes.size(); i != 0; --i) {
        number = number << 8 | static_cast<unsigned char>(bytes[i - 1]);
    }
    return number;
}

// Appends the lowest `width` bytes of a number to a string or a vector of bytes.
template <class Bytes>
void AppendLittleEndian(Bytes& out, uint64_t number, size_t width) {
    for (; width != 0; --width, number >>= 8) {
        out.push_back(static_cast<typename Bytes::value_type>(number & 0xff));
    }
}

#endif
