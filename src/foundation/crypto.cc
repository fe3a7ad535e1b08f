#include "foundation/crypto.h"

#include <pthread.h>

#include <atomic>
#include <cstdlib>
#include <optional>

#include "foundation/crypto_library.h"
#include "foundation/crypto_wrappers.h"
#include "foundation/file_stat.h"
#include "foundation/mutex.h"
#include "foundation/thread_local_ptr.h"

namespace Crypto {
namespace {

struct State {
    Mutex mutex;
    bool fipsLoaded = false;
    bool plainLoaded = false;
    bool identifiersAdded = false;
    bool endRegistered = false;

    // The library's locks by their numbers, and the holds on those that are taken.
    SizedAutoArray<Mutex> locks;
    SizedAutoArray<AutoMutexAquisition> held;
};

// Made once and left alone at exit, when the library may still call back.
State& TheState() {
    alignas(State) static unsigned char place[sizeof(State)];
    static State* const state = new (place) State;
    return *state;
}

std::atomic<bool> initialised = false;

// What the library's self test must come to in FIPS mode: the HMAC-SHA1 of a text that it holds.
constexpr unsigned char hmacSha1[20] = {0x00, 0xee, 0x27, 0x5e, 0xbb, 0x34, 0xfa, 0x3a, 0x92, 0x7e,
                                        0x5e, 0x25, 0x32, 0xda, 0xde, 0xa0, 0x39, 0x2d, 0x0c, 0x50};

// The reason with which the library refuses to enter a mode that it is in.
constexpr unsigned long modeAlreadySet = 102;

// The product's private object identifiers, which stand in its certificates for what a key may do.  They lie under an
// arc that nobody else has, made from a random 128-bit number.
struct Identifier {
    unsigned char last;
    const char* shortName;
    const char* longName;
};
constexpr Identifier identifiers[] = {
    {1, "oslSiteSigner", "OSL site signer"},
    {2, "oslActionSigner", "OSL action signer"},
    {3, "oslReportReader", "OSL report reader"},
};

void AddIdentifiers(State& state) {
    static Mutex identifierMutex;
    const AutoMutexAquisition hold(identifierMutex);
    if (state.identifiersAdded) {
        return;
    }
    for (const Identifier& identifier : identifiers) {
        // 2.25.246232752637573608372798174553650441089.<last>
        unsigned char encoded[] = {0x69, 0x82, 0xf2, 0xbe, 0xda, 0x80, 0xc8, 0x87, 0xb2, 0x9c,           0xf5,
                                   0x8d, 0xd4, 0xf9, 0x90, 0x9b, 0x8b, 0x9c, 0xd7, 0x01, identifier.last};
        ASN1_OBJECT* const object =
            Crypto_wrapper_ASN1_OBJECT_create(Crypto_wrapper_OBJ_new_nid(1), encoded, static_cast<int>(sizeof encoded),
                                              identifier.shortName, identifier.longName);
        if (object == nullptr) {
            throw std::bad_alloc();
        }
        Crypto_wrapper_OBJ_add_object(object);
        Crypto_wrapper_ASN1_OBJECT_free(object);  // The table has its own copy.
    }
    state.identifiersAdded = true;
}

extern "C" void LockOrUnlock(int mode, int number, const char*, int) {
    State& state = TheState();
    const auto place = static_cast<size_t>(number);
    if (number < 0 || place >= state.locks.Size()) {
        return;
    }
    if ((mode & CRYPTO_LOCK) != 0) {
        state.held[place].Acquire(state.locks[place]);
    } else {
        state.held[place].Release();
    }
}

extern "C" unsigned long ThisThread() { return static_cast<unsigned long>(pthread_self()); }

void MakeLocks(State& state) {
    const auto count = static_cast<size_t>(Crypto_wrapper_CRYPTO_num_locks());
    state.locks = SizedAutoArray<Mutex>(count);
    state.held = SizedAutoArray<AutoMutexAquisition>(count);
    Crypto_wrapper_CRYPTO_set_locking_callback(LockOrUnlock);
    Crypto_wrapper_CRYPTO_set_id_callback(ThisThread);
}

void SeedRandomNumbers() {
    for (int attempt = 0; attempt < 3 && Crypto_wrapper_RAND_status() == 0; ++attempt) {
        Crypto_wrapper_RAND_poll();
    }
}

// A thread that has used the library has its pointer set; it ends with what the library keeps for it.
template <class T>
struct RemoveErrorState {
    static constexpr void (*destructor)(void*) = [](void* used) {
        if (used != nullptr && initialised) {
            Crypto_wrapper_ERR_remove_state(0);
        }
    };
};
ThreadLocalPtr<std::atomic<bool>, RemoveErrorState>& ThreadUse() {
    static ThreadLocalPtr<std::atomic<bool>, RemoveErrorState> use;
    return use;
}
void NoteThread() {
    if (ThreadUse().Get() == nullptr) {
        ThreadUse().Set(&initialised);
    }
}

void CleanUp() {
    Crypto_wrapper_EVP_cleanup();
    Crypto_wrapper_ERR_remove_state(0);
    Crypto_wrapper_ERR_free_strings();
    Crypto_wrapper_CRYPTO_cleanup_all_ex_data();
}

void End() {
    if (initialised.exchange(false)) {
        ThreadUse().Set(nullptr);
        CleanUp();
    }
}

// From here on threads clean up behind themselves, and so does the process.  The handler is registered after the thread
// layer's pointer is made, and after the library began, so that both are there when it runs.
void RegisterEnds(State& state) {
    NoteThread();
    if (!state.endRegistered) {
        std::atexit(End);
        state.endRegistered = true;
    }
}

std::optional<FileLocation> FolderOf(const FileLocation* location) {
    if (location == nullptr) {
        return std::nullopt;
    }
    const FileStat place(*location);
    if (!place.IsThere()) {
        throw InvalidStats();
    }
    return place.IsRegular() ? location->Parent() : *location;
}

void LoadLibrary(bool fips, const FileLocation* location) {
    const std::optional<FileLocation> folder = FolderOf(location);
    CryptoLoadStatus status;
    CryptoLibrary::Load(status, fips, folder ? folder->CString() : nullptr);
    switch (status.code) {
        case CryptoLoadStatus::LibraryFailed:
            throw Crypto_wrapper_load_library_Failed(status.libraryPath, status.loaderMessage);
        case CryptoLoadStatus::FunctionMissing:
            throw Crypto_wrapper_load_function_Failed(status.functionName, status.libraryPath);
        default:
            break;
    }
}

void InitialiseLibrary(State& state, bool fips) {
    if (Crypto_wrapper_CRYPTO_set_mem_functions(std::malloc, std::realloc, std::free) == 0) {
        throw CRYPTO_set_mem_functions_Failed();
    }
    AddIdentifiers(state);
    MakeLocks(state);
    Crypto_wrapper_ERR_load_crypto_strings();
    Crypto_wrapper_OPENSSL_add_all_algorithms_noconf();
    SeedRandomNumbers();
    RegisterEnds(state);
    initialised = true;
    (fips ? state.fipsLoaded : state.plainLoaded) = true;
}

void EnterMode(bool fips) {
    if ((Crypto_wrapper_FIPS_mode() != 0) == fips) {
        return;
    }
    if (Crypto_wrapper_OSL_FIPS_mode_set(fips ? 1 : 0, hmacSha1, sizeof hmacSha1) != 0) {
        if (!fips) {
            Crypto_wrapper_RAND_set_rand_method(nullptr);
        }
        return;
    }
    if (fips && Crypto_wrapper_ERR_get_error() == modeAlreadySet) {
        return;
    }
    Crypto_wrapper_OSL_FIPS_mode_set(0, hmacSha1, sizeof hmacSha1);
    throw OSL_FIPS_mode_set_Failed();
}

}  // namespace

void Initialise(bool fips, const FileLocation* location) {
    State& state = TheState();
    const AutoMutexAquisition hold(state.mutex);
    if (initialised && CurrentFipsMode() != fips) {
        CleanUp();
        Crypto_wrapper_CRYPTO_set_locking_callback(nullptr);  // The locks that it uses are about to go.
        initialised = false;
    }
    if (!initialised) {
        LoadLibrary(fips, location);
        InitialiseLibrary(state, fips);
    }
    EnterMode(fips);
}

bool IsInitialised() noexcept { return initialised; }

void RequireInitialised() {
    if (!initialised) {
        throw OpenSSLNotInitialized();
    }
    NoteThread();
}

bool CurrentFipsMode() {
    const AutoMutexAquisition hold(TheState().mutex);
    return initialised && Crypto_wrapper_FIPS_mode() != 0;
}

bool FipsLoaded() {
    const AutoMutexAquisition hold(TheState().mutex);
    return TheState().fipsLoaded;
}
bool PlainLoaded() {
    const AutoMutexAquisition hold(TheState().mutex);
    return TheState().plainLoaded;
}

const char* LibraryName() {
    const AutoMutexAquisition hold(TheState().mutex);
    return CryptoLibrary::Name();
}

const char* LibraryVersion() {
    RequireInitialised();
    return Crypto_wrapper_SSLeay_version(SSLEAY_VERSION);
}

}  // namespace Crypto
