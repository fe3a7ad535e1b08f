#include "foundation/file_class.h"

#include <gtest/gtest.h>

namespace {

struct Row {
    const char* extension;
    int code;
};

TEST(FileClass, EveryExtensionHasItsCode) {
    const Row rows[] = {
        {".qzm", 1}, {".qzg", 2}, {".qzf", 3}, {".htm", 4}, {".html", 4}, {".txt", 5},
        {".log", 6}, {".bkg", 7}, {".so", 8},  {".dat", 9}, {"", 10},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(static_cast<int>(ClassOfExtension(row.extension)), row.code) << row.extension;
    }
}

TEST(FileClass, CaseIsDisregarded) { EXPECT_EQ(ClassOfExtension(".HtMl"), FileClass::Page); }

TEST(FileClass, AMissIs13) {
    EXPECT_EQ(static_cast<int>(ClassOfExtension(".tmp")), 13);
    EXPECT_EQ(static_cast<int>(ClassOfExtension("txt")), 13);
    EXPECT_EQ(static_cast<int>(ClassOfExtension(".txt.")), 13);
}

TEST(FileClass, EveryCodeHasItsFirstExtension) {
    const Row rows[] = {
        {".qzm", 1}, {".qzg", 2}, {".qzf", 3}, {".htm", 4}, {".txt", 5}, {".log", 6}, {".bkg", 7},
        {".so", 8},  {".dat", 9}, {"", 10},    {"", 11},    {"", 12},    {"", 13},    {"", 99},
    };
    for (const Row& row : rows) {
        EXPECT_STREQ(ExtensionOfClass(static_cast<FileClass>(row.code)), row.extension) << row.code;
    }
}

}  // namespace
