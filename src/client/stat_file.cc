#include "client/stat_file.h"

#include <algorithm>
#include <array>
#include <limits>
#include <new>
#include <utility>

#include "foundation/file_operations.h"
#include "foundation/file_reader.h"
#include "foundation/file_stat.h"
#include "foundation/file_writer.h"
#include "foundation/little_endian.h"
#include "foundation/temporary_file.h"

namespace {

// Takes fields off the front of bytes that are known to be there.
class FieldReader {
public:
    explicit FieldReader(std::string_view bytes) : rest_(bytes) {}

    uint32_t Number32() { return static_cast<uint32_t>(Number(4)); }
    int64_t Number64() { return static_cast<int64_t>(Number(8)); }
    std::string Text() {
        const std::string_view field = Take(kStatVersionSize);
        return std::string(field.substr(0, field.find('\0')));
    }

private:
    uint64_t Number(size_t size) { return LittleEndian(Take(size)); }
    std::string_view Take(size_t size) {
        const std::string_view field = rest_.substr(0, size);
        rest_.remove_prefix(size);
        return field;
    }

    std::string_view rest_;
};

void AppendText(std::string& bytes, std::string_view text) {
    std::string field(text.substr(0, std::min(text.find('\0'), kStatVersionSize)));
    field.resize(kStatVersionSize);
    bytes += field;
}

// The fields that both forms begin with.
StatRecord ReadCommonFields(FieldReader& fields) {
    StatRecord record;
    record.firstStartTime = fields.Number64();
    record.lastStartTime = fields.Number64();
    record.lastTimeSeen = fields.Number64();
    record.totalDuration = fields.Number64();
    return record;
}

void AppendCommonFields(std::string& bytes, const StatRecord& record) {
    for (const int64_t field :
         {record.firstStartTime, record.lastStartTime, record.lastTimeSeen, record.totalDuration}) {
        AppendLittleEndian(bytes, static_cast<uint64_t>(field), 8);
    }
}

StatRecord ReadRecord(std::string_view bytes) {
    FieldReader fields(bytes);
    StatRecord record = ReadCommonFields(fields);
    record.fileSize = fields.Number64();
    record.totalRunCount = fields.Number32();
    record.version = fields.Text();
    record.stringVersion = fields.Text();
    return record;
}

// The one place that knows which sizes are good: that of the old form, and those that fit a whole number of records.
bool IsStatFileSize(uint64_t size) {
    return size == kOldStatFileSize || (size >= kStatCountSize && (size - kStatCountSize) % kStatRecordSize == 0);
}

// How many records of the current form a file of a good size holds; none where the count in its first bytes is another.
size_t RecordsOf(std::string_view count, uint64_t size) {
    const uint64_t records = (size - kStatCountSize) / kStatRecordSize;
    return FieldReader(count).Number32() == records ? records : 0;
}

// The next bytes of the file, in the room of `room`.
std::string_view NextBytes(FileReader& file, std::span<char> room) {
    auto* const begin = reinterpret_cast<unsigned char*>(room.data());
    file.Read(begin, begin + room.size());
    return {room.data(), room.size()};
}

// A record at a time, so that a size is believed no further than the count in the file bears it out.
std::vector<StatRecord> ReadRecords(const FileLocation& location) {
    std::vector<StatRecord> records;
    const FileStat look(location);
    const uint64_t size = look.IsRegular() ? static_cast<uint64_t>(look.Target().st_size) : 0;
    if (!IsStatFileSize(size)) {
        return records;
    }
    UnixPlatform::FileReadingPath path(location);
    FileReader file(path);
    std::array<char, kStatRecordSize> room;
    if (size == kOldStatFileSize) {
        return ParseStatFile(NextBytes(file, std::span(room).first<kOldStatFileSize>()));
    }
    for (size_t left = RecordsOf(NextBytes(file, std::span(room).first<kStatCountSize>()), size); left != 0; --left) {
        records.push_back(ReadRecord(NextBytes(file, room)));
    }
    return records;
}

int64_t SumOf(int64_t a, int64_t b) {
    int64_t sum;
    return __builtin_add_overflow(a, b, &sum) ? a : sum;
}

int64_t EarlierOf(int64_t a, int64_t b) { return a == 0 || b == 0 ? a + b : std::min(a, b); }

}  // namespace

std::optional<FileLocation> StatFileLocation(const FileLocation& statDir, std::string_view application) {
    const std::string name = std::string(application) + cStatFileExtension;
    try {
        FileName::Checked(name);
    } catch (const IllegalFileName&) {
        return std::nullopt;
    } catch (const IllegalFileNameLength&) {
        return std::nullopt;
    }
    // A zero byte would end the name early.
    return name.find('\0') == std::string::npos ? std::optional<FileLocation>(std::in_place, statDir, name)
                                                : std::nullopt;
}

std::vector<StatRecord> ParseStatFile(std::string_view bytes) {
    std::vector<StatRecord> records;
    if (bytes.size() == kOldStatFileSize) {
        FieldReader fields(bytes);
        StatRecord& record = records.emplace_back(ReadCommonFields(fields));
        record.totalRunCount = fields.Number64();
    } else if (IsStatFileSize(bytes.size())) {
        for (size_t n = 0, count = RecordsOf(bytes, bytes.size()); n != count; ++n) {
            records.push_back(ReadRecord(bytes.substr(kStatCountSize + n * kStatRecordSize, kStatRecordSize)));
        }
    }
    return records;
}

std::string StatFileBytes(std::span<const StatRecord> records) {
    constexpr int64_t greatest = std::numeric_limits<uint32_t>::max();
    std::string bytes;
    bytes.reserve(kStatCountSize + records.size() * kStatRecordSize);
    AppendLittleEndian(bytes, records.size(), kStatCountSize);
    for (const StatRecord& record : records) {
        AppendCommonFields(bytes, record);
        AppendLittleEndian(bytes, static_cast<uint64_t>(record.fileSize.value_or(0)), 8);
        AppendLittleEndian(bytes, static_cast<uint64_t>(std::clamp(record.totalRunCount, int64_t{0}, greatest)), 4);
        AppendText(bytes, record.version);
        AppendText(bytes, record.stringVersion);
    }
    return bytes;
}

std::string OldStatFileBytes(const StatRecord& record) {
    std::string bytes;
    AppendCommonFields(bytes, record);
    AppendLittleEndian(bytes, static_cast<uint64_t>(record.totalRunCount), 8);
    return bytes;
}

std::vector<StatRecord> ReadStatFile(const FileLocation& location) {
    try {
        return ReadRecords(location);
    } catch (const std::bad_alloc&) {
        throw;
    } catch (...) {
        return {};
    }
}

void WriteStatFile(const FileLocation& location, std::span<const StatRecord> records) {
    const std::string bytes = StatFileBytes(records);
    const FileLocation fresh = SiblingTemporary(location);
    try {
        FileDataSink sink(fresh);
        const ConstData data(bytes);
        sink.Start();
        sink.Data(data.begin, data.end);
        sink.Finish();
        ForceMoveFile(fresh, location);
    } catch (...) {
        try {
            ForceNonexistence(fresh);
        } catch (...) {
            // What went wrong first is what is told.
        }
        throw;
    }
}

void AddUse(std::vector<StatRecord>& records, const StatRecord& more) {
    const auto same = std::find_if(records.begin(), records.end(), [&more](const StatRecord& record) {
        return record.fileSize == more.fileSize && record.version == more.version &&
               record.stringVersion == more.stringVersion;
    });
    if (same == records.end()) {
        records.push_back(more);
        return;
    }
    same->firstStartTime = EarlierOf(same->firstStartTime, more.firstStartTime);
    same->lastStartTime = std::max(same->lastStartTime, more.lastStartTime);
    same->lastTimeSeen = std::max(same->lastTimeSeen, more.lastTimeSeen);
    same->totalDuration = SumOf(same->totalDuration, more.totalDuration);
    same->totalRunCount = SumOf(same->totalRunCount, more.totalRunCount);
}
