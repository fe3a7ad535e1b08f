// The crypto library: opened when the program runs, and reached through a table of its functions.
//
// The program is linked with no crypto library.  What it calls are the forwarding functions of crypto_wrappers.h, one
// for each name of support/crypto/names.txt, which jump through this table; only crypto units include those.
#ifndef FOUNDATION_CRYPTO_LIBRARY_H
#define FOUNDATION_CRYPTO_LIBRARY_H

#include <cstddef>

// What came of the last attempt to load.  The texts are valid until the next one; the loader's message, until the
// dynamic loader is called again.
struct CryptoLoadStatus {
    enum Code : int { NoError = 0, LibraryFailed = 1, FunctionMissing = 2 };

    int code = NoError;
    const char* functionName = nullptr;
    const char* libraryPath = nullptr;
    const char* loaderMessage = nullptr;
};

namespace CryptoLibrary {

inline constexpr size_t kFunctions = 525;

// Opens the build for `fips` mode or the other one, and fills the table in the order of the names.  The folder is the
// value of OSL_LIBPATH where the environment has it; otherwise `folder`, or the default one where that is null.  An
// empty folder leaves the search to the dynamic loader.  Throws std::bad_alloc.
void Load(CryptoLoadStatus& status, bool fips, const char* folder);

// Forgets the library.  It stays in the process, since other threads may be inside it.
void Unload();

// The name of the library that is loaded, without its suffix; empty when there is none.
const char* Name();

// An entry of the table, empty where the look-up stopped before it.
using Function = void (*)();
inline Function table[kFunctions] = {};

}  // namespace CryptoLibrary

// The function at a place of the table, with the signature of its own.
template <size_t place, class Signature>
struct CryptoForward;
template <size_t place, class Result, class... Arguments>
struct CryptoForward<place, Result(Arguments...)> {
    static_assert(place < CryptoLibrary::kFunctions);
    static Result Call(Arguments... arguments) {
        return reinterpret_cast<Result (*)(Arguments...)>(CryptoLibrary::table[place])(arguments...);
    }
};

#endif
