// Symbolic links themselves, whether or not they lead anywhere.
#ifndef INSPECTORS_SYMBOLIC_LINK_H
#define INSPECTORS_SYMBOLIC_LINK_H

#include <string>

#include "inspectors/filesystem_object.h"

// A link as it was when the value was made: its place, the looks at it and through it, and its text.
class symbolic_link {
public:
    symbolic_link(FileStat&& look, std::string&& text) noexcept : stat_(std::move(look)), text_(std::move(text)) {}

    const FileStat& Stat() const { return stat_; }
    const FileLocation& Location() const { return stat_.Location(); }
    const std::string& Text() const { return text_; }

    // The record that the properties answer from: the link's own.
    const struct stat64* Record() const { return &stat_.Itself(); }

private:
    FileStat stat_;
    std::string text_;
};

template <>
struct InspectorTypeInfo<symbolic_link> : InspectorTypeBasics<symbolic_link, 0> {
    static constexpr char Name[] = "symlink";
    static constexpr unsigned Size = sizeof(symbolic_link);
};

// None for what is no link, and for a link whose text cannot be read.
template <>
std::optional<symbolic_link> FromLook<symbolic_link>(FileStat&& look);

#endif
