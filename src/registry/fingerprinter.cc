#include "registry/fingerprinter.h"

#include <array>

#include "registry/dependency_node.h"

namespace {

constexpr uint32_t kPolynomial = 0x864CFB;
constexpr uint32_t kStart = 0xB704CE;

constexpr std::array<uint32_t, 256> MakeTable() {
    std::array<uint32_t, 256> table{};
    for (uint32_t byte = 0; byte < 256; ++byte) {
        uint32_t crc = byte << 16;
        for (int bit = 0; bit < 8; ++bit) {
            crc <<= 1;
            if ((crc & 0x1000000) != 0) {
                crc ^= 0x1000000 | kPolynomial;
            }
        }
        table[byte] = crc;
    }
    return table;
}

constexpr std::array<uint32_t, 256> kTable = MakeTable();

}  // namespace

void Fingerprinter::AddData(const unsigned char* begin, const unsigned char* end) {
    uint32_t crc = kStart;
    for (; begin != end; ++begin) {
        crc = ((crc << 8) & 0xFFFFFF) ^ kTable[(crc >> 16) ^ *begin];
    }
    dependencies |= valueSeen;
    sum += crc;
}

void Fingerprinter::AddDependency(DependencyNode& node) {
    const unsigned number = node.Number();
    if (number > 30) {
        node.AddState(*this);
    } else {
        dependencies |= uint32_t{1} << number;
    }
}
