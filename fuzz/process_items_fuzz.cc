// Feeds arbitrary bytes to the items of a process's files: each is a stretch without a zero byte, and together they are
// all that is not zero.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/expect.h"
#include "inspectors/environment.h"
#include "inspectors/process_items.h"
#include "inspectors/process_walk.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    size_t bytes = 0;
    for (CmdLineArgReader reader(text); reader.HasMore();) {
        const std::string item(reader.NextItem());
        Expect(!item.empty() && item.find('\0') == std::string::npos);
        bytes += item.size();
        const EnvironmentEntry entry = ParseEnvironmentItem(item);
        Expect(entry.name + "=" + entry.value == item || (entry.name == item && entry.value.empty()));
        Expect(item.ends_with(BaseName(item)));
    }
    Expect(bytes == static_cast<size_t>(std::count_if(text.begin(), text.end(), [](char c) { return c != 0; })));
    return 0;
}
