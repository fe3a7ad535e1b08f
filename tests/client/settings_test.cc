// The stores over the configuration: raw values by section, and dated settings.
#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "client/osl_subsection_settings.h"
#include "client/setting_time.h"
#include "client/settings_paths.h"
#include "client/unix_osl_subsection_store.h"
#include "client/unix_setting_store.h"
#include "tests/client/configuration.h"

namespace {

using Settings = OSLSubsectionSettings<SettingStore<UnixSettingIterator>>;

constexpr char settings[] =
    "[Software\\Ostrel\\EnterpriseClient\\GlobalOptions]\n"
    "StoragePath = /some/data/\n"
    "raw = not a setting\n"
    "[Software\\Ostrel\\EnterpriseClient\\Settings\\Client\\Alpha]\n"
    "value = one\n"
    "effective date = Tue, 09 Mar 1999 10:11:12 +0000\n"
    "[Software\\Ostrel\\EnterpriseClient\\Settings\\Client\\undated]\n"
    "VALUE = MiXeD\n"
    "[Software\\Ostrel\\EnterpriseClient\\Settings\\Client\\valueless]\n"
    "effective date = Tue, 09 Mar 1999 10:11:12\n"
    "[Software\\Ostrel\\EnterpriseClient\\Settings\\Client\\]\n"
    "value = nameless\n"
    "[Software\\Ostrel\\EnterpriseClient\\Settings\\Client\\deep\\er]\n"
    "value = below\n"
    "[Software\\Ostrel\\EnterpriseClient\\SettingsX\\Client\\raw]\n"
    "value = 1\n"
    "[Software\\Ostrel\\EnterpriseClient\\Settings\\Administrators\\both]\n"
    "value = client file\n"
    "[Software\\Ostrel\\EnterpriseClient\\Settings\\Sites\\Some Site\\colour]\n"
    "value = red\n";

constexpr char relaySettings[] =
    "[Software\\Ostrel\\EnterpriseClient\\Settings\\Client\\zeta]\n"
    "value = from the relay\n"
    "[Software\\Ostrel\\EnterpriseClient\\Settings\\Administrators\\Both]\n"
    "value = relay file\n"
    "effective date = Sun, 06 Feb 2011 00:00:00 +0000\n";

class Stores : public testing::Test {
protected:
    Stores() {
        files_.Client(settings);
        files_.Relay(relaySettings);
        manager_ = std::make_unique<ZendryOptionsManager>();
        store_ = std::make_unique<UnixPlatform::UnixSettingStore>(SettingsPath::Settings(), *manager_);
    }

    static std::vector<std::string> Texts(const Settings& of) {
        std::vector<std::string> texts;
        for (UnixSettingIterator each = of.Begin(); each.Valid(); each.Next()) {
            texts.push_back(AsText(each.Current()));
        }
        return texts;
    }

    const Configuration files_;
    std::unique_ptr<ZendryOptionsManager> manager_;
    std::unique_ptr<UnixPlatform::UnixSettingStore> store_;
};

TEST(SettingsPaths, EveryRow) {
    EXPECT_EQ(SettingsPath::GlobalOptions(), "Software\\Ostrel\\EnterpriseClient\\GlobalOptions");
    EXPECT_EQ(SettingsPath::ClientRegister(), "Software\\Ostrel\\EnterpriseClient\\ClientRegister");
    EXPECT_EQ(SettingsPath::PropServer(), "Software\\Ostrel\\Enterprise Server\\PropServer");
    EXPECT_EQ(SettingsPath::GatherService(), "Software\\Ostrel\\Enterprise Server\\GatherService");
    EXPECT_EQ(SettingsPath::Settings(), "Software\\Ostrel\\EnterpriseClient\\Settings");
    EXPECT_EQ(SettingsPath::SiteSettings(), "Software\\Ostrel\\EnterpriseClient\\Settings\\Sites");
    EXPECT_STREQ(SettingsPath::client, "Client");
    EXPECT_STREQ(SettingsPath::administrators, "Administrators");
    EXPECT_STREQ(SettingsPath::customSites, "CustomSites");
    EXPECT_STREQ(SettingsPath::userOrMachine, "UserOrMachine");
}

TEST(SettingsPaths, TheProcessHasOneStoreToAPath) {
    const Configuration files;
    files.Client("");
    EXPECT_EQ(UnixPlatform::GlobalOptions().Section(), SettingsPath::GlobalOptions());
    EXPECT_EQ(UnixPlatform::ClientRegister().Section(), SettingsPath::ClientRegister());
    EXPECT_EQ(UnixPlatform::PropServer().Section(), SettingsPath::PropServer());
    EXPECT_EQ(UnixPlatform::GatherService().Section(), SettingsPath::GatherService());
    EXPECT_EQ(&UnixPlatform::GlobalOptions(), &UnixPlatform::GlobalOptions());
    EXPECT_EQ(UnixPlatform::MachineSettings().At("x").StoreRoot(), SettingsPath::Settings());
    EXPECT_EQ(UnixPlatform::SiteSettings().At("x").StoreRoot(), SettingsPath::SiteSettings());
}

TEST_F(Stores, ASubsectionsValuesOfEveryKind) {
    UnixPlatform::UnixOSLSubsectionStore unixStore("Some\\Section", *manager_);
    SubsectionStore& store = unixStore;
    EXPECT_FALSE(store.Exists());
    EXPECT_TRUE(store.WriteString("Text", "some text"));
    EXPECT_TRUE(store.WriteSigned("signed", -1));
    EXPECT_TRUE(store.WriteUnsigned("unsigned", 4000000000));
    EXPECT_TRUE(store.WriteInteger64("wide", -5000000000));
    EXPECT_TRUE(store.WriteTime("time", moment(1000000)));
    EXPECT_TRUE(store.WriteFileLocation("place", FileLocation("/a b/;c/")));
    EXPECT_TRUE(store.Exists());

    std::string text;
    int32_t narrow = 0;
    uint32_t natural = 0;
    int64_t wide = 0;
    moment time;
    FileLocation place;
    EXPECT_TRUE(store.ReadString("TEXT", text));
    EXPECT_EQ(text, "some text");
    EXPECT_TRUE(store.ReadSigned("signed", narrow));
    EXPECT_EQ(narrow, -1);
    EXPECT_TRUE(store.ReadUnsigned("unsigned", natural));
    EXPECT_EQ(natural, 4000000000);
    EXPECT_TRUE(store.ReadInteger64("wide", wide));
    EXPECT_EQ(wide, -5000000000);
    EXPECT_TRUE(store.ReadTime("time", time));
    EXPECT_EQ(time, moment(1000000));
    EXPECT_TRUE(store.ReadFileLocation("place", place));
    EXPECT_EQ(place.Text(), "/a b/;c");
    std::array<char, 10> buffer;
    size_t size = 9;
    EXPECT_FALSE(store.ReadBuffered("text", buffer.data(), size));
    size = 10;
    EXPECT_TRUE(store.ReadBuffered("text", buffer.data(), size));
    EXPECT_STREQ(buffer.data(), "some text");

    EXPECT_TRUE(store.Delete("Text"));
    EXPECT_FALSE(store.ReadString("text", text));
    EXPECT_EQ(text, "some text");
    EXPECT_TRUE(store.DeleteAll());
    EXPECT_FALSE(store.Exists());
    EXPECT_FALSE(store.ReadSigned("signed", narrow));
    EXPECT_FALSE(store.ReadUnsigned("unsigned", natural));
    EXPECT_FALSE(store.ReadInteger64("wide", wide));
    EXPECT_FALSE(store.ReadTime("time", time));
    EXPECT_FALSE(store.ReadFileLocation("place", place));
}

TEST_F(Stores, ALocationIsReadOrTheDefaultHolds) {
    const UnixPlatform::UnixOSLSubsectionStore options(SettingsPath::GlobalOptions(), *manager_);
    const FileLocation byDefault("/default");
    EXPECT_EQ(GetValue(options, "storagepath", byDefault).Text(), "/some/data");
    EXPECT_EQ(GetValue(options, "LibPath", byDefault).Text(), "/default");
    files_.Client("[Software\\Ostrel\\EnterpriseClient\\GlobalOptions]\nStoragePath =\n");
    const std::unique_ptr<ZendryOptionsManager> again = std::make_unique<ZendryOptionsManager>();
    const UnixPlatform::UnixOSLSubsectionStore empty(SettingsPath::GlobalOptions(), *again);
    EXPECT_TRUE(GetValue(empty, "StoragePath", byDefault).IsEmpty());
}

TEST_F(Stores, SettingsAreFoundByNameInAnyCase) {
    const Settings client(*store_, SettingsPath::client);
    const std::optional<UnixSetting> alpha = client.Find("ALPHA");
    ASSERT_TRUE(alpha.has_value());
    EXPECT_EQ(alpha->Name(), "alpha");
    EXPECT_EQ(alpha->StoreRoot(), SettingsPath::Settings());
    EXPECT_EQ(alpha->SectionPath(), "software\\ostrel\\enterpriseclient\\settings\\client\\alpha");
    EXPECT_EQ(alpha->Value(), "one");
    EXPECT_EQ(alpha->EffectiveDate(), moment(920974272000000));
    EXPECT_EQ(AsText(*alpha), "alpha=one");
    EXPECT_EQ(client.Find("undated")->Value(), "MiXeD");
    EXPECT_EQ(client.Find("undated")->EffectiveDate(), std::nullopt);
    EXPECT_EQ(client.Find("valueless")->Value(), std::nullopt);
    EXPECT_EQ(client.Find("valueless")->EffectiveDate(), std::nullopt);
    EXPECT_EQ(AsText(*client.Find("valueless")), "valueless=");
    EXPECT_EQ(client.Find("zeta")->Value(), "from the relay");
    EXPECT_FALSE(client.Find("raw").has_value());
    EXPECT_FALSE(client.Find("alphaa").has_value());
}

TEST_F(Stores, SettingsAreIteratedOverBothFiles) {
    EXPECT_EQ(Texts(Settings(*store_, SettingsPath::client)),
              std::vector<std::string>({"alpha=one", "undated=MiXeD", "valueless=", "zeta=from the relay"}));
    // A setting of both files comes once for each, and reads the same.
    EXPECT_EQ(Texts(Settings(*store_, SettingsPath::administrators)),
              std::vector<std::string>({"both=client file", "both=client file"}));
    EXPECT_EQ(Settings(*store_, SettingsPath::administrators).Find("both")->EffectiveDate(), moment(1296950400000000));
    EXPECT_EQ(Texts(Settings(*store_, SettingsPath::customSites)), std::vector<std::string>());
    UnixPlatform::UnixSettingStore sites(SettingsPath::SiteSettings(), *manager_);
    EXPECT_EQ(Texts(Settings(sites, "some SITE")), std::vector<std::string>({"colour=red"}));
}

TEST_F(Stores, AWrittenSettingHoldsFromNow) {
    Settings client(*store_, SettingsPath::client);
    const int64_t before = Now().Microseconds() / 1000000 * 1000000;
    EXPECT_TRUE(client.Write("New One", "some; value"));
    EXPECT_TRUE(client.Write("alpha", "two"));
    const int64_t after = Now().Microseconds();
    ZendryOptionsManager again;
    UnixPlatform::UnixSettingStore stored(SettingsPath::Settings(), again);
    const Settings read(stored, SettingsPath::client);
    for (const char* name : {"new one", "alpha"}) {
        const std::optional<UnixSetting> setting = read.Find(name);
        ASSERT_TRUE(setting && setting->EffectiveDate()) << name;
        EXPECT_GE(setting->EffectiveDate()->Microseconds(), before);
        EXPECT_LE(setting->EffectiveDate()->Microseconds(), after);
    }
    EXPECT_EQ(read.Find("new one")->Value(), "some; value");
    EXPECT_EQ(read.Find("alpha")->Value(), "two");
    EXPECT_EQ(read.Find("undated")->Value(), "MiXeD");
    EXPECT_FALSE(client.Write("x]", "v"));
    EXPECT_FALSE(client.Write("x", "a\nb"));
    EXPECT_FALSE(client.Find("x").has_value());
}

TEST_F(Stores, ADeletedSettingIsGone) {
    Settings client(*store_, SettingsPath::client);
    std::optional<UnixSetting> held = client.Find("alpha");
    EXPECT_EQ(held->GetState(), RegImpSetting::State::Open);
    EXPECT_TRUE(held->Delete());
    EXPECT_EQ(held->GetState(), RegImpSetting::State::Deleted);
    EXPECT_FALSE(held->Exists());
    EXPECT_EQ(held->Value(), std::nullopt);
    EXPECT_EQ(held->EffectiveDate(), std::nullopt);
    EXPECT_FALSE(held->SetValue("v"));
    EXPECT_FALSE(held->SetEffectiveDate(moment()));
    EXPECT_FALSE(held->Delete());
    EXPECT_FALSE(client.Find("alpha").has_value());
    EXPECT_FALSE(client.Delete("alpha"));
    EXPECT_TRUE(client.Delete("Undated"));
    ZendryOptionsManager again;
    UnixPlatform::UnixSettingStore stored(SettingsPath::Settings(), again);
    EXPECT_EQ(Texts(Settings(stored, SettingsPath::client)),
              std::vector<std::string>({"valueless=", "zeta=from the relay"}));
}

TEST(SettingTime, IsWrittenInUniversalTime) {
    EXPECT_EQ(TextOfSettingTime(moment(920974272000000)), "Tue, 09 Mar 1999 10:11:12 +0000");
    EXPECT_EQ(TextOfSettingTime(moment(-1)), "Wed, 31 Dec 1969 23:59:59 +0000");
    EXPECT_EQ(TextOfSettingTime(moment(INT64_MIN)), std::nullopt);
    EXPECT_EQ(TimeOfSetting("Tue, 09 Mar 1999 10:11:12 +0000"), moment(920974272000000));
    EXPECT_EQ(TimeOfSetting(""), std::nullopt);
}

}  // namespace
