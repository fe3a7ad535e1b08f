// A file of the C library that is closed with its holder, for texts that are read the C library's way: by its lines, or
// in a few blocks.
#ifndef FOUNDATION_STDIO_FILE_H
#define FOUNDATION_STDIO_FILE_H

#include <cstdio>
#include <memory>

struct CloseStdioFile {
    void operator()(FILE* file) const { fclose(file); }
};

using StdioFile = std::unique_ptr<FILE, CloseStdioFile>;

// The file opened for reading and handed down to no other program; null, with errno set, where it cannot be opened.
inline StdioFile OpenStdioFile(const char* path) { return StdioFile(fopen64(path, "re")); }

#endif
