// The loader of the crypto library, and its list of functions.
#include "foundation/crypto_library.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <fstream>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "foundation/crypto_names.h"
#include "tests/foundation/own_process.h"
#include "tests/foundation/temporary_place.h"

namespace {

const std::string binFolder = ZENDRY_BIN_FOLDER;
const std::string fakes = ZENDRY_CRYPTO_FAKES;

std::vector<std::string> Names() {
    std::ifstream list(ZENDRY_CRYPTO_LIST);
    std::vector<std::string> names;
    for (std::string name; std::getline(list, name);) {
        names.push_back(name);
    }
    return names;
}

std::string Text(const char* text) { return text == nullptr ? "-" : text; }

// What loading comes to, in the words of the status.
std::string Loaded(bool fips, const char* folder, const char* libPath = nullptr) {
    return InOwnProcess([&] {
        if (libPath != nullptr) {
            setenv("OSL_LIBPATH", libPath, 1);
        } else {
            unsetenv("OSL_LIBPATH");
        }
        CryptoLoadStatus status{7, "stale", "stale", "stale"};
        CryptoLibrary::Load(status, fips, folder);
        return std::to_string(status.code) + " " + Text(status.functionName) + " " + Text(status.libraryPath) + " " +
               (status.loaderMessage == nullptr ? "-" : "message") + " [" + CryptoLibrary::Name() + "]";
    });
}

TEST(CryptoNames, AreTheLinesOfTheListInItsOrder) {
    const std::vector<std::string> names = Names();
    ASSERT_EQ(names.size(), 525u);
    EXPECT_TRUE(std::equal(names.begin(), names.end(), std::begin(kCryptoNames), std::end(kCryptoNames)));
    EXPECT_EQ(names.back(), "pqueue_size");
    EXPECT_EQ(std::set<std::string>(names.begin(), names.end()).size(), names.size());
    EXPECT_EQ(std::count(names.begin(), names.end(), "OSL_FIPS_mode_set"), 1);
}

TEST(CryptoNames, StandByFamiliesInTheirOrder) {
    const std::vector<std::string> families = {
        "sk_",    "BIO_",           "ERR_",  "ASN1_", "BN_",   "BUF_",   "COMP_", "CRYPTO_", "d2i_",
        "i2d_",   "DES_",           "DH_",   "DSA_",  "ECDH_", "ECDSA_", "EC_",   "ENGINE_", "EVP_",
        "FIPS_",  "GENERAL_NAMES_", "HMAC",  "lh_",   "MD4_",  "MD5_",   "OBJ_",  "OCSP_",   "PEM_",
        "PKCS7_", "PKCS12_",        "RAND_", "RSA_",  "SHA",   "SMIME_", "SSL",   "X509"};
    std::vector<std::string> names = Names();
    const std::vector<std::string> beyond(names.end() - 3, names.end());
    EXPECT_EQ(beyond,
              (std::vector<std::string>{"OPENSSL_add_all_algorithms_noconf", "OSL_FIPS_mode_set", "pqueue_size"}));
    names.resize(names.size() - 3);
    size_t family = 0;
    std::set<size_t> seen;
    for (const std::string& name : names) {
        while (family < families.size() && name.compare(0, families[family].size(), families[family]) != 0) {
            ++family;
        }
        ASSERT_LT(family, families.size()) << name << " stands in no family, or behind its own";
        seen.insert(family);
    }
    EXPECT_EQ(seen.size(), families.size());
}

TEST(CryptoNames, AllResolveInBothBuilds) {
    for (const char* library : {kCryptoLibrary, kCryptoFipsLibrary}) {
        EXPECT_EQ(InOwnProcess([&] {
                      const std::string path = binFolder + "/" + library + kCryptoSuffix;
                      void* const handle = dlopen(path.c_str(), RTLD_NOW);
                      std::string missing = handle == nullptr ? dlerror() : "";
                      for (const std::string& name : Names()) {
                          if (handle != nullptr && dlsym(handle, name.c_str()) == nullptr) {
                              missing += name + " ";
                          }
                      }
                      return missing;
                  }),
                  "")
            << library;
    }
}

TEST(CryptoLibrary, FillsTheWholeTable) {
    EXPECT_EQ(InOwnProcess([] {
                  CryptoLoadStatus status;
                  CryptoLibrary::Load(status, false, binFolder.c_str());
                  const auto empty =
                      std::count(std::begin(CryptoLibrary::table), std::end(CryptoLibrary::table), nullptr);
                  return std::to_string(status.code) + " " + std::to_string(empty);
              }),
              "0 0");
}

TEST(CryptoLibrary, LeavesTheLastNameOutInFipsMode) {
    EXPECT_EQ(InOwnProcess([] {
                  CryptoLoadStatus status;
                  CryptoLibrary::Load(status, true, binFolder.c_str());
                  const auto empty =
                      std::count(std::begin(CryptoLibrary::table), std::end(CryptoLibrary::table), nullptr);
                  return std::to_string(status.code) + " " + std::to_string(empty) +
                         (CryptoLibrary::table[524] == nullptr ? " the last" : "");
              }),
              "0 1 the last");
    EXPECT_EQ(Loaded(true, (fakes + "/lacking_queue_fips").c_str()),
              "0 - - - [" + std::string(kCryptoFipsLibrary) + "]");
    EXPECT_EQ(
        Loaded(false, (fakes + "/lacking_queue").c_str()),
        "2 pqueue_size " + fakes + "/lacking_queue/" + kCryptoLibrary + kCryptoSuffix + " - [" + kCryptoLibrary + "]");
}

TEST(CryptoLibrary, ReportsTheFirstMissingFunctionAlone) {
    EXPECT_EQ(Loaded(false, (fakes + "/lacking").c_str()),
              "2 EVP_sha1 " + fakes + "/lacking/" + kCryptoLibrary + kCryptoSuffix + " - [" + kCryptoLibrary + "]");
    EXPECT_EQ(InOwnProcess([] {
                  CryptoLoadStatus status;
                  CryptoLibrary::Load(status, false, (fakes + "/lacking").c_str());
                  const auto missing = static_cast<size_t>(
                      std::find(std::begin(kCryptoNames), std::end(kCryptoNames), std::string("EVP_sha1")) -
                      std::begin(kCryptoNames));
                  for (size_t place = 0; place < CryptoLibrary::kFunctions; ++place) {
                      if ((CryptoLibrary::table[place] == nullptr) != (place >= missing)) {
                          return std::string(kCryptoNames[place]);
                      }
                  }
                  return std::string("none is looked up behind it");
              }),
              "none is looked up behind it");
}

TEST(CryptoLibrary, TellsThePathAndTheLoadersMessage) {
    const TemporaryPlace place;
    const std::string file = "/" + std::string(kCryptoLibrary) + kCryptoSuffix;
    EXPECT_EQ(Loaded(false, place.Path().c_str()), "1 - " + place.Path() + file + " message []");
    place.File(std::string(kCryptoLibrary) + kCryptoSuffix, "no library");
    EXPECT_EQ(Loaded(false, place.Path().c_str()), "1 - " + place.Path() + file + " message []");
}

TEST(CryptoLibrary, PutsOneSlashBetweenFolderAndName) {
    const std::string file = std::string(kCryptoFipsLibrary) + kCryptoSuffix;
    EXPECT_EQ(Loaded(true, "/nowhere"), "1 - /nowhere/" + file + " message []");
    EXPECT_EQ(Loaded(true, "/nowhere/"), "1 - /nowhere/" + file + " message []");
    EXPECT_EQ(Loaded(true, "/nowhere//"), "1 - /nowhere//" + file + " message []");
    EXPECT_EQ(Loaded(true, "/"), "1 - /" + file + " message []");
    EXPECT_EQ(Loaded(true, ""), "1 - " + file + " message []");
    EXPECT_EQ(Loaded(true, nullptr), "1 - /opt/OSLClient/bin/" + file + " message []");
}

TEST(CryptoLibrary, TheEnvironmentBeatsTheFolder) {
    const std::string file = std::string(kCryptoLibrary) + kCryptoSuffix;
    EXPECT_EQ(Loaded(false, binFolder.c_str(), "/x"), "1 - /x/" + file + " message []");
    EXPECT_EQ(Loaded(false, binFolder.c_str(), "/x/"), "1 - /x/" + file + " message []");
    EXPECT_EQ(Loaded(false, binFolder.c_str(), "/"), "1 - /" + file + " message []");
    EXPECT_EQ(Loaded(false, nullptr, "/x"), "1 - /x/" + file + " message []");
    EXPECT_EQ(Loaded(false, "/nowhere", binFolder.c_str()), "0 - - - [" + std::string(kCryptoLibrary) + "]");
}

TEST(CryptoLibrary, AnEmptyValueOfTheEnvironmentIsAnEmptyFolder) {
    const std::string file = std::string(kCryptoLibrary) + kCryptoSuffix;
    EXPECT_EQ(Loaded(false, binFolder.c_str(), ""), "1 - " + file + " message []");
}

// The loader takes its places from the environment that a process begins with, so a program has to begin.
TEST(CryptoLibrary, AnEmptyFolderLeavesTheSearchToTheLoader) {
    const auto search = [](const std::string& places) {
        return InOwnProcess([&] {
            setenv("OSL_LIBPATH", "", 1);
            setenv("LD_LIBRARY_PATH", places.c_str(), 1);
            execl(ZENDRY_CRYPTO_LOADER, ZENDRY_CRYPTO_LOADER, binFolder.c_str(), nullptr);
            return "not run";
        });
    };
    const std::string file = std::string(kCryptoLibrary) + kCryptoSuffix;
    EXPECT_EQ(search(binFolder), "0 -\n");
    EXPECT_EQ(search("/nowhere"), "1 " + file + "\n");
}

TEST(CryptoLibrary, ForgetsWithoutClosing) {
    EXPECT_EQ(InOwnProcess([] {
                  CryptoLoadStatus status;
                  CryptoLibrary::Load(status, false, binFolder.c_str());
                  const std::string path = binFolder + "/" + kCryptoLibrary + kCryptoSuffix;
                  CryptoLibrary::Unload();
                  return std::string(CryptoLibrary::Name()) +
                         (dlopen(path.c_str(), RTLD_NOW | RTLD_NOLOAD) == nullptr ? "closed" : "still there");
              }),
              "still there");
}

}  // namespace
