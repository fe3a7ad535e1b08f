#include "client/custom_site_name.h"

#include <string>

#include "client/settings_paths.h"
#include "client/unix_osl_subsection_store.h"

bool LookupCustomSiteName(std::string_view storedName, char* buffer, size_t size) {
    try {
        const std::string section = SettingsPath::Settings()
                                        .append(1, SettingsPath::separator)
                                        .append(SettingsPath::customSites)
                                        .append(1, SettingsPath::separator)
                                        .append(storedName);
        const UnixPlatform::UnixOSLSubsectionStore store(section);
        std::string name;
        if (!store.ReadString("name", name) || name.empty()) {
            return false;
        }
        if (!store.ReadBuffered("name", buffer, size)) {
            throw LookupCustomSiteResultBufTooSmall();
        }
        return true;
    } catch (const LookupCustomSiteResultBufTooSmall&) {
        throw;
    } catch (...) {
        return false;
    }
}
