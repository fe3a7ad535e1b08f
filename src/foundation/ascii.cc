#include "foundation/ascii.h"

#include <algorithm>

namespace Ascii {

namespace {

constexpr std::array<unsigned char, 256> MakeTable(unsigned char first, unsigned char last, int step) {
    std::array<unsigned char, 256> table{};
    for (unsigned i = 0; i < 256; ++i) {
        table[i] =
            static_cast<unsigned char>(i >= first && i <= last ? static_cast<int>(i) + step : static_cast<int>(i));
    }
    return table;
}

void Map(const std::array<unsigned char, 256>& table, ConstData& in, Buffer& out) {
    const size_t count = std::min(in.Length(), out.Room());
    for (size_t i = 0; i < count; ++i) {
        out.write[i] = table[in.begin[i]];
    }
    in.begin += count;
    out.write += count;
}

}  // namespace

constinit const std::array<unsigned char, 256> lowercaseTable = MakeTable('A', 'Z', 'a' - 'A');
constinit const std::array<unsigned char, 256> uppercaseTable = MakeTable('a', 'z', 'A' - 'a');

int CompareIgnoringCase(ConstData a, ConstData b) {
    const size_t common = std::min(a.Length(), b.Length());
    for (size_t i = 0; i < common; ++i) {
        const int difference = lowercaseTable[a.begin[i]] - lowercaseTable[b.begin[i]];
        if (difference != 0) {
            return difference;
        }
    }
    return a.Length() < b.Length() ? -1 : a.Length() > b.Length() ? 1 : 0;
}

void CaseLoweringFilter::Filter(ConstData& in, Buffer& out) { Map(lowercaseTable, in, out); }

void CaseRaisingFilter::Filter(ConstData& in, Buffer& out) { Map(uppercaseTable, in, out); }

}  // namespace Ascii
