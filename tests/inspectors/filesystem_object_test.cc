#include "inspectors/filesystem_object.h"

#include <fcntl.h>
#include <grp.h>
#include <pwd.h>
#include <sys/sysmacros.h>

#include "inspectors/device_files.h"
#include "inspectors/file.h"
#include "inspectors/folder.h"
#include "inspectors/place_properties.h"
#include "inspectors/symbolic_link.h"
#include "tests/inspectors/file_tree.h"

namespace {

std::string Text(int64_t number) { return std::to_string(number); }
std::string Text(bool truth) { return truth ? "True" : "False"; }

struct stat64 StatOf(const std::string& path) {
    struct stat64 record {};
    EXPECT_EQ(stat64(path.c_str(), &record), 0) << path;
    return record;
}
struct stat64 LinkStatOf(const std::string& path) {
    struct stat64 record {};
    EXPECT_EQ(lstat64(path.c_str(), &record), 0) << path;
    return record;
}

TEST(Files, AreMadeOfPathsByTheTypeOfWhatIsThere) {
    const FileTree tree;
    const struct {
        const char* name;
        const char* kind;  // null for a place that is nothing at all
    } places[] = {{"reg", "file"},
                  {"empty", "file"},
                  {"dir", "folder"},
                  {"dir/pipe", "fifo file"},
                  {"dir/sock", "socket file"},
                  {"dir/link", "file"},
                  {"dir/tosub", "folder"},
                  {"dir/topipe", "fifo file"},
                  {"dir/tosock", "socket file"},
                  {"dir/todev", "device file"},
                  {"dir/dangling", nullptr},
                  {"dir/self", nullptr},
                  {"missing", nullptr},
                  {"reg/below", nullptr}};
    for (const auto& place : places) {
        for (const std::string kind : {"file", "application", "folder", "fifo file", "socket file", "device file"}) {
            SCOPED_TRACE(kind + " " + place.name);
            const bool is = place.kind != nullptr &&
                            (kind == place.kind || (kind == "application" && place.kind == std::string("file")));
            const Answer expected = is ? Values({tree.Path(place.name)}) : DoesNotExist();
            EXPECT_EQ(tree.Ask(kind + " \"@/" + place.name + "\""), expected);
            EXPECT_EQ(tree.Ask(kind + " \"" + place.name + "\" of folder \"@\""), expected);
            EXPECT_EQ(tree.Ask(kind + "s \"@/" + place.name + "\""), is ? expected : Nothing());
            EXPECT_EQ(tree.Ask(kind + "s \"" + place.name + "\" of folders \"@\""), is ? expected : Nothing());
        }
    }
}

TEST(Files, ThePathIsKeptAsItWasAsked) {
    const FileTree tree;
    const std::string at = tree.Path();
    EXPECT_EQ(tree.Ask("pathname of folder \"@/dir///\""), Values({at + "/dir"}));
    EXPECT_EQ(tree.Ask("pathname of file \"@//reg\""), Values({at + "//reg"}));
    EXPECT_EQ(tree.Ask("pathname of file \"@/dir/../reg\""), Values({at + "/dir/../reg"}));
    EXPECT_EQ(tree.Ask("pathname of file \"/reg\" of folder \"@\""), Values({at + "/reg"}));
    EXPECT_EQ(tree.Ask("pathname of file \"reg//\" of folder \"@\""), Values({at + "/reg"}));
    EXPECT_EQ(tree.Ask("pathname of folder \"/\" of folder \"@\""), Values({at + "/"}));
    EXPECT_EQ(tree.Ask("name of folder \"//\" of folder \"@\""), Values({""}));
    EXPECT_EQ(tree.Ask("pathname of folder \"etc\" of folder \"/\""), Values({"//etc"}));
    EXPECT_EQ(tree.Ask("parent folder of folder \"etc\" of folder \"/\""), Values({"/"}));
}

TEST(Files, TheEmptyTextIsNoPlace) {
    for (const std::string kind :
         {"file", "folder", "application", "symlink", "device file", "fifo file", "socket file"}) {
        EXPECT_EQ(Ask(kind + " \"\""), DoesNotExist()) << kind;
        EXPECT_EQ(Ask(kind + " \"\" of folder \"/\""), DoesNotExist()) << kind;
    }
}

TEST(Files, NamesParentsAndAncestors) {
    const FileTree tree;
    const std::string at = tree.Path();
    EXPECT_EQ(Ask("name of folder \"/\""), Values({"/"}));
    EXPECT_EQ(Ask("parent folder of folder \"/\""), DoesNotExist());
    EXPECT_EQ(Ask("location of folder \"/\""), DoesNotExist());
    EXPECT_EQ(Ask("ancestors of folder \"/\""), Nothing());
    EXPECT_EQ(Ask("parent folder of folder \"/etc\""), Values({"/"}));
    EXPECT_EQ(Ask("location of folder \"/etc\""), Values({"/"}));
    EXPECT_EQ(
        tree.Ask(
            "(names of it; locations of it; pathnames of it; parent folders of it as string) of file \"@/dir/a.txt\""),
        Values({"a.txt", at + "/dir", at + "/dir/a.txt", at + "/dir"}));
    EXPECT_EQ(Ask("ancestors of file \"/usr/bin/env\""), Values({"/usr/bin", "/usr", "/"}));
    EXPECT_EQ(Ask("ancestor of file \"/usr/bin/env\""), (Answer{{"/usr/bin"}, "ArgumentNotUnique"}));
    EXPECT_EQ(Ask("ancestors of files (\"/usr/bin/env\"; \"/etc/passwd\")"),
              Values({"/usr/bin", "/usr", "/", "/etc", "/"}));
}

class FilesHere : public testing::Test {
protected:
    FilesHere() : before_(std::filesystem::current_path()) { std::filesystem::current_path(tree_.Path()); }
    ~FilesHere() override { std::filesystem::current_path(before_); }
    FileTree tree_;

private:
    std::filesystem::path before_;
};

TEST_F(FilesHere, APathWithoutASlashHasANameAndNoParent) {
    EXPECT_EQ(Ask("name of file \"reg\""), Values({"reg"}));
    const Answer parent = Ask("parent folder of file \"reg\"");
    EXPECT_EQ(parent, Fails("InvalidFileLocation"));
    EXPECT_EQ(parent.text, "File error \"19InvalidFileLocation\" on \"reg\"");
    EXPECT_EQ(Ask("location of file \"reg\""), Fails("InvalidFileLocation"));
    EXPECT_EQ(Ask("ancestors of file \"reg\""), Fails("InvalidFileLocation"));
    EXPECT_EQ(Ask("type of filesystem of symlink \"dir/self\""), Values({"DRIVE_UNKNOWN"}));
    EXPECT_EQ(Ask("ancestors of file \"dir/a.txt\""), (Answer{{"dir"}, "InvalidFileLocation"}));
}

TEST(Files, TheNumbersAreThoseOfTheTarget) {
    const FileTree tree;
    for (const std::string name : {"reg", "dir/link", "empty"}) {
        const struct stat64 record = StatOf(tree.Path(name));
        EXPECT_EQ(tree.Ask("(sizes of it; uids of it; gids of it; link counts of it) of file \"@/" + name + "\""),
                  Values({Text(int64_t{record.st_size}), Text(int64_t{record.st_uid}), Text(int64_t{record.st_gid}),
                          Text(static_cast<int64_t>(record.st_nlink))}));
    }
    EXPECT_EQ(tree.Ask("size of application \"@/reg\""), Values({"12"}));
    EXPECT_EQ(tree.Ask("size of folder \"@/dir\""), Fails("OperationNotDefined"));
    EXPECT_EQ(truncate(tree.Path("reg").c_str(), 5000000000), 0);
    EXPECT_EQ(tree.Ask("size of file \"@/reg\""), Values({"5000000000"}));
}

TEST(Files, NamesOfOwners) {
    const struct stat64 record = StatOf("/etc/passwd");
    EXPECT_EQ(Ask("user name of file \"/etc/passwd\""), Values({getpwuid(record.st_uid)->pw_name}));
    EXPECT_EQ(Ask("group name of file \"/etc/passwd\""), Values({getgrgid(record.st_gid)->gr_name}));
}

TEST(Files, AnOwnerWithoutANameHasNone) {
    const FileTree tree;
    if (lchown(tree.Path("reg").c_str(), 987654, 987655) != 0) {
        GTEST_SKIP() << "only root gives files away";
    }
    EXPECT_EQ(tree.Ask("user name of file \"@/reg\""), DoesNotExist());
    EXPECT_EQ(tree.Ask("group names of file \"@/reg\""), Nothing());
    EXPECT_EQ(tree.Ask("(uid of it, gid of it) of file \"@/reg\""), Values({"987654, 987655"}));
}

// What a long listing shows, worked out here bit by bit.
TEST(Files, EveryBitOfAMode) {
    const FileTree tree;
    for (unsigned bits :
         {00644u, 04755u, 04644u, 02755u, 02644u, 01666u, 01777u, 00000u, 07777u, 00421u, 00124u, 06070u}) {
        ASSERT_EQ(chmod(tree.Path("reg").c_str(), bits), 0);
        SCOPED_TRACE(bits);
        const auto has = [bits](unsigned bit) { return Text((bits & bit) != 0); };
        EXPECT_EQ(
            tree.Ask(
                "(user reads of it; user writes of it; user executes of it; group reads of it; group writes of it;"
                " group executes of it; other reads of it; other writes of it; other executes of it; setuids of it;"
                " setgids of it) of file \"@/reg\""),
            Values({has(0400), has(0200), has(0100), has(040), has(020), has(010), has(04), has(02), has(01),
                    has(04000), has(02000)}));
        EXPECT_EQ(tree.Ask("(setuids of it; setgids of it; stickies of it) of mode of file \"@/reg\""),
                  Values({has(04000), has(02000), has(01000)}));
        std::vector<std::string> digits;
        std::vector<std::string> letters;
        for (unsigned shift : {6u, 3u, 0u}) {
            const unsigned digit = bits >> shift & 7;
            digits.push_back(std::to_string(digit));
            letters.push_back({digit & 4 ? 'r' : '-', digit & 2 ? 'w' : '-', digit & 1 ? 'x' : '-'});
        }
        EXPECT_EQ(tree.Ask("(user masks of it; group masks of it; other masks of it) of file \"@/reg\""),
                  Values(digits));
        EXPECT_EQ(tree.Ask("(user masks of it; group masks of it; other masks of it) of mode of file \"@/reg\""),
                  Values(letters));
        EXPECT_EQ(tree.Ask("(it as integer) of (user masks of it; group masks of it; other masks of it) of mode of "
                           "file \"@/reg\""),
                  Values(digits));
        char octal[8];
        std::snprintf(octal, sizeof octal, "%04o", bits);
        EXPECT_EQ(tree.Ask("mode of file \"@/reg\" as octal string"), Values({octal}));
        std::string text = letters[0] + letters[1] + letters[2];
        const auto special = [&text](size_t at, char small, char capital) {
            text[at] = text[at] == 'x' ? small : capital;
        };
        if (bits & 04000) {
            special(2, 's', 'S');
        }
        if (bits & 02000) {
            special(5, 's', 'S');
        }
        if (bits & 01000) {
            special(8, 't', 'T');
        }
        EXPECT_EQ(tree.Ask("mode of file \"@/reg\""), Values({text}));
    }
    chmod(tree.Path("reg").c_str(), 0421);
    EXPECT_EQ(tree.Ask("(reads of it; writes of it; executes of it) of group mask of mode of file \"@/reg\""),
              Values({"False", "True", "False"}));
}

TEST(Files, AValueShowsTheMomentItWasMade) {
    const FileTree tree;
    file before(FileStat(tree.place.Location("reg")));
    tree.place.File("reg", "longer than it was");
    EXPECT_EQ(before.Record()->st_size, 12);
    EXPECT_EQ(At<file>(tree.place.Location("reg"))->Record()->st_size, 18);
}

TEST(Files, TimesAreWholeSecondsOf32Bits) {
    const FileTree tree;
    const struct timespec times[] = {{-86400, 5}, {981173106, 987654321}};
    ASSERT_EQ(utimensat(AT_FDCWD, tree.Path("reg").c_str(), times, 0), 0);
    const std::optional<file> reg = At<file>(tree.place.Location("reg"));
    using place_properties::Time;
    EXPECT_EQ((Time<filesystem_object, &stat64::st_mtim>(*reg))->Microseconds(), 981173106000000);
    EXPECT_EQ((Time<filesystem_object, &stat64::st_atim>(*reg))->Microseconds(), -86400000000);
    EXPECT_EQ((Time<filesystem_object, &stat64::st_ctim>(*reg))->Microseconds(),
              StatOf(tree.Path("reg")).st_ctime * 1000000);
    EXPECT_EQ(FileTime({0x80000000, 0}).Microseconds(), -2147483648000000);
    EXPECT_EQ(FileTime({0x100000001, 0}).Microseconds(), 1000000);
}

TEST(Files, ALinksTimesAreItsOwn) {
    const FileTree tree;
    const struct timespec times[] = {{100, 0}, {200, 0}};
    ASSERT_EQ(utimensat(AT_FDCWD, tree.Path("dir/link").c_str(), times, AT_SYMLINK_NOFOLLOW), 0);
    const std::optional<symbolic_link> link = At<symbolic_link>(tree.place.Location("dir/link"));
    using place_properties::Time;
    EXPECT_EQ((Time<symbolic_link, &stat64::st_mtim>(*link))->Microseconds(), 200000000);
    EXPECT_EQ((Time<symbolic_link, &stat64::st_atim>(*link))->Microseconds(), 100000000);
    EXPECT_EQ((Time<symbolic_link, &stat64::st_ctim>(*link))->Microseconds(),
              LinkStatOf(tree.Path("dir/link")).st_ctime * 1000000);
}

// A value that was made of a link that leads nowhere has its path, and nothing that a record would tell.
TEST(Files, WithoutARecordThereIsNothingToTell) {
    const FileTree tree;
    const device_file dangling(FileStat(tree.place.Location("dir/dangling")));
    EXPECT_EQ(dangling.Record(), nullptr);
    EXPECT_FALSE((place_properties::Number<filesystem_object, &stat64::st_uid>(dangling)));
    EXPECT_FALSE((place_properties::Time<filesystem_object, &stat64::st_mtim>(dangling)));
    EXPECT_FALSE(place_properties::UserName<filesystem_object>(dangling));
    EXPECT_FALSE(place_properties::GroupName<filesystem_object>(dangling));
    EXPECT_EQ(place_properties::Name<filesystem_object>(dangling).View(), "dangling");
}

TEST(Files, TheFingerprintTellsAFileFromWhatItWas) {
    const FileTree tree;
    const auto print = [&tree](const char* name) {
        Fingerprinter fingerprinter;
        const std::optional<file> value = At<file>(tree.place.Location(name));
        InspectorTypeInfo<file>::Fingerprint(fingerprinter, &*value);
        EXPECT_EQ(fingerprinter.dependencies, Fingerprinter::valueSeen);
        return fingerprinter.sum;
    };
    const uint32_t before = print("dir/a.txt");
    EXPECT_EQ(print("dir/a.txt"), before);
    EXPECT_NE(print("dir/link"), before);
    chmod(tree.Path("dir/a.txt").c_str(), 0600);
    const uint32_t afterMode = print("dir/a.txt");
    EXPECT_NE(afterMode, before);
    tree.place.File("dir/a.txt", "other");
    const struct timespec times[] = {{1, 0}, {1, 0}};
    utimensat(AT_FDCWD, tree.Path("dir/a.txt").c_str(), times, 0);
    EXPECT_NE(print("dir/a.txt"), afterMode);
}

TEST(Files, TheFingerprintIsMadeOfSixFields) {
    const FileTree tree;
    const std::optional<application> value = At<application>(tree.place.Location("reg"));
    const struct stat64 record = StatOf(tree.Path("reg"));
    Fingerprinter expected;
    const int64_t size = record.st_size;
    const int64_t modified = int64_t{static_cast<int32_t>(record.st_mtime)} * 1000000;
    const int state = 0;
    expected.AddData(ConstData(tree.Path("reg")));
    expected.AddData(ConstData(&size, sizeof size));
    expected.AddData(ConstData(&modified, sizeof modified));
    expected.AddData(ConstData(&state, sizeof state));
    expected.AddData(ConstData(&record.st_mode, sizeof record.st_mode));
    expected.AddData(ConstData(&record.st_dev, sizeof record.st_dev));
    Fingerprinter actual;
    InspectorTypeInfo<application>::Fingerprint(actual, &*value);
    EXPECT_EQ(actual.sum, expected.sum);
}

TEST(Files, RootAndSystemFolderAndNoWebBrowser) {
    EXPECT_EQ(Ask("(root folders; system folders)"), Values({"/", "/"}));
    EXPECT_EQ(Ask("root folder"), Values({"/"}));
    EXPECT_EQ(Ask("default web browser"), DoesNotExist());
    EXPECT_EQ(Ask("default web browsers"), Nothing());
}

TEST(Files, AnyOfThemConvertsToItsPath) {
    const FileTree tree;
    for (const char* value :
         {"file \"@/reg\"", "folder \"@/dir\"", "fifo file \"@/dir/pipe\"", "application \"@/reg\""}) {
        const Answer path = tree.Ask("pathname of " + std::string(value));
        EXPECT_EQ(path.values.size(), 1u);
        EXPECT_EQ(tree.Ask(std::string(value) + " as string"), path);
    }
}

TEST(Links, AreAskedThemselves) {
    const FileTree tree;
    for (const std::string name : {"link", "dangling", "self", "tosub"}) {
        const struct stat64 record = LinkStatOf(tree.Path("dir/" + name));
        const std::string link = "symlink \"@/dir/" + name + "\"";
        EXPECT_EQ(
            tree.Ask(
                "(names of it; pathnames of it; locations of it; parent folders of it as string; it as string) of " +
                link),
            Values({name, tree.Path("dir/" + name), tree.Path("dir"), tree.Path("dir"), tree.Path("dir/" + name)}));
        EXPECT_EQ(tree.Ask("(uids of it; gids of it; link counts of it) of " + link),
                  Values({Text(int64_t{record.st_uid}), Text(int64_t{record.st_gid}),
                          Text(static_cast<int64_t>(record.st_nlink))}));
        EXPECT_EQ(tree.Ask("(user names of it; group names of it) of " + link),
                  Values({getpwuid(record.st_uid)->pw_name, getgrgid(record.st_gid)->gr_name}));
        EXPECT_EQ(tree.Ask("ancestors of " + link).values.front(), tree.Path("dir"));
        EXPECT_EQ(tree.Ask("ancestors of " + link).values.back(), "/");
    }
    EXPECT_EQ(tree.Ask("mode of symlink \"@/dir/link\""), Fails("OperationNotDefined"));
}

TEST(Links, TellWhereTheyLeadAndWhetherThatIsThere) {
    const FileTree tree;
    EXPECT_EQ(tree.Ask("(values of it; values accessible of it as string) of symlinks (\"link\"; \"dangling\"; "
                       "\"self\"; \"tosub\") of folder \"@/dir\""),
              Values({"a.txt", "True", "nowhere", "False", "self", "False", "sub", "True"}));
    EXPECT_EQ(tree.Ask("symlink \"@/reg\""), DoesNotExist());
    EXPECT_EQ(tree.Ask("symlinks \"@/missing\""), Nothing());
    EXPECT_EQ(tree.Ask("symlink \"@/dir\""), DoesNotExist());
    EXPECT_EQ(tree.Ask("symlink \"@/dir/tosub/\""), Values({tree.Path("dir/tosub")}));
    tree.place.Link("long", std::string(4000, 'x'));
    EXPECT_EQ(tree.Ask("value of symlink \"@/long\""), Values({std::string(4000, 'x')}));
}

TEST(Links, LeadToObjectsAtTheirOwnPathInBothForms) {
    const FileTree tree;
    const struct {
        const char* link;
        const char* kind;
    } rows[] = {{"link", "file"},
                {"tosub", "folder"},
                {"todev", "device file"},
                {"topipe", "fifo file"},
                {"tosock", "socket file"}};
    for (const auto& row : rows) {
        const std::string link = std::string("(symlink \"@/dir/") + row.link + "\")";
        for (const auto& other : rows) {
            const Answer expected =
                row.kind == std::string(other.kind) ? Values({tree.Path("dir/") + row.link}) : DoesNotExist();
            EXPECT_EQ(tree.Ask(std::string(other.kind) + " " + link), expected) << row.link << other.kind;
            EXPECT_EQ(tree.Ask(link + " as " + other.kind), expected) << row.link << other.kind;
        }
        EXPECT_EQ(tree.Ask("symlink " + link), Values({tree.Path("dir/") + row.link}));
        EXPECT_EQ(tree.Ask(link + " as symlink"), Values({tree.Path("dir/") + row.link}));
        const std::string object = std::string("(") + row.kind + " \"@/dir/" + row.link + "\")";
        EXPECT_EQ(tree.Ask("value of symlink " + object), tree.Ask("value of " + link));
        EXPECT_EQ(tree.Ask("value of (" + object + " as symlink)"), tree.Ask("value of " + link));
    }
    EXPECT_EQ(tree.Ask("symlink (file \"@/reg\")"), DoesNotExist());
    EXPECT_EQ(tree.Ask("file (symlink \"@/dir/dangling\")"), DoesNotExist());
    EXPECT_EQ(tree.Ask("size of (symlink \"@/dir/link\" as file)"), Values({"5"}));
}

TEST(DeviceFiles, HaveATypeAndANumberInTwoParts) {
    const struct stat64 record = StatOf("/dev/null");
    EXPECT_EQ(Ask("(device types of it; majors of it as string; minors of it as string) of device file \"/dev/null\""),
              Values({"char", Text(int64_t{major(record.st_rdev)}), Text(int64_t{minor(record.st_rdev)})}));
    EXPECT_EQ(Ask("major of device file \"null\" of folder \"/dev\""), Values({"1"}));
    EXPECT_EQ(MajorOf(makedev(0xabc, 0xfffff)), 0xabc);
    EXPECT_EQ(MinorOf(makedev(0xabc, 0xfffff)), 0xfffff);
    EXPECT_EQ(MinorOf(makedev(1, 0x12345)), 0x12345);
}

TEST(DeviceFiles, ADanglingOneIsABlockDeviceWithoutNumbers) {
    const FileTree tree;
    EXPECT_FALSE(At<device_file>(tree.place.Location("dir/dangling")));
    const device_file dangling(FileStat(tree.place.Location("dir/dangling")));
    EXPECT_FALSE(dangling.Stat().IsCharacterDevice());
}

TEST(DeviceFiles, BlockDevicesAreTold) {
    const FileTree tree;
    if (mknod(tree.Path("block").c_str(), S_IFBLK | 0600, makedev(7, 0x101)) != 0) {
        GTEST_SKIP() << "no block device can be made here";
    }
    EXPECT_EQ(
        tree.Ask(
            "(device types of it; majors of it as string; minors of it as string) of device files of folder \"@\""),
        Values({"block", "7", "257"}));
}

TEST(DeviceFiles, AreMadeOfObjectsInBothForms) {
    const FileTree tree;
    const struct {
        const char* object;
        const char* kind;
    } rows[] = {{"device file \"/dev/null\"", "device file"},
                {"fifo file \"@/dir/pipe\"", "fifo file"},
                {"socket file \"@/dir/sock\"", "socket file"},
                {"file \"@/reg\"", ""},
                {"folder \"@/dir\"", ""}};
    for (const auto& row : rows) {
        for (const std::string kind : {"device file", "fifo file", "socket file"}) {
            const Answer expected = kind == row.kind ? tree.Ask(row.object) : DoesNotExist();
            EXPECT_EQ(tree.Ask(kind + " (" + row.object + ")"), expected) << kind << row.object;
            EXPECT_EQ(tree.Ask(std::string("(") + row.object + ") as " + kind), expected) << kind << row.object;
        }
    }
}

}  // namespace
