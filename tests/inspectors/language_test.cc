// Locales and the names of languages and countries.
#include "inspectors/language.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "inspectors/locale_names.h"
#include "tests/inspectors/ask.h"

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

// Asked by a process of its own: the kernel shows the environment that a process began with.
TEST(DISABLED_Locale, Answers) {
    const Answer answer = Ask(std::getenv("QUESTION"));
    for (const std::string& value : answer.values) {
        std::printf("A: %s\n", value.c_str());
    }
    if (!answer.failure.empty()) {
        std::printf("E: %s\n", answer.failure.c_str());
    }
}

// The answers to a question in an environment, each behind its letter.
std::vector<std::string> Asked(const std::string& environment, const std::string& question) {
    const std::string self = std::filesystem::read_symlink("/proc/self/exe");
    const std::string command = "env -i ASAN_OPTIONS=allocator_may_return_null=1:detect_leaks=0 " + environment +
                                " QUESTION='" + question + "' '" + self +
                                "' --gtest_also_run_disabled_tests --gtest_filter=DISABLED_Locale.Answers";
    std::vector<std::string> answers;
    FILE* const output = popen(command.c_str(), "r");
    char line[1024];
    while (fgets(line, sizeof line, output) != nullptr) {
        const std::string_view text(line);
        if (text.starts_with("A: ") || text.starts_with("E: ")) {
            answers.emplace_back(text.substr(0, text.find('\n')));
        }
    }
    EXPECT_EQ(pclose(output), 0) << command;
    return answers;
}

using Texts = std::vector<std::string>;

TEST(SystemLocale, IsTheEnvironmentsInBothNumbers) {
    const std::string austrian = "LANG=de_AT.UTF-8 LC_CTYPE=fr_FR";
    EXPECT_EQ(Asked(austrian, "system locale as string; system ui language as string; system language"),
              Texts(3, "A: German (Austria)"));
    EXPECT_EQ(Asked(austrian, "system locales as string; system ui languages as string; system languages"),
              Texts(3, "A: German (Austria)"));
    EXPECT_EQ(Asked(austrian, "primary language of system locale; primary languages of system ui languages"),
              Texts(2, "A: German"));
    EXPECT_EQ(Asked(austrian, "platform id of system locale; platform ids of system ui languages"),
              Texts(2, "A: de_AT.UTF-8"));
}

TEST(SystemLocale, IsInTheFirstVariableOfTwoBytes) {
    EXPECT_EQ(Asked("LANG=C LC_CTYPE=fr_FR", "system locale"), Texts({"A: French (France)"}));
    EXPECT_EQ(Asked("LANG= LC_CTYPE=fr", "system locale"), Texts({"A: French"}));
    EXPECT_EQ(Asked("LC_CTYPE=te_AX", "system locale"), Texts({"A: Tegulu (Åland Islands)"}));
    EXPECT_EQ(Asked("LANG=de_ZZ", "system locale"), Texts({"A: German"})) << "a country that is not known";
    EXPECT_EQ(Asked("LC_ALL=de_AT LANGUAGE=de", "system locale"), Texts({"E: ArgumentDoesNotExist"}));
    EXPECT_EQ(Asked("LANG=C", "exists system locale; exists system ui language; exists system language"),
              Texts(3, "A: False"));
}

// The value is there, and only its text is not.
TEST(SystemLocale, OfACodeWithoutANameHasNoText) {
    EXPECT_EQ(Asked("LANG=xx_US", "exists system locale; exists primary language of system locale"),
              Texts(2, "A: True"));
    EXPECT_EQ(Asked("LANG=xx_US", "platform id of system locale"), Texts({"A: xx_US"}));
    EXPECT_EQ(Asked("LANG=xx_US", "system locale as string"), Texts({"E: ArgumentDoesNotExist"}));
    EXPECT_EQ(Asked("LANG=xx_US", "primary language of system locale as string"), Texts({"E: ArgumentDoesNotExist"}));
    EXPECT_EQ(Asked("LANG=xx_US", "exists system language"), Texts({"A: False"}));
    EXPECT_EQ(Asked("LANG=C.UTF-8", "platform id of system locale"), Texts({"A: C.UTF-8"}));
    EXPECT_EQ(Asked("LANG=C.UTF-8", "system locale as string"), Texts({"E: ArgumentDoesNotExist"}));
}

// A host that has set a locale of its own is not asked for its environment.
TEST(SystemLocale, IsTheProgramsOwnWhereItHasOne) {
    const std::string before = setlocale(LC_CTYPE, nullptr);
    if (setlocale(LC_CTYPE, "C.UTF-8") == nullptr) {
        GTEST_SKIP() << "this machine has no locale C.UTF-8";
    }
    EXPECT_EQ(Ask("platform id of system locale; platform id of system ui language"), Values({"C.UTF-8", "C.UTF-8"}));
    setlocale(LC_CTYPE, before.c_str());
}

}  // namespace
