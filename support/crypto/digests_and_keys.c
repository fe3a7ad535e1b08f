/* Digests, ciphers, message codes, keys and certificates. */
#include <stddef.h>

#include "openssl_1_0.h"
#include "openssl_3.h"

OPENSSL_3(HMAC_CTX_copy);
OPENSSL_3(HMAC_CTX_set_flags);
OPENSSL_3(HMAC_Final);
OPENSSL_3(HMAC_Init_ex);
OPENSSL_3(HMAC_Update);

EVP_MD_CTX* EVP_MD_CTX_create(void) { return EVP_MD_CTX_new(); }
int EVP_CIPHER_CTX_block_size(const EVP_CIPHER_CTX* context) { return EVP_CIPHER_CTX_get_block_size(context); }
int EVP_CIPHER_CTX_cleanup(EVP_CIPHER_CTX* context) { return EVP_CIPHER_CTX_reset(context); }
int EVP_CIPHER_CTX_iv_length(const EVP_CIPHER_CTX* context) { return EVP_CIPHER_CTX_get_iv_length(context); }
int EVP_CIPHER_CTX_key_length(const EVP_CIPHER_CTX* context) { return EVP_CIPHER_CTX_get_key_length(context); }
int EVP_CIPHER_block_size(const EVP_CIPHER* cipher) { return EVP_CIPHER_get_block_size(cipher); }
int EVP_CIPHER_iv_length(const EVP_CIPHER* cipher) { return EVP_CIPHER_get_iv_length(cipher); }
int EVP_CIPHER_key_length(const EVP_CIPHER* cipher) { return EVP_CIPHER_get_key_length(cipher); }
int EVP_MD_CTX_cleanup(EVP_MD_CTX* context) { return EVP_MD_CTX_reset(context); }
int EVP_MD_block_size(const EVP_MD* digest) { return EVP_MD_get_block_size(digest); }
int EVP_MD_size(const EVP_MD* digest) { return EVP_MD_get_size(digest); }
int EVP_MD_type(const EVP_MD* digest) { return EVP_MD_get_type(digest); }
int EVP_PKEY_bits(EVP_PKEY* key) { return EVP_PKEY_get_bits(key); }
int EVP_PKEY_id(const EVP_PKEY* key) { return EVP_PKEY_get_id(key); }
int EVP_PKEY_size(EVP_PKEY* key) { return EVP_PKEY_get_size(key); }
void EVP_MD_CTX_destroy(EVP_MD_CTX* context) { EVP_MD_CTX_free(context); }

/* The caller's room holds a pointer to the real context, made when it is first needed. */
static int HasInner(HMAC_CTX_1_0* context) {
    if (context->inner == NULL) {
        context->inner = HMAC_CTX_new();
    }
    return context->inner != NULL;
}

void HMAC_CTX_init(HMAC_CTX_1_0* context) { context->inner = NULL; }
void HMAC_CTX_cleanup(HMAC_CTX_1_0* context) {
    HMAC_CTX_free(context->inner);
    context->inner = NULL;
}
void HMAC_CTX_set_flags(HMAC_CTX_1_0* context, unsigned long flags) {
    if (HasInner(context)) {
        OpenSSL3_HMAC_CTX_set_flags(context->inner, flags);
    }
}
int HMAC_CTX_copy(HMAC_CTX_1_0* to, HMAC_CTX_1_0* from) {
    /* What `to` held is not looked at, since it may be room that was never prepared. */
    to->inner = NULL;
    return from->inner == NULL || (HasInner(to) && OpenSSL3_HMAC_CTX_copy(to->inner, from->inner));
}
int HMAC_Init(HMAC_CTX_1_0* context, const void* key, int length, const EVP_MD* digest) {
    if (key != NULL && digest != NULL) {
        HMAC_CTX_init(context);
    }
    return HMAC_Init_ex(context, key, length, digest, NULL);
}
int HMAC_Init_ex(HMAC_CTX_1_0* context, const void* key, int length, const EVP_MD* digest, ENGINE* engine) {
    return HasInner(context) && OpenSSL3_HMAC_Init_ex(context->inner, key, length, digest, engine);
}
int HMAC_Update(HMAC_CTX_1_0* context, const unsigned char* data, size_t length) {
    return context->inner != NULL && OpenSSL3_HMAC_Update(context->inner, data, length);
}
int HMAC_Final(HMAC_CTX_1_0* context, unsigned char* digest, unsigned int* length) {
    return context->inner != NULL && OpenSSL3_HMAC_Final(context->inner, digest, length);
}

const ECDH_METHOD* ECDH_OpenSSL(void) { return EC_KEY_OpenSSL(); }
const ECDH_METHOD* ECDH_get_default_method(void) { return EC_KEY_get_default_method(); }
int ECDH_get_ex_new_index(long number, void* argument, CRYPTO_EX_new* make, CRYPTO_EX_dup* copy, CRYPTO_EX_free* drop) {
    return CRYPTO_get_ex_new_index(CRYPTO_EX_INDEX_EC_KEY, number, argument, make, copy, drop);
}
int ECDH_set_ex_data(EC_KEY* key, int index, void* data) { return EC_KEY_set_ex_data(key, index, data); }
int ECDH_set_method(EC_KEY* key, const ECDH_METHOD* method) { return EC_KEY_set_method(key, method); }
void ECDH_set_default_method(const ECDH_METHOD* method) { EC_KEY_set_default_method(method); }
void* ECDH_get_ex_data(EC_KEY* key, int index) { return EC_KEY_get_ex_data(key, index); }
const ECDSA_METHOD* ECDSA_OpenSSL(void) { return EC_KEY_OpenSSL(); }
const ECDSA_METHOD* ECDSA_get_default_method(void) { return EC_KEY_get_default_method(); }
int ECDSA_set_method(EC_KEY* key, const ECDSA_METHOD* method) { return EC_KEY_set_method(key, method); }
void ECDSA_set_default_method(const ECDSA_METHOD* method) { EC_KEY_set_default_method(method); }

void X509_STORE_CTX_trusted_stack(X509_STORE_CTX* context, STACK_OF(X509) * certificates) {
    X509_STORE_CTX_set0_trusted_stack(context, certificates);
}
