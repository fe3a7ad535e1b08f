// What the program says of itself: the version record that the host's inspectors and packagers read.
#ifndef FOUNDATION_VERSION_STRINGS_H
#define FOUNDATION_VERSION_STRINGS_H

#include <map>
#include <string>

struct VersionStringResource {
    // Filled by a static initialiser, before the entry runs.
    static const std::map<std::string, std::string> versionMap;
};

#endif
