// The operating system: what the kernel says of itself, and which distribution it serves.
#ifndef INSPECTORS_OPERATING_SYSTEM_H
#define INSPECTORS_OPERATING_SYSTEM_H

#include <sys/utsname.h>

#include <string>

#include "inspectors/distribution.h"
#include "registry/inspector_type_info.h"

struct operating_system {
    std::string name;
    std::string release;
    std::string build;
    std::string version;
    std::string architecture;
    std::string machine;
    std::string codename;
};

template <>
struct InspectorTypeInfo<operating_system> : InspectorTypeBasics<operating_system> {
    static constexpr char Name[] = "operating system";
    static constexpr unsigned Size = sizeof(operating_system);

    static void Fingerprint(Fingerprinter& fingerprinter, const void* value) {
        const auto& system = *static_cast<const operating_system*>(value);
        for (const std::string* text : {&system.name, &system.release, &system.build, &system.version,
                                        &system.architecture, &system.machine, &system.codename}) {
            const size_t length = text->size();
            fingerprinter.AddData(ConstData(&length, sizeof length));
            fingerprinter.AddData(ConstData(*text));
        }
    }
};

// The name is the kernel's own where no distribution was found.
operating_system DescribeSystem(const struct utsname& kernel, const Distribution& found);

#endif
