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

class Region5 : public tvltest::FacadeTest {
protected:
    std::vector<State> grid() {
        std::vector<State> states;
        for (double p : {1e3, 1e4, 1e5, 5e5, 1e6, 5e6, 1e7, 2e7, 3e7, 5e7})
            for (double T = 1073.15; T <= 2273.16; T += 100.0) states.push_back({p, T});
        return states;
    }
};

TEST_F(Region5, PressureAndTemperatureByDensityAndEnthalpy) {
    for (const State& st : grid()) {
        double p = 0.0;
        double T = 0.0;
        ASSERT_EQ(lib.PT5RH(water.D5PT(st.p, st.T), water.H5PT(st.p, st.T), &p, &T), 1.0) << st.p << " " << st.T;
        EXPECT_TRUE(nearRelative(p, st.p, 1e-11)) << st.p << " " << st.T;
        EXPECT_TRUE(nearRelative(T, st.T, 1e-11)) << st.p << " " << st.T;
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

}  // namespace
