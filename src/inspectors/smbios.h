// The firmware's structures as they come: a walk over all of them, and over the fields of each.
#ifndef INSPECTORS_SMBIOS_H
#define INSPECTORS_SMBIOS_H

#include "inspectors/smbios_catalogue.h"
#include "registry/inspector_type_info.h"

// The firmware; a token without data.
struct smbios {
    ConstData FingerprintData() const { return {}; }
};

struct smbios_structure {
    const SmbType* type;
    const DmiStructure* structure;

    ConstData FingerprintData() const { return structure->All(); }
};

// A field of a structure, or one string of a field of many.
struct smbios_value {
    smbios_structure structure;
    const SmbValue* field;
    uint64_t string;  // its number, for a field of many strings, else 0
};

template <>
struct InspectorTypeInfo<smbios> : InspectorTypeBasics<smbios> {
    static constexpr char Name[] = "smbios";
    static constexpr unsigned Size = sizeof(smbios);
};

template <>
struct InspectorTypeInfo<smbios_structure> : InspectorTypeBasics<smbios_structure> {
    static constexpr char Name[] = "smbios structure";
    static constexpr unsigned Size = sizeof(smbios_structure);
};

// Of the same field two structures may hold different values, and of one structure two fields the same.
template <>
struct InspectorTypeInfo<smbios_value> : InspectorTypeBasics<smbios_value, 0> {
    static constexpr char Name[] = "smbios value";
    static constexpr unsigned Size = sizeof(smbios_value);
};

#endif
