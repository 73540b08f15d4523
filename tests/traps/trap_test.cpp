// Every export with the invalid, divide-by-zero and overflow traps unmasked, as spreadsheet and
// Delphi hosts run: ordinary and hostile arguments under every family of settings, each export
// in a child process of its own. No call may raise SIGFPE (a trap is counted, attributed, and the
// child goes on), and the caller's MXCSR (masks, rounding, flags) must be unchanged by each call.
#include <cfenv>
#include <cfloat>
#include <cmath>
#include <csetjmp>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <random>
#include <vector>

#if defined(__x86_64__) && defined(__GLIBC__)
#include <immintrin.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include "export_table.h"
#include "tavlib6.h"

namespace {

using tvlcli::CallArgs;
using tvlcli::ExportEntry;

struct Settings {
    int checkRange, toleranceMode, maxIterations;
};
const Settings kSettings[] = {{1, 1, 100}, {0, 1, 100}, {1, 0, 100}, {0, 0, 100},
                              {1, 1, 1},   {0, 0, 1},   {1, 1, 10000}, {0, 1, 10000}};

const double kOrdinary[] = {3e6, 0.5, 1e7, 300.0, 1e8, 1e5, 500.0, 2.8e6, 6000.0, 700.0, 1500.0, 1e3,
                            1e-6, 0.9, 4e5, 2.2e7, 647.0, 273.16, 260.0, 1.5e6, 100.0, 2000.0};
const double kHostile[] = {NAN, -NAN, INFINITY, -INFINITY, 1e300, -1e300, DBL_MAX, 4.9e-324,
                           DBL_MIN / 2, -DBL_MIN / 2, -1.0, 0.0, -0.0, -3e6, 1e-300};
const int kIntegers[] = {0, 1, 6, 13, -1, 2147483647, -2147483647 - 1, 100};
const char* const kTexts[] = {"N2", "N2:1;O2:1", "{N2:1;O2:3}:2;Ar", "", nullptr, "{{{", "N2:1e308;O2:1e308",
                              "N2:-1", "N2:4.9e-324", "N2:0"};

// The calls that the issue reported, tried first in their export.
struct Example {
    const char* name;
    double arguments[2];
};
const Example kExamples[] = {{"PHS", {3e6, 0.5}}, {"CV2PT", {1e7, 0.5}}, {"H2B2CP", {300.0}}, {"P1HS", {1e8, 1e7}}};

// The caller's state: the three traps unmasked, rounding down, and the denormal, divide-by-zero
// (its trap unmasked: a flag alone must not fire) and inexact flags raised beforehand. Invalid,
// overflow and underflow stay clear, so a flag that a call left behind would show.
constexpr unsigned kCallerCsr = (0x1F80u & ~(0x0080u | 0x0200u | 0x0400u)) | 0x2000u | 0x0026u;

struct Tally {
    long calls, traps, ordinaryTraps, changedCsr;
    char firstFault[200];
};

sigjmp_buf backToCaller;
volatile sig_atomic_t inCall = 0;

void onFloatingPointTrap(int) {
    if (inCall) siglongjmp(backToCaller, 1);
    _exit(5);
}

void fill(const ExportEntry& e, CallArgs& a, std::mt19937& rng, int tuple, bool hostile) {
    int n = 0, i = 0, t = 0;
    for (const char* k = e.kinds; *k; ++k) {
        if (*k == 'd') {
            const bool pickHostile = hostile && rng() % 2 == 0;
            a.numbers[n++] = pickHostile ? kHostile[rng() % std::size(kHostile)] : kOrdinary[rng() % std::size(kOrdinary)];
        } else if (*k == 'i') a.integers[i++] = kIntegers[rng() % std::size(kIntegers)];
        else if (*k == 's') a.texts[t++] = kTexts[rng() % std::size(kTexts)];
    }
    for (const Example& example : kExamples)
        if (tuple == 0 && std::strcmp(e.name, example.name) == 0)
            std::memcpy(a.numbers, example.arguments, sizeof example.arguments);
}

void note(Tally& tally, const char* what, const ExportEntry& e, const CallArgs& a, int settings) {
    if (tally.firstFault[0] == 0)
        std::snprintf(tally.firstFault, sizeof tally.firstFault, "%s in tvl%s(%.17g, %.17g, ...) under settings %d",
                      what, e.name, a.numbers[0], a.numbers[1], settings);
}

// The child: every argument set of one export under every family of settings.
void runExport(const ExportEntry& e, Tally& tally) {
    std::signal(SIGFPE, onFloatingPointTrap);
    std::mt19937 rng(20261123);
    for (int s = 0; s < static_cast<int>(std::size(kSettings)); ++s) {
        for (int tuple = 0; tuple < 120; ++tuple) {
            const bool hostile = tuple >= 60;
            CallArgs a;
            fill(e, a, rng, tuple, hostile);
            tvlSETCHECKRANGEMODE(kSettings[s].checkRange);
            tvlSETTOLERANCEMODE(kSettings[s].toleranceMode);
            tvlSETMAXITERATION(kSettings[s].maxIterations);
            _mm_setcsr(kCallerCsr);
            ++tally.calls;
            if (sigsetjmp(backToCaller, 1) == 0) {
                inCall = 1;
                e.call(a);
                inCall = 0;
                if (_mm_getcsr() != kCallerCsr) ++tally.changedCsr, note(tally, "MXCSR changed", e, a, s);
            } else {
                inCall = 0;
                ++tally.traps;
                tally.ordinaryTraps += !hostile;
                note(tally, "SIGFPE", e, a, s);
            }
            _mm_setcsr(0x1F80);
        }
    }
}

}  // namespace

int main() {
    auto* tallies = static_cast<Tally*>(mmap(nullptr, sizeof(Tally) * tvlcli::kExportCount, PROT_READ | PROT_WRITE,
                                             MAP_SHARED | MAP_ANONYMOUS, -1, 0));
    if (tallies == MAP_FAILED) return 1;
    std::memset(tallies, 0, sizeof(Tally) * tvlcli::kExportCount);
    long calls = 0, traps = 0, changed = 0;
    int trappingExports = 0, trappingOnOrdinary = 0, badExits = 0, tested = 0;
    for (int x = 0; x < tvlcli::kExportCount; ++x) {
        const ExportEntry& e = tvlcli::kExports[x];
        if (std::strchr(e.kinds, 'w') != nullptr) continue;  // the desktop dialogs
        ++tested;
        std::fflush(stdout);
        const pid_t child = fork();
        if (child == 0) {
            feenableexcept(FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW);
            runExport(e, tallies[x]);
            _exit(0);
        }
        int status = 0;
        waitpid(child, &status, 0);
        const Tally& t = tallies[x];
        if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
            ++badExits, std::printf("tvl%s: child ended with status %d\n", e.name, status);
        if (t.traps > 0 || t.changedCsr > 0) std::printf("tvl%s: %ld traps, %ld changed MXCSR; first: %s\n", e.name,
                                                         t.traps, t.changedCsr, t.firstFault);
        calls += t.calls, traps += t.traps, changed += t.changedCsr;
        trappingExports += t.traps > 0;
        trappingOnOrdinary += t.ordinaryTraps > 0;
    }
    std::printf("%d exports x 120 argument sets x %zu settings: %ld calls, %ld traps (%d exports trap, %d of them "
                "on ordinary arguments), %ld calls changed the caller's MXCSR\n",
                tested, std::size(kSettings), calls, traps, trappingExports, trappingOnOrdinary, changed);
    return traps == 0 && changed == 0 && badExits == 0 ? 0 : 1;
}

#else
int main() {
    std::puts("the trap test needs x86-64 and glibc's feenableexcept; skipped");
    return 77;
}
#endif
