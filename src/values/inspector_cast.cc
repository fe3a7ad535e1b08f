// The casts of the language, as values of it.
#include <optional>

#include "evaluator/adapters.h"
#include "values/inspector_type.h"
#include "values/registry_walk.h"
#include "values/string.h"

struct inspector_cast {
    const CastDefinition* cast = nullptr;

    static std::optional<inspector_cast> FromEntry(const CastDefinition* cast) { return inspector_cast{cast}; }
};

template <>
struct InspectorTypeInfo<inspector_cast> : InspectorTypeBasics<inspector_cast, 0> {
    static constexpr char Name[] = "cast";
    static constexpr unsigned Size = 4;
};

namespace {

using Entry = inspector_cast;

auto Named(const inspector_string& name) {
    return [name = name.View()](const Entry& entry) { return name == entry.cast->name; };
}
auto From(const inspector_type& operand) {
    return [type = operand.type](const Entry& entry) { return entry.cast->sourceType == type; };
}
auto Returning(const inspector_type& result) {
    return [type = result.type](const Entry& entry) { return entry.cast->resultType == type; };
}

class inspector_cast_iterator {
public:
    using Value = std::optional<inspector_cast>;

    Value First() { return walk_.First(kAnyEntry); }
    Value Next() { return walk_.Next(kAnyEntry); }
    Value FirstWithName(const inspector_string& name) { return walk_.First(Named(name)); }
    Value NextWithName(const inspector_string& name) { return walk_.Next(Named(name)); }
    Value FirstWithInput(Of, const inspector_type& operand) { return walk_.First(From(operand)); }
    Value NextWithInput(Of, const inspector_type& operand) { return walk_.Next(From(operand)); }
    Value FirstWithResult(const inspector_type& result) { return walk_.First(Returning(result)); }
    Value NextWithResult(const inspector_type& result) { return walk_.Next(Returning(result)); }

private:
    registry_walk<inspector_cast, &TypeRegistry::Casts> walk_;
};

inspector_string name_of_cast(const Entry& entry) { return inspector_string(entry.cast->name); }
inspector_type operand_type(const Entry& entry) { return {entry.cast->sourceType}; }
inspector_type result_type(const Entry& entry) { return {entry.cast->resultType}; }

// "<integer> as bit set: bit set"
inspector_string asString(const Entry& entry) {
    return JoinedString(
        {"<", entry.cast->sourceType->Name(), "> as ", entry.cast->name, ": ", entry.cast->resultType->Name()});
}

using Iterator = inspector_cast_iterator;
using String = inspector_string;

// clang-format off
Type<Entry>                                         type;

IteratedGlobalProperty<Iterator, Entry>             all             {"cast", "casts"};
IteratedPropertyByIndexOfWorld<Iterator, Entry, String, &Iterator::FirstWithName, &Iterator::NextWithName>
                                                    named           {"cast", "casts"};
IteratedPropertyOfObject<Iterator, Entry, inspector_type, &Iterator::FirstWithInput, &Iterator::NextWithInput>
                                                    from            {"cast from", "casts from"};
IteratedPropertyByIndexOfWorld<Iterator, Entry, inspector_type, &Iterator::FirstWithResult, &Iterator::NextWithResult>
                                                    returning       {"cast returning", "casts returning"};
Property<Entry, String, name_of_cast>               name            {"name", "names"};
Property<Entry, inspector_type, operand_type>       operandType     {"operand type", "operand types"};
Property<Entry, inspector_type, result_type>        resultType      {"result type", "result types"};
Cast<String, Entry, asString>                       text            {"string"};
// clang-format on

}  // namespace
