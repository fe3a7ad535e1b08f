#include "inspectors/mem_info.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <initializer_list>

#include "foundation/ascii.h"
#include "foundation/file_error.h"
#include "foundation/stdio_file.h"

namespace {

using Figure = std::optional<uint64_t>;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// The next number of a line, which is taken off its front; none where no digit is left.
Figure NextNumber(std::string_view& line) {
    line.remove_prefix(static_cast<size_t>(std::find_if(line.begin(), line.end(), IsDigit) - line.begin()));
    if (line.empty()) {
        return std::nullopt;
    }
    const auto digits = static_cast<size_t>(std::find_if_not(line.begin(), line.end(), IsDigit) - line.begin());
    const std::string number(line.substr(0, digits));
    line.remove_prefix(digits);
    return static_cast<uint64_t>(std::strtoll(number.c_str(), nullptr, 10));
}

// A line of single numbers that stand for the figures in their order; a null place is a number that nobody wants.
void TakeSummary(std::string_view line, std::initializer_list<Figure*> places) {
    for (Figure* place : places) {
        const Figure number = NextNumber(line);
        if (number && place != nullptr) {
            *place = number;
        }
    }
}

// A line "Key: n kB", of which the first counts.
void TakeLine(std::string_view line, std::string_view key, Figure& figure) {
    constexpr int kKibibyte = 10;
    if (figure || !Ascii::BeginsWithIgnoringCase(line, key)) {
        return;
    }
    line.remove_prefix(key.size());
    if (const Figure number = NextNumber(line)) {
        figure = *number << kKibibyte;
    }
}

template <class Take>
void ForEachLine(std::string_view text, const Take& take) {
    while (!text.empty()) {
        const size_t end = std::min(text.find('\n'), text.size());
        take(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

}  // namespace

ram_info ParseRam(std::string_view text) {
    constexpr std::string_view kSummary = "mem:";
    ram_info ram;
    ForEachLine(text, [&](std::string_view line) {
        if (Ascii::BeginsWithIgnoringCase(line, kSummary)) {
            line.remove_prefix(kSummary.size());
            TakeSummary(line, {&ram.total, nullptr, &ram.free, &ram.shared, &ram.buffered, &ram.cached});
            return;
        }
        TakeLine(line, "memtotal:", ram.total);
        TakeLine(line, "memfree:", ram.free);
        TakeLine(line, "buffers:", ram.buffered);
        TakeLine(line, "cached:", ram.cached);
    });
    return ram;
}

swap_info ParseSwap(std::string_view text) {
    constexpr std::string_view kSummary = "swap:";
    swap_info swap;
    ForEachLine(text, [&](std::string_view line) {
        if (Ascii::BeginsWithIgnoringCase(line, kSummary)) {
            line.remove_prefix(kSummary.size());
            TakeSummary(line, {&swap.total, nullptr, &swap.free});
            return;
        }
        TakeLine(line, "swaptotal:", swap.total);
        TakeLine(line, "swapfree:", swap.free);
    });
    if (swap.total && swap.free && *swap.total >= *swap.free) {
        swap.used = *swap.total - *swap.free;
    }
    return swap;
}

std::string ReadMemInfo(const char* path) {
    const StdioFile file = OpenStdioFile(path);
    if (file == nullptr) {
        throw FileIOError(errno, path);
    }
    std::string text;
    char block[4096];
    for (size_t count; (count = fread(block, 1, sizeof block, file.get())) != 0;) {
        text.append(block, count);
    }
    return text;
}
