// Region 5 through the exports: the forward enthalpy and T(p,h), which always searches from the
// library's start fit, over 1073.15 K to 2273.15 K and up to 50 MPa.
#include "bench_support.h"

namespace {

using tvlbench::Pair;

const std::vector<Pair>& region5States() {
    static const auto states = tvlbench::states(1e3, 5e7, 1073.15, 2273.15, [](double, double) { return true; });
    return states;
}

const std::vector<Pair>& region5EnthalpyStates() {
    static const auto states = [] {
        std::vector<Pair> out;
        for (const Pair& s : region5States()) out.push_back({s.a, tvlH5PT(s.a, s.b)});
        return out;
    }();
    return states;
}

void H5PT(benchmark::State& state) { tvlbench::runOver(state, region5States(), tvlH5PT); }
void T5PH(benchmark::State& state) { tvlbench::runOver(state, region5EnthalpyStates(), tvlT5PH); }

BENCHMARK(H5PT);
BENCHMARK(T5PH);

}  // namespace
