// The unary operators of the language, as values of it: one for each operand type that an operator takes.
#include <optional>

#include "evaluator/adapters.h"
#include "registry/operator_names.h"
#include "values/inspector_type.h"
#include "values/operator_iterator.h"
#include "values/string.h"

struct unary_operator {
    const UnaryAccessor* accessor = nullptr;

    static std::optional<unary_operator> FromEntry(const UnaryAccessor* accessor) { return unary_operator{accessor}; }

    const OperatorName& Names() const { return kUnaryOperatorNames[accessor->code]; }
};

template <>
struct InspectorTypeInfo<unary_operator> : InspectorTypeBasics<unary_operator, 0> {
    static constexpr char Name[] = "unary operator";
    static constexpr unsigned Size = 4;
};

namespace {

using Entry = unary_operator;

using unary_operator_iterator = operator_iterator<unary_operator, &TypeRegistry::UnaryOperators>;

inspector_string name_of_operator(const Entry& entry) { return inspector_string(entry.Names().name); }
inspector_string symbol_of_operator(const Entry& entry) { return inspector_string(entry.Names().symbol); }
inspector_type result_type(const Entry& entry) { return {entry.accessor->resultType}; }
inspector_type operand_type(const Entry& entry) { return {entry.accessor->operandType}; }

// "- <integer>: integer"
inspector_string asString(const Entry& entry) {
    return JoinedString(
        {entry.Names().symbol, " <", entry.accessor->operandType->Name(), ">: ", entry.accessor->resultType->Name()});
}

using Iterator = unary_operator_iterator;
using String = inspector_string;

// clang-format off
Type<Entry>                                         type;

IteratedGlobalProperty<Iterator, Entry>             all             {"unary operator", "unary operators"};
IteratedPropertyByIndexOfWorld<Iterator, Entry, String, &Iterator::FirstWithName, &Iterator::NextWithName>
                                                    named           {"unary operator", "unary operators"};
IteratedPropertyByIndexOfWorld<Iterator, Entry, inspector_type, &Iterator::FirstWithResult, &Iterator::NextWithResult>
                                                    returning       {"unary operator returning", "unary operators returning"};
Property<Entry, String, name_of_operator>           name            {"name", "names"};
Property<Entry, String, symbol_of_operator>         symbol          {"symbol", "symbols"};
Property<Entry, inspector_type, result_type>        resultType      {"result type", "result types"};
Property<Entry, inspector_type, operand_type>       operandType     {"operand type", "operand types"};
Cast<String, Entry, asString>                       text            {"string"};
// clang-format on

}  // namespace
