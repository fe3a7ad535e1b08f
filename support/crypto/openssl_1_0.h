/* The OpenSSL 1.0 interface, as far as names.txt goes, declared over the headers of OpenSSL 3.
 *
 * What OpenSSL 3 still declares with the old meaning comes from its own headers.  What it dropped, turned into a macro
 * or gave another signature is declared here as it was.  The library that defines these functions and the program that
 * reaches them through its table both take their signatures from this one place.
 *
 * Where OpenSSL 3 has a function of the same name and another signature or meaning, the name is the old function's and
 * OpenSSL3_<name> is the new one's.
 */
#ifndef SUPPORT_CRYPTO_OPENSSL_1_0_H
#define SUPPORT_CRYPTO_OPENSSL_1_0_H

#define CRYPTO_free OpenSSL3_CRYPTO_free
#define CRYPTO_get_mem_functions OpenSSL3_CRYPTO_get_mem_functions
#define CRYPTO_malloc OpenSSL3_CRYPTO_malloc
#define CRYPTO_realloc OpenSSL3_CRYPTO_realloc
#define CRYPTO_set_mem_functions OpenSSL3_CRYPTO_set_mem_functions
#define ERR_error_string OpenSSL3_ERR_error_string
#define ERR_error_string_n OpenSSL3_ERR_error_string_n
#define ERR_lib_error_string OpenSSL3_ERR_lib_error_string
#define ERR_reason_error_string OpenSSL3_ERR_reason_error_string
#define ERR_remove_state OpenSSL3_ERR_remove_state
#define ERR_remove_thread_state OpenSSL3_ERR_remove_thread_state
#define HMAC_CTX_copy OpenSSL3_HMAC_CTX_copy
#define HMAC_CTX_set_flags OpenSSL3_HMAC_CTX_set_flags
#define HMAC_Final OpenSSL3_HMAC_Final
#define HMAC_Init OpenSSL3_HMAC_Init
#define HMAC_Init_ex OpenSSL3_HMAC_Init_ex
#define HMAC_Update OpenSSL3_HMAC_Update
#define RAND_status OpenSSL3_RAND_status

#include <openssl/asn1.h>
#include <openssl/bio.h>
#include <openssl/bn.h>
#include <openssl/buffer.h>
#include <openssl/comp.h>
#include <openssl/crypto.h>
#include <openssl/des.h>
#include <openssl/dh.h>
#include <openssl/dsa.h>
#include <openssl/ec.h>
#include <openssl/engine.h>
#include <openssl/err.h>
#include <openssl/evp.h>
#include <openssl/hmac.h>
#include <openssl/lhash.h>
#include <openssl/md4.h>
#include <openssl/md5.h>
#include <openssl/objects.h>
#include <openssl/ocsp.h>
#include <openssl/pem.h>
#include <openssl/pkcs12.h>
#include <openssl/pkcs7.h>
#include <openssl/rand.h>
#include <openssl/rsa.h>
#include <openssl/sha.h>
#include <openssl/ssl.h>
#include <openssl/stack.h>
#include <openssl/x509.h>
#include <openssl/x509v3.h>

#undef CRYPTO_free
#undef CRYPTO_get_mem_functions
#undef CRYPTO_malloc
#undef CRYPTO_realloc
#undef CRYPTO_set_mem_functions
#undef ERR_error_string
#undef ERR_error_string_n
#undef ERR_lib_error_string
#undef ERR_reason_error_string
#undef ERR_remove_state
#undef ERR_remove_thread_state
#undef HMAC_CTX_copy
#undef HMAC_CTX_set_flags
#undef HMAC_Final
#undef HMAC_Init
#undef HMAC_Init_ex
#undef HMAC_Update
#undef RAND_status

#undef sk_delete
#undef sk_dup
#undef sk_find
#undef sk_free
#undef sk_insert
#undef sk_new
#undef sk_new_null
#undef sk_num
#undef sk_pop
#undef sk_pop_free
#undef sk_push
#undef sk_set
#undef sk_set_cmp_func
#undef sk_sort
#undef sk_value
#undef sk_zero
#undef ERR_free_strings
#undef ERR_load_crypto_strings
#undef ERR_put_error
#undef BUF_memdup
#undef BUF_strdup
#undef BUF_strlcat
#undef BUF_strlcpy
#undef BUF_strndup
#undef CRYPTO_cleanup_all_ex_data
#undef CRYPTO_get_add_lock_callback
#undef CRYPTO_get_id_callback
#undef CRYPTO_get_locking_callback
#undef CRYPTO_num_locks
#undef CRYPTO_set_add_lock_callback
#undef CRYPTO_set_id_callback
#undef CRYPTO_set_locking_callback
#undef CRYPTO_thread_id
#undef ENGINE_cleanup
#undef EVP_CIPHER_CTX_block_size
#undef EVP_CIPHER_CTX_cleanup
#undef EVP_CIPHER_CTX_iv_length
#undef EVP_CIPHER_CTX_key_length
#undef EVP_CIPHER_block_size
#undef EVP_CIPHER_iv_length
#undef EVP_CIPHER_key_length
#undef EVP_MD_CTX_create
#undef EVP_MD_CTX_destroy
#undef EVP_MD_block_size
#undef EVP_MD_size
#undef EVP_MD_type
#undef EVP_PKEY_bits
#undef EVP_PKEY_id
#undef EVP_PKEY_size
#undef EVP_cleanup
#undef lh_delete
#undef lh_doall
#undef lh_doall_arg
#undef lh_free
#undef lh_insert
#undef lh_new
#undef lh_num_items
#undef lh_retrieve
#undef lh_strhash
#undef RAND_cleanup
#undef SSL_get_peer_certificate
#undef SSL_library_init
#undef SSL_load_error_strings
#undef SSLeay
#undef SSLeay_version
#undef SSLv23_client_method
#undef SSLv23_method
#undef X509_STORE_CTX_trusted_stack
#undef OPENSSL_add_all_algorithms_noconf

/* The numbers that some of these take, where OpenSSL 3 numbers differently or not at all. */
#undef SSLEAY_VERSION
#undef SSLEAY_CFLAGS
#undef SSLEAY_BUILT_ON
#undef SSLEAY_PLATFORM
#undef SSLEAY_DIR
#define SSLEAY_VERSION 0
#define SSLEAY_CFLAGS 2
#define SSLEAY_BUILT_ON 3
#define SSLEAY_PLATFORM 4
#define SSLEAY_DIR 5
#define CRYPTO_LOCK_FIPS 39
#define CRYPTO_NUM_LOCKS 41
#define FIPS_R_FIPS_MODE_ALREADY_SET 102

#ifdef __cplusplus
extern "C" {
#endif

/* Containers. */
OPENSSL_STACK* sk_dup(OPENSSL_STACK* stack);
OPENSSL_STACK* sk_new(OPENSSL_sk_compfunc compare);
OPENSSL_STACK* sk_new_null(void);
OPENSSL_sk_compfunc sk_set_cmp_func(OPENSSL_STACK* stack, OPENSSL_sk_compfunc compare);
int sk_find(OPENSSL_STACK* stack, void* data);
int sk_insert(OPENSSL_STACK* stack, void* data, int where);
int sk_num(const OPENSSL_STACK* stack);
int sk_push(OPENSSL_STACK* stack, void* data);
void sk_free(OPENSSL_STACK* stack);
void sk_pop_free(OPENSSL_STACK* stack, void (*release)(void*));
void sk_sort(OPENSSL_STACK* stack);
void sk_zero(OPENSSL_STACK* stack);
void* sk_delete(OPENSSL_STACK* stack, int where);
void* sk_pop(OPENSSL_STACK* stack);
void* sk_set(OPENSSL_STACK* stack, int where, void* data);
void* sk_value(const OPENSSL_STACK* stack, int where);

OPENSSL_LHASH* lh_new(OPENSSL_LH_HASHFUNC hash, OPENSSL_LH_COMPFUNC compare);
unsigned long lh_num_items(const OPENSSL_LHASH* table);
unsigned long lh_strhash(const char* text);
void lh_doall(OPENSSL_LHASH* table, OPENSSL_LH_DOALL_FUNC visit);
void lh_doall_arg(OPENSSL_LHASH* table, OPENSSL_LH_DOALL_FUNCARG visit, void* argument);
void lh_free(OPENSSL_LHASH* table);
void* lh_delete(OPENSSL_LHASH* table, const void* data);
void* lh_insert(OPENSSL_LHASH* table, void* data);
void* lh_retrieve(OPENSSL_LHASH* table, const void* data);

/* A queue of the datagram protocol.  Of its functions the table holds pqueue_size alone. */
typedef struct _pitem {
    unsigned char priority[8]; /* Compared as one number, the first byte weighing most. */
    void* data;
    struct _pitem* next;
} pitem;
typedef struct _pqueue* pqueue;
int pqueue_size(pqueue queue);
pitem* pitem_new(unsigned char* priority, void* data);
pitem* pqueue_insert(pqueue queue, pitem* item);
pitem* pqueue_pop(pqueue queue);
pqueue pqueue_new(void);
void pitem_free(pitem* item);
void pqueue_free(pqueue queue);

/* Memory and texts. */
char* BUF_strdup(const char* text);
char* BUF_strndup(const char* text, size_t length);
size_t BUF_strlcat(char* to, const char* from, size_t size);
size_t BUF_strlcpy(char* to, const char* from, size_t size);
void* BUF_memdup(const void* data, size_t length);

int CRYPTO_set_mem_functions(void* (*allocate)(size_t), void* (*reallocate)(void*, size_t), void (*release)(void*));
void CRYPTO_get_mem_functions(void* (**allocate)(size_t), void* (**reallocate)(void*, size_t), void (**release)(void*));
void CRYPTO_free(void* memory);
void* CRYPTO_malloc(int size, const char* file, int line);
void* CRYPTO_realloc(void* memory, int size, const char* file, int line);

/* Locks and threads. */
typedef void (*CRYPTO_locking_function)(int mode, int type, const char* file, int line);
typedef int (*CRYPTO_add_lock_function)(int* number, int amount, int type, const char* file, int line);
typedef unsigned long (*CRYPTO_id_function)(void);
CRYPTO_add_lock_function CRYPTO_get_add_lock_callback(void);
CRYPTO_id_function CRYPTO_get_id_callback(void);
CRYPTO_locking_function CRYPTO_get_locking_callback(void);
const char* CRYPTO_get_lock_name(int type);
int CRYPTO_add_lock(int* number, int amount, int type, const char* file, int line);
int CRYPTO_num_locks(void);
unsigned long CRYPTO_thread_id(void);
void CRYPTO_lock(int mode, int type, const char* file, int line);
void CRYPTO_set_add_lock_callback(CRYPTO_add_lock_function function);
void CRYPTO_set_id_callback(CRYPTO_id_function function);
void CRYPTO_set_locking_callback(CRYPTO_locking_function function);

/* Start, errors and end. */
char* ERR_error_string(unsigned long code, char* text);
const char* ERR_lib_error_string(unsigned long code);
const char* ERR_reason_error_string(unsigned long code);
const char* SSLeay_version(int what);
int RAND_status(void);
RAND_METHOD* RAND_SSLeay(void);
unsigned long SSLeay(void);
void CRYPTO_cleanup_all_ex_data(void);
void ENGINE_cleanup(void);
void ERR_error_string_n(unsigned long code, char* text, size_t size);
void ERR_free_strings(void);
void ERR_load_crypto_strings(void);
void ERR_put_error(int library, int function, int reason, const char* file, int line);
void ERR_remove_state(unsigned long thread);
void ERR_remove_thread_state(const CRYPTO_THREADID* thread);
void EVP_cleanup(void);
void OPENSSL_add_all_algorithms_noconf(void);
void RAND_cleanup(void);

/* Digests, ciphers and keys. */
EVP_MD_CTX* EVP_MD_CTX_create(void);
int EVP_CIPHER_CTX_block_size(const EVP_CIPHER_CTX* context);
int EVP_CIPHER_CTX_cleanup(EVP_CIPHER_CTX* context);
int EVP_CIPHER_CTX_iv_length(const EVP_CIPHER_CTX* context);
int EVP_CIPHER_CTX_key_length(const EVP_CIPHER_CTX* context);
int EVP_CIPHER_block_size(const EVP_CIPHER* cipher);
int EVP_CIPHER_iv_length(const EVP_CIPHER* cipher);
int EVP_CIPHER_key_length(const EVP_CIPHER* cipher);
int EVP_MD_CTX_cleanup(EVP_MD_CTX* context);
int EVP_MD_block_size(const EVP_MD* digest);
int EVP_MD_size(const EVP_MD* digest);
int EVP_MD_type(const EVP_MD* digest);
int EVP_PKEY_bits(EVP_PKEY* key);
int EVP_PKEY_id(const EVP_PKEY* key);
int EVP_PKEY_size(EVP_PKEY* key);
void EVP_MD_CTX_destroy(EVP_MD_CTX* context);

/* An HMAC_CTX of the old interface is laid out by its caller, who gives it this much room. */
typedef struct {
    HMAC_CTX* inner;
    unsigned char rest[280];
} HMAC_CTX_1_0;
int HMAC_CTX_copy(HMAC_CTX_1_0* to, HMAC_CTX_1_0* from);
int HMAC_Final(HMAC_CTX_1_0* context, unsigned char* digest, unsigned int* length);
int HMAC_Init(HMAC_CTX_1_0* context, const void* key, int length, const EVP_MD* digest);
int HMAC_Init_ex(HMAC_CTX_1_0* context, const void* key, int length, const EVP_MD* digest, ENGINE* engine);
int HMAC_Update(HMAC_CTX_1_0* context, const unsigned char* data, size_t length);
void HMAC_CTX_cleanup(HMAC_CTX_1_0* context);
void HMAC_CTX_init(HMAC_CTX_1_0* context);
void HMAC_CTX_set_flags(HMAC_CTX_1_0* context, unsigned long flags);

/* Elliptic curves: what were two kinds of methods is one in OpenSSL 3. */
typedef EC_KEY_METHOD ECDH_METHOD;
typedef EC_KEY_METHOD ECDSA_METHOD;
const ECDH_METHOD* ECDH_OpenSSL(void);
const ECDH_METHOD* ECDH_get_default_method(void);
int ECDH_get_ex_new_index(long number, void* argument, CRYPTO_EX_new* make, CRYPTO_EX_dup* copy, CRYPTO_EX_free* drop);
int ECDH_set_ex_data(EC_KEY* key, int index, void* data);
int ECDH_set_method(EC_KEY* key, const ECDH_METHOD* method);
void ECDH_set_default_method(const ECDH_METHOD* method);
void* ECDH_get_ex_data(EC_KEY* key, int index);
const ECDSA_METHOD* ECDSA_OpenSSL(void);
const ECDSA_METHOD* ECDSA_get_default_method(void);
int ECDSA_set_method(EC_KEY* key, const ECDSA_METHOD* method);
void ECDSA_set_default_method(const ECDSA_METHOD* method);

/* Certificates and connections. */
X509* SSL_get_peer_certificate(const SSL* connection);
const SSL_METHOD* SSLv23_client_method(void);
const SSL_METHOD* SSLv23_method(void);
int SSL_library_init(void);
void SSL_load_error_strings(void);
void X509_STORE_CTX_trusted_stack(X509_STORE_CTX* context, STACK_OF(X509) * certificates);

/* FIPS mode.  The last is no function of OpenSSL's: `key` is the digest that the self test has to come to. */
int FIPS_mode(void);
int FIPS_mode_set(int mode);
int OSL_FIPS_mode_set(int mode, const unsigned char* key, size_t length);

#ifdef __cplusplus
}
#endif

#endif
