#include "foundation/wildcard.h"

bool MatchesWildcard(std::string_view name, std::string_view pattern) {
    size_t at = 0;
    size_t next = 0;
    // Only the last star seen can be worth another try: whatever an earlier one could still take, it can take too.
    size_t star = std::string_view::npos;
    size_t starTakesUpTo = 0;
    while (at < name.size()) {
        if (next < pattern.size() && pattern[next] == '*') {
            star = next++;
            starTakesUpTo = at;
            if (next == pattern.size()) {
                return true;
            }
        } else if (next < pattern.size() && (pattern[next] == '?' || pattern[next] == name[at])) {
            ++next;
            ++at;
        } else if (star != std::string_view::npos) {
            next = star + 1;
            at = ++starTakesUpTo;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', next) == std::string_view::npos;
}

WildcardPath SplitWildcardPath(std::string_view path) {
    const size_t slash = path.rfind('/');
    const size_t last = slash == std::string_view::npos ? 0 : slash + 1;
    if (path.find_first_of("*?", last) == std::string_view::npos) {
        return {FileLocation(path), std::nullopt};
    }
    return {FileLocation(path.substr(0, last == 0 ? 0 : slash)), path.substr(last)};
}
