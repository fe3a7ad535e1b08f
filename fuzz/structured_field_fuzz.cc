// Feeds arbitrary bytes to the readers of structured fields.
//
// Nothing in a field is an error; every lexeme must start and finish, one at a time; and the outcome must be the same
// when the same field comes in two runs.
#include <cstddef>
#include <cstdint>
#include <string>

#include "foundation/content_type_receiver.h"
#include "foundation/hash_algorithm_receiver.h"
#include "foundation/structured_field_maker.h"
#include "fuzz/expect.h"

namespace {

// Writes down all that it is told.
class Record final : public StructuredFieldReceiver, private DataReceiver {
public:
    void StartField() override { Say("<"); }
    void Special(unsigned char byte) override { Say(std::string(1, static_cast<char>(byte))); }
    DataReceiver& StartAtom() override { return Say("a"); }
    DataReceiver& StartQuotedString() override { return Say("q"); }
    DataReceiver& StartDomainLiteral() override { return Say("d"); }
    DataReceiver& StartComment() override { return Say("c"); }
    void EndField() override { Say(">"); }
    std::string text;

private:
    DataReceiver& Say(const std::string& what) {
        Expect(!inLexeme_);
        text += what;
        return *this;
    }
    void Start() override {
        Expect(!inLexeme_);
        inLexeme_ = true;
    }
    void Data(const unsigned char* begin, const unsigned char* end) override {
        Expect(inLexeme_ && begin < end);
        text.append(begin, end);
    }
    void Finish() override {
        Expect(inLexeme_);
        inLexeme_ = false;
        text += '}';
    }

    bool inLexeme_ = false;
};

void Give(StructuredFieldReceiver& receiver, const CharacterSet& extraSpecial, ConstData field, size_t cut) {
    StructuredFieldMaker maker(receiver, extraSpecial);
    maker.Start();
    maker.Data(field.begin, field.begin + cut);
    maker.Data(field.begin + cut, field.end);
    maker.Finish();
}

std::string Read(ConstData field, size_t cut) {
    Record record;
    Give(record, CharacterSet("."), field, cut);

    ContentTypeReceiver type;
    Give(type, ContentTypeReceiver::extraSpecial, field, cut);
    std::string outcome = record.text + " " + std::to_string(type.ContentType());
    for (const ConstData token : {type.MainType(), type.Subtype(), type.Boundary(), type.Type(), type.Charset(),
                                  type.MicAlg(), type.Protocol()}) {
        Expect(token.Length() <= 80);
        outcome.append(" ").append(token.View());
    }

    HashAlgorithmReceiver digest;
    Give(digest, CharacterSet(), field, cut);
    return outcome + " " + (digest.DigestName() == nullptr ? "" : digest.DigestName());
}

}  // namespace

// The first byte says where the second look cuts the rest.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 1) {
        return 0;
    }
    const ConstData field(data + 1, data + size);
    Expect(Read(field, data[0] % (field.Length() + 1)) == Read(field, 0));
    return 0;
}
