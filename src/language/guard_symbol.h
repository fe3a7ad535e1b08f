// The symbols of the relevance language's grammar: the tokens that GuardLexer makes, and what the rules reduce to.
#ifndef LANGUAGE_GUARD_SYMBOL_H
#define LANGUAGE_GUARD_SYMBOL_H

enum GuardSymbol : unsigned char {
    // Tokens.
    OpenSymbol = 0,
    CloseSymbol = 1,
    NotSymbol = 2,
    BarSymbol = 3,
    MultiplicativeSymbol = 4,
    AdditiveSymbol = 5,
    RelationalSymbol = 6,
    AndSymbol = 7,
    OrSymbol = 8,
    CommaSymbol = 9,
    SemicolonSymbol = 10,
    MinusSymbol = 11,  // unary or binary: the grammar decides
    NameSymbol = 12,   // a phrase that is no keyword
    OfSymbol = 13,
    WhoseSymbol = 14,
    AsSymbol = 15,
    ExistsSymbol = 16,
    ExistsNoSymbol = 17,
    IfSymbol = 18,
    ThenSymbol = 19,
    ElseSymbol = 20,

    // Both a token (numeral, string, "it") and the result of a rule (an expression in parentheses).
    ValueSymbol = 21,

    // Results of rules.
    ItemSymbol = 22,
    OfChainSymbol = 23,
    CastSymbol = 24,
    UnarySymbol = 25,
    RangeSymbol = 26,
    Product0Symbol = 27,
    ProductSymbol = 28,
    Sum0Symbol = 29,
    SumSymbol = 30,
    Relation0Symbol = 31,
    RelationSymbol = 32,
    ConjunctionSymbol = 33,
    Disjunction0Symbol = 34,
    DisjunctionSymbol = 35,
    ElementSymbol = 36,
    Element1Symbol = 37,
    TupleHeadSymbol = 38,
    TupleSymbol = 39,
    ListItemSymbol = 40,
    ListSymbol = 41,
    ExpressionSymbol = 42,

    // As a rule's result: accepted.  As a token: the end of the text.
    EndSymbol = 43,
};

// How many symbols can begin a rule: all but EndSymbol.
inline constexpr int cFirstSymbols = EndSymbol;

#endif
