// Arbitrary bytes as a file that is read by lines, for keys and for sections.
//
// The first two bytes say in what pieces the text is read and how long a name is; the name follows, and the rest is the
// text.  However it is read, its lines are those of the rule on the whole text, no byte is lost between them, and a key
// and a section are found where a plain walk over the lines finds them.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

#include "fuzz/expect.h"
#include "inspectors/file_keys.h"
#include "inspectors/line_window.h"
#include "tests/inspectors/text_reader.h"

namespace {

bool IsEnd(char c) { return c == '\n' || c == '\r'; }

void CheckWindow(std::string_view text, size_t piece) {
    TextReader reader(text, piece);
    unsigned char buffer[kLineWindow];
    LineWindow window(reader, Buffer(buffer, buffer + sizeof buffer));
    size_t at = 0;
    while (window.Next()) {
        Expect(window.StartOffset() == at);
        const std::string_view rest = text.substr(at);
        const size_t length = std::min({rest.find_first_of("\r\n"), rest.size(), kLineWindow});
        Expect(window.Text() == rest.substr(0, length));
        size_t next = length;
        if (length < rest.size() && length < kLineWindow) {
            ++next;
            if (next < rest.size() && IsEnd(rest[next]) && rest[next] != rest[length]) {
                ++next;
            }
        }
        at += next;
        Expect(window.NextOffset() == at && next != 0);
    }
    Expect(at == text.size());
}

void CheckKeys(std::string_view text, size_t piece, std::string_view name) {
    TextReader whole(text, piece);
    RawLineReader lines(whole);
    std::optional<std::string> expected;
    size_t at = 0;
    while (lines.Next()) {
        const std::string_view line = lines.Text();
        Expect(text.substr(at, line.size()) == line && line.find_first_of("\r\n") == std::string_view::npos);
        at += line.size();
        const size_t end = lines.Offset() - at;
        Expect(end <= 2 && (end != 2 || text.substr(at, 2) == "\r\n") && (end != 1 || IsEnd(text[at])));
        at += end;
        const std::optional<std::string_view> value = ValueOfKey(line, name);
        if (value) {
            Expect(value->empty() ||
                   (line.find(*value) != std::string_view::npos && value->find(';') == std::string_view::npos));
            if (!expected) {
                expected.emplace(*value);
            }
        }
    }
    Expect(at == text.size());

    TextReader again(text, piece);
    RawLineReader sought(again);
    const std::optional<std::string_view> found = FindKey(sought, name);
    Expect(found.has_value() == expected.has_value() && (!found || *found == *expected));

    TextReader third(text, piece);
    RawLineReader headers(third);
    if (const std::optional<SectionRange> range = FindSection(headers, name)) {
        Expect(range->start <= text.size() && range->end <= text.size());
        Expect(range->end == 0 || range->end > range->start);
        TextReader inside(text.substr(range->start), piece);
        RawLineReader section(inside, range->start);
        FindKeyBefore(section, name, range->end);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 2) {
        return 0;
    }
    // Pieces of 1 to 3825 bytes, small ones in small steps.
    const size_t piece = data[0] < 128 ? size_t{1} + data[0] : size_t{1} + (data[0] - size_t{113}) * 15;
    std::string_view text(reinterpret_cast<const char*>(data) + 2, size - 2);
    const std::string_view name = text.substr(0, data[1] % 16);
    text.remove_prefix(name.size());
    CheckWindow(text, piece);
    CheckKeys(text, piece, name);
    return 0;
}
