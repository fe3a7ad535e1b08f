// Lexing and parsing leave the heap alone, and when the parser's stack needs it and is refused, the next text parses.
// This unit replaces the global operator new of the test program to count and to refuse.
#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

#include "language/guard_lexer.h"
#include "language/guard_parser.h"
#include "language/parse_errors.h"
#include "tests/language/counting_semantics.h"

namespace {

thread_local long heapCalls = 0;
thread_local long callsLeft = -1;  // before all are refused; negative for no limit

void* Allocate(size_t size) {
    ++heapCalls;
    if (callsLeft == 0) {
        return nullptr;
    }
    if (callsLeft > 0) {
        --callsLeft;
    }
    return std::malloc(size == 0 ? 1 : size);
}

// Out of line, lest the compiler takes the two halves of the replacement for a mismatch.
[[gnu::noinline]] void Release(void* memory) { std::free(memory); }

}  // namespace

void* operator new(size_t size) {
    void* memory = Allocate(size);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}
void* operator new[](size_t size) { return operator new(size); }
void* operator new(size_t size, const std::nothrow_t&) noexcept { return Allocate(size); }
void* operator new[](size_t size, const std::nothrow_t&) noexcept { return Allocate(size); }
void operator delete(void* memory) noexcept { Release(memory); }
void operator delete[](void* memory) noexcept { Release(memory); }
void operator delete(void* memory, size_t) noexcept { Release(memory); }
void operator delete[](void* memory, size_t) noexcept { Release(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { Release(memory); }
void operator delete[](void* memory, const std::nothrow_t&) noexcept { Release(memory); }

namespace {

void Feed(GuardLexer& lexer, std::string_view text) {
    lexer.Start();
    const ConstData data(text);
    lexer.Data(data.begin, data.end);
    lexer.Finish();
}

struct HeapUse : testing::Test {
    CountingSemantics semantics;
    GuardParser parser{semantics};
    GuardLexer lexer{parser, parser};
};

TEST_F(HeapUse, AnOrdinaryQuestionTouchesNoHeap) {
    const std::string questions[] = {
        "(if exists file \"/etc/%70asswd\" whose (size of it > 0 /* bytes */) then (1, 2 + 3 * 4; 5) else \"no\")",
        "(names of files whose (name of it is not less than or equal to \"x\" and there is no foo) as string)",
        std::string(90, '(') + "1" + std::string(90, ')'),
        "\"" + std::string(512, 'x') + "\" & " + std::string(63, 'y'),
    };
    for (const std::string& question : questions) {
        const long before = heapCalls;
        try {
            Feed(lexer, question);
        } catch (const DebuggableException&) {
            // An exception itself comes from the heap of the C++ runtime, not from operator new.
        }
        EXPECT_EQ(heapCalls, before) << question;
    }
}

TEST_F(HeapUse, DepthIsAllTheHeapIsAskedFor) {
    const std::string deep = std::string(150, '(') + "1" + std::string(150, ')');
    const long before = heapCalls;
    Feed(lexer, deep);
    EXPECT_EQ(heapCalls, before + 1);
}

// A parser for each round, since one that has grown keeps a block for the next text.
TEST(HeapRefusal, EndsTheParseAndNothingElse) {
    const std::string deep = std::string(5000, '(') + "1" + std::string(5000, ')');
    long refusals = 0;
    for (bool refused = true; refused;) {
        CountingSemantics semantics;
        GuardParser parser(semantics);
        GuardLexer lexer(parser, parser);
        refused = false;
        callsLeft = refusals;
        try {
            Feed(lexer, deep);
        } catch (const std::bad_alloc&) {
            refused = true;
            ++refusals;
        }
        callsLeft = -1;
        if (refused) {
            Feed(lexer, "(1)");
        }
        EXPECT_TRUE(semantics.Balanced());
    }
    // Blocks of 200, 400, 800, 1600 and 3200 positions behind the first 100.
    EXPECT_EQ(refusals, 5);
}

}  // namespace
