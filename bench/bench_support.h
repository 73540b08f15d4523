// Inputs for the benchmarks: fixed pseudo-random states, so that a run measures the same calls.
#ifndef TAVLIB6_BENCH_SUPPORT_H
#define TAVLIB6_BENCH_SUPPORT_H

#include <benchmark/benchmark.h>

#include <random>
#include <vector>

#include "tavlib6.h"

namespace tvlbench {

struct Pair {
    double a;
    double b;
};

// count pairs with a in [a0, a1] and b in [b0, b1], kept where accept(a, b) holds.
template <class Accept>
std::vector<Pair> states(double a0, double a1, double b0, double b1, Accept accept, int count = 4096) {
    std::mt19937_64 random(20261123);
    std::uniform_real_distribution<double> first(a0, a1);
    std::uniform_real_distribution<double> second(b0, b1);
    std::vector<Pair> out;
    while (static_cast<int>(out.size()) < count) {
        const Pair pair{first(random), second(random)};
        if (accept(pair.a, pair.b)) out.push_back(pair);
    }
    return out;
}

// Runs f over the states in turn, one call per iteration.
template <class F>
void runOver(benchmark::State& state, const std::vector<Pair>& inputs, F f) {
    size_t k = 0;
    for (auto _ : state) {
        const Pair& in = inputs[k];
        benchmark::DoNotOptimize(f(in.a, in.b));
        k = (k + 1 == inputs.size()) ? 0 : k + 1;
    }
}

}  // namespace tvlbench

#endif
