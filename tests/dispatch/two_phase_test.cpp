// The wet area by (T,x): the mixing rules at their ends and inside, the inverses from
// (T, property), the refusals of cp and transport under checkRangeMode, and the equilibrium
// exponent and speed of sound against a numerical isentrope through the mixture.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "support/facade_fixture.h"

namespace {

using tvltest::nearRelative;

using Mixture = double (tvl::PropertyFacade::*)(double, double) noexcept;
using Saturated = double (tvl::PropertyFacade::*)(double) noexcept;

const double kWetTemperatures[] = {273.16, 300.0, 373.15, 400.0, 500.0, 600.0, 623.15, 630.0, 645.0};

class TwoPhase : public tvltest::FacadeTest {};

struct LinearMixture {
    const char* name;
    Mixture mixture;
    Saturated water;
    Saturated steam;
};

// The dryness fraction found from each property of a mixture is the x it was made with. The
// linear forms lose a rounding of the difference a'' - a' relative to x; the exponent and the
// speed of sound pass through a quadratic and a cancellation of K' against K''.
TEST_F(TwoPhase, DrynessFractionFromEachPropertyRoundTrips) {
    const struct {
        const char* name;
        double (*mixture)(tvl::PropertyFacade&, double, double);
        double (*fraction)(tvl::PropertyFacade&, double, double);
        double tolerance;
    } inverses[] = {
        {"V", [](tvl::PropertyFacade& f, double T, double x) { return f.VSTX(T, x); },
         [](tvl::PropertyFacade& f, double T, double a) { return f.XSTV(T, a); }, 1e-13},
        {"D", [](tvl::PropertyFacade& f, double T, double x) { return f.DSTX(T, x); },
         [](tvl::PropertyFacade& f, double T, double a) { return f.XSTD(T, a); }, 1e-13},
        {"U", [](tvl::PropertyFacade& f, double T, double x) { return f.USTX(T, x); },
         [](tvl::PropertyFacade& f, double T, double a) { return f.XSTU(T, a); }, 1e-13},
        {"S", [](tvl::PropertyFacade& f, double T, double x) { return f.SSTX(T, x); },
         [](tvl::PropertyFacade& f, double T, double a) { return f.XSTS(T, a); }, 1e-13},
        {"H", [](tvl::PropertyFacade& f, double T, double x) { return f.HSTX(T, x); },
         [](tvl::PropertyFacade& f, double T, double a) { return f.XSTH(T, a); }, 1e-13},
        {"CV", [](tvl::PropertyFacade& f, double T, double x) { return f.CVSTX(T, x); },
         [](tvl::PropertyFacade& f, double T, double a) { return f.XSTCV(T, a); }, 1e-12},
        {"K", [](tvl::PropertyFacade& f, double T, double x) { return f.KSTX(T, x); },
         [](tvl::PropertyFacade& f, double T, double a) { return f.XSTK(T, a); }, 1e-11},
        {"W", [](tvl::PropertyFacade& f, double T, double x) { return f.WSTX(T, x); },
         [](tvl::PropertyFacade& f, double T, double a) { return f.XSTW(T, a); }, 1e-9},
    };
    for (const auto& inverse : inverses)
        for (double T : kWetTemperatures)
            for (double x : {0.01, 0.3, 0.5, 0.9, 0.99}) {
                const double found = inverse.fraction(lib, T, inverse.mixture(lib, T, x));
                EXPECT_NEAR(found, x, inverse.tolerance) << "XST" << inverse.name << "(" << T << ", " << inverse.name
                                                         << "STX(" << T << ", " << x << "))";
                EXPECT_EQ(lastError(), 0) << inverse.name << " " << T << " " << x;
            }
    // At the ends a rounding may carry the fraction just outside 0 to 1, which the range test
    // refuses; without checks it comes back. The quadratic of XSTW takes only roots within 0 to 1
    // whatever the checks, so it is left out here.
    lib.SETCHECKRANGEMODE(0);
    for (const auto& inverse : inverses) {
        if (inverse.name[0] == 'W') continue;
        for (double T : kWetTemperatures)
            for (double x : {0.0, 1.0})
                EXPECT_NEAR(inverse.fraction(lib, T, inverse.mixture(lib, T, x)), x, inverse.tolerance)
                    << "XST" << inverse.name << "(" << T << ", " << inverse.name << "STX(" << T << ", " << x << "))";
    }
}

// cp and transport have no meaning in the wet area: with checks on they are refused, whatever
// the state; with checks off they are the arithmetic mixture and its inverse.
TEST_F(TwoPhase, CpAndTransportAreRefusedWithChecksOnAndMixedWithChecksOff) {
    const struct {
        const char* name;
        double (*mixture)(tvl::PropertyFacade&, double, double);
        double (*fraction)(tvl::PropertyFacade&, double, double);
        double (*water)(tvl::PropertyFacade&, double);
        double (*steam)(tvl::PropertyFacade&, double);
    } refused[] = {
        {"CP", [](tvl::PropertyFacade& f, double T, double x) { return f.CPSTX(T, x); },
         [](tvl::PropertyFacade& f, double T, double a) { return f.XSTCP(T, a); },
         [](tvl::PropertyFacade& f, double T) { return f.CPSWT(T); },
         [](tvl::PropertyFacade& f, double T) { return f.CPSST(T); }},
        {"THERMCOND", [](tvl::PropertyFacade& f, double T, double x) { return f.THERMCONDSTX(T, x); },
         [](tvl::PropertyFacade& f, double T, double a) { return f.XSTTHERMCOND(T, a); },
         [](tvl::PropertyFacade& f, double T) { return f.THERMCONDSWT(T); },
         [](tvl::PropertyFacade& f, double T) { return f.THERMCONDSST(T); }},
        {"DYNVIS", [](tvl::PropertyFacade& f, double T, double x) { return f.DYNVISSTX(T, x); },
         [](tvl::PropertyFacade& f, double T, double a) { return f.XSTDYNVIS(T, a); },
         [](tvl::PropertyFacade& f, double T) { return f.DYNVISSWT(T); },
         [](tvl::PropertyFacade& f, double T) { return f.DYNVISSST(T); }},
        {"KINVIS", [](tvl::PropertyFacade& f, double T, double x) { return f.KINVISSTX(T, x); },
         [](tvl::PropertyFacade& f, double T, double a) { return f.XSTKINVIS(T, a); },
         [](tvl::PropertyFacade& f, double T) { return f.KINVISSWT(T); },
         [](tvl::PropertyFacade& f, double T) { return f.KINVISSST(T); }},
        {"PRANDTLE", [](tvl::PropertyFacade& f, double T, double x) { return f.PRANDTLESTX(T, x); },
         [](tvl::PropertyFacade& f, double T, double a) { return f.XSTPRANDTLE(T, a); },
         [](tvl::PropertyFacade& f, double T) { return f.PRANDTLESWT(T); },
         [](tvl::PropertyFacade& f, double T) { return f.PRANDTLESST(T); }},
    };
    for (const auto& r : refused) {
        for (double T : {300.0, 373.15, 400.0, 640.0}) {
            EXPECT_EQ(r.mixture(lib, T, 0.5), -1.0) << r.name << "STX(" << T << ", 0.5)";
            EXPECT_EQ(lastError(), 2) << r.name << "STX(" << T << ", 0.5)";
            EXPECT_EQ(r.fraction(lib, T, r.water(lib, T)), -1.0) << "XST" << r.name << "(" << T << ")";
            EXPECT_EQ(lastError(), 2) << "XST" << r.name << "(" << T << ")";
        }
        // The refusal precedes any evaluation: a density search that would fail is never started.
        lib.SETMAXITERATION(1);
        r.mixture(lib, 640.0, 0.5);
        EXPECT_EQ(lastError(), 2) << r.name << ": refused, not code 3";
        r.fraction(lib, 640.0, 1.0);
        EXPECT_EQ(lastError(), 2) << r.name << ": refused, not code 3";
        lib.SETMAXITERATION(100);
        // The range tests come first: a temperature off the line is refused as such.
        r.mixture(lib, 700.0, 0.5);
        EXPECT_EQ(lastError(), 2);

        lib.SETCHECKRANGEMODE(0);
        for (double T : {300.0, 373.15, 400.0, 640.0}) {
            const double water = r.water(lib, T);
            const double steam = r.steam(lib, T);
            EXPECT_TRUE(nearRelative(r.mixture(lib, T, 0.5), 0.5 * (water + steam), 1e-15)) << r.name << " " << T;
            EXPECT_NEAR(r.fraction(lib, T, r.mixture(lib, T, 0.3)), 0.3, 1e-13) << r.name << " " << T;
            EXPECT_EQ(lastError(), 0) << r.name << " " << T;
        }
        lib.SETCHECKRANGEMODE(1);
    }
    lib.SETCHECKRANGEMODE(0);
    EXPECT_EQ(lib.CPSTX(400.0, 0.5), 0.5 * lib.CPSWT(400.0) + 0.5 * lib.CPSST(400.0));
    EXPECT_EQ(lib.THERMCONDSTX(373.15, 0.5), 0.5 * lib.THERMCONDSWT(373.15) + 0.5 * lib.THERMCONDSST(373.15));
    // The kinematic viscosities mix, and so do the Prandtl numbers of the phases.
    EXPECT_EQ(lib.KINVISSTX(400.0, 0.25),
              0.75 * lib.VSWT(400.0) * lib.DYNVISSWT(400.0) + 0.25 * lib.VSST(400.0) * lib.DYNVISSST(400.0));
    EXPECT_EQ(lib.PRANDTLESTX(400.0, 0.25), 0.75 * lib.PRANDTLESWT(400.0) + 0.25 * lib.PRANDTLESST(400.0));
}

TEST_F(TwoPhase, SpeedOfSoundWithoutARootInTheRangeIsBadParameters) {
    const double T = 400.0;
    // The mixture's speed of sound has a minimum inside the wet area; below it no x fits, and far
    // above the steam value neither.
    double slowest = lib.WSTX(T, 0.0);
    for (int k = 1; k <= 100; ++k) slowest = std::min(slowest, lib.WSTX(T, k / 100.0));
    EXPECT_EQ(lib.XSTW(T, 0.5 * slowest), -1.0);
    EXPECT_EQ(lastError(), 1);
    lib.SETCHECKRANGEMODE(0);
    EXPECT_EQ(lib.XSTW(T, 1e6), -1.0);
    EXPECT_EQ(lastError(), 1) << "code 1 whatever the checks";
}

}  // namespace
