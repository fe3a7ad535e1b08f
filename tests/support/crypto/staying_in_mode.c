/* A library that is in FIPS mode and stays in it. */
int EVP_default_properties_is_fips_enabled(void* context);
int FIPS_mode(void);
int OSL_FIPS_mode_set(int mode, const unsigned char* key, unsigned long length);

/* Looks into OpenSSL 3's context, as the real one does: what is made of it then goes with the process. */
int FIPS_mode(void) { return EVP_default_properties_is_fips_enabled((void*)0) || 1; }
int OSL_FIPS_mode_set(int mode, const unsigned char* key, unsigned long length) {
    (void)mode;
    (void)key;
    (void)length;
    return 0;
}
