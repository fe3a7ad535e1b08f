#include "console/expression_message_maker.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <new>

#include "evaluator/failure.h"
#include "language/parse_errors.h"

void ExpressionMessageMaker::Append(std::string_view text) {
    const size_t count = std::min(text.size(), static_cast<size_t>(limit_ - write_));
    std::memcpy(write_, text.data(), count);
    write_ += count;
}

void ExpressionMessageMaker::Set(std::initializer_list<std::string_view> pieces) {
    write_ = start_;
    for (std::string_view piece : pieces) {
        Append(piece);
    }
}

namespace {

constexpr std::string_view kNotEnoughMemory = "There's not enough memory.";

struct Decimal {
    explicit Decimal(int64_t value) : end(std::to_chars(text, text + sizeof text, value).ptr) {}
    std::string_view View() const { return {text, static_cast<size_t>(end - text)}; }
    char text[24];
    char* end;
};

}  // namespace

// The exception in flight is none that has words of its own: a system exception tells its text, others nothing.
void ExpressionMessageMaker::SetUnknown(std::string_view participle) {
    try {
        throw;
    } catch (const DebuggableException& e) {
        Set({"The expression could not be ", participle, ": ", e.what()});
    } catch (...) {
        Set({"The expression could not be ", participle, " for an unknown reason."});
    }
}

void ExpressionMessageMaker::TakeNotUnderstood() {
    try {
        throw;
    } catch (const std::bad_alloc&) {
        Set({kNotEnoughMemory});
    } catch (const SingularExpressionRequired&) {
        Set({"A singular expression is required."});
    } catch (const BooleanExpressionRequired&) {
        Set({"A boolean expression is required."});
    } catch (const IncompatibleTypes&) {
        Set({"Incompatible types."});
    } catch (const ItUsedWithoutWhose&) {
        Set({"\"It\" used outside of \"whose\" clause."});
    } catch (const OperationNotDefined& e) {
        Set({"The operator \"", e.Name(), "\" is not defined."});
    } catch (const ParsingFailure&) {
        Set({"This expression could not be parsed."});
    } catch (const WordTooLong&) {
        Set({"This expression has a very long word."});
    } catch (const PhraseTooLong&) {
        Set({"This expression has a very long phrase."});
    } catch (const StringConstantTooLong&) {
        Set({"This expression has a very long string."});
    } catch (const UnfinishedStringConstant&) {
        Set({"A string constant had no ending quotation mark."});
    } catch (const StringEncodingError&) {
        Set({"A string constant had an improper %-sequence."});
    } catch (const IntegerConstantTooLarge&) {
        Set({"An integer constant was too large."});
    } catch (const InvalidOperator&) {
        Set({"This expression has strange punctuation."});
    } catch (const UnexpectedCharacter&) {
        Set({"This expression contained a character which is not allowed."});
    } catch (const TupleIndexOutOfRange& e) {
        Set({"The tuple index ", Decimal(e.index).View(), " is out of range."});
    } catch (const TupleIndexNotAnIntegerLiteral&) {
        Set({"This expression contained a tuple index which was not an integer literal."});
    } catch (const UnfinishedCommentError&) {
        Set({"A comment was not terminated."});
    } catch (const InspectorBlacklisted& e) {
        Set({"The inspector '", e.Name(), "' is blacklisted."});
    } catch (...) {
        SetUnknown("understood");
    }
}

void ExpressionMessageMaker::TakeNotEvaluated() {
    try {
        throw;
    } catch (const std::bad_alloc&) {
        Set({kNotEnoughMemory});
    } catch (const OperationNotDefined& e) {
        Set({"The operator \"", e.Name(), "\" is not defined."});
    } catch (const InspectorInterruption&) {
        Set({"Inspector interrupted."});
    } catch (const ArgumentDoesNotExist&) {
        Set({"Singular expression refers to nonexistent object."});
    } catch (const ArgumentNotUnique&) {
        Set({"Singular expression refers to non-unique object."});
    } catch (const ValueNotConverted&) {
        Set({"Could not convert value to required type."});
    } catch (const NoInspectorContext&) {
        Set({"No inspector context."});
    } catch (const UserDefinedInspectionError& e) {
        Set({"User-defined error: ", e.Text()});
    } catch (const InspectorDefinedError& e) {
        Set({e.what()});
    } catch (const CannotEvaluateNow&) {
        Set({"Cannot evaluate expression now or in this context."});
    } catch (...) {
        SetUnknown("evaluated");
    }
}

void ExpressionMessageMaker::TakeNotConverted() {
    try {
        throw;
    } catch (const std::bad_alloc&) {
        Set({kNotEnoughMemory});
    } catch (const OperationNotDefined& e) {
        Set({"The operator \"", e.Name(), "\" is not defined."});
    } catch (const ConversionHasWrongType& e) {
        Set({"The conversion \"as ", e.CastName(), "\" does not produce the required type."});
    } catch (...) {
        SetUnknown("converted");
    }
}
