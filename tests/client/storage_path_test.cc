#include "client/storage_path.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <string>
#include <vector>

#include "client/inspector_storage_path.h"
#include "foundation/const_data.h"
#include "foundation/file_error.h"
#include "tests/foundation/temporary_place.h"

namespace {

// A storage location of the test's own, and no kept location before or after it.
class Tree : public testing::Test {
protected:
    Tree() {
        Forget();
        place_.Folder("S");
        StoragePath::SetStorageLocation(place_.Location("S"));
        StoragePath::SetLibLocation(place_.Location("L"));
        StoragePath::SetExecutableLocation(place_.Location("X/zendry"));
    }
    ~Tree() override { Forget(); }

    static void Forget() { const StoragePath::StoragePathMemManager manager; }

    std::string Storage(const std::string& rest) const { return place_.Path("S/" + rest); }

    const TemporaryPlace place_;
};

using StoragePathTree = Tree;

TEST_F(StoragePathTree, EveryPlaceOfTheProcess) {
    using Getter = const FileLocation& (*)();
    const std::vector<std::pair<Getter, std::string>> rows = {
        {StoragePath::GetGlobalLocation, place_.Path("S")},
        {StoragePath::GetLibLocation, place_.Path("L")},
        {StoragePath::GetDataFolderLocation, Storage("__OSLData")},
        {StoragePath::GetGlobalFolderLocation, Storage("__OSLData/__Global")},
        {StoragePath::GetLogFolderLocation, Storage("__OSLData/__Global/Logs")},
        {StoragePath::GetUserSettingsLocation, Storage("__OSLData/__Global/UserSettings.db")},
        {StoragePath::GetPowerHistoryLocation, Storage("__OSLData/__Global/PowerHistory.db")},
        {StoragePath::GetActionHistoryLocation, Storage("__OSLData/__Global/ActionHistory.db")},
        {StoragePath::GetGlobalOptionsLocation, Storage("__OSLData/__Global/Options")},
        {StoragePath::GetTemporaryBitmapLocation, Storage("__OSLData/__Global/addsite.bmp")},
        {StoragePath::GetUISessionLocation, Storage("__OSLData/__UISession")},
        {StoragePath::GetUICacheLocation, Storage("__OSLData/__UICache")},
        {StoragePath::GetUISupportLocation, Storage("__OSLData/__UISupport")},
        {StoragePath::GetReferenceLocation, place_.Path("L/Reference")},
        {StoragePath::GetUIProgramLocation, place_.Path("X/XOSLClientUI")},
    };
    for (const auto& [getter, path] : rows) {
        const FileLocation& location = getter();
        EXPECT_EQ(location.Text(), path);
        EXPECT_EQ(&getter(), &location) << path;
    }
    EXPECT_EQ(StoragePath::GetExecutableLocation()->Text(), place_.Path("X/zendry"));
}

TEST_F(StoragePathTree, EveryPlaceOfASite) {
    using InSite = FileLocation (*)(const FileLocation&);
    const std::vector<std::pair<InSite, std::string>> rows = {
        {StoragePath::SiteLocalLocation, "/site/__Local"},
        {StoragePath::SiteDataLocation, "/site/__Local/SiteData"},
        {StoragePath::SiteTemporaryDataLocation, "/site/__Local/SiteTemp"},
        {StoragePath::SiteVariablesLocation, "/site/__Local/SiteVars"},
        {StoragePath::SiteDeletedStoreLocation, "/site/__Local/Deleted"},
        {StoragePath::SiteMastheadLocation, "/site/Masthead"},
        {StoragePath::SiteLocalMastheadLocation, "/site/__Local/Masthead"},
        {StoragePath::SiteAlternateMastheadLocation, "/site/masthead"},
        {StoragePath::SiteFileListLocation, "/site/FileList"},
        {StoragePath::SiteNewFileListLocation, "/site/FileLNew"},
        {StoragePath::SiteIconLocation, "/site/siteicon.bmp"},
        {StoragePath::SiteSmallIconLocation, "/site/siteicos.bmp"},
        {StoragePath::SiteLargeIconLocation, "/site/siteicol.bmp"},
        {StoragePath::SiteProfileLocation, "/site/Profile.htm"},
        {StoragePath::ProfileTemporaryLocation, "/site/__ofile.htm"},
        {StoragePath::SiteGatheringLocation, "/site/Get"},
        {StoragePath::SiteNotationsLocation, "/site/Tmp"},
        {StoragePath::SiteDownloadLocation, "/site/__Download"},
    };
    for (const auto& [place, path] : rows) {
        EXPECT_EQ(place(FileLocation("/site")).Text(), path);
    }
    EXPECT_EQ(StoragePath::SiteFolderLocation("some site").Text(), Storage("__OSLData/some site"));
    EXPECT_EQ(StoragePath::SiteUIIconLocation("name").Text(), Storage("__OSLData/name/_clientui.ico"));
}

TEST_F(StoragePathTree, EveryPlaceByAName) {
    const FileLocation folder("/f");
    EXPECT_EQ(StoragePath::SiteComplianceDocumentLocation(folder, "doc").Text(), "/f/__Compliance/doc");
    EXPECT_EQ(StoragePath::SiteHiddenPageLocation(folder, "page").Text(), "/f/__page.htm");
    EXPECT_EQ(StoragePath::ReservedFileLocation(folder, "name").Text(), "/f/__name");
    EXPECT_EQ(StoragePath::NotationLocation(folder, FileName("a.b.qzf")).Text(), "/f/a.b.dat");
    EXPECT_EQ(StoragePath::NotationLocation(folder, FileName("plain")).Text(), "/f/plain.dat");
    EXPECT_EQ(StoragePath::NotationTemporaryLocation(folder, FileName("a.qzf")).Text(), "/f/a.tmp");
    EXPECT_EQ(StoragePath::NamedDownloadsLocation(FileLocation("/d/client"), "Main", 42).Text(),
              "/d/__Global/__Download/Main/42/named");
}

TEST_F(StoragePathTree, DailyLogsAreNamedByTheirDate) {
    EXPECT_EQ(StoragePath::DailyLogLocation(1999, 3, 9).Text(), Storage("__OSLData/__Global/Logs/19990309.log"));
    EXPECT_EQ(StoragePath::DailyBackupLogLocation(7, 12, 31).Text(), Storage("__OSLData/__Global/Logs/00071231.bkg"));
}

TEST(StoragePathLogs, WideNumbersAreWrittenWholeUntilTheBufferIsFull) {
    EXPECT_EQ(StoragePath::DailyLogName(12345, 678, 0, ".log").Text(), "1234567800.log");
    // 10, 11 and 11 bytes fill the 32.
    EXPECT_EQ(StoragePath::DailyLogName(2147483647, -2147483647, -2147483647, ".log").Text(),
              "2147483647-2147483647-2147483647.log");
    EXPECT_THROW(StoragePath::DailyLogName(-2147483647, -2147483647, -2147483647, ".log"), DataOverflow);
}

TEST(StoragePathLogs, TheDigitFormReadsTheFirstEightBytes) {
    using StoragePath::LogDate;
    EXPECT_EQ(StoragePath::DateOfLogName(FileName("19990309.log")), (LogDate{1999, 3, 9}));
    EXPECT_EQ(StoragePath::DateOfLogName(FileName("000000001")), (LogDate{0, 0, 0}));
    // What is no digit counts by its distance from "0".
    EXPECT_EQ(StoragePath::DateOfLogName(FileName("199:0a-9.log")), (LogDate{2000, 49, -21}));
    EXPECT_THROW(StoragePath::DateOfLogName(FileName("19990309")), IllegalFileName);
    EXPECT_THROW(StoragePath::DateOfLogName(FileName("1")), IllegalFileName);
}

TEST(StoragePathLogs, TheNumberFormReadsTheLeadingNumber) {
    using StoragePath::LogDate;
    EXPECT_EQ(StoragePath::DateOfLogNumber(FileName("19990309.log")), (LogDate{1999, 3, 9}));
    EXPECT_EQ(StoragePath::DateOfLogNumber(FileName("309")), (LogDate{0, 3, 9}));
    EXPECT_EQ(StoragePath::DateOfLogNumber(FileName("log")), (LogDate{0, 0, 0}));
    EXPECT_EQ(StoragePath::DateOfLogNumber(FileName("-19990309")), (LogDate{-1999, -3, -9}));
    EXPECT_EQ(StoragePath::DateOfLogNumber(FileName("99999999999999999999")), (LogDate{922337203685477, 58, 7}));
}

TEST_F(StoragePathTree, TheThreeFoldersAreMadeOnce) {
    const mode_t before = umask(0);
    EXPECT_FALSE(place_.Has("S/__OSLData"));
    StoragePath::GetDataFolderLocation();
    EXPECT_TRUE(place_.Has("S/__OSLData"));
    EXPECT_FALSE(place_.Has("S/__OSLData/__Global"));
    StoragePath::GetLogFolderLocation();
    umask(before);
    for (const char* folder : {"S/__OSLData", "S/__OSLData/__Global", "S/__OSLData/__Global/Logs"}) {
        struct stat found {};
        ASSERT_EQ(stat(place_.Path(folder).c_str(), &found), 0) << folder;
        EXPECT_EQ(found.st_mode, mode_t{S_IFDIR | 0777}) << folder;
    }
    std::filesystem::remove_all(place_.Path("S/__OSLData"));
    StoragePath::GetDataFolderLocation();
    StoragePath::GetGlobalFolderLocation();
    StoragePath::GetLogFolderLocation();
    EXPECT_FALSE(place_.Has("S/__OSLData"));
}

TEST_F(StoragePathTree, NothingButTheThreeFoldersIsMade) {
    StoragePath::GetUserSettingsLocation();
    StoragePath::GetUICacheLocation();
    StoragePath::GetReferenceLocation();
    StoragePath::GetUIProgramLocation();
    StoragePath::SiteFolderLocation("site");
    EXPECT_FALSE(place_.Has("L"));
    EXPECT_FALSE(place_.Has("X"));
    EXPECT_FALSE(place_.Has("S/__OSLData/site"));
    EXPECT_FALSE(place_.Has("S/__OSLData/__UICache"));
    EXPECT_FALSE(place_.Has("S/__OSLData/__Global/Logs"));
}

TEST_F(StoragePathTree, AFolderThatCannotBeMadeIsToldOnceAndThenTakenAsItIs) {
    place_.File("S/__OSLData");
    EXPECT_THROW(StoragePath::GetDataFolderLocation(), FileFoundError);
    EXPECT_EQ(StoragePath::GetDataFolderLocation().Text(), Storage("__OSLData"));
    EXPECT_THROW(StoragePath::GetGlobalFolderLocation(), FileIOError);
    EXPECT_EQ(StoragePath::GetGlobalFolderLocation().Text(), Storage("__OSLData/__Global"));
}

TEST_F(StoragePathTree, AStorageLocationThatIsNotThereIsNotMade) {
    StoragePath::SetStorageLocation(place_.Location("none"));
    EXPECT_FALSE(StoragePath::IsReady());
    EXPECT_FALSE(place_.Has("none"));
    EXPECT_EQ(StoragePath::GetGlobalLocation().Text(), place_.Path("none"));
}

TEST_F(StoragePathTree, ReadinessIsThatOfTheThreeFolders) {
    EXPECT_TRUE(StoragePath::IsReady());
    EXPECT_TRUE(place_.Has("S/__OSLData/__Global/Logs"));
    Forget();
    EXPECT_FALSE(StoragePath::IsReady());
    const TemporaryPlace other;
    other.Folder("__OSLData/__Global");
    other.File("__OSLData/__Global/Logs");
    StoragePath::SetStorageLocation(other.Location());
    EXPECT_FALSE(StoragePath::IsReady());
}

TEST_F(StoragePathTree, ALaterSetterDoesNotMoveWhatWasBuilt) {
    StoragePath::GetDataFolderLocation();
    StoragePath::SetStorageLocation(place_.Location("elsewhere"));
    EXPECT_EQ(StoragePath::GetGlobalLocation().Text(), place_.Path("elsewhere"));
    EXPECT_EQ(StoragePath::GetDataFolderLocation().Text(), Storage("__OSLData"));
    StoragePath::SetExecutableLocation(FileLocation("/bin/other"));
    EXPECT_EQ(StoragePath::GetExecutableLocation()->Text(), "/bin/other");
    EXPECT_EQ(StoragePath::GetUIProgramLocation().Text(), "/bin/XOSLClientUI");
}

TEST_F(StoragePathTree, TheManagersEndClearsEverything) {
    StoragePath::GetLogFolderLocation();
    StoragePath::GetReferenceLocation();
    Forget();
    EXPECT_EQ(StoragePath::GetExecutableLocation(), nullptr);
    EXPECT_THROW(StoragePath::GetGlobalLocation(), UnsetStorageLocation);
    EXPECT_THROW(StoragePath::GetDataFolderLocation(), UnsetStorageLocation);
    EXPECT_THROW(StoragePath::GetLogFolderLocation(), UnsetStorageLocation);
    EXPECT_THROW(StoragePath::GetLibLocation(), UnsetLibLocation);
    EXPECT_THROW(StoragePath::GetReferenceLocation(), UnsetLibLocation);
    EXPECT_THROW(StoragePath::GetUIProgramLocation(), EmptyFileLocationError);
}

TEST(StoragePathNames, ReservedNamesBeginWithTheMarker) {
    for (const char* reserved : {"__Foo", "__foo", "/a/b/__x", "__", "__o", "__o_k", "a/__Local"}) {
        EXPECT_TRUE(StoragePath::IsReservedName(FileLocation(reserved))) << reserved;
    }
    for (const char* free : {"__okFoo", "__OKFOO", "__ok", "/a/__oK", "_Foo", "", "/", "Foo__", "__x/y", "_"}) {
        EXPECT_FALSE(StoragePath::IsReservedName(FileLocation(free))) << free;
    }
}

TEST(StoragePathNames, ABaseNameStandsBehindTheLastSeparatorOfEitherKind) {
    EXPECT_EQ(StoragePath::BaseName("/a/b"), "b");
    EXPECT_EQ(StoragePath::BaseName("a\\b"), "b");
    EXPECT_EQ(StoragePath::BaseName("a\\b/c"), "c");
    EXPECT_EQ(StoragePath::BaseName("a/b\\c"), "c");
    EXPECT_EQ(StoragePath::BaseName("plain"), "plain");
    EXPECT_EQ(StoragePath::BaseName("/a/"), "");
    EXPECT_EQ(StoragePath::BaseName("a\\"), "");
    EXPECT_EQ(StoragePath::BaseName(""), "");
}

TEST_F(StoragePathTree, OnlyWhatLiesInTheDataFolderIsDeleted) {
    place_.Folder("S/__OSLData/site/deep");
    place_.File("S/__OSLData/site/deep/file");
    place_.Folder("S/outside");
    place_.Folder("S/__OSLDataX");
    StoragePath::DeleteTreeInData(place_.Location("S/outside"));
    StoragePath::DeleteTreeInData(place_.Location("S/__OSLDataX"));
    StoragePath::DeleteTreeInData(place_.Location("S/__OSLData/site/../../outside"));
    StoragePath::DeleteTreeInData(FileLocation("relative"));
    StoragePath::DeleteTreeInData(place_.Location("S"));
    EXPECT_TRUE(place_.Has("S/outside"));
    EXPECT_TRUE(place_.Has("S/__OSLDataX"));
    EXPECT_TRUE(place_.Has("S/__OSLData/site/deep/file"));
    StoragePath::DeleteTreeInData(place_.Location("S/__OSLData/none"));
    StoragePath::DeleteTreeInData(place_.Location("S/__OSLData/site"));
    EXPECT_TRUE(place_.Has("S/__OSLData"));
    EXPECT_FALSE(place_.Has("S/__OSLData/site"));
    EXPECT_THROW(StoragePath::DeleteTreeInData(FileLocation()), EmptyFileLocationError);
    StoragePath::DeleteTreeInData(place_.Location("S/__OSLData"));
    EXPECT_FALSE(place_.Has("S/__OSLData"));
}

// The other factory: only the text.
std::string TextOf(const FileLocation& parent, std::string_view name) {
    return std::string(FileLocation(parent, name).Text());
}

TEST_F(StoragePathTree, InspectorsGetTheirPlacesThroughAFactory) {
    SiteMap site;
    site.folderName = "some site";
    EXPECT_EQ(InspectorStoragePath::InspectorSiteDataLocation(TextOf, FileLocation("/a/b")), "/a/b/__Local");
    EXPECT_EQ(InspectorStoragePath::InspectorSiteAdviceLocation(TextOf, "name"), Storage("__OSLData/name"));
    EXPECT_EQ(InspectorStoragePath::InspectorProfileFileLocation(TextOf, site),
              Storage("__OSLData/some site/Profile.htm"));
    EXPECT_EQ(InspectorStoragePath::InspectorProfileLocation(TextOf, site),
              Storage("__OSLData/some site/__Local/SiteVars"));

    const std::unique_ptr<FileLocation> kept =
        InspectorStoragePath::InspectorSiteAdviceLocation(InspectorFileLocation, "name");
    EXPECT_EQ(kept->Text(), Storage("__OSLData/name"));
    EXPECT_EQ(InspectorStoragePath::InspectorProfileLocation(InspectorFileLocation, site)->Text(),
              Storage("__OSLData/some site/__Local/SiteVars"));
}

}  // namespace
