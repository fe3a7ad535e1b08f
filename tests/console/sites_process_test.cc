// The console beside data trees and configurations of a test's own: sites, settings and custom sites.
#include <gtest/gtest.h>

#include <string>

#include "tests/console/program_run.h"
#include "tests/foundation/temporary_place.h"

namespace {

constexpr char kSettings[] = "[Software\\Ostrel\\EnterpriseClient\\Settings\\";

std::string Masthead(const std::string& headers) {
    return "Content-Type: multipart/signed; boundary=s\n\n--s\n"
           "Content-Type: multipart/related; boundary=r; type=\"Application/x-Praxel-Site-Masthead\"\n\n--r\n\n" +
           headers + "\n\n--r--\n\n--s\n\nnobody\n--s--\n";
}

class ConsoleBesideATree : public testing::Test {
protected:
    void Configure(const std::string& settings) const {
        place.File("client.conf", "[Software\\Ostrel\\EnterpriseClient\\GlobalOptions]\nStoragePath = " +
                                      place.Path("storage") + "\nLibPath = " + place.Path("lib") + "\n" + settings);
    }
    void Relay(const std::string& settings) {
        environment["OSLRelayConfigPath"] = place.File("relay", settings).CString();
    }
    void Site(const std::string& folder, const std::string& masthead, const std::string& data = "") const {
        const std::string path = "storage/__OSLData/" + folder;
        place.Folder(path + "/__Local");
        place.File(path + "/Masthead", masthead);
        place.File(path + "/__Local/SiteData", data);
    }

    // What answers one question, on standard error too.
    std::string Asked(const std::string& question) {
        environment["OSLClientConfigPath"] = place.Path("client.conf");
        place.File("asked", "Q: " + question + "\n");
        Program program({place.Path("asked")}, Program::Input::Closed, "", environment);
        EXPECT_EQ(program.Status(), 0);
        const std::string echo = "Q: " + question + "\n";
        EXPECT_EQ(program.output.compare(0, echo.size(), echo), 0);
        std::string answers = program.output.substr(std::min(echo.size(), program.output.size()));
        answers.resize(answers.empty() ? 0 : answers.size() - 1);
        return program.errors + answers;
    }

    const TemporaryPlace place;
    Environment environment = ExampleAgent();
};

TEST_F(ConsoleBesideATree, AStorageFolderThatIsNotThereMeansNoSitesWithoutAWord) {
    Configure("");
    EXPECT_EQ(Asked("number of sites"), "A: 0\n");
    EXPECT_EQ(Asked("names of sites"), "");
    EXPECT_EQ(Asked("name of site \"x\""), "E: Singular expression refers to nonexistent object.\n");
    EXPECT_EQ(Asked("exists relevant praxels of sites"), "A: False\n");
    EXPECT_FALSE(place.Has("storage"));
    EXPECT_FALSE(place.Has("lib"));
}

TEST_F(ConsoleBesideATree, SitesAndTheirSettings) {
    Configure(std::string(kSettings) + "Sites\\One Site\\Alpha]\nvalue = 1\n" + kSettings +
              "Sites\\other\\beta]\nvalue = 2\nenabled = 0\n");
    Relay(std::string(kSettings) + "Sites\\One Site\\gamma]\nvalue = 3\n");
    Site("first", Masthead("X-Praxel-Site-Name: One Site\nX-Praxel-Site-Gather-URL: http://one"), "Version: 5\n");
    Site("other", Masthead("Subject: no name"));
    Site("__reserved", Masthead("X-Praxel-Site-Name: hidden"));
    EXPECT_EQ(Asked("names of sites"), "A: One Site\nA: other\n");
    EXPECT_EQ(Asked("name of folder of site \"One Site\""), "A: first\n");
    EXPECT_EQ(Asked("url of site \"One Site\""), "A: http://one\n");
    EXPECT_EQ(Asked("version of site \"One Site\""), "A: 5\n");
    EXPECT_EQ(Asked("version of site \"other\""), "E: Singular expression refers to nonexistent object.\n");
    EXPECT_EQ(Asked("settings of site \"One Site\""), "A: alpha=1\nA: gamma=3\n");
    EXPECT_EQ(Asked("setting \"ALPHA\" of site \"One Site\""), "A: alpha=1\n");
    EXPECT_EQ(Asked("enableds of settings of sites"), "A: True\nA: True\nA: False\n");
    EXPECT_EQ(Asked("relevances of praxels of sites"), "E: No inspector context.\n");
}

TEST_F(ConsoleBesideATree, ACustomSiteGoesByTheNameInItsSetting) {
    Configure(std::string(kSettings) + "CustomSites\\stored]\nvalue = 1\nname = Known As\n" +
              "effective date = Tue, 09 Mar 1999 10:11:12 +0000\n");
    Site("a", Masthead("X-Praxel-Site-Name: Stored"), "Type: Custom Site\n");
    Site("b", Masthead("X-Praxel-Site-Name: Unknown"), "Type: Custom Site\n");
    EXPECT_EQ(Asked("names of sites"), "A: Known As\nA: Unknown\n");
    EXPECT_EQ(Asked("name of site \"Known As\""), "A: Known As\n");
    EXPECT_EQ(Asked("custom site subscription effective date \"STORED\" as universal string"),
              "A: Tue, 09 Mar 1999 10:11:12 +0000\n");
    EXPECT_EQ(Asked("exists custom site subscription effective date \"Known As\""), "A: False\n");
}

TEST_F(ConsoleBesideATree, ALockThatIsNoneAndWordsInIt) {
    Configure(std::string(kSettings) + "Client\\__LockState]\nvalue = \"unlocked;text=one;two\"\n");
    EXPECT_EQ(Asked("action lock state"), "A: unlocked\n");
    EXPECT_EQ(Asked("lock string of action lock state"), "A: one\n");
    Configure(std::string(kSettings) + "Client\\__LockState]\nvalue = open\n");
    EXPECT_EQ(Asked("action lock state"), "E: Singular expression refers to nonexistent object.\n");
    EXPECT_EQ(Asked("action lock states"), "");
}

TEST_F(ConsoleBesideATree, JunkInTheTreeNeverKeepsItFromStarting) {
    Configure("");
    Site("junk", std::string(5000, '\xff') + std::string("\0--\r\n:", 6), std::string(5000, ':'));
    place.Folder("storage/__OSLData/folder/Masthead");
    place.Link("storage/__OSLData/loop", "loop");
    Site("deep", Masthead("X-Praxel-Site-Name:"), "Version: 99999999999999999999\nType: \xff\n");
    EXPECT_EQ(Asked("names of sites"), "A: deep\nA: junk\n");
    EXPECT_EQ(Asked("exists versions of sites"), "A: False\n");
    place.Folder("elsewhere");
    std::filesystem::remove_all(place.Path("storage"));
    place.File("storage", "a file");
    EXPECT_EQ(Asked("number of sites"), "A: 0\n");
}

}  // namespace
