// The frame of the (h,s) family: the argument ranges, the tests on the state that the evaluation
// reached and the flags it must have published, the wet area's refusals, the bisection's limits
// and settings, and bad input.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/facade_fixture.h"
#include "water/formulation/constants.h"

namespace {

using tvl::kOnePlusEps;
using tvl::PropertyFacade;

using tvltest::call;
using tvltest::down;
using tvltest::NamedExport;
using tvltest::PairFunction;
using tvltest::up;

const NamedExport kEnthalpyEntropy[] = {
    {"PHS", &PropertyFacade::PHS},
    {"THS", &PropertyFacade::THS},
    {"VHS", &PropertyFacade::VHS},
    {"UHS", &PropertyFacade::UHS},
    {"CPHS", &PropertyFacade::CPHS},
    {"CVHS", &PropertyFacade::CVHS},
    {"WHS", &PropertyFacade::WHS},
    {"JOULETHOMPSONHS", &PropertyFacade::JOULETHOMPSONHS},
    {"THERMCONDHS", &PropertyFacade::THERMCONDHS},
    {"DYNVISHS", &PropertyFacade::DYNVISHS},
    {"PRANDTLEHS", &PropertyFacade::PRANDTLEHS},
    {"KINVISHS", &PropertyFacade::KINVISHS},
    {"KHS", &PropertyFacade::KHS},
    {"XHS", &PropertyFacade::XHS},
    {"TSHS", &PropertyFacade::TSHS},
};

class HSFrame : public tvltest::FacadeTest {
protected:
    int codeOf(PairFunction f, double h, double s) {
        call(lib, f, h, s);
        return lastError();
    }
};

struct RangeCase {
    const char* what;
    double h;
    double s;
    int code;
};

// h from -50 to 7.4e6 J/kg and s from -200 to 31800 J/(kg K), each widened by a rounding unit as
// a number: -50 * (1 - 2^-52) lies above -50, so -50 itself fails. At the limits TSHS reaches an
// end of the line and passes the test of its result, so that only the argument test speaks;
// at the highest entropy THS runs a search that one iteration cannot finish.
TEST_F(HSFrame, ArgumentRanges) {
    using F = PropertyFacade;
    struct Case {
        const char* what;
        PairFunction f;
        double h;
        double s;
        int code;
    };
    const double lowestH = -50.0 * tvl::kOneMinusEps;
    const double highestH = 7.4e6 * kOnePlusEps;
    const double lowestS = -200.0 * kOnePlusEps;
    const double highestS = 31800.0 * kOnePlusEps;
    ASSERT_GT(lowestH, -50.0);
    const Case cases[] = {
        {"h at -50 widened", &F::TSHS, lowestH, 0.0, 0},
        {"h beyond", &F::TSHS, down(lowestH), 0.0, 2},
        {"h = -50 exactly", &F::TSHS, -50.0, 0.0, 2},
        {"h at 7.4e6 widened", &F::TSHS, highestH, 5000.0, 0},
        {"h beyond", &F::TSHS, up(highestH), 5000.0, 2},
        {"s at -200 widened", &F::TSHS, 1000.0, lowestS, 0},
        {"s beyond", &F::TSHS, 1000.0, down(lowestS), 2},
        {"s at 31800 widened", &F::THS, 2e6, highestS, 3},
        {"s beyond", &F::THS, 2e6, up(highestS), 2},
    };
    for (const Case& c : cases) {
        lib.SETMAXITERATION(c.f == &F::TSHS ? 100 : 1);
        EXPECT_EQ(codeOf(c.f, c.h, c.s), c.code) << c.what;
        lib.SETCHECKRANGEMODE(0);
        EXPECT_NE(codeOf(c.f, c.h, c.s), 2) << c.what << ", checks off";
        lib.SETCHECKRANGEMODE(1);
    }
    lib.SETMAXITERATION(100);
    double p = 0.0;
    double T = 0.0;
    for (const NamedExport& e : kEnthalpyEntropy) EXPECT_EQ(codeOf(e.f, -50.0, 1000.0), 2) << e.name;
    lib.PTHS(-50.0, 1000.0, &p, &T);
    EXPECT_EQ(lastError(), 2);
    lib.TXSHS(2e6, up(highestS), &p, &T);
    EXPECT_EQ(lastError(), 2);
    EXPECT_EQ(lib.WATERSTATEAREAHS(1e8, -1e4), 5) << "the state area tests no range";
    EXPECT_EQ(lastError(), 0);
}

// After the model: the state point reached, in the range of the formulation or of the transport
// equations; the saturation temperature in the line's range; x in 0 to 1.
TEST_F(HSFrame, TestsOnTheStateReached) {
    using F = PropertyFacade;
    tvl::WaterModel& w = water;
    const double h1100 = w.H5PT(1e5, 1100.0);
    const double s1100 = w.S5PT(1e5, 1100.0);
    const double h1200 = w.H5PT(1e5, 1200.0);
    const double s1200 = w.S5PT(1e5, 1200.0);
    // Region 5's equation above its 50 MPa: a state that the formulation does not hold.
    const double hHigh = w.H5PT(8e7, 1500.0);
    const double sHigh = w.S5PT(8e7, 1500.0);
    const double hWetLeft = w.HSTX(373.15, 0.1);
    const double sWetLeft = w.SSTX(373.15, 0.1);
    struct Case {
        const char* what;
        PairFunction f;
        double h;
        double s;
        int code;
    };
    const Case cases[] = {
        {"conductivity at 1100 K: over 1074.22 K", &F::THERMCONDHS, h1100, s1100, 2},
        {"Prandtl number at 1100 K", &F::PRANDTLEHS, h1100, s1100, 2},
        {"viscosity at 1100 K: under 1174.32 K", &F::DYNVISHS, h1100, s1100, 0},
        {"kinematic viscosity at 1100 K", &F::KINVISHS, h1100, s1100, 0},
        {"viscosity at 1200 K", &F::DYNVISHS, h1200, s1200, 2},
        {"volume at 1200 K", &F::VHS, h1200, s1200, 0},
        {"volume at 80 MPa and 1500 K: over the formulation", &F::VHS, hHigh, sHigh, 2},
        {"temperature at 80 MPa and 1500 K", &F::THS, hHigh, sHigh, 2},
        {"pressure at 80 MPa and 1500 K", &F::PHS, hHigh, sHigh, 2},
        {"a wet state left of the critical entropy, as region 1", &F::THS, hWetLeft, sWetLeft, 2},
        {"... its volume", &F::VHS, hWetLeft, sWetLeft, 2},
        {"the saturation temperature that Tsat(h,s) finds for a state of region 2: over 647.096 K", &F::TSHS, 3e6, 5300.0, 2},
    };
    for (const Case& c : cases) EXPECT_EQ(codeOf(c.f, c.h, c.s), c.code) << c.what;
    double p = 0.0;
    double T = 0.0;
    EXPECT_EQ(lib.PTHS(hHigh, sHigh, &p, &T), -1.0);
    EXPECT_EQ(lastError(), 2);
    EXPECT_NEAR(T, 1500.0, 1e-9) << "the outputs hold what the model found";
    EXPECT_EQ(lib.PTHS(hWetLeft, sWetLeft, &p, &T), -1.0);
    EXPECT_EQ(lastError(), 2);
    // Superheated steam has a dryness fraction over 1.
    double x = 0.0;
    EXPECT_EQ(lib.TXSHS(3e6, 7000.0, &T, &x), -1.0);
    EXPECT_EQ(lastError(), 2);
    EXPECT_GT(x, 1.0);
    lib.SETCHECKRANGEMODE(0);
    for (const Case& c : cases) EXPECT_EQ(codeOf(c.f, c.h, c.s), 0) << c.what << ", checks off";
    EXPECT_EQ(lib.TXSHS(3e6, 7000.0, &T, &x), 1.0);
    EXPECT_EQ(lib.PTHS(hHigh, sHigh, &p, &T), 1.0);
}

// With toleranceMode off the pressure functions of regions 1, 2 and 3 publish p alone: under
// checks the frame misses the temperature and reports code 1. THS, the other properties and
// region 5 publish both.
TEST_F(HSFrame, StatesThatPublishNoTemperature) {
    using F = PropertyFacade;
    tvl::WaterModel& w = water;
    struct Case {
        const char* what;
        double h;
        double s;
        int codeOfPHS;
    };
    const Case states[] = {
        {"region 1", w.H1PT(1e7, 400.0), w.S1PT(1e7, 400.0), 1},
        {"region 2", w.H2PT(1e6, 600.0), w.S2PT(1e6, 600.0), 1},
        {"region 3", w.H3PT(5e7, 700.0), w.S3PT(5e7, 700.0), 1},
        {"region 5", w.H5PT(1e6, 1500.0), w.S5PT(1e6, 1500.0), 0},
    };
    lib.SETTOLERANCEMODE(0);
    for (const Case& c : states) {
        EXPECT_EQ(codeOf(&F::PHS, c.h, c.s), c.codeOfPHS) << c.what;
        EXPECT_EQ(codeOf(&F::THS, c.h, c.s), 0) << c.what;
        EXPECT_EQ(codeOf(&F::VHS, c.h, c.s), 0) << c.what;
        lib.SETCHECKRANGEMODE(0);
        EXPECT_EQ(codeOf(&F::PHS, c.h, c.s), 0) << c.what << ", checks off";
        lib.SETCHECKRANGEMODE(1);
    }
}

// cp and the transport properties have no meaning in the wet area: refused under checks, the
// plain mixture without. XHS refuses every state outside area 4, with or without checks.
TEST_F(HSFrame, WetAreaRefusals) {
    using F = PropertyFacade;
    const double h = lib.HSTX(400.0, 0.8);
    const double s = lib.SSTX(400.0, 0.8);
    ASSERT_EQ(lib.WATERSTATEAREAHS(h, s), 4);
    for (PairFunction f : {&F::CPHS, &F::THERMCONDHS, &F::DYNVISHS, &F::KINVISHS, &F::PRANDTLEHS})
        EXPECT_EQ(codeOf(f, h, s), 2);
    lib.SETCHECKRANGEMODE(0);
    double T = 0.0;
    double x = 0.0;
    lib.TXSHS(h, s, &T, &x);
    EXPECT_EQ(lib.CPHS(h, s), lib.CPSTX(T, x));
    EXPECT_EQ(lib.DYNVISHS(h, s), lib.DYNVISSTX(T, x));
    EXPECT_EQ(lib.KINVISHS(h, s), lib.KINVISSTX(T, x));
    EXPECT_EQ(lib.THERMCONDHS(h, s), lib.THERMCONDSTX(T, x));
    EXPECT_EQ(lib.PRANDTLEHS(h, s), lib.PRANDTLESTX(T, x));
    EXPECT_EQ(lastError(), 0);
    for (int checks : {1, 0}) {
        lib.SETCHECKRANGEMODE(checks);
        EXPECT_EQ(codeOf(&F::XHS, 3e6, 7000.0), 2) << "steam, checks " << checks;
        EXPECT_EQ(codeOf(&F::XHS, 5e5, 1500.0), 2) << "water, checks " << checks;
        EXPECT_EQ(codeOf(&F::XHS, 3.5e6, 10000.0), 2) << "region 5, checks " << checks;
    }
}

// Right of 5210.88782493073 J/(kg K) the equation gives the temperature, and with toleranceMode
// off it is the result; at the limit itself the bisection runs along the whole line in any mode.
TEST_F(HSFrame, EntropyLimitOfTheSaturationEquation) {
    const double limit = 5210.88782493073;
    const double h = 2.4e6;
    lib.SETTOLERANCEMODE(0);
    EXPECT_EQ(lib.TSHS(h, up(limit)), water.T4HSEquation(h, up(limit)));
    const double bisected = lib.TSHS(h, limit);
    EXPECT_EQ(lastError(), 0);
    EXPECT_NE(bisected, water.T4HSEquation(h, limit));
    lib.SETTOLERANCEMODE(1);
    EXPECT_EQ(lib.TSHS(h, limit), bisected) << "the mode does not reach the bisection over the line";
    // Under the triple point the equation's answer is raised to 273.16 K.
    EXPECT_LT(water.T4HSEquation(1e5, 9000.0), 273.16);
    lib.SETTOLERANCEMODE(0);
    EXPECT_EQ(lib.TSHS(1e5, 9000.0), 273.16);
}

// The bisection counts its turns against maxIterations: with 1 it leaves after the second turn
// with a bracket far too wide, code 3 even with toleranceMode off left of the limit; right of it
// the mode off skips the search. Limits of the searches in the regions follow the same count.
TEST_F(HSFrame, SettingsSteerTheSearches) {
    using F = PropertyFacade;
    const double hWet = lib.HSTX(400.0, 0.5);
    const double sWet = lib.SSTX(400.0, 0.5);  // left of 5210.89
    const double hSteam = lib.HSTX(400.0, 0.95);
    const double sSteam = lib.SSTX(400.0, 0.95);  // right of it
    struct Case {
        const char* what;
        int maxIterations;
        int toleranceMode;
        PairFunction f;
        double h;
        double s;
        int code;
    };
    const Case cases[] = {
        {"bisection over the line, one turn", 1, 1, &F::TSHS, hWet, sWet, 3},
        {"bisection over the line, one turn, mode off", 1, 0, &F::TSHS, hWet, sWet, 3},
        {"around the equation, one turn", 1, 1, &F::TSHS, hSteam, sSteam, 3},
        {"the equation alone", 1, 0, &F::TSHS, hSteam, sSteam, 0},
        {"region 1, one turn", 1, 1, &F::THS, 5e5, 1500.0, 3},
        {"region 2, one turn", 1, 1, &F::THS, 3e6, 7000.0, 3},
        {"region 2, one turn, mode off", 1, 0, &F::THS, 3e6, 7000.0, 0},
        {"region 5, one turn", 1, 1, &F::THS, 4.5e6, 9000.0, 3},
        {"default settings", 100, 1, &F::TSHS, hWet, sWet, 0},
    };
    for (const Case& c : cases) {
        lib.SETMAXITERATION(c.maxIterations);
        lib.SETTOLERANCEMODE(c.toleranceMode);
        EXPECT_EQ(codeOf(c.f, c.h, c.s), c.code) << c.what;
    }
}

// NaN, infinities and huge numbers, with checks on and off: every export returns a finite value
// with code 0 or -1 with a code, and none hangs. NaN and the infinities never pass for a state.
TEST_F(HSFrame, BadInputEndsInACode) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    const double values[] = {nan, inf, -inf, 1e300, -1e300, 0.0, -1.0, 5000.0, 2.5e6};
    for (int checks : {1, 0}) {
        lib.SETCHECKRANGEMODE(checks);
        for (const NamedExport& e : kEnthalpyEntropy)
            for (double h : values)
                for (double s : values) {
                    const double result = call(lib, e.f, h, s);
                    const int code = lastError();
                    EXPECT_TRUE(std::isfinite(result)) << e.name << "(" << h << ", " << s << ")";
                    if (code != 0) {
                        EXPECT_EQ(result, -1.0) << e.name << "(" << h << ", " << s << ")";
                    }
                    if (!std::isfinite(h) || !std::isfinite(s)) {
                        EXPECT_NE(code, 0) << e.name << "(" << h << ", " << s << ")";
                    }
                    if (checks != 0 && (std::fabs(h) == 1e300 || std::fabs(s) == 1e300)) {
                        EXPECT_EQ(code, 2) << e.name << "(" << h << ", " << s << ")";
                    }
                }
        for (double h : values)
            for (double s : values) {
                double first = 0.0;
                double second = 0.0;
                for (auto f : {&PropertyFacade::PTHS, &PropertyFacade::TXSHS}) {
                    const double result = call(lib, f, h, s, &first, &second);
                    if (lastError() == 0) {
                        EXPECT_EQ(result, 1.0);
                        EXPECT_TRUE(std::isfinite(first) && std::isfinite(second)) << h << ", " << s;
                        EXPECT_TRUE(std::isfinite(h) && std::isfinite(s)) << h << ", " << s;
                    } else {
                        EXPECT_EQ(result, -1.0);
                    }
                }
                const int area = lib.WATERSTATEAREAHS(h, s);
                EXPECT_TRUE(area >= 1 && area <= 5) << h << ", " << s;
            }
    }
    lib.SETCHECKRANGEMODE(1);
    EXPECT_EQ(lib.THS(nan, 6000.0), -1.0);
    EXPECT_EQ(lastError(), 1) << "NaN passes the range tests and fails as a result";
    EXPECT_EQ(lib.TSHS(2e6, nan), -1.0);
    EXPECT_EQ(lastError(), 1);
}

TEST_F(HSFrame, MissingOutputCells) {
    double cell = 0.0;
    EXPECT_EQ(lib.PTHS(2e6, 5000.0, nullptr, &cell), -1.0);
    EXPECT_EQ(lastError(), 1);
    EXPECT_EQ(lib.TXSHS(2e6, 5000.0, &cell, nullptr), -1.0);
    EXPECT_EQ(lastError(), 1);
}

}  // namespace
