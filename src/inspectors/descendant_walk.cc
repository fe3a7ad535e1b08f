#include "inspectors/descendant_walk.h"

template <bool Folders>
FileStat* DescendantWalk::Next() {
    if (given_) {
        given_ = false;
        cursors_.back()->Next();
    }
    while (!cursors_.empty()) {
        UnixPlatform::FileLoop& top = *cursors_.back();
        if (!top.Valid()) {
            cursors_.pop_back();
            continue;
        }
        const FileStat& entry = top.Current();
        if (!entry.IsThere()) {
            throw FileItemError(0, entry.Location().Text());
        }
        if (entry.IsDirectory()) {
            found_ = top.TakeCurrent();
            top.Next();
            Enter(found_.Location());
            if constexpr (Folders) {
                return &found_;
            }
        } else if (!Folders && entry.IsRegular()) {
            given_ = true;
            return &top.TakeCurrent();
        } else {
            top.Next();
        }
    }
    return nullptr;
}

template FileStat* DescendantWalk::Next<false>();
template FileStat* DescendantWalk::Next<true>();
