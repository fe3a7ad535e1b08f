// The files in which an application's use is kept, one to an application: "<name>.stat".
//
// A file has one of two forms, told by its size alone; all numbers are little-endian.  The current form is a 32-bit
// count n and n records of 76 bytes, a record to each version of the program's file:
//
//     0   first start time     64 bits, microseconds since the start of 1970; 0 stands for never
//     8   last start time      the same
//     16  last time seen       the same
//     24  total duration       64 bits, microseconds
//     32  file size            64 bits
//     40  total run count      32 bits
//     44  version              16 bytes, text up to its first zero byte
//     60  string version       the same
//
// The old form is 40 bytes: the first four fields and a total run count of 64 bits.  A file of any other size holds
// nothing.
#ifndef CLIENT_STAT_FILE_H
#define CLIENT_STAT_FILE_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/file_location.h"

// The use of one version of an application's file.
struct StatRecord {
    int64_t firstStartTime = 0;
    int64_t lastStartTime = 0;
    int64_t lastTimeSeen = 0;
    int64_t totalDuration = 0;
    int64_t totalRunCount = 0;
    std::optional<int64_t> fileSize;  // none in the old form
    std::string version;
    std::string stringVersion;

    friend bool operator==(const StatRecord&, const StatRecord&) = default;
};

inline constexpr size_t kOldStatFileSize = 40;
inline constexpr size_t kStatCountSize = 4;
inline constexpr size_t kStatRecordSize = 76;
inline constexpr size_t kStatVersionSize = 16;

inline constexpr char cStatFileExtension[] = ".stat";

// The place of an application's file; none for a name that no file can have.
std::optional<FileLocation> StatFileLocation(const FileLocation& statDir, std::string_view application);

// The records of a file's bytes; none of bytes of a bad size.
std::vector<StatRecord> ParseStatFile(std::string_view bytes);

// The bytes of a file of the current form.  A version that is too long for its field is cut, and a run count that is
// too great for its field is the greatest that fits.
std::string StatFileBytes(std::span<const StatRecord> records);

// The bytes of a file of the old form, which has no room for the size and the versions.
std::string OldStatFileBytes(const StatRecord& record);

// The records of a regular file; none where it cannot be read.  Throws std::bad_alloc.
std::vector<StatRecord> ReadStatFile(const FileLocation& location);

// Puts a file of the current form at the place, whole or not at all.  Throws the exceptions of the file layer.
void WriteStatFile(const FileLocation& location, std::span<const StatRecord> records);

// Adds the use that `more` tells to the record of the same file size and versions, which is made where there is none.
// What would not fit into 64 bits stays as it was.
void AddUse(std::vector<StatRecord>& records, const StatRecord& more);

#endif
