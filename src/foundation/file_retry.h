// Trying a file operation again: what another program holds for a moment is often free in the next.
#ifndef FOUNDATION_FILE_RETRY_H
#define FOUNDATION_FILE_RETRY_H

#include <chrono>

#include "foundation/file_location.h"

// Is told how an operation that did not succeed at once came out.  This class itself does nothing with it.
class FileRetryLog {
public:
    virtual ~FileRetryLog() = default;

    // `second` is null for operations on one place.  `attempts` counts the calls that were made.
    virtual void RetriedAndSucceeded(const char* operation, const FileLocation& first, const FileLocation* second,
                                     unsigned attempts);
    virtual void GivingUp(const char* operation, const FileLocation& first, const FileLocation* second,
                          unsigned attempts);
};

// Puts another function in the place of the sleep between two attempts, for this thread and until the object goes.
class FileRetrySleep {
public:
    using Function = void (*)(std::chrono::milliseconds delay);

    explicit FileRetrySleep(Function function);
    FileRetrySleep(const FileRetrySleep&) = delete;
    FileRetrySleep& operator=(const FileRetrySleep&) = delete;
    ~FileRetrySleep();

    static void Sleep(std::chrono::milliseconds delay);

private:
    Function previous_;
};

inline constexpr unsigned mostFileAttempts = 8;

// Calls `call()` up to eight times, with sleeps of 16, 32, 64, 128, 256, 512 and 1024 milliseconds between.  A success
// after the first attempt and the failure of the last are told to the log; the last exception is thrown on.  An
// EmptyFileLocationError is thrown on at once and told to nobody, since no attempt can mend it.
template <class Operation>
void RetryFileOperation(const Operation& call, const char* operation, const FileLocation& first,
                        const FileLocation* second, FileRetryLog& log) {
    unsigned attempt = 1;
    std::chrono::milliseconds delay(16);
    for (;; ++attempt, delay *= 2) {
        try {
            call();
            break;
        } catch (const EmptyFileLocationError&) {
            throw;
        } catch (...) {
            if (attempt == mostFileAttempts) {
                log.GivingUp(operation, first, second, attempt);
                throw;
            }
        }
        FileRetrySleep::Sleep(delay);
    }
    if (attempt != 1) {
        log.RetriedAndSucceeded(operation, first, second, attempt);
    }
}

#endif
