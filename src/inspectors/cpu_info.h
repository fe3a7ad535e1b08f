// What /proc/cpuinfo says, and what follows from it: the processors, their packages, and the name of a family.
//
// The parsers take the text of the file, whatever it is; the machine's own text is read by ReadCpuInfo.
#ifndef INSPECTORS_CPU_INFO_H
#define INSPECTORS_CPU_INFO_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// One record.  A field that the text does not have is absent.
struct CpuRecord {
    std::optional<int64_t> index;
    std::optional<double> mhz;
    std::optional<double> bogomips;
    std::optional<int64_t> family;
    std::optional<int64_t> model;
    std::optional<int64_t> stepping;
    std::optional<int64_t> cpuidLevel;
    std::optional<bool> fdivBug;
    std::optional<bool> hltBug;
    std::optional<bool> sepBug;
    std::optional<bool> f00fBug;
    std::optional<bool> comaBug;
    std::optional<bool> fpu;
    std::optional<bool> fpuException;
    std::optional<bool> wp;
    std::optional<std::string> vendorId;
    std::optional<std::string> modelName;
    std::optional<std::string> flagList;
    std::optional<int64_t> physicalId;
    std::optional<int64_t> siblings;
    std::optional<int64_t> cpuCores;
};

// Takes the text line by line, a line in pieces of at most 255 bytes.  A line "processor" begins the next record; what
// stands before the first belongs to none.
class CpuInfoParser {
public:
    static constexpr size_t kPiece = 255;

    // One piece, with its line feed where it has one.  Kept as it stands: the rest of a longer line is looked at like
    // a line of its own.
    void Line(std::string_view piece);

    const std::vector<CpuRecord>& Records() const { return records_; }

private:
    std::vector<CpuRecord> records_;
};

// The same for a text that lies in memory.
std::vector<CpuRecord> ParseCpuInfo(std::string_view text);

// This machine's.  Throws FileIOError with the path and no error number where the file cannot be opened.
std::vector<CpuRecord> ReadCpuInfo(const char* path = "/proc/cpuinfo");

// The clock in hertz and the bogomips, rounded to the nearest integer; none without the field, and for what no integer
// holds.
std::optional<int64_t> Hertz(const CpuRecord& record);
std::optional<int64_t> Bogomips(const CpuRecord& record);

// The model name without the marks of its maker: each first "(R)", "(TM)", "(r)", "(tm)", and the vendor's own words.
std::string ShortenedModelName(std::string_view vendorId, std::string_view modelName);

// The generation by family and model number, the variant by a word of the name; "Unknown" for all that is not known.
std::string_view FamilyName(const CpuRecord& record);

struct CpuPackages {
    int64_t packages = 0;
    std::optional<int64_t> cores = 0;    // absent where the sum doesn't fit
    std::optional<int64_t> threads = 0;  // likewise
    bool smtCapable = false;
    bool smtEnabled = false;
};

// Records with the same physical id are one package, whose first record speaks for it.  A record without one is a
// package of its own; where it does not tell its cores and threads it has one of each.
CpuPackages CountPackages(const std::vector<CpuRecord>& records);

#endif
