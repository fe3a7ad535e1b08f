// A time zone: how far its clocks are ahead of universal time, east of Greenwich counting positive.
//
// The local zone is the one that is in force now, also for a time of another season.  It is looked up once and kept
// until the inspector caches are cleared.
#ifndef VALUES_TIME_ZONE_H
#define VALUES_TIME_ZONE_H

#include "registry/dependency_node.h"
#include "values/time_interval.h"

class time_zone {
public:
    constexpr time_zone() = default;
    explicit constexpr time_zone(time_interval offset) : offset_(offset) {}
    static constexpr time_zone OfSeconds(int32_t seconds) {
        return time_zone(time_interval(seconds * Calendar::kMicrosecondsOfASecond));
    }

    constexpr time_interval Offset() const { return offset_; }

    friend constexpr bool operator==(time_zone, time_zone) = default;
    // The order of unique values, which the language does not have.
    friend constexpr auto operator<=>(time_zone, time_zone) = default;

    friend std::optional<time_zone> operator+(time_zone a, time_interval b) { return At(a.offset_ + b); }
    friend std::optional<time_zone> operator-(time_zone a, time_interval b) { return At(a.offset_ - b); }
    friend std::optional<time_interval> operator-(time_zone a, time_zone b) { return a.offset_ - b.offset_; }

private:
    static std::optional<time_zone> At(std::optional<time_interval> offset) {
        return offset ? std::optional<time_zone>(time_zone(*offset)) : std::nullopt;
    }

    time_interval offset_;
};

template <>
struct InspectorTypeInfo<time_zone> : InspectorTypeBasics<time_zone> {
    static constexpr char Name[] = "time zone";
    static constexpr unsigned Size = 8;
};

// The zone in force on this machine now.
time_zone LocalTimeZone();

// Feeds the local time zone.
void DependsOnLocalTimeZone(Fingerprinter& fingerprinter);

// Stands for the local time zone: what goes by local clocks is registered with DependsOn<timeZoneDependency>.
extern DependencyNode timeZoneDependency;

// "+0530", "-0500", "est"; a letter, or nothing, is no zone.
std::optional<time_zone> ParseTimeZone(const inspector_string& text);

#endif
