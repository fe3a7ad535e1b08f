#include "console/command_line.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

// Kept as it stands: "-o" has no line of its own.
constexpr char kUsage[] =
    "   zendry [-t] [-showtypes] [-o output-file name] [zero or more input-file names]\n"
    "        -t displays execution time in non-interactive mode\n"
    "        -showtypes shows the result type of each query on a line prefixed by \"I:\"\n"
    "        -help prints this message.\n";

}  // namespace

bool ScanArguments(int count, const char* const* arguments, ZendryCommandLine& commandLine) {
    for (int i = 1; i < count; ++i) {
        const char* argument = arguments[i];
        if (std::strcmp(argument, "-t") == 0) {
            commandLine.timing = true;
        } else if (std::strcmp(argument, "-showtypes") == 0) {
            commandLine.showTypes = true;
        } else if (std::strcmp(argument, "-o") == 0 && i + 1 < count) {
            commandLine.outputFile = arguments[++i];
        } else if (std::strcmp(argument, "-help") == 0) {
            std::fputs(kUsage, stderr);
            return false;
        } else {
            commandLine.files.push_back(argument);
        }
    }
    return true;
}

const std::string& ResolveOwnPath(const char* firstArgument) {
    static std::string path;
    path = firstArgument;
    if (path.empty() || path.front() != '/') {
        char directory[4096];
        if (getcwd(directory, sizeof directory) != nullptr) {
            path = std::string(directory) + "/" + path;
        }
    }
    if (char* real = realpath(path.c_str(), nullptr); real != nullptr) {
        path = real;
        std::free(real);
    }
    return path;
}
