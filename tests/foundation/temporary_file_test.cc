#include "foundation/temporary_file.h"

#include <gtest/gtest.h>

#include <string>

#include "foundation/file_operations.h"
#include "tests/foundation/temporary_place.h"

namespace {

// The name of a unique place, without its six last bytes.
std::string Start(const FileLocation& location) {
    const std::string name(location.Name().Text());
    return name.substr(0, name.size() - 6);
}

TEST(UniqueFile, IsANewEmptyFileWithThePrefix) {
    const TemporaryPlace place;
    const FileLocation a = UniqueFile(place.Location(), "pre");
    const FileLocation b = UniqueFile(place.Location(), "pre");
    EXPECT_NE(a.Text(), b.Text());
    for (const FileLocation& location : {a, b}) {
        EXPECT_EQ(location.Parent().Text(), place.Path());
        EXPECT_EQ(Start(location), "pre");
        EXPECT_TRUE(FileStat(location).IsRegular());
        EXPECT_EQ(FileStat(location).Target().st_size, 0);
    }
    EXPECT_EQ(Start(UniqueFile(place.Location(), "")), "");
}

TEST(UniqueFolder, IsANewFolderWithThePrefix) {
    const TemporaryPlace place;
    const FileLocation a = UniqueFolder(place.Location(), "pre");
    EXPECT_EQ(Start(a), "pre");
    EXPECT_TRUE(FileStat(a).IsDirectory());
}

TEST(UniqueFile, TheCodeOfAFailureTellsTheForms) {
    const TemporaryPlace place;
    try {
        UniqueFile(place.Location("no"), "pre");
        FAIL();
    } catch (const CreateUniqueFileLocationFailed& error) {
        EXPECT_EQ(error.Code(), 0);
    }
    try {
        UniqueFolder(place.Location("no"), "pre");
        FAIL();
    } catch (const CreateUniqueFileLocationFailed& error) {
        EXPECT_EQ(error.Code(), 1);
    }
    EXPECT_THROW(UniqueFile(place.Location(), std::string(5000, 'p')), CreateUniqueFileLocationFailed);
    EXPECT_THROW(UniqueFolder(place.Location(), std::string(4088, 'p')), CreateUniqueFileLocationFailed);
}

TEST(UniqueFile, AParentThatIsTooLongIsCut) {
    const TemporaryPlace place;
    std::string path = place.Path();
    while (path.size() < 5000) {
        path += "/.";
    }
    // The cut leaves a path to the same folder, with a name behind it that the kernel still takes.
    const FileLocation cut = UniqueFile(FileLocation(path), "pre");
    EXPECT_EQ(cut.Length(), 4095u);
    EXPECT_TRUE(FileStat(cut).IsRegular());
}

TEST(TemporaryFile, LiesInTheTemporaryFolder) {
    EXPECT_EQ(TemporaryFolder().Text(), "/tmp");
    const FileLocation plain = TemporaryFile();
    EXPECT_EQ(plain.Parent().Text(), "/tmp");
    EXPECT_EQ(Start(plain), "temp");
    DeleteFile(plain);
    const FileLocation named = TemporaryFile("zendry_test_");
    EXPECT_EQ(Start(named), "zendry_test_");
    DeleteFile(named);
}

TEST(TemporaryFile, TryingGivesAnAnswerInsteadOfAFailure) {
    FileLocation out("/unchanged");
    EXPECT_FALSE(TryTemporaryFile(out, "no/such/folder/"));
    EXPECT_EQ(out.Text(), "/unchanged");
    ASSERT_TRUE(TryTemporaryFile(out, nullptr));
    EXPECT_EQ(Start(out), "ostrel");
    EXPECT_TRUE(FileStat(out).IsRegular());
    DeleteFile(out);
    ASSERT_TRUE(TryTemporaryFile(out, "zendry_test_"));
    EXPECT_EQ(Start(out), "zendry_test_");
    DeleteFile(out);
}

TEST(SiblingTemporary, IsAFreeNameBesideAFileAndInsideAFolder) {
    const TemporaryPlace place;
    const FileLocation beside = SiblingTemporary(place.File("a"));
    EXPECT_EQ(beside.Parent().Text(), place.Path());
    EXPECT_EQ(Start(beside), "temp");
    EXPECT_FALSE(FileStat(beside).IsThere());
    const FileLocation inside = SiblingTemporary(place.Location(), "pre");
    EXPECT_EQ(inside.Parent().Text(), place.Path());
    EXPECT_EQ(Start(inside), "pre");
    EXPECT_FALSE(FileStat(inside).IsThere());
    EXPECT_EQ(SiblingTemporary(place.Location("missing")).Parent().Text(), place.Path());
}

TEST(PrivateFolder, IsHiddenUnderTheFolderForAll) {
    EXPECT_EQ(PrivateFolder("").Text(), "/var/tmp/OSL/ClientUI");
    EXPECT_EQ(PrivateFolder("name").Text(), "/var/tmp/OSL/ClientUI/.name");
}

}  // namespace
