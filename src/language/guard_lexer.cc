#include "language/guard_lexer.h"

#include <array>
#include <string_view>

#include "language/guard_keywords.h"
#include "language/guard_operators.h"

namespace {

enum class Beginning : unsigned char { Blank, Phrase, String, Numeral, Slash, Operator, Unexpected };

constexpr CharacterSet operatorBytes("!&()*+,-/;<=>|");

constexpr Beginning BeginningOf(unsigned char byte) {
    if (CharacterSets::lineWhiteSpace.Contains(byte)) {
        return Beginning::Blank;
    }
    if (CharacterSets::lettersAndUnderscore.Contains(byte)) {
        return Beginning::Phrase;
    }
    if (byte == '"') {
        return Beginning::String;
    }
    if (CharacterSets::digits.Contains(byte)) {
        return Beginning::Numeral;
    }
    if (byte == '/') {
        return Beginning::Slash;
    }
    if (operatorBytes.Contains(byte)) {
        return Beginning::Operator;
    }
    return Beginning::Unexpected;
}

constexpr std::array<Beginning, 256> MakeTable() {
    std::array<Beginning, 256> table{};
    for (unsigned byte = 0; byte < 256; ++byte) {
        table[byte] = BeginningOf(static_cast<unsigned char>(byte));
    }
    return table;
}

constexpr std::array<Beginning, 256> beginnings = MakeTable();

}  // namespace

GuardLexer::GuardLexer(GuardLexemeAcceptor& acceptor, EndLexemeAcceptor& endAcceptor)
    : Lexer(endAcceptor),
      blanks_(CharacterSets::lineWhiteSpace),
      phrase_(GuardKeywords(), acceptor),
      string_(acceptor),
      numeral_(acceptor),
      operator_(GuardOperators(), acceptor),
      commentOrOperator_(operator_, acceptor),
      unexpected_(acceptor) {}

Lexeme& GuardLexer::ChooseLexeme(unsigned char byte) {
    switch (beginnings[byte]) {
        case Beginning::Blank:
            return blanks_;
        case Beginning::Phrase:
            return phrase_;
        case Beginning::String:
            return string_;
        case Beginning::Numeral:
            return numeral_;
        case Beginning::Slash:
            return commentOrOperator_;
        case Beginning::Operator:
            return operator_;
        case Beginning::Unexpected:
            break;
    }
    return unexpected_;
}
