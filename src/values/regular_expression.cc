#include "values/regular_expression.h"

#include <dlfcn.h>

#include <algorithm>
#include <climits>
#include <new>
#include <optional>

#include "evaluator/adapters.h"
#include "evaluator/deep_stack.h"
#include "evaluator/inspector_context.h"
#include "values/integer.h"
#include "values/pattern_cost.h"

#ifdef __has_feature
#if __has_feature(address_sanitizer)
#define REGEXEC_IS_WATCHED 1
#endif
#endif
#ifdef __SANITIZE_ADDRESS__
#define REGEXEC_IS_WATCHED 1
#endif

namespace {

using String = inspector_string;

#ifdef REGEXEC_IS_WATCHED
// The address sanitizer puts a function of its own before this one, which takes every subject for a terminated string
// and so reads behind those that are given by their range.
const auto RegExec =
    reinterpret_cast<decltype(&regexec)>(dlsym(dlopen("libc.so.6", RTLD_LAZY | RTLD_NOLOAD), "regexec"));
#else
constexpr auto RegExec = &regexec;
#endif

}  // namespace

CompiledExpression::CompiledExpression(std::string_view text, int flags) : text_(text), flags_(flags) {
    const PatternCost cost = CostOfPattern(text);
    if (!cost.IsAffordable()) {
        throw RegComp_Failed(REG_ESPACE);
    }
    int error = 0;
    DeepStack().Run(cost.Depth(), [&] { error = regcomp(&compiled_, text_.c_str(), flags); });
    if (error != 0) {
        throw RegComp_Failed(error);
    }
}

bool CompiledExpression::Search(const inspector_string& subject, size_t from, regmatch_t* parts, size_t count) const {
    if (subject.length > INT_MAX) {
        throw NoSuchObject();
    }
    if (from > subject.length) {
        throw InspectorInternalError("c/regular_expression_match", 53);
    }
    regmatch_t whole;
    regmatch_t& range = count == 0 ? whole : parts[0];
    range.rm_so = static_cast<regoff_t>(from);
    range.rm_eo = static_cast<regoff_t>(subject.length);
    const char* bytes = subject.start == nullptr ? "" : subject.start;
    const int result = RegExec(&compiled_, bytes, count, &range, REG_STARTEND | (from == 0 ? 0 : REG_NOTBOL));
    if (result != 0 && result != REG_NOMATCH) {
        throw std::bad_alloc();
    }
    return result == 0;
}

substring regular_expression_match::Part(size_t n) const {
    if (n >= count_) {
        throw InspectorInternalError("c/regular_expression_match", 86);
    }
    if (parts_[n].rm_so < 0) {
        return {Offset(), 0, Parent()};
    }
    return {static_cast<size_t>(parts_[n].rm_so), static_cast<size_t>(parts_[n].rm_eo - parts_[n].rm_so), Parent()};
}

namespace {

constexpr int kCaseSensitive = REG_EXTENDED;
constexpr int kCaseInsensitive = REG_EXTENDED | REG_ICASE;

// Holds the compiled form of the one expression that it gives, and keeps it for the next pattern: the same one in a
// loop is compiled once.
template <int Flags>
class regular_expression_maker {
public:
    regular_expression First(const String& pattern) {
        const std::string_view text = pattern.View().substr(0, pattern.View().find('\0'));
        if (!held_ || !held_->IsMadeFrom(text, Flags)) {
            held_.emplace(text, Flags);
        }
        return {&*held_};
    }
    std::optional<regular_expression> Next(const String&) { return std::nullopt; }

private:
    std::optional<CompiledExpression> held_;
};

boolean Contains(const String& subject, const regular_expression& expression) {
    return expression.compiled->Search(subject, 0, nullptr, 0);
}

boolean StartsWith(const String& subject, const regular_expression& expression) {
    regmatch_t match;
    return expression.compiled->Search(subject, 0, &match, 1) && match.rm_so == 0;
}

boolean Equals(const String& subject, const regular_expression& expression) {
    regmatch_t match;
    return expression.compiled->Search(subject, 0, &match, 1) && match.rm_so == 0 &&
           static_cast<size_t>(match.rm_eo) == subject.length;
}
boolean EqualsString(const regular_expression& expression, const String& subject) {
    return Equals(subject, expression);
}

// A match is sought from every offset.  From all offsets up to a match's start the search would find that match again,
// so it goes on behind it.
boolean EndsWith(const String& subject, const regular_expression& expression) {
    regmatch_t match;
    for (size_t from = 0; from <= subject.length; from = static_cast<size_t>(match.rm_so) + 1) {
        if (!expression.compiled->Search(subject, from, &match, 1)) {
            return false;
        }
        if (static_cast<size_t>(match.rm_eo) == subject.length) {
            return true;
        }
        CheckForInterruption();
    }
    return false;
}

std::optional<regular_expression_match> Match(const regular_expression& expression, const String& subject,
                                              size_t from) {
    const size_t count = expression.compiled->PartCount();
    auto* parts = static_cast<regmatch_t*>(InspectorAllocate(count * sizeof(regmatch_t)));
    if (!expression.compiled->Search(subject, from, parts, count)) {
        return std::nullopt;
    }
    return regular_expression_match(parts, count, subject);
}

std::optional<regular_expression_match> first_match(const regular_expression& expression, Of, const String& subject) {
    return Match(expression, subject, 0);
}

// Each search starts one byte behind the start of the last match, so that matches may overlap; none starts at the end
// of the subject but the first.
class regular_expression_match_iterator {
public:
    std::optional<regular_expression_match> First(const regular_expression& expression, Of, const String& subject) {
        return From(0, expression, subject);
    }
    std::optional<regular_expression_match> Next(const regular_expression& expression, Of, const String& subject) {
        return next_ < subject.length ? From(next_, expression, subject) : std::nullopt;
    }

private:
    std::optional<regular_expression_match> From(size_t from, const regular_expression& expression,
                                                 const String& subject) {
        std::optional<regular_expression_match> match = Match(expression, subject, from);
        next_ = match ? match->Offset() + 1 : subject.length;
        return match;
    }

    size_t next_ = 0;
};

// The groups; the whole match is not among them.
class parenthesized_part_iterator {
public:
    void Start(Of, const regular_expression_match&) { next_ = 1; }
    bool Finished(Of, const regular_expression_match& match) const { return next_ >= match.PartCount(); }
    substring Next(Of, const regular_expression_match& match) { return match.Part(next_++); }

private:
    size_t next_ = 1;
};

std::optional<substring> MatchPart(integer n, const regular_expression_match& match) {
    const auto part = static_cast<size_t>(n.Value());
    return part == 0 || part >= match.PartCount() ? std::nullopt : std::optional<substring>(match.Part(part));
}

bool IsSpecial(char c) { return std::string_view(".[]{}()\\*+?|^$,-").find(c) != std::string_view::npos; }

String RegexEscape(const String& text) {
    const auto specials = static_cast<size_t>(std::count_if(text.start, text.start + text.length, IsSpecial));
    if (specials == 0) {
        return text;
    }
    const size_t length = text.length + specials;
    char* const bytes = static_cast<char*>(InspectorAllocate(length));
    char* out = bytes;
    for (char c : text.View()) {
        if (IsSpecial(c)) {
            *out++ = '\\';
        }
        *out++ = c;
    }
    return {bytes, length};
}

using expression = regular_expression;
using found = regular_expression_match;
using plain = regular_expression_maker<kCaseSensitive>;
using insensitive = regular_expression_maker<kCaseInsensitive>;
using every = regular_expression_match_iterator;
using parts = parenthesized_part_iterator;

// clang-format off
Type<expression>                                                        type;
Type<found>                                                             matchType;

IteratedPropertyByIndexOfWorld<plain, expression, String, &plain::First, &plain::Next>
                                                                        regex               {"regex", "regexes"};
IteratedPropertyByIndexOfWorld<plain, expression, String, &plain::First, &plain::Next>
                                                                        longName            {"regular expression", "regular expressions"};
IteratedPropertyByIndexOfWorld<insensitive, expression, String, &insensitive::First, &insensitive::Next>
                                                                        anyCase             {"case insensitive regex", "case insensitive regexes"};
IteratedPropertyByIndexOfWorld<insensitive, expression, String, &insensitive::First, &insensitive::Next>
                                                                        anyCaseLongName     {"case insensitive regular expression", "case insensitive regular expressions"};
Property<String, String, RegexEscape>                                   escape              {"regex escape", "regex escapes"};
IteratedPropertyByIndexOfObject<every, found, expression, String, &every::First, &every::Next>
                                                                        matches             {"match", "matches"};
PropertyByIndexOfObject<String, expression, found, first_match>         firstMatch          {"first match", "first matches"};
IteratedPropertyOfObject<parts, substring, found, &parts::Next, &parts::Next, &parts::Start, &parts::Finished>
                                                                        everyPart           {"parenthesized part", "parenthesized parts"};
NumberedProperty<found, substring, MatchPart>                           numberedPart        {"parenthesized part", "parenthesized parts"};

RelationEqual<String, expression, Equals>                               equal;
RelationEqual<expression, String, EqualsString>                         equalsString;
RelationContains<String, expression, Contains>                          contains;
RelationStartsWith<String, expression, StartsWith>                      startsWith;
RelationEndsWith<String, expression, EndsWith>                          endsWith;
// clang-format on

}  // namespace
