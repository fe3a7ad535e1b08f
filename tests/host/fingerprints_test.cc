// Fingerprints of what depends on a host's state: they hold while the state does, and no longer.
#include "client/action.h"
#include "client/analysis.h"
#include "client/client.h"
#include "tests/host/embedding_host.h"
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
