// The file "info.dmi": the firmware's table, cut into its structures, with an index behind them.
//
//     offset  size
//          0     1  format version, 1
//          1     8  reserved, zero
//          9     2  reserved, zero; in memory a pair of digits
//         11     9  reserved, zero
//         20     1  revision of SMBIOS, in binary-coded decimal
//         21     1  how the table was cut: 2 or 3
//         22     4  offset of the index
//         26     4  number of index records
//         30        the structures, byte for byte
//      index        8 each: type (1), instance (1), offset (4), length (2); the last structure first
//
// All numbers have their least byte first.  The file is foreign when it is read: what does not lie within it is absent.
#ifndef INSPECTORS_DMI_INFO_FILE_H
#define INSPECTORS_DMI_INFO_FILE_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "foundation/file_location.h"
#include "inspectors/dmi_device.h"

// The file's size is not one that the format can speak of.
struct RequiredValueWouldOverflow : DebuggableException {
    RequiredValueWouldOverflow() noexcept : DebuggableException("RequiredValueWouldOverflow") {}
};

// How the end of a structure is found.
enum class DmiParseMode : unsigned char {
    Strict = 2,   // every structure ends in a double zero, and all together fill the table
    ByTypes = 3,  // the types that carry no strings end with their formatted area
};

struct DmiIndexRecord {
    uint32_t type;
    uint32_t instance;  // counted from 0 for each type, modulo 256
    uint32_t offset;
    uint32_t length;

    friend bool operator==(const DmiIndexRecord&, const DmiIndexRecord&) = default;
};

// Cuts a table: the records of its structures, in their order, with offsets from the table's start.  None when the
// strict mode fails; the other keeps what comes before the first structure that has no end.
std::optional<std::vector<DmiIndexRecord>> SplitDmiTable(ConstData table, DmiParseMode mode);

// Writes the file anew, cut by the first mode that succeeds.  A file that cannot be written whole is deleted.  Throws
// FileIOError.
void WriteDmiInfo(const FileLocation& location, const DmiFirmwareTable& table);

struct DmiHeader {
    static constexpr size_t kLength = 30;
    static constexpr unsigned char kVersion = 1;

    unsigned char version = 0;
    char digits[2] = {};  // zero unless both are digits
    unsigned char revision = 0;
    unsigned char mode = 0;
    uint32_t indexOffset = 0;
    uint32_t indexCount = 0;
};

// The header and the index in memory; the structures are read when they are asked for.
class DmiInfoFile {
public:
    // The file as it is now; none where it cannot be read, is too short, has another version, or an index that does not
    // lie within it or has more records than a table can have structures.  Throws RequiredValueWouldOverflow for a file
    // of 4 GiB and more.
    static std::optional<DmiInfoFile> Read(const FileLocation& location);

    const DmiHeader& Header() const { return header_; }
    const std::vector<DmiIndexRecord>& Index() const { return index_; }

    // The first record of this pair, null for none.
    const DmiIndexRecord* Find(unsigned type, unsigned instance) const;

    // The bytes of a structure, read from the file; none for a length outside 1 to 4095, and where the file does not
    // have them.
    std::optional<std::vector<unsigned char>> Bytes(const DmiIndexRecord& record) const;

private:
    FileLocation location_;
    DmiHeader header_;
    std::vector<DmiIndexRecord> index_;
};

#endif
