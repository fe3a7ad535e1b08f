#include "foundation/thread_local_ptr.h"

#include <atomic>
#include <cerrno>

namespace UnixPlatform {

void CheckThreadLocalResult(int error) {
    switch (error) {
        case 0:
            return;
        case EINVAL:
            throw InvalidThreadLocalKey();
        case EAGAIN:
            throw TooManyThreadLocalKeys();
        case ENOMEM:
            throw InsufficientMemoryToCreateThreadLocalKey();
        default:
            throw UnknownThreadLocalError();
    }
}

unsigned NextMirrorPlace() {
    static std::atomic<unsigned> next = 0;
    // Held at the first place without a mirror, so that it never comes round.
    const unsigned place = next.load();
    return place < kMirroredPointers ? next.fetch_add(1) : kMirroredPointers;
}

}  // namespace UnixPlatform
