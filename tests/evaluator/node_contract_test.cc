// Every node class under every short script of its operands: whatever happens, a node that ends or fails has stopped
// all below it, a node that holds a value has stopped what it no longer needs, and nobody calls out of turn.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "evaluator/aggregate_expression.h"
#include "evaluator/bar_expression.h"
#include "evaluator/cast_expression.h"
#include "evaluator/collection_expression.h"
#include "evaluator/computed_property_expression.h"
#include "evaluator/constant_expressions.h"
#include "evaluator/if_expression.h"
#include "evaluator/item_of_expression.h"
#include "evaluator/logical_expressions.h"
#include "evaluator/operator_expressions.h"
#include "evaluator/property_expression.h"
#include "evaluator/tuple_expression.h"
#include "evaluator/whose_expression.h"
#include "tests/evaluator/scripted_expression.h"

namespace {

using Step = ScriptedStep;
using Steps = std::vector<Step>;

// How a script reads, and how it would be answered if it stood alone: values and an ending.
std::string Text(const Steps& steps, bool plural) {
    std::string text = plural ? "plural" : "singular";
    for (const Step& step : steps) {
        text += " " + std::string(step.kind == Step::Value    ? std::to_string(step.value)
                                  : step.kind == Step::Status ? "status" + std::to_string(step.value)
                                                              : "throw");
    }
    return text;
}

// All scripts of up to three values out of two, with each ending.
std::vector<Steps> AllScripts() {
    std::vector<Steps> scripts;
    for (int count = 0; count <= 2; ++count) {
        for (int bits = 0; bits < 1 << count; ++bits) {
            Steps values;
            for (int i = 0; i < count; ++i) {
                values.push_back({Step::Value, bits >> i & 1});
            }
            scripts.push_back(values);
            for (const Step& ending : {Step{Step::Status, StatusDoesNotExist}, Step{Step::Status, StatusNotUnique},
                                       Step{Step::Status, StatusNotConverted}, Step{Step::Throw}}) {
                scripts.push_back(values);
                scripts.back().push_back(ending);
            }
        }
    }
    return scripts;
}

struct NodeClass {
    const char* name;
    std::vector<const char*> operandTypes;
    std::vector<bool> mayBePlural;
    std::function<std::unique_ptr<Expression>(std::vector<Expression*>)> make;
    // The operands that may stay parked while the node holds a value.
    std::vector<bool> mayStayParked;
};

template <class Node>
std::unique_ptr<Expression> MakeTwo(std::vector<Expression*> o) {
    return std::make_unique<Node>(o[0], o[1]);
}
template <class Node>
std::unique_ptr<Expression> MakeOne(std::vector<Expression*> o) {
    return std::make_unique<Node>(o[0]);
}

std::vector<NodeClass> NodeClasses() {
    return {
        {"exists", {"integer"}, {true}, MakeOne<ExistsExpression>, {false}},
        {"number of", {"integer"}, {true}, MakeOne<NumberOfExpression>, {false}},
        {"not", {"boolean"}, {false}, MakeOne<LogicalNotExpression>, {true}},
        {"minus",
         {"integer"},
         {false},
         [](auto o) { return std::make_unique<UnaryOperatorExpression>(kUnaryMinus, o[0]); },
         {true}},
        {"divide",
         {"integer", "integer"},
         {false, false},
         [](auto o) { return std::make_unique<BinaryOperatorExpression>(kOperatorDivide, o[0], o[1]); },
         {true, true}},
        {"cast", {"integer"}, {true}, [](auto o) { return std::make_unique<CastExpression>(o[0], "token"); }, {true}},
        {"conversion",
         {"integer"},
         {true},
         [](auto o) { return std::make_unique<ImplicitConversion>(o[0], "token"); },
         {true}},
        {"property",
         {"integer"},
         {true},
         [](auto o) { return std::make_unique<PropertyExpression>("positive", nullptr, o[0]); },
         {true}},
        {"iterated property",
         {"integer"},
         {true},
         [](auto o) { return std::make_unique<PropertyExpression>("counts", nullptr, o[0]); },
         {true}},
        {"aggregate",
         {"integer"},
         {true},
         [](auto o) { return std::make_unique<PropertyExpression>("sum", nullptr, o[0]); },
         {false}},
        {"six stages",
         {"integer"},
         {true},
         [](auto o) { return std::make_unique<PropertyExpression>("sixes", nullptr, o[0]); },
         {true}},
        {"of",
         {"integer", "integer"},
         {true, true},
         [](auto o) { return std::make_unique<ComputedPropertyExpression>(o[0], o[1], false); },
         {true, true}},
        {"whose", {"integer", "boolean"}, {true, true}, MakeTwo<WhoseExpression>, {true, false}},
        {"and", {"boolean", "boolean"}, {false, false}, MakeTwo<AndExpression>, {false, false}},
        {"or", {"boolean", "boolean"}, {false, false}, MakeTwo<OrExpression>, {false, false}},
        {"bar", {"integer", "integer"}, {false, false}, MakeTwo<BarExpression>, {true, true}},
        {"collection",
         {"integer", "integer"},
         {true, true},
         [](auto o) { return std::make_unique<CollectionExpression>(o[0], o[1], nullptr); },
         {true, true}},
        {"if",
         {"boolean", "integer", "integer"},
         {false, true, true},
         [](auto o) { return std::make_unique<IfExpression>(o[0], o[1], o[2]); },
         {false, true, true}},
    };
}

// One node over scripted operands.
struct Rig {
    Rig(const NodeClass& nodeClass, const std::vector<Steps>& scripts, const std::vector<bool>& plural)
        : stayParked(nodeClass.mayStayParked), installed(memory) {
        std::vector<Expression*> operands;
        for (size_t i = 0; i < scripts.size(); ++i) {
            children.push_back(std::make_unique<ScriptedExpression>(scripts[i], plural[i], nodeClass.operandTypes[i]));
            operands.push_back(children.back().get());
        }
        node = nodeClass.make(operands);
        node->Bind(nullptr, memory);
    }

    // Takes one step and holds everybody to the contract; "end", "value", or what failed.
    std::string Take(const std::function<EvaluationStatus()>& step) {
        std::string outcome;
        try {
            const EvaluationStatus status = step();
            outcome = status != StatusOk         ? "status" + std::to_string(status)
                      : node->Value() == nullptr ? "end"
                                                 : "value";
            if (status != StatusOk) {
                EXPECT_EQ(node->Value(), nullptr);
            }
        } catch (const TestFailure&) {
            outcome = "throw";
            EXPECT_EQ(node->Value(), nullptr);
        }
        for (size_t i = 0; i < children.size(); ++i) {
            EXPECT_EQ(children[i]->violations, 0) << "operand " << i;
            if (outcome != "value" || !stayParked[i]) {
                EXPECT_FALSE(children[i]->Parked()) << "operand " << i << " after " << outcome;
            }
        }
        return outcome;
    }
    std::string First() {
        return Take([this] { return node->TryFirst(); });
    }
    std::string Next() {
        return Take([this] { return node->TryNext(); });
    }
    std::string Stop() {
        const std::string outcome = Take([this] { return node->TryStop(); });
        EXPECT_NE(outcome, "value");
        return outcome;
    }

    // The whole walk: the number of values and what ended it.
    std::string Walk() {
        std::string outcome = First();
        int values = 0;
        for (; outcome == "value" && values < 100; ++values) {
            outcome = Next();
        }
        return std::to_string(values) + " " + outcome;
    }

    std::vector<bool> stayParked;
    StackAllocator<4096> memory;
    AllocatorInstaller installed;
    std::vector<std::unique_ptr<ScriptedExpression>> children;
    std::unique_ptr<Expression> node;
};

// Calls `visit` with every choice of scripts and plurals for a class.
void ForEachCase(const NodeClass& nodeClass,
                 const std::function<void(const std::vector<Steps>&, const std::vector<bool>&)>& visit) {
    const std::vector<Steps> all = AllScripts();
    const size_t operands = nodeClass.operandTypes.size();
    std::vector<Steps> scripts(operands);
    std::vector<bool> plural(operands);
    const std::function<void(size_t)> choose = [&](size_t operand) {
        if (operand == operands) {
            visit(scripts, plural);
            return;
        }
        // With three operands the full product says no more than a thinner one.
        const size_t stride = operands == 3 && operand > 0 ? 3 : 1;
        for (size_t i = 0; i < all.size(); i += stride) {
            scripts[operand] = all[i];
            for (const bool isPlural : {false, true}) {
                if (!isPlural || nodeClass.mayBePlural[operand]) {
                    plural[operand] = isPlural;
                    choose(operand + 1);
                }
            }
        }
    };
    choose(0);
}

std::string Describe(const NodeClass& nodeClass, const std::vector<Steps>& scripts, const std::vector<bool>& plural) {
    std::string text = nodeClass.name;
    for (size_t i = 0; i < scripts.size(); ++i) {
        text += " [" + Text(scripts[i], plural[i]) + "]";
    }
    return text;
}

TEST(NodeContract, HoldsForEveryScriptWalkedToItsEndAndStoppedAtEveryStep) {
    for (const NodeClass& nodeClass : NodeClasses()) {
        size_t cases = 0;
        ForEachCase(nodeClass, [&](const std::vector<Steps>& scripts, const std::vector<bool>& plural) {
            SCOPED_TRACE(Describe(nodeClass, scripts, plural));
            const int alive = token::alive;
            Rig rig(nodeClass, scripts, plural);
            const std::string whole = rig.Walk();
            EXPECT_EQ(token::alive, alive);
            // Stopped after each number of values, the node can be walked again to the same end.
            const int values = std::stoi(whole);
            EXPECT_LT(values, 100);
            for (int stopAt = 1; stopAt <= values; ++stopAt) {
                EXPECT_EQ(rig.First(), "value");
                for (int i = 1; i < stopAt; ++i) {
                    EXPECT_EQ(rig.Next(), "value");
                }
                rig.Stop();
                EXPECT_EQ(token::alive, alive);
            }
            EXPECT_EQ(rig.Walk(), whole);
            ++cases;
        });
        EXPECT_GE(cases, 35u) << nodeClass.name;
        if (testing::Test::HasFailure()) {
            break;
        }
    }
    EXPECT_EQ(token::alive, 0);
}

// ---- The rows of what each class makes of trouble -------------------------------------------------------------------

const Steps kOne = {{Step::Value, 1}};
const Steps kZero = {{Step::Value, 0}};
const Steps kTwo = {{Step::Value, 1}, {Step::Value, 1}};
const Steps kNone = {};
const Steps kThrow = {{Step::Throw}};
const Steps kStatus = {{Step::Status, StatusNotConverted}};
const Steps kOneThenThrow = {{Step::Value, 1}, {Step::Throw}};

TEST(NodeContract, WhatEachClassMakesOfAbsenceOfASecondValueAndOfAnException) {
    struct Row {
        const char* nodeClass;
        std::vector<Steps> scripts;
        std::vector<bool> plural;
        const char* walk;
    };
    const std::vector<Row> rows = {
        {"exists", {kNone}, {false}, "1 end"},
        {"exists", {kNone}, {true}, "1 end"},
        {"exists", {kTwo}, {false}, "1 end"},
        {"exists", {kStatus}, {false}, "0 status3"},
        {"exists", {kThrow}, {false}, "0 throw"},
        {"exists", {kOneThenThrow}, {false}, "1 end"},
        {"number of", {kNone}, {false}, "1 end"},
        {"number of", {kTwo}, {false}, "1 end"},
        {"number of", {kStatus}, {true}, "0 status3"},
        {"number of", {kOneThenThrow}, {true}, "0 throw"},
        {"not", {kNone}, {false}, "0 status1"},
        {"not", {kTwo}, {false}, "1 status2"},
        {"not", {kThrow}, {false}, "0 throw"},
        {"minus", {kNone}, {false}, "0 status1"},
        {"minus", {kTwo}, {false}, "1 status2"},
        {"minus", {kOneThenThrow}, {false}, "1 throw"},
        {"divide", {kNone, kThrow}, {false, false}, "0 status1"},
        {"divide", {kOne, kNone}, {false, false}, "0 status1"},
        {"divide", {kOne, kZero}, {false, false}, "0 end"},
        {"divide", {kTwo, kOne}, {false, false}, "1 status2"},
        {"divide", {kOne, kTwo}, {false, false}, "1 status2"},
        {"divide", {{{Step::Value, 1}, {Step::Status, StatusNotConverted}}, kTwo}, {false, false}, "1 status2"},
        {"divide", {{{Step::Value, 1}, {Step::Status, StatusNotConverted}}, kOne}, {false, false}, "1 status3"},
        {"cast", {kNone}, {false}, "0 status1"},
        {"cast", {kNone}, {true}, "0 end"},
        {"cast", {kTwo}, {false}, "1 status2"},
        {"cast", {kTwo}, {true}, "2 end"},
        {"cast", {{{Step::Value, -1}}}, {false}, "0 end"},
        {"cast", {{{Step::Value, -1}, {Step::Value, 1}}}, {false}, "0 status2"},
        {"cast", {{{Step::Value, -1}, {Step::Value, 1}}}, {true}, "1 end"},
        {"conversion", {{{Step::Value, -1}}}, {false}, "0 status3"},
        {"conversion", {{{Step::Value, 1}, {Step::Value, -1}, {Step::Value, 1}}}, {true}, "1 status3"},
        {"property", {kNone}, {false}, "0 status1"},
        {"property", {kNone}, {true}, "0 end"},
        {"property", {kTwo}, {false}, "1 status2"},
        {"property", {kTwo}, {true}, "2 end"},
        {"property", {{{Step::Value, 0}, {Step::Value, 1}}}, {true}, "1 end"},
        {"property", {{{Step::Value, 0}, {Step::Value, 1}}}, {false}, "0 status2"},
        {"iterated property", {{{Step::Value, 2}, {Step::Value, 3}}}, {true}, "5 end"},
        {"iterated property", {{{Step::Value, 2}, {Step::Value, 3}}}, {false}, "2 status2"},
        {"aggregate", {kNone}, {true}, "1 end"},
        {"aggregate", {kNone}, {false}, "0 status1"},
        {"aggregate", {kTwo}, {true}, "1 end"},
        {"aggregate", {kTwo}, {false}, "0 status2"},
        {"aggregate", {kOneThenThrow}, {true}, "0 throw"},
        {"six stages", {kNone}, {true}, "4 end"},
        {"six stages", {kNone}, {false}, "2 status1"},
        {"six stages", {kOne}, {true}, "6 end"},
        {"of", {kNone, kOne}, {false, false}, "0 status1"},
        {"of", {kOne, kNone}, {false, false}, "0 status1"},
        {"of", {kNone, kTwo}, {true, true}, "0 end"},
        {"of", {kTwo, kTwo}, {true, true}, "4 end"},
        {"of", {kTwo, kOne}, {false, false}, "1 status2"},
        {"of", {kOne, kTwo}, {false, false}, "1 status2"},
        {"whose", {kNone, kOne}, {false, false}, "0 end"},
        {"whose", {kTwo, kOne}, {false, false}, "2 end"},
        {"whose", {kThrow, kOne}, {false, false}, "0 throw"},
        {"whose", {kStatus, kOne}, {false, false}, "0 status3"},
        {"whose", {kTwo, kNone}, {false, false}, "0 end"},
        {"whose", {kTwo, kNone}, {false, true}, "2 end"},
        {"whose", {kTwo, kTwo}, {false, false}, "0 end"},
        {"whose", {kTwo, kTwo}, {false, true}, "2 end"},
        {"whose", {kTwo, kThrow}, {false, false}, "0 end"},
        {"whose", {kTwo, kOneThenThrow}, {false, true}, "0 end"},
        {"whose", {kTwo, kStatus}, {false, false}, "0 end"},
        {"whose", {kTwo, {{Step::Value, 1}, {Step::Value, 0}}}, {false, true}, "0 end"},
        {"and", {kNone, kOne}, {false, false}, "0 status1"},
        {"and", {kTwo, kOne}, {false, false}, "0 status2"},
        {"and", {kThrow, kOne}, {false, false}, "0 throw"},
        {"and", {kZero, kThrow}, {false, false}, "1 end"},
        {"and", {kOne, kThrow}, {false, false}, "0 throw"},
        {"and", {kOne, kNone}, {false, false}, "0 status1"},
        {"and", {kOne, kTwo}, {false, false}, "0 status2"},
        {"or", {kOne, kThrow}, {false, false}, "1 end"},
        {"or", {kZero, kThrow}, {false, false}, "0 throw"},
        {"or", {kThrow, kOne}, {false, false}, "0 throw"},
        {"bar", {kNone, kOne}, {false, false}, "1 end"},
        {"bar", {kThrow, kOne}, {false, false}, "1 end"},
        {"bar", {kStatus, kOne}, {false, false}, "1 end"},
        {"bar", {kTwo, kOne}, {false, false}, "1 status2"},
        {"bar", {kOneThenThrow, kOne}, {false, false}, "1 throw"},
        {"bar", {kOne, kThrow}, {false, false}, "1 end"},
        {"bar", {kNone, kNone}, {false, false}, "0 status1"},
        {"bar", {kThrow, kThrow}, {false, false}, "0 throw"},
        {"bar", {kNone, kTwo}, {false, false}, "1 status2"},
        {"collection", {kNone, kOne}, {false, false}, "0 status1"},
        {"collection", {kNone, kOne}, {true, false}, "1 end"},
        {"collection", {kOne, kNone}, {false, false}, "1 status1"},
        {"collection", {kOne, kNone}, {false, true}, "1 end"},
        {"collection", {kTwo, kTwo}, {true, true}, "4 end"},
        {"collection", {kTwo, kTwo}, {false, true}, "1 status2"},
        {"collection", {kOne, kThrow}, {true, true}, "1 throw"},
        {"if", {kNone, kOne, kOne}, {false, false, false}, "0 status1"},
        {"if", {kTwo, kOne, kOne}, {false, false, false}, "0 status2"},
        {"if", {kThrow, kOne, kOne}, {false, false, false}, "0 throw"},
        {"if", {kOne, kOne, kThrow}, {false, false, false}, "1 end"},
        {"if", {kZero, kOne, kThrow}, {false, false, false}, "0 throw"},
        {"if", {kOne, kNone, kOne}, {false, false, false}, "0 status1"},
        {"if", {kOne, kNone, kOne}, {false, true, false}, "0 end"},
        {"if", {kOne, kTwo, kOne}, {false, false, false}, "1 status2"},
        {"if", {kOne, kTwo, kOne}, {false, true, false}, "2 end"},
    };
    const std::vector<NodeClass> classes = NodeClasses();
    for (const Row& row : rows) {
        const auto nodeClass = std::find_if(classes.begin(), classes.end(), [&](const NodeClass& c) {
            return std::string_view(c.name) == row.nodeClass;
        });
        ASSERT_NE(nodeClass, classes.end()) << row.nodeClass;
        SCOPED_TRACE(Describe(*nodeClass, row.scripts, row.plural));
        Rig rig(*nodeClass, row.scripts, row.plural);
        EXPECT_EQ(rig.Walk(), row.walk);
    }
}

// ---- What is asked of whom, and when --------------------------------------------------------------------------------

struct Pair {
    template <class Make>
    Pair(Steps left, bool leftPlural, Steps right, bool rightPlural, Make make, const char* type = "integer")
        : installed(memory),
          a(std::move(left), leftPlural, type),
          b(std::move(right), rightPlural, type),
          node(make(&a, &b)) {
        node->Bind(nullptr, memory);
    }
    StackAllocator<1024> memory;
    AllocatorInstaller installed;
    ScriptedExpression a;
    ScriptedExpression b;
    std::unique_ptr<Expression> node;
};

TEST(NodeContract, AnOperatorLearnsOfASecondValueOneStepLate) {
    Pair pair(kTwo, false, kOne, false,
              [](auto* a, auto* b) { return std::make_unique<BinaryOperatorExpression>(kOperatorPlus, a, b); });
    EXPECT_EQ(pair.node->TryFirst(), StatusOk);
    EXPECT_TRUE(pair.a.Parked());
    EXPECT_TRUE(pair.b.Parked());
    EXPECT_EQ(pair.node->TryNext(), StatusNotUnique);
}

TEST(NodeContract, AnOperatorsRightSideIsNotStartedWhereTheLeftHasNone) {
    Pair pair(kNone, false, kOne, false,
              [](auto* a, auto* b) { return std::make_unique<BinaryOperatorExpression>(kOperatorPlus, a, b); });
    EXPECT_EQ(pair.node->TryFirst(), StatusDoesNotExist);
    EXPECT_EQ(pair.b.starts, 0);
}

TEST(NodeContract, ExistsFetchesTheFirstValueAloneAndStopsItsOperand) {
    ScriptedExpression operand({{Step::Value, 1}, {Step::Throw}}, true);
    StackAllocator<64> memory;
    ExistsExpression node(&operand);
    node.Bind(nullptr, memory);
    EXPECT_EQ(node.TryFirst(), StatusOk);
    EXPECT_TRUE(*static_cast<boolean*>(node.Value()));
    EXPECT_EQ(operand.stops, 1);
    operand.stopStatus = StatusNotUnique;
    node.TryStop();
    EXPECT_EQ(node.TryFirst(), StatusNotUnique);
    EXPECT_EQ(node.Value(), nullptr);
}

TEST(NodeContract, TheShortCircuitLeavesTheRightSideUnstarted) {
    Pair pair(
        kZero, false, kOne, false, [](auto* a, auto* b) { return std::make_unique<AndExpression>(a, b); }, "boolean");
    EXPECT_EQ(pair.node->TryFirst(), StatusOk);
    EXPECT_FALSE(*static_cast<boolean*>(pair.node->Value()));
    EXPECT_EQ(pair.b.starts, 0);
}

TEST(NodeContract, ATupleIsTheCrossProductWithTheLeftOutside) {
    StackAllocator<1024> memory;
    ScriptedExpression a({{Step::Value, 1}, {Step::Value, 2}}, true);
    ScriptedExpression b({{Step::Value, 3}, {Step::Value, 4}}, true);
    WorldExpression end;
    TupleExpression inner(&b, &end);
    TupleExpression outer(&a, &inner);
    outer.Bind(nullptr, memory);
    EXPECT_TRUE(outer.IsPlural());
    std::string text;
    EvaluationStatus status = outer.TryFirst();
    while (status == StatusOk && outer.Value() != nullptr) {
        text += std::to_string(TupleElement<number>(outer.Value(), 0).value) +
                std::to_string(TupleElement<number>(outer.Value(), 1).value) + " ";
        status = outer.TryNext();
    }
    EXPECT_EQ(text, "13 14 23 24 ");
    EXPECT_EQ(a.starts, 1);
    EXPECT_EQ(b.starts, 2);
    EXPECT_EQ(a.violations + b.violations, 0);
}

TEST(NodeContract, ATupleStoppedInTheMiddleStopsBothSides) {
    StackAllocator<1024> memory;
    for (int steps = 1; steps <= 4; ++steps) {
        ScriptedExpression a({{Step::Value, 1}, {Step::Value, 2}}, true);
        ScriptedExpression b({{Step::Value, 3}, {Step::Value, 4}}, true);
        WorldExpression end;
        TupleExpression inner(&b, &end);
        TupleExpression outer(&a, &inner);
        outer.Bind(nullptr, memory);
        EXPECT_EQ(outer.TryFirst(), StatusOk);
        for (int i = 1; i < steps; ++i) {
            EXPECT_EQ(outer.TryNext(), StatusOk);
        }
        EXPECT_EQ(outer.TryStop(), StatusOk);
        EXPECT_FALSE(a.Parked());
        EXPECT_FALSE(b.Parked());
        EXPECT_EQ(a.violations + b.violations, 0);
    }
}

}  // namespace
