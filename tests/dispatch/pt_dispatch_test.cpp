// Dispatch on (p,T): the region each selection picks, the property of that region, the range of
// the family, and the combined call against the single exports.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "support/facade_fixture.h"

namespace {

using tvltest::nearRelative;

template <class F>
double derivative(F f, double x, double h) {
    return (8.0 * (f(x + h) - f(x - h)) - (f(x + 2 * h) - f(x - 2 * h))) / (12.0 * h);
}

class PTDispatch : public tvltest::FacadeTest {
protected:
    // States over all regions of the formulation and on their boundaries.
    std::vector<std::pair<double, double>> grid() {
        std::vector<std::pair<double, double>> states;
        for (double p : {1e3, 1e5, 1e6, 5e6, 1e7, 16529164.252621602, 2e7, 22064000.0, 2.5e7, 4e7, 5e7, 7e7, 1e8})
            for (double T : {273.15, 300.0, 400.0, 500.0, 600.0, 623.15, 640.0, 660.0, 700.0, 800.0, 863.15, 900.0,
                             1073.15, 1200.0, 1800.0, 2273.15})
                if (T <= 1073.15 || p <= 5e7) states.emplace_back(p, T);
        return states;
    }

    double regionValue(int region, double (tvl::WaterModel::*gibbs1)(double, double),
                       double (tvl::WaterModel::*gibbs2)(double, double), double (tvl::WaterModel::*helmholtz3)(double, double),
                       double (tvl::WaterModel::*gibbs5)(double, double), double p, double T) {
        tvl::WaterModel& w = water;
        switch (region) {
        case 1: return (w.*gibbs1)(p, T);
        case 2: return (w.*gibbs2)(p, T);
        case 3: return (w.*helmholtz3)(w.R3PT(p, T), T);
        default: return (w.*gibbs5)(p, T);
        }
    }
};

struct SelectionCase {
    const char* what;
    double p;
    double T;
    int area2;  // the property family's selection
    int area;   // the state area, which knows the saturation line
};

TEST_F(PTDispatch, TheTwoSelectionsAtTheirBoundaries) {
    const double Ts = water.TSP(1e5);
    const double m = 1.0 + 2e-12;
    const SelectionCase cases[] = {
        {"863.15 K at 100 MPa", 1e8, 863.15, 2, 2},
        {"just below 863.15 K at 100 MPa: B23", 1e8, 863.0, 3, 3},
        {"P623 takes the saturation branch", 16529164.252621602, 623.0, 1, 1},
        {"623.15 K above P623 is region 1", 2e7, 623.15, 1, 1},
        {"1073.15 K (1 + 1e-12)", 1e6, 1073.15 * (1.0 + 1e-12), 2, 5},
        {"1073.15 K (1 + 3e-12)", 1e6, 1073.15 * (1.0 + 3e-12), 5, 5},
        {"exactly on the saturation line", 1e5, Ts, 2, 4},
        {"a tolerance below it", 1e5, Ts / m, 2, 4},
        {"well below it", 1e5, Ts - 1e-6, 1, 1},
        {"under the lowest saturation pressure", 600.0, 273.16, 2, 2},
        {"supercritical below B23", 3e7, 650.0, 3, 3},
        {"supercritical above B23", 3e7, 720.0, 2, 2},
        {"a tolerance below B23: the family widens, the state area not", 3e7, water.T23P(3e7) * (1.0 - 1e-12), 2, 3},
    };
    for (const SelectionCase& c : cases) {
        EXPECT_EQ(lib.WATERSTATEAREA2(c.p, c.T), c.area2) << c.what;
        EXPECT_EQ(lib.WATERSTATEAREA(c.p, c.T), c.area) << c.what;
    }
    // The area functions test no range.
    EXPECT_EQ(lib.WATERSTATEAREA2(1e9, 300.0), 1);
    EXPECT_EQ(lastError(), 0);
}

TEST_F(PTDispatch, PhaseState) {
    EXPECT_EQ(lib.PHASESTATEPT(1e5, 300.0), 1);
    EXPECT_EQ(lib.PHASESTATEPT(1e5, 400.0), 2);
    EXPECT_EQ(lib.PHASESTATEPT(3e7, 400.0), 3);
    EXPECT_EQ(lib.PHASESTATEPT(1e5, 700.0), 3);
    EXPECT_NE(lib.PHASESTATEPT(22064000.0, 647.096), 3) << "both critical limits are strict";
    EXPECT_EQ(lib.PHASESTATEPT(water.PST(400.0), 400.0), 2) << "on the line is vapour";
    lib.SETCHECKRANGEMODE(0);
    EXPECT_EQ(lib.PHASESTATEPT(1e5, 250.0), -1) << "the test below 273.15 K does not depend on the mode";
    EXPECT_EQ(lastError(), 2);
}

TEST_F(PTDispatch, CombinedCallAgreesWithTheSingleExportsAndDifferences) {
    for (auto [p, T] : grid()) {
        double out[14];
        ASSERT_EQ(lib.VUSHCVWDERPTPT(p, T, {&out[0], &out[1], &out[2], &out[3], &out[4], &out[5], &out[6], &out[7],
                                            &out[8], &out[9], &out[10], &out[11], &out[12], &out[13]}),
                  1.0);
        EXPECT_TRUE(nearRelative(out[0], lib.VPT(p, T), 1e-13)) << p << " " << T;
        EXPECT_TRUE(nearRelative(out[3], lib.HPT(p, T), 1e-12)) << p << " " << T;
        EXPECT_TRUE(nearRelative(out[2], lib.SPT(p, T), 1e-12)) << p << " " << T;
        EXPECT_TRUE(nearRelative(out[13], lib.CPPT(p, T), 1e-12)) << p << " " << T;
        EXPECT_TRUE(nearRelative(out[5], lib.WPT(p, T), 1e-12)) << p << " " << T;
        // the derivatives against central differences of the model (no range test), inside the
        // region of the point
        const int region = water.WATERSTATEAREA2(p, T);
        // Five-point differences with steps of 1e-4 relative: truncation and rounding both stay
        // well under the tolerance of 1e-6, near the critical point too. At low pressure the p
        // derivatives are small against the values, so the step there is longer.
        const double dT = T * 1e-4;
        const double dp = p * (p < 1e5 ? 1e-2 : 1e-4);
        if (water.WATERSTATEAREA2(p, T - 2 * dT) != region || water.WATERSTATEAREA2(p, T + 2 * dT) != region ||
            water.WATERSTATEAREA2(p - 2 * dp, T) != region || water.WATERSTATEAREA2(p + 2 * dp, T) != region)
            continue;
        auto byT = [&](double (tvl::WaterModel::*f)(double, double)) {
            return derivative([&](double x) { return (water.*f)(p, x); }, T, dT);
        };
        auto byP = [&](double (tvl::WaterModel::*f)(double, double)) {
            return derivative([&](double x) { return (water.*f)(x, T); }, p, dp);
        };
        using W = tvl::WaterModel;
        EXPECT_TRUE(nearRelative(out[6], byP(&W::VPT), 1e-6)) << "dv/dp at " << p << " " << T;
        EXPECT_TRUE(nearRelative(out[7], byP(&W::UPT), 1e-6)) << "du/dp at " << p << " " << T;
        EXPECT_TRUE(nearRelative(out[8], byP(&W::SPT), 1e-6)) << "ds/dp at " << p << " " << T;
        EXPECT_TRUE(nearRelative(out[9], byP(&W::HPT), 1e-6)) << "dh/dp at " << p << " " << T;
        EXPECT_TRUE(nearRelative(out[10], byT(&W::VPT), 1e-6)) << "dv/dT at " << p << " " << T;
        EXPECT_TRUE(nearRelative(out[11], byT(&W::UPT), 1e-6)) << "du/dT at " << p << " " << T;
        EXPECT_TRUE(nearRelative(out[12], byT(&W::SPT), 1e-6)) << "ds/dT at " << p << " " << T;
        EXPECT_TRUE(nearRelative(out[13], byT(&W::HPT), 1e-6)) << "dh/dT at " << p << " " << T;
    }
}

}  // namespace
