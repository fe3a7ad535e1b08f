#include "console/start_up.h"

#include <cstdio>
#include <cstdlib>

#include "client/fips_mode.h"
#include "client/inspector_library_list.h"
#include "client/storage_path.h"
#include "client/unix_osl_subsection_store.h"
#include "client/zendry_options_manager.h"
#include "foundation/crypto.h"
#include "foundation/file_stat.h"

namespace {

constexpr char kMastheadVariable[] = "OSLClientActionMastheadPath";
constexpr char kDefaultMasthead[] = "/etc/opt/OSLClient/actionsite.aqzm";

bool FixStorageLocations() {
    static const FileLocation storage =
        GetValue(UnixPlatform::GlobalOptions(), "StoragePath", FileLocation("/var/opt/OSLClient"));
    if (storage.IsEmpty()) {
        std::fputs("Error: Can't find data location.\n", stderr);
        return false;
    }
    StoragePath::SetStorageLocation(storage);
    static const FileLocation library =
        GetValue(UnixPlatform::GlobalOptions(), "LibPath", FileLocation("/opt/OSLClient/OSLLib"));
    StoragePath::SetLibLocation(library);
    return true;
}

// A masthead that is missing is told and is no failure.
FileLocation MastheadLocation() {
    if (const char* const given = std::getenv(kMastheadVariable); given != nullptr) {
        return FileLocation(given);
    }
    FileLocation location(kDefaultMasthead);
    if (FileStat(location).IsThere()) {
        std::fprintf(stderr, "%s not set, using %s\n", kMastheadVariable, kDefaultMasthead);
    } else {
        std::fprintf(stderr, "%s not set and no masthead found\n", kMastheadVariable);
    }
    return location;
}

bool StartCrypto() {
    const FileLocation masthead = MastheadLocation();
    try {
        return RefreshFipsMode(masthead, nullptr);
    } catch (const Crypto_wrapper_load_library_Failed&) {
        std::fputs("Missing libOSLcrypto.\n", stderr);
    } catch (const Crypto_wrapper_load_function_Failed& failure) {
        std::fprintf(stderr, "Missing function '%s' from libOSLcrypto.\n", failure.FunctionName());
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "Failed to refresh fips mode configuration: %s\n", failure.what());
    } catch (...) {
        std::fputs("Failed to refresh fips mode configuration: unknown error\n", stderr);
    }
    return false;
}

}  // namespace

bool StartClient(const FileLocation& program, std::optional<EvalContext>& context) {
    StoragePath::SetExecutableLocation(program);
    ZendryOptionsManager::Instance();
    if (!FixStorageLocations() || !StartCrypto()) {
        return false;
    }
    InspectorLibraryList::Add(0, "HostApplication");
    context.emplace(nullptr);
    context->SetUp(true);
    return true;
}
