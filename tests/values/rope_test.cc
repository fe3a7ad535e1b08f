// What the language cannot show of ropes: their cost, whatever way they were joined, and the search against a plain
// one.
#include "values/rope.h"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "evaluator/failure.h"
#include "evaluator/inspector_context.h"
#include "foundation/stack_allocator.h"

namespace {

using String = inspector_string;

constexpr size_t kMillion = 1000000;

class Ropes : public testing::Test {
protected:
    std::string Text(const rope& r) { return std::string(r.Flattened().View()); }

    StackAllocator<4096> memory_;
    AllocatorInstaller installed_{memory_};
};

// A million joins of single letters, and the text that they make.
struct Joined {
    rope whole;
    std::string text;
};

char LetterAt(size_t i) { return static_cast<char>('a' + i % 23); }
String Letter(size_t i) {
    static const std::string letters = "abcdefghijklmnopqrstuvw";
    return {letters.data() + i % 23, 1};
}

Joined OnTheRight() {
    Joined j;
    for (size_t i = 0; i < kMillion; ++i) {
        j.whole = j.whole & Letter(i);
        j.text += LetterAt(i);
    }
    return j;
}
Joined OnTheLeft() {
    Joined j;
    for (size_t i = 0; i < kMillion; ++i) {
        j.whole = Letter(i) & j.whole;
        j.text += LetterAt(i);
    }
    j.text.assign(j.text.rbegin(), j.text.rend());
    return j;
}
Joined OnEitherSide() {
    Joined j;
    std::string left;
    for (size_t i = 0; i < kMillion; ++i) {
        if (i % 2 == 0) {
            j.whole = rope(Letter(i)) & j.whole;
            left += LetterAt(i);
        } else {
            j.whole = j.whole & rope(Letter(i));
            j.text += LetterAt(i);
        }
    }
    j.text.insert(0, std::string(left.rbegin(), left.rend()));
    return j;
}
Joined InPairs() {
    Joined j;
    std::vector<rope> level;
    for (size_t i = 0; i < kMillion; ++i) {
        level.emplace_back(Letter(i));
        j.text += LetterAt(i);
    }
    while (level.size() > 1) {
        std::vector<rope> next;
        for (size_t i = 0; i + 1 < level.size(); i += 2) {
            next.push_back(level[i] & level[i + 1]);
        }
        if (level.size() % 2 != 0) {
            next.push_back(level.back());
        }
        level.swap(next);
    }
    j.whole = level.front();
    return j;
}

class MillionJoins : public Ropes, public testing::WithParamInterface<std::function<Joined()>> {};

TEST_P(MillionJoins, AreFlattenedMeasuredAndSearched) {
    const Joined joined = GetParam()();
    EXPECT_EQ(joined.whole.Length(), kMillion);
    EXPECT_TRUE(joined.whole.Flattened().View() == joined.text);

    std::string appended = "<";
    joined.whole.AppendTo(appended);
    EXPECT_TRUE(appended == "<" + joined.text);

    EXPECT_TRUE(joined.whole.Contains(String(std::string_view(joined.text).substr(kMillion - 30))));
    EXPECT_TRUE(joined.whole.Contains(String(std::string_view(joined.text).substr(0, kMillion / 2))));
    EXPECT_TRUE(joined.whole.Contains(String(joined.text)));
    EXPECT_FALSE(joined.whole.Contains(String(std::string_view("vwb"))));
    EXPECT_FALSE(joined.whole.Contains(String(joined.text + "x")));
}

INSTANTIATE_TEST_SUITE_P(Sides, MillionJoins, testing::Values(OnTheRight, OnTheLeft, OnEitherSide, InPairs));

// The pieces come out in order, and none is empty.
TEST_P(MillionJoins, ComeOutInPieces) {
    const Joined joined = GetParam()();
    std::string text;
    for (rope_pieces pieces(joined.whole); !pieces.AtEnd();) {
        const String piece = pieces.Next();
        ASSERT_NE(piece.length, 0u);
        text += piece.View();
    }
    EXPECT_TRUE(text == joined.text);
}

TEST_F(Ropes, AnEmptyRopeHasNoPieces) {
    EXPECT_TRUE(rope_pieces(rope()).AtEnd());
    EXPECT_TRUE(rope_pieces(rope(String("", 0)) & rope()).AtEnd());
}

TEST_F(Ropes, ALeafIsFlattenedWhereItStands) {
    const std::string_view text = "abc";
    EXPECT_EQ(rope(String(text)).Flattened().start, text.data());
    EXPECT_EQ((rope(String(text)) & String("", 0)).Flattened().start, text.data());
    EXPECT_EQ((rope() & rope(String(text))).Flattened().start, text.data());
}

TEST_F(Ropes, AJoinTakesTheSameMemoryWhateverItJoins) {
    rope r(Letter(0));
    r = r & Letter(1);
    for (int i = 0; i < 20; ++i) {
        char* const before = memory_.Top();
        const rope next = r & r;
        EXPECT_LE(static_cast<size_t>(memory_.Top() - before), 2 * sizeof(rope) + alignof(rope));
        r = next;
        if (i % 8 == 7) {
            break;  // Within the first block, where addresses tell sizes.
        }
    }
}

// Joined with itself over and over, a rope means more than any memory holds, and is measured all the same.
TEST_F(Ropes, OneThatContainsItselfOverAndOver) {
    rope r(Letter(0));
    for (int i = 0; i < 40; ++i) {
        r = r & r;
    }
    EXPECT_EQ(r.Length(), size_t{1} << 40);
    EXPECT_TRUE(r.Contains(String("aaaa", 4)));
    for (int i = 0; i < 40; ++i) {
        r = r & r;
    }
    EXPECT_EQ(r.Length(), rope::kTooLong);
    EXPECT_THROW(r.Flattened(), std::bad_alloc);
    std::string bytes = "x";
    EXPECT_THROW(r.AppendTo(bytes), std::bad_alloc);
    EXPECT_EQ(bytes, "x");

    rope empty;
    for (int i = 0; i < 100; ++i) {
        empty = empty & empty;
    }
    EXPECT_EQ(empty.Length(), 0u);
    EXPECT_EQ(Text(empty), "");
    EXPECT_FALSE(empty.Contains(Letter(0)));
}

class Impatient final : public InspectorContext, public InspectorInterrupter {
public:
    bool ShouldContinue() override { return false; }
    void Interrupted() override { throw InspectorInterruption(); }
};

TEST_F(Ropes, ASearchWithoutEndCanBeInterrupted) {
    rope r(Letter(0));
    for (int i = 0; i < 60; ++i) {
        r = r & r;
    }
    Impatient context;
    InspectorContextMaintainer host(&context);
    EXPECT_THROW(r.Contains(Letter(1)), InspectorInterruption);
}

TEST_F(Ropes, ASearchGivesItsMemoryBack) {
    const rope r = rope(String("abc", 3)) & String("def", 3);
    char* const before = memory_.Top();
    EXPECT_TRUE(r.Contains(String("cd", 2)));
    EXPECT_FALSE(r.Contains(String("ce", 2)));
    EXPECT_EQ(memory_.Top(), before);
}

// Random shapes over two letters, against a search in the whole text.
TEST_F(Ropes, TheStreamingSearchFindsWhatAPlainOneFinds) {
    std::mt19937 random(7);
    const auto below = [&](size_t n) { return random() % n; };
    std::string letters;
    for (int i = 0; i < 200; ++i) {
        letters += static_cast<char>('a' + below(2));
    }
    size_t found = 0;
    for (int round = 0; round < 3000; ++round) {
        char* const mark = memory_.Top();
        std::vector<std::pair<rope, std::string>> pieces(1 + below(12));
        for (auto& [r, text] : pieces) {
            text = letters.substr(below(150), below(6));
            char* bytes = static_cast<char*>(InspectorAllocate(text.size()));
            text.copy(bytes, text.size());
            r = rope(String(bytes, text.size()));
        }
        while (pieces.size() > 1) {
            const size_t at = below(pieces.size() - 1);
            auto& [r, text] = pieces[at];
            r = r & pieces[at + 1].first;
            text += pieces[at + 1].second;
            pieces.erase(pieces.begin() + static_cast<ptrdiff_t>(at) + 1);
        }
        const auto& [whole, text] = pieces.front();
        ASSERT_EQ(Text(whole), text);
        for (int i = 0; i < 20; ++i) {
            const std::string sought = letters.substr(below(150), below(9));
            const bool expected = text.find(sought) != std::string::npos;
            ASSERT_EQ(whole.Contains(String(sought)), expected) << sought << " in " << text;
            found += expected ? 1 : 0;
        }
        memory_.ReleaseTo(mark);
    }
    EXPECT_GT(found, 10000u);
    EXPECT_LT(found, 55000u);
}

}  // namespace
