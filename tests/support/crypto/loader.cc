// loader FOLDER: loads the crypto library and tells the status and the path that was tried on standard error.
#include <cstdio>

#include "foundation/crypto_library.h"

int main(int, char** arguments) {
    CryptoLoadStatus status;
    CryptoLibrary::Load(status, false, arguments[1]);
    std::fprintf(stderr, "%d %s\n", status.code, status.libraryPath == nullptr ? "-" : status.libraryPath);
    return 0;
}
