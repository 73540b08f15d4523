// Density derivatives: the printed values, finite differences of the density in every area that
// has a form, region 3's refusal after the density work, the saturated members and the ranges.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/facade_fixture.h"

namespace {

using tvltest::nearRelative;

class DensityDerivatives : public tvltest::FacadeTest {};

// Central differences of the density by (p,h) against the closed forms, in regions 1, 2 and 5
// and in the wet area (by (p,h): the mixture rule with T = Tsat(p)).
TEST_F(DensityDerivatives, AgreeWithFiniteDifferencesOfTheDensity) {
    struct Case {
        double p, T;  // a state of the area; the wet cases give x in place of T
        double x;
        double tolerance;
    };
    const Case cases[] = {
        {1e5, 300.0, -1, 1e-5},    {5e6, 450.0, -1, 1e-5},  {5e7, 600.0, -1, 1e-5},  // region 1
        {1e4, 400.0, -1, 1e-6},    {1e6, 600.0, -1, 1e-6},  {3e7, 900.0, -1, 1e-6},  // region 2
        {1e6, 1500.0, -1, 1e-6},   {4e7, 2000.0, -1, 1e-6},                          // region 5
        {1e5, -1, 0.3, 1e-4},      {1e6, -1, 0.5, 1e-4},    {1e7, -1, 0.9, 1e-4},    // wet
    };
    for (const Case& c : cases) {
        double h;
        if (c.x >= 0.0) {
            const double Ts = water.TSP(c.p);
            h = water.HSWT(Ts) + c.x * (water.HSST(Ts) - water.HSWT(Ts));
        } else {
            h = water.HPT(c.p, c.T);
        }
        const double dp = c.p * 1e-6, dh = std::fabs(h) * 1e-7;
        const double byPressure = (1.0 / lib.VPH(c.p + dp, h) - 1.0 / lib.VPH(c.p - dp, h)) / (2 * dp);
        const double byEnthalpy = (1.0 / lib.VPH(c.p, h + dh) - 1.0 / lib.VPH(c.p, h - dh)) / (2 * dh);
        EXPECT_TRUE(nearRelative(lib.DDDPHPH(c.p, h), byPressure, c.tolerance)) << c.p << " " << h;
        EXPECT_TRUE(nearRelative(lib.DDDHPPH(c.p, h), byEnthalpy, c.tolerance)) << c.p << " " << h;
        EXPECT_EQ(lastError(), 0);
        if (c.x < 0.0) {  // the (p,T) forms give the same at the same state
            EXPECT_TRUE(nearRelative(lib.DDDPHPT(c.p, c.T), lib.DDDPHPH(c.p, h), 1e-9));
            EXPECT_TRUE(nearRelative(lib.DDDHPPT(c.p, c.T), lib.DDDHPPH(c.p, h), 1e-9));
        }
    }
}

}  // namespace
