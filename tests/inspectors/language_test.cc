// Locales and the names of languages and countries.
#include "inspectors/language.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "inspectors/locale_names.h"

namespace {

std::string Parsed(std::string_view locale) {
    const language spoken = ParseLocale(locale);
    return std::string(spoken.code) + "|" + spoken.country + "|" + spoken.platform;
}

TEST(Locale, IsALanguageAndACountry) {
    EXPECT_EQ(Parsed("de_AT.UTF-8"), "de|AT|de_AT.UTF-8");
    EXPECT_EQ(Parsed("en_US"), "en|US|en_US");
    EXPECT_EQ(Parsed("en_U"), "en||en_U");
    EXPECT_EQ(Parsed("en-US"), "en||en-US");
    EXPECT_EQ(Parsed("fr"), "fr||fr");
    EXPECT_EQ(Parsed("C.UTF-8"), "C.||C.UTF-8");
    EXPECT_EQ(Parsed("e"), "e||e");
    EXPECT_EQ(Parsed(""), "||");
}

TEST(LanguageName, KeepsItsSpellings) {
    EXPECT_EQ(LanguageName('e', 'n'), "English");
    EXPECT_EQ(LanguageName('d', 'e'), "German");
    EXPECT_EQ(LanguageName('t', 'e'), "Tegulu");
    EXPECT_EQ(LanguageName('s', 'g'), "Sangro");
    EXPECT_EQ(LanguageName('s', 'i'), "Singhalese");
    EXPECT_EQ(LanguageName('s', 'u'), "Sudanese");
    EXPECT_EQ(LanguageName('v', 'o'), "Volapuk");
    EXPECT_EQ(LanguageName('t', 'n'), "Setswana");
    EXPECT_EQ(LanguageName('s', 's'), "Siswati");
    EXPECT_EQ(LanguageName('a', 'a'), "Afar");
    EXPECT_EQ(LanguageName('z', 'u'), "Zulu");
}

TEST(CountryName, KeepsItsSpellings) {
    EXPECT_EQ(CountryName('U', 'S'), "United States");
    EXPECT_EQ(CountryName('G', 'W'), "Guinea-bissau");
    EXPECT_EQ(CountryName('C', 'S'), "Serbia and Montenegro");
    EXPECT_EQ(CountryName('A', 'N'), "Netherlands Antilles");
    EXPECT_EQ(CountryName('A', 'X'), "Åland Islands");
    EXPECT_EQ(CountryName('A', 'D'), "Andorra");
    EXPECT_EQ(CountryName('Z', 'W'), "Zimbabwe");
}

TEST(Names, AreOfCodesAlone) {
    for (int a = -128; a < 128; ++a) {
        for (int b = -128; b < 128; ++b) {
            const auto x = static_cast<char>(a);
            const auto y = static_cast<char>(b);
            if (x < 'a' || x > 'z' || y < 'a' || y > 'z') {
                EXPECT_TRUE(LanguageName(x, y).empty());
            }
            if (x < 'A' || x > 'Z' || y < 'A' || y > 'Z') {
                EXPECT_TRUE(CountryName(x, y).empty());
            }
        }
    }
    EXPECT_TRUE(LanguageName('x', 'x').empty());
    EXPECT_TRUE(CountryName('Z', 'Z').empty());
}

// The codes of the standards' present editions: 184 of languages and 249 of countries, and those that have gone.
TEST(Names, AreWhole) {
    int languages = 0;
    int countries = 0;
    for (char a = 0; a < 26; ++a) {
        for (char b = 0; b < 26; ++b) {
            languages += !LanguageName(static_cast<char>('a' + a), static_cast<char>('a' + b)).empty();
            countries += !CountryName(static_cast<char>('A' + a), static_cast<char>('A' + b)).empty();
        }
    }
    EXPECT_EQ(languages, 184 + 1);
    EXPECT_EQ(countries, 249 + 2);
}

}  // namespace
