// What the language cannot show of regular expressions: how often a pattern is compiled, and where matches lie.
#include "values/regular_expression.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <vector>

#include "evaluator/guard_evaluator.h"
#include "evaluator/inspector_context.h"
#include "foundation/stack_allocator.h"
#include "registry/type_registry.h"

namespace {

int compiles = 0;
int releases = 0;

}  // namespace

// Every compilation of this program comes through here.
extern "C" int regcomp(regex_t* compiled, const char* pattern, int flags) {
    static const auto original = reinterpret_cast<int (*)(regex_t*, const char*, int)>(dlsym(RTLD_NEXT, "regcomp"));
    ++compiles;
    return original(compiled, pattern, flags);
}
extern "C" void regfree(regex_t* compiled) {
    static const auto original = reinterpret_cast<void (*)(regex_t*)>(dlsym(RTLD_NEXT, "regfree"));
    ++releases;
    original(compiled);
}

namespace {

using String = inspector_string;

// The answers to a question, in order.
std::vector<std::string> Answers(GuardEvaluator& evaluator, std::string_view question) {
    evaluator.Reset();
    evaluator.Feed("(");
    evaluator.Feed(question);
    evaluator.Feed(")");
    evaluator.EndOfText();
    evaluator.ConvertTo("string", "string");
    std::vector<std::string> answers;
    for (void* value = evaluator.First(); value != nullptr; value = evaluator.Next()) {
        answers.emplace_back(static_cast<const String*>(value)->View());
    }
    return answers;
}

class Compiling : public testing::Test {
protected:
    void SetUp() override { compiles = releases = 0; }

    GuardEvaluator evaluator_{nullptr};
};

TEST_F(Compiling, APatternInALoopIsCompiledOnce) {
    const char* const phrases[] = {"regex", "regular expression", "case insensitive regex",
                                   "case insensitive regular expression"};
    for (const char* phrase : phrases) {
        compiles = releases = 0;
        const std::string question =
            "number of (integers in (1, 10000)) whose (it as string contains " + std::string(phrase) + " \"99\")";
        EXPECT_EQ(Answers(evaluator_, question), std::vector<std::string>{"280"}) << phrase;
        EXPECT_EQ(compiles, 1) << phrase;
        evaluator_.Reset();
        EXPECT_EQ(releases, 1) << phrase;
    }
}

TEST_F(Compiling, APatternThatIsComputedIsCompiledWhenItChanges) {
    EXPECT_EQ(Answers(evaluator_, "(\"abc\" contains regex it) of (\"b\"; \"b\"; \"b\"; \"x\"; \"x\"; \"b\")").size(),
              6u);
    EXPECT_EQ(compiles, 3);
    evaluator_.Reset();
    EXPECT_EQ(releases, 3);
}

TEST_F(Compiling, WhatIsBehindAZeroByteIsNoOtherPattern) {
    EXPECT_EQ(Answers(evaluator_, "(\"b\" = regex it) of (\"b\"; \"b%00\"; \"b%00x\")"),
              (std::vector<std::string>{"True", "True", "True"}));
    EXPECT_EQ(compiles, 1);
}

// Nothing is held for a pattern that failed, and the good one before it is gone.
TEST_F(Compiling, ABadPatternIsReleasedByTheLibraryAlone) {
    EXPECT_EQ(Answers(evaluator_, "(exists regex it) of (\"b\"; \"(\"; \"(\"; \"b\")"),
              (std::vector<std::string>{"True", "False", "False", "True"}));
    EXPECT_EQ(compiles, 4);
    evaluator_.Reset();
    EXPECT_EQ(releases, 2);
}

TEST_F(Compiling, AnEvaluationThatIsRunAgainCompilesNothing) {
    EXPECT_EQ(Answers(evaluator_, "\"b\" = regex \"b\"").size(), 1u);
    for (int i = 0; i < 10; ++i) {
        EXPECT_NE(evaluator_.First(), nullptr);
        EXPECT_EQ(evaluator_.Next(), nullptr);
    }
    EXPECT_EQ(compiles, 1);
}

TEST_F(Compiling, AnUnaffordablePatternIsNotTried) {
    EXPECT_EQ(Answers(evaluator_, "exists regex \"a{1000}{1000}{1000}\""), std::vector<std::string>{"False"});
    EXPECT_EQ(compiles, 0);
}

TEST(CompiledExpression, HoldsTheErrorOfAPatternThatFails) {
    try {
        CompiledExpression("(", REG_EXTENDED);
        FAIL();
    } catch (const RegComp_Failed& failure) {
        EXPECT_EQ(failure.error, REG_EPAREN);
    }
    try {
        CompiledExpression("a{1000}{1000}{1000}", REG_EXTENDED);
        FAIL();
    } catch (const RegComp_Failed& failure) {
        EXPECT_EQ(failure.error, REG_ESPACE);
    }
}

TEST(CompiledExpression, AFailedPatternIsNoSuchObject) { EXPECT_THROW(CompiledExpression("[", 1), NoSuchObject); }

TEST(CompiledExpression, FlagsAreOneAndThree) {
    EXPECT_EQ(REG_EXTENDED, 1);
    EXPECT_EQ(REG_EXTENDED | REG_ICASE, 3);
    EXPECT_EQ(REG_STARTEND, 4);
}

TEST(CompiledExpression, OffsetsCountFromTheSubjectsStart) {
    const CompiledExpression expression("(b)(x)?", REG_EXTENDED);
    const std::string_view subject("a\0b b", 5);
    regmatch_t parts[3];
    ASSERT_EQ(expression.PartCount(), 3u);
    ASSERT_TRUE(expression.Search(String(subject), 0, parts, 3));
    EXPECT_EQ(parts[0].rm_so, 2);
    EXPECT_EQ(parts[0].rm_eo, 3);
    EXPECT_EQ(parts[1].rm_so, 2);
    EXPECT_EQ(parts[2].rm_so, -1);
    ASSERT_TRUE(expression.Search(String(subject), 3, parts, 3));
    EXPECT_EQ(parts[0].rm_so, 4);
    EXPECT_EQ(parts[1].rm_eo, 5);
    EXPECT_FALSE(expression.Search(String(subject), 5, parts, 3));
    EXPECT_TRUE(expression.Search(String(subject), 4, nullptr, 0));
    EXPECT_FALSE(expression.Search(String(subject), 5, nullptr, 0));
}

TEST(CompiledExpression, OnlyTheStartIsTheStartOfALine) {
    const CompiledExpression expression("^", REG_EXTENDED);
    EXPECT_TRUE(expression.Search(String("ab", 2), 0, nullptr, 0));
    EXPECT_FALSE(expression.Search(String("ab", 2), 1, nullptr, 0));
    EXPECT_FALSE(expression.Search(String("a\nb", 3), 2, nullptr, 0));
    EXPECT_TRUE(expression.Search(String(), 0, nullptr, 0));
}

// The subject's bytes are of a smaller count than it says; none is read.
TEST(CompiledExpression, ASubjectBeyondAnOffsetIsRefused) {
    const CompiledExpression expression("a", REG_EXTENDED);
    EXPECT_THROW(expression.Search(String("a", size_t{INT_MAX} + 1), 0, nullptr, 0), NoSuchObject);
}

TEST(CompiledExpression, ASearchBehindTheEndIsRefused) {
    const CompiledExpression expression("a*", REG_EXTENDED);
    EXPECT_TRUE(expression.Search(String("ab", 2), 2, nullptr, 0));
    try {
        expression.Search(String("ab", 2), 3, nullptr, 0);
        FAIL();
    } catch (const InspectorInternalError& error) {
        EXPECT_STREQ(error.what(), "Inspector internal error (file: c/regular_expression_match line: 53)");
    }
}

TEST(RegexEscape, ATextWithoutSpecialBytesIsGivenAsItStands) {
    StackAllocator<512> memory;
    AllocatorInstaller installed(memory);
    const TypeRegistry& registry = TypeRegistry::Instance();
    const PropertyAccessor& escape =
        *registry.Property(registry.StringType(), "regex escape", registry.WorldType()).accessor;
    for (int i = 0; i < 256; ++i) {
        const char c = static_cast<char>(i);
        const String object(&c, 1);
        String result;
        ASSERT_TRUE(escape.firstMiddle(&result, nullptr, &object, nullptr, escape.data));
        if (i != 0 && std::string_view(".[]{}()\\*+?|^$,-").find(c) != std::string_view::npos) {
            EXPECT_EQ(result.View(), std::string("\\") + c);
        } else {
            EXPECT_EQ(result.start, &c);
            EXPECT_EQ(result.length, 1u);
        }
    }
}

TEST(RegularExpressionMatch, ItsPartsLieInTheParentOfTheMatch) {
    const CompiledExpression expression("(b)(x)?", REG_EXTENDED);
    const String subject("abc", 3);
    regmatch_t parts[3];
    ASSERT_TRUE(expression.Search(subject, 0, parts, 3));
    const regular_expression_match match(parts, 3, subject);
    EXPECT_EQ(match.Part(1).Offset(), 1u);
    EXPECT_EQ(match.Part(1).length, 1u);
    EXPECT_EQ(match.Part(1).Parent().start, subject.start);
    EXPECT_EQ(match.Part(1).Parent().length, 3u);
    EXPECT_EQ(match.Part(2).Offset(), 1u);
    EXPECT_EQ(match.Part(2).length, 0u);
}

TEST(RegularExpressionMatch, APartBehindTheLastIsRefused) {
    const String subject("abc", 3);
    const regmatch_t parts[] = {{0, 2}, {0, 1}};
    const regular_expression_match match(parts, 2, subject);
    EXPECT_EQ(match.Part(1).length, 1u);
    try {
        match.Part(2);
        FAIL();
    } catch (const InspectorInternalError& error) {
        EXPECT_STREQ(error.what(), "Inspector internal error (file: c/regular_expression_match line: 86)");
    }
}

TEST(RegularExpressionMatch, ItsPartsCountInItsFingerprint) {
    const auto print = [](const regular_expression_match& match) {
        Fingerprinter fingerprinter;
        InspectorTypeInfo<regular_expression_match>::Fingerprint(fingerprinter, &match);
        return fingerprinter.sum;
    };
    const String subject("abc", 3);
    const regmatch_t a[] = {{0, 2}, {0, 1}};
    const regmatch_t b[] = {{0, 2}, {1, 2}};
    EXPECT_EQ(print({a, 2, subject}), print({a, 2, subject}));
    EXPECT_NE(print({a, 2, subject}), print({b, 2, subject}));
}

TEST(RegularExpression, TypesAreRegisteredAsTold) {
    const TypeRegistry& registry = TypeRegistry::Instance();
    EXPECT_EQ(registry.TypeByName("regular expression")->size, 4u);
    EXPECT_EQ(registry.TypeByName("regular expression")->fingerprint, nullptr);
    EXPECT_EQ(registry.TypeByName("regular expression match")->size, 20u);
    EXPECT_EQ(registry.TypeByName("regular expression match")->parent, registry.TypeByName("substring"));
}

}  // namespace
