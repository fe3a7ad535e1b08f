// The process entry: the program's own path, the command line, the client start-up, and one of the two query loops.
#include <sys/stat.h>
#include <sys/wait.h>

#include <cerrno>
#include <csignal>
#include <optional>

#include "console/command_line.h"
#include "console/memory_limit.h"
#include "console/query_loops.h"
#include "console/start_up.h"

namespace {

// Children that inspectors started never linger.
void ReapChildren(int) {
    const int saved = errno;
    while (waitpid(-1, nullptr, WNOHANG) > 0) {
    }
    errno = saved;
}

// No flags: a blocking read is interrupted, and the reader at the prompt is written for that.
void InstallReaper() {
    struct sigaction action {};
    action.sa_handler = ReapChildren;
    sigemptyset(&action.sa_mask);
    action.sa_flags = 0;
    sigaction(SIGCHLD, &action, nullptr);
}

}  // namespace

int main(int argc, char** argv) {
    const std::string& ownPath = ResolveOwnPath(argc > 0 ? argv[0] : "");
    InstallReaper();
    ZendryCommandLine commandLine;
    if (!ScanArguments(argc, argv, commandLine)) {
        return 1;
    }
    umask(2);
    LimitMemory();

    std::optional<EvalContext> context;
    if (!StartClient(FileLocation(ownPath), context)) {
        return -1;
    }

    if (commandLine.files.empty()) {
        RunInteractive(commandLine, &*context);
    } else {
        RunBatch(commandLine, &*context);
    }
    return 0;
}
