// A process of a test's own with a program of its own: a copy of "sleep" under a name that nothing else runs by.
#ifndef TESTS_CLIENT_SLEEPER_H
#define TESTS_CLIENT_SLEEPER_H

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "inspectors/process_walk.h"

// Runs from its making, which waits until the process is that program, until it is ended.  A test fails where the
// program cannot be started.
class Sleeper {
public:
    // The copy is left at `program`.
    explicit Sleeper(const std::filesystem::path& program) {
        std::filesystem::copy_file("/bin/sleep", program, std::filesystem::copy_options::skip_existing);
        process_ = fork();
        if (process_ == 0) {
            execl(program.c_str(), program.c_str(), "600", nullptr);
            _exit(127);
        }
        int waited = 0;  // milliseconds
        while (ExecutableName("/proc/", std::to_string(process_), 4096) != program.filename()) {
            if (++waited == 30000) {
                ADD_FAILURE() << program << " does not run";
                return;
            }
            usleep(1000);
        }
    }
    Sleeper(const Sleeper&) = delete;
    Sleeper& operator=(const Sleeper&) = delete;
    ~Sleeper() { End(); }

    pid_t Process() const { return process_; }

    // Returns when the process is gone.
    void End() {
        if (process_ > 0) {
            kill(process_, SIGKILL);
            waitpid(process_, nullptr, 0);
            process_ = 0;
        }
    }

private:
    pid_t process_ = 0;
};

#endif
