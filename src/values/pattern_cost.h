// What compiling a pattern may cost, told from its text before it is tried.
//
// The C library's compiler writes repetitions out, follows every way that takes no byte from every place that has one,
// and does both by recursion: a pattern of a few bytes can ask for all memory, and one of some thousand brackets for
// more machine stack than there is.  The figures here are upper bounds of the compiled form, so that a pattern within
// them can be compiled safely; they refuse nothing that anyone would write by hand.
#ifndef VALUES_PATTERN_COST_H
#define VALUES_PATTERN_COST_H

#include <cstddef>
#include <string_view>

// All of these stay at the greatest size_t where they would pass it.
struct PatternCost {
    size_t nodes = 0;    // The nodes of the tree, with repetitions written out.
    size_t free = 0;     // Those of them that take no byte: alternatives, groups, repetitions.
    size_t nesting = 0;  // The most repetitions that lie in each other.

    // Memory is in proportion to the nodes and to the square of those that take no byte, and time to the third power of
    // the nesting.
    bool IsAffordable() const { return nodes <= kMostNodes && free <= kMostFree && nesting <= kMostNesting; }

    // The depth of recursion, in levels of DeepStack.
    size_t Depth() const { return free; }

    static constexpr size_t kMostNodes = size_t{4} << 20;
    static constexpr size_t kMostFree = 10000;
    static constexpr size_t kMostNesting = 500;
};

// The pattern is an extended regular expression; for one that is none the figures hold for as far as it is read.
PatternCost CostOfPattern(std::string_view pattern);

#endif
