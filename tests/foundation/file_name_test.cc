#include "foundation/file_name.h"

#include <gtest/gtest.h>

#include <string>

#include "foundation/wildcard.h"

namespace {

TEST(FileName, TheLengthIsFrom1To255) {
    EXPECT_THROW(FileName(""), IllegalFileNameLength);
    EXPECT_EQ(FileName("a").Text(), "a");
    EXPECT_EQ(FileName(std::string(255, 'a')).Length(), 255u);
    EXPECT_THROW(FileName(std::string(256, 'a')), IllegalFileNameLength);
    EXPECT_THROW(FileName(std::string(256, '/')), IllegalFileNameLength);
}

TEST(FileName, SlashesAndDotsAreNoNames) {
    EXPECT_THROW(FileName("a/b"), IllegalFileName);
    EXPECT_THROW(FileName("/"), IllegalFileName);
    EXPECT_THROW(FileName("."), IllegalFileName);
    EXPECT_THROW(FileName(".."), IllegalFileName);
    EXPECT_EQ(FileName("...").Text(), "...");
    EXPECT_EQ(FileName(".a").Text(), ".a");
}

TEST(FileName, NamesAroundTheInlineSizeAreCopiedAndMoved) {
    for (size_t length = 22; length <= 26; ++length) {
        const std::string text(length, 'n');
        FileName name(text);
        const FileName copy = name;
        EXPECT_EQ(copy.Text(), text);
        const FileName moved = std::move(name);
        EXPECT_EQ(moved.Text(), text);
        EXPECT_STREQ(moved.CString(), text.c_str());
    }
}

TEST(FileName, JoinedNamesEndAt254Bytes) {
    EXPECT_EQ((FileName("a") + FileName("b")).Text(), "ab");
    EXPECT_EQ((FileName("a") + "b").Text(), "ab");
    EXPECT_EQ(("a" + FileName("b")).Text(), "ab");
    EXPECT_EQ((FileName(std::string(253, 'a')) + "b").Length(), 254u);
    EXPECT_THROW(FileName(std::string(254, 'a')) + "b", IllegalFileName);
    EXPECT_THROW(FileName(std::string(255, 'a')) + "", IllegalFileName);
    EXPECT_THROW("b" + FileName(std::string(255, 'a')), IllegalFileName);
    EXPECT_THROW(FileName(std::string(200, 'a')) + FileName(std::string(55, 'a')), IllegalFileName);
    EXPECT_THROW(FileName("a") + "/b", IllegalFileName);
}

TEST(FileName, TheOrderDisregardsCase) {
    EXPECT_EQ(FileName("ReadMe"), FileName("README"));
    EXPECT_NE(FileName("a"), FileName("ab"));
    EXPECT_LT(FileName("A"), FileName("b"));
    EXPECT_GT(FileName("b").Compare(FileName("A")), 0);
}

TEST(FileName, SuffixesAndPrefixesAreMatchedWithOrWithoutCase) {
    const FileName name("Note.TXT");
    EXPECT_TRUE(name.hasSuffix("TXT", false));
    EXPECT_FALSE(name.hasSuffix("txt", false));
    EXPECT_TRUE(name.hasSuffix("txt", true));
    EXPECT_TRUE(name.hasSuffix("", false));
    EXPECT_TRUE(name.hasPrefix("Note", false));
    EXPECT_FALSE(name.hasPrefix("note", false));
    EXPECT_TRUE(name.hasPrefix("note", true));
    EXPECT_FALSE(name.hasSuffix("xNote.TXT", true));
    EXPECT_FALSE(name.hasPrefix("Note.TXTx", true));
    EXPECT_TRUE(name.hasSuffix("Note.TXT", false));
    EXPECT_TRUE(name.hasPrefix("Note.TXT", false));
}

TEST(FileName, AnExtensionNeedsItsDot) {
    EXPECT_TRUE(FileName("a.txt").hasExtension(".txt", false));
    EXPECT_TRUE(FileName("a.txt").hasExtension("txt", false));
    EXPECT_FALSE(FileName("a.txt").hasExtension("xt", false));
    EXPECT_FALSE(FileName("a.txt").hasExtension("TXT", false));
    EXPECT_TRUE(FileName("a.txt").hasExtension("TXT", true));
    EXPECT_FALSE(FileName("txt").hasExtension("txt", false));
    EXPECT_TRUE(FileName(".txt").hasExtension("txt", false));
    EXPECT_TRUE(FileName(".txt").hasExtension(".txt", false));
    EXPECT_TRUE(FileName("a.").hasExtension("", false));
    EXPECT_FALSE(FileName("a").hasExtension("", false));
}

TEST(FileName, WithoutExtensionDropsTheDotToo) {
    EXPECT_EQ(FileName("a.txt").withoutExtension(".txt", false).Text(), "a");
    EXPECT_EQ(FileName("a.txt").withoutExtension("txt", false).Text(), "a");
    EXPECT_EQ(FileName("a.b.TXT").withoutExtension(".txt", true).Text(), "a.b");
    EXPECT_THROW(FileName("a.txt").withoutExtension("log", true), ExtensionDoesNotMatch);
    EXPECT_THROW(FileName(".txt").withoutExtension(".txt", false), IllegalFileName);
    EXPECT_THROW(FileName(".txt").withoutExtension("txt", false), IllegalFileName);
    EXPECT_THROW(FileName("...txt").withoutExtension(".txt", false), IllegalFileName);
}

TEST(FileName, WithoutPrefixGivesTheRest) {
    EXPECT_EQ(FileName("__Local").withoutPrefix("__", false).Text(), "Local");
    EXPECT_EQ(FileName("ABc").withoutPrefix("ab", true).Text(), "c");
    EXPECT_THROW(FileName("ABc").withoutPrefix("ab", false), PrefixDoesNotMatch);
    EXPECT_THROW(FileName("ab").withoutPrefix("ab", false), IllegalFileName);
}

TEST(FileName, LeadingDigitsAreARunOfOneOrMore) {
    EXPECT_EQ(FileName("20240131.log").leadingDigits().Text(), "20240131");
    EXPECT_EQ(FileName("7").leadingDigits().Text(), "7");
    EXPECT_THROW(FileName("x7").leadingDigits(), IllegalFileName);
}

TEST(FileName, TheStemEndsAtTheLastDot) {
    EXPECT_EQ(FileName("a.b.c").stem().Text(), "a.b");
    EXPECT_EQ(FileName("abc").stem().Text(), "abc");
    EXPECT_THROW(FileName(".profile").stem(), IllegalFileNameLength);
}

TEST(FileName, MatchesIsTheWildcardMatch) {
    EXPECT_TRUE(FileName("a.txt").matches("*.txt"));
    EXPECT_FALSE(FileName("a.txt").matches("*.TXT"));
}

}  // namespace
