// How much the tracked applications have been used, summed over all their runs and told by each version of their files.
//
// A summary is what stands in the application's file, and on top of it the runs that ended while the table of processes
// was looking and are not in the file yet.
#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "client/process_table.h"
#include "client/stat_file.h"
#include "evaluator/adapters.h"
#include "evaluator/host_function.h"
#include "evaluator/inspector_process_table_context.h"
#include "foundation/file_loop.h"
#include "foundation/reserved_names.h"
#include "inspectors/client_setting.h"
#include "values/integer.h"
#include "values/moment.h"
#include "values/string.h"
#include "values/version.h"

// The use of one version of an application's file.
struct ApplicationUsageSummaryInstance {
    std::string name;
    StatRecord record;
};

// Owns all that it tells, as it was when the value was made.
struct ApplicationUsageSummary {
    std::string name;
    boolean running = false;
    std::optional<integer> totalRunCount = integer(0);             // none past 64 bits
    std::optional<time_interval> totalDuration = time_interval();  // none past 64 bits
    int64_t firstStartTime = 0;
    int64_t lastStartTime = 0;
    int64_t lastTimeSeen = 0;
    std::vector<StatRecord> instances;
};

template <>
struct InspectorTypeInfo<ApplicationUsageSummary> : InspectorTypeBasics<ApplicationUsageSummary, 0> {
    static constexpr char Name[] = "application usage summary";
    static constexpr unsigned Size = sizeof(ApplicationUsageSummary);
};

template <>
struct InspectorTypeInfo<ApplicationUsageSummaryInstance> : InspectorTypeBasics<ApplicationUsageSummaryInstance, 0> {
    static constexpr char Name[] = "application usage summary instance";
    static constexpr unsigned Size = sizeof(ApplicationUsageSummaryInstance);
};

struct ausInspectorDefinedError : InspectorDefinedError {
    ausInspectorDefinedError() noexcept : InspectorDefinedError("application usage summary inspector is disabled") {}
};

// Tells the name up to its first zero byte, which would end the text.
class ausNameInspectorDefinedError : public InspectorDefinedError {
public:
    explicit ausNameInspectorDefinedError(std::string_view name)
        : InspectorDefinedError(""),
          text_(std::make_shared<const std::string>("application usage summary " +
                                                    std::string(name.substr(0, name.find('\0'))) +
                                                    " not configured for tracking")) {}
    const char* what() const noexcept override { return text_->c_str(); }

private:
    std::shared_ptr<const std::string> text_;  // shared, so that a copy of the failure cannot fail
};

namespace {

using Summary = ApplicationUsageSummary;
using Instance = ApplicationUsageSummaryInstance;

// The names between the commas, as they are written.
std::vector<std::string> NamesIn(std::string_view list) {
    std::vector<std::string> names;
    while (!list.empty()) {
        const std::string_view name = list.substr(0, list.find(','));
        list.remove_prefix(std::min(name.size() + 1, list.size()));
        if (!name.empty()) {
            names.emplace_back(name);
        }
    }
    return names;
}

// What a summary is made of: found once for each question, and refused where the family is switched off.
class SummarySource {
public:
    SummarySource() {
        if (ClientSettingText("_OSLClient_UsageManager_EnableAppUsageSummary") != "1") {
            throw ausInspectorDefinedError();
        }
        tracked_ = NamesIn(ClientSettingText("_OSLClient_UsageManager_EnableAppUsageSummaryApps").value_or(""));
    }

    void RequireTracked(std::string_view name) const {
        if (std::find(tracked_.begin(), tracked_.end(), name) == tracked_.end()) {
            throw ausNameInspectorDefinedError(name);
        }
    }

    // Asks the host for its table and its storage.
    void Open() {
        table_ = HostFunction<&InspectorProcessTableContext::tableInstance, InspectorProcessTableContextError>()();
        isActive_ =
            HostFunction<&InspectorProcessTableContext::processActiveByName, InspectorProcessTableContextError>();
        const FileLocation& storage =
            HostFunction<&InspectorStorageContext::getGlobalLocation, InspectorStorageContextError>()();
        statDir_ = FileLocation(storage, cRESERVED_USAGE_DIRECTORY_STATISTICS);
        if (table_ != nullptr) {
            table_->Track(tracked_);
        }
    }

    const FileLocation& StatDir() const { return statDir_; }

    Summary SummaryOf(std::string_view name) const {
        Summary summary;
        summary.name = name;
        if (const std::optional<FileLocation> location = StatFileLocation(statDir_, name)) {
            summary.instances = ReadStatFile(*location);
        }
        if (table_ != nullptr) {
            for (const StatRecord& use : table_->UseToAdd(name)) {
                AddUse(summary.instances, use);
            }
        }
        summary.running = isActive_(name);
        SumUp(summary);
        return summary;
    }

private:
    static void SumUp(Summary& summary) {
        for (const StatRecord& record : summary.instances) {
            if (record.firstStartTime != 0 &&
                (summary.firstStartTime == 0 || record.firstStartTime < summary.firstStartTime)) {
                summary.firstStartTime = record.firstStartTime;
            }
            summary.lastStartTime = std::max(summary.lastStartTime, record.lastStartTime);
            summary.lastTimeSeen = std::max(summary.lastTimeSeen, record.lastTimeSeen);
            if (summary.totalRunCount) {
                summary.totalRunCount = *summary.totalRunCount + integer(record.totalRunCount);
            }
            if (summary.totalDuration) {
                summary.totalDuration = *summary.totalDuration + time_interval(integer(record.totalDuration));
            }
        }
    }

    std::vector<std::string> tracked_;
    ProcessTable* table_ = nullptr;  // null where the host keeps none
    decltype(InspectorProcessTableContext::processActiveByName) isActive_ = nullptr;
    FileLocation statDir_;
};

Summary NamedSummary(const inspector_string& name) {
    SummarySource source;
    source.RequireTracked(name.View());
    source.Open();
    return source.SummaryOf(name.View());
}

// The summaries of the files that are there.
class summary_iterator {
public:
    void Start() {
        source_.emplace();
        source_->Open();
        files_.emplace(source_->StatDir(), std::string_view("*.stat"));
    }

    std::optional<Summary> Next() {
        while (files_->Valid()) {
            const FileName file = files_->Current().Location().Name();
            const bool named =
                files_->Current().IsRegular() && file.Length() > std::string_view(cStatFileExtension).size();
            files_->Next();
            if (named) {
                return source_->SummaryOf(file.stem().Text());
            }
        }
        return std::nullopt;
    }

private:
    std::optional<SummarySource> source_;
    std::optional<UnixPlatform::FileLoop> files_;
};

// A time of zero is one that never was.
std::optional<moment> TimeOf(int64_t time) { return time == 0 ? std::nullopt : std::optional<moment>(time); }

inspector_string SummaryName(const Summary& s) { return CopiedString(s.name); }
std::optional<integer> SummaryRunCount(const Summary& s) { return s.totalRunCount; }
std::optional<moment> SummaryFirstStart(const Summary& s) { return TimeOf(s.firstStartTime); }
std::optional<moment> SummaryLastStart(const Summary& s) { return TimeOf(s.lastStartTime); }
std::optional<moment> SummaryLastSeen(const Summary& s) { return TimeOf(s.lastTimeSeen); }
std::optional<time_interval> SummaryDuration(const Summary& s) { return s.totalDuration; }
boolean SummaryRunning(const Summary& s) { return s.running; }

class instance_iterator {
public:
    void Start(Of, const Summary&) { next_ = 0; }
    bool Finished(Of, const Summary& s) { return next_ == s.instances.size(); }
    Instance Next(Of, const Summary& s) { return {s.name, s.instances[next_++]}; }

private:
    size_t next_ = 0;
};

inspector_string InstanceName(const Instance& i) { return CopiedString(i.name); }
integer InstanceRunCount(const Instance& i) { return i.record.totalRunCount; }
std::optional<moment> InstanceFirstStart(const Instance& i) { return TimeOf(i.record.firstStartTime); }
std::optional<moment> InstanceLastStart(const Instance& i) { return TimeOf(i.record.lastStartTime); }
std::optional<moment> InstanceLastSeen(const Instance& i) { return TimeOf(i.record.lastTimeSeen); }
time_interval InstanceDuration(const Instance& i) { return time_interval(integer(i.record.totalDuration)); }
std::optional<integer> InstanceSize(const Instance& i) {
    return i.record.fileSize ? std::optional<integer>(*i.record.fileSize) : std::nullopt;
}
std::optional<inspector_string> InstanceStringVersion(const Instance& i) {
    const std::string& text = i.record.stringVersion;
    return text.empty() ? std::nullopt : std::optional<inspector_string>(CopiedString(text));
}
std::optional<inspector_version> InstanceVersion(const Instance& i) {
    const std::string& text = i.record.version;
    return text.empty() ? std::nullopt : std::optional<inspector_version>(inspector_string(text));
}

// clang-format off
Type<Summary>                                                       summaryType;
Type<Instance>                                                      instanceType;

NamedGlobalProperty<Summary, NamedSummary>                          named               {"application usage summary", "application usage summaries", ByValueOnly};
IteratedPropertyOfWorld<summary_iterator, Summary, &summary_iterator::Next, &summary_iterator::Next, &summary_iterator::Start>
                                                                    summaries           {"application usage summary", "application usage summaries", ByValueOnly};
Property<Summary, inspector_string, SummaryName>                    name                {"name", "names"};
Property<Summary, integer, SummaryRunCount>                         runCount            {"total run count", "total run counts"};
Property<Summary, moment, SummaryFirstStart>                        firstStart          {"first start time", "first start times"};
Property<Summary, moment, SummaryLastStart>                         lastStart           {"last start time", "last start times"};
Property<Summary, moment, SummaryLastSeen>                          lastSeen            {"last time seen", "last times seen"};
Property<Summary, time_interval, SummaryDuration>                   duration            {"total duration", "total durations"};
Property<Summary, boolean, SummaryRunning>                          running             {"running", "runnings"};
IteratedPropertyOfObject<instance_iterator, Instance, Summary, &instance_iterator::Next, &instance_iterator::Next,
                         &instance_iterator::Start, &instance_iterator::Finished>
                                                                    instances           {"instance", "instances"};
Property<Instance, inspector_string, InstanceName>                  instanceName        {"name", "names"};
Property<Instance, integer, InstanceRunCount>                       instanceRunCount    {"total run count", "total run counts"};
Property<Instance, moment, InstanceFirstStart>                      instanceFirstStart  {"first start time", "first start times"};
Property<Instance, moment, InstanceLastStart>                       instanceLastStart   {"last start time", "last start times"};
Property<Instance, moment, InstanceLastSeen>                        instanceLastSeen    {"last time seen", "last times seen"};
Property<Instance, time_interval, InstanceDuration>                 instanceDuration    {"total duration", "total durations"};
Property<Instance, integer, InstanceSize>                           size                {"size", "sizes"};
Property<Instance, inspector_string, InstanceStringVersion>         stringVersion       {"string version", "string versions"};
Property<Instance, inspector_version, InstanceVersion>              version             {"version", "versions"};
// clang-format on

}  // namespace
