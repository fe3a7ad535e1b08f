// The machine's run level, from its record in utmp.
#include <optional>

#include "evaluator/adapters.h"
#include "inspectors/utmp_records.h"
#include "values/moment.h"
#include "values/string.h"

class runlevel {
public:
    explicit runlevel(const RunLevel& level) : level_(level) {}
    const RunLevel& Level() const { return level_; }

private:
    RunLevel level_;
};

template <>
struct InspectorTypeInfo<runlevel> : InspectorTypeBasics<runlevel, 0> {
    static constexpr char Name[] = "runlevel";
    static constexpr unsigned Size = sizeof(runlevel);
};

namespace {

std::optional<runlevel> CurrentRunLevel() {
    const UtmpRecords records = ReadUtmp();
    const utmp* record = RunLevelRecord(records);
    return record == nullptr ? std::nullopt : std::optional<runlevel>(RunLevelOf(*record));
}

inspector_string Value(const runlevel& level) { return CopiedString({&level.Level().value, 1}); }
inspector_string PreviousValue(const runlevel& level) { return CopiedString({&level.Level().previous, 1}); }

moment EffectiveTime(const runlevel& level) {
    constexpr int64_t kMicroseconds = 1000000;
    return moment(level.Level().seconds * kMicroseconds);
}

// clang-format off
Type<runlevel>                                                      type;

GlobalProperty<runlevel, CurrentRunLevel>                           current       {"runlevel", "runlevels", ByValueOnly};
Property<runlevel, inspector_string, Value>                         value         {"value", "values"};
Property<runlevel, inspector_string, PreviousValue>                 previousValue {"previous value", "previous values"};
Property<runlevel, moment, EffectiveTime>                           effectiveTime {"effective time", "effective times"};
// clang-format on

}  // namespace
