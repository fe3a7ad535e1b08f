// Keys and sections of a file that is laid out like a configuration: what its lines say, and the file itself.
//
//     [section]
//     key = value ; comment
//
// The lines are raw ones: they end at a line feed, a carriage return or both in the order CR LF, where the lines of the
// language take both orders.
#ifndef INSPECTORS_FILE_KEYS_H
#define INSPECTORS_FILE_KEYS_H

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

#include "foundation/data_reader.h"
#include "foundation/file_location.h"
#include "inspectors/line_end_search.h"
#include "registry/inspector_type_info.h"

// Reads the raw lines of a text.  A line of more than kLongest bytes comes as several.
class RawLineReader {
public:
    static constexpr size_t kLongest = 65535;

    // `offset` is where in the text the source, which must outlive this, stands.  Throws std::bad_alloc.
    explicit RawLineReader(DataReader& source, uint64_t offset = 0);
    RawLineReader(const RawLineReader&) = delete;
    RawLineReader& operator=(const RawLineReader&) = delete;

    // Moves to the next line.  False when there are no more.  Throws what the source throws, and what an interruption
    // of the evaluation throws.
    bool Next();

    // The present line without its end, until Next.
    std::string_view Text() const { return line_; }
    // How much of the text has been read: up to behind the present line's end.
    uint64_t Offset() const { return offset_; }

private:
    bool Refill();
    void Take(const unsigned char* lineEnd, const unsigned char* next);

    DataReader& source_;
    std::unique_ptr<unsigned char[]> memory_;
    Buffer buffer_;
    LineEndSearch ends_;
    const unsigned char* start_;
    std::string_view line_;
    uint64_t offset_;
};

// The value that a line gives to a key, whose name is compared without regard to ASCII case; none where the line is
// about something else.  What stands behind ";" is a comment.
std::optional<std::string_view> ValueOfKey(std::string_view line, std::string_view name);

// The byte that opens the line, where the line is the header of the section of that name: one of "[", "{", "<", "(".
std::optional<char> OpenerOfSection(std::string_view line, std::string_view name);

// Whether a line ends a section whose header began with `opener`: it begins with that too and is closed anywhere.
bool IsHeaderOfStyle(std::string_view line, char opener);

// Where a section's lines stand.  No end is the end of the file.
struct SectionRange {
    uint64_t start = 0;
    uint64_t end = 0;
};
std::optional<SectionRange> FindSection(RawLineReader& lines, std::string_view name);

// The value of the first line that gives one to the key, good until the reader moves on.
std::optional<std::string_view> FindKey(RawLineReader& lines, std::string_view name);

// The same where the file has gone behind `end`, if that is not 0, no more lines are read.
std::optional<std::string_view> FindKeyBefore(RawLineReader& lines, std::string_view name, uint64_t end);

class file_section {
public:
    file_section(const FileLocation& location, const SectionRange& range) : location_(location), range_(range) {}

    const FileLocation& Location() const { return location_; }
    // Of the first line behind the header.
    uint64_t StartOffset() const { return range_.start; }
    // Behind the header that ends it; 0 where it goes on to the end of the file.
    uint64_t EndOffset() const { return range_.end; }

private:
    FileLocation location_;
    SectionRange range_;
};

template <>
struct InspectorTypeInfo<file_section> : InspectorTypeBasics<file_section> {
    static constexpr char Name[] = "file section";
    static constexpr unsigned Size = sizeof(file_section);

    static void Fingerprint(Fingerprinter& fingerprinter, const void* value) {
        const auto& section = *static_cast<const file_section*>(value);
        const uint64_t range[] = {section.StartOffset(), section.EndOffset()};
        fingerprinter.AddData(ConstData(section.Location().Text()));
        fingerprinter.AddData(ConstData(range, sizeof range));
    }
};

#endif
