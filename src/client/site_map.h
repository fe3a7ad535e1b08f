// The record of one site.
#ifndef CLIENT_SITE_MAP_H
#define CLIENT_SITE_MAP_H

#include <cstdint>
#include <optional>
#include <string>

#include "values/moment.h"
#include "values/site_version_list.h"
#include "values/time_interval.h"

enum class SiteType { Custom, Praxel, MasterAction, Operator };

// Who decides when a site is gathered.
enum class GatherScheduleAuthority { Custom, Disable, Manual, Publisher };

// What an agent knows of a site that it subscribes to; what it does not know is absent.
struct SiteMap {
    std::string folderName;  // of the site's folder, in the data folder
    std::string name;        // as it is stored

    // Whether users may know the site by another name than the stored one.
    bool nameIsTranslated = false;

    std::optional<std::string> url;
    std::optional<std::string> tag;
    std::optional<SiteType> type;
    std::optional<int64_t> version;
    std::optional<SiteVersionList> versionList;
    std::optional<moment> lastGatherTime;
    std::optional<moment> subscribeTime;
    std::optional<GatherScheduleAuthority> gatherScheduleAuthority;
    std::optional<time_interval> gatherScheduleInterval;
    std::optional<bool> evaluated;  // whether the agent evaluates the site
};

#endif
