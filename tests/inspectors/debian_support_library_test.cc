#include "inspectors/debian_support_library.h"

#include <dlfcn.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "evaluator/inspector_context.h"
#include "evaluator/inspector_setting_store.h"
#include "inspectors/debian_package.h"
#include "tests/foundation/temporary_place.h"
#include "tests/inspectors/ask.h"

namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

constexpr AptLibraryVersionInfo kFakeInfo = {"4.10.",
                                             "DebianApt_4_10.so",
                                             "CacheCreator_deb_4_10",
                                             "CacheDestroyer_deb_4_10",
                                             "GetVersioningSystem_deb_4_10",
                                             "GetEmptyIteratorMakers_deb_4_10"};

const std::string kFakes = ZENDRY_PACKAGE_FAKES;

// A store whose one generation is that of the fakes, found in a library of the fakes.
AptLibraryVersionInfoStore FakeStore(const std::string& apt) {
    AptLibraryVersionInfoStore store;
    store.Add(kFakeInfo, kFakes + "/apt_" + apt + "/libapt-pkg.so");
    return store;
}

FileLocation executable;
const FileLocation* Executable() { return &executable; }
const FileLocation* NoExecutable() { return nullptr; }

void RunFrom(const std::string& folder) { executable = FileLocation(folder + "/bin/zendry"); }

static_assert(std::is_base_of_v<ExceptionPL, LoadDebianSupportLibraryError>);
static_assert(std::is_base_of_v<DebuggableException, ExceptionPL>);

std::string LoadFailure(DebianSupportLibrary& library) {
    try {
        library.Load();
    } catch (const LoadDebianSupportLibraryError& failure) {
        return failure.what();
    }
    return "loaded";
}

TEST(AptLibraryVersionInfoStore, KnowsThreeGenerationsInTheirOrder) {
    const auto store = AptLibraryVersionInfoStore::Known([](const char*) { return false; });
    EXPECT_THAT(store.Candidates(),
                ElementsAre("libapt-pkg.so", "libapt-pkg-libc6.7-6.so.4.6", "libapt-pkg-libc6.7-6.so.4.6.0",
                            "libapt-pkg.so.4.10", "libapt-pkg.so.4.10.1", "libapt-pkg-libc6.10-6.so.4.8",
                            "libapt-pkg-libc6.10-6.so.4.8.0"));
    for (const std::string number : {"6", "8", "10"}) {
        const AptLibraryVersionInfo* info = store.Find("4." + number + ".1");
        ASSERT_NE(info, nullptr);
        EXPECT_EQ(info->versionPrefix, "4." + number + ".");
        EXPECT_EQ(info->supportLibrary, "DebianApt_4_" + number + ".so");
        EXPECT_EQ(info->cacheCreator, "CacheCreator_deb_4_" + number);
        EXPECT_EQ(info->cacheDestroyer, "CacheDestroyer_deb_4_" + number);
        EXPECT_EQ(info->versioningSystem, "GetVersioningSystem_deb_4_" + number);
        EXPECT_EQ(info->emptyIterators, "GetEmptyIteratorMakers_deb_4_" + number);
    }
    for (const char* unknown : {"4.12.0", "6.0.0", "", "4.6", "4.1", " 4.6.0", "14.6.0"}) {
        EXPECT_EQ(store.Find(unknown), nullptr) << unknown;
    }
}

TEST(AptLibraryVersionInfoStore, TakesOurOwnGenerationInWhereItsLibraryIsInstalled) {
    std::vector<std::string> asked;
    const auto store = AptLibraryVersionInfoStore::Known([&](const char* name) {
        asked.emplace_back(name);
        return true;
    });
    EXPECT_THAT(asked, ElementsAre("DebianApt_6_0.so"));
    EXPECT_EQ(store.Candidates().size(), 8U);
    EXPECT_EQ(store.Candidates().back(), "libapt-pkg.so.6.0");
    const AptLibraryVersionInfo* info = store.Find("6.0.0");
    ASSERT_NE(info, nullptr);
    EXPECT_STREQ(info->versionPrefix, "6.0.");
    EXPECT_STREQ(info->supportLibrary, "DebianApt_6_0.so");
    EXPECT_STREQ(info->cacheCreator, "CacheCreator_deb_6_0");
    EXPECT_STREQ(info->cacheDestroyer, "CacheDestroyer_deb_6_0");
    EXPECT_STREQ(info->versioningSystem, "GetVersioningSystem_deb_6_0");
    EXPECT_STREQ(info->emptyIterators, "GetEmptyIteratorMakers_deb_6_0");
}

TEST(AptLibraryVersionInfoStore, SplitsNamesAtCommasAndDropsTheBlanksAroundThem) {
    AptLibraryVersionInfoStore store;
    store.Add(kFakeInfo, " a ,b b,\tc\t, ,,d");
    store.Add(kFakeInfo, "");
    EXPECT_THAT(store.Candidates(), ElementsAre("libapt-pkg.so", "a", "b b", "c", "d"));
}

TEST(AptLibraryVersionInfoStore, GivesTheFirstGenerationThatMatches) {
    AptLibraryVersionInfoStore store;
    store.Add({"4.1", "first", "", "", "", ""}, "");
    store.Add({"4.", "second", "", "", "", ""}, "");
    store.Add({"4.1", "third", "", "", "", ""}, "");
    EXPECT_STREQ(store.Find("4.1")->supportLibrary, "first");
    EXPECT_STREQ(store.Find("4.2")->supportLibrary, "second");
}

// Whether a library is still open in this process.
bool IsOpen(const std::string& path) {
    void* handle = dlopen(path.c_str(), RTLD_LAZY | RTLD_NOLOAD);
    if (handle != nullptr) {
        dlclose(handle);
    }
    return handle != nullptr;
}

TEST(DebianSupportLibrary, LoadsOnceFromBesideTheExecutable) {
    RunFrom(kFakes + "/whole");
    DebianSupportLibrary library(Executable, FakeStore("known"));
    EXPECT_FALSE(library.IsLoaded());
    EXPECT_EQ(LoadFailure(library), "loaded");
    EXPECT_TRUE(library.IsLoaded());
    EXPECT_EQ(library.PkgLibVersion(), "4.10.1");
    executable = FileLocation();
    EXPECT_EQ(LoadFailure(library), "loaded");
    // apt's own was only asked; the support library's names are there for whatever is opened after it.
    EXPECT_FALSE(IsOpen(kFakes + "/apt_known/libapt-pkg.so"));
    EXPECT_TRUE(IsOpen(kFakes + "/whole/OSLLib/DebianApt_4_10.so"));
    EXPECT_NE(dlsym(RTLD_DEFAULT, "fakeOpenCaches"), nullptr);
}

TEST(DebianSupportLibrary, ReportsWhatItTriedWhereNoVersionIsKnown) {
    for (const auto& [apt, words] :
         std::vector<std::pair<std::string, std::string>>{{"unknown", "opened"},
                                                          {"unversioned", "can't find pkgLibVersion in"},
                                                          {"without_text", "can't find pkgLibVersion in"},
                                                          {"missing", "can't open"}}) {
        RunFrom(kFakes + "/whole");
        DebianSupportLibrary library(Executable, FakeStore(apt));
        const std::string report = LoadFailure(library);
        EXPECT_THAT(report, StartsWith("LoadDebianSupportLibraryForOurVersion results:\n   tryAptPkgLibVersion "));
        EXPECT_THAT(report, EndsWith("\n   tryAptPkgLibVersion " + words + " " + kFakes + "/apt_" + apt +
                                     "/libapt-pkg.so\n  Couldn't determine library to use."));
        EXPECT_FALSE(library.IsLoaded());
        EXPECT_EQ(library.PkgLibVersion(), "");
        EXPECT_FALSE(IsOpen(kFakes + "/apt_" + apt + "/libapt-pkg.so"));
    }
}

// Run by the next, in a process that finds no library under any of the names, from the folder that it is told.
TEST(DebianSupportLibrary, DISABLED_PrintsItsReport) {
    DebianSupportLibrary library([]() -> const FileLocation* { return executable.IsEmpty() ? nullptr : &executable; });
    std::printf("Before the folder is known:\n%s.\n", LoadFailure(library).c_str());
    RunFrom(std::getenv("ZENDRY_FOLDER"));
    std::printf("And then:\n%s.\n", LoadFailure(library).c_str());
}

// What the process prints that runs from this folder, and finds no library in the other.
std::string PrintedReport(const std::string& folder, const std::string& libraries) {
    const std::string command = "ZENDRY_FOLDER='" + folder + "' LD_LIBRARY_PATH='" + libraries + "' '" +
                                std::filesystem::read_symlink("/proc/self/exe").string() +
                                "' --gtest_also_run_disabled_tests --gtest_filter='*DISABLED_PrintsItsReport'";
    const std::unique_ptr<FILE, int (*)(FILE*)> run(popen(command.c_str(), "r"), pclose);
    std::string output(65536, '\0');
    output.resize(fread(output.data(), 1, output.size(), run.get()));
    return output;
}

TEST(DebianSupportLibrary, ReportsEveryNameThatItTried) {
    const TemporaryPlace place;
    const auto store = AptLibraryVersionInfoStore::Known([](const char*) { return true; });
    for (const std::string& name : store.Candidates()) {
        place.File(name, "no library");
    }
    const std::string three =
        ":\nLoadDebianSupportLibraryForOurVersion results:"
        "\n   tryAptPkgLibVersion can't open libapt-pkg.so"
        "\n   tryAptPkgLibVersion can't open libapt-pkg-libc6.7-6.so.4.6"
        "\n   tryAptPkgLibVersion can't open libapt-pkg-libc6.7-6.so.4.6.0"
        "\n   tryAptPkgLibVersion can't open libapt-pkg.so.4.10"
        "\n   tryAptPkgLibVersion can't open libapt-pkg.so.4.10.1"
        "\n   tryAptPkgLibVersion can't open libapt-pkg-libc6.10-6.so.4.8"
        "\n   tryAptPkgLibVersion can't open libapt-pkg-libc6.10-6.so.4.8.0";
    const std::string end = "\n  Couldn't determine library to use..\n";
    const std::string before = "Before the folder is known" + three + end;
    EXPECT_THAT(PrintedReport(place.Path(), place.Path()), HasSubstr(before + "And then" + three + end));
    // Our own generation leaves no trace but where its library is.
    place.Folder("OSLLib");
    place.Folder("OSLLib/DebianApt_6_0.so");
    EXPECT_THAT(PrintedReport(place.Path(), place.Path()), HasSubstr(before + "And then" + three + end));
    std::filesystem::remove(place.Path("OSLLib/DebianApt_6_0.so"));
    place.File("OSLLib/DebianApt_6_0.so");
    EXPECT_THAT(PrintedReport(place.Path(), place.Path()),
                HasSubstr(before + "And then" + three + "\n   tryAptPkgLibVersion can't open libapt-pkg.so.6.0" + end));
}

TEST(DebianSupportLibrary, KeepsTheGenerationThatItChoseAfterAFailure) {
    const TemporaryPlace place;
    RunFrom(place.Path());
    DebianSupportLibrary library(Executable, FakeStore("known"));
    EXPECT_THAT(LoadFailure(library), EndsWith("\n   tryAptPkgLibVersion opened " + kFakes +
                                               "/apt_known/libapt-pkg.so\n  Loading DebianApt_4_10.so"
                                               "\n  Can't load DebianApt_4_10.so"));
    EXPECT_EQ(LoadFailure(library),
              "LoadDebianSupportLibraryForOurVersion results:\n  Loading DebianApt_4_10.so"
              "\n  Can't load DebianApt_4_10.so");
    RunFrom(kFakes + "/lacking");
    EXPECT_EQ(LoadFailure(library), "LoadDebianSupportLibraryForOurVersion results:\n  Loading " + kFakes +
                                        "/lacking/OSLLib/DebianApt_4_10.so\n  Still missing entry points");
    EXPECT_FALSE(library.IsLoaded());
    RunFrom(kFakes + "/whole");
    EXPECT_EQ(LoadFailure(library), "loaded");
}

TEST(DebianSupportLibrary, WantsEachOfItsEntryPoints) {
    for (const char* folder : {"lacking", "lacking_creator", "lacking_destroyer", "lacking_versioning"}) {
        RunFrom(kFakes + "/" + folder);
        DebianSupportLibrary library(Executable, FakeStore("known"));
        const std::string path = kFakes + "/" + folder + "/OSLLib/DebianApt_4_10.so";
        EXPECT_THAT(LoadFailure(library),
                    EndsWith("\n   tryAptPkgLibVersion opened " + kFakes + "/apt_known/libapt-pkg.so\n  Loading " +
                             path + "\n  Still missing entry points"));
        EXPECT_FALSE(library.IsLoaded()) << folder;
        EXPECT_FALSE(IsOpen(path)) << folder;
    }
}

// What a library calls must be there when the support library is opened; of apt's, nothing is called.
TEST(DebianSupportLibrary, IsOpenedWithAllThatItCalls) {
    RunFrom(kFakes + "/whole");
    DebianSupportLibrary lazily(Executable, FakeStore("unresolved"));
    EXPECT_EQ(LoadFailure(lazily), "loaded");
    RunFrom(kFakes + "/unresolved");
    DebianSupportLibrary library(Executable, FakeStore("known"));
    const std::string path = kFakes + "/unresolved/OSLLib/DebianApt_4_10.so";
    EXPECT_THAT(LoadFailure(library), EndsWith("\n  Loading " + path + "\n  Can't load " + path));
}

TEST(DebianSupportLibrary, IsLookedForByItsNameWhereNoRegularFileIsInItsPlace) {
    const std::string bare =
        "LoadDebianSupportLibraryForOurVersion results:\n  Loading DebianApt_4_10.so\n  Can't load DebianApt_4_10.so";
    const TemporaryPlace place;
    place.Folder("folder/OSLLib/DebianApt_4_10.so");
    place.Folder("dangling/OSLLib");
    place.Link("dangling/OSLLib/DebianApt_4_10.so", "nowhere");
    place.Folder("file");
    place.File("file/OSLLib", "no folder");
    DebianSupportLibrary library(Executable, FakeStore("known"));
    RunFrom(place.Path("folder"));
    LoadFailure(library);
    for (const char* folder : {"folder", "dangling", "file", "missing"}) {
        RunFrom(place.Path(folder));
        EXPECT_EQ(LoadFailure(library), bare) << folder;
    }
    DebianSupportLibrary nowhere(NoExecutable, FakeStore("known"));
    EXPECT_THAT(LoadFailure(nowhere), EndsWith("\n  Loading DebianApt_4_10.so\n  Can't load DebianApt_4_10.so"));
}

TEST(DebianSupportLibrary, AFileThatIsNoLibraryIsNotLoaded) {
    const TemporaryPlace place;
    place.Folder("OSLLib");
    place.File("OSLLib/DebianApt_4_10.so", "no library");
    RunFrom(place.Path());
    DebianSupportLibrary library(Executable, FakeStore("known"));
    const std::string path = place.Path("OSLLib/DebianApt_4_10.so");
    EXPECT_THAT(LoadFailure(library), EndsWith("\n  Loading " + path + "\n  Can't load " + path));
}

TEST(DebianSupportLibrary, APlaceThatCannotBeLookedAtIsAFailure) {
    const TemporaryPlace place;
    place.Link("OSLLib", "OSLLib");
    RunFrom(place.Path());
    DebianSupportLibrary library(Executable, FakeStore("known"));
    EXPECT_THROW(library.Load(), InvalidStats);
    place.Folder(std::string(200, 'x'));
    executable = FileLocation(place.Path(std::string(300, 'x') + "/bin/zendry"));
    EXPECT_THROW(library.Load(), InvalidStats);
}

int OpenCaches() {
    void* handle = dlopen((kFakes + "/whole/OSLLib/DebianApt_4_10.so").c_str(), RTLD_NOW | RTLD_NOLOAD);
    const auto count = reinterpret_cast<int (*)()>(dlsym(handle, "fakeOpenCaches"));
    const int open = count();
    dlclose(handle);
    return open;
}

TEST(DebianPackageDatabase, IsClosedByItsLastHolder) {
    RunFrom(kFakes + "/whole");
    DebianSupportLibrary library(Executable, FakeStore("known"));
    library.Load();
    ASSERT_EQ(OpenCaches(), 0);
    auto database = std::make_shared<const DebianPackageDatabase>(library);
    EXPECT_EQ(OpenCaches(), 1);
    {
        DebianBasePackageIteratorWrapper walk;
        walk.Begin(database, std::unique_ptr<PkgIterator>(database->Cache().PkgBegin()));
        const auto value = std::make_unique<debian_base_package>(walk.Value());
        walk.Step();
        database.reset();
        const debian_base_package copy(*value);
        EXPECT_STREQ(copy.At().Name(), "empty");
        EXPECT_STREQ(walk.Value().At().Name(), "one");
        EXPECT_EQ(OpenCaches(), 1);
    }
    EXPECT_EQ(OpenCaches(), 0);
}

TEST(DebianPackageDatabase, AtTheEndOfAnIteratorThereIsNothing) {
    RunFrom(kFakes + "/whole");
    DebianSupportLibrary library(Executable, FakeStore("known"));
    library.Load();
    const auto database = std::make_shared<const DebianPackageDatabase>(library);
    const wrp_EmptyIteratorMakers& makers = *library.EmptyIteratorMakers();
    const debian_base_package package(database, std::unique_ptr<PkgIterator>(makers.MakePkgIterator()));
    EXPECT_THROW(package.At(), NoSuchObject);
    const debianpkg_version version(database, std::unique_ptr<VerIterator>(makers.MakeVerIterator()));
    EXPECT_THROW(version.At(), NoSuchObject);
    const debianpkg_dependency dependency(database, std::unique_ptr<DepIterator>(makers.MakeDepIterator()));
    EXPECT_THROW(dependency.At(), NoSuchObject);
    const debianpkg_verfile file(database, std::unique_ptr<VerFileIterator>(makers.MakeVerFileIterator()));
    EXPECT_THROW(file.At(), NoSuchObject);
}

TEST(DebianPackageDatabase, FailsWithTheWordsOfTheLibrary) {
    for (const auto& [folder, words] : std::vector<std::pair<std::string, std::string>>{
             {"failing", "the cache is broken"},
             {"failing_oddly", "debianpackage inspector can't open the package cache"},
             {"without_cache", "debianpackage inspector can't open the package cache"}}) {
        RunFrom(kFakes + "/" + folder);
        DebianSupportLibrary library(Executable, FakeStore("known"));
        library.Load();
        try {
            const DebianPackageDatabase database(library);
            ADD_FAILURE() << folder;
        } catch (const DebianPackageDatabaseError& failure) {
            EXPECT_EQ(failure.what(), words);
        }
    }
}

class OneSetting : public InspectorSettingStore {
public:
    bool Find(std::string_view, std::string_view name, StoredSetting& setting) override {
        setting.name = name;
        setting.value = value;
        return name == "_OSLClient_Inspector_DisableDebianPackage";
    }
    bool Next(std::string_view, size_t&, StoredSetting&) override { return false; }

    std::string value;
};

OneSetting setting;

// Where an attempt to load would be told by its failure.
class Host : public InspectorContext, public OSLSettingsContext, public InspectorStorageContext {};

TEST(DebianPackageInspector, IsSwitchedOffByASettingBeforeAnythingIsLoaded) {
    Host host;
    host.settingStore = []() -> InspectorSettingStore* { return &setting; };
    host.getExecutableLocation = [] { return static_cast<const FileLocation*>(nullptr); };
    setting.value = "1";
    for (const char* question : {"debianpackage", "debianpackages", "exists debianpackage"}) {
        const Answer answer = Ask(std::string("exists ") + question, &host);
        EXPECT_EQ(answer.text, "debianpackage inspector is disabled") << question;
        EXPECT_THAT(answer.failure, EndsWith("DebianPackageInspectorDefinedError"));
    }
    for (const char* other : {"0", "", "11", "true"}) {
        setting.value = other;
        const Answer answer = Ask("exists debianpackage", &host);
        EXPECT_NE(answer.text, "debianpackage inspector is disabled") << other;
    }
}

}  // namespace
