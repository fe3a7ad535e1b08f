// The file "info.dmi": its bytes, how a table is cut for it, and what becomes of one that is damaged.
#include "inspectors/dmi_info_file.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <fstream>
#include <iterator>

#include "foundation/file_error.h"
#include "tests/inspectors/firmware_host.h"

namespace {

using Records = std::vector<DmiIndexRecord>;

std::optional<Records> Split(const Bytes& table, DmiParseMode mode) {
    return SplitDmiTable({table.data(), table.size()}, mode);
}
std::optional<Records> Strictly(const Bytes& table) { return Split(table, DmiParseMode::Strict); }
Records ByTypes(const Bytes& table) { return *Split(table, DmiParseMode::ByTypes); }

Bytes Content(const FileLocation& location) {
    std::ifstream in(location.CString(), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}
void Store(const FileLocation& location, const Bytes& bytes) {
    std::ofstream out(location.CString(), std::ios::binary);
    out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

TEST(SplitDmiTable, CountsTheInstancesOfEachType) {
    const Bytes table = Joined({Structure(17, {1}, {"a"}), Structure(0, {}), Structure(17, {2})});
    const Records wanted = {{17, 0, 0, 8}, {0, 0, 8, 6}, {17, 1, 14, 7}};
    EXPECT_EQ(Strictly(table), wanted);
    EXPECT_EQ(ByTypes(table), wanted);
    EXPECT_EQ(Strictly({}), Records());
    EXPECT_EQ(ByTypes({}), Records());
}

TEST(SplitDmiTable, StrictlyWantsEveryStructuresEndAndNothingBesides) {
    EXPECT_FALSE(Strictly({0, 4, 1, 2}));          // no string set
    EXPECT_FALSE(Strictly({0, 4, 1, 2, 0}));       // half an end
    EXPECT_FALSE(Strictly({0, 4, 1, 2, 'a', 0}));  // a string set that is not closed
    EXPECT_FALSE(Strictly({0, 5, 1, 2}));          // a formatted area beyond the end
    EXPECT_FALSE(Strictly({0, 3, 1, 2, 0, 0}));    // a length that its own header exceeds
    EXPECT_FALSE(Strictly({0, 0, 0, 0, 0, 0}));
    EXPECT_FALSE(Strictly({0, 4, 1, 2, 0, 0, 0, 0}));  // padding behind
    EXPECT_FALSE(Strictly({0, 4, 1, 2, 0, 0, 9}));
    EXPECT_TRUE(Strictly({0, 4, 0, 0, 0, 0}));  // a double zero within the formatted area is no end
    EXPECT_EQ(Strictly({0, 4, 1, 2, 0, 0, 0, 4, 1, 2, 'x', 0, 0}), (Records{{0, 0, 0, 6}, {0, 1, 6, 7}}));
}

TEST(SplitDmiTable, ByTypesTheStringlessEndWithTheirFormattedArea) {
    const Bytes followed = Joined({{16, 5, 1, 2, 3}, Structure(0, {}, {"a"})});
    EXPECT_FALSE(Strictly({16, 4, 1, 2}));
    EXPECT_EQ(ByTypes(followed), (Records{{16, 0, 0, 5}, {0, 0, 5, 7}}));
    EXPECT_EQ(ByTypes({16, 4, 1, 2}), (Records{{16, 0, 0, 4}}));
    EXPECT_EQ(ByTypes({16, 4, 1, 2, 0, 0}), (Records{{16, 0, 0, 6}}));
    // One zero, and another byte: the next structure begins at once.
    EXPECT_EQ(ByTypes({16, 4, 1, 2, 0, 4, 1, 2, 0, 0}), (Records{{16, 0, 0, 4}, {0, 0, 4, 6}}));
    // One zero and the end.
    EXPECT_EQ(ByTypes({16, 4, 1, 2, 0}), (Records{{16, 0, 0, 4}}));
    // What comes before the first that has no end is kept.
    EXPECT_EQ(ByTypes(Joined({Structure(1, {}), {0, 4, 1, 2, 'x'}})), (Records{{1, 0, 0, 6}}));
    EXPECT_EQ(ByTypes({0, 3, 1, 2, 0, 0}), Records());
}

TEST(SplitDmiTable, KnowsForEachTypeWhetherItHasStrings) {
    const std::vector<int> without = {5, 15, 16, 18, 19, 20, 21, 23, 24, 25, 27, 32, 33, 36, 37, 38, 40, 126, 127};
    for (int type = 0; type != 256; ++type) {
        const bool stringless = std::find(without.begin(), without.end(), type) != without.end();
        const Bytes table = {static_cast<unsigned char>(type), 4, 1, 2, 200, 4, 1, 2, 0, 0};
        const Records records = ByTypes(table);
        EXPECT_EQ(records.size(), stringless ? 2U : 1U) << type;
    }
}

TEST(SplitDmiTable, CountsInstancesInAByte) {
    Bytes table;
    for (int i = 0; i != 300; ++i) {
        table.insert(table.end(), {16, 4, 1, 2});
    }
    const Records records = ByTypes(table);
    ASSERT_EQ(records.size(), 300U);
    EXPECT_EQ(records[255].instance, 255U);
    EXPECT_EQ(records[256].instance, 0U);
}

TEST(DmiInfoFile, HasTheseBytes) {
    FirmwareHost host;
    WriteDmiInfo(host.InfoFile(), {0x24, Joined({Structure(17, {9}, {"ab"}), Structure(17, {}), Structure(127, {})})});
    const Bytes wanted = {
        1,   0, 0,  0, 0, 0,   0,   0, 0,  0,  0,  0, 0, 0, 0, 0,   0, 0, 0, 0, 0x24, 2,  // header
        51,  0, 0,  0, 3, 0,   0,   0,                                                    // index
        17,  5, 1,  2, 9, 'a', 'b', 0, 0,  17, 4,  1, 2, 0, 0, 127, 4, 1, 2, 0, 0,        // structures, from 30
        127, 0, 45, 0, 0, 0,   6,   0,                                                    // the last first
        17,  1, 39, 0, 0, 0,   6,   0, 17, 0,  30, 0, 0, 0, 9, 0,
    };
    EXPECT_EQ(Content(host.InfoFile()), wanted);
    const std::optional<DmiInfoFile> file = DmiInfoFile::Read(host.InfoFile());
    ASSERT_TRUE(file);
    EXPECT_EQ(file->Header().version, 1);
    EXPECT_EQ(file->Header().revision, 0x24);
    EXPECT_EQ(file->Header().mode, 2);
    EXPECT_EQ(file->Header().digits[0], 0);
    EXPECT_EQ(file->Index(), (Records{{127, 0, 45, 6}, {17, 1, 39, 6}, {17, 0, 30, 9}}));
    ASSERT_NE(file->Find(17, 1), nullptr);
    EXPECT_EQ(file->Bytes(*file->Find(17, 1)), (Bytes{17, 4, 1, 2, 0, 0}));
    EXPECT_EQ(file->Find(17, 2), nullptr);
    EXPECT_EQ(file->Find(0, 0), nullptr);
}

TEST(DmiInfoFile, SaysThatItWasCutByTypesWhereItWas) {
    FirmwareHost host;
    WriteDmiInfo(host.InfoFile(), {0x21, {16, 4, 1, 2, 0, 4, 1, 2, 0, 0, 0, 0}});
    const Bytes wanted = {
        1, 0, 0,  0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,  0, 0, 0, 0, 0, 0x21, 3, 40, 0, 0, 0, 2, 0,
        0, 0, 16, 4, 1, 2, 0, 4, 1, 2, 0, 0, 0, 0, 34, 0, 0, 0, 6, 0, 16,   0, 30, 0, 0, 0, 4, 0,
    };
    EXPECT_EQ(Content(host.InfoFile()), wanted);
}

TEST(DmiInfoFile, ThatCannotBeWrittenIsNotThere) {
    FirmwareHost host;
    CreateDirectory(host.InfoFile());
    EXPECT_THROW(WriteDmiInfo(host.InfoFile(), {0, {}}), FileIOError);
    EXPECT_FALSE(FileStat(host.InfoFile()).IsThere());  // an empty folder goes, too
}

// A scope in which no file may grow beyond a length.
class FileLimit {
public:
    explicit FileLimit(rlim_t length) : handler_(signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before_);
        rlimit limit = before_;
        limit.rlim_cur = length;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    FileLimit(const FileLimit&) = delete;
    FileLimit& operator=(const FileLimit&) = delete;
    ~FileLimit() {
        setrlimit(RLIMIT_FSIZE, &before_);
        signal(SIGXFSZ, handler_);
    }

private:
    void (*const handler_)(int);
    rlimit before_{};
};

TEST(DmiInfoFile, ThatCannotBeWrittenWholeIsNotThere) {
    const DmiFirmwareTable table = {0x24, Structure(0, {}, {std::string(20000, 'x')})};  // a file of 20044 bytes
    for (const rlim_t limit : {0, 1, 30, 10000, 20043}) {
        FirmwareHost host;
        int error = 0;
        {
            const FileLimit limited(limit);
            try {
                WriteDmiInfo(host.InfoFile(), table);
            } catch (const FileIOError& failure) {
                error = failure.Code();
            }
        }
        EXPECT_EQ(error, EFBIG) << limit;
        EXPECT_FALSE(FileStat(host.InfoFile()).IsThere()) << limit;
    }
    FirmwareHost host;
    {
        const FileLimit limited(20044);
        WriteDmiInfo(host.InfoFile(), table);
    }
    EXPECT_EQ(Content(host.InfoFile()).size(), 20044U);
}

TEST(DmiInfoFile, IsRefusedForItsSizeAndVersion) {
    FirmwareHost host;
    EXPECT_FALSE(DmiInfoFile::Read(host.InfoFile()));
    Bytes header(30);
    header[0] = 1;
    Store(host.InfoFile(), header);
    EXPECT_TRUE(DmiInfoFile::Read(host.InfoFile()));
    header[0] = 2;
    Store(host.InfoFile(), header);
    EXPECT_FALSE(DmiInfoFile::Read(host.InfoFile()));
    header[0] = 1;
    header.pop_back();
    Store(host.InfoFile(), header);
    EXPECT_FALSE(DmiInfoFile::Read(host.InfoFile()));
    ASSERT_EQ(truncate(host.InfoFile().CString(), 0xffffffff), 0);
    EXPECT_TRUE(DmiInfoFile::Read(host.InfoFile()));
    ASSERT_EQ(truncate(host.InfoFile().CString(), 0x100000000), 0);
    EXPECT_THROW(DmiInfoFile::Read(host.InfoFile()), RequiredValueWouldOverflow);
}

TEST(DmiInfoFile, TakesAPairOfDigitsOnly) {
    FirmwareHost host;
    const auto digits = [&host](char a, char b) {
        Bytes header(30);
        header[0] = 1;
        header[9] = static_cast<unsigned char>(a);
        header[10] = static_cast<unsigned char>(b);
        Store(host.InfoFile(), header);
        const DmiHeader read = DmiInfoFile::Read(host.InfoFile())->Header();
        return std::string(read.digits, 2);
    };
    EXPECT_EQ(digits('0', '9'), "09");
    EXPECT_EQ(digits('/', '9'), std::string(2, '\0'));
    EXPECT_EQ(digits('0', ':'), std::string(2, '\0'));
}

TEST(DmiInfoFile, HasAnIndexWithinIt) {
    FirmwareHost host;
    const auto readable = [&host](uint32_t offset, uint32_t count, size_t size) {
        Bytes file(size);
        file[0] = 1;
        PutNumber(&file[22], offset, 4);
        PutNumber(&file[26], count, 4);
        Store(host.InfoFile(), file);
        return DmiInfoFile::Read(host.InfoFile()).has_value();
    };
    EXPECT_TRUE(readable(30, 1, 38));
    EXPECT_FALSE(readable(31, 1, 38));
    EXPECT_FALSE(readable(30, 2, 38));
    EXPECT_FALSE(readable(0xffffffff, 1, 38));
    EXPECT_FALSE(readable(30, 0xffffffff, 38));
    EXPECT_TRUE(readable(30, 16387, 30 + 16387 * 8));
    EXPECT_FALSE(readable(30, 16388, 30 + 16388 * 8));  // more than any table has
}

TEST(DmiInfoFile, GivesTheBytesOfWhatLiesWithinIt) {
    FirmwareHost host;
    WriteDmiInfo(host.InfoFile(), {0x21, Structure(0, Bytes(5000 / 40), {std::string(5000, 'x')})});
    const std::optional<DmiInfoFile> file = DmiInfoFile::Read(host.InfoFile());
    ASSERT_TRUE(file);
    EXPECT_FALSE(file->Bytes({0, 0, 30, 0}));
    EXPECT_TRUE(file->Bytes({0, 0, 30, 1}));
    EXPECT_TRUE(file->Bytes({0, 0, 30, 4095}));
    EXPECT_FALSE(file->Bytes({0, 0, 30, 4096}));
    EXPECT_FALSE(file->Bytes({0, 0, 0xffffffff, 1}));
    const auto size = static_cast<uint32_t>(Content(host.InfoFile()).size());
    EXPECT_TRUE(file->Bytes({0, 0, size - 10, 10}));
    EXPECT_FALSE(file->Bytes({0, 0, size - 9, 10}));
    DeleteFile(host.InfoFile());
    EXPECT_FALSE(file->Bytes({0, 0, 30, 1}));
}

// Everything that a file may hold, asked for.
void ReadAll(const FileLocation& location) {
    std::optional<DmiInfoFile> file = DmiInfoFile::Read(location);
    if (!file) {
        return;
    }
    const Records index = file->Index();
    DmiTable table(std::move(*file));
    for (const DmiIndexRecord& record : index) {
        const DmiStructure* structure = table.Find(record.type, record.instance);
        if (structure == nullptr) {
            continue;
        }
        for (size_t at = 0; at != 256; ++at) {
            structure->Number(at, 8);
            structure->StringAt(at);
            structure->Bytes(at, 16);
            structure->NumberedString(at);
        }
    }
}

TEST(DmiInfoFile, CutOrChangedAtAnyByteDoesNoHarm) {
    FirmwareHost host;
    WriteDmiInfo(host.InfoFile(), {0x24, Joined({Structure(0, {1, 2}, {"ab", "c"}), Structure(17, {1}, {"x"}),
                                                 Structure(17, {2}), Structure(127, {})})});
    const Bytes whole = Content(host.InfoFile());
    for (size_t length = 0; length <= whole.size(); ++length) {
        Store(host.InfoFile(), Bytes(whole.begin(), whole.begin() + static_cast<ptrdiff_t>(length)));
        ReadAll(host.InfoFile());
        EXPECT_EQ(DmiInfoFile::Read(host.InfoFile()).has_value(), length == whole.size()) << length;
    }
    for (size_t at = 0; at != whole.size(); ++at) {
        for (const int mask : {0x01, 0x80, 0xff}) {
            Bytes changed = whole;
            changed[at] = static_cast<unsigned char>(changed[at] ^ mask);
            Store(host.InfoFile(), changed);
            ReadAll(host.InfoFile());
        }
    }
}

TEST(DmiTable, KeepsWhatItHasLoaded) {
    FirmwareHost host;
    WriteDmiInfo(host.InfoFile(), {0x24, Joined({Structure(17, {1}), Structure(17, {2}), Structure(17, {3})})});
    DmiTable table(*DmiInfoFile::Read(host.InfoFile()));
    const DmiStructure* third = table.Find(17, 2);
    const DmiStructure* first = table.Find(17, 0);
    ASSERT_NE(first, nullptr);
    ASSERT_NE(third, nullptr);
    DeleteFile(host.InfoFile());
    EXPECT_EQ(table.Find(17, 0), first);
    EXPECT_EQ(table.Find(17, 2), third);
    EXPECT_EQ(first->Number(4, 1), 1U);
    EXPECT_EQ(third->Number(4, 1), 3U);
    EXPECT_TRUE(table.Has(17, 1));
    EXPECT_EQ(table.Find(17, 1), nullptr);  // it was not loaded in time
    EXPECT_EQ(table.Find(17, 3), nullptr);
}

TEST(DmiTable, HasACellForTheTypesThatItLoads) {
    FirmwareHost host;
    std::vector<Bytes> parts;
    for (int type = 0; type != 256; ++type) {
        parts.push_back(Structure(type, {static_cast<unsigned char>(type)}));
    }
    WriteDmiInfo(host.InfoFile(), {0x24, Joined(parts)});
    DmiTable table(*DmiInfoFile::Read(host.InfoFile()));
    for (unsigned type = 0; type != 256; ++type) {
        const DmiStructure* found = table.Find(type, 0);
        ASSERT_EQ(found != nullptr, type <= 42 || type == 126 || type == 127) << type;
        if (found != nullptr) {
            // Types 42 and 126 have one cell, and the first of them that is loaded keeps it.
            EXPECT_EQ(found->Number(4, 1), type == 126 ? 42 : type) << type;
        }
    }
    EXPECT_EQ(table.Find(42, 0), table.Find(126, 0));
}

}  // namespace
