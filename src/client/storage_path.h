// The places of the agent's data tree.
#ifndef CLIENT_STORAGE_PATH_H
#define CLIENT_STORAGE_PATH_H

#include "foundation/file_location.h"

namespace StoragePath {

// The locations that are given from outside, at start-up.  Each setter replaces the object, so that references got
// before die.
void SetExecutableLocation(const FileLocation& location);
void SetStorageLocation(const FileLocation& location);
void SetLibLocation(const FileLocation& location);

// The program's own path; null where none has been given.
const FileLocation* GetExecutableLocation();

// The folder of the libraries.  Throws UnsetLibLocation where none has been given.
const FileLocation& GetLibLocation();

// The folder of what all sites share, in the data folder of the storage location.  Built at the first call and kept.
// Throws UnsetStorageLocation where no storage location has been given.
const FileLocation& GetGlobalLocation();

}  // namespace StoragePath

#endif
