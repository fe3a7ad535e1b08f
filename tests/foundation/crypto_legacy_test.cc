// What the old interface's functions mean on top of OpenSSL 3.
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <thread>

#include "foundation/crypto_library.h"
#include "foundation/crypto_names.h"
#include "foundation/crypto_wrappers.h"
#include "tests/foundation/own_process.h"

namespace {

// In a process that has loaded the library and initialised nothing.
template <class Function>
std::string Loaded(Function function) {
    return InOwnProcess([&] {
        CryptoLoadStatus status;
        CryptoLibrary::Load(status, false, ZENDRY_BIN_FOLDER);
        return status.code == 0 ? std::string(function()) : std::string("not loaded");
    });
}

std::string Hexadecimal(const unsigned char* bytes, unsigned length) {
    std::string text;
    for (unsigned i = 0; i < length; ++i) {
        constexpr char digits[] = "0123456789abcdef";
        text += digits[bytes[i] >> 4];
        text += digits[bytes[i] & 15];
    }
    return text;
}

int allocations = 0;
int reallocations = 0;
int releases = 0;
void* CountedAllocate(size_t size) { return ++allocations, std::malloc(size); }
void* CountedReallocate(void* memory, size_t size) { return ++reallocations, std::realloc(memory, size); }
void CountedRelease(void* memory) { return ++releases, std::free(memory); }

TEST(CryptoLegacy, MemoryFunctionsAreCalledAndFixedByTheFirstAllocation) {
    EXPECT_EQ(Loaded([] {
                  std::string told;
                  told += std::to_string(Crypto_wrapper_CRYPTO_set_mem_functions(nullptr, std::realloc, std::free));
                  told += std::to_string(
                      Crypto_wrapper_CRYPTO_set_mem_functions(CountedAllocate, CountedReallocate, CountedRelease));
                  void* memory = Crypto_wrapper_CRYPTO_malloc(10, "", 0);
                  memory = Crypto_wrapper_CRYPTO_realloc(memory, 1000, "", 0);
                  Crypto_wrapper_CRYPTO_free(memory);
                  told += allocations == 1 && reallocations == 1 && releases == 1 ? " ours" : " not ours";
                  Crypto_wrapper_BN_free(Crypto_wrapper_BN_new());
                  told += allocations > 1 && releases > 1 ? " its own " : " not its own ";
                  void* (*allocate)(size_t) = nullptr;
                  void (*release)(void*) = nullptr;
                  Crypto_wrapper_CRYPTO_get_mem_functions(&allocate, nullptr, &release);
                  told += allocate == CountedAllocate && release == CountedRelease ? "told " : "not told ";
                  // Too late for others; what is in use may be asked for again.
                  told += std::to_string(Crypto_wrapper_CRYPTO_set_mem_functions(std::malloc, std::realloc, std::free));
                  told += std::to_string(
                      Crypto_wrapper_CRYPTO_set_mem_functions(CountedAllocate, CountedReallocate, CountedRelease));
                  return told;
              }),
              "01 ours its own told 01");
}

TEST(CryptoLegacy, NoMemoryIsGivenForNoLength) {
    EXPECT_EQ(Loaded([] {
                  return Crypto_wrapper_CRYPTO_malloc(0, "", 0) == nullptr &&
                                 Crypto_wrapper_CRYPTO_malloc(-1, "", 0) == nullptr &&
                                 Crypto_wrapper_CRYPTO_realloc(nullptr, -1, "", 0) == nullptr
                             ? "none"
                             : "some";
              }),
              "none");
}

TEST(CryptoLegacy, CopiesOfTexts) {
    EXPECT_EQ(Loaded([] {
                  char* const whole = Crypto_wrapper_BUF_strdup("whole");
                  char* const part = Crypto_wrapper_BUF_strndup("partial", 4);
                  char room[6];
                  const size_t needed = Crypto_wrapper_BUF_strlcpy(room, "longer", sizeof room);
                  std::string told = std::string(whole) + " " + part + " " + room + " " + std::to_string(needed);
                  Crypto_wrapper_CRYPTO_free(whole);
                  Crypto_wrapper_CRYPTO_free(part);
                  return told;
              }),
              "whole part longe 6");
}

std::string locked;
void NoteLock(int mode, int type, const char* file, int line) {
    locked += std::to_string(mode) + ":" + std::to_string(type) + ":" + file + ":" + std::to_string(line) + " ";
}

TEST(CryptoLegacy, LocksCallTheCallback) {
    EXPECT_EQ(Loaded([] {
                  std::string told = std::to_string(Crypto_wrapper_CRYPTO_num_locks()) + " ";
                  told += std::string(Crypto_wrapper_CRYPTO_get_lock_name(1)) + " " +
                          Crypto_wrapper_CRYPTO_get_lock_name(40) + " " + Crypto_wrapper_CRYPTO_get_lock_name(41) + " ";
                  told += Crypto_wrapper_CRYPTO_get_locking_callback() == nullptr ? "none " : "some ";
                  Crypto_wrapper_CRYPTO_lock(CRYPTO_LOCK | CRYPTO_WRITE, 3, "here", 7);
                  Crypto_wrapper_CRYPTO_set_locking_callback(NoteLock);
                  told += Crypto_wrapper_CRYPTO_get_locking_callback() == NoteLock ? "ours " : "not ours ";
                  Crypto_wrapper_CRYPTO_lock(CRYPTO_LOCK | CRYPTO_READ, 3, "here", 8);
                  int number = 4;
                  told += std::to_string(Crypto_wrapper_CRYPTO_add_lock(&number, 3, 5, "there", 9)) + " ";
                  return told + locked + std::to_string(number);
              }),
              "41 err fips2 ERROR none ours 7 5:3:here:8 9:5:there:9 10:5:there:9 7");
}

TEST(CryptoLegacy, AThreadIsKnownByItsErrnoOrByTheCallback) {
    EXPECT_EQ(Loaded([] {
                  const unsigned long here = Crypto_wrapper_CRYPTO_thread_id();
                  unsigned long there = here;
                  std::thread([&] { there = Crypto_wrapper_CRYPTO_thread_id(); }).join();
                  Crypto_wrapper_CRYPTO_set_id_callback([] { return 42ul; });
                  return std::string(here == there ? "same " : "others ") +
                         std::to_string(Crypto_wrapper_CRYPTO_thread_id());
              }),
              "others 42");
}

TEST(CryptoLegacy, VersionsByTheOldNumbers) {
    EXPECT_EQ(Loaded([] {
                  std::string told;
                  for (const int what : {0, 2, 3, 4, 5, 1, 6}) {
                      const std::string text = Crypto_wrapper_SSLeay_version(what);
                      told += text.substr(0, text.find_first_of(" :")) + " ";
                  }
                  return told + (Crypto_wrapper_SSLeay() >= 0x30000000ul ? "3" : "?");
              }),
              "OpenSSL compiler built platform OPENSSLDIR not not 3");
}

TEST(CryptoLegacy, AlgorithmsAreFoundByNameWithoutConfiguration) {
    EXPECT_EQ(InOwnProcess([] {
                  // A configuration that would break every algorithm, were it read.
                  setenv("OPENSSL_CONF", "/proc/self/environ", 1);
                  CryptoLoadStatus status;
                  CryptoLibrary::Load(status, false, ZENDRY_BIN_FOLDER);
                  Crypto_wrapper_OPENSSL_add_all_algorithms_noconf();
                  std::string told = Crypto_wrapper_EVP_get_digestbyname("SHA1") != nullptr ? "digest " : "none ";
                  told += Crypto_wrapper_EVP_get_cipherbyname("aes-256-cbc") != nullptr ? "cipher " : "none ";
                  Crypto_wrapper_EVP_cleanup();
                  Crypto_wrapper_OPENSSL_add_all_algorithms_noconf();
                  told += Crypto_wrapper_EVP_get_digestbyname("sha256") != nullptr ? "again" : "none";
                  return told;
              }),
              "digest cipher again");
}

// Reason 105 of the library of big numbers: no error has been raised when its text is asked for.
TEST(CryptoLegacy, ErrorsHaveTextsOnceTheyAreLoaded) {
    EXPECT_EQ(Loaded([] {
                  constexpr unsigned long code = ERR_PACK(ERR_LIB_BN, 0, BN_R_DIV_BY_ZERO);
                  const char* const before = Crypto_wrapper_ERR_reason_error_string(code);
                  std::string told = before == nullptr ? "none, " : std::string(before) + ", ";
                  Crypto_wrapper_ERR_load_crypto_strings();
                  told += std::string(Crypto_wrapper_ERR_reason_error_string(code)) + ", ";
                  told += std::string(Crypto_wrapper_ERR_lib_error_string(code)) + ", ";
                  return told + Crypto_wrapper_ERR_error_string(code, nullptr);
              }),
              "none, div by zero, bignum routines, error:01800067:bignum routines::div by zero");
}

TEST(CryptoLegacy, AnErrorThatIsPutIsGot) {
    EXPECT_EQ(Loaded([] {
                  Crypto_wrapper_ERR_put_error(ERR_LIB_USER, 5, 77, "here", 12);
                  const char* file = nullptr;
                  int line = 0;
                  const unsigned long code = Crypto_wrapper_ERR_get_error_line(&file, &line);
                  std::string told = std::to_string(ERR_GET_LIB(code)) + " " + std::to_string(ERR_GET_REASON(code)) +
                                     " " + file + " " + std::to_string(line) + " ";
                  Crypto_wrapper_ERR_put_error(ERR_LIB_USER, 5, 77, "here", 12);
                  Crypto_wrapper_ERR_remove_state(Crypto_wrapper_CRYPTO_thread_id() + 1);
                  told += Crypto_wrapper_ERR_peek_error() != 0 ? "kept " : "gone ";
                  Crypto_wrapper_ERR_remove_state(0);
                  return told + (Crypto_wrapper_ERR_peek_error() != 0 ? "kept" : "gone");
              }),
              "128 77 here 12 kept gone");
}

TEST(CryptoLegacy, ContextsOfDigests) {
    EXPECT_EQ(Loaded([] {
                  EVP_MD_CTX* const context = Crypto_wrapper_EVP_MD_CTX_create();
                  unsigned char digest[EVP_MAX_MD_SIZE];
                  unsigned length = 0;
                  const EVP_MD* const sha1 = Crypto_wrapper_EVP_sha1();
                  Crypto_wrapper_EVP_DigestInit_ex(context, sha1, nullptr);
                  Crypto_wrapper_EVP_DigestUpdate(context, "lost", 4);
                  std::string told = std::to_string(Crypto_wrapper_EVP_MD_CTX_cleanup(context)) + " ";
                  Crypto_wrapper_EVP_DigestInit_ex(context, sha1, nullptr);
                  Crypto_wrapper_EVP_DigestUpdate(context, "abc", 3);
                  Crypto_wrapper_EVP_DigestFinal_ex(context, digest, &length);
                  Crypto_wrapper_EVP_MD_CTX_destroy(context);
                  told += Hexadecimal(digest, length) + " " + std::to_string(Crypto_wrapper_EVP_MD_size(sha1)) + " " +
                          std::to_string(Crypto_wrapper_EVP_MD_block_size(sha1)) + " " +
                          std::to_string(Crypto_wrapper_EVP_MD_type(sha1));
                  return told;
              }),
              "1 a9993e364706816aba3e25717850c26c9cd0d89d 20 64 64");
}

TEST(CryptoLegacy, ContextsOfCiphers) {
    EXPECT_EQ(Loaded([] {
                  const EVP_CIPHER* const aes = Crypto_wrapper_EVP_aes_256_cbc();
                  EVP_CIPHER_CTX* const context = Crypto_wrapper_EVP_CIPHER_CTX_new();
                  const unsigned char key[32] = {};
                  Crypto_wrapper_EVP_CipherInit_ex(context, aes, nullptr, key, key, 1);
                  std::string told = std::to_string(Crypto_wrapper_EVP_CIPHER_CTX_key_length(context)) + " " +
                                     std::to_string(Crypto_wrapper_EVP_CIPHER_CTX_iv_length(context)) + " " +
                                     std::to_string(Crypto_wrapper_EVP_CIPHER_CTX_block_size(context)) + " ";
                  told += std::to_string(Crypto_wrapper_EVP_CIPHER_key_length(aes)) + " " +
                          std::to_string(Crypto_wrapper_EVP_CIPHER_iv_length(aes)) + " " +
                          std::to_string(Crypto_wrapper_EVP_CIPHER_block_size(aes)) + " ";
                  told += std::to_string(Crypto_wrapper_EVP_CIPHER_CTX_cleanup(context));
                  told += Crypto_wrapper_EVP_CIPHER_CTX_cipher(context) == nullptr ? " clean" : " not clean";
                  Crypto_wrapper_EVP_CIPHER_CTX_free(context);
                  return told;
              }),
              "32 16 16 32 16 16 1 clean");
}

// The second case of the known answers for HMAC-SHA1.
TEST(CryptoLegacy, MessageCodesInTheCallersRoom) {
    EXPECT_EQ(Loaded([] {
                  HMAC_CTX_1_0 context;
                  HMAC_CTX_1_0 copy;
                  std::memset(&context, 0xa5, sizeof context);
                  std::memset(&copy, 0xa5, sizeof copy);
                  const auto bytes = [](const char* text) { return reinterpret_cast<const unsigned char*>(text); };
                  unsigned char code[EVP_MAX_MD_SIZE];
                  unsigned length = 0;
                  Crypto_wrapper_HMAC_CTX_init(&context);
                  std::string told = std::to_string(Crypto_wrapper_HMAC_Update(&context, bytes("x"), 1)) + " ";
                  Crypto_wrapper_HMAC_Init_ex(&context, "Jefe", 4, Crypto_wrapper_EVP_sha1(), nullptr);
                  Crypto_wrapper_HMAC_Update(&context, bytes("what do ya want "), 16);
                  Crypto_wrapper_HMAC_CTX_copy(&copy, &context);
                  Crypto_wrapper_HMAC_Update(&context, bytes("for nothing?"), 12);
                  Crypto_wrapper_HMAC_Final(&context, code, &length);
                  told += Hexadecimal(code, length) + " ";
                  Crypto_wrapper_HMAC_Update(&copy, bytes("for nothing?"), 12);
                  Crypto_wrapper_HMAC_Final(&copy, code, &length);
                  told += Hexadecimal(code, length) + " ";
                  Crypto_wrapper_HMAC_CTX_cleanup(&copy);
                  // A new start with the same key.
                  Crypto_wrapper_HMAC_Init_ex(&context, nullptr, 0, nullptr, nullptr);
                  Crypto_wrapper_HMAC_Update(&context, bytes("what do ya want for nothing?"), 28);
                  Crypto_wrapper_HMAC_Final(&context, code, &length);
                  told += Hexadecimal(code, length);
                  Crypto_wrapper_HMAC_CTX_cleanup(&context);
                  return told;
              }),
              "0 effcdf6ae5eb2fa2d27416d5f184df9c259a7c79 effcdf6ae5eb2fa2d27416d5f184df9c259a7c79 "
              "effcdf6ae5eb2fa2d27416d5f184df9c259a7c79");
}

TEST(CryptoLegacy, EllipticCurves) {
    EXPECT_EQ(Loaded([] {
                  EC_KEY* const first = Crypto_wrapper_EC_KEY_new_by_curve_name(NID_X9_62_prime256v1);
                  EC_KEY* const second = Crypto_wrapper_EC_KEY_new_by_curve_name(NID_X9_62_prime256v1);
                  Crypto_wrapper_EC_KEY_generate_key(first);
                  Crypto_wrapper_EC_KEY_generate_key(second);
                  std::string told;
                  told += std::to_string(Crypto_wrapper_ECDH_set_method(first, Crypto_wrapper_ECDH_OpenSSL()));
                  told += std::to_string(Crypto_wrapper_ECDSA_set_method(first, Crypto_wrapper_ECDSA_OpenSSL()));
                  Crypto_wrapper_ECDH_set_default_method(Crypto_wrapper_ECDH_OpenSSL());
                  told += Crypto_wrapper_ECDH_get_default_method() == Crypto_wrapper_ECDH_OpenSSL() ? " default" : " ?";
                  std::array<unsigned char, 32> one{};
                  std::array<unsigned char, 32> other{};
                  told +=
                      " " + std::to_string(Crypto_wrapper_ECDH_compute_key(
                                one.data(), one.size(), Crypto_wrapper_EC_KEY_get0_public_key(second), first, nullptr));
                  Crypto_wrapper_ECDH_compute_key(other.data(), other.size(),
                                                  Crypto_wrapper_EC_KEY_get0_public_key(first), second, nullptr);
                  told += one == other ? " same" : " others";
                  const int index = Crypto_wrapper_ECDH_get_ex_new_index(0, nullptr, nullptr, nullptr, nullptr);
                  told += Crypto_wrapper_ECDH_set_ex_data(first, index, &told) == 1 &&
                                  Crypto_wrapper_ECDH_get_ex_data(first, index) == &told &&
                                  Crypto_wrapper_ECDH_get_ex_data(second, index) == nullptr
                              ? " kept"
                              : " lost";
                  Crypto_wrapper_EC_KEY_free(first);
                  Crypto_wrapper_EC_KEY_free(second);
                  return told;
              }),
              "11 default 32 same kept");
}

TEST(CryptoLegacy, Stacks) {
    EXPECT_EQ(Loaded([] {
                  char texts[] = "abc";
                  OPENSSL_STACK* const stack = Crypto_wrapper_sk_new([](const void* a, const void* b) {
                      return int(**static_cast<const char* const*>(a)) - int(**static_cast<const char* const*>(b));
                  });
                  for (const int place : {2, 0, 1}) {
                      Crypto_wrapper_sk_push(stack, texts + place);
                  }
                  Crypto_wrapper_sk_sort(stack);
                  std::string told = std::to_string(Crypto_wrapper_sk_num(stack)) + " ";
                  for (int i = 0; i < 3; ++i) {
                      told += *static_cast<char*>(Crypto_wrapper_sk_value(stack, i));
                  }
                  told += std::to_string(Crypto_wrapper_sk_find(stack, texts + 1));
                  told += *static_cast<char*>(Crypto_wrapper_sk_delete(stack, 0));
                  told += *static_cast<char*>(Crypto_wrapper_sk_pop(stack));
                  Crypto_wrapper_sk_insert(stack, texts, 0);
                  told += *static_cast<char*>(Crypto_wrapper_sk_value(stack, 0));
                  told += std::to_string(Crypto_wrapper_sk_num(nullptr));
                  Crypto_wrapper_sk_free(stack);
                  return told;
              }),
              "3 abc1aca-1");
}

TEST(CryptoLegacy, HashTables) {
    EXPECT_EQ(Loaded([] {
                  OPENSSL_LHASH* const table = Crypto_wrapper_lh_new(
                      [](const void* text) { return Crypto_wrapper_lh_strhash(static_cast<const char*>(text)); },
                      [](const void* a, const void* b) {
                          return std::strcmp(static_cast<const char*>(a), static_cast<const char*>(b));
                      });
                  char first[] = "one";
                  char second[] = "two";
                  char again[] = "one";
                  std::string told = Crypto_wrapper_lh_insert(table, first) == nullptr ? "new " : "old ";
                  Crypto_wrapper_lh_insert(table, second);
                  told += Crypto_wrapper_lh_insert(table, again) == first ? "old " : "new ";
                  told += std::to_string(Crypto_wrapper_lh_num_items(table)) + " ";
                  told += Crypto_wrapper_lh_retrieve(table, "one") == again ? "found " : "lost ";
                  int visits = 0;
                  Crypto_wrapper_lh_doall_arg(
                      table, [](void*, void* count) { ++*static_cast<int*>(count); }, &visits);
                  told += std::to_string(visits) + " ";
                  told += Crypto_wrapper_lh_delete(table, "two") == second ? "taken" : "kept";
                  Crypto_wrapper_lh_free(table);
                  return told;
              }),
              "new old 2 found 2 taken");
}

// The rest of the queue's functions stand in no table.
TEST(CryptoLegacy, QueuesCountWhatWasInsertedInTheOrderOfItsPriorities) {
    EXPECT_EQ(Loaded([] {
                  const std::string path = std::string(ZENDRY_BIN_FOLDER) + "/" + kCryptoLibrary + kCryptoSuffix;
                  void* const library = dlopen(path.c_str(), RTLD_NOW | RTLD_NOLOAD);
                  const auto found = [&]<class Function>(const char* name) {
                      return reinterpret_cast<Function*>(dlsym(library, name));
                  };
                  const auto newItem = found.template operator()<decltype(pitem_new)>("pitem_new");
                  const auto insert = found.template operator()<decltype(pqueue_insert)>("pqueue_insert");
                  const auto pop = found.template operator()<decltype(pqueue_pop)>("pqueue_pop");
                  const auto freeItem = found.template operator()<decltype(pitem_free)>("pitem_free");
                  const pqueue queue = found.template operator()<decltype(pqueue_new)>("pqueue_new")();
                  std::string told = std::to_string(Crypto_wrapper_pqueue_size(queue));
                  char data[] = "bca";
                  for (char& letter : data) {
                      unsigned char priority[8] = {0, 0, 0, 0, 0, 0, 1, static_cast<unsigned char>(letter)};
                      insert(queue, newItem(priority, &letter));
                  }
                  told += std::to_string(Crypto_wrapper_pqueue_size(queue)) + " ";
                  unsigned char taken[8] = {0, 0, 0, 0, 0, 0, 1, 'b'};
                  pitem* const twin = newItem(taken, data);
                  told += insert(queue, twin) == nullptr ? "once " : "twice ";
                  freeItem(twin);
                  while (pitem* const item = pop(queue)) {
                      told += *static_cast<char*>(item->data) == '\0' ? '-' : *static_cast<char*>(item->data);
                      freeItem(item);
                  }
                  told += std::to_string(Crypto_wrapper_pqueue_size(queue));
                  found.template operator()<decltype(pqueue_free)>("pqueue_free")(queue);
                  return told;
              }),
              "04 once -abc0");
}

TEST(CryptoLegacy, RandomNumbers) {
    EXPECT_EQ(Loaded([] {
                  std::string told = std::to_string(Crypto_wrapper_RAND_status()) + " ";
                  std::array<unsigned char, 16> first{};
                  std::array<unsigned char, 16> second{};
                  told += std::to_string(Crypto_wrapper_RAND_bytes(first.data(), first.size()));
                  Crypto_wrapper_RAND_bytes(second.data(), second.size());
                  told += first == second ? " same " : " others ";
                  // A generator of the program's own is asked itself.
                  static const RAND_METHOD empty{nullptr, nullptr, nullptr, nullptr, nullptr, [] { return 0; }};
                  Crypto_wrapper_RAND_set_rand_method(&empty);
                  told += std::to_string(Crypto_wrapper_RAND_status());
                  Crypto_wrapper_RAND_cleanup();
                  told += Crypto_wrapper_RAND_get_rand_method() == Crypto_wrapper_RAND_SSLeay() ? " standard" : " ?";
                  return told;
              }),
              "1 1 others 0 standard");
}

TEST(CryptoLegacy, ConnectionsOpenTheirLibraryWhenUsed) {
    EXPECT_EQ(Loaded([] {
                  const auto mapped = [] {
                      std::string maps;
                      if (FILE* const file = std::fopen("/proc/self/maps", "r"); file != nullptr) {
                          char line[4096];
                          while (std::fgets(line, sizeof line, file) != nullptr) {
                              maps += line;
                          }
                          std::fclose(file);
                      }
                      return maps.find("libssl") != std::string::npos ? "open " : "closed ";
                  };
                  std::string told = mapped();
                  told += std::to_string(Crypto_wrapper_SSL_library_init()) + " ";
                  told += mapped();
                  Crypto_wrapper_SSL_load_error_strings();
                  SSL_CTX* const context = Crypto_wrapper_SSL_CTX_new(Crypto_wrapper_SSLv23_client_method());
                  SSL* const connection = Crypto_wrapper_SSL_new(context);
                  told += connection != nullptr ? "made " : "not made ";
                  told += std::to_string(Crypto_wrapper_SSL_CTX_set_cipher_list(context, "HIGH")) + " ";
                  told += Crypto_wrapper_SSL_get_peer_certificate(connection) == nullptr ? "no peer" : "a peer";
                  Crypto_wrapper_SSL_free(connection);
                  Crypto_wrapper_SSL_CTX_free(context);
                  return told;
              }),
              "closed 1 open made 1 no peer");
}

TEST(CryptoLegacy, EnginesGoAtTheEnd) {
    EXPECT_EQ(Loaded([] {
                  Crypto_wrapper_ENGINE_load_builtin_engines();
                  Crypto_wrapper_ENGINE_cleanup();
                  return Crypto_wrapper_ENGINE_by_id("rdrand") == nullptr ? "none" : "some";
              }),
              "none");
}

}  // namespace
