// (E) of (F): all values of E for each value of F, `it` in E meaning the value of F.
//
// The same node stands for the index of a phrase that has both an index and an object, as in `first 2 of "abc"`: E is
// then the index and F the object, and the phrase reads both current values.
#ifndef EVALUATOR_COMPUTED_PROPERTY_EXPRESSION_H
#define EVALUATOR_COMPUTED_PROPERTY_EXPRESSION_H

#include "evaluator/stepped_expression.h"

class ComputedPropertyExpression final : public Expression {
public:
    ComputedPropertyExpression(Expression* computed, Expression* source, bool isIndexOfProperty)
        : Expression(computed, source), source_(source), computed_(computed), isIndexOfProperty_(isIndexOfProperty) {}

    EvaluationStatus TryFirst() override;
    EvaluationStatus TryNext() override;
    EvaluationStatus TryStop() override;
    EvaluationStatus TryFirstFingerprinted(Fingerprinter& fingerprinter, EvaluationPath& path) override;
    EvaluationStatus TryNextFingerprinted(Fingerprinter& fingerprinter, EvaluationPath& path) override;
    EvaluationStatus TryStopFingerprinted(Fingerprinter& fingerprinter, EvaluationPath& path) override;
    void AddDependencies(Fingerprinter& fingerprinter) override;
    EvaluationStatus AddFingerprint(Fingerprinter& fingerprinter, EvaluationPath& path) override;
    void Bind(Expression* it, StackAllocatorBase& allocator) override;

private:
    template <class S, class C>
    EvaluationStatus First(const S& sourceSteps, const C& computedSteps);
    template <class S, class C>
    EvaluationStatus Next(const S& sourceSteps, const C& computedSteps);
    template <class S, class C>
    EvaluationStatus Stop(const S& sourceSteps, const C& computedSteps);
    template <class S, class C>
    EvaluationStatus FirstComputed(const S& sourceSteps, const C& computedSteps, TentativeValue& source);

    EvaluationStatus FirstSettled(EvaluationStatus status, TentativeValue& source);

    // Calls `run` with the steps that each side takes while a fingerprint is gathered.
    template <class Run>
    EvaluationStatus WithFingerprintedSteps(Fingerprinter& fingerprinter, EvaluationPath& path, Run run);

    EvaluationStatus ReplayPlainly(Fingerprinter& fingerprinter, EvaluationPath& path);
    EvaluationStatus ReplayWithSource(Fingerprinter& fingerprinter, EvaluationPath& path);

    Expression* source_;
    Expression* computed_;
    SettledOperand settledComputed_;
    bool computedIsSettled_ = false;  // One value for each of the source's, and nothing to stop.
    bool isIndexOfProperty_;
    bool computedIsFixed_ = false;  // The computed side is a pure function of the source's values.
};

#endif
