// The selection trees on (p,h) and (p,s): their edge cases, the bands of pressure, the limits of
// the sub-tests probed a rounding unit and a tolerance either side, agreement with the (p,T)
// selection at the temperature found, and the saturation temperature that a wet answer leaves.
#include <gtest/gtest.h>

#include <cmath>

#include "dispatch/ph_ps_states.h"
#include "support/facade_fixture.h"

namespace {

using tvl::kP623;

double up(double x) { return std::nextafter(x, INFINITY); }
double down(double x) { return std::nextafter(x, -INFINITY); }

class PHPSSelection : public tvltest::FacadeTest {
protected:
    double m() const { return 1.0 + lib.settings.tolerance; }
};

struct AreaCase {
    const char* what;
    double p;
    double y;
    int area;
};

TEST_F(PHPSSelection, EdgeCases) {
    const double Ts = water.TSP(1e5);
    const AreaCase byEnthalpy[] = {
        {"cold water at 1 bar", 1e5, 1e5, 1},
        {"steam at 1 bar", 1e5, 2.7e6, 2},
        {"between the saturation enthalpies", 1e5, 0.5 * (water.HSWT(Ts) + water.HSST(Ts)), 4},
        {"near the saturated water", 1e5, water.HSWT(Ts) + 1.0, 4},
        {"near the saturated steam", 1e5, water.HSST(Ts) - 1.0, 4},
        {"hot steam at 1 bar", 1e5, 5e6, 5},
        {"under the lowest saturation pressure, cold", 100.0, 1e5, 2},
        {"compressed water at 100 MPa", 1e8, 1e6, 1},
        {"region 3 at 100 MPa", 1e8, 2e6, 3},
        {"steam at 100 MPa", 1e8, 3e6, 2},
        {"region 3 in the dome's pressures", 2e7, 1.7e6, 3},
        {"wet in region 3's pressures", 2e7, 2.0e6, 4},
    };
    for (const AreaCase& c : byEnthalpy) {
        EXPECT_EQ(lib.WATERSTATEAREAPH(c.p, c.y), c.area) << c.what;
        EXPECT_EQ(lastError(), 0) << c.what;
    }
    const AreaCase byEntropy[] = {
        {"cold water at 1 bar", 1e5, 300.0, 1},
        {"steam at 1 bar", 1e5, 7500.0, 2},
        {"between the saturation entropies", 1e5, 0.5 * (water.SSWT(Ts) + water.SSST(Ts)), 4},
        {"hot steam at 1 bar", 1e5, 10500.0, 5},
        {"compressed water at 100 MPa", 1e8, 2000.0, 1},
        {"region 3 at 100 MPa", 1e8, 4000.0, 3},
        {"steam at 100 MPa", 1e8, 5500.0, 2},
        {"wet in region 3's pressures", 2e7, 4500.0, 4},
    };
    for (const AreaCase& c : byEntropy) {
        EXPECT_EQ(lib.WATERSTATEAREAPS(c.p, c.y), c.area) << c.what;
        EXPECT_EQ(lastError(), 0) << c.what;
    }
    // The area functions test no range, whatever the checks say.
    EXPECT_EQ(lib.WATERSTATEAREAPH(2e8, 1e5), 1);
    EXPECT_EQ(lib.WATERSTATEAREAPS(2e8, 100.0), 1);
    EXPECT_EQ(lastError(), 0);
}

// Above 50 MPa the tree knows only regions 1, 2 and 3; 50 MPa itself belongs to the band below,
// where 4.1e6 J/kg and 7100 J/(kg K) are region 5.
TEST_F(PHPSSelection, AboveFiftyMegapascalsNeitherRegion5NorWet) {
    for (double p = up(5e7); p <= 1e8; p += 2.5e6)
        for (double h = -50.0; h <= 7.4e6; h += 5e3) {
            const int area = lib.WATERSTATEAREAPH(p, h);
            ASSERT_TRUE(area >= 1 && area <= 3) << p << " " << h;
        }
    for (double p = up(5e7); p <= 1e8; p += 2.5e6)
        for (double s = -100.0; s <= 12000.0; s += 10.0) {
            const int area = lib.WATERSTATEAREAPS(p, s);
            ASSERT_TRUE(area >= 1 && area <= 3) << p << " " << s;
        }
    EXPECT_EQ(lib.WATERSTATEAREAPH(5e7, 4.1e6), 5);
    EXPECT_EQ(lib.WATERSTATEAREAPH(up(5e7), 4.1e6), 2);
    EXPECT_EQ(lib.WATERSTATEAREAPS(5e7, 7100.0), 5);
    EXPECT_EQ(lib.WATERSTATEAREAPS(up(5e7), 7100.0), 2);
}

// P623 itself is in the band of region 3's pressures, whose tests stand on fixed numbers until
// the last step: steam there is found without the saturation temperature. A rounding unit lower
// the tree works out Ts first and publishes it.
TEST_F(PHPSSelection, P623BelongsToTheBandOfRegion3) {
    EXPECT_EQ(lib.WATERSTATEAREAPH(kP623, 2.6e6), 2);
    EXPECT_EQ(lib.solved.temperatureSolved, 0);
    EXPECT_EQ(lib.WATERSTATEAREAPH(down(kP623), 2.6e6), 2);
    EXPECT_EQ(lib.solved.temperatureSolved, 1);
    EXPECT_EQ(lib.solved.solvedTemperature, water.TSP(down(kP623)));
    EXPECT_EQ(lib.WATERSTATEAREAPS(kP623, 5230.0), 2);
    EXPECT_EQ(lib.solved.temperatureSolved, 0);
    EXPECT_EQ(lib.WATERSTATEAREAPS(down(kP623), 5230.0), 2);
    EXPECT_EQ(lib.solved.temperatureSolved, 1);
    // Just over the fixed number 1635608.8, h at P623 meets the region 1 test, not the line.
    EXPECT_EQ(lib.WATERSTATEAREAPH(kP623, 1.66e6), 1);
}

// Each sub-test compares with the margin m = 1 + tolerance on the side of the region named
// first: the region 1 side of 623.15 K ends a tolerance above h1, the region 2 side of
// 1073.15 K a tolerance above h2, and on B23 the steam side begins a tolerance below it. So a
// half tolerance beyond the boundary value stays on the near side, two tolerances go over.
TEST_F(PHPSSelection, SubTestsHaveTheirMarginOnTheNamedSide) {
    const double tol = lib.settings.tolerance;
    struct Boundary {
        const char* what;
        bool byEnthalpy;
        double p;
        double value;  // the region's equation at the boundary temperature
        double bandLow, bandHigh;  // where the tree asks this sub-test in the band of p
        int inside;  // value (1 + tol/2) or, on B23, value (1 - tol/2)
        int beyond;  // two tolerances further
    };
    auto h1 = [&](double p) { return water.H1PT(p, 623.15); };
    auto h2 = [&](double p) { return water.H2PT(p, 1073.15); };
    auto hb = [&](double p) { return water.H2PT(p, water.T23P(p)); };
    auto s1 = [&](double p) { return water.S1PT(p, 623.15); };
    auto s2 = [&](double p) { return water.S2PT(p, 1073.15); };
    auto sb = [&](double p) { return water.S2PT(p, water.T23P(p)); };
    const Boundary boundaries[] = {
        {"H1 above 50 MPa", true, 6e7, h1(6e7), 1553900.0, 1576000.0, 1, 3},
        {"H1 above the critical pressure", true, 3e7, h1(3e7), 1575980.0, 1635608.804, 1, 3},
        {"H1 from P623 up", true, 2e7, h1(2e7), 1635608.8, 1670858.2182744227, 1, 3},
        {"H2 above the critical pressure", true, 3e7, h2(3e7), 3925960.4, 4057944.11, 2, 5},
        {"H2 from P623 up", true, 2e7, h2(2e7), 4057900.0, 4084125.034, 2, 5},
        {"H2 below P623", true, 1e6, h2(1e6), 4084125.0, 4160660.93, 2, 5},
        {"H2 under the lowest saturation pressure", true, 100.0, h2(100.0), -1e9, 1e9, 2, 5},
        {"B23 above 50 MPa", true, 8e7, hb(8e7), 2626880.0, 2813000.0, 2, 3},
        {"B23 above the critical pressure", true, 2.5e7, hb(2.5e7), 2605000.0, 2626890.0, 2, 3},
        {"B23 from P623 up", true, 1.7e7, hb(1.7e7), 2563592.0038884096, 2626375.4454356735, 2, 3},
        {"S1 above 50 MPa", false, 6e7, s1(6e7), 3397.7, 3542.992, 1, 3},
        {"S1 above the critical pressure", false, 3e7, s1(3e7), 3542.992, 3706.79, 1, 3},
        {"S1 from P623 up", false, 2e7, s1(2e7), 3706.79, 3778.281339543, 1, 3},
        {"S2 above the critical pressure", false, 3e7, s2(3e7), 6522.64, 7000.7, 2, 5},
        {"S2 from P623 up", false, 2e7, s2(2e7), 7000.63, 7153.71, 2, 5},
        {"S2 below P623", false, 1e6, s2(1e6), -1e9, 1e9, 2, 5},
        {"B23 above 50 MPa by s", false, 8e7, sb(8e7), 5047.0, 5098.0, 2, 3},
        {"B23 above the critical pressure by s", false, 2.5e7, sb(2.5e7), 5051.2, 5240.347, 2, 3},
        {"B23 from P623 up by s", false, 1.7e7, sb(1.7e7), 5210.888, 5261.0, 2, 3},
    };
    for (const Boundary& b : boundaries) {
        ASSERT_TRUE(b.value > b.bandLow && b.value < b.bandHigh) << b.what << ": the sub-test is not reached";
        // B23 leans the other way: the margin is on the steam side, below the boundary value.
        const double sign = b.inside == 2 && b.beyond == 3 ? -1.0 : 1.0;
        auto area = [&](double y) { return b.byEnthalpy ? lib.WATERSTATEAREAPH(b.p, y) : lib.WATERSTATEAREAPS(b.p, y); };
        EXPECT_EQ(area(b.value), b.inside) << b.what << " at the boundary value";
        EXPECT_EQ(area(b.value * (1.0 + sign * 0.5 * tol)), b.inside) << b.what << ", half a tolerance on";
        EXPECT_EQ(area(b.value * (1.0 + sign * 2.0 * tol)), b.beyond) << b.what << ", two tolerances on";
        EXPECT_EQ(area(b.value * (1.0 - sign * 2.0 * tol)), b.inside) << b.what << ", two tolerances back";
    }
}

// On the saturation line the tree has no margin: the saturated state is one-phase, the next
// double towards the dome is wet. Below P623 regions 1 and 2 give the saturated states, from
// P623 up region 3 at the density searched from the fitted saturated density. (At P623 itself
// region 3's saturated steam lies some 39 J/kg above region 2's, beyond the B23 test: steam.)
TEST_F(PHPSSelection, SaturationLineHasNoMargin) {
    for (double p : {611.2126774443452, 1e3, 1e5, 1e6, 1e7, 1.6e7}) {
        const double Ts = water.TSP(p);
        const double hw = water.H1PT(p, Ts);
        const double hs = water.H2PT(p, Ts);
        EXPECT_EQ(lib.WATERSTATEAREAPH(p, hw), 1) << p;
        EXPECT_EQ(lib.WATERSTATEAREAPH(p, up(hw)), 4) << p;
        EXPECT_EQ(lib.WATERSTATEAREAPH(p, hs), 2) << p;
        EXPECT_EQ(lib.WATERSTATEAREAPH(p, down(hs)), 4) << p;
        const double sw = water.S1PT(p, Ts);
        const double ss = water.S2PT(p, Ts);
        EXPECT_EQ(lib.WATERSTATEAREAPS(p, sw), 1) << p;
        EXPECT_EQ(lib.WATERSTATEAREAPS(p, up(sw)), 4) << p;
        EXPECT_EQ(lib.WATERSTATEAREAPS(p, ss), 2) << p;
        EXPECT_EQ(lib.WATERSTATEAREAPS(p, down(ss)), 4) << p;
    }
    for (double p : {1.7e7, 1.8e7, 2e7, 2.2e7}) {
        const double Ts = water.TSP(p);
        const double rw = water.R3PTR0(p, Ts, water.ROUGHRSWT(Ts));
        const double rs = water.R3PTR0(p, Ts, water.ROUGHRSST(Ts));
        EXPECT_EQ(lib.WATERSTATEAREAPH(p, water.H3RT(rw, Ts)), 3) << p;
        EXPECT_EQ(lib.WATERSTATEAREAPH(p, up(water.H3RT(rw, Ts))), 4) << p;
        EXPECT_EQ(lib.WATERSTATEAREAPH(p, water.H3RT(rs, Ts)), 3) << p;
        EXPECT_EQ(lib.WATERSTATEAREAPH(p, down(water.H3RT(rs, Ts))), 4) << p;
        EXPECT_EQ(lib.WATERSTATEAREAPS(p, water.S3RT(rw, Ts)), 3) << p;
        EXPECT_EQ(lib.WATERSTATEAREAPS(p, up(water.S3RT(rw, Ts))), 4) << p;
        EXPECT_EQ(lib.WATERSTATEAREAPS(p, water.S3RT(rs, Ts)), 3) << p;
        EXPECT_EQ(lib.WATERSTATEAREAPS(p, down(water.S3RT(rs, Ts))), 4) << p;
    }
}

// The bands change at their limit pressures to the next double. 4.1e6 J/kg: region 5 in the
// bands up to 50 MPa, wet nowhere; 2.6e6 J/kg under the saturation temperature's band is steam.
TEST_F(PHPSSelection, BandsChangeAtTheirPressures) {
    const AreaCase cases[] = {
        {"50 MPa, the band below", 5e7, 4.1e6, 5},
        {"a unit over 50 MPa", up(5e7), 4.1e6, 2},
        {"the critical pressure, the band below", 22064000.0, 2.0e6, 3},
        {"a unit over it", up(22064000.0), 2.0e6, 3},
        {"the critical pressure, the band below, near h1", 22064000.0, 1.6e6, 1},
        {"a unit over it, near h1", up(22064000.0), 1.6e6, 1},
        {"the lowest saturation pressure, wet", 611.2126774443452, 1e6, 4},
        {"a unit under it, region 2 whatever h", down(611.2126774443452), 1e6, 2},
    };
    for (const AreaCase& c : cases) EXPECT_EQ(lib.WATERSTATEAREAPH(c.p, c.y), c.area) << c.what;
    EXPECT_EQ(lib.WATERSTATEAREAPS(611.2126774443452, 5000.0), 4);
    EXPECT_EQ(lib.WATERSTATEAREAPS(down(611.2126774443452), 5000.0), 2);
}

// From the other side: on a (p,h) and a (p,s) grid over the range of the formulation, the (p,T)
// selection at the temperature found names the same region, except in the bands along the
// region boundaries described with the grid of states, and in the wet area, which the (p,T)
// selection never names. Beyond the formulation, where the argument range of (p,h) and (p,s)
// still reaches (steam of 6.65e6 J/kg at 100 MPa), region 2's equation is extrapolated and may
// have a root of its own far from the state.
TEST_F(PHPSSelection, AgreesWithThePTSelectionAtTheTemperatureFound) {
    int compared = 0;
    for (int i = 0; i < 60; ++i) {
        const double p = 10.0 * std::pow(1e7, i / 59.0);
        const double highestT = p > 5e7 ? 1073.15 : 2273.15;
        const double lowestH = water.HPT(p, 273.15), highestH = water.HPT(p, highestT);
        const double lowestS = water.SPT(p, 273.15), highestS = water.SPT(p, highestT);
        for (double h = lowestH; h <= highestH; h += 2.5e4) {
            const int area = lib.WATERSTATEAREAPH(p, h);
            const double T = lib.TPH(p, h);
            ASSERT_EQ(lastError(), 0) << "p=" << p << " h=" << h;
            if (area == 4 || tvltest::nearARegionBoundary(water, p, T)) continue;
            EXPECT_EQ(lib.WATERSTATEAREA2(p, T), area) << "p=" << p << " h=" << h << " T=" << T;
            ++compared;
        }
        for (double s = lowestS; s <= highestS; s += 20.0) {
            const int area = lib.WATERSTATEAREAPS(p, s);
            const double T = lib.TPS(p, s);
            ASSERT_EQ(lastError(), 0) << "p=" << p << " s=" << s;
            if (area == 4 || tvltest::nearARegionBoundary(water, p, T)) continue;
            EXPECT_EQ(lib.WATERSTATEAREA2(p, T), area) << "p=" << p << " s=" << s << " T=" << T;
            ++compared;
        }
    }
    EXPECT_GT(compared, 20000);
}

// Close to the critical point the tree searches region 3's saturated densities whatever
// toleranceMode says, so that the selection itself can run out of iterations.
TEST_F(PHPSSelection, SelectionNearTheCriticalPointSearches) {
    lib.SETTOLERANCEMODE(0);
    lib.SETMAXITERATION(1);
    EXPECT_EQ(lib.WATERSTATEAREAPH(2e7, 2.0e6), -1);
    EXPECT_EQ(lastError(), 3);
    EXPECT_EQ(lib.WATERSTATEAREAPS(2e7, 4500.0), -1);
    EXPECT_EQ(lastError(), 3);
    EXPECT_EQ(lib.WATERSTATEAREAPH(1e5, 1e6), 4) << "below P623 the line is a closed equation";
    EXPECT_EQ(lastError(), 0);
}

}  // namespace
