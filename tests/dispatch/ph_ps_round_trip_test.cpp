// Round trips through (p,h) and (p,s): a state given by (p,T) comes back from its enthalpy or
// entropy to the tolerance of the temperature searches, in the region that the (p,T) selection
// names; its properties are those of (p,T) at the temperature found; a wet state gives its
// dryness fraction back. With toleranceMode off the dispatch returns the releases' backward
// equations, as their check values show.
#include <gtest/gtest.h>

#include <cmath>
#include <map>

#include "dispatch/ph_ps_states.h"
#include "support/check_values.h"
#include "support/facade_fixture.h"

namespace {

using tvl::PropertyFacade;
using tvltest::GridState;
using tvltest::nearRelative;

// Member calls through a plain reference: GCC 12's vptr check misreads lib.* on the fixture.
template <class Member, class... Args>
auto call(PropertyFacade& facade, Member member, Args... args) {
    return (facade.*member)(args...);
}

using PairFunction = double (PropertyFacade::*)(double, double) noexcept;
using AreaFunction = std::int32_t (PropertyFacade::*)(double, double) noexcept;

// What tells the two families apart in these tests.
struct Family {
    const char* name;
    PairFunction forward;      // the second variable by (p,T): HPT or SPT
    PairFunction temperature;  // TPH or TPS
    AreaFunction area;
    PairFunction dryness;      // XPH or XPS
    PairFunction wetValue;     // HSTX or SSTX
};

const Family kFamilies[] = {
    {"(p,h)", &PropertyFacade::HPT, &PropertyFacade::TPH, &PropertyFacade::WATERSTATEAREAPH, &PropertyFacade::XPH,
     &PropertyFacade::HSTX},
    {"(p,s)", &PropertyFacade::SPT, &PropertyFacade::TPS, &PropertyFacade::WATERSTATEAREAPS, &PropertyFacade::XPS,
     &PropertyFacade::SSTX},
};

class PHPSRoundTrip : public tvltest::FacadeTest {};

// The searches stop when a step falls under tolerance (2e-12) times the start temperature. They
// converge quadratically in regions 1, 2 and 5, where what is left is the rounding of the last
// steps, and linearly, by a chord, in region 3, where the error left after the last step is of
// the order of that step: 2.5 tolerances there.
TEST_F(PHPSRoundTrip, TemperatureComesBackInTheRegionOfThePTSelection) {
    const auto grid = tvltest::onePhaseGrid(lib);
    for (const Family& f : kFamilies) {
        std::map<int, int> statesOfRegion;
        std::map<int, double> worst;
        for (const GridState& s : grid) {
            const double y = call(lib, f.forward, s.p, s.T);
            ASSERT_EQ(lastError(), 0) << f.name << " " << s;
            EXPECT_EQ(call(lib, f.area, s.p, y), s.region) << f.name << " " << s;
            const double T = call(lib, f.temperature, s.p, y);
            EXPECT_EQ(lastError(), 0) << f.name << " " << s;
            EXPECT_TRUE(nearRelative(T, s.T, s.region == 3 ? 5e-12 : 2e-14)) << f.name << " " << s;
            ++statesOfRegion[s.region];
            worst[s.region] = std::fmax(worst[s.region], std::fabs(T - s.T) / s.T);
        }
        for (int region : {1, 2, 3, 5}) {
            EXPECT_GT(statesOfRegion[region], 500) << f.name << " region " << region;
            std::printf("%s region %d: %d states, worst relative temperature %.2g\n", f.name, region,
                        statesOfRegion[region], worst[region]);
        }
    }
}

struct PropertyPair {
    const char* name;
    PairFunction byPH;
    PairFunction byPS;
    PairFunction byPT;
    double tolerance;
};

// At the temperature found the (p,h) and (p,s) properties are the region's equations at (p,T):
// equal in regions 1, 2 and 5, where they are the same calls. In region 3 the density comes
// from the (p,h) or (p,s) refinement and not from the (p,T) one; both stop at a relative
// 2e-12 in density, and cp, cv, w and the Joule-Thomson coefficient, which hold derivatives,
// amplify that near the critical point, to some 1e-11 on this grid. By (p,s), cp, cv and w take
// the (p,T) density in region 3 and are equal.
TEST_F(PHPSRoundTrip, PropertiesAreThoseOfPTAtTheTemperatureFound) {
    using F = PropertyFacade;
    const PropertyPair properties[] = {
        {"V", &F::VPH, &F::VPS, &F::VPT, 1e-12},       {"U", &F::UPH, &F::UPS, &F::UPT, 1e-12},
        {"S", &F::SPH, nullptr, &F::SPT, 1e-12},       {"H", nullptr, &F::HPS, &F::HPT, 1e-12},
        {"CP", &F::CPPH, &F::CPPS, &F::CPPT, 5e-11},   {"CV", &F::CVPH, &F::CVPS, &F::CVPT, 5e-11},
        {"W", &F::WPH, &F::WPS, &F::WPT, 5e-11},       {"K", &F::KPH, &F::KPS, &F::KPT, 5e-11},
        {"JOULETHOMPSON", &F::JOULETHOMPSONPH, &F::JOULETHOMPSONPS, &F::JOULETHOMPSONPT, 5e-11},
    };
    for (const GridState& s : tvltest::onePhaseGrid(lib, 40)) {
        const double h = lib.HPT(s.p, s.T);
        const double entropy = lib.SPT(s.p, s.T);
        const double Th = lib.TPH(s.p, h);
        const double Ts = lib.TPS(s.p, entropy);
        for (const PropertyPair& a : properties) {
            const double tolerance = s.region == 3 ? a.tolerance : 0.0;
            if (a.byPH != nullptr) {
                const double value = call(lib, a.byPH, s.p, h);
                EXPECT_EQ(lastError(), 0) << a.name << "PH at " << s;
                EXPECT_TRUE(nearRelative(value, call(lib, a.byPT, s.p, Th), tolerance)) << a.name << "PH at " << s;
            }
            if (a.byPS != nullptr) {
                const double value = call(lib, a.byPS, s.p, entropy);
                EXPECT_EQ(lastError(), 0) << a.name << "PS at " << s;
                EXPECT_TRUE(nearRelative(value, call(lib, a.byPT, s.p, Ts), tolerance)) << a.name << "PS at " << s;
            }
        }
    }
}

// The transport properties where their ranges hold, at the density of the state found. The
// (p,T) side is the model's: a temperature found a rounding unit over a limit passes the wider
// test after a search and not the test of a (p,T) argument.
TEST_F(PHPSRoundTrip, TransportAndDerivedPropertiesOfTheStateFound) {
    tvl::WaterModel& w = water;
    for (const GridState& s : tvltest::onePhaseGrid(lib, 30)) {
        if (s.T > 1073.15 || (s.p > 4e7 && s.T > 923.15) || (s.p > 7e7 && s.T > 773.15)) continue;
        const double tolerance = s.region == 3 ? 1e-12 : 0.0;
        const double prandtlTolerance = s.region == 3 ? 5e-11 : 0.0;  // holds cp
        const double h = lib.HPT(s.p, s.T);
        const double T = lib.TPH(s.p, h);
        EXPECT_TRUE(nearRelative(lib.THERMCONDPH(s.p, h), w.THERMCONDPT(s.p, T), tolerance)) << s;
        EXPECT_TRUE(nearRelative(lib.DYNVISPH(s.p, h), w.DYNVISPT(s.p, T), tolerance)) << s;
        EXPECT_TRUE(nearRelative(lib.KINVISPH(s.p, h), w.KINVISPT(s.p, T), tolerance)) << s;
        EXPECT_TRUE(nearRelative(lib.PRANDTLEPH(s.p, h), w.PRANDTLEPT(s.p, T), prandtlTolerance)) << s;
        const double entropy = lib.SPT(s.p, s.T);
        const double Tps = lib.TPS(s.p, entropy);
        EXPECT_TRUE(nearRelative(lib.THERMCONDPS(s.p, entropy), w.THERMCONDPT(s.p, Tps), tolerance)) << s;
        EXPECT_TRUE(nearRelative(lib.DYNVISPS(s.p, entropy), w.DYNVISPT(s.p, Tps), tolerance)) << s;
        EXPECT_TRUE(nearRelative(lib.KINVISPS(s.p, entropy), w.KINVISPT(s.p, Tps), tolerance)) << s;
        EXPECT_TRUE(nearRelative(lib.PRANDTLEPS(s.p, entropy), w.PRANDTLEPT(s.p, Tps), prandtlTolerance)) << s;
        EXPECT_EQ(lastError(), 0) << s;
    }
}

// x = (y - y') / (y'' - y') undoes the mixing of HSTX and SSTX to a few rounding units of y
// against y'' - y', which shrinks towards the critical point: a unit of 2e6 J/kg against the
// 2.8e3 J/kg left at a relative 1e-6 under the critical pressure is 2e-13.
TEST_F(PHPSRoundTrip, WetStatesGiveTheirDrynessBack) {
    for (const Family& f : kFamilies) {
        double worst = 0.0;
        for (const tvltest::WetState& s : tvltest::wetStates(lib)) {
            const double y = call(lib, f.wetValue, s.Ts, s.x);
            EXPECT_EQ(call(lib, f.area, s.p, y), 4) << f.name << " " << s;
            EXPECT_EQ(lib.solved.temperatureSolved, 1) << "the selection publishes Ts, " << f.name << " " << s;
            EXPECT_EQ(lib.solved.solvedTemperature, s.Ts) << f.name << " " << s;
            EXPECT_EQ(call(lib, f.temperature, s.p, y), s.Ts) << f.name << " " << s;
            const double x = call(lib, f.dryness, s.p, y);
            EXPECT_EQ(lastError(), 0) << f.name << " " << s;
            EXPECT_NEAR(x, s.x, 1e-12) << f.name << " " << s;
            worst = std::fmax(worst, std::fabs(x - s.x));
        }
        std::printf("%s: worst dryness fraction back %.2g\n", f.name, worst);
    }
}

// A hair off the saturation lines, where the selection tests the saturated states' own
// equations, a wet state is still wet.
TEST_F(PHPSRoundTrip, WetStatesAtTheEndsOfTheDome) {
    for (const Family& f : kFamilies)
        for (const tvltest::WetState& s : tvltest::wetStatesAtTheEnds(lib)) {
            const double y = call(lib, f.wetValue, s.Ts, s.x);
            EXPECT_EQ(call(lib, f.area, s.p, y), 4) << f.name << " " << s;
            // A rounding unit of y against y'' - y'.
            EXPECT_NEAR(call(lib, f.dryness, s.p, y), s.x, 1e-14) << f.name << " " << s;
        }
}

// In the wet area every property is the (T,x) rule at the saturation temperature and the x of
// the state, the Joule-Thomson coefficient the inverse slope of the line.
TEST_F(PHPSRoundTrip, WetPropertiesAreTheMixtureRules) {
    for (const tvltest::WetState& s : tvltest::wetStates(lib)) {
        const double h = lib.HSTX(s.Ts, s.x);
        const double entropy = lib.SSTX(s.Ts, s.x);
        const double xh = lib.XPH(s.p, h);
        const double xs = lib.XPS(s.p, entropy);
        EXPECT_EQ(lib.VPH(s.p, h), lib.VSTX(s.Ts, xh)) << s;
        EXPECT_EQ(lib.UPH(s.p, h), lib.USTX(s.Ts, xh)) << s;
        EXPECT_EQ(lib.SPH(s.p, h), lib.SSTX(s.Ts, xh)) << s;
        EXPECT_EQ(lib.CVPH(s.p, h), lib.CVSTX(s.Ts, xh)) << s;
        EXPECT_EQ(lib.WPH(s.p, h), lib.WSTX(s.Ts, xh)) << s;
        EXPECT_EQ(lib.KPH(s.p, h), lib.KSTX(s.Ts, xh)) << s;
        EXPECT_EQ(lib.JOULETHOMPSONPH(s.p, h), 1.0 / lib.DPDTST(s.Ts)) << s;
        EXPECT_EQ(lib.VPS(s.p, entropy), lib.VSTX(s.Ts, xs)) << s;
        EXPECT_EQ(lib.UPS(s.p, entropy), lib.USTX(s.Ts, xs)) << s;
        EXPECT_EQ(lib.HPS(s.p, entropy), lib.HSTX(s.Ts, xs)) << s;
        EXPECT_EQ(lib.CVPS(s.p, entropy), lib.CVSTX(s.Ts, xs)) << s;
        EXPECT_EQ(lib.WPS(s.p, entropy), lib.WSTX(s.Ts, xs)) << s;
        EXPECT_EQ(lib.KPS(s.p, entropy), lib.KSTX(s.Ts, xs)) << s;
        EXPECT_EQ(lib.JOULETHOMPSONPS(s.p, entropy), 1.0 / lib.DPDTST(s.Ts)) << s;
        EXPECT_EQ(lastError(), 0) << s;
    }
}

// With toleranceMode off the dispatch answers with the backward equation of the subregion that
// it selects, so the releases' check values come out of TPH, TPS, VPH and VPS.
TEST_F(PHPSRoundTrip, ToleranceModeOffGivesTheReleasesBackwardValues) {
    using tvltest::CheckValue;
    lib.SETTOLERANCEMODE(0);
    auto ph = [this](PairFunction f) { return [this, f](const CheckValue& r) { return call(lib, f, r.inputs.at("p"), r.inputs.at("h")); }; };
    auto ps = [this](PairFunction f) { return [this, f](const CheckValue& r) { return call(lib, f, r.inputs.at("p"), r.inputs.at("s")); }; };
    using F = PropertyFacade;
    const tvltest::EvaluatorTable table = {
        {{"T1(p,h)", "T"}, ph(&F::TPH)},  {{"T2a(p,h)", "T"}, ph(&F::TPH)}, {{"T2b(p,h)", "T"}, ph(&F::TPH)},
        {{"T2c(p,h)", "T"}, ph(&F::TPH)}, {{"T3a(p,h)", "T"}, ph(&F::TPH)}, {{"T3b(p,h)", "T"}, ph(&F::TPH)},
        {{"v3a(p,h)", "v"}, ph(&F::VPH)}, {{"v3b(p,h)", "v"}, ph(&F::VPH)}, {{"T1(p,s)", "T"}, ps(&F::TPS)},
        {{"T2a(p,s)", "T"}, ps(&F::TPS)}, {{"T2b(p,s)", "T"}, ps(&F::TPS)}, {{"T2c(p,s)", "T"}, ps(&F::TPS)},
        {{"T3a(p,s)", "T"}, ps(&F::TPS)}, {{"T3b(p,s)", "T"}, ps(&F::TPS)}, {{"v3a(p,s)", "v"}, ps(&F::VPS)},
        {{"v3b(p,s)", "v"}, ps(&F::VPS)},
    };
    EXPECT_GE(tvltest::expectCheckValues(table), 50);
    EXPECT_EQ(lastError(), 0);
}

TEST_F(PHPSRoundTrip, RefinedRegion3TemperatureOfTheRelease) {
    // 629.3083892 K from the backward equation; the root of the basic equation lies 3 mK lower.
    EXPECT_NEAR(lib.TPH(20e6, 1700000.0), 629.3054382, 5e-8);
    EXPECT_NEAR(lib.T3PH(20e6, 1700000.0), 629.3054382, 5e-8);
    lib.SETTOLERANCEMODE(0);
    EXPECT_NEAR(lib.TPH(20e6, 1700000.0), 629.3083892, 5e-8);
}

}  // namespace
