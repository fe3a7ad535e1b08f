#include "inspectors/dmi_info_file.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <limits>
#include <memory>

#include "foundation/file_error.h"
#include "foundation/file_operations.h"
#include "foundation/file_reader.h"
#include "foundation/little_endian.h"
#include "inspectors/dmi_structure.h"

namespace {

static_assert(sizeof(DmiIndexRecord) == 16);

constexpr size_t kRecordLength = 8;
constexpr uint32_t kGreatestStructure = 4095;
// Of a table of the greatest length, none shorter than its header.
constexpr uint32_t kMostRecords = kDmiGreatestLength / DmiStructure::kHeaderLength;

struct DmiTypeStrings {
    unsigned char type;
    bool hasStrings;
};

// Which types carry strings; one that is not here counts as having them.
// clang-format off
constexpr DmiTypeStrings dmiTypes[] = {
    {0,   true},  {1,   true},  {2,   true},  {3,   true},  {4,   true},  {5,   false}, {6,   true},  {7,   true},
    {8,   true},  {9,   true},  {10,  true},  {11,  true},  {12,  true},  {13,  true},  {14,  true},  {15,  false},
    {16,  false}, {17,  true},  {18,  false}, {19,  false}, {20,  false}, {21,  false}, {22,  true},  {23,  false},
    {24,  false}, {25,  false}, {26,  true},  {27,  false}, {28,  true},  {29,  true},  {30,  true},  {31,  true},
    {32,  false}, {33,  false}, {34,  true},  {35,  true},  {36,  false}, {37,  false}, {38,  false}, {39,  true},
    {40,  false}, {41,  true},  {126, false}, {127, false},
};
// clang-format on
static_assert(std::size(dmiTypes) == 44);

bool HasStrings(unsigned char type) {
    const auto* row = std::find_if(std::begin(dmiTypes), std::end(dmiTypes),
                                   [type](const DmiTypeStrings& each) { return each.type == type; });
    return row == std::end(dmiTypes) || row->hasStrings;
}

// ---- Cutting --------------------------------------------------------------------------------------------------------

// The bytes of the structure that `rest` begins with, 0 where it has no end.
size_t StructureSize(ConstData rest, DmiParseMode mode) {
    if (!DmiStructure::IsWhole(rest)) {
        return 0;
    }
    const size_t formatted = rest.begin[1];
    const std::string_view behind = rest.View().substr(formatted);
    if (mode == DmiParseMode::ByTypes && !HasStrings(rest.begin[0])) {
        return behind.starts_with(std::string_view("\0\0", 2)) ? formatted + 2 : formatted;
    }
    const size_t end = behind.find(std::string_view("\0\0", 2));
    return end == std::string_view::npos ? 0 : formatted + end + 2;
}

// ---- Writing --------------------------------------------------------------------------------------------------------

std::vector<unsigned char> HeaderBytes(const DmiHeader& header) {
    std::vector<unsigned char> out;
    AppendLittleEndian(out, header.version, 1);
    out.resize(20);
    AppendLittleEndian(out, header.revision, 1);
    AppendLittleEndian(out, header.mode, 1);
    AppendLittleEndian(out, header.indexOffset, 4);
    AppendLittleEndian(out, header.indexCount, 4);
    return out;
}

std::vector<unsigned char> IndexBytes(const std::vector<DmiIndexRecord>& records) {
    std::vector<unsigned char> out;
    for (auto record = records.rbegin(); record != records.rend(); ++record) {
        AppendLittleEndian(out, record->type, 1);
        AppendLittleEndian(out, record->instance, 1);
        AppendLittleEndian(out, DmiHeader::kLength + record->offset, 4);
        AppendLittleEndian(out, record->length, 2);
    }
    return out;
}

// A file that is being made; unless it is finished, none is left.
class NewFile {
public:
    explicit NewFile(const FileLocation& location)
        : location_(location), file_(fopen64(location.CString(), "wb"), std::fclose) {
        Check(file_ != nullptr);
    }
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;
    ~NewFile() {
        if (!finished_) {
            file_.reset();
            Delete();
        }
    }

    void Write(ConstData bytes) {
        Check(bytes.Empty() || std::fwrite(bytes.begin, 1, bytes.Length(), file_.get()) == bytes.Length());
    }
    void Rewind() { Check(std::fseek(file_.get(), 0, SEEK_SET) == 0); }
    void Finish() {
        Check(std::fclose(file_.release()) == 0);
        finished_ = true;
    }

private:
    void Check(bool succeeded) {
        if (!succeeded) {
            const int error = errno;
            if (file_ == nullptr) {
                Delete();
            }
            throw FileIOError(error, location_.Text());
        }
    }
    // What made the file fail is the failure to report.
    void Delete() noexcept {
        try {
            ForceNonexistence(location_);
        } catch (...) {
        }
    }

    const FileLocation& location_;
    std::unique_ptr<FILE, int (*)(FILE*)> file_;
    bool finished_ = false;
};

// ---- Reading --------------------------------------------------------------------------------------------------------

uint32_t Get(const unsigned char* bytes, size_t width) {
    return static_cast<uint32_t>(LittleEndian(ConstData(bytes, width).View()));
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

DmiHeader HeaderOf(const unsigned char* bytes) {
    DmiHeader header;
    header.version = bytes[0];
    if (IsDigit(static_cast<char>(bytes[9])) && IsDigit(static_cast<char>(bytes[10]))) {
        header.digits[0] = static_cast<char>(bytes[9]);
        header.digits[1] = static_cast<char>(bytes[10]);
    }
    header.revision = bytes[20];
    header.mode = bytes[21];
    header.indexOffset = Get(bytes + 22, 4);
    header.indexCount = Get(bytes + 26, 4);
    return header;
}

}  // namespace

std::optional<std::vector<DmiIndexRecord>> SplitDmiTable(ConstData table, DmiParseMode mode) {
    std::vector<DmiIndexRecord> records;
    unsigned char instances[256] = {};
    const unsigned char* at = table.begin;
    while (at != table.end) {
        const size_t size = StructureSize({at, table.end}, mode);
        if (size == 0) {
            break;
        }
        // Counted in a byte, as it is written.
        const unsigned char type = at[0];
        records.push_back(
            {type, instances[type]++, static_cast<uint32_t>(at - table.begin), static_cast<uint32_t>(size)});
        at += size;
    }
    if (mode == DmiParseMode::Strict && at != table.end) {
        return std::nullopt;
    }
    return records;
}

void WriteDmiInfo(const FileLocation& location, const DmiFirmwareTable& table) {
    const ConstData bytes(table.bytes.data(), table.bytes.size());
    DmiHeader header;
    header.version = DmiHeader::kVersion;
    header.revision = table.revision;
    header.mode = static_cast<unsigned char>(DmiParseMode::Strict);
    std::optional<std::vector<DmiIndexRecord>> records = SplitDmiTable(bytes, DmiParseMode::Strict);
    if (!records) {
        header.mode = static_cast<unsigned char>(DmiParseMode::ByTypes);
        records = SplitDmiTable(bytes, DmiParseMode::ByTypes);
    }
    const size_t length = records->empty() ? 0 : records->back().offset + records->back().length;

    // The header is written last in its whole: a file that was broken off has no index.
    NewFile file(location);
    const auto write = [&file](const std::vector<unsigned char>& part) { file.Write({part.data(), part.size()}); };
    write(HeaderBytes(header));
    file.Write({bytes.begin, length});
    write(IndexBytes(*records));
    header.indexOffset = static_cast<uint32_t>(DmiHeader::kLength + length);
    header.indexCount = static_cast<uint32_t>(records->size());
    file.Rewind();
    write(HeaderBytes(header));
    file.Finish();
}

std::optional<DmiInfoFile> DmiInfoFile::Read(const FileLocation& location) {
    try {
        UnixPlatform::FileReadingPath path(location);
        const int64_t size = path.Length();
        if (size > std::numeric_limits<uint32_t>::max()) {
            throw RequiredValueWouldOverflow();
        }
        if (size < static_cast<int64_t>(DmiHeader::kLength)) {
            return std::nullopt;
        }
        unsigned char bytes[DmiHeader::kLength];
        FileReader(path).Read(bytes, bytes + sizeof bytes);
        DmiInfoFile file;
        file.location_ = location;
        file.header_ = HeaderOf(bytes);
        const DmiHeader& header = file.header_;
        if (header.version != DmiHeader::kVersion || header.indexCount > kMostRecords ||
            header.indexOffset + uint64_t{header.indexCount} * kRecordLength > static_cast<uint64_t>(size)) {
            return std::nullopt;
        }
        std::vector<unsigned char> index(header.indexCount * kRecordLength);
        FileReader(path, header.indexOffset).Read(index.data(), index.data() + index.size());
        file.index_.reserve(header.indexCount);
        for (size_t at = 0; at != index.size(); at += kRecordLength) {
            const unsigned char* record = index.data() + at;
            file.index_.push_back({record[0], record[1], Get(record + 2, 4), Get(record + 6, 2)});
        }
        return file;
    } catch (const FileIOError&) {
        return std::nullopt;
    }
}

const DmiIndexRecord* DmiInfoFile::Find(unsigned type, unsigned instance) const {
    const auto record = std::find_if(index_.begin(), index_.end(), [&](const DmiIndexRecord& each) {
        return each.type == type && each.instance == instance;
    });
    return record == index_.end() ? nullptr : &*record;
}

std::optional<std::vector<unsigned char>> DmiInfoFile::Bytes(const DmiIndexRecord& record) const {
    if (record.length == 0 || record.length > kGreatestStructure) {
        return std::nullopt;
    }
    try {
        UnixPlatform::FileReadingPath path(location_);
        std::vector<unsigned char> bytes(record.length);
        FileReader(path, record.offset).Read(bytes.data(), bytes.data() + bytes.size());
        return bytes;
    } catch (const FileIOError&) {
        return std::nullopt;
    }
}
