// Regular expressions, and what they match: the extended expressions of the C library, over bytes.
#ifndef VALUES_REGULAR_EXPRESSION_H
#define VALUES_REGULAR_EXPRESSION_H

#include <regex.h>

#include <cstddef>
#include <string>
#include <string_view>

#include "evaluator/failure.h"
#include "registry/inspector_type_info.h"
#include "values/substring.h"

// A pattern that does not compile: there is no such expression.
struct RegComp_Failed : NoSuchObject {
    explicit RegComp_Failed(int code) noexcept : error(code) {}
    int error;
};

// A compiled pattern with the text and the flags that it was made from.
class CompiledExpression {
public:
    // Compiles the text, which a zero byte ends.  Throws RegComp_Failed, also where the compiled form would take more
    // memory, time or machine stack than a pattern is worth; std::bad_alloc.
    CompiledExpression(std::string_view text, int flags);
    CompiledExpression(const CompiledExpression&) = delete;
    CompiledExpression& operator=(const CompiledExpression&) = delete;
    ~CompiledExpression() { regfree(&compiled_); }

    bool IsMadeFrom(std::string_view text, int flags) const { return flags == flags_ && text == text_; }

    // The whole match and the groups.
    size_t PartCount() const { return compiled_.re_nsub + 1; }

    // Looks for the leftmost match that begins at `from` or behind it.  What lies before `from` is seen by anchors of
    // words; only the start 0 may be taken for the start of a line.  Fills `count` parts with offsets in `subject`, or
    // -1 for a part that took none; with no parts wanted the search is cheaper.
    // Throws NoSuchObject for a subject beyond what an offset holds, InspectorInternalError for a start behind its end,
    // std::bad_alloc.
    bool Search(const inspector_string& subject, size_t from, regmatch_t* parts, size_t count) const;

private:
    std::string text_;
    int flags_;
    regex_t compiled_;
};

// A handle: what it points at is held by the phrase that made it and lives as long as the value.
struct regular_expression {
    const CompiledExpression* compiled;
};

template <>
struct InspectorTypeInfo<regular_expression> : InspectorTypeBasics<regular_expression, 0> {
    static constexpr char Name[] = "regular expression";
    static constexpr unsigned Size = 4;
};

// The matched stretch of a string, with its groups.
class regular_expression_match : public substring {
public:
    // The parts lie in evaluation memory; the first is the whole match.
    regular_expression_match(const regmatch_t* parts, size_t count, const inspector_string& subject)
        : substring(static_cast<size_t>(parts[0].rm_so), static_cast<size_t>(parts[0].rm_eo - parts[0].rm_so), subject),
          parts_(parts),
          count_(count) {}

    size_t PartCount() const { return count_; }
    // The part n.  One that took no part in the match is empty, at the match's start.  Throws InspectorInternalError
    // for an n that is not below the count.
    substring Part(size_t n) const;

    ConstData PartsData() const { return {parts_, count_ * sizeof(regmatch_t)}; }

private:
    const regmatch_t* parts_;
    size_t count_;
};

template <>
struct InspectorTypeInfo<regular_expression_match> : InspectorTypeBasics<regular_expression_match> {
    static constexpr char Name[] = "regular expression match";
    static constexpr const char* Parent = "substring";
    static constexpr unsigned Size = 20;

    static void Fingerprint(Fingerprinter& fingerprinter, const void* value) {
        InspectorTypeInfo<substring>::Fingerprint(fingerprinter, value);
        fingerprinter.AddData(static_cast<const regular_expression_match*>(value)->PartsData());
    }
};

#endif
