// GasSpecies: one ideal gas or mixture. A mixture carries the mole-weighted blend of its
// components' fit coefficients, so that every property below works on it without a branch;
// the blending itself is in gas_mixing.cpp.
#ifndef TAVLIB6_GAS_RECORD_H
#define TAVLIB6_GAS_RECORD_H

#include <cstdint>
#include <memory>
#include <string_view>

#include "frame/model_state.h"
#include "gas/gas_fit_table.h"
#include "gas/gas_hash_map.h"

namespace tvl {

class GasCatalog;
class GasSpecies;

// The amounts of one direct component of a mixture: volume (mole) amount and mass in kg.
struct GasComponentAmounts {
    double volume;
    double mass;
};

using GasComponentMap = GasHashMap<AddressKey<GasSpecies>, GasComponentAmounts>;

class GasSpecies {
public:
    // A built-in gas from its row; the offsets put the tabulated enthalpy and entropy at the
    // reference state.
    GasSpecies(const GasFitRow& row, std::string_view name, const ModelSettings& settings, GasCatalog& catalog);
    // An empty record, all numbers 0, with or without a name; its first component gives it values.
    GasSpecies(const ModelSettings& settings, GasCatalog& catalog);
    GasSpecies(std::string_view name, const ModelSettings& settings, GasCatalog& catalog);
    GasSpecies(const GasSpecies&) = delete;
    GasSpecies& operator=(const GasSpecies&) = delete;

    // Properties of temperature alone. entropy is at kReferenceStatePressure (100000 Pa).
    double specificHeat(double T) const;               // J/(kg K)
    double enthalpy(double T) const;                   // J/kg
    double entropy(double T) const;                    // J/(kg K)
    double enthalpy(double T, double& specificHeat) const;  // with the slope of the same T
    double entropy(double T, double& specificHeat) const;
    // Start of the entropy inversions: a parabola in s through 300, 1500 and 2500 K.
    double roughTemperature(double s) const { return (s * roughT2 + roughT1) * s + roughT0; }
    void refreshRoughPolynomial();

    // Mixing (gas_mixing.cpp). addComponent blends in a volume amount and a mass; the two
    // halves are open for the composition parser, which refreshes the mixing entropy once
    // after its last component.
    void addComponent(GasSpecies& component, double volume, double mass);
    bool blendComponent(GasSpecies& component, double volume, double mass);  // false: nothing to add
    void refreshMixingEntropy();
    double volumeFraction(const GasSpecies& species) const;
    double massFraction(const GasSpecies& species) const;
    bool containsSpecies(const GasSpecies& species) const;

    // Reference counting by hand: the id map, the composition cache and each mixture that
    // uses the record hold one each. The last release destroys the record.
    void addReference() { ++referenceCount; }
    void release() {
        if (--referenceCount == 0) destroy(this);
    }

    std::unique_ptr<char[]> name;  // absent for a mixture made by tvlgNEWID
    std::int32_t id = 0;           // 0 until the catalogue gives one, -1 once it dropped the record
    std::int32_t referenceCount = 1;
    const ModelSettings& settings;
    double molarMass = 0.0;                       // kg/mol
    double cpA[kPositivePowerCount] = {};         // a0 .. a6
    double cpB[kNegativePowerCount] = {};         // b1 .. b6
    double enthalpyRefTemperature = 0.0;          // K
    double entropyRefTemperature = 0.0;           // K
    double entropyRefPressure = 0.0;              // Pa
    double enthalpyRef = 0.0;                     // J/mol
    double entropyRef = 0.0;                      // J/(mol K)
    double gasConstant = 0.0;                     // J/(kg K)
    double enthalpyOffset = 0.0;                  // K: integration constant over gasConstant
    double entropyOffset = 0.0;                   // integration constant over gasConstant
    double mixingEntropy = 0.0;                   // -sum x ln x over the built-in gases
    double roughT0 = 0.0;
    double roughT1 = 0.0;
    double roughT2 = 0.0;
    GasComponentMap components;                   // direct components; empty for a row
    GasCatalog& catalog;
    double totalVolume = 0.0;                     // sum of the volume amounts; 1 for a row
    double totalMass = 0.0;                       // sum of the masses; molarMass for a row

private:
    ~GasSpecies() = default;  // through release() only
    static void destroy(GasSpecies* record);
    GasSpecies* nextToDestroy = nullptr;

    // Scratch of the walks over nested mixtures: a walk marks what it has seen, so that a
    // component shared by several branches is worked out once.
    friend struct SpeciesWalk;
    mutable std::uint64_t walkMark = 0;
    mutable double walkValue = 0.0;
    mutable double walkFractions[kBuiltInGasCount] = {};  // the volume fractions of the built-in gases
};

// The first reference of a new record, released on the way out unless a map took it over.
struct SpeciesReleaser {
    void operator()(GasSpecies* species) const { species->release(); }
};
using SpeciesHandle = std::unique_ptr<GasSpecies, SpeciesReleaser>;

}  // namespace tvl

#endif
