// What inspectors ask about the analysis that their host is evaluating.
#ifndef EVALUATOR_INSPECTOR_ANALYSIS_CONTEXT_H
#define EVALUATOR_INSPECTOR_ANALYSIS_CONTEXT_H

#include <cstdint>
#include <optional>

#include "evaluator/inspector_praxel_context.h"

// Tells one analysis from another; what the numbers mean is the host's affair.
struct AnalysisIdentity {
    int64_t id = 0;
    int64_t site = 0;
};

// Times are microseconds since the start of 1970 in universal time.
class InspectorAnalysisContext {
public:
    virtual ~InspectorAnalysisContext() = default;

    // The content item of the current analysis, null while there is none.
    const PraxelRecord* (*currentAnalysis)() = nullptr;

    std::optional<AnalysisIdentity> (*currentIdentity)() = nullptr;

    // When the analysis was last evaluated; nothing where it never was.
    std::optional<int64_t> (*lastTime)(const AnalysisIdentity& analysis) = nullptr;
};

#endif
