// Exceptions kept and thrown again: each in its own type where a copier knows it.
#include "evaluator/caught_exception.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <string>

#include "evaluator/failure.h"

namespace {

template <class T>
AutoPtr<CaughtException> Kept(const T& exception) {
    try {
        throw exception;
    } catch (...) {
        return CopyCurrentException();
    }
}

// The class that a kept exception comes back as, each time the same.
template <class Expected, class T>
void ExpectComesBackAs(const T& exception) {
    const AutoPtr<CaughtException> kept = Kept(exception);
    for (int i = 0; i < 3; ++i) {
        try {
            kept->Rethrow();
        } catch (const std::exception& e) {
            EXPECT_EQ(typeid(e), typeid(Expected));
            EXPECT_STREQ(e.what(), kept->Exception().what());
        }
    }
}

TEST(CopyCurrentException, RegisteredClassesComeBackInTheirType) {
    ExpectComesBackAs<BooleanExpressionRequired>(BooleanExpressionRequired());
    ExpectComesBackAs<SingularExpressionRequired>(SingularExpressionRequired());
    ExpectComesBackAs<IncompatibleTypes>(IncompatibleTypes(nullptr, nullptr));
    ExpectComesBackAs<ItUsedWithoutWhose>(ItUsedWithoutWhose());
    ExpectComesBackAs<UserDefinedInspectionError>(UserDefinedInspectionError("x"));
    ExpectComesBackAs<OperationNotDefined>(OperationNotDefined("x"));
    ExpectComesBackAs<ConversionHasWrongType>(ConversionHasWrongType(nullptr, "x"));
    ExpectComesBackAs<ExceptionCannotBeCopied>(ExceptionCannotBeCopied());
    ExpectComesBackAs<std::bad_alloc>(std::bad_alloc());
}

TEST(CopyCurrentException, WhatTheyCarryComesBackWithThem) {
    try {
        Kept(OperationNotDefined("the phrase"))->Rethrow();
    } catch (const OperationNotDefined& e) {
        EXPECT_EQ(e.Name(), "the phrase");
    }
    try {
        Kept(UserDefinedInspectionError("the text"))->Rethrow();
    } catch (const UserDefinedInspectionError& e) {
        EXPECT_STREQ(e.Text(), "the text");
    }
}

TEST(CopyCurrentException, OtherStandardExceptionsComeBackAsTheirText) {
    ExpectComesBackAs<CopiedStdException>(std::runtime_error("some text"));
    EXPECT_STREQ(Kept(std::runtime_error("some text"))->Exception().what(), "some text");
    ExpectComesBackAs<CopiedStdException>(TupleIndexOutOfRange(5));
    ExpectComesBackAs<CopiedStdException>(CopiedStdException(std::runtime_error("twice")));
    EXPECT_STREQ(Kept(CopiedStdException(std::runtime_error("twice")))->Exception().what(), "twice");
}

TEST(CopyCurrentException, WhatNoCopierKnowsIsToldAsSuch) {
    ExpectComesBackAs<ExceptionCannotBeCopied>(42);
    ExpectComesBackAs<ExceptionCannotBeCopied>(std::string("text"));
}

struct Base : std::runtime_error {
    Base() : std::runtime_error("base") {}
};
struct Derived : Base {};

TEST(CopyCurrentException, TheClassRegisteredLastIsTriedFirst) {
    ExpectComesBackAs<CopiedStdException>(Derived());
    RegisterExceptionCopier<Base>();
    ExpectComesBackAs<Base>(Derived());
    RegisterExceptionCopier<Derived>();
    ExpectComesBackAs<Derived>(Derived());
    ExpectComesBackAs<Base>(Base());
    RegisterExceptionCopier<Base>();  // A class is registered once: the derived one stays in front.
    ExpectComesBackAs<Derived>(Derived());
}

TEST(UserDefinedInspectionError, KeepsAThousandAndTwentyFourBytes) {
    EXPECT_EQ(std::string(UserDefinedInspectionError(std::string(1024, 'x')).Text()), std::string(1024, 'x'));
    EXPECT_EQ(std::string(UserDefinedInspectionError(std::string(1025, 'x')).Text()), std::string(1024, 'x'));
    EXPECT_STREQ(UserDefinedInspectionError("").Text(), "");
}

TEST(InspectorInternalError, NamesItsPlace) {
    EXPECT_STREQ(InspectorInternalError("unit.cc", 12).what(), "Inspector internal error (file: unit.cc line: 12)");
}

}  // namespace
