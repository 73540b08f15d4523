// Region 3 forward: the (density, T) equations against each other and against differences, the
// areas of the fitted volume, the density search and the (p,T) family built on them.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>

#include "region3_states.h"
#include "support/facade_fixture.h"
#include "water/formulation/region3_fit.h"

namespace {

using tvl::RoughV3Area;
using tvltest::nearRelative;

class Region3 : public tvltest::FacadeTest {
protected:
    // The smallest maxIterations with which call succeeds; the search then returned at the
    // step before it, since the step that reaches the cap fails.
    template <class Call>
    int stepsOf(Call call) {
        for (int cap = 1; cap <= 100; ++cap) {
            lib.settings.maxIterations = cap;
            call();
            if (lastError() == 0) {
                lib.settings.maxIterations = 100;
                return cap - 1;
            }
        }
        return -1;
    }
};

double below(double x) { return std::nextafter(x, 0.0); }
double above(double x) { return std::nextafter(x, 2.0 * x); }

TEST_F(Region3, ExportsGiveTheReleaseValuesAtFiveHundredAndSixFifty) {
    // Lambdas rather than pointers to members: GCC's UBSan misreads calls through the latter.
    struct Case {
        const char* what;
        std::function<double(double, double)> f;
        double expected;
        double absolute;  // half a unit in the last printed digit
    };
    const Case cases[] = {
        {"p", [&](double r, double T) { return lib.P3RT(r, T); }, 25583701.8, 0.05},
        {"h", [&](double r, double T) { return lib.H3RT(r, T); }, 1863430.19, 0.005},
        {"u", [&](double r, double T) { return lib.U3RT(r, T); }, 1812262.79, 0.005},
        {"s", [&](double r, double T) { return lib.S3RT(r, T); }, 4054.27273, 5e-6},
        {"cp", [&](double r, double T) { return lib.CP3RT(r, T); }, 13893.5717, 5e-5},
        {"w", [&](double r, double T) { return lib.W3RT(r, T); }, 502.005554, 5e-7},
    };
    for (const Case& c : cases) {
        EXPECT_NEAR(c.f(500.0, 650.0), c.expected, c.absolute) << c.what;
        EXPECT_EQ(lastError(), 0) << c.what;
    }
    EXPECT_NEAR(lib.P3RT(200.0, 650.0), 22293064.3, 0.05);
    EXPECT_NEAR(lib.P3RT(500.0, 750.0), 78309563.9, 0.05);
}

TEST_F(Region3, CombinedCallAgreesWithTheSingleFunctionsAndWithDifferences) {
    for (const auto& st : tvltest::region3States(water)) {
        const double rho = st.rho;
        const double T = st.T;
        const tvl::StateProperties s = water.VUSHCVWDERPT3RT(rho, T);
        // Same sums, composed in a different order: a few rounding units.
        EXPECT_TRUE(nearRelative(s.v, 1.0 / rho, 1e-15)) << st;
        EXPECT_TRUE(nearRelative(s.u, water.U3RT(rho, T), 1e-12)) << st;
        EXPECT_TRUE(nearRelative(s.s, water.S3RT(rho, T), 1e-13)) << st;
        EXPECT_TRUE(nearRelative(s.h, water.H3RT(rho, T), 1e-14)) << st;
        EXPECT_TRUE(nearRelative(s.cv, water.CV3RT(rho, T), 1e-14)) << st;
        EXPECT_TRUE(nearRelative(s.w, water.W3RT(rho, T), 1e-14)) << st;
        EXPECT_TRUE(nearRelative(s.dhdT, water.CP3RT(rho, T), 1e-13)) << st;
        // The Joule-Thomson coefficient is -(dh/dp)T / cp.
        EXPECT_TRUE(nearRelative(water.JOULETHOMPSON3RT(rho, T), -s.dhdp / s.dhdT, 1e-10)) << st;

        // Derivatives at constant p by central differences along the isobar, through the refined
        // (p,T) functions; the step of 1e-3 K leaves about 1e-6 of truncation and rounding.
        const double p = st.p;
        const double dT = 1e-3;
        auto byT = [&](auto f) { return (f(p, T + dT) - f(p, T - dT)) / (2 * dT); };
        auto V = [&](double pp, double TT) { return water.V3PT(pp, TT); };
        auto H = [&](double pp, double TT) { return water.H3PT(pp, TT); };
        auto S = [&](double pp, double TT) { return water.S3PT(pp, TT); };
        auto U = [&](double pp, double TT) { return water.U3PT(pp, TT); };
        EXPECT_TRUE(nearRelative(s.dvdT, byT(V), 1e-5)) << st;
        EXPECT_TRUE(nearRelative(s.dhdT, byT(H), 1e-5)) << st;
        EXPECT_TRUE(nearRelative(s.dsdT, byT(S), 1e-5)) << st;
        EXPECT_TRUE(nearRelative(s.dudT, byT(U), 1e-5)) << st;
        const double dp = p * 1e-6;
        auto byP = [&](auto f) { return (f(p + dp, T) - f(p - dp, T)) / (2 * dp); };
        EXPECT_TRUE(nearRelative(s.dvdp, byP(V), 1e-5)) << st;
        EXPECT_TRUE(nearRelative(s.dhdp, byP(H), 1e-4)) << st;
        EXPECT_TRUE(nearRelative(s.dsdp, byP(S), 1e-5)) << st;
        EXPECT_TRUE(nearRelative(s.dudp, byP(U), 1e-4)) << st;
    }
}

TEST_F(Region3, PressureTemperatureFamilyIsTheDensityEquationAtTheSearchedDensity) {
    for (const auto& st : tvltest::region3States(water)) {
        EXPECT_EQ(lib.D3PT(st.p, st.T), lib.R3PT(st.p, st.T)) << st;
        EXPECT_EQ(lib.V3PT(st.p, st.T), 1.0 / st.rho) << st;
        EXPECT_EQ(lib.H3PT(st.p, st.T), water.H3RT(st.rho, st.T)) << st;
        EXPECT_EQ(lib.U3PT(st.p, st.T), water.U3RT(st.rho, st.T)) << st;
        EXPECT_EQ(lib.S3PT(st.p, st.T), water.S3RT(st.rho, st.T)) << st;
        EXPECT_EQ(lib.CP3PT(st.p, st.T), water.CP3RT(st.rho, st.T)) << st;
        EXPECT_EQ(lib.CV3PT(st.p, st.T), water.CV3RT(st.rho, st.T)) << st;
        EXPECT_EQ(lib.W3PT(st.p, st.T), water.W3RT(st.rho, st.T)) << st;
        EXPECT_EQ(lib.JOULETHOMPSON3PT(st.p, st.T), water.JOULETHOMPSON3RT(st.rho, st.T)) << st;
        double cells[14];
        double* out[14];
        for (int k = 0; k < 14; ++k) out[k] = &cells[k];
        ASSERT_EQ(lib.VUSHCVWDERPT3PT(st.p, st.T, {{out[0], out[1], out[2], out[3], out[4], out[5], out[6], out[7],
                                                    out[8], out[9], out[10], out[11], out[12], out[13]}}),
                  1.0);
        EXPECT_EQ(cells[3], water.H3RT(st.rho, st.T)) << st;
        EXPECT_EQ(cells[13], water.CP3RT(st.rho, st.T)) << st;
    }
}

TEST_F(Region3, DensityByPressureAndPressureByDensityInvertEachOther) {
    for (const auto& st : tvltest::region3States(water)) {
        const double rho = lib.R3PT(st.p, st.T);
        ASSERT_EQ(lastError(), 0) << st;
        // The residual before the last step is within tolerance p; the last step squares it.
        EXPECT_TRUE(nearRelative(lib.P3RT(rho, st.T), st.p, 1e-12)) << st;
        // And back: the pressure of a density gives that density again.
        for (double factor : {0.97, 1.03}) {
            const double density = rho * factor;
            const double p = lib.P3RT(density, st.T);
            if (p < water.P23T(st.T) || p > 1e8 || (st.T < 647.096 && std::fabs(p - water.PST(st.T)) < 0.5e6)) continue;
            EXPECT_TRUE(nearRelative(lib.R3PT(p, st.T), density, 1e-11)) << st << " factor " << factor;
        }
    }
}

TEST_F(Region3, DensitySearchNeedsThreeOrFourStepsFromTheFit) {
    int interior = 0;
    for (const auto& st : tvltest::region3States(water)) {
        // The interior: away from the critical point and the boundaries of the region.
        if (st.p < 25e6 || st.T < 650.0 || st.p < water.P23T(st.T) * 1.2) continue;
        const double start = 1.0 / water.RoughV3PT(st.p, st.T);
        const int steps = stepsOf([&] { lib.R3PTR0(st.p, st.T, start); });
        EXPECT_GE(steps, 3) << st;
        EXPECT_LE(steps, 4) << st;
        ++interior;
    }
    EXPECT_GT(interior, 30);
}

TEST_F(Region3, DensitySearchWithOneIterationAlwaysFails) {
    const double rho = lib.R3PT(25e6, 650.0);  // the root itself as the start
    lib.SETMAXITERATION(1);
    EXPECT_EQ(lib.R3PTR0(25e6, 650.0, rho), -1.0);
    EXPECT_EQ(lastError(), 3);
    EXPECT_EQ(lib.V3PT(25e6, 650.0), -1.0);
    EXPECT_EQ(lastError(), 3);
    lib.SETTOLERANCEMODE(0);
    EXPECT_EQ(lib.R3PTR0(25e6, 650.0, rho), -1.0);  // iterates whatever toleranceMode says
    EXPECT_EQ(lastError(), 3);
    EXPECT_GT(lib.R3PT(25e6, 650.0), 0.0);  // the fit alone
    EXPECT_EQ(lastError(), 0);
}

TEST_F(Region3, FitIsTheWholeAnswerWithoutRefinement) {
    lib.SETTOLERANCEMODE(0);
    const double fitted = lib.V3PT(25e6, 650.0);
    EXPECT_EQ(tvl::roughV3Area(water, 25e6, 650.0), RoughV3Area::E);
    EXPECT_NEAR(fitted, 0.0020440445, 5e-11);
    EXPECT_EQ(fitted, 1.0 / (1.0 / water.RoughV3PT(25e6, 650.0)));
    lib.SETTOLERANCEMODE(1);
    const double refined = lib.V3PT(25e6, 650.0);
    EXPECT_NEAR(refined, 0.0020455124, 5e-11);
    EXPECT_NEAR((refined - fitted) / refined, 0.0007, 0.0001);
}

TEST_F(Region3, FitStaysWithinAFewPartsInAThousandOverTheRegion) {
    // About 1e-3 over the grid, which keeps off the saturation line; closer to the line and at
    // the edges of an area the fit is off by some per cent. The searches need no better start.
    double worst = 0.0;
    for (const auto& st : tvltest::region3States(water)) {
        const double error = std::fabs(water.RoughV3PT(st.p, st.T) * st.rho - 1.0);
        EXPECT_LT(error, 2e-3) << st;
        worst = std::max(worst, error);
    }
    EXPECT_GT(worst, 1e-4);  // a fit, not the equation
}

// The split into areas is made of plain comparisons; every limit belongs where it is listed.
TEST_F(Region3, FitAreasSplitExactlyAtTheirLimits) {
    struct Case {
        const char* what;
        double p;
        double T;
        RoughV3Area area;
    };
    const Case cases[] = {
        {"40 MPa belongs to G", 40e6, 700.0, RoughV3Area::G},
        {"under 40 MPa the line decides", below(40e6), 700.0, RoughV3Area::E},
        {"100 MPa", 100e6, 800.0, RoughV3Area::G},
        {"24 MPa belongs to the 24 MPa branch", 24e6, 650.0, RoughV3Area::E},
        {"under 24 MPa above the line", below(24e6), 650.0, RoughV3Area::B},
        {"24 MPa hot", 24e6, 700.0, RoughV3Area::F},
        {"at the 24 MPa end of the line", 30e6, 654.313191168, RoughV3Area::E},
        {"under the 24 MPa end of the line", 30e6, below(654.313191168), RoughV3Area::E},
        {"at the 40 MPa end of the line", 39e6, 713.959399168, RoughV3Area::F},
        {"above the 40 MPa end of the line", 39e6, above(713.959399168), RoughV3Area::F},
        {"above the line", 35e6, 690.0, RoughV3Area::E},
        {"under the line", 30e6, 690.0, RoughV3Area::F},
        {"critical temperature above the critical pressure", 23e6, 647.096, RoughV3Area::A},
        {"just above the critical temperature", 23e6, above(647.096), RoughV3Area::B},
        {"at the 24 MPa temperature under 24 MPa", 23e6, 654.313191168, RoughV3Area::C},
        {"just under it, under the line", 22.1e6, below(654.313191168), RoughV3Area::C},
        {"just above the critical pressure", above(22064000.0), 647.096, RoughV3Area::A},
        {"critical pressure goes to the last branch", 22064000.0, 700.0, RoughV3Area::D},
        {"the critical point itself lies under the saturation line's pressure", 22064000.0, 647.096,
         RoughV3Area::D},
        {"liquid side below the critical pressure", 21e6, 640.0, RoughV3Area::A},
        {"vapour side below the critical pressure", 19e6, 640.0, RoughV3Area::D},
        {"hot, below the critical pressure", 18e6, 700.0, RoughV3Area::D},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(tvl::roughV3Area(water, c.p, c.T), c.area) << c.what;
        EXPECT_EQ(water.RoughV3PT(c.p, c.T), tvl::roughV3InArea(c.area, c.p, c.T)) << c.what;
    }
}

TEST_F(Region3, FitIsFiniteWhereThetaVanishes) {
    // At the critical point d = t = 0, so theta and its three roots are zero in every area.
    for (RoughV3Area area : {RoughV3Area::A, RoughV3Area::B, RoughV3Area::C, RoughV3Area::D, RoughV3Area::E,
                             RoughV3Area::F}) {
        const double v = tvl::roughV3InArea(area, 22064000.0, 647.096);
        EXPECT_TRUE(std::isfinite(v)) << static_cast<int>(area);
        EXPECT_NEAR(v, 1.0 / 322.0, 2e-4) << static_cast<int>(area);
        // The signed roots go through zero continuously from either side of the curve.
        const double left = tvl::roughV3InArea(area, 22064000.0, 647.096 - 1e-9);
        const double right = tvl::roughV3InArea(area, 22064000.0, 647.096 + 1e-9);
        EXPECT_NEAR(left, v, 1e-4) << static_cast<int>(area);
        EXPECT_NEAR(right, v, 1e-4) << static_cast<int>(area);
    }
}

TEST_F(Region3, FitOutsideTheRegionIsWhateverItsPolynomialGives) {
    EXPECT_NEAR(water.RoughV3PT(18e6, 700.0), -0.033, 0.0005);
    lib.R3PT(18e6, 700.0);  // a negative start density: no crash and no hang
    EXPECT_TRUE(lastError() == 0 || lastError() == 1 || lastError() == 3);
}

TEST_F(Region3, BadInputReachesTheCallerAsACode) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    struct Case {
        const char* what;
        double a;
        double b;
    };
    const Case cases[] = {
        {"NaN density", nan, 650.0}, {"NaN temperature", 500.0, nan}, {"infinite density", inf, 650.0},
        {"zero density", 0.0, 650.0}, {"zero temperature", 500.0, 0.0},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(lib.P3RT(c.a, c.b), -1.0) << c.what;
        EXPECT_EQ(lastError(), 1) << c.what;
        EXPECT_EQ(lib.S3RT(c.a, c.b), -1.0) << c.what;
        EXPECT_EQ(lastError(), 1) << c.what;
    }
    // A negative density has no logarithm; the other equations compute and report nothing.
    EXPECT_EQ(lib.S3RT(-500.0, 650.0), -1.0);
    EXPECT_EQ(lastError(), 1);
    lib.H3RT(-500.0, 650.0);
    EXPECT_EQ(lastError(), 0);
    // A NaN pressure ends the density search at once, as if converged.
    EXPECT_EQ(lib.R3PT(nan, 650.0), -1.0);
    EXPECT_EQ(lastError(), 1);
    EXPECT_EQ(lib.V3PT(25e6, nan), -1.0);
    EXPECT_EQ(lastError(), 1);
    EXPECT_EQ(lib.R3PTR0(25e6, 650.0, nan), -1.0);
    EXPECT_EQ(lastError(), 1);
    double cell = 0.0;
    EXPECT_EQ(lib.VUSHCVWDERPT3RT(500.0, 650.0, {{&cell, &cell, &cell, &cell, &cell, &cell, &cell, &cell, &cell,
                                                  &cell, &cell, &cell, &cell, nullptr}}),
              -1.0);
    EXPECT_EQ(lastError(), 1);
}

TEST_F(Region3, ExportsTestNoRange) {
    // Named-region exports evaluate wherever the arithmetic allows, checks on or off.
    lib.SETCHECKRANGEMODE(1);
    EXPECT_NE(lib.P3RT(1000.0, 400.0), -1.0);  // far outside: a large negative number
    EXPECT_EQ(lastError(), 0);
    EXPECT_GT(lib.H3PT(150e6, 900.0), 0.0);
    EXPECT_EQ(lastError(), 0);
}

}  // namespace
