// Every question of the transcripts, with each of its allocations failing in turn: the answer is the right one or that
// there is not enough memory, nothing stays allocated, and the console goes on.
#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <new>
#include <string>
#include <vector>

#include "evaluator/guard_evaluator.h"
#include "registry/type_registry.h"
#include "tests/console/asked.h"

namespace {

unsigned untilFailure = 0;  // 0 for none
long alive = 0;             // Allocations that have not been given back.
bool failed = false;

// Makes the nth allocation after its making fail, once.
class FailingAllocation {
public:
    explicit FailingAllocation(unsigned nth) {
        untilFailure = nth;
        failed = false;
    }
    FailingAllocation(const FailingAllocation&) = delete;
    FailingAllocation& operator=(const FailingAllocation&) = delete;
    ~FailingAllocation() { untilFailure = 0; }
};

void* Allocate(size_t size, size_t alignment) {
    if (untilFailure != 0 && --untilFailure == 0) {
        failed = true;
        throw std::bad_alloc();
    }
    void* memory = nullptr;
    if (posix_memalign(&memory, alignment, size == 0 ? 1 : size) != 0) {
        throw std::bad_alloc();
    }
    ++alive;
    return memory;
}

void Free(void* memory) {
    alive -= memory != nullptr ? 1 : 0;
    std::free(memory);
}

}  // namespace

// Kept out of line: seen through at the place of a call, these look like the wrong partners of each other.
[[gnu::noinline]] void* operator new(size_t size) { return Allocate(size, 16); }
[[gnu::noinline]] void* operator new[](size_t size) { return Allocate(size, 16); }
[[gnu::noinline]] void* operator new(size_t size, std::align_val_t alignment) {
    return Allocate(size, static_cast<size_t>(alignment));
}
[[gnu::noinline]] void* operator new(size_t size, const std::nothrow_t&) noexcept {
    try {
        return Allocate(size, 16);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}
[[gnu::noinline]] void* operator new[](size_t size, const std::nothrow_t& none) noexcept {
    return operator new(size, none);
}
[[gnu::noinline]] void operator delete(void* memory) noexcept { Free(memory); }
[[gnu::noinline]] void operator delete(void* memory, size_t) noexcept { Free(memory); }
[[gnu::noinline]] void operator delete[](void* memory) noexcept { Free(memory); }
[[gnu::noinline]] void operator delete[](void* memory, size_t) noexcept { Free(memory); }
[[gnu::noinline]] void operator delete(void* memory, const std::nothrow_t&) noexcept { Free(memory); }
[[gnu::noinline]] void operator delete[](void* memory, const std::nothrow_t&) noexcept { Free(memory); }
[[gnu::noinline]] void operator delete(void* memory, std::align_val_t) noexcept { Free(memory); }
[[gnu::noinline]] void operator delete(void* memory, size_t, std::align_val_t) noexcept { Free(memory); }

namespace {

constexpr const char* kNoMemory = "E: There's not enough memory.\n";

std::string Content(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// The questions of a saved run, each with its continuation lines.
std::vector<std::string> QuestionsOf(const std::string& text) {
    std::vector<std::string> questions;
    bool open = false;
    for (size_t begin = 0; begin < text.size();) {
        const size_t end = std::min(text.find('\n', begin), text.size());
        const std::string line = text.substr(begin, end - begin);
        begin = end + 1;
        if (line.compare(0, 3, "Q: ") == 0) {
            questions.push_back(line.substr(3));
            open = true;
        } else if (open && !line.empty() && (line[0] == ' ' || line[0] == '\t')) {
            questions.back() += " " + line.substr(line.find_first_not_of(" \t"));
        } else {
            open = open && line.empty();
        }
    }
    return questions;
}

// The answers to one question of which the nth allocation fails; whether one did is told by `failed`.
std::string AnswersFailing(BatchConsole& console, const std::string& question, unsigned nth) {
    const std::string line = "Q: " + question;
    const ConstData data(line);
    const size_t before = console.Size();
    console.chain.questioner.Start(0);
    {
        const FailingAllocation failing(nth);
        console.chain.questioner.Text(data.begin, data.end);
        console.chain.questioner.EndOfLine(0, 0);
        console.chain.questioner.Finish(0);
    }
    return console.Text(before);
}

bool EndsIn(const std::string& text, const std::string& end) {
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

// A file error makes its text when it is asked for it; without memory it tells the bare name of its class, which
// otherwise stands in quotes in the text.
bool IsBareFileError(const std::string& out, const std::string& right) {
    const size_t name = out.rfind(": ") + 2;
    const std::string start = out.substr(0, name);
    const std::string end = "\n\n";
    return EndsIn(out, end) && out.size() > name + end.size() &&
           right.starts_with(start + "File error \"" + out.substr(name, out.size() - name - end.size()) + "\"");
}

// Right, or the right answers up to where the memory was missing and then the line that says so.
bool IsRightOrLacksMemory(const std::string& out, const std::string& right) {
    if (out == right || IsBareFileError(out, right)) {
        return true;
    }
    const std::string end = std::string(kNoMemory) + "\n";
    return EndsIn(out, end) && right.compare(0, out.size() - end.size(), out, 0, out.size() - end.size()) == 0;
}

// What is caught on purpose is caught here too: the left of a bar, and a condition, answer for whatever fails in them.
bool CatchesFailures(const std::string& question) {
    return question.find('|') != std::string::npos || question.find("whose") != std::string::npos;
}

// An ordinary question needs no heap.  Behind a condition of so many sums its text, its nodes or its values begin where
// the memory at hand ends.
std::string Behind(unsigned sums, const std::string& question) {
    std::string condition = "1";
    for (unsigned i = 0; i < sums; ++i) {
        condition += "+1";
    }
    return "if " + condition + " > 0 then (" + question + ") else nothing";
}

// Fails each allocation of the question in turn.  Returns how many there were, or -1 where something was not as it must
// be, which has been told.
int FailEachAllocation(BatchConsole& console, const std::string& question) {
    const std::string right = console.Run("Q: " + question + "\n");
    console.Run("Q: 1 + 1\n");
    const long settled = alive;
    for (unsigned nth = 1;; ++nth) {
        bool hit = false;
        {
            const std::string out = AnswersFailing(console, question, nth);
            hit = failed;
            EXPECT_TRUE(hit || out == right) << question << ": " << out;
            const bool whole = out.compare(0, question.size() + 4, "Q: " + question + "\n") == 0 && EndsIn(out, "\n\n");
            EXPECT_TRUE(IsRightOrLacksMemory(out, right) || (hit && whole && CatchesFailures(question)))
                << "allocation " << nth << ": " << out;
            EXPECT_EQ(console.Run("Q: 1 + 1\n"), "Q: 1 + 1\nA: 2\n\n") << question << ", allocation " << nth;
        }
        EXPECT_EQ(alive, settled) << question << ", allocation " << nth;
        if (testing::Test::HasFailure()) {
            return -1;
        }
        if (!hit) {
            return static_cast<int>(nth) - 1;
        }
    }
}

TEST(AllocationFailure, EveryQuestionOfTheTranscriptsAnswersOrSaysSo) {
    BatchConsole console;
    ASSERT_EQ(Answers(console, "1 + 1"), "A: 2\n");
    unsigned questions = 0;
    int failures = 0;
    for (const auto& entry : std::filesystem::directory_iterator(ZENDRY_TRANSCRIPTS)) {
        if (entry.path().extension() != ".zendry") {
            continue;
        }
        for (const std::string& question : QuestionsOf(Content(entry.path()))) {
            ++questions;
            failures += FailEachAllocation(console, question);
            for (unsigned sums = 20 + questions % 7; sums < 120; sums += 7) {
                failures += FailEachAllocation(console, Behind(sums, question));
            }
            ASSERT_FALSE(HasFailure()) << entry.path();
        }
    }
    EXPECT_GT(questions, 200u);
    EXPECT_GT(failures, 2000);
}

// The registry anew: whatever fails while it is built, the question says so, and the next one finds it whole.
TEST(AllocationFailure, TheRegistrysBuildFailsAsAQuestionAndIsDoneAgain) {
    BatchConsole console;
    const std::string question = "sum of (1;2), (3, \"a\") < (3, \"b\")";
    ASSERT_EQ(Answers(console, "1 + 1"), "A: 2\n");
    const std::string right = console.Run("Q: " + question + "\n");
    console.Run("Q: 1 + 1\n");
    const long settled = alive;
    unsigned nth = 1;
    for (;; ++nth) {
        TypeRegistry::m_validRegistry = nullptr;
        const std::string out = AnswersFailing(console, question, nth);
        const bool hit = failed;
        ASSERT_TRUE(IsRightOrLacksMemory(out, right)) << "allocation " << nth << ": " << out;
        ASSERT_EQ(console.Run("Q: " + question + "\n"), right) << "allocation " << nth;
        ASSERT_EQ(console.Run("Q: 1 + 1\n"), "Q: 1 + 1\nA: 2\n\n");
        if (!hit) {
            break;
        }
    }
    EXPECT_GT(nth, 10u);
    EXPECT_EQ(alive, settled);
}

// A tuple type and its name are made once and kept, so each attempt takes a shape of its own.
TEST(AllocationFailure, ATupleTypeThatCannotBeMadeIsMadeLater) {
    BatchConsole console(nullptr, true);
    unsigned most = 0;
    for (unsigned nth = 1; nth <= 40; ++nth) {
        // The last elements make the shape one that was not seen before, and all that stands before them with it.
        std::string elements = "1, 1, 1";
        std::string answer = "1, 1, 1";
        std::string type = "( integer, integer, integer";
        for (const unsigned digit : {nth / 16, nth / 4 % 4, nth % 4}) {
            elements += std::array{", 2", ", true", ", \"a\"", ", mhz"}[digit];
            answer += std::array{", 2", ", True", ", a", ", 1000000 hertz"}[digit];
            type += std::array{", integer", ", boolean", ", string", ", hertz"}[digit];
        }
        type = "I: " + type + " )\n";
        const std::string right = "Q: " + elements + "\nA: " + answer + "\n" + type + "\n";
        const std::string out = AnswersFailing(console, elements, nth);
        most = failed ? nth : most;
        ASSERT_TRUE(IsRightOrLacksMemory(out, right)) << "allocation " << nth << ": " << out;
        ASSERT_EQ(console.Run("Q: " + elements + "\n"), right) << "allocation " << nth;
        ASSERT_EQ(Answers(console, "(" + elements + ") = (" + elements + ")"), "A: True\nI: boolean\n")
            << "allocation " << nth;
    }
    EXPECT_GT(most, 4u);
}

// Kept inside a branch that does not bind, lack of memory is still told as what it is.
TEST(AllocationFailure, ABranchThatFoundNoMemorySaysSoWhenTaken) {
    std::string deep = "1";
    for (int i = 0; i < 700; ++i) {
        deep = "-(" + deep + ")";
    }
    BatchConsole console;
    const std::string question = "if true then " + deep + " else 2";
    const std::string right = console.Run("Q: " + question + "\n");
    ASSERT_TRUE(EndsIn(right, "A: 1\n\n")) << right.substr(right.size() - 100);
    unsigned nth = 1;
    for (; AnswersFailing(console, question, nth), failed; ++nth) {
        ASSERT_TRUE(IsRightOrLacksMemory(AnswersFailing(console, question, nth), right)) << "allocation " << nth;
    }
    EXPECT_GT(nth, 3u);
}

}  // namespace
