// A node that does what a test has written down for it, and that holds whoever uses it to the rules of evaluation.
#ifndef TESTS_EVALUATOR_SCRIPTED_EXPRESSION_H
#define TESTS_EVALUATOR_SCRIPTED_EXPRESSION_H

#include <cstdint>
#include <vector>

#include "evaluator/expression.h"
#include "registry/type_registry.h"
#include "tests/evaluator/test_vocabulary.h"

struct ScriptedStep {
    enum Kind { Value, End, Status, Throw } kind;
    int64_t value = 0;
};

class ScriptedExpression final : public Expression {
public:
    // What comes behind the last step is the end of values.
    ScriptedExpression(std::vector<ScriptedStep> steps, bool isPlural, const char* type = "integer")
        : steps_(std::move(steps)), typeName_(type) {
        plural_ = isPlural;
    }

    EvaluationStatus TryFirst() override {
        Require(!Parked());
        ++starts;
        at_ = 0;
        return Step();
    }
    EvaluationStatus TryNext() override {
        Require(Parked());
        return Step();
    }
    EvaluationStatus TryStop() override {
        Require(Parked());
        ++stops;
        slot_.value = nullptr;
        return stopStatus;
    }
    void AddDependencies(Fingerprinter&) override {}
    void Bind(Expression*, StackAllocatorBase&) override {
        type_ = TypeRegistry::Instance().TypeByName(typeName_);
        completeDependencies_ = true;
    }

    bool Parked() const { return slot_.value != nullptr; }

    int starts = 0;
    int stops = 0;
    int violations = 0;  // Calls that the rules forbid.
    EvaluationStatus stopStatus = StatusOk;

private:
    void Require(bool holds) { violations += holds ? 0 : 1; }

    EvaluationStatus Step() {
        slot_.value = nullptr;
        const ScriptedStep step = at_ < steps_.size() ? steps_[at_++] : ScriptedStep{ScriptedStep::End};
        switch (step.kind) {
            case ScriptedStep::Value:
                value_ = step.value;
                truth_ = step.value != 0;
                slot_.value = type_ == TypeRegistry::Instance().BooleanType() ? static_cast<void*>(&truth_) : &value_;
                return StatusOk;
            case ScriptedStep::End:
                return StatusOk;
            case ScriptedStep::Status:
                return static_cast<EvaluationStatus>(step.value);
            case ScriptedStep::Throw:
                throw TestFailure();
        }
        return StatusOk;
    }

    std::vector<ScriptedStep> steps_;
    const char* typeName_;
    size_t at_ = 0;
    number value_;
    boolean truth_ = false;
};

#endif
