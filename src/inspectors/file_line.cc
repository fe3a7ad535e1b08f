#include "inspectors/file_line.h"

#include <algorithm>
#include <utility>

#include "evaluator/adapters.h"
#include "foundation/file_reader.h"
#include "inspectors/line_iterator.h"
#include "values/integer.h"
#include "values/string.h"

OpenFile OpenForLines(const file& f) { return std::make_shared<UnixPlatform::FileReadingPath>(f.Location()); }

file_line::file_line(const LineWindow& window, uint64_t number, OpenFile open, bool byNumber)
    : file_line(window.Text(), number, window.StartOffset(), window.NextOffset(), std::move(open)) {
    byNumber_ = byNumber;
}

file_line::file_line(std::string_view text, uint64_t number, uint64_t startOffset, uint64_t nextOffset, OpenFile open)
    : inspector_string(CopiedString(text)),
      number_(number),
      start_(startOffset),
      next_(nextOffset),
      open_(std::move(open)),
      byNumber_(false) {}

std::optional<file_line> NumberedLine(uint64_t number, const file& f) {
    if (number == 0) {
        return std::nullopt;
    }
    OpenFile open = OpenForLines(f);
    FileReader reader(*open);
    unsigned char buffer[kLineWindow];
    LineWindow window(reader, Buffer(buffer, buffer + sizeof buffer));
    for (uint64_t i = 0; i < number; ++i) {
        if (!window.Next()) {
            return std::nullopt;
        }
    }
    return std::optional<file_line>(std::in_place, window, number - 1, std::move(open), true);
}

std::optional<file_line> NextLine(const file_line& line) {
    FileReader reader(*line.Open(), line.NextOffset());
    unsigned char buffer[kLineWindow];
    LineWindow window(reader, Buffer(buffer, buffer + sizeof buffer), line.NextOffset());
    if (!window.Next()) {
        return std::nullopt;
    }
    return std::optional<file_line>(std::in_place, window, line.Number() + 1, line.Open());
}

namespace {

// What a reader gives, up to a position.
class ReaderUpTo final : public DataReader {
public:
    ReaderUpTo(FileReader& reader, uint64_t end) : reader_(reader), end_(end) {}

    bool HasData() override { return reader_.Position() < end_ && reader_.HasData(); }
    bool AtEnd() override { return !HasData(); }
    void Fill(Buffer& out) override {
        Buffer part = out;
        part.end = part.write + std::min<uint64_t>(part.Room(), end_ - reader_.Position());
        reader_.Fill(part);
        out.write = part.write;
    }

private:
    FileReader& reader_;
    uint64_t end_;
};

}  // namespace

// The reading ends where the line begins, so that its first byte cannot pass for a part of the end of the line before.
std::optional<file_line> PreviousLine(const file_line& line) {
    if (line.Number() == 0) {
        return std::nullopt;
    }
    const uint64_t end = line.StartOffset();
    const uint64_t from = end - std::min<uint64_t>(end, kLineWindow);
    FileReader reader(*line.Open(), from);
    ReaderUpTo before(reader, end);
    unsigned char buffer[kLineWindow];
    LineWindow window(before, Buffer(buffer, buffer + sizeof buffer), from);
    while (window.Next()) {
        if (window.NextOffset() == end) {
            return std::optional<file_line>(std::in_place, window, line.Number() - 1, line.Open());
        }
    }
    return std::nullopt;
}

namespace {

std::optional<file_line> LineOfFile(const integer& n, const file& f) {
    return NumberedLine(static_cast<uint64_t>(n.Value()), f);
}

integer LineNumber(const file_line& line) { return static_cast<int64_t>(line.Number() + 1); }

using every = line_iterator;

// clang-format off
Type<file_line>                                                     type;

NumberedProperty<file, file_line, LineOfFile>                       numbered        {"line", "lines", ByValueOnly};
IteratedPropertyOfObject<every, file_line, file, &every::Next, &every::Next, &every::Start>
                                                                    lines           {"line", "lines", ByValueOnly};
IteratedPropertyByIndexOfObject<every, file_line, inspector_string, file, &every::NextStartingWith,
                                &every::NextStartingWith, &every::StartMatching>
                                                                    startingWith    {"line starting with", "lines starting with", ByValueOnly};
IteratedPropertyByIndexOfObject<every, file_line, inspector_string, file, &every::NextContaining,
                                &every::NextContaining, &every::StartMatching>
                                                                    containing      {"line containing", "lines containing", ByValueOnly};
Property<file_line, integer, LineNumber>                            lineNumber      {"line number", "line numbers"};
Property<file_line, file_line, PreviousLine>                        previous        {"previous line", "previous lines", ByValueOnly};
Property<file_line, file_line, NextLine>                            next            {"next line", "next lines", ByValueOnly};
// clang-format on

}  // namespace
