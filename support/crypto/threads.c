/* Locks and the identities of threads.
 *
 * OpenSSL 3 locks by itself and asks nobody.  The functions below serve what still locks by the old numbers: callers
 * of CRYPTO_lock, and this library around its change of FIPS mode.
 */
#include <errno.h>
#include <stddef.h>
#include <stdint.h>

#include "openssl_1_0.h"

static CRYPTO_locking_function lockingFunction;
static CRYPTO_add_lock_function addLockFunction;
static CRYPTO_id_function idFunction;

static const char* const lockNames[CRYPTO_NUM_LOCKS] = {
    "<<ERROR>>",   "err",           "ex_data",       "x509",       "x509_info",    "x509_pkey", "x509_crl",
    "x509_req",    "dsa",           "rsa",           "evp_pkey",   "x509_store",   "ssl_ctx",   "ssl_cert",
    "ssl_session", "ssl_sess_cert", "ssl",           "ssl_method", "rand",         "rand2",     "debug_malloc",
    "BIO",         "gethostbyname", "getservbyname", "readdir",    "RSA_blinding", "dh",        "debug_malloc2",
    "dso",         "dynlock",       "engine",        "ui",         "ecdsa",        "ec",        "ecdh",
    "bn",          "ec_pre_comp",   "store",         "comp",       "fips",         "fips2",
};

int CRYPTO_num_locks(void) { return CRYPTO_NUM_LOCKS; }
const char* CRYPTO_get_lock_name(int type) {
    return type < 0 ? "dynamic" : type < CRYPTO_NUM_LOCKS ? lockNames[type] : "ERROR";
}

CRYPTO_locking_function CRYPTO_get_locking_callback(void) { return lockingFunction; }
void CRYPTO_set_locking_callback(CRYPTO_locking_function function) { lockingFunction = function; }
CRYPTO_add_lock_function CRYPTO_get_add_lock_callback(void) { return addLockFunction; }
void CRYPTO_set_add_lock_callback(CRYPTO_add_lock_function function) { addLockFunction = function; }
CRYPTO_id_function CRYPTO_get_id_callback(void) { return idFunction; }
void CRYPTO_set_id_callback(CRYPTO_id_function function) { idFunction = function; }

/* Without a callback a thread is known by where its errno lies. */
unsigned long CRYPTO_thread_id(void) { return idFunction != NULL ? idFunction() : (unsigned long)(uintptr_t)&errno; }

void CRYPTO_lock(int mode, int type, const char* file, int line) {
    if (lockingFunction != NULL) {
        lockingFunction(mode, type, file, line);
    }
}

int CRYPTO_add_lock(int* number, int amount, int type, const char* file, int line) {
    if (addLockFunction != NULL) {
        return addLockFunction(number, amount, type, file, line);
    }
    CRYPTO_lock(CRYPTO_LOCK | CRYPTO_WRITE, type, file, line);
    const int sum = *number += amount;
    CRYPTO_lock(CRYPTO_UNLOCK | CRYPTO_WRITE, type, file, line);
    return sum;
}
