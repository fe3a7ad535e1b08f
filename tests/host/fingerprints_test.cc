// Fingerprints of what depends on a host's state: they hold while the state does, and no longer.
#include "client/action.h"
#include "client/analysis.h"
#include "client/client.h"
#include "client/site.h"
#include "tests/host/filled_host.h"
#include "tests/inspectors/ask.h"

namespace {

// One question with the record of its last evaluation.
class Recorded {
public:
    Recorded(std::string_view question, InspectorContext& host) : host_(host), evaluator_(&host) {
        evaluator_.Feed("(");
        evaluator_.Feed(question);
        evaluator_.Feed(")");
        evaluator_.EndOfText();
        Evaluate();
    }

    void Evaluate() {
        record_ = {};
        for (const void* value = evaluator_.First(record_); value != nullptr; value = evaluator_.Next(record_)) {
        }
    }

    // Whether the record can be trusted without a look at the tree, and whether a replay finds it as it was.
    bool Unexpired() const { return GuardEvaluator::Unexpired(record_, &host_); }
    bool Unchanged() {
        try {
            return evaluator_.Unchanged(record_);
        } catch (const std::exception&) {
            return false;
        }
    }
    bool IsInUse() const { return record_.path != 0; }

private:
    InspectorContext& host_;
    GuardEvaluator evaluator_;
    EvaluationFingerprint record_;
};

class FingerprintsTest : public testing::Test {
protected:
    FingerprintsTest() {
        SiteMap site;
        site.name = "One";
        site.version = 1;
        host.holder.Replace({site});
        for (const int64_t id : {1, 2}) {
            host.actions.emplace_back().state.id = id;
            host.items.emplace_back().id = id;
        }
        host.current = &host.actions[0];
        host.analysis = &host.items[0];
    }

    EmbeddingHost host;
};

TEST_F(FingerprintsTest, TheCurrentActionIsANodeOfItsOwn) {
    Recorded question("ids of actions", host);
    EXPECT_TRUE(question.IsInUse());
    EXPECT_TRUE(question.Unexpired());
    EXPECT_TRUE(question.Unchanged());
    host.current = &host.actions[1];
    EXPECT_FALSE(question.Unexpired());
    EXPECT_FALSE(question.Unchanged());
    host.current = &host.actions[0];
    EXPECT_TRUE(question.Unexpired());
    host.current = nullptr;
    EXPECT_FALSE(question.Unexpired());
}

TEST_F(FingerprintsTest, TheStateOfAnActionIsJudgedByItsValue) {
    Recorded question("statuss of actions", host);
    EXPECT_TRUE(question.IsInUse());
    EXPECT_FALSE(question.Unexpired());
    EXPECT_TRUE(question.Unchanged());
    host.actions[0].state.active = true;
    EXPECT_FALSE(question.Unchanged());
    question.Evaluate();
    EXPECT_TRUE(question.Unchanged());
}

TEST_F(FingerprintsTest, TheCurrentAnalysisIsANodeOfItsOwn) {
    for (const char* text : {"ids of current analyses", "exists analysis"}) {
        host.analysis = &host.items[0];
        Recorded question(text, host);
        EXPECT_TRUE(question.IsInUse()) << text;
        EXPECT_TRUE(question.Unexpired()) << text;
        EXPECT_TRUE(question.Unchanged()) << text;
        host.analysis = &host.items[1];
        EXPECT_FALSE(question.Unexpired()) << text;
        EXPECT_FALSE(question.Unchanged()) << text;
    }
}

TEST_F(FingerprintsTest, WhileTheHostRewritesItsActionsTheCurrentOneIsNotLookedAt) {
    host.current = nullptr;
    Recorded question("exists action", host);
    EXPECT_TRUE(question.Unexpired());
    host.state = [](const ActionRecord&) -> const ActionState* {
        ADD_FAILURE() << "looked at";
        return nullptr;
    };
    host.current = &host.actions[0];
    host.actionsAreBusy = true;
    EXPECT_FALSE(question.Unexpired());
    question.Evaluate();
    EXPECT_TRUE(question.Unexpired());
}

TEST_F(FingerprintsTest, TheItemOfAnAnalysisIsToldByItsNumberAndItsSite) {
    host.currentIdentity = nullptr;
    host.items[0].site = host.Site(0);
    host.items[1].id = host.items[0].id;
    Recorded question("exists sites of current analyses", host);
    EXPECT_TRUE(question.Unexpired());
    host.analysis = &host.items[1];
    EXPECT_FALSE(question.Unexpired());
    EXPECT_FALSE(question.Unchanged());
}

TEST_F(FingerprintsTest, ASiteByNameDependsOnTheListOfSites) {
    Recorded question("exists site \"One\"", host);
    EXPECT_TRUE(question.IsInUse());
    EXPECT_TRUE(question.Unchanged());
    SiteMap one = *host.Site(0);
    SiteMap two;
    two.name = "Two";
    host.holder.Replace({one, two});
    EXPECT_FALSE(question.Unchanged());
    question.Evaluate();
    EXPECT_TRUE(question.Unchanged());
    host.holder.Replace({two});
    EXPECT_FALSE(question.Unchanged());
}

TEST_F(FingerprintsTest, WhatASiteSaysIsJudgedByItsValue) {
    Recorded question("versions of sites", host);
    EXPECT_TRUE(question.Unchanged());
    SiteMap next = *host.Site(0);
    next.version = 2;
    host.holder.Replace({next});
    EXPECT_FALSE(question.Unchanged());
}

TEST_F(FingerprintsTest, SettingsRestartsAndTheLockAreJudgedByTheirValues) {
    host.ofAgent.subsections["Client"] = {{"__LockState", "locked", {}, {}}};
    Recorded lock("lockeds of action lock states", host);
    Recorded restarts("pending restart names", host);
    Recorded rights("pending logins", host);
    EXPECT_TRUE(lock.Unchanged());
    EXPECT_TRUE(restarts.Unchanged());
    EXPECT_TRUE(rights.Unchanged());
    host.ofAgent.subsections["Client"] = {{"__LockState", "unlocked", {}, {}}};
    host.restarts = {"a"};
    host.loginPending = true;
    EXPECT_FALSE(lock.Unchanged());
    EXPECT_FALSE(restarts.Unchanged());
    EXPECT_FALSE(rights.Unchanged());
}

// What a host may change, and the questions whose answers are others from then on: every phrase that asks the host is
// in one of them.
struct Change {
    void (*change)(FilledHost& host);
    std::vector<const char*> questions;
};

ActionState& StateOf(FilledHost& host) { return host.Action(0).state; }

template <auto Field, int64_t Value>
void Act(FilledHost& host) {
    StateOf(host).*Field = Value;
}
template <auto Field>
void Flip(FilledHost& host) {
    StateOf(host).*Field = !(StateOf(host).*Field);
}

// clang-format off
const Change kChangesOfActions[] = {
    {&Act<&ActionState::id, 18>,                 {"ids of actions", "exists actions 17", "ids of active actions", "ids of relevant offer actions of sites"}},
    {&Act<&ActionState::constraint, 12>,         {"constraints of actions", "download failures of actions"}},
    {&Act<&ActionState::systemConstraint, 0>,    {"system constraints of actions"}},
    {&Act<&ActionState::firstActiveCount, 0>,    {"first active counts of actions"}},
    {&Act<&ActionState::activeCount, 0>,         {"active counts of actions"}},
    {&Act<&ActionState::activeLineNumber, 0>,    {"active line numbers of actions"}},
    {&Act<&ActionState::lastActiveLineNumber, 0>,{"last active line numbers of actions"}},
    {&Act<&ActionState::originPraxelId, 0>,      {"origin praxel ids of actions"}},
    {&Act<&ActionState::exitCode, 0>,            {"exit codes of actions"}},
    {&Flip<&ActionState::constrained>,           {"constraineds of actions", "exists constraints of actions", "exists download failures of actions"}},
    {&Flip<&ActionState::pending>,               {"pendings of actions"}},
    {&Flip<&ActionState::waitingForDownload>,    {"waiting for downloads of actions"}},
    {&Flip<&ActionState::active>,                {"actives of actions", "statuss of actions"}},
    {&Flip<&ActionState::pendingRestart>,        {"pending restarts of actions"}},
    {&Flip<&ActionState::pendingLogin>,          {"pending logins of actions"}},
    {&Flip<&ActionState::groupLeader>,           {"group leaders of actions"}},
    {&Flip<&ActionState::offer>,                 {"offers of actions"}},
    {&Flip<&ActionState::offerAccepted>,         {"offer accepteds of actions"}},
    {&Flip<&ActionState::persistentConstraint>,  {"persistent constraints of actions"}},
    {&Act<&ActionState::pendingTime, 1>,         {"pending times of actions"}},
    {&Act<&ActionState::completeTime, 1>,        {"complete times of actions"}},
    {&Act<&ActionState::activeStartTime, 1>,     {"active start times of actions"}},
    {&Act<&ActionState::lastActiveTime, 1>,      {"last active times of actions"}},
    {&Act<&ActionState::lastChangeTime, 1>,      {"last change times of actions"}},
    {[](FilledHost& h) { h.current = nullptr; }, {"exists actions", "parameters \"p\""}},
    {[](FilledHost& h) { h.running = nullptr; }, {"exists active actions"}},
    {[](FilledHost& h) { h.Action(0).relevantOfferOf = nullptr; },
                                                 {"exists relevant offer actions of sites"}},
    {[](FilledHost& h) { h.Action(0).parameters["p"] = "x"; },
                                                 {"parameters \"p\"", "parameters \"p\" of actions"}},
    {[](FilledHost& h) { h.Action(0).headers = {{"Subject", "x"}, {"Other", "y"}}; },
                                                 {"names of headers of actions", "values of headers \"subject\" of actions"}},
};

void ReplaceSite(FilledHost& host, void (*change)(SiteMap&)) {
    SiteMap site = *host.Site(0);
    change(site);
    host.holder.Replace({site});
    host.holder.SetCurrent(host.Site(0));
}

const Change kChangesOfSites[] = {
    {[](FilledHost& h) { ReplaceSite(h, [](SiteMap& s) { s = {}; s.folderName = "none"; }); },
        {"names of sites", "exists sites \"One\"", "names of current sites", "urls of sites", "site tags of sites", "types of sites",
         "names of folders of sites", "names of client folders of sites", "names of mastheads of sites",
         "gather schedule authoritys of sites", "gather schedule time intervals of sites", "versions of sites",
         "site version lists of sites as string", "evaluateds of sites", "last gather times of sites", "subscribe times of sites",
         "exists settings of sites", "exists settings \"of site\" of sites", "ids of praxels of sites", "ids of relevant praxels of sites",
         "ids of relevant offer actions of sites"}},
    {[](FilledHost& h) { h.holder.SetCurrent(nullptr); },         {"exists current sites"}},
    {[](FilledHost& h) { h.ofSites.subsections["One"] = {{"of site", "2", {}, {}}}; },
                                                                  {"values of settings of sites", "values of settings \"of site\" of sites"}},
    {[](FilledHost& h) { h.memberships.clear(); },                {"members of groups 7 of sites"}},
    {[](FilledHost& h) { h.groups.clear(); },                     {"ids of groups 7 of sites"}},
    {[](FilledHost& h) { h.items[0].relevant = false; },          {"relevances of current analyses", "relevances of praxels of sites", "exists relevant praxels of sites"}},
    {[](FilledHost& h) { h.items[0].id = 6; },                    {"ids of praxels of sites", "ids of relevant praxels of sites", "ids of current analyses", "exists analysiss"}},
    {[](FilledHost& h) { h.items[0].site = nullptr; },            {"exists praxels of sites", "names of sites of praxels of sites"}},
    {[](FilledHost& h) { h.items[0].headers = {{"x", "y"}}; },    {"names of headers of current analyses", "values of headers of current analyses", "exists headers \"subject\" of current analyses"}},
    {[](FilledHost& h) { h.analysis = nullptr; },                 {"exists current analyses", "exists analysiss"}},
    {[](FilledHost& h) { h.lastTimes = {{5, 4}}; },               {"last times of analysiss"}},
};

const Change kChangesOfTheAgent[] = {
    {[](FilledHost& h) { h.program = h.place.File("moved"); },    {"names of clients"}},
    {[](FilledHost& h) { h.registered = RegisteredAddresses{"1.1.1.1", "2.2.2.2", "x", "y"}; },
        {"registration addresses of clients as string", "registration subnet addresses of clients as string",
         "registration cidr addresses of clients", "registration mac addresses of clients"}},
    {[](FilledHost& h) { h.commandTime = 1; },                    {"last command times of clients"}},
    {[](FilledHost& h) { h.rights = false; },                     {"enableds of administrative rightss of clients"}},
    {[](FilledHost& h) { h.loginPending = true; },                {"pending logins"}},
    {[](FilledHost& h) { h.restarts = {"other"}; },               {"pending restarts \"update\"", "pending restart names"}},
    {[](FilledHost& h) { h.restarts.clear(); },                   {"pending restarts"}},
    {[](FilledHost& h) { h.ofAgent.subsections["Client"] = {{"Set", "other", "Wed, 10 Mar 1999 10:11:12 +0000", "0"}}; },
        {"settings of clients as string", "names of settings of clients", "names of settings \"set\" of clients", "values of settings \"set\" of clients",
         "effective dates of settings \"set\" of clients", "enableds of settings \"set\" of clients", "exists action lock states"}},
    {[](FilledHost& h) { h.ofAgent.subsections["Administrators"] = {{"bob", "2", {}, {}}}; },
        {"administrators of clients as string", "values of administrators \"bob\" of clients"}},
    {[](FilledHost& h) { h.ofAgent.subsections["CustomSites"].clear(); },
        {"custom site subscription effective dates \"custom\""}},
    {[](FilledHost& h) { h.ofAgent.subsections["Client"][1].value = "unlocked;controller=client;text=because"; },
        {"action lock states as string", "lockeds of action lock states", "controllers of action lock states",
         "lock strings of action lock states", "expiration dates of action lock states", "effective dates of action lock states"}},
};

const Change kChangesOfServers[] = {
    {[](FilledHost& h) { h.told = {}; },
        {"apparent registration server times", "last relay select times", "nows of registration servers",
         "versions of registration servers", "names of registration servers", "versions of current relays",
         "names of download servers", "ids of root servers", "host names of root servers"}},
    {[](FilledHost& h) { h.lastRegistration = nullptr; },
        {"exists registration servers", "exists current relays", "exists download servers", "exists root servers"}},
    {[](FilledHost& h) { h.servers.current.reset(); },            {"exists selected servers"}},
    {[](FilledHost& h) { static const HostSelectorEntry other; h.servers.entries = {&other}; },
        {"names of selected servers", "exists ip addresses of selected servers", "port numbers of selected servers",
         "lower bounds of distances of selected servers", "upper bounds of distances of selected servers", "priorities of selected servers",
         "weights of selected servers", "competition sizes of selected servers", "competition weights of selected servers",
         "exists gateway addresses 1 of selected servers", "exists gateway addresses of selected servers",
         "exists full gateway addresses of selected servers"}},
};

const Change kChangesOfProcesses[] = {
    {[](FilledHost& h) { h.runs[0].active = false; },
        {"states of relay services", "runnings of services \"OSLRelay\"", "exists running services \"OSLRelay\"",
         "runnings of application usage summaries \"OSLRelay\"", "exists running applications", "exists running applications \"OSLRelay\""}},
    {[](FilledHost& h) { h.runs[0].path = h.place.Path("OSLGather"); h.place.File("OSLGather"); },
        {"states of main gather services", "exists application usages \"OSLRelay\"", "names of running applications", "names of recent applications",
         "exists recent applications \"OSLRelay\""}},
    {[](FilledHost& h) { h.StoreUse({1, 2, 3, 4, 5, 6, "7", "8"}); },
        {"total run counts of application usage summaries", "first start times of application usage summaries", "last start times of application usage summaries",
         "last times seen of application usage summaries", "total durations of application usage summaries \"OSLRelay\"",
         "total run counts of instances of application usage summaries", "first start times of instances of application usage summaries",
         "last start times of instances of application usage summaries", "last times seen of instances of application usage summaries",
         "total durations of instances of application usage summaries", "sizes of instances of application usage summaries",
         "string versions of instances of application usage summaries", "versions of instances of application usage summaries"}},
    {[](FilledHost& h) { std::filesystem::remove(h.place.Path("UsageData/OSLRelay.stat")); },
        {"names of application usage summaries", "names of instances of application usage summaries \"OSLRelay\""}},
    {[](FilledHost& h) { h.ofAgent.subsections["Client"].clear(); },
        {"exists application usages \"OSLRelay\"", "exists application usage summaries \"OSLRelay\""}},
};
// clang-format on

TEST(FingerprintsOfEveryPhrase, HoldUntilTheHostChanges) {
    for (const std::span<const Change> changes :
         {std::span<const Change>(kChangesOfActions), std::span<const Change>(kChangesOfSites),
          std::span<const Change>(kChangesOfTheAgent), std::span<const Change>(kChangesOfServers),
          std::span<const Change>(kChangesOfProcesses)}) {
        for (const Change& change : changes) {
            for (const char* text : change.questions) {
                FilledHost host;
                Recorded question(text, host);
                EXPECT_TRUE(question.IsInUse()) << text;
                EXPECT_TRUE(question.Unchanged()) << text;
                change.change(host);
                EXPECT_FALSE(question.Unchanged()) << text;
                EXPECT_FALSE(question.Unexpired()) << text;
            }
        }
    }
}

// What a node feeds of the state at hand.
uint32_t SumOf(const DependencyNode& node, InspectorContext* host) {
    const InspectorContextMaintainer installed(host);
    Fingerprinter fingerprinter;
    node.AddState(fingerprinter);
    return fingerprinter.sum;
}

TEST_F(FingerprintsTest, NodesFeedTheStateOfTheHostAndNothingWithoutOne) {
    InspectorContext bare;
    for (const DependencyNode* node :
         {&CurrentActionDependencyNode, &CurrentAnalysisDependencyNode, &ComputerIDDependencyNode}) {
        EXPECT_EQ(SumOf(*node, nullptr), 0U);
        EXPECT_EQ(SumOf(*node, &bare), 0U);
    }
    EmptyHost<InspectorActionContext> noActions;
    EXPECT_EQ(SumOf(CurrentActionDependencyNode, &noActions), 0U);
    EmptyHost<InspectorAnalysisContext> noAnalyses;
    EXPECT_EQ(SumOf(CurrentAnalysisDependencyNode, &noAnalyses), 0U);
    EXPECT_EQ(SumOf(ComputerIDDependencyNode, &host), 0U);
    host.id = 1;
    const uint32_t ofOne = SumOf(ComputerIDDependencyNode, &host);
    host.id = 2;
    EXPECT_NE(SumOf(ComputerIDDependencyNode, &host), ofOne);
}

// The names of the sites as a question would feed them.
uint32_t SumOfSites(InspectorContext* host) {
    const InspectorContextMaintainer installed(host);
    Fingerprinter fingerprinter;
    DependsOnSiteList(fingerprinter);
    return fingerprinter.sum;
}

TEST_F(FingerprintsTest, AListOfSitesThatCannotBeHadFeedsNothing) {
    EXPECT_NE(SumOfSites(&host), 0U);
    InspectorContext bare;
    EmptyHost<InspectorSiteContext> empty;
    EXPECT_EQ(SumOfSites(nullptr), 0U);
    EXPECT_EQ(SumOfSites(&bare), 0U);
    EXPECT_EQ(SumOfSites(&empty), 0U);
    SiteMap custom;
    custom.name = "stored";
    custom.nameIsTranslated = true;
    host.holder.Replace({custom});
    const uint32_t stored = SumOfSites(&host);
    host.knownNames["stored"] = "known as";
    EXPECT_NE(SumOfSites(&host), stored);
    host.knownNames["stored"] = std::string(1024, 'x');
    EXPECT_EQ(SumOfSites(&host), 0U);
}

TEST_F(FingerprintsTest, TheNodesAreKnownByTheirNames) {
    EXPECT_EQ(CurrentActionDependencyNode.Name(), "CurrentAction");
    EXPECT_EQ(CurrentAnalysisDependencyNode.Name(), "CurrentAnalysis");
    EXPECT_EQ(ComputerIDDependencyNode.Name(), "ComputerID");
    const DependencyFunction functions[] = {CurrentActionDependencyNodeFunction, CurrentAnalysisDependencyNodeFunction,
                                            ComputerIDDependencyNodeFunction};
    DependencyNode* const nodes[] = {&CurrentActionDependencyNode, &CurrentAnalysisDependencyNode,
                                     &ComputerIDDependencyNode};
    for (size_t i = 0; i < std::size(nodes); ++i) {
        Fingerprinter fingerprinter;
        functions[i](fingerprinter);
        EXPECT_EQ(fingerprinter.dependencies, uint32_t{1} << nodes[i]->Number());
    }
}

}  // namespace
