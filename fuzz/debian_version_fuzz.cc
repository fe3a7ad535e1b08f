// Feeds arbitrary bytes to the parts of Debian versions.
//
// Whatever the text is, its parts put together again are the text, the epoch has no colon, the revision no dash and the
// upstream version no dash where there is no revision; and what is kept of a version is its text, with a zero byte
// behind it.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "foundation/stack_allocator.h"
#include "fuzz/expect.h"
#include "inspectors/debver.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const DebianVersionParts parts = SplitDebianVersion(text);
    const bool hasEpoch = text.find(':') != std::string::npos;
    Expect(parts.epoch.find(':') == std::string_view::npos && (hasEpoch || parts.epoch == "0"));
    if (parts.revision) {
        Expect(parts.revision->find('-') == std::string_view::npos);
    } else {
        Expect(parts.upstream.find('-') == std::string_view::npos);
    }
    std::string whole = hasEpoch ? std::string(parts.epoch) + ":" : "";
    whole += parts.upstream;
    if (parts.revision) {
        whole += "-";
        whole += *parts.revision;
    }
    Expect(whole == text);

    StackAllocator<4096> memory;
    const AllocatorInstaller installed(memory);
    const debian_package_version version{inspector_string(std::string_view(text))};
    Expect(version.View() == text && version.View().data()[size] == '\0');
    const Kept<debian_package_version> kept(version);
    Expect(kept.Value().View() == text && kept.Value().View().data() != version.View().data());
    Expect(kept.Value().View().data()[size] == '\0');
    return 0;
}
