// The firmware's table as it lies in the machine's memory, and the two ways of getting at it: by reading the memory
// device, and by mapping it.
#ifndef INSPECTORS_DMI_DEVICE_H
#define INSPECTORS_DMI_DEVICE_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "foundation/const_data.h"

// The device that shows the machine's memory.  What can fail answers 0 or the errno of its failure.
class MemoryDevice {
public:
    virtual ~MemoryDevice() = default;

    virtual int Open() = 0;
    virtual void Close() = 0;  // called once for each Open that succeeded
    virtual int Seek(uint64_t address) = 0;
    // Reads from where the last seek or read ended; `got` falls short of `length` only at the device's end.
    virtual int Read(unsigned char* out, size_t length, size_t& got) = 0;

    virtual size_t PageSize() = 0;
    // Maps a range that begins at a page.
    virtual int Map(uint64_t address, size_t length, const unsigned char*& at) = 0;
    virtual int Unmap(const unsigned char* at, size_t length) = 0;
};

// A file that shows the memory, read from where it is named when it is opened.
class MemoryFile final : public MemoryDevice {
public:
    // The path must outlive this.
    explicit MemoryFile(const char* path) : path_(path) {}

    int Open() override;
    void Close() override;
    int Seek(uint64_t address) override;
    int Read(unsigned char* out, size_t length, size_t& got) override;
    size_t PageSize() override;
    int Map(uint64_t address, size_t length, const unsigned char*& at) override;
    int Unmap(const unsigned char* at, size_t length) override;

private:
    const char* path_;
    int descriptor_ = -1;
};

// "/dev/mem".
MemoryDevice& SystemMemory();

// A step that did not succeed, in the words that the user is told.
struct DmiStepFailed {
    std::string detail;
};

// The entry point tells where the table lies.
struct DmiEntryPoint {
    uint32_t length;
    uint32_t address;
    unsigned char revision;  // of SMBIOS, in binary-coded decimal
};

struct DmiFirmwareTable {
    unsigned char revision;
    std::vector<unsigned char> bytes;
};

// Where the firmware keeps its entry point, at a paragraph.
inline constexpr uint64_t kDmiAreaAddress = 0xf0000;
inline constexpr size_t kDmiAreaLength = 0x10000;

// No table is longer.
inline constexpr uint32_t kDmiGreatestLength = 0x1000f;

// The first paragraph that is the older, 15 bytes long entry point, "_DMI" and a sum of 0.  The newer entry points are
// not looked for.
std::optional<DmiEntryPoint> FindDmiEntryPoint(ConstData area);

// A way to the bytes of the memory: each attempt has its own, and its own words.
class DmiAttempt {
public:
    virtual ~DmiAttempt() = default;

    // Both throw DmiStepFailed.
    DmiFirmwareTable Table();
    // The table that the entry point tells of.  A length above the greatest is refused before anything is read.
    std::vector<unsigned char> TableOf(const DmiEntryPoint& entry);

protected:
    explicit DmiAttempt(MemoryDevice& device, const char* name) : device_(device), name_(name) {}

    // Begins a detail: the attempt's name, a blank and the text, and behind them a number if there is one.
    DmiStepFailed Failed(const char* text, std::optional<uint64_t> number = std::nullopt) const;

    MemoryDevice& device_;

private:
    virtual void CopyArea(unsigned char* out) = 0;
    virtual void CopyTable(const DmiEntryPoint& entry, unsigned char* out) = 0;

    const char* name_;
};

class DmiReadAttempt final : public DmiAttempt {
public:
    explicit DmiReadAttempt(MemoryDevice& device) : DmiAttempt(device, "CreateDmiInfo") {}

private:
    void CopyArea(unsigned char* out) override;
    void CopyTable(const DmiEntryPoint& entry, unsigned char* out) override;
    void Copy(uint64_t address, size_t length, unsigned char* out, const char* seekFailed, const char* readFailed);
};

class DmiMapAttempt final : public DmiAttempt {
public:
    explicit DmiMapAttempt(MemoryDevice& device) : DmiAttempt(device, "CreateDmiInfoMMap") {}

private:
    void CopyArea(unsigned char* out) override;
    void CopyTable(const DmiEntryPoint& entry, unsigned char* out) override;
    void Copy(uint64_t address, size_t length, unsigned char* out);
};

#endif
