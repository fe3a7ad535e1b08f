/* Memory and texts.  The functions that allocate take no file and line here, as they did not of old. */
#include <stdatomic.h>
#include <stdlib.h>

#include "openssl_1_0.h"
#include "openssl_3.h"

OPENSSL_3(CRYPTO_free);
OPENSSL_3(CRYPTO_get_mem_functions);
OPENSSL_3(CRYPTO_malloc);
OPENSSL_3(CRYPTO_realloc);
OPENSSL_3(CRYPTO_set_mem_functions);

/* OpenSSL 3 notes its first allocation only while it allocates by itself. */
static atomic_bool hasAllocated;

static void* (*allocateMemory)(size_t) = malloc;
static void* (*reallocateMemory)(void*, size_t) = realloc;
static void (*releaseMemory)(void*) = free;

static void* Allocate(size_t size, const char* file, int line) {
    (void)file;
    (void)line;
    hasAllocated = 1;
    return allocateMemory(size);
}
static void* Reallocate(void* memory, size_t size, const char* file, int line) {
    (void)file;
    (void)line;
    hasAllocated = 1;
    return reallocateMemory(memory, size);
}
static void Release(void* memory, const char* file, int line) {
    (void)file;
    (void)line;
    releaseMemory(memory);
}

/* Whether OpenSSL 3 calls our three functions above; if not, it calls those of the C library, or somebody else's. */
static int IsOurs(CRYPTO_malloc_fn allocate) { return allocate == Allocate; }
static int IsItsOwn(CRYPTO_malloc_fn allocate) { return allocate == OpenSSL3_CRYPTO_malloc; }

/* Functions can be set until the first allocation.  Both builds of this library stand on one OpenSSL 3, so that the
 * second to be loaded may come after that; to ask for the functions that are in use already succeeds at any time. */
int CRYPTO_set_mem_functions(void* (*allocate)(size_t), void* (*reallocate)(void*, size_t), void (*release)(void*)) {
    CRYPTO_malloc_fn current = NULL;
    CRYPTO_realloc_fn currentReallocate = NULL;
    CRYPTO_free_fn currentRelease = NULL;
    if (allocate == NULL || reallocate == NULL || release == NULL) {
        return 0;
    }
    OpenSSL3_CRYPTO_get_mem_functions(&current, &currentReallocate, &currentRelease);
    if ((IsOurs(current) || IsItsOwn(current)) && allocate == allocateMemory && reallocate == reallocateMemory &&
        release == releaseMemory) {
        return 1;
    }
    if (hasAllocated || !OpenSSL3_CRYPTO_set_mem_functions(Allocate, Reallocate, Release)) {
        return 0;
    }
    allocateMemory = allocate;
    reallocateMemory = reallocate;
    releaseMemory = release;
    return 1;
}

void CRYPTO_get_mem_functions(void* (**allocate)(size_t), void* (**reallocate)(void*, size_t),
                              void (**release)(void*)) {
    if (allocate != NULL) {
        *allocate = allocateMemory;
    }
    if (reallocate != NULL) {
        *reallocate = reallocateMemory;
    }
    if (release != NULL) {
        *release = releaseMemory;
    }
}

void CRYPTO_free(void* memory) { OpenSSL3_CRYPTO_free(memory, NULL, 0); }
void* CRYPTO_malloc(int size, const char* file, int line) {
    return size <= 0 ? NULL : OpenSSL3_CRYPTO_malloc((size_t)size, file, line);
}
void* CRYPTO_realloc(void* memory, int size, const char* file, int line) {
    return size <= 0 ? NULL : OpenSSL3_CRYPTO_realloc(memory, (size_t)size, file, line);
}

char* BUF_strdup(const char* text) { return OPENSSL_strdup(text); }
char* BUF_strndup(const char* text, size_t length) { return OPENSSL_strndup(text, length); }
size_t BUF_strlcat(char* to, const char* from, size_t size) { return OPENSSL_strlcat(to, from, size); }
size_t BUF_strlcpy(char* to, const char* from, size_t size) { return OPENSSL_strlcpy(to, from, size); }
void* BUF_memdup(const void* data, size_t length) { return OPENSSL_memdup(data, length); }
