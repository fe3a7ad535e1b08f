// The mode of a file, and the three bits of it that concern one class of users.
#ifndef INSPECTORS_MODE_H
#define INSPECTORS_MODE_H

#include <cstdint>

#include "registry/inspector_type_info.h"

class mode {
public:
    explicit constexpr mode(uint32_t bits) : bits_(bits) {}
    constexpr bool Has(uint32_t bit) const { return (bits_ & bit) != 0; }

    // The octal digit whose lowest bit is bit `shift`.
    constexpr uint8_t Digit(unsigned shift) const { return static_cast<uint8_t>(bits_ >> shift & 7); }

private:
    uint32_t bits_;
};

// 4 to read, 2 to write, 1 to execute.
class mode_mask {
public:
    explicit constexpr mode_mask(uint8_t bits) : bits_(bits) {}
    constexpr uint8_t Bits() const { return bits_; }

private:
    uint8_t bits_;
};

template <>
struct InspectorTypeInfo<mode> : InspectorTypeBasics<mode> {
    static constexpr char Name[] = "mode";
    static constexpr unsigned Size = 4;
};

template <>
struct InspectorTypeInfo<mode_mask> : InspectorTypeBasics<mode_mask> {
    static constexpr char Name[] = "mode_mask";
    static constexpr unsigned Size = 1;
};

#endif
