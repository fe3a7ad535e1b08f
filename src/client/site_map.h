// The record of one site.
#ifndef CLIENT_SITE_MAP_H
#define CLIENT_SITE_MAP_H

#include <string>

// As much of a site as its place in the data tree needs.
struct SiteMap {
    std::string folderName;  // of the site's folder, in the data folder
};

#endif
