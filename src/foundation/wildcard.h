// Wildcard patterns over file names.
#ifndef FOUNDATION_WILDCARD_H
#define FOUNDATION_WILDCARD_H

#include <optional>
#include <string_view>

#include "foundation/file_location.h"

// True when the whole of `name` matches `pattern`: `?` is any one byte, `*` any run of bytes, even none, and every
// other byte is itself, its case included.  Takes time of the product of the two lengths at worst, and no memory.
bool MatchesWildcard(std::string_view name, std::string_view pattern);

// A path whose last component may be a pattern.
struct WildcardPath {
    FileLocation folder;
    std::optional<std::string_view> pattern;  // a part of the text that was split
};

// Splits at the last "/" when a wildcard stands behind it; otherwise all of `path` is the folder.  What stands before
// that "/" is taken as it is: the folder of "/*" and that of "*" are the empty location.
WildcardPath SplitWildcardPath(std::string_view path);

#endif
