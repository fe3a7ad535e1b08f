// What inspectors compute once and keep, one copy to a thread, until the caches are cleared.
//
// A cache is a static object of the unit that fills it.  ClearCaches deletes the copy of the thread that calls it;
// those of other threads stay until they clear theirs or end.  So a fact that is taken from a cache stays the same for
// the time of an expression, however long that runs.
#ifndef EVALUATOR_INSPECTOR_CACHE_H
#define EVALUATOR_INSPECTOR_CACHE_H

#include <memory>
#include <utility>

#include "foundation/thread_local_ptr.h"
#include "registry/registration.h"

class ThreadLocalInspectorCacheBase {
public:
    ThreadLocalInspectorCacheBase(const ThreadLocalInspectorCacheBase&) = delete;
    ThreadLocalInspectorCacheBase& operator=(const ThreadLocalInspectorCacheBase&) = delete;

    // Deletes this thread's copy of `cache`, whatever the time.
    static void OnClearCache(Instant& expiry, void* cache);

protected:
    ThreadLocalInspectorCacheBase();
    virtual ~ThreadLocalInspectorCacheBase() = default;

private:
    virtual void DeleteCopy() = 0;

    RegistrationObject<CacheRegistration> registration_;
};

template <class T>
class ThreadLocalInspectorCache final : public ThreadLocalInspectorCacheBase {
public:
    // This thread's copy, null while it has none.
    const T* Get() const { return copy_.Get(); }

    // Makes this thread's copy in place of the one it had.  Throws what T's constructor throws, std::bad_alloc, and the
    // errors of UnixPlatform; the earlier copy then stays.
    template <class... Arguments>
    const T& Fill(Arguments&&... arguments) {
        auto made = std::make_unique<T>(std::forward<Arguments>(arguments)...);
        T* const earlier = copy_.Get();
        copy_.Set(made.get());
        delete earlier;
        return *made.release();
    }

private:
    void DeleteCopy() override {
        const std::unique_ptr<T> old(copy_.Get());
        copy_.Set(nullptr);
    }

    ThreadLocalPtr<T, Dispose> copy_;
};

#endif
