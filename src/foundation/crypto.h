// The crypto library, ready for use: loaded, initialised once, and in the FIPS mode that was asked for.
//
// Digests and the like may be made as long as IsInitialised(); see sha1.h.  All operations here run under one recursive
// lock.
#ifndef FOUNDATION_CRYPTO_H
#define FOUNDATION_CRYPTO_H

#include <memory>
#include <string>

#include "foundation/debuggable_exception.h"
#include "foundation/file_location.h"

// A failure whose text is made when it is thrown.  The copies that throwing makes share it, so that they cannot fail.
class CryptoLoadFailure : public DebuggableException {
public:
    const char* what() const noexcept override { return text_->c_str(); }

protected:
    explicit CryptoLoadFailure(std::string text)
        : DebuggableException(""), text_(std::make_shared<const std::string>(std::move(text))) {}

private:
    std::shared_ptr<const std::string> text_;
};

struct Crypto_wrapper_load_library_Failed : CryptoLoadFailure {
    Crypto_wrapper_load_library_Failed(const std::string& path, const std::string& message)
        : CryptoLoadFailure("Dynamic library failed to load (" + path + "): " + message) {}
};
class Crypto_wrapper_load_function_Failed : public CryptoLoadFailure {
public:
    // `function` must live as long as the program.
    Crypto_wrapper_load_function_Failed(const char* function, const std::string& path)
        : CryptoLoadFailure(std::string("Failed to load crypto function '") + function + "' from library '" + path +
                            "'."),
          function_(function) {}
    const char* FunctionName() const noexcept { return function_; }

private:
    const char* function_;
};
// The library is never closed, so nothing here throws this: it is for hosts that do.
struct Crypto_wrapper_unload_library_Failed : CryptoLoadFailure {
    explicit Crypto_wrapper_unload_library_Failed(const std::string& path)
        : CryptoLoadFailure("Failed to unload dynamic library '" + path + "'") {}
};
struct CRYPTO_set_mem_functions_Failed : DebuggableException {
    CRYPTO_set_mem_functions_Failed() noexcept : DebuggableException("CRYPTO_set_mem_functions_Failed") {}
};
struct OSL_FIPS_mode_set_Failed : DebuggableException {
    OSL_FIPS_mode_set_Failed() noexcept : DebuggableException("OSL_FIPS_mode_set_Failed") {}
};
struct OpenSSLNotInitialized : DebuggableException {
    OpenSSLNotInitialized() noexcept : DebuggableException("OpenSSLNotInitialized") {}
};

namespace Crypto {

// Loads and initialises the build for `fips` mode, or the other one, and brings the library into that mode.  `location`
// is the folder that the library lies in, or a file in that folder; without one, see CryptoLibrary::Load.
//
// Throws InvalidStats for a location that is not there, the exceptions above, and std::bad_alloc.  After
// OSL_FIPS_mode_set_Failed the library is initialised and out of the mode.  A further call in the mode that the library
// is in does nothing.
void Initialise(bool fips, const FileLocation* location);

bool IsInitialised() noexcept;

// Throws OpenSSLNotInitialized; otherwise what the library keeps for this thread goes when the thread ends.
void RequireInitialised();

// False when the library is not initialised.
bool CurrentFipsMode();

// Which build has been loaded in this process.
bool FipsLoaded();
bool PlainLoaded();

// The name of the loaded library without its suffix, empty when there is none; the library's own word for its version.
// The second requires it to be initialised.
const char* LibraryName();
const char* LibraryVersion();

}  // namespace Crypto

#endif
