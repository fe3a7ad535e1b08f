// Asks the language one question and keeps all that it answers.
#ifndef TESTS_INSPECTORS_ASK_H
#define TESTS_INSPECTORS_ASK_H

#include <cxxabi.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <ostream>
#include <string>
#include <string_view>
#include <typeinfo>
#include <vector>

#include "evaluator/guard_evaluator.h"
#include "foundation/debuggable_exception.h"

// The values as text, and the class of the exception that ended them; empty where none did.
struct Answer {
    std::vector<std::string> values;
    std::string failure = {};
    std::string text = {};  // what the exception says

    friend bool operator==(const Answer& a, const Answer& b) { return a.values == b.values && a.failure == b.failure; }
    friend std::ostream& operator<<(std::ostream& out, const Answer& answer) {
        for (const std::string& value : answer.values) {
            out << "A: " << value << "\n";
        }
        return out << (answer.failure.empty() ? "" : "E: ") << answer.failure;
    }
};

inline std::string ClassOf(const std::exception& failure) {
    int status = 0;
    char* name = abi::__cxa_demangle(typeid(failure).name(), nullptr, nullptr, &status);
    const std::string text = name;
    std::free(name);
    return text;
}

inline Answer Ask(std::string_view question, InspectorContext* context = nullptr) {
    Answer answer;
    GuardEvaluator evaluator(context);
    try {
        evaluator.Feed("(");
        evaluator.Feed(question);
        evaluator.Feed(")");
        evaluator.EndOfText();
        evaluator.ConvertTo("string", "string");
        for (const void* value = evaluator.First(); value != nullptr; value = evaluator.Next()) {
            answer.values.emplace_back(static_cast<const inspector_string*>(value)->View());
        }
    } catch (const std::exception& failure) {
        answer.failure = ClassOf(failure);
        answer.text = failure.what();
    }
    return answer;
}

inline Answer Values(std::vector<std::string> values) { return {std::move(values)}; }
inline Answer Fails(std::string failure) { return {{}, std::move(failure)}; }
inline Answer DoesNotExist() { return Fails("ArgumentDoesNotExist"); }
inline Answer Nothing() { return {}; }

#endif
