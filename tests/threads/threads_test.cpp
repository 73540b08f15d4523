// Independent instances: each thread drives its own library object over a mixed workload and
// must get bit for bit what one thread alone gets. Half of the threads run with other settings,
// so a setting, an error state, a text buffer or a cache shared between objects shows up as a
// difference here (and as a race under ThreadSanitizer, `make tsan`).
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "frame/internal_object.h"

namespace {

// Mixes a text into the results, so texts are compared along with the numbers.
double textCode(const char* text) {
    if (!text) return -2.0;
    std::uint64_t h = 1469598103934665603ull;
    for (const char* c = text; *c; ++c) h = (h ^ static_cast<unsigned char>(*c)) * 1099511628211ull;
    return static_cast<double>(h >> 11);
}

struct Variant {
    int checkRange;
    int maxIterations;
    double tolerance;
};

const Variant kVariants[] = {{1, 100, 2e-12}, {0, 7, 1e-9}};

std::vector<double> workload(tvlInternalObject& o, const Variant& v, int rounds) {
    std::vector<double> out;
    auto put = [&](double x) {
        out.push_back(x);
        out.push_back(o.GETLASTERROR());
    };
    o.SETCHECKRANGEMODE(v.checkRange);
    o.SETMAXITERATION(v.maxIterations);
    o.SETTOLERANCE(v.tolerance);
    for (int r = 0; r < rounds; ++r) {
        const double shift = 0.37 * r;
        for (double p : {1e4, 3e6, 20e6, 60e6}) {
            for (double T : {300.0 + shift, 620.0 + shift, 650.0 + shift, 900.0 + shift, 1500.0 + shift}) {
                put(o.HPT(p, T));
                put(o.SPT(p, T));
                put(o.CPPT(p, T));
                put(o.THERMCONDPT(p, T));
                put(o.DYNVISPT(p, T));
                put(o.WATERSTATEAREA(p, T));
                const double h = o.HPT(p, T), s = o.SPT(p, T);
                put(o.TPH(p, h));
                put(o.TPS(p, s));
                put(o.PHS(h, s));
                double pp = 0, TT = 0;
                put(o.PTHS(h, s, &pp, &TT));
                put(pp);
                put(TT);
                put(o.TEXPANSIONPTPEFF(p, T, p / 3, 0.85));
            }
        }
        for (double T : {280.0 + shift, 450.0 + shift, 640.0 + shift}) {
            put(o.PST(T));
            put(o.HSST(T));
            put(o.HPTX(o.PST(T), T, 0.3));
            put(o.TSP(o.PST(T)));
        }
        put(o.HPT(-1.0, 300.0));  // a failure, so the error state is exercised
        put(textCode(o.GETLASTERRORDESCRIPTION()));
        const std::int32_t id = o.gNEWIDGS("N2:79;O2:21;CO2:0.5");
        put(id != -1);  // ids of new gases are addresses, different in each object
        put(o.gCPIDT(id, 400.0 + shift));
        put(o.gHGST("N2:79;O2:21;CO2:1", 500.0 + shift));
        put(o.gTIDH(id, 3e5 + shift));
        put(textCode(o.gGSID(id)));
        put(textCode(o.gGSGS("{N2:1;O2:1}:1kg;Ar:1kg")));
        const std::int32_t named = o.gNEWIDNAME("CO2");
        put(o.gADDGASV(id, named, 0.25));
        put(o.gMMID(id));
        put(o.gDELETEGASID(id) != -1);
    }
    o.gDELETEGASES();
    return out;
}

::testing::AssertionResult sameBits(const std::vector<double>& a, const std::vector<double>& b) {
    if (a.size() != b.size()) return ::testing::AssertionFailure() << a.size() << " results, not " << b.size();
    for (std::size_t i = 0; i < a.size(); ++i)
        if (std::memcmp(&a[i], &b[i], sizeof(double)) != 0)
            return ::testing::AssertionFailure() << "result " << i << ": " << a[i] << " against " << b[i];
    return ::testing::AssertionSuccess();
}

class Threads : public ::testing::TestWithParam<int> {};

TEST_P(Threads, OwnObjectPerThreadMatchesOneThreadBitForBit) {
    const int threads = GetParam();
    const int rounds = 3;
    std::vector<double> reference[2];
    for (int k = 0; k < 2; ++k) {
        auto alone = std::make_unique<tvlInternalObject>();
        reference[k] = workload(*alone, kVariants[k], rounds);
    }
    std::vector<std::vector<double>> results(threads);
    std::vector<std::unique_ptr<tvlInternalObject>> objects;
    for (int i = 0; i < threads; ++i) objects.push_back(std::make_unique<tvlInternalObject>());
    std::vector<std::thread> pool;
    for (int i = 0; i < threads; ++i)
        pool.emplace_back([&, i] { results[i] = workload(*objects[i], kVariants[i % 2], rounds); });
    for (std::thread& t : pool) t.join();
    for (int i = 0; i < threads; ++i)
        EXPECT_TRUE(sameBits(results[i], reference[i % 2])) << "thread " << i << " of " << threads;
}

INSTANTIATE_TEST_SUITE_P(Counts, Threads, ::testing::Values(2, 4, 8));

// Plain facades used from C++, the same way.
TEST(Threads, PlainFacadesPerThread) {
    auto run = [](tvl::PropertyFacade& f) {
        std::vector<double> out;
        for (int i = 0; i < 200; ++i) {
            out.push_back(f.HPT(1e5 + 1e5 * i, 300.0 + i));
            out.push_back(f.gCPGST("N2:79;O2:21", 300.0 + i));
            out.push_back(f.TPH(1e6, 1e5 * (1 + i % 30)));
        }
        return out;
    };
    auto alone = std::make_unique<tvl::PropertyFacade>();
    const std::vector<double> reference = run(*alone);
    std::vector<std::unique_ptr<tvl::PropertyFacade>> facades;
    for (int i = 0; i < 4; ++i) facades.push_back(std::make_unique<tvl::PropertyFacade>());
    std::vector<std::vector<double>> results(4);
    std::vector<std::thread> pool;
    for (int i = 0; i < 4; ++i) pool.emplace_back([&, i] { results[i] = run(*facades[i]); });
    for (std::thread& t : pool) t.join();
    for (const auto& r : results) EXPECT_TRUE(sameBits(r, reference));
}

}  // namespace
