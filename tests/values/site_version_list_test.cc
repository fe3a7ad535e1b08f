// The lexing of site version lists, cut at every byte, and the maker's bounds.
#include "values/site_version_list.h"

#include <gtest/gtest.h>

#include <string>

#include "registry/type_registry.h"
#include "tests/language/every_cut.h"

namespace {

std::string Components(const SiteVersionList& list) {
    size_t count = SiteVersionList::kComponents;
    while (count != 0 && list[count - 1] == 0) {
        --count;
    }
    std::string text;
    for (size_t i = 0; i < count; ++i) {
        text += (i == 0 ? "" : ",") + std::to_string(list[i]);
    }
    return text;
}

std::string OutcomeOf(std::string_view text) {
    return OutcomeOfEveryCut(text, [](const Runs& runs) {
        ManyVersionMaker maker;
        ManyVersionLexer lexer(maker);
        Feed(lexer, runs);
        return Components(maker.List());
    });
}

std::string Repeated(std::string_view piece, size_t count) {
    std::string text;
    for (size_t i = 0; i < count; ++i) {
        text += piece;
    }
    return text;
}

TEST(ManyVersionLexer, CutAnywhereItFindsTheSameNumbers) {
    const struct {
        std::string_view text;
        std::string_view components;
    } cases[] = {
        {"", ""},
        {"0", ""},
        {"1,2,3", "1,2,3"},
        {"1,0,2,0", "1,0,2"},
        {"12345,67890", "12345,67890"},
        {"1,,2", "1,2"},
        {"1 2", "1,2"},
        {"1\t2\n3\r4  5", "1,2,3,4,5"},
        {"1,abc,2", "1,2"},
        {"12ab34cd56", "12,34,56"},
        {"a1-2.3", "1,2,3"},
        {"007,08", "7,8"},
        {",,,1,", "1"},
        {"abc", ""},
        {"\v1\f2\x80\xff"
         "3",
         "1,2,3"},
        {std::string_view("\0001\0002", 4), "1,2"},
        {"4294967295,4294967296", "4294967295,4294967295"},
        {"18446744073709551615,18446744073709551616", "4294967295,4294967295"},
        {"99999999999999999999999999999999,1", "4294967295,1"},
    };
    for (const auto& example : cases) {
        EXPECT_EQ(OutcomeOf(example.text), example.components) << example.text;
    }
}

TEST(ManyVersionLexer, EveryByteIsClassed) {
    for (unsigned byte = 0; byte < 256; ++byte) {
        const std::string text = std::string("1") + static_cast<char>(byte) + "2";
        const bool isDigit = byte >= '0' && byte <= '9';
        EXPECT_EQ(OutcomeOf(text), isDigit ? text : "1,2") << byte;
    }
}

TEST(ManyVersionMaker, DropsWhatComesBehindTheLastComponent) {
    EXPECT_EQ(OutcomeOf(Repeated("7,", 128)), Repeated("7,", 127) + "7");
    EXPECT_EQ(OutcomeOf(Repeated("7 ", 129)), Repeated("7,", 127) + "7");
    EXPECT_EQ(OutcomeOf(Repeated("99999999999999999999 ", 130)), Repeated("4294967295,", 127) + "4294967295");
}

TEST(ManyVersionMaker, StartsAnewWithEachStream) {
    ManyVersionMaker maker;
    ManyVersionLexer lexer(maker);
    Feed(lexer, {"5,6,7"});
    Feed(lexer, {"1"});
    EXPECT_EQ(Components(maker.List()), "1");
    lexer.Start();
    const unsigned char abandoned[] = {'8', '9'};
    lexer.Data(abandoned, abandoned + 2);
    Feed(lexer, {"2"});
    EXPECT_EQ(Components(maker.List()), "2");
}

TEST(SiteVersionListType, HasItsRegisteredSizeAndNoFingerprint) {
    const GuardType* type = TypeRegistry::Instance().TypeByName("site version list");
    ASSERT_NE(type, nullptr);
    EXPECT_EQ(type->size, 512u);
    EXPECT_EQ(type->fingerprint, nullptr);
    EXPECT_EQ(TypeRegistry::Instance().TypeByName("site version list with multiplicity")->size, 520u);
}

}  // namespace
