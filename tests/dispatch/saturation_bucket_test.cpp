// The (p,T) selection's cheap test against the saturation temperature gives the decision of the
// plain comparison mT >= TSP(p): pressures across the whole range, temperatures on, next to
// and far from the line.
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "support/facade_fixture.h"
#include "water/formulation/constants.h"

namespace {

using tvltest::FacadeTest;

TEST_F(FacadeTest, SaturationBucketsDecideLikeTheComparison) {
    std::mt19937_64 random(7);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    const double lowLog = std::log(tvl::kIcePointSaturationPressure);
    const double highLog = std::log(tvl::kP623);
    int disagreements = 0;
    for (int n = 0; n < 200000; ++n) {
        double p = std::exp(lowLog + (highLog - lowLog) * unit(random));
        if (n % 1000 == 0) p = n % 2000 == 0 ? tvl::kIcePointSaturationPressure : tvl::kP623;
        const double Ts = water.TSP(p);
        double mT;
        switch (n % 4) {
        case 0: mT = Ts; break;
        case 1: mT = std::nextafter(Ts, 0.0); break;
        case 2: mT = Ts + (unit(random) - 0.5) * 1e-5; break;
        default: mT = 250.0 + 400.0 * unit(random); break;
        }
        if (water.atOrAboveSaturationTemperature(p, mT) != (mT >= Ts)) ++disagreements;
    }
    EXPECT_EQ(disagreements, 0);
}

}  // namespace

namespace {

TEST_F(FacadeTest, SaturatedWaterEnthalpyBucketsDecideLikeTheComparison) {
    std::mt19937_64 random(11);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    const double lowLog = std::log(tvl::kIcePointSaturationPressure);
    const double highLog = std::nextafter(std::log(tvl::kP623), 0.0);
    int disagreements = 0;
    for (int n = 0; n < 100000; ++n) {
        double p = std::exp(lowLog + (highLog - lowLog) * unit(random));
        if (n % 1000 == 0) p = tvl::kIcePointSaturationPressure;
        const double Ts = water.TSP(p);
        const double hs = water.H1PT(p, Ts);
        double h;
        switch (n % 4) {
        case 0: h = hs; break;
        case 1: h = std::nextafter(hs, 1e9); break;
        case 2: h = hs + (unit(random) - 0.5) * 1e-2; break;
        default: h = 1.7e6 * unit(random); break;
        }
        if (water.atOrBelowSaturatedWaterEnthalpy(p, Ts, h) != (hs >= h)) ++disagreements;
    }
    EXPECT_EQ(disagreements, 0);
}

}  // namespace
