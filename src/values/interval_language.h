// The syntax of time intervals: "2 days, 03:00:00", with a sign before it.
//
//     Interval:  Core, "+" Core or "-" Core, and the end
//     Core:      Days, Clock, or Days "," Clock
//     Days:      numeral, "day" or "days"
//     Clock:     numeral ":" numeral ":" numeral
//
// IntervalLexer cuts the text into tokens, IntervalParser finds the rules and tells an IntervalRPNSemantics in the
// order in which a stack machine would act, and IntervalAutomaton is that machine.  Nothing is thrown for a bad text,
// and nothing allocated: what a parser has refused it remembers, and what follows is skipped.
#ifndef VALUES_INTERVAL_LANGUAGE_H
#define VALUES_INTERVAL_LANGUAGE_H

#include <cstdint>
#include <optional>

#include "language/character_lexeme.h"
#include "language/floating_point_numeral_lexeme.h"
#include "language/ignored_text_lexeme.h"
#include "language/lexer.h"
#include "language/reserved_word_lexeme.h"

class IntervalRPNSemantics {
public:
    virtual ~IntervalRPNSemantics() = default;
    virtual void Start() = 0;
    virtual void Number(double value) = 0;  // Pushes it.
    virtual void Days() = 0;                // A number of days becomes seconds.
    virtual void Clock() = 0;               // Hours, minutes and seconds become seconds.
    virtual void Add() = 0;                 // Two numbers of seconds become their sum.
    virtual void Negate() = 0;
};

// The one word class of the language: "day" and "days" mean the same.
enum class IntervalWord : unsigned char { kDay };

class IntervalParser final : public EndLexemeAcceptor,
                             public CharacterLexemeAcceptor,
                             public FloatingPointNumeralLexemeAcceptor,
                             public ReservedWordAcceptor<IntervalWord> {
public:
    explicit IntervalParser(IntervalRPNSemantics& semantics) : semantics_(semantics) {}

    // True once the end of an interval's text has come.
    bool Accepted() const { return state_ == State::kAccepted; }
    // True once the text has shown that it is none.
    bool Failed() const { return state_ == State::kFailed; }
    void Fail() { state_ = State::kFailed; }

    void Start() override;
    void End(unsigned long position) override;
    void Accept(unsigned long start, unsigned long end, unsigned char byte) override;
    void Accept(double value) override;
    void AcceptReserved(unsigned long start, unsigned long end, IntervalWord word) override;
    void Accept(unsigned long start, unsigned long end, const unsigned char* textBegin,
                const unsigned char* textEnd) override;
    void TooLong(unsigned long start, unsigned long end) override;

private:
    // What stands behind the text so far.
    enum class State : unsigned char {
        kNothing,
        kSign,
        kFirstNumeral,  // of days or of hours
        kDays,
        kComma,
        kHours,
        kHoursColon,
        kMinutes,
        kMinutesColon,
        kClock,
        kAccepted,
        kFailed
    };

    void AcceptSign(unsigned char sign);
    void AcceptColon();

    IntervalRPNSemantics& semantics_;
    State state_ = State::kNothing;
    bool negative_ = false;
    bool daysBefore_ = false;
};

class IntervalLexer final : public Lexer {
public:
    explicit IntervalLexer(IntervalParser& parser);

    Lexeme& ChooseLexeme(unsigned char byte) override;

private:
    IntervalParser& parser_;
    unsigned char buffer_[8];
    CharacterLexeme character_;
    FloatingPointNumeralLexeme numeral_;
    ReservedWordLexeme<IntervalWord> word_;
    IgnoredTextLexeme blank_;
    IgnoredTextLexeme anything_;  // behind what was refused
};

// Works out the seconds as doubles.
class IntervalAutomaton final : public IntervalRPNSemantics {
public:
    void Start() override { size_ = 0; }
    void Number(double value) override { stack_[size_++] = value; }
    void Days() override { stack_[size_ - 1] *= 86400.0; }
    void Clock() override;
    void Add() override;
    void Negate() override { stack_[size_ - 1] = -stack_[size_ - 1]; }

    // The result in microseconds, cut towards 0; what passes 64 bits is the greatest or the least number.
    int64_t Microseconds() const;

private:
    double stack_[4] = {};  // Days and a clock's three numerals are the most.
    unsigned size_ = 0;
};

// The microseconds of an interval's text; none for a text that is no interval's.
std::optional<int64_t> IntervalOfText(ConstData text);

#endif
