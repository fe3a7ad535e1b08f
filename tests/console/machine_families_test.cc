// The families of machine inspectors that are settled by the agent's configuration: whether they are switched off, and
// where the firmware's table is kept.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/console/program_run.h"
#include "tests/foundation/temporary_place.h"

namespace {

using testing::HasSubstr;
using testing::Not;

class MachineFamilies : public testing::Test {
protected:
    MachineFamilies() { place.Folder("data"); }

    // What the console answers under a configuration with this storage location, and each switch set to a value.
    std::string Asked(const std::string& question, const std::string& switches) const {
        std::string configuration =
            "[Software\\Ostrel\\EnterpriseClient\\GlobalOptions]\nStoragePath = " + place.Path("data") + "\n";
        for (const char* name : {"DMI", "DebianPackage"}) {
            if (!switches.empty()) {
                configuration += "[Software\\Ostrel\\EnterpriseClient\\Settings\\Client\\_OSLClient_Inspector_Disable" +
                                 std::string(name) + "]\nvalue = " + switches + "\n";
            }
        }
        Environment environment = ExampleAgent();
        environment["OSLClientConfigPath"] = place.File("client.conf", configuration).CString();
        place.File("asked", "Q: " + question + "\n");
        Program program({place.Path("asked")}, Program::Input::Closed, place.Path(), environment);
        EXPECT_EQ(program.Status(), 0);
        EXPECT_EQ(program.errors, "");
        return program.output;
    }

    const TemporaryPlace place;
};

TEST_F(MachineFamilies, AreSwitchedOffByTheirSettings) {
    place.File("data/info.dmi", "as it was");
    for (const std::string question : {"exists dmi", "exists smbios", "exists vendor of bios_information of dmi"}) {
        EXPECT_EQ(Asked(question, "1"), "Q: " + question + "\nE: dmi inspector is disabled\n\n");
    }
    EXPECT_EQ(Asked("exists debianpackage", "1"),
              "Q: exists debianpackage\nE: debianpackage inspector is disabled\n\n");
    EXPECT_EQ(place.Content("data/info.dmi"), "as it was");
    for (const char* other : {"0", "true", ""}) {
        EXPECT_THAT(Asked("exists dmi", other), Not(HasSubstr("disabled"))) << other;
    }
    EXPECT_THAT(Asked("exists debianpackage", "0"), Not(HasSubstr("disabled")));
}

// Whether the firmware can be read here or not, what an earlier process has left does not stay.
TEST_F(MachineFamilies, TheFirmwaresFileLiesInTheStorageLocation) {
    place.File("data/info.dmi", "as it was");
    EXPECT_EQ(Asked("true or exists dmi", ""), "Q: true or exists dmi\nA: True\n\n");
    EXPECT_EQ(place.Content("data/info.dmi"), "as it was");
    const std::string answer = Asked("exists dmi", "");
    EXPECT_NE(place.Content("data/info.dmi"), "as it was");
    EXPECT_EQ(place.Has("data/info.dmi"), answer.find("A: True") != std::string::npos) << answer;
    if (!place.Has("data/info.dmi")) {
        EXPECT_THAT(answer, HasSubstr("E: dmi inspector error creating dmi.info (")) << answer;
    }
}

}  // namespace
