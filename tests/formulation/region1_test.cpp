// Region 1: round trips of the refined backward functions against the forward equation, and
// what toleranceMode, maxIterations and checkRangeMode change.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "support/facade_fixture.h"

namespace {

using tvltest::nearRelative;

class Region1 : public tvltest::FacadeTest {
protected:
    // States of region 1: 273.15 K to 623.15 K, liquid side of the saturation line, up to 100 MPa.
    std::vector<std::pair<double, double>> grid() {
        std::vector<std::pair<double, double>> states;
        for (double p : {1e5, 1e6, 5e6, 1e7, 2e7, 5e7, 8e7, 1e8})
            for (double T = 273.15; T <= 623.15; T += 25.0)
                if (T < 623.15 && (p > 16.6e6 || T < water.TSP(p))) states.emplace_back(p, T);
        return states;
    }
};

TEST_F(Region1, RefinedTemperatureByEnthalpyReproducesTheForwardEquation) {
    for (auto [p, T] : grid()) {
        const double h = water.H1PT(p, T);
        const double T1 = lib.T1PH(p, h);
        ASSERT_EQ(lastError(), 0) << "p=" << p << " T=" << T;
        EXPECT_TRUE(nearRelative(T1, T, 1e-11)) << "p=" << p << " T=" << T;
        EXPECT_TRUE(nearRelative(water.H1PT(p, T1), h, 1e-11)) << "p=" << p << " T=" << T;
    }
}

TEST_F(Region1, RefinedTemperatureByEntropyReproducesTheForwardEquation) {
    for (auto [p, T] : grid()) {
        const double s = water.S1PT(p, T);
        const double T1 = lib.T1PS(p, s);
        ASSERT_EQ(lastError(), 0) << "p=" << p << " T=" << T;
        EXPECT_TRUE(nearRelative(T1, T, 1e-11)) << "p=" << p << " T=" << T;
    }
}

TEST_F(Region1, PressureAndTemperatureByEnthalpyAndEntropy) {
    for (auto [p, T] : grid()) {
        if (T < 280.0) continue;  // near 273 K the isentropes and isenthalps are almost parallel
        const double h = water.H1PT(p, T);
        const double s = water.S1PT(p, T);
        double p1 = 0.0;
        double T1 = 0.0;
        ASSERT_EQ(lib.PT1HS(h, s, &p1, &T1), 1.0) << "p=" << p << " T=" << T << " code " << lastError();
        EXPECT_TRUE(nearRelative(T1, T, 1e-9)) << "p=" << p << " T=" << T;
        EXPECT_TRUE(nearRelative(p1, p, 1e-7)) << "p=" << p << " T=" << T;
        EXPECT_TRUE(nearRelative(lib.P1HS(h, s), p1, 1e-12));
        EXPECT_TRUE(nearRelative(lib.T1HS(h, s), T1, 1e-12));
    }
}

TEST_F(Region1, PressureAndTemperatureByDensityAndEnthalpy) {
    for (auto [p, T] : grid()) {
        const double density = water.D1PT(p, T);
        const double h = water.H1PT(p, T);
        double p1 = 123.0;
        double T1 = 456.0;
        ASSERT_EQ(lib.PT1RH(density, h, &p1, &T1), 1.0) << "p=" << p << " T=" << T;
        // The search from 10 MPa and 400 K finds a root of the equation; near the saturation line
        // at 10 MPa that is an extrapolated one far from the state, so the root is what is tested.
        EXPECT_TRUE(nearRelative(water.D1PT(p1, T1), density, 1e-11)) << "p=" << p << " T=" << T;
        EXPECT_TRUE(nearRelative(water.H1PT(p1, T1), h, 1e-11)) << "p=" << p << " T=" << T;
        if (T <= 550.0) {
            EXPECT_TRUE(nearRelative(T1, T, 1e-10)) << "p=" << p << " T=" << T;
            EXPECT_TRUE(nearRelative(p1, p, 1e-5)) << "p=" << p << " T=" << T;
        }
    }
}

TEST_F(Region1, CombinedCallAgreesWithTheSingleFunctions) {
    for (auto [p, T] : grid()) {
        const tvl::StateProperties s = water.VUSHCVWDERPT1PT(p, T);
        EXPECT_TRUE(nearRelative(s.v, water.V1PT(p, T), 1e-14));
        EXPECT_TRUE(nearRelative(s.u, water.U1PT(p, T), 1e-11));
        EXPECT_TRUE(nearRelative(s.s, water.S1PT(p, T), 1e-12));
        EXPECT_TRUE(nearRelative(s.h, water.H1PT(p, T), 1e-14));
        EXPECT_TRUE(nearRelative(s.cv, water.CV1PT(p, T), 1e-14));
        EXPECT_TRUE(nearRelative(s.w, water.W1PT(p, T), 1e-14));
        EXPECT_TRUE(nearRelative(s.dhdT, water.CP1PT(p, T), 1e-14));
        // derivatives against central differences
        const double dp = p * 1e-6;
        const double dT = 1e-4;
        EXPECT_TRUE(nearRelative(s.dvdp, (water.V1PT(p + dp, T) - water.V1PT(p - dp, T)) / (2 * dp), 1e-5));
        EXPECT_TRUE(nearRelative(s.dhdp, (water.H1PT(p + dp, T) - water.H1PT(p - dp, T)) / (2 * dp), 1e-5));
        EXPECT_TRUE(nearRelative(s.dvdT, (water.V1PT(p, T + dT) - water.V1PT(p, T - dT)) / (2 * dT), 1e-5));
        EXPECT_TRUE(nearRelative(s.dsdT, (water.S1PT(p, T + dT) - water.S1PT(p, T - dT)) / (2 * dT), 1e-6));
        EXPECT_TRUE(nearRelative(s.dudT, (water.U1PT(p, T + dT) - water.U1PT(p, T - dT)) / (2 * dT), 1e-6));
    }
}

TEST_F(Region1, JouleThomsonCoefficientIsTheIsenthalpicSlope) {
    for (auto [p, T] : grid()) {
        if (T < 274.0) continue;  // T1PH clamps results below 273.15 K, which would flatten the slope
        const double h = water.H1PT(p, T);
        const double dp = 1e3;
        const double slope = (lib.T1PH(p + dp, h) - lib.T1PH(p - dp, h)) / (2 * dp);
        EXPECT_NEAR(water.JOULETHOMPSON1PT(p, T), slope, 1e-6 * std::fabs(slope) + 1e-12) << "p=" << p << " T=" << T;
    }
}

// What the settings change, case by case.
struct SettingsCase {
    const char* what;
    int toleranceMode;
    int maxIterations;
    double tolerance;
    int expectedCode;
};

TEST_F(Region1, SettingsDecideWhetherAndHowLongTheSearchRuns) {
    const SettingsCase cases[] = {
        {"default", 1, 100, 2e-12, 0},
        {"one iteration can never succeed", 1, 1, 2e-12, 3},
        {"no iterations", 1, 0, 2e-12, 3},
        {"negative cap", 1, -5, 2e-12, 3},
        {"two iterations are too few", 1, 2, 2e-12, 3},
        {"mode off ignores the cap", 0, 0, 2e-12, 0},
        {"mode off ignores the tolerance", 0, 100, 0.0, 0},
    };
    for (const SettingsCase& c : cases) {
        lib.settings = {};
        lib.SETTOLERANCEMODE(c.toleranceMode);
        lib.SETMAXITERATION(c.maxIterations);
        lib.SETTOLERANCE(c.tolerance);
        for (auto call : {+[](tvl::PropertyFacade& f) { return f.T1PH(3e6, 500e3); },
                          +[](tvl::PropertyFacade& f) { return f.T1PS(3e6, 500.0); },
                          +[](tvl::PropertyFacade& f) { return f.P1HS(1.5e6, 3400.0); }}) {
            const double result = call(lib);
            EXPECT_EQ(lastError(), c.expectedCode) << c.what;
            if (c.expectedCode != 0) {
                EXPECT_EQ(result, -1.0) << c.what;
            }
        }
    }
}

TEST_F(Region1, ToleranceModeOffGivesTheBackwardEquation) {
    lib.SETTOLERANCEMODE(0);
    EXPECT_NEAR(lib.T1PH(3e6, 500e3), 391.798509, 5e-7);
    EXPECT_NEAR(lib.T1PS(3e6, 500.0), 307.842258, 5e-7);
    lib.SETTOLERANCEMODE(1);
    const double refined = lib.T1PH(3e6, 500e3);
    EXPECT_TRUE(nearRelative(water.H1PT(3e6, refined), 500e3, 1e-12));
    EXPECT_GT(std::fabs(refined - 391.798509), 1e-3);
}

TEST_F(Region1, ZeroToleranceCannotPassTheEntropySearch) {
    lib.SETTOLERANCE(0.0);
    lib.T1PS(3e6, 500.0);
    EXPECT_EQ(lastError(), 3);
}

TEST_F(Region1, PressureByEnthalpyAndEntropyPublishesNoTemperatureWithoutRefinement) {
    lib.SETTOLERANCEMODE(0);
    lib.P1HS(1.5e6, 3400.0);
    EXPECT_EQ(lib.solved.pressureSolved, 1);
    EXPECT_EQ(lib.solved.temperatureSolved, 0);
    lib.T1HS(1.5e6, 3400.0);
    EXPECT_EQ(lib.solved.temperatureSolved, 1);
}

TEST_F(Region1, EntropySearchStartsAtTheLowestTemperature) {
    // The root lies below 273.15 K at 100 MPa and s = -10 J/(kg K).
    lib.SETCHECKRANGEMODE(0);
    const double root = lib.T1PS(1e8, -10.0);
    EXPECT_EQ(lastError(), 0);
    EXPECT_LT(root, 273.15);
    lib.SETCHECKRANGEMODE(1);
    EXPECT_EQ(lib.T1PS(1e8, -10.0), 273.15);
}

TEST_F(Region1, DensityAndEnthalpyOverwriteTheCallersCells) {
    double p = -7.0;
    double T = -7.0;
    lib.SETMAXITERATION(1);
    EXPECT_EQ(lib.PT1RH(1000.0, 100e3, &p, &T), -1.0);
    EXPECT_EQ(lastError(), 3);
    EXPECT_NE(p, -7.0);
    EXPECT_NE(T, -7.0);
    EXPECT_EQ(lib.PT1RH(1000.0, 100e3, nullptr, &T), -1.0);
    EXPECT_EQ(lastError(), 1);
}

TEST_F(Region1, ForwardFunctionsEvaluateAnywhere) {
    lib.H1PT(3e6, 900.0);
    EXPECT_EQ(lastError(), 0);
    EXPECT_EQ(lib.V1PT(3e6, 0.0), -1.0);
    EXPECT_EQ(lastError(), 1);
}

}  // namespace
