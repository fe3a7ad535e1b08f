// What the language cannot show of times: printed forms that read back, the local zone and its caches, and what the
// fingerprints of values and expressions go by.
#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <new>
#include <random>
#include <string>

#include "evaluator/guard_evaluator.h"
#include "foundation/stack_allocator.h"
#include "registry/registration.h"
#include "registry/type_registry.h"
#include "values/inspector_date.h"
#include "values/moment.h"
#include "values/time_of_day.h"
#include "values/time_zone.h"

namespace {

class Times : public testing::Test {
protected:
    Times() : allocator_(memory_) { SetZone("UTC0"); }
    ~Times() override {
        unsetenv("TZ");
        ClearCaches(true);
    }

    static void SetZone(const char* zone) {
        setenv("TZ", zone, 1);
        ClearCaches(true);
    }

    // The answers to a question, each with a line end.
    static std::string Answers(std::string_view question) {
        GuardEvaluator evaluator(nullptr);
        evaluator.Feed(question);
        evaluator.EndOfText();
        evaluator.ConvertTo("string", "string");
        std::string answers;
        for (const void* value = evaluator.First(); value != nullptr; value = evaluator.Next()) {
            answers += std::string(static_cast<const inspector_string*>(value)->View()) + "\n";
        }
        return answers;
    }

    // What `print` makes of a value, kept past the evaluation memory.
    template <class Print, class Value>
    std::string Printed(Print print, const Value& value) {
        StackAllocator<1024> memory;
        const AllocatorInstaller installed(memory);
        return std::string(print(value).View());
    }

private:
    StackAllocator<4096> memory_;
    AllocatorInstaller allocator_;
};

TEST_F(Times, DatesOfFourDigitsReadBack) {
    const inspector_date last(Calendar::Date{9999, 12, 31});
    for (int64_t number = 0; number <= last.DayNumber(); number += 5) {
        const std::optional<inspector_date> date = inspector_date::OfDayNumber(number);
        ASSERT_TRUE(date);
        const std::string text = Printed(DateText, *date);
        ASSERT_EQ(ParseDate(inspector_string(text)), date) << text;
    }
}

TEST_F(Times, NumericDatesArePadded) {
    EXPECT_EQ(Printed(NumericDateText, inspector_date(Calendar::Date{1999, 3, 9})), "1999-03-09");
    EXPECT_EQ(Printed(NumericDateText, inspector_date(Calendar::Date{0, 1, 1})), "0000-01-01");
    EXPECT_EQ(Printed(NumericDateText, inspector_date(Calendar::Date{123456, 12, 31})), "123456-12-31");
}

TEST_F(Times, EveryTimeOfDayReadsBack) {
    for (int64_t second = 0; second < 86400; ++second) {
        const time_of_day time = time_of_day::OfSeconds(second);
        const std::string text = Printed(TimeOfDayText, time);
        ASSERT_EQ(ParseTimeOfDay(inspector_string(text)), time) << text;
    }
}

TEST_F(Times, EveryZoneOfFourDigitsReadsBack) {
    const CastDefinition* cast =
        TypeRegistry::Instance().FindCast(TypeRegistry::Instance().TypeByName("time zone"), "string");
    ASSERT_NE(cast, nullptr);
    for (int32_t minutes = -99 * 60 - 59; minutes <= 99 * 60 + 59; ++minutes) {
        const time_zone zone = time_zone::OfSeconds(minutes * 60);
        StackAllocator<1024> memory;
        const AllocatorInstaller installed(memory);
        inspector_string text;
        ASSERT_TRUE(cast->thunk(&text, &zone, cast->data));
        ASSERT_EQ(text.length, 5u);
        ASSERT_EQ(ParseTimeZone(text), zone) << text.View();
    }
}

TEST_F(Times, MomentsReadBackByTheClocksOfAnyZone) {
    const GuardType* string = TypeRegistry::Instance().StringType();
    const CastDefinition* cast = TypeRegistry::Instance().FindCast(string, "time");
    ASSERT_NE(cast, nullptr);
    const int64_t first = Calendar::InstantOf({1, 0}, 0).value() / 1000000;
    const int64_t last = Calendar::InstantOf({Calendar::DaysBeforeYear(10000) - 2, 0}, 0).value() / 1000000;
    std::mt19937_64 random(7);
    for (const char* zone : {"UTC0", "EST5", "IST-5:30", "XXX12", "YYY-14", "NNN3:30", "CCC-12:45"}) {
        SetZone(zone);
        for (int i = 0; i < 20000; ++i) {
            const int64_t seconds = first + static_cast<int64_t>(random() % static_cast<uint64_t>(last - first));
            StackAllocator<1024> memory;
            const AllocatorInstaller installed(memory);
            const std::optional<inspector_string> text = LocalTimeText(moment(seconds * 1000000));
            ASSERT_TRUE(text);
            moment read;
            ASSERT_TRUE(cast->thunk(&read, &*text, cast->data)) << text->View();
            ASSERT_EQ(read.Microseconds(), seconds * 1000000) << text->View();
        }
    }
}

TEST_F(Times, TheLocalZoneIsTheMachines) {
    const struct {
        const char* zone;
        const char* local;
        const char* epoch;
    } rows[] = {
        {"UTC0", "+0000", "Thu, 01 Jan 1970 00:00:00 +0000"},
        {"EST5", "-0500", "Wed, 31 Dec 1969 19:00:00 -0500"},
        {"IST-5:30", "+0530", "Thu, 01 Jan 1970 05:30:00 +0530"},
        {"NNN3:30", "-0330", "Wed, 31 Dec 1969 20:30:00 -0330"},
        {"CCC-12:45", "+1245", "Thu, 01 Jan 1970 12:45:00 +1245"},
    };
    for (const auto& row : rows) {
        SetZone(row.zone);
        EXPECT_EQ(Answers("local time zone"), std::string(row.local) + "\n");
        EXPECT_EQ(Answers("time \"1 Jan 1970 00:00 gmt\""), std::string(row.epoch) + "\n");
        EXPECT_EQ(Answers("universal time \"1 Jan 1970 00:00\" - local time \"1 Jan 1970 00:00\" = local time zone - "
                          "universal time zone"),
                  "True\n");
        EXPECT_EQ(Answers("zone of (\"1:00\" as local zoned time_of_day)"), std::string(row.local) + "\n");
        EXPECT_EQ(Answers("date (local time zone) of now = current date"), "True\n");
    }
}

// The zone in force now serves the times of all seasons.
TEST_F(Times, SummerTimeIsThatOfNowForAnotherSeason) {
    const time_t now = time(nullptr);
    tm today{};
    gmtime_r(&now, &today);
    const int before = (today.tm_yday + 365 - 20) % 365;
    const int after = (today.tm_yday + 20) % 365;
    const std::string summerNow = "AAA0BBB," + std::to_string(before) + "," + std::to_string(after);
    const std::string winterNow = "AAA0BBB," + std::to_string(after) + "," + std::to_string(before);

    SetZone(summerNow.c_str());
    tzset();
    const time_t half = now + 182 * 86400;
    tm other{};
    localtime_r(&half, &other);
    ASSERT_EQ(other.tm_gmtoff, 0);
    EXPECT_EQ(Answers("local time zone"), "+0100\n");
    EXPECT_EQ(Answers("last 5 of ((now + 182 * day) as string)"), "+0100\n");

    SetZone(winterNow.c_str());
    tzset();
    localtime_r(&half, &other);
    ASSERT_EQ(other.tm_gmtoff, 3600);
    EXPECT_EQ(Answers("local time zone"), "+0000\n");
    EXPECT_EQ(Answers("last 5 of ((now + 182 * day) as string)"), "+0000\n");
}

TEST_F(Times, TheZoneAndTodayStayUntilTheCachesAreCleared) {
    SetZone("LLL12");
    EXPECT_EQ(Answers("local time zone"), "-1200\n");
    const std::string west = Answers("current date");
    setenv("TZ", "EEE-14", 1);
    EXPECT_EQ(Answers("local time zone"), "-1200\n");
    EXPECT_EQ(Answers("current date"), west);
    ClearCaches(false);
    EXPECT_EQ(Answers("local time zone"), "+1400\n");
    EXPECT_NE(Answers("current date"), west);  // 26 hours apart, the two never show one date.
}

EvaluationFingerprint Walked(GuardEvaluator& evaluator, std::string_view question) {
    evaluator.Feed(question);
    evaluator.EndOfText();
    EvaluationFingerprint record;
    for (void* value = evaluator.First(record); value != nullptr; value = evaluator.Next(record)) {
    }
    return record;
}

TEST_F(Times, QuestionsDependOnTheZoneOrOnToday) {
    const uint32_t zone = uint32_t{1} << timeZoneDependency.Number();
    const uint32_t today = uint32_t{1} << currentDateDependency.Number();
    const struct {
        const char* question;
        uint32_t dependencies;
    } rows[] = {
        {"local time zone", zone},
        {"local time \"1 Jan 2000 00:00\"", zone},
        {"\"1 Jan 2000 00:00\" as local time", zone},
        {"time \"1 Jan 2000 00:00 gmt\" as string", zone},
        {"time \"1 Jan 2000 00:00 gmt\" as local string", zone},
        {"(time \"1 Jan 2000 00:00 gmt\" & day) as string", zone},
        {"\"1:00\" as local zoned time_of_day", zone},
        {"time \"1 Jan 2000 00:00 gmt\" as universal string", 0},
        {"universal time \"1 Jan 2000 00:00\"", 0},
        {"universal time zone", 0},
        {"day", 0},
        {"january 5 of 2000 + month", 0},
        {"current date", today},
        {"current day_of_week", today},
        {"current day_of_month", today},
        {"current month", today},
        {"current year", today},
        {"current day_of_year", today},
        {"current month_and_year", today},
        {"now", Fingerprinter::valueSeen},
        {"current time_of_day (universal time zone)", Fingerprinter::valueSeen},
    };
    for (const auto& row : rows) {
        GuardEvaluator evaluator(nullptr);
        EXPECT_EQ(Walked(evaluator, row.question).dependencies, row.dependencies) << row.question;
    }
}

TEST_F(Times, AChangeOfTheZoneExpiresWhatDependsOnIt) {
    SetZone("LLL12");
    GuardEvaluator zoned(nullptr);
    GuardEvaluator dated(nullptr);
    GuardEvaluator fixed(nullptr);
    const EvaluationFingerprint ofZone = Walked(zoned, "time \"1 Jan 2000 00:00 gmt\" as string");
    const EvaluationFingerprint ofToday = Walked(dated, "current date as string");
    const EvaluationFingerprint ofNothing = Walked(fixed, "date \"1 Jan 2000\" as string");
    EXPECT_TRUE(GuardEvaluator::Unexpired(ofZone, nullptr));
    EXPECT_TRUE(GuardEvaluator::Unexpired(ofToday, nullptr));
    SetZone("EEE-14");
    EXPECT_FALSE(GuardEvaluator::Unexpired(ofZone, nullptr));
    EXPECT_FALSE(GuardEvaluator::Unexpired(ofToday, nullptr));
    EXPECT_TRUE(GuardEvaluator::Unexpired(ofNothing, nullptr));
    EXPECT_FALSE(zoned.Unchanged(ofZone));
}

// The fingerprint of a value that is made where other bytes were.
template <class Make>
uint32_t FingerprintOver(unsigned char filling, Make make) {
    using T = decltype(make());
    alignas(T) unsigned char place[sizeof(T)];
    std::fill(std::begin(place), std::end(place), filling);
    const T* made = new (place) T(make());
    Fingerprinter fingerprinter;
    InspectorTypeInfo<T>::Fingerprint(fingerprinter, made);
    return fingerprinter.sum;
}

// The bytes between the parts of a value have no say.
TEST_F(Times, AFingerprintIsThatOfTheParts) {
    const auto date = [] { return inspector_date(Calendar::Date{2000, 5, 12}); };
    const auto turned = [] { return inspector_date(Calendar::Date{2000, 12, 5}); };
    const auto month = [] { return month_and_year(month_of_year(5), year(2000)); };
    const auto later = [] { return month_and_year(month_of_year(5), year(2001)); };
    EXPECT_EQ(FingerprintOver(0, date), FingerprintOver(255, date));
    EXPECT_NE(FingerprintOver(0, date), FingerprintOver(0, turned));
    EXPECT_EQ(FingerprintOver(0, month), FingerprintOver(255, month));
    EXPECT_NE(FingerprintOver(0, month), FingerprintOver(0, later));
    EXPECT_NE(FingerprintOver(0, [] { return *day_of_year::Of(month_of_year(5), 12); }),
              FingerprintOver(0, [] { return *day_of_year::Of(month_of_year(12), 5); }));
}

TEST_F(Times, SizesAreThoseOfTheLanguage) {
    const struct {
        const char* type;
        unsigned size;
    } rows[] = {
        {"time interval", 8},
        {"time", 8},
        {"time zone", 8},
        {"day of month", 8},
        {"day of week", 4},
        {"month", 4},
        {"number of months", 8},
        {"year", 8},
        {"month and year", 12},
        {"day of year", 12},
        {"date", 20},
        {"time of day", 8},
        {"time of day with time zone", 16},
        {"time range", 16},
        {"date with multiplicity", 28},
    };
    for (const auto& row : rows) {
        const GuardType* type = TypeRegistry::Instance().TypeByName(row.type);
        ASSERT_NE(type, nullptr) << row.type;
        EXPECT_EQ(type->size, row.size) << row.type;
        EXPECT_NE(type->fingerprint, nullptr) << row.type;
    }
}

}  // namespace
