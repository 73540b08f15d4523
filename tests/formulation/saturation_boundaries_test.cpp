// The saturation line and the region boundaries: values, limits of the saturation exports,
// and how the raw curves fail outside their domain.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/facade_fixture.h"

namespace {

using tvltest::nearRelative;

class SaturationLine : public tvltest::FacadeTest {};

TEST_F(SaturationLine, ValuesAtTheEndsOfTheLine) {
    EXPECT_NEAR(lib.PST(273.15), 611.2126774443, 5e-11);
    EXPECT_NEAR(lib.PST(647.096), 22064000.0003, 5e-5);
    EXPECT_NEAR(lib.TSP(22064000.0), 647.0959999988, 5e-11);
    EXPECT_NEAR(lib.TSP(611.2126774443451), 273.15, 5e-11);
    EXPECT_EQ(lastError(), 0);
    EXPECT_GT(lib.DPDTST(647.096), 0.0);
}

TEST_F(SaturationLine, TemperatureAndPressureInvertEachOther) {
    for (double T = 273.15; T < 647.0; T += 7.3) {
        EXPECT_TRUE(nearRelative(water.TSP(water.PST(T)), T, 1e-12)) << T;
        const double dT = 1e-4;
        const double slope = (water.PST(T + dT) - water.PST(T - dT)) / (2 * dT);
        EXPECT_TRUE(nearRelative(water.DPDTST(T), slope, 1e-7)) << T;
    }
}

using SaturationExport = double (*)(tvl::PropertyFacade&, double);

struct LimitCase {
    const char* what;
    SaturationExport call;
    double argument;
    int code;
};

const SaturationExport kPST = [](tvl::PropertyFacade& f, double x) { return f.PST(x); };
const SaturationExport kTSP = [](tvl::PropertyFacade& f, double x) { return f.TSP(x); };
const SaturationExport kDPDTST = [](tvl::PropertyFacade& f, double x) { return f.DPDTST(x); };
const SaturationExport kROUGHRSWT = [](tvl::PropertyFacade& f, double x) { return f.ROUGHRSWT(x); };
const SaturationExport kROUGHRSST = [](tvl::PropertyFacade& f, double x) { return f.ROUGHRSST(x); };

TEST_F(SaturationLine, RangeLimitsWidenedByOneRoundingUnit) {
    const double belowTriple = std::nextafter(273.15 * 0.9999999999999998, 0.0);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const LimitCase cases[] = {
        {"lowest temperature", kPST, 273.15 * 0.9999999999999998, 0},
        {"one step below it", kPST, belowTriple, 2},
        {"critical temperature", kPST, 647.0960000000001, 0},
        {"above it", kPST, 647.1, 2},
        {"slope below the line", kDPDTST, 273.0, 2},
        {"liquid density above", kROUGHRSWT, 650.0, 2},
        {"vapour density below", kROUGHRSST, 200.0, 2},
        {"lowest pressure", kTSP, 611.2126774443452, 0},
        {"611 Pa", kTSP, 611.0, 2},
        {"critical pressure", kTSP, 22064000.000000004, 0},
        {"above it", kTSP, 22064001.0, 2},
        {"NaN passes the test and fails as a result", kPST, nan, 1},
        {"NaN pressure", kTSP, nan, 1},
    };
    for (const LimitCase& c : cases) {
        const double result = c.call(lib, c.argument);
        EXPECT_EQ(lastError(), c.code) << c.what;
        if (c.code != 0) {
            EXPECT_EQ(result, -1.0) << c.what;
        }
    }
}

TEST_F(SaturationLine, WithoutChecksTheEquationsExtrapolateOrFail) {
    lib.SETCHECKRANGEMODE(0);
    EXPECT_LT(lib.TSP(611.0), 273.15);
    EXPECT_EQ(lastError(), 0);
    EXPECT_EQ(lib.PST(650.17534844798), -1.0);  // the pole of theta
    EXPECT_EQ(lastError(), 1);
    EXPECT_EQ(lib.ROUGHRSWT(700.0), -1.0);  // fractional power of a negative base
    EXPECT_EQ(lastError(), 1);
}

class Boundaries : public tvltest::FacadeTest {};

TEST_F(Boundaries, ValuesOfTheLibrary) {
    EXPECT_NEAR(lib.P23T(623.15), 16529164.2526, 5e-5);
    EXPECT_NEAR(lib.T23P(16529164.2526), 623.15, 5e-9);
    EXPECT_NEAR(lib.H2B2CP(1e8), 3516004.323, 5e-4);
    EXPECT_NEAR(lib.P2B2CH(3516004.323), 1e8, 0.5);
    EXPECT_NEAR(lib.TB23HS(2600e3, 5100.0), 713.5259364, 5e-8);
    EXPECT_NEAR(lib.TB23HS(2800e3, 5200.0), 817.6202120, 5e-8);
    EXPECT_NEAR(lib.ROUGHHSSS(7000.0), 2723729.985, 5e-4);
    EXPECT_NEAR(lib.ROUGHHSSS(8000.0), 2599047.210, 5e-4);
    EXPECT_NEAR(lib.ROUGHHSWS(3800.0), 1685025.565, 5e-4);
    EXPECT_NEAR(lib.ROUGHHSWS(4200.0), 1949352.563, 5e-4);
    EXPECT_NEAR(lib.ROUGHHSWS(1000.0), 308551.089, 5e-4);
    EXPECT_EQ(lastError(), 0);
}

TEST_F(Boundaries, RawCurvesReportOnlyNonFiniteResults) {
    EXPECT_EQ(lib.T23P(1e6), -1.0);
    EXPECT_EQ(lastError(), 1);
    EXPECT_EQ(lib.H2B2CP(1e6), -1.0);
    EXPECT_EQ(lastError(), 1);
    EXPECT_EQ(lib.ROUGHHSSS(0.0), -1.0);
    EXPECT_EQ(lastError(), 1);
    lib.P23T(5000.0);  // far outside, still a number
    EXPECT_EQ(lastError(), 0);
}

}  // namespace
