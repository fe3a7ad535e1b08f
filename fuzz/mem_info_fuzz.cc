// Feeds arbitrary bytes to the parsers of memory, swap and power: what is used of the swap is never more than all of
// it, and a state is a part of the text without blanks around it.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "fuzz/expect.h"
#include "inspectors/mem_info.h"
#include "inspectors/power_level.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    ParseRam(text);
    const swap_info swap = ParseSwap(text);
    Expect(!swap.used || (swap.total && swap.free && *swap.used <= *swap.total));
    const auto state = ParsePowerState(text);
    Expect(!state || (!state->empty() && state->front() != ' ' && state->back() != ' ' && state->size() < size));
    return 0;
}
