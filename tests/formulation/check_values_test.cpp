// The releases' verification values of the equations of the formulation, as the raw equations
// give them (backward equations with toleranceMode off).
#include <gtest/gtest.h>

#include "support/check_values.h"
#include "support/facade_fixture.h"

namespace {

using tvltest::CheckValue;

class FormulationCheckValues : public tvltest::FacadeTest {};

TEST_F(FormulationCheckValues, ReproduceThePrintedDigits) {
    tvl::WaterModel& w = water;
    lib.settings.toleranceMode = 0;
    auto pT = [](auto f) { return [f](const CheckValue& r) { return f(r.inputs.at("p"), r.inputs.at("T")); }; };
    auto ph = [](auto f) { return [f](const CheckValue& r) { return f(r.inputs.at("p"), r.inputs.at("h")); }; };
    auto ps = [](auto f) { return [f](const CheckValue& r) { return f(r.inputs.at("p"), r.inputs.at("s")); }; };
    auto hs = [](auto f) { return [f](const CheckValue& r) { return f(r.inputs.at("h"), r.inputs.at("s")); }; };
    auto one = [](const char* name, auto f) {
        return [name, f](const CheckValue& r) { return f(r.inputs.at(name)); };
    };
    const tvltest::EvaluatorTable table = {
        {{"region 1", "v"}, pT([&](double p, double T) { return w.V1PT(p, T); })},
        {{"region 1", "h"}, pT([&](double p, double T) { return w.H1PT(p, T); })},
        {{"region 1", "u"}, pT([&](double p, double T) { return w.U1PT(p, T); })},
        {{"region 1", "s"}, pT([&](double p, double T) { return w.S1PT(p, T); })},
        {{"region 1", "cp"}, pT([&](double p, double T) { return w.CP1PT(p, T); })},
        {{"region 1", "w"}, pT([&](double p, double T) { return w.W1PT(p, T); })},
        {{"T1(p,h)", "T"}, ph([&](double p, double h) { return w.T1PH(p, h); })},
        {{"T1(p,s)", "T"}, ps([&](double p, double s) { return w.T1PS(p, s); })},
        {{"p1(h,s)", "p"}, hs([&](double h, double s) { return w.P1HS(h, s); })},
        {{"saturation pressure", "p"}, one("T", [&](double T) { return w.PST(T); })},
        {{"saturation temperature", "T"}, one("p", [&](double p) { return w.TSP(p); })},
        {{"B23 p(T)", "p"}, one("T", [&](double T) { return w.P23T(T); })},
        {{"B23 T(p)", "T"}, one("p", [&](double p) { return w.T23P(p); })},
        {{"B2bc p(h)", "p"}, one("h", [&](double h) { return w.P2B2CH(h); })},
        {{"B2bc h(p)", "h"}, one("p", [&](double p) { return w.H2B2CP(p); })},
        {{"h2ab(s) boundary", "h"}, one("s", [&](double s) { return w.H2AB(s); })},
        {{"h3a'(s)", "h"}, one("s", [&](double s) { return w.ROUGHHSWS(s); })},
        {{"h2ab''(s)", "h"}, one("s", [&](double s) { return w.ROUGHHSSS(s); })},
        {{"hB13(s)", "h"}, one("s", [&](double s) { return w.HB13S(s); })},
        {{"TB23(h,s)", "T"}, hs([&](double h, double s) { return w.TB23HS(h, s); })},
        {{"saturated liquid density", "rho"}, one("T", [&](double T) { return w.ROUGHRSWT(T); })},
        {{"saturated vapour density", "rho"}, one("T", [&](double T) { return w.ROUGHRSST(T); })},
    };
    EXPECT_GE(tvltest::expectCheckValues(table), 60);
}

}  // namespace
