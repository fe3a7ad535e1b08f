#include "foundation/little_endian.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

TEST(LittleEndian, HasItsLeastByteFirst) {
    EXPECT_EQ(LittleEndian(""), 0U);
    EXPECT_EQ(LittleEndian("\xff"), 0xffU);
    EXPECT_EQ(LittleEndian("\x34\x12"), 0x1234U);
    EXPECT_EQ(LittleEndian(std::string_view("\xef\xcd\xab\x89\x67\x45\x23\x81", 8)), 0x8123456789abcdefU);
}

TEST(LittleEndian, IsAppendedInItsWidth) {
    std::string text = "x";
    AppendLittleEndian(text, 0x8123456789abcdef, 8);
    AppendLittleEndian(text, 0x1234, 1);
    AppendLittleEndian(text, 0x1234, 0);
    EXPECT_EQ(text, "x\xef\xcd\xab\x89\x67\x45\x23\x81\x34");
    std::vector<unsigned char> bytes;
    AppendLittleEndian(bytes, 0xff, 2);
    EXPECT_EQ(bytes, (std::vector<unsigned char>{0xff, 0}));
}

}  // namespace
