#include "client/site_data.h"

#include <array>
#include <string_view>

#include "client/setting_time.h"
#include "client/site_names.h"
#include "foundation/ascii.h"
#include "foundation/file_location.h"
#include "foundation/read_lines.h"

namespace {

constexpr unsigned long mostBytes = 1 << 20;

std::optional<int64_t> Number(const std::string& text) {
    const std::optional<integer> number = ParseInteger(text);
    return number ? std::optional<int64_t>(number->Value()) : std::nullopt;
}

std::optional<bool> TrueOrFalse(const std::string& text) {
    return text == "true" ? std::optional<bool>(true) : text == "false" ? std::optional<bool>(false) : std::nullopt;
}

}  // namespace

struct SiteDataMaker::Property {
    std::string_view name;
    Setter set;
};

// clang-format off
const SiteDataMaker::Property SiteDataMaker::properties[] = {
    {"version",                   [](SiteMap& site, const std::string& text) { site.version = Number(text); }},
    {"site-version-list",         [](SiteMap& site, const std::string& text) { site.versionList = StringToSiteVersionList(inspector_string(text)); }},
    {"site-tag",                  [](SiteMap& site, const std::string& text) { site.tag = text; }},
    {"type",                      [](SiteMap& site, const std::string& text) { site.type = SiteNames::ValueOf(SiteNames::types, text); }},
    {"last-gather-time",          [](SiteMap& site, const std::string& text) { site.lastGatherTime = TimeOfSetting(text); }},
    {"subscribe-time",            [](SiteMap& site, const std::string& text) { site.subscribeTime = TimeOfSetting(text); }},
    {"gather-schedule-authority", [](SiteMap& site, const std::string& text) { site.gatherScheduleAuthority = SiteNames::ValueOf(SiteNames::authorities, text); }},
    {"gather-schedule-interval",  [](SiteMap& site, const std::string& text) { site.gatherScheduleInterval = ParseTimeInterval(inspector_string(text)); }},
    {"evaluated",                 [](SiteMap& site, const std::string& text) { site.evaluated = TrueOrFalse(text); }},
};
// clang-format on

DataReceiver& SiteDataMaker::StartHeader(ConstData name) {
    for (const Property& property : properties) {
        if (property.name == name.View()) {
            return value_.Sets(property.set);
        }
    }
    return value_.Sets(nullptr);
}

LineReceiver& SiteDataMaker::EndHeaders(uint64_t) { return body_; }

// White space behind a value is not of it.
void SiteDataMaker::Value::Finish() {
    if (setter_ != nullptr) {
        text_.erase(text_.find_last_not_of(" \t") + 1);
        setter_(site_, text_);
    }
}

void ReadSiteData(const FileLocation& location, SiteMap& site) {
    SiteDataMaker maker(site);
    HeaderMaker headers(maker);
    ReadLines(location, headers, {0, mostBytes});
}
