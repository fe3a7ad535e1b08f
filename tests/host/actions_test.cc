// Actions of a host that has some.
#include <algorithm>
#include <limits>
#include <set>

#include "client/action.h"
#include "client/action_tags.h"
#include "tests/host/embedding_host.h"
#include "tests/host/phrases.h"

namespace {

constexpr int64_t kSecond = 1'000'000;

// An action with everything, a bare one, and a host that stands at the first.
class ActionsTest : public testing::Test {
protected:
    ActionsTest() {
        SiteMap site;
        site.name = "Offers";
        host.holder.Replace({site});

        ActionRecord& full = host.actions.emplace_back();
        full.state.id = 17;
        full.state.originPraxelId = 1234;
        full.state.constraint = 12;
        full.state.systemConstraint = 13;
        full.state.firstActiveCount = 14;
        full.state.activeCount = 15;
        full.state.activeLineNumber = 16;
        full.state.lastActiveLineNumber = 18;
        full.state.exitCode = -19;
        full.state.constrained = true;
        full.state.pendingTime = 1 * kSecond;
        full.state.completeTime = 2 * kSecond;
        full.state.activeStartTime = 3 * kSecond;
        full.state.lastActiveTime = 4 * kSecond;
        full.state.lastChangeTime = 5 * kSecond;
        full.parameters = {{"one", "first"}, {"two words", "second"}, {"empty", ""}};
        full.headers = {{"Subject", "a"}, {"x-y", "b"}, {"SUBJECT", "c"}};

        host.actions.emplace_back().state.id = 4294967295;
        host.current = &full;
    }

    ActionState& State() { return host.Action(0).state; }
    Answer Asked(std::string_view question) { return Ask(question, &host); }

    EmbeddingHost host;
};

const std::string kOfFull = " of action";
const std::string kOfBare = " of action 4294967295";

TEST_F(ActionsTest, NumbersInEachSpelling) {
    for (const Phrase& phrase : std::vector<Phrase>{
             {"id", "ids", kOfFull, "17"},
             {"constraint", "constraints", kOfFull, "12"},
             {"system constraint", "system constraints", kOfFull, "13"},
             {"first active count", "first active counts", kOfFull, "14"},
             {"active count", "active counts", kOfFull, "15"},
             {"active line number", "active line numbers", kOfFull, "16"},
             {"last active line number", "last active line numbers", kOfFull, "18"},
             {"origin praxel id", "origin praxel ids", kOfFull, "1234"},
             {"exit code", "exit codes", kOfFull, "-19"},
         }) {
        ExpectValue(host, phrase);
        if (phrase.singular != "id") {
            ExpectNone(host, {phrase.singular, phrase.plural, kOfBare, ""});
        }
    }
    EXPECT_EQ(Asked("id of action 4294967295"), Values({"4294967295"}));
}

TEST_F(ActionsTest, TimesInEachSpelling) {
    const std::string inUtc = " as universal string";
    for (const Phrase& phrase : std::vector<Phrase>{
             {"pending time", "pending times", kOfFull, "01"},
             {"complete time", "complete times", kOfFull, "02"},
             {"active start time", "active start times", kOfFull, "03"},
             {"last active time", "last active times", kOfFull, "04"},
             {"last change time", "last change times", kOfFull, "05"},
         }) {
        const std::string text = "Thu, 01 Jan 1970 00:00:" + phrase.value + " +0000";
        EXPECT_EQ(Asked("(" + phrase.singular + phrase.of + ")" + inUtc), Values({text}));
        EXPECT_EQ(Asked("(" + phrase.plural + phrase.of + ")" + inUtc), Values({text}));
        ExpectNone(host, {phrase.singular, phrase.plural, kOfBare, ""});
    }
}

TEST_F(ActionsTest, FlagsInEachSpelling) {
    State().constrained = false;
    struct Flag {
        const char* singular;
        const char* plural;
        bool ActionState::*field;
    };
    constexpr Flag flags[] = {
        {"constrained", "constraineds", &ActionState::constrained},
        {"pending", "pendings", &ActionState::pending},
        {"waiting for download", "waiting for downloads", &ActionState::waitingForDownload},
        {"active", "actives", &ActionState::active},
        {"pending restart", "pending restarts", &ActionState::pendingRestart},
        {"pending login", "pending logins", &ActionState::pendingLogin},
        {"group leader", "group leaders", &ActionState::groupLeader},
        {"offer", "offers", &ActionState::offer},
        {"offer accepted", "offer accepteds", &ActionState::offerAccepted},
        {"persistent constraint", "persistent constraints", &ActionState::persistentConstraint},
    };
    for (const Flag& set : flags) {
        State().*set.field = true;
        for (const Flag& asked : flags) {
            ExpectValue(host, {asked.singular, asked.plural, kOfFull, &asked == &set ? "True" : "False"});
        }
        State().*set.field = false;
    }
}

TEST_F(ActionsTest, TheCurrentOneTheActiveOneAndByNumber) {
    EXPECT_EQ(Asked("ids of actions"), Values({"17"}));
    EXPECT_EQ(Asked("id of active action"), DoesNotExist());
    EXPECT_EQ(Asked("ids of active actions"), Nothing());
    host.running = &host.Action(1);
    ExpectValue(host, {"id of active action", "ids of active actions", "", "4294967295"});
    host.current = nullptr;
    ExpectNone(host, {"id of action", "ids of actions", "", ""});
    ExpectValue(host, {"id of action 17", "ids of actions 17", "", "17"});
    ExpectNone(host, {"id of action 18", "ids of actions 18", "", ""});
    ExpectNone(host, {"id of action (-1)", "ids of actions (-1)", "", ""});
    // 2^32 + 17 is not 17.
    ExpectNone(host, {"id of action 4294967313", "ids of actions 4294967313", "", ""});
    ExpectNone(host, {"id of action 9223372036854775807", "ids of actions 9223372036854775807", "", ""});
}

TEST_F(ActionsTest, ActionsHaveNoText) {
    EXPECT_EQ(Asked("action"), Fails("OperationNotDefined"));
    EXPECT_EQ(Asked("header 1 of action"), Fails("OperationNotDefined"));
}

TEST_F(ActionsTest, AConstraintIsOfAConstrainedActionAlone) {
    for (const auto& [stored, told] : std::vector<std::pair<int64_t, std::string>>{
             {-1, "-1"}, {0, "0"}, {199, "199"}, {200, "200"}, {201, "0"}, {213, "0"}, {1000000, "0"}}) {
        State().constraint = stored;
        EXPECT_EQ(Asked("constraint of action"), Values({told})) << stored;
    }
    State().constrained = false;
    ExpectNone(host, {"constraint", "constraints", kOfFull, ""});
    State().constrained = true;
    State().constraint.reset();
    ExpectNone(host, {"constraint", "constraints", kOfFull, ""});
}

TEST_F(ActionsTest, ADownloadFailureIsOfThreeConstraintsAlone) {
    for (const int64_t stored : {0, 13, 212, 216, -213}) {
        State().constraint = stored;
        ExpectNone(host, {"download failure", "download failures", kOfFull, ""});
    }
    for (const auto& [stored, told] :
         std::vector<std::pair<int64_t, std::string>>{{213, "False"}, {214, "True"}, {215, "True"}}) {
        State().constraint = stored;
        ExpectValue(host, {"download failure", "download failures", kOfFull, told});
    }
    State().constrained = false;
    ExpectNone(host, {"download failure", "download failures", kOfFull, ""});
    ExpectNone(host, {"download failure", "download failures", kOfBare, ""});
}

TEST_F(ActionsTest, AnExitCodeHasThirtyTwoBits) {
    for (const int32_t code : {0, -1, 255, std::numeric_limits<int32_t>::min(), std::numeric_limits<int32_t>::max()}) {
        State().exitCode = code;
        EXPECT_EQ(Asked("exit code of action"), Values({std::to_string(code)}));
    }
    State().exitCode.reset();
    ExpectNone(host, {"exit code", "exit codes", kOfFull, ""});
}

// Every combination of the six flags, against the rule as a table: the first row that fits decides.
TEST_F(ActionsTest, AStatusIsDecidedByTheFirstRuleThatFits) {
    enum Say { No, Yes, Any };
    struct Rule {
        Say active, pending, constrained, ran, leader, failed;
        const char* status;
    };
    constexpr Rule rules[] = {
        {Yes, Any, Any, Any, Any, Any, "Running"}, {No, No, Any, No, Any, Any, "Not Relevant"},
        {No, No, Any, Yes, Yes, Yes, "Failed"},    {No, No, Any, Yes, Any, Any, "Executed"},
        {No, Yes, Yes, Any, Any, Any, "Waiting"},  {No, Yes, No, No, Any, Any, "Not Executed"},
        {No, Yes, No, Yes, Yes, Yes, "Failed"},    {No, Yes, No, Yes, Yes, No, "Executed"},
        {No, Yes, No, Yes, No, Any, "Failed"},
    };
    const auto fits = [](Say wanted, bool is) { return wanted == Any || (wanted == Yes) == is; };
    std::set<const Rule*> used;
    for (unsigned flags = 0; flags < 64; ++flags) {
        ActionState& state = State();
        state.active = (flags & 1) != 0;
        state.pending = (flags & 2) != 0;
        state.constrained = (flags & 4) != 0;
        state.ranToItsEnd = (flags & 8) != 0;
        state.groupLeader = (flags & 16) != 0;
        state.endedInFailure = (flags & 32) != 0;
        const Rule* const rule = std::find_if(std::begin(rules), std::end(rules), [&](const Rule& r) {
            return fits(r.active, state.active) && fits(r.pending, state.pending) &&
                   fits(r.constrained, state.constrained) && fits(r.ran, state.ranToItsEnd) &&
                   fits(r.leader, state.groupLeader) && fits(r.failed, state.endedInFailure);
        });
        ASSERT_NE(rule, std::end(rules)) << flags;
        used.insert(rule);
        ExpectValue(host, {"status", "statuss", kOfFull, rule->status});
    }
    EXPECT_EQ(used.size(), std::size(rules));
}

TEST_F(ActionsTest, Parameters) {
    ExpectValue(host, {"parameter \"one\"", "parameters \"one\"", kOfFull, "first"});
    ExpectValue(host, {"parameter \"two words\"", "parameters \"two words\"", "", "second"});
    ExpectValue(host, {"parameter \"empty\"", "parameters \"empty\"", "", ""});
    ExpectNone(host, {"parameter \"three\"", "parameters \"three\"", kOfFull, ""});
    ExpectNone(host, {"parameter \"three\"", "parameters \"three\"", "", ""});
    ExpectNone(host, {"parameter \"one\"", "parameters \"one\"", kOfBare, ""});
    host.current = nullptr;
    ExpectNone(host, {"parameter \"one\"", "parameters \"one\"", "", ""});
}

TEST_F(ActionsTest, HeadersAllAndByName) {
    EXPECT_EQ(Asked("(name of it & \"=\" & value of it) of headers of action"),
              Values({"Subject=a", "x-y=b", "SUBJECT=c"}));
    EXPECT_EQ(Asked("values of headers \"subject\" of action"), Values({"a", "c"}));
    EXPECT_EQ(Asked("value of header \"X-Y\" of action"), Values({"b"}));
    EXPECT_EQ(Asked("value of header \"subject\" of action").failure, "ArgumentNotUnique");
    EXPECT_EQ(Asked("value of header of action").failure, "ArgumentNotUnique");
    EXPECT_EQ(Asked("value of header \"z\" of action"), DoesNotExist());
    EXPECT_EQ(Asked("names of headers of action 4294967295"), Nothing());
    // A walk begins anew with each object.
    EXPECT_EQ(Asked("(values of headers \"x-y\" of it) of (action; action 17)"), Values({"b", "b"}));
}

TEST_F(ActionsTest, RelevantOffersOfASite) {
    EXPECT_EQ(Asked("relevant offer action of site \"Offers\" as string"), Fails("OperationNotDefined"));
    EXPECT_EQ(Asked("id of relevant offer action of site \"Offers\""), DoesNotExist());
    host.Action(1).relevantOfferOf = host.Site(0);
    ExpectValue(host,
                {"id of relevant offer action", "ids of relevant offer actions", " of site \"Offers\"", "4294967295"});
    host.Action(0).relevantOfferOf = host.Site(0);
    EXPECT_EQ(Asked("ids of relevant offer actions of sites"), Values({"17", "4294967295"}));
}

TEST_F(ActionsTest, AnActionThatHasGoneHasNoProperties) {
    host.Action(0).gone = true;
    ExpectNone(host, {"id", "ids", kOfFull, ""});
    ExpectNone(host, {"status", "statuss", kOfFull, ""});
    ExpectNone(host, {"pending", "pendings", kOfFull, ""});
}

TEST_F(ActionsTest, WhileTheHostRewritesItsActionsNoneCanBeLookedAt) {
    host.actionsAreBusy = true;
    for (const Phrase& phrase : std::vector<Phrase>{
             {"status", "statuss", kOfFull, ""},
             {"id of active action", "ids of active actions", "", ""},
             {"id of action 17", "ids of actions 17", "", ""},
             {"parameter \"one\"", "parameters \"one\"", "", ""},
             {"parameter \"one\"", "parameters \"one\"", kOfFull, ""},
             {"value of header \"x-y\"", "values of headers", kOfFull, ""},
             {"id of relevant offer action", "ids of relevant offer actions", " of site \"Offers\"", ""},
         }) {
        ExpectFailure(&host, phrase, "CannotEvaluateNow");
    }
    static_cast<InspectorActionContext&>(host).isBusy = nullptr;
    EXPECT_EQ(Asked("id of action"), Values({"17"}));
}

TEST(ActionTags, StandAsHostsWriteThem) {
    const std::pair<ConstData, std::string> all[] = {
        {cActionTagPending, ":pending="},
        {cActionTagId, ":id="},
        {cActionTagDateTrue, ":pt="},
        {cActionTagDateFalse, ":ct="},
        {cActionTagConstrained, ":constrained="},
        {cActionTagConstraint, ":constraint="},
        {cActionTagSystemConstraint, ":sysconstraint="},
        {cActionTagFirstActiveCount, ":fac="},
        {cActionTagActiveCount, ":ac="},
        {cActionTagActiveLineNumber, ":al="},
        {cActionTagActiveStartTime, ":ast="},
        {cActionTagLastActiveLineNumber, ":lal="},
        {cActionTagLastActiveTime, ":lat="},
        {cActionTagLastChangeTime, ":lct="},
        {cActionTagWaitingForDownloads, ":wfd="},
        {cActionTagActive, ":act="},
        {cActionTagStatus, ":s="},
        {cActionTagPendingRestart, ":pr="},
        {cActionTagPendingLogin, ":pl="},
        {cActionTagActionId, ":aid="},
        {cActionTagSubActionOrdinal, ":sao="},
        {cActionTagExitCode, ":ec="},
        {cActionTagDownloadFailed, ":df="},
        {cActionTagActionDependencyCanceled, ":adc="},
        {cActionTagActionDependencyWaitingOnUser, ":adwu="},
        {cActionTagEnd, ":"},
        {cActionValueTrue, "1"},
        {cActionValueFalse, "0"},
    };
    for (const auto& [constant, text] : all) {
        EXPECT_EQ(constant.View(), text);
    }
}

}  // namespace
