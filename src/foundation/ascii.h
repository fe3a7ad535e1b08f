// ASCII case, as the whole system understands it: the letters A to Z and a to z, every other byte unchanged.  No
// locale has a say in it.
#ifndef FOUNDATION_ASCII_H
#define FOUNDATION_ASCII_H

#include <array>

#include "foundation/const_data.h"
#include "foundation/data_filter.h"

namespace Ascii {

extern const std::array<unsigned char, 256> lowercaseTable;
extern const std::array<unsigned char, 256> uppercaseTable;

// Compares two byte ranges through the lower-casing table; a range that the other begins with is the lesser.
// Returns a negative number, 0 or a positive number.
int CompareIgnoringCase(ConstData a, ConstData b);

class CaseLoweringFilter final : public DataFilter {
public:
    void Filter(ConstData& in, Buffer& out) override;
};

class CaseRaisingFilter final : public DataFilter {
public:
    void Filter(ConstData& in, Buffer& out) override;
};

}  // namespace Ascii

#endif
