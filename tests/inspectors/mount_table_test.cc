#include "inspectors/mount_table.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace {

using Kind = FilesystemKind;

struct Row {
    std::string path;
    Kind kind;
    friend bool operator==(const Row&, const Row&) = default;
    friend void PrintTo(const Row& row, std::ostream* out) { *out << row.path << "=" << static_cast<int>(row.kind); }
};

using Rows = std::vector<Row>;

// The text in pieces that are cut at `cut`.
Rows Parsed(std::string_view text, size_t cut = 0) {
    MountTableParser parser;
    parser.Data(ConstData(text.substr(0, cut)));
    parser.Data(ConstData(text.substr(cut)));
    Rows rows;
    for (const MountedFilesystem& mounted : parser.Finish()) {
        rows.push_back({mounted.path, mounted.kind});
    }
    return rows;
}

TEST(MountTable, EveryTypesKind) {
    const struct {
        const char* type;
        Kind kind;
    } rows[] = {{"subfs", Kind::Removable}, {"pcsf", Kind::Removable},  {"fd", Kind::Removable},
                {"msdos", Kind::Removable}, {"usbfs", Kind::Removable}, {"usbdevfs", Kind::Removable},
                {"nfs", Kind::Remote},      {"hsfs", Kind::CdRom},      {"cdfs", Kind::CdRom},
                {"cdrfs", Kind::CdRom},     {"ext4", Kind::Fixed},      {"pcfs", Kind::Fixed},
                {"nfs4", Kind::Fixed},      {"NFS", Kind::Fixed},       {"iso9660", Kind::Fixed},
                {"subf", Kind::Fixed},      {"subfss", Kind::Fixed}};
    for (const auto& row : rows) {
        EXPECT_EQ(Parsed(std::string("/dev/x /mnt ") + row.type + " rw 0 0\n"), (Rows{{"/mnt", row.kind}})) << row.type;
    }
}

TEST(MountTable, AColonInTheDeviceIsAnotherMachineUnlessTheTypeSaysMore) {
    EXPECT_EQ(Parsed("host:/x /a ext4 rw\n"), (Rows{{"/a", Kind::Remote}}));
    EXPECT_EQ(Parsed("host:/x /a cdfs rw\n"), (Rows{{"/a", Kind::CdRom}}));
    EXPECT_EQ(Parsed("host:/x /a msdos rw\n"), (Rows{{"/a", Kind::Removable}}));
    EXPECT_EQ(Parsed("d /a:b ex:t4 r:w\ne /c ext4\n"), (Rows{{"/a:b", Kind::Fixed}, {"/c", Kind::Fixed}}));
}

TEST(MountTable, BlanksAndTabsSplitAndBothLineBytesEnd) {
    EXPECT_EQ(Parsed("a\t/x \t ext4\trest\r\nb /y nfs\rc  /z\t\thsfs"),
              (Rows{{"/x", Kind::Fixed}, {"/y", Kind::Remote}, {"/z", Kind::CdRom}}));
    EXPECT_EQ(Parsed("  a /x ext4\n"), (Rows{{"/x", Kind::Fixed}}));
}

TEST(MountTable, EscapesStayAsTheyAreWritten) {
    EXPECT_EQ(Parsed("a /mnt/a\\040b ext4 rw\n"), (Rows{{"/mnt/a\\040b", Kind::Fixed}}));
}

TEST(MountTable, ALineWithoutAPathSaysNothing) {
    EXPECT_EQ(Parsed(""), Rows{});
    EXPECT_EQ(Parsed("\n\r\n  \t\nonly:\n/dev/x /a ext4\n"), (Rows{{"/a", Kind::Fixed}}));
    EXPECT_EQ(Parsed("dev /a\nhost:x /b\n"), (Rows{{"/a", Kind::Fixed}, {"/b", Kind::Remote}}));
}

TEST(MountTable, BytesOfAnyKindAndLength) {
    EXPECT_EQ(Parsed(std::string_view("\0 /\xff\0z \x80\n", 9)), (Rows{{std::string("/\xff\0z", 4), Kind::Fixed}}));
    const std::string longPath = "/" + std::string(100000, 'p');
    EXPECT_EQ(Parsed("d " + longPath + " nfs\n"), (Rows{{longPath, Kind::Remote}}));
}

TEST(MountTable, WhereThePiecesAreCutDoesNotMatter) {
    constexpr std::string_view kText =
        "/dev/sda1 / ext4 rw,relatime 0 0\r\nhost:/home /home ext3 rw\n\n\tfd0\t/floppy fd x\rz /cd hsfs\nlast /l";
    const Rows whole = Parsed(kText);
    EXPECT_EQ(whole, (Rows{{"/", Kind::Fixed},
                           {"/home", Kind::Remote},
                           {"/floppy", Kind::Removable},
                           {"/cd", Kind::CdRom},
                           {"/l", Kind::Fixed}}));
    for (size_t cut = 0; cut <= kText.size(); ++cut) {
        EXPECT_EQ(Parsed(kText, cut), whole) << cut;
    }
}

// What is cut off keeps what was told before, and the path that was begun.
TEST(MountTable, ATextThatEndsAnywhere) {
    constexpr std::string_view kText = "a /x nfs rw\nb /y hsfs rw\n";
    for (size_t length = 0; length <= kText.size(); ++length) {
        Rows expected;
        if (length >= 3) {
            expected.push_back({length == 3 ? "/" : "/x", length >= 8 ? Kind::Remote : Kind::Fixed});
        }
        if (length >= 15) {
            expected.push_back({length == 15 ? "/" : "/y", length >= 21 ? Kind::CdRom : Kind::Fixed});
        }
        EXPECT_EQ(Parsed(kText.substr(0, length)), expected) << length;
    }
}

TEST(MountTable, AParserBeginsAnewAfterItsEnd) {
    MountTableParser parser;
    parser.Data(ConstData(std::string_view("host:x /a nf")));
    EXPECT_EQ(parser.Finish().size(), 1u);
    parser.Data(ConstData(std::string_view("d /b ext4")));
    const auto table = parser.Finish();
    ASSERT_EQ(table.size(), 1u);
    EXPECT_EQ(table[0].path, "/b");
    EXPECT_EQ(table[0].kind, Kind::Fixed);
}

}  // namespace
