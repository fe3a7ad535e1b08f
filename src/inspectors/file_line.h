// A line of a file: a string that knows where it was read and from there finds the lines beside it.
#ifndef INSPECTORS_FILE_LINE_H
#define INSPECTORS_FILE_LINE_H

#include <cstdint>
#include <memory>
#include <optional>

#include "foundation/file_reading_path.h"
#include "inspectors/file.h"
#include "inspectors/line_window.h"
#include "registry/inspector_type_info.h"

// Shared by all the lines that were read through it; closed with the last of them.
using OpenFile = std::shared_ptr<UnixPlatform::FileReadingPath>;

// Open for reading.  Throws what FileReadingPath::Open throws.
OpenFile OpenForLines(const file& f);

// Passes wherever a string does.  The text is a copy in evaluation memory.
class file_line : public inspector_string {
public:
    // The line that a window is on, with its number counted from 0.  Throws NoInspectorAllocator, std::bad_alloc.
    file_line(const LineWindow& window, uint64_t number, OpenFile open, bool byNumber = false);
    file_line(std::string_view text, uint64_t number, uint64_t startOffset, uint64_t nextOffset, OpenFile open);

    uint64_t Number() const { return number_; }
    uint64_t StartOffset() const { return start_; }
    uint64_t EndOffset() const { return start_ + length; }
    // Behind the line's end: where the next line begins.
    uint64_t NextOffset() const { return next_; }
    const OpenFile& Open() const { return open_; }
    // It was asked for by its number.
    bool ByNumber() const { return byNumber_; }

private:
    uint64_t number_;
    uint64_t start_;
    uint64_t next_;
    OpenFile open_;
    bool byNumber_;
};

// What can be asked of a line beside its text counts as a part of it.
template <>
struct InspectorTypeInfo<file_line> : InspectorTypeBasics<file_line> {
    static constexpr char Name[] = "file line";
    static constexpr const char* Parent = InspectorTypeInfo<inspector_string>::Name;
    static constexpr unsigned Size = sizeof(file_line);

    static void Fingerprint(Fingerprinter& fingerprinter, const void* value) {
        const auto& line = *static_cast<const file_line*>(value);
        const uint64_t place[] = {line.Number(), line.StartOffset()};
        fingerprinter.AddData(line.Data());
        fingerprinter.AddData(ConstData(place, sizeof place));
        fingerprinter.AddData(ConstData(line.Open()->Location().Text()));
    }
};

// The line with a number counted from 1, found by reading all that stand before it.  Throws what reading throws.
std::optional<file_line> NumberedLine(uint64_t number, const file& f);

// The line before or behind another one in the same open file, as the file is now.
//
// What stands before a line is looked for in the last window before it: of a longer line, its last piece is found.
std::optional<file_line> PreviousLine(const file_line& line);
std::optional<file_line> NextLine(const file_line& line);

#endif
