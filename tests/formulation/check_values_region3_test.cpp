// The releases' verification values of region 3: the basic equation in (density, T), the
// backward equations of 3a and 3b as raw equations, and the 3a/3b boundary.
#include <gtest/gtest.h>

#include "support/check_values.h"
#include "support/facade_fixture.h"

namespace {

using tvltest::CheckValue;

class Region3CheckValues : public tvltest::FacadeTest {};

TEST_F(Region3CheckValues, ReproduceThePrintedDigits) {
    tvl::WaterModel& w = water;
    auto rT = [](auto f) { return [f](const CheckValue& r) { return f(r.inputs.at("rho"), r.inputs.at("T")); }; };
    auto ph = [](auto f) { return [f](const CheckValue& r) { return f(r.inputs.at("p"), r.inputs.at("h")); }; };
    auto ps = [](auto f) { return [f](const CheckValue& r) { return f(r.inputs.at("p"), r.inputs.at("s")); }; };
    auto hs = [](auto f) { return [f](const CheckValue& r) { return f(r.inputs.at("h"), r.inputs.at("s")); }; };
    const tvltest::EvaluatorTable table = {
        {{"region 3", "p"}, rT([&](double rho, double T) { return w.P3RT(rho, T); })},
        {{"region 3", "h"}, rT([&](double rho, double T) { return w.H3RT(rho, T); })},
        {{"region 3", "u"}, rT([&](double rho, double T) { return w.U3RT(rho, T); })},
        {{"region 3", "s"}, rT([&](double rho, double T) { return w.S3RT(rho, T); })},
        {{"region 3", "cp"}, rT([&](double rho, double T) { return w.CP3RT(rho, T); })},
        {{"region 3", "w"}, rT([&](double rho, double T) { return w.W3RT(rho, T); })},
        {{"T3a(p,h)", "T"}, ph([&](double p, double h) { return w.T3APH(p, h); })},
        {{"T3b(p,h)", "T"}, ph([&](double p, double h) { return w.T3BPH(p, h); })},
        {{"v3a(p,h)", "v"}, ph([&](double p, double h) { return w.V3APH(p, h); })},
        {{"v3b(p,h)", "v"}, ph([&](double p, double h) { return w.V3BPH(p, h); })},
        {{"T3a(p,s)", "T"}, ps([&](double p, double s) { return w.T3APS(p, s); })},
        {{"T3b(p,s)", "T"}, ps([&](double p, double s) { return w.T3BPS(p, s); })},
        {{"v3a(p,s)", "v"}, ps([&](double p, double s) { return w.V3APS(p, s); })},
        {{"v3b(p,s)", "v"}, ps([&](double p, double s) { return w.V3BPS(p, s); })},
        {{"p3a(h,s)", "p"}, hs([&](double h, double s) { return w.P3AHS(h, s); })},
        {{"p3b(h,s)", "p"}, hs([&](double h, double s) { return w.P3BHS(h, s); })},
        {{"h3ab(p) boundary", "h"}, [&](const CheckValue& r) { return w.H3AB(r.inputs.at("p")); }},
    };
    EXPECT_GE(tvltest::expectCheckValues(table), 59);
}

// With toleranceMode off the exports are the raw equations of the subregion that their test
// selects: every check point of the releases lies in its own subregion.
TEST_F(Region3CheckValues, ExportsWithoutRefinementSelectTheSubregionOfEachCheckPoint) {
    tvl::PropertyFacade& f = lib;
    f.SETTOLERANCEMODE(0);
    auto ph = [](auto g) { return [g](const CheckValue& r) { return g(r.inputs.at("p"), r.inputs.at("h")); }; };
    auto ps = [](auto g) { return [g](const CheckValue& r) { return g(r.inputs.at("p"), r.inputs.at("s")); }; };
    auto hs = [](auto g) { return [g](const CheckValue& r) { return g(r.inputs.at("h"), r.inputs.at("s")); }; };
    auto T3PH = ph([&](double p, double h) { return f.T3PH(p, h); });
    auto V3PH = ph([&](double p, double h) { return f.V3PH(p, h); });
    auto T3PS = ps([&](double p, double s) { return f.T3PS(p, s); });
    auto V3PS = ps([&](double p, double s) { return f.V3PS(p, s); });
    auto P3HS = hs([&](double h, double s) { return f.P3HS(h, s); });
    const tvltest::EvaluatorTable table = {
        {{"T3a(p,h)", "T"}, T3PH}, {{"T3b(p,h)", "T"}, T3PH}, {{"v3a(p,h)", "v"}, V3PH},
        {{"v3b(p,h)", "v"}, V3PH}, {{"T3a(p,s)", "T"}, T3PS}, {{"T3b(p,s)", "T"}, T3PS},
        {{"v3a(p,s)", "v"}, V3PS}, {{"v3b(p,s)", "v"}, V3PS}, {{"p3a(h,s)", "p"}, P3HS},
        {{"p3b(h,s)", "p"}, P3HS},
    };
    EXPECT_GE(tvltest::expectCheckValues(table), 34);
}

}  // namespace
