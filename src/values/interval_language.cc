#include "values/interval_language.h"

#include <limits>

#include "foundation/character_set.h"

namespace {

constexpr ReservedWord<IntervalWord> kWords[] = {
    {"day", IntervalWord::kDay},
    {"days", IntervalWord::kDay},
};
static_assert(IsSorted(kWords));

constexpr CharacterSet kNumeral = CharacterSets::digits | CharacterSet(".");
constexpr CharacterSet kMarks(":,+-");
constexpr CharacterSet kAnything = CharacterSets::lowHalf | CharacterSets::highHalf;

}  // namespace

void IntervalParser::Start() {
    state_ = State::kNothing;
    negative_ = false;
    daysBefore_ = false;
    semantics_.Start();
}

void IntervalParser::Accept(unsigned long, unsigned long, unsigned char byte) {
    switch (byte) {
        case '+':
        case '-':
            AcceptSign(byte);
            break;
        case ':':
            AcceptColon();
            break;
        default:
            state_ = state_ == State::kDays ? State::kComma : State::kFailed;
            daysBefore_ = true;
            break;
    }
}

void IntervalParser::AcceptSign(unsigned char sign) {
    negative_ = sign == '-';
    state_ = state_ == State::kNothing ? State::kSign : State::kFailed;
}

void IntervalParser::AcceptColon() {
    switch (state_) {
        case State::kFirstNumeral:
        case State::kHours:
            state_ = State::kHoursColon;
            break;
        case State::kMinutes:
            state_ = State::kMinutesColon;
            break;
        default:
            Fail();
            break;
    }
}

void IntervalParser::Accept(double value) {
    switch (state_) {
        case State::kNothing:
        case State::kSign:
            state_ = State::kFirstNumeral;
            break;
        case State::kComma:
            state_ = State::kHours;
            break;
        case State::kHoursColon:
            state_ = State::kMinutes;
            break;
        case State::kMinutesColon:
            state_ = State::kClock;
            break;
        default:
            Fail();
            return;
    }
    semantics_.Number(value);
    if (state_ == State::kClock) {
        semantics_.Clock();
        if (daysBefore_) {
            semantics_.Add();
        }
    }
}

void IntervalParser::AcceptReserved(unsigned long, unsigned long, IntervalWord) {
    if (state_ != State::kFirstNumeral) {
        Fail();
        return;
    }
    state_ = State::kDays;
    semantics_.Days();
}

void IntervalParser::Accept(unsigned long, unsigned long, const unsigned char*, const unsigned char*) { Fail(); }

void IntervalParser::TooLong(unsigned long, unsigned long) { Fail(); }

void IntervalParser::End(unsigned long) {
    if (state_ != State::kDays && state_ != State::kClock) {
        Fail();
        return;
    }
    state_ = State::kAccepted;
    if (negative_) {
        semantics_.Negate();
    }
}

IntervalLexer::IntervalLexer(IntervalParser& parser)
    : Lexer(parser),
      parser_(parser),
      character_(parser),
      numeral_(parser),
      word_(CharacterSets::letters, Buffer(buffer_, buffer_ + sizeof buffer_), kWords, parser),
      blank_(CharacterSets::lineWhiteSpace),
      anything_(kAnything) {}

Lexeme& IntervalLexer::ChooseLexeme(unsigned char byte) {
    if (!parser_.Failed()) {
        if (kNumeral.Contains(byte)) {
            return numeral_;
        }
        if (kMarks.Contains(byte)) {
            return character_;
        }
        if (CharacterSets::lineWhiteSpace.Contains(byte)) {
            return blank_;
        }
        if (CharacterSets::letters.Contains(byte)) {
            return word_;
        }
        parser_.Fail();
    }
    return anything_;
}

void IntervalAutomaton::Clock() {
    size_ -= 2;
    double& seconds = stack_[size_ - 1];
    seconds = 60 * (seconds * 60 + stack_[size_]) + stack_[size_ + 1];
}

void IntervalAutomaton::Add() {
    --size_;
    stack_[size_ - 1] += stack_[size_];
}

int64_t IntervalAutomaton::Microseconds() const {
    constexpr long double kLimit = 9223372036854775808.0L;
    const long double microseconds = static_cast<long double>(stack_[0]) * 1000000.0L;
    if (microseconds >= kLimit) {
        return std::numeric_limits<int64_t>::max();
    }
    if (microseconds <= -kLimit) {
        return std::numeric_limits<int64_t>::min();
    }
    return static_cast<int64_t>(microseconds);
}

std::optional<int64_t> IntervalOfText(ConstData text) {
    IntervalAutomaton automaton;
    IntervalParser parser(automaton);
    IntervalLexer lexer(parser);
    lexer.Start();
    lexer.Data(text.begin, text.end);
    lexer.Finish();
    return parser.Accepted() ? std::optional<int64_t>(automaton.Microseconds()) : std::nullopt;
}
