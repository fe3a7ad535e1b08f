// The lines of a text by the rule in its plainest form, on the whole text at once.
#ifndef TESTS_INSPECTORS_NAIVE_LINES_H
#define TESTS_INSPECTORS_NAIVE_LINES_H

#include <cstdint>
#include <ostream>
#include <random>
#include <string>
#include <string_view>
#include <vector>

struct NaiveLine {
    std::string text;
    uint64_t start;
    uint64_t next;

    friend bool operator==(const NaiveLine&, const NaiveLine&) = default;
    friend std::ostream& operator<<(std::ostream& out, const NaiveLine& line) {
        return out << line.text.size() << " bytes at " << line.start << " up to " << line.next;
    }
};

inline std::vector<NaiveLine> NaiveLines(std::string_view text) {
    constexpr size_t kMost = 2048;
    std::vector<NaiveLine> lines;
    for (size_t at = 0; at < text.size();) {
        const std::string_view piece = text.substr(at, kMost);
        const size_t length = std::min(piece.find_first_of("\r\n"), piece.size());
        size_t next = at + length;
        if (length != piece.size()) {
            const char end = text[next++];
            if (next < text.size() && text[next] == (end == '\n' ? '\r' : '\n')) {
                ++next;
            }
        }
        lines.push_back({std::string(piece.substr(0, length)), at, next});
        at = next;
    }
    return lines;
}

// Lines of all lengths with all ends: `density` is the share of bytes that end a line, in 4096ths.
inline std::string RandomText(std::mt19937& random, size_t length, unsigned density) {
    std::string text(length, '\0');
    for (char& c : text) {
        const unsigned draw = random() % 4096;
        c = draw < density ? (draw % 2 == 0 ? '\n' : '\r') : static_cast<char>(random());
        // Ends come in company.
        if (&c != text.data() && (c != '\n' && c != '\r') && ((&c)[-1] == '\n' || (&c)[-1] == '\r') && draw % 2 == 0) {
            c = draw % 4 == 0 ? '\n' : '\r';
        }
    }
    return text;
}

#endif
