// The metastable-vapour equation against the release's check values, and its combined call
// against the single functions.
#include <gtest/gtest.h>

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
