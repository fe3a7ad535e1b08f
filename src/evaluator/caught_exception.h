// Keeping an exception so that it can be thrown again later, in its own type.
//
// An exception of unknown type cannot be copied by the language itself, so every class that can be kept registers a
// copier: a function that throws the exception in flight on, catches its own class and holds a copy.
#ifndef EVALUATOR_CAUGHT_EXCEPTION_H
#define EVALUATOR_CAUGHT_EXCEPTION_H

#include <exception>
#include <memory>
#include <type_traits>

template <class T>
using AutoPtr = std::unique_ptr<T>;

class CaughtException {
public:
    virtual ~CaughtException() = default;

    // Throws a fresh copy of the kept exception; the kept one is not used up.
    [[noreturn]] virtual void Rethrow() const = 0;
    virtual const std::exception& Exception() const = 0;
};

template <class T>
class CaughtExceptionOfType final : public CaughtException {
public:
    explicit CaughtExceptionOfType(const T& exception) : exception_(exception) {}
    [[noreturn]] void Rethrow() const override { throw T(exception_); }
    const std::exception& Exception() const override { return exception_; }

private:
    T exception_;
};

using ExceptionCopier = AutoPtr<CaughtException> (*)();

// Adds a copier; those added last are tried first, so that a base registers before what derives from it.
void AddExceptionCopier(ExceptionCopier copier);

// Copies the exception in flight; callable only inside a handler.  One that no copier knows is kept as
// ExceptionCannotBeCopied.  Throws std::bad_alloc.
AutoPtr<CaughtException> CopyCurrentException();

// The copier of one class: returns its copy, or lets an exception of another class through.
template <class T, class Kept = T>
AutoPtr<CaughtException> CopyCurrentException() {
    try {
        throw;
    } catch (const T& exception) {
        return std::make_unique<CaughtExceptionOfType<Kept>>(Kept(exception));
    }
}

// Registers the copier of T, once.  Kept is the class that stands in for it.
template <class T, class Kept = T>
void RegisterExceptionCopier() {
    static bool registered = false;
    if (!registered) {
        registered = true;
        AddExceptionCopier(&CopyCurrentException<T, Kept>);
    }
}

#endif
