// What a keyword or an operator sign of the relevance language does when it is met.
//
// Every row of the keyword table and of the operator table is bound to one static action object.  It names the token
// that the parser shifts, and tells the semantics what the token carries, if anything.
#ifndef LANGUAGE_GUARD_PARSING_ACTION_H
#define LANGUAGE_GUARD_PARSING_ACTION_H

#include "language/guard_operator.h"
#include "language/guard_rpn_semantics.h"
#include "language/guard_symbol.h"

// A token that carries nothing.
class GuardParsingAction {
public:
    constexpr explicit GuardParsingAction(GuardSymbol symbol) : token(symbol) {}
    constexpr virtual ~GuardParsingAction() = default;
    virtual void Apply(GuardRPNSemantics&) const {}

    const GuardSymbol token;
};

// A token that stands for one of several operators of the same precedence.
class GuardOperatorAction final : public GuardParsingAction {
public:
    constexpr GuardOperatorAction(GuardSymbol symbol, GuardOperatorCode code, GuardOperatorFlags flagBits)
        : GuardParsingAction(symbol), operatorCode(code), flags(flagBits) {}
    constexpr ~GuardOperatorAction() override {}  // g++ 12 knows a defaulted one too late for constants
    void Apply(GuardRPNSemantics& semantics) const override { semantics.Operator(operatorCode, flags); }

    const GuardOperatorCode operatorCode;
    const GuardOperatorFlags flags;
};

// The keyword "it".
class GuardItAction final : public GuardParsingAction {
public:
    constexpr explicit GuardItAction(GuardSymbol symbol) : GuardParsingAction(symbol) {}
    constexpr ~GuardItAction() override {}  // g++ 12 knows a defaulted one too late for constants
    void Apply(GuardRPNSemantics& semantics) const override { semantics.It(); }
};

#endif
