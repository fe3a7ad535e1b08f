// Finds the sites of the data tree.
//
// A site is a folder directly in the data folder whose name is not reserved and that holds a masthead.
#ifndef CLIENT_SITE_SCAN_H
#define CLIENT_SITE_SCAN_H

#include <vector>

#include "client/site_map.h"
#include "foundation/file_stat.h"

class FileLocation;

// The masthead in a site's folder, the first there is of "Masthead", "masthead" and "__Local/Masthead"; a look that is
// not of a regular file where there is none.
FileStat MastheadOfSite(const FileLocation& siteFolder);

// The sites in a data folder, in the order of their folders' names.  Nothing in the tree makes this fail: what cannot
// be read says nothing of its site, and a folder that is not there has no sites.  Throws std::bad_alloc.
std::vector<SiteMap> SitesInDataFolder(const FileLocation& dataFolder);

// Hands the sites of the storage location to the process's SiteMapHolder.  Makes no folder.  Throws nothing; what fails
// leaves the sites unknown.
void ScanSites() noexcept;

#endif
