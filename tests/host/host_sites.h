// The sites of a host.
#ifndef TESTS_HOST_HOST_SITES_H
#define TESTS_HOST_HOST_SITES_H

#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "client/custom_site_name.h"
#include "client/site_map_holder.h"
#include "evaluator/inspector_site_context.h"
#include "foundation/file_location.h"
#include "tests/host/current_host.h"

struct HostSites : InspectorSiteContext {
    SiteMapHolder holder;
    FileLocation dataFolder;
    std::map<std::string, std::string, std::less<>> knownNames;  // of custom sites, by their stored names

    HostSites() {
        siteAdviceLocation = [](LocationFactory factory, std::string_view name) {
            return factory(CurrentHost<HostSites>().dataFolder, name);
        };
        siteDataLocation = [](LocationFactory factory, const FileLocation& folder) {
            return factory(folder, "__Local");
        };
        listOfSites = []() -> const std::vector<const SiteMap*>& { return CurrentHost<HostSites>().holder.Sites(); };
        currentSite = []() { return CurrentHost<HostSites>().holder.Current(); };
        holderInstance = []() -> SiteMapHolder& { return CurrentHost<HostSites>().holder; };
        lookupCustomSiteName = [](std::string_view stored, char* buffer, size_t size) {
            const auto& known = CurrentHost<HostSites>().knownNames;
            const auto found = known.find(stored);
            if (found == known.end()) {
                return false;
            }
            if (found->second.size() >= size) {
                throw LookupCustomSiteResultBufTooSmall();
            }
            std::memcpy(buffer, found->second.c_str(), found->second.size() + 1);
            return true;
        };
    }

    const SiteMap* Site(size_t n) const { return holder.Sites().at(n); }
};

#endif
