// Runs a function in a process of its own, for what a process can do only once.
#ifndef TESTS_FOUNDATION_OWN_PROCESS_H
#define TESTS_FOUNDATION_OWN_PROCESS_H

#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>
#include <string_view>

// What the function returned or threw, after what it wrote to standard error and before what was written there while
// the process ended.  A process that ended otherwise than by exit gives "died" at the end.
template <class Function>
std::string InOwnProcess(Function function) {
    int ends[2];
    if (pipe(ends) != 0) {
        return "no pipe";
    }
    std::fflush(nullptr);  // Or the other process would write it again at its end.
    const pid_t process = fork();
    if (process == 0) {
        dup2(ends[1], 2);
        close(ends[0]);
        close(ends[1]);
        std::string result;
        try {
            result = function();
        } catch (const std::exception& failure) {
            result = std::string("threw ") + failure.what();
        }
        std::string_view rest = result;
        while (!rest.empty()) {
            const ssize_t count = write(2, rest.data(), rest.size());
            if (count <= 0) {
                _exit(1);
            }
            rest.remove_prefix(static_cast<size_t>(count));
        }
        std::exit(0);
    }
    close(ends[1]);
    std::string output;
    char buffer[4096];
    ssize_t count = 0;
    while ((count = read(ends[0], buffer, sizeof buffer)) > 0) {
        output.append(buffer, static_cast<size_t>(count));
    }
    close(ends[0]);
    int status = 0;
    waitpid(process, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? output : output + "died";
}

#endif
