// The command line, and how a process finds its own program.
#ifndef CONSOLE_COMMAND_LINE_H
#define CONSOLE_COMMAND_LINE_H

#include <string>
#include <vector>

struct ZendryCommandLine {
    std::vector<const char*> files;  // Borrowed from the arguments, in their order; empty selects the prompt.
    bool showTypes = false;
    bool timing = false;
    const char* outputFile = nullptr;  // Null means standard output.
};

// Reads the arguments, each compared exactly.  Returns false where `-help` was met: the usage has then been printed to
// standard error, whatever stood before it, and the process is to end with status 1.
bool ScanArguments(int count, const char* const* arguments, ZendryCommandLine& commandLine);

// The program's own path: the first argument, made absolute by the current directory and then real, as far as either
// can be had.  Throws std::bad_alloc.
const std::string& ResolveOwnPath(const char* firstArgument);

#endif
