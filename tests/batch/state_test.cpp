// tvlxSTATE through its C interface, also in the sanitized builds: wet states by every pair over
// the whole saturation line and hostile arguments (the array form is tested from Python).
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <vector>

#include "tavlib6.h"
#include "tavlib6x.h"

namespace {

struct State {
    double values[TVLX_STATE_COUNT];
    int32_t codes[TVLX_STATE_COUNT];
    int32_t code;
};

State stateOf(const char* pair, double a, double b) {
    State state{};
    state.code = tvlxSTATE(pair, a, b, state.values, state.codes);
    return state;
}

TEST(State, WetStatesByEveryPairAlongTheSaturationLine) {
    for (double T = 280.0; T < 647.09; T += 23.0) {
        const double p = tvlPST(T);
        for (double x : {0.0, 0.05, 0.5, 0.95, 1.0}) {
            const double h = x == 0.0 ? tvlHSWT(T) : x == 1.0 ? tvlHSST(T) : tvlHSTX(T, x);
            const double s = x == 0.0 ? tvlSSWT(T) : x == 1.0 ? tvlSSST(T) : tvlSSTX(T, x);
            for (const State& state : {stateOf("hs", h, s), stateOf("ph", p, h), stateOf("ps", p, s), stateOf("Tx", T, x)}) {
                ASSERT_EQ(state.code, 0) << T << " " << x;
                EXPECT_EQ(state.values[TVLX_REGION], 4.0) << T << " " << x;
                EXPECT_NEAR(state.values[TVLX_T], T, 1e-9 * T) << T << " " << x;
                EXPECT_NEAR(state.values[TVLX_X], x, 1e-7) << T << " " << x;
                EXPECT_EQ(state.codes[TVLX_CP] == 0, x == 0.0 || x == 1.0) << T << " " << x;
            }
        }
    }
}

TEST(State, HostileArgumentsGetTheirCodes) {
    const double nan = std::numeric_limits<double>::quiet_NaN(), inf = std::numeric_limits<double>::infinity();
    for (const char* pair : {"pT", "ph", "ps", "hs", "Tx", "px"}) {
        for (auto [a, b] : {std::pair{nan, 1.0}, {1e5, inf}, {-inf, -1e300}, {1e300, 1e300}, {-1e3, -1e3}}) {
            const State state = stateOf(pair, a, b);
            EXPECT_GT(state.code, 0) << pair << " " << a << " " << b;
            EXPECT_EQ(tvlGETLASTERROR(), state.code);
            for (double value : state.values) EXPECT_EQ(value, -1.0);
        }
    }
    EXPECT_EQ(stateOf(nullptr, 1e5, 300.0).code, 1);
    EXPECT_EQ(stateOf("xy", 1e5, 300.0).code, 1);
    int32_t codes[TVLX_STATE_COUNT];
    EXPECT_EQ(tvlxSTATE("pT", 1e5, 300.0, nullptr, codes), 1);
    EXPECT_EQ(tvlxSTATES("pT", 2, nullptr, nullptr, nullptr, nullptr), -1);
    EXPECT_EQ(tvlxSTATES("pT", 0, nullptr, nullptr, nullptr, nullptr), 0);
}

}  // namespace
