// The crypto library's one initialisation, its FIPS mode and its end.
#include "foundation/crypto.h"

#include <gtest/gtest.h>

#include <thread>

#include "foundation/crypto_library.h"
#include "foundation/crypto_names.h"
#include "foundation/crypto_wrappers.h"
#include "foundation/file_error.h"
#include "foundation/sha1.h"
#include "tests/foundation/own_process.h"
#include "tests/foundation/temporary_place.h"

namespace {

const std::string binFolder = ZENDRY_BIN_FOLDER;
const std::string fakes = ZENDRY_CRYPTO_FAKES;
const std::string abc = "a9993e364706816aba3e25717850c26c9cd0d89d";

FileLocation Fake(const char* name) { return FileLocation(fakes + "/" + name); }
FileLocation Real() { return FileLocation(binFolder); }
std::string Sha1(std::string_view text) { return std::string(Sha1OfBytes(ConstData(text)).View()); }

// The class and the text of what Initialise throws.
std::string Initialise(bool fips, const FileLocation& location) {
    try {
        Crypto::Initialise(fips, &location);
        return "initialised";
    } catch (const Crypto_wrapper_load_library_Failed& failure) {
        return std::string("library: ") + failure.what();
    } catch (const Crypto_wrapper_load_function_Failed& failure) {
        return std::string("function ") + failure.FunctionName() + ": " + failure.what();
    } catch (const CRYPTO_set_mem_functions_Failed& failure) {
        return std::string("memory: ") + failure.what();
    } catch (const OSL_FIPS_mode_set_Failed& failure) {
        return std::string("mode: ") + failure.what();
    } catch (const InvalidStats&) {
        return "InvalidStats";
    }
}

// A process without settings of OpenSSL's or ours, with the provider for FIPS mode or without one.
template <class Function>
std::string Asked(Function function, const char* providers = "/nowhere") {
    return InOwnProcess([&] {
        unsetenv("OSL_LIBPATH");
        setenv("OPENSSL_MODULES", providers, 1);
        return std::string(function());
    });
}

// What was told between the two lines "--".
std::string Between(const std::string& told) {
    const size_t begin = told.find("--\n") + 3;
    return told.substr(begin, told.find("--\n", begin) - begin);
}

const std::string withProvider = fakes + "/providers";

TEST(Crypto, IsNotInitialisedAtFirst) {
    EXPECT_EQ(Asked([] {
                  std::string told = Crypto::IsInitialised() ? "yes" : "no";
                  told += Crypto::CurrentFipsMode() ? " on" : " off";
                  told += " [" + std::string(Crypto::LibraryName()) + "] ";
                  try {
                      Crypto::RequireInitialised();
                  } catch (const OpenSSLNotInitialized& failure) {
                      told += failure.what();
                  }
                  return told;
              }),
              "no off [] OpenSSLNotInitialized");
    EXPECT_THROW(Sha1OfBytes(ConstData()), OpenSSLNotInitialized);
    EXPECT_THROW(Sha1Receiver(), OpenSSLNotInitialized);
    EXPECT_THROW(Crypto::LibraryVersion(), OpenSSLNotInitialized);
}

TEST(Crypto, IsReadyOnceInitialised) {
    EXPECT_EQ(Asked([] {
                  std::string told = Initialise(false, Real());
                  told += Crypto::IsInitialised() ? " yes" : " no";
                  told += Crypto::CurrentFipsMode() ? " on " : " off ";
                  told += Crypto::LibraryName();
                  told += Crypto::PlainLoaded() && !Crypto::FipsLoaded() ? " plain " : " ? ";
                  told += std::string(Crypto::LibraryVersion()).substr(0, 9) + " ";
                  Crypto::RequireInitialised();
                  return told + Sha1("abc");
              }),
              "initialised yes off " + std::string(kCryptoLibrary) + " plain OpenSSL 3 " + abc);
}

TEST(Crypto, AFileAsLocationStandsForItsFolder) {
    EXPECT_EQ(Asked([] { return Initialise(false, FileLocation(binFolder + "/foundation_tests")); }), "initialised");
}

TEST(Crypto, ALocationThatIsNotThereIsInvalid) {
    const TemporaryPlace place;
    EXPECT_EQ(Asked([&] { return Initialise(false, place.Location("nothing")); }), "InvalidStats");
    // Before the environment is looked at.
    EXPECT_EQ(InOwnProcess([&] {
                  setenv("OSL_LIBPATH", binFolder.c_str(), 1);
                  return Initialise(false, place.Location("nothing"));
              }),
              "InvalidStats");
}

TEST(Crypto, NoLocationIsNoFolder) {
    EXPECT_EQ(Asked([] {
                  Crypto::Initialise(false, nullptr);
                  return "";
              }).substr(0, 67),
              "threw Dynamic library failed to load (/opt/OSLClient/bin/libOSLcryp");
    EXPECT_EQ(InOwnProcess([] {
                  setenv("OSL_LIBPATH", binFolder.c_str(), 1);
                  Crypto::Initialise(false, nullptr);
                  return Sha1("abc");
              }),
              abc);
}

TEST(Crypto, AMissingLibraryIsToldWithItsPath) {
    const TemporaryPlace place;
    const std::string path = place.Path(std::string(kCryptoLibrary) + kCryptoSuffix);
    EXPECT_EQ(Asked([&] {
                  std::string told = Initialise(false, place.Location()) + (Crypto::IsInitialised() ? " yes" : " no");
                  return told + " " + Initialise(false, Real());
              }),
              "library: Dynamic library failed to load (" + path + "): " + path +
                  ": cannot open shared object file: No such file or directory no initialised");
}

TEST(Crypto, AMissingFunctionIsToldWithItsName) {
    EXPECT_EQ(Asked([] { return Initialise(false, Fake("lacking")) + (Crypto::IsInitialised() ? " yes" : " no"); }),
              "function EVP_sha1: Failed to load crypto function 'EVP_sha1' from library '" + fakes + "/lacking/" +
                  kCryptoLibrary + kCryptoSuffix + "'. no");
}

TEST(Crypto, AnUnloadFailureHasItsWords) {
    EXPECT_STREQ(Crypto_wrapper_unload_library_Failed("/x/lib.so").what(),
                 "Failed to unload dynamic library '/x/lib.so'");
}

TEST(Crypto, MemoryFunctionsThatAreRefusedFailTheStart) {
    EXPECT_EQ(
        Asked([] { return Initialise(false, Fake("refusing_memory")) + (Crypto::IsInitialised() ? " yes" : " no"); }),
        "memory: CRYPTO_set_mem_functions_Failed no");
}

// The order of the calls, the three attempts at random bytes, and the end of the process.
TEST(Crypto, StartsAndEndsInItsOrder) {
    EXPECT_EQ(Asked([] { return Initialise(false, Fake("telling")) + "\n"; }),
              "CRYPTO_num_locks\n"
              "ERR_load_crypto_strings\n"
              "OPENSSL_add_all_algorithms_noconf\n"
              "RAND_status\nRAND_poll\nRAND_status\nRAND_poll\nRAND_status\nRAND_poll\n"
              "FIPS_mode\n"
              "initialised\n"
              "EVP_cleanup\nERR_remove_state(0)\nERR_free_strings\nCRYPTO_cleanup_all_ex_data\n");
}

TEST(Crypto, ASecondStartInTheSameModeOnlyComparesTheMode) {
    EXPECT_EQ(Between(Asked([] {
                  Initialise(false, Fake("telling"));
                  std::fputs("--\n", stderr);
                  return Initialise(false, Fake("telling")) + "\n--\n";
              })),
              "FIPS_mode\nFIPS_mode\ninitialised\n");
}

TEST(Crypto, ARefusedModeIsTurnedOffAgain) {
    const std::string told = Asked([] { return Initialise(true, Fake("telling_fips")) + "\n--\n"; });
    EXPECT_NE(told.find("FIPS_mode\n"
                        "OSL_FIPS_mode_set(1, 00.., 20)\n"
                        "OSL_FIPS_mode_set(0, 00.., 20)\n"
                        "mode: OSL_FIPS_mode_set_Failed\n"
                        "--\n"
                        "EVP_cleanup\n"),
              std::string::npos)
        << told;
}

TEST(Crypto, AnotherModeCleansUpAndStartsAgain) {
    const std::string told = Asked([] {
        Initialise(false, Fake("telling"));
        std::fputs("--\n", stderr);
        return Initialise(true, Fake("telling_fips")) + "\n";
    });
    EXPECT_NE(told.find("--\nFIPS_mode\n"
                        "EVP_cleanup\nERR_remove_state(0)\nERR_free_strings\nCRYPTO_cleanup_all_ex_data\n"
                        "CRYPTO_num_locks\n"),
              std::string::npos)
        << told;
}

TEST(Crypto, AModeWhoseLibraryIsMissingLeavesNothingInitialised) {
    const TemporaryPlace place;
    EXPECT_EQ(Asked([&] {
                  Initialise(false, Real());
                  std::string told = Initialise(true, place.Location()).substr(0, 8);
                  told += Crypto::IsInitialised() ? " yes " : " no ";
                  told += Crypto::LibraryName();
                  std::thread([] { EXPECT_THROW(Crypto::RequireInitialised(), OpenSSLNotInitialized); }).join();
                  told += Initialise(true, Fake("lacking_fips")).substr(0, 18);
                  told += Initialise(false, Real());
                  return told + " " + Sha1("abc");
              }),
              "library: no function EVP_sha1:initialised " + abc);
}

TEST(Crypto, ALibraryThatIsInTheModeAlreadyIsLeftInIt) {
    EXPECT_EQ(Asked([] { return Initialise(true, Fake("already_in_mode")); }), "initialised");
}

TEST(Crypto, WithoutTheProviderFipsModeFailsAndTheLibraryGoesOn) {
    EXPECT_EQ(Asked([] {
                  std::string told = Initialise(true, Real());
                  told += Crypto::IsInitialised() ? " yes" : " no";
                  told += Crypto::CurrentFipsMode() ? " on " : " off ";
                  told += Crypto::LibraryName();
                  told += Crypto::FipsLoaded() && !Crypto::PlainLoaded() ? " fips " : " ? ";
                  return told + Sha1("abc");
              }),
              "mode: OSL_FIPS_mode_set_Failed yes off " + std::string(kCryptoFipsLibrary) + " fips " + abc);
}

TEST(Crypto, WithTheProviderFipsModeIsEnteredAndLeft) {
    EXPECT_EQ(Asked(
                  [] {
                      std::string told = Initialise(true, Real());
                      told += Crypto::CurrentFipsMode() ? " on " : " off ";
                      told += Sha1("abc") + " ";
                      told += Initialise(true, Real()) + " ";
                      told += Initialise(false, Real());
                      told += Crypto::CurrentFipsMode() ? " on " : " off ";
                      told += Crypto::LibraryName();
                      told += Crypto::FipsLoaded() && Crypto::PlainLoaded() ? " both " : " ? ";
                      return told + Sha1("abc");
                  },
                  withProvider.c_str()),
              "initialised on " + abc + " initialised initialised off " + std::string(kCryptoLibrary) + " both " + abc);
}

TEST(Crypto, TheSelfTestChecksTheProgramsConstant) {
    EXPECT_EQ(Asked(
                  [] {
                      CryptoLoadStatus status;
                      CryptoLibrary::Load(status, true, binFolder.c_str());
                      const unsigned char wrong[20] = {};
                      std::string told;
                      told += std::to_string(Crypto_wrapper_OSL_FIPS_mode_set(1, wrong, sizeof wrong));
                      told += std::to_string(Crypto_wrapper_FIPS_mode());
                      told += std::to_string(Crypto_wrapper_OSL_FIPS_mode_set(1, nullptr, 0));
                      told += std::to_string(Crypto_wrapper_FIPS_mode_set(1));
                      told += std::to_string(Crypto_wrapper_FIPS_mode());
                      Crypto_wrapper_ERR_clear_error();
                      told += std::to_string(Crypto_wrapper_OSL_FIPS_mode_set(1, wrong, sizeof wrong));
                      told += " " + std::to_string(Crypto_wrapper_ERR_get_error()) + " ";
                      told += std::to_string(Crypto_wrapper_FIPS_mode_set(0));
                      told += std::to_string(Crypto_wrapper_FIPS_mode());
                      return told;
                  },
                  withProvider.c_str()),
              "000110 102 10");
}

TEST(Crypto, ThePlainBuildNeverEntersFipsMode) {
    EXPECT_EQ(Asked(
                  [] {
                      Initialise(false, Real());
                      std::string told = std::to_string(Crypto_wrapper_FIPS_mode_set(1));
                      char text[200];
                      Crypto_wrapper_ERR_error_string_n(Crypto_wrapper_ERR_get_error(), text, sizeof text);
                      return told + std::to_string(Crypto_wrapper_FIPS_mode()) + " " + text;
                  },
                  withProvider.c_str()),
              "00 error:0788010C:common libcrypto routines::unsupported");
}

TEST(Crypto, TheLocksAreTheProgramsOwn) {
    EXPECT_EQ(Asked([] {
                  Initialise(false, Real());
                  int count = 0;
                  const auto addMany = [&] {
                      for (int i = 0; i < 20000; ++i) {
                          Crypto_wrapper_CRYPTO_lock(CRYPTO_LOCK | CRYPTO_WRITE, 1, "", 0);
                          ++count;
                          Crypto_wrapper_CRYPTO_lock(CRYPTO_UNLOCK | CRYPTO_WRITE, 1, "", 0);
                      }
                  };
                  std::thread other(addMany);
                  addMany();
                  other.join();
                  // Numbers that there is no lock of are nobody's.
                  Crypto_wrapper_CRYPTO_lock(CRYPTO_LOCK, -1, "", 0);
                  Crypto_wrapper_CRYPTO_lock(CRYPTO_LOCK, 1000, "", 0);
                  const bool known = Crypto_wrapper_CRYPTO_thread_id() == static_cast<unsigned long>(pthread_self());
                  return std::to_string(count) + (known ? " known" : " unknown");
              }),
              "40000 known");
}

TEST(Crypto, AThreadThatUsedTheLibraryCleansUpWhenItEnds) {
    EXPECT_EQ(Between(Asked([] {
                  Initialise(false, Fake("telling"));
                  std::fputs("--\n", stderr);
                  std::thread([] {}).join();
                  std::fputs("unused\n", stderr);
                  std::thread([] { Crypto::RequireInitialised(); }).join();
                  return "--\n";
              })),
              "unused\nERR_remove_state(0)\n");
}

TEST(Crypto, KnowsTheProductsIdentifiers) {
    EXPECT_EQ(Asked([] {
                  Initialise(false, Real());
                  Initialise(false, Real());
                  char text[100];
                  std::string told;
                  for (const char* name : {"oslSiteSigner", "oslActionSigner", "oslReportReader"}) {
                      const int number = Crypto_wrapper_OBJ_sn2nid(name);
                      Crypto_wrapper_OBJ_obj2txt(text, sizeof text, Crypto_wrapper_OBJ_nid2obj(number), 1);
                      told += std::string(text) + " " + Crypto_wrapper_OBJ_nid2ln(number) + "\n";
                  }
                  return told;
              }),
              "2.25.246232752637573608372798174553650441089.1 OSL site signer\n"
              "2.25.246232752637573608372798174553650441089.2 OSL action signer\n"
              "2.25.246232752637573608372798174553650441089.3 OSL report reader\n");
}

}  // namespace
