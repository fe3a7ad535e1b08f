// A semantics that writes down what it is told, one word to an operation.
#ifndef TESTS_LANGUAGE_RECORDING_SEMANTICS_H
#define TESTS_LANGUAGE_RECORDING_SEMANTICS_H

#include <string>

#include "language/guard_rpn_semantics.h"

class RecordingSemantics final : public GuardRPNSemantics {
public:
    struct Refusal {};

    // What was told since the last Reset: 17 'string' name op6 op6/256 It Whose ...
    std::string text;
    int resets = 0;
    // When `text` ends in this after an operation, the operation throws Refusal.
    std::string refused;

    void Reset() override {
        text.clear();
        ++resets;
    }
    void Numeral(uint64_t value) override { Tell(std::to_string(value)); }
    void String(const unsigned char* begin, const unsigned char* end) override {
        Tell("'" + std::string(begin, end) + "'");
    }
    void Name(const unsigned char* begin, const unsigned char* end) override { Tell(std::string(begin, end)); }
    void Operator(int code, unsigned flags) override {
        Tell("op" + std::to_string(code) + (flags != 0 ? "/" + std::to_string(flags) : ""));
    }
    void It() override { Tell("It"); }
    void NamedWithArgument() override { Tell("NamedWithArgument"); }
    void ValueItem() override { Tell("ValueItem"); }
    void NamedAlone() override { Tell("NamedAlone"); }
    void Whose() override { Tell("Whose"); }
    void Of() override { Tell("Of"); }
    void NoOf() override { Tell("NoOf"); }
    void Exists() override { Tell("Exists"); }
    void ExistsNo() override { Tell("ExistsNo"); }
    void Cast() override { Tell("Cast"); }
    void BinaryOperator() override { Tell("BinaryOperator"); }
    void Not() override { Tell("Not"); }
    void Negate() override { Tell("Negate"); }
    void Bar() override { Tell("Bar"); }
    void Subtract() override { Tell("Subtract"); }
    void And() override { Tell("And"); }
    void Or() override { Tell("Or"); }
    void LastTupleElement() override { Tell("LastTupleElement"); }
    void TupleElement() override { Tell("TupleElement"); }
    void Collection() override { Tell("Collection"); }
    void If() override { Tell("If"); }
    void Accept() override { Tell("Accept"); }

private:
    void Tell(const std::string& word) {
        if (!text.empty()) {
            text += ' ';
        }
        text += word;
        if (!refused.empty() && text.ends_with(refused)) {
            throw Refusal();
        }
    }
};

#endif
