#include "client/site_scan.h"

#include <new>
#include <string>
#include <utility>

#include "client/masthead_header_receiver.h"
#include "client/masthead_maker.h"
#include "client/site_data.h"
#include "client/site_map_holder.h"
#include "client/storage_path.h"
#include "foundation/file_location.h"
#include "foundation/file_loop.h"
#include "foundation/reserved_names.h"

FileStat MastheadOfSite(const FileLocation& siteFolder) {
    FileStat look(StoragePath::SiteMastheadLocation(siteFolder));
    if (!look.IsRegular()) {
        look.Look(StoragePath::SiteAlternateMastheadLocation(siteFolder));
    }
    if (!look.IsRegular()) {
        look.Look(StoragePath::SiteLocalMastheadLocation(siteFolder));
    }
    return look;
}

namespace {

// Does `read`; what the file gave until it failed stands.
template <class Read>
void AsFarAsItGoes(const Read& read) {
    try {
        read();
    } catch (const std::bad_alloc&) {
        throw;
    } catch (...) {
    }
}

// The text of one header of a masthead, empty where it has none.  Each is read for itself, so that a masthead of any
// size takes no more memory than the one value.
std::string MastheadText(const FileLocation& location, std::string_view header, Masthead::Text Masthead::*field) {
    Masthead masthead;
    MastheadHeaderReceiver headers(masthead, header);
    AsFarAsItGoes([&] { ReadMasthead(location, headers); });
    return std::string((masthead.*field).Text().View());
}

void ReadSiteMasthead(const FileLocation& location, SiteMap& site) {
    if (std::string name = MastheadText(location, "x-praxel-site-name", &Masthead::siteName); !name.empty()) {
        site.name = std::move(name);
    }
    std::string url = MastheadText(location, "x-praxel-site-gather-url", &Masthead::siteGatherUrl);
    if (url.empty()) {
        url = MastheadText(location, "x-praxel-site-location", &Masthead::siteLocation);
    }
    if (!url.empty()) {
        site.url = std::move(url);
    }
}

SiteMap SiteOfFolder(const FileLocation& folder, const FileLocation& masthead) {
    SiteMap site;
    site.folderName = StoragePath::BaseName(folder.Text());
    site.name = site.folderName;
    ReadSiteMasthead(masthead, site);
    const FileStat data(StoragePath::SiteDataLocation(folder));
    if (data.IsRegular()) {
        AsFarAsItGoes([&] { ReadSiteData(data.Location(), site); });
    }
    site.nameIsTranslated = site.type == SiteType::Custom;
    return site;
}

}  // namespace

std::vector<SiteMap> SitesInDataFolder(const FileLocation& dataFolder) {
    std::vector<SiteMap> sites;
    for (UnixPlatform::FileLoop loop(dataFolder); loop.Valid(); loop.Next()) {
        const FileStat& entry = loop.Current();
        if (!entry.IsDirectory() || StoragePath::IsReservedName(entry.Location())) {
            continue;
        }
        AsFarAsItGoes([&] {
            const FileStat masthead = MastheadOfSite(entry.Location());
            if (masthead.IsRegular()) {
                sites.push_back(SiteOfFolder(entry.Location(), masthead.Location()));
            }
        });
    }
    return sites;
}

void ScanSites() noexcept {
    try {
        const FileLocation dataFolder(StoragePath::GetGlobalLocation(), cRESERVED_DIRECTORY_DATA);
        SiteMapHolder::GetInstance().Replace(SitesInDataFolder(dataFolder));
    } catch (...) {
    }
}
