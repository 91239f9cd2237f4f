// Benchmarks the readers of numbers that every Style 12 line passes through.
#include "common/Numbers.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>
#include <string_view>

namespace {

// The number fields of a Style 12 line, in the order of the line.
constexpr std::array<std::string_view, 12> Fields{"-1", "1",  "1",  "1",  "1",   "0",
                                                  "65", "10", "12", "39", "600", "598000"};

void strictFieldsOfOneLine(benchmark::State& state) {
    for (auto _ : state) {
        for (const auto field : Fields) benchmark::DoNotOptimize(strictInt32(field));
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(Fields.size()));
}
BENCHMARK(strictFieldsOfOneLine);

} // namespace
