#include "console/eval_context.h"

#include "client/custom_site_name.h"
#include "client/dns_domain_name.h"
#include "client/fips_mode.h"
#include "client/inspector_library_list.h"
#include "client/inspector_settings.h"
#include "client/inspector_storage_path.h"
#include "client/process_table.h"
#include "client/site_map_holder.h"
#include "client/site_scan.h"
#include "client/storage_path.h"
#include "foundation/sha1.h"
#include "values/string.h"

namespace {

inspector_string Sha1OfFileInEvaluationMemory(const FileLocation& location) {
    return CopiedString(Sha1OfFile(location).View());
}

inspector_string Sha1OfBytesInEvaluationMemory(const unsigned char* begin, const unsigned char* end) {
    return CopiedString(Sha1OfBytes(ConstData(begin, end)).View());
}

}  // namespace

void EvalContext::SetUp(bool scanSites) {
    getExecutableLocation = &StoragePath::GetExecutableLocation;
    getGlobalLocation = &StoragePath::GetGlobalLocation;
    getLibraryLocation = &StoragePath::GetLibLocation;

    siteAdviceLocation = &InspectorStoragePath::InspectorSiteAdviceLocation<Location>;
    siteDataLocation = &InspectorStoragePath::InspectorSiteDataLocation<Location>;
    profileLocation = &InspectorStoragePath::InspectorProfileLocation<Location>;
    profileFileLocation = &InspectorStoragePath::InspectorProfileFileLocation<Location>;
    if (scanSites) {
        ScanSites();
    }
    listOfSites = &SiteMapHolder::List;
    currentSite = &SiteMapHolder::GetCurrentSite;
    holderInstance = &SiteMapHolder::GetInstance;
    lookupCustomSiteName = &LookupCustomSiteName;

    processName = &ProcessTable::SGetProcessName;
    processByName = &ProcessTable::SGetProcessByName;
    processActive = &ProcessTable::SGetProcessActive;
    processActiveByName = &ProcessTable::SGetProcessActiveByName;
    processEntryByName = &ProcessTable::SGetProcessEntryByName;
    applicationEvent = &ProcessTable::SGetAppEvent;
    applicationUsage = &ProcessTable::SGetAppUsage;
    tableInstance = &ProcessTable::SGetInstance;

    findByName = &InspectorLibraryList::SFind;
    findByNumber = &InspectorLibraryList::SFindByNumber;

    dnsDomainName = &GetDnsDomainName;

    settingStore = &OSLSettingStore;
    sitesStore = &OSLSitesStore;

    sha1OfFile = &Sha1OfFileInEvaluationMemory;
    sha1OfBytes = &Sha1OfBytesInEvaluationMemory;
    status = &FipsStatus;
}
