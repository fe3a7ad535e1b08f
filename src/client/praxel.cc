#include "client/praxel.h"

#include "client/host_values.h"
#include "client/site.h"
#include "evaluator/adapters.h"
#include "evaluator/host_function.h"

namespace {

// The entry, where the host's items can be looked at now.
template <auto Entry>
auto OfPraxelsAtRest() {
    return HostFunctionAtRest<Entry, InspectorPraxelContextError>();
}

template <auto NextOfSite>
class of_site_iterator {
public:
    std::optional<praxel> First(const site& of) {
        cursor_ = 0;
        return Next(of);
    }
    std::optional<praxel> Next(const site& of) {
        return HostValue::Over<praxel>(OfPraxelsAtRest<NextOfSite>()(of.Map(), cursor_));
    }

private:
    size_t cursor_ = 0;
};

using praxel_iterator = of_site_iterator<&InspectorPraxelContext::nextPraxel>;
using relevant_praxel_iterator = of_site_iterator<&InspectorPraxelContext::nextRelevantPraxel>;

std::optional<boolean> Relevance(const praxel& item) {
    return OfPraxelsAtRest<&InspectorPraxelContext::relevance>()(item.Record());
}

integer PraxelID(const praxel& item) { return item.Record().id; }

std::optional<site> CurrentSiteOfPraxel(const praxel& item) { return HostValue::Over<site>(item.Record().site); }

bool NextHeader(const praxel& item, size_t& cursor, PraxelHeader& header) {
    return OfPraxelsAtRest<&InspectorPraxelContext::nextHeader>()(item.Record(), cursor, header);
}
using header_iterator = praxel_header_iterator<praxel, NextHeader>;

inspector_string HeaderName(const praxel_header& header) { return header.name; }
inspector_string HeaderValue(const praxel_header& header) { return header.value; }

// clang-format off
Type<praxel>                                                        praxelType;
Type<praxel_header>                                                 headerType;

IteratedProperty<praxel_iterator, site, praxel>                     ofSite         {"praxel", "praxels", ByValueOnly};
IteratedProperty<relevant_praxel_iterator, site, praxel>            relevantOfSite {"relevant praxel", "relevant praxels", ByValueOnly};
Property<praxel, boolean, Relevance>                                relevance      {"relevance", "relevances", ByValueOnly};
Property<praxel, integer, PraxelID>                                 id             {"id", "ids"};
Property<praxel, site, CurrentSiteOfPraxel>                         siteOfPraxel   {"site", "sites"};
IteratedProperty<header_iterator, praxel, praxel_header>            headers        {"header", "headers", ByValueOnly};
IteratedPropertyByIndexOfObject<header_iterator, praxel_header, inspector_string, praxel, &header_iterator::FirstNamed, &header_iterator::NextNamed>
                                                                    namedHeaders   {"header", "headers", ByValueOnly};
Property<praxel_header, inspector_string, HeaderName>               headerName     {"name", "names"};
Property<praxel_header, inspector_string, HeaderValue>              headerValue    {"value", "values"};
// clang-format on

}  // namespace
