/* A library that tells of the calls of its start, its end and its mode on standard error, never has enough random
 * bytes, and refuses every mode.  What it tells of is not passed on. */
#include <stdio.h>

static void Tell(const char* what) { fprintf(stderr, "%s\n", what); }

void ERR_load_crypto_strings(void);
void ERR_load_crypto_strings(void) { Tell("ERR_load_crypto_strings"); }
void OPENSSL_add_all_algorithms_noconf(void);
void OPENSSL_add_all_algorithms_noconf(void) { Tell("OPENSSL_add_all_algorithms_noconf"); }
int CRYPTO_num_locks(void);
int CRYPTO_num_locks(void) {
    Tell("CRYPTO_num_locks");
    return 41;
}
int RAND_status(void);
int RAND_status(void) {
    Tell("RAND_status");
    return 0;
}
int RAND_poll(void);
int RAND_poll(void) {
    Tell("RAND_poll");
    return 0;
}
void EVP_cleanup(void);
void EVP_cleanup(void) { Tell("EVP_cleanup"); }
void ERR_remove_state(unsigned long);
void ERR_remove_state(unsigned long thread) { fprintf(stderr, "ERR_remove_state(%lu)\n", thread); }
void ERR_free_strings(void);
void ERR_free_strings(void) { Tell("ERR_free_strings"); }
void CRYPTO_cleanup_all_ex_data(void);
void CRYPTO_cleanup_all_ex_data(void) { Tell("CRYPTO_cleanup_all_ex_data"); }
int FIPS_mode(void);
int FIPS_mode(void) {
    Tell("FIPS_mode");
    return 0;
}
int OSL_FIPS_mode_set(int, const unsigned char*, unsigned long);
int OSL_FIPS_mode_set(int mode, const unsigned char* key, unsigned long length) {
    fprintf(stderr, "OSL_FIPS_mode_set(%d, %02x.., %lu)\n", mode, key[0], length);
    return 0;
}
