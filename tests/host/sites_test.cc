// Sites of a host that has some.
#include "client/site.h"
#include "tests/foundation/temporary_place.h"
#include "tests/host/embedding_host.h"
#include "tests/host/phrases.h"

namespace {

SiteMap Named(const std::string& name) {
    SiteMap map;
    map.name = name;
    map.folderName = name;
    return map;
}

SiteMap FullSite() {
    SiteMap map = Named("Full");
    map.url = "http://example.com/full";
    map.tag = "tag";
    map.type = SiteType::Praxel;
    map.version = 12;
    SiteVersionList list;
    list[0] = 3;
    list[1] = 4;
    map.versionList = list;
    map.lastGatherTime = moment(1'000'000);
    map.subscribeTime = moment(2'000'000);
    map.gatherScheduleAuthority = GatherScheduleAuthority::Publisher;
    map.gatherScheduleInterval = time_interval(integer(3'600'000'000));
    map.evaluated = false;
    return map;
}

class SitesTest : public testing::Test {
protected:
    SitesTest() { host.holder.Replace({FullSite(), Named("Bare")}); }

    Answer Asked(std::string_view question) { return Ask(question, &host); }

    EmbeddingHost host;
};

const std::string kOfFull = " of site \"Full\"";
const std::string kOfBare = " of site \"Bare\"";

TEST_F(SitesTest, PropertiesInEachSpelling) {
    for (const Phrase& phrase : std::vector<Phrase>{
             {"name", "names", kOfFull, "Full"},
             {"url", "urls", kOfFull, "http://example.com/full"},
             {"site tag", "site tags", kOfFull, "tag"},
             {"type", "types", kOfFull, "Praxel Site"},
             {"gather schedule authority", "gather schedule authoritys", kOfFull, "Publisher"},
             {"gather schedule time interval", "gather schedule time intervals", kOfFull, "01:00:00"},
             {"version", "versions", kOfFull, "12"},
             {"site version list", "site version lists", kOfFull, "3,4"},
             {"evaluated", "evaluateds", kOfFull, "False"},
         }) {
        ExpectValue(host, phrase);
        if (phrase.singular != "name") {
            ExpectNone(host, {phrase.singular, phrase.plural, kOfBare, ""});
        }
    }
    for (const Phrase& phrase : std::vector<Phrase>{
             {"last gather time", "last gather times", kOfFull, "Thu, 01 Jan 1970 00:00:01 +0000"},
             {"subscribe time", "subscribe times", kOfFull, "Thu, 01 Jan 1970 00:00:02 +0000"},
         }) {
        EXPECT_EQ(Asked("(" + phrase.singular + phrase.of + ") as universal string"), Values({phrase.value}));
        EXPECT_EQ(Asked("(" + phrase.plural + phrase.of + ") as universal string"), Values({phrase.value}));
        ExpectNone(host, {phrase.singular, phrase.plural, kOfBare, ""});
    }
}

TEST_F(SitesTest, EachTypeAndEachAuthorityHasItsName) {
    SiteMap a = Named("a");
    SiteMap b = Named("b");
    SiteMap c = Named("c");
    SiteMap d = Named("d");
    a.type = SiteType::Custom;
    b.type = SiteType::Praxel;
    c.type = SiteType::MasterAction;
    d.type = SiteType::Operator;
    a.gatherScheduleAuthority = GatherScheduleAuthority::Custom;
    b.gatherScheduleAuthority = GatherScheduleAuthority::Disable;
    c.gatherScheduleAuthority = GatherScheduleAuthority::Manual;
    d.gatherScheduleAuthority = GatherScheduleAuthority::Publisher;
    host.holder.Replace({a, b, c, d});
    EXPECT_EQ(Asked("types of sites"), Values({"Custom Site", "Praxel Site", "Master Action Site", "Operator Site"}));
    EXPECT_EQ(Asked("gather schedule authoritys of sites"), Values({"Custom", "Disable", "Manual", "Publisher"}));
}

TEST_F(SitesTest, AllByNameAndTheCurrentOne) {
    EXPECT_EQ(Asked("names of sites"), Values({"Full", "Bare"}));
    EXPECT_EQ(Asked("name of site").failure, "ArgumentNotUnique");
    ExpectNone(host, {"name of site \"full\"", "names of sites \"full\"", "", ""});
    ExpectNone(host, {"name of site \"x\"", "names of sites \"x\"", "", ""});
    ExpectNone(host, {"name of current site", "names of current sites", "", ""});
    host.holder.SetCurrent(host.Site(1));
    ExpectValue(host, {"name of current site", "names of current sites", "", "Bare"});
    EXPECT_EQ(Asked("sites"), Fails("OperationNotDefined"));
    host.holder.Replace({});
    EXPECT_EQ(Asked("names of sites"), Nothing());
    EXPECT_EQ(Asked("exists current site"), Values({"False"}));
}

TEST_F(SitesTest, AFlaggedSiteGoesByItsTranslatedName) {
    SiteMap flagged = Named("CustomSite_1");
    flagged.nameIsTranslated = true;
    host.holder.Replace({flagged, Named("Bare")});
    EXPECT_EQ(Asked("names of sites"), Values({"CustomSite_1", "Bare"}));
    host.knownNames = {{"CustomSite_1", "My Site"}, {"Bare", "never asked for"}};
    EXPECT_EQ(Asked("names of sites"), Values({"My Site", "Bare"}));
    EXPECT_EQ(Asked("name of site \"My Site\""), Values({"My Site"}));
    EXPECT_EQ(Asked("name of site \"CustomSite_1\""), DoesNotExist());
    host.knownNames["CustomSite_1"] = std::string(1023, 'x');
    EXPECT_EQ(Asked("lengths of names of sites"), Values({"1023", "4"}));
    host.knownNames["CustomSite_1"] = std::string(1024, 'x');
    EXPECT_EQ(Asked("names of sites"), Fails("LookupCustomSiteResultBufTooSmall"));
}

TEST_F(SitesTest, FoldersAndMastheads) {
    const TemporaryPlace place;
    host.dataFolder = place.Location();
    ExpectNone(host, {"folder", "folders", kOfFull, ""});
    ExpectNone(host, {"client folder", "client folders", kOfFull, ""});
    ExpectNone(host, {"masthead", "mastheads", kOfFull, ""});
    place.Folder("Full/__Local");
    ExpectValue(host, {"folder", "folders", kOfFull, place.Path("Full")});
    ExpectValue(host, {"client folder", "client folders", kOfFull, place.Path("Full")});
    ExpectNone(host, {"masthead", "mastheads", kOfFull, ""});
    for (const std::string name : {"Full/__Local/Masthead", "Full/masthead", "Full/Masthead"}) {
        place.File(name);
        ExpectValue(host, {"masthead", "mastheads", kOfFull, place.Path(name)});
    }
}

TEST_F(SitesTest, SettingsAreInTheSubsectionOfTheSitesName) {
    host.ofSites.subsections["Full"] = {{"One", "1", {}, {}}, {"two", {}, {}, "0"}};
    host.ofSites.subsections["Bare"] = {{"only", "x", {}, {}}};
    EXPECT_EQ(Asked("settings" + kOfFull), Values({"One=1", "two="}));
    ExpectValue(host, {"setting", "settings", kOfBare, "only=x"});
    ExpectValue(host, {"setting \"ONE\"", "settings \"one\"", kOfFull, "One=1"});
    ExpectNone(host, {"setting \"only\"", "settings \"only\"", kOfFull, ""});
    EXPECT_EQ(Asked("settings of sites"), Values({"One=1", "two=", "only=x"}));
}

TEST_F(SitesTest, GroupsAndWhetherThisMachineIsOfThem) {
    host.groups = {0, 7, 8};
    host.memberships = {8};
    ExpectValue(host, {"id of group 7", "ids of groups 7", kOfFull, "7"});
    ExpectValue(host, {"member of group 7", "members of groups 7", kOfFull, "False"});
    ExpectValue(host, {"member of group 8", "members of groups 8", kOfFull, "True"});
    ExpectNone(host, {"id of group 9", "ids of groups 9", kOfFull, ""});
    ExpectNone(host, {"id of group (-1)", "ids of groups (-1)", kOfFull, ""});
    EXPECT_EQ(Asked("group 7" + kOfFull), Fails("OperationNotDefined"));
}

}  // namespace
