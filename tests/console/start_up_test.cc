// The console's start as its users meet it: what it says, in which order, and how it ends, for every state of the
// configuration, the masthead and the crypto library.
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/crypto_names.h"
#include "tests/console/program_run.h"
#include "tests/foundation/own_process.h"
#include "tests/foundation/temporary_place.h"

namespace {

const std::string fakes = ZENDRY_CRYPTO_FAKES;

constexpr char noConfiguration[] = "OSLClientConfigPath must be set\n";
constexpr char noDefault[] = "No default config file found\n";
constexpr char noMasthead[] = "OSLClientActionMastheadPath not set and no masthead found\n";
constexpr char noStorage[] = "Error: Can't find data location.\n";
constexpr char noLibrary[] = "Missing libOSLcrypto.\n";
constexpr char noFunction[] = "Missing function 'EVP_sha1' from libOSLcrypto.\n";

struct Ended {
    int status = 0;
    std::string output;
    std::string errors;

    friend bool operator==(const Ended&, const Ended&) = default;
};
void PrintTo(const Ended& ended, std::ostream* out) {
    *out << "status " << ended.status << "\noutput: " << ended.output << "\nerrors: " << ended.errors;
}

const Ended answered = {0, "Q: sha1 of \"abc\"\nA: a9993e364706816aba3e25717850c26c9cd0d89d\n\n", ""};

// A folder with a question, and a console started on it in a setting of one's own.
class StartUp : public testing::Test {
protected:
    Ended Started(const Environment& environment, const std::string& called = ZENDRY_PROGRAM) const {
        place.File("asked", "Q: sha1 of \"abc\"\n");
        Program program({place.Path("asked")}, Program::Input::Closed, place.Path(), environment, called);
        const int status = program.Status();
        return {status, program.output, program.errors};
    }
    static Ended Said(const std::string& errors) { return {0, answered.output, errors}; }
    static Ended Failed(const std::string& errors) { return {255, "", errors}; }

    // The example agent's setting with some of it otherwise.
    static Environment With(const Environment& changes) {
        Environment environment = ExampleAgent();
        for (const auto& [name, value] : changes) {
            environment[name] = value;
        }
        return environment;
    }

    std::string Configuration(const std::string& text) const { return place.File("client.conf", text).CString(); }
    std::string FipsSetting(const std::string& value) const {
        return Configuration(
            "[Software\\Ostrel\\EnterpriseClient\\Settings\\Client\\_OSLClient_Cryptography_FipsMode]\nvalue = " +
            value + "\n");
    }
    std::string Masthead(const std::string& requirement) const {
        return place
            .File("masthead",
                  "Content-Type: multipart/signed; boundary=s\n\n--s\n"
                  "Content-Type: multipart/related; boundary=r; type=\"application/x-praxel-site-masthead\"\n\n--r\n\n"
                  "X-OSL-Require-FIPS-Cryptography: " +
                      requirement + "\n\n--r--\n--s\n\nnobody\n--s--\n")
            .CString();
    }

    const TemporaryPlace place;
};

TEST_F(StartUp, SaysNothingWhereNothingIsMissing) { EXPECT_EQ(Started(ExampleAgent()), answered); }

TEST_F(StartUp, GoesOnWithTheDefaultsWhereNothingIsSet) {
    EXPECT_EQ(Started({}), Said(std::string(noConfiguration) + noMasthead));
}

TEST_F(StartUp, HelpComesBeforeIt) {
    Program program({"-help"}, Program::Input::Closed, "", {});
    EXPECT_EQ(program.Status(), 1);
    EXPECT_EQ(program.errors.find("OSL"), std::string::npos);
}

TEST_F(StartUp, ItsMessagesGoToStandardErrorAlone) {
    place.File("asked", "Q: 1\n");
    Program program({"-o", place.Path("answers"), place.Path("asked")}, Program::Input::Closed, "", {});
    EXPECT_EQ(program.Status(), 0);
    EXPECT_EQ(program.output, "");
    EXPECT_EQ(program.errors, std::string(noConfiguration) + noMasthead);
    EXPECT_EQ(place.Content("answers"), "Q: 1\nA: 1\n\n");
}

TEST_F(StartUp, ThePromptStartsTheSame) {
    Program program({}, Program::Input::Pipe, "", {{"OSL_LIBPATH", place.Path()}});
    program.Type("1\n");
    program.CloseInput();
    EXPECT_EQ(program.Status(), 255);
    EXPECT_EQ(program.output, "");
    EXPECT_EQ(program.errors, std::string(noConfiguration) + noMasthead + noLibrary);
}

TEST_F(StartUp, AMissingConfigurationIsCopiedFromItsDefault) {
    place.File("new.conf.default", "[s]\nk = v\n");
    EXPECT_EQ(Started(With({{"OSLClientConfigPath", place.Path("new.conf")}})), answered);
    EXPECT_EQ(place.Content("new.conf"), "[s]\nk = v\n");
    EXPECT_EQ(Started(With({{"OSLClientConfigPath", place.Path("new.conf")}})), answered);
}

TEST_F(StartUp, ADefaultThatCannotBeCopiedIsTold) {
    place.Folder("new.conf.default");
    const std::string path = place.Path("new.conf");
    EXPECT_EQ(Started(With({{"OSLClientConfigPath", path}})),
              Said("Error copying default config file\nCould not open config file '" + path +
                   "': No such file or directory\n"));
}

TEST_F(StartUp, AConfigurationThatIsNotThereIsTold) {
    const std::string path = place.Path("none.conf");
    EXPECT_EQ(Started(With({{"OSLClientConfigPath", path}})),
              Said(std::string(noDefault) + "Could not open config file '" + path + "': No such file or directory\n"));
}

TEST_F(StartUp, AConfigurationThatMayNotBeReadIsTold) {
    const std::string path = Configuration("[s]\n");
    place.File("asked");
    ASSERT_EQ(chmod(path.c_str(), 0), 0);
    ASSERT_EQ(chmod(place.Path("asked").c_str(), 0666), 0);
    ASSERT_EQ(chmod(place.Path().c_str(), 0755), 0);
    const std::string told = InOwnProcess([&]() -> std::string {
        if ((geteuid() == 0 && setuid(65534) != 0) || access(ZENDRY_PROGRAM, X_OK) != 0) {
            return "not here";
        }
        const Ended ended = Started(With({{"OSLClientConfigPath", path}}));
        return std::to_string(ended.status) + " " + ended.output + ended.errors;
    });
    // Root reads every file, so that another user has to ask; a build in a folder of root's alone shows him no console.
    if (told == "not here") {
        GTEST_SKIP() << "others may not start the console";
    }
    EXPECT_EQ(told, "0 " + answered.output + "Could not open config file '" + path + "': Permission denied\n");
}

// Without a configuration, without the storage location in it, and with one that the reader refuses, the defaults hold.
TEST_F(StartUp, AConfigurationThatIsRefusedLeavesTheDefaults) {
    EXPECT_EQ(Started(With({{"OSLClientConfigPath", Configuration("no configuration at all\n")}})), answered);
    EXPECT_EQ(Started(With({{"OSLClientConfigPath", Configuration("")}})), answered);
    EXPECT_EQ(Started(With({{"OSLClientConfigPath", place.Path()}})).output, answered.output);
}

TEST_F(StartUp, AnEmptyStorageLocationEndsIt) {
    const std::string empty =
        Configuration("[Software\\Ostrel\\EnterpriseClient\\GlobalOptions]\nStoragePath =\nLibPath = /x\n");
    EXPECT_EQ(Started(With({{"OSLClientConfigPath", empty}})), Failed(noStorage));
    const std::string comment =
        place.File("comment.conf", "[Software\\Ostrel\\EnterpriseClient\\GlobalOptions]\nStoragePath = ; /var/opt\n")
            .CString();
    EXPECT_EQ(Started(With({{"OSLClientConfigPath", comment}})), Failed(noStorage));
    // Also where the relay's file has one: the client's comes first.
    const std::string relay =
        place.File("relay", "[Software\\Ostrel\\EnterpriseClient\\GlobalOptions]\nStoragePath = /x\n").CString();
    EXPECT_EQ(Started(With({{"OSLClientConfigPath", empty}, {"OSLRelayConfigPath", relay}})), Failed(noStorage));
    // Before the masthead and the library are looked for.
    EXPECT_EQ(Started({{"OSLClientConfigPath", empty}, {"OSL_LIBPATH", place.Path()}}), Failed(noStorage));
}

TEST_F(StartUp, AStorageLocationThatIsNotThereIsNoMatterAndIsNotMade) {
    const std::string there = place.Path("nowhere/data");
    EXPECT_EQ(Started(With({{"OSLClientConfigPath",
                             Configuration("[software\\ostrel\\enterpriseclient\\globaloptions]\nstoragepath = " +
                                           there + "\nLibPath =\n")}})),
              answered);
    EXPECT_FALSE(place.Has("nowhere"));
}

TEST_F(StartUp, AMastheadThatIsNamedIsNeverSpokenOf) {
    place.Folder("folder");
    ASSERT_EQ(mkfifo(place.Path("fifo").c_str(), 0600), 0);
    const std::vector<std::string> mastheads = {
        "",
        place.Path("missing"),
        place.Path("folder"),
        place.Path("fifo"),
        place.File("empty").CString(),
        place.File("text", "This is no masthead.\n").CString(),
        place.File("html", "Content-Type: text/html\n\n<p>").CString(),
        place
            .File("unsigned",
                  "Content-Type: multipart/related; boundary=r; "
                  "type=\"application/x-praxel-site-masthead\"\n"
                  "\n--r\nX-OSL-Require-FIPS-Cryptography: 1\n\n--r--\n")
            .CString(),
        place
            .File("other",
                  "Content-Type: multipart/signed; boundary=s\n\n--s\n"
                  "Content-Type: multipart/related; boundary=r; type=\"application/other\"\n"
                  "\n--r\nX-OSL-Require-FIPS-Cryptography: 1\n\n--r--\n--s--\n")
            .CString(),
    };
    for (const std::string& masthead : mastheads) {
        EXPECT_EQ(Started(With({{"OSLClientActionMastheadPath", masthead}, {"OPENSSL_MODULES", "/nowhere"}})), answered)
            << masthead;
    }
}

// The build for FIPS mode is looked for exactly where the mode is wanted.
TEST_F(StartUp, TheMastheadDecidesOnTheLibrary) {
    TemporaryPlace library;
    std::filesystem::copy(BuildFolder() + "/bin/" + kCryptoLibrary + kCryptoSuffix, library.Path());
    for (const char* off : {"0", "-0", "no", "", "yes", "x1"}) {
        EXPECT_EQ(Started(With({{"OSLClientActionMastheadPath", Masthead(off)}, {"OSL_LIBPATH", library.Path()}})),
                  answered)
            << off;
    }
    for (const char* on : {"1", "-1", "7 of them", "\n  2", "99999999999999999999999"}) {
        EXPECT_EQ(Started(With({{"OSLClientActionMastheadPath", Masthead(on)}, {"OSL_LIBPATH", library.Path()}})),
                  Failed(noLibrary))
            << on;
    }
}

TEST_F(StartUp, AModeOfTheMastheadThatIsRefusedIsDoneWithout) {
    EXPECT_EQ(Started(With({{"OSLClientActionMastheadPath", Masthead("1")}, {"OPENSSL_MODULES", "/nowhere"}})),
              answered);
    EXPECT_EQ(
        Started(With({{"OSLClientActionMastheadPath", Masthead("1")}, {"OPENSSL_MODULES", fakes + "/providers"}})),
        answered);
}

TEST_F(StartUp, AModeOfTheSettingThatIsRefusedEndsItWithoutAWord) {
    for (const char* required : {"required", "Required", "REQUIRED"}) {
        const Environment environment =
            With({{"OSLClientConfigPath", FipsSetting(required)}, {"OPENSSL_MODULES", "/nowhere"}});
        EXPECT_EQ(Started(environment), Failed("")) << required;
    }
    EXPECT_EQ(
        Started(With({{"OSLClientConfigPath", FipsSetting("required")}, {"OPENSSL_MODULES", fakes + "/providers"}})),
        answered);
}

// With the build for FIPS mode out of reach, a start that succeeds did not want it.
TEST_F(StartUp, TheSettingBeatsTheMasthead) {
    TemporaryPlace library;
    std::filesystem::copy(BuildFolder() + "/bin/" + kCryptoLibrary + kCryptoSuffix, library.Path());
    const auto with = [&](const std::string& setting, const char* masthead) {
        return Started(With({{"OSLClientConfigPath", FipsSetting(setting)},
                             {"OSLClientActionMastheadPath", Masthead(masthead)},
                             {"OSL_LIBPATH", library.Path()}}));
    };
    for (const char* none : {"none", "None", "NONE"}) {
        EXPECT_EQ(with(none, "1"), answered) << none;
    }
    EXPECT_EQ(with("required", "0"), Failed(noLibrary));
    // Any other word, and one that does not fit 32 bytes with its end, leaves it to the masthead.
    for (const std::string& other : {std::string("optional"), std::string(), std::string("none "),
                                     std::string("nonesuch"), std::string("'required '"), std::string(32, 'x')}) {
        const bool decides = other == "none ";  // whose blank is taken off when it is read
        EXPECT_EQ(with(other, "1"), decides ? answered : Failed(noLibrary)) << other;
        EXPECT_EQ(with(other, "0"), answered) << other;
    }
}

TEST_F(StartUp, AMissingLibraryEndsIt) {
    EXPECT_EQ(Started(With({{"OSL_LIBPATH", place.Path()}})), Failed(noLibrary));
    EXPECT_EQ(Started(With({{"OSL_LIBPATH", place.Path("nowhere")}})), Failed(noLibrary));
    // A bare name, which is not looked for beside the program.
    EXPECT_EQ(Started(With({{"OSL_LIBPATH", ""}})), Failed(noLibrary));
}

TEST_F(StartUp, ALibraryWithoutAFunctionEndsIt) {
    EXPECT_EQ(Started(With({{"OSL_LIBPATH", fakes + "/lacking"}})), Failed(noFunction));
    EXPECT_EQ(Started(With({{"OSL_LIBPATH", fakes + "/lacking_queue/"}})),
              Failed("Missing function 'pqueue_size' from libOSLcrypto.\n"));
}

TEST_F(StartUp, ALibraryThatFailsOtherwiseEndsIt) {
    EXPECT_EQ(Started(With({{"OSL_LIBPATH", fakes + "/refusing_memory"}})),
              Failed("Failed to refresh fips mode configuration: CRYPTO_set_mem_functions_Failed\n"));
    EXPECT_EQ(Started(With({{"OSL_LIBPATH", fakes + "/throwing"}})),
              Failed("Failed to refresh fips mode configuration: unknown error\n"));
}

// By a bare name the program is taken to lie in the current folder, and is not there.
TEST_F(StartUp, AProgramThatIsNotFoundByItsNameEndsIt) {
    EXPECT_EQ(Started(ExampleAgent(), "zendry"),
              Failed("Failed to refresh fips mode configuration: File error \"12InvalidStats\"\n"));
}

TEST_F(StartUp, ARelativeNameFindsItsLibrary) {
    const std::string relative = std::filesystem::proximate(ZENDRY_PROGRAM, place.Path()).string();
    EXPECT_EQ(Started(ExampleAgent(), relative), answered);
    place.Link("link", ZENDRY_PROGRAM);
    EXPECT_EQ(Started(ExampleAgent(), "./link"), answered);
}

// Every state of the three together: what is said comes in their order, and ends where one of them ends it.
TEST_F(StartUp, EveryStateOfTheThreeTogether) {
    struct State {
        const char* name;
        std::function<void(Environment&)> make;
        std::string said;
        bool ends = false;
    };
    const auto set = [](const char* variable, const std::string& value) {
        return [=](Environment& environment) { environment[variable] = value; };
    };
    const auto unset = [](const char* variable) {
        return [=](Environment& environment) { environment.erase(variable); };
    };
    constexpr char configuration[] = "OSLClientConfigPath";
    constexpr char masthead[] = "OSLClientActionMastheadPath";
    place.File("default.conf.default", "[s]\n");
    place.File("empty.conf", "[Software\\Ostrel\\EnterpriseClient\\GlobalOptions]\nStoragePath = \"\"\n");
    place.File("refused.conf", "?\n");
    place.File("malformed", "Content-Type: multipart/signed\n\n");
    const std::string required = FipsSetting("required");
    TemporaryPlace plain;
    std::filesystem::copy(BuildFolder() + "/bin/" + kCryptoLibrary + kCryptoSuffix, plain.Path());

    const std::vector<State> configurations = {
        {"named", [](Environment&) {}, ""},
        {"unset", unset(configuration), noConfiguration},
        {"missing", set(configuration, place.Path("missing.conf")),
         std::string(noDefault) + "Could not open config file '" + place.Path("missing.conf") +
             "': No such file or directory\n"},
        {"by default", set(configuration, place.Path("default.conf")), ""},
        {"refused", set(configuration, place.Path("refused.conf")), ""},
        {"without storage", set(configuration, place.Path("empty.conf")), noStorage, true},
        {"requiring", set(configuration, required), ""},
    };
    const std::vector<State> mastheads = {
        {"named", [](Environment&) {}, ""},
        {"unset", unset(masthead), noMasthead},
        {"missing", set(masthead, place.Path("missing")), ""},
        {"empty", set(masthead, ""), ""},
        {"malformed", set(masthead, place.Path("malformed")), ""},
        {"requiring", set(masthead, Masthead("1")), ""},
    };
    // The builds that each has; the libraries without meaning are never called.
    const std::vector<State> libraries = {
        {"there", set("OPENSSL_MODULES", "/nowhere"), ""},
        {"with a provider", set("OPENSSL_MODULES", fakes + "/providers"), ""},
        {"without the build for the mode", set("OSL_LIBPATH", plain.Path()), ""},
        {"missing", set("OSL_LIBPATH", place.Path("none")), noLibrary, true},
        {"lacking a function", set("OSL_LIBPATH", fakes + "/lacking"), noFunction, true},
    };
    for (const State& one : configurations) {
        for (const State& two : mastheads) {
            for (const State& three : libraries) {
                Environment environment = ExampleAgent();
                one.make(environment);
                two.make(environment);
                three.make(environment);
                const std::string name = three.name;
                const bool bySetting = one.name == std::string("requiring");
                const bool wanted = bySetting || two.name == std::string("requiring");
                Ended expected = Said(one.said);
                if (one.ends) {
                    expected = Failed(one.said);
                } else if (three.ends || (wanted && name == "without the build for the mode")) {
                    expected = Failed(one.said + two.said + (wanted ? noLibrary : three.said));
                } else if (bySetting && name == "there") {
                    expected = Failed(one.said + two.said);
                } else {
                    expected.errors += two.said;
                }
                std::filesystem::remove(place.Path("default.conf"));
                EXPECT_EQ(Started(environment), expected) << one.name << ", " << two.name << ", " << three.name;
            }
        }
    }
}

// Becomes the root of its own mounts.
bool EnterNamespaceOfItsOwn() {
    const std::string map = "0 " + std::to_string(geteuid()) + " 1";
    const std::string groupMap = "0 " + std::to_string(getegid()) + " 1";
    if (unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) {
        return false;
    }
    std::ofstream("/proc/self/setgroups") << "deny";
    std::ofstream("/proc/self/uid_map") << map;
    std::ofstream("/proc/self/gid_map") << groupMap;
    return geteuid() == 0;
}

// In a world of its own, where /etc/opt can be given a masthead.
TEST_F(StartUp, AMastheadAtItsDefaultPlaceIsUsedAndTold) {
    const std::string requiring = Masthead("1");
    const std::string told = InOwnProcess([&]() -> std::string {
        if (!EnterNamespaceOfItsOwn() || mount("none", "/etc/opt", "tmpfs", 0, nullptr) != 0) {
            return "not here";
        }
        std::filesystem::create_directories("/etc/opt/OSLClient");
        std::filesystem::copy(requiring, "/etc/opt/OSLClient/actionsite.aqzm");
        Environment environment = ExampleAgent();
        environment.erase("OSLClientActionMastheadPath");
        environment["OSL_LIBPATH"] = fakes + "/lacking";
        const Ended ended = Started(environment);
        return std::to_string(ended.status) + " " + ended.errors;
    });
    // The default place lies in /etc: only in a mount namespace of its own can a test put a masthead there.
    if (told == "not here") {
        GTEST_SKIP() << "this machine gives no mount namespace";
    }
    EXPECT_EQ(told, std::string("255 OSLClientActionMastheadPath not set, using /etc/opt/OSLClient/actionsite.aqzm\n") +
                        noLibrary);
}

}  // namespace
