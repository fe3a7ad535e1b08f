// The base of every node with children: what a node does is written once, over the steps that it is given, and serves
// both plain evaluation and evaluation while a fingerprint is gathered.
//
// Node, which derives from SteppedExpression<Node>, has
//
//     template <class Steps> EvaluationStatus First(const Steps& steps);   // and Next and Stop
//     EvaluationStatus Replay(Fingerprinter& fingerprinter, EvaluationPath& path);
//
// in its private part, with SteppedExpression<Node> as its friend.  The fingerprinted forms and Replay are called only
// where the node's parts speak for it; otherwise its own values do.  A node's unit ends in the explicit instantiation
// of its base, and its header in the declaration of that.
#ifndef EVALUATOR_STEPPED_EXPRESSION_H
#define EVALUATOR_STEPPED_EXPRESSION_H

#include "evaluator/expression.h"

// How a node takes its steps plainly.
struct PlainSteps {
    static constexpr bool kFingerprinting = false;
    static EvaluationStatus First(TentativeValue& child) { return child.TryFirst(); }
    static EvaluationStatus Next(TentativeValue& child) { return child.TryNext(); }
    static EvaluationStatus Finish(TentativeValue& child) { return child.TryFinish(); }
    static EvaluationStatus Finish(Expression* child) {
        TentativeValue hold(child);
        return hold.TryFinish();
    }
    static void AddByte(unsigned char) {}
    static void AddDependencies(DependencyFunction) {}
    static void AddDependenciesOf(Expression*) {}
    static void Decide(bool) {}
};

// How it takes them while a fingerprint is gathered.
struct FingerprintedSteps {
    static constexpr bool kFingerprinting = true;
    Fingerprinter& fingerprinter;
    EvaluationPath& path;

    EvaluationStatus First(TentativeValue& child) const { return child.TryFirstFingerprinted(fingerprinter, path); }
    EvaluationStatus Next(TentativeValue& child) const { return child.TryNextFingerprinted(fingerprinter, path); }
    EvaluationStatus Finish(TentativeValue& child) const { return child.TryFinishFingerprinted(fingerprinter, path); }
    EvaluationStatus Finish(Expression* child) const {
        TentativeValue hold(child);
        return hold.TryFinishFingerprinted(fingerprinter, path);
    }
    void AddByte(unsigned char byte) const { fingerprinter.AddByte(byte); }
    void AddDependencies(DependencyFunction dependencies) const { dependencies(fingerprinter); }
    void AddDependenciesOf(Expression* node) const { node->AddDependencies(fingerprinter); }
    void Decide(bool bit) const { path.Write(bit); }
};

template <class Node>
class SteppedExpression : public Expression {
public:
    EvaluationStatus TryFirst() final;
    EvaluationStatus TryNext() final;
    EvaluationStatus TryStop() final;
    EvaluationStatus TryFirstFingerprinted(Fingerprinter& fingerprinter, EvaluationPath& path) final;
    EvaluationStatus TryNextFingerprinted(Fingerprinter& fingerprinter, EvaluationPath& path) final;
    EvaluationStatus TryStopFingerprinted(Fingerprinter& fingerprinter, EvaluationPath& path) final;
    EvaluationStatus AddFingerprint(Fingerprinter& fingerprinter, EvaluationPath& path) final;

protected:
    using Expression::Expression;

private:
    Node& Self() { return static_cast<Node&>(*this); }
};

template <class Node>
EvaluationStatus SteppedExpression<Node>::TryFirst() {
    return Self().First(PlainSteps());
}

template <class Node>
EvaluationStatus SteppedExpression<Node>::TryNext() {
    return Self().Next(PlainSteps());
}

template <class Node>
EvaluationStatus SteppedExpression<Node>::TryStop() {
    return Self().Stop(PlainSteps());
}

template <class Node>
EvaluationStatus SteppedExpression<Node>::TryFirstFingerprinted(Fingerprinter& fingerprinter, EvaluationPath& path) {
    return byParts_ ? Self().First(FingerprintedSteps{fingerprinter, path})
                    : Expression::TryFirstFingerprinted(fingerprinter, path);
}

template <class Node>
EvaluationStatus SteppedExpression<Node>::TryNextFingerprinted(Fingerprinter& fingerprinter, EvaluationPath& path) {
    return byParts_ ? Self().Next(FingerprintedSteps{fingerprinter, path})
                    : Expression::TryNextFingerprinted(fingerprinter, path);
}

template <class Node>
EvaluationStatus SteppedExpression<Node>::TryStopFingerprinted(Fingerprinter& fingerprinter, EvaluationPath& path) {
    return byParts_ ? Self().Stop(FingerprintedSteps{fingerprinter, path}) : TryStop();
}

template <class Node>
EvaluationStatus SteppedExpression<Node>::AddFingerprint(Fingerprinter& fingerprinter, EvaluationPath& path) {
    return byParts_ ? Self().Replay(fingerprinter, path) : Expression::AddFingerprint(fingerprinter, path);
}

#endif
