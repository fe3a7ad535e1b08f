// Sites and the groups of a site, as the language has them.
#ifndef CLIENT_SITE_H
#define CLIENT_SITE_H

#include "client/site_map.h"
#include "registry/inspector_type_info.h"
#include "values/integer.h"

// A site by its record, which is the host's.
class site {
public:
    explicit site(const SiteMap& map) : map_(&map) {}

    const SiteMap& Map() const { return *map_; }

private:
    const SiteMap* map_;
};

template <>
struct InspectorTypeInfo<site> : InspectorTypeBasics<site, 0> {
    static constexpr char Name[] = "site";
    static constexpr unsigned Size = sizeof(site);
};

// The group of a site with a number.
class site_group {
public:
    site_group(const SiteMap& map, integer number) : map_(&map), number_(number) {}

    const SiteMap& Map() const { return *map_; }
    integer Number() const { return number_; }

private:
    const SiteMap* map_;
    integer number_;
};

template <>
struct InspectorTypeInfo<site_group> : InspectorTypeBasics<site_group, 0> {
    static constexpr char Name[] = "site group";
    static constexpr unsigned Size = sizeof(site_group);
};

// Feeds the sites that the host has, by the names that they are asked for by.
void DependsOnSiteList(Fingerprinter& fingerprinter);

#endif
