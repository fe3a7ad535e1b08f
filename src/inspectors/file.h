// Regular files, and those of them that are looked at as applications.
#ifndef INSPECTORS_FILE_H
#define INSPECTORS_FILE_H

#include "inspectors/filesystem_object.h"

class file : public filesystem_object {
public:
    using filesystem_object::filesystem_object;
    static bool IsKind(const FileStat& look) { return look.IsRegular(); }
};

// A file by another name.
class application : public file {
public:
    using file::file;
};

// Feeds what tells whether a file is still the same: its path, its size, the second of its last change, the state of
// the look, its mode and its device.
void FingerprintFile(Fingerprinter& fingerprinter, const filesystem_object& object);

template <>
struct InspectorTypeInfo<file> : InspectorTypeBasics<file> {
    static constexpr char Name[] = "file";
    static constexpr unsigned Size = sizeof(file);
    static constexpr const char* Parent = InspectorTypeInfo<filesystem_object>::Name;
    static void Fingerprint(Fingerprinter& fingerprinter, const void* value) {
        FingerprintFile(fingerprinter, *static_cast<const file*>(value));
    }
};

template <>
struct InspectorTypeInfo<application> : InspectorTypeBasics<application> {
    static constexpr char Name[] = "application";
    static constexpr unsigned Size = sizeof(application);
    static constexpr const char* Parent = InspectorTypeInfo<file>::Name;
    static void Fingerprint(Fingerprinter& fingerprinter, const void* value) {
        FingerprintFile(fingerprinter, *static_cast<const application*>(value));
    }
};

#endif
