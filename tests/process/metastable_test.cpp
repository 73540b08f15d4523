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

TEST_F(MetastableVapour, CombinedCallAgreesWithTheSingleFunctions) {
    // Metastable states: a little below the saturation temperature, where the equation holds.
    for (double p : {1e4, 1e5, 1e6, 5e6})
        for (double T : {water.TSP(p) - 20.0, water.TSP(p) - 5.0, water.TSP(p) + 30.0}) {
            const tvl::StateProperties s = water.VUSHCVWDERPTMSPT(p, T);
            EXPECT_TRUE(nearRelative(s.v, water.VMSPT(p, T), 1e-14)) << p << " " << T;
            EXPECT_TRUE(nearRelative(s.h, water.HMSPT(p, T), 1e-14)) << p << " " << T;
            EXPECT_TRUE(nearRelative(s.u, water.UMSPT(p, T), 1e-10)) << p << " " << T;
            EXPECT_TRUE(nearRelative(s.s, water.SMSPT(p, T), 1e-13)) << p << " " << T;
            EXPECT_TRUE(nearRelative(s.cv, water.CVMSPT(p, T), 1e-13)) << p << " " << T;
            EXPECT_TRUE(nearRelative(s.w, water.WMSPT(p, T), 1e-13)) << p << " " << T;
            EXPECT_TRUE(nearRelative(s.dhdT, water.CPMSPT(p, T), 1e-14)) << p << " " << T;
            const double dT = 1e-4;
            EXPECT_TRUE(nearRelative(s.dvdT, (water.VMSPT(p, T + dT) - water.VMSPT(p, T - dT)) / (2 * dT), 1e-6));
            const double dp = p * 1e-6;
            EXPECT_TRUE(nearRelative(s.dvdp, (water.VMSPT(p + dp, T) - water.VMSPT(p - dp, T)) / (2 * dp), 1e-6));
            // Joule-Thomson: -(dh/dp)T / cp
            EXPECT_TRUE(nearRelative(water.JOULETHOMPSONMSPT(p, T), -s.dhdp / s.dhdT, 1e-10)) << p << " " << T;
        }
}

}  // namespace

namespace {

using tvltest::nearRelative;

class MetastableExports : public tvltest::FacadeTest {};

TEST_F(MetastableExports, PrintedValues) {
    struct Case {
        double p, T, v, h, s;
    };
    const Case cases[] = {
        {1e6, 450.0, 0.192516540, 2768811.15, 6566.60377},
        {1e6, 440.0, 0.186212297, 0.0, 0.0},
        {1.5e6, 450.0, 0.121685206, 0.0, 0.0},
    };
    for (const Case& c : cases) {
        EXPECT_NEAR(lib.VMSPT(c.p, c.T), c.v, 5e-10) << c.p << " " << c.T;
        if (c.h != 0.0) {
            EXPECT_NEAR(lib.HMSPT(c.p, c.T), c.h, 5e-3);
            EXPECT_NEAR(lib.SMSPT(c.p, c.T), c.s, 5e-6);
        }
        EXPECT_EQ(lastError(), 0);
    }
}

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

// Transport and derived members compose the metastable density, cp and w with the one-phase rules.
TEST_F(MetastableExports, Composition) {
    for (double p : {5e3, 1e5, 1e6, 9e6}) {
        const double T = water.TSP(p) - 3.0;
        const double v = lib.VMSPT(p, T);
        const double mu = water.DYNVISRT(1.0 / v, T);
        const double lambda = water.THERMCONDRT(1.0 / v, T);
        const double w = lib.WMSPT(p, T);
        EXPECT_EQ(lib.DYNVISMSPT(p, T), mu);
        EXPECT_EQ(lib.THERMCONDMSPT(p, T), lambda);
        EXPECT_TRUE(nearRelative(lib.PRANDTLEMSPT(p, T), lib.CPMSPT(p, T) * mu / lambda, 1e-15));
        EXPECT_TRUE(nearRelative(lib.KINVISMSPT(p, T), mu * v, 1e-15));
        EXPECT_TRUE(nearRelative(lib.KMSPT(p, T), w * w / (p * v), 1e-15));
        EXPECT_EQ(lastError(), 0);
        // Near the line the metastable equation meets region 2.
        EXPECT_TRUE(nearRelative(lib.HMSPT(p, water.TSP(p)), water.H2PT(p, water.TSP(p)), 1e-3));
    }
}

TEST_F(MetastableExports, CombinedCall) {
    double cells[14];
    tvl::OutputCells outputs{};
    for (int k = 0; k < 14; ++k) outputs.cells[k] = &cells[k];
    EXPECT_EQ(lib.VUSHCVWDERPTMSPT(1e6, 450.0, outputs), 1.0);
    EXPECT_EQ(cells[0], lib.VMSPT(1e6, 450.0));
    EXPECT_EQ(cells[3], lib.HMSPT(1e6, 450.0));
    EXPECT_EQ(cells[13], lib.CPMSPT(1e6, 450.0));
    EXPECT_EQ(lib.VUSHCVWDERPTMSPT(1e7, 450.0, outputs), -1.0);
    EXPECT_EQ(lastError(), 2);
    outputs.cells[5] = nullptr;
    EXPECT_EQ(lib.VUSHCVWDERPTMSPT(1e6, 450.0, outputs), -1.0);
    EXPECT_EQ(lastError(), 1);
}

}  // namespace
