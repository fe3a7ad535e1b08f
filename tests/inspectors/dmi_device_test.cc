// The two ways to the firmware's table, and what each failing step says.
#include "inspectors/dmi_device.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <iterator>

#include "tests/foundation/temporary_place.h"
#include "tests/inspectors/firmware_host.h"

namespace {

Bytes Area(size_t at, const Bytes& paragraph) {
    Bytes area(kDmiAreaLength);
    std::copy(paragraph.begin(), paragraph.end(), area.begin() + static_cast<ptrdiff_t>(at));
    return area;
}

std::optional<DmiEntryPoint> Found(const Bytes& area) { return FindDmiEntryPoint({area.data(), area.size()}); }

TEST(DmiEntryPoint, IsFoundAtEveryParagraphAndNowhereElse) {
    const Bytes entry = EntryPoint(0x1234, 0x89abcdef, 0x27);
    for (size_t at = 0; at + 16 <= kDmiAreaLength; at += 8) {
        EXPECT_EQ(Found(Area(at, entry)).has_value(), at % 16 == 0) << at;
    }
    const std::optional<DmiEntryPoint> found = Found(Area(0x4560, entry));
    ASSERT_TRUE(found);
    EXPECT_EQ(found->length, 0x1234U);
    EXPECT_EQ(found->address, 0x89abcdefU);
    EXPECT_EQ(found->revision, 0x27);
}

TEST(DmiEntryPoint, HasItsAnchorAndItsSum) {
    Bytes entry = EntryPoint(100, 200, 0x21);
    entry[15] = 77;  // behind the sum
    EXPECT_TRUE(Found(Area(0, entry)));
    for (size_t i = 0; i != 15; ++i) {
        Bytes changed = entry;
        ++changed[i];
        EXPECT_FALSE(Found(Area(0, changed))) << i;
    }
    EXPECT_TRUE(Found(Area(0, EntryPoint(1, 2, 3, "_DMIx"))));  // four bytes are the anchor
    EXPECT_FALSE(Found(Area(0, EntryPoint(1, 2, 3, "_SM_"))));
    EXPECT_FALSE(FindDmiEntryPoint({}));
    EXPECT_FALSE(FindDmiEntryPoint({entry.data(), 15}));
}

TEST(DmiEntryPoint, TheFirstCounts) {
    Bytes area = Area(0x100, EntryPoint(1, 2, 3));
    const Bytes later = EntryPoint(4, 5, 6);
    std::copy(later.begin(), later.end(), area.begin() + 0x200);
    EXPECT_EQ(Found(area)->length, 1U);
}

TEST(DmiAttempts, GiveTheTable) {
    const Bytes table = Joined({Structure(0, {1, 2, 3}, {"a"}), Structure(127, {})});
    FakeMemory memory(table, 0x28);
    DmiFirmwareTable got = DmiReadAttempt(memory).Table();
    EXPECT_EQ(got.bytes, table);
    EXPECT_EQ(got.revision, 0x28);
    got = DmiMapAttempt(memory).Table();
    EXPECT_EQ(got.bytes, table);
    EXPECT_EQ(got.revision, 0x28);
    EXPECT_EQ(memory.opens, 2);
    EXPECT_EQ(memory.closes, 2);
    EXPECT_EQ(memory.maps, 2);
    EXPECT_EQ(memory.unmaps, 2);
    FakeMemory empty{Bytes()};
    EXPECT_TRUE(DmiReadAttempt(empty).Table().bytes.empty());
    EXPECT_TRUE(DmiMapAttempt(empty).Table().bytes.empty());
}

template <class Attempt>
std::string Detail(FakeMemory memory) {
    try {
        Attempt(memory).Table();
    } catch (const DmiStepFailed& failure) {
        EXPECT_EQ(memory.closes, memory.openErrors.empty() ? 1 : 0);
        return failure.detail;
    }
    return "none";
}

TEST(DmiAttempts, TellTheFailingStepOfReading) {
    FakeMemory good(Structure(0, {}));
    FakeMemory bad = good;
    bad.openErrors = {13};
    EXPECT_EQ(Detail<DmiReadAttempt>(bad), "CreateDmiInfo cannot open /dev/mem (13)");
    bad = good;
    bad.seekErrors = {22};
    EXPECT_EQ(Detail<DmiReadAttempt>(bad), "CreateDmiInfo seek to 0xf0000 failed (22)");
    bad = good;
    bad.readErrors = {5};
    EXPECT_EQ(Detail<DmiReadAttempt>(bad), "CreateDmiInfo read at 0xf0000 failed (5)");
    bad = good;
    bad.shortRead = 0;
    EXPECT_EQ(Detail<DmiReadAttempt>(bad), "CreateDmiInfo read at 0xf0000 failed");
    bad = good;
    bad.seekErrors = {0, 22};
    EXPECT_EQ(Detail<DmiReadAttempt>(bad), "CreateDmiInfo seek to table data failed (22)");
    bad = good;
    bad.readErrors = {0, 1};
    EXPECT_EQ(Detail<DmiReadAttempt>(bad), "CreateDmiInfo read of table data failed (1)");
    bad = good;
    bad.shortRead = 1;
    EXPECT_EQ(Detail<DmiReadAttempt>(bad), "CreateDmiInfo read of table data failed");
    bad = FakeMemory();
    bad.Put(0xf0000, EntryPoint(100, 0xffffffff, 0x21));
    EXPECT_EQ(Detail<DmiReadAttempt>(bad), "CreateDmiInfo read of table data failed");
    EXPECT_EQ(Detail<DmiReadAttempt>(FakeMemory()), "dmi info not found");
}

TEST(DmiAttempts, TellTheFailingStepOfMapping) {
    const Bytes structure = Structure(0, {});  // 6 bytes
    FakeMemory good(structure);
    FakeMemory bad = good;
    bad.openErrors = {2};
    EXPECT_EQ(Detail<DmiMapAttempt>(bad), "CreateDmiInfoMMap cannot open /dev/mem (2)");
    bad = good;
    bad.mapErrors = {12};
    EXPECT_EQ(Detail<DmiMapAttempt>(bad), "mmap failed (12) mapping 65536 bytes at 983040");
    bad = good;
    bad.unmapErrors = {22};
    EXPECT_EQ(Detail<DmiMapAttempt>(bad), "munmap failed (22) unmapping 65536 bytes at 983040");
    // 0xe0123 begins 0x123 bytes behind its page.
    bad = good;
    bad.mapErrors = {0, 12};
    EXPECT_EQ(Detail<DmiMapAttempt>(bad), "mmap failed (12) mapping 297 bytes at 917504");
    bad = good;
    bad.unmapErrors = {0, 22};
    EXPECT_EQ(Detail<DmiMapAttempt>(bad), "munmap failed (22) unmapping 297 bytes at 917504");
    // A table that would lie behind all memory.
    bad = FakeMemory();
    bad.Put(0xf0000, EntryPoint(100, 0xffffffff, 0x21));
    EXPECT_EQ(Detail<DmiMapAttempt>(bad), "mmap failed (22) mapping 4195 bytes at 4294963200");
    EXPECT_EQ(Detail<DmiMapAttempt>(FakeMemory()), "dmi info not found");
}

// A file in the place of the device: what the machine's own calls give of it.
TEST(MemoryFile, IsReadAndMapped) {
    const Bytes table = Joined({Structure(0, {1, 2, 3}, {"a"}), Structure(127, {})});
    std::string memory(0x100000, '\0');
    const auto put = [&memory](size_t at, const Bytes& bytes) { std::copy(bytes.begin(), bytes.end(), &memory[at]); };
    put(0xe0123, table);
    put(0xf4560, EntryPoint(static_cast<uint32_t>(table.size()), 0xe0123, 0x28));
    const TemporaryPlace place;
    place.File("memory", memory);
    const auto descriptors = [] {
        return std::distance(std::filesystem::directory_iterator("/proc/self/fd"),
                             std::filesystem::directory_iterator());
    };
    const auto before = descriptors();
    const std::string path = place.Path("memory");
    MemoryFile file(path.c_str());
    EXPECT_EQ(DmiReadAttempt(file).Table().bytes, table);
    EXPECT_EQ(DmiReadAttempt(file).Table().revision, 0x28);
    EXPECT_EQ(DmiMapAttempt(file).Table().bytes, table);
    EXPECT_EQ(DmiMapAttempt(file).Table().revision, 0x28);
    EXPECT_EQ(descriptors(), before);
}

template <class Attempt>
std::string DetailOfFile(const char* path) {
    MemoryFile file(path);
    try {
        Attempt(file).Table();
    } catch (const DmiStepFailed& failure) {
        return failure.detail;
    }
    return "none";
}

TEST(MemoryFile, TellsWhatTheMachineSays) {
    EXPECT_EQ(DetailOfFile<DmiReadAttempt>("/nowhere/memory"), "CreateDmiInfo cannot open /dev/mem (2)");
    EXPECT_EQ(DetailOfFile<DmiMapAttempt>("/nowhere/memory"), "CreateDmiInfoMMap cannot open /dev/mem (2)");
    // Nothing to read, and nothing to map.
    EXPECT_EQ(DetailOfFile<DmiReadAttempt>("/dev/null"), "CreateDmiInfo read at 0xf0000 failed");
    EXPECT_EQ(DetailOfFile<DmiMapAttempt>("/dev/null"), "mmap failed (19) mapping 65536 bytes at 983040");
    // No memory of a process lies so low.
    EXPECT_EQ(DetailOfFile<DmiReadAttempt>("/proc/self/mem"), "CreateDmiInfo read at 0xf0000 failed (5)");
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    EXPECT_EQ(DetailOfFile<DmiReadAttempt>(("/proc/self/fd/" + std::to_string(ends[0])).c_str()),
              "CreateDmiInfo seek to 0xf0000 failed (29)");
    close(ends[0]);
    close(ends[1]);
}

template <class Attempt>
std::string DetailOfLength(uint32_t length) {
    FakeMemory memory;
    try {
        Attempt(memory).TableOf({length, 0, 0});
    } catch (const DmiStepFailed& failure) {
        return failure.detail;
    }
    return "none";
}

TEST(DmiAttempts, RefuseATableThatIsTooLong) {
    EXPECT_EQ(DetailOfLength<DmiReadAttempt>(0x1000f), "none");
    EXPECT_EQ(DetailOfLength<DmiMapAttempt>(0x1000f), "none");
    EXPECT_EQ(DetailOfLength<DmiReadAttempt>(0x10010), "CreateDmiInfo dmi structure table is too long (65552)");
    EXPECT_EQ(DetailOfLength<DmiMapAttempt>(0x10010), "CreateDmiInfoMMap dmi structure table is too long (65552)");
    EXPECT_EQ(DetailOfLength<DmiReadAttempt>(0xffffffff), "CreateDmiInfo dmi structure table is too long (4294967295)");
}

}  // namespace
