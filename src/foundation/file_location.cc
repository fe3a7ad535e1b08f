#include "foundation/file_location.h"

#include "foundation/ascii.h"

std::string_view FileLocation::ParentText(std::string_view text) {
    if (text.empty()) {
        throw EmptyFileLocationError();
    }
    if (text == "/") {
        throw RootHasNoParent(0, text);
    }
    const size_t slash = text.rfind('/');
    if (slash == std::string_view::npos) {
        throw InvalidFileLocation(0, text);
    }
    return slash == 0 ? text.substr(0, 1) : Stripped(text.substr(0, slash));
}

FileName FileLocation::Name() const {
    if (IsEmpty()) {
        return FileName::Empty();
    }
    const size_t slash = Text().rfind('/');
    return FileName(slash == std::string_view::npos ? Text() : Text().substr(slash + 1));
}

bool FileLocation::IsInside(const FileLocation& folder) const {
    if (IsEmpty() || folder.IsEmpty()) {
        throw EmptyFileLocationError();
    }
    std::string_view current = Text();
    while (current.size() != folder.Length() || Compare(current, folder.Text()) != 0) {
        if (current == "/") {
            return false;
        }
        current = ParentText(current);
    }
    return true;
}

bool FileLocation::IsStrictlyInside(const FileLocation& folder) const {
    if (*this == folder && !folder.IsEmpty()) {
        return false;
    }
    return IsInside(folder);
}

std::string_view FileLocation::Stripped(std::string_view text) noexcept {
    while (text.size() > 1 && text.back() == '/') {
        text.remove_suffix(1);
    }
    return text;
}

InlineText<128> FileLocation::Joined(std::string_view parent, std::string_view child) {
    if (parent.empty()) {
        throw EmptyFileLocationError();
    }
    if (child.empty()) {
        return InlineText<128>(parent);
    }
    while (!child.empty() && child.back() == '/') {
        child.remove_suffix(1);
    }
    const bool bringsItsSlash = !child.empty() && child.front() == '/';
    return InlineText<128>(parent, bringsItsSlash ? "" : "/", child);
}

int FileLocation::Compare(std::string_view a, std::string_view b) noexcept {
    return Ascii::CompareIgnoringCase(ConstData(a), ConstData(b));
}
