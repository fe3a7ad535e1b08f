// Cuts the value of a structured header field, such as "Content-Type", into atoms, quoted strings, comments, domain
// literals and special characters.
//
// The value may come in runs of any size; the text of a lexeme is handed on in views of them, with quotes, brackets
// and backslashes taken off.  Nothing in a value is an error.
#ifndef FOUNDATION_STRUCTURED_FIELD_MAKER_H
#define FOUNDATION_STRUCTURED_FIELD_MAKER_H

#include "foundation/character_set.h"
#include "foundation/const_data.h"
#include "foundation/data_receiver.h"

// What a field is cut for.  Each Start... returns the receiver of that lexeme's text, which is given one Start and one
// Finish and must live as long; unless overridden it is one that ignores everything.
class StructuredFieldReceiver {
public:
    virtual ~StructuredFieldReceiver() = default;
    virtual void StartField() {}
    virtual void Special(unsigned char) {}
    virtual DataReceiver& StartAtom();
    virtual DataReceiver& StartQuotedString();
    virtual DataReceiver& StartDomainLiteral();
    virtual DataReceiver& StartComment();
    virtual void EndField() {}
};

// One stream is one field.  A lexeme that the field ends in the middle of ends with it.
class StructuredFieldMaker final : public DataReceiver {
public:
    // The bytes that are lexemes by themselves in every field.  The full stop is none of them: it is special in
    // addresses but an ordinary byte of MIME tokens, so who reads addresses passes it.
    static constexpr CharacterSet standardSpecial{")<>@,;:\\]"};

    // `extraSpecial` is special in this field, too.  It comes before all other rules: with "(" in it there are no
    // comments.
    explicit StructuredFieldMaker(StructuredFieldReceiver& target, const CharacterSet& extraSpecial = CharacterSet())
        : target_(target), special_(standardSpecial | extraSpecial), atomEnd_(special_ | opening) {}
    StructuredFieldMaker(const StructuredFieldMaker&) = delete;
    StructuredFieldMaker& operator=(const StructuredFieldMaker&) = delete;

    void Start() override;
    void Data(const unsigned char* begin, const unsigned char* end) override;
    void Finish() override;

private:
    using Handler = void (StructuredFieldMaker::*)(ConstData&);

    void StartLexeme(ConstData& text);
    void AddToAtom(ConstData& text);
    void AddToQuotedString(ConstData& text);
    void AddToDomainLiteral(ConstData& text);
    void AddToComment(ConstData& text);

    void AddUpTo(ConstData& text, unsigned char closing);
    void Enter(DataReceiver& lexeme, Handler handler);
    void HandOn(const unsigned char* begin, const unsigned char* end);
    void EndLexeme();

    // Whatever StartLexeme does not take for an atom.
    static constexpr CharacterSet opening = CharacterSets::lineWhiteSpace | CharacterSet("([\"");

    Handler handler_ = &StructuredFieldMaker::StartLexeme;
    StructuredFieldReceiver& target_;
    DataReceiver* lexeme_ = nullptr;  // null between lexemes
    size_t commentDepth_ = 0;
    bool escaping_ = false;  // the byte before was a backslash
    CharacterSet special_;
    CharacterSet atomEnd_;
};

#endif
