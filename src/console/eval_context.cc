#include "console/eval_context.h"

#include "client/process_table.h"
#include "client/storage_path.h"

void EvalContext::SetUp() {
    getExecutableLocation = &StoragePath::GetExecutableLocation;
    getGlobalLocation = &StoragePath::GetGlobalLocation;
    getLibraryLocation = &StoragePath::GetLibLocation;

    processName = &ProcessTable::SGetProcessName;
    processByName = &ProcessTable::SGetProcessByName;
    processActive = &ProcessTable::SGetProcessActive;
    processActiveByName = &ProcessTable::SGetProcessActiveByName;
    processEntryByName = &ProcessTable::SGetProcessEntryByName;
    applicationEvent = &ProcessTable::SGetAppEvent;
    applicationUsage = &ProcessTable::SGetAppUsage;
    tableInstance = &ProcessTable::SGetInstance;
}
