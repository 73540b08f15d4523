// Region 1 and the saturation line through the exports, as a host calls them.
#include "bench_support.h"

namespace {

using tvlbench::Pair;

const std::vector<Pair>& region1States() {
    static const auto states = tvlbench::states(1e5, 1e8, 273.15, 623.15,
                                                [](double p, double T) { return p > tvlPST(T < 623.15 ? T : 623.15); });
    return states;
}

const std::vector<Pair>& region1EnthalpyStates() {
    static const auto states = [] {
        std::vector<Pair> out;
        for (const Pair& s : region1States()) out.push_back({s.a, tvlH1PT(s.a, s.b)});
        return out;
    }();
    return states;
}

const std::vector<Pair>& region1EntropyEnthalpyStates() {
    static const auto states = [] {
        std::vector<Pair> out;
        for (const Pair& s : region1States()) out.push_back({tvlH1PT(s.a, s.b), tvlS1PT(s.a, s.b)});
        return out;
    }();
    return states;
}

void H1PT(benchmark::State& state) { tvlbench::runOver(state, region1States(), tvlH1PT); }
void T1PH(benchmark::State& state) { tvlbench::runOver(state, region1EnthalpyStates(), tvlT1PH); }
void P1HS(benchmark::State& state) { tvlbench::runOver(state, region1EntropyEnthalpyStates(), tvlP1HS); }

void PST(benchmark::State& state) {
    static const auto temperatures = tvlbench::states(273.15, 647.0, 0, 1, [](double, double) { return true; });
    tvlbench::runOver(state, temperatures, [](double T, double) { return tvlPST(T); });
}

void TSP(benchmark::State& state) {
    static const auto pressures = tvlbench::states(611.3, 22.0e6, 0, 1, [](double, double) { return true; });
    tvlbench::runOver(state, pressures, [](double p, double) { return tvlTSP(p); });
}

BENCHMARK(H1PT);
BENCHMARK(T1PH);
BENCHMARK(P1HS);
BENCHMARK(PST);
BENCHMARK(TSP);

}  // namespace
