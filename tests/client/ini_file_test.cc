#include "client/ini_file.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "tests/foundation/temporary_place.h"

namespace {

std::unique_ptr<IniFile> Read(const std::string& text) {
    const TemporaryPlace place;
    place.File("file.ini", text);
    return IniFile::Load(place.Path("file.ini").c_str());
}

std::string Value(const IniFile& file, std::string_view section, std::string_view key) {
    const char* const value = file.Find(section, key);
    return value == nullptr ? "none" : value;
}

// Every value of `text` is read again from what is written for it, and from what is written for that.
void ExpectKept(const std::string& text) {
    const std::unique_ptr<IniFile> file = Read(text);
    ASSERT_NE(file, nullptr) << text;
    const std::optional<std::string> written = file->Text();
    ASSERT_TRUE(written.has_value()) << text;
    const std::unique_ptr<IniFile> again = Read(*written);
    ASSERT_NE(again, nullptr) << *written;
    EXPECT_TRUE(again->HasTheValuesOf(*file)) << text << "\nwas written as\n" << *written;
    EXPECT_EQ(again->Text(), written);
}

TEST(IniFile, WhatTheLibraryMakesOfAValue) {
    const std::map<std::string, std::string> rows = {
        {"k = plain", "plain"},
        {"k=close", "close"},
        {"   k    =     far  apart   ", "far  apart"},
        {"K = MiXeD", "MiXeD"},
        {"k = 100% = \"x\"", "100% = \"x\""},
        {"k =", ""},
        {"k = \"\"", ""},
        {"k = ''", ""},
        {"k = ; nothing", ""},
        {"k = before ; behind", "before"},
        {"k = before # behind", "before"},
        {"k = \"a;b # c\" ; remark", "a;b # c"},
        {"k = '  blanks  '", "  blanks  "},
        {"k = \"it's\" lost", "it's"},
        {"k = \"open", "open"},
        {"k = \"\"two", "\"\"two"},
        {"k = C:\\dir\\ ; remark", "C:\\dir\\"},
        {"k = one \\\ntwo", "one two"},
        {"k = last\r", "last"},
        {"k = \xC3\x84rger", "\xC3\x84rger"},
        {"k = a\nk = b", "b"},
    };
    for (const auto& [line, value] : rows) {
        const std::unique_ptr<IniFile> file = Read("[s]\n" + line + "\n");
        ASSERT_NE(file, nullptr) << line;
        EXPECT_EQ(Value(*file, "s", "k"), value) << line;
        ExpectKept("[s]\n" + line + "\nafter = 1\n[next]\nk = 2\n");
    }
}

TEST(IniFile, EveryValueThatALineCanHoldIsWrittenSoThatItIsReadBack) {
    const std::unique_ptr<IniFile> file = Read("[s]\n");
    const std::vector<std::string> values = {"",
                                             " ",
                                             "a",
                                             " a",
                                             "a ",
                                             "\ta\r",
                                             "a;b",
                                             "a#b",
                                             ";",
                                             "#",
                                             "\"",
                                             "'",
                                             "\"\"",
                                             "''",
                                             "\"a\"",
                                             "'a'",
                                             "\"a",
                                             "a\"",
                                             "it's",
                                             "it's; \\",
                                             "say \"x\"; y",
                                             "a=b",
                                             "=",
                                             "\\",
                                             "a\\",
                                             "a \\",
                                             "[a]",
                                             "]",
                                             "a\"b'c",
                                             "a\"b'c\\",
                                             "a\"b'c]",
                                             "\"\"a'",
                                             "''a\"",
                                             "\"\"a'\\",
                                             "%s%n",
                                             "\x01\x7F\xFF",
                                             std::string(1000, 'v'),
                                             std::string(1000, ';')};
    for (size_t i = 0; i != values.size(); ++i) {
        EXPECT_TRUE(file->Set("s", "k" + std::to_string(i), values[i])) << values[i];
        EXPECT_TRUE(file->Set("s", "[" + std::to_string(i), values[i])) << values[i];
    }
    const std::optional<std::string> text = file->Text();
    ASSERT_TRUE(text.has_value());
    const std::unique_ptr<IniFile> again = Read(*text);
    ASSERT_NE(again, nullptr) << *text;
    EXPECT_TRUE(again->HasTheValuesOf(*file)) << *text;
    for (size_t i = 0; i != values.size(); ++i) {
        EXPECT_EQ(Value(*again, "s", "k" + std::to_string(i)), values[i]);
    }
}

TEST(IniFile, WhatALineCannotHoldIsRefused) {
    const std::unique_ptr<IniFile> file = Read("[s]\nk = v\n");
    for (const std::string& value : {std::string("a\nb"), std::string(1, '\0'), std::string("\"it's\""),
                                     std::string("'a\""), std::string("a'b\";"), std::string(" a'b\"")}) {
        EXPECT_FALSE(file->Set("s", "k", value)) << value;
    }
    EXPECT_EQ(Value(*file, "s", "k"), "v");
}

TEST(IniFile, TheLongestLinesAreReadAndWritten) {
    // Of 1022 bytes, where the written form pads the key to 30 columns.
    ExpectKept("[s]\nk=" + std::string(1020, 'v') + "\n");
    ExpectKept("[s]\nk='" + std::string(1018, ';') + "'\n");
    ExpectKept("[s]\nk=a\"b'" + std::string(1014, 'v') + "\\;\n");
    ExpectKept("[s]\n" + std::string(1020, 'k') + "=v\n");
    ExpectKept("[" + std::string(1020, 's') + "]\nk = v\n");
    ExpectKept("k=" + std::string(1020, 'v') + "\n");
    EXPECT_EQ(Read("[s]\nk=" + std::string(1021, 'v') + "\n"), nullptr);

    const std::unique_ptr<IniFile> file = Read("[s]\n");
    EXPECT_TRUE(file->Set("s", "k", std::string(1020, 'v')));
    EXPECT_FALSE(file->Set("s", "k", std::string(1021, 'v')));
    EXPECT_TRUE(file->Set(std::string(1020, 's'), "k", "v"));
    EXPECT_FALSE(file->Set(std::string(1021, 's'), "k", "v"));
    const std::unique_ptr<IniFile> again = Read(file->Text().value());
    ASSERT_NE(again, nullptr);
    EXPECT_TRUE(again->HasTheValuesOf(*file));
}

TEST(IniFile, OddNamesAreKept) {
    ExpectKept("before = any section\nand = another\n");
    ExpectKept("before = any section\n[s]\nk = v\n");
    ExpectKept("[a:b]\nk = v\n[c]\nk = w\n");
    ExpectKept("[c]\nd = lost\nk = v\n[c:d]\nk = w\n");
    ExpectKept("[c:d]\nk = w\n[c]\nk = v\n[c:d:e]\nk = x\n");
    ExpectKept("[s]\na:b = c\n[x = y\n");
    ExpectKept("[c]\nk = v\n[c:x = y]\nk = w\n[c:x = y:#z]\nk = x\n");
    ExpectKept("[:d]\nk = v\n[ ]\nl = w\n");
    ExpectKept("[]\nk = v\n[s]\n[]\nk = w\n");
    ExpectKept("[ s p a c e ]\n k e y = v\n");
    ExpectKept("");
    ExpectKept("; a remark\n\n   \n# another");
}

TEST(IniFile, ANameWithAColonTakesNoValueFromItsNeighbour) {
    const std::unique_ptr<IniFile> file = Read("[a]\nb = 1\n");
    EXPECT_TRUE(file->Set("a:b", "k", "2"));
    EXPECT_EQ(Value(*file, "a", "b"), "1");
    EXPECT_EQ(Value(*file, "a:b", "k"), "2");
    const std::unique_ptr<IniFile> again = Read(file->Text().value());
    EXPECT_TRUE(again->HasTheValuesOf(*file));
}

TEST(IniFile, ValuesAreComparedBothWays) {
    const std::unique_ptr<IniFile> one = Read("[s]\na = 1\n");
    EXPECT_TRUE(one->HasTheValuesOf(*Read("[S]\nA = 1\n[t]\n")));
    EXPECT_FALSE(one->HasTheValuesOf(*Read("[s]\na = 2\n")));
    EXPECT_FALSE(one->HasTheValuesOf(*Read("[s]\na = 1\nb = 1\n")));
    EXPECT_FALSE(Read("[s]\na = 1\nb = 1\n")->HasTheValuesOf(*one));
}

TEST(IniFile, ARemovedSectionTakesNothingFromItsNeighbour) {
    const std::unique_ptr<IniFile> file = Read("[a]\nk = 1\nx:y = 2\n[a:b]\nk = 3\n[ab]\nk = 4\n");
    file->RemoveSection("A");
    EXPECT_FALSE(file->HasSection("a"));
    EXPECT_EQ(Value(*file, "a", "k"), "none");
    EXPECT_EQ(Value(*file, "a", "x:y"), "none");
    EXPECT_EQ(Value(*file, "a:b", "k"), "3");
    EXPECT_EQ(Value(*file, "ab", "k"), "4");
}

TEST(IniFile, ACopyIsItsOwn) {
    const std::unique_ptr<IniFile> file = Read("[s]\na = 1\n[t]\n");
    const std::unique_ptr<IniFile> copy = file->Copy();
    EXPECT_EQ(copy->Sections().size(), 2u);
    copy->RemoveSection("s");
    EXPECT_EQ(Value(*copy, "s", "a"), "none");
    EXPECT_EQ(Value(*file, "s", "a"), "1");
}

TEST(IniFile, ZeroBytesEndNothing) {
    const std::unique_ptr<IniFile> file = Read(std::string("[s]\n\0\na = 1\n", 12));
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(Value(*file, "s", "a"), "1");
}

}  // namespace
