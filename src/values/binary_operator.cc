// The binary operators of the language, as values of it: one for each pair of operand types that an operator takes.
#include <optional>

#include "evaluator/adapters.h"
#include "registry/operator_names.h"
#include "values/inspector_type.h"
#include "values/operator_iterator.h"
#include "values/string.h"

struct binary_operator {
    const BinaryAccessor* accessor = nullptr;

    static std::optional<binary_operator> FromEntry(const BinaryAccessor* accessor) {
        return binary_operator{accessor};
    }

    const OperatorName& Names() const { return kBinaryOperatorNames[accessor->code]; }
};

template <>
struct InspectorTypeInfo<binary_operator> : InspectorTypeBasics<binary_operator, 0> {
    static constexpr char Name[] = "binary operator";
    static constexpr unsigned Size = 4;
};

namespace {

using Entry = binary_operator;

using binary_operator_iterator = operator_iterator<binary_operator, &TypeRegistry::BinaryOperators>;

inspector_string name_of_operator(const Entry& entry) { return inspector_string(entry.Names().name); }
inspector_string symbol_of_operator(const Entry& entry) { return inspector_string(entry.Names().symbol); }
std::optional<inspector_type> result_type(const Entry& entry) { return TypeUnlessBlank(entry.accessor->resultType); }
std::optional<inspector_type> left_operand_type(const Entry& entry) {
    return TypeUnlessBlank(entry.accessor->leftType);
}
std::optional<inspector_type> right_operand_type(const Entry& entry) {
    return TypeUnlessBlank(entry.accessor->rightType);
}

// "<hertz> * <integer>: hertz"
inspector_string asString(const Entry& entry) {
    return JoinedString({"<", entry.accessor->leftType->Name(), "> ", entry.Names().symbol, " <",
                         entry.accessor->rightType->Name(), ">: ", entry.accessor->resultType->Name()});
}

using Iterator = binary_operator_iterator;
using String = inspector_string;

// clang-format off
Type<Entry>                                             type;

IteratedGlobalProperty<Iterator, Entry>                 all                 {"binary operator", "binary operators"};
IteratedPropertyByIndexOfWorld<Iterator, Entry, String, &Iterator::FirstWithName, &Iterator::NextWithName>
                                                        named               {"binary operator", "binary operators"};
IteratedPropertyByIndexOfWorld<Iterator, Entry, inspector_type, &Iterator::FirstWithResult, &Iterator::NextWithResult>
                                                        returning           {"binary operator returning", "binary operators returning"};
Property<Entry, String, name_of_operator>               name                {"name", "names"};
Property<Entry, String, symbol_of_operator>             symbol              {"symbol", "symbols"};
Property<Entry, inspector_type, result_type>            resultType          {"result type", "result types"};
Property<Entry, inspector_type, left_operand_type>      leftOperandType     {"left operand type", "left operand types"};
Property<Entry, inspector_type, right_operand_type>     rightOperandType    {"right operand type", "right operand types"};
Cast<String, Entry, asString>                           text                {"string"};
// clang-format on

}  // namespace
