// The dispatching exports as a host calls them: enthalpy by (p,T) in each region (the selection
// plus the region's equation, region 3 with its density search), saturated water by T, viscosity
// by (p,T) and the combined call.
#include "bench_support.h"

namespace {

using tvlbench::Pair;

// (p, T) over the whole range of the (p,T) family that the property selection puts in region.
const std::vector<Pair>& statesOfRegion(int region) {
    static std::vector<Pair> byRegion[6];
    std::vector<Pair>& states = byRegion[region];
    if (states.empty()) {
        const double highestTemperature = region == 5 ? 2273.15 : 1073.15;
        const double highestPressure = region == 5 ? 5e7 : 1e8;
        states = tvlbench::states(1e3, highestPressure, 273.15, highestTemperature,
                                  [region](double p, double T) { return tvlWATERSTATEAREA2(p, T) == region; });
    }
    return states;
}

// Liquid and steam up to the conductivity's and the viscosity's range, all regions but 5.
const std::vector<Pair>& transportStates() {
    static const auto states = tvlbench::states(1e3, 1e8, 273.15, 1073.15, [](double, double) { return true; });
    return states;
}

template <int region>
void HPT(benchmark::State& state) {
    tvlbench::runOver(state, statesOfRegion(region), tvlHPT);
}

void HSWT(benchmark::State& state) {
    static const auto temperatures = tvlbench::states(273.15, 647.0, 0, 1, [](double, double) { return true; });
    tvlbench::runOver(state, temperatures, [](double T, double) { return tvlHSWT(T); });
}

// Saturated water up to 623.15 K is region 1 at the saturation pressure; above, a density search.
void HSWTNearCritical(benchmark::State& state) {
    static const auto temperatures = tvlbench::states(623.16, 647.0, 0, 1, [](double, double) { return true; });
    tvlbench::runOver(state, temperatures, [](double T, double) { return tvlHSWT(T); });
}

void DYNVISPT(benchmark::State& state) { tvlbench::runOver(state, transportStates(), tvlDYNVISPT); }

void VUSHCVWDERPTPT(benchmark::State& state) {
    tvlbench::runOver(state, transportStates(), [](double p, double T) {
        double out[14];
        return tvlVUSHCVWDERPTPT(p, T, &out[0], &out[1], &out[2], &out[3], &out[4], &out[5], &out[6], &out[7],
                                 &out[8], &out[9], &out[10], &out[11], &out[12], &out[13]) +
               out[3];
    });
}

BENCHMARK(HPT<1>)->Name("HPT/region1");
BENCHMARK(HPT<2>)->Name("HPT/region2");
BENCHMARK(HPT<3>)->Name("HPT/region3");
BENCHMARK(HPT<5>)->Name("HPT/region5");
BENCHMARK(HSWT);
BENCHMARK(HSWTNearCritical);
BENCHMARK(DYNVISPT);
BENCHMARK(VUSHCVWDERPTPT);

}  // namespace
