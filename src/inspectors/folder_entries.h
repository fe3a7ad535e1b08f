// The iteration over the entries of one kind in a folder.
#ifndef INSPECTORS_FOLDER_ENTRIES_H
#define INSPECTORS_FOLDER_ENTRIES_H

#include <optional>

#include "evaluator/adapters.h"
#include "foundation/file_loop.h"
#include "inspectors/folder.h"

// Gives the entries that are a T, in the order of the listing, and passes over all others.  An entry that cannot be
// looked at at all ends the iteration by FileItemError.  Each entry is looked at no sooner than it is asked for.
template <class T>
class folder_entries {
public:
    void Start(Of, const folder& in) { Begin(in); }
    std::optional<T> Next(Of, const folder&) { return NextEntry(); }

    // The same for the entries whose names match a wildcard pattern.
    void StartMatching(const inspector_string& pattern, Of, const folder& in) { Begin(in, pattern.View()); }
    std::optional<T> NextMatching(const inspector_string&, Of, const folder&) { return NextEntry(); }

private:
    template <class... Pattern>
    void Begin(const folder& in, Pattern... pattern) {
        given_ = false;
        loop_.emplace(in.Location(), pattern...);
    }

    std::optional<T> NextEntry() {
        if (given_) {
            loop_->Next();
        }
        for (given_ = true; loop_->Valid(); loop_->Next()) {
            if (!loop_->Current().IsThere()) {
                throw FileItemError(0, loop_->Current().Location().Text());
            }
            if (std::optional<T> entry = FromLook<T>(std::move(loop_->TakeCurrent()))) {
                return entry;
            }
        }
        return std::nullopt;
    }

    std::optional<UnixPlatform::FileLoop> loop_;
    bool given_ = false;  // The cursor stands on an entry that has been given.
};

#endif
