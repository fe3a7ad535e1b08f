// A token that is built of other lexemes, one after the other.
#ifndef LANGUAGE_STAGED_LEXEME_H
#define LANGUAGE_STAGED_LEXEME_H

#include "language/lexeme.h"

// A class derived from this holds the sub-lexemes and says which one a byte begins.
class StagedLexeme : public Lexeme {
public:
    void Start(unsigned long position) override;
    void Take(unsigned long tokenStart, unsigned long position, ConstData& text) override;
    void Finish(unsigned long tokenStart, unsigned long position) override;

protected:
    // The sub-lexeme that `byte`, at `position`, begins.  Null ends the staged token before this byte; whatever it
    // still has to deliver must be delivered before null is returned.
    virtual Lexeme* ChooseStage(unsigned long tokenStart, unsigned long position, unsigned char byte) = 0;

private:
    bool BeginStage(unsigned long tokenStart, unsigned long position, unsigned char byte);

    Lexeme* current_ = nullptr;
    unsigned long stageStart_ = 0;
};

#endif
