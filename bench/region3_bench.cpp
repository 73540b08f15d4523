// Region 3 through the exports, as a host calls them: the basic equation, the (p,T) density
// search from the fit, the chord iteration of T(p,h) and the Newton iteration of p(h,s).
#include "bench_support.h"

namespace {

using tvlbench::Pair;

// (p, T) of region 3: 623.15 K to 863.15 K above the B23 line, off the saturation line.
const std::vector<Pair>& region3States() {
    static const auto states = tvlbench::states(16.6e6, 1e8, 623.15, 863.15, [](double p, double T) {
        if (p < tvlP23T(T)) return false;
        return T >= 647.096 || p > tvlPST(T) + 0.5e6 || p < tvlPST(T) - 0.5e6;
    });
    return states;
}

const std::vector<Pair>& region3DensityStates() {
    static const auto states = [] {
        std::vector<Pair> out;
        for (const Pair& s : region3States()) out.push_back({tvlR3PT(s.a, s.b), s.b});
        return out;
    }();
    return states;
}

const std::vector<Pair>& region3EnthalpyStates() {
    static const auto states = [] {
        std::vector<Pair> out;
        for (const Pair& s : region3States()) out.push_back({s.a, tvlH3PT(s.a, s.b)});
        return out;
    }();
    return states;
}

const std::vector<Pair>& region3EnthalpyEntropyStates() {
    static const auto states = [] {
        std::vector<Pair> out;
        for (const Pair& s : region3States()) out.push_back({tvlH3PT(s.a, s.b), tvlS3PT(s.a, s.b)});
        return out;
    }();
    return states;
}

void P3RT(benchmark::State& state) { tvlbench::runOver(state, region3DensityStates(), tvlP3RT); }
void V3PT(benchmark::State& state) { tvlbench::runOver(state, region3States(), tvlV3PT); }
void T3PH(benchmark::State& state) { tvlbench::runOver(state, region3EnthalpyStates(), tvlT3PH); }
void P3HS(benchmark::State& state) { tvlbench::runOver(state, region3EnthalpyEntropyStates(), tvlP3HS); }

BENCHMARK(P3RT);
BENCHMARK(V3PT);
BENCHMARK(T3PH);
BENCHMARK(P3HS);

}  // namespace
