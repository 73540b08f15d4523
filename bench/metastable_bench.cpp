// Metastable vapour by (p,T) with its range test, and the density derivative by (p,h) in the
// areas that have a form.
#include "bench_support.h"

namespace {

using tvlbench::Pair;

// Metastable states: up to 10 MPa, from the saturation temperature down by as much as the
// 5 per cent moisture limit lets through.
const std::vector<Pair>& metastableStates() {
    static const auto states = tvlbench::states(1e3, 9.9e6, 0.0, 1.0, [](double, double) { return true; });
    static const auto inside = [] {
        std::vector<Pair> out;
        for (const Pair& s : states) {
            const double T = tvlTSP(s.a) - 15.0 * s.b;
            if (tvlVMSPT(s.a, T) > 0.0) out.push_back({s.a, T});
        }
        return out;
    }();
    return inside;
}

// (p,h) of states drawn in (p,T) of a region, or in (p,x) of the wet area.
std::vector<Pair> enthalpyStates(double p0, double p1, double T0, double T1, bool wet) {
    std::vector<Pair> out;
    for (const Pair& s : tvlbench::states(p0, p1, T0, T1, [](double, double) { return true; })) {
        if (wet) {
            const double Ts = tvlTSP(s.a);
            out.push_back({s.a, tvlHSTX(Ts, s.b)});
        } else if (tvlWATERSTATEAREA(s.a, s.b) != 4) {
            out.push_back({s.a, tvlHPT(s.a, s.b)});
        }
    }
    return out;
}

void VMSPT(benchmark::State& state) { tvlbench::runOver(state, metastableStates(), tvlVMSPT); }

void DDDPHPH(benchmark::State& state, double p0, double p1, double T0, double T1, bool wet) {
    const auto inputs = enthalpyStates(p0, p1, T0, T1, wet);
    tvlbench::runOver(state, inputs, tvlDDDPHPH);
}

BENCHMARK(VMSPT);
BENCHMARK_CAPTURE(DDDPHPH, region1, 2e7, 1e8, 280.0, 620.0, false);
BENCHMARK_CAPTURE(DDDPHPH, region2, 1e3, 1e7, 650.0, 1070.0, false);
BENCHMARK_CAPTURE(DDDPHPH, wet, 1e3, 2e7, 0.0, 1.0, true);
BENCHMARK_CAPTURE(DDDPHPH, region5, 1e4, 5e7, 1100.0, 2270.0, false);

}  // namespace
