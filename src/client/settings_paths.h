// The sections of the configuration files: paths as a registry would have them.
#ifndef CLIENT_SETTINGS_PATHS_H
#define CLIENT_SETTINGS_PATHS_H

#include <string>
#include <string_view>

#include "foundation/reserved_names.h"

namespace SettingsPath {

inline constexpr char separator = '\\';

// "Software\<company>\" and what stands there.
inline std::string OfCompany(std::string_view rest) {
    return std::string("Software\\").append(cRESERVED_COMPANY_NAME).append("\\").append(rest);
}

inline std::string GlobalOptions() { return OfCompany("EnterpriseClient\\GlobalOptions"); }
inline std::string ClientRegister() { return OfCompany("EnterpriseClient\\ClientRegister"); }
inline std::string PropServer() { return OfCompany("Enterprise Server\\PropServer"); }
inline std::string GatherService() { return OfCompany("Enterprise Server\\GatherService"); }

// The roots of the dated settings, the machine's and the sites'.
inline std::string Settings() { return OfCompany("EnterpriseClient\\Settings"); }
inline std::string SiteSettings() { return OfCompany("EnterpriseClient\\Settings\\Sites"); }

// The subsections of the machine's.
inline constexpr char client[] = "Client";
inline constexpr char administrators[] = "Administrators";
inline constexpr char customSites[] = "CustomSites";
inline constexpr char userOrMachine[] = "UserOrMachine";

}  // namespace SettingsPath

#endif
