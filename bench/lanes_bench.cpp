// The vector kernels of the batch library against a plain C loop of the same export, on one
// thread and the same states: ns per point. The path is the one in force for the process, so
// run once per path:
//   TAVLIB6X_SIMD=avx512|avx2|scalar tavlib6_bench --benchmark_filter='Lanes/'
// Each benchmark is labelled with the path that ran.
#include <cstdint>
#include <string>
#include <vector>

#include "bench_support.h"
#include "tavlib6x.h"

namespace {

using tvlbench::Pair;

constexpr int kStates = 16384;

// Region 1, 2, 5 states by the (p,T) selection, and the whole range: all regions, region 3 too.
const std::vector<Pair>& statesOf(int region) {
    static const auto r1 = tvlbench::states(1e5, 1e8, 273.15, 623.15, [](double p, double T) { return tvlWATERSTATEAREA2(p, T) == 1; }, kStates);
    static const auto r2 = tvlbench::states(1e3, 1e8, 273.15, 1073.15, [](double p, double T) { return tvlWATERSTATEAREA2(p, T) == 2; }, kStates);
    static const auto r3 = tvlbench::states(1.65e7, 1e8, 623.15, 863.15, [](double p, double T) { return tvlWATERSTATEAREA2(p, T) == 3; }, kStates);
    static const auto r5 = tvlbench::states(1e3, 5e7, 1073.2, 2273.15, [](double, double) { return true; }, kStates);
    static const auto all = tvlbench::states(1e3, 1e8, 273.15, 2273.15, [](double p, double T) { return T <= 1073.15 || p <= 5e7; }, kStates);
    static const auto no3 = tvlbench::states(1e3, 1e8, 273.15, 2273.15, [](double p, double T) {
        return (T <= 1073.15 || p <= 5e7) && tvlWATERSTATEAREA2(p, T) != 3; }, kStates);
    // The saturation line: the argument in a, T for PST, p for TSP.
    static const auto lineT = tvlbench::states(273.15, 647.096, 0.0, 1.0, [](double, double) { return true; }, kStates);
    static const auto lineP = tvlbench::states(611.3, 2.2e7, 0.0, 1.0, [](double, double) { return true; }, kStates);
    // Transport by (p,T) over the viscosity range (with region 3 and without), and without region 3
    // over the conductivity range; wet states (T, x) up to 623.15 K and up to the critical point.
    static const auto viscosity = tvlbench::states(1e3, 1e8, 273.15, 1173.15, [](double, double) { return true; }, kStates);
    static const auto viscosity125 = tvlbench::states(1e3, 1e8, 273.15, 1173.15, [](double p, double T) { return tvlWATERSTATEAREA2(p, T) != 3; }, kStates);
    static const auto conductivity125 = tvlbench::states(1e3, 1e8, 273.15, 1073.15, [](double p, double T) {
        return tvlWATERSTATEAREA2(p, T) != 3 && !(p > 7e7 && T > 773.15) && !(p > 4e7 && T > 923.15); }, kStates);
    static const auto wet12 = tvlbench::states(273.15, 623.15, 0.0, 1.0, [](double, double) { return true; }, kStates);
    static const auto wet = tvlbench::states(273.15, 647.096, 0.0, 1.0, [](double, double) { return true; }, kStates);
    static const auto onTheLine = [] {  // (p, TSP(p)) up to 623.15 K: the wet area of the (p,T,x) family
        auto states = tvlbench::states(611.3, 1.65e7, 0.0, 1.0, [](double, double) { return true; }, kStates);
        for (Pair& state : states) state.b = tvlTSP(state.a);
        return states;
    }();
    static const auto metastable = [] {  // metastable vapour: within 10 % below the saturation temperature
        auto states = tvlbench::states(1e3, 1e7, 0.9, 1.0, [](double, double) { return true; }, kStates);
        for (Pair& state : states) state.b *= tvlTSP(state.a);
        return states;
    }();
    switch (region) {
    case 15: return metastable;
    case 9: return viscosity;
    case 10: return viscosity125;
    case 11: return conductivity125;
    case 12: return wet12;
    case 13: return wet;
    case 14: return onTheLine;
    case 7: return lineT;
    case 8: return lineP;
    case 1: return r1;
    case 2: return r2;
    case 3: return r3;
    case 5: return r5;
    case 0: return all;
    default: return no3;
    }
}

// The backward families' arguments of those states: (p,h), (p,s), (h,s) by the plain exports.
enum Arguments { kPT, kPH, kPS, kHS };

const std::vector<Pair>& argumentsOf(int region, int arguments) {
    static std::vector<Pair> converted[16][4];
    std::vector<Pair>& out = converted[region][arguments];
    if (arguments == kPT) return statesOf(region);
    if (out.empty())
        for (const Pair& in : statesOf(region)) {
            const double h = tvlHPT(in.a, in.b), s = tvlSPT(in.a, in.b);
            out.push_back(arguments == kPH ? Pair{in.a, h} : arguments == kPS ? Pair{in.a, s} : Pair{h, s});
        }
    return out;
}

void plainLoop(benchmark::State& state, double (*f)(double, double), int region, int arguments) {
    const auto& inputs = argumentsOf(region, arguments);
    std::vector<double> out(inputs.size());
    std::vector<int32_t> errors(inputs.size());
    for (auto _ : state) {
        for (size_t k = 0; k < inputs.size(); ++k) {
            out[k] = f(inputs[k].a, inputs[k].b);
            errors[k] = tvlGETLASTERROR();
        }
        benchmark::DoNotOptimize(out.data());
        benchmark::DoNotOptimize(errors.data());
    }
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(inputs.size()));
}

void array(benchmark::State& state, const char* name, int region, int arguments) {
    const auto& pairs = argumentsOf(region, arguments);
    std::vector<double> p, T, out(pairs.size());
    std::vector<int32_t> errors(pairs.size());
    for (const Pair& in : pairs) {
        p.push_back(in.a);
        T.push_back(in.b);
    }
    const std::vector<double> x(p.size(), 0.5);
    const double* inputs[3] = {p.data(), T.data(), x.data()};  // the line reads the first only, (p,T,x) all
    const int64_t strides[3] = {1, 1, 1};
    tvlxSETTHREADS(1);
    for (auto _ : state)
        benchmark::DoNotOptimize(tvlxEVALUATE(name, static_cast<int64_t>(p.size()), inputs, strides, nullptr,
                                              out.data(), nullptr, errors.data()));
    tvlxSETTHREADS(0);
    state.SetLabel(tvlxSIMD());
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(p.size()));
}

double pst(double T, double) { return tvlPST(T); }
double tsp(double p, double) { return tvlTSP(p); }

struct Family {
    const char* name;
    double (*plain)(double, double);
    int region;  // 1, 2, 3, 5; 0 all regions; 6 all but region 3; 7, 8 the saturation line by T, by p; 9 to 15 above
    const char* states;
    int arguments = kPT;
};

const Family kFamilies[] = {
    {"H1PT", tvlH1PT, 1, "r1"},  {"V1PT", tvlV1PT, 1, "r1"},  {"S1PT", tvlS1PT, 1, "r1"},  {"W1PT", tvlW1PT, 1, "r1"},
    {"H2PT", tvlH2PT, 2, "r2"},  {"V2PT", tvlV2PT, 2, "r2"},  {"S2PT", tvlS2PT, 2, "r2"},  {"W2PT", tvlW2PT, 2, "r2"},
    {"V3PT", tvlV3PT, 3, "r3"},  {"H3PT", tvlH3PT, 3, "r3"},  {"S3PT", tvlS3PT, 3, "r3"},  {"W3PT", tvlW3PT, 3, "r3"},
    {"H5PT", tvlH5PT, 5, "r5"},  {"V5PT", tvlV5PT, 5, "r5"},  {"S5PT", tvlS5PT, 5, "r5"},  {"W5PT", tvlW5PT, 5, "r5"},
    {"HPT", tvlHPT, 6, "r125"},  {"VPT", tvlVPT, 6, "r125"},  {"SPT", tvlSPT, 6, "r125"},  {"CPPT", tvlCPPT, 6, "r125"},
    {"HPT", tvlHPT, 0, "all"},   {"VPT", tvlVPT, 0, "all"},   {"PST", pst, 7, "line"},      {"TSP", tsp, 8, "line"},
    {"DYNVISPT", tvlDYNVISPT, 10, "r125"}, {"DYNVISPT", tvlDYNVISPT, 9, "all"}, {"KINVISPT", tvlKINVISPT, 10, "r125"},
    {"THERMCONDPT", tvlTHERMCONDPT, 11, "r125"}, {"PRANDTLEPT", tvlPRANDTLEPT, 11, "r125"},
    {"HSTX", tvlHSTX, 12, "wet12"}, {"VSTX", tvlVSTX, 12, "wet12"}, {"DSTX", tvlDSTX, 12, "wet12"},
    {"HSTX", tvlHSTX, 13, "wet"},   {"JOULETHOMPSONSTX", tvlJOULETHOMPSONSTX, 13, "wet"},
    {"HPTX", [](double p, double T) { return tvlHPTX(p, T, 0.5); }, 6, "r125"},
    {"HPTX", [](double p, double T) { return tvlHPTX(p, T, 0.5); }, 14, "line12"},
    {"DYNVISPTX", [](double p, double T) { return tvlDYNVISPTX(p, T, 0.5); }, 10, "r125"},
    {"T1PH", tvlT1PH, 1, "r1", kPH}, {"T2PH", tvlT2PH, 2, "r2", kPH}, {"TPH", tvlTPH, 0, "all", kPH},
    {"T1PS", tvlT1PS, 1, "r1", kPS}, {"T2PS", tvlT2PS, 2, "r2", kPS}, {"TPS", tvlTPS, 0, "all", kPS},
    {"P1HS", tvlP1HS, 1, "r1", kHS}, {"P2HS", tvlP2HS, 2, "r2", kHS}, {"PHS", tvlPHS, 0, "all", kHS},
    {"T5PH", tvlT5PH, 5, "r5", kPH}, {"T5PS", tvlT5PS, 5, "r5", kPS}, {"P5HS", tvlP5HS, 5, "r5", kHS},
    {"TPH", tvlTPH, 6, "r125", kPH}, {"TPS", tvlTPS, 6, "r125", kPS}, {"PHS", tvlPHS, 6, "r125", kHS},
    {"HSWT", [](double T, double) { return tvlHSWT(T); }, 12, "wet12"},
    {"VSST", [](double T, double) { return tvlVSST(T); }, 12, "wet12"},
    {"DYNVISSWT", [](double T, double) { return tvlDYNVISSWT(T); }, 12, "wet12"},
    {"HSWT", [](double T, double) { return tvlHSWT(T); }, 13, "wet"},
    {"DYNVISSST", [](double T, double) { return tvlDYNVISSST(T); }, 13, "wet"},
    {"HMSPT", tvlHMSPT, 15, "ms"}, {"VMSPT", tvlVMSPT, 15, "ms"}, {"DYNVISMSPT", tvlDYNVISMSPT, 15, "ms"},
};

const int registered = [] {
    for (const Family& f : kFamilies) {
        const std::string suffix = std::string(f.name) + "/" + f.states;
        benchmark::RegisterBenchmark(("Lanes/Loop/" + suffix).c_str(), plainLoop, f.plain, f.region, f.arguments);
        benchmark::RegisterBenchmark(("Lanes/Array/" + suffix).c_str(), array, f.name, f.region, f.arguments);
    }
    return 0;
}();

}  // namespace
