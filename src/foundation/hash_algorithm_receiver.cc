#include "foundation/hash_algorithm_receiver.h"

#include <algorithm>
#include <string_view>

namespace {

struct Digest {
    std::string_view name;
    const char* digestName;
};

// clang-format off
constexpr Digest kDigests[] = {
    {"md5",      "md5"},
    {"rsa-md5",  "md5"},
    {"rsa-sha1", "sha1"},
    {"sha-1",    "sha1"},
    {"sha-224",  "sha224"},
    {"sha-256",  "sha256"},
    {"sha-384",  "sha384"},
    {"sha-512",  "sha512"},
    {"sha1",     "sha1"},
    {"sha224",   "sha224"},
    {"sha256",   "sha256"},
    {"sha384",   "sha384"},
    {"sha512",   "sha512"},
};
// clang-format on

static_assert(std::ranges::is_sorted(kDigests, {}, &Digest::name));

}  // namespace

void HashAlgorithmReceiver::StartField() {
    digestName_ = nullptr;
    name_.Clear();
}

// The atom before a special is complete.
void HashAlgorithmReceiver::Special(unsigned char) { Match(); }

DataReceiver& HashAlgorithmReceiver::StartAtom() {
    Match();
    return name_;
}

void HashAlgorithmReceiver::EndField() { Match(); }

void HashAlgorithmReceiver::Match() {
    if (digestName_ == nullptr) {
        const std::string_view name = name_.Text().View();
        const auto* const row = std::ranges::lower_bound(kDigests, name, {}, &Digest::name);
        if (row != std::end(kDigests) && row->name == name) {
            digestName_ = row->digestName;
        }
    }
    name_.Clear();
}

const char* DigestNameOfMicAlg(ConstData value) {
    HashAlgorithmReceiver receiver;
    StructuredFieldMaker maker(receiver);
    maker.Start();
    maker.Data(value.begin, value.end);
    maker.Finish();
    return receiver.DigestName();
}
