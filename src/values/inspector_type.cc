// The types of the language, as values of it.
#include "values/inspector_type.h"

#include "evaluator/adapters.h"
#include "foundation/tuple_text.h"
#include "registry/lookup_failures.h"
#include "values/integer.h"
#include "values/registry_walk.h"
#include "values/string.h"

namespace {

// How deep the parentheses of a tuple's name may nest.  The name of a type is read level by level, and what a question
// computes may be any text.
constexpr size_t kDeepestTypeName = 200;

bool NestsTooDeep(std::string_view name) {
    size_t depth = 0;
    for (char c : name) {
        if (c == '(' && ++depth > kDeepestTypeName) {
            return true;
        }
        depth -= c == ')' && depth != 0 ? 1 : 0;
    }
    return false;
}

// A tuple's type is made where its name is first asked for.  A text that is no name of a type names none.
std::optional<inspector_type> type_by_name(const inspector_string& name) {
    if (NestsTooDeep(name.View())) {
        return std::nullopt;
    }
    const GuardType* type = nullptr;
    try {
        type = TypeRegistry::Instance().TypeByName(name.View());
    } catch (const BadStructuredTypeName&) {
    } catch (const BadTypeList&) {
    } catch (const MismatchedParentheses&) {
    }
    return type == nullptr ? std::nullopt : std::optional(inspector_type{type});
}

// The registered types.  Those of tuples, which are made as questions need them, are found by their names alone.
class inspector_type_iterator {
public:
    std::optional<inspector_type> First() { return walk_.First(kAnyEntry); }
    std::optional<inspector_type> Next() { return walk_.Next(kAnyEntry); }

private:
    registry_walk<inspector_type, &TypeRegistry::Types> walk_;
};

// A registered name stays where it is; a tuple's is made anew with the registry's tables, so it is copied.
inspector_string name_of_type(const inspector_type& type) {
    const std::string_view name = type.type->Name();
    return type.type->tuple == nullptr ? inspector_string(name) : CopiedString(name);
}

integer size_of_type(const inspector_type& type) { return type.type->size; }

std::optional<inspector_type> parent_of_type(const inspector_type& type) {
    return type.type->parent == nullptr ? std::nullopt : std::optional(inspector_type{type.type->parent});
}

// clang-format off
Type<inspector_type>                                                            type;

NamedGlobalProperty<inspector_type, type_by_name>                               named   {"type", "types"};
IteratedGlobalProperty<inspector_type_iterator, inspector_type>                 all     {"type", "types"};
Property<inspector_type, inspector_string, name_of_type>                        name    {"name", "names"};
Property<inspector_type, integer, size_of_type>                                 size    {"size", "sizes"};
Property<inspector_type, inspector_type, parent_of_type>                        parent  {"parent", "parents"};

RelationEqual<inspector_type>                                                   equal;
Cast<inspector_string, inspector_type, name_of_type>                            text    {"string"};
// clang-format on

}  // namespace
