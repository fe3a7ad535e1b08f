#include "values/time_interval.h"

#include "values/aggregates.h"
#include "values/interval_language.h"
#include "values/time_text.h"

std::optional<time_interval> ParseTimeInterval(const inspector_string& text) {
    const std::optional<int64_t> microseconds = IntervalOfText(text.Data());
    return microseconds ? std::optional<time_interval>(time_interval(*microseconds)) : std::nullopt;
}

inspector_string TimeIntervalText(const time_interval& interval) {
    constexpr auto kDay = static_cast<uint64_t>(Calendar::kMicrosecondsOfADay);
    constexpr auto kSecond = static_cast<uint64_t>(Calendar::kMicrosecondsOfASecond);
    TimeLine line;
    auto rest = static_cast<uint64_t>(interval.Microseconds());
    if (interval.Microseconds() < 0) {
        line.Add('-');
        rest = 0 - rest;
    }
    if (const uint64_t days = rest / kDay; days != 0) {
        line.Add(days, 1).Add(std::string_view(days == 1 ? " day" : " days"));
        rest %= kDay;
        if (rest == 0) {
            return line.Text();
        }
        line.Add(std::string_view(", "));
    }
    line.AddClock(static_cast<int64_t>(rest / kSecond));
    if (rest %= kSecond; rest != 0) {
        line.Add('.').Add(rest / 1000, 3);
        if (rest % 1000 != 0) {
            line.Add(rest % 1000, 3);
        }
    }
    return line.Text();
}

namespace {

template <int64_t Microseconds>
time_interval Unit() {
    return time_interval(Microseconds);
}

std::optional<time_interval> AbsoluteValueOfInterval(const time_interval& interval) {
    return time_interval::Of(AbsoluteValue(interval.Microseconds()));
}

// An overflow is for good: no later element repairs it.
class time_interval_sum {
public:
    void Initialize() { sum_ = time_interval(); }
    void Aggregate(Of, const time_interval& value) {
        if (sum_) {
            sum_ = *sum_ + value;
        }
    }
    std::optional<time_interval> FirstFinal() const { return sum_; }

private:
    std::optional<time_interval> sum_;
};

// clang-format off
Type<time_interval>                                                 type;
ComparableInspectorRegistration<time_interval>                      comparable;

GlobalProperty<time_interval, Unit<1>>                              microsecond  {"microsecond", "microseconds"};
GlobalProperty<time_interval, Unit<1000>>                           millisecond  {"millisecond", "milliseconds"};
GlobalProperty<time_interval, Unit<1000000>>                        second       {"second", "seconds"};
GlobalProperty<time_interval, Unit<60000000>>                       minute       {"minute", "minutes"};
GlobalProperty<time_interval, Unit<3600000000>>                     hour         {"hour", "hours"};
GlobalProperty<time_interval, Unit<86400000000>>                    day          {"day", "days"};
GlobalProperty<time_interval, Unit<604800000000>>                   week         {"week", "weeks"};
GlobalProperty<time_interval, Unit<integer::kGreatest>>             greatest     {"greatest time interval", "greatest time intervals"};
GlobalProperty<time_interval, Unit<integer::kLeast>>                least        {"least time interval", "least time intervals"};
Property<time_interval, time_interval, AbsoluteValueOfInterval>     absolute     {"absolute value", "absolute values"};
NamedGlobalProperty<time_interval, ParseTimeInterval>               ofString     {"time interval", "time intervals"};
AggregatingProperty<time_interval_sum, time_interval, time_interval>
                                                                    sum          {"sum", "sums"};

Cast<time_interval, inspector_string, ParseTimeInterval>            fromString   {"time interval"};
Cast<inspector_string, time_interval, TimeIntervalText>             toString     {"string"};

UnaryOperatorMinus<time_interval>                                   negate;
OperatorPlus<time_interval, time_interval, time_interval>           plus;
BinaryOperatorMinus<time_interval, time_interval, time_interval>    minus;
OperatorModulo<time_interval, time_interval, time_interval>         modulo;
OperatorTimes<time_interval, integer, time_interval>                timesInteger;
OperatorTimes<integer, time_interval, time_interval>                integerTimes;
OperatorDivide<time_interval, integer, time_interval>               divide;
OperatorDivide<time_interval, time_interval, integer>               ratio;
// clang-format on

}  // namespace
