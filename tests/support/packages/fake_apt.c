/* An apt library of which only the version can be asked: VERSION is its text, and without one it has none to ask.
   UNRESOLVED calls a function that is nowhere, which does no harm while it is not called. */
#ifdef VERSION
extern const char* const pkgLibVersion;
const char* const pkgLibVersion = VERSION;
#else
extern int nothing;
int nothing = 0;
#endif

#ifdef UNRESOLVED
void fakeNowhere(void);
void fakeCall(void);
void fakeCall(void) { fakeNowhere(); }
#endif
