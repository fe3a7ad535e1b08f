// Digests in hexadecimal digits.
#include "foundation/sha1.h"

#include <gtest/gtest.h>

#include "foundation/crypto.h"
#include "foundation/file_error.h"
#include "tests/foundation/own_process.h"
#include "tests/foundation/temporary_place.h"

namespace {

// The digests of nothing, of "abc", of the long sample and of a million "a" are those of the standard.
const std::string nothing = "da39a3ee5e6b4b0d3255bfef95601890afd80709";
const std::string abc = "a9993e364706816aba3e25717850c26c9cd0d89d";
const std::string sample = "84983e441c3bd26ebaae4aa1f95129e5e54670f1";
const std::string million = "34aa973cd4c4daa4f61eeb2bdbad27316534016f";

std::string Text(const Sha1Text& digest) { return std::string(digest.View()); }
ConstData Bytes(std::string_view text) { return ConstData(text); }

template <class Function>
std::string Initialised(Function function) {
    return InOwnProcess([&] {
        const FileLocation folder(ZENDRY_BIN_FOLDER);
        Crypto::Initialise(false, &folder);
        return function();
    });
}

TEST(Sha1, OfBytes) {
    EXPECT_EQ(Initialised([] {
                  return Text(Sha1OfBytes(ConstData())) + Text(Sha1OfBytes(Bytes("abc"))) +
                         Text(Sha1OfBytes(Bytes("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq"))) +
                         Text(Sha1OfBytes(Bytes(std::string(1000000, 'a'))));
              }),
              nothing + abc + sample + million);
}

TEST(Sha1, OfAStreamCutAnywhere) {
    EXPECT_EQ(Initialised([] {
                  const std::string text = "abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq";
                  Sha1Receiver digest;
                  for (size_t cut = 0; cut <= text.size(); ++cut) {
                      digest.Start();
                      digest(Bytes(text.substr(0, cut)));
                      digest(ConstData());
                      digest(Bytes(text.substr(cut)));
                      digest.Finish();
                      if (Text(digest.Digest()) != sample) {
                          return "wrong at " + std::to_string(cut);
                      }
                  }
                  return std::string("right");
              }),
              "right");
}

TEST(Sha1, OfAFile) {
    const TemporaryPlace place;
    const FileLocation large = place.File("large", std::string(1000000, 'a'));
    const FileLocation empty = place.File("empty");
    EXPECT_EQ(Initialised([&] { return Text(Sha1OfFile(large)) + Text(Sha1OfFile(empty)); }), million + nothing);
    EXPECT_EQ(Initialised([&] {
                  try {
                      Sha1OfFile(place.Location("missing"));
                  } catch (const FileIOError&) {
                      return std::string("no file");
                  }
                  return std::string("digest");
              }),
              "no file");
}

}  // namespace
