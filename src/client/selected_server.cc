// The server that the agent's selector has chosen, and what the choice was made by.
//
// A selected server points at the selector's entry.  With nothing chosen there is no selected server; a choice whose
// entry is missing is a fault of the host, which each property tells with its own line.
#include <optional>

#include "evaluator/adapters.h"
#include "evaluator/host_function.h"
#include "evaluator/host_selector_inspector_context.h"
#include "values/integer.h"
#include "values/integer_range.h"
#include "values/ip_address.h"
#include "values/string.h"

struct selected_server {
    const HostSelectorEntry* entry;
};

template <>
struct InspectorTypeInfo<selected_server> : InspectorTypeBasics<selected_server, 0> {
    static constexpr char Name[] = "selected server";
    static constexpr unsigned Size = sizeof(selected_server);
};

namespace {

// Kept as it stands: the fault names the file by which hosts know these inspectors, and the line of the accessor.
const HostSelectorEntry& EntryOf(const selected_server& server, int line = __builtin_LINE()) {
    if (server.entry == nullptr) {
        throw InspectorInternalError("h/HostSelectorInspectors", line);
    }
    return *server.entry;
}

std::optional<ipv4or6_inspector_address> KnownAddress(const ipv4or6_inspector_address* address) {
    return address != nullptr && address->Valid() ? std::optional<ipv4or6_inspector_address>(*address) : std::nullopt;
}

std::optional<selected_server> SelectedServer() {
    const HostSelector* const selector =
        HostFunction<&HostSelectorInspectorContext::selector, HostSelectorInspectorContextError>()();
    if (selector == nullptr || !selector->current || *selector->current >= selector->entries.size()) {
        return std::nullopt;
    }
    return selected_server{selector->entries[*selector->current]};
}

inspector_string NameOf(const selected_server& server) { return CopiedString(EntryOf(server).name); }
std::optional<ipv4or6_inspector_address> IPAddressOf(const selected_server& server) {
    return KnownAddress(EntryOf(server).address);
}
integer PortNumberOf(const selected_server& server) { return EntryOf(server).port; }
integer_range DistanceOf(const selected_server& server) {
    const HostSelectorEntry& entry = EntryOf(server);
    return {entry.leastDistance, entry.greatestDistance};
}
integer PriorityOf(const selected_server& server) { return EntryOf(server).priority; }
integer WeightOf(const selected_server& server) { return EntryOf(server).weight; }
integer CompetitionSizeOf(const selected_server& server) { return EntryOf(server).competitionSize; }
integer CompetitionWeightOf(const selected_server& server) { return EntryOf(server).competitionWeight; }

// Gateways count from 1, the nearest to the agent; one that did not answer has its number and no address.
std::optional<ipv4or6_inspector_address> GatewayOf(integer number, const selected_server& server) {
    const HostSelectorEntry& entry = EntryOf(server);
    const auto place = static_cast<uint64_t>(number.Value());
    return place == 0 || place > entry.gatewayCount ? std::nullopt : KnownAddress(entry.gateways + (place - 1));
}

template <bool Full>
class gateways_on_the_way {
public:
    void Start(Of, const selected_server& server) {
        const HostSelectorEntry& entry = EntryOf(server);
        next_ = entry.gateways;
        end_ = next_ + entry.gatewayCount;
    }
    bool Finished(Of, const selected_server&) {
        while (!Full && next_ != end_ && !next_->Valid()) {
            ++next_;
        }
        return next_ == end_;
    }
    ipv4or6_inspector_address Next(Of, const selected_server&) { return *next_++; }

private:
    const ipv4or6_inspector_address* next_ = nullptr;
    const ipv4or6_inspector_address* end_ = nullptr;
};

// The gateways that answered; and every gateway, those that did not as addresses that are not valid.
using gateway_iterator = gateways_on_the_way<false>;
using full_gateway_iterator = gateways_on_the_way<true>;

// clang-format off
Type<selected_server>                                                   type;

GlobalProperty<selected_server, SelectedServer>                         selectedServer      {"selected server", "selected servers", ByValueOnly};
Property<selected_server, inspector_string, NameOf>                     name                {"name", "names", ByValueOnly};
Property<selected_server, ipv4or6_inspector_address, IPAddressOf>       ipAddress           {"ip address", "ip addresses", ByValueOnly};
Property<selected_server, integer, PortNumberOf>                        portNumber          {"port number", "port numbers", ByValueOnly};
Property<selected_server, integer_range, DistanceOf>                    distance            {"distance", "distances", ByValueOnly};
Property<selected_server, integer, PriorityOf>                          priority            {"priority", "priorities", ByValueOnly};
Property<selected_server, integer, WeightOf>                            weight              {"weight", "weights", ByValueOnly};
Property<selected_server, integer, CompetitionSizeOf>                   competitionSize     {"competition size", "competition sizes", ByValueOnly};
Property<selected_server, integer, CompetitionWeightOf>                 competitionWeight   {"competition weight", "competition weights", ByValueOnly};
NumberedProperty<selected_server, ipv4or6_inspector_address, GatewayOf> gateway             {"gateway address", "gateway addresses", ByValueOnly};
IteratedPropertyOfObject<gateway_iterator, ipv4or6_inspector_address, selected_server, &gateway_iterator::Next, &gateway_iterator::Next,
                         &gateway_iterator::Start, &gateway_iterator::Finished>
                                                                        gateways            {"gateway address", "gateway addresses", ByValueOnly};
IteratedPropertyOfObject<full_gateway_iterator, ipv4or6_inspector_address, selected_server, &full_gateway_iterator::Next,
                         &full_gateway_iterator::Next, &full_gateway_iterator::Start, &full_gateway_iterator::Finished>
                                                                        fullGateways        {"full gateway address", "full gateway addresses", ByValueOnly};
// clang-format on

}  // namespace
