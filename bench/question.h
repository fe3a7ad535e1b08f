// A question inside a benchmark: its way from text to tree, and its evaluation again and again.
#ifndef BENCH_QUESTION_H
#define BENCH_QUESTION_H

#include <benchmark/benchmark.h>

#include <cstdint>
#include <string_view>

#include "evaluator/guard_evaluator.h"

inline void Parse(GuardEvaluator& evaluator, std::string_view question) {
    evaluator.Reset();
    evaluator.Feed("(");
    evaluator.Feed(question);
    evaluator.Feed(")");
    evaluator.EndOfText();
    evaluator.ConvertTo("string", "string");
}

inline void AskToTheEnd(GuardEvaluator& evaluator) {
    for (void* value = evaluator.First(); value != nullptr; value = evaluator.Next()) {
        benchmark::DoNotOptimize(value);
    }
}

inline constexpr int64_t kMillion = 1000000;

// A question that was compiled once, evaluated again and again; `items` are the values that it walks.
inline void Evaluate(benchmark::State& state, std::string_view question, int64_t items = kMillion) {
    GuardEvaluator evaluator(nullptr);
    Parse(evaluator, question);
    for (auto _ : state) {
        AskToTheEnd(evaluator);
    }
    state.SetItemsProcessed(state.iterations() * items);
}

#endif
