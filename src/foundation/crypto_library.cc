#include "foundation/crypto_library.h"

#include <dlfcn.h>

#include <cstdlib>
#include <cstring>
#include <iterator>
#include <memory>
#include <new>
#include <string_view>

#include "foundation/crypto_names.h"
#include "foundation/crypto_wrappers.h"

namespace CryptoLibrary {
namespace {

static_assert(std::size(kCryptoNames) == kFunctions);

struct Free {
    void operator()(char* text) const { std::free(text); }
};

void* handle = nullptr;
const char* name = "";
std::unique_ptr<char, Free> path;

const char* Folder(const char* folder) {
    if (const char* given = std::getenv("OSL_LIBPATH"); given != nullptr) {
        return given;
    }
    return folder != nullptr ? folder : kCryptoFolder;
}

// Not a FileLocation: no more than one "/" at the folder's end is taken for the one that has to stand there.
std::unique_ptr<char, Free> PathOf(std::string_view folder, std::string_view library) {
    const bool separated = folder.empty() || folder.back() == '/';
    const std::string_view parts[] = {folder, separated ? "" : "/", library, kCryptoSuffix};
    size_t length = 1;
    for (const std::string_view part : parts) {
        length += part.size();
    }
    std::unique_ptr<char, Free> text(static_cast<char*>(std::malloc(length)));
    if (text == nullptr) {
        throw std::bad_alloc();
    }
    char* end = text.get();
    for (const std::string_view part : parts) {
        end += part.copy(end, part.size());
    }
    *end = '\0';
    return text;
}

// The last name belongs to a part of the library that the build for FIPS mode is certified without.
bool IsWanted(size_t place, bool fips) { return !fips || place + 1 != kFunctions; }

void FillTable(CryptoLoadStatus& status, bool fips) {
    for (size_t place = 0; place < kFunctions; ++place) {
        table[place] = nullptr;
        if (status.code != CryptoLoadStatus::NoError || !IsWanted(place, fips)) {
            continue;
        }
        table[place] = reinterpret_cast<Function>(dlsym(handle, kCryptoNames[place]));
        if (table[place] == nullptr) {
            status.code = CryptoLoadStatus::FunctionMissing;
            status.functionName = kCryptoNames[place];
            status.libraryPath = path.get();
        }
    }
}

}  // namespace

void Load(CryptoLoadStatus& status, bool fips, const char* folder) {
    Unload();
    status = {};
    const char* const library = fips ? kCryptoFipsLibrary : kCryptoLibrary;
    path = PathOf(Folder(folder), library);
    handle = dlopen(path.get(), RTLD_NOW);
    if (handle == nullptr) {
        status.code = CryptoLoadStatus::LibraryFailed;
        status.libraryPath = path.get();
        status.loaderMessage = dlerror();
        return;
    }
    name = library;
    FillTable(status, fips);
}

void Unload() {
    handle = nullptr;
    name = "";
}

const char* Name() { return name; }

}  // namespace CryptoLibrary
