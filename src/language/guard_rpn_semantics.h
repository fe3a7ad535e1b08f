// What an expression of the relevance language means, told in reverse Polish order.
//
// GuardParser calls one operation for each token that carries something and one for each grammar rule that has a
// meaning, operands before their operator.  It knows nothing of trees: whoever implements this interface keeps the
// stacks and makes the nodes, or only writes down what it is told.
#ifndef LANGUAGE_GUARD_RPN_SEMANTICS_H
#define LANGUAGE_GUARD_RPN_SEMANTICS_H

#include <cstdint>

// Any operation may throw; the exception ends the parse and passes through GuardLexer to whoever feeds it.  What was
// built by then is for the next Reset to clear.
class GuardRPNSemantics {
public:
    virtual ~GuardRPNSemantics() = default;

    // A new text begins: forget everything.
    virtual void Reset() = 0;

    // The tokens.  The bytes of a string or a name are valid during the call only; a name is in lower case, its words
    // joined by single blanks.
    virtual void Numeral(uint64_t value) = 0;
    virtual void String(const unsigned char* begin, const unsigned char* end) = 0;
    virtual void Name(const unsigned char* begin, const unsigned char* end) = 0;
    // `code` is a GuardOperatorCode, `flags` a union of GuardOperatorFlags (guard_operator.h).
    virtual void Operator(int code, unsigned flags) = 0;
    virtual void It() = 0;

    // The rules.
    virtual void NamedWithArgument() = 0;
    virtual void ValueItem() = 0;
    virtual void NamedAlone() = 0;
    virtual void Whose() = 0;
    virtual void Of() = 0;
    virtual void NoOf() = 0;
    virtual void Exists() = 0;
    virtual void ExistsNo() = 0;
    virtual void Cast() = 0;
    virtual void BinaryOperator() = 0;
    virtual void Not() = 0;
    virtual void Negate() = 0;
    virtual void Bar() = 0;
    virtual void Subtract() = 0;
    virtual void And() = 0;
    virtual void Or() = 0;
    virtual void LastTupleElement() = 0;
    virtual void TupleElement() = 0;
    virtual void Collection() = 0;
    virtual void If() = 0;
    // The whole text is one expression.  Called before the parser knows that nothing is left over in front of it, so
    // a failure here takes precedence over ParsingFailure.
    virtual void Accept() = 0;
};

#endif
