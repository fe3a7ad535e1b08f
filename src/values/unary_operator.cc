// The unary operators of the language, as values of it: one for each operand type that an operator takes.
#include <optional>

#include "evaluator/adapters.h"
#include "registry/operator_names.h"
#include "values/inspector_type.h"
#include "values/registry_walk.h"
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

auto Named(const inspector_string& name) {
    return [name = name.View()](const Entry& entry) { return name == entry.Names().name; };
}
auto Returning(const inspector_type& result) {
    return [type = result.type](const Entry& entry) { return entry.accessor->resultType == type; };
}

class unary_operator_iterator {
public:
    using Value = std::optional<unary_operator>;

    Value First() { return walk_.First(kAnyEntry); }
    Value Next() { return walk_.Next(kAnyEntry); }
    Value FirstWithName(const inspector_string& name) { return walk_.First(Named(name)); }
    Value NextWithName(const inspector_string& name) { return walk_.Next(Named(name)); }
    Value FirstWithResult(const inspector_type& result) { return walk_.First(Returning(result)); }
    Value NextWithResult(const inspector_type& result) { return walk_.Next(Returning(result)); }

private:
    registry_walk<unary_operator, &TypeRegistry::UnaryOperators> walk_;
};

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
