#include "evaluator/inspector_cache.h"

ThreadLocalInspectorCacheBase::ThreadLocalInspectorCacheBase() : registration_(CacheRecord{&OnClearCache, this}) {}

void ThreadLocalInspectorCacheBase::OnClearCache(Instant&, void* cache) {
    static_cast<ThreadLocalInspectorCacheBase*>(cache)->DeleteCopy();
}
