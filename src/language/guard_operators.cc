#include "language/guard_operators.h"

namespace {

template <GuardSymbol token>
constexpr GuardParsingAction plain{token};

template <GuardSymbol token, GuardOperatorCode code, GuardOperatorFlags flags = NoOperatorFlags>
constexpr GuardOperatorAction binary{token, code, flags};

// The minus sign carries no operator: whether it negates or subtracts is known to the grammar alone.
// clang-format off
constexpr ReservedWord<const GuardParsingAction*> operators[] = {
    {"!=", &binary<RelationalSymbol, EqualOperator, NegatesResult>},
    {"&",  &binary<MultiplicativeSymbol, ConcatenateOperator>},
    {"(",  &plain<OpenSymbol>},
    {")",  &plain<CloseSymbol>},
    {"*",  &binary<MultiplicativeSymbol, TimesOperator>},
    {"+",  &binary<AdditiveSymbol, PlusOperator>},
    {",",  &plain<CommaSymbol>},
    {"-",  &plain<MinusSymbol>},
    {"/",  &binary<MultiplicativeSymbol, DivideOperator>},
    {";",  &plain<SemicolonSymbol>},
    {"<",  &binary<RelationalSymbol, LessOperator>},
    {"<=", &binary<RelationalSymbol, LessOrEqualOperator>},
    {"=",  &binary<RelationalSymbol, EqualOperator>},
    {">",  &binary<RelationalSymbol, LessOperator, ExchangesOperands>},
    {">=", &binary<RelationalSymbol, LessOrEqualOperator, ExchangesOperands>},
    {"|",  &plain<BarSymbol>},
};
// clang-format on

static_assert(IsSorted(operators));

}  // namespace

GuardTable GuardOperators() { return operators; }
