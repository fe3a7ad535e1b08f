// What a "Content-Type" field says: the type as a number, and the parameters that the system reads.
#ifndef FOUNDATION_CONTENT_TYPE_RECEIVER_H
#define FOUNDATION_CONTENT_TYPE_RECEIVER_H

#include "foundation/ascii.h"
#include "foundation/bounded_text.h"
#include "foundation/character_set.h"
#include "foundation/structured_field_maker.h"

// A content type's number: 4096 times that of its main type, and that of its subtype.
namespace ContentTypes {

inline constexpr unsigned kSubtypes = 4096;
inline constexpr unsigned application = 4;
inline constexpr unsigned multipart = 5;
inline constexpr unsigned message = 6;

// Plain text, and whatever has no number of its own.
inline constexpr unsigned other = 0;
inline constexpr unsigned octetStream = application * kSubtypes;
inline constexpr unsigned multipartMixed = multipart * kSubtypes;
inline constexpr unsigned multipartDigest = multipart * kSubtypes + 2;
inline constexpr unsigned multipartRelated = multipart * kSubtypes + 9;
inline constexpr unsigned multipartSigned = multipart * kSubtypes + 11;
inline constexpr unsigned messageRfc822 = message * kSubtypes;

constexpr unsigned MainType(unsigned contentType) { return contentType / kSubtypes; }

// The number for two names in lower case.  A subtype that is in no table counts as what a reader that does not know it
// has to take it for: an application and a message as octet-stream, a multipart as mixed.  A main type that is in no
// table, or a missing subtype, gives `other`.
unsigned Number(ConstData mainType, ConstData subtype);

}  // namespace ContentTypes

// Reads one field at a time; a StructuredFieldMaker with extraSpecial cuts it.  Each token is cut at 80 bytes.
// Parameters may come in any order, and of one that is repeated the last counts.  What was read stays until the next
// field, or until Reset.
class ContentTypeReceiver final : public StructuredFieldReceiver {
public:
    // The bytes that separate MIME tokens, but for those that open a comment, a quoted string or a domain literal.
    static constexpr CharacterSet extraSpecial{")<>@,;:\\]/?="};

    ContentTypeReceiver() = default;
    ContentTypeReceiver(const ContentTypeReceiver&) = delete;
    ContentTypeReceiver& operator=(const ContentTypeReceiver&) = delete;

    // For a part that may have no such field: all tokens are empty, and the type is what its encloser gives.
    void Reset(unsigned defaultType);

    unsigned ContentType() const { return contentType_; }
    bool IsMultipart() const { return ContentTypes::MainType(contentType_) == ContentTypes::multipart; }

    // In lower case.
    ConstData MainType() const { return mainType_.Text(); }
    ConstData Subtype() const { return subtype_.Text(); }
    ConstData Charset() const { return charset_.Text(); }
    // As they were written.
    ConstData Boundary() const { return boundary_.Text(); }
    ConstData Type() const { return type_.Text(); }
    ConstData MicAlg() const { return micalg_.Text(); }
    ConstData Protocol() const { return protocol_.Text(); }

    void StartField() override;
    void Special(unsigned char special) override;
    DataReceiver& StartAtom() override;
    DataReceiver& StartQuotedString() override;
    void EndField() override;

private:
    using Token = BoundedText<80>;

    DataReceiver& Value();

    Ascii::CaseLoweringFilter lowerCase_;
    Token mainType_{lowerCase_};
    Token subtype_{lowerCase_};
    Token boundary_;
    Token type_;
    Token charset_{lowerCase_};
    Token micalg_;
    Token protocol_;
    Token name_{lowerCase_};  // of the parameter that is being read
    unsigned char lastSpecial_ = 0;
    bool tokenExpected_ = true;  // the next token belongs to the last special; any after it to nothing
    bool parameters_ = false;    // past the first ";"
    unsigned contentType_ = ContentTypes::other;
    IgnoreDataReceiver ignored_;
};

#endif
