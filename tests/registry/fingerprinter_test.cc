// Fingerprints: the hash, the dependency bits, and the nodes they stand for.
#include "registry/fingerprinter.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "registry/dependency_node.h"

namespace {

uint32_t SumOf(std::string_view text) {
    Fingerprinter fingerprinter;
    fingerprinter.AddData(ConstData(text));
    return fingerprinter.sum;
}

TEST(Fingerprinter, StartsAtZero) {
    const Fingerprinter fingerprinter;
    EXPECT_EQ(fingerprinter.sum, 0u);
    EXPECT_EQ(fingerprinter.dependencies, 0u);
}

TEST(Fingerprinter, AByteIsAddedToSeventeenTimesTheSum) {
    Fingerprinter fingerprinter;
    fingerprinter.AddByte(';');
    EXPECT_EQ(fingerprinter.sum, 59u);
    fingerprinter.AddByte(255);
    EXPECT_EQ(fingerprinter.sum, 59u * 17 + 255);
    EXPECT_EQ(fingerprinter.dependencies, 0u);
    fingerprinter.sum = 0xFFFFFFFF;
    fingerprinter.AddByte(1);
    EXPECT_EQ(fingerprinter.sum, 0xFFFFFFFFu * 17 + 1);
}

// The check value that goes with the polynomial and its start.
TEST(Fingerprinter, DataIsAddedByItsChecksumAndIsSeen) {
    EXPECT_EQ(SumOf("123456789"), 0x21CF02u);
    EXPECT_EQ(SumOf(""), 0xB704CEu);
    Fingerprinter fingerprinter;
    fingerprinter.sum = 5;
    fingerprinter.AddData(ConstData(std::string_view("123456789")));
    fingerprinter.AddData(ConstData(std::string_view("123456789")));
    EXPECT_EQ(fingerprinter.sum, 5 + 2 * 0x21CF02u);
    EXPECT_EQ(fingerprinter.dependencies, Fingerprinter::valueSeen);
    EXPECT_EQ(Fingerprinter::valueSeen, 0x80000000u);
}

TEST(Fingerprinter, MergingAddsTheSumsAndJoinsTheDependencies) {
    Fingerprinter a;
    a.sum = 0xFFFFFFF0;
    a.dependencies = 5;
    Fingerprinter b;
    b.sum = 0x20;
    b.dependencies = 6;
    a.Merge(b);
    EXPECT_EQ(a.sum, 0x10u);
    EXPECT_EQ(a.dependencies, 7u);
}

TEST(Fingerprinter, WhatDependsOnItsParametersAloneAddsNothing) {
    Fingerprinter fingerprinter;
    DependsOnlyOnParameters(fingerprinter);
    EXPECT_EQ(fingerprinter.sum, 0u);
    EXPECT_EQ(fingerprinter.dependencies, 0u);
}

void State(Fingerprinter& fingerprinter) { fingerprinter.AddByte(99); }

class DependencyNodes : public testing::Test {
protected:
    void Add(std::string name) {
        names_.push_back(std::make_unique<std::string>(std::move(name)));
        nodes.push_back(std::make_unique<DependencyNode>(*names_.back(), &State));
    }
    std::vector<std::unique_ptr<DependencyNode>> nodes;

private:
    std::vector<std::unique_ptr<std::string>> names_;
};

TEST_F(DependencyNodes, AreNumberedByTheByteOrderOfTheirNames) {
    ASSERT_EQ(GlobalDependency::Count(), 1u);  // The one below.
    for (const char* name : {"b", "B", "a", "\xFF", "ab"}) {
        Add(name);
    }
    EXPECT_FALSE(GlobalDependency::dependenciesAreSorted);
    EXPECT_FALSE(GlobalDependency::dependencyNumbersAreCorrect);
    const unsigned expected[] = {4, 1, 2, 5, 3};
    for (size_t i = 0; i < nodes.size(); ++i) {
        EXPECT_EQ(nodes[i]->Number(), expected[i]) << nodes[i]->Name();
        EXPECT_EQ(GlobalDependency::Node(expected[i]), nodes[i].get());
    }
    EXPECT_TRUE(GlobalDependency::dependenciesAreSorted);
    EXPECT_TRUE(GlobalDependency::dependencyNumbersAreCorrect);
    EXPECT_EQ(GlobalDependency::Node(6), nullptr);
}

TEST_F(DependencyNodes, AreRenumberedWhenOneComesOrGoes) {
    Add("b");
    Add("d");
    EXPECT_EQ(nodes[1]->Number(), 2u);
    Add("c");
    EXPECT_EQ(nodes[1]->Number(), 3u);
    nodes.erase(nodes.begin());
    EXPECT_FALSE(GlobalDependency::dependencyNumbersAreCorrect);
    EXPECT_EQ(nodes[0]->Number(), 2u);
    EXPECT_EQ(nodes[1]->Number(), 1u);
}

TEST_F(DependencyNodes, UpToNumberThirtyHaveABitAndThoseBeyondAreAskedForTheirState) {
    for (int i = 0; i < 34; ++i) {
        Add(std::string("node ") + static_cast<char>('A' + i));
    }
    for (unsigned i = 1; i <= 34; ++i) {
        Fingerprinter fingerprinter;
        fingerprinter.AddDependency(*nodes[i - 1]);
        ASSERT_EQ(nodes[i - 1]->Number(), i);
        EXPECT_EQ(fingerprinter.dependencies, i <= 30 ? uint32_t{1} << i : 0u) << i;
        EXPECT_EQ(fingerprinter.sum, i <= 30 ? 0u : 99u) << i;
    }
}

// Sorts before every name of the tests above.
DependencyNode namedNode("", &State);

TEST(DependsOn, AddsTheNodesBit) {
    Fingerprinter fingerprinter;
    DependsOn<namedNode>(fingerprinter);
    EXPECT_EQ(fingerprinter.dependencies, uint32_t{1} << namedNode.Number());
}

}  // namespace
