// Feeds arbitrary bytes to the parser of a route: it takes the line or refuses it in its own words.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "fuzz/expect.h"
#include "inspectors/routing_table.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    try {
        const linux_ipv4_route route = ParseRoute({reinterpret_cast<const char*>(data), size});
        Expect(!route.interface.empty() && route.destination.IsVersion4() && route.mask.IsVersion4());
    } catch (const RoutingTableParseError&) {
    }
    return 0;
}
