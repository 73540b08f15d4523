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

TEST_F(Region1, EntropySearchStartsAtTheLowestTemperature) {
    // The root lies below 273.15 K at 100 MPa and s = -10 J/(kg K).
    lib.SETCHECKRANGEMODE(0);
    const double root = lib.T1PS(1e8, -10.0);
    EXPECT_EQ(lastError(), 0);
    EXPECT_LT(root, 273.15);
    lib.SETCHECKRANGEMODE(1);
    EXPECT_EQ(lib.T1PS(1e8, -10.0), 273.15);
}

}  // namespace
