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

}  // namespace
