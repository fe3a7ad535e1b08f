// The sites of a data tree, and trees that nobody would make on purpose.
#include "client/site_scan.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>

#include "client/custom_site_name.h"
#include "client/site_map_holder.h"
#include "client/storage_path.h"
#include "foundation/file_location.h"
#include "tests/client/configuration.h"
#include "tests/foundation/temporary_place.h"

namespace {

std::string Masthead(const std::string& headers) {
    return "Content-Type: multipart/signed; boundary=s\n\n--s\n"
           "Content-Type: multipart/related; boundary=r; type=\"Application/x-Praxel-Site-Masthead\"\n\n--r\n\n" +
           headers + "\n\n--r--\n\n--s\n\nsignature\n--s--\n";
}

class SiteScan : public testing::Test {
protected:
    void Site(const std::string& folder, const std::string& masthead, const std::string& at = "Masthead") const {
        place.Folder(folder + "/__Local");
        place.File(folder + "/" + at, masthead);
    }
    std::vector<SiteMap> Sites() const { return SitesInDataFolder(place.Location()); }
    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const SiteMap& site : Sites()) {
            names.push_back(site.name);
        }
        return names;
    }

    TemporaryPlace place;
};

using Strings = std::vector<std::string>;

TEST_F(SiteScan, ASiteHasAMastheadInOneOfThreePlaces) {
    Site("a", Masthead("X-Praxel-Site-Name: first"));
    Site("b", Masthead("X-Praxel-Site-Name: second"), "masthead");
    Site("c", Masthead("X-Praxel-Site-Name: third"), "__Local/Masthead");
    place.Folder("d/__Local");
    place.File("d/Other");
    place.File("e");
    EXPECT_EQ(Names(), (Strings{"first", "second", "third"}));
    place.File("b/Masthead", Masthead("X-Praxel-Site-Name: before"));
    EXPECT_EQ(Names(), (Strings{"first", "before", "third"}));
}

TEST_F(SiteScan, AReservedNameIsNoSite) {
    for (const char* name : {"__Global", "__x", "__okay", "__OKay", "_one"}) {
        Site(name, Masthead(""));
    }
    std::vector<std::string> folders;
    for (const SiteMap& site : Sites()) {
        folders.push_back(site.folderName);
    }
    std::sort(folders.begin(), folders.end());
    EXPECT_EQ(folders, (Strings{"__OKay", "__okay", "_one"}));
}

TEST_F(SiteScan, NameAndUrlComeFromTheMasthead) {
    Site("a", Masthead("X-Praxel-Site-Name: named\nX-Praxel-Site-Location: there\nX-Praxel-Site-Gather-URL: gather"));
    Site("b", Masthead("X-Praxel-Site-Location: there"));
    Site("c", Masthead("Subject: neither"));
    const std::vector<SiteMap> sites = Sites();
    ASSERT_EQ(sites.size(), 3U);
    EXPECT_EQ(sites[0].name, "named");
    EXPECT_EQ(sites[0].folderName, "a");
    EXPECT_EQ(sites[0].url, "gather");
    EXPECT_EQ(sites[1].name, "b");
    EXPECT_EQ(sites[1].url, "there");
    EXPECT_EQ(sites[2].name, "c");
    EXPECT_EQ(sites[2].url, std::nullopt);
}

TEST_F(SiteScan, TheRestComesFromTheSiteData) {
    Site("a", Masthead(""));
    place.File("a/__Local/SiteData", "Version: 7\nType: Custom Site\n");
    Site("b", Masthead(""));
    place.File("b/__Local/SiteData", "Type: Praxel Site\n");
    const std::vector<SiteMap> sites = Sites();
    ASSERT_EQ(sites.size(), 2U);
    EXPECT_EQ(sites[0].version, 7);
    EXPECT_TRUE(sites[0].nameIsTranslated);
    EXPECT_EQ(sites[1].version, std::nullopt);
    EXPECT_FALSE(sites[1].nameIsTranslated);
}

TEST_F(SiteScan, NothingInTheTreeMakesItFail) {
    Site("empty", "");
    Site("junk", std::string("\0\r\n\xff:\x01\n\n--", 10) + std::string(100000, ':'));
    Site("unsigned", "X-Praxel-Site-Name: nobody's\n\n");
    Site("long", Masthead("X-Praxel-Site-Name: " + std::string(100000, 'n')));
    Site("pipe", Masthead(""));
    mkfifo(place.Path("pipe/__Local/SiteData").c_str(), 0644);
    place.Folder("folders/Masthead");
    place.Folder("folders/__Local/Masthead");
    place.Folder("fifo/__Local");
    mkfifo(place.Path("fifo/Masthead").c_str(), 0644);
    Site("folder data", Masthead(""));
    place.Folder("folder data/__Local/SiteData");
    place.Link("loop", "loop");
    place.Link("linked", "empty");
    place.Link("upwards", "..");
    place.Folder("dangling/__Local");
    place.Link("dangling/Masthead", "nowhere");
    Strings names = Names();
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, (Strings{"empty", "folder data", "junk", "linked", std::string(256, 'n'), "pipe", "unsigned"}));
}

TEST_F(SiteScan, AFolderThatIsNotThereHasNoSites) {
    EXPECT_TRUE(SitesInDataFolder(place.Location("none")).empty());
    EXPECT_TRUE(SitesInDataFolder(place.File("file")).empty());
    EXPECT_FALSE(place.Has("none"));
}

TEST_F(SiteScan, FillsTheHolderOfTheProcess) {
    StoragePath::SetStorageLocation(place.Location());
    place.Folder("__OSLData");
    Site("__OSLData/a", Masthead(""));
    ScanSites();
    ASSERT_EQ(SiteMapHolder::List().size(), 1U);
    EXPECT_EQ(SiteMapHolder::List()[0]->name, "a");
    EXPECT_EQ(SiteMapHolder::GetCurrentSite(), nullptr);
    SiteMapHolder::GetInstance().SetCurrent(SiteMapHolder::List()[0]);
    EXPECT_EQ(SiteMapHolder::GetCurrentSite(), SiteMapHolder::List()[0]);
    StoragePath::SetStorageLocation(place.Location("none"));
    ScanSites();
    EXPECT_TRUE(SiteMapHolder::List().empty());
    EXPECT_EQ(SiteMapHolder::GetCurrentSite(), nullptr);
    EXPECT_FALSE(place.Has("none"));
}

TEST(CustomSiteName, IsTheNameAmongTheSettingsOfCustomSites) {
    const Configuration configuration;
    const std::string path = "[Software\\Ostrel\\EnterpriseClient\\Settings\\CustomSites\\";
    configuration.Client(path + "CustomSite_1]\nvalue = 1\nname = My Site\n" + path + "unnamed]\nvalue = 1\n" + path +
                         "empty]\nname =\n");
    ZendryOptionsManager::Instance().Load();
    char buffer[16] = "untouched";
    EXPECT_FALSE(LookupCustomSiteName("unnamed", buffer, sizeof buffer));
    EXPECT_FALSE(LookupCustomSiteName("empty", buffer, sizeof buffer));
    EXPECT_FALSE(LookupCustomSiteName("other", buffer, sizeof buffer));
    EXPECT_FALSE(LookupCustomSiteName(std::string("\0\n]:", 4), buffer, sizeof buffer));
    EXPECT_STREQ(buffer, "untouched");
    EXPECT_TRUE(LookupCustomSiteName("customsite_1", buffer, sizeof buffer));
    EXPECT_STREQ(buffer, "My Site");
    EXPECT_TRUE(LookupCustomSiteName("CustomSite_1", buffer, 8));
    EXPECT_THROW(LookupCustomSiteName("CustomSite_1", buffer, 7), LookupCustomSiteResultBufTooSmall);
    EXPECT_THROW(LookupCustomSiteName("CustomSite_1", buffer, 0), LookupCustomSiteResultBufTooSmall);
}

}  // namespace
