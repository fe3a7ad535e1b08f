#include "inspectors/dmi_device.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <numeric>
#include <string_view>

#include "foundation/little_endian.h"

namespace {

class OpenDevice {
public:
    explicit OpenDevice(MemoryDevice& device) : device_(device) {}
    OpenDevice(const OpenDevice&) = delete;
    OpenDevice& operator=(const OpenDevice&) = delete;
    ~OpenDevice() { device_.Close(); }

private:
    MemoryDevice& device_;
};

constexpr size_t kParagraph = 16;
constexpr size_t kEntryPointLength = 15;

bool IsEntryPoint(const unsigned char* paragraph) {
    return std::memcmp(paragraph, "_DMI", 4) == 0 &&
           std::accumulate(paragraph, paragraph + kEntryPointLength, 0U) % 256 == 0;
}

}  // namespace

// ---- The device -----------------------------------------------------------------------------------------------------

int MemoryFile::Open() {
    descriptor_ = open64(path_, O_RDONLY | O_CLOEXEC);
    return descriptor_ < 0 ? errno : 0;
}

void MemoryFile::Close() {
    close(descriptor_);
    descriptor_ = -1;
}

int MemoryFile::Seek(uint64_t address) {
    return lseek64(descriptor_, static_cast<off64_t>(address), SEEK_SET) < 0 ? errno : 0;
}

int MemoryFile::Read(unsigned char* out, size_t length, size_t& got) {
    got = 0;
    while (got < length) {
        const ssize_t count = read(descriptor_, out + got, length - got);
        if (count == 0) {
            return 0;
        }
        if (count > 0) {
            got += static_cast<size_t>(count);
        } else if (errno != EINTR) {
            return errno;
        }
    }
    return 0;
}

size_t MemoryFile::PageSize() { return static_cast<size_t>(sysconf(_SC_PAGESIZE)); }

int MemoryFile::Map(uint64_t address, size_t length, const unsigned char*& at) {
    void* memory = mmap64(nullptr, length, PROT_READ, MAP_SHARED, descriptor_, static_cast<off64_t>(address));
    if (memory == MAP_FAILED) {
        return errno;
    }
    at = static_cast<const unsigned char*>(memory);
    return 0;
}

int MemoryFile::Unmap(const unsigned char* at, size_t length) {
    return munmap(const_cast<unsigned char*>(at), length) != 0 ? errno : 0;
}

MemoryDevice& SystemMemory() {
    static MemoryFile device("/dev/mem");
    return device;
}

// ---- The entry point ------------------------------------------------------------------------------------------------

std::optional<DmiEntryPoint> FindDmiEntryPoint(ConstData area) {
    for (size_t at = 0; at + kParagraph <= area.Length(); at += kParagraph) {
        const std::string_view paragraph = area.View().substr(at, kParagraph);
        if (IsEntryPoint(area.begin + at)) {
            return DmiEntryPoint{static_cast<uint32_t>(LittleEndian(paragraph.substr(6, 2))),
                                 static_cast<uint32_t>(LittleEndian(paragraph.substr(8, 4))), area.begin[at + 14]};
        }
    }
    return std::nullopt;
}

// ---- Attempts -------------------------------------------------------------------------------------------------------

DmiStepFailed DmiAttempt::Failed(const char* text, std::optional<uint64_t> number) const {
    std::string detail = std::string(name_) + " " + text;
    if (number) {
        detail += " (" + std::to_string(*number) + ")";
    }
    return {detail};
}

DmiFirmwareTable DmiAttempt::Table() {
    if (const int error = device_.Open(); error != 0) {
        throw Failed("cannot open /dev/mem", error);
    }
    const OpenDevice open(device_);
    alignas(16) unsigned char area[kDmiAreaLength];
    CopyArea(area);
    const std::optional<DmiEntryPoint> entry = FindDmiEntryPoint({area, sizeof area});
    if (!entry) {
        throw DmiStepFailed{"dmi info not found"};
    }
    return {entry->revision, TableOf(*entry)};
}

std::vector<unsigned char> DmiAttempt::TableOf(const DmiEntryPoint& entry) {
    if (entry.length > kDmiGreatestLength) {
        throw Failed("dmi structure table is too long", entry.length);
    }
    std::vector<unsigned char> table(entry.length);
    if (!table.empty()) {
        CopyTable(entry, table.data());
    }
    return table;
}

// ---- Reading --------------------------------------------------------------------------------------------------------

void DmiReadAttempt::CopyArea(unsigned char* out) {
    Copy(kDmiAreaAddress, kDmiAreaLength, out, "seek to 0xf0000 failed", "read at 0xf0000 failed");
}

void DmiReadAttempt::CopyTable(const DmiEntryPoint& entry, unsigned char* out) {
    Copy(entry.address, entry.length, out, "seek to table data failed", "read of table data failed");
}

// A read that falls short has no errno to tell.
void DmiReadAttempt::Copy(uint64_t address, size_t length, unsigned char* out, const char* seekFailed,
                          const char* readFailed) {
    if (const int error = device_.Seek(address); error != 0) {
        throw Failed(seekFailed, error);
    }
    size_t got = 0;
    if (const int error = device_.Read(out, length, got); error != 0) {
        throw Failed(readFailed, error);
    }
    if (got != length) {
        throw Failed(readFailed);
    }
}

// ---- Mapping --------------------------------------------------------------------------------------------------------

void DmiMapAttempt::CopyArea(unsigned char* out) { Copy(kDmiAreaAddress, kDmiAreaLength, out); }

void DmiMapAttempt::CopyTable(const DmiEntryPoint& entry, unsigned char* out) {
    Copy(entry.address, entry.length, out);
}

void DmiMapAttempt::Copy(uint64_t address, size_t length, unsigned char* out) {
    const uint64_t page = address / device_.PageSize() * device_.PageSize();
    const size_t before = address - page;
    const size_t mapped = before + length;
    const auto failed = [&](const char* what, int error, const char* doing) {
        return DmiStepFailed{std::string(what) + " failed (" + std::to_string(error) + ") " + doing + " " +
                             std::to_string(mapped) + " bytes at " + std::to_string(page)};
    };
    const unsigned char* at = nullptr;
    if (const int error = device_.Map(page, mapped, at); error != 0) {
        throw failed("mmap", error, "mapping");
    }
    std::copy_n(at + before, length, out);
    if (const int error = device_.Unmap(at, mapped); error != 0) {
        throw failed("munmap", error, "unmapping");
    }
}
