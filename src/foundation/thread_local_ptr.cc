#include "foundation/thread_local_ptr.h"

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

}  // namespace UnixPlatform
