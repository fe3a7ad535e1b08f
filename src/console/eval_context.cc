#include "console/eval_context.h"

#include "client/dns_domain_name.h"
#include "client/fips_mode.h"
#include "client/inspector_library_list.h"
#include "client/inspector_settings.h"
#include "client/process_table.h"
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

void EvalContext::SetUp() {
    getExecutableLocation = &StoragePath::GetExecutableLocation;
    getGlobalLocation = &StoragePath::GetGlobalLocation;
    getLibraryLocation = &StoragePath::GetLibLocation;

    findByName = &InspectorLibraryList::SFind;
    findByNumber = &InspectorLibraryList::SFindByNumber;

    dnsDomainName = &GetDnsDomainName;

    settingStore = &MachineInspectorSettings;
    sitesStore = &SiteInspectorSettings;

    sha1OfFile = &Sha1OfFileInEvaluationMemory;
    sha1OfBytes = &Sha1OfBytesInEvaluationMemory;
    status = &FipsStatus;

    processName = &ProcessTable::SGetProcessName;
    processByName = &ProcessTable::SGetProcessByName;
    processActive = &ProcessTable::SGetProcessActive;
    processActiveByName = &ProcessTable::SGetProcessActiveByName;
    processEntryByName = &ProcessTable::SGetProcessEntryByName;
    applicationEvent = &ProcessTable::SGetAppEvent;
    applicationUsage = &ProcessTable::SGetAppUsage;
    tableInstance = &ProcessTable::SGetInstance;
}
