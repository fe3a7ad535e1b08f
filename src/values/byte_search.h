// Where one run of bytes lies in another.  All of these give npos for what is not there; an empty run lies everywhere.
#ifndef VALUES_BYTE_SEARCH_H
#define VALUES_BYTE_SEARCH_H

#include <cstring>
#include <string_view>

// The leftmost occurrence of `sought` in `bytes` at `from` or behind it.
inline size_t FindBytes(std::string_view bytes, std::string_view sought, size_t from = 0) {
    if (from > bytes.size() || sought.size() > bytes.size() - from) {
        return std::string_view::npos;
    }
    if (sought.empty()) {
        return from;
    }
    const char* start = bytes.data() + from;
    const size_t length = bytes.size() - from;
    const void* found = sought.size() == 1 ? std::memchr(start, sought.front(), length)
                                           : memmem(start, length, sought.data(), sought.size());
    return found == nullptr ? std::string_view::npos
                            : static_cast<size_t>(static_cast<const char*>(found) - bytes.data());
}

// The rightmost occurrence of `sought` in `bytes`.
inline size_t FindLastBytes(std::string_view bytes, std::string_view sought) {
    if (sought.size() > bytes.size()) {
        return std::string_view::npos;
    }
    if (sought.empty()) {
        return bytes.size();
    }
    // Each candidate ends in the last byte of what is sought.
    const char* first = bytes.data() + (sought.size() - 1);
    for (size_t room = bytes.size() - (sought.size() - 1); room != 0;) {
        const auto* last = static_cast<const char*>(memrchr(first, sought.back(), room));
        if (last == nullptr) {
            break;
        }
        const char* start = last - (sought.size() - 1);
        if (std::memcmp(start, sought.data(), sought.size()) == 0) {
            return static_cast<size_t>(start - bytes.data());
        }
        room = static_cast<size_t>(last - first);
    }
    return std::string_view::npos;
}

#endif
