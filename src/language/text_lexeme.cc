#include "language/text_lexeme.h"

void TextLexeme::Take(unsigned long tokenStart, unsigned long position, ConstData& text) {
    const unsigned char* const pieceEnd = set_.Span(text);
    const unsigned long end = position + static_cast<unsigned long>(pieceEnd - text.begin);
    if (pieceEnd != text.begin) {
        acceptor_.Accept(position, end, text.begin, pieceEnd);
    }
    text.begin = pieceEnd;
    if (!text.Empty()) {
        acceptor_.End(tokenStart, end);
    }
}
