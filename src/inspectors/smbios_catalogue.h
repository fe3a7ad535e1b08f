// The catalogue of firmware structures: each structure type with its name, and each of its fields with its name, its
// kind and its place.
//
// Both families are made of it: `dmi` gives every type and field a phrase of its own, and `smbios` finds them by name
// while it walks.  The names are vocabulary and stand as they are, oddities included; every plural adds an "s" to the
// name, whatever the word.  All texts lie in static storage and end in a zero byte.
#ifndef INSPECTORS_SMBIOS_CATALOGUE_H
#define INSPECTORS_SMBIOS_CATALOGUE_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "inspectors/dmi_structure.h"

enum class SmbKind : uint8_t {
    Byte,
    Word,
    DWord,
    QWord,
    String,          // the byte at the place is the number of a string of the string set
    BinaryString,    // bytes of a fixed length
    MultipleString,  // all strings of the string set
};

// What the language calls the kind: "Byte", "BinaryString".
const char* NameOf(SmbKind kind);

constexpr bool IsIntegerKind(SmbKind kind) { return kind <= SmbKind::QWord; }

// One field.
struct SmbValue {
    std::string_view name;
    const char* plural;
    SmbKind kind;
    uint8_t offset;  // from the start of the formatted area
    uint8_t length;  // of a binary string, else 0
};

// One structure type.
struct SmbType {
    int type;
    unsigned count;  // of its fields
    std::string_view name;
    const char* plural;
    const char* dmiType;  // the name of its type in the language, "dmi memory_device"; empty where `dmi` has none
    const SmbValue* values;

    constexpr bool IsOnDmi() const { return *dmiType != 0; }
    const SmbValue* begin() const { return values; }
    const SmbValue* end() const { return values + count; }
};

// In the order of the types' numbers; the last row has the type -1.
extern const SmbType smbTypeTable[];

// The rows that have a type on `dmi`, and the fields of these.
inline constexpr size_t kDmiTypes = 38;
inline constexpr size_t kDmiFields = 272;

// The field's value in a structure, absent where the structure is too short for it; a number of 2^63 or more has no
// value either.  The text lies in the structure.
std::optional<int64_t> IntegerOf(const SmbValue& field, const DmiStructure& structure);
// Of a field of many strings, none: those are numbered.
std::optional<std::string_view> TextOf(const SmbValue& field, const DmiStructure& structure);

#endif
