// A file of a gibibyte: searched, counted and digested in the memory that any question takes.
#include <gtest/gtest.h>

#include <fstream>
#include <memory>
#include <string>

#include "tests/console/program_run.h"
#include "tests/foundation/temporary_place.h"

namespace {

constexpr uint64_t kSize = uint64_t{1} << 30;
constexpr std::string_view kNeedle = "\nneedle\n";
constexpr std::string_view kEnd = "\nend";

// Runs of zero bytes, which take no room on the disk, with three lines between them and a last one behind.
struct LargeFile {
    explicit LargeFile(const std::string& path) {
        std::ofstream file(path, std::ios::binary);
        uint64_t start = 0;
        for (const uint64_t place : {uint64_t{2048} * 1000, uint64_t{123456789}, kSize / 2 - 3, kSize - kEnd.size()}) {
            const std::string_view text = place + kEnd.size() == kSize ? kEnd : kNeedle;
            file.seekp(static_cast<std::streamoff>(place));
            file << text;
            // A line of exactly the window's length is followed by an empty rest.
            lines += (place - start) / 2048 + 1 + 1;
            start = place + text.size();
        }
        file.flush();
        written = file.good();
    }

    uint64_t lines = 0;
    bool written = false;
};

// What the machine's own tool says; empty where it has none.
std::string Sha1Sum(const std::string& path) {
    const std::unique_ptr<FILE, int (*)(FILE*)> tool(popen(("sha1sum '" + path + "'").c_str(), "r"), pclose);
    char digest[41] = "";
    return tool != nullptr && fgets(digest, sizeof digest, tool.get()) != nullptr ? digest : "";
}

TEST(LargeFile, IsSearchedCountedAndDigestedInFlatMemory) {
    const TemporaryPlace place;
    const std::string path = place.Path("large");
    const LargeFile file(path);
    ASSERT_TRUE(file.written);

    place.File("small", "Q: 1\n");
    Program small({place.Path("small")}, Program::Input::Closed);
    ASSERT_EQ(small.Status(), 0);

    const std::string digest = Sha1Sum(path);
    ASSERT_EQ(digest.size(), 40U);
    const std::string questions[][2] = {
        {"size of file \"" + path + "\"", std::to_string(kSize)},
        {"content of file \"" + path + "\" contains \"needle%0aX\"", "False"},
        {"number of lines of file \"" + path + "\"", std::to_string(file.lines)},
        {"lines containing \"e\" of file \"" + path + "\"", "needle\nA: needle\nA: needle\nA: end"},
        {"sha1 of file \"" + path + "\"", digest},
    };
    std::string asked;
    std::string expected;
    for (const auto& [question, answer] : questions) {
        asked += "Q: " + question + "\n";
        expected += "Q: " + question + "\nA: " + answer + "\n\n";
    }
    place.File("asked", asked);
    Program large({place.Path("asked")}, Program::Input::Closed);
    EXPECT_EQ(large.Status(), 0);
    EXPECT_EQ(large.output, expected);
    EXPECT_EQ(large.errors, "");

    constexpr long kMebibyte = 1024;
    EXPECT_LT(large.peakKilobytes, small.peakKilobytes + 4 * kMebibyte);
}

}  // namespace
