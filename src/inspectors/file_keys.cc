#include "inspectors/file_keys.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "evaluator/adapters.h"
#include "evaluator/inspector_context.h"
#include "foundation/ascii.h"
#include "foundation/file_error.h"
#include "inspectors/file.h"
#include "values/string.h"

// A line, and both bytes of its end.
constexpr size_t kRawBuffer = RawLineReader::kLongest + 2;

RawLineReader::RawLineReader(DataReader& source, uint64_t offset)
    : source_(source),
      memory_(std::make_unique_for_overwrite<unsigned char[]>(kRawBuffer)),
      buffer_(memory_.get(), memory_.get() + kRawBuffer),
      start_(memory_.get()),
      offset_(offset) {
    ends_.Restart(start_);
}

bool RawLineReader::Next() {
    for (;;) {
        const unsigned char* const end = ends_.First(start_, buffer_.write);
        const auto length = static_cast<size_t>(end - start_);
        if (length >= kLongest) {
            Take(start_ + kLongest, start_ + kLongest);
            return true;
        }
        // Whether a line feed belongs to a carriage return shows only when it has been read.
        const bool found = end != buffer_.write;
        const bool decided = found && (*end == '\n' || end + 1 != buffer_.write);
        if (!decided && Refill()) {
            continue;
        }
        // The reading may have moved the line.
        const unsigned char* const lineEnd = start_ + length;
        if (!found) {
            Take(lineEnd, lineEnd);
            return length != 0;
        }
        const bool pair = *lineEnd == '\r' && lineEnd + 1 != buffer_.write && lineEnd[1] == '\n';
        Take(lineEnd, lineEnd + (pair ? 2 : 1));
        return true;
    }
}

void RawLineReader::Take(const unsigned char* lineEnd, const unsigned char* next) {
    line_ = ConstData(start_, lineEnd).View();
    offset_ += static_cast<uint64_t>(next - start_);
    start_ = next;
}

// Moves the present line to the front of the buffer and reads on.  False at the end of the text.  There is room: what
// fills the buffer is a line with its end.
bool RawLineReader::Refill() {
    CheckForInterruption();
    const auto distance = static_cast<size_t>(start_ - buffer_.begin);
    const auto kept = static_cast<size_t>(buffer_.write - start_);
    std::memmove(buffer_.begin, start_, kept);
    buffer_.write = buffer_.begin + kept;
    start_ = buffer_.begin;
    ends_.Move(distance);
    const unsigned char* const oldEnd = buffer_.write;
    while (buffer_.write == oldEnd && source_.HasData()) {
        source_.Fill(buffer_);
    }
    ends_.Extend(oldEnd, buffer_.write);
    return buffer_.write != oldEnd;
}

namespace {

std::string_view WithoutLeadingBlanks(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of(" \t"), text.size()));
}

// What stands behind the name and blanks, where the text begins with it.
std::optional<std::string_view> BehindName(std::string_view text, std::string_view name) {
    if (text.size() < name.size() ||
        Ascii::CompareIgnoringCase(ConstData(text.substr(0, name.size())), ConstData(name)) != 0) {
        return std::nullopt;
    }
    return WithoutLeadingBlanks(text.substr(name.size()));
}

// '\0' for a byte that opens nothing.
char CloserOf(char opener) {
    switch (opener) {
        case '[':
            return ']';
        case '{':
            return '}';
        case '<':
            return '>';
        case '(':
            return ')';
        default:
            return '\0';
    }
}

}  // namespace

std::optional<std::string_view> ValueOfKey(std::string_view line, std::string_view name) {
    const std::optional<std::string_view> rest = BehindName(WithoutLeadingBlanks(line), name);
    if (!rest || rest->empty() || (rest->front() != '=' && rest->front() != ':')) {
        return std::nullopt;
    }
    std::string_view value = WithoutLeadingBlanks(rest->substr(1));
    value = value.substr(0, value.find(';'));
    return value.substr(0, value.find_last_not_of(" \t\r\n") + 1);
}

std::optional<char> OpenerOfSection(std::string_view line, std::string_view name) {
    const std::string_view header = WithoutLeadingBlanks(line);
    if (header.empty() || CloserOf(header.front()) == '\0') {
        return std::nullopt;
    }
    const char opener = header.front();
    const std::optional<std::string_view> rest = BehindName(WithoutLeadingBlanks(header.substr(1)), name);
    if (!rest || rest->empty() || rest->front() != CloserOf(opener)) {
        return std::nullopt;
    }
    return opener;
}

bool IsHeaderOfStyle(std::string_view line, char opener) {
    const std::string_view header = WithoutLeadingBlanks(line);
    return !header.empty() && header.front() == opener && header.find(CloserOf(opener)) != std::string_view::npos;
}

std::optional<SectionRange> FindSection(RawLineReader& lines, std::string_view name) {
    std::optional<char> opener;
    while (!opener) {
        if (!lines.Next()) {
            return std::nullopt;
        }
        opener = OpenerOfSection(lines.Text(), name);
    }
    SectionRange range;
    range.start = lines.Offset();
    while (lines.Next() && !IsHeaderOfStyle(lines.Text(), *opener)) {
    }
    range.end = lines.Offset() > range.start ? lines.Offset() : 0;
    return range;
}

std::optional<std::string_view> FindKey(RawLineReader& lines, std::string_view name) {
    return FindKeyBefore(lines, name, 0);
}

std::optional<std::string_view> FindKeyBefore(RawLineReader& lines, std::string_view name, uint64_t end) {
    while ((end == 0 || lines.Offset() < end) && lines.Next()) {
        if (const std::optional<std::string_view> value = ValueOfKey(lines.Text(), name)) {
            return value;
        }
    }
    return std::nullopt;
}

namespace {

// A file that is read from beginning to end, for as long as the system gives anything.  All that fails is a FileIOError
// of the plain kind.
class KeyFile final : public DataReader {
public:
    explicit KeyFile(const FileLocation& location)
        : location_(location), descriptor_(open64(location.CString(), O_RDONLY | O_CLOEXEC)) {
        if (descriptor_ < 0) {
            Fail();
        }
    }
    KeyFile(const KeyFile&) = delete;
    KeyFile& operator=(const KeyFile&) = delete;
    ~KeyFile() override { close(descriptor_); }

    void Seek(uint64_t offset) const {
        if (lseek64(descriptor_, static_cast<off64_t>(offset), SEEK_SET) < 0) {
            Fail();
        }
    }

    bool AtEnd() override { return ended_; }
    void Fill(Buffer& out) override {
        ssize_t count;
        do {
            count = read(descriptor_, out.write, out.Room());
        } while (count < 0 && errno == EINTR);
        if (count < 0) {
            Fail();
        }
        out.write += count;
        ended_ = count == 0;
    }

private:
    [[noreturn]] void Fail() const { throw FileIOError(errno, location_.Text()); }

    const FileLocation& location_;
    int descriptor_;
    bool ended_ = false;
};

// A read there would take the message away from the kernel's log.
bool IsKernelLog(const FileLocation& location) { return location.Text() == "/proc/kmsg"; }

std::optional<inspector_string> Kept(const std::optional<std::string_view>& value) {
    return value ? std::optional<inspector_string>(CopiedString(*value)) : std::nullopt;
}

std::optional<inspector_string> KeyOfFile(const inspector_string& name, const file& f) {
    if (IsKernelLog(f.Location())) {
        return std::nullopt;
    }
    KeyFile source(f.Location());
    RawLineReader lines(source);
    return Kept(FindKey(lines, name.View()));
}

std::optional<file_section> SectionOfFile(const inspector_string& name, const file& f) {
    if (IsKernelLog(f.Location())) {
        return std::nullopt;
    }
    KeyFile source(f.Location());
    RawLineReader lines(source);
    const std::optional<SectionRange> range = FindSection(lines, name.View());
    return range ? std::optional<file_section>(std::in_place, f.Location(), *range) : std::nullopt;
}

std::optional<inspector_string> KeyOfSection(const inspector_string& name, const file_section& section) {
    struct stat64 record;
    if (stat64(section.Location().CString(), &record) != 0) {
        throw FileIOError(errno, section.Location().Text());
    }
    if (record.st_size == 0) {
        return std::nullopt;
    }
    KeyFile source(section.Location());
    source.Seek(section.StartOffset());
    RawLineReader lines(source, section.StartOffset());
    return Kept(FindKeyBefore(lines, name.View(), section.EndOffset()));
}

// clang-format off
Type<file_section>                                                  type;

NamedProperty<file, inspector_string, KeyOfFile>                    keyOfFile       {"key", "keys", ByValueOnly};
NamedProperty<file, file_section, SectionOfFile>                    section         {"section", "sections", ByValueOnly};
NamedProperty<file_section, inspector_string, KeyOfSection>         keyOfSection    {"key", "keys", ByValueOnly};
// clang-format on

}  // namespace
