// The (p,h) and (p,s) families as a host calls them: the temperature of states of each region and
// of the wet area (selection, backward equation and refining search), enthalpy by (p,s), and an
// expansion end state (HPT, SPT and HPS in one call).
#include "bench_support.h"

namespace {

using tvlbench::Pair;

// (p, T) states that the (p,T) selection puts in region (1, 2, 3, 5), or on the saturation line
// with dryness fractions for the wet area (4): the first of each pair is p, the second T or x.
const std::vector<Pair>& statesOf(int area) {
    static std::vector<Pair> byArea[6];
    std::vector<Pair>& states = byArea[area];
    if (states.empty()) {
        if (area == 4) {
            states = tvlbench::states(1e3, 2.2e7, 0.0, 1.0, [](double, double) { return true; });
        } else {
            const double highestTemperature = area == 5 ? 2273.15 : 1073.15;
            const double highestPressure = area == 5 ? 5e7 : 1e8;
            states = tvlbench::states(1e3, highestPressure, 273.15, highestTemperature,
                                      [area](double p, double T) { return tvlWATERSTATEAREA2(p, T) == area; });
        }
    }
    return states;
}

// (p, h) or (p, s) of those states.
template <bool byEntropy>
const std::vector<Pair>& pairsOf(int area) {
    static std::vector<Pair> byArea[6];
    std::vector<Pair>& pairs = byArea[area];
    if (pairs.empty())
        for (const Pair& s : statesOf(area)) {
            double y;
            if (area == 4) {
                const double T = tvlTSP(s.a);
                y = byEntropy ? tvlSSTX(T, s.b) : tvlHSTX(T, s.b);
            } else {
                y = byEntropy ? tvlSPT(s.a, s.b) : tvlHPT(s.a, s.b);
            }
            pairs.push_back({s.a, y});
        }
    return pairs;
}

template <int area>
void TPH(benchmark::State& state) {
    tvlbench::runOver(state, pairsOf<false>(area), tvlTPH);
}

template <int area>
void TPS(benchmark::State& state) {
    tvlbench::runOver(state, pairsOf<true>(area), tvlTPS);
}

// Enthalpy by (p,s) over all one-phase regions in turn.
void HPS(benchmark::State& state) {
    static const auto pairs = [] {
        std::vector<Pair> out;
        for (int area : {1, 2, 3, 5}) {
            const std::vector<Pair>& some = pairsOf<true>(area);
            out.insert(out.end(), some.begin(), some.begin() + 1024);
        }
        return out;
    }();
    tvlbench::runOver(state, pairs, tvlHPS);
}

// Steam from 5 to 25 MPa and 700 to 850 K expanded to 10 kPa at 0.85: wet end states.
void HEXPANSIONPTPEFF(benchmark::State& state) {
    static const auto inlets = tvlbench::states(5e6, 2.5e7, 700.0, 850.0,
                                                [](double p, double T) { return tvlWATERSTATEAREA2(p, T) == 2; });
    tvlbench::runOver(state, inlets, [](double p, double T) { return tvlHEXPANSIONPTPEFF(p, T, 1e4, 0.85); });
}

BENCHMARK(TPH<1>)->Name("TPH/region1");
BENCHMARK(TPH<2>)->Name("TPH/region2");
BENCHMARK(TPH<3>)->Name("TPH/region3");
BENCHMARK(TPH<4>)->Name("TPH/wet");
BENCHMARK(TPH<5>)->Name("TPH/region5");
BENCHMARK(TPS<1>)->Name("TPS/region1");
BENCHMARK(TPS<2>)->Name("TPS/region2");
BENCHMARK(TPS<3>)->Name("TPS/region3");
BENCHMARK(TPS<4>)->Name("TPS/wet");
BENCHMARK(TPS<5>)->Name("TPS/region5");
BENCHMARK(HPS);
BENCHMARK(HEXPANSIONPTPEFF);

}  // namespace
