// The package support library: found by the apt that the machine has, opened when the program first needs it, and never
// closed, since the objects that it gave live in it.
#ifndef INSPECTORS_DEBIAN_SUPPORT_LIBRARY_H
#define INSPECTORS_DEBIAN_SUPPORT_LIBRARY_H

#include <string>

#include "foundation/exception_pl.h"
#include "foundation/file_location.h"
#include "inspectors/apt_library_version_info_store.h"
#include "support/packages/debian_wrappers.h"

// Why there is no support library: the report of all that was tried.
struct LoadDebianSupportLibraryError : ExceptionPL {
    using ExceptionPL::ExceptionPL;
};

class DebianSupportLibrary {
public:
    // Asked for the executable's place, null where that is not known; may throw.
    using ExecutableLocation = const FileLocation* (*)();

    explicit DebianSupportLibrary(ExecutableLocation executable) : executable_(executable) {}
    // With a store of its own in place of the known generations.
    DebianSupportLibrary(ExecutableLocation executable, AptLibraryVersionInfoStore store)
        : executable_(executable), hasOwnStore_(true), store_(std::move(store)) {}
    DebianSupportLibrary(const DebianSupportLibrary&) = delete;
    DebianSupportLibrary& operator=(const DebianSupportLibrary&) = delete;

    // Finds out which generation of apt the machine has and opens the support library for it.  Does nothing where that
    // has been done; after a failure it begins again, with the generation that was chosen.  Throws
    // LoadDebianSupportLibraryError, InvalidStats, and what asking for the executable's place throws.
    void Load();

    bool IsLoaded() const {
        return creator_ != nullptr && destroyer_ != nullptr && versioning_ != nullptr && makers_ != nullptr;
    }

    // apt's version as it tells it; empty before a generation was chosen.
    const std::string& PkgLibVersion() const { return pkgLibVersion_; }

    // Only where it is loaded.  The creator may throw anything.
    wrp_pkgCache* CreateCache() const { return creator_(); }
    CacheDestroyer* Destroyer() const { return destroyer_; }
    const wrp_pkgVersioningSystem* VersioningSystem() const { return versioning_(); }
    const wrp_EmptyIteratorMakers* EmptyIteratorMakers() const { return makers_(); }

private:
    // The support library's place beside the executable's folder; empty where the executable's is not known.
    FileLocation PlaceOf(const char* supportLibrary) const;
    bool IsInstalled(const char* supportLibrary) const;
    bool TryAptPkgLibVersion(const std::string& name, std::string& report);
    std::string PathOfChosen() const;
    void FindEntryPoints();

    const ExecutableLocation executable_;
    const bool hasOwnStore_ = false;
    AptLibraryVersionInfoStore store_;
    const AptLibraryVersionInfo* chosen_ = nullptr;
    std::string pkgLibVersion_;
    void* handle_ = nullptr;
    CacheCreator* creator_ = nullptr;
    CacheDestroyer* destroyer_ = nullptr;
    VersioningSystemGetter* versioning_ = nullptr;
    EmptyIteratorMakersGetter* makers_ = nullptr;
};

// The one of this process, whose executable is that of the current context.
DebianSupportLibrary& ProcessDebianSupportLibrary();

// The one of this process, loaded.  Throws as Load does.
const DebianSupportLibrary& LoadDebianSupportLibraryForOurVersion();

#endif
