/* The way past a function of ours to the one of the same name in OpenSSL 3. */
#ifndef SUPPORT_CRYPTO_OPENSSL_3_H
#define SUPPORT_CRYPTO_OPENSSL_3_H

/* Binds OpenSSL3_<name> to libcrypto's <name>, which the linker tells from ours by its version. */
#define OPENSSL_3(name) __asm__(".symver OpenSSL3_" #name "," #name "@OPENSSL_3.0.0")

#endif
