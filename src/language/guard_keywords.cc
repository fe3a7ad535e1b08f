#include "language/guard_keywords.h"

namespace {

template <GuardSymbol token>
constexpr GuardParsingAction plain{token};

template <GuardOperatorCode code, GuardOperatorFlags flags = NoOperatorFlags>
constexpr GuardOperatorAction relational{RelationalSymbol, code, flags};

constexpr GuardOperatorAction mod{MultiplicativeSymbol, ModOperator, NoOperatorFlags};
constexpr GuardItAction it{ValueSymbol};

// clang-format off
constexpr ReservedWord<const GuardParsingAction*> keywords[] = {
    {"and ",                             &plain<AndSymbol>},
    {"as ",                              &plain<AsSymbol>},
    {"contains ",                        &relational<ContainsOperator>},
    {"does not contain ",                &relational<ContainsOperator, NegatesResult>},
    {"does not end with ",               &relational<EndsWithOperator, NegatesResult>},
    {"does not equal ",                  &relational<EqualOperator, NegatesResult>},
    {"does not start with ",             &relational<StartsWithOperator, NegatesResult>},
    {"else ",                            &plain<ElseSymbol>},
    {"ends with ",                       &relational<EndsWithOperator>},
    {"equals ",                          &relational<EqualOperator>},
    {"exist ",                           &plain<ExistsSymbol>},
    {"exist no ",                        &plain<ExistsNoSymbol>},
    {"exists ",                          &plain<ExistsSymbol>},
    {"exists no ",                       &plain<ExistsNoSymbol>},
    {"if ",                              &plain<IfSymbol>},
    {"is ",                              &relational<EqualOperator>},
    {"is contained by ",                 &relational<ContainsOperator, ExchangesOperands>},
    {"is equal to ",                     &relational<EqualOperator>},
    {"is greater than ",                 &relational<LessOperator, ExchangesOperands>},
    {"is greater than or equal to ",     &relational<LessOrEqualOperator, ExchangesOperands>},
    {"is less than ",                    &relational<LessOperator>},
    {"is less than or equal to ",        &relational<LessOrEqualOperator>},
    {"is not ",                          &relational<EqualOperator, NegatesResult>},
    {"is not contained by ",             &relational<ContainsOperator, ExchangesAndNegates>},
    {"is not equal to ",                 &relational<EqualOperator, NegatesResult>},
    {"is not greater than ",             &relational<LessOperator, ExchangesAndNegates>},
    {"is not greater than or equal to ", &relational<LessOrEqualOperator, ExchangesAndNegates>},
    {"is not less than ",                &relational<LessOperator, NegatesResult>},
    {"is not less than or equal to ",    &relational<LessOrEqualOperator, NegatesResult>},
    {"it ",                              &it},
    {"mod ",                             &mod},
    {"not ",                             &plain<NotSymbol>},
    {"of ",                              &plain<OfSymbol>},
    {"or ",                              &plain<OrSymbol>},
    {"starts with ",                     &relational<StartsWithOperator>},
    {"then ",                            &plain<ThenSymbol>},
    {"there do not exist ",              &plain<ExistsNoSymbol>},
    {"there does not exist ",            &plain<ExistsNoSymbol>},
    {"there exist ",                     &plain<ExistsSymbol>},
    {"there exist no ",                  &plain<ExistsNoSymbol>},
    {"there exists ",                    &plain<ExistsSymbol>},
    {"there exists no ",                 &plain<ExistsNoSymbol>},
    {"whose ",                           &plain<WhoseSymbol>},
};
// clang-format on

static_assert(IsSorted(keywords));

}  // namespace

GuardTable GuardKeywords() { return keywords; }
