/* What a program calls when it starts and when it ends.
 *
 * In the old interface a program prepared the library by hand.  OpenSSL 3 prepares each part of itself when it is first
 * used, so what was asked for here is noted, and done when somebody can see it.  That is what keeps a program that
 * never draws a random number from seeding a generator, and one that never fails from sorting 2000 error texts.
 */
#include <stdatomic.h>
#include <stddef.h>
#include <sys/random.h>

#include "openssl_1_0.h"
#include "openssl_3.h"

OPENSSL_3(ERR_error_string);
OPENSSL_3(ERR_error_string_n);
OPENSSL_3(ERR_lib_error_string);
OPENSSL_3(ERR_reason_error_string);
OPENSSL_3(RAND_status);

static atomic_bool textsAreWanted;

/* From here on an error has a text.  OpenSSL 3 loads the texts with a thread's first error by itself; a code that comes
 * from elsewhere finds them loaded by the functions that turn it into text. */
void ERR_load_crypto_strings(void) { textsAreWanted = 1; }

/* Texts that were not loaded yet will not be; those that were go when the process does. */
void ERR_free_strings(void) { textsAreWanted = 0; }

static void LoadTexts(void) {
    if (textsAreWanted) {
        OPENSSL_init_crypto(OPENSSL_INIT_LOAD_CRYPTO_STRINGS, NULL);
    }
}

char* ERR_error_string(unsigned long code, char* text) {
    LoadTexts();
    return OpenSSL3_ERR_error_string(code, text);
}
void ERR_error_string_n(unsigned long code, char* text, size_t size) {
    LoadTexts();
    OpenSSL3_ERR_error_string_n(code, text, size);
}
const char* ERR_lib_error_string(unsigned long code) {
    LoadTexts();
    return OpenSSL3_ERR_lib_error_string(code);
}
const char* ERR_reason_error_string(unsigned long code) {
    LoadTexts();
    return OpenSSL3_ERR_reason_error_string(code);
}

void ERR_put_error(int library, int function, int reason, const char* file, int line) {
    (void)function; /* Errors have no function numbers any more. */
    ERR_new();
    ERR_set_debug(file, line, NULL);
    ERR_set_error(library, reason, NULL);
}

/* What a thread keeps goes at its own word alone: another thread's number means nothing to OpenSSL 3, and a thread that
 * ends cleans up after itself.  0 is the calling thread. */
void ERR_remove_state(unsigned long thread) {
    if (thread == 0 || thread == CRYPTO_thread_id()) {
        OPENSSL_thread_stop();
    }
}
void ERR_remove_thread_state(const CRYPTO_THREADID* thread) {
    if (thread == NULL) {
        OPENSSL_thread_stop();
    }
}

/* Without configuration: that is the half of it that has to be said first.  The algorithms are there as soon as one is
 * looked for by its name. */
void OPENSSL_add_all_algorithms_noconf(void) { OPENSSL_init_crypto(OPENSSL_INIT_NO_LOAD_CONFIG, NULL); }

/* Drops what the program added.  OpenSSL 3 drops its own names when the process ends, and only then, since it would
 * never enter them again. */
void EVP_cleanup(void) {
    EVP_PBE_cleanup();
    OBJ_sigid_free();
}

void ENGINE_cleanup(void) {
    ENGINE* engine = NULL;
    while ((engine = ENGINE_get_first()) != NULL) {
        const int removed = ENGINE_remove(engine);
        ENGINE_free(engine);
        if (!removed) {
            break;
        }
    }
}

/* The one function here that has nothing left to do: the classes of extra data belong to OpenSSL 3's context, go with
 * it when the process ends, and cannot be listed from outside. */
void CRYPTO_cleanup_all_ex_data(void) {}

/* Whether random numbers can be drawn.  OpenSSL 3's own generators are made and seeded from the kernel at the first
 * draw, so they can be as soon as the kernel's pool is ready; a generator that the program set is asked itself.  To
 * make the generators in order to look at them would be most of the time that a short program takes to start. */
int RAND_status(void) {
    unsigned char byte = 0;
    if (RAND_get_rand_method() == RAND_OpenSSL() && getrandom(&byte, sizeof byte, GRND_NONBLOCK) == sizeof byte) {
        return 1;
    }
    return OpenSSL3_RAND_status();
}

RAND_METHOD* RAND_SSLeay(void) { return RAND_OpenSSL(); }
void RAND_cleanup(void) {
    const RAND_METHOD* method = RAND_get_rand_method();
    if (method != NULL && method->cleanup != NULL) {
        method->cleanup();
    }
    RAND_set_rand_method(NULL);
}

unsigned long SSLeay(void) { return OpenSSL_version_num(); }
const char* SSLeay_version(int what) {
    switch (what) {
        case SSLEAY_VERSION:
            return OpenSSL_version(OPENSSL_VERSION);
        case SSLEAY_CFLAGS:
            return OpenSSL_version(OPENSSL_CFLAGS);
        case SSLEAY_BUILT_ON:
            return OpenSSL_version(OPENSSL_BUILT_ON);
        case SSLEAY_PLATFORM:
            return OpenSSL_version(OPENSSL_PLATFORM);
        case SSLEAY_DIR:
            return OpenSSL_version(OPENSSL_DIR);
        default:
            return "not available";
    }
}
