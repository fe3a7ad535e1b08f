#include "inspectors/debian_support_library.h"

#include <dlfcn.h>
#include <sys/stat.h>

#include <cerrno>
#include <memory>

#include "evaluator/inspector_context.h"
#include "foundation/file_stat.h"

namespace {

struct Close {
    void operator()(void* handle) const { dlclose(handle); }
};

template <class Function>
void FindEntryPoint(void* handle, const char* name, Function*& entry) {
    entry = reinterpret_cast<Function*>(dlsym(handle, name));
}

bool IsAbsent(const FileLocation& place) {
    struct stat64 status {};
    return lstat64(place.CString(), &status) != 0 && (errno == ENOENT || errno == ENOTDIR);
}

}  // namespace

FileLocation DebianSupportLibrary::PlaceOf(const char* supportLibrary) const {
    const FileLocation* executable = executable_();
    if (executable == nullptr) {
        return FileLocation();
    }
    return FileLocation(FileLocation(executable->Parent().Parent(), "OSLLib"), supportLibrary);
}

bool DebianSupportLibrary::IsInstalled(const char* supportLibrary) const {
    try {
        return FileStat(PlaceOf(supportLibrary)).IsRegular();
    } catch (const DebuggableException&) {
        return false;
    }
}

bool DebianSupportLibrary::TryAptPkgLibVersion(const std::string& name, std::string& report) {
    std::unique_ptr<void, Close> library(dlopen(name.c_str(), RTLD_LAZY));
    if (library == nullptr) {
        report += "\n   tryAptPkgLibVersion can't open " + name;
        return false;
    }
    const auto* version = static_cast<const char* const*>(dlsym(library.get(), "pkgLibVersion"));
    if (version == nullptr || *version == nullptr) {
        report += "\n   tryAptPkgLibVersion can't find pkgLibVersion in " + name;
        return false;
    }
    std::string text = *version;
    library.reset();
    report += "\n   tryAptPkgLibVersion opened " + name;
    chosen_ = store_.Find(text);
    if (chosen_ != nullptr) {
        pkgLibVersion_ = std::move(text);
    }
    return chosen_ != nullptr;
}

// Beside the executable's folder, or, where there is none, wherever the dynamic linker finds one of its name.
std::string DebianSupportLibrary::PathOfChosen() const {
    const FileLocation place = PlaceOf(chosen_->supportLibrary);
    if (place.IsEmpty()) {
        return chosen_->supportLibrary;
    }
    const FileStat stat(place);
    if (!stat.IsThere() && !IsAbsent(place)) {
        throw InvalidStats();
    }
    return stat.IsRegular() ? std::string(place.Text()) : chosen_->supportLibrary;
}

void DebianSupportLibrary::FindEntryPoints() {
    FindEntryPoint(handle_, chosen_->cacheCreator, creator_);
    FindEntryPoint(handle_, chosen_->cacheDestroyer, destroyer_);
    FindEntryPoint(handle_, chosen_->versioningSystem, versioning_);
    FindEntryPoint(handle_, chosen_->emptyIterators, makers_);
}

void DebianSupportLibrary::Load() {
    if (IsLoaded()) {
        return;
    }
    std::string report = "LoadDebianSupportLibraryForOurVersion results:";
    if (chosen_ == nullptr) {
        // Each time anew: where the executable lies may have become known since.
        if (!hasOwnStore_) {
            store_ = AptLibraryVersionInfoStore::Known([this](const char* name) { return IsInstalled(name); });
        }
        for (const std::string& name : store_.Candidates()) {
            if (TryAptPkgLibVersion(name, report)) {
                break;
            }
        }
    }
    if (chosen_ == nullptr) {
        throw LoadDebianSupportLibraryError(report + "\n  Couldn't determine library to use.");
    }
    const std::string path = PathOfChosen();
    report += "\n  Loading " + path;
    std::unique_ptr<void, Close> library(dlopen(path.c_str(), RTLD_NOW | RTLD_GLOBAL));
    if (library == nullptr) {
        throw LoadDebianSupportLibraryError(report + "\n  Can't load " + path);
    }
    handle_ = library.get();
    FindEntryPoints();
    if (!IsLoaded()) {
        handle_ = nullptr;
        throw LoadDebianSupportLibraryError(report + "\n  Still missing entry points");
    }
    library.release();
}

namespace {

const FileLocation* ContextExecutable() {
    const auto& storage = ContextInterface<InspectorStorageContext, InspectorStorageContextError>();
    return storage.getExecutableLocation == nullptr ? nullptr : storage.getExecutableLocation();
}

}  // namespace

// Never destroyed, like the library that it holds: values and threads may outlive the statics.
DebianSupportLibrary& ProcessDebianSupportLibrary() {
    static DebianSupportLibrary& library = *std::make_unique<DebianSupportLibrary>(ContextExecutable).release();
    return library;
}

const DebianSupportLibrary& LoadDebianSupportLibraryForOurVersion() {
    DebianSupportLibrary& library = ProcessDebianSupportLibrary();
    library.Load();
    return library;
}
