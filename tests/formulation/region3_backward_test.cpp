// Region 3 backward functions: round trips of the refined functions against the basic equation,
// the step counts of the chord iteration, the subregion tests on their boundary, what each
// function publishes, and what the settings change.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "region3_states.h"
#include "support/facade_fixture.h"

namespace {

using tvltest::nearRelative;
using tvltest::Region3State;

class Region3Backward : public tvltest::FacadeTest {
protected:
    // The smallest maxIterations with which call succeeds, and the step at which the search
    // returned, one below it: the step that reaches the cap fails.
    int stepsOf(const std::function<void()>& call) {
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

    double enthalpy(const Region3State& st) { return water.H3RT(st.rho, st.T); }
    double entropy(const Region3State& st) { return water.S3RT(st.rho, st.T); }
};

TEST_F(Region3Backward, RefinementMovesTheBackwardTemperatureOntoTheBasicEquation) {
    EXPECT_NEAR(water.T3APH(20e6, 1700000.0), 629.3083892, 5e-8);
    const double T = lib.T3PH(20e6, 1700000.0);
    EXPECT_NEAR(T, 629.3054382, 5e-8);
    EXPECT_EQ(lastError(), 0);
    EXPECT_EQ(lib.solved.solvedTemperature, T);
    EXPECT_NEAR(water.T3BPH(100e6, 2700000.0), 842.0460876, 5e-8);
    EXPECT_NEAR(water.V3BPH(20e6, 2500000.0), 0.006670547, 5e-10);
}

// The counts rest on the chord Jacobian (cv for dh/dT at constant density); Newton's method
// would need three steps.
TEST_F(Region3Backward, ChordIterationTakesItsKnownNumberOfSteps) {
    struct Case {
        double p;
        double h;
        int steps;
    };
    for (const Case& c : {Case{20e6, 1700000.0, 10}, Case{100e6, 2100000.0, 16}}) {
        EXPECT_EQ(stepsOf([&] { lib.T3PH(c.p, c.h); }), c.steps) << "p=" << c.p << " h=" << c.h;
        lib.SETMAXITERATION(c.steps);
        EXPECT_EQ(lib.T3PH(c.p, c.h), -1.0);
        EXPECT_EQ(lastError(), 3) << "p=" << c.p << " h=" << c.h;
        lib.SETMAXITERATION(c.steps + 1);
        lib.T3PH(c.p, c.h);
        EXPECT_EQ(lastError(), 0) << "p=" << c.p << " h=" << c.h;
        lib.SETMAXITERATION(100);
    }
}

TEST_F(Region3Backward, PressureAndEnthalpyGiveTheStateBack) {
    for (const auto& st : tvltest::region3States(water)) {
        const double h = enthalpy(st);
        // The chord iteration stops on a step under tolerance times the start; linear convergence
        // leaves an error of a few such steps.
        EXPECT_TRUE(nearRelative(lib.T3PH(st.p, h), st.T, 1e-10)) << st << " code " << lastError();
        EXPECT_TRUE(nearRelative(lib.V3PH(st.p, h), 1.0 / st.rho, 1e-9)) << st << " code " << lastError();
    }
}

TEST_F(Region3Backward, PressureAndEntropyGiveTheStateBack) {
    for (const auto& st : tvltest::region3States(water)) {
        const double s = entropy(st);
        EXPECT_TRUE(nearRelative(lib.T3PS(st.p, s), st.T, 1e-10)) << st << " code " << lastError();
        EXPECT_TRUE(nearRelative(lib.V3PS(st.p, s), 1.0 / st.rho, 1e-9)) << st << " code " << lastError();
    }
}

TEST_F(Region3Backward, EnthalpyAndEntropyGiveTheStateBack) {
    for (const auto& st : tvltest::region3States(water)) {
        const double h = enthalpy(st);
        const double s = entropy(st);
        // Newton stops on residuals under tolerance times the targets; the pressure recomputed
        // from the density carries the liquid's stiffness, dp/p up to some ten times drho/rho.
        EXPECT_TRUE(nearRelative(lib.P3HS(h, s), st.p, 1e-9)) << st << " code " << lastError();
        EXPECT_TRUE(nearRelative(lib.T3HS(h, s), st.T, 1e-10)) << st << " code " << lastError();
        EXPECT_TRUE(nearRelative(lib.V3HS(h, s), 1.0 / st.rho, 1e-10)) << st << " code " << lastError();
        double p = 0.0;
        double T = 0.0;
        ASSERT_EQ(lib.PT3HS(h, s, &p, &T), 1.0) << st << " code " << lastError();
        EXPECT_TRUE(nearRelative(p, st.p, 1e-9)) << st;
        EXPECT_TRUE(nearRelative(T, st.T, 1e-10)) << st;
        double rho = 0.0;
        ASSERT_EQ(lib.RT3HS(h, s, &rho, &T), 1.0) << st << " code " << lastError();
        EXPECT_TRUE(nearRelative(rho, st.rho, 1e-10)) << st;
        EXPECT_TRUE(nearRelative(T, st.T, 1e-10)) << st;
    }
}

TEST_F(Region3Backward, DensityAndEnthalpyGiveTheTemperatureBack) {
    for (const auto& st : tvltest::region3States(water)) {
        const double T = lib.T3RH(st.rho, enthalpy(st));
        ASSERT_EQ(lastError(), 0) << st;
        EXPECT_TRUE(nearRelative(T, st.T, 1e-12)) << st;
        EXPECT_EQ(lib.solved.solvedTemperature, T);
    }
}

TEST_F(Region3Backward, BoundaryStatesBelongToSubregion3a) {
    lib.SETTOLERANCEMODE(0);
    const double sc = 4412.02148223476;
    for (double p : {25e6, 50e6, 100e6}) {
        EXPECT_EQ(lib.T3PS(p, sc), water.T3APS(p, sc)) << "p=" << p;
        EXPECT_EQ(lib.V3PS(p, sc), water.V3APS(p, sc)) << "p=" << p;
        EXPECT_EQ(lib.T3PS(p, std::nextafter(sc, 1e4)), water.T3BPS(p, std::nextafter(sc, 1e4))) << "p=" << p;
        const double h = water.H3AB(p);
        EXPECT_EQ(lib.T3PH(p, h), water.T3APH(p, h)) << "p=" << p;
        EXPECT_EQ(lib.V3PH(p, h), water.V3APH(p, h)) << "p=" << p;
        const double hAbove = std::nextafter(h, 1e7);
        EXPECT_EQ(lib.T3PH(p, hAbove), water.T3BPH(p, hAbove)) << "p=" << p;
        EXPECT_EQ(lib.V3PH(p, hAbove), water.V3BPH(p, hAbove)) << "p=" << p;
    }
    for (double h : {1.9e6, 2.1e6}) {
        EXPECT_EQ(lib.P3HS(h, sc), water.P3AHS(h, sc)) << "h=" << h;
        EXPECT_EQ(lib.P3HS(h, std::nextafter(sc, 1e4)), water.P3BHS(h, std::nextafter(sc, 1e4))) << "h=" << h;
    }
}

// What each function leaves in SolvedState, in both modes.
TEST_F(Region3Backward, EachFunctionPublishesWhatItFound) {
    const double h = 2.0e6;
    const double s = 4200.0;
    const double p = 50e6;
    double a = 0.0;
    double b = 0.0;
    struct Case {
        const char* what;
        std::function<double()> call;
        int mode;
        int temperatureSolved;
        int pressureSolved;
    };
    const std::vector<Case> cases = {
        {"T3PH off", [&] { return lib.T3PH(p, h); }, 0, 1, 0},
        {"V3PH off", [&] { return lib.V3PH(p, h); }, 0, 0, 0},
        {"V3PH on", [&] { return lib.V3PH(p, h); }, 1, 1, 0},
        {"T3PS off", [&] { return lib.T3PS(p, s); }, 0, 1, 0},
        {"V3PS off", [&] { return lib.V3PS(p, s); }, 0, 0, 0},
        {"V3PS on", [&] { return lib.V3PS(p, s); }, 1, 1, 0},
        {"P3HS off", [&] { return lib.P3HS(h, s); }, 0, 0, 1},
        {"P3HS on", [&] { return lib.P3HS(h, s); }, 1, 1, 1},
        {"T3HS off", [&] { return lib.T3HS(h, s); }, 0, 1, 1},
        {"V3HS off", [&] { return lib.V3HS(h, s); }, 0, 0, 1},
        {"V3HS on", [&] { return lib.V3HS(h, s); }, 1, 1, 1},
        {"PT3HS off", [&] { return lib.PT3HS(h, s, &a, &b); }, 0, 1, 1},
        {"RT3HS off", [&] { return lib.RT3HS(h, s, &a, &b); }, 0, 1, 1},
        {"T3RH off", [&] { return lib.T3RH(500.0, h); }, 0, 1, 0},
    };
    for (const Case& c : cases) {
        lib.settings.toleranceMode = c.mode;
        c.call();
        EXPECT_EQ(lastError(), 0) << c.what;
        EXPECT_EQ(lib.solved.temperatureSolved, c.temperatureSolved) << c.what;
        EXPECT_EQ(lib.solved.pressureSolved, c.pressureSolved) << c.what;
    }
}

TEST_F(Region3Backward, RefinedPressureIsPublishedOnlyWhereTheFunctionRecomputesIt) {
    const Region3State st{50e6, 700.0, water.R3PT(50e6, 700.0)};
    const double h = enthalpy(st);
    const double s = entropy(st);
    const double backward = water.P3AHS(h, s);
    ASSERT_LT(s, 4412.02148223476);
    lib.P3HS(h, s);
    EXPECT_TRUE(nearRelative(lib.solved.solvedPressure, st.p, 1e-9));
    double p = 0.0;
    double T = 0.0;
    lib.PT3HS(h, s, &p, &T);
    EXPECT_EQ(lib.solved.solvedPressure, p);
    lib.V3HS(h, s);
    EXPECT_EQ(lib.solved.solvedPressure, backward);
    lib.RT3HS(h, s, &p, &T);
    EXPECT_EQ(lib.solved.solvedPressure, backward);
    lib.T3HS(h, s);
    EXPECT_TRUE(nearRelative(lib.solved.solvedPressure, st.p, 1e-9));
    lib.SETCHECKRANGEMODE(0);
    lib.T3HS(h, s);
    EXPECT_EQ(lib.solved.solvedPressure, backward);
}

TEST_F(Region3Backward, OnlyTheTemperatureByEnthalpyAndEntropyClampsThePressure) {
    // A state a little above 100 MPa, whose backward pressure lies above it too.
    const double pAbove = 104e6;
    const Region3State st{pAbove, 800.0, water.R3PT(pAbove, 800.0)};
    const double h = enthalpy(st);
    const double s = entropy(st);
    ASSERT_GT(water.P3BHS(h, s), 1e8);
    lib.SETCHECKRANGEMODE(0);
    const double T = lib.T3HS(h, s);
    EXPECT_EQ(lastError(), 0);
    EXPECT_EQ(lib.solved.solvedPressure, 1e8);  // the clamped backward pressure
    EXPECT_TRUE(nearRelative(T, st.T, 1e-10));  // the refinement still reaches the state
    lib.P3HS(h, s);
    EXPECT_TRUE(nearRelative(lib.solved.solvedPressure, pAbove, 1e-9));
    lib.SETCHECKRANGEMODE(1);
    lib.T3HS(h, s);
    EXPECT_TRUE(nearRelative(lib.solved.solvedPressure, pAbove, 1e-9));
}

// One row per setting; "iterating" are the refinements, which toleranceMode turns off, and
// "always" the two searches without a backward equation, which run in both modes.
struct SettingsCase {
    const char* what;
    int toleranceMode;
    int maxIterations;
    double tolerance;
    int iteratingCode;
    int alwaysCode;
};

TEST_F(Region3Backward, SettingsDecideWhetherAndHowLongTheSearchesRun) {
    const SettingsCase cases[] = {
        {"default", 1, 100, 2e-12, 0, 0},
        {"one iteration can never succeed", 1, 1, 2e-12, 3, 3},
        {"no iterations", 1, 0, 2e-12, 3, 3},
        {"negative cap", 1, -5, 2e-12, 3, 3},
        {"zero tolerance never passes the step tests", 1, 100, 0.0, 3, 3},
        {"mode off ignores the cap of the refinements", 0, 1, 2e-12, 0, 3},
        {"mode off ignores the tolerance of the refinements", 0, 100, 0.0, 0, 3},
    };
    double a = 0.0;
    double b = 0.0;
    const Region3State st{50e6, 700.0, water.R3PT(50e6, 700.0)};
    const double h = enthalpy(st);
    const double s = entropy(st);
    const std::vector<std::pair<const char*, std::function<double()>>> iterating = {
        {"T3PH", [&] { return lib.T3PH(st.p, h); }},   {"V3PH", [&] { return lib.V3PH(st.p, h); }},
        {"T3PS", [&] { return lib.T3PS(st.p, s); }},   {"V3PS", [&] { return lib.V3PS(st.p, s); }},
        {"P3HS", [&] { return lib.P3HS(h, s); }},      {"T3HS", [&] { return lib.T3HS(h, s); }},
        {"V3HS", [&] { return lib.V3HS(h, s); }},      {"PT3HS", [&] { return lib.PT3HS(h, s, &a, &b); }},
        {"RT3HS", [&] { return lib.RT3HS(h, s, &a, &b); }}, {"V3PT", [&] { return lib.V3PT(st.p, st.T); }},
    };
    const std::vector<std::pair<const char*, std::function<double()>>> always = {
        {"T3RH", [&] { return lib.T3RH(st.rho, h); }},
        {"R3PTR0", [&] { return lib.R3PTR0(st.p, st.T, st.rho); }},
    };
    for (const SettingsCase& c : cases) {
        lib.settings = {};
        lib.SETTOLERANCEMODE(c.toleranceMode);
        lib.SETMAXITERATION(c.maxIterations);
        lib.SETTOLERANCE(c.tolerance);
        auto check = [&](const auto& calls, int expectedCode) {
            for (const auto& [name, call] : calls) {
                const double result = call();
                EXPECT_EQ(lastError(), expectedCode) << c.what << ": " << name;
                if (expectedCode != 0) {
                    EXPECT_EQ(result, -1.0) << c.what << ": " << name;
                }
            }
        };
        check(iterating, c.iteratingCode);
        check(always, c.alwaysCode);
    }
}

TEST_F(Region3Backward, BadInputReachesTheCallerAsACode) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    double a = 0.0;
    double b = 0.0;
    for (double bad : {nan, inf, -inf, 1e300, -1e300, 0.0}) {
        // Any code will do but none at all; what matters is a code, the failure value, no hang.
        for (auto call : std::vector<std::function<double()>>{
                 [&] { return lib.T3PH(20e6, bad); }, [&] { return lib.V3PH(bad, 2e6); },
                 [&] { return lib.T3PS(bad, 4000.0); }, [&] { return lib.V3PS(50e6, bad); },
                 [&] { return lib.P3HS(bad, 4000.0); }, [&] { return lib.T3HS(2e6, bad); },
                 [&] { return lib.V3HS(bad, bad); }, [&] { return lib.PT3HS(bad, 4000.0, &a, &b); },
                 [&] { return lib.RT3HS(2e6, bad, &a, &b); }, [&] { return lib.T3RH(bad, 2e6); },
                 [&] { return lib.T3RH(500.0, bad); }}) {
            const double result = call();
            EXPECT_TRUE(std::isfinite(result));
            if (lastError() != 0) {
                EXPECT_EQ(result, -1.0);
            }
        }
    }
    for (auto call : std::vector<std::function<double()>>{[&] { return lib.T3PH(20e6, nan); },
                                                          [&] { return lib.P3HS(nan, 4000.0); },
                                                          [&] { return lib.T3RH(500.0, nan); }}) {
        EXPECT_EQ(call(), -1.0);
        EXPECT_EQ(lastError(), 1);  // a NaN ends a search as if converged, then fails the frame
    }
    EXPECT_EQ(lib.PT3HS(2e6, 4000.0, nullptr, &b), -1.0);
    EXPECT_EQ(lastError(), 1);
    EXPECT_EQ(lib.RT3HS(2e6, 4000.0, &a, nullptr), -1.0);
    EXPECT_EQ(lastError(), 1);
}

TEST_F(Region3Backward, OutputCellsKeepWhatTheLastStepWroteOnFailure) {
    double p = -7.0;
    double T = -7.0;
    lib.SETMAXITERATION(1);
    EXPECT_EQ(lib.PT3HS(2e6, 4200.0, &p, &T), -1.0);
    EXPECT_EQ(lastError(), 3);
    EXPECT_EQ(p, water.P3AHS(2e6, 4200.0));  // the backward pressure, unrefined
    EXPECT_NE(T, -7.0);
}

}  // namespace
