// Feeds arbitrary bytes to the languages of time intervals and of times, by every grammar.
//
// Whatever the bytes, a text is accepted or refused and nothing is thrown; the outcome must be the same when the text
// comes in two runs; and what was accepted and has a printed form must be read from that as the same value.
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>

#include "foundation/stack_allocator.h"
#include "fuzz/expect.h"
#include "values/inspector_date.h"
#include "values/interval_language.h"
#include "values/time_interval.h"
#include "values/time_language.h"
#include "values/time_of_day.h"

namespace {

template <class Lexer>
void FeedInTwo(Lexer& lexer, ConstData text, size_t cut) {
    lexer.Start();
    lexer.Data(text.begin, text.begin + cut);
    lexer.Data(text.begin + cut, text.end);
    lexer.Finish();
}

void LookAtInterval(ConstData text, size_t cut) {
    const std::optional<int64_t> whole = IntervalOfText(text);
    IntervalAutomaton automaton;
    IntervalParser parser(automaton);
    IntervalLexer lexer(parser);
    FeedInTwo(lexer, text, cut);
    Expect(parser.Accepted() == whole.has_value() && parser.Accepted() != parser.Failed());
    if (!whole) {
        return;
    }
    Expect(automaton.Microseconds() == *whole);
    // A fraction is cut to the microsecond as it is read, and the greatest counts pass the doubles' exactness.
    const std::optional<time_interval> read = ParseTimeInterval(TimeIntervalText(time_interval(*whole)));
    Expect(read.has_value());
    if (*whole % 1000000 == 0) {
        Expect(read->Microseconds() == *whole);
    }
}

bool SameText(const TimeAutomaton& automaton, const TimeText& text) {
    const Calendar::Date& a = automaton.CalendarDate();
    const Calendar::Date& b = text.Date();
    return a.year == b.year && a.month == b.month && a.day == b.day &&
           automaton.ClockSeconds() == text.ClockSeconds() && automaton.Zone() == text.ZoneSeconds() &&
           automaton.Judgement() == text.Failure();
}

void LookAtTime(TimeGrammar grammar, ConstData text, size_t cut) {
    const TimeText whole = TimeText::Parsed(grammar, text);
    TimeAutomaton automaton;
    TimeParser parser(grammar, automaton);
    TimeLexer lexer(parser);
    FeedInTwo(lexer, text, cut);
    Expect(parser.Accepted() == (whole.Failure() != TimeTextFailure::ParsingFailure));
    Expect(parser.Accepted() != parser.Failed());
    Expect(!parser.Accepted() || SameText(automaton, whole));
    if (!whole.Good()) {
        return;
    }
    Expect(Calendar::Exists(whole.Date()) && whole.ClockSeconds() < 86400);
    if (grammar == TimeGrammar::kDate) {
        const inspector_date date(whole.Date());
        Expect(ParseDate(DateText(date)) == date);
    }
    if (grammar == TimeGrammar::kTimeOfDay) {
        const time_of_day time = time_of_day::OfSeconds(whole.ClockSeconds());
        Expect(ParseTimeOfDay(TimeOfDayText(time)) == time);
    }
}

}  // namespace

// The first byte says where the second look cuts the rest.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 1) {
        return 0;
    }
    const ConstData text(data + 1, data + size);
    const size_t cut = data[0] % (text.Length() + 1);
    StackAllocator<4096> memory;
    const AllocatorInstaller installed(memory);
    LookAtInterval(text, cut);
    for (const TimeGrammar grammar : {TimeGrammar::kDate, TimeGrammar::kTimeOfDay, TimeGrammar::kZonedTimeOfDay,
                                      TimeGrammar::kTime, TimeGrammar::kTimeZone}) {
        LookAtTime(grammar, text, cut);
    }
    return 0;
}
