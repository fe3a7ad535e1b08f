// The syntax of dates, times of day, zones and times: "Tue, 09 Mar 1999 00:00:00 +0000".
//
// N1 to N4 are numerals by the count of their digits; a name in any case is the same word.
//
//     Date:              [day of week ","] DayMonthYear, and the end
//     DayMonthYear:      N1 or N2, month word, N2, N3 or N4; 1900 is added to a year of two digits
//     TimeOfDay:         N1 or N2 ":" N2 [":" N2], and the end
//     ZonedTimeOfDay:    as TimeOfDay, [Zone], and the end
//     Zone:              "+" N4, "-" N4, a named zone or a letter
//     Time:              as Date, then as ZonedTimeOfDay with an hour of two digits
//     TimeZone:          Zone other than a letter, and the end
//
// Kept as it stands: a letter is read as a zone and sets none, so that the text counts as one without a zone.
//
// TimeLexer cuts the text into tokens, TimeParser finds the rules and tells a TimeRPNSemantics in the order in which a
// stack machine would act, and TimeAutomaton is that machine; it judges whether there is such a date and such a time.
// Nothing is thrown for a bad text, and nothing allocated: what a parser has refused it remembers, and what follows is
// skipped.
#ifndef VALUES_TIME_LANGUAGE_H
#define VALUES_TIME_LANGUAGE_H

#include <cstdint>
#include <optional>
#include <span>

#include "foundation/ascii.h"
#include "language/character_lexeme.h"
#include "language/ignored_text_lexeme.h"
#include "language/lexer.h"
#include "language/numeral_lexeme.h"
#include "language/reserved_word_lexeme.h"
#include "values/calendar.h"

enum class PartOfSpeech : unsigned char { kDayOfWeek, kMonth, kNamedZone, kLetterZone };

// A day of the week by its number, a month by its number, a zone by its seconds ahead of universal time.
struct TimeWord {
    PartOfSpeech part;
    int32_t value;
};

// The words of the language, in lower case and alphabetical order.
std::span<const ReservedWord<TimeWord>> TimeWords();

class TimeRPNSemantics {
public:
    virtual ~TimeRPNSemantics() = default;
    virtual void Start() = 0;
    virtual void Number(int32_t value) = 0;  // Pushes it: a numeral's value or a word's.
    virtual void ShortYear() = 0;            // A year of two digits becomes one of the 20th century.
    virtual void Date() = 0;                 // Takes day, month and year.
    virtual void CheckDayOfWeek() = 0;       // Takes the day of the week that the date has to have.
    virtual void Clock() = 0;                // Takes hour, minute and second.
    virtual void EastZone() = 0;             // Takes the digits of a zone east of Greenwich.
    virtual void WestZone() = 0;             // Takes the digits of a zone west of Greenwich.
    virtual void NamedZone() = 0;            // Takes a zone's seconds.
};

enum class TimeGrammar : unsigned char { kDate, kTimeOfDay, kZonedTimeOfDay, kTime, kTimeZone };

class TimeParser final : public EndLexemeAcceptor,
                         public CharacterLexemeAcceptor,
                         public NumeralLexemeAcceptor,
                         public ReservedWordAcceptor<TimeWord> {
public:
    TimeParser(TimeGrammar grammar, TimeRPNSemantics& semantics) : grammar_(grammar), semantics_(semantics) {}

    // True once the end of a text of the grammar has come.
    bool Accepted() const { return state_ == State::kAccepted; }
    // True once the text has shown that it is none.
    bool Failed() const { return state_ == State::kFailed; }
    void Fail() { state_ = State::kFailed; }

    void Start() override;
    void End(unsigned long position) override;
    void Accept(unsigned long start, unsigned long end, unsigned char byte) override;
    void Accept(unsigned long start, unsigned long end, uint64_t value) override;
    void TooLarge(unsigned long start, unsigned long end) override;
    void AcceptReserved(unsigned long start, unsigned long end, TimeWord word) override;
    void Accept(unsigned long start, unsigned long end, const unsigned char* textBegin,
                const unsigned char* textEnd) override;
    void TooLong(unsigned long start, unsigned long end) override;

private:
    // What stands behind the text so far, or what is awaited.
    enum class State : unsigned char {
        kDate,  // Nothing yet: the date is awaited, with or without a day of the week.
        kDayOfWeek,
        kDayAwaited,
        kDay,
        kMonth,
        kYear,  // A date that may be the end.
        kHourAwaited,
        kHour,
        kMinuteAwaited,
        kMinute,
        kSecondAwaited,
        kSecond,
        kZoneAwaited,
        kEast,
        kWest,
        kZone,
        kAccepted,
        kFailed
    };

    // Takes a numeral of `digits` digits where its count is between the two, and fails elsewhere.
    void Take(unsigned long digits, unsigned long least, unsigned long most, int32_t value, State next);
    void TakeYear(unsigned long digits, int32_t value);
    void TakeZone(const TimeWord& word);
    bool MayEndClock() const;
    void CloseClock();

    TimeGrammar grammar_;
    TimeRPNSemantics& semantics_;
    State state_ = State::kFailed;
    bool dayOfWeekBefore_ = false;
};

class TimeLexer final : public Lexer {
public:
    explicit TimeLexer(TimeParser& parser);

    Lexeme& ChooseLexeme(unsigned char byte) override;

private:
    TimeParser& parser_;
    unsigned char buffer_[8];
    Ascii::CaseLoweringFilter lowering_;
    CharacterLexeme character_;
    NumeralLexeme numeral_;
    ReservedWordLexeme<TimeWord> word_;
    IgnoredTextLexeme blank_;
    IgnoredTextLexeme anything_;  // behind what was refused
};

// Why a text is refused, in the order in which it is found out.  No user sees them apart.
enum class TimeTextFailure : unsigned char {
    None,
    ParsingFailure,
    NoSuchDate,
    WrongDayOfWeek,
    NoSuchTimeOfDay,
    NoTimeZone
};

// Keeps what a text says: a date, a time of day and a zone, as far as it names them.
class TimeAutomaton final : public TimeRPNSemantics {
public:
    void Start() override;
    void Number(int32_t value) override { stack_[size_++] = value; }
    void ShortYear() override { stack_[size_ - 1] += 1900; }
    void Date() override;
    void CheckDayOfWeek() override;
    void Clock() override;
    void EastZone() override { SetZone(OffsetOfDigits()); }
    void WestZone() override { SetZone(-OffsetOfDigits()); }
    void NamedZone() override { SetZone(stack_[--size_]); }

    const Calendar::Date& CalendarDate() const { return date_; }
    int ClockSeconds() const { return (hour_ * 60 + minute_) * 60 + second_; }
    int32_t Zone() const { return zone_; }

    // What is wrong with an accepted text; a part that its grammar does not have is not.
    TimeTextFailure Judgement() const;

private:
    // hhmm, of which neither is checked.
    int32_t OffsetOfDigits() {
        const int32_t digits = stack_[--size_];
        return (digits / 100 * 60 + digits % 100) * 60;
    }
    void SetZone(int32_t seconds);

    int32_t stack_[4] = {};  // A day of the week, a day, a month and a year are the most.
    unsigned size_ = 0;
    Calendar::Date date_;
    bool isDayOfWeek_ = true;
    int hour_ = 0;
    int minute_ = 0;
    int second_ = 0;
    int32_t zone_ = 0;
    bool hasZone_ = false;
};

// A text read by one of the grammars: what it says, or why it is refused.
class TimeText {
public:
    static TimeText Parsed(TimeGrammar grammar, ConstData text);

    TimeTextFailure Failure() const { return failure_; }
    // Whether it is good where a zone need not be named, and where it must.
    bool Good() const { return failure_ == TimeTextFailure::None || failure_ == TimeTextFailure::NoTimeZone; }
    bool HasZone() const { return failure_ == TimeTextFailure::None; }

    const Calendar::Date& Date() const { return automaton_.CalendarDate(); }
    int ClockSeconds() const { return automaton_.ClockSeconds(); }
    int32_t ZoneSeconds() const { return automaton_.Zone(); }

private:
    TimeAutomaton automaton_;
    TimeTextFailure failure_ = TimeTextFailure::ParsingFailure;
};

#endif
