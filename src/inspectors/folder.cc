#include "inspectors/folder.h"

#include "evaluator/adapters.h"
#include "inspectors/descendant_walk.h"
#include "inspectors/device_files.h"
#include "inspectors/file.h"
#include "inspectors/folder_entries.h"
#include "inspectors/symbolic_link.h"

namespace {

std::optional<folder> RootFolder() { return At<folder>(FileLocation("/")); }

class descendant_iterator {
public:
    void Start(Of, const folder& top) { walk_.emplace(top.Location()); }

    std::optional<file> NextFile(Of, const folder&) {
        FileStat* const found = walk_->NextFile();
        return found == nullptr ? std::nullopt : std::optional<file>(std::in_place, std::move(*found));
    }
    std::optional<folder> NextFolder(Of, const folder&) {
        FileStat* const found = walk_->NextFolder();
        return found == nullptr ? std::nullopt : std::optional<folder>(std::in_place, std::move(*found));
    }

private:
    std::optional<DescendantWalk> walk_;
};

// The entries of one kind, and those among them whose names match a pattern.
template <class T>
using Entries = IteratedPropertyOfObject<folder_entries<T>, T, folder, &folder_entries<T>::Next,
                                         &folder_entries<T>::Next, &folder_entries<T>::Start>;
template <class T>
using MatchingEntries =
    IteratedPropertyByIndexOfObject<folder_entries<T>, T, inspector_string, folder, &folder_entries<T>::NextMatching,
                                    &folder_entries<T>::NextMatching, &folder_entries<T>::StartMatching>;
template <class T, auto Next>
using Descendants = IteratedPropertyOfObject<descendant_iterator, T, folder, Next, Next, &descendant_iterator::Start>;

// clang-format off
Type<folder>                                                        type;

NamedGlobalProperty<folder, AtPath<folder>>                         ofPath            {"folder", "folders", ByValueOnly};
NamedProperty<folder, folder, Inside<folder>>                       ofFolder          {"folder", "folders", ByValueOnly};
GlobalProperty<folder, RootFolder>                                  root              {"root folder", "root folders", ByValueOnly};
GlobalProperty<folder, RootFolder>                                  system            {"system folder", "system folders", ByValueOnly};

Entries<file>                                                       files             {"file", "files", ByValueOnly};
MatchingEntries<file>                                               findFiles         {"find file", "find files", ByValueOnly};
Entries<folder>                                                     folders           {"folder", "folders", ByValueOnly};
MatchingEntries<folder>                                             findFolders       {"find folder", "find folders", ByValueOnly};
Descendants<file, &descendant_iterator::NextFile>                   descendants       {"descendant", "descendants", ByValueOnly};
Descendants<folder, &descendant_iterator::NextFolder>               descendantFolders {"descendant folder", "descendant folders", ByValueOnly};
Entries<symbolic_link>                                              symlinks          {"symlink", "symlinks", ByValueOnly};
Entries<device_file>                                                deviceFiles       {"device file", "device files", ByValueOnly};
Entries<fifo_file>                                                  fifoFiles         {"fifo file", "fifo files", ByValueOnly};
Entries<socket_file>                                                socketFiles       {"socket file", "socket files", ByValueOnly};
// clang-format on

}  // namespace
