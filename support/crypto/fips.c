/* FIPS mode, which in OpenSSL 3 is to take algorithms from the "fips" provider alone.
 *
 * The build for FIPS mode can enter it where that provider is installed; the other build never can.  The mode belongs
 * to the process, so that both builds see it and both can leave it.
 */
#include <openssl/provider.h>
#include <stddef.h>

#include "openssl_1_0.h"

enum { DigestLength = 20 };

static void Refuse(int library, int reason, const char* why) {
    ERR_new();
    ERR_set_debug(__FILE__, __LINE__, __func__);
    ERR_set_error(library, reason, "%s", why);
}

int FIPS_mode(void) {
    /* The question would read the configuration otherwise, which no function of the old interface did unasked. */
    OPENSSL_init_crypto(OPENSSL_INIT_NO_LOAD_CONFIG, NULL);
    return EVP_default_properties_is_fips_enabled(NULL);
}

#ifdef OSL_FIPS_BUILD
static OSSL_PROVIDER* provider;

static void Leave(void) {
    EVP_default_properties_enable_fips(NULL, 0);
    if (provider != NULL) {
        OSSL_PROVIDER_unload(provider);
        provider = NULL;
    }
}

/* The provider tests itself against what its installation wrote into the configuration, so that has to be read.  The
 * default provider stays within reach, or a refusal would leave the process without any algorithm. */
static int Enter(void) {
    CONF_modules_load_file(NULL, NULL, CONF_MFLAGS_DEFAULT_SECTION | CONF_MFLAGS_IGNORE_MISSING_FILE);
    provider = OSSL_PROVIDER_try_load(NULL, "fips", 1);
    if (provider == NULL) {
        return 0;
    }
    if (!EVP_default_properties_enable_fips(NULL, 1)) {
        Leave();
        return 0;
    }
    return 1;
}

/* The provider has to come to the digest that the program knows. */
static int PassesSelfTest(const unsigned char* key, size_t length) {
    static const char secret[] = "libOSLcrypto self test key";
    static const unsigned char text[] = "libOSLcrypto self test";
    unsigned char digest[EVP_MAX_MD_SIZE];
    unsigned int digestLength = 0;
    return key != NULL && length == DigestLength &&
           HMAC(EVP_sha1(), secret, sizeof secret - 1, text, sizeof text - 1, digest, &digestLength) != NULL &&
           digestLength == DigestLength && CRYPTO_memcmp(key, digest, DigestLength) == 0;
}
#else
static void Leave(void) { EVP_default_properties_enable_fips(NULL, 0); }
static int Enter(void) {
    Refuse(ERR_LIB_CRYPTO, ERR_R_UNSUPPORTED, "fips mode not supported");
    return 0;
}
static int PassesSelfTest(const unsigned char* key, size_t length) {
    (void)key;
    (void)length;
    return 0;
}
#endif

static int SetMode(int mode, int test, const unsigned char* key, size_t length) {
    if (!mode) {
        if (FIPS_mode()) {
            Leave();
        }
        return 1;
    }
    if (FIPS_mode()) {
        /* The whole code is the reason, as a program of old compares it. */
        Refuse(0, FIPS_R_FIPS_MODE_ALREADY_SET, "fips mode already set");
        return 0;
    }
    if (!Enter()) {
        return 0;
    }
    if (test && !PassesSelfTest(key, length)) {
        Leave();
        Refuse(ERR_LIB_CRYPTO, ERR_R_INTERNAL_ERROR, "fips self test failed");
        return 0;
    }
    return 1;
}

static int SetModeLocked(int mode, int test, const unsigned char* key, size_t length) {
    CRYPTO_lock(CRYPTO_LOCK | CRYPTO_WRITE, CRYPTO_LOCK_FIPS, __FILE__, __LINE__);
    const int done = SetMode(mode, test, key, length);
    CRYPTO_lock(CRYPTO_UNLOCK | CRYPTO_WRITE, CRYPTO_LOCK_FIPS, __FILE__, __LINE__);
    return done;
}

int FIPS_mode_set(int mode) { return SetModeLocked(mode, 0, NULL, 0); }
int OSL_FIPS_mode_set(int mode, const unsigned char* key, size_t length) { return SetModeLocked(mode, 1, key, length); }
