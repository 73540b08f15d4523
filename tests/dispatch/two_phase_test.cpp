// The wet area by (T,x): the mixing rules at their ends and inside, the inverses from
// (T, property), the refusals of cp and transport under checkRangeMode, and the equilibrium
// exponent and speed of sound against a numerical isentrope through the mixture.
#include <gtest/gtest.h>

#include <cmath>

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

// The mixture at x = 0 and 1 is the saturated phase to rounding; inside it is the weighted mean.
TEST_F(TwoPhase, LinearMixturesMeetTheSaturatedPhases) {
    using F = tvl::PropertyFacade;
    const LinearMixture mixtures[] = {
        {"V", &F::VSTX, &F::VSWT, &F::VSST},
        {"U", &F::USTX, &F::USWT, &F::USST},
        {"S", &F::SSTX, &F::SSWT, &F::SSST},
        {"H", &F::HSTX, &F::HSWT, &F::HSST},
        {"CV", &F::CVSTX, &F::CVDPSWT, &F::CVDPSST},
    };
    for (const LinearMixture& m : mixtures)
        for (double T : kWetTemperatures) {
            const double water = (lib.*m.water)(T);
            const double steam = (lib.*m.steam)(T);
            EXPECT_EQ((lib.*m.mixture)(T, 0.0), water) << m.name << "STX(" << T << ", 0)";
            EXPECT_EQ((lib.*m.mixture)(T, 1.0), steam) << m.name << "STX(" << T << ", 1)";
            EXPECT_TRUE(nearRelative((lib.*m.mixture)(T, 0.25), 0.75 * water + 0.25 * steam, 1e-15))
                << m.name << "STX(" << T << ", 0.25)";
            EXPECT_EQ(lastError(), 0);
        }
}

// Density mixes through the volumes: at x = 0.5 it is the harmonic mean of the two densities.
TEST_F(TwoPhase, DensityMixesThroughTheVolumes) {
    for (double T : kWetTemperatures) {
        const double water = lib.DSWT(T);
        const double steam = lib.DSST(T);
        // r' r'' / r'' and r' r'' / r': one rounding of the product and one of the quotient.
        EXPECT_TRUE(nearRelative(lib.DSTX(T, 0.0), water, 3e-16)) << T;
        EXPECT_TRUE(nearRelative(lib.DSTX(T, 1.0), steam, 3e-16)) << T;
        EXPECT_TRUE(nearRelative(lib.DSTX(T, 0.5), 2.0 * water * steam / (water + steam), 1e-15)) << T;
        EXPECT_TRUE(nearRelative(lib.DSTX(T, 0.3) * lib.VSTX(T, 0.3), 1.0, 1e-15)) << T;
    }
}

}  // namespace
