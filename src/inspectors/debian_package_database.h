// An opened package cache, shared by all the values that look into it.
#ifndef INSPECTORS_DEBIAN_PACKAGE_DATABASE_H
#define INSPECTORS_DEBIAN_PACKAGE_DATABASE_H

#include <memory>

#include "foundation/exception_pl.h"
#include "inspectors/debian_support_library.h"

// The cache cannot be opened: the support library's own words.
struct DebianPackageDatabaseError : ExceptionPL {
    using ExceptionPL::ExceptionPL;
};

class DebianPackageDatabase {
public:
    // Opens the cache with a library that is loaded and outlives this.  Throws DebianPackageDatabaseError and
    // std::bad_alloc.
    explicit DebianPackageDatabase(const DebianSupportLibrary& library);

    const DebianSupportLibrary& Library() const { return library_; }
    const wrp_pkgCache& Cache() const { return *cache_; }

private:
    const DebianSupportLibrary& library_;
    const std::unique_ptr<wrp_pkgCache, CacheDestroyer*> cache_;
};

// The last holder closes the cache.
using DebianPackageDatabaseReference = std::shared_ptr<const DebianPackageDatabase>;

// A database of this process's support library.  Throws what loading that and opening the cache throw.
DebianPackageDatabaseReference OpenDebianPackageDatabase();

#endif
