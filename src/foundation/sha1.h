// SHA-1 digests, made by the crypto library and given as 40 lower-case hexadecimal digits.
//
// All of this requires Crypto::Initialise: without it, OpenSSLNotInitialized.
#ifndef FOUNDATION_SHA1_H
#define FOUNDATION_SHA1_H

#include <array>
#include <memory>
#include <string_view>

#include "foundation/data_receiver.h"
#include "foundation/file_location.h"

// The library would not make a digest.
struct DigestFailed : DebuggableException {
    DigestFailed() noexcept : DebuggableException("DigestFailed") {}
};

struct Sha1Text {
    std::array<char, 40> digits;
    std::string_view View() const { return {digits.data(), digits.size()}; }
};

// The digest of a stream, in pieces of any size.  May be used for one stream after another.
class Sha1Receiver final : public DataReceiver {
public:
    // Throws std::bad_alloc.
    Sha1Receiver();
    Sha1Receiver(const Sha1Receiver&) = delete;
    Sha1Receiver& operator=(const Sha1Receiver&) = delete;
    ~Sha1Receiver() override;

    // These throw DigestFailed.
    void Start() override;
    void Data(const unsigned char* begin, const unsigned char* end) override;
    void Finish() override;

    // Valid after Finish.
    const Sha1Text& Digest() const { return digest_; }

private:
    void* context_;  // The library's own; its type is known to sha1.cc alone.
    Sha1Text digest_{};
};

// Throws DigestFailed.
Sha1Text Sha1OfBytes(ConstData bytes);

// Of all that the file holds, in the memory of one block.  Throws DigestFailed and what reading a file throws.
Sha1Text Sha1OfFile(const FileLocation& file);

#endif
