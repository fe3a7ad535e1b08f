// The failures of binding and evaluating.
//
// Expected absence travels as an EvaluationStatus or as NoSuchObject; everything else is one of these classes, thrown
// by value, caught by reference, and turned into words by the console alone.
#ifndef EVALUATOR_FAILURE_H
#define EVALUATOR_FAILURE_H

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "foundation/debuggable_exception.h"
#include "foundation/stack_allocator.h"
#include "registry/core_values.h"
#include "registry/lookup_failures.h"
#include "registry/records.h"

struct BooleanExpressionRequired : DebuggableException {
    BooleanExpressionRequired() noexcept : DebuggableException("BooleanExpressionRequired") {}
};
struct SingularExpressionRequired : DebuggableException {
    SingularExpressionRequired() noexcept : DebuggableException("SingularExpressionRequired") {}
};
struct IncompatibleTypes : DebuggableException {
    IncompatibleTypes(const GuardType* a, const GuardType* b) noexcept
        : DebuggableException("IncompatibleTypes"), first(a), second(b) {}
    const GuardType* first;
    const GuardType* second;
};
struct ItUsedWithoutWhose : DebuggableException {
    ItUsedWithoutWhose() noexcept : DebuggableException("ItUsedWithoutWhose") {}
};

// A conversion gives another type than the one asked for.  The cast's name is kept cut at 256 bytes.
struct ConversionHasWrongType : DebuggableException {
    ConversionHasWrongType(const GuardType* wanted, std::string_view cast) noexcept
        : DebuggableException("ConversionHasWrongType"), target(wanted), length(std::min(cast.size(), sizeof name)) {
        std::memcpy(name, cast.data(), length);
    }
    std::string_view CastName() const { return {name, length}; }

    const GuardType* target;
    size_t length;
    char name[256];
};
struct TupleIndexOutOfRange : DebuggableException {
    explicit TupleIndexOutOfRange(int64_t n) noexcept : DebuggableException("TupleIndexOutOfRange"), index(n) {}
    int64_t index;
};
struct TupleIndexNotAnIntegerLiteral : DebuggableException {
    TupleIndexNotAnIntegerLiteral() noexcept : DebuggableException("TupleIndexNotAnIntegerLiteral") {}
};
struct ArgumentDoesNotExist : DebuggableException {
    ArgumentDoesNotExist() noexcept : DebuggableException("ArgumentDoesNotExist") {}
};
struct ArgumentNotUnique : DebuggableException {
    ArgumentNotUnique() noexcept : DebuggableException("ArgumentNotUnique") {}
};
struct ValueNotConverted : DebuggableException {
    ValueNotConverted() noexcept : DebuggableException("ValueNotConverted") {}
};

// An inspector found nothing.  Caught where a property, cast or operator is called, and nowhere else.
struct NoSuchObject : DebuggableException {
    NoSuchObject() noexcept : DebuggableException("NoSuchObject") {}
};

// What the language's `error` throws.  The text is cut at its first zero byte and at 1024 bytes.
class UserDefinedInspectionError : public DebuggableException {
public:
    explicit UserDefinedInspectionError(std::string_view text) noexcept
        : DebuggableException("UserDefinedInspectionError") {
        const size_t length = std::min({text.size(), text.find('\0'), sizeof text_ - 1});
        std::memcpy(text_, text.data(), length);
        text_[length] = '\0';
    }
    const char* Text() const { return text_; }

private:
    char text_[1025];
};

// An inspector's own failure, in its own words: the class of the errors that name what a host lacks.
class InspectorDefinedError : public DebuggableException {
public:
    explicit InspectorDefinedError(const char* text) noexcept : DebuggableException(text) {}
};

// Something inside an inspector is not as it must be.
class InspectorInternalError : public InspectorDefinedError {
public:
    InspectorInternalError(std::string_view file, int line) noexcept;
    const char* what() const noexcept override { return text_; }

private:
    char text_[160];
};

struct CannotEvaluateNow : DebuggableException {
    CannotEvaluateNow() noexcept : DebuggableException("CannotEvaluateNow") {}
};
struct NoInspectorContext : DebuggableException {
    NoInspectorContext() noexcept : DebuggableException("NoInspectorContext") {}
};
struct InspectorInterruption : DebuggableException {
    InspectorInterruption() noexcept : DebuggableException("InspectorInterruption") {}
};

// A replayed fingerprint took another way than the recorded one.
struct EvaluationPathsDontMatch : DebuggableException {
    EvaluationPathsDontMatch() noexcept : DebuggableException("EvaluationPathsDontMatch") {}
};

// Stands in for a kept exception that no copier knows.
struct ExceptionCannotBeCopied : DebuggableException {
    ExceptionCannotBeCopied() noexcept : DebuggableException("ExceptionCannotBeCopied") {}
};

// Stands in for a kept exception of which only the text could be copied.
class CopiedStdException : public DebuggableException {
public:
    explicit CopiedStdException(const std::exception& original)
        : DebuggableException("CopiedStdException"), text_(original.what()) {}
    const char* what() const noexcept override { return text_.c_str(); }

private:
    std::string text_;
};

// How a context lacks what an inspector asks of it, one class for each interface.
struct InspectorStorageContextError : InspectorDefinedError {
    InspectorStorageContextError() noexcept : InspectorDefinedError("InspectorStorageContextError") {}
};
struct InspectorSiteContextError : InspectorDefinedError {
    InspectorSiteContextError() noexcept : InspectorDefinedError("InspectorSiteContextError") {}
};
struct InspectorLibraryContextError : InspectorDefinedError {
    InspectorLibraryContextError() noexcept : InspectorDefinedError("InspectorLibraryContextError") {}
};
struct InspectorNetworkContextError : InspectorDefinedError {
    InspectorNetworkContextError() noexcept : InspectorDefinedError("InspectorNetworkContextError") {}
};
struct InspectorProcessTableContextError : InspectorDefinedError {
    InspectorProcessTableContextError() noexcept : InspectorDefinedError("InspectorProcessTableContextError") {}
};
struct InspectorSettingsContextError : InspectorDefinedError {
    InspectorSettingsContextError() noexcept : InspectorDefinedError("InspectorSettingsContextError") {}
};
struct InspectorSystemContextError : InspectorDefinedError {
    InspectorSystemContextError() noexcept : InspectorDefinedError("InspectorSystemContextError") {}
};
struct InspectorAnalysisContextError : InspectorDefinedError {
    InspectorAnalysisContextError() noexcept : InspectorDefinedError("InspectorAnalysisContextError") {}
};
struct InspectorActionContextError : InspectorDefinedError {
    InspectorActionContextError() noexcept : InspectorDefinedError("InspectorActionContextError") {}
};
struct InspectorPraxelContextError : InspectorDefinedError {
    InspectorPraxelContextError() noexcept : InspectorDefinedError("InspectorPraxelContextError") {}
};
struct InspectorRegistrationContextError : InspectorDefinedError {
    InspectorRegistrationContextError() noexcept : InspectorDefinedError("InspectorRegistrationContextError") {}
};
struct HostSelectorInspectorContextError : InspectorDefinedError {
    HostSelectorInspectorContextError() noexcept : InspectorDefinedError("HostSelectorInspectorContextError") {}
};

// Says that there is no such thing: throws NoSuchObject.
[[noreturn]] void NoResults();

// Throws UserDefinedInspectionError with the text.
[[noreturn]] void MakeError(const inspector_string& text);

#endif
