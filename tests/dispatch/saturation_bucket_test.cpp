// The selections' cheap tests against bounds per pressure bucket give the decisions of the plain
// comparisons: (p,T) against the saturation temperature, (p,h) against the saturated water
// enthalpy, (p,s) against the saturated entropies and the region 2/5 boundary; pressures across
// the whole range, values on, next to and far from each line.
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "support/facade_fixture.h"
#include "water/formulation/constants.h"

namespace {

using tvltest::down, tvltest::FacadeTest, tvltest::up;

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

// (p,s): below B23 at 623.15 K the comparisons with s', s'' and m S2PT(p, 1073.15 K) in their
// order; above the critical pressure, where the entropies from 6522.64 to 7000.7 J/(kg K) are
// left to the last alone. Under the default, toleranceMode 0 and hostile margins m = 1 + tolerance.
TEST_F(FacadeTest, EntropyBucketsDecideLikeTheComparisons) {
    const struct {
        int toleranceMode;
        double tolerance;
    } settings[] = {{1, 2e-12}, {0, 2e-12}, {1, 0.25}, {1, -0.25}, {1, -0.6}, {1, -2.0}, {1, 1e300}, {1, NAN}};
    const double lowLog = std::log(tvl::kIcePointSaturationPressure);
    const double highLog = std::nextafter(std::log(tvl::kP623), 0.0);
    const double criticalLog = std::log(tvl::kCriticalPressure), region5Log = std::log(tvl::kRegion5HighestPressure);
    std::mt19937_64 random(13);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    for (const auto& c : settings) {
        lib.SETTOLERANCEMODE(c.toleranceMode);
        lib.SETTOLERANCE(c.tolerance);
        const double m = 1.0 + c.tolerance;
        int compared = 0, disagreements = 0;
        for (int n = 0; n < 30000; ++n) {
            const bool aboveCritical = n % 8 == 7;
            double p = aboveCritical ? std::exp(criticalLog + (region5Log - criticalLog) * unit(random))
                                     : std::exp(lowLog + (highLog - lowLog) * unit(random));
            int e;  // every fourth p the first of its bucket (top 16 bits shared), every fourth the one before
            const double mantissa = std::frexp(p, &e), bucketStart = std::ldexp(std::floor(mantissa * 32.0), e - 5);
            p = n / 15 % 4 == 1 ? bucketStart : n / 15 % 4 == 2 ? down(bucketStart) : p;
            p = std::max(p, aboveCritical ? up(tvl::kCriticalPressure) : tvl::kIcePointSaturationPressure);
            const double Ts = water.TSP(p);
            const double waterLine = water.S1PT(p, Ts), steamLine = water.S2PT(p, Ts);
            const double region5Line = water.S2PT(p, tvl::kRegion25Temperature) * m;
            const double lines[] = {waterLine, steamLine, region5Line};
            double s = aboveCritical ? region5Line : lines[n % 3];
            switch (n / 3 % 5) {
            case 0: break;
            case 1: s = up(s); break;
            case 2: s = down(s); break;
            case 3: s += (unit(random) - 0.5) * 1e-2; break;
            default: s = 11000.0 * unit(random); break;
            }
            int expected = region5Line >= s ? 2 : 5;
            if (aboveCritical) {
                if (!(s >= 6522.64 && s <= 7000.7)) continue;
            } else if (waterLine >= s) {
                expected = 1;
            } else if (steamLine > s) {
                expected = 4;
            }
            ++compared;
            if (lib.WATERSTATEAREAPS(p, s) != expected) ++disagreements;
        }
        EXPECT_EQ(disagreements, 0) << "toleranceMode " << c.toleranceMode << ", tolerance " << c.tolerance;
        EXPECT_GT(compared, 25000);
    }
}

}  // namespace
