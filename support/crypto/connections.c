/* Connections: the part of the interface that lives in OpenSSL 3's second library.
 *
 * That library is opened by the first of these functions that is called.  A program that only makes digests does not
 * have to wait for it.
 */
#include <dlfcn.h>
#include <pthread.h>
#include <stddef.h>

#include "openssl_1_0.h"

static void* library;
static pthread_once_t opened = PTHREAD_ONCE_INIT;
static void Open(void) { library = dlopen(OSL_TLS_LIBRARY, RTLD_NOW | RTLD_LOCAL); }

typedef void (*Function)(void);

/* Null where there is no such library or function; the thread's queue of errors then says so. */
static Function Find(const char* name) {
    pthread_once(&opened, Open);
    /* What dlsym gives for a function's name is that function. */
    const Function found = library == NULL ? NULL : __extension__(Function) dlsym(library, name);
    if (found == NULL) {
        ERR_new();
        ERR_set_debug(__FILE__, __LINE__, name);
        ERR_set_error(ERR_LIB_SSL, ERR_R_UNSUPPORTED, "%s cannot be used", OSL_TLS_LIBRARY);
    }
    return found;
}

/* A call of libssl's `name`, which has the type of our `old`, with arguments in parentheses; `failed` is what a call
 * that cannot be made gives. */
#define CALL_AS(old, name, failed, arguments)                        \
    __extension__({                                                  \
        const Function found = Find(#name);                          \
        found == NULL ? failed : ((__typeof__(&old))found)arguments; \
    })
#define CALL(name, failed, arguments) CALL_AS(name, name, failed, arguments)

int SSL_CTX_check_private_key(const SSL_CTX* context) { return CALL(SSL_CTX_check_private_key, 0, (context)); }
int SSL_CTX_load_verify_locations(SSL_CTX* context, const char* file, const char* folder) {
    return CALL(SSL_CTX_load_verify_locations, 0, (context, file, folder));
}
int SSL_CTX_set_cipher_list(SSL_CTX* context, const char* list) {
    return CALL(SSL_CTX_set_cipher_list, 0, (context, list));
}
int SSL_CTX_use_PrivateKey(SSL_CTX* context, EVP_PKEY* key) { return CALL(SSL_CTX_use_PrivateKey, 0, (context, key)); }
int SSL_CTX_use_certificate(SSL_CTX* context, X509* certificate) {
    return CALL(SSL_CTX_use_certificate, 0, (context, certificate));
}
long SSL_CTX_ctrl(SSL_CTX* context, int command, long number, void* argument) {
    return CALL(SSL_CTX_ctrl, 0, (context, command, number, argument));
}
SSL_CTX* SSL_CTX_new(const SSL_METHOD* method) { return CALL(SSL_CTX_new, NULL, (method)); }
void SSL_CTX_free(SSL_CTX* context) { CALL(SSL_CTX_free, (void)0, (context)); }
void SSL_CTX_set_verify(SSL_CTX* context, int mode, SSL_verify_cb callback) {
    CALL(SSL_CTX_set_verify, (void)0, (context, mode, callback));
}

SSL* SSL_new(SSL_CTX* context) { return CALL(SSL_new, NULL, (context)); }
X509* SSL_get_peer_certificate(const SSL* connection) {
    return CALL_AS(SSL_get_peer_certificate, SSL_get1_peer_certificate, NULL, (connection));
}
int SSL_connect(SSL* connection) { return CALL(SSL_connect, -1, (connection)); }
int SSL_get_error(const SSL* connection, int result) {
    return CALL(SSL_get_error, SSL_ERROR_SSL, (connection, result));
}
int SSL_read(SSL* connection, void* data, int length) { return CALL(SSL_read, -1, (connection, data, length)); }
int SSL_set_fd(SSL* connection, int descriptor) { return CALL(SSL_set_fd, 0, (connection, descriptor)); }
int SSL_shutdown(SSL* connection) { return CALL(SSL_shutdown, -1, (connection)); }
int SSL_write(SSL* connection, const void* data, int length) { return CALL(SSL_write, -1, (connection, data, length)); }
long SSL_get_verify_result(const SSL* connection) {
    return CALL(SSL_get_verify_result, X509_V_ERR_UNSPECIFIED, (connection));
}
void SSL_free(SSL* connection) { CALL(SSL_free, (void)0, (connection)); }
void SSL_set_bio(SSL* connection, BIO* in, BIO* out) { CALL(SSL_set_bio, (void)0, (connection, in, out)); }

const SSL_METHOD* SSLv23_client_method(void) { return CALL_AS(SSLv23_client_method, TLS_client_method, NULL, ()); }
const SSL_METHOD* SSLv23_method(void) { return CALL_AS(SSLv23_method, TLS_method, NULL, ()); }

int SSL_library_init(void) { return CALL(OPENSSL_init_ssl, 0, (0, NULL)); }
void SSL_load_error_strings(void) {
    CALL(OPENSSL_init_ssl, 0, (OPENSSL_INIT_LOAD_SSL_STRINGS | OPENSSL_INIT_LOAD_CRYPTO_STRINGS, NULL));
}
