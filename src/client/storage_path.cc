#include "client/storage_path.h"

#include <memory>

#include "foundation/file_error.h"
#include "foundation/reserved_names.h"

namespace StoragePath {

namespace {

struct Given {
    std::unique_ptr<FileLocation> executable;
    std::unique_ptr<FileLocation> storage;
    std::unique_ptr<FileLocation> library;
    std::unique_ptr<FileLocation> global;
};

Given& Locations() {
    static Given given;
    return given;
}

}  // namespace

void SetExecutableLocation(const FileLocation& location) {
    Locations().executable = std::make_unique<FileLocation>(location);
}
void SetStorageLocation(const FileLocation& location) {
    Locations().storage = std::make_unique<FileLocation>(location);
}
void SetLibLocation(const FileLocation& location) { Locations().library = std::make_unique<FileLocation>(location); }

const FileLocation* GetExecutableLocation() { return Locations().executable.get(); }

const FileLocation& GetLibLocation() {
    if (Locations().library == nullptr) {
        throw UnsetLibLocation();
    }
    return *Locations().library;
}

const FileLocation& GetGlobalLocation() {
    Given& given = Locations();
    if (given.global == nullptr) {
        if (given.storage == nullptr) {
            throw UnsetStorageLocation();
        }
        const FileLocation data(*given.storage, cRESERVED_DIRECTORY_DATA);
        given.global = std::make_unique<FileLocation>(data, cRESERVED_DIRECTORY_GLOBAL);
    }
    return *given.global;
}

}  // namespace StoragePath
