// The dispatching and backward calls beside the region functions they end in, on the same
// 10^5 random states per region (fixed seed), so that a run's ratios compare like with like:
// HPT against H1PT/H2PT/H3PT/H5PT, TPH against H1PT/H2PT and T2PH, TPS against T1PS/T2PS (also
// with toleranceMode 0), PHS against the forward calls, V3PT against P3RT.
#include "bench_support.h"

namespace {

using tvlbench::Pair;

constexpr int kStates = 100000;

// (p, T) that the property selection puts in the region.
const std::vector<Pair>& pT(int region) {
    static std::vector<Pair> byRegion[6];
    std::vector<Pair>& states = byRegion[region];
    if (states.empty()) {
        const double pLow = region == 3 ? 1.65e7 : 1e3;
        const double pHigh = region == 5 ? 5e7 : 1e8;
        const double TLow = region == 3 ? 623.15 : region == 5 ? 1073.15 : 273.15;
        const double THigh = region == 5 ? 2273.15 : region == 3 ? 863.15 : region == 1 ? 623.15 : 1073.15;
        states = tvlbench::states(pLow, pHigh, TLow, THigh,
                                  [region](double p, double T) { return tvlWATERSTATEAREA2(p, T) == region; },
                                  kStates);
    }
    return states;
}

// The same states as (p, h), (p, s), (h, s) and (rho, T).
template <auto property>
const std::vector<Pair>& pressureAnd(int region) {
    static std::vector<Pair> byRegion[6];
    std::vector<Pair>& states = byRegion[region];
    if (states.empty())
        for (const Pair& s : pT(region)) states.push_back({s.a, property(s.a, s.b)});
    return states;
}

const std::vector<Pair>& ph(int region) { return pressureAnd<tvlHPT>(region); }
const std::vector<Pair>& ps(int region) { return pressureAnd<tvlSPT>(region); }

const std::vector<Pair>& hs(int region) {
    static std::vector<Pair> byRegion[6];
    std::vector<Pair>& states = byRegion[region];
    if (states.empty())
        for (const Pair& s : pT(region)) states.push_back({tvlHPT(s.a, s.b), tvlSPT(s.a, s.b)});
    return states;
}

const std::vector<Pair>& rhoT3() {
    static std::vector<Pair> states;
    if (states.empty())
        for (const Pair& s : pT(3)) states.push_back({tvlDPT(s.a, s.b), s.b});
    return states;
}

template <int region>
void RegionHPT(benchmark::State& state) {
    constexpr auto f = region == 1 ? tvlH1PT : region == 2 ? tvlH2PT : region == 3 ? tvlH3PT : tvlH5PT;
    tvlbench::runOver(state, pT(region), f);
}

template <int region>
void HPT(benchmark::State& state) { tvlbench::runOver(state, pT(region), tvlHPT); }

template <int region>
void TPH(benchmark::State& state) { tvlbench::runOver(state, ph(region), tvlTPH); }

void T2PH(benchmark::State& state) { tvlbench::runOver(state, ph(2), tvlT2PH); }

// TPS and the region's backward call, with toleranceMode as given (restored to 1 after). TPS
// with checkRangeMode 0 shows what the frame's range test of (p,s) costs: it evaluates S1PT and
// S5PT (S2PT above 50 MPa) at the ends of the isobar.
template <int region, int toleranceMode, int checkRangeMode = 1>
void TPS(benchmark::State& state) {
    tvlSETTOLERANCEMODE(toleranceMode);
    tvlSETCHECKRANGEMODE(checkRangeMode);
    tvlbench::runOver(state, ps(region), tvlTPS);
    tvlSETCHECKRANGEMODE(1);
    tvlSETTOLERANCEMODE(1);
}

template <int region, int toleranceMode>
void RegionTPS(benchmark::State& state) {
    tvlSETTOLERANCEMODE(toleranceMode);
    tvlbench::runOver(state, ps(region), region == 1 ? tvlT1PS : tvlT2PS);
    tvlSETTOLERANCEMODE(1);
}

template <int region>
void PHS(benchmark::State& state) { tvlbench::runOver(state, hs(region), tvlPHS); }

// The forward call a (h,s) search inverts: h and s at (p, T).
template <int region>
void ForwardHS(benchmark::State& state) {
    constexpr auto h = region == 1 ? tvlH1PT : tvlH2PT;
    constexpr auto s = region == 1 ? tvlS1PT : tvlS2PT;
    tvlbench::runOver(state, pT(region), [](double p, double T) { return h(p, T) + s(p, T); });
}

void P3RT(benchmark::State& state) { tvlbench::runOver(state, rhoT3(), tvlP3RT); }
void V3PT(benchmark::State& state) { tvlbench::runOver(state, pT(3), tvlV3PT); }

}  // namespace

BENCHMARK(RegionHPT<1>)->Name("Ratio/H1PT");
BENCHMARK(HPT<1>)->Name("Ratio/HPT/region1");
BENCHMARK(TPH<1>)->Name("Ratio/TPH/region1");
BENCHMARK(RegionTPS<1, 1>)->Name("Ratio/T1PS");
BENCHMARK(TPS<1, 1>)->Name("Ratio/TPS/region1");
BENCHMARK(ForwardHS<1>)->Name("Ratio/H1PT+S1PT");
BENCHMARK(PHS<1>)->Name("Ratio/PHS/region1");
BENCHMARK(RegionHPT<2>)->Name("Ratio/H2PT");
BENCHMARK(HPT<2>)->Name("Ratio/HPT/region2");
BENCHMARK(TPH<2>)->Name("Ratio/TPH/region2");
BENCHMARK(T2PH)->Name("Ratio/T2PH");
BENCHMARK(RegionTPS<2, 1>)->Name("Ratio/T2PS");
BENCHMARK(TPS<2, 1>)->Name("Ratio/TPS/region2");
BENCHMARK(RegionTPS<2, 0>)->Name("Ratio/T2PS/toleranceMode0");
BENCHMARK(TPS<2, 0>)->Name("Ratio/TPS/region2/toleranceMode0");
BENCHMARK(TPS<2, 1, 0>)->Name("Ratio/TPS/region2/checkRangeMode0");
BENCHMARK(TPS<2, 0, 0>)->Name("Ratio/TPS/region2/toleranceMode0/checkRangeMode0");
BENCHMARK(ForwardHS<2>)->Name("Ratio/H2PT+S2PT");
BENCHMARK(PHS<2>)->Name("Ratio/PHS/region2");
BENCHMARK(RegionHPT<3>)->Name("Ratio/H3PT");
BENCHMARK(HPT<3>)->Name("Ratio/HPT/region3");
BENCHMARK(P3RT)->Name("Ratio/P3RT");
BENCHMARK(V3PT)->Name("Ratio/V3PT");
BENCHMARK(RegionHPT<5>)->Name("Ratio/H5PT");
BENCHMARK(HPT<5>)->Name("Ratio/HPT/region5");
