#include "inspectors/debian_package_database.h"

#include <new>

namespace {

wrp_pkgCache* OpenedCache(const DebianSupportLibrary& library) {
    constexpr const char* kFailed = "debianpackage inspector can't open the package cache";
    wrp_pkgCache* cache = nullptr;
    try {
        cache = library.CreateCache();
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& failure) {
        throw DebianPackageDatabaseError(failure.what());
    } catch (...) {
        throw DebianPackageDatabaseError(kFailed);
    }
    if (cache == nullptr) {
        throw DebianPackageDatabaseError(kFailed);
    }
    return cache;
}

}  // namespace

DebianPackageDatabase::DebianPackageDatabase(const DebianSupportLibrary& library)
    : library_(library), cache_(OpenedCache(library), library.Destroyer()) {}

DebianPackageDatabaseReference OpenDebianPackageDatabase() {
    return std::make_shared<const DebianPackageDatabase>(LoadDebianSupportLibraryForOurVersion());
}
