// Locales and the names of languages and countries.
#include "inspectors/language.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <set>

#include "inspectors/locale_names.h"
#include "tests/inspectors/ask.h"

namespace {

bool ownLocaleIsCrafted = false;
const char* ownLocale = nullptr;

}  // namespace

// Every question of this program for its locale comes through here.
extern "C" char* setlocale(int category, const char* locale) noexcept {
    static const auto original = reinterpret_cast<char* (*)(int, const char*)>(dlsym(RTLD_NEXT, "setlocale"));
    return ownLocaleIsCrafted && category == LC_CTYPE && locale == nullptr ? const_cast<char*>(ownLocale)
                                                                           : original(category, locale);
}

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

// The codes of the standards' present editions, ISO 639-1 and ISO 3166-1, as they are published.
constexpr std::string_view kLanguageCodes =
    "aa ab ae af ak am an ar as av ay az "
    "ba be bg bh bi bm bn bo br bs "
    "ca ce ch co cr cs cu cv cy "
    "da de dv dz "
    "ee el en eo es et eu "
    "fa ff fi fj fo fr fy "
    "ga gd gl gn gu gv "
    "ha he hi ho hr ht hu hy hz "
    "ia id ie ig ii ik io is it iu "
    "ja jv "
    "ka kg ki kj kk kl km kn ko kr ks ku kv kw ky "
    "la lb lg li ln lo lt lu lv "
    "mg mh mi mk ml mn mr ms mt my "
    "na nb nd ne ng nl nn no nr nv ny "
    "oc oj om or os "
    "pa pi pl ps pt "
    "qu "
    "rm rn ro ru rw "
    "sa sc sd se sg si sk sl sm sn so sq sr ss st su sv sw "
    "ta te tg th ti tk tl tn to tr ts tt tw ty "
    "ug uk ur uz "
    "ve vi vo "
    "wa wo "
    "xh "
    "yi yo "
    "za zh zu ";
constexpr std::string_view kCountryCodes =
    "AD AE AF AG AI AL AM AO AQ AR AS AT AU AW AX AZ "
    "BA BB BD BE BF BG BH BI BJ BL BM BN BO BQ BR BS BT BV BW BY BZ "
    "CA CC CD CF CG CH CI CK CL CM CN CO CR CU CV CW CX CY CZ "
    "DE DJ DK DM DO DZ "
    "EC EE EG EH ER ES ET "
    "FI FJ FK FM FO FR "
    "GA GB GD GE GF GG GH GI GL GM GN GP GQ GR GS GT GU GW GY "
    "HK HM HN HR HT HU "
    "ID IE IL IM IN IO IQ IR IS IT "
    "JE JM JO JP "
    "KE KG KH KI KM KN KP KR KW KY KZ "
    "LA LB LC LI LK LR LS LT LU LV LY "
    "MA MC MD ME MF MG MH MK ML MM MN MO MP MQ MR MS MT MU MV MW MX MY MZ "
    "NA NC NE NF NG NI NL NO NP NR NU NZ "
    "OM "
    "PA PE PF PG PH PK PL PM PN PR PS PT PW PY "
    "QA "
    "RE RO RS RU RW "
    "SA SB SC SD SE SG SH SI SJ SK SL SM SN SO SR SS ST SV SX SY SZ "
    "TC TD TF TG TH TJ TK TL TM TN TO TR TT TV TW TZ "
    "UA UG UM US UY UZ "
    "VA VC VE VG VI VN VU "
    "WF WS "
    "YE YT "
    "ZA ZM ZW ";
// Those that have been withdrawn.
constexpr std::string_view kOldLanguageCodes = "sh ";
constexpr std::string_view kOldCountryCodes = "AN CS ";

// The pairs of letters from `first` on that have a name, each with a blank behind it.
template <class Name>
std::string CodesWithNames(char first, const Name& name) {
    std::string codes;
    for (int place = 0; place < 26 * 26; ++place) {
        const auto a = static_cast<char>(first + place / 26);
        const auto b = static_cast<char>(first + place % 26);
        if (!name(a, b).empty()) {
            codes += {a, b, ' '};
        }
    }
    return codes;
}

std::string Sorted(std::string_view codes, std::string_view more) {
    std::set<std::string> sorted;
    for (std::string_view some : {codes, more}) {
        for (; !some.empty(); some.remove_prefix(3)) {
            sorted.emplace(some.substr(0, 3));
        }
    }
    std::string text;
    for (const std::string& code : sorted) {
        text += code;
    }
    return text;
}

TEST(Names, AreThoseOfTheStandardsAndNoOthers) {
    EXPECT_EQ(CodesWithNames('a', LanguageName), Sorted(kLanguageCodes, kOldLanguageCodes));
    EXPECT_EQ(CodesWithNames('A', CountryName), Sorted(kCountryCodes, kOldCountryCodes));
    EXPECT_EQ(kLanguageCodes.size(), 184 * 3U);
    EXPECT_EQ(kCountryCodes.size(), 249 * 3U);
}

// No name stands in two places, as it would where a row has been copied and half changed.
TEST(Names, StandOnce) {
    std::set<std::string_view> names;
    size_t rows = 0;
    for (const auto& [first, name] : {std::pair('a', &LanguageName), std::pair('A', &CountryName)}) {
        names.clear();
        rows = 0;
        for (int place = 0; place < 26 * 26; ++place) {
            const std::string_view found =
                name(static_cast<char>(first + place / 26), static_cast<char>(first + place % 26));
            if (!found.empty()) {
                names.insert(found);
                ++rows;
            }
        }
        EXPECT_EQ(names.size(), rows);
    }
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
    const auto with = [](const char* locale, const char* question) {
        ownLocale = locale;
        ownLocaleIsCrafted = true;
        const Answer answer = Ask(question);
        ownLocaleIsCrafted = false;
        return answer;
    };
    const char* const question = "(it as string, platform id of it) of (system locale; system ui language)";
    EXPECT_EQ(with("de_AT.UTF-8", question),
              Values({"German (Austria), de_AT.UTF-8", "German (Austria), de_AT.UTF-8"}));
    EXPECT_EQ(with("fr", question), Values({"French, fr", "French, fr"})) << "two bytes are enough";
    EXPECT_EQ(with(nullptr, question), Values({"English, en", "English, en"})) << "a system without locales";
    EXPECT_EQ(with(nullptr, "system language"), Values({"English"}));
    EXPECT_EQ(with("C", "platform ids of system locale"), Ask("platform ids of system locale"));
}

}  // namespace
