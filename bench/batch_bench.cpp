// The batch library against plain calls: enthalpy by (p,T) over 4096 states across the range,
// once as a loop of tvlHPT with the error read after each call, once as one tvlxEVALUATE.
// Both are reported per state, so the difference is what the batch adds to each call.
#include <cstdint>

#include "bench_support.h"
#include "tavlib6x.h"

namespace {

const std::vector<tvlbench::Pair>& states() {
    static const auto all = tvlbench::states(1e4, 5e7, 280.0, 1000.0, [](double, double) { return true; });
    return all;
}

void HPTLoop(benchmark::State& state) {
    const auto& inputs = states();
    for (auto _ : state) {
        for (const auto& in : inputs) {
            benchmark::DoNotOptimize(tvlHPT(in.a, in.b));
            benchmark::DoNotOptimize(tvlGETLASTERROR());
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(inputs.size()));
}

void HPTBatch(benchmark::State& state) {
    const auto& pairs = states();
    std::vector<double> p, T, h(pairs.size());
    std::vector<int32_t> errors(pairs.size());
    for (const auto& in : pairs) {
        p.push_back(in.a);
        T.push_back(in.b);
    }
    const double* inputs[2] = {p.data(), T.data()};
    const int64_t strides[2] = {1, 1};
    for (auto _ : state) {
        benchmark::DoNotOptimize(tvlxEVALUATE("HPT", static_cast<int64_t>(p.size()), inputs, strides, nullptr,
                                              h.data(), nullptr, errors.data()));
    }
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(p.size()));
}

}  // namespace

BENCHMARK(HPTLoop);
BENCHMARK(HPTBatch);
