// What /proc/meminfo says of memory and swap, in bytes.
#ifndef INSPECTORS_MEM_INFO_H
#define INSPECTORS_MEM_INFO_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// A figure that the text does not have is absent.
struct ram_info {
    std::optional<uint64_t> total;
    std::optional<uint64_t> free;
    std::optional<uint64_t> shared;
    std::optional<uint64_t> buffered;
    std::optional<uint64_t> cached;
};

struct swap_info {
    std::optional<uint64_t> total;
    std::optional<uint64_t> free;
    std::optional<uint64_t> used;
};

// Both forms of the file: the summary line of older kernels, in bytes, and the lines of single figures, in kibibytes,
// of which the first of each counts.
ram_info ParseRam(std::string_view text);
swap_info ParseSwap(std::string_view text);

// This machine's text.  Throws FileIOError with the path and the error number where the file cannot be opened.
std::string ReadMemInfo(const char* path = "/proc/meminfo");

#endif
