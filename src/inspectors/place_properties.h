// What objects and symbolic links can both be asked: where they stand, whose they are and when they were changed.
//
// Each function takes a filesystem_object or a symbolic_link: whatever has a Location and a Record, the one for what
// its path leads to and the other for itself.  Without a record nothing that is read from it has a value.
#ifndef INSPECTORS_PLACE_PROPERTIES_H
#define INSPECTORS_PLACE_PROPERTIES_H

#include <optional>

#include "evaluator/adapters.h"
#include "foundation/file_location.h"
#include "inspectors/folder.h"
#include "values/integer.h"
#include "values/moment.h"

// The text behind the last "/", all of it where there is none; the root's is "/".  A view of the location's text.
inspector_string NameOfPlace(const FileLocation& location);

// None for the root and for a folder that is not there.  Throws InvalidFileLocation for a path without "/".
std::optional<folder> ParentFolderOfPlace(const FileLocation& location);

// The parent folder's path, a view of the location's text; as the parent folder, it must be there.
std::optional<inspector_string> ParentPathOfPlace(const FileLocation& location);

// The names in evaluation memory; none for a number without a name.
std::optional<inspector_string> NameOfUser(uid_t uid);
std::optional<inspector_string> NameOfGroup(gid_t gid);

// Files keep their times as seconds of 32 bits here: kept as it stands.
constexpr moment FileTime(const struct timespec& time) {
    return moment(int64_t{static_cast<int32_t>(time.tv_sec)} * 1000000);
}

// The folders from the nearest one up to the root.  Ends early at a folder that is not there.
class ancestor_iterator {
public:
    template <class T>
    void Start(Of, const T& object) {
        current_ = object.Location();
    }
    template <class T>
    std::optional<folder> Next(Of, const T&) {
        return Up();
    }

private:
    std::optional<folder> Up();

    FileLocation current_;
};

namespace place_properties {

template <class T>
inspector_string Name(const T& object) {
    return NameOfPlace(object.Location());
}

template <class T>
inspector_string Pathname(const T& object) {
    return inspector_string(object.Location().Text());
}

template <class T>
std::optional<inspector_string> Location(const T& object) {
    return ParentPathOfPlace(object.Location());
}

template <class T>
std::optional<folder> ParentFolder(const T& object) {
    return ParentFolderOfPlace(object.Location());
}

template <class T, auto Field>
std::optional<moment> Time(const T& object) {
    const struct stat64* record = object.Record();
    return record == nullptr ? std::nullopt : std::optional<moment>(FileTime(record->*Field));
}

template <class T, auto Field>
std::optional<integer> Number(const T& object) {
    const struct stat64* record = object.Record();
    return record == nullptr ? std::nullopt : std::optional<integer>(static_cast<int64_t>(record->*Field));
}

template <class T>
std::optional<inspector_string> UserName(const T& object) {
    const struct stat64* record = object.Record();
    return record == nullptr ? std::nullopt : NameOfUser(record->st_uid);
}

template <class T>
std::optional<inspector_string> GroupName(const T& object) {
    const struct stat64* record = object.Record();
    return record == nullptr ? std::nullopt : NameOfGroup(record->st_gid);
}

// The rows themselves, one set for each of the two types.
// clang-format off
template <class T>
struct Registrations {
    ::Property<T, inspector_string, Name<T>>                        name             {"name", "names"};
    ::Property<T, inspector_string, Pathname<T>>                    pathname         {"pathname", "pathnames"};
    ::Property<T, inspector_string, Location<T>>                    location         {"location", "locations", ByValueOnly};
    ::Property<T, folder, ParentFolder<T>>                          parentFolder     {"parent folder", "parent folders", ByValueOnly};
    IteratedPropertyOfObject<ancestor_iterator, folder, T, &ancestor_iterator::Next<T>, &ancestor_iterator::Next<T>,
                             &ancestor_iterator::Start<T>>          ancestors        {"ancestor", "ancestors", ByValueOnly};
    ::Property<T, moment, Time<T, &stat64::st_mtim>>                modificationTime {"modification time", "modification times"};
    ::Property<T, moment, Time<T, &stat64::st_atim>>                accessedTime     {"accessed time", "accessed times"};
    ::Property<T, moment, Time<T, &stat64::st_ctim>>                changeTime       {"change time", "change times"};
    ::Property<T, inspector_string, UserName<T>>                    userName         {"user name", "user names", ByValueOnly};
    ::Property<T, inspector_string, GroupName<T>>                   groupName        {"group name", "group names", ByValueOnly};
    ::Property<T, integer, Number<T, &stat64::st_uid>>              uid              {"uid", "uids"};
    ::Property<T, integer, Number<T, &stat64::st_gid>>              gid              {"gid", "gids"};
    ::Property<T, integer, Number<T, &stat64::st_nlink>>            linkCount        {"link count", "link counts"};
    Cast<inspector_string, T, Pathname<T>>                          toString         {"string"};
};
// clang-format on

}  // namespace place_properties

#endif
