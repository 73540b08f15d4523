// The metastable-vapour equation against the release's check values, and its combined call
// against the single functions.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/check_values.h"
#include "support/facade_fixture.h"

namespace {

using tvltest::CheckValue;
using tvltest::nearRelative;

class MetastableVapour : public tvltest::FacadeTest {};

TEST_F(MetastableVapour, ReleaseCheckValues) {
    tvl::WaterModel& w = water;
    auto pT = [](auto f) { return [f](const CheckValue& r) { return f(r.inputs.at("p"), r.inputs.at("T")); }; };
    const tvltest::EvaluatorTable table = {
        {{"metastable vapour", "v"}, pT([&](double p, double T) { return w.VMSPT(p, T); })},
        {{"metastable vapour", "h"}, pT([&](double p, double T) { return w.HMSPT(p, T); })},
        {{"metastable vapour", "u"}, pT([&](double p, double T) { return w.UMSPT(p, T); })},
        {{"metastable vapour", "s"}, pT([&](double p, double T) { return w.SMSPT(p, T); })},
        {{"metastable vapour", "cp"}, pT([&](double p, double T) { return w.CPMSPT(p, T); })},
        {{"metastable vapour", "w"}, pT([&](double p, double T) { return w.WMSPT(p, T); })},
    };
    EXPECT_EQ(tvltest::expectCheckValues(table), 21);
}

}  // namespace

namespace {

using tvltest::nearRelative;

class MetastableExports : public tvltest::FacadeTest {};

// The range: up to but not including 10 MPa, no hotter than the saturation temperature by more
// than the tolerance, no wetter than 5 per cent equilibrium moisture; a NaN pressure fails here.
TEST_F(MetastableExports, Range) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double Ts = water.TSP(1e6);
    struct Case {
        double p, T;
        int code;
    };
    const Case cases[] = {
        {1e6, Ts - 10.0, 0},
        {1e6, Ts, 0},
        {1e6, Ts * (1.0 + 1e-12), 0},  // within the tolerance above the line
        {1e6, Ts * (1.0 + 1e-11), 2},
        {1e6, Ts + 1.0, 2},
        {1e6, Ts - 120.0, 2},  // far deeper than 5 per cent moisture
        {1e7, 550.0, 2},
        {std::nextafter(1e7, 0.0), 580.0, 0},
        {-1.0, 400.0, 2},
        {nan, 400.0, 2},
        {1e6, nan, 1},
    };
    for (const Case& c : cases) {
        const double v = lib.VMSPT(c.p, c.T);
        EXPECT_EQ(lastError(), c.code) << c.p << " " << c.T;
        if (c.code != 0) {
            EXPECT_EQ(v, -1.0);
        }
    }
    // Checks off: the equation at any (p,T); p = 0 has no logarithm.
    lib.settings.checkRangeMode = 0;
    EXPECT_GT(lib.VMSPT(1e7, 700.0), 0.0);
    EXPECT_EQ(lastError(), 0);
    EXPECT_EQ(lib.SMSPT(0.0, 400.0), -1.0);
    EXPECT_EQ(lastError(), 1);
}

// The moisture limit is judged at the widened saturation temperature: the last passing T and the
// first failing one lie on either side of x = 0.95 (1 + tolerance).
TEST_F(MetastableExports, MoistureLimitIsSharp) {
    const double p = 2e5;
    double lo = water.TSP(p) - 60.0, hi = water.TSP(p);
    ASSERT_EQ(lib.VMSPT(p, lo), -1.0);
    ASSERT_GT(lib.VMSPT(p, hi), 0.0);
    for (int i = 0; i < 200 && std::nextafter(lo, hi) != hi; ++i) {
        const double mid = 0.5 * (lo + hi);
        (lib.VMSPT(p, mid) < 0.0 ? lo : hi) = mid;
    }
    const double Tm = water.TSP(p) * lib.settings.margin();
    const double x = (water.HMSPT(p, hi) - water.HSWT(Tm)) / (water.HSST(Tm) - water.HSWT(Tm));
    EXPECT_NEAR(x, 0.95 * lib.settings.margin(), 1e-12);
}

}  // namespace
