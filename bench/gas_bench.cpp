// Ideal gases through the exports: a property by id, a property by a cached composition text,
// and the enthalpy inversion.
#include "bench_support.h"

namespace {

using tvlbench::Pair;

constexpr int kAirMix = 13;
constexpr const char* kFlueGas = "N2:75;CO2:12;H2O:10;O2:3";

const std::vector<Pair>& temperatures() {
    static const auto states = tvlbench::states(200.0, 2500.0, 0, 1, [](double, double) { return true; });
    return states;
}

const std::vector<Pair>& airMixEnthalpies() {
    static const auto states = [] {
        std::vector<Pair> out;
        for (const Pair& s : temperatures()) out.push_back({tvlgHIDT(kAirMix, s.a), 0});
        return out;
    }();
    return states;
}

void gCPIDT(benchmark::State& state) {
    tvlbench::runOver(state, temperatures(), [](double T, double) { return tvlgCPIDT(kAirMix, T); });
}

// The text is parsed at its first use; every call after that finds it in the cache.
void gHGST(benchmark::State& state) {
    tvlgHGST(kFlueGas, 300.0);
    tvlbench::runOver(state, temperatures(), [](double T, double) { return tvlgHGST(kFlueGas, T); });
}

void gTIDH(benchmark::State& state) {
    tvlbench::runOver(state, airMixEnthalpies(), [](double h, double) { return tvlgTIDH(kAirMix, h); });
}

BENCHMARK(gCPIDT);
BENCHMARK(gHGST);
BENCHMARK(gTIDH);

}  // namespace
