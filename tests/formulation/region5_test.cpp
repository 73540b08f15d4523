// Region 5: the printed values, the library's own Joule-Thomson form, round trips of the searches
// from the start fits over 1073.15 K to 2273.15 K up to 50 MPa, the snap at the upper limit, and
// what the settings change.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "support/facade_fixture.h"

namespace {

using tvltest::nearRelative;

struct State {
    double p;
    double T;
};

std::ostream& operator<<(std::ostream& out, const State& s) { return out << "p=" << s.p << " T=" << s.T; }

class Region5 : public tvltest::FacadeTest {
protected:
    std::vector<State> grid() {
        std::vector<State> states;
        for (double p : {1e3, 1e4, 1e5, 5e5, 1e6, 5e6, 1e7, 2e7, 3e7, 5e7})
            for (double T = 1073.15; T <= 2273.16; T += 100.0) states.push_back({p, T});
        return states;
    }
};

// The printed digits, half a unit of the last one.
TEST_F(Region5, PrintedValuesAtHalfAMegapascalAnd1500K) {
    EXPECT_NEAR(lib.V5PT(0.5e6, 1500.0), 1.38455090, 5e-9);
    EXPECT_NEAR(lib.H5PT(0.5e6, 1500.0), 5219768.55, 5e-3);
    EXPECT_NEAR(lib.S5PT(0.5e6, 1500.0), 9654.08875, 5e-6);
    EXPECT_NEAR(lib.CP5PT(0.5e6, 1500.0), 2616.09445, 5e-6);
    EXPECT_NEAR(lib.D5PT(0.5e6, 1500.0), 1.0 / 1.38455090, 5e-9);
    EXPECT_EQ(lastError(), 0);
}

// The library's region 5 Joule-Thomson coefficient carries one power of pi too many in the
// residual sums; the true isenthalpic slope is printed beside it.
TEST_F(Region5, JouleThomsonCoefficientIsTheLibrarysOwnForm) {
    const struct {
        double p;
        double printed;
        double isenthalpicSlope;
    } cases[] = {{0.5e6, 3.46382e-7, 6.92515e-7}, {30e6, 8.69545e-6, 6.38206e-7}};
    for (const auto& c : cases) {
        EXPECT_NEAR(lib.JOULETHOMPSON5PT(c.p, 1500.0), c.printed, 5e-12) << "p=" << c.p;
        const tvl::StateProperties s = water.VUSHCVWDERPT5PT(c.p, 1500.0);
        EXPECT_NEAR(-s.dhdp / s.dhdT, c.isenthalpicSlope, 5e-13) << "p=" << c.p;
        const double h = water.H5PT(c.p, 1500.0);
        const double dp = c.p * 1e-3;
        const double slope = (lib.T5PH(c.p + dp, h) - lib.T5PH(c.p - dp, h)) / (2 * dp);
        EXPECT_TRUE(nearRelative(slope, c.isenthalpicSlope, 1e-5)) << "p=" << c.p;
    }
}

TEST_F(Region5, CombinedCallAgreesWithTheSingleFunctions) {
    for (const State& st : grid()) {
        const auto [p, T] = st;
        const tvl::StateProperties s = water.VUSHCVWDERPT5PT(p, T);
        EXPECT_TRUE(nearRelative(s.v, water.V5PT(p, T), 1e-15)) << st;
        EXPECT_TRUE(nearRelative(s.u, water.U5PT(p, T), 1e-14)) << st;
        EXPECT_TRUE(nearRelative(s.s, water.S5PT(p, T), 1e-15)) << st;
        EXPECT_TRUE(nearRelative(s.h, water.H5PT(p, T), 1e-15)) << st;
        EXPECT_TRUE(nearRelative(s.cv, water.CV5PT(p, T), 1e-15)) << st;
        EXPECT_TRUE(nearRelative(s.w, water.W5PT(p, T), 1e-15)) << st;
        EXPECT_TRUE(nearRelative(s.dhdT, water.CP5PT(p, T), 1e-15)) << st;
        EXPECT_TRUE(nearRelative(water.D5PT(p, T), 1.0 / s.v, 1e-14)) << st;
        // Central differences over 2e-4 p and 0.02 K are good to about 1e-6.
        const double dp = p * 1e-4;
        const double dT = 1e-2;
        EXPECT_TRUE(nearRelative(s.dvdp, (water.V5PT(p + dp, T) - water.V5PT(p - dp, T)) / (2 * dp), 1e-6)) << st;
        EXPECT_TRUE(nearRelative(s.dvdT, (water.V5PT(p, T + dT) - water.V5PT(p, T - dT)) / (2 * dT), 1e-6)) << st;
        EXPECT_TRUE(nearRelative(s.dsdT, (water.S5PT(p, T + dT) - water.S5PT(p, T - dT)) / (2 * dT), 1e-6)) << st;
        EXPECT_TRUE(nearRelative(s.dudT, (water.U5PT(p, T + dT) - water.U5PT(p, T - dT)) / (2 * dT), 1e-6)) << st;
        EXPECT_TRUE(nearRelative(s.dsdp, (water.S5PT(p + dp, T) - water.S5PT(p - dp, T)) / (2 * dp), 1e-6)) << st;
    }
}

// The searches have no backward equation to start from, only rough fits; Newton still ends at
// the root to rounding, some 1e-14, and the stop tests of 2e-12 guarantee 1e-11 with margin.
TEST_F(Region5, TemperatureByEnthalpyAndByEntropy) {
    for (const State& st : grid()) {
        EXPECT_TRUE(nearRelative(lib.T5PH(st.p, water.H5PT(st.p, st.T)), st.T, 1e-11)) << st;
        EXPECT_EQ(lastError(), 0) << st;
        EXPECT_TRUE(nearRelative(lib.T5PS(st.p, water.S5PT(st.p, st.T)), st.T, 1e-11)) << st;
        EXPECT_EQ(lastError(), 0) << st;
    }
}

TEST_F(Region5, PressureAndTemperatureByEnthalpyAndEntropy) {
    for (const State& st : grid()) {
        const double h = water.H5PT(st.p, st.T);
        const double s = water.S5PT(st.p, st.T);
        double p = 0.0;
        double T = 0.0;
        ASSERT_EQ(lib.PT5HS(h, s, &p, &T), 1.0) << st << " code " << lastError();
        EXPECT_TRUE(nearRelative(p, st.p, 1e-11)) << st;
        EXPECT_TRUE(nearRelative(T, st.T, 1e-11)) << st;
        EXPECT_EQ(lib.P5HS(h, s), p) << st;
        EXPECT_EQ(lib.T5HS(h, s), T) << st;
    }
}

// Below 1 kg/m3 the density stop limit is absolute, 1e4 times the tolerance, some 1e-5 of the
// density at 1 kPa; but the test looks at the residual before the last step, which Newton then
// squares away, so the state still comes back to rounding.
TEST_F(Region5, PressureAndTemperatureByDensityAndEnthalpy) {
    for (const State& st : grid()) {
        const double density = water.D5PT(st.p, st.T);
        double p = 0.0;
        double T = 0.0;
        ASSERT_EQ(lib.PT5RH(density, water.H5PT(st.p, st.T), &p, &T), 1.0) << st << " code " << lastError();
        EXPECT_TRUE(nearRelative(p, st.p, 1e-11)) << st;
        EXPECT_TRUE(nearRelative(T, st.T, 1e-11)) << st;
    }
}

// Below about 1 kPa the first step from 25 MPa goes to a negative pressure, the guard puts it back
// at 1000 Pa, and the search cycles there until the cap.
TEST_F(Region5, DensityAndEnthalpyCycleBelowAKilopascal) {
    for (int cap : {100, 10000}) {
        lib.SETMAXITERATION(cap);
        double p = 0.0;
        double T = 0.0;
        EXPECT_EQ(lib.PT5RH(water.D5PT(100.0, 1500.0), water.H5PT(100.0, 1500.0), &p, &T), -1.0);
        EXPECT_EQ(lastError(), 3);
        EXPECT_EQ(p, 1000.0);
    }
}

TEST_F(Region5, SnapToTheUpperTemperatureOnlyWithRangeChecks) {
    const double p = 1e6;
    const double justAbove = 2273.15 + 1e-9;  // inside the stop limit of some 4.5e-9 K
    const double farAbove = 2273.15 + 1e-6;
    const double hJust = water.H5PT(p, justAbove);
    const double sJust = water.S5PT(p, justAbove);
    EXPECT_EQ(lib.T5PH(p, hJust), 2273.15);
    EXPECT_EQ(lib.T5PS(p, sJust), 2273.15);
    EXPECT_GT(lib.T5PH(p, water.H5PT(p, farAbove)), 2273.15 + 0.5e-6);
    // Below the limit nothing is snapped up.
    EXPECT_LT(lib.T5PH(p, water.H5PT(p, 2273.15 - 1e-9)), 2273.15);
    lib.SETCHECKRANGEMODE(0);
    EXPECT_GT(lib.T5PH(p, hJust), 2273.15);
    EXPECT_GT(lib.T5PS(p, sJust), 2273.15);
}

TEST_F(Region5, WithoutRefinementOnlyTheHSFunctionsStopAtTheStartFit) {
    const State st{1e6, 1700.0};
    const double h = water.H5PT(st.p, st.T);
    const double s = water.S5PT(st.p, st.T);
    const double byEnthalpy = lib.T5PH(st.p, h);
    const double byEntropy = lib.T5PS(st.p, s);
    lib.SETTOLERANCEMODE(0);
    EXPECT_EQ(lib.T5PH(st.p, h), byEnthalpy);
    EXPECT_EQ(lib.T5PS(st.p, s), byEntropy);
    const double startT = 0.000369365564435273 * h - 433.113582272742;
    const double startP = std::exp(std::log(611.0) + (water.S5PT(611.0, startT) - s) * 0.002157661830695);
    EXPECT_EQ(lib.T5HS(h, s), startT);
    EXPECT_EQ(lib.P5HS(h, s), startP);
    EXPECT_EQ(lib.solved.pressureSolved, 1);
    EXPECT_EQ(lib.solved.temperatureSolved, 1);
    // A crude fit: a few per cent in T, rather more in p.
    EXPECT_NEAR(startT, st.T, 0.05 * st.T);
    EXPECT_NE(startP, st.p);
}

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
    int codeOfRefinement;  // the (h,s) searches, which toleranceMode switches off
    int codeOfAlways;      // T5PH, T5PS, PT5RH, which always search
};

TEST_F(Region5, SettingsDecideWhetherAndHowLongTheSearchRuns) {
    static double p;
    static double T;
    const Call calls[] = {
        {"T5PH", Search::Always, [](tvl::PropertyFacade& f) { return f.T5PH(1e6, 5.2e6); }},
        {"T5PS", Search::Always, [](tvl::PropertyFacade& f) { return f.T5PS(1e6, 9000.0); }},
        {"PT5RH", Search::Always, [](tvl::PropertyFacade& f) { return f.PT5RH(1.5, 5.2e6, &p, &T); }},
        {"P5HS", Search::Refinement, [](tvl::PropertyFacade& f) { return f.P5HS(5.2e6, 9000.0); }},
        {"T5HS", Search::Refinement, [](tvl::PropertyFacade& f) { return f.T5HS(5.2e6, 9000.0); }},
        {"PT5HS", Search::Refinement, [](tvl::PropertyFacade& f) { return f.PT5HS(5.2e6, 9000.0, &p, &T); }},
    };
    const SettingsCase cases[] = {
        {"default", 1, 100, 2e-12, 0, 0},
        {"one iteration can never succeed", 1, 1, 2e-12, 3, 3},
        {"no iterations", 1, 0, 2e-12, 3, 3},
        {"two iterations are too few", 1, 2, 2e-12, 3, 3},
        {"tolerance 0 never passes >=", 1, 100, 0.0, 3, 3},
        {"mode off, default cap", 0, 100, 2e-12, 0, 0},
        {"mode off with one iteration", 0, 1, 2e-12, 0, 3},
        {"mode off ignores the cap only for (h,s)", 0, 0, 2e-12, 0, 3},
        {"mode off with tolerance 0", 0, 100, 0.0, 0, 3},
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

TEST_F(Region5, DensityAndEnthalpyOverwriteTheCallersCells) {
    double p = -7.0;
    double T = -7.0;
    lib.SETMAXITERATION(1);
    EXPECT_EQ(lib.PT5RH(1.5, 5.2e6, &p, &T), -1.0);
    EXPECT_EQ(lastError(), 3);
    EXPECT_NE(p, -7.0);
    EXPECT_NE(T, -7.0);
    lib.SETMAXITERATION(100);
    // The search runs with the mode off too, to the same root.
    double p0 = 0.0;
    double T0 = 0.0;
    lib.PT5RH(1.5, 5.2e6, &p0, &T0);
    lib.SETTOLERANCEMODE(0);
    lib.PT5RH(1.5, 5.2e6, &p, &T);
    EXPECT_EQ(p, p0);
    EXPECT_EQ(T, T0);
    EXPECT_EQ(lib.PT5RH(1.5, 5.2e6, &p, nullptr), -1.0);
    EXPECT_EQ(lastError(), 1);
    EXPECT_EQ(lib.PT5HS(5.2e6, 9000.0, nullptr, &T), -1.0);
    EXPECT_EQ(lastError(), 1);
    double cells[14];
    tvl::OutputCells outputs{};
    for (int k = 0; k < 14; ++k) outputs.cells[k] = &cells[k];
    EXPECT_EQ(lib.VUSHCVWDERPT5PT(1e6, 1500.0, outputs), 1.0);
    EXPECT_EQ(cells[2], water.S5PT(1e6, 1500.0));
    outputs.cells[0] = nullptr;
    EXPECT_EQ(lib.VUSHCVWDERPT5PT(1e6, 1500.0, outputs), -1.0);
    EXPECT_EQ(lastError(), 1);
}

}  // namespace
