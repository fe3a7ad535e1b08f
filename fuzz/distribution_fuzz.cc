// Feeds arbitrary bytes to the distribution probing, as the file of each place in turn and as all of them: a version or
// a code name never comes without a name.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fuzz/expect.h"
#include "inspectors/distribution.h"
#include "inspectors/language.h"
#include "inspectors/locale_names.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) {
        return 0;
    }
    constexpr const char* kPlaces[] = {"/proc/vmware/version", "/etc/enterprise-release", "/etc/redhat-release",
                                       "/etc/SuSE-release",    "/proc/version",           "/etc/debian_version",
                                       "/etc/lsb-release"};
    // The first byte says which places exist; the others share the text.
    const uint8_t places = data[0];
    const std::string text(reinterpret_cast<const char*>(data + 1), size - 1);
    const Distribution found = ProbeDistribution([&](const char* path, size_t most) -> std::optional<std::string> {
        for (size_t i = 0; i < std::size(kPlaces); ++i) {
            if (std::string_view(path) == kPlaces[i]) {
                return (places >> i & 1) != 0 ? std::optional<std::string>(text.substr(0, most)) : std::nullopt;
            }
        }
        std::abort();
    });
    Expect(!found.name.empty() || (found.version.empty() && found.codename.empty()));

    const language spoken = ParseLocale(text);
    Expect(spoken.platform == text && spoken.code[2] == 0 && spoken.country[2] == 0);
    LanguageName(spoken.code[0], spoken.code[1]);
    CountryName(spoken.country[0], spoken.country[1]);
    return 0;
}
