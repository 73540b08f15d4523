// No allocation on a calculation path: operator new and malloc are replaced in this program and
// counted around each call. Every water export of the generated table is called at state points
// of each region (its arguments filled by name from the point), and the gas exports by id.
// A failing call throws a plain int, whose exception object the C++ runtime takes with malloc;
// such calls must still make no operator new.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <new>
#include <string>
#include <vector>

#include "export_table.h"
#include "tavlib6.h"

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define TAVLIB6_COUNTING 0
#else
#define TAVLIB6_COUNTING 1
#endif

namespace {
long newCount = 0;
long mallocCount = 0;
bool counting = false;
}  // namespace

#if TAVLIB6_COUNTING
extern "C" void* __libc_malloc(std::size_t);
extern "C" void* __libc_calloc(std::size_t, std::size_t);
extern "C" void* __libc_realloc(void*, std::size_t);

extern "C" void* malloc(std::size_t n) {
    if (counting) ++mallocCount;
    return __libc_malloc(n);
}
extern "C" void* calloc(std::size_t a, std::size_t b) {
    if (counting) ++mallocCount;
    return __libc_calloc(a, b);
}
extern "C" void* realloc(void* p, std::size_t n) {
    if (counting) ++mallocCount;
    return __libc_realloc(p, n);
}

void* operator new(std::size_t n) {
    if (counting) ++newCount;
    if (void* p = std::malloc(n ? n : 1)) return p;
    throw std::bad_alloc();
}
void* operator new[](std::size_t n) { return operator new(n); }
void* operator new(std::size_t n, const std::nothrow_t&) noexcept {
    if (counting) ++newCount;
    return std::malloc(n ? n : 1);
}
void* operator new[](std::size_t n, const std::nothrow_t& t) noexcept { return operator new(n, t); }
void operator delete(void* p) noexcept { std::free(p); }
void operator delete[](void* p) noexcept { std::free(p); }
void operator delete(void* p, std::size_t) noexcept { std::free(p); }
void operator delete[](void* p, std::size_t) noexcept { std::free(p); }
#endif

namespace {

using tvlcli::CallArgs;
using tvlcli::ExportEntry;

struct StatePoint {
    double p, T, x;
};

// Compressed liquid, steam, near-critical, wet, high-temperature steam.
const StatePoint kPoints[] = {{1e6, 350.0, 0.0},  {3e6, 700.0, 1.0},  {25e6, 650.0, 0.5},
                              {1e5, 372.0, 0.3},  {30e6, 1500.0, 1.0}, {60e6, 900.0, 1.0},
                              {2e4, 330.0, 0.9}};

bool isWater(const ExportEntry& e) {
    const std::string family = e.family;
    return family.rfind("Ideal gases", 0) != 0 && family != "About box and help" &&
           family != "Error reporting" && family != "Settings and service";
}

bool isGasById(const ExportEntry& e) {
    return std::string(e.family).rfind("Ideal gases: properties", 0) == 0 && !std::strchr(e.kinds, 's');
}

// Fills the arguments by their names from the state point.
void fill(const ExportEntry& e, const StatePoint& sp, std::int32_t gas, CallArgs& a) {
    const double h = tvlHPT(sp.p, sp.T), s = tvlSPT(sp.p, sp.T), r = tvlDPT(sp.p, sp.T);
    std::string names = e.argumentNames;
    std::size_t at = 0;
    int n = 0, i = 0;
    for (const char* k = e.kinds; *k; ++k) {
        std::size_t end = names.find(' ', at);
        const std::string name = names.substr(at, end == std::string::npos ? std::string::npos : end - at);
        at = end == std::string::npos ? names.size() : end + 1;
        if (*k == 'i') a.integers[i++] = gas;
        if (*k != 'd') continue;
        double v = 0.5;
        if (name == "p") v = sp.p;
        else if (name == "T") v = sp.T;
        else if (name == "h") v = h;
        else if (name == "s") v = s;
        else if (name == "r" || name == "r0") v = r;
        else if (name == "x") v = sp.x;
        else if (name == "p2") v = sp.p / 2;
        else if (name == "eff") v = 0.85;
        else if (name == "L") v = 5.89e-7;
        a.numbers[n++] = v;
    }
}

struct Count {
    long calls = 0, failing = 0;
    std::vector<std::string> faults;
};

void measure(const ExportEntry& e, CallArgs& a, Count& count) {
    e.call(a);  // warm-up
    newCount = mallocCount = 0;
    counting = true;
    e.call(a);
    counting = false;
    const bool failed = tvlGETLASTERROR() != 0;
    ++count.calls;
    count.failing += failed;
    if (newCount != 0 || (!failed && mallocCount != 0))
        count.faults.push_back(std::string("tvl") + e.name + ": " + std::to_string(newCount) + " new, " +
                               std::to_string(mallocCount) + " malloc" + (failed ? " (failing call)" : ""));
}

// The hooks see what they should: a new mixture in the catalogue does allocate.
TEST(Allocations, HooksCount) {
    if (!TAVLIB6_COUNTING) GTEST_SKIP() << "the sanitizers own malloc";
    newCount = mallocCount = 0;
    counting = true;
    const std::int32_t id = tvlgNEWIDGS("N2:1;O2:2;Ar:0.25");
    counting = false;
    EXPECT_NE(id, -1);
    EXPECT_GT(newCount + mallocCount, 0);
}

TEST(Allocations, NoneOnWaterPaths) {
    if (!TAVLIB6_COUNTING) GTEST_SKIP() << "the sanitizers own malloc";
    Count count;
    for (int x = 0; x < tvlcli::kExportCount; ++x) {
        const ExportEntry& e = tvlcli::kExports[x];
        if (!isWater(e)) continue;
        for (const StatePoint& sp : kPoints) {
            CallArgs a;
            fill(e, sp, 0, a);
            measure(e, a, count);
        }
    }
    std::printf("%ld water calls, %ld of them failing\n", count.calls, count.failing);
    EXPECT_GT(count.calls - count.failing, count.calls / 3);
    for (const std::string& f : count.faults) ADD_FAILURE() << f;
}

TEST(Allocations, NoneOnGasCallsById) {
    if (!TAVLIB6_COUNTING) GTEST_SKIP() << "the sanitizers own malloc";
    const std::int32_t ids[] = {tvlgIDNAME("N2"), tvlgIDNAME("air"), tvlgNEWIDGS("N2:79;O2:21;CO2:1")};
    Count count;
    for (int x = 0; x < tvlcli::kExportCount; ++x) {
        const ExportEntry& e = tvlcli::kExports[x];
        if (!isGasById(e)) continue;
        for (std::int32_t id : ids)
            for (const StatePoint& sp : {StatePoint{1e5, 300.0, 0}, StatePoint{2e6, 1200.0, 0}}) {
                CallArgs a;
                fill(e, sp, id, a);
                measure(e, a, count);
            }
    }
    std::printf("%ld gas calls, %ld of them failing\n", count.calls, count.failing);
    EXPECT_GT(count.calls, 0);
    for (const std::string& f : count.faults) ADD_FAILURE() << f;
}

}  // namespace
