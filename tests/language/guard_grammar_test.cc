#include "language/guard_grammar.h"

#include <gtest/gtest.h>

#include <set>
#include <vector>

#include "tests/language/recording_semantics.h"

namespace {

struct Row {
    int result;
    std::vector<int> symbols;
    const char* action;
};

const Row rows[] = {
    {21, {0, 42, 1}, ""},
    {22, {12, 21}, "NamedWithArgument"},
    {22, {12, 0, 42, 1}, "NamedWithArgument"},
    {22, {21}, "ValueItem"},
    {22, {12}, "NamedAlone"},
    {22, {22, 14, 21}, "Whose"},
    {23, {22, 13, 23}, "Of"},
    {23, {22}, "NoOf"},
    {24, {23}, ""},
    {24, {24, 15, 12}, "Cast"},
    {25, {24}, ""},
    {25, {16, 25}, "Exists"},
    {25, {17, 25}, "ExistsNo"},
    {25, {2, 25}, "Not"},
    {25, {11, 25}, "Negate"},
    {26, {25}, ""},
    {26, {26, 3, 25}, "Bar"},
    {27, {26}, ""},
    {28, {27}, ""},
    {28, {28, 4, 25}, "BinaryOperator"},
    {29, {28}, ""},
    {30, {29}, ""},
    {30, {30, 5, 29}, "BinaryOperator"},
    {30, {30, 11, 29}, "Subtract"},
    {31, {30}, ""},
    {32, {31, 6, 31}, "BinaryOperator"},
    {32, {31}, ""},
    {33, {32}, ""},
    {33, {33, 7, 32}, "And"},
    {34, {33}, ""},
    {35, {34}, ""},
    {35, {35, 8, 34}, "Or"},
    {36, {35}, ""},
    {38, {36, 9}, ""},
    {37, {36}, ""},
    {39, {38, 37}, "LastTupleElement"},
    {39, {38, 39}, "TupleElement"},
    {40, {37}, ""},
    {40, {39}, ""},
    {41, {40}, ""},
    {41, {41, 10, 40}, "Collection"},
    {42, {41}, ""},
    {42, {18, 42, 19, 42, 20, 42}, "If"},
    {43, {42}, "Accept"},
};

const RuleNode* Find(const RuleNode* list, int symbol) {
    for (; list != nullptr; list = list->alternative) {
        if (list->symbol == symbol) {
            return list;
        }
    }
    return nullptr;
}

std::string ActionOf(const GuardRule& rule) {
    RecordingSemantics semantics;
    if (rule.action != nullptr) {
        (semantics.*rule.action)();
    }
    return semantics.text;
}

void Collect(const RuleNode* list, std::vector<const RuleNode*>& nodes) {
    for (; list != nullptr; list = list->alternative) {
        nodes.push_back(list);
        Collect(list->next, nodes);
    }
}

std::vector<const RuleNode*> AllNodes() {
    std::vector<const RuleNode*> nodes;
    for (const RuleNode* root : GuardRoots()) {
        Collect(root, nodes);
    }
    return nodes;
}

TEST(GuardGrammar, EachOfThe44RulesIsAPathThroughTheTree) {
    ASSERT_EQ(std::size(rows), 44u);
    std::set<const GuardRule*> rules;
    for (size_t i = 0; i < std::size(rows); ++i) {
        const Row& row = rows[i];
        const RuleNode* list = GuardRoots()[static_cast<size_t>(row.symbols[0])];
        for (size_t symbol = 1; symbol < row.symbols.size(); ++symbol) {
            const RuleNode* node = Find(list, row.symbols[symbol]);
            ASSERT_NE(node, nullptr) << "rule " << i + 1;
            list = node->next;
        }
        const RuleNode* end = Find(list, 43);
        ASSERT_NE(end, nullptr) << "rule " << i + 1;
        EXPECT_TRUE(end->IsTerminal()) << "rule " << i + 1;
        EXPECT_EQ(end->rule->result, row.result) << "rule " << i + 1;
        EXPECT_EQ(end->rule->symbolCount, static_cast<int>(row.symbols.size())) << "rule " << i + 1;
        EXPECT_EQ(ActionOf(*end->rule), row.action) << "rule " << i + 1;
        rules.insert(end->rule);
    }
    EXPECT_EQ(rules.size(), 44u);
}

TEST(GuardGrammar, HoldsNoOtherRule) {
    int terminals = 0;
    for (const RuleNode* node : AllNodes()) {
        if (node->IsTerminal()) {
            EXPECT_EQ(node->symbol, 43);
            ++terminals;
        } else {
            EXPECT_NE(node->symbol, 43);
        }
    }
    EXPECT_EQ(terminals, 44);
}

TEST(GuardGrammar, ARuleThatIsCompleteIsTheLastAlternative) {
    for (const RuleNode* node : AllNodes()) {
        if (node->IsTerminal()) {
            EXPECT_EQ(node->alternative, nullptr);
        }
    }
}

// Shared beginnings are one node: what may follow "item" is "whose", "of" and nothing, in this order.
TEST(GuardGrammar, EarlierRulesAreTriedFirst) {
    const RuleNode* afterItem = GuardRoots()[22];
    EXPECT_EQ(afterItem->symbol, 14);
    EXPECT_EQ(afterItem->alternative->symbol, 13);
    EXPECT_EQ(afterItem->alternative->alternative->symbol, 43);
    const RuleNode* afterSum = GuardRoots()[30];
    EXPECT_EQ(afterSum->symbol, 5);
    EXPECT_EQ(afterSum->alternative->symbol, 11);
    EXPECT_EQ(afterSum->alternative->alternative->symbol, 43);
}

TEST(GuardGrammar, NoRuleBeginsWithWhatOnlyGoesOn) {
    for (const size_t symbol : {1, 3, 4, 5, 6, 7, 8, 9, 10, 13, 14, 15, 19, 20}) {
        EXPECT_EQ(GuardRoots()[symbol], nullptr) << symbol;
    }
}

TEST(GuardGrammar, IsBuiltOnce) { EXPECT_EQ(&GuardRoots(), &GuardRoots()); }

}  // namespace
