// One structure of the firmware's table: a formatted area of fixed fields, whose length is its second byte, and behind
// it a set of strings, each with a zero byte at its end, closed by an empty one.
//
// The bytes are foreign: every reading is bounded by the formatted length or by the end of the bytes, and what does not
// lie within is absent.
#ifndef INSPECTORS_DMI_STRUCTURE_H
#define INSPECTORS_DMI_STRUCTURE_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "foundation/const_data.h"

// Owns its bytes.  The texts that it gives lie in them and live as long as it does.
class DmiStructure {
public:
    // The type, the formatted length and the two bytes of the handle.
    static constexpr size_t kHeaderLength = 4;

    // Whether the bytes can be a structure: a formatted area that holds its own header and lies within them.
    static bool IsWhole(ConstData bytes);

    // The bytes must be whole.
    explicit DmiStructure(std::vector<unsigned char> bytes) : bytes_(std::move(bytes)) {}

    ConstData All() const { return {bytes_.data(), bytes_.size()}; }

    // Of the formatted area.
    unsigned Length() const { return bytes_[1]; }

    // The number of `width` bytes, 1, 2, 4 or 8, at a place of the formatted area, the least byte first.
    std::optional<uint64_t> Number(size_t offset, size_t width) const;

    // The bytes at a place of the formatted area.
    std::optional<std::string_view> Bytes(size_t offset, size_t length) const;

    // The string whose number stands in the byte at this place.
    std::optional<std::string_view> StringAt(size_t offset) const;

    // The string of this number; the first is 1.
    std::optional<std::string_view> NumberedString(uint64_t number) const;

private:
    std::vector<unsigned char> bytes_;
};

#endif
