#include "console/eval_context.h"

#include "client/storage_path.h"

void EvalContext::SetUp() {
    getExecutableLocation = &StoragePath::GetExecutableLocation;
    getGlobalLocation = &StoragePath::GetGlobalLocation;
    getLibraryLocation = &StoragePath::GetLibLocation;
}
