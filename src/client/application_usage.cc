// The runs of an application that the host's table of processes knows, those that have ended included.
#include <optional>
#include <string>
#include <utility>

#include "evaluator/adapters.h"
#include "evaluator/host_function.h"
#include "evaluator/inspector_process_table_context.h"
#include "inspectors/client_setting.h"

// One run, as the table had it when it was asked.
struct application_usage {
    ProcessRun run;
};

template <>
struct InspectorTypeInfo<application_usage> : InspectorTypeBasics<application_usage, 0> {
    static constexpr char Name[] = "application usage";
    static constexpr unsigned Size = sizeof(application_usage);
};

struct auInspectorDefinedError : InspectorDefinedError {
    auInspectorDefinedError() noexcept : InspectorDefinedError("application usage inspector is disabled") {}
};

namespace {

class application_usage_iterator {
public:
    void Start(const inspector_string&) {
        if (ClientSettingText("_OSLClient_UsageManager_EnableAppUsage") != "1") {
            throw auInspectorDefinedError();
        }
        nextRun_ = HostFunction<&InspectorProcessTableContext::applicationUsage, InspectorProcessTableContextError>();
        index_ = 0;
    }

    std::optional<application_usage> Next(const inspector_string& name) {
        application_usage usage;
        return nextRun_(name.View(), index_, usage.run) ? std::optional<application_usage>(std::move(usage))
                                                        : std::nullopt;
    }

private:
    decltype(InspectorProcessTableContext::applicationUsage) nextRun_ = nullptr;
    size_t index_ = 0;
};

// clang-format off
Type<application_usage>                                                 type;

IteratedPropertyByIndexOfWorld<application_usage_iterator, application_usage, inspector_string, &application_usage_iterator::Next,
                               &application_usage_iterator::Next, &application_usage_iterator::Start>
                                                                        usages  {"application usage", "application usages", ByValueOnly};
// clang-format on

}  // namespace
