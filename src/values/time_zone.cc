#include "values/time_zone.h"

#include <ctime>

#include "values/aggregates.h"
#include "values/stepping.h"
#include "values/time_language.h"
#include "values/time_text.h"

DependencyNode timeZoneDependency("TimeZoneDependency", DependsOnLocalTimeZone);

namespace {

// What this thread found at its first question since the caches were cleared.
struct KnownZone {
    bool known = false;
    time_zone zone;
};
thread_local constinit KnownZone localZone;

void ForgetLocalTimeZone(Instant&, void*) { localZone.known = false; }

RegistrationObject<CacheRegistration> engineRefreshEngineTimeZoneCache(CacheRecord{&ForgetLocalTimeZone, nullptr});

// tzset: the variable TZ may have changed since localtime_r looked at it.
time_zone ZoneInForceNow() {
    tzset();
    const time_t now = time(nullptr);
    tm local{};
    return localtime_r(&now, &local) == nullptr ? time_zone()
                                                : time_zone::OfSeconds(static_cast<int32_t>(local.tm_gmtoff));
}

}  // namespace

time_zone LocalTimeZone() {
    if (!localZone.known) {
        localZone = {true, ZoneInForceNow()};
    }
    return localZone.zone;
}

void DependsOnLocalTimeZone(Fingerprinter& fingerprinter) {
    const int64_t offset = LocalTimeZone().Offset().Microseconds();
    fingerprinter.AddData(ConstData(&offset, sizeof offset));
}

std::optional<time_zone> ParseTimeZone(const inspector_string& text) {
    const TimeText parsed = TimeText::Parsed(TimeGrammar::kTimeZone, text.Data());
    return parsed.HasZone() ? std::optional<time_zone>(time_zone::OfSeconds(parsed.ZoneSeconds())) : std::nullopt;
}

namespace {

time_zone UniversalTimeZone() { return {}; }

inspector_string ZoneText(const time_zone& zone) { return TimeLine().AddZone(zone.Offset().Microseconds()).Text(); }

// clang-format off
Type<time_zone>                                                     type;
UniqueValuesInspectorRegistration<time_zone>                        uniqueValues;

GlobalProperty<time_zone, UniversalTimeZone>                        universal   {"universal time zone", "universal time zones"};
GlobalProperty<time_zone, LocalTimeZone>                            local       {"local time zone", "local time zones", DependsOn<timeZoneDependency>};
NamedGlobalProperty<time_zone, ParseTimeZone>                       ofString    {"time zone", "time zones"};

Cast<time_zone, inspector_string, ParseTimeZone>                    fromString  {"time zone"};
Cast<inspector_string, time_zone, ZoneText>                         toString    {"string"};

RelationEqual<time_zone>                                            equal;
SteppingRegistration<time_zone, time_interval>                      stepping;
BinaryOperatorMinus<time_zone, time_zone, time_interval>            minus;
// clang-format on

}  // namespace
