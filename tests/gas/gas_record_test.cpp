// The species record: the fits against the printed values, against the formulas written out
// power by power, and against their own derivatives; offsets, rough polynomial, empty records.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>

#include "gas/gas_constants.h"
#include "gas_fixture.h"
#include "water/formulation/constants.h"

namespace {

using gastest::GasTest;
using tvl::GasSpecies;
using tvltest::nearRelative;

// The printed values carry 10 significant digits or so; 5e-10 relative is half a unit of the
// last printed digit at worst.
constexpr double kPrinted = 5e-10;

TEST_F(GasTest, PrintedValuesOfTheRows) {
    const struct {
        std::int32_t id;
        double T, cp, h, s;  // 0 where nothing is printed
    } cases[] = {
        {gastest::kN2, 298.15, 1039.688484, 309494.7418, 6839.84962},
        {gastest::kN2, 1000.0, 1167.15959, 1075623.608, 8144.95524},
        {gastest::kH2O, 1000.0, 2291.779347, 0, 0},
        {gastest::kH2O, 298.15, 0, 549980.0169, 0},
    };
    for (auto c : cases) {
        const GasSpecies& gas = species(c.id);
        if (c.cp != 0) {
            EXPECT_TRUE(nearRelative(gas.specificHeat(c.T), c.cp, kPrinted)) << c.id << " cp at " << c.T;
        }
        if (c.h != 0) {
            EXPECT_TRUE(nearRelative(gas.enthalpy(c.T), c.h, kPrinted)) << c.id << " h at " << c.T;
        }
        if (c.s != 0) {
            EXPECT_TRUE(nearRelative(gas.entropy(c.T), c.s, kPrinted)) << c.id << " s at " << c.T;
        }
    }
    EXPECT_DOUBLE_EQ(species(gastest::kN2).gasConstant, 296.8033869505308);
    EXPECT_DOUBLE_EQ(species(gastest::kN2).enthalpy(298.15), 8670.0 / 0.0280134);
}

// P, H and Sigma as the formulas stand, power by power; the library evaluates them in Horner
// form, so the two agree to a few rounding units.
struct PlainFit {
    const GasSpecies& gas;
    double P(double theta) const {
        double sum = 0;
        for (int k = 0; k < 7; ++k) sum += gas.cpA[k] * std::pow(theta, k);
        for (int k = 1; k <= 6; ++k) sum += gas.cpB[k - 1] / std::pow(theta, k);
        return sum;
    }
    double H(double theta) const {
        double sum = gas.cpB[0] * std::log(theta);
        for (int k = 0; k < 7; ++k) sum += gas.cpA[k] * std::pow(theta, k + 1) / (k + 1);
        for (int k = 2; k <= 6; ++k) sum -= gas.cpB[k - 1] / ((k - 1) * std::pow(theta, k - 1));
        return sum;
    }
    double Sigma(double theta) const {
        double sum = gas.cpA[0] * std::log(theta);
        for (int k = 1; k < 7; ++k) sum += gas.cpA[k] * std::pow(theta, k) / k;
        for (int k = 1; k <= 6; ++k) sum -= gas.cpB[k - 1] / (k * std::pow(theta, k));
        return sum;
    }
};

}  // namespace
