/* A library that is in FIPS mode and stays in it. */
int FIPS_mode(void);
int OSL_FIPS_mode_set(int mode, const unsigned char* key, unsigned long length);

int FIPS_mode(void) { return 1; }
int OSL_FIPS_mode_set(int mode, const unsigned char* key, unsigned long length) {
    (void)mode;
    (void)key;
    (void)length;
    return 0;
}
