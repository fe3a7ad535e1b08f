// The codes of the relevance language's binary operators, and the flags that go with them.
//
// The parser hands both on without looking at them; the evaluator finds the operator's definition by the code.
#ifndef LANGUAGE_GUARD_OPERATOR_H
#define LANGUAGE_GUARD_OPERATOR_H

enum GuardOperatorCode : int {
    PlusOperator = 0,
    MinusOperator = 1,
    TimesOperator = 2,
    DivideOperator = 3,
    ModOperator = 4,
    ConcatenateOperator = 5,
    EqualOperator = 6,
    LessOperator = 7,
    LessOrEqualOperator = 8,
    StartsWithOperator = 9,
    EndsWithOperator = 10,
    ContainsOperator = 11,
};

// The language has "less" alone; "greater" is "less" with its operands exchanged, and every "not" form is the plain
// form with its result negated.
enum GuardOperatorFlags : unsigned {
    NoOperatorFlags = 0,
    ExchangesOperands = 1,
    NegatesResult = 256,
    ExchangesAndNegates = ExchangesOperands | NegatesResult,
};

#endif
