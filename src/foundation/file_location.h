// The name of a place in the file system: bytes in no particular encoding.
#ifndef FOUNDATION_FILE_LOCATION_H
#define FOUNDATION_FILE_LOCATION_H

#include <string_view>

#include "foundation/file_error.h"
#include "foundation/file_name.h"
#include "foundation/inline_text.h"

// A path as it was given, less the "/" at its end.  Making one never asks the disk.  Texts of up to 127 bytes do not
// touch the heap.
//
// The empty location is a value like any other, but what would ask the disk about it throws EmptyFileLocationError.
class FileLocation {
public:
    FileLocation() noexcept = default;

    // Strips "/" from the end as long as more than one byte remains.
    explicit FileLocation(std::string_view text) : text_(Stripped(text)) {}
    explicit FileLocation(ConstData text) : FileLocation(text.View()) {}

    // A null pointer is the empty text.
    explicit FileLocation(const char* text)
        : FileLocation(text == nullptr ? std::string_view() : std::string_view(text)) {}

    // A place inside `parent`, by joining with one "/".  The parent's own text is copied as it is, so the root joined
    // with "etc" is "//etc"; a child that begins with "/" follows directly.  "/" at the child's end are dropped: a
    // child made of nothing else leaves the parent with one "/" behind it.  An empty child gives the parent.
    // Throws EmptyFileLocationError for an empty parent.
    FileLocation(const FileLocation& parent, std::string_view child) : text_(Joined(parent.Text(), child)) {}
    FileLocation(const FileLocation& parent, ConstData child) : FileLocation(parent, child.View()) {}
    FileLocation(const FileLocation& parent, const FileName& child) : FileLocation(parent, child.Text()) {}
    FileLocation(const FileLocation& parent, const char* child)
        : FileLocation(parent, child == nullptr ? std::string_view() : std::string_view(child)) {}

    std::string_view Text() const noexcept { return text_.View(); }
    const char* CString() const noexcept { return text_.CString(); }
    size_t Length() const noexcept { return text_.Length(); }
    bool IsEmpty() const noexcept { return text_.Length() == 0; }

    bool IsRoot() const noexcept { return Text() == "/"; }
    bool IsAbsolute() const noexcept { return !IsEmpty() && Text().front() == '/'; }

    // Throws EmptyFileLocationError, RootHasNoParent, or InvalidFileLocation for a path without "/".
    FileLocation Parent() const { return FileLocation(ParentText(Text())); }

    // The part of `text` that is its parent's text; throws as Parent() does.
    static std::string_view ParentText(std::string_view text);

    // The last component.  Throws IllegalFileName or IllegalFileNameLength when that is no name, as for the root; the
    // empty location has the empty name.
    FileName Name() const;

    // True when this place is `folder` or lies inside it, by their texts alone.  Both must have text, else
    // EmptyFileLocationError; a path that runs out of "/" before it meets `folder` or the root throws
    // InvalidFileLocation.
    bool IsInside(const FileLocation& folder) const;

    // The same without the folder itself.
    bool IsStrictlyInside(const FileLocation& folder) const;

    // The order of locations, negative, 0 or positive.  It does not regard ASCII case, although the file system does:
    // kept on purpose, since every map that is keyed by location relies on it.
    int Compare(const FileLocation& other) const noexcept { return Compare(Text(), other.Text()); }

    friend bool operator==(const FileLocation& a, const FileLocation& b) noexcept {
        return a.Length() == b.Length() && a.Compare(b) == 0;
    }
    friend bool operator!=(const FileLocation& a, const FileLocation& b) noexcept { return !(a == b); }
    friend bool operator<(const FileLocation& a, const FileLocation& b) noexcept { return a.Compare(b) < 0; }

private:
    static std::string_view Stripped(std::string_view text) noexcept;
    static InlineText<128> Joined(std::string_view parent, std::string_view child);
    static int Compare(std::string_view a, std::string_view b) noexcept;

    InlineText<128> text_;
};

// The same questions with the folder first: is `location` inside `folder`?
inline bool IsInside(const FileLocation& folder, const FileLocation& location) { return location.IsInside(folder); }
inline bool IsStrictlyInside(const FileLocation& folder, const FileLocation& location) {
    return location.IsStrictlyInside(folder);
}

#endif
