#include "foundation/ascii.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace {

int Compare(std::string_view a, std::string_view b) { return Ascii::CompareIgnoringCase(ConstData(a), ConstData(b)); }

TEST(Ascii, TheTablesChangeLettersAndNothingElse) {
    for (unsigned byte = 0; byte < 256; ++byte) {
        const bool upper = byte >= 'A' && byte <= 'Z';
        const bool lower = byte >= 'a' && byte <= 'z';
        EXPECT_EQ(Ascii::lowercaseTable[byte], upper ? byte + 32 : byte);
        EXPECT_EQ(Ascii::uppercaseTable[byte], lower ? byte - 32 : byte);
    }
}

TEST(Ascii, ComparingDisregardsCase) {
    EXPECT_EQ(Compare("/TMP/x", "/tmp/X"), 0);
    EXPECT_LT(Compare("A", "b"), 0);
    EXPECT_GT(Compare("B", "a"), 0);
    EXPECT_NE(Compare("\xC4", "\xE4"), 0);
}

TEST(Ascii, TheShorterOfACommonPrefixIsTheLesser) {
    EXPECT_LT(Compare("ab", "ABc"), 0);
    EXPECT_GT(Compare("ABc", "ab"), 0);
    EXPECT_LT(Compare("", "a"), 0);
    EXPECT_EQ(Compare("", ""), 0);
}

TEST(Ascii, BytesAboveTheLettersAreGreater) { EXPECT_LT(Compare("z", "\xFF"), 0); }

std::string Filtered(DataFilter& filter, std::string_view text, size_t room) {
    std::string result;
    ConstData in(text);
    while (!in.Empty()) {
        unsigned char space[64];
        Buffer out(space, space + room);
        filter.Filter(in, out);
        EXPECT_TRUE(in.Empty() || out.Full());
        result += out.Filled().View();
    }
    return result;
}

TEST(Ascii, TheFiltersMapThroughBuffersOfAnySize) {
    Ascii::CaseLoweringFilter lowering;
    Ascii::CaseRaisingFilter raising;
    for (size_t room = 1; room <= 12; ++room) {
        EXPECT_EQ(Filtered(lowering, "Ab-[Z]\xC4 9", room), "ab-[z]\xC4 9");
        EXPECT_EQ(Filtered(raising, "aB-{z}\xE4 9", room), "AB-{Z}\xE4 9");
    }
}

}  // namespace
