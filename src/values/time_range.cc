#include "values/time_range.h"

#include "values/aggregates.h"
#include "values/string.h"
#include "values/time_zone.h"

namespace {

moment Start(const time_range& range) { return range.Start(); }
moment End(const time_range& range) { return range.End(); }
std::optional<time_interval> Length(const time_range& range) { return range.Length(); }

std::optional<time_range> RangeBefore(const moment& time, Of, const time_range& range) {
    return range.Contains(time) ? std::optional<time_range>(time_range(range.Start(), time)) : std::nullopt;
}
std::optional<time_range> RangeAfter(const moment& time, Of, const time_range& range) {
    return range.Contains(time) ? std::optional<time_range>(time_range(time, range.End())) : std::nullopt;
}

// The moment where a part ends or begins has to lie in the range: the length of a part is not negative and no more than
// the range's.
std::optional<time_range> InitialPart(const time_interval& length, Of, const time_range& range) {
    const std::optional<moment> end = range.Start() + length;
    return end ? RangeBefore(*end, Of(), range) : std::nullopt;
}
std::optional<time_range> FinalPart(const time_interval& length, Of, const time_range& range) {
    const std::optional<moment> start = range.End() - length;
    return start ? RangeAfter(*start, Of(), range) : std::nullopt;
}

boolean ContainsTime(const time_range& range, const moment& time) { return range.Contains(time); }
boolean ContainsRange(const time_range& range, const time_range& other) { return range.Contains(other); }

// Both moments by local clocks, and " to " between them.
std::optional<inspector_string> AsText(const time_range& range) {
    constexpr std::string_view kTo = " to ";
    const std::optional<inspector_string> start = LocalTimeText(range.Start());
    const std::optional<inspector_string> end = LocalTimeText(range.End());
    if (!start || !end) {
        return std::nullopt;
    }
    return JoinedString({start->View(), kTo, end->View()});
}

// clang-format off
Type<time_range>                                                    type;
UniqueValuesInspectorRegistration<time_range>                       uniqueValues;

Property<time_range, moment, Start>                                 start        {"start", "starts"};
Property<time_range, moment, End>                                   end          {"end", "ends"};
Property<time_range, time_interval, Length>                         length       {"length", "lengths"};
PropertyByIndexOfObject<time_range, moment, time_range, RangeBefore>
                                                                    rangeBefore  {"range before", "ranges before"};
PropertyByIndexOfObject<time_range, moment, time_range, RangeAfter> rangeAfter   {"range after", "ranges after"};
PropertyByIndexOfObject<time_range, time_interval, time_range, InitialPart>
                                                                    initialPart  {"initial part", "initial parts"};
PropertyByIndexOfObject<time_range, time_interval, time_range, FinalPart>
                                                                    finalPart    {"final part", "final parts"};

Cast<inspector_string, time_range, AsText>                          toString     {"string", DependsOn<timeZoneDependency>};

RelationEqual<time_range>                                           equal;
RelationContains<time_range, moment, ContainsTime>                  containsTime;
RelationContains<time_range, time_range, ContainsRange>             containsRange;
OperatorPlus<time_range, time_range, time_range>                    plus;
OperatorTimes<time_range, time_range, time_range>                   times;
// clang-format on

}  // namespace
