// A phrase: words and the blanks and line ends between them, as one token of the lexer and any number of keywords and
// names of the language.
#ifndef LANGUAGE_PHRASE_LEXEME_H
#define LANGUAGE_PHRASE_LEXEME_H

#include "foundation/ascii.h"
#include "language/ignored_text_lexeme.h"
#include "language/phrase_maker.h"
#include "language/staged_lexeme.h"
#include "language/word_lexeme.h"

// A word begins with a letter or "_" and goes on with digits and apostrophes too; it is lower-cased before anyone sees
// it.  Any byte that neither begins a word nor separates words ends the phrase.
template <class T>
class PhraseLexeme final : public StagedLexeme {
public:
    PhraseLexeme(std::span<const ReservedWord<T>> keywords, PhraseAcceptor<T>& acceptor)
        : maker_(keywords, acceptor),
          word_(wordBytes, Buffer(wordBuffer_, wordBuffer_ + sizeof wordBuffer_), maker_, &lowering_) {}

    void Start(unsigned long position) override {
        StagedLexeme::Start(position);
        maker_.Start();
    }

    void Finish(unsigned long tokenStart, unsigned long position) override {
        StagedLexeme::Finish(tokenStart, position);
        maker_.Finish();
    }

protected:
    Lexeme* ChooseStage(unsigned long, unsigned long, unsigned char byte) override {
        if (CharacterSets::lettersAndUnderscore.Contains(byte)) {
            return &word_;
        }
        if (CharacterSets::lineWhiteSpace.Contains(byte)) {
            return &blanks_;
        }
        maker_.Finish();
        return nullptr;
    }

private:
    static constexpr CharacterSet wordBytes = CharacterSets::wordCharacters | CharacterSet("'");

    Ascii::CaseLoweringFilter lowering_;
    PhraseMaker<T> maker_;
    WordLexeme word_;
    IgnoredTextLexeme blanks_{CharacterSets::lineWhiteSpace};
    unsigned char wordBuffer_[64];
};

#endif
