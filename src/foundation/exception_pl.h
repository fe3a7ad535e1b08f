// A failure whose text is put together when it is thrown.
#ifndef FOUNDATION_EXCEPTION_PL_H
#define FOUNDATION_EXCEPTION_PL_H

#include <memory>
#include <string>
#include <utility>

#include "foundation/debuggable_exception.h"

class ExceptionPL : public DebuggableException {
public:
    // Throws std::bad_alloc when the text cannot be kept: lack of memory is then the failure to report.
    explicit ExceptionPL(std::string text)
        : DebuggableException("ExceptionPL"), text_(std::make_shared<const std::string>(std::move(text))) {}

    const char* what() const noexcept override { return text_->c_str(); }

private:
    // Shared by the copies that throwing makes, so that copying a failure cannot fail.
    std::shared_ptr<const std::string> text_;
};

#endif
