// A console's output with the times, which differ from run to run, written as "#".
#ifndef TESTS_CONSOLE_UNTIMED_H
#define TESTS_CONSOLE_UNTIMED_H

#include <string>

// Replaces the digits of each "T: " line that holds nothing else; other lines stay, so that a time that is no number is
// seen.  The prompt may stand before the "T".
inline std::string Untimed(const std::string& text) {
    std::string untimed;
    for (size_t begin = 0; begin < text.size();) {
        const size_t end = text.find('\n', begin);
        const std::string line = text.substr(begin, end - begin);
        const size_t time = line.compare(0, 6, "Q: T: ") == 0 ? 6 : 3;
        const bool timed = line.compare(time - 3, 3, "T: ") == 0 && line.size() > time &&
                           line.find_first_not_of("0123456789", time) == std::string::npos;
        untimed += timed ? line.substr(0, time) + "#" : line;
        if (end == std::string::npos) {
            break;
        }
        untimed += '\n';
        begin = end + 1;
    }
    return untimed;
}

#endif
