// One host answers every family that is asked of a host, each phrase once: what a full agent is to the inspectors.
#include "tests/host/filled_host.h"
#include "tests/host/phrases.h"

namespace {

class FamiliesTest : public testing::Test {
protected:
    // Each of the phrases answers so of the object.
    void ExpectAll(const std::string& of, const std::vector<std::pair<std::string, std::string>>& phrases) {
        for (const auto& [phrase, answer] : phrases) {
            EXPECT_EQ(Ask(phrase + of, &host), Values({answer})) << phrase << of;
        }
    }

    // The same of times, which are told as seconds from the start of 1970.
    void ExpectTimes(const std::string& of, const std::vector<std::pair<std::string, int>>& phrases) {
        const std::string start = " - \"01 Jan 1970 00:00:00 +0000\" as time";
        for (const auto& [phrase, seconds] : phrases) {
            const std::string question = "(" + phrase + of + start + ") / second";
            EXPECT_EQ(Ask(question, &host), Values({std::to_string(seconds)})) << question;
        }
    }

    FilledHost host;
    const TemporaryPlace& place = host.place;
};

constexpr int kMarch9 = 920974272;  // Tue, 09 Mar 1999 10:11:12 +0000
constexpr int kADay = 86400;

TEST_F(FamiliesTest, Sites) {
    ExpectAll("", {{"name of current site", "One"}, {"name of site \"One\"", "One"}, {"names of sites", "One"}});
    ExpectAll(" of site \"One\"", {{"name", "One"},
                                   {"url", "http://example.com/one"},
                                   {"site tag", "tag"},
                                   {"type", "Custom Site"},
                                   {"folder", place.Path("One")},
                                   {"client folder", place.Path("One")},
                                   {"masthead", place.Path("One/masthead")},
                                   {"gather schedule authority", "Publisher"},
                                   {"gather schedule time interval", "01:00:00"},
                                   {"version", "12"},
                                   {"site version list", "3,4"},
                                   {"evaluated", "True"},
                                   {"settings", "of site=1"},
                                   {"setting \"of site\"", "of site=1"},
                                   {"id of group 7", "7"},
                                   {"member of group 7", "True"},
                                   {"ids of praxels", "5"},
                                   {"ids of relevant praxels", "5"},
                                   {"ids of relevant offer actions", "17"}});
    ExpectTimes(" of site \"One\"", {{"last gather time", 1}, {"subscribe time", 2}});
}

TEST_F(FamiliesTest, ContentItems) {
    ExpectAll(" of current analysis", {{"relevance", "True"},
                                       {"id", "5"},
                                       {"name of site", "One"},
                                       {"name of header \"subject\"", "Subject"},
                                       {"values of headers", "of item"},
                                       {"value of header \"subject\"", "of item"}});
    ExpectTimes(" of analysis", {{"last time", 3}});
}

TEST_F(FamiliesTest, Actions) {
    ExpectAll("", {{"id of action", "17"},
                   {"id of action 17", "17"},
                   {"id of active action", "17"},
                   {"parameter \"p\"", "parameter"}});
    ExpectAll(" of action", {{"constraint", "0"},
                             {"system constraint", "13"},
                             {"first active count", "14"},
                             {"active count", "15"},
                             {"active line number", "16"},
                             {"last active line number", "18"},
                             {"origin praxel id", "5"},
                             {"exit code", "-19"},
                             {"constrained", "True"},
                             {"pending", "False"},
                             {"waiting for download", "False"},
                             {"active", "True"},
                             {"pending restart", "False"},
                             {"pending login", "False"},
                             {"group leader", "False"},
                             {"offer", "False"},
                             {"offer accepted", "False"},
                             {"persistent constraint", "False"},
                             {"download failure", "False"},
                             {"status", "Running"},
                             {"parameter \"p\"", "parameter"},
                             {"names of headers", "Subject"},
                             {"value of header \"subject\"", "of action"}});
    ExpectTimes(" of action", {{"pending time", 4},
                               {"complete time", 5},
                               {"active start time", 6},
                               {"last active time", 7},
                               {"last change time", 8}});
}

TEST_F(FamiliesTest, TheLockOfActions) {
    ExpectAll("", {{"action lock state", "locked"}});
    ExpectAll(" of action lock state", {{"locked", "True"}, {"controller", "console"}, {"lock string", "why"}});
    ExpectTimes(" of action lock state", {{"expiration date", kMarch9}, {"effective date", kMarch9 - kADay}});
}

TEST_F(FamiliesTest, TheClientAndItsSettings) {
    ExpectAll("", {{"client", place.Path("agent")}});
    ExpectAll(" of client", {{"registration address", "10.1.2.3"},
                             {"registration subnet address", "10.1.0.0"},
                             {"registration cidr address", "10.1.0.0/16"},
                             {"registration mac address", "00-11-22-33-44-55"},
                             {"brand", "Ostrel"},
                             {"exists build target", "True"},
                             {"enabled of administrative rights", "True"},
                             {"number of settings", "5"},
                             {"setting \"set\"", "set=value"},
                             {"administrators", "bob=1"},
                             {"administrator \"bob\"", "bob=1"},
                             {"name of setting \"SET\"", "set"},
                             {"value of setting \"set\"", "value"},
                             {"enabled of setting \"set\"", "True"}});
    ExpectTimes(" of client", {{"last command time", 9}, {"effective date of setting \"set\"", kMarch9}});
    ExpectTimes("", {{"custom site subscription effective date \"custom\"", kMarch9}});
}

TEST_F(FamiliesTest, RestartsAndLogins) {
    ExpectAll("", {{"pending restart", "True"},
                   {"pending restart \"update\"", "True"},
                   {"pending restart names", "update"},
                   {"pending login", "False"}});
}

TEST_F(FamiliesTest, TheServersOfTheLastRegistration) {
    ExpectTimes("", {{"apparent registration server time", 10},
                     {"last relay select time", 11},
                     {"now of registration server", 10}});
    ExpectAll("", {{"version of registration server", "9.2.1"},
                   {"name of registration server", "report.example"},
                   {"version of current relay", "8.1"},
                   {"name of download server", "relay.example"},
                   {"id of root server", "4711"},
                   {"host name of root server", "root.example.com"}});
}

TEST_F(FamiliesTest, TheSelectedServer) {
    ExpectAll(" of selected server", {{"name", "chosen.example"},
                                      {"ip address", "10.9.8.7"},
                                      {"port number", "52311"},
                                      {"lower bound of distance", "1"},
                                      {"upper bound of distance", "4"},
                                      {"priority", "2"},
                                      {"weight", "30"},
                                      {"competition size", "12"},
                                      {"competition weight", "100"},
                                      {"gateway address 1", "10.9.8.7"},
                                      {"gateway addresses", "10.9.8.7"},
                                      {"full gateway addresses", "10.9.8.7"}});
}

TEST_F(FamiliesTest, TheServicesOfTheAgent) {
    ExpectAll("", {{"relay service", "OSLRelay"},
                   {"main gather service", "OSLGather"},
                   {"service \"OSLClient\"", "OSLClient"},
                   {"running service \"OSLRelay\"", "OSLRelay"},
                   {"state of relay service", "Running"},
                   {"exists version of relay service", "False"},
                   {"running of main gather service", "False"}});
}

TEST_F(FamiliesTest, TheUseOfApplications) {
    const std::string summary = " of application usage summary \"OSLRelay\"";
    ExpectAll("", {{"number of application usages \"OSLRelay\"", "1"},
                   {"names of application usage summaries", "OSLRelay"},
                   {"running applications", place.Path("OSLRelay")},
                   {"running application \"OSLRelay\"", place.Path("OSLRelay")},
                   {"recent applications", place.Path("OSLRelay")},
                   {"recent application \"OSLRelay\"", place.Path("OSLRelay")}});
    for (const std::string& of : {summary, " of instance" + summary}) {
        ExpectAll(of, {{"name", "OSLRelay"}, {"total run count", "4"}, {"total duration", "00:01:00"}});
        ExpectTimes(of, {{"first start time", 1}, {"last start time", 2}, {"last time seen", 3}});
    }
    ExpectAll(summary, {{"running", "True"}, {"number of instances", "1"}});
    ExpectAll(" of instance" + summary, {{"size", "1234"}, {"string version", "1.2 beta"}, {"version", "1.2"}});
}

}  // namespace
