// Which digest a signed message was made with: the "micalg" parameter of its content type.
#ifndef FOUNDATION_HASH_ALGORITHM_RECEIVER_H
#define FOUNDATION_HASH_ALGORITHM_RECEIVER_H

#include "foundation/ascii.h"
#include "foundation/bounded_text.h"
#include "foundation/structured_field_maker.h"

// Reads the parameter's value through a StructuredFieldMaker.  The value may name several digests, with commas between
// them; the first that the system knows counts.
class HashAlgorithmReceiver final : public StructuredFieldReceiver {
public:
    HashAlgorithmReceiver() = default;
    HashAlgorithmReceiver(const HashAlgorithmReceiver&) = delete;
    HashAlgorithmReceiver& operator=(const HashAlgorithmReceiver&) = delete;

    // The name by which a crypto library knows the digest, such as "sha256"; null when none was recognised.
    const char* DigestName() const { return digestName_; }

    void StartField() override;
    void Special(unsigned char) override;
    DataReceiver& StartAtom() override;
    void EndField() override;

private:
    void Match();

    Ascii::CaseLoweringFilter lowerCase_;
    BoundedText<80> name_{lowerCase_};
    const char* digestName_ = nullptr;
};

// The same for a value that is already at hand.
const char* DigestNameOfMicAlg(ConstData value);

#endif
