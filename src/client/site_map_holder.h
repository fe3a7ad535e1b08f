// The sites that the program knows of, and which of them is the current one.
#ifndef CLIENT_SITE_MAP_HOLDER_H
#define CLIENT_SITE_MAP_HOLDER_H

#include <vector>

#include "client/site_map.h"

class SiteMapHolder {
public:
    SiteMapHolder() = default;
    SiteMapHolder(const SiteMapHolder&) = delete;
    SiteMapHolder& operator=(const SiteMapHolder&) = delete;

    // The process's own, made at the first call.
    static SiteMapHolder& GetInstance();

    // The sites of the process's own, and its current site, null where there is none.
    static const std::vector<const SiteMap*>& List() { return GetInstance().Sites(); }
    static const SiteMap* GetCurrentSite() { return GetInstance().Current(); }

    const std::vector<const SiteMap*>& Sites() const { return list_; }
    const SiteMap* Current() const { return current_; }

    // Takes these sites in place of those that it held, whose records die; none is current then.
    void Replace(std::vector<SiteMap> sites);

    // Makes a site of the list the current one, or none.
    void SetCurrent(const SiteMap* site) { current_ = site; }

private:
    std::vector<SiteMap> sites_;
    std::vector<const SiteMap*> list_;
    const SiteMap* current_ = nullptr;
};

#endif
