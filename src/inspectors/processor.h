// Processors and their packages as the language sees them.
#ifndef INSPECTORS_PROCESSOR_H
#define INSPECTORS_PROCESSOR_H

#include <vector>

#include "evaluator/inspector_cache.h"
#include "inspectors/cpu_info.h"
#include "registry/inspector_type_info.h"

// One of the kernel's records.
class processor {
public:
    explicit processor(const CpuRecord& record) : record_(record) {}
    const CpuRecord& Record() const { return record_; }

private:
    CpuRecord record_;
};

// What all records together say of the machine's packages.
class cpupackage {
public:
    explicit cpupackage(const CpuPackages& counts) : counts_(counts) {}
    const CpuPackages& Counts() const { return counts_; }

private:
    CpuPackages counts_;
};

// The list that was read last, emptied when the caches are.
extern ThreadLocalInspectorCache<std::vector<CpuRecord>> ClearProcessorCache;

template <>
struct InspectorTypeInfo<processor> : InspectorTypeBasics<processor, 0> {
    static constexpr char Name[] = "processor";
    static constexpr unsigned Size = sizeof(processor);
};

template <>
struct InspectorTypeInfo<cpupackage> : InspectorTypeBasics<cpupackage, 0> {
    static constexpr char Name[] = "cpupackage";
    static constexpr unsigned Size = 32;  // three counts and two flags
};

#endif
