#include "foundation/sha1.h"

#include <new>

#include "foundation/crypto.h"
#include "foundation/crypto_wrappers.h"
#include "foundation/file_reader.h"

namespace {

constexpr size_t digestBytes = SHA_DIGEST_LENGTH;

void Check(int result) {
    if (result == 0) {
        throw DigestFailed();
    }
}

Sha1Text TextOf(const unsigned char (&digest)[EVP_MAX_MD_SIZE], unsigned length) {
    Check(length == digestBytes ? 1 : 0);
    Sha1Text text;
    for (size_t i = 0; i < digestBytes; ++i) {
        constexpr char digits[] = "0123456789abcdef";
        text.digits[2 * i] = digits[digest[i] >> 4];
        text.digits[2 * i + 1] = digits[digest[i] & 15];
    }
    return text;
}

EVP_MD_CTX* ContextOf(void* context) { return static_cast<EVP_MD_CTX*>(context); }

void* NewContext() {
    Crypto::RequireInitialised();
    void* const context = Crypto_wrapper_EVP_MD_CTX_create();
    if (context == nullptr) {
        throw std::bad_alloc();
    }
    return context;
}

}  // namespace

Sha1Receiver::Sha1Receiver() : context_(NewContext()) {}
Sha1Receiver::~Sha1Receiver() { Crypto_wrapper_EVP_MD_CTX_destroy(ContextOf(context_)); }

void Sha1Receiver::Start() {
    Check(Crypto_wrapper_EVP_DigestInit_ex(ContextOf(context_), Crypto_wrapper_EVP_sha1(), nullptr));
}

void Sha1Receiver::Data(const unsigned char* begin, const unsigned char* end) {
    Check(Crypto_wrapper_EVP_DigestUpdate(ContextOf(context_), begin, static_cast<size_t>(end - begin)));
}

void Sha1Receiver::Finish() {
    unsigned char digest[EVP_MAX_MD_SIZE];
    unsigned length = 0;
    Check(Crypto_wrapper_EVP_DigestFinal_ex(ContextOf(context_), digest, &length));
    digest_ = TextOf(digest, length);
}

Sha1Text Sha1OfBytes(ConstData bytes) {
    Crypto::RequireInitialised();
    unsigned char digest[EVP_MAX_MD_SIZE];
    unsigned length = 0;
    Check(Crypto_wrapper_EVP_Digest(bytes.begin, bytes.Length(), digest, &length, Crypto_wrapper_EVP_sha1(), nullptr));
    return TextOf(digest, length);
}

Sha1Text Sha1OfFile(const FileLocation& file) {
    Sha1Receiver digest;
    UnixPlatform::FileReadingPath path(file);
    unsigned char block[32768];
    FileReadingLoop loop(path, Buffer(block, block + sizeof block));
    digest.Start();
    while (loop.HasBytesRemaining()) {
        digest(loop.Fill());
    }
    digest.Finish();
    return digest.Digest();
}
