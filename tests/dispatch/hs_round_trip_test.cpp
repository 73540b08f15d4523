// Round trips through (h,s): a state given by (p,T) comes back from its enthalpy and entropy, in
// the region that the (p,T) selection names, and its properties are those of (p,T) at the state
// found; a wet state gives its temperature and dryness fraction back. With toleranceMode off the
// dispatch returns the releases' backward equations, as their check values show.
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <vector>

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

class HSRoundTrip : public tvltest::FacadeTest {};

// The two-variable searches stop on the residuals of h and s, at tolerance (2e-12) times the
// targets. T is then as sharp as that, but in compressed liquid p is not: there h and s barely
// move with p, and the residual left in them stands for a relative 1e-10 to 1e-9 in p at low
// pressures, where the state lies close to the saturation line.
TEST_F(HSRoundTrip, PressureAndTemperatureComeBackInTheRegionOfThePTSelection) {
    std::map<int, int> statesOfRegion;
    std::map<int, double> worstPressure;
    std::map<int, double> worstTemperature;
    for (const GridState& s : tvltest::onePhaseGrid(lib)) {
        const double h = lib.HPT(s.p, s.T);
        const double entropy = lib.SPT(s.p, s.T);
        ASSERT_EQ(lastError(), 0) << s;
        EXPECT_EQ(lib.WATERSTATEAREAHS(h, entropy), s.region) << s;
        const double p = lib.PHS(h, entropy);
        EXPECT_EQ(lastError(), 0) << s;
        const double T = lib.THS(h, entropy);
        EXPECT_EQ(lastError(), 0) << s;
        double pBoth = 0.0;
        double TBoth = 0.0;
        EXPECT_EQ(lib.PTHS(h, entropy, &pBoth, &TBoth), 1.0) << s;
        EXPECT_EQ(lastError(), 0) << s;
        EXPECT_TRUE(nearRelative(p, s.p, 1e-9)) << "PHS at " << s;
        EXPECT_TRUE(nearRelative(T, s.T, 1e-13)) << "THS at " << s;
        EXPECT_TRUE(nearRelative(pBoth, s.p, 1e-9)) << "PTHS at " << s;
        EXPECT_TRUE(nearRelative(TBoth, s.T, 1e-13)) << "PTHS at " << s;
        ++statesOfRegion[s.region];
        worstPressure[s.region] = std::fmax(worstPressure[s.region], std::fabs(p - s.p) / s.p);
        worstTemperature[s.region] = std::fmax(worstTemperature[s.region], std::fabs(T - s.T) / s.T);
    }
    for (int region : {1, 2, 3, 5}) {
        EXPECT_GT(statesOfRegion[region], 500) << "region " << region;
        std::printf("(h,s) region %d: %d states, worst relative pressure %.2g, temperature %.2g\n", region,
                    statesOfRegion[region], worstPressure[region], worstTemperature[region]);
    }
}

using ModelFunction = double (tvl::WaterModel::*)(double, double);

struct PropertyPair {
    const char* name;
    PairFunction byHS;
    ModelFunction byPT;  // the model's: a temperature found a rounding unit over a limit is no fault
    double region3Tolerance;
};

// At the state found the (h,s) properties are the region's equations at (p,T) of that state: the
// same calls in regions 1, 2 and 5. In region 3 the density is that of the (h,s) search and not
// that of the (p,T) one; both stop at a relative 2e-12, and the properties that hold derivatives
// amplify that near the critical point.
TEST_F(HSRoundTrip, PropertiesAreThoseOfPTAtTheStateFound) {
    using F = PropertyFacade;
    using M = tvl::WaterModel;
    tvl::WaterModel& w = water;
    const PropertyPair properties[] = {
        {"V", &F::VHS, &M::VPT, 1e-11},    {"U", &F::UHS, &M::UPT, 1e-12},   {"CP", &F::CPHS, &M::CPPT, 5e-10},
        {"CV", &F::CVHS, &M::CVPT, 5e-11}, {"W", &F::WHS, &M::WPT, 5e-11},   {"K", &F::KHS, &M::KPT, 5e-11},
        {"JOULETHOMPSON", &F::JOULETHOMPSONHS, &M::JOULETHOMPSONPT, 5e-10},
    };
    for (const GridState& s : tvltest::onePhaseGrid(lib, 40)) {
        const double h = lib.HPT(s.p, s.T);
        const double entropy = lib.SPT(s.p, s.T);
        double p = 0.0;
        double T = 0.0;
        lib.PTHS(h, entropy, &p, &T);
        for (const PropertyPair& a : properties) {
            const double value = call(lib, a.byHS, h, entropy);
            EXPECT_EQ(lastError(), 0) << a.name << "HS at " << s;
            const double tolerance = s.region == 3 ? a.region3Tolerance : 0.0;
            EXPECT_TRUE(nearRelative(value, (w.*a.byPT)(p, T), tolerance)) << a.name << "HS at " << s;
        }
    }
}

// The transport properties where their ranges hold, at the density of the state found.
TEST_F(HSRoundTrip, TransportPropertiesOfTheStateFound) {
    tvl::WaterModel& w = water;
    for (const GridState& s : tvltest::onePhaseGrid(lib, 30)) {
        if (s.T > 1073.15 || (s.p > 4e7 && s.T > 923.15) || (s.p > 7e7 && s.T > 773.15)) continue;
        const double tolerance = s.region == 3 ? 1e-11 : 0.0;
        const double prandtlTolerance = s.region == 3 ? 5e-10 : 0.0;  // holds cp
        const double h = lib.HPT(s.p, s.T);
        const double entropy = lib.SPT(s.p, s.T);
        double p = 0.0;
        double T = 0.0;
        lib.PTHS(h, entropy, &p, &T);
        EXPECT_TRUE(nearRelative(lib.THERMCONDHS(h, entropy), w.THERMCONDPT(p, T), tolerance)) << s;
        EXPECT_TRUE(nearRelative(lib.DYNVISHS(h, entropy), w.DYNVISPT(p, T), tolerance)) << s;
        EXPECT_TRUE(nearRelative(lib.KINVISHS(h, entropy), w.KINVISPT(p, T), tolerance)) << s;
        EXPECT_TRUE(nearRelative(lib.PRANDTLEHS(h, entropy), w.PRANDTLEPT(p, T), prandtlTolerance)) << s;
        EXPECT_EQ(lastError(), 0) << s;
    }
}

struct WetState {
    double T;
    double x;
};

std::ostream& operator<<(std::ostream& out, const WetState& s) { return out << "T=" << s.T << " x=" << s.x; }

// Wet states on both sides of the critical entropy, every 2.5 K from 275 K to 645 K.
//
// The bisection clamps the dryness fraction of a midpoint into 0 to 1. Above about 485 K the
// enthalpy of saturated steam falls with the temperature, so a midpoint hotter than the state,
// where a fraction near 1 is clamped to 1, can look too cold and the search moves away from the
// root. The states keep clear of that: x up to 0.99 below 620 K, where the equation's bracket
// of one kelvin holds the search, and up to 0.75 above 623.15 K, where the search runs along
// the whole line.
std::vector<WetState> wetStates() {
    std::vector<WetState> states;
    for (double T = 275.0; T <= 645.0; T += 2.5)
        for (double x : {1e-4, 0.01, 0.1, 0.25, 0.5, 0.75, 0.9, 0.99}) {
            if (T > 620.0 && x > 0.75) continue;
            states.push_back({T, x});
        }
    return states;
}

// The bisection stops when the mixture's enthalpy at the midpoint meets h to tolerance times h.
// Along an isentrope in the wet area dh = v dp, so T follows to a few 1e-12 relative where
// steam dominates the volume, and to some 1e-10 at x near 0, where h barely moves with T; x
// then carries the error of T over s'' - s', which shrinks towards the critical point.
TEST_F(HSRoundTrip, WetStatesGiveTheirTemperatureAndDrynessBack) {
    double worstTemperature = 0.0;
    double worstDryness = 0.0;
    for (const WetState& s : wetStates()) {
        const double h = lib.HSTX(s.T, s.x);
        const double entropy = lib.SSTX(s.T, s.x);
        double T = 0.0;
        double x = 0.0;
        EXPECT_EQ(lib.TXSHS(h, entropy, &T, &x), 1.0) << s;
        EXPECT_EQ(lastError(), 0) << s;
        EXPECT_TRUE(nearRelative(T, s.T, 1e-9)) << s;
        EXPECT_NEAR(x, s.x, 1e-9) << s;
        EXPECT_EQ(lib.TSHS(h, entropy), T) << s;
        worstTemperature = std::fmax(worstTemperature, std::fabs(T - s.T) / s.T);
        worstDryness = std::fmax(worstDryness, std::fabs(x - s.x));
    }
    std::printf("(h,s) wet: worst relative temperature %.2g, dryness fraction %.2g\n", worstTemperature,
                worstDryness);
}

// The bisection takes s and h of each saturated phase from one location and one pass over the
// terms: the same numbers as the saturation family's, bit for bit, along the whole line.
TEST_F(HSRoundTrip, SaturatedEntropyAndEnthalpyTogether) {
    tvl::WaterModel& w = water;
    std::vector<double> temperatures = {273.15, 623.15, std::nextafter(623.15, 700.0), 647.09};
    for (double T = 273.15; T < 647.096; T += 0.37) temperatures.push_back(T);
    for (double T : temperatures) {
        const tvl::EntropyEnthalpy water = w.waterEntropyEnthalpy(T);
        const tvl::EntropyEnthalpy steam = w.steamEntropyEnthalpy(T);
        ASSERT_EQ(water.s, w.SSWT(T)) << T;
        ASSERT_EQ(water.h, w.HSWT(T)) << T;
        ASSERT_EQ(steam.s, w.SSST(T)) << T;
        ASSERT_EQ(steam.h, w.HSST(T)) << T;
    }
    // Off the line as well, over each region's own range.
    for (double p = 1e3; p <= 1e8; p *= 1.7)
        for (double T = 273.15; T <= 1073.15; T += 13.0) {
            ASSERT_EQ(w.entropyEnthalpy1PT(p, T).s, w.S1PT(p, T)) << p << " " << T;
            ASSERT_EQ(w.entropyEnthalpy1PT(p, T).h, w.H1PT(p, T)) << p << " " << T;
            ASSERT_EQ(w.entropyEnthalpy2PT(p, T).s, w.S2PT(p, T)) << p << " " << T;
            ASSERT_EQ(w.entropyEnthalpy2PT(p, T).h, w.H2PT(p, T)) << p << " " << T;
        }
    for (double rho = 100.0; rho <= 750.0; rho += 7.0)
        for (double T = 623.15; T <= 863.15; T += 3.0) {
            ASSERT_EQ(w.entropyEnthalpy3RT(rho, T).s, w.S3RT(rho, T)) << rho << " " << T;
            ASSERT_EQ(w.entropyEnthalpy3RT(rho, T).h, w.H3RT(rho, T)) << rho << " " << T;
        }
}

// Right of the critical entropy a wet state is area 4: its pressure is the saturation pressure
// of the temperature found, and its properties are the mixture rules at that T and x.
TEST_F(HSRoundTrip, WetStatesRightOfTheCriticalEntropy) {
    int wet = 0;
    for (const WetState& s : wetStates()) {
        const double h = lib.HSTX(s.T, s.x);
        const double entropy = lib.SSTX(s.T, s.x);
        if (entropy <= tvl::kCriticalEntropy) continue;
        ++wet;
        ASSERT_EQ(lib.WATERSTATEAREAHS(h, entropy), 4) << s;
        double T = 0.0;
        double x = 0.0;
        lib.TXSHS(h, entropy, &T, &x);
        EXPECT_EQ(lib.THS(h, entropy), T) << s;
        EXPECT_EQ(lib.PHS(h, entropy), lib.PST(T)) << s;
        EXPECT_TRUE(nearRelative(lib.PHS(h, entropy), lib.PST(s.T), 1e-9)) << s;
        double pBoth = 0.0;
        double TBoth = 0.0;
        lib.PTHS(h, entropy, &pBoth, &TBoth);
        EXPECT_EQ(TBoth, T) << s;
        EXPECT_EQ(pBoth, lib.PST(T)) << s;
        EXPECT_EQ(lib.XHS(h, entropy), x) << s;
        EXPECT_EQ(lib.VHS(h, entropy), lib.VSTX(T, x)) << s;
        EXPECT_EQ(lib.UHS(h, entropy), lib.USTX(T, x)) << s;
        EXPECT_EQ(lib.CVHS(h, entropy), lib.CVSTX(T, x)) << s;
        EXPECT_EQ(lib.WHS(h, entropy), lib.WSTX(T, x)) << s;
        EXPECT_EQ(lib.KHS(h, entropy), lib.KSTX(T, x)) << s;
        EXPECT_EQ(lib.JOULETHOMPSONHS(h, entropy), 1.0 / lib.DPDTST(T)) << s;
        EXPECT_EQ(lastError(), 0) << s;
    }
    EXPECT_GT(wet, 400);
}

// Left of it the selection answers region 1 and XHS refuses, with or without checks, though
// TXSHS finds the state.
TEST_F(HSRoundTrip, WetStatesLeftOfTheCriticalEntropyAreRegion1) {
    int left = 0;
    for (int checks : {1, 0}) {
        lib.SETCHECKRANGEMODE(checks);
        for (const WetState& s : wetStates()) {
            const double h = lib.HSTX(s.T, s.x);
            const double entropy = lib.SSTX(s.T, s.x);
            if (entropy > tvl::kCriticalEntropy) continue;
            ++left;
            EXPECT_EQ(lib.WATERSTATEAREAHS(h, entropy), 1) << s;
            EXPECT_EQ(lib.XHS(h, entropy), -1.0) << s;
            EXPECT_EQ(lastError(), 2) << s;
            double T = 0.0;
            double x = 0.0;
            lib.TXSHS(h, entropy, &T, &x);
            EXPECT_EQ(lastError(), 0) << s;
        }
    }
    EXPECT_GT(left, 500);
}

// With toleranceMode off the pressure by (h,s) is the backward equation of the region that the
// selection finds, and the saturation temperature right of 5210.89 J/(kg K) is Tsat(h,s).
// Region 1 publishes no temperature then, so checks are off.
TEST_F(HSRoundTrip, ReleaseCheckValuesThroughTheDispatch) {
    lib.SETTOLERANCEMODE(0);
    lib.SETCHECKRANGEMODE(0);
    PropertyFacade& facade = lib;
    auto hs = [&facade](PairFunction f) {
        return [&facade, f](const tvltest::CheckValue& r) { return call(facade, f, r.inputs.at("h"), r.inputs.at("s")); };
    };
    tvltest::EvaluatorTable table;
    for (const char* name : {"p1(h,s)", "p2a(h,s)", "p2b(h,s)", "p2c(h,s)", "p3a(h,s)", "p3b(h,s)"})
        table[{name, "p"}] = hs(&PropertyFacade::PHS);
    table[{"Tsat(h,s)", "T"}] = hs(&PropertyFacade::TSHS);
    EXPECT_GE(tvltest::expectCheckValues(table), 25);
}

}  // namespace
