// The firmware's structures by name: `vendor of bios_information of dmi`.
#ifndef INSPECTORS_DMI_H
#define INSPECTORS_DMI_H

#include "inspectors/dmi_structure.h"
#include "registry/inspector_type_info.h"

// The firmware; a token without data.
struct dmi {
    ConstData FingerprintData() const { return {}; }
};

// A structure of any type: one class stands for all the types of the language that are made of the catalogue.
struct dmi_structure {
    const DmiStructure* structure;

    ConstData FingerprintData() const { return structure->All(); }
};

template <>
struct InspectorTypeInfo<dmi> : InspectorTypeBasics<dmi> {
    static constexpr char Name[] = "dmi";
    static constexpr unsigned Size = sizeof(dmi);
};

// The name is given by the catalogue's row.
template <>
struct InspectorTypeInfo<dmi_structure> : InspectorTypeBasics<dmi_structure> {
    static constexpr char Name[] = "";
    static constexpr unsigned Size = sizeof(dmi_structure);
};

#endif
