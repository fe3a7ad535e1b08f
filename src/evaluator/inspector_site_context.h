// What inspectors ask about the sites that their host subscribes to, and where these keep their files.
#ifndef EVALUATOR_INSPECTOR_SITE_CONTEXT_H
#define EVALUATOR_INSPECTOR_SITE_CONTEXT_H

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

class FileLocation;
class SiteMapHolder;
struct SiteMap;

// The records are the host's and stay as they are while an evaluation runs.
class InspectorSiteContext {
public:
    using Location = std::unique_ptr<FileLocation>;

    // Makes the location of a name in a folder.
    using LocationFactory = Location (*)(const FileLocation& parent, std::string_view name);

    virtual ~InspectorSiteContext() = default;

    // The folder of a site by the folder's name, the private area in a site's folder, and where a site keeps its
    // variables and its profile.
    Location (*siteAdviceLocation)(LocationFactory factory, std::string_view folderName) = nullptr;
    Location (*siteDataLocation)(LocationFactory factory, const FileLocation& siteFolder) = nullptr;
    Location (*profileLocation)(LocationFactory factory, const SiteMap& site) = nullptr;
    Location (*profileFileLocation)(LocationFactory factory, const SiteMap& site) = nullptr;

    // All sites, in the host's order.
    const std::vector<const SiteMap*>& (*listOfSites)() = nullptr;

    // The site that what is evaluated belongs to, null where it belongs to none.
    const SiteMap* (*currentSite)() = nullptr;

    SiteMapHolder& (*holderInstance)() = nullptr;

    // The name that users know a custom site by, with a zero behind it, from the one that it is stored under; false
    // where it has no other name.  Throws where the buffer is too small for it.
    bool (*lookupCustomSiteName)(std::string_view storedName, char* buffer, size_t size) = nullptr;
};

#endif
