// The use of applications and the applications that run, told by a host with a table, storage and settings.
#include <gtest/gtest.h>

#include <limits>

#include "client/process_table.h"
#include "client/stat_file.h"
#include "tests/foundation/temporary_place.h"
#include "tests/host/host_processes.h"
#include "tests/host/host_settings.h"
#include "tests/inspectors/ask.h"

namespace {

using Records = std::vector<StatRecord>;

constexpr int64_t kSecond = 1000000;
constexpr int64_t kMarch = 920937600 * kSecond;  // Tue, 09 Mar 1999 00:00:00 +0000

struct ProcessTableHost : InspectorContext, HostProcesses, HostSettings, HostStorage {};

class Usage : public testing::Test {
protected:
    Usage() { host_.storage = place_.Location(); }

    Answer AskHost(std::string_view question) { return Ask(question, &host_); }

    void Set(const std::string& name, const std::string& value) {
        Unset(name);
        Settings().push_back({kPrefix + name, value, {}, {}});
    }
    void Unset(const std::string& name) {
        std::erase_if(Settings(), [&](const StoredSetting& setting) { return setting.name == kPrefix + name; });
    }
    void Enable(const std::string& applications = "one,two,gone") {
        Set("EnableAppUsage", "1");
        Set("EnableAppUsageSummary", "1");
        Set("EnableAppUsageSummaryApps", applications);
    }
    void Store(const std::string& name, const std::string& bytes) const {
        place_.Folder("UsageData");
        place_.File("UsageData/" + name, bytes);
    }

    TemporaryPlace place_;
    ProcessTableHost host_;

private:
    static inline const std::string kPrefix = "_OSLClient_UsageManager_";
    std::vector<StoredSetting>& Settings() { return host_.ofAgent.subsections["Client"]; }
};

TEST_F(Usage, EachSwitchIsOffUntilItIsSet) {
    for (const char* value : {"", "0", "yes", "11", " 1"}) {
        for (const std::string question :
             {"exists application usage \"one\"", "number of application usages \"one\""}) {
            const Answer answer = AskHost(question);
            EXPECT_EQ(answer, Fails("auInspectorDefinedError"));
            EXPECT_EQ(answer.text, "application usage inspector is disabled");
        }
        for (const std::string question :
             {"exists application usage summary \"one\"", "names of application usage summaries \"one\"",
              "exists application usage summary", "names of application usage summaries"}) {
            const Answer answer = AskHost(question);
            EXPECT_EQ(answer, Fails("ausInspectorDefinedError")) << question;
            EXPECT_EQ(answer.text, "application usage summary inspector is disabled");
        }
        Set("EnableAppUsage", value);
        Set("EnableAppUsageSummary", value);
        Set("EnableAppUsageSummaryApps", "one");
    }
    Set("EnableAppUsage", "1");
    EXPECT_EQ(AskHost("exists application usage \"one\""), Values({"False"}));
    EXPECT_EQ(AskHost("exists application usage summary \"one\""), Fails("ausInspectorDefinedError"));
    Enable();
    EXPECT_EQ(AskHost("exists application usage summary \"one\""), Values({"True"}));
}

TEST_F(Usage, ASummaryOfAnotherNameIsRefused) {
    Enable("one,two words,,three");
    for (const std::string name : {"one", "two words", "three"}) {
        EXPECT_EQ(AskHost("name of application usage summary \"" + name + "\""), Values({name}));
    }
    for (const std::string name : {"two", "One", "", "one,two words", " three"}) {
        const Answer answer = AskHost("name of application usage summary \"" + name + "\"");
        EXPECT_EQ(answer, Fails("ausNameInspectorDefinedError"));
        EXPECT_EQ(answer.text, "application usage summary " + name + " not configured for tracking");
    }
    const std::string half(200, 'n');
    EXPECT_EQ(AskHost("names of application usage summaries (\"" + half + "\" & \"" + half + "\")").text,
              "application usage summary " + half + half + " not configured for tracking");
    EXPECT_EQ(AskHost("names of application usage summaries \"one%00\"").text,
              "application usage summary one not configured for tracking");
    Unset("EnableAppUsageSummaryApps");
    EXPECT_EQ(AskHost("name of application usage summary \"one\""), Fails("ausNameInspectorDefinedError"));
}

TEST_F(Usage, ApplicationUsageGivesEachRun) {
    Enable();
    host_.runs = {{1, 0, 0, true, "/bin/one"}, {2, 0, 0, true, "/bin/two"}, {3, 0, 0, false, "/usr/bin/one"}};
    EXPECT_EQ(AskHost("number of application usages \"one\""), Values({"2"}));
    EXPECT_EQ(AskHost("exists application usage \"two\""), Values({"True"}));
    EXPECT_EQ(AskHost("exists application usages \"none\""), Values({"False"}));
    EXPECT_EQ(AskHost("application usage \"two\""), Fails("OperationNotDefined"));
}

const StatRecord kOld{kMarch, kMarch + 60 * kSecond, kMarch + 90 * kSecond, 3600 * kSecond, 3, 1234, "1.2", "1.2 beta"};
const StatRecord kNew{kMarch + kSecond, kMarch + 61 * kSecond, kMarch + 80 * kSecond, 60 * kSecond, 4, 5678, "", ""};

const std::pair<std::string, std::string> kProperties[] = {
    {"name", "names"},
    {"total run count", "total run counts"},
    {"first start time", "first start times"},
    {"last start time", "last start times"},
    {"last time seen", "last times seen"},
    {"total duration", "total durations"},
};

TEST_F(Usage, ASummaryTellsOfAllVersions) {
    Enable();
    const std::string at = "(it = \"Tue, 09 Mar 1999 00:0";
    const std::string expected[] = {"one", "7", "0:00 +0000", "1:01 +0000", "1:30 +0000", "01:01:00"};
    for (const Records& records : {Records{kOld, kNew}, Records{kNew, kOld}}) {
        Store("one.stat", StatFileBytes(records));
        for (size_t i = 0; i != std::size(kProperties); ++i) {
            const auto& [singular, plural] = kProperties[i];
            const bool isTime = i >= 2 && i <= 4;
            const std::string test = isTime ? at + expected[i] + "\" as time) of " : "";
            const std::string answer = isTime ? "True" : expected[i];
            EXPECT_EQ(AskHost(test + singular + " of application usage summary \"one\""), Values({answer}));
            EXPECT_EQ(AskHost(test + plural + " of application usage summaries \"one\""), Values({answer}));
            EXPECT_EQ(AskHost(test + singular + " of application usage summary"), Values({answer}));
            EXPECT_EQ(AskHost(test + plural + " of application usage summaries"), Values({answer}));
        }
    }
}

TEST_F(Usage, AnInstanceTellsOfOneVersion) {
    Enable();
    Store("one.stat", StatFileBytes(Records{kOld, kNew}));
    const std::string instances = " of instances of application usage summary \"one\"";
    EXPECT_EQ(AskHost("names" + instances), Values({"one", "one"}));
    EXPECT_EQ(AskHost("total run counts" + instances), Values({"3", "4"}));
    EXPECT_EQ(AskHost("(it = \"Tue, 09 Mar 1999 00:00:00 +0000\" as time) of first start times" + instances),
              Values({"True", "False"}));
    EXPECT_EQ(AskHost("(it = \"Tue, 09 Mar 1999 00:01:01 +0000\" as time) of last start times" + instances),
              Values({"False", "True"}));
    EXPECT_EQ(AskHost("(it = \"Tue, 09 Mar 1999 00:01:20 +0000\" as time) of last times seen" + instances),
              Values({"False", "True"}));
    EXPECT_EQ(AskHost("total durations" + instances), Values({"01:00:00", "00:01:00"}));
    EXPECT_EQ(AskHost("sizes" + instances), Values({"1234", "5678"}));
    EXPECT_EQ(AskHost("string versions" + instances), Values({"1.2 beta"}));
    EXPECT_EQ(AskHost("versions" + instances), Values({"1.2"}));
    EXPECT_EQ(
        AskHost("(string version of it, version of it, size of it, name of it, total run count of it, total duration "
                "of it, exists first start time of it, exists last start time of it, exists last time seen of it) of "
                "instances whose (exists version of it) of application usage summary \"one\""),
        Values({"1.2 beta, 1.2, 1234, one, 3, 01:00:00, True, True, True"}));
    EXPECT_EQ(AskHost("name of instance of application usage summary \"one\""), Answer({{"one"}, "ArgumentNotUnique"}));
}

TEST_F(Usage, TheOldFormIsOneInstanceWithoutSizeAndVersions) {
    Enable();
    Store("one.stat", OldStatFileBytes(kOld));
    EXPECT_EQ(AskHost("total run count of application usage summary \"one\""), Values({"3"}));
    EXPECT_EQ(
        AskHost("(total run count of it, exists size of it, exists version of it, exists string version of it) of "
                "instance of application usage summary \"one\""),
        Values({"3, False, False, False"}));
}

TEST_F(Usage, WithoutAFileASummaryIsEmpty) {
    Enable("one,two,three,../four");
    Store("two.stat", std::string(41, '\0'));
    Store("three.stat", std::string(4, '\0'));
    for (const std::string name : {"one", "two", "three", "../four"}) {
        const std::string summary = " of application usage summary \"" + name + "\"";
        EXPECT_EQ(
            AskHost("(name of it, total run count of it, total duration of it, running of it, number of instances of "
                    "it)" +
                    summary),
            Values({name + ", 0, 00:00:00, False, 0"}));
        for (size_t i = 2; i <= 4; ++i) {
            EXPECT_EQ(AskHost("exists " + kProperties[i].first + summary), Values({"False"}));
        }
    }
}

TEST_F(Usage, SumsThatDoNotFitHaveNoValue) {
    Enable();
    StatRecord great = kOld;
    great.totalDuration = std::numeric_limits<int64_t>::max();
    Store("one.stat", StatFileBytes(Records{great, kNew}));
    EXPECT_EQ(AskHost("exists total duration of application usage summary \"one\""), Values({"False"}));
    EXPECT_EQ(AskHost("total run count of application usage summary \"one\""), Values({"7"}));
}

TEST_F(Usage, SummariesAreTheFilesByName) {
    Enable("one");
    EXPECT_EQ(AskHost("names of application usage summaries"), Nothing());
    Store("two.stat", OldStatFileBytes(kOld));
    Store("one.stat", std::string(3, 'x'));
    Store("other.txt", OldStatFileBytes(kOld));
    Store("a.b.stat", StatFileBytes(Records{}));
    Store(".stat", StatFileBytes(Records{}));
    place_.Folder("UsageData/folder.stat");
    EXPECT_EQ(AskHost("(name of it & \" \" & total run count of it as string) of application usage summaries"),
              Values({"a.b 0", "one 0", "two 3"}));
}

TEST_F(Usage, RunningIsAskedOfTheTable) {
    Enable();
    host_.runs = {{1, 0, 0, true, "/bin/one"}, {2, 0, 0, false, "/bin/two"}};
    EXPECT_EQ(AskHost("running of application usage summary \"one\""), Values({"True"}));
    EXPECT_EQ(AskHost("runnings of application usage summaries \"two\""), Values({"False"}));
}

TEST_F(Usage, RunsThatEndedUnderTheTableCountAtOnce) {
    Enable("one");
    const TemporaryPlace listing;
    const std::string folder = listing.Path() + "/";
    ProcessTable table(folder);
    host_.table = &table;
    Store("one.stat", StatFileBytes(Records{kOld}));
    EXPECT_EQ(AskHost("total run count of application usage summary \"one\""), Values({"3"}));
    listing.Folder("7");
    listing.Link("7/exe", "/no/such/one");
    listing.File("7/stat", "7 (one) S 1 1 1 0 -1 4194560 1 2 3 4 5 6 7 8 20 0 1 0 700 1");
    table.Refresh();
    EXPECT_EQ(AskHost("total run count of application usage summary \"one\""), Values({"3"}));
    std::filesystem::remove_all(listing.Path("7"));
    table.Refresh();
    EXPECT_EQ(
        AskHost("(total run count of it, total run counts of instances of it) of application usage summary \"one\""),
        Values({"4, 3", "4, 1"}));
    table.Store(place_.Location("UsageData"));
    EXPECT_EQ(AskHost("total run counts of instances of application usage summaries"), Values({"3", "1"}));
}

TEST_F(Usage, WhatTheHostLacksIsSaid) {
    struct : InspectorContext, HostSettings {
    } bare;
    Enable();
    bare.ofAgent = host_.ofAgent;
    const std::string questions[] = {"exists application usage \"one\"",   "exists application usage summary \"one\"",
                                     "exists application usage summaries", "exists running applications",
                                     "exists recent applications",         "exists running application \"one\"",
                                     "exists recent application \"one\""};
    for (const std::string& question : questions) {
        EXPECT_EQ(Ask(question, &bare), Fails("NoInspectorContext")) << question;
    }
    ProcessTableHost lacking;
    lacking.ofAgent = host_.ofAgent;
    lacking.processName = nullptr;
    lacking.processActiveByName = nullptr;
    lacking.applicationUsage = nullptr;
    for (const std::string& question : questions) {
        EXPECT_EQ(Ask(question, &lacking), Fails("InspectorProcessTableContextError")) << question;
    }
    host_.getGlobalLocation = nullptr;
    EXPECT_EQ(AskHost("exists application usage summaries"), Fails("InspectorStorageContextError"));
    EXPECT_EQ(AskHost("exists application usage summary \"one\""), Fails("InspectorStorageContextError"));
    // Without settings every switch is off.
    EXPECT_EQ(Ask("exists application usage \"one\""), Fails("auInspectorDefinedError"));
    EXPECT_EQ(Ask("exists application usage summary"), Fails("ausInspectorDefinedError"));
    EXPECT_EQ(Ask("exists running application"), Fails("NoInspectorContext"));
}

TEST_F(Usage, RunningApplicationsAreTheActiveOnesWhoseFileIsThere) {
    const std::string one = place_.Path("one");
    const std::string two = place_.Path("two");
    place_.File("one");
    place_.File("two");
    place_.Folder("folder");
    host_.runs = {{1, 0, 0, true, one},
                  {2, 0, 0, true, place_.Path("gone")},
                  {3, 0, 0, true, one + " (deleted)"},
                  {4, 0, 0, true, place_.Path("folder")},
                  {5, 0, 0, true, ""},
                  {6, 0, 0, false, two},
                  {7, 0, 0, true, one},
                  {8, 0, 0, false, one}};
    EXPECT_EQ(AskHost("running applications"), Values({one, one}));
    EXPECT_EQ(AskHost("recent applications"), Values({one, two, one, one}));
    EXPECT_EQ(AskHost("running applications \"one\""), Values({one, one}));
    EXPECT_EQ(AskHost("running applications \"two\""), Nothing());
    EXPECT_EQ(AskHost("running application \"two\""), DoesNotExist());
    EXPECT_EQ(AskHost("recent application \"two\""), Values({two}));
    EXPECT_EQ(AskHost("recent applications (\"one\"; \"gone\"; \"two\"; \"\")"), Values({one, one, one, two}));
    EXPECT_EQ(AskHost("running application"), Answer({{one}, "ArgumentNotUnique"}));
    EXPECT_EQ(AskHost("recent application"), Answer({{one}, "ArgumentNotUnique"}));
    host_.runs.resize(1);
    EXPECT_EQ(AskHost("name of running application"), Values({"one"}));
    EXPECT_EQ(AskHost("name of recent application"), Values({"one"}));
}

TEST_F(Usage, OnlyRunningApplicationsAskWhatIsActive) {
    const std::string one = place_.File("one").CString();
    host_.runs = {{1, 0, 0, true, one}};
    host_.processActive = nullptr;
    EXPECT_EQ(AskHost("running applications"), Fails("InspectorProcessTableContextError"));
    EXPECT_EQ(AskHost("running applications \"one\""), Fails("InspectorProcessTableContextError"));
    EXPECT_EQ(AskHost("recent applications"), Values({one}));
    EXPECT_EQ(AskHost("recent applications \"one\""), Values({one}));
}

TEST_F(Usage, ANameIsComparedToTheLetter) {
    place_.File("one");
    host_.runs = {{1, 0, 0, true, place_.Path("one")}};
    for (const char* phrase : {"running applications", "recent applications"}) {
        EXPECT_EQ(AskHost(std::string(phrase) + " (\"One\"; \"on\"; \"one \"; \"/one\")"), Nothing()) << phrase;
    }
}

}  // namespace
