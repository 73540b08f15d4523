// The cost of the call frame's floating-point guard: the guard alone (saving the caller's
// environment, setting the call's, giving the caller's back), and cheap exports in which the
// frame is most of the call, with the caller's MXCSR as a host typically leaves it (flags set).
#include <benchmark/benchmark.h>

#include "frame/float_environment_guard.h"
#include "tavlib6.h"

namespace {

void FloatEnvironmentGuard(benchmark::State& state) {
    for (auto _ : state) {
        const tvl::FloatEnvironmentGuard guard;
        benchmark::ClobberMemory();
    }
}

void GETTVLVERSION(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(tvlGETTVLVERSION());
}

void PST(benchmark::State& state) {
    double T = 400.0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(T);
        benchmark::DoNotOptimize(tvlPST(T));
    }
}

void H5PT(benchmark::State& state) {
    double p = 3e6, T = 1500.0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(p);
        benchmark::DoNotOptimize(T);
        benchmark::DoNotOptimize(tvlH5PT(p, T));
    }
}

}  // namespace

BENCHMARK(FloatEnvironmentGuard)->Name("Frame/guard alone");
BENCHMARK(GETTVLVERSION)->Name("Frame/GETTVLVERSION");
BENCHMARK(PST)->Name("Frame/PST");
BENCHMARK(H5PT)->Name("Frame/H5PT");
