#include "foundation/version_strings.h"

namespace {

constexpr char kVersion[] = "1.0.0.0";

}  // namespace

const std::map<std::string, std::string> VersionStringResource::versionMap = {
    {"Version", kVersion},
    {"Comments", ""},
    {"CompanyName", "zendry"},
    {"FileDescription", "Relevance query console"},
    {"FileVersion", kVersion},
    {"InternalName", "zendry"},
    {"LegalCopyright", "The founders of zendry"},
    {"LegalTrademarks", ""},
    {"OriginalFilename", "zendry"},
    {"PrivateBuild", ""},
    {"ProductName", "zendry"},
    {"ProductVersion", kVersion},
    {"SpecialBuild", ""},
    {"BuildTarget", ""},
    {"ModuleName", "HostApplication"},
};
