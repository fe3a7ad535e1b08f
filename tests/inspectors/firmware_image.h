// Firmware made to measure: structures put together to a table, and a memory device that shows it and fails on demand.
#ifndef TESTS_INSPECTORS_FIRMWARE_IMAGE_H
#define TESTS_INSPECTORS_FIRMWARE_IMAGE_H

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "inspectors/dmi_device.h"

using Bytes = std::vector<unsigned char>;

// A structure: its header, the fields behind it, and its strings.  A length of -1 is the true one.
inline Bytes Structure(int type, const Bytes& fields, const std::vector<std::string>& strings = {}, int length = -1) {
    Bytes out = {static_cast<unsigned char>(type),
                 static_cast<unsigned char>(length < 0 ? 4 + static_cast<int>(fields.size()) : length), 1, 2};
    out.insert(out.end(), fields.begin(), fields.end());
    for (const std::string& text : strings) {
        out.insert(out.end(), text.begin(), text.end());
        out.push_back(0);
    }
    out.push_back(0);
    if (strings.empty()) {
        out.push_back(0);
    }
    return out;
}

inline Bytes Joined(const std::vector<Bytes>& parts) {
    Bytes out;
    for (const Bytes& part : parts) {
        out.insert(out.end(), part.begin(), part.end());
    }
    return out;
}

// Where its byte i is i, and where string i is "text i": what a field gives tells where it was read.
inline Bytes TellingStructure(int type, int length = 64) {
    Bytes fields;
    std::vector<std::string> strings;
    for (int i = 4; i < length; ++i) {
        fields.push_back(static_cast<unsigned char>(i));
    }
    for (int i = 1; i <= 64; ++i) {
        strings.push_back("text " + std::to_string(i));
    }
    return Structure(type, fields, strings);
}

inline void PutNumber(unsigned char* at, uint64_t number, int width) {
    for (; width != 0; --width, number >>= 8) {
        *at++ = static_cast<unsigned char>(number);
    }
}

// The older entry point with its sum made good.
inline Bytes EntryPoint(uint32_t length, uint32_t address, unsigned char revision, const char* anchor = "_DMI_") {
    Bytes out(16);
    std::memcpy(out.data(), anchor, 5);
    PutNumber(&out[6], length, 2);
    PutNumber(&out[8], address, 4);
    out[14] = revision;
    unsigned sum = 0;
    for (size_t i = 0; i != 15; ++i) {
        sum += out[i];
    }
    out[5] = static_cast<unsigned char>(0U - sum);
    return out;
}

class FakeMemory : public MemoryDevice {
public:
    static constexpr uint32_t kTableAddress = 0xe0123;
    static constexpr size_t kPage = 4096;

    FakeMemory() : memory_(0x100000) {}
    // An entry point at the very last paragraph, and the table.
    explicit FakeMemory(const Bytes& table, unsigned char revision = 0x24) : FakeMemory() {
        Put(kTableAddress, table);
        Put(0xffff0, EntryPoint(static_cast<uint32_t>(table.size()), kTableAddress, revision));
    }

    void Put(size_t address, const Bytes& bytes) {
        std::copy(bytes.begin(), bytes.end(), memory_.begin() + static_cast<ptrdiff_t>(address));
    }

    // The errno of the n-th call, the first being 0; 0 for success.  What is not told succeeds.
    std::vector<int> openErrors, seekErrors, readErrors, mapErrors, unmapErrors;
    int shortRead = -1;         // the number of the read that gives a byte less
    bool throwing = false;      // each Open throws
    int opens = 0, closes = 0;  // how often it was touched
    int maps = 0, unmaps = 0;

    int Open() override {
        if (throwing) {
            ++opens;
            throw std::runtime_error("no device");
        }
        return Next(openErrors, opens);
    }
    void Close() override { ++closes; }
    int Seek(uint64_t address) override {
        position_ = address;
        return Next(seekErrors, seeks_);
    }
    int Read(unsigned char* out, size_t length, size_t& got) override {
        got = std::min(length, memory_.size() - std::min<size_t>(position_, memory_.size()));
        if (reads_ == shortRead) {
            --got;
        }
        std::copy_n(memory_.begin() + static_cast<ptrdiff_t>(std::min<size_t>(position_, memory_.size())), got, out);
        position_ += got;
        return Next(readErrors, reads_);
    }
    size_t PageSize() override { return kPage; }
    int Map(uint64_t address, size_t length, const unsigned char*& at) override {
        if (address % kPage != 0 || length == 0 || address + length > memory_.size()) {
            return 22;
        }
        at = memory_.data() + address;
        return Next(mapErrors, maps);
    }
    int Unmap(const unsigned char*, size_t) override { return Next(unmapErrors, unmaps); }

private:
    static int Next(const std::vector<int>& errors, int& count) {
        const size_t n = static_cast<size_t>(count++);
        return n < errors.size() ? errors[n] : 0;
    }

    Bytes memory_;
    uint64_t position_ = 0;
    int seeks_ = 0, reads_ = 0;
};

#endif
