// The selection tree on (h,s): each fixed number of the tree probed at the number and a rounding
// unit on the side where the answer changes, the boundary fits (saturation curves, hB13, the
// region 2/5 fit) at their values, and the edge cases of the wet area.
#include <gtest/gtest.h>

#include <cmath>

#include "support/facade_fixture.h"

namespace {

double up(double x) { return std::nextafter(x, INFINITY); }
double down(double x) { return std::nextafter(x, -INFINITY); }

class HSSelection : public tvltest::FacadeTest {};

struct AreaCase {
    const char* what;
    double h;
    double s;
    int area;
};

TEST_F(HSSelection, FixedNumbersEitherSide) {
    const double h5 = 4160663.6900093425;
    const double hFit25 = 3925960.4095492493;
    const double h2 = 2812942.0606003786;
    const double s2 = 9155.759395224399;
    const double s1 = -0.15454959194427764;
    const double sc = 4412.02148223476;
    const AreaCase cases[] = {
        {"above the highest enthalpy of region 2: region 5", up(h5), 0.0, 5},
        {"... whatever s, negative too", up(h5), -100.0, 5},
        {"... or huge", up(h5), 20000.0, 5},
        {"at it the fit decides, under it at s = 0", h5, 0.0, 2},
        {"at it the fit decides, above it at s = 9000", h5, 9000.0, 5},
        {"the band of the fit starts above 3925960.41", hFit25, 6000.0, 2},
        {"... and at s = 6000 the fit says 5 there", up(hFit25), 6000.0, 5},
        {"the fit at s = 7408.67: under it", 4114713.0, 7408.674893, 2},
        {"the fit at s = 7408.67: above it", 4114713.1, 7408.674893, 5},
        {"above 2812942.06: region 2", up(h2), 4500.0, 2},
        {"at it the entropy tests follow", h2, 4500.0, 3},
        {"above 9155.76 J/(kg K): region 2", 2e6, up(s2), 2},
        {"at it the saturation curve follows", 2e6, s2, 4},
        {"under -0.1545 J/(kg K): region 1", 2e6, down(s1), 1},
        {"at it the tests of the left side follow", 2e6, s1, 3},
        {"the critical entropy itself takes the left side", 1.6e6, sc, 1},
        {"right of it, under the saturated steam", 1.6e6, up(sc), 4},
        {"under 1553900 on the left: region 1", down(1553900.0), 3300.0, 1},
        {"at it the hB13 test follows, out of its range at s = 3300", 1553900.0, 3300.0, 3},
        {"above 1670850 on the left: region 3", up(1670850.0), 3500.0, 3},
        {"at it hB13 says region 3 too", 1670850.0, 3500.0, 3},
    };
    for (const AreaCase& c : cases) {
        EXPECT_EQ(lib.WATERSTATEAREAHS(c.h, c.s), c.area) << c.what << " (h=" << c.h << ", s=" << c.s << ")";
        EXPECT_EQ(lastError(), 0) << c.what;
    }
}

// At a curve's value the comparison is strict: the point is on the side away from the wet area,
// and a rounding unit under it inside.
TEST_F(HSSelection, BoundaryCurvesAtTheirValues) {
    tvl::WaterModel& w = water;
    struct CurveCase {
        const char* what;
        double h;
        double s;
        int at;
        int beside;  // one rounding unit of h below, or above for hB13
        bool above;
    };
    const CurveCase cases[] = {
        {"saturated steam, region 3 side", w.ROUGHHSSS(4500.0), 4500.0, 3, 4, false},
        {"saturated steam, region 3 side", w.ROUGHHSSS(5000.0), 5000.0, 3, 4, false},
        {"saturated steam, region 2 side", w.ROUGHHSSS(6000.0), 6000.0, 2, 4, false},
        {"saturated steam, region 2 side", w.ROUGHHSSS(8000.0), 8000.0, 2, 4, false},
        {"saturated water, region 3 above", w.ROUGHHSWS(4000.0), 4000.0, 3, 1, false},
        {"hB13: region 1 at it", w.HB13S(3500.0), 3500.0, 1, 3, true},
        {"hB13: region 1 at it", w.HB13S(3700.0), 3700.0, 1, 3, true},
    };
    for (const CurveCase& c : cases) {
        EXPECT_EQ(lib.WATERSTATEAREAHS(c.h, c.s), c.at) << c.what << " s=" << c.s;
        EXPECT_EQ(lib.WATERSTATEAREAHS(c.above ? up(c.h) : down(c.h), c.s), c.beside) << c.what << " s=" << c.s;
    }
}

// Along the 2/5 line the fit stays within 50 J/kg of the region 2 enthalpy at 1073.15 K: a
// state 1 K to either side of the line is in its own region, wherever the fit decides.
TEST_F(HSSelection, Region2Or5AlongTheLine) {
    tvl::WaterModel& w = water;
    for (double p = 100.0; p <= 5e7; p *= 1.25) {
        EXPECT_EQ(lib.WATERSTATEAREAHS(w.H2PT(p, 1072.15), w.S2PT(p, 1072.15)), 2) << "p=" << p;
        EXPECT_EQ(lib.WATERSTATEAREAHS(w.H5PT(p, 1074.15), w.S5PT(p, 1074.15)), 5) << "p=" << p;
    }
}

// The wet state at 373.15 K: x = 0.1 lies left of the critical entropy and is region 1, x = 0.9
// right of it and wet. XHS answers only the second; TXSHS both.
TEST_F(HSSelection, WetStatesAtTheBoilingPoint) {
    const double T = 373.15;
    for (double x : {0.1, 0.9}) {
        const double h = lib.HSTX(T, x);
        const double s = lib.SSTX(T, x);
        const bool right = x > 0.5;
        EXPECT_EQ(lib.WATERSTATEAREAHS(h, s), right ? 4 : 1) << x;
        const double dryness = lib.XHS(h, s);
        if (right) {
            EXPECT_NEAR(dryness, x, 1e-10);
            EXPECT_EQ(lastError(), 0);
        } else {
            EXPECT_EQ(dryness, -1.0);
            EXPECT_EQ(lastError(), 2);
        }
        double Tfound = 0.0;
        double xFound = 0.0;
        EXPECT_EQ(lib.TXSHS(h, s, &Tfound, &xFound), 1.0);
        EXPECT_EQ(lastError(), 0);
        EXPECT_NEAR(Tfound, T, 1e-9);
        EXPECT_NEAR(xFound, x, 1e-10);
    }
}

// The Tsat(h,s) of the release, raw, to the printed digits.
TEST_F(HSSelection, SaturationTemperatureEquation) {
    tvl::WaterModel& w = water;
    EXPECT_NEAR(w.T4HSEquation(1800e3, 5300.0), 346.8475498, 5e-8);
    EXPECT_NEAR(w.T4HSEquation(2400e3, 6000.0), 425.1373305, 5e-8);
    EXPECT_NEAR(w.T4HSEquation(2500e3, 5500.0), 522.5579013, 5e-8);
    EXPECT_EQ(lib.solved.temperatureSolved, 0) << "the equation publishes nothing";
}

}  // namespace
