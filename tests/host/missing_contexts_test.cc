// What inspectors say of a host that lacks what they ask for.
#include <map>
#include <typeindex>

#include "tests/foundation/temporary_place.h"
#include "tests/host/embedding_host.h"
#include "tests/host/phrases.h"

namespace {

// The phrases that ask one interface, with the error of its empty entries.
struct Family {
    const char* error;
    std::vector<Phrase> phrases;
};

const Family& OfTheWorld(std::type_index interface) {
    static const std::map<std::type_index, Family> families = {
        {typeid(InspectorActionContext),
         {"InspectorActionContextError",
          {{"id of action", "ids of actions", "", ""},
           {"id of action 17", "ids of actions 17", "", ""},
           {"status of active action", "statuss of active actions", "", ""},
           {"parameter \"x\"", "parameters \"x\"", "", ""}}}},
        {typeid(InspectorAnalysisContext),
         {"InspectorAnalysisContextError",
          {{"id of current analysis", "ids of current analyses", "", ""},
           {"last time of analysis", "last times of analysiss", "", ""}}}},
        {typeid(InspectorSiteContext),
         {"InspectorSiteContextError",
          {{"name of current site", "names of current sites", "", ""},
           {"name of site", "names of sites", "", ""},
           {"name of site \"x\"", "names of sites \"x\"", "", ""}}}},
        {typeid(InspectorSystemContext),
         {"InspectorSystemContextError", {{"pending login", "pending logins", "", ""}}}},
        {typeid(PendingRestartInspectorContext),
         {"InspectorSystemContextError",
          {{"pending restart", "pending restarts", "", ""},
           {"pending restart \"x\"", "pending restarts \"x\"", "", ""},
           {"pending restart name", "pending restart names", "", ""}}}},
        {typeid(OSLSettingsContext),
         {"InspectorSettingsContextError",
          {{"action lock state", "action lock states", "", ""},
           {"custom site subscription effective date \"x\"", "custom site subscription effective dates \"x\"", "",
            ""}}}},
        {typeid(InspectorStorageContext), {"InspectorStorageContextError", {{"client", "clients", "", ""}}}},
    };
    return families.at(interface);
}

template <class Interface>
class AWorldWithout : public testing::Test {};

using Interfaces =
    testing::Types<InspectorActionContext, InspectorAnalysisContext, InspectorSiteContext, InspectorSystemContext,
                   PendingRestartInspectorContext, OSLSettingsContext, InspectorStorageContext>;
TYPED_TEST_SUITE(AWorldWithout, Interfaces);

TYPED_TEST(AWorldWithout, AnInterfaceOrItsEntriesIsTold) {
    const Family& family = OfTheWorld(typeid(TypeParam));
    InspectorContext bare;
    EmptyHost<TypeParam> empty;
    for (const Phrase& phrase : family.phrases) {
        ExpectFailure(nullptr, phrase, "NoInspectorContext");
        ExpectFailure(&bare, phrase, "NoInspectorContext");
        ExpectFailure(&empty, phrase, family.error);
    }
}

// A host with sites and a program, which lacks the rest.
struct HostWithSitesAlone : InspectorContext, HostSites, HostStorage {};

struct EmptyRest : HostWithSitesAlone,
                   InspectorActionContext,
                   InspectorPraxelContext,
                   InspectorSystemContext,
                   OSLSettingsContext {};

TEST(Objects, WhatTheirHostLacksIsTold) {
    const TemporaryPlace place;
    SiteMap site;
    site.name = "x";
    const std::string ofSite = " of site \"x\"";
    const std::string ofClient = " of client";
    const std::pair<Phrase, std::string> phrases[] = {
        {{"id of praxel", "ids of praxels", ofSite, ""}, "InspectorPraxelContextError"},
        {{"id of relevant praxel", "ids of relevant praxels", ofSite, ""}, "InspectorPraxelContextError"},
        {{"id of relevant offer action", "ids of relevant offer actions", ofSite, ""}, "InspectorActionContextError"},
        {{"setting", "settings", ofSite, ""}, "InspectorSettingsContextError"},
        {{"setting \"x\"", "settings \"x\"", ofSite, ""}, "InspectorSettingsContextError"},
        {{"id of group 1", "ids of groups 1", ofSite, ""}, "InspectorSystemContextError"},
        {{"setting", "settings", ofClient, ""}, "InspectorSettingsContextError"},
        {{"administrator \"x\"", "administrators", ofClient, ""}, "InspectorSettingsContextError"},
        {{"registration address", "registration addresses", ofClient, ""}, "InspectorSystemContextError"},
        {{"registration subnet address", "registration subnet addresses", ofClient, ""}, "InspectorSystemContextError"},
        {{"registration cidr address", "registration cidr addresses", ofClient, ""}, "InspectorSystemContextError"},
        {{"registration mac address", "registration mac addresses", ofClient, ""}, "InspectorSystemContextError"},
        {{"last command time", "last command times", ofClient, ""}, "InspectorSystemContextError"},
        {{"enabled of administrative rights", "enableds of administrative rightss", ofClient, ""},
         "InspectorSystemContextError"},
    };
    HostWithSitesAlone lacking;
    EmptyRest empty;
    for (HostWithSitesAlone* host : {&lacking, static_cast<HostWithSitesAlone*>(&empty)}) {
        host->holder.Replace({site});
        host->program = place.File("agent");
    }
    for (const auto& [phrase, error] : phrases) {
        ExpectFailure(&lacking, phrase, "NoInspectorContext");
        ExpectFailure(&empty, phrase, error);
    }
}

TEST(Objects, ANumberThatNoActionHasIsNoneBeforeAnyHostIsAsked) {
    for (const char* number : {"(-1)", "4294967296"}) {
        EXPECT_EQ(Ask(std::string("id of action ") + number), DoesNotExist());
        EXPECT_EQ(Ask(std::string("ids of actions ") + number), Nothing());
    }
    EXPECT_EQ(Ask("id of action 4294967295"), Fails("NoInspectorContext"));
}

TEST(Objects, AMissingContextLosesAgainstABar) { EXPECT_EQ(Ask("(id of action) | 7"), Values({"7"})); }

}  // namespace
