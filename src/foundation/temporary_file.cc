#include "foundation/temporary_file.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>

#include "foundation/file_operations.h"

namespace {

constexpr std::string_view uniquePart = "XXXXXX";
constexpr size_t longestStart = 4088;  // of the parent and the prefix together

// The codes of a failure, which tell the two forms apart.
constexpr int fileFailed = 0;
constexpr int folderFailed = 1;

struct UniqueTemplate {
    UniqueTemplate(const FileLocation& parent, std::string_view prefix, int failureCode) {
        if (parent.IsEmpty()) {
            throw EmptyFileLocationError();
        }
        if (prefix.size() > longestStart) {
            throw CreateUniqueFileLocationFailed(failureCode, parent.Text());
        }
        Append(parent.Text().substr(0, longestStart - prefix.size()));
        Append("/");
        Append(prefix);
        Append(uniquePart);
        *end = '\0';
    }

    void Append(std::string_view part) { end = std::copy(part.begin(), part.end(), end); }
    FileLocation Location() const { return FileLocation(std::string_view(text, static_cast<size_t>(end - text))); }

    char text[4096];
    char* end = text;
};

}  // namespace

FileLocation UniqueFolder(const FileLocation& parent, std::string_view prefix) {
    UniqueTemplate name(parent, prefix, folderFailed);
    if (::mkdtemp(name.text) == nullptr) {
        throw CreateUniqueFileLocationFailed(folderFailed, parent.Text());
    }
    return name.Location();
}

FileLocation UniqueFile(const FileLocation& parent, std::string_view prefix) {
    UniqueTemplate name(parent, prefix, fileFailed);
    const int descriptor = ::mkstemp64(name.text);
    if (descriptor < 0) {
        throw CreateUniqueFileLocationFailed(fileFailed, parent.Text());
    }
    ::close(descriptor);
    return name.Location();
}

FileLocation TemporaryFolder() { return FileLocation("/tmp"); }

FileLocation TemporaryFile() { return UniqueFile(TemporaryFolder(), "temp"); }

FileLocation TemporaryFile(std::string_view prefix) {
    EnsurePath(TemporaryFolder());
    return UniqueFile(TemporaryFolder(), prefix);
}

bool TryTemporaryFile(FileLocation& out, const char* prefix) {
    try {
        out = TemporaryFile(std::string_view(prefix == nullptr ? "ostrel" : prefix));
        return true;
    } catch (...) {
        return false;
    }
}

FileLocation SiblingTemporary(const FileLocation& location, std::string_view prefix) {
    const FileLocation folder = FileStat(location).IsDirectory() ? location : location.Parent();
    FileLocation sibling = UniqueFile(folder, prefix);
    ForceNonexistence(sibling);
    return sibling;
}

FileLocation PrivateFolder(std::string_view name) {
    FileLocation all("/var/tmp/OSL/ClientUI");
    if (name.empty()) {
        return all;
    }
    return FileLocation(all, "." + std::string(name));
}
