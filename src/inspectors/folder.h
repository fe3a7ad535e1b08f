// Folders, and how what is inside them is named.
#ifndef INSPECTORS_FOLDER_H
#define INSPECTORS_FOLDER_H

#include "inspectors/filesystem_object.h"

class folder : public filesystem_object {
public:
    using filesystem_object::filesystem_object;
    static bool IsKind(const FileStat& look) { return look.IsDirectory(); }
};

template <>
struct InspectorTypeInfo<folder> : InspectorTypeBasics<folder, 0> {
    static constexpr char Name[] = "folder";
    static constexpr unsigned Size = sizeof(folder);
    static constexpr const char* Parent = InspectorTypeInfo<filesystem_object>::Name;
};

// The value of kind T under a name in a folder; none for the empty name.  The name may lead on through "/".
template <class T>
std::optional<T> Inside(const inspector_string& name, const folder& parent) {
    if (name.length == 0) {
        return std::nullopt;
    }
    return At<T>(FileLocation(parent.Location(), name.View()));
}

#endif
