// The root of the system's exceptions.
//
// Every failure that the system names is a small class over DebuggableException, thrown by value and caught by
// reference.  The base holds a pointer to constant text, so that throwing one never allocates; a class whose text is
// made at run time overrides what().
#ifndef FOUNDATION_DEBUGGABLE_EXCEPTION_H
#define FOUNDATION_DEBUGGABLE_EXCEPTION_H

#include <exception>

class DebuggableException : public std::exception {
public:
    // `text` must live as long as the program: a literal.
    explicit DebuggableException(const char* text) noexcept : text_(text) {}

    // Returns the text of the failure, never null.
    const char* what() const noexcept override { return text_; }

private:
    const char* text_;
};

#endif
