// The generations of apt that can be inspected: how each is known, and what its package support library is called.
#ifndef INSPECTORS_APT_LIBRARY_VERSION_INFO_STORE_H
#define INSPECTORS_APT_LIBRARY_VERSION_INFO_STORE_H

#include <functional>
#include <string>
#include <string_view>
#include <vector>

// One generation: what its version text starts with, its support library, and the entry points of that.
struct AptLibraryVersionInfo {
    const char* versionPrefix;
    const char* supportLibrary;
    const char* cacheCreator;
    const char* cacheDestroyer;
    const char* versioningSystem;
    const char* emptyIterators;
};

class AptLibraryVersionInfoStore {
public:
    // An empty store, whose one candidate is "libapt-pkg.so".
    AptLibraryVersionInfoStore();

    // Adds a generation behind those that are there, and the names under which its apt library may be found: separated
    // by commas, the blanks around a name dropped.  The texts must live as long as the store.
    void Add(const AptLibraryVersionInfo& info, std::string_view names);

    // The first generation that the version text belongs to, byte for byte; null for none.
    const AptLibraryVersionInfo* Find(std::string_view version) const;

    // Names for the dynamic linker, in the order in which they are to be tried.
    const std::vector<std::string>& Candidates() const { return candidates_; }

    // The generations of this program.  Those that its own build may bring along take part only where `isInstalled`
    // says so of their support library: without it they leave no trace in what is tried.
    using IsInstalled = std::function<bool(const char* supportLibrary)>;
    static AptLibraryVersionInfoStore Known(const IsInstalled& isInstalled);

private:
    std::vector<AptLibraryVersionInfo> generations_;
    std::vector<std::string> candidates_;
};

#endif
