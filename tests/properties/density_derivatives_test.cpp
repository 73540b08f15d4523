// Density derivatives: the printed values, finite differences of the density in every area that
// has a form, region 3's refusal after the density work, the saturated members and the ranges.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/facade_fixture.h"

namespace {

using tvltest::nearRelative;

class DensityDerivatives : public tvltest::FacadeTest {};

TEST_F(DensityDerivatives, PrintedValuesInRegion5) {
    struct Case {
        double p, T, byPressure, byEnthalpy;
    };
    const Case cases[] = {
        {0.5e6, 1500.0, 1.44420570e-06, -1.84295316e-07},
        {30e6, 1500.0, 1.42270663e-06, -1.13920658e-05},
        {30e6, 2000.0, 1.05407759e-06, -5.66270922e-06},
    };
    for (const Case& c : cases) {
        EXPECT_TRUE(nearRelative(lib.DDDPHPT(c.p, c.T), c.byPressure, 5e-9)) << c.p << " " << c.T;
        EXPECT_TRUE(nearRelative(lib.DDDHPPT(c.p, c.T), c.byEnthalpy, 5e-9)) << c.p << " " << c.T;
        EXPECT_EQ(lastError(), 0);
    }
}

// Central differences of the density by (p,h) against the closed forms, in regions 1, 2 and 5
// and in the wet area (by (p,h): the mixture rule with T = Tsat(p)).
TEST_F(DensityDerivatives, AgreeWithFiniteDifferencesOfTheDensity) {
    struct Case {
        double p, T;  // a state of the area; the wet cases give x in place of T
        double x;
        double tolerance;
    };
    const Case cases[] = {
        {1e5, 300.0, -1, 1e-5},    {5e6, 450.0, -1, 1e-5},  {5e7, 600.0, -1, 1e-5},  // region 1
        {1e4, 400.0, -1, 1e-6},    {1e6, 600.0, -1, 1e-6},  {3e7, 900.0, -1, 1e-6},  // region 2
        {1e6, 1500.0, -1, 1e-6},   {4e7, 2000.0, -1, 1e-6},                          // region 5
        {1e5, -1, 0.3, 1e-4},      {1e6, -1, 0.5, 1e-4},    {1e7, -1, 0.9, 1e-4},    // wet
    };
    for (const Case& c : cases) {
        double h;
        if (c.x >= 0.0) {
            const double Ts = water.TSP(c.p);
            h = water.HSWT(Ts) + c.x * (water.HSST(Ts) - water.HSWT(Ts));
        } else {
            h = water.HPT(c.p, c.T);
        }
        const double dp = c.p * 1e-6, dh = std::fabs(h) * 1e-7;
        const double byPressure = (1.0 / lib.VPH(c.p + dp, h) - 1.0 / lib.VPH(c.p - dp, h)) / (2 * dp);
        const double byEnthalpy = (1.0 / lib.VPH(c.p, h + dh) - 1.0 / lib.VPH(c.p, h - dh)) / (2 * dh);
        EXPECT_TRUE(nearRelative(lib.DDDPHPH(c.p, h), byPressure, c.tolerance)) << c.p << " " << h;
        EXPECT_TRUE(nearRelative(lib.DDDHPPH(c.p, h), byEnthalpy, c.tolerance)) << c.p << " " << h;
        EXPECT_EQ(lastError(), 0);
        if (c.x < 0.0) {  // the (p,T) forms give the same at the same state
            EXPECT_TRUE(nearRelative(lib.DDDPHPT(c.p, c.T), lib.DDDPHPH(c.p, h), 1e-9));
            EXPECT_TRUE(nearRelative(lib.DDDHPPT(c.p, c.T), lib.DDDHPPH(c.p, h), 1e-9));
        }
    }
}

// (p,T,x): x counts only on the saturation line; elsewhere the area's form at (p,T).
TEST_F(DensityDerivatives, ByPressureTemperatureAndDryness) {
    EXPECT_EQ(lib.DDDHPPTX(1e6, 400.0, 0.7), lib.DDDHPPT(1e6, 400.0));
    EXPECT_EQ(lib.DDDPHPTX(1e6, 600.0, 0.2), lib.DDDPHPT(1e6, 600.0));
    const double T = 450.0, p = water.PST(T);
    // Inside the wet area; at x = 0 or 1 (p,h) takes the one-phase side of the line.
    for (double x : {0.01, 0.4, 0.99}) {
        const double h = water.HSWT(T) + x * (water.HSST(T) - water.HSWT(T));
        EXPECT_TRUE(nearRelative(lib.DDDPHPTX(p, T, x), lib.DDDPHPH(p, h), 1e-9)) << x;
        EXPECT_TRUE(nearRelative(lib.DDDHPPTX(p, T, x), lib.DDDHPPH(p, h), 1e-9)) << x;
    }
    EXPECT_EQ(lib.DDDPHPTX(p, T, 1.5), -1.0);
    EXPECT_EQ(lastError(), 2);
    EXPECT_EQ(lib.DDDPHPTX(p, T, -0.1), -1.0);
    EXPECT_EQ(lastError(), 2);
}

// Region 3 has no form: code 8, after the density search that toleranceMode asks for, so that a
// failing search shows as code 3.
TEST_F(DensityDerivatives, Region3IsNotImplemented) {
    auto byPT = [&] { return lib.DDDPHPT(25e6, 650.0); };
    auto byPH = [&] { return lib.DDDHPPH(25e6, 2.0e6); };
    auto byPTX = [&] { return lib.DDDHPPTX(25e6, 650.0, 0.5); };
    for (int mode : {1, 0}) {
        lib.settings.toleranceMode = mode;
        EXPECT_EQ(byPT(), -1.0);
        EXPECT_EQ(lastError(), 8) << mode;
        EXPECT_EQ(byPH(), -1.0);
        EXPECT_EQ(lastError(), 8) << mode;
        EXPECT_EQ(byPTX(), -1.0);
        EXPECT_EQ(lastError(), 8) << mode;
    }
    lib.settings.toleranceMode = 1;
    lib.settings.maxIterations = 1;
    EXPECT_EQ(byPT(), -1.0);
    EXPECT_EQ(lastError(), 3);
}

TEST_F(DensityDerivatives, SaturationLine) {
    for (double T : {280.0, 373.15, 500.0, 623.15}) {
        const double p = water.PST(T);
        EXPECT_EQ(lib.DDDPHSWT(T), water.DDDPH1(p, T)) << T;
        EXPECT_EQ(lib.DDDHPSWT(T), water.DDDHP1(p, T)) << T;
        EXPECT_EQ(lib.DDDPHSST(T), water.DDDPH2(p, T)) << T;
        EXPECT_EQ(lib.DDDHPSST(T), water.DDDHP2(p, T)) << T;
        EXPECT_EQ(lastError(), 0);
    }
    for (double T : {623.16, 640.0}) {
        EXPECT_EQ(lib.DDDPHSWT(T), -1.0);
        EXPECT_EQ(lastError(), 8);
        EXPECT_EQ(lib.DDDHPSST(T), -1.0);
        EXPECT_EQ(lastError(), 8);
    }
    // Dense liquid is barely compressible; steam loses density as its enthalpy rises.
    EXPECT_LT(lib.DDDHPSST(373.15), 0.0);
    EXPECT_GT(lib.DDDPHSWT(373.15), 0.0);
}

TEST_F(DensityDerivatives, RangesAndBadInput) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    using F = tvl::PropertyFacade;
    struct Case {
        const char* what;
        double (*call)(F&);
        int code;
    };
    const Case cases[] = {
        {"pT above 100 MPa", [](F& f) { return f.DDDPHPT(1.1e8, 500.0); }, 2},
        {"pT NaN", [](F& f) { return f.DDDHPPT(std::nan(""), 500.0); }, 1},
        {"pT Inf", [](F& f) { return f.DDDHPPT(HUGE_VAL, 500.0); }, 2},
        {"ph enthalpy too high", [](F& f) { return f.DDDPHPH(1e6, 7.5e6); }, 2},
        {"ph enthalpy below -50", [](F& f) { return f.DDDPHPH(1e6, -60.0); }, 2},
        {"ph NaN", [](F& f) { return f.DDDHPPH(1e6, std::nan("")); }, 1},
        {"saturated below 273.15", [](F& f) { return f.DDDPHSWT(270.0); }, 2},
        {"saturated above critical", [](F& f) { return f.DDDHPSST(650.0); }, 2},
        {"saturated NaN", [](F& f) { return f.DDDPHSST(std::nan("")); }, 1},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(c.call(lib), -1.0) << c.what;
        EXPECT_EQ(lastError(), c.code) << c.what;
    }
    // With checks off the forms take what arrives, and still never return a non-finite value.
    lib.settings.checkRangeMode = 0;
    using Call = double (*)(F&, double, double);
    const Call calls[] = {
        [](F& f, double p, double y) { return f.DDDPHPT(p, y); },
        [](F& f, double p, double y) { return f.DDDHPPT(p, y); },
        [](F& f, double p, double y) { return f.DDDPHPH(p, y); },
        [](F& f, double p, double y) { return f.DDDHPPH(p, y); },
        [](F& f, double p, double y) { return f.DDDPHPTX(p, y, 0.5); },
    };
    for (double p : {nan, inf, -1.0, 0.0, 1e300})
        for (double y : {nan, -inf, 0.0, 300.0, 3e6, 1e300})
            for (Call call : calls) {
                const double r = call(lib, p, y);
                EXPECT_TRUE(std::isfinite(r)) << p << " " << y;
                if (r == -1.0) {
                    EXPECT_NE(lastError(), 0) << p << " " << y;
                }
            }
}

}  // namespace
