// The releases' verification values of regions 2 and 5: the forward equations, the subregion
// equations in (p,h), (p,s), (h,s), and the same rows through the functions that choose the
// subregion themselves (toleranceMode off, so that they return the equation).
#include <gtest/gtest.h>

#include "support/check_values.h"
#include "support/facade_fixture.h"

namespace {

using tvltest::CheckValue;

class Regions25CheckValues : public tvltest::FacadeTest {
protected:
    static auto pT(tvl::WaterModel& w, double (tvl::WaterModel::*f)(double, double)) {
        return [&w, f](const CheckValue& r) { return (w.*f)(r.inputs.at("p"), r.inputs.at("T")); };
    }
    static auto ph(tvl::WaterModel& w, double (tvl::WaterModel::*f)(double, double)) {
        return [&w, f](const CheckValue& r) { return (w.*f)(r.inputs.at("p"), r.inputs.at("h")); };
    }
    static auto ps(tvl::WaterModel& w, double (tvl::WaterModel::*f)(double, double)) {
        return [&w, f](const CheckValue& r) { return (w.*f)(r.inputs.at("p"), r.inputs.at("s")); };
    }
    static auto hs(tvl::WaterModel& w, double (tvl::WaterModel::*f)(double, double)) {
        return [&w, f](const CheckValue& r) { return (w.*f)(r.inputs.at("h"), r.inputs.at("s")); };
    }
};

using M = tvl::WaterModel;

TEST_F(Regions25CheckValues, ForwardEquations) {
    const tvltest::EvaluatorTable table = {
        {{"region 2", "v"}, pT(water, &M::V2PT)},   {{"region 2", "h"}, pT(water, &M::H2PT)},
        {{"region 2", "u"}, pT(water, &M::U2PT)},   {{"region 2", "s"}, pT(water, &M::S2PT)},
        {{"region 2", "cp"}, pT(water, &M::CP2PT)}, {{"region 2", "w"}, pT(water, &M::W2PT)},
        {{"region 5", "v"}, pT(water, &M::V5PT)},   {{"region 5", "h"}, pT(water, &M::H5PT)},
        {{"region 5", "u"}, pT(water, &M::U5PT)},   {{"region 5", "s"}, pT(water, &M::S5PT)},
        {{"region 5", "cp"}, pT(water, &M::CP5PT)}, {{"region 5", "w"}, pT(water, &M::W5PT)},
    };
    // 18 + 5 region 2 rows, 18 + 4 region 5 rows
    EXPECT_EQ(tvltest::expectCheckValues(table), 45);
}

// The same rows through the combined call, output by output.
TEST_F(Regions25CheckValues, CombinedCalls) {
    tvl::WaterModel& w = water;
    auto field = [&w](tvl::StateProperties (M::*f)(double, double), double tvl::StateProperties::*member) {
        return [&w, f, member](const CheckValue& r) { return (w.*f)(r.inputs.at("p"), r.inputs.at("T")).*member; };
    };
    using S = tvl::StateProperties;
    tvltest::EvaluatorTable table;
    for (auto [name, f] : {std::pair{"region 2", &M::VUSHCVWDERPT2PT}, std::pair{"region 5", &M::VUSHCVWDERPT5PT}}) {
        table[{name, "v"}] = field(f, &S::v);
        table[{name, "h"}] = field(f, &S::h);
        table[{name, "u"}] = field(f, &S::u);
        table[{name, "s"}] = field(f, &S::s);
        table[{name, "cp"}] = field(f, &S::dhdT);
        table[{name, "w"}] = field(f, &S::w);
    }
    EXPECT_EQ(tvltest::expectCheckValues(table), 45);
}

TEST_F(Regions25CheckValues, SubregionEquations) {
    const tvltest::EvaluatorTable table = {
        {{"T2a(p,h)", "T"}, ph(water, &M::T2APH)}, {{"T2b(p,h)", "T"}, ph(water, &M::T2BPH)},
        {{"T2c(p,h)", "T"}, ph(water, &M::T2CPH)}, {{"T2a(p,s)", "T"}, ps(water, &M::T2APS)},
        {{"T2b(p,s)", "T"}, ps(water, &M::T2BPS)}, {{"T2c(p,s)", "T"}, ps(water, &M::T2CPS)},
        {{"p2a(h,s)", "p"}, hs(water, &M::P2AHS)}, {{"p2b(h,s)", "p"}, hs(water, &M::P2BHS)},
        {{"p2c(h,s)", "p"}, hs(water, &M::P2CHS)},
    };
    EXPECT_EQ(tvltest::expectCheckValues(table), 27);
}

// Every row lies inside its own subregion, so the choosing functions must land on the same
// equation; the frame is in the way too, and reports nothing.
TEST_F(Regions25CheckValues, ChosenSubregionEquations) {
    lib.SETTOLERANCEMODE(0);
    tvl::PropertyFacade& f = lib;
    auto through = [&f](double (tvl::PropertyFacade::*g)(double, double) noexcept, const char* a, const char* b) {
        return [&f, g, a, b](const CheckValue& r) {
            const double value = (f.*g)(r.inputs.at(a), r.inputs.at(b));
            EXPECT_EQ(f.lastError, 0);
            return value;
        };
    };
    using F = tvl::PropertyFacade;
    tvltest::EvaluatorTable table;
    for (const char* name : {"T2a(p,h)", "T2b(p,h)", "T2c(p,h)"}) table[{name, "T"}] = through(&F::T2PH, "p", "h");
    for (const char* name : {"T2a(p,s)", "T2b(p,s)", "T2c(p,s)"}) table[{name, "T"}] = through(&F::T2PS, "p", "s");
    for (const char* name : {"p2a(h,s)", "p2b(h,s)", "p2c(h,s)"}) table[{name, "p"}] = through(&F::P2HS, "h", "s");
    EXPECT_EQ(tvltest::expectCheckValues(table), 27);
}

}  // namespace
