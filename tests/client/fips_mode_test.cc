// The decision on FIPS mode, what is logged about it, and the record that it leaves.
#include "client/fips_mode.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "client/storage_path.h"
#include "foundation/crypto.h"
#include "foundation/crypto_names.h"
#include "tests/client/configuration.h"
#include "tests/foundation/own_process.h"

namespace {

const std::string fakes = ZENDRY_CRYPTO_FAKES;

void ToStandardError(std::string_view text) { std::fprintf(stderr, "%.*s\n", int(text.size()), text.data()); }

std::string Record() {
    const CryptoStatus& status = FipsStatus();
    return std::string(status.fips ? "on" : "off") + " {" + status.text + "}";
}

class FipsMode : public testing::Test {
protected:
    FipsMode() { files.Client(""); }

    void Setting(const std::string& value) const {
        files.Client(
            "[Software\\Ostrel\\EnterpriseClient\\Settings\\Client\\_OSLClient_Cryptography_FipsMode]\nvalue = " +
            value + "\n");
    }
    FileLocation Masthead(const char* requirement) const {
        return files.Place().File(
            "masthead",
            std::string("Content-Type: multipart/signed; boundary=s\n\n--s\n"
                        "Content-Type: multipart/related; boundary=r; type=\"Application/x-Praxel-Site-Masthead\"\n"
                        "\n--r\nX-OSL-Require-FIPS-Cryptography: ") +
                requirement + "\n\n--r--\n--s--\n");
    }

    // In a process that has no library yet: what is logged, what is returned, and the record, for each of the steps.
    std::string Refreshed(const std::function<void()>& before, const FileLocation& masthead,
                          const char* providers = "/nowhere") const {
        return InOwnProcess([&]() -> std::string {
            unsetenv("OSL_LIBPATH");
            setenv("OPENSSL_MODULES", providers, 1);
            StoragePath::SetExecutableLocation(FileLocation(ZENDRY_BIN_FOLDER));
            ZendryOptionsManager::Instance().Load();
            before();
            const bool done = RefreshFipsMode(masthead, ToStandardError);
            return std::string(done ? "true " : "false ") + Record();
        });
    }

    const Configuration files;
};

std::string Using(const char* library) {
    return "Using crypto library " + InOwnProcess([] {
               const FileLocation folder(ZENDRY_BIN_FOLDER);
               Crypto::Initialise(false, &folder);
               return std::string(Crypto::LibraryVersion());
           }) +
           " - " + library + "\n";
}

TEST_F(FipsMode, IsOffByDefault) {
    EXPECT_EQ(Refreshed([] {}, FileLocation()),
              "FIPS mode disabled by default.\nCryptographic module initialized successfully.\n" +
                  Using(kCryptoLibrary) + "true off {}");
}

TEST_F(FipsMode, IsOffBySetting) {
    Setting("NONE");
    EXPECT_EQ(Refreshed([] {}, Masthead("1")),
              "FIPS mode disabled by setting.\nCryptographic module initialized successfully.\n" +
                  Using(kCryptoLibrary) + "true off {}");
}

TEST_F(FipsMode, IsOnBySetting) {
    Setting("Required");
    EXPECT_EQ(Refreshed([] {}, Masthead("0"), (fakes + "/providers").c_str()),
              "FIPS mode enabled by setting.\nCryptographic module initialized successfully in FIPS mode.\n" +
                  Using(kCryptoFipsLibrary) + "true on {}");
    const std::string refusal = "Cryptographic module failed to initialize required FIPS mode:OSL_FIPS_mode_set_Failed";
    EXPECT_EQ(Refreshed([] {}, Masthead("0")),
              "FIPS mode enabled by setting.\n" + refusal + "\nfalse on {" + refusal + "}");
}

TEST_F(FipsMode, IsOnByMasthead) {
    EXPECT_EQ(Refreshed([] {}, Masthead("1"), (fakes + "/providers").c_str()),
              "FIPS mode enabled by masthead.\nCryptographic module initialized successfully in FIPS mode.\n" +
                  Using(kCryptoFipsLibrary) + "true on {}");
    const std::string refusal = "Cryptographic module failed to enter optional FIPS mode:OSL_FIPS_mode_set_Failed";
    EXPECT_EQ(Refreshed([] {}, Masthead("1")),
              "FIPS mode enabled by masthead.\n" + refusal + "\ntrue on {" + refusal + "}");
}

// A library that will not leave the mode.
TEST_F(FipsMode, ThatCannotBeLeftFailsTheStart) {
    const std::string refusal = "Cryptographic module failed to initialize:OSL_FIPS_mode_set_Failed";
    EXPECT_EQ(Refreshed([] { setenv("OSL_LIBPATH", (fakes + "/staying_in_mode").c_str(), 1); }, FileLocation()),
              "FIPS mode disabled by default.\n" + refusal + "\nfalse off {" + refusal + "}");
}

TEST_F(FipsMode, OfALibraryThatIsInitialisedStays) {
    const auto plain = [&] { RefreshFipsMode(FileLocation(), nullptr); };
    EXPECT_EQ(Refreshed(plain, FileLocation()),
              "FIPS mode disabled by default.\nCryptographic module already initialized.\n"
              "true off {Already in desired FIPS mode.}");
    EXPECT_EQ(Refreshed(plain, Masthead("1")),
              "FIPS mode enabled by masthead.\nFIPS mode changed, restart required.\ntrue off {Restart required.}");
    const auto fips = [&] { RefreshFipsMode(Masthead("1"), nullptr); };
    EXPECT_EQ(Refreshed(fips, Masthead("1"), (fakes + "/providers").c_str()),
              "FIPS mode enabled by masthead.\nCryptographic module already initialized in FIPS mode.\n"
              "true on {Already in desired FIPS mode.}");
}

TEST_F(FipsMode, OtherFailuresReachTheCaller) {
    EXPECT_EQ(Refreshed([&] { StoragePath::SetExecutableLocation(files.Place().Location("missing")); }, FileLocation()),
              "FIPS mode disabled by default.\nthrew File error \"12InvalidStats\"");
}

TEST_F(FipsMode, ASelfTestIsForgottenWithTheNextStart) {
    RecordSelfTest(true, "words");
    EXPECT_TRUE(FipsStatus().selfTestAttempted);
    EXPECT_TRUE(FipsStatus().selfTestPassed);
    EXPECT_EQ(FipsStatus().selfTestText, "words");
    EXPECT_EQ(InOwnProcess([&]() -> std::string {
                  StoragePath::SetExecutableLocation(FileLocation(ZENDRY_BIN_FOLDER));
                  RefreshFipsMode(FileLocation(), nullptr);
                  return FipsStatus().selfTestAttempted ? "kept" : "forgotten";
              }),
              "forgotten");
}

}  // namespace
