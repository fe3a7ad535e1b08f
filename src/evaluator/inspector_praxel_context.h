// What inspectors ask about the content items (praxels) of the sites.
#ifndef EVALUATOR_INSPECTOR_PRAXEL_CONTEXT_H
#define EVALUATOR_INSPECTOR_PRAXEL_CONTEXT_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

struct SiteMap;

// A content item as its host keeps it; what it points at lives as long.
struct PraxelRecord {
    int64_t id = 0;
    const SiteMap* site = nullptr;  // null for an item that belongs to no site
    std::string_view text;
};

// One header of a content item or of an action; the texts are the host's.
struct PraxelHeader {
    std::string_view name;
    std::string_view value;
};

// A cursor starts at 0, is moved on by the host and means nothing to who holds it.
class InspectorPraxelContext {
public:
    virtual ~InspectorPraxelContext() = default;

    // Whether the host is rewriting its items, so that none can be looked at now.  A host without this entry never is.
    bool (*isBusy)() = nullptr;

    // The next item of a site and the next one that is relevant, null at the end.
    const PraxelRecord* (*nextPraxel)(const SiteMap& site, size_t& cursor) = nullptr;
    const PraxelRecord* (*nextRelevantPraxel)(const SiteMap& site, size_t& cursor) = nullptr;

    // Whether the item is relevant; nothing where the host has not found out.
    std::optional<bool> (*relevance)(const PraxelRecord& praxel) = nullptr;

    // The next header, false at the end.
    bool (*nextHeader)(const PraxelRecord& praxel, size_t& cursor, PraxelHeader& header) = nullptr;
};

#endif
