// The properties of the language, as values of it.  A property is one value, whether it is found by its singular or by
// its plural name; a phrase that is registered for several objects or indexes is several.
#include <optional>

#include "evaluator/adapters.h"
#include "values/inspector_type.h"
#include "values/registry_walk.h"
#include "values/string.h"

struct inspector_property {
    const PropertyAccessor* accessor = nullptr;

    // Of the two rows that a property has in the table, the singular one stands for it.
    static std::optional<inspector_property> FromEntry(const PropertyAssociation& row) {
        return row.isPlural ? std::nullopt : std::optional(inspector_property{row.accessor});
    }
};

template <>
struct InspectorTypeInfo<inspector_property> : InspectorTypeBasics<inspector_property, 0> {
    static constexpr char Name[] = "property";
    static constexpr unsigned Size = 4;
};

namespace {

using Entry = inspector_property;

auto Named(const inspector_string& name) {
    return [name = name.View()](const Entry& entry) {
        return name == entry.accessor->singularName || name == entry.accessor->pluralName;
    };
}
auto OfObject(const inspector_type& object) {
    return [type = object.type](const Entry& entry) { return entry.accessor->directObjectType == type; };
}
auto Returning(const inspector_type& result) {
    return [type = result.type](const Entry& entry) { return entry.accessor->resultType == type; };
}
template <class A, class B>
auto Both(A a, B b) {
    return [a, b](const Entry& entry) { return a(entry) && b(entry); };
}

class inspector_property_iterator {
public:
    using Value = std::optional<inspector_property>;

    Value First() { return walk_.First(kAnyEntry); }
    Value Next() { return walk_.Next(kAnyEntry); }

    Value FirstWithName(const inspector_string& name) { return walk_.First(Named(name)); }
    Value NextWithName(const inspector_string& name) { return walk_.Next(Named(name)); }

    Value FirstWithDirectObject(Of, const inspector_type& object) { return walk_.First(OfObject(object)); }
    Value NextWithDirectObject(Of, const inspector_type& object) { return walk_.Next(OfObject(object)); }

    Value FirstWithNameAndDirectObject(const inspector_string& name, Of, const inspector_type& object) {
        return walk_.First(Both(OfObject(object), Named(name)));
    }
    Value NextWithNameAndDirectObject(const inspector_string& name, Of, const inspector_type& object) {
        return walk_.Next(Both(OfObject(object), Named(name)));
    }

    Value FirstWithResult(const inspector_type& result) { return walk_.First(Returning(result)); }
    Value NextWithResult(const inspector_type& result) { return walk_.Next(Returning(result)); }

    Value FirstWithResultAndDirectObject(const inspector_type& result, Of, const inspector_type& object) {
        return walk_.First(Both(OfObject(object), Returning(result)));
    }
    Value NextWithResultAndDirectObject(const inspector_type& result, Of, const inspector_type& object) {
        return walk_.Next(Both(OfObject(object), Returning(result)));
    }

private:
    registry_walk<inspector_property, &TypeRegistry::Properties> walk_;
};

inspector_string singular_name_of_property(const Entry& entry) {
    return inspector_string(entry.accessor->singularName);
}
inspector_string plural_name_of_property(const Entry& entry) { return inspector_string(entry.accessor->pluralName); }

boolean multivalued(const Entry& entry) { return entry.accessor->Multivalued(); }
boolean dependency_known(const Entry& entry) { return entry.accessor->dependencies != nullptr; }

inspector_string usual_name_of_property(const Entry& entry) {
    return multivalued(entry) ? plural_name_of_property(entry) : singular_name_of_property(entry);
}

inspector_type result_type(const Entry& entry) { return {entry.accessor->resultType}; }
std::optional<inspector_type> index_type(const Entry& entry) { return TypeUnlessBlank(entry.accessor->indexType); }
std::optional<inspector_type> direct_object_type(const Entry& entry) {
    return TypeUnlessBlank(entry.accessor->directObjectType);
}

// "bit <integer> of <bit set>: boolean"
inspector_string asString(const Entry& entry) {
    const std::optional<inspector_type> index = index_type(entry);
    const std::optional<inspector_type> object = direct_object_type(entry);
    return JoinedString({usual_name_of_property(entry).View(), index ? " <" : "", index ? index->type->Name() : "",
                         index ? ">" : "", object ? " of <" : "", object ? object->type->Name() : "", object ? ">" : "",
                         ": ", entry.accessor->resultType->Name()});
}

using Iterator = inspector_property_iterator;
using String = inspector_string;

// clang-format off
Type<Entry>                                                 type;

IteratedGlobalProperty<Iterator, Entry>                     all                 {"property", "properties"};
IteratedPropertyByIndexOfWorld<Iterator, Entry, String, &Iterator::FirstWithName, &Iterator::NextWithName>
                                                            named               {"property", "properties"};
IteratedPropertyOfObject<Iterator, Entry, inspector_type, &Iterator::FirstWithDirectObject, &Iterator::NextWithDirectObject>
                                                            ofType              {"property", "properties"};
IteratedPropertyByIndexOfObject<Iterator, Entry, String, inspector_type, &Iterator::FirstWithNameAndDirectObject, &Iterator::NextWithNameAndDirectObject>
                                                            namedOfType         {"property", "properties"};
IteratedPropertyByIndexOfWorld<Iterator, Entry, inspector_type, &Iterator::FirstWithResult, &Iterator::NextWithResult>
                                                            returning           {"property returning", "properties returning"};
IteratedPropertyByIndexOfObject<Iterator, Entry, inspector_type, inspector_type, &Iterator::FirstWithResultAndDirectObject, &Iterator::NextWithResultAndDirectObject>
                                                            returningOfType     {"property returning", "properties returning"};
Property<Entry, String, singular_name_of_property>          singularName        {"singular name", "singular names"};
Property<Entry, String, plural_name_of_property>            pluralName          {"plural name", "plural names"};
Property<Entry, String, usual_name_of_property>             usualName           {"usual name", "usual names"};
Property<Entry, inspector_type, result_type>                resultType          {"result type", "result types"};
Property<Entry, inspector_type, index_type>                 indexType           {"index type", "index types"};
Property<Entry, inspector_type, direct_object_type>         directObjectType    {"direct object type", "direct object types"};
Property<Entry, boolean, multivalued>                       isMultivalued       {"multivalued", "multivalueds"};
Property<Entry, boolean, dependency_known>                  dependencyKnown     {"dependency known", "dependencies known"};
Cast<String, Entry, asString>                               text                {"string"};
// clang-format on

}  // namespace
