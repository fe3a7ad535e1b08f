// A phrase: a property called for each value of its driver, which is the index where there is one, else the object.
//
// The node runs through the stages of the property's accessor: initial values that need no driver, for each driver
// value a first and then further ones, final values once the driver is exhausted.  A property that has no value for a
// driver value does not contribute, and the driver goes on.
#ifndef EVALUATOR_PROPERTY_EXPRESSION_H
#define EVALUATOR_PROPERTY_EXPRESSION_H

#include <string_view>

#include "evaluator/stepped_expression.h"

class PropertyExpression final : public SteppedExpression<PropertyExpression> {
public:
    // The phrase's bytes must live as long as the node.  One of index and object may be null; where both are given, the
    // index is a ComputedPropertyExpression over the object.
    PropertyExpression(std::string_view phrase, Expression* index, Expression* object);
    ~PropertyExpression() override;

    void AddDependencies(Fingerprinter& fingerprinter) override;
    void Bind(Expression* it, StackAllocatorBase& allocator) override;

private:
    friend class SteppedExpression<PropertyExpression>;

    // The stage that the next step runs.
    enum class Stage : unsigned char {
        None,
        FirstInitial,
        NextInitial,
        FirstMiddle,
        NextMiddle,
        FirstFinal,
        NextFinal
    };

    Expression* Driver() const { return index_ != nullptr ? index_ : object_; }
    void LookUp(const GuardType* indexType, const GuardType* objectType);
    void ConstructState(StackAllocatorBase& allocator);

    template <class Steps>
    EvaluationStatus First(const Steps& steps);
    template <class Steps>
    EvaluationStatus Next(const Steps& steps);
    template <class Steps>
    EvaluationStatus Stop(const Steps& steps);
    EvaluationStatus Replay(Fingerprinter& fingerprinter, EvaluationPath& path);
    template <class Steps>
    EvaluationStatus RunStages(const Steps& steps, TentativeValue& driver);

    EvaluationStatus TryFirstInitial(bool& found);
    EvaluationStatus TryNextInitial(bool& found);
    template <class Steps>
    EvaluationStatus TryFirstMiddle(const Steps& steps, bool& found, TentativeValue& driver);
    template <class Steps>
    EvaluationStatus TryNextMiddle(const Steps& steps, bool& found, TentativeValue& driver);
    template <class Steps>
    EvaluationStatus MiddleFrom(const Steps& steps, bool& found, TentativeValue& driver);
    EvaluationStatus TryFirstFinal(bool& found);
    EvaluationStatus TryNextFinal(bool& found);

    // Calls a stage with the driver's current values or, in the outer stages, with none; true where it made a value.
    EvaluationStatus NextIterated();
    bool Call(StageFunction stage);
    bool CallAtMark(StageFunction stage);
    bool CallOuter(StageFunction stage);
    void CheckBeforeDelivery();

    std::string_view phrase_;
    Expression* index_;
    Expression* object_;
    void* const* indexArgument_ = nullptr;   // Where the arguments' current values are told; the one stands for the
    void* const* objectArgument_ = nullptr;  // other where one is absent.
    const PropertyAccessor* accessor_ = nullptr;
    void* state_ = nullptr;
    StackAllocatorBase* memory_ = nullptr;
    char* mark_ = nullptr;  // The memory as it stood before the current value was made.
    Stage stage_ = Stage::None;
};

extern template class SteppedExpression<PropertyExpression>;

#endif
