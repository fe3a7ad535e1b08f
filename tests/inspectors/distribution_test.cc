// The distribution probing over crafted files: every row, the order of the places, and every fall-through.
#include "inspectors/distribution.h"

#include <gtest/gtest.h>

#include <map>

#include "tests/foundation/temporary_place.h"

namespace {

using Files = std::map<std::string, std::string>;

// Name, version and code name, with "|" between.
std::string Probed(const Files& files) {
    const Distribution found = ProbeDistribution([&](const char* path, size_t most) -> std::optional<std::string> {
        const auto file = files.find(path);
        if (file == files.end()) {
            return std::nullopt;
        }
        return file->second.substr(0, most);
    });
    return found.name + "|" + found.version + "|" + found.codename;
}

constexpr const char* kVMware = "/proc/vmware/version";
constexpr const char* kOracle = "/etc/enterprise-release";
constexpr const char* kRedHat = "/etc/redhat-release";
constexpr const char* kSuse = "/etc/SuSE-release";
constexpr const char* kKernel = "/proc/version";
constexpr const char* kDebian = "/etc/debian_version";
constexpr const char* kUbuntu = "/etc/lsb-release";

TEST(Distribution, OfVMwareIsItsFirstLine) {
    EXPECT_EQ(Probed({{kVMware, "VMware ESX Server 3.0.1 [Releasebuild-32039], built on x\nmore\n"}}),
              "VMware ESX Server 3.0.1||");
    EXPECT_EQ(Probed({{kVMware, "VMware ESX 4[x]\n"}}), "VMware ESX 4||");
    EXPECT_EQ(Probed({{kVMware, "VMware ESX  [x]\n"}}), "VMware ESX ||");
    EXPECT_EQ(Probed({{kVMware, "VMware ESX 4\n"}}), "VMware ESX 4||");
    EXPECT_EQ(Probed({{kVMware, "vmware ESX 4\n"}}), "||");
    EXPECT_EQ(Probed({{kVMware, ""}}), "||");
}

TEST(Distribution, OfOracleIsCutAtItsParentheses) {
    EXPECT_EQ(Probed({{kOracle, "Enterprise Linux Enterprise Linux Server release 5.4 (Carthage)\n"}}),
              "Linux Oracle Enterprise Server release 5.4|Server release 5.4|");
    EXPECT_EQ(Probed({{kOracle, "enterprise linux enterprise linux AS(x)"}}), "Linux Oracle Enterprise AS|AS|");
    EXPECT_EQ(Probed({{kOracle, "Enterprise Linux Enterprise Linux 5  (x)\n"}}), "Linux Oracle Enterprise 5 |5 |")
        << "one blank is cut";
    EXPECT_EQ(Probed({{kOracle, "Enterprise Linux Enterprise Linux 5\n"}}), "Linux Oracle Enterprise 5|5|");
    EXPECT_EQ(Probed({{kOracle, "Enterprise Linux AS 4\n"}}), "||");
}

struct PrefixCase {
    const char* path;
    const char* text;
    const char* expected;
};

constexpr PrefixCase kPrefixes[] = {
    {kRedHat, "Red Hat Linux release 9 (Shrike)\n", "Linux Red Hat 9|9|"},
    {kRedHat, "Fedora release 8 (Werewolf)\n", "Linux Fedora 8|8|"},
    {kRedHat, "Fedora Core release 4 (Stentz)\n", "Linux Fedora Core 4|4|"},
    {kRedHat, "Red Hat Enterprise Linux WS release 4 (Nahant)\n", "Linux Red Hat Enterprise WS 4|4|"},
    {kRedHat, "Red Hat Enterprise Linux ES release 4 (Nahant)\n", "Linux Red Hat Enterprise ES 4|4|"},
    {kRedHat, "Red Hat Enterprise Linux AS release 3 (Taroon)\n", "Linux Red Hat Enterprise AS 3|3|"},
    {kRedHat, "Red Hat Enterprise Linux Server release 5.4 (Tikanga)\n", "Linux Red Hat Enterprise Server 5.4|5.4|"},
    {kRedHat, "Red Hat Enterprise Linux Client release 5 (Tikanga)\n", "Linux Red Hat Enterprise Client 5|5|"},
    {kRedHat, "Red Hat Enterprise Linux Workstation release 6.1 (Santiago)\n",
     "Linux Red Hat Enterprise Workstation 6.1|6.1|"},
    {kRedHat, "CentOS release 5.4 (Final)\n", "Linux CentOS 5.4|5.4|"},
    {kRedHat, "CentOS Linux release 7.9.2009 (Core)\n", "Linux CentOS 7.9.2009|7.9.2009|"},
    {kRedHat, "CENTOS RELEASE 5\n", "Linux CentOS 5|5|"},
    {kRedHat, "CentOS release 5", "Linux CentOS 5|5|"},
    {kRedHat, "CentOS release ", "Linux CentOS ||"},
    {kRedHat, "CentOS release\n", "||"},
    {kRedHat, " CentOS release 5\n", "||"},
    {kRedHat, "Red Hat Enterprise Linux release 8.4 (Ootpa)\n", "||"},
    {kRedHat, "Scientific Linux release 6\n", "||"},
    {kSuse, "SUSE Linux Enterprise Server 10 (i586)\nVERSION = 10\n", "Linux SuSE Enterprise Server 10|10|"},
    {kSuse, "SUSE Linux Enterprise Desktop 11 (x86_64)\n", "Linux SuSE Enterprise Desktop 11|11|"},
    {kSuse, "SuSE Linux 9.3 (i586)\n", "Linux SuSE 9.3|9.3|"},
    {kSuse, "SuSE SLES-8 (i386)\n", "Linux SuSE 8|8|"},
    {kSuse, "openSUSE 11.1 (i586)\n", "||"},
};

TEST(Distribution, OfTheRowsIsTheRowsNameAndTheVersion) {
    for (const PrefixCase& row : kPrefixes) {
        EXPECT_EQ(Probed({{row.path, row.text}}), row.expected) << row.text;
    }
}

TEST(Distribution, IsTheFirstPlaceThatAnswers) {
    Files files = {{kVMware, "VMware 1\n"},          {kOracle, "Enterprise Linux Enterprise Linux 2 (x)\n"},
                   {kRedHat, "CentOS release 3\n"},  {kSuse, "SuSE Linux 4\n"},
                   {kKernel, "Linux Debian Ubuntu"}, {kDebian, "5.0\n"},
                   {kUbuntu, "DISTRIB_RELEASE=6\n"}};
    EXPECT_EQ(Probed(files), "VMware 1||");
    files[kVMware] = "other";
    EXPECT_EQ(Probed(files), "Linux Oracle Enterprise 2|2|");
    files[kOracle] = "other";
    EXPECT_EQ(Probed(files), "Linux CentOS 3|3|");
    files[kRedHat] = "other";
    EXPECT_EQ(Probed(files), "Linux SuSE 4|4|");
    files[kSuse] = "other";
    EXPECT_EQ(Probed(files), "Linux Debian 5.0|5.0|lenny");
    files[kDebian] = "";
    EXPECT_EQ(Probed(files), "Linux Ubuntu |6|");
    files.erase(kUbuntu);
    EXPECT_EQ(Probed(files), "||");
    files[kKernel] = "Linux Debian Ubuntu (1) (2) (Debian 4.3-1)";
    EXPECT_EQ(Probed(files), "Linux Debian 4.3-1||");
    files[kKernel] = "";
    EXPECT_EQ(Probed(files), "||");
    EXPECT_EQ(Probed({}), "||");
}

std::string Debian(const std::string& line, const std::string& kernel = "Linux version (Debian)") {
    return Probed({{kKernel, kernel}, {kDebian, line}});
}

TEST(Distribution, OfDebianHasACodeNameForEachRelease) {
    EXPECT_EQ(Debian("6.0.10\n"), "Linux Debian 6.0.10|6.0.10|squeeze");
    EXPECT_EQ(Debian("5.0.3\n"), "Linux Debian 5.0.3|5.0.3|lenny");
    EXPECT_EQ(Debian("4.0\n"), "Linux Debian 4.0|4.0|etch");
    EXPECT_EQ(Debian("3.1\n"), "Linux Debian 3.1|3.1|sarge");
    EXPECT_EQ(Debian("3.0\n"), "Linux Debian 3.0|3.0|woody");
    EXPECT_EQ(Debian("2.2\n"), "Linux Debian 2.2|2.2|potato");
    EXPECT_EQ(Debian("2.1\n"), "Linux Debian 2.1|2.1|slink");
    EXPECT_EQ(Debian("2.0\n"), "Linux Debian 2.0|2.0|hamm");
    EXPECT_EQ(Debian("7.11\n"), "Linux Debian 7.11|7.11|wheezy");
    EXPECT_EQ(Debian("8.11\n"), "Linux Debian 8.11|8.11|jessie");
    EXPECT_EQ(Debian("9.13\n"), "Linux Debian 9.13|9.13|stretch");
    EXPECT_EQ(Debian("10.13\n"), "Linux Debian 10.13|10.13|buster");
    EXPECT_EQ(Debian("11.9\n"), "Linux Debian 11.9|11.9|bullseye");
    EXPECT_EQ(Debian("12.11\n"), "Linux Debian 12.11|12.11|bookworm");
    EXPECT_EQ(Debian("13.1\n"), "Linux Debian 13.1|13.1|trixie");
}

TEST(Distribution, OfDebianOutsideAReleaseIsUnstableOrTesting) {
    EXPECT_EQ(Debian("squeeze/sid\n"), "Linux Debian squeeze|squeeze|unstable");
    EXPECT_EQ(Debian("etch/testing\n"), "Linux Debian etch|etch|testing");
    EXPECT_EQ(Debian("a/testing/sid\n"), "Linux Debian a/testing|a/testing|unstable");
    EXPECT_EQ(Debian("6.0/sid\n"), "Linux Debian 6.0/sid|6.0/sid|squeeze");
    EXPECT_EQ(Debian("99/sid\n"), "Linux Debian 99|99|unstable");
    EXPECT_EQ(Debian("future\n"), "Linux Debian ||");
}

TEST(Distribution, OfDebianTakesTheFirstLineWithoutItsBlanks) {
    EXPECT_EQ(Debian(" \t5.0.3 \r\n6.0\n"), "Linux Debian 5.0.3|5.0.3|lenny");
    EXPECT_EQ(Debian("\n5.0\n"), "Linux Debian ||");
    EXPECT_EQ(Debian("5.0\n", "GNU (Debian)"), "Debian 5.0|5.0|lenny");
}

std::string Ubuntu(const std::string& text, const std::string& kernel = "Linux version 2.6 (Ubuntu 4.4)") {
    return Probed({{kKernel, kernel}, {kUbuntu, text}});
}

TEST(Distribution, OfUbuntuIsItsDescription) {
    EXPECT_EQ(Ubuntu("DISTRIB_ID=Ubuntu\nDISTRIB_RELEASE=10.04\nDISTRIB_CODENAME=lucid\n"
                     "DISTRIB_DESCRIPTION=\"Ubuntu 10.04.1 LTS\"\n"),
              "Linux Ubuntu 10.04.1 LTS|10.04|lucid");
    EXPECT_EQ(Ubuntu("DISTRIB_DESCRIPTION=Ubuntu 8\n", "Linux 2.6-server, (Ubuntu)"), "Linux Ubuntu 8||");
    EXPECT_EQ(Ubuntu("DISTRIB_DESCRIPTION=Ubuntu 8\n", "Linux 2.6-server x (Ubuntu)"), "Linux Ubuntu Server 8||");
    EXPECT_EQ(Ubuntu("DISTRIB_DESCRIPTION=Ubuntu 8\n", "Linux 2.6-pae x (Ubuntu)"), "Linux Ubuntu Server 8||");
    EXPECT_EQ(Ubuntu("DISTRIB_DESCRIPTION=Ubuntu 8\n", "other (Ubuntu)"), "Ubuntu 8||");
    EXPECT_EQ(Ubuntu("DISTRIB_DESCRIPTION=Kubuntu 8\n"), "Linux Ubuntu ||");
    EXPECT_EQ(Ubuntu("DISTRIB_RELEASE=a=b\nDISTRIB_CODENAME=x\nnothing\n"), "Linux Ubuntu ||x");
    EXPECT_EQ(Ubuntu("DISTRIB_RELEASE=\"\"\nDISTRIB_CODENAME=\"y\""), "Linux Ubuntu |\"\"|y");
    EXPECT_EQ(Ubuntu("DISTRIB_RELEASE=\"9\r\nDISTRIB_CODENAME=z\r\n"), "Linux Ubuntu |\"9|z");
}

std::string Note(const std::string& kernel) { return Probed({{kKernel, kernel}}); }

TEST(Distribution, OfTheCompilersNoteIsInTheThirdParentheses) {
    EXPECT_EQ(Note("Linux version 2.6.9 (builder) (gcc version 3.4.6 (Gentoo 3.4.6-r1)) #1"),
              "Linux Gentoo 3.4.6-r1||");
    EXPECT_EQ(Note("Linux (a) (gcc (Red Hat Linux 3.2.3-42)) #1"), "Linux Red Hat 3.2.3-42||");
    EXPECT_EQ(Note("Linux (a) (gcc (Slackware 13 extra words))"), "Linux Slackware 13||");
    EXPECT_EQ(Note("Linux (a) (gcc (4.4 x)"), "Linux 4.4 x||");
    EXPECT_EQ(Note("Linux (a) (gcc (Arch"), "Linux Arch||");
    EXPECT_EQ(Note("Linux (a) (gcc (LINUX "), "Linux ||");
    EXPECT_EQ(Note("Linux (a) (gcc (LINUX"), "Linux LINUX||");
    EXPECT_EQ(Note("Linux (a) (b) ("), "Linux ||");
    EXPECT_EQ(Note("Linux (a) (b)"), "||");
    EXPECT_EQ(Note("Linux (a) (gcc (Linux Linux Arch 4.1\t5)"), "Linux Linux Arch 4.1||") << "the first alone goes";
    EXPECT_EQ(Note("Linux (a) (gcc (x4 y\t5z w)"), "Linux x4 y\t5z||") << "the number stands behind a blank";
    EXPECT_EQ(Note("Linux (a) (gcc ( 4 x)"), "Linux  4||") << "a blank may be the first byte";
    EXPECT_EQ(Note("Linux (a) (gcc (4 5 x)"), "Linux 4 5||");
    EXPECT_EQ(Note("Linux"), "||");
}

TEST(Distribution, ReadsNoMoreThanItsBytes) {
    std::map<std::string, size_t> asked;
    const Files files = {{kKernel, "Linux (Debian) (Ubuntu)"}};
    ProbeDistribution([&](const char* path, size_t most) -> std::optional<std::string> {
        asked[path] = most;
        const auto file = files.find(path);
        return file == files.end() ? std::nullopt : std::optional(file->second);
    });
    EXPECT_EQ(asked, (std::map<std::string, size_t>{{kVMware, 1023},
                                                    {kOracle, 1023},
                                                    {kRedHat, 1023},
                                                    {kSuse, 1023},
                                                    {kKernel, 1023},
                                                    {kDebian, 1023},
                                                    {kUbuntu, 2047}}));
    EXPECT_EQ(Probed({{kRedHat, "CentOS release " + std::string(2000, '7')}}),
              "Linux CentOS " + std::string(1023 - 15, '7') + "|" + std::string(1023 - 15, '7') + "|");
}

TEST(ReleaseFile, IsReadUpToTheBytesThatAreAskedFor) {
    const TemporaryPlace place;
    place.File("release", "0123456789");
    const std::string path = place.Path("release");
    EXPECT_EQ(ReadReleaseFile(path.c_str(), 9), "012345678");
    EXPECT_EQ(ReadReleaseFile(path.c_str(), 10), "0123456789");
    EXPECT_EQ(ReadReleaseFile(path.c_str(), 11), "0123456789");
    place.File("empty");
    EXPECT_EQ(ReadReleaseFile(place.Path("empty").c_str(), 1023), "");
    EXPECT_EQ(ReadReleaseFile(place.Path("gone").c_str(), 1023), std::nullopt);
    EXPECT_EQ(ReadReleaseFile(place.Path().c_str(), 1023), "") << "a folder opens and gives nothing";
}

}  // namespace
