#include "values/time_language.h"

#include "foundation/character_set.h"

namespace {

constexpr PartOfSpeech kDayOfWeek = PartOfSpeech::kDayOfWeek;
constexpr PartOfSpeech kMonth = PartOfSpeech::kMonth;
constexpr PartOfSpeech kNamed = PartOfSpeech::kNamedZone;
constexpr PartOfSpeech kLetter = PartOfSpeech::kLetterZone;

// clang-format off
constexpr ReservedWord<TimeWord> kWords[] = {
    {"a",   {kLetter, 3600}},
    {"apr", {kMonth, 4}},
    {"aug", {kMonth, 8}},
    {"b",   {kLetter, 7200}},
    {"c",   {kLetter, 10800}},
    {"cdt", {kNamed, -18000}},
    {"cst", {kNamed, -21600}},
    {"d",   {kLetter, 14400}},
    {"dec", {kMonth, 12}},
    {"e",   {kLetter, 18000}},
    {"edt", {kNamed, -14400}},
    {"est", {kNamed, -18000}},
    {"f",   {kLetter, 21600}},
    {"feb", {kMonth, 2}},
    {"fri", {kDayOfWeek, 5}},
    {"g",   {kLetter, 25200}},
    {"gmt", {kNamed, 0}},
    {"h",   {kLetter, 28800}},
    {"i",   {kLetter, 32400}},
    {"jan", {kMonth, 1}},
    {"jul", {kMonth, 7}},
    {"jun", {kMonth, 6}},
    {"k",   {kLetter, 36000}},
    {"l",   {kLetter, 39600}},
    {"m",   {kLetter, 43200}},
    {"mar", {kMonth, 3}},
    {"may", {kMonth, 5}},
    {"mdt", {kNamed, -21600}},
    {"mon", {kDayOfWeek, 1}},
    {"mst", {kNamed, -25200}},
    {"n",   {kLetter, -3600}},
    {"nov", {kMonth, 11}},
    {"o",   {kLetter, -7200}},
    {"oct", {kMonth, 10}},
    {"p",   {kLetter, -10800}},
    {"pdt", {kNamed, -25200}},
    {"pst", {kNamed, -28800}},
    {"q",   {kLetter, -14400}},
    {"r",   {kLetter, -18000}},
    {"s",   {kLetter, -21600}},
    {"sat", {kDayOfWeek, 6}},
    {"sep", {kMonth, 9}},
    {"sun", {kDayOfWeek, 0}},
    {"t",   {kLetter, -25200}},
    {"thu", {kDayOfWeek, 4}},
    {"tue", {kDayOfWeek, 2}},
    {"u",   {kLetter, -28800}},
    {"ut",  {kNamed, 0}},
    {"v",   {kLetter, -32400}},
    {"w",   {kLetter, -36000}},
    {"wed", {kDayOfWeek, 3}},
    {"x",   {kLetter, -39600}},
    {"y",   {kLetter, -43200}},
    {"z",   {kLetter, 0}},
};
// clang-format on
static_assert(IsSorted(kWords));

constexpr CharacterSet kMarks(",:+-");
constexpr CharacterSet kAnything = CharacterSets::lowHalf | CharacterSets::highHalf;

}  // namespace

std::span<const ReservedWord<TimeWord>> TimeWords() { return kWords; }

void TimeParser::Start() {
    dayOfWeekBefore_ = false;
    switch (grammar_) {
        case TimeGrammar::kDate:
        case TimeGrammar::kTime:
            state_ = State::kDate;
            break;
        case TimeGrammar::kTimeOfDay:
        case TimeGrammar::kZonedTimeOfDay:
            state_ = State::kHourAwaited;
            break;
        case TimeGrammar::kTimeZone:
            state_ = State::kZoneAwaited;
            break;
    }
    semantics_.Start();
}

void TimeParser::Accept(unsigned long start, unsigned long end, uint64_t value) {
    const unsigned long digits = end - start;
    if (digits > 4) {
        Fail();
        return;
    }
    const auto number = static_cast<int32_t>(value);
    switch (state_) {
        case State::kDate:
        case State::kDayAwaited:
            Take(digits, 1, 2, number, State::kDay);
            break;
        case State::kMonth:
            TakeYear(digits, number);
            break;
        case State::kHourAwaited:
            Take(digits, 1, 2, number, State::kHour);
            break;
        case State::kYear:
            if (grammar_ == TimeGrammar::kTime) {
                Take(digits, 2, 2, number, State::kHour);
            } else {
                Fail();
            }
            break;
        case State::kMinuteAwaited:
            Take(digits, 2, 2, number, State::kMinute);
            break;
        case State::kSecondAwaited:
            Take(digits, 2, 2, number, State::kSecond);
            break;
        case State::kEast:
        case State::kWest: {
            const bool east = state_ == State::kEast;
            Take(digits, 4, 4, number, State::kZone);
            if (state_ == State::kZone) {
                east ? semantics_.EastZone() : semantics_.WestZone();
            }
            break;
        }
        default:
            Fail();
            break;
    }
}

void TimeParser::Take(unsigned long digits, unsigned long least, unsigned long most, int32_t value, State next) {
    if (digits < least || digits > most) {
        Fail();
        return;
    }
    semantics_.Number(value);
    state_ = next;
}

void TimeParser::TakeYear(unsigned long digits, int32_t value) {
    Take(digits, 2, 4, value, State::kYear);
    if (Failed()) {
        return;
    }
    if (digits == 2) {
        semantics_.ShortYear();
    }
    semantics_.Date();
    if (dayOfWeekBefore_) {
        semantics_.CheckDayOfWeek();
    }
}

void TimeParser::TooLarge(unsigned long, unsigned long) { Fail(); }

void TimeParser::Accept(unsigned long, unsigned long, unsigned char byte) {
    const bool sign = byte == '+' || byte == '-';
    if (state_ == State::kDayOfWeek && byte == ',') {
        state_ = State::kDayAwaited;
    } else if (state_ == State::kHour && byte == ':') {
        state_ = State::kMinuteAwaited;
    } else if (state_ == State::kMinute && byte == ':') {
        state_ = State::kSecondAwaited;
    } else if (sign && (state_ == State::kZoneAwaited || (MayEndClock() && grammar_ != TimeGrammar::kTimeOfDay))) {
        CloseClock();
        state_ = byte == '+' ? State::kEast : State::kWest;
    } else {
        Fail();
    }
}

bool TimeParser::MayEndClock() const { return state_ == State::kMinute || state_ == State::kSecond; }

// The seconds default to 0.
void TimeParser::CloseClock() {
    if (state_ == State::kMinute) {
        semantics_.Number(0);
    }
    if (MayEndClock()) {
        semantics_.Clock();
    }
}

void TimeParser::AcceptReserved(unsigned long, unsigned long, TimeWord word) {
    if (word.part == PartOfSpeech::kDayOfWeek && state_ == State::kDate) {
        dayOfWeekBefore_ = true;
        state_ = State::kDayOfWeek;
        semantics_.Number(word.value);
    } else if (word.part == PartOfSpeech::kMonth && state_ == State::kDay) {
        state_ = State::kMonth;
        semantics_.Number(word.value);
    } else if (word.part == PartOfSpeech::kNamedZone || word.part == PartOfSpeech::kLetterZone) {
        TakeZone(word);
    } else {
        Fail();
    }
}

void TimeParser::TakeZone(const TimeWord& word) {
    const bool alone = state_ == State::kZoneAwaited && word.part == PartOfSpeech::kNamedZone;
    if (!alone && (!MayEndClock() || grammar_ == TimeGrammar::kTimeOfDay)) {
        Fail();
        return;
    }
    CloseClock();
    state_ = State::kZone;
    if (word.part == PartOfSpeech::kNamedZone) {
        semantics_.Number(word.value);
        semantics_.NamedZone();
    }
}

void TimeParser::Accept(unsigned long, unsigned long, const unsigned char*, const unsigned char*) { Fail(); }

void TimeParser::TooLong(unsigned long, unsigned long) { Fail(); }

void TimeParser::End(unsigned long) {
    const bool date = state_ == State::kYear && grammar_ == TimeGrammar::kDate;
    if (!date && !MayEndClock() && state_ != State::kZone) {
        Fail();
        return;
    }
    CloseClock();
    state_ = State::kAccepted;
}

TimeLexer::TimeLexer(TimeParser& parser)
    : Lexer(parser),
      parser_(parser),
      character_(parser),
      numeral_(parser),
      word_(CharacterSets::letters, Buffer(buffer_, buffer_ + sizeof buffer_), kWords, parser, &lowering_),
      blank_(CharacterSets::lineWhiteSpace),
      anything_(kAnything) {}

Lexeme& TimeLexer::ChooseLexeme(unsigned char byte) {
    if (!parser_.Failed()) {
        if (CharacterSets::digits.Contains(byte)) {
            return numeral_;
        }
        if (CharacterSets::lineWhiteSpace.Contains(byte)) {
            return blank_;
        }
        if (CharacterSets::letters.Contains(byte)) {
            return word_;
        }
        if (kMarks.Contains(byte)) {
            return character_;
        }
        parser_.Fail();
    }
    return anything_;
}

void TimeAutomaton::Start() { *this = TimeAutomaton(); }

void TimeAutomaton::Date() {
    date_ = {stack_[size_ - 1], stack_[size_ - 2], stack_[size_ - 3]};
    size_ -= 3;
}

// A date that there is not has no day of the week, and is refused for itself.
void TimeAutomaton::CheckDayOfWeek() {
    const int32_t named = stack_[--size_];
    isDayOfWeek_ = !Calendar::Exists(date_) || Calendar::DayOfWeek(Calendar::DayNumber(date_)) == named;
}

void TimeAutomaton::Clock() {
    size_ -= 3;
    hour_ = stack_[size_];
    minute_ = stack_[size_ + 1];
    second_ = stack_[size_ + 2];
}

void TimeAutomaton::SetZone(int32_t seconds) {
    zone_ = seconds;
    hasZone_ = true;
}

TimeTextFailure TimeAutomaton::Judgement() const {
    if (!Calendar::Exists(date_)) {
        return TimeTextFailure::NoSuchDate;
    }
    if (!isDayOfWeek_) {
        return TimeTextFailure::WrongDayOfWeek;
    }
    if (hour_ > 23 || minute_ > 59 || second_ > 59) {
        return TimeTextFailure::NoSuchTimeOfDay;
    }
    return hasZone_ ? TimeTextFailure::None : TimeTextFailure::NoTimeZone;
}

TimeText TimeText::Parsed(TimeGrammar grammar, ConstData text) {
    TimeText result;
    TimeParser parser(grammar, result.automaton_);
    TimeLexer lexer(parser);
    lexer.Start();
    lexer.Data(text.begin, text.end);
    lexer.Finish();
    result.failure_ = parser.Accepted() ? result.automaton_.Judgement() : TimeTextFailure::ParsingFailure;
    return result;
}
