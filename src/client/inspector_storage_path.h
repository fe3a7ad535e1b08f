// The places of a site, for inspectors.
//
// Each function works out a parent and a name and leaves it to a factory to make one of them: the same logic serves who
// only wants to know a location and who wants to keep one.  A factory is called once, and its result is returned.
#ifndef CLIENT_INSPECTOR_STORAGE_PATH_H
#define CLIENT_INSPECTOR_STORAGE_PATH_H

#include <memory>
#include <string_view>

#include "client/site_map.h"
#include "client/storage_path.h"
#include "foundation/reserved_names.h"

// The factory that inspectors pass in: the joined location, on the heap.
inline std::unique_ptr<FileLocation> InspectorFileLocation(const FileLocation& parent, std::string_view name) {
    return std::make_unique<FileLocation>(parent, name);
}

namespace InspectorStoragePath {

template <class Result>
using Factory = Result (*)(const FileLocation& parent, std::string_view name);

template <class Result>
Result InspectorSiteDataLocation(Factory<Result> factory, const FileLocation& parent) {
    return factory(parent, cRESERVED_DIRECTORY_LOCAL);
}

// The rest lie in the data folder, which is made where it is not there yet; what makes that fail is thrown.

template <class Result>
Result InspectorSiteAdviceLocation(Factory<Result> factory, std::string_view name) {
    return factory(StoragePath::GetDataFolderLocation(), name);
}

template <class Result>
Result InspectorProfileFileLocation(Factory<Result> factory, const SiteMap& site) {
    return factory(StoragePath::SiteFolderLocation(site.folderName), cRESERVED_PROFILE_FILENAME);
}

template <class Result>
Result InspectorProfileLocation(Factory<Result> factory, const SiteMap& site) {
    const FileLocation siteFolder = StoragePath::SiteFolderLocation(site.folderName);
    return factory(StoragePath::SiteLocalLocation(siteFolder), cRESERVED_SITE_PROFILE);
}

}  // namespace InspectorStoragePath

#endif
