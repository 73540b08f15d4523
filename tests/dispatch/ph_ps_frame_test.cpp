// The frame of the (p,h) and (p,s) families: the argument ranges (ValidatePS among them), the
// tests on the state that the evaluation reached, the wet area's refusals and rules, what the
// settings change, and bad input.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "frame/solved_state_checks.h"
#include "support/facade_fixture.h"

namespace {

using tvl::kOnePlusEps;
using tvl::PropertyFacade;
using tvltest::nearRelative;

using tvltest::call;
using tvltest::down;
using tvltest::NamedExport;
using tvltest::PairFunction;
using tvltest::up;

const NamedExport kPressureEnthalpy[] = {
    {"TPH", &PropertyFacade::TPH},
    {"VPH", &PropertyFacade::VPH},
    {"UPH", &PropertyFacade::UPH},
    {"SPH", &PropertyFacade::SPH},
    {"CPPH", &PropertyFacade::CPPH},
    {"CVPH", &PropertyFacade::CVPH},
    {"WPH", &PropertyFacade::WPH},
    {"JOULETHOMPSONPH", &PropertyFacade::JOULETHOMPSONPH},
    {"THERMCONDPH", &PropertyFacade::THERMCONDPH},
    {"DYNVISPH", &PropertyFacade::DYNVISPH},
    {"KINVISPH", &PropertyFacade::KINVISPH},
    {"PRANDTLEPH", &PropertyFacade::PRANDTLEPH},
    {"KPH", &PropertyFacade::KPH},
    {"XPH", &PropertyFacade::XPH},
};

const NamedExport kPressureEntropy[] = {
    {"TPS", &PropertyFacade::TPS},
    {"VPS", &PropertyFacade::VPS},
    {"UPS", &PropertyFacade::UPS},
    {"HPS", &PropertyFacade::HPS},
    {"CPPS", &PropertyFacade::CPPS},
    {"CVPS", &PropertyFacade::CVPS},
    {"WPS", &PropertyFacade::WPS},
    {"JOULETHOMPSONPS", &PropertyFacade::JOULETHOMPSONPS},
    {"THERMCONDPS", &PropertyFacade::THERMCONDPS},
    {"DYNVISPS", &PropertyFacade::DYNVISPS},
    {"KINVISPS", &PropertyFacade::KINVISPS},
    {"PRANDTLEPS", &PropertyFacade::PRANDTLEPS},
    {"KPS", &PropertyFacade::KPS},
    {"XPS", &PropertyFacade::XPS},
};

class PHPSFrame : public tvltest::FacadeTest {
protected:
    int codeOf(PairFunction f, double p, double y) {
        call(lib, f, p, y);
        return lastError();
    }
};

struct RangeCase {
    const char* what;
    double p;
    double y;
    int code;
};

// p from 0 to 100 MPa and h from -50 to 7.4e6 J/kg, each limit widened by a rounding unit:
// -50 itself passes. The liquid at -50 J/kg lies under 273.15 K, where T1PH's clamp puts it.
TEST_F(PHPSFrame, PressureEnthalpyArguments) {
    const RangeCase cases[] = {
        {"h = -50 at 1 bar", 1e5, -50.0, 0},
        {"the widened lower limit", 1e5, -50.0 * kOnePlusEps, 0},
        {"a unit under it", 1e5, down(-50.0 * kOnePlusEps), 2},
        {"p = 100 MPa", 1e8, 1e6, 0},
        {"a unit over the widened 100 MPa", up(1e8 * kOnePlusEps), 1e6, 2},
        {"p = 0", 0.0, 3e6, 0},
        {"a negative pressure", -1e-300, 3e6, 2},
        {"a unit over the widened 7.4e6 J/kg", 1e5, up(7.4e6 * kOnePlusEps), 2},
    };
    for (const RangeCase& c : cases) EXPECT_EQ(codeOf(&PropertyFacade::TPH, c.p, c.y), c.code) << c.what;
    EXPECT_EQ(lib.TPH(1e5, -50.0), 273.15) << "clamped to the lowest temperature with checks on";
    lib.SETCHECKRANGEMODE(0);
    EXPECT_LT(lib.TPH(1e5, -50.0), 273.15) << "and the root below it without";
}

// ValidatePS: the entropies of the isobar from 273.15 K to the top, region 2 at 1073.15 K above
// 50 MPa and region 5 at 2273.15 K up to it, each widened by the margin 1 + tolerance, which
// works outwards whatever the sign of the limit (the lowest entropy, at 273.15 K, is negative).
TEST_F(PHPSFrame, ValidatePS) {
    const double tol = lib.settings.tolerance;
    auto below = [&](double limit, double tolerances) { return limit - tolerances * tol * std::fabs(limit); };
    auto above = [&](double limit, double tolerances) { return limit + tolerances * tol * std::fabs(limit); };
    const double low1 = water.S1PT(1e5, 273.15);
    const double high1 = water.S5PT(1e5, 2273.15);
    const double low8 = water.S1PT(1e8, 273.15);
    const double high8 = water.S2PT(1e8, 1073.15);
    ASSERT_LT(low8, 0.0);
    const RangeCase cases[] = {
        {"the lowest entropy at 1 bar", 1e5, low1, 0},
        {"half a tolerance under it", 1e5, below(low1, 0.5), 0},
        {"two tolerances under it", 1e5, below(low1, 2), 2},
        {"the highest entropy at 1 bar", 1e5, high1, 0},
        {"half a tolerance over it", 1e5, above(high1, 0.5), 0},
        {"two tolerances over it", 1e5, above(high1, 2), 2},
        {"the lowest entropy at 100 MPa", 1e8, low8, 0},
        {"half a tolerance under it", 1e8, below(low8, 0.5), 0},
        {"two tolerances under it", 1e8, below(low8, 2), 2},
        {"region 2's top at 100 MPa", 1e8, high8, 0},
        {"two tolerances over it", 1e8, above(high8, 2), 2},
        {"50 MPa takes region 5's top", 5e7, water.S5PT(5e7, 2273.15), 0},
        {"a unit over 50 MPa takes region 2's", up(5e7), water.S5PT(5e7, 2273.15), 2},
        {"a negative pressure", -1.0, 5000.0, 2},
        {"a unit over the widened 100 MPa", up(1e8 * kOnePlusEps), 5000.0, 2},
    };
    for (const RangeCase& c : cases) {
        EXPECT_EQ(codeOf(&PropertyFacade::VPS, c.p, c.y), c.code) << c.what;
        if (c.code == 2) {
            EXPECT_EQ(codeOf(&PropertyFacade::KINVISPS, c.p, c.y), 2) << c.what;
        }
    }
    lib.SETCHECKRANGEMODE(0);
    lib.VPS(1e5, below(low1, 2));
    EXPECT_EQ(lastError(), 0) << "no test without checks";
}

// After the model: ValidatePTResult on the temperature found, or for the transport properties
// their ranges widened by 0.1 per cent, on the solved temperature.
TEST_F(PHPSFrame, TestsOnTheStateReached) {
    // 7.4e6 J/kg at 1 kPa is steam over 2275.42 K.
    EXPECT_EQ(codeOf(&PropertyFacade::TPH, 1e3, 7.4e6), 2);
    EXPECT_EQ(codeOf(&PropertyFacade::VPH, 1e3, 7.4e6), 2);
    // A state found at 1074 K passes the conductivity after a search, though not as an argument.
    const double h1074 = lib.HPT(1e5, 1074.0);
    EXPECT_EQ(codeOf(&PropertyFacade::THERMCONDPH, 1e5, h1074), 0);
    EXPECT_EQ(codeOf(&PropertyFacade::THERMCONDPT, 1e5, 1074.0), 2);
    const double h1075 = lib.HPT(1e5, 1075.0);
    EXPECT_EQ(codeOf(&PropertyFacade::THERMCONDPH, 1e5, h1075), 2);
    EXPECT_EQ(codeOf(&PropertyFacade::PRANDTLEPH, 1e5, h1075), 2);
    EXPECT_EQ(codeOf(&PropertyFacade::DYNVISPH, 1e5, h1075), 0);
    EXPECT_EQ(codeOf(&PropertyFacade::KINVISPH, 1e5, h1075), 0);
    const double h1180 = lib.HPT(1e5, 1180.0);
    EXPECT_EQ(codeOf(&PropertyFacade::DYNVISPH, 1e5, h1180), 2);
    EXPECT_EQ(codeOf(&PropertyFacade::VPH, 1e5, h1180), 0);
    // The pressure steps of the conductivity, 0.1 per cent wider.
    const double s780 = lib.SPT(7.005e7, 780.0);
    EXPECT_EQ(codeOf(&PropertyFacade::THERMCONDPS, 7.005e7, s780), 0);
    EXPECT_EQ(codeOf(&PropertyFacade::THERMCONDPT, 7.005e7, 780.0), 2);
    EXPECT_EQ(codeOf(&PropertyFacade::THERMCONDPS, 7.1e7, lib.SPT(7.1e7, 780.0)), 2);
    EXPECT_EQ(codeOf(&PropertyFacade::THERMCONDPS, 4.1e7, lib.SPT(4.1e7, 930.0)), 2);
    EXPECT_EQ(codeOf(&PropertyFacade::THERMCONDPS, 4.003e7, lib.SPT(4.003e7, 924.0)), 0);
    // Without checks nothing is tested after the model either.
    lib.SETCHECKRANGEMODE(0);
    EXPECT_GT(lib.TPH(1e3, 7.4e6), 2275.42315);
    EXPECT_EQ(lastError(), 0);
    EXPECT_EQ(codeOf(&PropertyFacade::THERMCONDPH, 1e5, h1075), 0);
}

// A model that settles on no temperature is refused with code 1 by the frame.
TEST_F(PHPSFrame, NoSolvedTemperatureIsCodeOne) {
    lib.solved.clear();
    try {
        tvl::requireSolvedState(lib, tvl::SolvedRange::kFormulation, 1e5);
        FAIL() << "no code thrown";
    } catch (int code) {
        EXPECT_EQ(code, tvl::kBadParameters);
    }
    lib.solved.PublishTemperature(300.0);
    EXPECT_NO_THROW(tvl::requireSolvedState(lib, tvl::SolvedRange::kConductivity, 1e5));
}

// Only a wet state has a dryness fraction, with checks or without.
TEST_F(PHPSFrame, DrynessFractionOnlyInTheWetArea) {
    for (int checks : {1, 0}) {
        lib.SETCHECKRANGEMODE(checks);
        EXPECT_EQ(lib.XPH(1e5, 3e6), -1.0) << "checks " << checks;
        EXPECT_EQ(lastError(), 2) << "checks " << checks;
        EXPECT_EQ(lib.XPS(1e5, 8000.0), -1.0) << "checks " << checks;
        EXPECT_EQ(lastError(), 2) << "checks " << checks;
        EXPECT_EQ(lib.XPH(1e5, 1e5), -1.0) << "checks " << checks;
        EXPECT_EQ(lastError(), 2) << "checks " << checks;
        const double Ts = lib.TSP(1e5);
        EXPECT_NEAR(lib.XPH(1e5, lib.HSTX(Ts, 0.3)), 0.3, 1e-14);
        EXPECT_EQ(lastError(), 0);
    }
}

// cp and the transport properties have no meaning in the wet area: refused with checks on, the
// plain mixture with them off. The others take the mixture rules with checks on.
TEST_F(PHPSFrame, WetAreaRefusalsAndRules) {
    const double Ts = lib.TSP(1e5);
    const double x = 0.4;
    const double h = lib.HSTX(Ts, x);
    const double s = lib.SSTX(Ts, x);
    const NamedExport refusedPH[] = {{"CPPH", &PropertyFacade::CPPH},         {"THERMCONDPH", &PropertyFacade::THERMCONDPH},
                                     {"DYNVISPH", &PropertyFacade::DYNVISPH}, {"KINVISPH", &PropertyFacade::KINVISPH},
                                     {"PRANDTLEPH", &PropertyFacade::PRANDTLEPH}};
    const NamedExport refusedPS[] = {{"CPPS", &PropertyFacade::CPPS},         {"THERMCONDPS", &PropertyFacade::THERMCONDPS},
                                     {"DYNVISPS", &PropertyFacade::DYNVISPS}, {"KINVISPS", &PropertyFacade::KINVISPS},
                                     {"PRANDTLEPS", &PropertyFacade::PRANDTLEPS}};
    for (const NamedExport& e : refusedPH) EXPECT_EQ(codeOf(e.f, 1e5, h), 2) << e.name;
    for (const NamedExport& e : refusedPS) EXPECT_EQ(codeOf(e.f, 1e5, s), 2) << e.name;
    // The wet-mixture speed of sound, cv and exponent of the two-phase side, with checks on.
    const double xh = lib.XPH(1e5, h);
    EXPECT_EQ(lib.WPH(1e5, h), lib.WSTX(Ts, xh));
    EXPECT_EQ(lib.CVPH(1e5, h), lib.CVSTX(Ts, xh));
    EXPECT_EQ(lib.KPH(1e5, h), lib.KSTX(Ts, xh));
    EXPECT_EQ(lastError(), 0);
    EXPECT_LT(lib.WPH(1e5, h), lib.WSWT(Ts)) << "a mixture carries sound slower than either phase";
    EXPECT_LT(lib.WPH(1e5, h), lib.WSST(Ts));
    lib.SETCHECKRANGEMODE(0);
    EXPECT_TRUE(nearRelative(lib.CPPH(1e5, h), (1 - xh) * lib.CPSWT(Ts) + xh * lib.CPSST(Ts), 1e-15));
    EXPECT_TRUE(nearRelative(lib.THERMCONDPH(1e5, h), lib.THERMCONDSTX(Ts, xh), 0.0));
    EXPECT_TRUE(nearRelative(lib.DYNVISPS(1e5, s), lib.DYNVISSTX(Ts, lib.XPS(1e5, s)), 0.0));
    EXPECT_TRUE(nearRelative(lib.KINVISPH(1e5, h), lib.KINVISSTX(Ts, xh), 0.0));
    EXPECT_TRUE(nearRelative(lib.PRANDTLEPS(1e5, s), lib.PRANDTLESTX(Ts, lib.XPS(1e5, s)), 0.0));
    EXPECT_EQ(lastError(), 0);
}

// cp, cv and w by (p,s) find region 3's density from T by the (p,T) search, the others use the
// backward volume: with toleranceMode off the two differ, as the fitted volume and the backward
// volume do.
TEST_F(PHPSFrame, Region3WaysOfThePSFamily) {
    const double p = 25e6;
    const double s = 4200.0;
    ASSERT_EQ(lib.WATERSTATEAREAPS(p, s), 3);
    lib.SETTOLERANCEMODE(0);
    const double T = water.T3PS(p, s);
    const double fitted = 1.0 / water.RoughV3PT(p, T);
    const double backward = 1.0 / water.V3PS(p, s);
    EXPECT_EQ(lib.CPPS(p, s), water.CP3RT(fitted, T));
    EXPECT_EQ(lib.CVPS(p, s), water.CV3RT(fitted, T));
    EXPECT_EQ(lib.WPS(p, s), water.W3RT(fitted, T));
    EXPECT_EQ(lib.UPS(p, s), water.U3RT(backward, T));
    EXPECT_EQ(lib.HPS(p, s), water.H3RT(backward, T));
    EXPECT_EQ(lib.VPS(p, s), water.V3PS(p, s)) << "the backward volume itself";
    EXPECT_NE(fitted, backward);
    lib.SETTOLERANCEMODE(1);
    const double refinedT = lib.TPS(p, s);
    EXPECT_EQ(lib.CPPS(p, s), water.CP3RT(water.R3PT(p, refinedT), refinedT));
    EXPECT_EQ(lastError(), 0);
}

// With toleranceMode off, VPH in region 3 is the backward volume and runs no search of its own;
// the selection still searches near the critical point.
TEST_F(PHPSFrame, ToleranceModeOffInRegion3) {
    lib.SETTOLERANCEMODE(0);
    lib.SETMAXITERATION(1);
    EXPECT_EQ(lib.VPH(1e8, 2e6), water.V3APH(1e8, 2e6));
    EXPECT_EQ(lastError(), 0);
    EXPECT_EQ(lib.VPH(1e8, 2.7e6), water.V3BPH(1e8, 2.7e6));
    EXPECT_EQ(lastError(), 0);
    EXPECT_EQ(lib.VPH(2e7, 1.7e6), -1.0);
    EXPECT_EQ(lastError(), 3) << "the selection's density search at 20 MPa";
}

struct SettingsCase {
    const char* what;
    int maxIterations;
    int toleranceMode;
    double tolerance;
    PairFunction f;
    double p;
    double y;
    int code;
};

// What the settings do to the searches behind the families. One iteration allowed fails every
// refinement, with the mode on; with it off only region 5 iterates. A tolerance of 0 can never
// pass the stop test >= of T1PS and T2PH.
TEST_F(PHPSFrame, SettingsSteerTheSearches) {
    using F = PropertyFacade;
    const SettingsCase cases[] = {
        {"region 1, one iteration", 1, 1, 2e-12, &F::TPH, 3e6, 5e5, 3},
        {"region 1, one iteration, mode off", 1, 0, 2e-12, &F::TPH, 3e6, 5e5, 0},
        {"region 2, one iteration", 1, 1, 2e-12, &F::TPH, 1e5, 3e6, 3},
        {"region 2, one iteration, mode off", 1, 0, 2e-12, &F::TPH, 1e5, 3e6, 0},
        {"region 3, one iteration", 1, 1, 2e-12, &F::TPH, 1e8, 2e6, 3},
        {"region 3, one iteration, mode off", 1, 0, 2e-12, &F::TPH, 1e8, 2e6, 0},
        {"region 5, one iteration, mode off", 1, 0, 2e-12, &F::TPH, 1e5, 5e6, 3},
        {"wet, one iteration", 1, 1, 2e-12, &F::TPH, 1e5, 1e6, 0},
        {"region 1 by s, one iteration", 1, 1, 2e-12, &F::TPS, 3e6, 500.0, 3},
        {"region 1 by s, one iteration, mode off", 1, 0, 2e-12, &F::TPS, 3e6, 500.0, 0},
        {"region 5 by s, one iteration, mode off", 1, 0, 2e-12, &F::TPS, 1e5, 10000.0, 3},
        {"region 1 by s, tolerance 0", 100, 1, 0.0, &F::TPS, 3e6, 500.0, 3},
        {"region 2, tolerance 0", 100, 1, 0.0, &F::TPH, 1e5, 3e6, 3},
        {"region 2 by s, tolerance 0", 100, 1, 0.0, &F::TPS, 1e5, 7500.0, 3},
        {"default settings, region 3 by s", 100, 1, 2e-12, &F::VPS, 2.5e7, 4200.0, 0},
    };
    for (const SettingsCase& c : cases) {
        lib.SETMAXITERATION(c.maxIterations);
        lib.SETTOLERANCEMODE(c.toleranceMode);
        lib.SETTOLERANCE(c.tolerance);
        EXPECT_EQ(codeOf(c.f, c.p, c.y), c.code) << c.what;
    }
}

// NaN, infinities and huge numbers, with checks on and off: every export returns a finite value
// with code 0 or -1 with a code, and none hangs.
TEST_F(PHPSFrame, BadInputEndsInACode) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    const double values[] = {nan, inf, -inf, 1e300, -1e300, 0.0, -1.0, 2e7, 1e5};
    for (int checks : {1, 0}) {
        lib.SETCHECKRANGEMODE(checks);
        for (const NamedExport* family : {kPressureEnthalpy, kPressureEntropy})
            for (int k = 0; k < 14; ++k)
                for (double p : values)
                    for (double y : values) {
                        const double result = call(lib, family[k].f, p, y);
                        const int code = lastError();
                        EXPECT_TRUE(std::isfinite(result)) << family[k].name << "(" << p << ", " << y << ")";
                        if (code != 0) {
                            EXPECT_EQ(result, -1.0) << family[k].name << "(" << p << ", " << y << ")";
                        }
                    }
        for (double p : values)
            for (double y : values) {
                lib.WATERSTATEAREAPH(p, y);
                lib.WATERSTATEAREAPS(p, y);
            }
    }
    lib.SETCHECKRANGEMODE(1);
    EXPECT_EQ(lib.TPH(nan, 1e6), -1.0);
    EXPECT_EQ(lastError(), 1) << "NaN passes the range tests and fails as a result";
    EXPECT_EQ(lib.TPS(1e5, nan), -1.0);
    EXPECT_EQ(lastError(), 1);
}

}  // namespace
