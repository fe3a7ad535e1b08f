// A semantics that makes nothing and counts what a tree builder would have on its stacks.  It allocates nothing.
#ifndef TESTS_LANGUAGE_COUNTING_SEMANTICS_H
#define TESTS_LANGUAGE_COUNTING_SEMANTICS_H

#include "language/guard_rpn_semantics.h"

class CountingSemantics final : public GuardRPNSemantics {
public:
    long expressions = 0;  // built, or a null that marks "no argument" or "no object"
    long names = 0;
    long operators = 0;
    long items = 0;  // begun and not yet built
    long accepted = 0;
    bool underflow = false;  // an operation asked for more than was there

    // What a complete parse leaves: the one expression and nothing else.
    bool Balanced() const {
        return !underflow && expressions == 1 && names == 0 && operators == 0 && items == 0 && accepted == 1;
    }

    void Reset() override {
        expressions = names = operators = items = accepted = 0;
        underflow = false;
    }
    void Numeral(uint64_t) override { ++expressions; }
    void String(const unsigned char*, const unsigned char*) override { ++expressions; }
    void Name(const unsigned char*, const unsigned char*) override { ++names; }
    void Operator(int, unsigned) override { ++operators; }
    void It() override { ++expressions; }

    void NamedWithArgument() override {
        Need(names, 1);
        Need(expressions, 1);
        ++items;
    }
    void ValueItem() override {
        Need(expressions, 1);
        ++names;
        ++items;
    }
    void NamedAlone() override {
        Need(names, 1);
        ++expressions;
        ++items;
    }
    // The clause goes with its item, so it is counted as part of it at once.
    void Whose() override {
        Need(items, 1);
        Fold(2);
    }
    void Of() override {
        Fold(2);
        Pop(names);
        Pop(items);
    }
    void NoOf() override {
        ++expressions;
        Of();
    }
    void Exists() override { Need(expressions, 1); }
    void ExistsNo() override { Need(expressions, 1); }
    void Cast() override {
        Need(expressions, 1);
        Pop(names);
    }
    void BinaryOperator() override {
        Fold(2);
        Pop(operators);
    }
    void Not() override { Need(expressions, 1); }
    void Negate() override { Need(expressions, 1); }
    void Bar() override { Fold(2); }
    void Subtract() override { Fold(2); }
    void And() override { Fold(2); }
    void Or() override { Fold(2); }
    void LastTupleElement() override { Fold(2); }
    void TupleElement() override { Fold(2); }
    void Collection() override { Fold(2); }
    void If() override { Fold(3); }
    void Accept() override {
        Need(expressions, 1);
        ++accepted;
    }

private:
    void Need(long have, long need) {
        if (have < need) {
            underflow = true;
        }
    }
    void Pop(long& stack) {
        Need(stack, 1);
        --stack;
    }
    // The top `count` expressions become one.
    void Fold(long count) {
        Need(expressions, count);
        expressions -= count - 1;
    }
};

#endif
