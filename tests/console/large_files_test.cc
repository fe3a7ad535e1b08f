// Files of any size are counted, searched and digested in the memory of a small one.
#include <gtest/gtest.h>

#include <fstream>

#include "tests/console/program_run.h"
#include "tests/foundation/temporary_place.h"

namespace {

constexpr uint64_t kGibibyte = uint64_t{1} << 30;

// A file of so many zeros, which take no room on the disk, and two short lines behind them.
std::string ZerosAndANeedle(const TemporaryPlace& place, const std::string& name, uint64_t zeros) {
    place.File(name);
    std::filesystem::resize_file(place.Path(name), zeros);
    std::ofstream(place.Path(name), std::ios::app) << "\nneedle = found\n";
    return place.Path(name);
}

// The answers, one a line.
std::string Answers(const std::string& output) {
    std::string answers;
    for (size_t at = output.find("A: "); at != std::string::npos; at = output.find("A: ", at + 1)) {
        answers += output.substr(at + 3, output.find('\n', at) - at - 2);
    }
    return answers;
}

struct Read {
    std::string answers;
    long peakKilobytes;
};

Read ReadIt(const TemporaryPlace& place, const std::string& file) {
    const std::string of = " of file \"" + file + "\"\n";
    place.File("questions", "Q: number of lines" + of + "Q: line number of line containing \"needle\"" + of +
                                "Q: key \"NEEDLE\"" + of +
                                "Q: (it contains \"needle\", it contains \"pin\") of content" + of + "Q: sha1" + of);
    Program program({place.Path("questions")}, Program::Input::Closed);
    program.silenceMilliseconds = 120000;
    EXPECT_EQ(program.Status(), 0) << program.errors;
    return {Answers(program.output), program.peakKilobytes};
}

TEST(LargeFiles, AreReadInTheMemoryOfSmallOnes) {
#ifdef __SANITIZE_ADDRESS__
    constexpr long kSlackKilobytes = 300 * 1024;  // what the sanitizer keeps of what has been given back
#else
    constexpr long kSlackKilobytes = 2 * 1024;
#endif
    const TemporaryPlace place;
    const Read small = ReadIt(place, ZerosAndANeedle(place, "small", 4096));
    EXPECT_EQ(small.answers, "4\n4\nfound\nTrue, False\n1f2eabdc7e79d8a398f3c5250714ae831a47e78c\n");
    const Read large = ReadIt(place, ZerosAndANeedle(place, "large", kGibibyte));
    // 524,288 windows of zeros, the empty rest of the last of them, and the needle's line.
    EXPECT_EQ(large.answers, "524290\n524290\nfound\nTrue, False\n97240868ad2dffe7de9d92b0c5140a6dec04bf72\n");
    EXPECT_LT(large.peakKilobytes, small.peakKilobytes + kSlackKilobytes);
}

}  // namespace
