/* An apt library of which only the version can be asked: VERSION is its text, and without one it has none to ask. */
#ifdef VERSION
extern const char* const pkgLibVersion;
const char* const pkgLibVersion = VERSION;
#else
extern int nothing;
int nothing = 0;
#endif
