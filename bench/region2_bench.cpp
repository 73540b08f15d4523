// Region 2 through the exports, as a host calls them: the forward enthalpy, the refined T(p,h)
// and the refined p(h,s) over superheated steam from 1 kPa to 100 MPa.
#include "bench_support.h"

namespace {

using tvlbench::Pair;

// (p, T) of region 2: above the saturation line and, beyond 16.53 MPa, above B23.
const std::vector<Pair>& region2States() {
    static const auto states = tvlbench::states(1e3, 1e8, 273.15, 1073.15, [](double p, double T) {
        if (p <= 611.2126774443452) return true;
        if (p <= 16529164.252621602) return T > tvlTSP(p);
        return T > tvlT23P(p);
    });
    return states;
}

const std::vector<Pair>& region2EnthalpyStates() {
    static const auto states = [] {
        std::vector<Pair> out;
        for (const Pair& s : region2States()) out.push_back({s.a, tvlH2PT(s.a, s.b)});
        return out;
    }();
    return states;
}

const std::vector<Pair>& region2EnthalpyEntropyStates() {
    static const auto states = [] {
        std::vector<Pair> out;
        for (const Pair& s : region2States()) out.push_back({tvlH2PT(s.a, s.b), tvlS2PT(s.a, s.b)});
        return out;
    }();
    return states;
}

void H2PT(benchmark::State& state) { tvlbench::runOver(state, region2States(), tvlH2PT); }
void T2PH(benchmark::State& state) { tvlbench::runOver(state, region2EnthalpyStates(), tvlT2PH); }
void P2HS(benchmark::State& state) { tvlbench::runOver(state, region2EnthalpyEntropyStates(), tvlP2HS); }

BENCHMARK(H2PT);
BENCHMARK(T2PH);
BENCHMARK(P2HS);

}  // namespace
