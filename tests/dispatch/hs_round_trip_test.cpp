// Round trips through (h,s): a state given by (p,T) comes back from its enthalpy and entropy, in
// the region that the (p,T) selection names, and its properties are those of (p,T) at the state
// found; a wet state gives its temperature and dryness fraction back. With toleranceMode off the
// dispatch returns the releases' backward equations, as their check values show.
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <vector>

#include "dispatch/ph_ps_states.h"
#include "support/check_values.h"
#include "support/facade_fixture.h"

namespace {

using tvl::PropertyFacade;
using tvltest::GridState;
using tvltest::nearRelative;

// Member calls through a plain reference: GCC 12's vptr check misreads lib.* on the fixture.
template <class Member, class... Args>
auto call(PropertyFacade& facade, Member member, Args... args) {
    return (facade.*member)(args...);
}

using PairFunction = double (PropertyFacade::*)(double, double) noexcept;

class HSRoundTrip : public tvltest::FacadeTest {};

// The two-variable searches stop on the residuals of h and s, at tolerance (2e-12) times the
// targets. T is then as sharp as that, but in compressed liquid p is not: there h and s barely
// move with p, and the residual left in them stands for a relative 1e-10 to 1e-9 in p at low
// pressures, where the state lies close to the saturation line.
TEST_F(HSRoundTrip, PressureAndTemperatureComeBackInTheRegionOfThePTSelection) {
    std::map<int, int> statesOfRegion;
    std::map<int, double> worstPressure;
    std::map<int, double> worstTemperature;
    for (const GridState& s : tvltest::onePhaseGrid(lib)) {
        const double h = lib.HPT(s.p, s.T);
        const double entropy = lib.SPT(s.p, s.T);
        ASSERT_EQ(lastError(), 0) << s;
        EXPECT_EQ(lib.WATERSTATEAREAHS(h, entropy), s.region) << s;
        const double p = lib.PHS(h, entropy);
        EXPECT_EQ(lastError(), 0) << s;
        const double T = lib.THS(h, entropy);
        EXPECT_EQ(lastError(), 0) << s;
        double pBoth = 0.0;
        double TBoth = 0.0;
        EXPECT_EQ(lib.PTHS(h, entropy, &pBoth, &TBoth), 1.0) << s;
        EXPECT_EQ(lastError(), 0) << s;
        EXPECT_TRUE(nearRelative(p, s.p, 1e-9)) << "PHS at " << s;
        EXPECT_TRUE(nearRelative(T, s.T, 1e-13)) << "THS at " << s;
        EXPECT_TRUE(nearRelative(pBoth, s.p, 1e-9)) << "PTHS at " << s;
        EXPECT_TRUE(nearRelative(TBoth, s.T, 1e-13)) << "PTHS at " << s;
        ++statesOfRegion[s.region];
        worstPressure[s.region] = std::fmax(worstPressure[s.region], std::fabs(p - s.p) / s.p);
        worstTemperature[s.region] = std::fmax(worstTemperature[s.region], std::fabs(T - s.T) / s.T);
    }
    for (int region : {1, 2, 3, 5}) {
        EXPECT_GT(statesOfRegion[region], 500) << "region " << region;
        std::printf("(h,s) region %d: %d states, worst relative pressure %.2g, temperature %.2g\n", region,
                    statesOfRegion[region], worstPressure[region], worstTemperature[region]);
    }
}

// With toleranceMode off the pressure functions of regions 1, 2 and 3 publish p alone: under
// checks the frame misses the temperature and reports code 1. THS and region 5 publish both.
TEST_F(HSRoundTrip, StatesThatPublishNoTemperature) {
    tvl::WaterModel& w = water;
    const struct {
        const char* what;
        double h, s;
        int codeOfPHS;
    } states[] = {
        {"region 1", w.H1PT(1e7, 400.0), w.S1PT(1e7, 400.0), 1},
        {"region 2", w.H2PT(1e6, 600.0), w.S2PT(1e6, 600.0), 1},
        {"region 3", w.H3PT(5e7, 700.0), w.S3PT(5e7, 700.0), 1},
        {"region 5", w.H5PT(1e6, 1500.0), w.S5PT(1e6, 1500.0), 0},
    };
    lib.SETTOLERANCEMODE(0);
    for (const auto& c : states) {
        call(lib, &PropertyFacade::PHS, c.h, c.s);
        EXPECT_EQ(lastError(), c.codeOfPHS) << c.what;
        call(lib, &PropertyFacade::THS, c.h, c.s);
        EXPECT_EQ(lastError(), 0) << c.what;
        lib.SETCHECKRANGEMODE(0);
        call(lib, &PropertyFacade::PHS, c.h, c.s);
        EXPECT_EQ(lastError(), 0) << c.what << ", checks off";
        lib.SETCHECKRANGEMODE(1);
    }
}

}  // namespace
