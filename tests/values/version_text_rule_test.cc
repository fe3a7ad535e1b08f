// The order of version texts, against a table of pairs and by the laws of an order on random texts.
#include "values/version_text_rule.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace {

int Sign(int n) { return (n > 0) - (n < 0); }

int Compare(const std::string& a, const std::string& b) { return Sign(CompareVersionTexts(a.c_str(), b.c_str())); }

struct Pair {
    const char* lesser;
    const char* greater;
};

const Pair pairs[] = {
    // Bytes, unsigned; the shorter text first.
    {"", "a"},
    {"", "0"},
    {"a", "b"},
    {"a", "aa"},
    {"B", "a"},
    {"a\x7f", "a\x80"},
    {"ab", "a\xff"},
    {"1.0a", "1.0b"},
    {"1.2", "1.2.3"},
    {"1-2", "1.2"},
    // A digit against another byte, with no digit before them.
    {"a-", "a1"},
    {"a1", "aa"},
    {"1", ":"},
    {"/", "1"},
    // The longer number.
    {"1.9", "1.10"},
    {"x9", "x10"},
    {"x13", "x123"},
    {"x99z", "x100a"},
    {"x1a", "x10"},
    {"x12a", "x123"},
    {"9", "10"},
    {"65535", "65536"},
    {"18446744073709551615", "18446744073709551616"},
    // Numbers of one length: the first difference.
    {"x123a", "x124"},
    {"x129", "x130"},
    {"x12a", "x12b"},
    // Leading zeros.
    {"1.05", "1.5"},
    {"x00", "x0"},
    {"x0", "x01"},
    {"x00", "x01"},
    {"x001", "x01"},
    {"x01", "x010"},
    {"x010", "x1"},
    {"x010", "x011"},
    {"x09", "x010"},
    {"x0a", "x01"},
    {"x0", "x0a"},
    {"01", "1"},
    {"0", "1"},
    {"1.0a", "1.01a"},
    // A zero behind another digit is no leading one.
    {"x1", "x10"},
    {"x10", "x100"},
    {"x101", "x110"},
    {"x20", "x100"},
    // The flags begin anew behind each other byte.
    {"5.05", "5.5"},
    {"0.9", "0.10"},
    {"0.09", "0.9"},
};

TEST(VersionTextRule, HoldsForEachPair) {
    for (const Pair& pair : pairs) {
        EXPECT_LT(CompareVersionTexts(pair.lesser, pair.greater), 0) << pair.lesser << " " << pair.greater;
        EXPECT_GT(CompareVersionTexts(pair.greater, pair.lesser), 0) << pair.lesser << " " << pair.greater;
    }
}

TEST(VersionTextRule, OneTextEqualsItself) {
    const char text[] = "1.2a";
    EXPECT_EQ(CompareVersionTexts(text, text), 0);
    EXPECT_EQ(Compare("1.2a", "1.2a"), 0);
    EXPECT_EQ(Compare("", ""), 0);
}

TEST(VersionTextRule, LooksAtNothingBehindTheZeroByte) {
    const char a[] = "1.2\0z";
    const char b[] = "1.2\0a";
    EXPECT_EQ(CompareVersionTexts(a, b), 0);
}

// Few bytes, so that texts share beginnings and runs of digits meet.
std::string RandomText(std::mt19937& random, std::string_view bytes) {
    std::string text(random() % 7, '\0');
    for (char& c : text) {
        c = bytes[random() % bytes.size()];
    }
    return text;
}

TEST(VersionTextRule, IsATotalOrder) {
    std::mt19937 random(1);
    for (const std::string_view bytes : {"01", "019.", "0129.-a\xff"}) {
        for (int i = 0; i < 100000; ++i) {
            const std::string a = RandomText(random, bytes);
            const std::string b = RandomText(random, bytes);
            const std::string c = RandomText(random, bytes);
            ASSERT_EQ(Compare(a, b), -Compare(b, a)) << a << " " << b;
            ASSERT_EQ(Compare(a, b) == 0, a == b) << a << " " << b;
            if (Compare(a, b) <= 0 && Compare(b, c) <= 0) {
                ASSERT_LE(Compare(a, c), 0) << a << " " << b << " " << c;
            }
        }
    }
}

// What a text is compared by, taken apart: bytes as they are, and for a number its leading zeros, the more the lesser,
// then its length and its digits.
std::vector<std::string> Parts(const std::string& text) {
    std::vector<std::string> parts;
    for (size_t i = 0; i < text.size();) {
        const size_t end = std::min(text.find_first_not_of("0123456789", i), text.size());
        if (end == i) {
            parts.emplace_back(1, text[i++]);
            continue;
        }
        const size_t digits = std::min(text.find_first_not_of('0', i), end);
        std::string part = "5";  // a digit, as other bytes see it
        part += static_cast<char>(100 - (digits - i));
        part += static_cast<char>(end - digits);
        part += text.substr(digits, end - digits);
        parts.push_back(part);
        i = end;
    }
    return parts;
}

TEST(VersionTextRule, IsTheOrderOfTheParts) {
    std::mt19937 random(2);
    for (const std::string_view bytes : {"01", "019.", "0129.-a"}) {
        for (int i = 0; i < 100000; ++i) {
            const std::string a = RandomText(random, bytes);
            const std::string b = RandomText(random, bytes);
            const int expected = Parts(a) < Parts(b) ? -1 : Parts(b) < Parts(a) ? 1 : 0;
            ASSERT_EQ(Compare(a, b), expected) << a << " " << b;
        }
    }
}

}  // namespace
