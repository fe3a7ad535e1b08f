#include "inspectors/filesystem.h"

#include <sys/stat.h>

#include <fstream>
#include <sstream>

#include "tests/inspectors/file_tree.h"

namespace {

TEST(Filesystems, TheFiguresAreThoseOfTheKernel) {
    // One whose figures nothing changes.
    struct statfs64 figures;
    ASSERT_EQ(statfs64("/sys", &figures), 0);
    const auto product = [&](uint64_t blocks) {
        return std::to_string(static_cast<int64_t>(blocks) * figures.f_bsize);
    };
    EXPECT_EQ(Ask("(sizes of it; total spaces of it; free spaces of it; used spaces of it) of filesystem \"/sys\""),
              Values({product(figures.f_blocks), product(figures.f_blocks), product(figures.f_bfree),
                      product(figures.f_blocks - figures.f_bfree)}));
    EXPECT_EQ(Ask("(used percents of it; free percents of it) of filesystem \"/proc\""), Values({"0", "0"}));
    EXPECT_EQ(Ask("(file counts of it; free file counts of it; used file counts of it) of drive \"/sys\""),
              Values({std::to_string(figures.f_files), std::to_string(figures.f_ffree),
                      std::to_string(figures.f_files - figures.f_ffree)}));
}

TEST(Filesystems, TheFiguresOfOneAgree) {
    EXPECT_EQ(Ask("(size of it = total space of it, used space of it = size of it - free space of it,"
                  " free percent of it = 100 * free space of it / size of it,"
                  " used percent of it = 100 * used space of it / size of it,"
                  " used file count of it = file count of it - free file count of it) of filesystem \"/\""),
              Values({"True, True, True, True, True"}));
    EXPECT_EQ(Ask("free space of filesystem \"/\" > 0"), Values({"True"}));
}

TEST(Filesystems, PercentsAreCutAndNothingIsNone) {
    EXPECT_EQ(Percent(0, 0), 0);
    EXPECT_EQ(Percent(2, 3), 66);
    EXPECT_EQ(Percent(3, 3), 100);
    EXPECT_EQ(Percent(1, 1000), 0);
    EXPECT_EQ(Percent(UINT64_MAX / 100, UINT64_MAX), 0);
    EXPECT_EQ(Percent(UINT64_MAX / 100 + 1, UINT64_MAX), std::nullopt);
}

TEST(Filesystems, AnyPathAndAnyObjectHasOne) {
    const FileTree tree;
    for (const std::string phrase : {"filesystem", "drive"}) {
        for (const std::string operand :
             {"\"@/reg\"", "of file \"@/reg\"", "of folder \"@/dir\"", "of device file \"/dev/null\"",
              "of fifo file \"@/dir/pipe\"", "of socket file \"@/dir/sock\"", "of symlink \"@/dir/dangling\""}) {
            EXPECT_EQ(tree.Ask("type of " + phrase + " " + operand), Values({"DRIVE_UNKNOWN"})) << operand;
            EXPECT_EQ(tree.Ask("types of " + phrase + "s " + operand), Values({"DRIVE_UNKNOWN"})) << operand;
        }
        EXPECT_EQ(Ask("type of " + phrase + " \"/missing\""), DoesNotExist());
        EXPECT_EQ(Ask("types of " + phrase + "s \"\""), Nothing());
    }
    EXPECT_EQ(tree.Ask("filesystem of file \"@/reg\""), Fails("OperationNotDefined"));
}

TEST(Filesystems, ALinksIsTheOneThatHoldsTheLink) {
    const FileTree tree;
    tree.place.Link("toproc", "/proc/self/status");
    EXPECT_EQ(tree.Ask("name of filesystem of symlink \"@/toproc\" = name of filesystem \"@\""), Values({"True"}));
    EXPECT_EQ(tree.Ask("name of filesystem of file \"@/toproc\""), Values({"/proc"}));
}

// The table, read here in the plain way: a device, a path, a type.
struct Line {
    std::string path;
    bool asked;  // its figures are
};

std::vector<Line> Table() {
    std::ifstream table("/etc/mtab");
    std::vector<Line> lines;
    for (std::string text; std::getline(table, text);) {
        std::istringstream fields(text);
        std::string device, path, type;
        fields >> device >> path >> type;
        const bool special = type == "subfs" || type == "pcsf" || type == "fd" || type == "msdos" || type == "usbfs" ||
                             type == "usbdevfs" || type == "nfs" || type == "hsfs" || type == "cdfs" ||
                             type == "cdrfs" || device.find(':') != std::string::npos;
        lines.push_back({path, !special});
    }
    return lines;
}

TEST(Filesystems, TheTableIsGivenUpToTheFirstThatRefuses) {
    std::vector<std::string> names;
    for (const Line& line : Table()) {
        struct statfs64 figures;
        if (line.asked && statfs64(line.path.c_str(), &figures) != 0) {
            break;
        }
        names.push_back(line.path);
    }
    EXPECT_EQ(Ask("names of filesystems"), Values(names));
    EXPECT_EQ(Ask("names of drives"), Values(names));
    EXPECT_EQ(Ask("number of types of filesystems"), Values({std::to_string(names.size())}));
}

TEST(Filesystems, ANameIsTheFirstMountOnTheSameDevice) {
    for (const std::string path : {"/", "/usr/bin", "/proc/self", "/dev/null"}) {
        struct stat64 record;
        ASSERT_EQ(stat64(path.c_str(), &record), 0);
        Answer expected = DoesNotExist();
        for (const Line& line : Table()) {
            struct stat64 mount;
            if (line.asked && stat64(line.path.c_str(), &mount) == 0 && mount.st_dev == record.st_dev) {
                expected = Values({line.path});
                break;
            }
        }
        EXPECT_EQ(Ask("name of filesystem \"" + path + "\""), expected) << path;
    }
}

TEST(Filesystems, OneOnAnotherMachineIsNotAskedForFigures) {
    const std::optional<filesystem> remote = filesystem::Mounted({"/nowhere/at/all", FilesystemKind::Remote});
    ASSERT_TRUE(remote);
    EXPECT_EQ(remote->Figures(), nullptr);
    EXPECT_EQ(remote->MountName(), "/nowhere/at/all");
    EXPECT_FALSE(filesystem::Mounted({"/nowhere/at/all", FilesystemKind::Fixed}));
    EXPECT_TRUE(filesystem::Mounted({"/", FilesystemKind::Fixed})->Figures());
    for (FilesystemKind kind : {FilesystemKind::Removable, FilesystemKind::CdRom}) {
        EXPECT_EQ(filesystem::Mounted({"/", kind})->Figures(), nullptr);
    }
}

}  // namespace
