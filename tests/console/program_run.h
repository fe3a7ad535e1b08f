// The program as a process: what it was given, what came out and how it ended.
#ifndef TESTS_CONSOLE_PROGRAM_RUN_H
#define TESTS_CONSOLE_PROGRAM_RUN_H

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

// What the program finds its agent and its crypto library by.
using Environment = std::map<std::string, std::string>;

inline std::string BuildFolder() { return std::filesystem::path(ZENDRY_PROGRAM).parent_path().parent_path().string(); }

// The setting in which nothing is missing.
inline Environment ExampleAgent() {
    return {{"OSLClientConfigPath", BuildFolder() + "/agent/client.conf"},
            {"OSLClientActionMastheadPath", BuildFolder() + "/agent/actionsite.aqzm"}};
}

// A started program.  What it writes is gathered until a text is seen or until it ends; one that says nothing for ten
// seconds is ended.
class Program {
public:
    enum class Input { Pipe, Terminal, Closed };

    // Started in `folder`, where one is given, and by the name `called`.
    Program(const std::vector<std::string>& arguments, Input input, const std::string& folder = "",
            const Environment& environment = ExampleAgent(), const std::string& called = ZENDRY_PROGRAM) {
        int in[2] = {-1, -1};
        int out[2];
        int err[2];
        if (pipe2(out, O_CLOEXEC) != 0 || pipe2(err, O_CLOEXEC) != 0 ||
            (input == Input::Pipe && pipe2(in, O_CLOEXEC) != 0) ||
            (input == Input::Terminal && openpty(&in[1], &in[0], nullptr, nullptr, nullptr) != 0)) {
            std::abort();
        }
        std::string name = called;
        std::vector<char*> argv{name.data()};
        std::vector<std::string> copies = arguments;
        for (std::string& argument : copies) {
            argv.push_back(argument.data());
        }
        argv.push_back(nullptr);
        process_ = fork();
        if (process_ == 0) {
            if (input == Input::Terminal) {
                setsid();
            }
            dup2(out[1], 1);
            dup2(err[1], 2);
            if (in[0] >= 0) {
                dup2(in[0], 0);
                close(in[0]);
                close(in[1]);
            } else {
                close(0);
            }
            if (!folder.empty() && chdir(folder.c_str()) != 0) {
                _exit(126);
            }
            for (const char* variable : {"OSLClientConfigPath", "OSLRelayConfigPath", "OSLClientActionMastheadPath",
                                         "OSL_LIBPATH", "OPENSSL_MODULES", "OPENSSL_CONF"}) {
                unsetenv(variable);
            }
            for (const auto& [variable, value] : environment) {
                setenv(variable.c_str(), value.c_str(), 1);
            }
            execv(ZENDRY_PROGRAM, argv.data());
            _exit(127);
        }
        close(out[1]);
        close(err[1]);
        if (in[0] >= 0) {
            close(in[0]);
        }
        input_ = in[1];
        output_ = out[0];
        errors_ = err[0];
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    ~Program() {
        CloseInput();
        if (process_ > 0) {
            kill(process_, SIGKILL);
            waitpid(process_, nullptr, 0);
        }
        close(output_);
        close(errors_);
    }

    void Type(std::string_view text) {
        while (!text.empty()) {
            const ssize_t count = write(input_, text.data(), text.size());
            if (count <= 0) {
                return;
            }
            text.remove_prefix(static_cast<size_t>(count));
        }
    }
    void CloseInput() {
        if (input_ >= 0) {
            close(input_);
            input_ = -1;
        }
    }
    void Signal(int number) { kill(process_, number); }

    // Waits until the output holds the text.  False where the program ended or fell silent before.
    bool WaitFor(std::string_view text) {
        while (output.find(text) == std::string::npos) {
            if (!Gather()) {
                return false;
            }
        }
        return true;
    }

    // Waits for the end and gives the exit status; -1 where the program was ended by a signal or fell silent.
    int Status() {
        while (Gather()) {
        }
        if (silent_) {
            kill(process_, SIGKILL);
        }
        int status = 0;
        waitpid(process_, &status, 0);
        process_ = -1;
        return !silent_ && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    std::string output;
    std::string errors;

private:
    // Takes what has come.  False at the end of both streams or after a long silence.
    bool Gather() {
        pollfd streams[] = {{outputOpen_ ? output_ : -1, POLLIN, 0}, {errorsOpen_ ? errors_ : -1, POLLIN, 0}};
        if (!outputOpen_ && !errorsOpen_) {
            return false;
        }
        if (poll(streams, 2, 10000) <= 0) {
            silent_ = true;
            return false;
        }
        Take(streams[0], output, outputOpen_);
        Take(streams[1], errors, errorsOpen_);
        return true;
    }
    static void Take(const pollfd& stream, std::string& text, bool& open) {
        if (stream.revents == 0) {
            return;
        }
        char buffer[4096];
        const ssize_t count = read(stream.fd, buffer, sizeof buffer);
        if (count <= 0) {
            open = false;
        } else {
            text.append(buffer, static_cast<size_t>(count));
        }
    }

    pid_t process_ = -1;
    int input_ = -1;
    int output_ = -1;
    int errors_ = -1;
    bool outputOpen_ = true;
    bool errorsOpen_ = true;
    bool silent_ = false;
};

#endif
