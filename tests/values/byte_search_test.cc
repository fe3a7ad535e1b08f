// The searches against the plain definition of what they find.
#include "values/byte_search.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::vector<std::string> AllTexts(size_t longest) {
    std::vector<std::string> texts{""};
    for (size_t i = 0; texts[i].size() < longest; ++i) {
        for (char c : {'\0', 'a'}) {
            texts.push_back(texts[i] + c);
        }
    }
    return texts;
}

bool StandsAt(const std::string& bytes, const std::string& sought, size_t offset) {
    return bytes.compare(offset, sought.size(), sought) == 0;
}

TEST(ByteSearch, TheFirstIsTheLeftmostFromTheStart) {
    for (const std::string& bytes : AllTexts(7)) {
        for (const std::string& sought : AllTexts(4)) {
            for (size_t from = 0; from <= bytes.size() + 1; ++from) {
                size_t expected = std::string::npos;
                for (size_t i = bytes.size() + 1; i-- > from;) {
                    if (StandsAt(bytes, sought, i)) {
                        expected = i;
                    }
                }
                ASSERT_EQ(FindBytes(bytes, sought, from), expected);
            }
        }
    }
}

TEST(ByteSearch, TheLastIsTheRightmost) {
    for (const std::string& bytes : AllTexts(7)) {
        for (const std::string& sought : AllTexts(4)) {
            size_t expected = std::string::npos;
            for (size_t i = 0; i <= bytes.size(); ++i) {
                if (StandsAt(bytes, sought, i)) {
                    expected = i;
                }
            }
            ASSERT_EQ(FindLastBytes(bytes, sought), expected);
        }
    }
}

TEST(ByteSearch, AViewOfNothingIsTheEmptyText) {
    EXPECT_EQ(FindBytes({}, {}), 0u);
    EXPECT_EQ(FindLastBytes({}, {}), 0u);
    EXPECT_EQ(FindBytes({}, "a"), std::string_view::npos);
    EXPECT_EQ(FindLastBytes({}, "a"), std::string_view::npos);
}

}  // namespace
