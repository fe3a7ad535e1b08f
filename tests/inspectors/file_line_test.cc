#include "inspectors/file_line.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>

#include "foundation/stack_allocator.h"
#include "inspectors/line_iterator.h"
#include "tests/inspectors/file_tree.h"
#include "tests/inspectors/naive_lines.h"

namespace {

size_t OpenDescriptors() {
    size_t count = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        ++count;
    }
    return count;
}

class FileLines : public testing::Test {
protected:
    file File(const std::string& content) {
        place_.File("lines", content);
        return Opened();
    }
    file Opened() const { return *At<file>(place_.Location("lines")); }

    Answer Ask(std::string question) const {
        for (size_t at = question.find('@'); at != std::string::npos; at = question.find('@')) {
            question.replace(at, 1, place_.Path());
        }
        return ::Ask(question);
    }

    static std::vector<file_line> All(const file& f) {
        std::vector<file_line> lines;
        line_iterator each;
        each.Start(Of(), f);
        while (std::optional<file_line> line = each.Next(Of(), f)) {
            lines.push_back(*line);
        }
        return lines;
    }

    static NaiveLine Plain(const file_line& line) {
        return {std::string(line.View()), line.StartOffset(), line.NextOffset()};
    }

    TemporaryPlace place_;
    StackAllocator<65536> memory_;
    AllocatorInstaller installed_{memory_};
};

TEST_F(FileLines, EachKnowsItsNumberAndItsPlace) {
    const std::vector<file_line> lines = All(File("one\r\ntwo\n\nfour"));
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(Plain(lines[0]), (NaiveLine{"one", 0, 5}));
    EXPECT_EQ(Plain(lines[1]), (NaiveLine{"two", 5, 9}));
    EXPECT_EQ(Plain(lines[2]), (NaiveLine{"", 9, 10}));
    EXPECT_EQ(Plain(lines[3]), (NaiveLine{"four", 10, 14}));
    EXPECT_EQ(lines[1].EndOffset(), 8u);
    for (size_t i = 0; i < lines.size(); ++i) {
        EXPECT_EQ(lines[i].Number(), i);
        EXPECT_FALSE(lines[i].ByNumber());
        EXPECT_EQ(lines[i].Open(), lines[0].Open());
    }
}

TEST_F(FileLines, ANumberFindsTheSameLineAsTheWalk) {
    std::mt19937 random(7);
    const file f = File(RandomText(random, 30000, 40));
    const std::vector<file_line> lines = All(f);
    ASSERT_GT(lines.size(), 100u);
    EXPECT_FALSE(NumberedLine(0, f));
    for (size_t n = 1; n <= lines.size(); n += 7) {
        const std::optional<file_line> line = NumberedLine(n, f);
        ASSERT_TRUE(line);
        EXPECT_EQ(Plain(*line), Plain(lines[n - 1]));
        EXPECT_EQ(line->Number(), n - 1);
        EXPECT_TRUE(line->ByNumber());
    }
    EXPECT_FALSE(NumberedLine(lines.size() + 1, f));
    EXPECT_FALSE(NumberedLine(UINT64_MAX, f));
}

// What stands before a line is what the rule finds in the last 2048 bytes before it.
TEST_F(FileLines, NeighboursAreFoundAcrossWindows) {
    std::mt19937 random(99);
    for (const unsigned density : {1u, 3u, 30u, 1000u}) {
        const std::string text = RandomText(random, 12000, density);
        const file f = File(text);
        const std::vector<NaiveLine> expected = NaiveLines(text);
        const std::vector<file_line> lines = All(f);
        ASSERT_EQ(lines.size(), expected.size());
        for (size_t i = 0; i < lines.size(); ++i) {
            SCOPED_TRACE("density " + std::to_string(density) + ", line " + std::to_string(i));
            const std::optional<file_line> next = NextLine(lines[i]);
            ASSERT_EQ(next.has_value(), i + 1 < lines.size());
            if (next) {
                EXPECT_EQ(Plain(*next), expected[i + 1]);
                EXPECT_EQ(next->Number(), i + 1);
                EXPECT_EQ(next->Open(), lines[i].Open());
            }
            const std::optional<file_line> previous = PreviousLine(lines[i]);
            ASSERT_EQ(previous.has_value(), i != 0);
            if (previous) {
                const size_t start = expected[i].start;
                const size_t from = start - std::min<size_t>(start, 2048);
                const NaiveLine last = NaiveLines(text.substr(from, start - from)).back();
                EXPECT_EQ(Plain(*previous), (NaiveLine{last.text, last.start + from, start}));
                EXPECT_EQ(previous->Number(), i - 1);
            }
        }
    }
}

TEST_F(FileLines, APreviousLineOfMoreThanTheWindowIsItsLastPiece) {
    File(std::string(2045, 'x') + "\r\na\n" + std::string(2047, 'y') + "\r\nb\n" + std::string(2046, 'z') + "\r\nc\n" +
         std::string(5000, 'w') + "\nd");
    EXPECT_EQ(Ask("lengths of previous lines of lines of file \"@/lines\""),
              Values({"2045", "1", "2046", "1", "2046", "1", "2048", "2048", "2047"}));
    EXPECT_EQ(Ask("line numbers of previous lines of lines 4 of file \"@/lines\""), Values({"3"}));
    EXPECT_EQ(Ask("previous line of line 1 of file \"@/lines\""), DoesNotExist());
    EXPECT_EQ(Ask("previous line of previous line of line 3 of file \"@/lines\" = line 1 of file \"@/lines\""),
              Values({"True"}));
}

TEST_F(FileLines, EveryPhraseIsAskedInBothNumbers) {
    File("alpha\nbeta\nAlphabet\ngamma alpha\n");
    EXPECT_EQ(Ask("lines of file \"@/lines\""), Values({"alpha", "beta", "Alphabet", "gamma alpha"}));
    EXPECT_EQ(Ask("line of file \"@/lines\""), (Answer{{"alpha"}, "ArgumentNotUnique"}));
    EXPECT_EQ(Ask("line 2 of file \"@/lines\""), Values({"beta"}));
    EXPECT_EQ(Ask("lines (2; 9; 1; 0; -1) of file \"@/lines\""), Values({"beta", "alpha"}));
    EXPECT_EQ(Ask("line 0 of file \"@/lines\""), DoesNotExist());
    EXPECT_EQ(Ask("line 5 of file \"@/lines\""), DoesNotExist());
    EXPECT_EQ(Ask("line starting with \"be\" of file \"@/lines\""), Values({"beta"}));
    EXPECT_EQ(Ask("lines starting with \"al\" of file \"@/lines\""), Values({"alpha"}));
    EXPECT_EQ(Ask("lines starting with \"\" of file \"@/lines\""),
              Values({"alpha", "beta", "Alphabet", "gamma alpha"}));
    EXPECT_EQ(Ask("lines starting with \"alphabets\" of file \"@/lines\""), Nothing());
    EXPECT_EQ(Ask("line containing \"eta\" of file \"@/lines\""), Values({"beta"}));
    EXPECT_EQ(Ask("lines containing \"alpha\" of file \"@/lines\""), Values({"alpha", "gamma alpha"}));
    EXPECT_EQ(Ask("lines containing (\"be\"; \"mm\") of file \"@/lines\""),
              Values({"beta", "Alphabet", "gamma alpha"}));
    EXPECT_EQ(Ask("line number of line 3 of file \"@/lines\""), Values({"3"}));
    EXPECT_EQ(Ask("line numbers of lines containing \"lpha\" of file \"@/lines\""), Values({"1", "3", "4"}));
    EXPECT_EQ(Ask("previous line of line 3 of file \"@/lines\""), Values({"beta"}));
    EXPECT_EQ(Ask("previous lines of lines of file \"@/lines\""), Values({"alpha", "beta", "Alphabet"}));
    EXPECT_EQ(Ask("next line of line 3 of file \"@/lines\""), Values({"gamma alpha"}));
    EXPECT_EQ(Ask("next lines of lines of file \"@/lines\""), Values({"beta", "Alphabet", "gamma alpha"}));
    EXPECT_EQ(Ask("line number of next line of line starting with \"be\" of file \"@/lines\""), Values({"3"}));
    EXPECT_EQ(Ask("next line of line 4 of file \"@/lines\""), DoesNotExist());
}

TEST_F(FileLines, AreStrings) {
    File("alpha\nbeta\n");
    EXPECT_EQ(Ask("line 1 of file \"@/lines\" & \"!\""), Values({"alpha!"}));
    EXPECT_EQ(Ask("concatenation \",\" of lines of file \"@/lines\""), Values({"alpha,beta"}));
    EXPECT_EQ(Ask("first 2 of line 1 of file \"@/lines\" as uppercase"), Values({"AL"}));
    EXPECT_EQ(Ask("(unique values of lines of file \"@/lines\")"), Values({"alpha", "beta"}));
    EXPECT_EQ(Ask("elements of set of lines of file \"@/lines\""), Values({"alpha", "beta"}));
    EXPECT_EQ(Ask("maximum of lengths of lines of file \"@/lines\""), Values({"5"}));
}

TEST_F(FileLines, OnesThatCannotBeReadAreErrors) {
    const Answer kernel = ::Ask("lines of files \"/proc/kmsg\"");
    EXPECT_EQ(kernel.failure, "FileIOError");
    EXPECT_EQ(kernel.text, "File error \"11FileIOError\" on \"/proc/kmsg\"");
    EXPECT_EQ(::Ask("line 1 of file \"/proc/kmsg\"").failure, "FileIOError");
    EXPECT_EQ(::Ask("line 0 of file \"/proc/kmsg\""), DoesNotExist());
    EXPECT_EQ(::Ask("lines of file \"/etc\""), DoesNotExist());

    const file f = File("a\nb\n");
    ASSERT_EQ(unlink(place_.Path("lines").c_str()), 0);
    EXPECT_THROW(All(f), FileNotFoundError);
    EXPECT_THROW(NumberedLine(1, f), FileNotFoundError);
    place_.Folder("lines");
    EXPECT_THROW(All(f), FileIOError);
}

TEST_F(FileLines, OneThatIsNotOursIsRefused) {
    const file f = File("a\n");
    ASSERT_EQ(chmod(place_.Path().c_str(), 0755), 0);
    ASSERT_EQ(chmod(place_.Path("lines").c_str(), 0), 0);
    const pid_t child = fork();
    if (child == 0) {
        if (geteuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0)) {
            _exit(2);
        }
        const bool refused = Ask("lines of file \"@/lines\"").failure == "FilePermissionError" &&
                             Ask("key \"a\" of file \"@/lines\"").failure == "FileIOError" &&
                             Ask("exists section \"a\" of file \"@/lines\"").failure == "FileIOError" &&
                             Ask("content of file \"@/lines\" contains \"a\"").failure == "FilePermissionError" &&
                             Ask("content of file \"@/lines\" contains \"\"") == Values({"True"}) &&
                             Ask("byte 0 of file \"@/lines\"").failure == "FilePermissionError" &&
                             Ask("byte 2 of file \"@/lines\"") == DoesNotExist() &&
                             Ask("exists grub config file \"@/lines\"") == Values({"False"});
        _exit(refused ? 0 : 1);
    }
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
}

TEST_F(FileLines, FilesThatAreMadeAsTheyAreRead) {
    EXPECT_EQ(::Ask("exists lines containing \"processor\" of file \"/proc/cpuinfo\""), Values({"True"}));
    EXPECT_EQ(::Ask("line number of line starting with \"Name:\" of file \"/proc/self/status\""), Values({"1"}));
    EXPECT_EQ(::Ask("previous line of next line of line 2 of file \"/proc/self/status\" = line 2 of file "
                    "\"/proc/self/status\""),
              Values({"True"}));
}

TEST_F(FileLines, AFileThatGrowsGivesWhatWasAdded) {
    const file f = File("a\n");
    line_iterator each;
    each.Start(Of(), f);
    EXPECT_EQ(each.Next(Of(), f)->View(), "a");
    std::ofstream(place_.Path("lines"), std::ios::app) << "b\n";
    EXPECT_EQ(each.Next(Of(), f)->View(), "b");
    const std::optional<file_line> second = NumberedLine(2, f);
    EXPECT_FALSE(NextLine(*second));
    std::ofstream(place_.Path("lines"), std::ios::app) << "c\n";
    EXPECT_EQ(NextLine(*second)->View(), "c");
    ASSERT_EQ(truncate(place_.Path("lines").c_str(), 1), 0);
    EXPECT_FALSE(PreviousLine(*second)) << "nothing is left where the line was";
    EXPECT_FALSE(NextLine(*second));
}

TEST_F(FileLines, TheFileIsOpenAsLongAsAnyOfThemIsThere) {
    const size_t before = OpenDescriptors();
    {
        const file f = File("a\nb\nc\n");
        std::optional<file_line> kept;
        {
            line_iterator each;
            each.Start(Of(), f);
            EXPECT_EQ(OpenDescriptors(), before + 1);
            each.Next(Of(), f);
            kept = each.Next(Of(), f);
        }
        EXPECT_EQ(OpenDescriptors(), before + 1);
        ASSERT_EQ(unlink(place_.Path("lines").c_str()), 0);
        EXPECT_EQ(NextLine(*kept)->View(), "c");
        EXPECT_EQ(PreviousLine(*kept)->View(), "a");
        kept.reset();
        EXPECT_EQ(OpenDescriptors(), before);
        File("a\nb\n");
        line_iterator each;
        each.Start(Of(), f);
        while (each.Next(Of(), f)) {
        }
        EXPECT_EQ(OpenDescriptors(), before) << "a walk that has ended holds nothing";
    }
    for (const char* question :
         {"lines of file \"@/lines\"", "exists lines of file \"@/lines\"", "line of file \"@/lines\"",
          "next lines of lines of file \"@/lines\"", "previous line of line 2 of file \"@/lines\"",
          "lines of file \"/proc/kmsg\"", "key \"a\" of file \"@/lines\"",
          "key \"a\" of section \"b\" of file \"@/lines\"", "content of file \"@/lines\" contains \"a\"",
          "byte 0 of file \"@/lines\"", "exists grub config file \"@/lines\"",
          "error \"x\" of lines of file \"@/lines\"", "(lines of it; lines of it) of file \"@/lines\""}) {
        Ask(question);
        EXPECT_EQ(OpenDescriptors(), before) << question;
    }
}

}  // namespace
