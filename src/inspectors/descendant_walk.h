// The walk over everything below a folder.
#ifndef INSPECTORS_DESCENDANT_WALK_H
#define INSPECTORS_DESCENDANT_WALK_H

#include <memory>
#include <vector>

#include "foundation/file_loop.h"

// Depth first, the names of each folder in the listing's order, so that what a folder holds comes at the folder's own
// place.  Links to folders are followed and nothing looks for loops: the kernel ends those, by refusing the path.
// Takes memory by depth, not by number.
class DescendantWalk {
public:
    explicit DescendantWalk(const FileLocation& top) { Enter(top); }

    // The next regular file, or the next folder: a walk is asked for one of the two throughout.  The look may be moved
    // from and is good until the next call; null is the end.  Throws FileItemError for what cannot be looked at.
    FileStat* NextFile() { return Next<false>(); }
    FileStat* NextFolder() { return Next<true>(); }

private:
    template <bool Folders>
    FileStat* Next();
    void Enter(const FileLocation& folder) { cursors_.push_back(std::make_unique<UnixPlatform::FileLoop>(folder)); }

    std::vector<std::unique_ptr<UnixPlatform::FileLoop>> cursors_;
    FileStat found_;
    bool given_ = false;  // The top cursor stands on a file that has been given.
};

#endif
