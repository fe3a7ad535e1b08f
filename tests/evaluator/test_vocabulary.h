// A small vocabulary for tests of the evaluator, and the handles by which a test drives it.
//
// Values are counted, so that a test can assert that nothing leaks; the scripted properties give what the test has
// written down for them.
#ifndef TESTS_EVALUATOR_TEST_VOCABULARY_H
#define TESTS_EVALUATOR_TEST_VOCABULARY_H

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "evaluator/adapters.h"
#include "evaluator/guard_evaluator.h"

// What literals are.
struct number {
    number(int64_t n = 0) : value(n) {}  // NOLINT: a number is a number.
    int64_t value;
    friend bool operator==(const number&, const number&) = default;
    friend auto operator<=>(const number&, const number&) = default;
};
template <>
struct InspectorTypeInfo<number> : InspectorTypeBasics<number> {
    static constexpr char Name[] = "integer";
    static constexpr unsigned Size = 8;
};

// A value that has a destructor, and no fingerprint of its own.
struct token {
    static int alive;
    explicit token(int64_t n) : value(n) { ++alive; }
    token(const token& other) : value(other.value) { ++alive; }
    token& operator=(const token&) = default;
    ~token() { --alive; }
    int64_t value;
};
template <>
struct InspectorTypeInfo<token> : InspectorTypeBasics<token, 0> {
    static constexpr char Name[] = "token";
    static constexpr unsigned Size = 8;
};

// A token that passes for one.
struct special_token : token {
    using token::token;
};
template <>
struct InspectorTypeInfo<special_token> : InspectorTypeBasics<special_token, 0> {
    static constexpr char Name[] = "special token";
    static constexpr unsigned Size = 8;
    static constexpr const char* Parent = "token";
};

struct TestFailure : DebuggableException {
    TestFailure() noexcept : DebuggableException("TestFailure") {}
};

// The state of "steps": a script that a test writes.  Each value is one step; behind the last, `ending` runs, which
// throws what the test wants, or returns for a plain end.
struct Script {
    static std::vector<int64_t> values;
    static std::function<void()> ending;
    static int statesAlive;
    static int calls;
    static void Set(
        std::vector<int64_t> v, std::function<void()> e = [] {}) {
        values = std::move(v);
        ending = std::move(e);
        calls = 0;
    }
};

// A context that counts checks and interrupts at one of them.
class InterruptingContext : public InspectorContext, public InspectorInterrupter {
public:
    bool ShouldContinue() override { return ++checks != interruptAt; }
    void Interrupted() override { throw InspectorInterruption(); }
    int checks = 0;
    int interruptAt = -1;
};

// How the answer to one expression reads: its values by commas, then what ended it in brackets, unless that was its
// plain end.
std::string Answer(GuardEvaluator& evaluator);
std::string Answer(std::string_view text, InspectorContext* context = nullptr);

// What compiling ends in: the type's name, with "s" for a plural, or the failure's name in brackets.
std::string Compiled(std::string_view text);

// The name of the exception in flight.
std::string FailureName();

#endif
