// The analysis that a host evaluates.
#ifndef TESTS_HOST_HOST_ANALYSES_H
#define TESTS_HOST_HOST_ANALYSES_H

#include <map>

#include "evaluator/inspector_analysis_context.h"
#include "tests/host/current_host.h"

struct HostAnalyses : InspectorAnalysisContext {
    const PraxelRecord* analysis = nullptr;  // the item of the current one
    std::map<int64_t, int64_t> lastTimes;    // by the item's number

    HostAnalyses() {
        currentAnalysis = []() { return CurrentHost<HostAnalyses>().analysis; };
        currentIdentity = []() {
            const PraxelRecord* const item = CurrentHost<HostAnalyses>().analysis;
            return item != nullptr ? std::optional<AnalysisIdentity>({item->id, 0}) : std::nullopt;
        };
        lastTime = [](const AnalysisIdentity& which) {
            const auto& times = CurrentHost<HostAnalyses>().lastTimes;
            const auto found = times.find(which.id);
            return found != times.end() ? std::optional<int64_t>(found->second) : std::nullopt;
        };
    }
};

#endif
