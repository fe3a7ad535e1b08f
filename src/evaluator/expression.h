// The nodes of a compiled expression: what they share, and the holder through which one node works with another.
//
// Evaluation is pulled and lazy.  A node is stopped, or parked on a value.  TryFirst is called on a stopped node;
// TryNext only after a Try that left a value; TryStop only while a value is held.  A status other than StatusOk leaves
// the node stopped.  A value is valid until the next Try on its node; a consumer that needs it longer copies it.
//
// Nodes lie in the memory of the GuardEvaluator that they were made for and are never freed one by one.
#ifndef EVALUATOR_EXPRESSION_H
#define EVALUATOR_EXPRESSION_H

#include <cstddef>
#include <cstdint>

#include "evaluator/evaluation_path.h"
#include "foundation/stack_allocator.h"
#include "registry/records.h"

enum EvaluationStatus : int {
    StatusOk = 0,            // The value is the value, or null for no more values.
    StatusDoesNotExist = 1,  // A singular child had no value.
    StatusNotUnique = 2,     // A singular child had a second value.
    StatusNotConverted = 3   // An implicit conversion could not convert.
};

// A node's current value and the memory for it.
struct ValueSlot {
    void (*destroy)(void*) = nullptr;
    void* storage = nullptr;
    void* value = nullptr;

    // Reserves storage for values of the type.  Throws std::bad_alloc.
    void Reserve(const GuardType* type, StackAllocatorBase& allocator) {
        storage = allocator.Allocate(type->storageSize, type->storageAlignment);
        destroy = type->destroy;
    }

    // Forgets the value first and then destroys it, so that a destructor that throws leaves no dead value behind.
    void Clear() noexcept {
        void* old = value;
        value = nullptr;
        if (destroy != nullptr && old != nullptr) {
            Destroy(old);
        }
    }

private:
    void Destroy(void* old) noexcept;
};

class Expression {
public:
    Expression(const Expression&) = delete;
    Expression& operator=(const Expression&) = delete;
    virtual ~Expression() { slot_.Clear(); }

    virtual EvaluationStatus TryFirst() = 0;
    virtual EvaluationStatus TryNext() = 0;
    virtual EvaluationStatus TryStop() = 0;

    // The same three while a fingerprint is gathered.  By default the node's own values go into it.
    virtual EvaluationStatus TryFirstFingerprinted(Fingerprinter& fingerprinter, EvaluationPath& path);
    virtual EvaluationStatus TryNextFingerprinted(Fingerprinter& fingerprinter, EvaluationPath& path);
    virtual EvaluationStatus TryStopFingerprinted(Fingerprinter& fingerprinter, EvaluationPath& path);

    // What `it` means inside whatever is bound to the left of this node.
    virtual Expression* ItSource() { return this; }

    // Calls the dependency functions of every property, cast and operator of the subtree.
    virtual void AddDependencies(Fingerprinter& fingerprinter) = 0;

    // Adds what an evaluation along the recorded path would add, without running what need not run.
    virtual EvaluationStatus AddFingerprint(Fingerprinter& fingerprinter, EvaluationPath& path);

    // Binds the children, resolves names, checks types and reserves storage.  Throws the failures of binding.
    virtual void Bind(Expression* it, StackAllocatorBase& allocator) = 0;

    // Where a leaf's value is to be read without a Try: a place that holds the value's address whenever the leaf may be
    // evaluated.  Null for a node that has to be asked.
    virtual void* const* DirectValue() { return nullptr; }

    // The index that this node writes, where it is an integer literal.
    virtual const int64_t* IntegerLiteral() const { return nullptr; }

    void* Value() const { return slot_.value; }
    void* const* ValuePlace() const { return &slot_.value; }
    const GuardType* Type() const { return type_; }
    bool IsPlural() const { return plural_; }
    void ForcePlural() { plural_ = true; }

    // Every property, cast and operator below has a dependency function.  Known once bound.
    bool HasCompleteDependencies() const { return completeDependencies_; }

    // The node can contribute to a fingerprint, by its parts or by its value.  Known once bound.
    bool CanFingerprint() const { return byParts_ || type_->fingerprint != nullptr; }

    // The node gives one value at most, and none only where that is a missing value to its holder; stopping it has no
    // effect beyond forgetting the value: it and all below it are constants, `it`, or operators on such.  Its holder
    // may forget it without a call.
    bool IsSettled() const { return settled_; }
    void Forget() { slot_.value = nullptr; }

    // The number of nodes on the longest way down; what the machine stack has to hold.
    size_t Depth() const { return depth_; }

protected:
    Expression() = default;
    explicit Expression(const Expression* child) : depth_(child->depth_ + 1) {}
    Expression(const Expression* a, const Expression* b) : depth_((a->depth_ > b->depth_ ? a : b)->depth_ + 1) {}

    // Gives the value's own fingerprint; there must be a value and the type must have the function.
    void FingerprintValue(Fingerprinter& fingerprinter) const;

    ValueSlot slot_;
    const GuardType* type_ = nullptr;
    size_t depth_ = 1;
    bool plural_ = false;
    bool settled_ = false;
    bool byParts_ = false;  // The parts speak for the node in a fingerprint.
    bool completeDependencies_ = false;
};

// A hold on one child during a Try, on the machine stack.  Unless it is released, its end stops the child, so that
// after any Try a child is either parked on a value that its parent still needs or has no value at all.
class TentativeValue {
public:
    explicit TentativeValue(Expression* child) : expression(child), singular(!child->IsPlural()) {}
    TentativeValue(const TentativeValue&) = delete;
    TentativeValue& operator=(const TentativeValue&) = delete;
    ~TentativeValue() {
        if (expression != nullptr) {
            Abandon();
        }
    }

    void Release() { expression = nullptr; }

    EvaluationStatus TryFirst() { return First(expression->TryFirst()); }
    EvaluationStatus TryNext() { return Next(expression->TryNext()); }

    // Shows that a singular child has no second value; stops a plural one.
    EvaluationStatus TryFinish() {
        if (expression->IsSettled()) {
            expression->Forget();
            return StatusOk;
        }
        return singular ? TryNext() : expression->TryStop();
    }

    EvaluationStatus TryFirstFingerprinted(Fingerprinter& f, EvaluationPath& p) {
        return First(expression->TryFirstFingerprinted(f, p));
    }
    EvaluationStatus TryNextFingerprinted(Fingerprinter& f, EvaluationPath& p) {
        return Next(expression->TryNextFingerprinted(f, p));
    }
    EvaluationStatus TryFinishFingerprinted(Fingerprinter& f, EvaluationPath& p) {
        return singular ? TryNextFingerprinted(f, p) : expression->TryStopFingerprinted(f, p);
    }

    // Stops the child if it has a value; whatever it throws is lost, for the first failure is the one to report.
    void Abandon() noexcept;

    Expression* expression;
    bool singular;

private:
    EvaluationStatus First(EvaluationStatus status) const {
        return status == StatusOk && singular && expression->Value() == nullptr ? StatusDoesNotExist : status;
    }
    EvaluationStatus Next(EvaluationStatus status) const {
        return status == StatusOk && singular && expression->Value() != nullptr ? StatusNotUnique : status;
    }
};

// A settled operand of an operator: a leaf is read where it stands, anything else is asked for its one value, which
// needs no holding.
class SettledOperand {
public:
    void Bind(Expression* operand) {
        operand_ = operand;
        direct_ = operand->DirectValue();
    }

    // Gives the operand's value.
    EvaluationStatus Take(const void*& value) const {
        if (direct_ != nullptr) {
            value = *direct_;
            return StatusOk;
        }
        const EvaluationStatus status = operand_->TryFirst();
        value = operand_->Value();
        return status == StatusOk && value == nullptr ? StatusDoesNotExist : status;
    }

private:
    Expression* operand_ = nullptr;
    void* const* direct_ = nullptr;
};

// The common type of two: `undefined` gives way to any other; otherwise the first type on A's chain that B is or
// derives from.  Throws IncompatibleTypes.
const GuardType* CommonType(const GuardType* a, const GuardType* b);

#endif
