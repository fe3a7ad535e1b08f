// GuardEvaluator: one compiled expression, its memory and its parser.  The door of the evaluator.
//
// Feed text, call EndOfText, and take values with First and Next, any number of times over; Reset makes the evaluator
// ready for another expression.  An evaluator serves one thread at a time.  Every operation installs the evaluator's
// context and memory as the thread's current ones for its duration and puts back what was there, also when an exception
// passes.
#ifndef EVALUATOR_GUARD_EVALUATOR_H
#define EVALUATOR_GUARD_EVALUATOR_H

#include <cstdint>
#include <string_view>

#include "evaluator/expression_arena.h"
#include "evaluator/guard_automaton.h"
#include "evaluator/inspector_context.h"
#include "language/guard_lexer.h"
#include "language/guard_parser.h"

// What a result depended on, kept by the caller beside the result.
struct EvaluationFingerprint {
    uint32_t path = 0;
    uint32_t sum = 0;
    uint32_t dependencies = 0;
    uint32_t check = 0;

    static constexpr EvaluationFingerprint NotFingerprintable() { return {0, 1, 1, 1}; }
    bool IsNew() const { return path == 0 && sum == 0 && dependencies == 0 && check == 0; }
};

class GuardEvaluator {
public:
    // An idle evaluator, ready to be fed.  The context may be null and must outlive the evaluator.
    explicit GuardEvaluator(InspectorContext* context);
    ~GuardEvaluator();
    GuardEvaluator(const GuardEvaluator&) = delete;
    GuardEvaluator& operator=(const GuardEvaluator&) = delete;

    // Takes text of the expression, in any number of pieces.  Throws the failures of parsing and binding.
    void Feed(const unsigned char* begin, const unsigned char* end);
    void Feed(std::string_view text);

    // Ends the text.  Throws the failures of parsing and binding; the evaluator is then of use after Reset alone.
    void EndOfText();

    // Stops a running evaluation, whose failures are swallowed, drops the tree and makes the lexer ready.
    void Reset();

    // The first value, after stopping an evaluation under way; null for a plural expression without values.
    // Throws ArgumentDoesNotExist, ArgumentNotUnique, ValueNotConverted and whatever inspectors throw.
    void* First();

    // The next value, null at the end.  Called after a First or Next that gave a value.  Throws as First does.
    void* Next();

    // The same two while the record beside the result is brought up to date.
    void* First(EvaluationFingerprint& record);
    void* Next(EvaluationFingerprint& record);

    // True where the record can be trusted with no look at the tree.
    static bool Unexpired(const EvaluationFingerprint& record, InspectorContext* context);

    // True where the tree's fingerprint is as recorded.  What it throws is to be taken for a change.
    bool Unchanged(const EvaluationFingerprint& record);

    bool IsPlural() const { return arena_.Root()->IsPlural(); }
    bool IsSingular() const { return !IsPlural(); }

    // The name of the root's type, and of the root's as parsed, before any conversion.  Throws std::bad_alloc.
    std::string_view ResultTypeName() const { return arena_.Root()->Type()->Name(); }
    std::string_view ParsedTypeName() const { return parsedRoot_->Type()->Name(); }
    bool ResultIsA(std::string_view typeName) const;

    // Has values given in the named type, by the named cast where they are not of it.  A failure leaves the expression
    // as it was.  Throws OperationNotDefined, InspectorBlacklisted, ConversionHasWrongType, std::bad_alloc.
    void ConvertTo(std::string_view typeName, std::string_view castName);

    // Has the elements of a tuple that are of none of the listed types given in the target type.  Throws as ConvertTo.
    void ConvertToTuple(const std::string_view* keptTypeNames, size_t count, std::string_view targetTypeName,
                        std::string_view castName);

private:
    struct Installed;

    const GuardType* TypeNamed(std::string_view name) const;
    void StopRunning();
    void* FirstDelivered() const;
    void* NextDelivered();
    EvaluationStatus TryFirst();
    EvaluationStatus TryNext();

    ExpressionArena arena_;
    GuardAutomaton automaton_;
    GuardParser parser_;
    GuardLexer lexer_;
    InspectorContext* context_;
    Expression* parsedRoot_ = nullptr;
    char* mark_ = nullptr;  // The memory as it stood when the tree was finished; null while it is not.
};

#endif
