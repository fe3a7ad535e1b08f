#include "console/command_line.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/foundation/temporary_place.h"

namespace {

constexpr char kUsage[] =
    "   zendry [-t] [-showtypes] [-o output-file name] [zero or more input-file names]\n"
    "        -t displays execution time in non-interactive mode\n"
    "        -showtypes shows the result type of each query on a line prefixed by \"I:\"\n"
    "        -help prints this message.\n";

struct Scanned {
    ZendryCommandLine line;
    bool goesOn;
    std::string errors;
    std::vector<std::string> Files() const { return {line.files.begin(), line.files.end()}; }
};

Scanned Scan(std::vector<const char*> arguments) {
    arguments.insert(arguments.begin(), "zendry");
    Scanned scanned{};
    testing::internal::CaptureStderr();
    scanned.goesOn = ScanArguments(static_cast<int>(arguments.size()), arguments.data(), scanned.line);
    scanned.errors = testing::internal::GetCapturedStderr();
    return scanned;
}

using Names = std::vector<std::string>;

TEST(CommandLine, WithoutArgumentsIsThePrompt) {
    const Scanned scanned = Scan({});
    EXPECT_TRUE(scanned.goesOn);
    EXPECT_EQ(scanned.Files(), Names());
    EXPECT_FALSE(scanned.line.timing);
    EXPECT_FALSE(scanned.line.showTypes);
    EXPECT_EQ(scanned.line.outputFile, nullptr);
    EXPECT_EQ(scanned.errors, "");
}

TEST(CommandLine, OptionsAndFilesMixInAnyOrder) {
    const Scanned scanned = Scan({"a", "-t", "b", "-o", "out", "-showtypes", "c"});
    EXPECT_TRUE(scanned.goesOn);
    EXPECT_EQ(scanned.Files(), (Names{"a", "b", "c"}));
    EXPECT_TRUE(scanned.line.timing);
    EXPECT_TRUE(scanned.line.showTypes);
    EXPECT_STREQ(scanned.line.outputFile, "out");
}

TEST(CommandLine, OfSeveralOutputFilesTheLastWins) {
    EXPECT_STREQ(Scan({"-o", "one", "-o", "two"}).line.outputFile, "two");
}

TEST(CommandLine, WhatFollowsTheOutputOptionIsItsNameWhateverItIs) {
    const Scanned scanned = Scan({"-o", "-help", "-o", "-o", "-o", "-t"});
    EXPECT_TRUE(scanned.goesOn);
    EXPECT_STREQ(scanned.line.outputFile, "-t");
    EXPECT_FALSE(scanned.line.timing);
    EXPECT_EQ(scanned.Files(), Names());
}

TEST(CommandLine, AnOutputOptionWithNothingBehindItIsAFile) {
    EXPECT_EQ(Scan({"-o"}).Files(), Names{"-o"});
    const Scanned scanned = Scan({"-o", "out", "-o"});
    EXPECT_EQ(scanned.Files(), Names{"-o"});
    EXPECT_STREQ(scanned.line.outputFile, "out");
}

TEST(CommandLine, OptionsAreComparedExactly) {
    const Names odd = {"-T", "-tt", "--t", "-showtype", "-Showtypes", "-help ", "-h", "--help", "-oout", "-", ""};
    std::vector<const char*> arguments;
    for (const std::string& name : odd) {
        arguments.push_back(name.c_str());
    }
    const Scanned scanned = Scan(arguments);
    EXPECT_TRUE(scanned.goesOn);
    EXPECT_EQ(scanned.Files(), odd);
    EXPECT_FALSE(scanned.line.timing);
    EXPECT_FALSE(scanned.line.showTypes);
}

TEST(CommandLine, HelpPrintsTheUsageToStandardErrorWhateverStandsBefore) {
    for (const std::vector<const char*>& arguments :
         {std::vector<const char*>{"-help"}, {"-t", "file", "-help"}, {"-o", "out", "-help", "-o"}}) {
        const Scanned scanned = Scan(arguments);
        EXPECT_FALSE(scanned.goesOn);
        EXPECT_EQ(scanned.errors, kUsage);
    }
}

// The current folder, put back at the end.
class Inside {
public:
    explicit Inside(const std::string& folder) : before_(std::filesystem::current_path()) {
        std::filesystem::current_path(folder);
    }
    ~Inside() { std::filesystem::current_path(before_); }

private:
    std::filesystem::path before_;
};

TEST(OwnPath, AnAbsoluteNameIsMadeReal) {
    const TemporaryPlace place;
    place.File("program");
    place.Link("link", "program");
    EXPECT_EQ(ResolveOwnPath(place.Path("link").c_str()), place.Path("program"));
    EXPECT_EQ(ResolveOwnPath((place.Path() + "/./program").c_str()), place.Path("program"));
}

TEST(OwnPath, ARelativeNameIsJoinedToTheCurrentFolder) {
    const TemporaryPlace place;
    place.File("program");
    place.Folder("sub");
    const Inside inside(place.Path("sub"));
    EXPECT_EQ(ResolveOwnPath("../program"), place.Path("program"));
}

TEST(OwnPath, WhatCannotBeMadeRealStaysJoined) {
    const TemporaryPlace place;
    const Inside inside(place.Path());
    EXPECT_EQ(ResolveOwnPath("./no/../program"), place.Path() + "/./no/../program");
    EXPECT_EQ(ResolveOwnPath("/no/such/program"), "/no/such/program");
}

TEST(OwnPath, WithoutACurrentFolderTheNameStandsAsItIs) {
    const TemporaryPlace place;
    place.Folder("sub");
    const Inside inside(place.Path("sub"));
    std::filesystem::remove(place.Path("sub"));
    EXPECT_EQ(ResolveOwnPath("zendry"), "zendry");
}

TEST(OwnPath, IsKeptForTheProcess) {
    const std::string& kept = ResolveOwnPath("/no/such/program");
    EXPECT_EQ(&ResolveOwnPath("/another"), &kept);
    EXPECT_EQ(kept, "/another");
}

}  // namespace
