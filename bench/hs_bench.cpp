// The (h,s) family as a host calls it: pressure and temperature of states of each region and of
// the wet area (selection, backward equations and the two-variable search, or the bisection
// along the saturation line), and one property that evaluates the region's equation after.
#include "bench_support.h"

namespace {

using tvlbench::Pair;

constexpr double kTsatHSLowestEntropy = 5210.88782493073;

// (h, s) of (p, T) states that both the (p,T) and the (h,s) selections put in region 1, 2, 3 or
// 5; for the wet area (4) of wet states by (T, x) that the (h,s) selection calls wet. Of those,
// "line" keeps the states left of 5210.89 J/(kg K), where the bisection runs along the whole
// line, and "equation" those right of it, where Tsat(h,s) starts a bisection over one kelvin.
enum Wet { kAnyWet, kAlongTheLine, kAroundTheEquation };

const std::vector<Pair>& pairsOf(int area, Wet wet = kAnyWet) {
    static std::vector<Pair> byArea[6][3];
    std::vector<Pair>& pairs = byArea[area][wet];
    if (!pairs.empty()) return pairs;
    auto toHS = [](int wanted, Wet kind) {
        return [wanted, kind](double a, double b, Pair& hs) {
            if (wanted == 4) {
                hs = {tvlHSTX(a, b), tvlSSTX(a, b)};
                if (kind == kAlongTheLine && hs.b > kTsatHSLowestEntropy) return false;
                if (kind == kAroundTheEquation && hs.b <= kTsatHSLowestEntropy) return false;
            } else {
                if (tvlWATERSTATEAREA2(a, b) != wanted) return false;
                hs = {tvlHPT(a, b), tvlSPT(a, b)};
            }
            return tvlWATERSTATEAREAHS(hs.a, hs.b) == wanted;
        };
    };
    const auto accept = toHS(area, wet);
    // The bisection misleads itself near x = 1 close to the top of the line: the states keep
    // below x = 0.75 there.
    const std::vector<Pair> candidates =
        area == 4 ? tvlbench::states(275.0, 640.0, 0.05, 0.95, [](double T, double x) { return T < 620.0 || x < 0.75; })
        : tvlbench::states(1e3, area == 5 ? 5e7 : 1e8, 273.15, area == 5 ? 2273.15 : 1073.15,
                           [&accept](double p, double T) {
                               Pair hs;
                               return accept(p, T, hs);
                           });
    for (const Pair& c : candidates) {
        Pair hs;
        if (accept(c.a, c.b, hs)) pairs.push_back(hs);
    }
    return pairs;
}

template <int area>
void PHS(benchmark::State& state) {
    tvlbench::runOver(state, pairsOf(area), tvlPHS);
}

template <int area>
void THS(benchmark::State& state) {
    tvlbench::runOver(state, pairsOf(area), tvlTHS);
}

template <Wet wet>
void THSWet(benchmark::State& state) {
    tvlbench::runOver(state, pairsOf(4, wet), tvlTHS);
}

// Specific volume over all one-phase regions in turn.
void VHS(benchmark::State& state) {
    static const auto pairs = [] {
        std::vector<Pair> out;
        for (int area : {1, 2, 3, 5}) {
            const std::vector<Pair>& some = pairsOf(area);
            out.insert(out.end(), some.begin(), some.begin() + 1024);
        }
        return out;
    }();
    tvlbench::runOver(state, pairs, tvlVHS);
}

BENCHMARK(PHS<1>)->Name("PHS/region1");
BENCHMARK(PHS<2>)->Name("PHS/region2");
BENCHMARK(PHS<3>)->Name("PHS/region3");
BENCHMARK(PHS<4>)->Name("PHS/wet");
BENCHMARK(PHS<5>)->Name("PHS/region5");
BENCHMARK(THS<1>)->Name("THS/region1");
BENCHMARK(THS<2>)->Name("THS/region2");
BENCHMARK(THS<3>)->Name("THS/region3");
BENCHMARK(THS<4>)->Name("THS/wet");
BENCHMARK(THSWet<kAlongTheLine>)->Name("THS/wet/line");
BENCHMARK(THSWet<kAroundTheEquation>)->Name("THS/wet/equation");
BENCHMARK(THS<5>)->Name("THS/region5");
BENCHMARK(VHS);

}  // namespace
