// What a question costs inside one process: streams, filters, cross products, strings, unique values and file trees,
// and the way of a short question from its text to its answer.
#include <benchmark/benchmark.h>

#include <string_view>

#include "bench/question.h"

namespace {

// The whole way of a question: lexing, parsing, binding, evaluating, dropping.
void Ask(benchmark::State& state, std::string_view question) {
    GuardEvaluator evaluator(nullptr);
    for (auto _ : state) {
        Parse(evaluator, question);
        AskToTheEnd(evaluator);
    }
}

BENCHMARK_CAPTURE(Evaluate, sum, "sum of integers in (1, 10000000)", 10 * kMillion)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Evaluate, filter, "number of integers in (1, 10000000) whose (it mod 3 = 0)", 10 * kMillion)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Evaluate, cross_product,
                  "number of (integers in (1, 2000), integers in (1, 2000)) whose (item 0 of it + item 1 of it = 100)",
                  4 * kMillion)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Evaluate, strings, "sum of lengths of (it as string) of integers in (1, 1000000)", kMillion)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Evaluate, substrings,
                  "number of substrings separated by \",\" of concatenation \",\" of (it as string) of integers in (1, "
                  "1000000)",
                  kMillion)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Evaluate, unique_values, "number of unique values of (it mod 1000) of integers in (1, 1000000)",
                  kMillion)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Evaluate, tree, "number of descendants of folder \"/usr\"", 1)->Unit(benchmark::kMillisecond);

BENCHMARK_CAPTURE(Ask, addition, "1 + 1");
BENCHMARK_CAPTURE(Ask, phrase, "length of \"some text\"");
BENCHMARK_CAPTURE(Ask, conditional, "if 7 mod 2 = 0 then \"even\" else \"odd\"");
BENCHMARK_CAPTURE(Ask, filter, "exists (1; 2; 3) whose (it > 2)");

}  // namespace
