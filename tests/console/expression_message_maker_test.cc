// Each failure's words, in each of the three families in which it is told.
#include "console/expression_message_maker.h"

#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <stdexcept>
#include <string>
#include <vector>

#include "evaluator/failure.h"
#include "foundation/data_receiver.h"
#include "language/parse_errors.h"

namespace {

struct PlainWords : DebuggableException {
    PlainWords() noexcept : DebuggableException("some words") {}
};

template <class Exception>
std::string Words(void (ExpressionMessageMaker::*take)(), const Exception& exception) {
    ExpressionMessageMaker maker;
    try {
        throw exception;
    } catch (...) {
        (maker.*take)();
    }
    return std::string(maker.Message());
}

template <class Exception>
std::string NotUnderstood(const Exception& exception) {
    return Words(&ExpressionMessageMaker::TakeNotUnderstood, exception);
}
template <class Exception>
std::string NotEvaluated(const Exception& exception) {
    return Words(&ExpressionMessageMaker::TakeNotEvaluated, exception);
}
template <class Exception>
std::string NotConverted(const Exception& exception) {
    return Words(&ExpressionMessageMaker::TakeNotConverted, exception);
}

TEST(ExpressionMessageMaker, LackOfMemoryIsTheSameInEveryFamily) {
    for (const auto& words : {NotUnderstood(std::bad_alloc()), NotEvaluated(std::bad_alloc()),
                              NotConverted(std::bad_alloc()), NotUnderstood(std::bad_array_new_length())}) {
        EXPECT_EQ(words, "There's not enough memory.");
    }
}

TEST(ExpressionMessageMaker, AnUndefinedOperationIsTheSameInEveryFamily) {
    const OperationNotDefined failure("foo bar");
    for (const auto& words : {NotUnderstood(failure), NotEvaluated(failure), NotConverted(failure)}) {
        EXPECT_EQ(words, "The operator \"foo bar\" is not defined.");
    }
}

TEST(ExpressionMessageMaker, WhatIsNotUnderstood) {
    EXPECT_EQ(NotUnderstood(SingularExpressionRequired()), "A singular expression is required.");
    EXPECT_EQ(NotUnderstood(BooleanExpressionRequired()), "A boolean expression is required.");
    EXPECT_EQ(NotUnderstood(IncompatibleTypes(nullptr, nullptr)), "Incompatible types.");
    EXPECT_EQ(NotUnderstood(ItUsedWithoutWhose()), "\"It\" used outside of \"whose\" clause.");
    EXPECT_EQ(NotUnderstood(ParsingFailure()), "This expression could not be parsed.");
    EXPECT_EQ(NotUnderstood(WordTooLong()), "This expression has a very long word.");
    EXPECT_EQ(NotUnderstood(PhraseTooLong()), "This expression has a very long phrase.");
    EXPECT_EQ(NotUnderstood(StringConstantTooLong()), "This expression has a very long string.");
    EXPECT_EQ(NotUnderstood(UnfinishedStringConstant()), "A string constant had no ending quotation mark.");
    EXPECT_EQ(NotUnderstood(StringEncodingError()), "A string constant had an improper %-sequence.");
    EXPECT_EQ(NotUnderstood(IntegerConstantTooLarge()), "An integer constant was too large.");
    EXPECT_EQ(NotUnderstood(InvalidOperator()), "This expression has strange punctuation.");
    EXPECT_EQ(NotUnderstood(UnexpectedCharacter('?')), "This expression contained a character which is not allowed.");
    EXPECT_EQ(NotUnderstood(TupleIndexOutOfRange(0)), "The tuple index 0 is out of range.");
    EXPECT_EQ(NotUnderstood(TupleIndexOutOfRange(9223372036854775807)),
              "The tuple index 9223372036854775807 is out of range.");
    EXPECT_EQ(NotUnderstood(TupleIndexNotAnIntegerLiteral()),
              "This expression contained a tuple index which was not an integer literal.");
    EXPECT_EQ(NotUnderstood(UnfinishedCommentError()), "A comment was not terminated.");
    EXPECT_EQ(NotUnderstood(InspectorBlacklisted("name of file")), "The inspector 'name of file' is blacklisted.");
}

TEST(ExpressionMessageMaker, AnotherFailureIsNotUnderstoodInItsOwnTextIfItIsTheSystems) {
    EXPECT_EQ(NotUnderstood(PlainWords()), "The expression could not be understood: some words");
    EXPECT_EQ(NotUnderstood(DataOverflow()), "The expression could not be understood: DataOverflow");
    EXPECT_EQ(NotUnderstood(std::runtime_error("x")), "The expression could not be understood for an unknown reason.");
    EXPECT_EQ(NotUnderstood(7), "The expression could not be understood for an unknown reason.");
}

TEST(ExpressionMessageMaker, WhatIsNotEvaluated) {
    EXPECT_EQ(NotEvaluated(InspectorInterruption()), "Inspector interrupted.");
    EXPECT_EQ(NotEvaluated(ArgumentDoesNotExist()), "Singular expression refers to nonexistent object.");
    EXPECT_EQ(NotEvaluated(ArgumentNotUnique()), "Singular expression refers to non-unique object.");
    EXPECT_EQ(NotEvaluated(ValueNotConverted()), "Could not convert value to required type.");
    EXPECT_EQ(NotEvaluated(NoInspectorContext()), "No inspector context.");
    EXPECT_EQ(NotEvaluated(UserDefinedInspectionError("a b")), "User-defined error: a b");
    EXPECT_EQ(NotEvaluated(UserDefinedInspectionError("")), "User-defined error: ");
    EXPECT_EQ(NotEvaluated(InspectorDefinedError("own words")), "own words");
    EXPECT_EQ(NotEvaluated(InspectorSiteContextError()), "InspectorSiteContextError");
    EXPECT_EQ(NotEvaluated(InspectorInternalError("a.cc", 12)), "Inspector internal error (file: a.cc line: 12)");
    EXPECT_EQ(NotEvaluated(CannotEvaluateNow()), "Cannot evaluate expression now or in this context.");
}

TEST(ExpressionMessageMaker, AnotherFailureIsNotEvaluatedInItsOwnTextIfItIsTheSystems) {
    EXPECT_EQ(NotEvaluated(NoSuchObject()), "The expression could not be evaluated: NoSuchObject");
    EXPECT_EQ(NotEvaluated(PlainWords()), "The expression could not be evaluated: some words");
    EXPECT_EQ(NotEvaluated(std::runtime_error("x")), "The expression could not be evaluated for an unknown reason.");
    EXPECT_EQ(NotEvaluated(7), "The expression could not be evaluated for an unknown reason.");
}

TEST(ExpressionMessageMaker, WhatIsNotConverted) {
    EXPECT_EQ(NotConverted(ConversionHasWrongType(nullptr, "hexadecimal")),
              "The conversion \"as hexadecimal\" does not produce the required type.");
}

TEST(ExpressionMessageMaker, AnotherFailureIsNotConvertedInItsOwnTextIfItIsTheSystems) {
    EXPECT_EQ(NotConverted(PlainWords()), "The expression could not be converted: some words");
    EXPECT_EQ(NotConverted(std::runtime_error("x")), "The expression could not be converted for an unknown reason.");
    EXPECT_EQ(NotConverted(7), "The expression could not be converted for an unknown reason.");
}

// A failure has its own words in the families in which it stands, and in no other.
TEST(ExpressionMessageMaker, AFailureOfAnotherFamilyHasNoWordsOfItsOwn) {
    EXPECT_EQ(NotUnderstood(ArgumentDoesNotExist()), "The expression could not be understood: ArgumentDoesNotExist");
    EXPECT_EQ(NotUnderstood(InspectorDefinedError("own")), "The expression could not be understood: own");
    EXPECT_EQ(NotUnderstood(ConversionHasWrongType(nullptr, "x")),
              "The expression could not be understood: ConversionHasWrongType");
    EXPECT_EQ(NotEvaluated(SingularExpressionRequired()),
              "The expression could not be evaluated: SingularExpressionRequired");
    EXPECT_EQ(NotEvaluated(BooleanExpressionRequired()),
              "The expression could not be evaluated: BooleanExpressionRequired");
    EXPECT_EQ(NotEvaluated(InspectorBlacklisted("x")), "The expression could not be evaluated: InspectorBlacklisted");
    EXPECT_EQ(NotConverted(SingularExpressionRequired()),
              "The expression could not be converted: SingularExpressionRequired");
    EXPECT_EQ(NotConverted(InspectorInterruption()), "The expression could not be converted: InspectorInterruption");
}

TEST(ExpressionMessageMaker, MessagesAreCutAt256Bytes) {
    const std::string long_(256, 'n');
    EXPECT_EQ(NotUnderstood(OperationNotDefined(long_)), "The operator \"" + long_.substr(0, 242));
    EXPECT_EQ(NotEvaluated(UserDefinedInspectionError(long_)), "User-defined error: " + long_.substr(0, 236));
    EXPECT_EQ(NotEvaluated(InspectorDefinedError(long_.c_str())), long_);
    EXPECT_EQ(NotEvaluated(InspectorDefinedError((long_ + "x").c_str())), long_);
    const std::string fits(256 - 14 - 17, 'n');
    EXPECT_EQ(NotUnderstood(OperationNotDefined(fits)), "The operator \"" + fits + "\" is not defined.");
    EXPECT_EQ(NotUnderstood(OperationNotDefined(fits + "n")), "The operator \"" + fits + "n\" is not defined");
}

TEST(ExpressionMessageMaker, EachMessageReplacesTheOneBefore) {
    ExpressionMessageMaker maker;
    EXPECT_EQ(maker.Message(), "");
    for (const std::function<void()>& fail : std::vector<std::function<void()>>{
             [] { throw OperationNotDefined(std::string(256, 'n')); }, [] { throw ParsingFailure(); }}) {
        try {
            fail();
        } catch (...) {
            maker.TakeNotUnderstood();
        }
    }
    EXPECT_EQ(maker.Message(), "This expression could not be parsed.");
}

}  // namespace
