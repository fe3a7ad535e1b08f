/* A library that says it is in FIPS mode already when it is told to enter it. */
unsigned long ERR_get_error(void);
unsigned long ERR_get_error(void) { return 102; }
int OSL_FIPS_mode_set(int, const unsigned char*, unsigned long);
int OSL_FIPS_mode_set(int mode, const unsigned char* key, unsigned long length) {
    (void)mode;
    (void)key;
    (void)length;
    return 0;
}
