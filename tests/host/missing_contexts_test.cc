// What inspectors say of a host that lacks what they ask for.
#include <map>
#include <typeindex>

#include "tests/foundation/temporary_place.h"
#include "tests/host/filled_host.h"
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

// One entry that a host of everything lacks, and what asks it.
struct MissingEntry {
    void (*remove)(FilledHost& host);
    const char* error;
    std::vector<const char*> questions;
};

template <auto Entry>
void Remove(FilledHost& host) {
    host.*Entry = nullptr;
}

void TranslateNoName(FilledHost& host) {
    SiteMap site = *host.Site(0);
    site.nameIsTranslated = true;
    host.holder.Replace({site});
    host.lookupCustomSiteName = nullptr;
}

// clang-format off
const MissingEntry kMissingEntries[] = {
    {&Remove<&InspectorActionContext::currentAction>,              "InspectorActionContextError",        {"exists action", "statuss of actions"}},
    {&Remove<&InspectorActionContext::activeAction>,               "InspectorActionContextError",        {"exists active actions"}},
    {&Remove<&InspectorActionContext::actionById>,                 "InspectorActionContextError",        {"exists action 17"}},
    {&Remove<&InspectorActionContext::nextRelevantOffer>,          "InspectorActionContextError",        {"ids of relevant offer actions of sites"}},
    {&Remove<&InspectorActionContext::state>,                      "InspectorActionContextError",        {"id of action", "status of action", "exit codes of actions", "pendings of actions", "pending times of actions"}},
    {&Remove<&InspectorActionContext::parameter>,                  "InspectorActionContextError",        {"parameter \"p\" of action"}},
    {&Remove<&InspectorActionContext::currentParameter>,           "InspectorActionContextError",        {"parameter \"p\""}},
    {&Remove<&InspectorActionContext::nextHeader>,                 "InspectorActionContextError",        {"names of headers of action", "values of headers \"subject\" of action"}},
    {&Remove<&InspectorPraxelContext::nextPraxel>,                 "InspectorPraxelContextError",        {"ids of praxels of sites"}},
    {&Remove<&InspectorPraxelContext::nextRelevantPraxel>,         "InspectorPraxelContextError",        {"ids of relevant praxels of sites"}},
    {&Remove<&InspectorPraxelContext::relevance>,                  "InspectorPraxelContextError",        {"relevance of current analysis"}},
    {&Remove<&InspectorPraxelContext::nextHeader>,                 "InspectorPraxelContextError",        {"names of headers of current analysis", "values of headers \"subject\" of current analysis"}},
    {&Remove<&InspectorAnalysisContext::currentAnalysis>,          "InspectorAnalysisContextError",      {"exists current analysis"}},
    {&Remove<&InspectorAnalysisContext::currentIdentity>,          "InspectorAnalysisContextError",      {"exists analysis"}},
    {&Remove<&InspectorAnalysisContext::lastTime>,                 "InspectorAnalysisContextError",      {"last time of analysis"}},
    {&Remove<&InspectorSiteContext::siteAdviceLocation>,           "InspectorSiteContextError",          {"folders of sites", "client folders of sites", "mastheads of sites"}},
    {&Remove<&InspectorSiteContext::listOfSites>,                  "InspectorSiteContextError",          {"names of sites", "exists site \"One\""}},
    {&Remove<&InspectorSiteContext::currentSite>,                  "InspectorSiteContextError",          {"exists current site"}},
    {&TranslateNoName,                                             "InspectorSiteContextError",          {"names of sites", "exists site \"One\""}},
    {&Remove<&InspectorSystemContext::registration>,               "InspectorSystemContextError",        {"registration address of client", "registration subnet address of client", "registration cidr address of client", "registration mac address of client"}},
    {&Remove<&InspectorSystemContext::lastCommandTime>,            "InspectorSystemContextError",        {"last command time of client"}},
    {&Remove<&InspectorSystemContext::administrativeRights>,       "InspectorSystemContextError",        {"enabled of administrative rights of client"}},
    {&Remove<&InspectorSystemContext::pendingLogin>,               "InspectorSystemContextError",        {"pending login"}},
    {&Remove<&InspectorSystemContext::hasGroup>,                   "InspectorSystemContextError",        {"ids of groups 7 of sites"}},
    {&Remove<&InspectorSystemContext::isMember>,                   "InspectorSystemContextError",        {"members of groups 7 of sites"}},
    {&Remove<&PendingRestartInspectorContext::pendingRestart>,     "InspectorSystemContextError",        {"pending restart"}},
    {&Remove<&PendingRestartInspectorContext::namedPendingRestart>,"InspectorSystemContextError",        {"pending restart \"update\""}},
    {&Remove<&PendingRestartInspectorContext::nextName>,           "InspectorSystemContextError",        {"pending restart names"}},
    {&Remove<&OSLSettingsContext::settingStore>,                   "InspectorSettingsContextError",      {"settings of client", "exists setting \"set\" of client", "administrators of client", "exists administrator \"bob\" of client", "action lock state", "custom site subscription effective date \"custom\""}},
    {&Remove<&OSLSettingsContext::sitesStore>,                     "InspectorSettingsContextError",      {"settings of sites", "exists setting \"of site\" of site \"One\""}},
    {[](FilledHost& h) { h.settingStore = []() -> InspectorSettingStore* { return nullptr; }; },
                                                                   "InspectorSettingsContextError",      {"settings of client"}},
    {&Remove<&InspectorStorageContext::getExecutableLocation>,     "InspectorStorageContextError",       {"client", "brand of client"}},
    {&Remove<&InspectorStorageContext::getGlobalLocation>,         "InspectorStorageContextError",       {"names of application usage summaries", "name of application usage summary \"OSLRelay\""}},
    {&Remove<&InspectorRegistrationContext::lastRegistration>,     "InspectorRegistrationContextError",  {"last relay select time", "exists root server"}},
    {&Remove<&HostSelectorInspectorContext::selector>,             "HostSelectorInspectorContextError",  {"exists selected server"}},
    {&Remove<&InspectorProcessTableContext::processName>,          "InspectorProcessTableContextError",  {"running applications", "recent applications"}},
    {&Remove<&InspectorProcessTableContext::processActive>,        "InspectorProcessTableContextError",  {"running applications", "running application \"OSLRelay\""}},
    {&Remove<&InspectorProcessTableContext::processActiveByName>,  "InspectorProcessTableContextError",  {"relay service", "main gather service", "service \"OSLAgent\"", "running service \"OSLAgent\"", "names of application usage summaries"}},
    {&Remove<&InspectorProcessTableContext::applicationUsage>,     "InspectorProcessTableContextError",  {"exists application usage \"OSLRelay\""}},
    {&Remove<&InspectorProcessTableContext::tableInstance>,        "InspectorProcessTableContextError",  {"names of application usage summaries", "name of application usage summary \"OSLRelay\""}},
};
// clang-format on

TEST(Entries, EachThatIsEmptyIsTheErrorOfItsInterface) {
    for (const MissingEntry& missing : kMissingEntries) {
        for (const char* question : missing.questions) {
            FilledHost host;
            missing.remove(host);
            EXPECT_EQ(Ask(question, &host), Fails(missing.error)) << question;
        }
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
