// The registrations of a type that steps: "+" with a step in either operand order, and "-" of the same step.
#ifndef VALUES_STEPPING_H
#define VALUES_STEPPING_H

#include "evaluator/adapters.h"

namespace stepping {

inline constexpr auto kStepPlus = [](const auto& step, const auto& value) { return value + step; };

}  // namespace stepping

template <class T, class Step>
struct SteppingRegistration {
    OperatorPlus<T, Step, T> plus;
    OperatorPlus<Step, T, T, stepping::kStepPlus> stepPlus;
    BinaryOperatorMinus<T, Step, T> minus;
};

#endif
