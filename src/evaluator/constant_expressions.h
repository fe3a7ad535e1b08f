// The leaves of the tree: literals, the world, and `it`.
//
// A constant cannot change, so it adds nothing to a fingerprint.
#ifndef EVALUATOR_CONSTANT_EXPRESSIONS_H
#define EVALUATOR_CONSTANT_EXPRESSIONS_H

#include "evaluator/expression.h"
#include "registry/core_values.h"

class ConstantExpression : public Expression {
public:
    EvaluationStatus TryNext() final {
        slot_.value = nullptr;
        return StatusOk;
    }
    EvaluationStatus TryStop() final {
        slot_.value = nullptr;
        return StatusOk;
    }
    EvaluationStatus TryFirstFingerprinted(Fingerprinter&, EvaluationPath&) final { return TryFirst(); }
    EvaluationStatus TryNextFingerprinted(Fingerprinter&, EvaluationPath&) final { return TryNext(); }
    EvaluationStatus TryStopFingerprinted(Fingerprinter&, EvaluationPath&) final { return TryStop(); }
    void AddDependencies(Fingerprinter&) final {}
    EvaluationStatus AddFingerprint(Fingerprinter&, EvaluationPath&) final { return StatusOk; }

protected:
    ConstantExpression() {
        settled_ = true;
        byParts_ = true;
        completeDependencies_ = true;
    }
};

class IntegerExpression final : public ConstantExpression {
public:
    explicit IntegerExpression(int64_t value) : value_(value) {}
    EvaluationStatus TryFirst() override {
        slot_.value = &value_;
        return StatusOk;
    }
    void Bind(Expression* it, StackAllocatorBase& allocator) override;
    const int64_t* IntegerLiteral() const override { return &value_; }
    void* const* DirectValue() override { return &place_; }

private:
    int64_t value_;
    void* place_ = &value_;
};

// An integer literal of 2^63 or more: it compiles and has no value.
class NoIntegerExpression final : public ConstantExpression {
public:
    EvaluationStatus TryFirst() override {
        slot_.value = nullptr;
        return StatusOk;
    }
    void Bind(Expression* it, StackAllocatorBase& allocator) override;
};

class StringExpression final : public ConstantExpression {
public:
    // The bytes must live as long as the node.
    explicit StringExpression(inspector_string value) : value_(value) {}
    EvaluationStatus TryFirst() override {
        slot_.value = &value_;
        return StatusOk;
    }
    void Bind(Expression* it, StackAllocatorBase& allocator) override;

    void* const* DirectValue() override { return &place_; }

private:
    inspector_string value_;
    void* place_ = &value_;
};

class WorldExpression final : public ConstantExpression {
public:
    static world theWorld;

    EvaluationStatus TryFirst() override {
        slot_.value = &theWorld;
        return StatusOk;
    }
    // The world is transparent to an enclosing `it`.
    Expression* ItSource() override { return it_; }
    void Bind(Expression* it, StackAllocatorBase& allocator) override;
    void* const* DirectValue() override { return &place_; }

private:
    Expression* it_ = nullptr;
    void* place_ = &theWorld;
};

// The current value of the nearest enclosing source, which is parked on it while anything bound inside it runs: always
// singular, also where the source is plural.
class ItExpression final : public ConstantExpression {
public:
    EvaluationStatus TryFirst() override {
        slot_.value = source_->Value();
        return StatusOk;
    }
    void Bind(Expression* it, StackAllocatorBase& allocator) override;

    void* const* DirectValue() override { return source_->ValuePlace(); }

private:
    Expression* source_ = nullptr;
};

#endif
