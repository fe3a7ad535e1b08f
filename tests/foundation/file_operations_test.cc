#include "foundation/file_operations.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <cstdio>
#include <limits>
#include <string>

#include "foundation/temporary_file.h"
#include "tests/foundation/temporary_place.h"

namespace {

unsigned sleeps = 0;
void NoSleep(std::chrono::milliseconds) { ++sleeps; }

mode_t ModeOf(const TemporaryPlace& place, const std::string& name) {
    struct stat record = {};
    EXPECT_EQ(::stat(place.Path(name).c_str(), &record), 0);
    return record.st_mode & 07777;
}

// What `call` throws, as its printed text; "" for nothing.
template <class Call>
std::string Text(const Call& call) {
    try {
        call();
    } catch (const std::exception& error) {
        return error.what();
    }
    return "";
}

std::string ErrorOn(const char* name, const std::string& path, int number = 0) {
    return std::string("File error \"") + name + "\" on \"" + path + "\"" +
           (number == 0 ? "" : ": Unknown error: " + std::to_string(number));
}

const FileLocation empty;

TEST(FileOperations, AnEmptyLocationIsRefused) {
    const TemporaryPlace place;
    const FileLocation a = place.File("a");
    FileLocation out;
    EXPECT_THROW(ForceCopyFile(empty, a), EmptyFileLocationError);
    EXPECT_THROW(ForceCopyFile(a, empty), EmptyFileLocationError);
    EXPECT_THROW(CopyFile(empty, a), EmptyFileLocationError);
    EXPECT_THROW(CopyFile(a, empty), EmptyFileLocationError);
    EXPECT_THROW(ForceMoveFile(empty, a), EmptyFileLocationError);
    EXPECT_THROW(ForceMoveFile(a, empty), EmptyFileLocationError);
    EXPECT_THROW(MoveFile(a, empty), EmptyFileLocationError);
    EXPECT_THROW(ForceNonexistence(empty), EmptyFileLocationError);
    EXPECT_THROW(DeleteFile(empty), EmptyFileLocationError);
    EXPECT_THROW(DeleteDirectory(empty), EmptyFileLocationError);
    EXPECT_THROW(DeleteTree(empty), EmptyFileLocationError);
    EXPECT_THROW(DeleteTreeIfThere(empty), EmptyFileLocationError);
    EXPECT_THROW(EmptyFolder(empty), EmptyFileLocationError);
    EXPECT_THROW(EmptyFolderIfThere(empty), EmptyFileLocationError);
    EXPECT_THROW(CopyTree(empty, a), EmptyFileLocationError);
    EXPECT_THROW(CopyTree(a, empty), EmptyFileLocationError);
    EXPECT_THROW(CreateDirectory(empty), EmptyFileLocationError);
    EXPECT_THROW(EnsureDirectory(empty), EmptyFileLocationError);
    EXPECT_THROW(EnsurePath(empty), EmptyFileLocationError);
    EXPECT_THROW(CreateFile(empty), EmptyFileLocationError);
    EXPECT_THROW(SetReadOnly(empty, true), EmptyFileLocationError);
    EXPECT_THROW(IsReadOnly(empty), EmptyFileLocationError);
    EXPECT_THROW(FreeBytes(empty), EmptyFileLocationError);
    EXPECT_THROW(UniqueFile(empty, "a"), EmptyFileLocationError);
    EXPECT_THROW(UniqueFolder(empty, "a"), EmptyFileLocationError);
    EXPECT_THROW(SiblingTemporary(empty), EmptyFileLocationError);
}

TEST(FileOperations, MovingFromNowhereIsFoundOutBeforeTheMissingText) {
    EXPECT_THROW(MoveFile(empty, empty), FileNotFoundError);
}

TEST(CopyFile, CopiesTheContentAndNotTheTime) {
    const TemporaryPlace place;
    std::string content(200000, 'x');
    content[70000] = '\0';
    FileStat source(place.File("a", content));
    SetModificationTime(source, 1000000000);
    CopyFile(place.Location("a"), place.Location("b"));
    EXPECT_EQ(place.Content("b"), content);
    EXPECT_GT(FileStat(place.Location("b")).ModificationTime(), 1000000000);
}

TEST(CopyFile, AFileOfAnySizeIsCopied) {
    const TemporaryPlace place;
    for (const size_t size : {0, 1, 65535, 65536, 65537}) {
        CopyFile(place.File("a", std::string(size, 'c')), place.Location(std::to_string(size)));
        EXPECT_EQ(place.Content(std::to_string(size)), std::string(size, 'c'));
    }
}

TEST(CopyFile, ALinkToAFileIsCopiedAsTheFile) {
    const TemporaryPlace place;
    place.File("a", "content");
    CopyFile(place.Link("l", "a"), place.Location("b"));
    EXPECT_EQ(FileStat(place.Location("b")).GetState(), FileStat::NoLink);
    EXPECT_EQ(place.Content("b"), "content");
}

TEST(CopyFile, AFileWithoutALengthIsCopied) {
    const TemporaryPlace place;
    CopyFile(FileLocation("/proc/version"), place.Location("b"));
    EXPECT_EQ(place.Content("b").substr(0, 6), "Linux ");
}

TEST(CopyFile, TheSourceMustBeARegularFile) {
    const TemporaryPlace place;
    const FileLocation to = place.Location("to");
    for (const FileLocation& from :
         {place.Location("missing"), place.Folder("folder"), place.Link("l", "nowhere"), FileLocation("/dev/null")}) {
        EXPECT_EQ(Text([&] { CopyFile(from, to); }), ErrorOn("17FileNotFoundError", from.CString()));
        EXPECT_EQ(Text([&] { ForceCopyFile(from, to); }), ErrorOn("17FileNotFoundError", from.CString()));
    }
}

TEST(CopyFile, ATargetThatIsThereStopsIt) {
    const TemporaryPlace place;
    const FileLocation from = place.File("from", "new");
    for (const FileLocation& to : {place.File("a", "old"), place.Folder("folder"), place.Link("l", "nowhere")}) {
        EXPECT_EQ(Text([&] { CopyFile(from, to); }), ErrorOn("15FileExistsError", to.CString()));
    }
    EXPECT_EQ(place.Content("a"), "old");
}

TEST(CopyFile, ATargetThatCannotBeMadeThrows) {
    const TemporaryPlace place;
    EXPECT_EQ(Text([&] { CopyFile(place.File("a"), place.Location("no/b")); }),
              ErrorOn("17FileNotFoundError", place.Path("no/b"), ENOENT));
}

TEST(ForceCopyFile, TakesThePlaceOfAFileOrAnEmptyFolder) {
    const TemporaryPlace place;
    const FileLocation from = place.File("from", "new");
    place.File("a", "old");
    place.Folder("folder");
    for (const char* name : {"a", "folder", "free"}) {
        ForceCopyFile(from, place.Location(name));
        EXPECT_EQ(place.Content(name), "new");
    }
}

TEST(ForceCopyFile, AFullFolderStopsIt) {
    const TemporaryPlace place;
    const FileLocation from = place.File("from", "new");
    place.Folder("folder");
    place.File("folder/x");
    EXPECT_EQ(Text([&] { ForceCopyFile(from, place.Location("folder")); }),
              ErrorOn("11FileIOError", place.Path("folder"), ENOTEMPTY));
    EXPECT_TRUE(place.Has("folder/x"));
}

TEST(ForceCopyFile, ADanglingLinkStaysAndStopsIt) {
    const TemporaryPlace place;
    const FileLocation from = place.File("from", "new");
    EXPECT_EQ(Text([&] { ForceCopyFile(from, place.Link("l", "nowhere")); }),
              ErrorOn("15FileExistsError", place.Path("l"), EEXIST));
}

TEST(MoveFile, RenamesFilesFoldersAndLinks) {
    const TemporaryPlace place;
    place.File("a", "content");
    place.Folder("folder");
    place.File("folder/x");
    place.Link("l", "nowhere");
    MoveFile(place.Location("a"), place.Location("a2"));
    MoveFile(place.Location("folder"), place.Location("folder2"));
    MoveFile(place.Location("l"), place.Location("l2"));
    EXPECT_EQ(place.Content("a2"), "content");
    EXPECT_TRUE(place.Has("folder2/x"));
    EXPECT_TRUE(place.Has("l2"));
    EXPECT_FALSE(place.Has("a") || place.Has("folder") || place.Has("l"));
}

TEST(MoveFile, WhatItFindsOutByLookingHasNoErrno) {
    const TemporaryPlace place;
    const FileLocation a = place.File("a");
    EXPECT_EQ(Text([&] { MoveFile(place.Location("b"), a); }), ErrorOn("17FileNotFoundError", place.Path("b")));
    for (const FileLocation& to : {place.File("c"), place.Folder("d"), place.Link("l", "nowhere")}) {
        EXPECT_EQ(Text([&] { MoveFile(a, to); }), ErrorOn("14FileFoundError", to.CString()));
    }
}

TEST(MoveFile, AFailedRenameShowsBothPaths) {
    const TemporaryPlace place;
    place.Folder("d");
    EXPECT_EQ(Text([&] { MoveFile(place.Location("d"), place.Location("d/e")); }),
              "File error \"13FileMoveError\" on \"" + place.Path("d") + "\" and \"" + place.Path("d/e") +
                  "\": Unknown error: 22");
}

// A folder on another file system than the usual temporary one, or nothing.
class OtherFileSystem {
public:
    OtherFileSystem(const TemporaryPlace& place) {
        struct stat here;
        struct stat there;
        if (::stat(place.Path().c_str(), &here) == 0 && ::stat("/dev/shm", &there) == 0 &&
            here.st_dev != there.st_dev && ::mkdtemp(path_) != nullptr) {
            made_ = true;
        }
    }
    ~OtherFileSystem() {
        if (made_) {
            std::filesystem::remove_all(path_);
        }
    }
    explicit operator bool() const { return made_; }
    std::string Path(const std::string& name) const { return std::string(path_) + "/" + name; }

private:
    char path_[64] = "/dev/shm/zendry_test_XXXXXX";
    bool made_ = false;
};

TEST(MoveFile, AcrossFileSystemsFilesAndFoldersAreCopiedAndDeleted) {
    const TemporaryPlace place;
    const OtherFileSystem other(place);
    // A rename fails between two file systems only, and a test cannot make one without rights.
    if (!other) {
        GTEST_SKIP() << "there is no second file system to write to";
    }
    place.File("a", "content");
    MoveFile(place.Location("a"), FileLocation(other.Path("a")));
    EXPECT_FALSE(place.Has("a"));
    EXPECT_EQ(FileStat(FileLocation(other.Path("a"))).Target().st_size, 7);
    place.Folder("folder/below");
    place.File("folder/below/x", "12");
    MoveFile(place.Location("folder"), FileLocation(other.Path("folder")));
    EXPECT_FALSE(place.Has("folder"));
    EXPECT_EQ(FileStat(FileLocation(other.Path("folder/below/x"))).Target().st_size, 2);
}

TEST(MoveFile, AcrossFileSystemsAnythingElseSilentlyStays) {
    const TemporaryPlace place;
    const OtherFileSystem other(place);
    // A rename fails between two file systems only, and a test cannot make one without rights.
    if (!other) {
        GTEST_SKIP() << "there is no second file system to write to";
    }
    place.Link("l", "nowhere");
    ASSERT_EQ(::mkfifo(place.Path("f").c_str(), 0600), 0);
    for (const char* name : {"l", "f"}) {
        EXPECT_NO_THROW(MoveFile(place.Location(name), FileLocation(other.Path(name))));
        EXPECT_TRUE(place.Has(name));
        EXPECT_FALSE(FileStat(FileLocation(other.Path(name))).IsThere());
    }
}

TEST(ForceMoveFile, TakesThePlaceOfItsOwnKind) {
    const TemporaryPlace place;
    place.File("a", "new");
    place.File("b", "old");
    ForceMoveFile(place.Location("a"), place.Location("b"));
    EXPECT_EQ(place.Content("b"), "new");
    EXPECT_FALSE(place.Has("a"));
    place.Folder("d/x");
    place.Folder("e");
    ForceMoveFile(place.Location("d"), place.Location("e"));
    EXPECT_TRUE(place.Has("e/x"));
    ForceMoveFile(place.Location("b"), place.Location("free"));
    EXPECT_EQ(place.Content("free"), "new");
}

TEST(ForceMoveFile, ASourceThatIsNotThereIsNotFound) {
    const TemporaryPlace place;
    EXPECT_EQ(Text([&] { ForceMoveFile(place.Location("a"), place.File("b")); }),
              ErrorOn("17FileNotFoundError", place.Path("a")));
    EXPECT_TRUE(place.Has("b"));
}

TEST(ForceMoveFile, KindsAreNeverReplaced) {
    const TemporaryPlace place;
    const FileLocation file = place.File("file");
    const FileLocation folder = place.Folder("folder");
    EXPECT_EQ(Text([&] { ForceMoveFile(file, folder); }), ErrorOn("19DirectoryFoundError", folder.CString()));
    EXPECT_EQ(Text([&] { ForceMoveFile(folder, file); }), ErrorOn("19DirectoryFoundError", folder.CString()));
    ASSERT_EQ(::mkfifo(place.Path("fifo").c_str(), 0600), 0);
    EXPECT_EQ(Text([&] { ForceMoveFile(place.Location("fifo"), file); }),
              ErrorOn("19DirectoryFoundError", file.CString()));
}

TEST(ForceMoveFile, AFullFolderStopsIt) {
    const TemporaryPlace place;
    place.Folder("d");
    place.Folder("e/x");
    EXPECT_EQ(Text([&] { ForceMoveFile(place.Location("d"), place.Location("e")); }),
              ErrorOn("11FileIOError", place.Path("e"), ENOTEMPTY));
}

TEST(ForceNonexistence, DeletesFilesAndEmptyFolders) {
    const TemporaryPlace place;
    place.File("target");
    ForceNonexistence(place.File("a"));
    ForceNonexistence(place.Folder("d"));
    ForceNonexistence(place.Link("l", "target"));
    ForceNonexistence(place.Location("missing"));
    EXPECT_FALSE(place.Has("a") || place.Has("d") || place.Has("l"));
    EXPECT_TRUE(place.Has("target"));
}

TEST(ForceNonexistence, LeavesEverythingElseAndReportsSuccess) {
    const TemporaryPlace place;
    ASSERT_EQ(::mkfifo(place.Path("f").c_str(), 0600), 0);
    place.Link("l", "nowhere");
    ForceNonexistence(place.Location("f"));
    ForceNonexistence(place.Location("l"));
    ForceNonexistence(FileLocation("/dev/null"));
    EXPECT_TRUE(place.Has("f"));
    EXPECT_TRUE(place.Has("l"));
    EXPECT_TRUE(FileStat(FileLocation("/dev/null")).IsCharacterDevice());
}

TEST(ForceNonexistence, ALinkToAFolderCountsAsTheFolder) {
    const TemporaryPlace place;
    place.Folder("d");
    EXPECT_EQ(Text([&] { ForceNonexistence(place.Link("l", "d")); }),
              ErrorOn("22DirectoryNotFoundError", place.Path("l"), ENOTDIR));
}

TEST(DeleteFile, UnlinksOrThrowsByTheLocationTable) {
    const TemporaryPlace place;
    DeleteFile(place.File("a"));
    DeleteFile(place.Link("l", "nowhere"));
    EXPECT_FALSE(place.Has("a") || place.Has("l"));
    EXPECT_EQ(Text([&] { DeleteFile(place.Location("a")); }), ErrorOn("17FileNotFoundError", place.Path("a"), ENOENT));
    EXPECT_THROW(DeleteFile(place.Folder("d")), FileIOError);
}

TEST(DeleteDirectory, WantsAnEmptyFolder) {
    const TemporaryPlace place;
    DeleteDirectory(place.Folder("d"));
    EXPECT_FALSE(place.Has("d"));
    EXPECT_EQ(Text([&] { DeleteDirectory(place.File("a")); }), ErrorOn("22DirectoryNotFoundError", place.Path("a")));
    EXPECT_EQ(Text([&] { DeleteDirectory(place.Location("no")); }),
              ErrorOn("22DirectoryNotFoundError", place.Path("no")));
    place.Folder("full/x");
    EXPECT_EQ(Text([&] { DeleteDirectory(place.Location("full")); }),
              ErrorOn("11FileIOError", place.Path("full"), ENOTEMPTY));
}

TEST(DeleteTree, DeletesAllContentAndTheFolder) {
    const TemporaryPlace place;
    place.Folder("d/e/f");
    place.File("d/e/x");
    place.File("d/y");
    place.File("outside");
    place.Link("d/l", "../outside");
    DeleteTree(place.Location("d"));
    EXPECT_FALSE(place.Has("d"));
    EXPECT_TRUE(place.Has("outside"));
}

TEST(DeleteTree, EmptyingKeepsTheFolder) {
    const TemporaryPlace place;
    place.Folder("d/e");
    place.File("d/e/x");
    EmptyFolder(place.Location("d"));
    EXPECT_TRUE(place.Has("d"));
    EXPECT_FALSE(place.Has("d/e"));
    place.Folder("d/e");
    EmptyFolderIfThere(place.Location("d"));
    EXPECT_FALSE(place.Has("d/e"));
}

TEST(DeleteTree, NothingThereIsAFailureOrNot) {
    const TemporaryPlace place;
    const FileLocation no = place.Location("no");
    EXPECT_EQ(Text([&] { DeleteTree(no); }), ErrorOn("22DirectoryNotFoundError", no.CString()));
    EXPECT_EQ(Text([&] { EmptyFolder(no); }), ErrorOn("22DirectoryNotFoundError", no.CString()));
    EXPECT_NO_THROW(DeleteTreeIfThere(no));
    EXPECT_NO_THROW(EmptyFolderIfThere(no));
    DeleteTreeIfThere(place.Folder("d"));
    EXPECT_FALSE(place.Has("d"));
    EXPECT_EQ(Text([&] { DeleteTree(place.File("a")); }), ErrorOn("22DirectoryNotFoundError", place.Path("a")));
    EXPECT_TRUE(place.Has("a"));
}

TEST(DeleteTree, ALinkToAFolderIsEmptiedAsTheFolderAndStopsIt) {
    const TemporaryPlace place;
    place.Folder("outside");
    place.File("outside/x");
    place.Folder("d");
    place.Link("d/l", "../outside");
    EXPECT_EQ(Text([&] { DeleteTree(place.Location("d")); }),
              ErrorOn("22DirectoryNotFoundError", place.Path("d/l"), ENOTDIR));
    EXPECT_TRUE(place.Has("outside"));
    EXPECT_FALSE(place.Has("outside/x"));
}

TEST(DeleteTree, ADanglingLinkStaysAndStopsIt) {
    const TemporaryPlace place;
    place.Folder("d");
    place.Link("d/l", "nowhere");
    EXPECT_EQ(Text([&] { DeleteTree(place.Location("d")); }), ErrorOn("11FileIOError", place.Path("d"), ENOTEMPTY));
    EXPECT_TRUE(place.Has("d/l"));
}

TEST(DeleteTree, ATreeAsDeepAsAPathMayBeIsDeleted) {
    const TemporaryPlace place;
    std::string path = place.Path("d");
    const std::string top = path;
    while (path.size() < 4080) {
        ASSERT_EQ(::mkdir(path.c_str(), 0777), 0);
        path += "/d";
    }
    DeleteTree(FileLocation(top));
    EXPECT_FALSE(place.Has("d"));
}

TEST(CopyTree, CopiesFilesAndFoldersAndPassesOverLinksToFolders) {
    const TemporaryPlace place;
    place.Folder("d/e");
    place.File("d/e/x", "deep");
    place.File("d/y", "top");
    place.Link("d/file", "y");
    place.Link("d/folder", "e");
    CopyTree(place.Location("d"), place.Location("new/parents/c"));
    EXPECT_EQ(place.Content("new/parents/c/e/x"), "deep");
    EXPECT_EQ(place.Content("new/parents/c/y"), "top");
    EXPECT_EQ(FileStat(place.Location("new/parents/c/file")).GetState(), FileStat::NoLink);
    EXPECT_FALSE(place.Has("new/parents/c/folder"));
}

TEST(CopyTree, TheSourceMustBeAFolder) {
    const TemporaryPlace place;
    EXPECT_EQ(Text([&] { CopyTree(place.Location("no"), place.Location("c")); }),
              ErrorOn("22DirectoryNotFoundError", place.Path("no")));
    EXPECT_EQ(Text([&] { CopyTree(place.File("a"), place.Location("c")); }),
              ErrorOn("22DirectoryNotFoundError", place.Path("a")));
    EXPECT_FALSE(place.Has("c"));
}

TEST(CopyTree, ADanglingLinkIsNotFoundAfterEightAttempts) {
    const FileRetrySleep noSleep(NoSleep);
    sleeps = 0;
    const TemporaryPlace place;
    place.Folder("d");
    place.File("d/a", "first");
    place.Link("d/l", "nowhere");
    EXPECT_EQ(Text([&] { CopyTree(place.Location("d"), place.Location("c")); }),
              ErrorOn("17FileNotFoundError", place.Path("d/l")));
    EXPECT_EQ(sleeps, 7u);
    EXPECT_EQ(place.Content("c/a"), "first");
}

TEST(CopyTree, AFileThatIsThereStopsIt) {
    const FileRetrySleep noSleep(NoSleep);
    const TemporaryPlace place;
    place.Folder("d");
    place.File("d/a", "new");
    place.Folder("c");
    place.File("c/a", "old");
    EXPECT_EQ(Text([&] { CopyTree(place.Location("d"), place.Location("c")); }),
              ErrorOn("15FileExistsError", place.Path("c/a")));
    EXPECT_EQ(place.Content("c/a"), "old");
}

// The log of a copy cannot be had, but its sleep can: what it deletes is gone when the walk reaches it.
std::string vanishing;
void Vanish(std::chrono::milliseconds) { std::filesystem::remove(vanishing); }

TEST(CopyTree, AnEntryThatHasGoneIsAnItemError) {
    const FileRetrySleep vanish(Vanish);
    const TemporaryPlace place;
    place.Folder("d");
    place.File("d/a");
    place.File("d/b");
    place.Folder("c");
    place.Folder("c/a");
    vanishing = place.Path("c/a");
    // The first attempt to copy "a" fails at the folder in its place; the sleep takes that away.
    CopyTree(place.Location("d"), place.Location("c"));
    EXPECT_TRUE(place.Has("c/b"));
    place.Folder("c2/a");
    vanishing = place.Path("d/b");
    EXPECT_THROW(CopyTree(place.Location("d"), place.Location("c2")), FileExistsError);
    place.File("d/b");
    static std::string blocker;
    blocker = place.Path("c3/a");
    place.Folder("c3/a");
    vanishing = place.Path("d/b");
    const FileRetrySleep both([](std::chrono::milliseconds) {
        std::filesystem::remove(vanishing);
        std::filesystem::remove(blocker);
    });
    EXPECT_EQ(Text([&] { CopyTree(place.Location("d"), place.Location("c3")); }),
              ErrorOn("13FileItemError", place.Path("d/b")));
}

TEST(CreateDirectory, MakesOneFolderInAFreePlace) {
    const TemporaryPlace place;
    const mode_t before = ::umask(022);
    CreateDirectory(place.Location("d"));
    CreateDirectory(place.Location("e"), 0700);
    ::umask(before);
    EXPECT_EQ(ModeOf(place, "d"), 0755u);
    EXPECT_EQ(ModeOf(place, "e"), 0700u);
    for (const FileLocation& there : {place.Location("d"), place.File("a"), place.Link("l", "nowhere")}) {
        EXPECT_EQ(Text([&] { CreateDirectory(there); }), ErrorOn("19DirectoryFoundError", there.CString()));
    }
    EXPECT_EQ(Text([&] { CreateDirectory(place.Location("x/y")); }),
              ErrorOn("17FileNotFoundError", place.Path("x/y"), ENOENT));
}

TEST(EnsureDirectory, AcceptsAFolderThatIsThere) {
    const TemporaryPlace place;
    EnsureDirectory(place.Location("d"), 0700);
    EnsureDirectory(place.Location("d"), 0777);
    EXPECT_EQ(ModeOf(place, "d"), 0700u);
    EXPECT_NO_THROW(EnsureDirectory(place.Link("l", "d")));
    for (const FileLocation& there : {place.File("a"), place.Link("m", "nowhere")}) {
        EXPECT_EQ(Text([&] { EnsureDirectory(there); }), ErrorOn("14FileFoundError", there.CString()));
    }
}

TEST(EnsurePath, MakesEveryMissingAncestor) {
    const TemporaryPlace place;
    EnsurePath(place.Location("a/b/c"));
    EXPECT_TRUE(FileStat(place.Location("a/b/c")).IsDirectory());
    EXPECT_NO_THROW(EnsurePath(place.Location("a/b/c")));
    EXPECT_NO_THROW(EnsurePath(FileLocation("/")));
    place.File("a/file");
    EXPECT_EQ(Text([&] { EnsurePath(place.Location("a/file/x/y")); }),
              ErrorOn("14FileFoundError", place.Path("a/file")));
    EXPECT_EQ(Text([&] { EnsurePath(FileLocation("no_such_folder_here")); }),
              ErrorOn("19InvalidFileLocation", "no_such_folder_here"));
}

TEST(CreateFile, MakesAnEmptyFileInAFreePlace) {
    const TemporaryPlace place;
    const mode_t before = ::umask(022);
    CreateFile(place.Location("a"), 0666);
    CreateFile(place.Location("b"), 0777);
    ::umask(before);
    EXPECT_EQ(ModeOf(place, "a"), 0644u);
    EXPECT_EQ(ModeOf(place, "b"), 0777u);
    for (const FileLocation& there : {place.Location("a"), place.Folder("d"), place.Link("l", "nowhere")}) {
        EXPECT_EQ(Text([&] { CreateFile(there); }), ErrorOn("14FileFoundError", there.CString()));
    }
    EXPECT_EQ(Text([&] { CreateFile(place.Location("x/y")); }),
              ErrorOn("17FileNotFoundError", place.Path("x/y"), ENOENT));
}

TEST(SetReadOnly, ClearsTheWriteBitsAndSetsThemThroughTheUmask) {
    const TemporaryPlace place;
    const FileLocation a = place.File("a");
    ASSERT_EQ(::chmod(a.CString(), 0766), 0);
    const mode_t before = ::umask(027);
    SetReadOnly(a, true);
    EXPECT_EQ(ModeOf(place, "a"), 0544u);
    SetReadOnly(a, false);
    EXPECT_EQ(ModeOf(place, "a"), 0740u);
    EXPECT_EQ(::umask(before), 027u);
    EXPECT_EQ(Text([&] { SetReadOnly(place.Location("no"), true); }),
              ErrorOn("17FileNotFoundError", place.Path("no"), ENOENT));
}

TEST(IsReadOnly, AsksWhetherThisProcessMayWrite) {
    const TemporaryPlace place;
    const FileLocation a = place.File("a");
    EXPECT_FALSE(IsReadOnly(a));
    SetReadOnly(a, true);
    EXPECT_EQ(IsReadOnly(a), ::geteuid() != 0);
    EXPECT_EQ(Text([&] { IsReadOnly(place.Location("no")); }),
              ErrorOn("17FileNotFoundError", place.Path("no"), ENOENT));
}

TEST(FreeBytes, CountsAllFreeBlocks) {
    const TemporaryPlace place;
    struct statvfs record;
    ASSERT_EQ(::statvfs("/proc", &record), 0);
    EXPECT_EQ(FreeBytes(FileLocation("/proc")), static_cast<int64_t>(record.f_frsize * record.f_bfree));
    EXPECT_GT(FreeBytes(place.Location()), 0);
    EXPECT_EQ(FreeBytes(place.Location("no")), -1);
}

TEST(SetModificationTime, ReachesTheDiskInWholeSeconds) {
    const TemporaryPlace place;
    const FileLocation a = place.File("a");
    const struct timespec times[2] = {{1000, 500}, {2000, 500}};
    ASSERT_EQ(::utimensat(AT_FDCWD, a.CString(), times, 0), 0);
    FileStat stat(a);
    SetModificationTime(stat, 1234567890999999);
    EXPECT_EQ(stat.ModificationTime(), 1234567890000000);
    const FileStat after(a);
    EXPECT_EQ(after.ModificationTime(), 1234567890000000);
    EXPECT_EQ(after.Target().st_mtim.tv_nsec, 0);
    EXPECT_EQ(after.AccessTime(), 1000000000);
    EXPECT_EQ(after.Target().st_atim.tv_nsec, 0);
}

TEST(SetModificationTime, FailuresHaveTheirClasses) {
    const TemporaryPlace place;
    FileStat missing(place.Location("no"));
    EXPECT_THROW(SetModificationTime(missing, 0), InvalidStats);
    FileStat gone(place.File("a"));
    DeleteFile(place.Location("a"));
    EXPECT_EQ(Text([&] { SetModificationTime(gone, 0); }), ErrorOn("17FileNotFoundError", place.Path("a"), ENOENT));
    place.Folder("d");
    FileStat inside(place.File("d/x"));
    std::filesystem::remove_all(place.Path("d"));
    place.File("d");
    EXPECT_EQ(Text([&] { SetModificationTime(inside, 0); }), ErrorOn("11FileIOError", place.Path("d/x"), ENOTDIR));
}

}  // namespace
