#include <gtest/gtest.h>

#include <exception>

#include "registry/type_registry.h"
#include "tests/evaluator/test_vocabulary.h"

int token::alive = 0;
std::vector<int64_t> Script::values;
std::function<void()> Script::ending = [] {};
int Script::statesAlive = 0;
int Script::calls = 0;

std::string FailureName() {
    try {
        throw;
    } catch (const OperationNotDefined& e) {
        return "[OperationNotDefined " + std::string(e.Name()) + "]";
    } catch (const UserDefinedInspectionError& e) {
        return "[error " + std::string(e.Text()) + "]";
    } catch (const std::exception& e) {
        return "[" + std::string(e.what()) + "]";
    } catch (...) {
        return "[unknown]";
    }
}

namespace {

std::string TextOf(const GuardType* type, const void* value) {
    const TypeRegistry& registry = TypeRegistry::Instance();
    if (type == registry.IntegerType()) {
        return std::to_string(static_cast<const number*>(value)->value);
    }
    if (type == registry.BooleanType()) {
        return *static_cast<const boolean*>(value) ? "true" : "false";
    }
    if (type == registry.StringType()) {
        return std::string(static_cast<const inspector_string*>(value)->View());
    }
    if (type->IsA(registry.TypeByName("token"))) {
        return "t" + std::to_string(static_cast<const token*>(value)->value);
    }
    if (type->tuple != nullptr) {
        std::string text = "(";
        const auto* node = static_cast<const TupleNode*>(value);
        for (const TupleDefinition* tuple = type->tuple;; tuple = tuple->restType->tuple) {
            text += TextOf(tuple->firstType, node->first);
            if (tuple->restIsTerminator) {
                return text + ")";
            }
            text += " ";
            node = static_cast<const TupleNode*>(node->rest);
        }
    }
    return type == registry.WorldType() ? "world" : "?";
}

}  // namespace

std::string Answer(GuardEvaluator& evaluator) {
    std::string answer;
    try {
        const GuardType* type = TypeRegistry::Instance().TypeByName(evaluator.ResultTypeName());
        for (const void* value = evaluator.First(); value != nullptr; value = evaluator.Next()) {
            answer += (answer.empty() ? "" : ",") + TextOf(type, value);
        }
        return answer;
    } catch (...) {
        return answer + FailureName();
    }
}

std::string Answer(std::string_view text, InspectorContext* context) {
    GuardEvaluator evaluator(context);
    try {
        evaluator.Feed(text);
        evaluator.EndOfText();
    } catch (...) {
        return "bind" + FailureName();
    }
    const int alive = token::alive;
    const std::string answer = Answer(evaluator);
    EXPECT_EQ(token::alive, alive) << text;
    EXPECT_EQ(Answer(evaluator), answer) << text;
    evaluator.Reset();
    EXPECT_EQ(Script::statesAlive, 0) << text;
    return answer;
}

std::string Compiled(std::string_view text) {
    GuardEvaluator evaluator(nullptr);
    try {
        evaluator.Feed(text);
        evaluator.EndOfText();
        return std::string(evaluator.ResultTypeName()) + (evaluator.IsPlural() ? "s" : "");
    } catch (...) {
        return FailureName();
    }
}

namespace {

boolean True() { return true; }
boolean False() { return false; }
number Zero() { return 0; }
undefined Error(const inspector_string& text) { MakeError(text); }
undefined Nothing() { NoResults(); }
number Broken() { throw TestFailure(); }
number OddlyBroken() { throw 42; }
number NoMemory() { throw std::bad_alloc(); }

// Walks the script.
class script_iterator {
public:
    script_iterator() { ++Script::statesAlive; }
    ~script_iterator() { --Script::statesAlive; }
    number First() {
        at_ = 0;
        return Next();
    }
    number Next() {
        ++Script::calls;
        if (at_ == Script::values.size()) {
            Script::ending();
            NoResults();
        }
        return Script::values[at_++];
    }

private:
    size_t at_ = 0;
};

class token_iterator {
public:
    token_iterator() { ++Script::statesAlive; }
    ~token_iterator() { --Script::statesAlive; }
    token First() {
        at_ = 0;
        return Next();
    }
    token Next() {
        if (at_ == Script::values.size()) {
            Script::ending();
            NoResults();
        }
        return token(Script::values[at_++]);
    }

private:
    size_t at_ = 0;
};

// The numbers from 1 to the object.
class count_iterator {
public:
    number First(const number& last) {
        next_ = 1;
        return Next(last);
    }
    number Next(const number& last) {
        if (next_ > last.value) {
            NoResults();
        }
        return next_++;
    }

private:
    int64_t next_ = 1;
};

// Each number's text, made in evaluation memory.
class text_iterator {
public:
    void Start(Of, const number&) { next_ = 0; }
    boolean Finished(Of, const number& last) { return next_ >= last.value; }
    inspector_string Next(Of, const number&) {
        ++next_;
        char* text = static_cast<char*>(InspectorAllocate(64));
        std::fill_n(text, 64, 'x');
        return {text, 64};
    }

private:
    int64_t next_ = 0;
};

number Doubled(const number& n) { return n.value * 2; }
std::optional<number> Halved(const number& n) {
    return n.value % 2 == 0 ? std::optional<number>(n.value / 2) : std::nullopt;
}
number Positive(const number& n) {
    if (n.value <= 0) {
        NoResults();
    }
    return n;
}
number Failing(const number& n) {
    if (n.value == 13) {
        throw TestFailure();
    }
    return n;
}
number ByIndex(const number& index, Of, const number& object) { return object.value * 10 + index.value; }
number Named(const inspector_string& name, const number& object) {
    return object.value + static_cast<int64_t>(name.length);
}
number Numbered(number index) { return index; }
number NumberedOf(number index, const number& object) { return object.value * 100 + index.value; }
token TokenOf(const number& n) { return token(n.value); }
special_token SpecialOf(const number& n) { return special_token(n.value); }
number ValueOf(const token& t) { return t.value; }
boolean Even(const number& n) { return n.value % 2 == 0; }
token TokenAsToken(const number& n) {
    if (n.value < 0) {
        NoResults();
    }
    return token(n.value);
}
inspector_string NumberText(const number& n) {
    if (n.value < 0) {
        NoResults();
    }
    const std::string digits = std::to_string(n.value);
    char* text = static_cast<char*>(InspectorAllocate(digits.size()));
    digits.copy(text, digits.size());
    return {text, digits.size()};
}
std::optional<number> TokenNumber(const token& t) {
    return t.value < 0 ? std::nullopt : std::optional<number>(t.value);
}

class sum_aggregator {
public:
    sum_aggregator() { ++Script::statesAlive; }
    ~sum_aggregator() { --Script::statesAlive; }
    void Initialize() { sum_ = 0; }
    void Aggregate(Of, const number& n) { sum_ += n.value; }
    number FirstFinal() { return sum_; }

private:
    int64_t sum_ = 0;
};

// Gives the sum and then each number below it down to 1.
class countdown_aggregator : public sum_aggregator {
public:
    void Aggregate(Of, const number& n) {
        left_ += n.value;
        sum_aggregator::Aggregate(Of(), n);
    }
    void Initialize() {
        left_ = 0;
        sum_aggregator::Initialize();
    }
    number FirstFinal() { return NextFinal(); }
    number NextFinal() {
        if (left_ <= 0) {
            NoResults();
        }
        return left_--;
    }

private:
    int64_t left_ = 0;
};

// A property with all six stages, made by hand over plain bytes of state.
struct SixStages : PropertyRegistrationObject {
    struct State {
        int64_t given;
        int64_t seen;
    };
    static bool Give(void* result, State* state, int64_t base, int64_t count) {
        if (state->given == count) {
            state->given = 0;
            return false;
        }
        new (result) number(base + ++state->given);
        return true;
    }
    static bool FirstInitial(void* result, const void* index, const void* object, void* state, const void*) {
        EXPECT_EQ(index, nullptr);
        EXPECT_EQ(object, nullptr);
        new (state) State{0, 0};
        return Give(result, static_cast<State*>(state), 100, 2);
    }
    static bool NextInitial(void* result, const void*, const void*, void* state, const void*) {
        return Give(result, static_cast<State*>(state), 100, 2);
    }
    static bool Middle(void* result, const void* index, const void* object, void* state, const void*) {
        EXPECT_EQ(index, object);
        static_cast<State*>(state)->seen += static_cast<const number*>(object)->value;
        return Give(result, static_cast<State*>(state), 10 * static_cast<const number*>(object)->value, 2);
    }
    static bool NextMiddle(void* result, const void*, const void* object, void* state, const void*) {
        return Give(result, static_cast<State*>(state), 10 * static_cast<const number*>(object)->value, 2);
    }
    static bool Final(void* result, const void* index, const void* object, void* state, const void*) {
        EXPECT_EQ(index, nullptr);
        EXPECT_EQ(object, nullptr);
        return Give(result, static_cast<State*>(state), 1000 * static_cast<State*>(state)->seen, 2);
    }
    SixStages()
        : PropertyRegistrationObject([] {
              PropertyAccessor accessor = adapters::Accessor<number, None, number>("six", "sixes", ByValueOnly);
              accessor.stateSize = sizeof(State);
              accessor.stateAlignment = alignof(State);
              accessor.firstInitial = &FirstInitial;
              accessor.nextInitial = &NextInitial;
              accessor.firstMiddle = &Middle;
              accessor.nextMiddle = &NextMiddle;
              accessor.firstFinal = &Final;
              accessor.nextFinal = &Final;
              accessor.iterated = true;
              return accessor;
          }()) {}
};

constexpr auto kPlus = [](const number& a, const number& b) { return number(a.value + b.value); };
constexpr auto kMinus = [](const number& a, const number& b) { return number(a.value - b.value); };
constexpr auto kDivide = [](const number& a, const number& b) {
    if (b.value == 0) {
        NoResults();
    }
    return number(a.value / b.value);
};
constexpr auto kNegate = [](const number& a) { return number(-a.value); };

// clang-format off
Type<world>                                                      worldType;
Type<undefined>                                                  undefinedType;
Type<boolean>                                                    booleanType;
Type<inspector_string>                                           stringType;
Type<number>                                                     numberType;
Type<token>                                                      tokenType;
Type<special_token>                                              specialType;

GlobalProperty<boolean, True>                                    trueProperty   {"true", "trues"};
GlobalProperty<boolean, False>                                   falseProperty  {"false", "falses"};
GlobalProperty<number, Zero>                                     zero           {"zero", "zeros", ByValueOnly};
NamedGlobalProperty<undefined, Error>                            error          {"error", "errors"};
GlobalProperty<undefined, Nothing>                               nothing        {"nothing", "nothings"};
GlobalProperty<number, Broken>                                   broken         {"broken", "brokens"};
GlobalProperty<number, OddlyBroken>                              oddlyBroken    {"oddly broken", "oddly brokens"};
GlobalProperty<number, NoMemory>                                 noMemory       {"no memory", "no memories"};
IteratedGlobalProperty<script_iterator, number>                  steps          {"step", "steps", ByValueOnly};
IteratedGlobalProperty<token_iterator, token>                    tokens         {"scripted token", "scripted tokens", ByValueOnly};
IteratedProperty<count_iterator, number, number>                 counts         {"count", "counts"};
IteratedPropertyOfObject<text_iterator, inspector_string, number, &text_iterator::Next, &text_iterator::Next,
                         &text_iterator::Start, &text_iterator::Finished>
                                                                 texts          {"text", "texts"};
Property<number, number, Doubled>                                doubled        {"double", "doubles"};
Property<number, number, Halved>                                 halved         {"half", "halves"};
Property<number, number, Positive>                               positive       {"positive", "positives"};
Property<number, number, Failing>                                failing        {"failing", "failings"};
PropertyByIndexOfObject<number, number, number, ByIndex>         byIndex        {"place", "places"};
NamedProperty<number, number, Named>                             named          {"named", "nameds"};
NumberedGlobalProperty<number, Numbered, number>                 numbered       {"numbered", "numbereds"};
NumberedProperty<number, number, NumberedOf, number>             numberedOf     {"numbered", "numbereds"};
Property<number, token, TokenOf>                                 tokenOf        {"token", "tokens"};
Property<number, special_token, SpecialOf>                       specialOf      {"special", "specials"};
Property<token, number, ValueOf>                                 valueOf        {"value", "values"};
Property<number, boolean, Even>                                  even           {"even", "evens"};
AggregatingProperty<sum_aggregator, number, number>              sum            {"sum", "sums"};
AggregatingProperty<countdown_aggregator, number, number>        countdown      {"countdown", "countdowns"};
SixStages                                                        six;

Cast<token, number, TokenAsToken>                                toToken        {"token"};
Cast<inspector_string, number, NumberText>                       toString       {"string"};
Cast<number, token, TokenNumber>                                 toNumber       {"integer"};
Cast<number, number, Failing>                                    toFailing      {"failing"};

OperatorPlus<number, number, number, kPlus>                      plus;
BinaryOperatorMinus<number, number, number, kMinus>              minus;
OperatorDivide<number, number, number, kDivide>                  divide;
RelationEqual<number>                                            equal;
RelationLess<number>                                             less;
RelationLessOrEqual<number>                                      lessOrEqual;
UnaryOperatorMinus<number, number, kNegate>                      negate;
// clang-format on

TEST(TestVocabulary, AnswersAndCompiles) {
    EXPECT_EQ(Answer("1 + 2"), "3");
    EXPECT_EQ(Answer("1;2;3"), "1,2,3");
    EXPECT_EQ(Compiled("counts of 3"), "integers");
    EXPECT_EQ(Compiled("nonsense of 3"), "[OperationNotDefined nonsense]");
    EXPECT_EQ(Answer("broken"), "[TestFailure]");
    Script::Set({1, 2}, [] { throw TestFailure(); });
    EXPECT_EQ(Answer("steps"), "1,2[TestFailure]");
}

}  // namespace
