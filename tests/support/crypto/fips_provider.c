/* A provider of the name "fips" for machines without the real one: the algorithms of the default provider, in a context
 * of its own, under the properties that FIPS mode asks for. */
#include <openssl/core.h>
#include <openssl/core_dispatch.h>
#include <openssl/crypto.h>
#include <openssl/provider.h>
#include <stddef.h>

enum { Operations = 32, Algorithms = 256 };

static OSSL_LIB_CTX* context;
static OSSL_PROVIDER* standard;
static OSSL_ALGORITHM tables[Operations][Algorithms];

static const OSSL_ALGORITHM* Query(void* self, int operation, int* uncached) {
    (void)self;
    const OSSL_ALGORITHM* from = OSSL_PROVIDER_query_operation(standard, operation, uncached);
    if (from == NULL || operation >= Operations) {
        return NULL;
    }
    for (int i = 0; i < Algorithms - 1; ++i) {
        tables[operation][i] = from[i];
        if (from[i].algorithm_names == NULL) {
            break;
        }
        tables[operation][i].property_definition = "provider=fips,fips=yes";
    }
    return tables[operation];
}

static void Teardown(void* self) {
    (void)self;
    OSSL_PROVIDER_unload(standard);
    OSSL_LIB_CTX_free(context);
}

static const OSSL_DISPATCH functions[] = {
    {OSSL_FUNC_PROVIDER_QUERY_OPERATION, (void (*)(void))Query},
    {OSSL_FUNC_PROVIDER_TEARDOWN, (void (*)(void))Teardown},
    {0, NULL},
};

int OSSL_provider_init(const OSSL_CORE_HANDLE* handle, const OSSL_DISPATCH* in, const OSSL_DISPATCH** out,
                       void** self) {
    (void)handle;
    (void)in;
    context = OSSL_LIB_CTX_new();
    standard = context == NULL ? NULL : OSSL_PROVIDER_load(context, "default");
    if (standard == NULL) {
        return 0;
    }
    *out = functions;
    *self = OSSL_PROVIDER_get0_provider_ctx(standard);
    return 1;
}
