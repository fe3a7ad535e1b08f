// The content items of a host's sites.
#ifndef TESTS_HOST_HOST_PRAXELS_H
#define TESTS_HOST_HOST_PRAXELS_H

#include <deque>
#include <optional>
#include <vector>

#include "evaluator/inspector_praxel_context.h"
#include "tests/host/current_host.h"

// The header at the cursor.
inline bool NextOf(const std::vector<PraxelHeader>& headers, size_t& cursor, PraxelHeader& header) {
    if (cursor == headers.size()) {
        return false;
    }
    header = headers[cursor++];
    return true;
}

struct HostPraxels : InspectorPraxelContext {
    struct Item : PraxelRecord {
        std::optional<bool> relevant;
        std::vector<PraxelHeader> headers;
    };
    std::deque<Item> items;
    bool praxelsAreBusy = false;

    HostPraxels() {
        isBusy = []() { return CurrentHost<HostPraxels>().praxelsAreBusy; };
        nextPraxel = [](const SiteMap& site, size_t& cursor) { return Next(site, cursor, false); };
        nextRelevantPraxel = [](const SiteMap& site, size_t& cursor) { return Next(site, cursor, true); };
        relevance = [](const PraxelRecord& praxel) { return static_cast<const Item&>(praxel).relevant; };
        nextHeader = [](const PraxelRecord& praxel, size_t& cursor, PraxelHeader& header) {
            return NextOf(static_cast<const Item&>(praxel).headers, cursor, header);
        };
    }

private:
    static const PraxelRecord* Next(const SiteMap& site, size_t& cursor, bool relevantAlone) {
        const std::deque<Item>& items = CurrentHost<HostPraxels>().items;
        while (cursor < items.size()) {
            const Item& item = items[cursor++];
            if (item.site == &site && (!relevantAlone || item.relevant == true)) {
                return &item;
            }
        }
        return nullptr;
    }
};

#endif
