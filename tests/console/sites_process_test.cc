// The console beside data trees and configurations of a test's own: sites, settings, custom sites and the use of
// applications.
#include <gtest/gtest.h>

#include <string>

#include "client/stat_file.h"
#include "tests/client/sleeper.h"
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

std::string UsageSettings(const std::string& usage, const std::string& summary, const std::string& applications) {
    const std::string path = std::string(kSettings) + "Client\\_OSLClient_UsageManager_EnableAppUsage";
    return path + "]\nvalue = " + usage + "\n" + path + "Summary]\nvalue = " + summary + "\n" + path +
           "SummaryApps]\nvalue = " + applications + "\n";
}

TEST_F(ConsoleBesideATree, TheUseOfApplicationsIsSwitchedOnByTheConfiguration) {
    const std::string noUsage = "E: application usage inspector is disabled\n";
    const std::string noSummary = "E: application usage summary inspector is disabled\n";
    Configure(UsageSettings("0", "1", "Editor"));
    EXPECT_EQ(Asked("number of application usages \"Editor\""), noUsage);
    EXPECT_EQ(Asked("total run count of application usage summary \"Editor\""), "A: 0\n");
    Configure(UsageSettings("1", "0", "Editor"));
    EXPECT_EQ(Asked("number of application usages \"Editor\""), "A: 0\n");
    EXPECT_EQ(Asked("total run count of application usage summary \"Editor\""), noSummary);
    EXPECT_EQ(Asked("names of application usage summaries"), noSummary);
}

TEST_F(ConsoleBesideATree, SummariesAreReadFromTheStorageFolder) {
    constexpr int64_t start = 920'974'272'000'000;  // Tue, 09 Mar 1999 10:11:12 +0000
    constexpr int64_t minute = 60'000'000;
    Configure(UsageSettings("1", "1", "Editor,old one,empty"));
    place.Folder("storage/UsageData");
    const StatRecord records[] = {{start, start + minute, start + 2 * minute, minute, 3, 1234, "1.2", "1.2 beta"},
                                  {start, start + minute, start + 3 * minute, minute, 4, 5678, "1.3", ""}};
    place.File("storage/UsageData/Editor.stat", StatFileBytes(records));
    place.File("storage/UsageData/old one.stat", OldStatFileBytes(records[0]));
    place.File("storage/UsageData/empty.stat", std::string(4, '\0'));
    place.File("storage/UsageData/bad.stat", std::string(41, '\0'));
    EXPECT_EQ(Asked("(name of it, total run count of it, number of instances of it) of application usage summaries"),
              "A: Editor, 7, 2\nA: bad, 0, 0\nA: empty, 0, 0\nA: old one, 3, 1\n");
    EXPECT_EQ(Asked("(first start time of it as universal string, last time seen of it - last start time of it, total "
                    "duration of it, running of it) of application usage summary \"Editor\""),
              "A: ( Tue, 09 Mar 1999 10:11:12 +0000 ), 00:02:00, 00:02:00, False\n");
    EXPECT_EQ(
        Asked("(size of it, version of it, total run count of it, string version of it | \"none\") of instances of "
              "application usage summary \"Editor\""),
        "A: 1234, 1.2, 3, 1.2 beta\nA: 5678, 1.3, 4, none\n");
    EXPECT_EQ(Asked("name of application usage summary \"bad\""),
              "E: application usage summary bad not configured for tracking\n");
}

// What a program's whole life looks like to a console that is asked all the while.
TEST_F(ConsoleBesideATree, AProgramIsFollowedFromQuestionToQuestion) {
    const std::string name = "zendry-sleep-" + std::to_string(getpid());
    const std::string path = place.Path(name);
    Configure(UsageSettings("1", "1", name));
    environment["OSLClientConfigPath"] = place.Path("client.conf");
    Program console({}, Program::Input::Pipe, "", environment);
    const std::string quoted = "\"" + name + "\"";
    int asked = 0;
    // Each answer begins with a number of its own, so that none is taken for another.
    const auto answers = [&](const std::string& question, const std::string& answer) {
        const std::string number = std::to_string(++asked);
        console.Type("(\"" + number + "\", " + question + ")\n");
        EXPECT_TRUE(console.WaitFor("A: " + number + ", " + answer + "\n")) << question << "\n" << console.output;
    };
    const std::string life = "exists running application " + quoted + ", number of recent applications " + quoted +
                             ", number of application usages " + quoted + ", running of application usage summary " +
                             quoted + ", total run count of application usage summary " + quoted;
    answers(life, "False, 0, 0, False, 0");
    Sleeper first(path);
    answers(life, "True, 1, 1, True, 0");
    Sleeper second(path);
    answers(life, "True, 2, 2, True, 0");
    answers("concatenation \" \" of (it as string) of running applications " + quoted, path + " " + path);
    first.End();
    answers(life, "True, 2, 2, True, 1");
    second.End();
    answers(life, "False, 2, 2, False, 2");
    answers("size of instance of application usage summary " + quoted,
            std::to_string(std::filesystem::file_size(path)));
    std::filesystem::remove(path);
    answers("number of recent applications " + quoted + ", number of application usages " + quoted, "0, 2");
}

// Whether an agent of the machine's own runs is not for a test to say: only that this one does.
TEST_F(ConsoleBesideATree, AServiceRunsWhileAProcessOfItsNameDoes) {
    Configure("");
    const Sleeper server(place.Path("OSLRootServer"));
    EXPECT_EQ(Asked("(it, state of it, running of it) of service \"OSLRootServer\""),
              "A: OSLRootServer, Running, True\n");
    EXPECT_EQ(Asked("running service \"OSLRootServer\""), "A: OSLRootServer\n");
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
