// Region 2: the forward equation against itself (combined call, derivatives), round trips of the
// refined backward functions over all three subregions, the subregion choice at its edges, and
// what toleranceMode, maxIterations and checkRangeMode change.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "support/facade_fixture.h"
#include "water/formulation/constants.h"

namespace {

using tvltest::nearRelative;

struct State {
    double p;
    double T;
};

std::ostream& operator<<(std::ostream& out, const State& s) { return out << "p=" << s.p << " T=" << s.T; }

// An analytic derivative against the central difference of f(+1) and f(-1) over 2 step: the
// difference is good to some 1e-6 relative, less the rounding of f that the step magnifies.
template <class F>
::testing::AssertionResult nearSlope(double derivative, F f, double step) {
    const double up = f(1.0);
    const double down = f(-1.0);
    const double slope = (up - down) / (2.0 * step);
    const double rounding = 1e-15 * std::fmax(std::fabs(up), std::fabs(down)) / step;
    if (std::fabs(derivative - slope) <= 1e-6 * std::fabs(slope) + rounding) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << derivative << " against the difference quotient " << slope;
}

class Region2 : public tvltest::FacadeTest {
protected:
    // Region 2 from 1 kPa to 100 MPa: from the saturation line (or B23 above 16.53 MPa, or 273.15 K
    // below the triple-point pressure) a kelvin upwards, to 1073.15 K.
    std::vector<State> grid() {
        std::vector<State> states;
        for (double p : {1e3, 1e4, 1e5, 5e5, 1e6, 2.5e6, 4e6, 4.5e6, 6e6, 1e7, 1.6e7, 2e7, 3e7, 5e7, 7e7, 1e8}) {
            double lowest = tvl::kLowestTemperature;
            if (p > tvl::kP623) lowest = water.T23P(p);
            else if (p > tvl::kIcePointSaturationPressure) lowest = water.TSP(p);
            for (double T = tvl::kRegion25Temperature; T > lowest + 1.0; T -= 23.0) states.push_back({p, T});
            states.push_back({p, lowest + 1.0});
        }
        return states;
    }

    // 'a', 'b' or 'c': the subregion of the (p,h) equations that the state falls in.
    char subregion(const State& s) {
        if (s.p <= 4e6) return 'a';
        return water.P2B2CH(water.H2PT(s.p, s.T)) >= s.p ? 'b' : 'c';
    }
};

TEST_F(Region2, GridCoversAllThreeSubregions) {
    int count[3] = {0, 0, 0};
    for (const State& s : grid()) ++count[subregion(s) - 'a'];
    EXPECT_GT(count[0], 50);
    EXPECT_GT(count[1], 50);
    EXPECT_GT(count[2], 10);
}

TEST_F(Region2, CombinedCallAgreesWithTheSingleFunctions) {
    for (const State& st : grid()) {
        const auto [p, T] = st;
        const tvl::StateProperties s = water.VUSHCVWDERPT2PT(p, T);
        EXPECT_TRUE(nearRelative(s.v, water.V2PT(p, T), 1e-14)) << st;
        EXPECT_TRUE(nearRelative(s.u, water.U2PT(p, T), 1e-13)) << st;
        EXPECT_TRUE(nearRelative(s.s, water.S2PT(p, T), 1e-14)) << st;
        EXPECT_TRUE(nearRelative(s.h, water.H2PT(p, T), 1e-15)) << st;
        EXPECT_TRUE(nearRelative(s.cv, water.CV2PT(p, T), 1e-15)) << st;
        EXPECT_TRUE(nearRelative(s.w, water.W2PT(p, T), 1e-15)) << st;
        EXPECT_TRUE(nearRelative(s.dhdT, water.CP2PT(p, T), 1e-15)) << st;
        // Density is formed from the residual part alone, not as 1/v: equal up to rounding.
        EXPECT_TRUE(nearRelative(water.D2PT(p, T), 1.0 / s.v, 1e-14)) << st;
        const double dp = p * 1e-4;
        const double dT = 1e-2;
        tvl::WaterModel& model = water;
        auto byP = [&](double (tvl::WaterModel::*f)(double, double)) {
            return [&, f](double sign) { return (model.*f)(p + sign * dp, T); };
        };
        auto byT = [&](double (tvl::WaterModel::*f)(double, double)) {
            return [&, f](double sign) { return (model.*f)(p, T + sign * dT); };
        };
        EXPECT_TRUE(nearSlope(s.dvdp, byP(&tvl::WaterModel::V2PT), dp)) << st;
        EXPECT_TRUE(nearSlope(s.dhdp, byP(&tvl::WaterModel::H2PT), dp)) << st;
        EXPECT_TRUE(nearSlope(s.dsdp, byP(&tvl::WaterModel::S2PT), dp)) << st;
        EXPECT_TRUE(nearSlope(s.dudp, byP(&tvl::WaterModel::U2PT), dp)) << st;
        EXPECT_TRUE(nearSlope(s.dvdT, byT(&tvl::WaterModel::V2PT), dT)) << st;
        EXPECT_TRUE(nearSlope(s.dsdT, byT(&tvl::WaterModel::S2PT), dT)) << st;
        EXPECT_TRUE(nearSlope(s.dudT, byT(&tvl::WaterModel::U2PT), dT)) << st;
    }
}

// mu = -(dh/dp)_T / cp by the identity, from the combined call's outputs, and as the slope of
// T2PH along an isenthalp. The difference quotient over 2e-3 p is good to 1e-5 from 100 kPa up;
// below, the change of T over the step drowns in the rounding of T.
TEST_F(Region2, JouleThomsonCoefficientIsTheIsenthalpicSlope) {
    lib.SETCHECKRANGEMODE(0);  // no clamp at 1073.15 K to flatten the slope
    for (const State& st : grid()) {
        const double mu = water.JOULETHOMPSON2PT(st.p, st.T);
        const tvl::StateProperties s = water.VUSHCVWDERPT2PT(st.p, st.T);
        // v - T dv/dT cancels towards the ideal gas: 1e-10 leaves room for it.
        EXPECT_TRUE(nearRelative(mu, -s.dhdp / s.dhdT, 1e-10)) << st;
        if (st.p < 1e5) continue;
        const double h = water.H2PT(st.p, st.T);
        const double dp = st.p * 1e-3;
        const double slope = (lib.T2PH(st.p + dp, h) - lib.T2PH(st.p - dp, h)) / (2 * dp);
        EXPECT_TRUE(nearRelative(mu, slope, 1e-5)) << st;
    }
}

// With default settings the backward functions return the root of the forward equation: the step
// test at 2e-12 T leaves the temperature to rounding, some 1e-13, so 1e-11 holds with margin.
TEST_F(Region2, RefinedTemperatureByEnthalpyAndByEntropy) {
    for (const State& st : grid()) {
        const double h = water.H2PT(st.p, st.T);
        const double s = water.S2PT(st.p, st.T);
        EXPECT_TRUE(nearRelative(lib.T2PH(st.p, h), st.T, 1e-11)) << st << " subregion " << subregion(st);
        EXPECT_EQ(lastError(), 0) << st;
        EXPECT_TRUE(nearRelative(lib.T2PS(st.p, s), st.T, 1e-11)) << st << " subregion " << subregion(st);
        EXPECT_EQ(lastError(), 0) << st;
    }
}

// The (h,s) search tests the residuals before its last step and keeps that step: from residuals
// under 2e-12 a Newton step leaves rounding, some 1e-14 in p, so 1e-11 holds with margin.
TEST_F(Region2, PressureAndTemperatureByEnthalpyAndEntropy) {
    for (const State& st : grid()) {
        const double h = water.H2PT(st.p, st.T);
        const double s = water.S2PT(st.p, st.T);
        double p = 0.0;
        double T = 0.0;
        ASSERT_EQ(lib.PT2HS(h, s, &p, &T), 1.0) << st << " code " << lastError();
        EXPECT_TRUE(nearRelative(p, st.p, 1e-11)) << st;
        EXPECT_TRUE(nearRelative(T, st.T, 1e-11)) << st;
        EXPECT_TRUE(nearRelative(lib.P2HS(h, s), p, 1e-12)) << st;
        EXPECT_TRUE(nearRelative(lib.T2HS(h, s), T, 1e-12)) << st;
    }
}

// The search from 1 MPa and 800 K finds a root of the equation: density and enthalpy come back
// to the stop limits of 2e-12. Up to 50 MPa that root is the state; higher, near B23, it can
// be another root of the extrapolated equation, far above 100 MPa.
TEST_F(Region2, PressureAndTemperatureByDensityAndEnthalpy) {
    for (const State& st : grid()) {
        const double density = water.D2PT(st.p, st.T);
        const double h = water.H2PT(st.p, st.T);
        double p = 0.0;
        double T = 0.0;
        ASSERT_EQ(lib.PT2RH(density, h, &p, &T), 1.0) << st << " code " << lastError();
        EXPECT_TRUE(nearRelative(water.D2PT(p, T), density, 1e-11)) << st;
        EXPECT_TRUE(nearRelative(water.H2PT(p, T), h, 1e-11)) << st;
        if (st.p <= 5e7) {
            EXPECT_TRUE(nearRelative(p, st.p, 1e-11)) << st;
            EXPECT_TRUE(nearRelative(T, st.T, 1e-11)) << st;
        }
        EXPECT_EQ(lib.solved.pressureSolved, 1);
        EXPECT_EQ(lib.solved.solvedTemperature, T);
    }
}

// ---- The subregion choice ----

TEST_F(Region2, WithoutRefinementTheChosenEquationIsTheResult) {
    lib.SETTOLERANCEMODE(0);
    for (const State& st : grid()) {
        const double h = water.H2PT(st.p, st.T);
        const double s = water.S2PT(st.p, st.T);
        const double byEnthalpy = subregion(st) == 'a'   ? water.T2APH(st.p, h)
                                  : subregion(st) == 'b' ? water.T2BPH(st.p, h)
                                                         : water.T2CPH(st.p, h);
        EXPECT_EQ(lib.T2PH(st.p, h), byEnthalpy) << st;
        const double byEntropy = st.p <= 4e6 ? water.T2APS(st.p, s) : s > 5850.0 ? water.T2BPS(st.p, s)
                                                                                 : water.T2CPS(st.p, s);
        EXPECT_EQ(lib.T2PS(st.p, s), byEntropy) << st;
        // The backward equations are good to some 25 mK in region 2.
        EXPECT_NEAR(byEnthalpy, st.T, 0.05) << st;
        EXPECT_NEAR(byEntropy, st.T, 0.05) << st;
    }
}

TEST_F(Region2, RefinementMovesTheResultOffTheEquation) {
    const double h = water.H2PT(1e5, 500.0);
    EXPECT_NE(lib.T2PH(1e5, h), lib.T2APH(1e5, h));
    lib.SETTOLERANCEMODE(0);
    EXPECT_EQ(lib.T2PH(1e5, h), lib.T2APH(1e5, h));
}

struct EdgeCase {
    const char* what;
    double (tvl::PropertyFacade::*selecting)(double, double) noexcept;
    double (tvl::PropertyFacade::*expected)(double, double) noexcept;
    double a;
    double b;
};

TEST_F(Region2, EdgesOfTheSubregions) {
    lib.SETTOLERANCEMODE(0);
    const double hOnLine = 3.2e6;
    const double pOnLine = water.P2B2CH(hOnLine);
    using F = tvl::PropertyFacade;
    const EdgeCase cases[] = {
        {"4 MPa exactly is 2a in T2PH", &F::T2PH, &F::T2APH, 4e6, 3.0e6},
        {"just above 4 MPa is 2b", &F::T2PH, &F::T2BPH, std::nextafter(4e6, 5e6), 3.0e6},
        {"4 MPa exactly is 2a in T2PS", &F::T2PS, &F::T2APS, 4e6, 6500.0},
        {"just above 4 MPa is 2b by entropy", &F::T2PS, &F::T2BPS, std::nextafter(4e6, 5e6), 6500.0},
        {"on the 2b/2c line is 2b", &F::T2PH, &F::T2BPH, pOnLine, hOnLine},
        {"just above the line is 2c", &F::T2PH, &F::T2CPH, std::nextafter(pOnLine, 1e8), hOnLine},
        {"s = 5850 exactly is 2c in T2PS", &F::T2PS, &F::T2CPS, 2e7, 5850.0},
        {"just above 5850 is 2b", &F::T2PS, &F::T2BPS, 2e7, std::nextafter(5850.0, 6000.0)},
    };
    tvl::PropertyFacade& f = lib;  // a local object for the member calls: GCC 12's vptr check misreads lib.*
    for (const EdgeCase& c : cases) {
        EXPECT_EQ((f.*c.selecting)(c.a, c.b), (f.*c.expected)(c.a, c.b)) << c.what;
        EXPECT_EQ(lastError(), 0) << c.what;
    }
}

TEST_F(Region2, EdgesOfThePressureByEnthalpyAndEntropy) {
    lib.SETTOLERANCEMODE(0);
    // s = 5850 exactly goes to the 2a/2b branch, which tests s < 5850; below it is 2c.
    const double s = 5850.0;
    const double hBelow = water.H2AB(s) - 1e5;
    const double hAbove = water.H2AB(s) + 1e5;
    EXPECT_EQ(lib.P2HS(hBelow, s), water.P2AHS(hBelow, s));
    EXPECT_EQ(lib.P2HS(hAbove, s), water.P2BHS(hAbove, s));
    EXPECT_EQ(lib.P2HS(hAbove, std::nextafter(s, 0.0)), water.P2CHS(hAbove, std::nextafter(s, 0.0)));
    // On the h2ab line itself: 2a.
    const double hOn = water.H2AB(7000.0);
    EXPECT_EQ(lib.P2HS(hOn, 7000.0), water.P2AHS(hOn, 7000.0));
    // The temperature of PT2HS comes from the (p,h) choice at the pressure found: 4 MPa is 2a.
    double p = 0.0;
    double T = 0.0;
    const double h = water.H2PT(4e6, 700.0);
    const double sAt4MPa = water.S2PT(4e6, 700.0);
    lib.PT2HS(h, sAt4MPa, &p, &T);
    EXPECT_EQ(T, water.T2PHEquation(p, h));
}

// ---- Settings ----

enum class Search { Refinement, Always };

struct Call {
    const char* name;
    Search search;
    double (*run)(tvl::PropertyFacade&);
};

struct SettingsCase {
    const char* what;
    int toleranceMode;
    int maxIterations;
    double tolerance;
    int codeOfRefinement;  // the searches behind a backward equation
    int codeOfAlways;      // the searches that run in any mode
};

TEST_F(Region2, SettingsDecideWhetherAndHowLongTheSearchRuns) {
    static double p;
    static double T;
    const Call calls[] = {
        {"T2PH 2a", Search::Refinement, [](tvl::PropertyFacade& f) { return f.T2PH(1e5, 2.9e6); }},
        {"T2PH 2b", Search::Refinement, [](tvl::PropertyFacade& f) { return f.T2PH(1e7, 3.3e6); }},
        {"T2PH 2c", Search::Refinement, [](tvl::PropertyFacade& f) { return f.T2PH(5e7, 2.9e6); }},
        {"T2PS 2a", Search::Refinement, [](tvl::PropertyFacade& f) { return f.T2PS(1e5, 7500.0); }},
        {"T2PS 2b", Search::Refinement, [](tvl::PropertyFacade& f) { return f.T2PS(1e7, 6500.0); }},
        {"T2PS 2c", Search::Refinement, [](tvl::PropertyFacade& f) { return f.T2PS(5e7, 5500.0); }},
        {"P2HS", Search::Refinement, [](tvl::PropertyFacade& f) { return f.P2HS(2.8e6, 6500.0); }},
        {"T2HS", Search::Refinement, [](tvl::PropertyFacade& f) { return f.T2HS(3.6e6, 7000.0); }},
        {"PT2HS", Search::Refinement, [](tvl::PropertyFacade& f) { return f.PT2HS(2.8e6, 5800.0, &p, &T); }},
        {"T2PS with raw T below 273.15 K", Search::Always, [](tvl::PropertyFacade& f) { return f.T2PS(1e3, 8800.0); }},
        {"PT2HS above 12000 J/(kg K)", Search::Always, [](tvl::PropertyFacade& f) { return f.PT2HS(3.5e6, 12500.0, &p, &T); }},
        {"PT2RH", Search::Always, [](tvl::PropertyFacade& f) { return f.PT2RH(5.0, 3e6, &p, &T); }},
    };
    const SettingsCase cases[] = {
        {"default", 1, 100, 2e-12, 0, 0},
        {"one iteration can never succeed", 1, 1, 2e-12, 3, 3},
        {"no iterations", 1, 0, 2e-12, 3, 3},
        {"negative cap", 1, -3, 2e-12, 3, 3},
        {"two iterations are too few", 1, 2, 2e-12, 3, 3},
        {"tolerance 0 never passes >=", 1, 100, 0.0, 3, 3},
        {"mode off ignores the cap", 0, 0, 2e-12, 0, 3},
        {"mode off with one iteration", 0, 1, 2e-12, 0, 3},
        {"mode off ignores the tolerance", 0, 100, 0.0, 0, 3},
        {"mode off, default cap", 0, 100, 2e-12, 0, 0},
    };
    for (const SettingsCase& c : cases) {
        for (const Call& call : calls) {
            lib.settings = {};
            lib.SETTOLERANCEMODE(c.toleranceMode);
            lib.SETMAXITERATION(c.maxIterations);
            lib.SETTOLERANCE(c.tolerance);
            const double result = call.run(lib);
            const int expected = call.search == Search::Refinement ? c.codeOfRefinement : c.codeOfAlways;
            EXPECT_EQ(lastError(), expected) << c.what << ": " << call.name;
            EXPECT_EQ(result == -1.0, expected != 0) << c.what << ": " << call.name;
        }
    }
}

TEST_F(Region2, EntropySearchRunsWithTheModeOffBelowTheLowestTemperature) {
    lib.SETTOLERANCEMODE(0);
    ASSERT_LT(water.T2APS(1e3, 8800.0), 273.15);
    // The root of the forward equation lies below 273.15 K: range checks clamp it, without them
    // the extrapolated root comes back.
    EXPECT_EQ(lib.T2PS(1e3, 8800.0), 273.15);
    lib.SETCHECKRANGEMODE(0);
    const double root = lib.T2PS(1e3, 8800.0);
    EXPECT_EQ(lastError(), 0);
    EXPECT_LT(root, 273.15);
    EXPECT_TRUE(nearRelative(water.S2PT(1e3, root), 8800.0, 1e-12));
}

TEST_F(Region2, ResultsAreClampedToTheRegionOnlyWithRangeChecks) {
    // Roots at 1100 K and, below the triple-point pressure, at 265 K.
    const double hAbove = water.H2PT(1e6, 1100.0);
    const double sAbove = water.S2PT(1e6, 1100.0);
    const double hBelow = water.H2PT(500.0, 265.0);
    const double sBelow = water.S2PT(500.0, 265.0);
    EXPECT_EQ(lib.T2PH(1e6, hAbove), 1073.15);
    EXPECT_EQ(lib.T2PS(1e6, sAbove), 1073.15);
    EXPECT_EQ(lib.T2PH(500.0, hBelow), 273.15);
    EXPECT_EQ(lib.T2PS(500.0, sBelow), 273.15);
    lib.SETCHECKRANGEMODE(0);
    EXPECT_TRUE(nearRelative(lib.T2PH(1e6, hAbove), 1100.0, 1e-11));
    EXPECT_TRUE(nearRelative(lib.T2PS(1e6, sAbove), 1100.0, 1e-11));
    EXPECT_TRUE(nearRelative(lib.T2PH(500.0, hBelow), 265.0, 1e-11));
    EXPECT_TRUE(nearRelative(lib.T2PS(500.0, sBelow), 265.0, 1e-11));
}

TEST_F(Region2, FixedStartAboveTwelveThousandEvenWithoutRefinement) {
    const State st{20.0, 900.0};
    const double h = water.H2PT(st.p, st.T);
    const double s = water.S2PT(st.p, st.T);
    ASSERT_GT(s, 12000.0);
    lib.SETTOLERANCEMODE(0);
    double p = 0.0;
    double T = 0.0;
    ASSERT_EQ(lib.PT2HS(h, s, &p, &T), 1.0) << lastError();
    EXPECT_TRUE(nearRelative(p, st.p, 1e-11));
    EXPECT_TRUE(nearRelative(T, st.T, 1e-11));
    // P2HS has no such branch: with the mode off it gives the subregion equation's value.
    EXPECT_EQ(lib.P2HS(h, s), h > water.H2AB(s) ? water.P2BHS(h, s) : water.P2AHS(h, s));
    lib.SETTOLERANCEMODE(1);
    EXPECT_TRUE(nearRelative(lib.P2HS(h, s), st.p, 1e-11)) << lastError();
}

TEST_F(Region2, NegativeEnthalpyRunsTheSearchOut) {
    for (auto [h, s] : {std::pair{-1.0, 6000.0}, {-1e3, 7000.0}, {-1e5, 8000.0}, {-10.0, 13000.0}}) {
        double p = 0.0;
        double T = 0.0;
        EXPECT_EQ(lib.PT2HS(h, s, &p, &T), -1.0) << "h=" << h << " s=" << s;
        EXPECT_EQ(lastError(), 3) << "h=" << h << " s=" << s;
    }
}

TEST_F(Region2, WhatTheFunctionsPublish) {
    // A failed search leaves the raw equation's temperature.
    lib.SETMAXITERATION(1);
    lib.T2PH(1e5, 2.9e6);
    EXPECT_EQ(lib.solved.temperatureSolved, 1);
    EXPECT_EQ(lib.solved.solvedTemperature, water.T2APH(1e5, 2.9e6));
    lib.SETMAXITERATION(100);
    // The subregion equations publish nothing.
    lib.T2APH(1e5, 2.9e6);
    EXPECT_EQ(lib.solved.temperatureSolved, 0);
    lib.T2BPS(1e7, 6500.0);
    EXPECT_EQ(lib.solved.temperatureSolved, 0);
    // P2HS with the mode off publishes the pressure alone, PT2HS and T2HS both.
    lib.SETTOLERANCEMODE(0);
    lib.P2HS(2.8e6, 6500.0);
    EXPECT_EQ(lib.solved.pressureSolved, 1);
    EXPECT_EQ(lib.solved.temperatureSolved, 0);
    lib.T2HS(2.8e6, 6500.0);
    EXPECT_EQ(lib.solved.pressureSolved, 1);
    EXPECT_EQ(lib.solved.temperatureSolved, 1);
    // T2PS publishes with the mode off, too.
    const double T = lib.T2PS(1e5, 7500.0);
    EXPECT_EQ(lib.solved.solvedTemperature, T);
}

TEST_F(Region2, DensityAndEnthalpyOverwriteTheCallersCells) {
    double p = -7.0;
    double T = -7.0;
    lib.SETMAXITERATION(1);
    EXPECT_EQ(lib.PT2RH(5.0, 3e6, &p, &T), -1.0);
    EXPECT_EQ(lastError(), 3);
    EXPECT_NE(p, -7.0);
    EXPECT_NE(T, -7.0);
    lib.SETMAXITERATION(100);
    EXPECT_EQ(lib.PT2RH(5.0, 3e6, nullptr, &T), -1.0);
    EXPECT_EQ(lastError(), 1);
    EXPECT_EQ(lib.PT2HS(3e6, 7000.0, &p, nullptr), -1.0);
    EXPECT_EQ(lastError(), 1);
    double cells[14];
    tvl::OutputCells outputs{};
    for (int k = 0; k < 14; ++k) outputs.cells[k] = &cells[k];
    EXPECT_EQ(lib.VUSHCVWDERPT2PT(1e6, 500.0, outputs), 1.0);
    EXPECT_EQ(cells[3], water.H2PT(1e6, 500.0));
    outputs.cells[13] = nullptr;
    EXPECT_EQ(lib.VUSHCVWDERPT2PT(1e6, 500.0, outputs), -1.0);
    EXPECT_EQ(lastError(), 1);
}

// pB23(h,s) is the library's fit of the B23 pressure along the boundary in (h,s); TB23(h,s) is
// the release's. On B23 states both give the line's point: the fits agree to some 0.1 K.
TEST_F(Region2, BoundaryPressureByEnthalpyAndEntropyFollowsB23) {
    for (double T = 623.15; T <= 863.15; T += 10.0) {
        const double p = water.P23T(T);
        const double h = water.H2PT(p, T);
        const double s = water.S2PT(p, T);
        const double fittedPressure = lib.PB23HS(h, s);
        EXPECT_EQ(lastError(), 0) << "T=" << T;
        EXPECT_TRUE(nearRelative(fittedPressure, p, 2e-3)) << "T=" << T;
        EXPECT_NEAR(water.T23P(fittedPressure), water.TB23HS(h, s), 0.5) << "T=" << T;
    }
}

}  // namespace
