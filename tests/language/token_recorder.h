// An acceptor of GuardLexer that writes down the tokens, and throws for bad ones as a parser would.
#ifndef TESTS_LANGUAGE_TOKEN_RECORDER_H
#define TESTS_LANGUAGE_TOKEN_RECORDER_H

#include <string>
#include <string_view>

#include "language/guard_lexer.h"
#include "language/parse_errors.h"
#include "tests/language/every_cut.h"
#include "tests/language/recording_semantics.h"

// What an action is: its token, and what it tells the semantics: 13, 6:op7/1, 21:It.
inline std::string Describe(const GuardParsingAction& action) {
    RecordingSemantics semantics;
    action.Apply(semantics);
    return std::to_string(action.token) + (semantics.text.empty() ? "" : ":" + semantics.text);
}

class TokenRecorder final : public GuardLexemeAcceptor, public EndLexemeAcceptor {
public:
    // The tokens, a blank apart: <name> 13 6:op7/1 'string' 17.
    std::string tokens;
    // The positions of the tokens that have any: 0-1 3-7, and the end's.
    std::string positions;

    void Start() override {
        tokens.clear();
        positions.clear();
    }
    void End(unsigned long position) override { positions += "." + std::to_string(position); }

    void Keyword(const GuardParsingAction* action) override { Add(Describe(*action)); }
    void Name(const unsigned char* begin, const unsigned char* end) override {
        Add("<" + std::string(begin, end) + ">");
    }
    void PhraseTooLong() override { throw ::PhraseTooLong(); }
    void WordTooLong() override { throw ::WordTooLong(); }

    void Accept(unsigned long start, unsigned long end, const GuardParsingAction* action) override {
        Add(Describe(*action), start, end);
    }
    void Invalid(unsigned long start, unsigned long end) override {
        Note(start, end);
        throw InvalidOperator();
    }

    void Accept(unsigned long start, unsigned long end, const unsigned char* textBegin,
                const unsigned char* textEnd) override {
        Add("'" + std::string(textBegin, textEnd) + "'", start, end);
    }
    void TooLong(unsigned long start, unsigned long end) override {
        Note(start, end);
        throw StringConstantTooLong();
    }
    void Unfinished(unsigned long start, unsigned long end) override {
        Note(start, end);
        throw UnfinishedStringConstant();
    }
    void BadEscape(unsigned long start, unsigned long end) override {
        Note(start, end);
        throw StringEncodingError();
    }

    void Accept(unsigned long start, unsigned long end, uint64_t value) override {
        Add(std::to_string(value), start, end);
    }
    void TooLarge(unsigned long start, unsigned long end) override {
        Note(start, end);
        throw IntegerConstantTooLarge();
    }

    void Accept(unsigned long start, unsigned long end, unsigned char byte) override {
        Note(start, end);
        throw UnexpectedCharacter(byte);
    }

    void UnfinishedComment() override { throw UnfinishedCommentError(); }

private:
    void Add(const std::string& token) {
        if (!tokens.empty()) {
            tokens += ' ';
        }
        tokens += token;
    }
    void Add(const std::string& token, unsigned long start, unsigned long end) {
        Add(token);
        Note(start, end);
    }
    void Note(unsigned long start, unsigned long end) {
        if (!positions.empty()) {
            positions += ' ';
        }
        positions += std::to_string(start) + "-" + std::to_string(end);
    }
};

// The tokens of a text, the same for every cut of it, then "!" and the failure's text if it fails.  One lexer serves
// all the cuts, so each begins where the one before was left, even in the middle of a token.
inline std::string Tokens(std::string_view text) {
    TokenRecorder recorder;
    GuardLexer lexer(recorder, recorder);
    std::string positions;
    bool first = true;
    return OutcomeOfEveryCut(text, [&](const Runs& runs) {
        std::string failure;
        try {
            Feed(lexer, runs);
        } catch (const DebuggableException& exception) {
            failure = std::string(recorder.tokens.empty() ? "!" : " !") + exception.what();
        }
        if (first) {
            positions = recorder.positions;
            first = false;
        }
        EXPECT_EQ(recorder.positions, positions);
        return recorder.tokens + failure;
    });
}

// The positions of a text's tokens, in one run.
inline std::string Positions(std::string_view text) {
    TokenRecorder recorder;
    GuardLexer lexer(recorder, recorder);
    Feed(lexer, {text});
    return recorder.positions;
}

#endif
