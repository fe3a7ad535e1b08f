#include "foundation/file_retry.h"

#include <thread>
#include <utility>

namespace {

void SleepFor(std::chrono::milliseconds delay) {
    const auto seconds = std::chrono::floor<std::chrono::seconds>(delay);
    if (seconds.count() != 0) {
        std::this_thread::sleep_for(seconds);
    }
    std::this_thread::sleep_for(delay - seconds);
}

thread_local FileRetrySleep::Function sleepFunction = SleepFor;

}  // namespace

void FileRetryLog::RetriedAndSucceeded(const char*, const FileLocation&, const FileLocation*, unsigned) {}

void FileRetryLog::GivingUp(const char*, const FileLocation&, const FileLocation*, unsigned) {}

FileRetrySleep::FileRetrySleep(Function function) : previous_(std::exchange(sleepFunction, function)) {}

FileRetrySleep::~FileRetrySleep() { sleepFunction = previous_; }

void FileRetrySleep::Sleep(std::chrono::milliseconds delay) { sleepFunction(delay); }
