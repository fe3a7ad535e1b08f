// What stands at a place of the file system, and how the values for it are made.
//
// Files, folders, devices and their kin derive from filesystem_object and add no data: what sets them apart is the test
// that a place must pass to be one of them.
#ifndef INSPECTORS_FILESYSTEM_OBJECT_H
#define INSPECTORS_FILESYSTEM_OBJECT_H

#include <optional>
#include <string_view>
#include <utility>

#include "foundation/file_stat.h"
#include "registry/inspector_type_info.h"

// Shows its place as it was when the value was made; it never looks again.
class filesystem_object {
public:
    // The look as it is, whatever it found: At and FromLook are what tests the kind.
    explicit filesystem_object(FileStat&& look) noexcept : stat_(std::move(look)) {}

    const FileStat& Stat() const { return stat_; }
    const FileLocation& Location() const { return stat_.Location(); }

    // The record that the properties answer from: that of what a symbolic link leads to.  Null where the link leads
    // nowhere.
    const struct stat64* Record() const {
        return stat_.GetState() == FileStat::DanglingLink ? nullptr : &stat_.Target();
    }

private:
    FileStat stat_;
};

template <>
struct InspectorTypeInfo<filesystem_object> : InspectorTypeBasics<filesystem_object, 0> {
    static constexpr char Name[] = "filesystem object";
    static constexpr unsigned Size = sizeof(filesystem_object);
};

// The value of kind T that a look found; none where it found something else, and then the look is as it was.
template <class T>
std::optional<T> FromLook(FileStat&& look) {
    if (!T::IsKind(look)) {
        return std::nullopt;
    }
    return std::optional<T>(std::in_place, std::move(look));
}

// The value of kind T at a place; none where there is something else or nothing, and for the empty location.
template <class T>
std::optional<T> At(FileLocation location) {
    if (location.IsEmpty()) {
        return std::nullopt;
    }
    return FromLook<T>(FileStat(std::move(location)));
}

// The same of a path as the language has it.
template <class T>
std::optional<T> AtPath(const inspector_string& path) {
    return At<T>(FileLocation(path.View()));
}

// The same of what another value, an object or a link, stands at: a new look at its path.
template <class T, class Object>
std::optional<T> AtPlaceOf(const Object& object) {
    return At<T>(object.Location());
}

#endif
