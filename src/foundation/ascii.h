// ASCII case, as the whole system understands it: the letters A to Z and a to z, every other byte unchanged.  No
// locale has a say in it.
#ifndef FOUNDATION_ASCII_H
#define FOUNDATION_ASCII_H

#include <array>
#include <string_view>

#include "foundation/const_data.h"
#include "foundation/data_filter.h"

namespace Ascii {

extern const std::array<unsigned char, 256> lowercaseTable;
extern const std::array<unsigned char, 256> uppercaseTable;

// Compares two byte ranges through the lower-casing table; a range that the other begins with is the lesser.
// Returns a negative number, 0 or a positive number.
int CompareIgnoringCase(ConstData a, ConstData b);

inline bool EqualIgnoringCase(std::string_view a, std::string_view b) {
    return a.size() == b.size() && CompareIgnoringCase(ConstData(a), ConstData(b)) == 0;
}
inline bool BeginsWithIgnoringCase(std::string_view text, std::string_view start) {
    return EqualIgnoringCase(text.substr(0, start.size()), start);
}

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
