// The analysis that a host is evaluating, as the language has it.
#ifndef CLIENT_ANALYSIS_H
#define CLIENT_ANALYSIS_H

#include "evaluator/inspector_analysis_context.h"
#include "registry/dependency_node.h"
#include "registry/inspector_type_info.h"

// Which analysis it is.
struct analysis {
    AnalysisIdentity identity;
};

template <>
struct InspectorTypeInfo<analysis> : InspectorTypeBasics<analysis, 0> {
    static constexpr char Name[] = "analysis";
    static constexpr unsigned Size = sizeof(analysis);
};

// What depends on which analysis is the current one.
extern DependencyNode CurrentAnalysisDependencyNode;
void CurrentAnalysisDependencyNodeFunction(Fingerprinter& fingerprinter);

#endif
