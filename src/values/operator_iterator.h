// The walk over the operators of one kind that the language has: all of them, those of a name, and those with a result.
#ifndef VALUES_OPERATOR_ITERATOR_H
#define VALUES_OPERATOR_ITERATOR_H

#include <optional>

#include "values/inspector_type.h"
#include "values/registry_walk.h"

// `Operator` is a handle on an entry of the registry's table `Table`, with Names() and the entry's `accessor`.
template <class Operator, auto Table>
class operator_iterator {
public:
    using Value = std::optional<Operator>;

    // Each gives the next operator, none at the end.
    Value First() { return walk_.First(kAnyEntry); }
    Value Next() { return walk_.Next(kAnyEntry); }
    Value FirstWithName(const inspector_string& name) { return walk_.First(Named(name)); }
    Value NextWithName(const inspector_string& name) { return walk_.Next(Named(name)); }
    Value FirstWithResult(const inspector_type& result) { return walk_.First(Returning(result)); }
    Value NextWithResult(const inspector_type& result) { return walk_.Next(Returning(result)); }

private:
    static auto Named(const inspector_string& name) {
        return [name = name.View()](const Operator& entry) { return name == entry.Names().name; };
    }
    static auto Returning(const inspector_type& result) {
        return [type = result.type](const Operator& entry) { return entry.accessor->resultType == type; };
    }

    registry_walk<Operator, Table> walk_;
};

#endif
