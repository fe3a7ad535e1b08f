#include "client/site.h"

#include <array>

#include "client/host_values.h"
#include "client/inspector_storage_path.h"
#include "client/site_names.h"
#include "client/site_scan.h"
#include "evaluator/adapters.h"
#include "evaluator/host_function.h"
#include "evaluator/inspector_site_context.h"
#include "evaluator/inspector_system_context.h"
#include "foundation/file_location.h"
#include "inspectors/file.h"
#include "inspectors/folder.h"
#include "values/string.h"

namespace {

template <auto Entry>
auto OfSites() {
    return HostFunction<Entry, InspectorSiteContextError>();
}
template <auto Entry>
auto OfSystem() {
    return HostFunction<Entry, InspectorSystemContextError>();
}

const std::vector<const SiteMap*>& AllSites() { return OfSites<&InspectorSiteContext::listOfSites>()(); }

// Where the translated name of a site is put.
using NameBuffer = std::array<char, 1024>;

// The name that a site goes by: the one that users know it by where it has such a name, otherwise the stored one.
std::string_view NameOf(const SiteMap& map, NameBuffer& buffer) {
    if (!map.nameIsTranslated) {
        return map.name;
    }
    const auto translate = OfSites<&InspectorSiteContext::lookupCustomSiteName>();
    return translate(map.name, buffer.data(), buffer.size()) ? std::string_view(buffer.data()) : map.name;
}

std::optional<site> CurrentSite() { return HostValue::Over<site>(OfSites<&InspectorSiteContext::currentSite>()()); }

std::optional<site> NamedSite(const inspector_string& name) {
    NameBuffer buffer;
    for (const SiteMap* map : AllSites()) {
        if (NameOf(*map, buffer) == name.View()) {
            return site(*map);
        }
    }
    return std::nullopt;
}

class site_iterator {
public:
    std::optional<site> First() {
        next_ = 0;
        return Next();
    }
    std::optional<site> Next() {
        const std::vector<const SiteMap*>& all = AllSites();
        return next_ < all.size() ? std::optional<site>(*all[next_++]) : std::nullopt;
    }

private:
    size_t next_ = 0;
};

inspector_string SiteName(const site& object) {
    NameBuffer buffer;
    return CopiedString(NameOf(object.Map(), buffer));
}

template <auto Field>
std::optional<inspector_string> Text(const site& object) {
    return HostValue::Text(object.Map().*Field);
}
constexpr auto SiteURL = Text<&SiteMap::url>;
constexpr auto SiteTag = Text<&SiteMap::tag>;

std::optional<inspector_string> Type_of(const site& object) {
    return HostValue::Text(SiteNames::NameOf(SiteNames::types, object.Map().type));
}
std::optional<inspector_string> GatherScheduleAuthority_of(const site& object) {
    return HostValue::Text(SiteNames::NameOf(SiteNames::authorities, object.Map().gatherScheduleAuthority));
}

// What the record holds as a value of the language.
template <auto Field>
auto Held(const site& object) {
    return object.Map().*Field;
}
constexpr auto LastGatherTime = Held<&SiteMap::lastGatherTime>;
constexpr auto SubscribeTime = Held<&SiteMap::subscribeTime>;
constexpr auto GatherScheduleTimeInterval = Held<&SiteMap::gatherScheduleInterval>;
constexpr auto VersionList = Held<&SiteMap::versionList>;
constexpr auto Evaluated = Held<&SiteMap::evaluated>;

std::optional<integer> Version(const site& object) { return HostValue::Integer(object.Map().version); }

FileLocation LocationOf(const site& object) {
    return *OfSites<&InspectorSiteContext::siteAdviceLocation>()(&InspectorFileLocation, object.Map().folderName);
}

// What the agent keeps of a site on this machine lies in the site's own folder.
std::optional<folder> SiteFolder(const site& object) { return At<folder>(LocationOf(object)); }
constexpr auto ClientFolder = SiteFolder;

std::optional<file> Masthead(const site& object) { return FromLook<file>(MastheadOfSite(LocationOf(object))); }

std::optional<site_group> Computer_group_of_site(const integer& number, const site& object) {
    return OfSystem<&InspectorSystemContext::hasGroup>()(object.Map(), number.Value())
               ? std::optional<site_group>(site_group(object.Map(), number))
               : std::nullopt;
}

std::optional<boolean> Member_of(const site_group& group) {
    return OfSystem<&InspectorSystemContext::isMember>()(group.Map(), group.Number().Value());
}

integer GroupId(const site_group& group) { return group.Number(); }

}  // namespace

// A host without sites, or whose names cannot be had, has none to depend on.
void DependsOnSiteList(Fingerprinter& fingerprinter) {
    try {
        NameBuffer buffer;
        for (const SiteMap* map : AllSites()) {
            fingerprinter.AddData(ConstData(NameOf(*map, buffer)));
            fingerprinter.AddByte(';');
        }
    } catch (const DebuggableException&) {
    }
}

namespace {

// A name or a number that a site was found by stays the site's; all else changes as the site is gathered.
// clang-format off
Type<site>                                                          siteType;
Type<site_group>                                                    groupType;

GlobalProperty<site, CurrentSite>                                   currentSite    {"current site", "current sites", ByValueOnly};
NamedGlobalProperty<site, NamedSite>                                named          {"site", "sites", DependsOnSiteList};
IteratedGlobalProperty<site_iterator, site>                         all            {"site", "sites", ByValueOnly};
Property<site, inspector_string, SiteName>                          name           {"name", "names", ByValueOnly};
Property<site, inspector_string, SiteURL>                           url            {"url", "urls", ByValueOnly};
Property<site, inspector_string, SiteTag>                           tag            {"site tag", "site tags", ByValueOnly};
Property<site, inspector_string, Type_of>                           type           {"type", "types", ByValueOnly};
Property<site, folder, SiteFolder>                                  siteFolder     {"folder", "folders", ByValueOnly};
Property<site, folder, ClientFolder>                                clientFolder   {"client folder", "client folders", ByValueOnly};
Property<site, file, Masthead>                                      masthead       {"masthead", "mastheads", ByValueOnly};
Property<site, moment, LastGatherTime>                              lastGather     {"last gather time", "last gather times", ByValueOnly};
Property<site, moment, SubscribeTime>                               subscribe      {"subscribe time", "subscribe times", ByValueOnly};
Property<site, inspector_string, GatherScheduleAuthority_of>        authority      {"gather schedule authority", "gather schedule authoritys", ByValueOnly};
Property<site, time_interval, GatherScheduleTimeInterval>           interval       {"gather schedule time interval", "gather schedule time intervals", ByValueOnly};
Property<site, integer, Version>                                    version        {"version", "versions", ByValueOnly};
Property<site, SiteVersionList, VersionList>                        versionList    {"site version list", "site version lists", ByValueOnly};
Property<site, boolean, Evaluated>                                  evaluated      {"evaluated", "evaluateds", ByValueOnly};
NumberedProperty<site, site_group, Computer_group_of_site>          group          {"group", "groups", ByValueOnly};
Property<site_group, boolean, Member_of>                            member         {"member", "members", ByValueOnly};
Property<site_group, integer, GroupId>                              groupId        {"id", "ids"};
// clang-format on

}  // namespace
