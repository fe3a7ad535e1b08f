// What sets cost: gathering them, the operations of two, and the test for membership.
#include <benchmark/benchmark.h>

#include <string>

#include "bench/question.h"
#include "values/inspector_set.h"

namespace {

constexpr int64_t kElements = 100000;

// Every `step`th number from `first` on, as the element type has it.
template <class T>
InspectorSet<T> Numbers(int64_t first, int64_t step) {
    InspectorSetAggregator<T> aggregator;
    aggregator.Initialize();
    for (int64_t i = 0; i < kElements; ++i) {
        const int64_t number = first + i * step;
        if constexpr (std::is_same_v<T, integer>) {
            aggregator.Collect(Of(), number);
        } else {
            aggregator.Collect(Of(), inspector_string("element " + std::to_string(number)));
        }
    }
    return aggregator.FirstFinal();
}

// Two sets that share half of their elements.
template <class T, auto Operation>
void Merge(benchmark::State& state) {
    const InspectorSet<T> a = Numbers<T>(0, 2);
    const InspectorSet<T> b = Numbers<T>(kElements, 2);
    for (auto _ : state) {
        benchmark::DoNotOptimize(Operation(a, b));
    }
    state.SetItemsProcessed(state.iterations() * 2 * kElements);
}

template <class T>
void Contains(benchmark::State& state) {
    const InspectorSet<T> set = Numbers<T>(0, 2);
    const InspectorSet<T> probes = Numbers<T>(0, 3);
    for (auto _ : state) {
        for (const auto& probe : probes.Elements()) {
            benchmark::DoNotOptimize(InspectorSet<T>::ContainsElement(set, SetElement<T>::Value(probe)));
        }
    }
    state.SetItemsProcessed(state.iterations() * kElements);
}

// Through the language, from the question's tree to its answer.
void Ask(benchmark::State& state, const char* question) { Evaluate(state, question, kElements); }

using Strings = InspectorSet<inspector_string>;
using Integers = InspectorSet<integer>;

BENCHMARK(Merge<integer, &Integers::Union>)->Name("union/integers");
BENCHMARK(Merge<inspector_string, &Strings::Union>)->Name("union/strings");
BENCHMARK(Merge<integer, &Integers::Intersection>)->Name("intersection/integers");
BENCHMARK(Merge<inspector_string, &Strings::Intersection>)->Name("intersection/strings");
BENCHMARK(Contains<integer>)->Name("contains/integers");
BENCHMARK(Contains<inspector_string>)->Name("contains/strings");
BENCHMARK_CAPTURE(Ask, gathered_integers, "(size of set of integers in (1, 100000))");
BENCHMARK_CAPTURE(Ask, gathered_integers_downwards, "(size of set of integers in (100000, 1))");
BENCHMARK_CAPTURE(Ask, gathered_strings, "(size of set of ((it as string) of integers in (1, 100000)))");
BENCHMARK_CAPTURE(Ask, elements, "(number of elements of set of integers in (1, 100000))");
BENCHMARK_CAPTURE(Ask, membership, "(number of (integers in (1, 100000)) whose (set of (5; 77; 4000) contains it))");

}  // namespace
