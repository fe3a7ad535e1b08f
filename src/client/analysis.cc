#include "client/analysis.h"

#include "client/host_values.h"
#include "client/praxel.h"
#include "client/site_map.h"
#include "evaluator/adapters.h"
#include "evaluator/host_function.h"

namespace {

template <auto Entry>
auto OfAnalyses() {
    return HostFunction<Entry, InspectorAnalysisContextError>();
}

std::optional<praxel> CurrentAnalysis() {
    return HostValue::Over<praxel>(OfAnalyses<&InspectorAnalysisContext::currentAnalysis>()());
}

std::optional<analysis> Analysis() {
    const std::optional<AnalysisIdentity> identity = OfAnalyses<&InspectorAnalysisContext::currentIdentity>()();
    return identity ? std::optional<analysis>(analysis{*identity}) : std::nullopt;
}

std::optional<moment> LastTime_of(const analysis& which) {
    return HostValue::Time(OfAnalyses<&InspectorAnalysisContext::lastTime>()(which.identity));
}

// Where there is no current analysis, or no host to tell, that is the state.
void AddCurrentAnalysis(Fingerprinter& fingerprinter) {
    const auto* host = dynamic_cast<InspectorAnalysisContext*>(InspectorContextMaintainer::current.Get());
    if (host == nullptr) {
        return;
    }
    if (host->currentIdentity != nullptr) {
        if (const std::optional<AnalysisIdentity> identity = host->currentIdentity()) {
            fingerprinter.AddData(ConstData(&*identity, sizeof *identity));
        }
    }
    if (host->currentAnalysis != nullptr) {
        if (const PraxelRecord* item = host->currentAnalysis()) {
            fingerprinter.AddByte('p');
            fingerprinter.AddData(ConstData(&item->id, sizeof item->id));
            // Items are numbered by their sites.
            if (item->site != nullptr) {
                fingerprinter.AddData(ConstData(item->site->name));
            }
        }
    }
}

}  // namespace

DependencyNode CurrentAnalysisDependencyNode("CurrentAnalysis", AddCurrentAnalysis);

void CurrentAnalysisDependencyNodeFunction(Fingerprinter& fingerprinter) {
    DependsOn<CurrentAnalysisDependencyNode>(fingerprinter);
}

namespace {

// clang-format off
Type<analysis>                                                      type;

GlobalProperty<praxel, CurrentAnalysis>                             current   {"current analysis", "current analyses", CurrentAnalysisDependencyNodeFunction};
GlobalProperty<analysis, Analysis>                                  ofWorld   {"analysis", "analysiss", CurrentAnalysisDependencyNodeFunction};
Property<analysis, moment, LastTime_of>                             lastTime  {"last time", "last times", ByValueOnly};
// clang-format on

}  // namespace
