#include "evaluator/caught_exception.h"

#include <mutex>
#include <new>
#include <vector>

#include "evaluator/failure.h"

namespace {

// A value with the lock that guards it.
template <class T>
struct MutexGuarded {
    std::recursive_mutex mutex;
    T value;
};

MutexGuarded<std::vector<ExceptionCopier>>& Copiers() {
    static MutexGuarded<std::vector<ExceptionCopier>> copiers;
    return copiers;
}

// Running out of memory is kept as itself, so that it is told as what it is wherever it is met again.
[[maybe_unused]] const bool registered = [] {
    RegisterExceptionCopier<std::exception, CopiedStdException>();
    RegisterExceptionCopier<ExceptionCannotBeCopied>();
    RegisterExceptionCopier<std::bad_alloc>();
    RegisterExceptionCopier<BooleanExpressionRequired>();
    RegisterExceptionCopier<SingularExpressionRequired>();
    RegisterExceptionCopier<IncompatibleTypes>();
    RegisterExceptionCopier<ItUsedWithoutWhose>();
    RegisterExceptionCopier<UserDefinedInspectionError>();
    RegisterExceptionCopier<OperationNotDefined>();
    RegisterExceptionCopier<ConversionHasWrongType>();
    return true;
}();

}  // namespace

void AddExceptionCopier(ExceptionCopier copier) {
    const std::lock_guard<std::recursive_mutex> hold(Copiers().mutex);
    Copiers().value.push_back(copier);
}

AutoPtr<CaughtException> CopyCurrentException() {
    const std::exception_ptr inFlight = std::current_exception();
    const std::lock_guard<std::recursive_mutex> hold(Copiers().mutex);
    std::vector<ExceptionCopier>& copiers = Copiers().value;
    for (auto copier = copiers.rbegin(); copier != copiers.rend(); ++copier) {
        try {
            return (*copier)();
        } catch (...) {
            // Either the copier does not know the class, and the same exception came through it, or the copy itself
            // found no memory.
            if (std::current_exception() != inFlight) {
                throw;
            }
        }
    }
    return std::make_unique<CaughtExceptionOfType<ExceptionCannotBeCopied>>(ExceptionCannotBeCopied());
}
