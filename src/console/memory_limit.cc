#include "console/memory_limit.h"

#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>

// The address sanitizer maps far more than any machine has, and never uses most of it.
#ifdef __has_feature
#if __has_feature(address_sanitizer)
#define MEMORY_IS_WATCHED 1
#endif
#endif
#ifdef __SANITIZE_ADDRESS__
#define MEMORY_IS_WATCHED 1
#endif

void LimitMemory() {
#ifndef MEMORY_IS_WATCHED
    const long pages = sysconf(_SC_PHYS_PAGES);
    const long pageSize = sysconf(_SC_PAGESIZE);
    rlimit limit{};
    if (pages <= 0 || pageSize <= 0 || getrlimit(RLIMIT_DATA, &limit) != 0) {
        return;
    }
    const rlim_t share = static_cast<rlim_t>(pages) / 4 * 3 * static_cast<rlim_t>(pageSize);
    limit.rlim_cur = std::min(limit.rlim_cur, share);
    setrlimit(RLIMIT_DATA, &limit);
#endif
}
