#include "inspectors/smbios.h"

#include <charconv>
#include <optional>

#include "evaluator/adapters.h"
#include "foundation/ascii.h"
#include "inspectors/dmi_info.h"
#include "values/integer.h"

namespace {

using String = inspector_string;

smbios Smbios() {
    EnabledDmiTable();
    return {};
}

bool IsNamed(std::string_view name, const String& wanted) {
    return Ascii::CompareIgnoringCase(ConstData(name), wanted.Data()) == 0;
}

String StructureName(const smbios_structure& s) { return String(s.type->name); }
integer StructureLength(const smbios_structure& s) { return s.structure->Length(); }
integer StructureType(const smbios_structure& s) { return s.type->type; }

String ValueName(const smbios_value& v) { return String(v.field->name); }
String ValueType(const smbios_value& v) { return String(NameOf(v.field->kind)); }
integer ValueOffset(const smbios_value& v) { return v.field->offset; }
smbios_structure StructureOfValue(const smbios_value& v) { return v.structure; }

std::optional<integer> Number(const smbios_value& v) {
    const std::optional<int64_t> number = IntegerOf(*v.field, *v.structure.structure);
    return number ? std::optional<integer>(*number) : std::nullopt;
}

std::optional<String> Text(const smbios_value& v) {
    const DmiStructure& structure = *v.structure.structure;
    const std::optional<std::string_view> text =
        v.field->kind == SmbKind::MultipleString ? structure.NumberedString(v.string) : TextOf(*v.field, structure);
    return text ? std::optional<String>(*text) : std::nullopt;
}

// Decimal for a number.
std::optional<String> AsString(const smbios_value& v) {
    if (!IsIntegerKind(v.field->kind)) {
        return Text(v);
    }
    const std::optional<integer> number = Number(v);
    if (!number) {
        return std::nullopt;
    }
    constexpr size_t kDigits = 20;
    char* digits = static_cast<char*>(InspectorAllocate(kDigits));
    const char* end = std::to_chars(digits, digits + kDigits, number->Value()).ptr;
    return String(digits, static_cast<size_t>(end - digits));
}

// ---- Walks ----------------------------------------------------------------------------------------------------------

// By the types' numbers, and within one by instance.  The structures of a type that the catalogue does not have are
// passed over.
class structure_iterator {
public:
    void Start(Of, const smbios&) { Begin(smbTypeTable); }
    std::optional<smbios_structure> Next(Of, const smbios&) {
        for (; type_->type != -1; Begin(type_ + 1)) {
            if (std::optional<smbios_structure> structure = NextOfType()) {
                return structure;
            }
        }
        return std::nullopt;
    }

    void StartNamed(const String& name, Of, const smbios&) {
        const SmbType* type = smbTypeTable;
        while (type->type != -1 && !IsNamed(type->name, name)) {
            ++type;
        }
        Begin(type);
    }
    bool FinishedNamed(const String&, Of, const smbios&) const { return type_->type == -1; }
    std::optional<smbios_structure> NextNamed(const String&, Of, const smbios&) { return NextOfType(); }

private:
    void Begin(const SmbType* type) {
        type_ = type;
        instances_.Start(static_cast<unsigned>(type->type));
    }
    std::optional<smbios_structure> NextOfType() {
        const DmiStructure* structure = instances_.Next(LoadedDmiTable());
        return structure == nullptr ? std::nullopt : std::optional(smbios_structure{type_, structure});
    }

    const SmbType* type_ = nullptr;
    DmiInstances instances_;
};

bool AnyKind(SmbKind) { return true; }
bool TextKind(SmbKind kind) { return !IsIntegerKind(kind); }

// The rows of a structure's type in their order, less those that begin behind its end.  A row of many strings gives
// each of them.
class value_cursor {
public:
    void Start() {
        row_ = 0;
        string_ = 0;
    }
    template <class IsWanted>
    std::optional<smbios_value> Next(const smbios_structure& s, IsWanted isWanted) {
        for (; row_ < s.type->count; ++row_, string_ = 0) {
            const SmbValue& field = s.type->values[row_];
            if (field.offset > s.structure->Length() || !isWanted(field)) {
                continue;
            }
            if (field.kind != SmbKind::MultipleString) {
                ++row_;
                return smbios_value{s, &field, 0};
            }
            if (s.structure->NumberedString(++string_)) {
                return smbios_value{s, &field, string_};
            }
        }
        return std::nullopt;
    }

private:
    unsigned row_ = 0;
    uint64_t string_ = 0;
};

class value_iterator {
public:
    void Start(Of, const smbios_structure&) { cursor_.Start(); }
    std::optional<smbios_value> Next(Of, const smbios_structure& s) {
        return cursor_.Next(s, [](const SmbValue&) { return true; });
    }

private:
    value_cursor cursor_;
};

// The values of a name and of some kinds.
template <bool IsKind(SmbKind)>
class named_value_iterator {
public:
    void Start(const String&, Of, const smbios_structure&) { cursor_.Start(); }
    std::optional<smbios_value> Next(const String& name, Of, const smbios_structure& s) {
        return cursor_.Next(s, [&](const SmbValue& field) { return IsKind(field.kind) && IsNamed(field.name, name); });
    }

private:
    value_cursor cursor_;
};

// What F gives of these; a value of which it gives nothing is passed over.
template <bool IsKind(SmbKind), class R, std::optional<R> F(const smbios_value&)>
class named_content_iterator {
public:
    void Start(const String& name, Of of, const smbios_structure& s) { values_.Start(name, of, s); }
    std::optional<R> Next(const String& name, Of of, const smbios_structure& s) {
        while (const std::optional<smbios_value> value = values_.Next(name, of, s)) {
            if (std::optional<R> content = F(*value)) {
                return content;
            }
        }
        return std::nullopt;
    }

private:
    named_value_iterator<IsKind> values_;
};

// ---- Registrations --------------------------------------------------------------------------------------------------

template <class Iterator, class R, class O>
using Every = IteratedPropertyOfObject<Iterator, R, O, &Iterator::Next, &Iterator::Next, &Iterator::Start>;
template <class Iterator, class R, class O>
using EveryNamed =
    IteratedPropertyByIndexOfObject<Iterator, R, String, O, &Iterator::Next, &Iterator::Next, &Iterator::Start>;

using NamedStructures =
    IteratedPropertyByIndexOfObject<structure_iterator, smbios_structure, String, smbios,
                                    &structure_iterator::NextNamed, &structure_iterator::NextNamed,
                                    &structure_iterator::StartNamed, &structure_iterator::FinishedNamed>;
using AnyValues = named_value_iterator<AnyKind>;
using IntegerValues = named_value_iterator<IsIntegerKind>;
using StringValues = named_value_iterator<TextKind>;
using Integers = named_content_iterator<IsIntegerKind, integer, Number>;
using Strings = named_content_iterator<TextKind, String, Text>;

// clang-format off
Type<smbios>                                                    type;
Type<smbios_structure>                                          structureType;
Type<smbios_value>                                              valueType;

GlobalProperty<smbios, Smbios>                                  global          {"smbios", "smbioses", ByValueOnly};
Every<structure_iterator, smbios_structure, smbios>             structures      {"structure", "structures", ByValueOnly};
NamedStructures                                                 namedStructures {"structure", "structures", ByValueOnly};
Property<smbios_structure, String, StructureName>               structureName   {"name", "names"};
Property<smbios_structure, integer, StructureLength>            length          {"length", "lengths"};
Property<smbios_structure, integer, StructureType>              typeNumber      {"type", "types"};
Every<value_iterator, smbios_value, smbios_structure>           values          {"value", "values", ByValueOnly};
EveryNamed<AnyValues, smbios_value, smbios_structure>           namedValues     {"value", "values", ByValueOnly};
EveryNamed<IntegerValues, smbios_value, smbios_structure>       integerValues   {"integer value", "integer values", ByValueOnly};
EveryNamed<StringValues, smbios_value, smbios_structure>        stringValues    {"string value", "string values", ByValueOnly};
EveryNamed<Integers, integer, smbios_structure>                 integers        {"integer", "integers"};
EveryNamed<Strings, String, smbios_structure>                   strings         {"string", "strings"};
Property<smbios_value, String, ValueName>                       valueName       {"name", "names", ByValueOnly};
Property<smbios_value, String, ValueType>                       kind            {"type", "types", ByValueOnly};
Property<smbios_value, integer, ValueOffset>                    offset          {"offset", "offsets", ByValueOnly};
Property<smbios_value, smbios_structure, StructureOfValue>      structureOf     {"structure", "structures", ByValueOnly};
Cast<String, smbios_value, AsString>                            text            {"string", ByValueOnly};
// clang-format on

}  // namespace
