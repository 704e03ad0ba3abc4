// The list parser on the accessor path: a channel list without a colon must cost a split and
// its output, nothing more. Against a plain copy of the same text in the same run; the
// allocations per iteration say what each form pays the heap.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "alloc_counter.h"
#include "text/list_parser.h"

namespace {

constexpr const char* kTwoChannels = "Dev1/ai0, Dev1/ai1";
constexpr const char* kRange = "Dev1/ai0:7";
constexpr const char* kSixteenChannels =
    "Dev1/ai0, Dev1/ai1, Dev1/ai2, Dev1/ai3, Dev1/ai4, Dev1/ai5, Dev1/ai6, Dev1/ai7, "
    "Dev2/ai0, Dev2/ai1, Dev2/ai2, Dev2/ai3, Dev2/ai4, Dev2/ai5, Dev2/ai6, Dev2/ai7";

void reportAllocations(benchmark::State& state, uint64_t before) {
  state.counters["allocs_per_iter"] = benchmark::Counter(
      static_cast<double>(zqbench::allocationCount() - before) / static_cast<double>(state.iterations()));
}

// The floor: the input copied into one string.
void Baseline_CopyText(benchmark::State& state) {
  const std::string input = kTwoChannels;
  uint64_t before = zqbench::allocationCount();
  for (auto _ : state) {
    std::string copy(input);
    benchmark::DoNotOptimize(copy.data());
  }
  reportAllocations(state, before);
}
BENCHMARK(Baseline_CopyText);

// As an accessor calls it: a fresh output vector for each call.
void parseInto(benchmark::State& state, const char* text) {
  uint64_t before = zqbench::allocationCount();
  for (auto _ : state) {
    zqerr::Status status;
    std::vector<std::string> names;
    zqwombat::parseCommaList(text, &names, &status);
    benchmark::DoNotOptimize(names.data());
  }
  reportAllocations(state, before);
}

void ParseList_TwoChannels(benchmark::State& state) { parseInto(state, kTwoChannels); }
BENCHMARK(ParseList_TwoChannels);

void ParseList_SixteenChannels(benchmark::State& state) { parseInto(state, kSixteenChannels); }
BENCHMARK(ParseList_SixteenChannels);

void ParseList_Range(benchmark::State& state) { parseInto(state, kRange); }
BENCHMARK(ParseList_Range);

}  // namespace

BENCHMARK_MAIN();
