// A pointer that each thread has its own copy of, kept under an operating-system thread key.
//
// The evaluator reads such pointers once per value.  So the first few of a process are mirrored in an array that the
// thread reaches without a call; the key stays, for what has to be disposed of when a thread ends, and for those
// beyond.
#ifndef FOUNDATION_THREAD_LOCAL_PTR_H
#define FOUNDATION_THREAD_LOCAL_PTR_H

#include <pthread.h>

#include "foundation/debuggable_exception.h"

namespace UnixPlatform {

struct InvalidThreadLocalKey : DebuggableException {
    InvalidThreadLocalKey() noexcept : DebuggableException("InvalidThreadLocalKey") {}
};
struct TooManyThreadLocalKeys : DebuggableException {
    TooManyThreadLocalKeys() noexcept : DebuggableException("TooManyThreadLocalKeys") {}
};
struct InsufficientMemoryToCreateThreadLocalKey : DebuggableException {
    InsufficientMemoryToCreateThreadLocalKey() noexcept
        : DebuggableException("InsufficientMemoryToCreateThreadLocalKey") {}
};
struct UnknownThreadLocalError : DebuggableException {
    UnknownThreadLocalError() noexcept : DebuggableException("UnknownThreadLocalError") {}
};

// Throws the class above that an error number of the thread-key calls stands for; 0 throws nothing.
void CheckThreadLocalResult(int error);

// The mirrored pointers of this thread, by their places; the place of the next one to be made.
inline constexpr unsigned kMirroredPointers = 32;
inline thread_local constinit void* mirroredPointers[kMirroredPointers] = {};
unsigned NextMirrorPlace();

}  // namespace UnixPlatform

// What happens to the object pointed to when its thread or the pointer goes away: nothing, or deletion.
template <class T>
struct DoNotDispose {
    static constexpr void (*destructor)(void*) = nullptr;
};
template <class T>
struct Dispose {
    static constexpr void (*destructor)(void*) = [](void* object) { delete static_cast<T*>(object); };
};

template <class T, template <class> class Disposal>
class ThreadLocalPtr {
public:
    // Throws the errors of UnixPlatform when no key is to be had.
    ThreadLocalPtr() { UnixPlatform::CheckThreadLocalResult(pthread_key_create(&key_, Disposal<T>::destructor)); }
    ThreadLocalPtr(const ThreadLocalPtr&) = delete;
    ThreadLocalPtr& operator=(const ThreadLocalPtr&) = delete;
    ~ThreadLocalPtr() {
        if constexpr (Disposal<T>::destructor != nullptr) {
            Disposal<T>::destructor(pthread_getspecific(key_));
        }
        if (Mirrored()) {
            UnixPlatform::mirroredPointers[place_] = nullptr;
        }
        pthread_key_delete(key_);
    }

    // This thread's pointer, null until it is set.
    T* Get() const {
        return static_cast<T*>(Mirrored() ? UnixPlatform::mirroredPointers[place_] : pthread_getspecific(key_));
    }

    // Sets this thread's pointer; an object pointed to before is not disposed of.  Throws the errors of UnixPlatform.
    void Set(T* pointer) {
        if (Mirrored()) {
            UnixPlatform::mirroredPointers[place_] = pointer;
            if (Disposal<T>::destructor == nullptr) {
                return;
            }
        }
        if (const int error = pthread_setspecific(key_, pointer); error != 0) {
            UnixPlatform::CheckThreadLocalResult(error);
        }
    }

private:
    bool Mirrored() const { return place_ < UnixPlatform::kMirroredPointers; }

    pthread_key_t key_;
    unsigned place_ = UnixPlatform::NextMirrorPlace();  // Never used again by another pointer.
};

#endif
