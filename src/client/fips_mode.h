// Whether the crypto library runs in FIPS mode: what the settings and the masthead want, and what came of it.
#ifndef CLIENT_FIPS_MODE_H
#define CLIENT_FIPS_MODE_H

#include <string_view>

#include "evaluator/inspector_context.h"
#include "foundation/file_location.h"

// Is given one line of what is done, without a line end.
using FipsLog = void (*)(std::string_view text);

// Decides on the mode and initialises the crypto library in it: by the setting _OSLClient_Cryptography_FipsMode of the
// client where it says "required" or "none", and otherwise by the masthead.  A library that is initialised already
// stays as it is.  `log` may be null.
//
// False where the library refuses a mode that was asked for by setting, or refuses to run without it; FipsStatus() says
// why.  Throws what Crypto::Initialise throws otherwise.
bool RefreshFipsMode(const FileLocation& masthead, FipsLog log);

// The outcome of the last refresh, and that of the last self test since.
const CryptoStatus& FipsStatus();

// For who has the library test itself.
void RecordSelfTest(bool passed, std::string_view text);

#endif
