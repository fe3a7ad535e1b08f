// The syntax of dates, times and zones: which texts each grammar admits, what they say, and in which order the rest is
// refused.
#include "values/time_language.h"

#include <gtest/gtest.h>

#include <cstdio>

#include "tests/language/every_cut.h"
#include "tests/values/token_texts.h"

namespace {

constexpr TimeGrammar kGrammars[] = {TimeGrammar::kDate, TimeGrammar::kTimeOfDay, TimeGrammar::kZonedTimeOfDay,
                                     TimeGrammar::kTime, TimeGrammar::kTimeZone};

TimeText Read(TimeGrammar grammar, std::string_view text) { return TimeText::Parsed(grammar, ConstData(text)); }

std::string Said(const TimeAutomaton& automaton) {
    const Calendar::Date& date = automaton.CalendarDate();
    char text[100];
    std::snprintf(text, sizeof text, "%lld-%d-%d %d %d", static_cast<long long>(date.year), date.month, date.day,
                  automaton.ClockSeconds(), automaton.Zone());
    return text;
}

TokenTexts Texts() {
    TokenTexts texts;
    texts.writings = {{'1', {"0", "1", "9"}},
                      {'2', {"00", "09", "12", "59"}},
                      {'3', {"000", "123"}},
                      {'4', {"0000", "1999", "0530"}},
                      {'5', {"00000", "12345", "99999999999999999999999"}},
                      {'D', {"sun", "Mon", "TUE", "wed", "thu", "fri", "sat"}},
                      {'M', {"jan", "FEB", "Mar", "apr", "may", "jun", "jul", "aug", "sep", "oct", "nov", "dec"}},
                      {'Z', {"gmt", "UT", "edt", "est", "cdt", "cst", "mdt", "mst", "pdt", "pst"}},
                      {'L', {"a", "B", "i", "k", "z", "Z", "r"}},
                      {'W', {"j", "utc", "march", "tues", "abcdefghijklmnop", "mo"}},
                      {',', {","}},
                      {':', {":"}},
                      {'S', {"+", "-"}},
                      {'X', {".", "/", "\xff", std::string(1, '\0')}}};
    return texts;
}

std::string Language(TimeGrammar grammar) {
    switch (grammar) {
        case TimeGrammar::kDate:
            return "(D,)?[12]M[234]";
        case TimeGrammar::kTimeOfDay:
            return "[12]:2(:2)?";
        case TimeGrammar::kZonedTimeOfDay:
            return "[12]:2(:2)?(S4|Z|L)?";
        case TimeGrammar::kTime:
            return "(D,)?[12]M[234]2:2(:2)?(S4|Z|L)?";
        case TimeGrammar::kTimeZone:
            return "S4|Z";
    }
    return {};
}

TEST(TimeLanguage, EachGrammarAdmitsWhatItSays) {
    for (const TimeGrammar grammar : kGrammars) {
        const TokenLanguage language(Language(grammar));
        TokenTexts texts = Texts();
        int accepted = 0;
        const auto check = [&](const std::string& tokens) {
            const std::string text = texts.Written(tokens);
            const bool valid = language.Admits(tokens);
            accepted += valid ? 1 : 0;
            EXPECT_EQ(Read(grammar, text).Failure() != TimeTextFailure::ParsingFailure, valid)
                << tokens << " as " << text;
        };
        texts.EverySequence(4, check);
        texts.NearMisses({"1M4", "2M2", "D,2M3", "D,1M4", "1:2", "2:2:2", "1:2S4", "2:2:2Z", "2:2L", "1M42:2",
                          "D,2M42:2:2S4", "D,2M22:2:2Z", "2M42:2L", "S4", "Z"},
                         20000, check);
        EXPECT_GT(accepted, 500);
    }
}

TEST(TimeLanguage, TextsSayTheirFields) {
    const struct {
        TimeGrammar grammar;
        const char* text;
        Calendar::Date date;
        int seconds;
        int zone;
        TimeTextFailure failure;
    } rows[] = {
        {TimeGrammar::kDate, "Tue, 09 Mar 1999", {1999, 3, 9}, 0, 0, TimeTextFailure::NoTimeZone},
        {TimeGrammar::kDate, "1 jan 00", {1900, 1, 1}, 0, 0, TimeTextFailure::NoTimeZone},
        {TimeGrammar::kDate, "1 jan 500", {500, 1, 1}, 0, 0, TimeTextFailure::NoTimeZone},
        {TimeGrammar::kTimeOfDay, "1:30", {0, 1, 1}, 5400, 0, TimeTextFailure::NoTimeZone},
        {TimeGrammar::kZonedTimeOfDay, "23:59:59 -0530", {0, 1, 1}, 86399, -19800, TimeTextFailure::None},
        {TimeGrammar::kZonedTimeOfDay, "1:00 r", {0, 1, 1}, 3600, 0, TimeTextFailure::NoTimeZone},
        {TimeGrammar::kTime, "Tue, 09 Mar 1999 01:02:03 +9999", {1999, 3, 9}, 3723, 362340, TimeTextFailure::None},
        {TimeGrammar::kTimeZone, "pst", {0, 1, 1}, 0, -28800, TimeTextFailure::None},
    };
    for (const auto& row : rows) {
        const TimeText text = Read(row.grammar, row.text);
        EXPECT_EQ(text.Failure(), row.failure) << row.text;
        EXPECT_EQ(text.Date().year, row.date.year) << row.text;
        EXPECT_EQ(text.Date().month, row.date.month) << row.text;
        EXPECT_EQ(text.Date().day, row.date.day) << row.text;
        EXPECT_EQ(text.ClockSeconds(), row.seconds) << row.text;
        EXPECT_EQ(text.ZoneSeconds(), row.zone) << row.text;
    }
}

TEST(TimeLanguage, WhatIsWrongIsFoundInOrder) {
    const struct {
        const char* text;
        TimeTextFailure failure;
    } rows[] = {
        {"Mon, 31 Apr 2000 24:00 j", TimeTextFailure::ParsingFailure},
        {"Mon, 31 Apr 2000 24:00", TimeTextFailure::NoSuchDate},
        {"Mon, 00 Apr 2000 24:00", TimeTextFailure::NoSuchDate},
        {"Mon, 30 Apr 2000 24:00", TimeTextFailure::WrongDayOfWeek},
        {"Sun, 30 Apr 2000 24:00", TimeTextFailure::NoSuchTimeOfDay},
        {"Sun, 30 Apr 2000 23:60", TimeTextFailure::NoSuchTimeOfDay},
        {"Sun, 30 Apr 2000 23:59:60", TimeTextFailure::NoSuchTimeOfDay},
        {"Sun, 30 Apr 2000 23:59:59", TimeTextFailure::NoTimeZone},
        {"Sun, 30 Apr 2000 23:59:59 z", TimeTextFailure::NoTimeZone},
        {"Sun, 30 Apr 2000 23:59:59 gmt", TimeTextFailure::None},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Read(TimeGrammar::kTime, row.text).Failure(), row.failure) << row.text;
    }
}

TEST(TimeLanguage, TheWordsAreThoseOfItsTable) {
    const struct {
        const char* words;
        PartOfSpeech part;
        int first;
        int step;
    } rows[] = {
        {"sun mon tue wed thu fri sat", PartOfSpeech::kDayOfWeek, 0, 1},
        {"jan feb mar apr may jun jul aug sep oct nov dec", PartOfSpeech::kMonth, 1, 1},
        {"gmt", PartOfSpeech::kNamedZone, 0, 0},
        {"ut", PartOfSpeech::kNamedZone, 0, 0},
        {"edt", PartOfSpeech::kNamedZone, -14400, 0},
        {"est cdt", PartOfSpeech::kNamedZone, -18000, 0},
        {"cst mdt", PartOfSpeech::kNamedZone, -21600, 0},
        {"mst pdt", PartOfSpeech::kNamedZone, -25200, 0},
        {"pst", PartOfSpeech::kNamedZone, -28800, 0},
        {"a b c d e f g h i k l m", PartOfSpeech::kLetterZone, 3600, 3600},
        {"n o p q r s t u v w x y", PartOfSpeech::kLetterZone, -3600, -3600},
        {"z", PartOfSpeech::kLetterZone, 0, 0},
    };
    size_t count = 0;
    for (const auto& row : rows) {
        std::string_view rest = row.words;
        for (int value = row.first; !rest.empty(); value += row.step, ++count) {
            const std::string_view word = rest.substr(0, rest.find(' '));
            rest.remove_prefix(std::min(rest.size(), word.size() + 1));
            bool found = false;
            for (const ReservedWord<TimeWord>& entry : TimeWords()) {
                if (entry.word == word) {
                    found = true;
                    EXPECT_EQ(entry.value.part, row.part) << word;
                    EXPECT_EQ(entry.value.value, value) << word;
                }
            }
            EXPECT_TRUE(found) << word;
        }
    }
    EXPECT_EQ(TimeWords().size(), count);
}

TEST(TimeLanguage, IsTheSameHoweverTheTextIsCut) {
    const struct {
        TimeGrammar grammar;
        const char* text;
        const char* outcome;
    } rows[] = {
        {TimeGrammar::kTime, "Tue, 09 Mar 1999 01:02:03 -0500", "1999-3-9 3723 -18000"},
        {TimeGrammar::kTime, " tUe,9mar99\t01:02gmt\r\n", "1999-3-9 3720 0"},
        {TimeGrammar::kDate, "29 Feb 2000", "2000-2-29 0 0"},
        {TimeGrammar::kTimeOfDay, "9:05:07", "0-1-1 32707 0"},
        {TimeGrammar::kZonedTimeOfDay, "9:05 pst", "0-1-1 32700 -28800"},
        {TimeGrammar::kTimeZone, "+0530", "0-1-1 0 19800"},
        {TimeGrammar::kDate, "9 march 1999", "refused"},
        {TimeGrammar::kDate, "9 Mar 19999", "refused"},
        {TimeGrammar::kDate, "9 abcdefghijkl 1999", "refused"},
        {TimeGrammar::kTimeZone, "", "refused"},
        {TimeGrammar::kTime, "9 Mar 1999 \x80 01:02", "refused"},
    };
    for (const auto& row : rows) {
        const auto outcome = [&](const Runs& runs) -> std::string {
            TimeAutomaton automaton;
            TimeParser parser(row.grammar, automaton);
            TimeLexer lexer(parser);
            Feed(lexer, runs);
            EXPECT_NE(parser.Accepted(), parser.Failed());
            return parser.Accepted() ? Said(automaton) : "refused";
        };
        EXPECT_EQ(OutcomeOfEveryCut(row.text, outcome), row.outcome) << row.text;
    }
}

TEST(TimeLanguage, LongRubbishIsSkipped) {
    for (const TimeGrammar grammar : kGrammars) {
        for (const char c : {'x', '1', ':', ' ', '+', '\xff'}) {
            EXPECT_EQ(Read(grammar, std::string(300000, c)).Failure(), TimeTextFailure::ParsingFailure);
        }
    }
}

}  // namespace
