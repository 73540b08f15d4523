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

TEST_F(GasTest, ArgonHasAConstantHeatCapacity) {
    for (double T : {200.0, 298.15, 700.0, 1234.5, 2500.0})
        EXPECT_DOUBLE_EQ(species(gastest::kAr).specificHeat(T), 520.3309302092721) << T;
    EXPECT_EQ(species(gastest::kAr).enthalpyRef, species(11).enthalpyRef) << "Ar and Ne share 6197 J/mol";
}

// The reference state of every row: the tabulated enthalpy at 298.15 K, and the tabulated
// entropy at 101325 Pa, which is entropy() at 100000 Pa plus R ln(100000/101325).
TEST_F(GasTest, RowsMeetTheirReferenceState) {
    for (std::int32_t id = 0; id < tvl::kBuiltInGasCount; ++id) {
        const GasSpecies& gas = species(id);
        const double R = gas.gasConstant;
        EXPECT_EQ(R, tvl::kMolarGasConstant / gas.molarMass) << gas.name.get();
        EXPECT_TRUE(nearRelative(gas.enthalpy(298.15), gas.enthalpyRef / gas.molarMass, 1e-14)) << gas.name.get();
        const double atTablePressure = gas.entropy(298.15) + R * (std::log(100000.0) - std::log(101325.0));
        EXPECT_TRUE(nearRelative(atTablePressure, gas.entropyRef / gas.molarMass, 1e-14)) << gas.name.get();
        EXPECT_EQ(gas.totalVolume, 1.0);
        EXPECT_EQ(gas.totalMass, gas.molarMass);
        EXPECT_EQ(gas.mixingEntropy, 0.0);
        EXPECT_EQ(gas.id, id);
        EXPECT_STREQ(gas.name.get(), tvl::kGasFitTable[id].name);
    }
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

TEST_F(GasTest, HornerFormAgreesWithTheFormulas) {
    // The sums cancel to about a tenth of their largest term near 200 K; 1e-12 leaves room for that.
    for (std::int32_t id = 0; id < gastest::kStartUpCount; ++id) {
        const GasSpecies& gas = species(id);
        const PlainFit plain{gas};
        const double R = gas.gasConstant;
        for (double T = 200.0; T <= 2500.0; T += 57.5) {
            const double theta = T / 1000.0;
            EXPECT_TRUE(nearRelative(gas.specificHeat(T), R * plain.P(theta), 1e-12)) << id << " cp " << T;
            EXPECT_TRUE(nearRelative(gas.enthalpy(T), R * (1000.0 * plain.H(theta) + gas.enthalpyOffset), 1e-12))
                << id << " h " << T;
            EXPECT_TRUE(nearRelative(gas.entropy(T), R * (plain.Sigma(theta) + gas.entropyOffset + gas.mixingEntropy),
                                     1e-12))
                << id << " s " << T;
            double cp = 0;
            EXPECT_EQ(gas.enthalpy(T, cp), gas.enthalpy(T));
            EXPECT_EQ(cp, gas.specificHeat(T)) << "the slope of the inversions is cp itself";
            EXPECT_EQ(gas.entropy(T, cp), gas.entropy(T));
            EXPECT_EQ(cp, gas.specificHeat(T));
        }
    }
}

// cp = dh/dT and cp/T = ds/dT, by central differences with a step of 1e-3 K: truncation about
// 1e-9 relative, rounding about 1e-10.
TEST_F(GasTest, HeatCapacityIsTheSlopeOfEnthalpyAndEntropy) {
    const double dT = 1e-3;
    for (std::int32_t id = 0; id < gastest::kStartUpCount; ++id) {
        const GasSpecies& gas = species(id);
        for (double T = 201.0; T < 2500.0; T += 111.0) {
            const double cp = gas.specificHeat(T);
            EXPECT_TRUE(nearRelative((gas.enthalpy(T + dT) - gas.enthalpy(T - dT)) / (2 * dT), cp, 1e-7)) << id << " " << T;
            EXPECT_TRUE(nearRelative(T * (gas.entropy(T + dT) - gas.entropy(T - dT)) / (2 * dT), cp, 1e-7)) << id << " " << T;
        }
    }
}

TEST_F(GasTest, RoughPolynomialPassesThroughItsPoints) {
    for (std::int32_t id = 0; id < gastest::kStartUpCount; ++id) {
        const GasSpecies& gas = species(id);
        for (double T : {300.0, 1500.0, 2500.0})
            EXPECT_TRUE(nearRelative(gas.roughTemperature(gas.entropy(T)), T, 1e-9)) << id << " at " << T;
    }
}

TEST_F(GasTest, EmptyRecordGivesZeros) {
    tvl::SpeciesHandle empty(new GasSpecies(lib.settings, gases));
    EXPECT_EQ(empty->name, nullptr);
    EXPECT_EQ(empty->referenceCount, 1);
    EXPECT_EQ(empty->id, 0);
    for (double T : {1.0, 300.0, 5000.0}) {
        EXPECT_EQ(empty->specificHeat(T), 0.0);
        EXPECT_EQ(empty->enthalpy(T), 0.0);
        EXPECT_EQ(empty->entropy(T), 0.0);
    }
    EXPECT_EQ(empty->roughTemperature(1234.0), 0.0);
    EXPECT_EQ(empty->totalVolume, 0.0);

    tvl::SpeciesHandle named(new GasSpecies(std::string_view("mine"), lib.settings, gases));
    EXPECT_STREQ(named->name.get(), "mine");
}

TEST_F(GasTest, NonPositiveTemperatureGivesWhatTheArithmeticGives) {
    EXPECT_FALSE(std::isfinite(species(gastest::kN2).enthalpy(0.0)));
    EXPECT_FALSE(std::isfinite(species(gastest::kN2).entropy(-5.0)));
}

std::uint64_t bits(double x) {
    std::uint64_t b;
    std::memcpy(&b, &x, sizeof b);
    return b;
}

TEST(GasConstants, LimitsAreTheWidenedEndsOfTheFits) {
    EXPECT_EQ(tvl::kGasLowestTemperature, tvl::kMinSpeciesTemperature * tvl::kOneMinusEps);
    EXPECT_EQ(tvl::kGasHighestTemperature, tvl::kMaxSpeciesTemperature * tvl::kOnePlusEps);
    EXPECT_EQ(bits(tvl::kGasLowestTemperature), 0x4068FFFFFFFFFFFEull);
    EXPECT_EQ(bits(tvl::kGasHighestTemperature), 0x40A3880000000001ull);
    EXPECT_EQ(tvl::kLogReferenceStatePressure, std::log(tvl::kReferenceStatePressure));
}

}  // namespace
