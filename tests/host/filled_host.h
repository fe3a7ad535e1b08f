// A host with one of everything, every field of it told: a site, an item, an action, a server that is chosen and so on.
#ifndef TESTS_HOST_FILLED_HOST_H
#define TESTS_HOST_FILLED_HOST_H

#include "client/stat_file.h"
#include "tests/foundation/temporary_place.h"
#include "tests/host/embedding_host.h"
#include "values/ip_address.h"

class FilledHost : public EmbeddingHost {
public:
    FilledHost() {
        FillSites();
        FillContent();
        FillAction();
        FillAgent();
        FillServers();
        FillProcesses();
    }

    // Puts the use of its one application into its file.
    void StoreUse(const StatRecord& record) const {
        place.File("UsageData/OSLRelay.stat", StatFileBytes(std::span(&record, 1)));
    }

    const TemporaryPlace place;
    const ipv4or6_inspector_address address = *ipv4or6_inspector_address::Parse("10.9.8.7");
    const HostSelectorEntry server{"chosen.example", &address, 52311, 1, 4, 12, 100, 2, 30, &address, 1};

private:
    static constexpr int64_t kSecond = 1'000'000;

    void FillSites() {
        SiteMap site;
        site.name = "One";
        site.folderName = "One";
        site.url = "http://example.com/one";
        site.tag = "tag";
        site.type = SiteType::Custom;
        site.version = 12;
        SiteVersionList versions;
        versions[0] = 3;
        versions[1] = 4;
        site.versionList = versions;
        site.lastGatherTime = moment(1 * kSecond);
        site.subscribeTime = moment(2 * kSecond);
        site.gatherScheduleAuthority = GatherScheduleAuthority::Publisher;
        site.gatherScheduleInterval = time_interval(integer(3600 * kSecond));
        site.evaluated = true;
        holder.Replace({site});
        holder.SetCurrent(Site(0));
        dataFolder = place.Location();
        place.Folder("One");
        place.File("One/masthead");
        ofSites.subsections["One"] = {{"of site", "1", {}, {}}};
        groups = {7};
        memberships = {7};
    }

    void FillContent() {
        HostPraxels::Item item;
        item.id = 5;
        item.site = Site(0);
        item.relevant = true;
        item.headers = {{"Subject", "of item"}};
        items.push_back(item);
        analysis = &items[0];
        lastTimes = {{5, 3 * kSecond}};
    }

    void FillAction() {
        ActionRecord& action = actions.emplace_back();
        action.state.id = 17;
        action.state.originPraxelId = 5;
        action.state.constraint = 213;
        action.state.systemConstraint = 13;
        action.state.firstActiveCount = 14;
        action.state.activeCount = 15;
        action.state.activeLineNumber = 16;
        action.state.lastActiveLineNumber = 18;
        action.state.exitCode = -19;
        action.state.constrained = true;
        action.state.active = true;
        action.state.pendingTime = 4 * kSecond;
        action.state.completeTime = 5 * kSecond;
        action.state.activeStartTime = 6 * kSecond;
        action.state.lastActiveTime = 7 * kSecond;
        action.state.lastChangeTime = 8 * kSecond;
        action.parameters = {{"p", "parameter"}};
        action.headers = {{"Subject", "of action"}};
        action.relevantOfferOf = Site(0);
        current = &action;
        running = &action;
    }

    void FillAgent() {
        program = place.File("agent");
        storage = place.Location();
        registered = {"10.1.2.3", "10.1.0.0", "10.1.0.0/16", "00-11-22-33-44-55"};
        commandTime = 9 * kSecond;
        rights = true;
        loginPending = false;
        restarts = {"update"};
        ofAgent.subsections["Client"] = {
            {"set", "value", "Tue, 09 Mar 1999 10:11:12 +0000", "1"},
            {"__LockState",
             "locked;controller=console;expiration=Tue, 09 Mar 1999 10:11:12 +0000;"
             "effective=Mon, 08 Mar 1999 10:11:12 +0000;text=why",
             {},
             {}},
            {"_OSLClient_UsageManager_EnableAppUsage", "1", {}, {}},
            {"_OSLClient_UsageManager_EnableAppUsageSummary", "1", {}, {}},
            {"_OSLClient_UsageManager_EnableAppUsageSummaryApps", "OSLRelay", {}, {}},
        };
        ofAgent.subsections["Administrators"] = {{"bob", "1", {}, {}}};
        ofAgent.subsections["CustomSites"] = {{"custom", "1", "Tue, 09 Mar 1999 10:11:12 +0000", {}}};
    }

    void FillServers() {
        told = {10 * kSecond, 11 * kSecond,    "report.example",   "9.2.1",
                "8.1",        "relay.example", "root.example.com", 4711};
        servers = {{&server}, 0};
    }

    void FillProcesses() {
        place.File("OSLRelay");
        runs = {{1, 0, 0, true, place.Path("OSLRelay")}};
        place.Folder("UsageData");
        StoreUse({1 * kSecond, 2 * kSecond, 3 * kSecond, 60 * kSecond, 4, 1234, "1.2", "1.2 beta"});
    }
};

#endif
