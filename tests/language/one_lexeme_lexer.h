// A lexer of two lexemes: the one under test for the bytes that begin it, and ignored text for all others.
#ifndef TESTS_LANGUAGE_ONE_LEXEME_LEXER_H
#define TESTS_LANGUAGE_ONE_LEXEME_LEXER_H

#include <string>

#include "foundation/character_set.h"
#include "language/ignored_text_lexeme.h"
#include "language/lexer.h"

class EndRecorder final : public EndLexemeAcceptor {
public:
    explicit EndRecorder(std::string& log) : log_(log) {}
    void Start() override { log_.clear(); }
    void End(unsigned long position) override { log_ += "End@" + std::to_string(position); }

private:
    std::string& log_;
};

// The log is cleared at the start of each stream and closed with its end; the lexeme's acceptor writes the rest.
class OneLexemeLexer final : public Lexer {
public:
    OneLexemeLexer(Lexeme& lexeme, const CharacterSet& begins, std::string& log)
        : Lexer(end_), lexeme_(lexeme), begins_(begins), end_(log) {}

    Lexeme& ChooseLexeme(unsigned char byte) override { return begins_.Contains(byte) ? lexeme_ : other_; }

private:
    static constexpr CharacterSet otherBytes_{" ,;"};

    Lexeme& lexeme_;
    const CharacterSet begins_;
    IgnoredTextLexeme other_{otherBytes_};
    EndRecorder end_;
};

inline std::string At(unsigned long start, unsigned long end) {
    return "@" + std::to_string(start) + "-" + std::to_string(end);
}

#endif
