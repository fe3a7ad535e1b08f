// Processes: the walk over a crafted folder, the items of their files, and this machine's own.
#include "inspectors/process.h"

#include <dirent.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <memory>
#include <set>

#include "foundation/file_error.h"
#include "inspectors/environment.h"
#include "inspectors/privileges.h"
#include "inspectors/process_items.h"
#include "inspectors/process_walk.h"
#include "tests/foundation/temporary_place.h"
#include "tests/inspectors/ask.h"

namespace {

template <class Reader>
std::vector<std::string> Items(std::string_view text) {
    std::vector<std::string> items;
    for (Reader reader{std::string(text)}; reader.HasMore();) {
        items.emplace_back(reader.NextItem());
    }
    return items;
}

using Texts = std::vector<std::string>;
using namespace std::string_literals;
using namespace std::string_view_literals;

TEST(ProcessItems, EndAtZeroBytes) {
    EXPECT_EQ(Items<CmdLineArgReader>("a\0bc\0"sv), (Texts{"a", "bc"}));
    EXPECT_EQ(Items<OtherProcessEnvReader>("A=1\0B=2\0"sv), (Texts{"A=1", "B=2"}));
}
TEST(ProcessItems, NeedNoZeroByteAtTheEnd) {
    EXPECT_EQ(Items<CmdLineArgReader>("a\0b"sv), (Texts{"a", "b"}));
    EXPECT_EQ(Items<CmdLineArgReader>("a"sv), (Texts{"a"}));
    EXPECT_EQ(Items<OtherProcessEnvReader>("A=1\0B=2"sv), (Texts{"A=1", "B=2"}));
    EXPECT_EQ(Items<OtherProcessEnvReader>("A"sv), (Texts{"A"}));
}
TEST(ProcessItems, ThatAreEmptyAreSteppedOver) {
    EXPECT_EQ(Items<CmdLineArgReader>("\0\0a\0\0\0b\0\0"sv), (Texts{"a", "b"}));
    EXPECT_EQ(Items<CmdLineArgReader>("\0\0\0"sv), Texts{});
    EXPECT_EQ(Items<CmdLineArgReader>(""sv), Texts{});
}

TEST(ProcessItems, ComeFromFilesOfAnyLength) {
    const TemporaryPlace place;
    for (size_t length : {0, 1, 127, 128, 129, 255, 256, 257, 100000}) {
        std::string text;
        while (text.size() < length) {
            text.append("item ").append(std::to_string(text.size())).push_back('\0');
        }
        text.resize(length);
        place.File("items", text);
        EXPECT_EQ(CmdLineArgReader::ReadWhole(place.Path("items").c_str()), text) << length;
    }
}

TEST(ProcessItems, FailByTheKindOfTheFailure) {
    const TemporaryPlace place;
    EXPECT_THROW(CmdLineArgReader::ReadWhole(place.Path("gone").c_str()), CmdLineArgReader::NoSuchProcess);
    EXPECT_THROW(CmdLineArgReader::ReadWhole(place.Path().c_str()), CmdLineArgReader::ReadError);
    EXPECT_THROW(OtherProcessEnvReader::Open("0"), OtherProcessEnvReader::NoSuchProcess);
}

TEST(EnvironmentItem, IsCutAtItsFirstEqualsSign) {
    const auto parsed = [](std::string_view item) {
        const EnvironmentEntry entry = ParseEnvironmentItem(item);
        return std::make_pair(entry.name, entry.value);
    };
    EXPECT_EQ(parsed("FOO=bar"), std::make_pair("FOO"s, "bar"s));
    EXPECT_EQ(parsed("FOO=a=b"), std::make_pair("FOO"s, "a=b"s));
    EXPECT_EQ(parsed("FOO="), std::make_pair("FOO"s, ""s));
    EXPECT_EQ(parsed("FOO"), std::make_pair("FOO"s, ""s));
    EXPECT_EQ(parsed("=x"), std::make_pair(""s, "x"s));
}

TEST(BaseName, IsWhatFollowsTheLastSlashUnlessThatIsTheFirstByte) {
    EXPECT_EQ(BaseName("/usr/bin/cat"), "cat");
    EXPECT_EQ(BaseName("/cat"), "/cat");
    EXPECT_EQ(BaseName("cat"), "cat");
    EXPECT_EQ(BaseName("/usr/"), "");
    EXPECT_EQ(BaseName(""), "");
}

std::set<std::pair<std::string, std::string>> Walked(const std::string& folder) {
    std::set<std::pair<std::string, std::string>> found;
    for (ProcessWalk walk(folder); walk.Next();) {
        found.emplace(walk.Id(), std::string(walk.Name()));
    }
    return found;
}

TEST(ProcessWalk, ListsNumbersWithAnExecutable) {
    const TemporaryPlace place;
    const auto process = [&](const std::string& id, const std::string& executable) {
        place.Folder(id);
        place.Link(id + "/exe", executable);
    };
    process("17", "/usr/bin/first");
    process("18", "/second");
    process("self", "/usr/bin/myself");
    process("0", "/usr/bin/zero");
    process("19", "/" + std::string(1022, 'x'));
    process("20", "/" + std::string(1023, 'x'));
    place.Folder("21");  // a kernel thread
    place.File("22");
    process("23x", "/usr/bin/odd number");
    process("24", "/usr/bin/gone (deleted)");
    EXPECT_EQ(Walked(place.Path() + "/"),
              (std::set<std::pair<std::string, std::string>>{{"17", "first"},
                                                             {"18", "/second"},
                                                             {"19", "/" + std::string(1022, 'x')},
                                                             {"23x", "odd number"},
                                                             {"24", "gone (deleted)"}}));
}

TEST(ProcessWalk, KeepsTheOrderOfTheListing) {
    const TemporaryPlace place;
    for (const char* id : {"3", "20", "1", "100", "45", "9", "17"}) {
        place.Folder(id);
        place.Link(std::string(id) + "/exe", "/usr/bin/x");
    }
    Texts listed;
    {
        const std::unique_ptr<DIR, int (*)(DIR*)> listing(opendir(place.Path().c_str()), closedir);
        while (const dirent* entry = readdir(listing.get())) {
            if (entry->d_name[0] != '.') {
                listed.emplace_back(entry->d_name);
            }
        }
    }
    const std::string folder = place.Path() + "/";
    Texts walked;
    for (ProcessWalk walk(folder); walk.Next();) {
        walked.push_back(walk.Id());
    }
    EXPECT_EQ(walked.size(), 7U);
    EXPECT_EQ(walked, listed);
}

TEST(ProcessWalk, FailsWhereThereIsNoListing) {
    const TemporaryPlace place;
    EXPECT_THROW(ProcessWalk(place.Path("gone/")), FileIOError);
}

TEST(ProcessWalk, AskedByNumberTakesLongerPathsToo) {
    const TemporaryPlace place;
    place.Folder("20");
    place.Link("20/exe", "/d/" + std::string(1500, 'x'));
    EXPECT_EQ(ExecutableName(place.Path() + "/", "20", ProcessWalk::kLongestListed), std::nullopt);
    EXPECT_EQ(ExecutableName(place.Path() + "/", "20", ProcessWalk::kLongest), std::string(1500, 'x'));
    EXPECT_EQ(ExecutableName(place.Path() + "/", "21", ProcessWalk::kLongest), std::nullopt);
}

// A child with arguments and variables of the test's own.
class Child {
public:
    Child() {
        id_ = fork();
        if (id_ == 0) {
            char name[] = "sleep";
            char argument[] = "600";
            char* arguments[] = {name, argument, nullptr};
            char first[] = "FOO=one=two";
            char second[] = "BARE";
            char* variables[] = {first, second, nullptr};
            execve("/bin/sleep", arguments, variables);
            _exit(127);
        }
        // The new program has its name before it has its arguments and variables.
        for (int i = 0; i < 500 && Ask(Of("name of process @; last 3 of concatenation of command line arguments of "
                                          "process @; names of variables of environment of process @")) !=
                                       Values({"sleep", "600", "FOO", "BARE"});
             ++i) {
            usleep(10000);
        }
    }
    ~Child() {
        kill(id_, SIGKILL);
        waitpid(id_, nullptr, 0);
    }
    // The question with "@" standing for the child's number.
    std::string Of(std::string question) const {
        for (size_t at = question.find('@'); at != std::string::npos; at = question.find('@')) {
            question.replace(at, 1, std::to_string(id_));
        }
        return question;
    }

private:
    pid_t id_;
};

TEST(Processes, TellTheirArgumentsAndVariables) {
    const Child child;
    EXPECT_EQ(Ask(child.Of("command line arguments of process @")), Values({"sleep", "600"}));
    EXPECT_EQ(Ask(child.Of("command line argument 1 of process @")), Values({"sleep"}));
    EXPECT_EQ(Ask(child.Of("command line argument 2 of process @")), Values({"600"}));
    EXPECT_EQ(Ask(child.Of("command line argument 0 of process @")), DoesNotExist());
    EXPECT_EQ(Ask(child.Of("command line argument 3 of process @")), DoesNotExist());
    EXPECT_EQ(Ask(child.Of("command line argument (-1) of process @")), DoesNotExist());
    EXPECT_EQ(Ask(child.Of("variables of environment of process @")), Values({"FOO = one=two", "BARE = "}));
    EXPECT_EQ(Ask(child.Of("value of variable \"FOO\" of environment of process @")), Values({"one=two"}));
    EXPECT_EQ(Ask(child.Of("length of value of variable \"BARE\" of environment of process @")), Values({"0"}));
    EXPECT_EQ(Ask(child.Of("variable \"foo\" of environment of process @")), DoesNotExist());
    for (const char* phrase : {"pid of process @", "id of process @", "process id of process @", "pids of processes @",
                               "ids of processes @", "process ids of processes @"}) {
        EXPECT_EQ(Ask(child.Of(phrase)), Values({child.Of("@")}));
    }
    EXPECT_EQ(Ask(child.Of("names of processes @")), Values({"sleep"}));
    EXPECT_EQ(Ask(child.Of("(it as string) of variables of environments of processes @")),
              Values({"FOO = one=two", "BARE = "}));
    EXPECT_EQ(Ask(child.Of("names of variables of environment of process @")), Values({"FOO", "BARE"}));
    EXPECT_EQ(Ask(child.Of("values of variables \"FOO\" of environment of process @")), Values({"one=two"}));
}

TEST(Processes, AreListedLikeProcfsListsThem) {
    const Child child;
    EXPECT_EQ(Ask(child.Of("exists (pids of processes) whose (it = @)")), Values({"True"}));
    EXPECT_EQ(Ask(child.Of("exists (pids of processes \"sleep\") whose (it = @)")), Values({"True"}));
    EXPECT_EQ(Ask("exists processes \"no such program\""), Values({"False"}));
    EXPECT_EQ(Ask(child.Of("process ids of processes whose (id of it = @)")), Values({child.Of("@")}));
}

TEST(Processes, ThatHaveGoneHaveNoValue) {
    std::string question;
    {
        const Child child;
        question = child.Of("exists process @");
        EXPECT_EQ(Ask(question), Values({"True"}));
    }
    EXPECT_EQ(Ask(question), Values({"False"}));
    EXPECT_EQ(Ask("exists process 0"), Values({"False"}));
    EXPECT_EQ(Ask("exists process (-1)"), Values({"False"}));
}

// An id whose files lie in a folder of the test's own.
std::string IdOf(const TemporaryPlace& place) { return ".." + place.Path(); }

// What the reading fails with, as the evaluation tells it.
template <class Read>
std::string FailureOf(const Read& read) {
    try {
        read();
    } catch (const InsufficientPrivileges&) {
        return "InsufficientPrivileges";
    } catch (const NoSuchObject&) {
        return "NoSuchObject";
    } catch (const InspectorDefinedError& failure) {
        return failure.what();
    }
    return "";
}

std::string FailureOfArguments(const std::string& id) {
    return FailureOf([&] { process("name", id).Arguments(); });
}
std::string FailureOfVariables(const std::string& id) {
    return FailureOf([&] { environment(id).Variables(); });
}

TEST(ProcessFiles, AreReadAtTheFirstNeedAndKept) {
    const TemporaryPlace place;
    const process running("name", IdOf(place));
    const environment variables(IdOf(place));
    place.File("cmdline", "first");
    place.File("environ", "A=1");
    EXPECT_EQ(running.Arguments(), Texts{"first"});
    EXPECT_EQ(variables.Variables().at(0).value, "1");
    place.File("cmdline", "second");
    place.File("environ", "A=2");
    EXPECT_EQ(running.Arguments(), Texts{"first"});
    EXPECT_EQ(variables.Variables().at(0).value, "1");
}

TEST(ProcessFiles, ThatAreGoneHaveNoValue) {
    const TemporaryPlace place;
    EXPECT_EQ(FailureOfArguments(IdOf(place)), "NoSuchObject");
    EXPECT_EQ(FailureOfVariables(IdOf(place)), "NoSuchObject");
}

TEST(ProcessFiles, ThatCannotBeReadAreErrors) {
    const TemporaryPlace place;
    place.Folder("cmdline");
    place.Folder("environ");
    EXPECT_EQ(FailureOfArguments(IdOf(place)), "error reading process command line arguments");
    EXPECT_EQ(FailureOfVariables(IdOf(place)), "error reading process environment variables");
}

// Whether something holds in a child that makes itself ready for it.
template <class Ready, class Holds>
bool InChild(const Ready& ready, const Holds& holds) {
    const pid_t child = fork();
    if (child == 0) {
        _exit(ready() && holds() ? 0 : 1);
    }
    int status = -1;
    waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

TEST(ProcessFiles, OfSomebodyElseNeedRights) {
    const TemporaryPlace place;
    place.File("cmdline", "a");
    place.File("environ", "A=1");
    ASSERT_EQ(chmod(place.Path().c_str(), 0755), 0);
    ASSERT_EQ(chmod(place.Path("cmdline").c_str(), 0), 0);
    ASSERT_EQ(chmod(place.Path("environ").c_str(), 0), 0);
    EXPECT_TRUE(InChild([] { return geteuid() != 0 || (setgid(65534) == 0 && setuid(65534) == 0); },
                        [&] {
                            return FailureOfArguments(IdOf(place)) == "InsufficientPrivileges" &&
                                   FailureOfVariables(IdOf(place)) == "InsufficientPrivileges";
                        }));
}

// Also where the text stops at the end of a block of the reading, or just before or behind it.
TEST(ProcessFiles, NeedNoZeroByteAtTheEnd) {
    const TemporaryPlace place;
    for (const size_t length : {4, 127, 128, 129, 256, 1000}) {
        const std::string last(length - 3, 'x');
        place.File("cmdline", "a\0b"s + last);
        place.File("environ", "A\0="s + last);
        EXPECT_EQ(process("name", IdOf(place)).Arguments(), (Texts{"a", "b" + last})) << length;
        const environment variables(IdOf(place));
        ASSERT_EQ(variables.Variables().size(), 2u) << length;
        EXPECT_EQ(variables.Variables()[0].name, "A");
        EXPECT_EQ(variables.Variables()[0].value, "");
        EXPECT_EQ(variables.Variables()[1].name, "");
        EXPECT_EQ(variables.Variables()[1].value, last);
    }
}

#ifndef __SANITIZE_ADDRESS__  // which takes more memory than any bound
TEST(ProcessFiles, ThatMemoryCannotHoldAreErrors) {
    const TemporaryPlace place;
    place.Link("cmdline", "/dev/zero");
    place.Link("environ", "/dev/zero");
    const auto bounded = [] {
        const rlimit bound = {rlim_t{1} << 28, rlim_t{1} << 28};
        return setrlimit(RLIMIT_AS, &bound) == 0;
    };
    EXPECT_TRUE(InChild(bounded, [&] {
        return FailureOfArguments(IdOf(place)) == "process command line arguments are too large" &&
               FailureOfVariables(IdOf(place)) == "process environment is too large";
    }));
}
#endif

TEST(Environment, IsThisProgramsOwn) {
    EXPECT_EQ(OwnEnvironmentVariable("no such variable"), std::nullopt);
    const environment own = OwnEnvironment();
    EXPECT_EQ(OwnEnvironmentVariable("PATH"),
              getenv("PATH") == nullptr ? std::nullopt : std::optional<std::string>(getenv("PATH")));
    EXPECT_EQ(Ask("number of variables of environment"), Values({std::to_string(own.Variables().size())}));
}

}  // namespace
