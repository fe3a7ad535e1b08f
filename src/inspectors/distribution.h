// Which Linux distribution this is, as far as its files tell.
//
// The probing looks at one place after the other and stops at the first that answers.  It is a function of the files'
// contents: whoever calls it says how they are read.
#ifndef INSPECTORS_DISTRIBUTION_H
#define INSPECTORS_DISTRIBUTION_H

#include <functional>
#include <optional>
#include <string>
#include <string_view>

// A field that was not found is empty.
struct Distribution {
    std::string name;
    std::string version;
    std::string codename;
};

// The first bytes of a file, at most as many as are asked for; none where it cannot be opened.
using ReleaseFileReader = std::function<std::optional<std::string>(const char* path, size_t most)>;

// All fields are empty where nothing was found.
Distribution ProbeDistribution(const ReleaseFileReader& read);

// The reader of this machine's files.
std::optional<std::string> ReadReleaseFile(const char* path, size_t most);

#endif
