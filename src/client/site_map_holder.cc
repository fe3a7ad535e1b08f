#include "client/site_map_holder.h"

#include <utility>

SiteMapHolder& SiteMapHolder::GetInstance() {
    static SiteMapHolder holder;
    return holder;
}

void SiteMapHolder::Replace(std::vector<SiteMap> sites) {
    std::vector<const SiteMap*> list;
    list.reserve(sites.size());
    for (const SiteMap& site : sites) {
        list.push_back(&site);
    }
    current_ = nullptr;
    sites_ = std::move(sites);
    list_ = std::move(list);
}
