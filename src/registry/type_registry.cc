#include "registry/type_registry.h"

#include <algorithm>
#include <cstdint>
#include <functional>

#include "foundation/tuple_text.h"
#include "registry/lookup_failures.h"
#include "registry/operator_names.h"
#include "registry/registration.h"

TypeRegistry* TypeRegistry::m_validRegistry = nullptr;

std::string_view GuardType::Name() const { return tuple != nullptr ? tuple->Name() : std::string_view(name); }

namespace {

constexpr std::less<const GuardType*> kByAddress;

// Direct object type, name, index type.
bool Precedes(const PropertyAssociation& a, const PropertyAssociation& b) {
    if (a.directObjectType != b.directObjectType) {
        return kByAddress(a.directObjectType, b.directObjectType);
    }
    if (const int order = a.name.compare(b.name); order != 0) {
        return order < 0;
    }
    return kByAddress(a.indexType, b.indexType);
}

bool CompareCasts(const CastDefinition* a, const CastDefinition* b) {
    if (a->sourceType != b->sourceType) {
        return kByAddress(a->sourceType, b->sourceType);
    }
    return std::string_view(a->name) < b->name;
}

bool CompareBinary(const BinaryAccessor* a, const BinaryAccessor* b) {
    if (a->leftType != b->leftType) {
        return kByAddress(a->leftType, b->leftType);
    }
    if (a->code != b->code) {
        return a->code < b->code;
    }
    return kByAddress(a->rightType, b->rightType);
}

// Calls `visit` with each record of a list, under the list's lock.
template <class Kind, class Visit>
void ForEach(Visit visit) {
    RegistrationList<Kind>& list = RegistrationList<Kind>::Instance();
    const std::lock_guard<std::recursive_mutex> hold(list.Mutex());
    for (typename RegistrationList<Kind>::Iterator entry(list); !entry.AtEnd(); entry.Next()) {
        visit(*entry);
    }
}

// Calls `give` with each run of neighbours in a sorted table that `same` finds alike.
template <class Table, class Same, class Give>
void ForEachRun(Table& table, Same same, Give give) {
    for (size_t start = 0; start < table.size();) {
        size_t end = start + 1;
        while (end < table.size() && same(table[start], table[end])) {
            ++end;
        }
        give(table.data() + start, table.data() + end);
        start = end;
    }
}

// Records are found through constant pointers once they are indexed; the registry alone writes to them.
GuardType& Writable(const GuardType* type) { return *const_cast<GuardType*>(type); }

}  // namespace

TypeRegistry& TypeRegistry::Rebuilt() {
    static TypeRegistry registry;
    registry.Build();
    m_validRegistry = &registry;
    return registry;
}

void TypeRegistry::Build() {
    complete_ = false;
    resolved_.fill({});
    BuildTypes();
    world_ = RegisteredType("");
    boolean_ = RegisteredType("boolean");
    integer_ = RegisteredType("integer");
    string_ = RegisteredType("string");
    undefined_ = RegisteredType("undefined");
    RestoreTuples();
    for (GuardType* type : typeTable_) {
        type->parent = type->parentName == nullptr ? nullptr : ResolvedType(type->parentName);
    }
    BuildProperties();
    BuildCasts();
    BuildUnaryOperators();
    BuildBinaryOperators();
    ApplyBlacklist();
    complete_ = true;
    CompleteTuples();
}

void TypeRegistry::BuildTypes() {
    typeTable_.clear();
    ForEach<TypeRegistration>([this](GuardType& type) {
        type.parent = nullptr;
        type.properties = {};
        type.indexedProperties = {};
        type.casts = {};
        std::fill(std::begin(type.unaryOperators), std::end(type.unaryOperators), nullptr);
        std::fill(std::begin(type.binaryOperators), std::end(type.binaryOperators),
                  TableSlice<const BinaryAccessor* const>());
        typeTable_.push_back(&type);
    });
    std::stable_sort(typeTable_.begin(), typeTable_.end(),
                     [](const GuardType* a, const GuardType* b) { return std::string_view(a->name) < b->name; });
}

// Tuple types of an earlier build stay where they are, for expressions may hold them; those whose elements are no
// longer registered are not found again.
void TypeRegistry::RestoreTuples() {
    std::set<const GuardType*> live(typeTable_.begin(), typeTable_.end());
    tupleTypes_.clear();
    for (size_t i = 0; i < tuples_.Size(); ++i) {
        TupleDefinition& tuple = tuples_[i];
        if (live.count(tuple.firstType) != 0 && live.count(tuple.restType) != 0) {
            tupleTypes_.emplace(std::pair(tuple.firstType, tuple.restType), &tuple);
            live.insert(&tuple.type);
            tuple.ForgetName();
        }
        tuple.type.properties = {};
        tuple.type.indexedProperties = {};
    }
}

// In the order in which they were made, so that a rest is complete before what stands in front of it.  The elements of
// a tuple type that is not found again may be gone.
void TypeRegistry::CompleteTuples() {
    for (size_t i = 0; i < tuples_.Size(); ++i) {
        const auto place = tupleTypes_.find(std::pair(tuples_[i].firstType, tuples_[i].restType));
        if (place != tupleTypes_.end() && place->second == &tuples_[i]) {
            tuples_[i].Complete(*this);
        }
    }
}

void TypeRegistry::BuildProperties() {
    propertyTable_.clear();
    propertyTable_.reserve(2 * RegistrationList<PropertyRegistration>::Instance().Size());
    ForEach<PropertyRegistration>([this](PropertyAccessor& accessor) {
        accessor.resultType = ResolvedType(accessor.resultTypeName);
        accessor.indexType = ResolvedType(accessor.indexTypeName);
        accessor.directObjectType = ResolvedType(accessor.directObjectTypeName);
        if (accessor.resultType == nullptr || accessor.indexType == nullptr || accessor.directObjectType == nullptr) {
            return;
        }
        for (bool plural : {false, true}) {
            propertyTable_.push_back({plural ? accessor.pluralName : accessor.singularName, accessor.indexType,
                                      accessor.directObjectType, &accessor, plural, false});
        }
    });
    std::stable_sort(propertyTable_.begin(), propertyTable_.end(), Precedes);
    ForEachRun(
        propertyTable_,
        [](const PropertyAssociation& a, const PropertyAssociation& b) {
            return a.directObjectType == b.directObjectType;
        },
        [](const PropertyAssociation* begin, const PropertyAssociation* end) {
            Writable(begin->directObjectType).properties = {begin, end};
        });

    propertiesByIndex_ = propertyTable_;
    std::stable_sort(propertiesByIndex_.begin(), propertiesByIndex_.end(),
                     [](const PropertyAssociation& a, const PropertyAssociation& b) {
                         return kByAddress(a.indexType, b.indexType);
                     });
    ForEachRun(
        propertiesByIndex_,
        [](const PropertyAssociation& a, const PropertyAssociation& b) { return a.indexType == b.indexType; },
        [](const PropertyAssociation* begin, const PropertyAssociation* end) {
            Writable(begin->indexType).indexedProperties = {begin, end};
        });
}

void TypeRegistry::BuildCasts() {
    castTable_.clear();
    ForEach<CastRegistration>([this](CastDefinition& cast) {
        cast.sourceType = ResolvedType(cast.sourceTypeName);
        cast.resultType = ResolvedType(cast.targetTypeName);
        if (cast.sourceType != nullptr && cast.resultType != nullptr) {
            castTable_.push_back(&cast);
        }
    });
    std::stable_sort(castTable_.begin(), castTable_.end(), CompareCasts);
    ForEachRun(
        castTable_, [](const CastDefinition* a, const CastDefinition* b) { return a->sourceType == b->sourceType; },
        [](const CastDefinition* const* begin, const CastDefinition* const* end) {
            Writable((*begin)->sourceType).casts = {begin, end};
        });
}

void TypeRegistry::BuildUnaryOperators() {
    unaryTable_.clear();
    ForEach<UnaryOperatorRegistration>([this](UnaryAccessor& accessor) {
        accessor.operandType = ResolvedType(accessor.operandTypeName);
        accessor.resultType = ResolvedType(accessor.resultTypeName);
        if (accessor.operandType != nullptr && accessor.resultType != nullptr) {
            const UnaryAccessor*& slot = Writable(accessor.operandType).unaryOperators[accessor.code];
            if (slot == nullptr) {
                slot = &accessor;
                unaryTable_.push_back(&accessor);
            }
        }
    });
}

void TypeRegistry::BuildBinaryOperators() {
    binaryTable_.clear();
    ForEach<BinaryOperatorRegistration>([this](BinaryAccessor& accessor) {
        accessor.leftType = ResolvedType(accessor.leftTypeName);
        accessor.rightType = ResolvedType(accessor.rightTypeName);
        accessor.resultType = ResolvedType(accessor.resultTypeName);
        if (accessor.leftType != nullptr && accessor.rightType != nullptr && accessor.resultType != nullptr) {
            binaryTable_.push_back(&accessor);
        }
    });
    std::stable_sort(binaryTable_.begin(), binaryTable_.end(), CompareBinary);
    ForEachRun(
        binaryTable_,
        [](const BinaryAccessor* a, const BinaryAccessor* b) {
            return a->leftType == b->leftType && a->code == b->code;
        },
        [](const BinaryAccessor* const* begin, const BinaryAccessor* const* end) {
            Writable((*begin)->leftType).binaryOperators[(*begin)->code] = {begin, end};
        });
}

GuardType* TypeRegistry::RegisteredType(std::string_view name) const {
    const auto place = std::lower_bound(typeTable_.begin(), typeTable_.end(), name,
                                        [](const GuardType* type, std::string_view text) { return type->name < text; });
    return place != typeTable_.end() && (*place)->name == name ? *place : nullptr;
}

const GuardType* TypeRegistry::TypeByName(std::string_view name) const {
    if (const GuardType* type = RegisteredType(name); type != nullptr) {
        return type;
    }
    return name.empty() || name.back() != ')' ? nullptr : TupleByName(name);
}

// The registrations of a type mostly spell its name by the same constant, so that a build looks up no more than a
// fraction of the names that it meets.
const GuardType* TypeRegistry::ResolvedType(const char* name) const {
    ResolvedName& known = resolved_[(reinterpret_cast<uintptr_t>(name) >> 2) % resolved_.size()];
    if (known.name != name) {
        known = {name, TypeOrNull(name)};
    }
    return known.type;
}

// A name in a registration that cannot be read as a type's leaves the entry out, like one that no type has.
const GuardType* TypeRegistry::TypeOrNull(const char* name) const {
    try {
        return TypeByName(name);
    } catch (const BadStructuredTypeName&) {
    } catch (const BadTypeList&) {
    } catch (const MismatchedParentheses&) {
    }
    return nullptr;
}

const GuardType* TypeRegistry::TupleByName(std::string_view name) const {
    const size_t open = name.find('(');
    if (open == std::string_view::npos) {
        throw BadStructuredTypeName();
    }
    const std::string_view structure = name.substr(open);
    if (structure.size() < 5 || structure[1] != ' ' || structure.substr(structure.size() - 2) != " )") {
        throw BadStructuredTypeName();
    }
    if (open != 0) {
        return nullptr;  // A prefix names a type derived from the tuple, and those are found as they are registered.
    }
    std::vector<std::string_view> elements;
    std::string_view rest = structure.substr(2, structure.size() - 4);
    for (;;) {
        const std::string_view element = BeforeTopLevelComma(rest);
        elements.push_back(element);
        if (element.size() == rest.size()) {
            break;
        }
        rest.remove_prefix(element.size() + 1);
        if (rest.empty() || rest.front() != ' ') {
            throw BadTypeList();
        }
        rest.remove_prefix(1);
    }
    const GuardType* tuple = world_;
    for (auto element = elements.rbegin(); element != elements.rend(); ++element) {
        const GuardType* type = element->empty() ? nullptr : TypeByName(*element);
        if (type == nullptr) {
            return nullptr;
        }
        tuple = TupleTypeFor(type, tuple);
    }
    return tuple;
}

const GuardType* TypeRegistry::TupleTypeFor(const GuardType* first, const GuardType* rest) const {
    const std::lock_guard<std::recursive_mutex> hold(tupleMutex_);
    const auto place = tupleTypes_.emplace(std::pair(first, rest), nullptr);
    if (place.second) {
        try {
            TupleDefinition& tuple = tuples_.Append(first, rest, rest == world_);
            place.first->second = &tuple;
            if (complete_) {
                tuple.Complete(*this);
            }
        } catch (...) {
            tupleTypes_.erase(place.first);
            throw;
        }
    }
    return &place.first->second->type;
}

namespace {

using PropertyRows = std::pair<const PropertyAssociation*, const PropertyAssociation*>;

PropertyRows RowsNamed(const GuardType* object, std::string_view name) {
    struct ByName {
        bool operator()(const PropertyAssociation& row, std::string_view text) const { return row.name < text; }
        bool operator()(std::string_view text, const PropertyAssociation& row) const { return text < row.name; }
    };
    return std::equal_range(object->properties.begin, object->properties.end, name, ByName());
}

const PropertyAssociation* RowWithIndex(PropertyRows rows, const GuardType* index) {
    for (const GuardType* type = index; type != nullptr; type = type->parent) {
        const PropertyAssociation* row = std::lower_bound(rows.first, rows.second, type,
                                                          [](const PropertyAssociation& candidate, const GuardType* t) {
                                                              return kByAddress(candidate.indexType, t);
                                                          });
        if (row != rows.second && row->indexType == type) {
            return row;
        }
    }
    return nullptr;
}

}  // namespace

const PropertyAssociation& TypeRegistry::Property(const GuardType* object, std::string_view name,
                                                  const GuardType* index) const {
    for (const GuardType* type = object; type != nullptr; type = type->parent) {
        const PropertyRows rows = RowsNamed(type, name);
        if (rows.first == rows.second) {
            continue;
        }
        if (const PropertyAssociation* row = RowWithIndex(rows, index); row != nullptr) {
            if (row->blacklisted) {
                throw InspectorBlacklisted(Key(*row));
            }
            return *row;
        }
    }
    throw OperationNotDefined(name);
}

const PropertyAssociation* TypeRegistry::AggregateOfAnyType(std::string_view name, const GuardType* index) const {
    const auto aggregate = [&](const GuardType* type) -> const PropertyAssociation* {
        const PropertyAssociation* row = RowWithIndex(RowsNamed(type, name), index);
        return row != nullptr && row->accessor->aggregating ? row : nullptr;
    };
    for (const GuardType* type : {integer_, string_, boolean_}) {
        if (const PropertyAssociation* row = aggregate(type); row != nullptr) {
            return row;
        }
    }
    for (const GuardType* type : typeTable_) {
        if (const PropertyAssociation* row = aggregate(type); row != nullptr) {
            return row;
        }
    }
    return nullptr;
}

const CastDefinition* TypeRegistry::FindCast(const GuardType* from, std::string_view name) const {
    for (const GuardType* type = from; type != nullptr; type = type->parent) {
        const auto place =
            std::lower_bound(type->casts.begin, type->casts.end, name,
                             [](const CastDefinition* cast, std::string_view text) { return cast->name < text; });
        if (place != type->casts.end && (*place)->name == name) {
            return *place;
        }
    }
    return nullptr;
}

const CastDefinition& TypeRegistry::Cast(const GuardType* from, std::string_view name) const {
    const CastDefinition* cast = FindCast(from, name);
    if (cast == nullptr) {
        throw OperationNotDefined(name);
    }
    if (cast->blacklisted) {
        throw InspectorBlacklisted(Key(*cast));
    }
    return *cast;
}

const UnaryAccessor& TypeRegistry::UnaryOperator(const GuardType* operand, int code) const {
    for (const GuardType* type = operand; type != nullptr; type = type->parent) {
        if (type->unaryOperators[code] != nullptr) {
            return *type->unaryOperators[code];
        }
    }
    throw OperationNotDefined({kUnaryOperatorNames[code].symbol, " <", operand->Name(), ">"});
}

namespace {

const BinaryAccessor* ExactOperator(const GuardType* left, int code, const GuardType* right) {
    const TableSlice<const BinaryAccessor* const>& rows = left->binaryOperators[code];
    const auto place = std::lower_bound(
        rows.begin, rows.end, right,
        [](const BinaryAccessor* accessor, const GuardType* type) { return kByAddress(accessor->rightType, type); });
    return place != rows.end && (*place)->rightType == right ? *place : nullptr;
}

bool AnyRightAccepted(const GuardType* left, int code, const GuardType* right) {
    for (; right != nullptr; right = right->parent) {
        if (ExactOperator(left, code, right) != nullptr) {
            return true;
        }
    }
    return false;
}

}  // namespace

// The first left type of its chain that accepts any type of the right chain decides; the right type is then the first
// of its chain that this left type or a parent of it accepts.  Kept as it stands: where that pair itself is no row, the
// operator is not defined.
const BinaryAccessor* TypeRegistry::FindBinaryOperator(const GuardType* left, int code, const GuardType* right) const {
    while (left != nullptr && !AnyRightAccepted(left, code, right)) {
        left = left->parent;
    }
    if (left == nullptr) {
        return nullptr;
    }
    for (; right != nullptr; right = right->parent) {
        for (const GuardType* type = left; type != nullptr; type = type->parent) {
            if (ExactOperator(type, code, right) != nullptr) {
                return ExactOperator(left, code, right);
            }
        }
    }
    return nullptr;
}

const BinaryAccessor& TypeRegistry::BinaryOperator(const GuardType* left, int code, const GuardType* right) const {
    if (const BinaryAccessor* accessor = FindBinaryOperator(left, code, right); accessor != nullptr) {
        return *accessor;
    }
    throw OperationNotDefined({"<", left->Name(), "> ", kBinaryOperatorNames[code].symbol, " <", right->Name(), ">"});
}

std::string TypeRegistry::Key(const PropertyAssociation& row) {
    std::string key(row.name);
    if (*row.accessor->indexTypeName != '\0') {
        key.append(" <").append(row.indexType->Name()).append(">");
    }
    if (*row.accessor->directObjectTypeName != '\0') {
        key.append(" of <").append(row.directObjectType->Name()).append(">");
    }
    return key;
}

std::string TypeRegistry::Key(const CastDefinition& cast) {
    std::string key("<");
    return key.append(cast.sourceType->Name()).append("> as ").append(cast.name);
}

void TypeRegistry::SetBlacklist(std::string_view text) {
    blacklist_ = text;
    ApplyBlacklist();
    CompleteTuples();
}

void TypeRegistry::ApplyBlacklist() {
    std::set<std::string, std::less<>> keys;
    for (std::string_view rest = blacklist_; !rest.empty();) {
        const std::string_view key = rest.substr(0, rest.find(';'));
        keys.emplace(key);
        rest.remove_prefix(std::min(rest.size(), key.size() + 1));
    }
    for (PropertyAssociation& row : propertyTable_) {
        row.blacklisted = false;
        if (!keys.empty()) {
            for (const char* name : {row.accessor->singularName, row.accessor->pluralName}) {
                PropertyAssociation named = row;
                named.name = name;
                row.blacklisted = row.blacklisted || keys.count(Key(named)) != 0;
            }
        }
    }
    for (const CastDefinition* cast : castTable_) {
        cast->blacklisted = !keys.empty() && keys.count(Key(*cast)) != 0;
    }
}
