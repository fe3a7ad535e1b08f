// The file layer with each of its allocations failing in turn: the answer is std::bad_alloc, and nothing stays open.
#include "tests/foundation/failing_allocation.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "foundation/file_loop.h"
#include "foundation/file_operations.h"
#include "foundation/read_lines.h"
#include "tests/foundation/temporary_place.h"

namespace {

thread_local unsigned untilFailure = 0;  // 0 for none

}  // namespace

FailingAllocation::FailingAllocation(unsigned nth) { untilFailure = nth; }
FailingAllocation::~FailingAllocation() { untilFailure = 0; }

// Kept out of line: seen through at the place of a call, malloc and free look like the wrong partners of delete and
// new.
[[gnu::noinline]] void* operator new(size_t size) {
    if (untilFailure != 0 && --untilFailure == 0) {
        throw std::bad_alloc();
    }
    if (void* const memory = std::malloc(size == 0 ? 1 : size)) {
        return memory;
    }
    throw std::bad_alloc();
}

[[gnu::noinline]] void* operator new[](size_t size) { return operator new(size); }
[[gnu::noinline]] void operator delete(void* memory) noexcept { std::free(memory); }
[[gnu::noinline]] void operator delete(void* memory, size_t) noexcept { std::free(memory); }
[[gnu::noinline]] void operator delete[](void* memory) noexcept { std::free(memory); }
[[gnu::noinline]] void operator delete[](void* memory, size_t) noexcept { std::free(memory); }

namespace {

size_t OpenDescriptors() {
    size_t count = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        ++count;
    }
    return count;
}

// A folder whose path does not fit inline.
std::string LongPath(const TemporaryPlace& place) {
    const std::string name(150, 'l');
    place.Folder(name);
    return place.Path(name);
}

TEST(FailingAllocation, AWalkAnswersAndLeaksNothing) {
    const TemporaryPlace place;
    const FileLocation folder(LongPath(place));
    for (const char* name : {"/a", "/b", "/c"}) {
        std::ofstream(folder.CString() + std::string(name)) << name;
    }
    const size_t before = OpenDescriptors();
    size_t entries = 0;
    const unsigned failed = FailEachAllocation([&] {
        entries = 0;
        for (UnixPlatform::FileLoop loop(folder, "*"); loop.Valid(); loop.Next()) {
            ++entries;
        }
    });
    EXPECT_GE(failed, 4u);
    EXPECT_EQ(entries, 3u);
    EXPECT_EQ(OpenDescriptors(), before);
}

TEST(FailingAllocation, ReadingAndCopyingLeaveNoDescriptor) {
    const TemporaryPlace place;
    const std::string folder = LongPath(place);
    std::ofstream(folder + "/a") << "one\ntwo";
    const size_t before = OpenDescriptors();
    const unsigned failed = FailEachAllocation([&] {
        IgnoreLineReceiver ignore;
        const FileLocation from(folder + "/a");
        ReadLines(from, ignore);
        ForceCopyFile(from, FileLocation(from.Parent(), "b"));
    });
    EXPECT_GE(failed, 5u);
    EXPECT_EQ(OpenDescriptors(), before);
    EXPECT_EQ(FileStat(FileLocation(folder + "/b")).Target().st_size, 7);
}

TEST(FailingAllocation, AFailureWithoutMemoryIsLackOfMemory) {
    const FileLocation missing("/no/such/place/" + std::string(150, 'x'));
    const unsigned failed = FailEachAllocation([&] {
        try {
            DeleteFile(missing);
            FAIL();
        } catch (const FileNotFoundError& error) {
            EXPECT_EQ(error.Code(), ENOENT);
        }
    });
    EXPECT_GE(failed, 2u);
}

TEST(FailingAllocation, ATextThatCannotBeBuiltIsTheBareName) {
    const FileNotFoundError error(2, "/a");
    const char* text = nullptr;
    {
        const FailingAllocation failing(1);
        text = error.what();
    }
    EXPECT_STREQ(text, "17FileNotFoundError");
    EXPECT_STREQ(error.what(), "File error \"17FileNotFoundError\" on \"/a\": Unknown error: 2");
}

TEST(FailingAllocation, ShortPathsAndNamesDoNotTouchTheHeap) {
    const FailingAllocation failing(1);
    const FileLocation location(std::string_view("/a/folder/of/some/length/and/a/name.extension"));
    const FileLocation child(location, FileName("twenty.three.bytes.long"));
    EXPECT_EQ(child.Name().Length(), 23u);
    EXPECT_EQ(child.Parent(), location);
    EXPECT_EQ(FileStat(child).GetState(), FileStat::Missing);
}

}  // namespace
