// The properties of a gas by id and by composition text, and the fractions of a species in a
// mixture. Each property is one formula on the species, shared by the two forms; the pressure
// enters only through the ideal-gas terms.
#include <cmath>

#include "gas/composition.h"
#include "gas/gas_catalog.h"
#include "gas/gas_constants.h"
#include "gas/gas_inversion.h"

namespace tvl {

namespace {

double isochoricHeat(const GasSpecies& gas, double T) { return gas.specificHeat(T) - gas.gasConstant; }
double internalEnergy(const GasSpecies& gas, double T) { return gas.enthalpy(T) - gas.gasConstant * T; }
double entropyAt(const GasSpecies& gas, double p, double T) {
    return gas.entropy(T) + gas.gasConstant * (kLogReferenceStatePressure - std::log(p));
}
double volumeAt(const GasSpecies& gas, double p, double T) { return T * gas.gasConstant / p; }
double enthalpyInverse(const GasSpecies& gas, double h) {
    return temperatureFromEnthalpy(gas, h, kEnthalpyInversionStart);
}
double entropyInverse(const GasSpecies& gas, double s) {
    return temperatureFromEntropy(gas, s, gas.roughTemperature(s));
}
// The target is moved to the reference pressure first.
double pressureEntropyInverse(const GasSpecies& gas, double p, double s) {
    const double atReference = s + gas.gasConstant * (std::log(p) - kLogReferenceStatePressure);
    return temperatureFromEntropy(gas, atReference, gas.roughTemperature(atReference));
}
double pressureFromEntropy(const GasSpecies& gas, double T, double s) {
    return std::exp(kLogReferenceStatePressure + (gas.entropy(T) - s) / gas.gasConstant);
}

}  // namespace

double GasCatalog::VFIDID(std::int32_t mixture, std::int32_t species) const {
    const GasSpecies& in = speciesWithId(mixture);
    return in.volumeFraction(speciesWithId(species));
}

double GasCatalog::MFIDID(std::int32_t mixture, std::int32_t species) const {
    const GasSpecies& in = speciesWithId(mixture);
    return in.massFraction(speciesWithId(species));
}

// Both texts are resolved, the mixture first; these two do not prune the cache.
double GasCatalog::VFGSGS(const char* mixture, const char* species) {
    const GasSpecies& in = resolveComposition(*this, argumentText(mixture));
    return in.volumeFraction(resolveComposition(*this, argumentText(species)));
}

double GasCatalog::MFGSGS(const char* mixture, const char* species) {
    const GasSpecies& in = resolveComposition(*this, argumentText(mixture));
    return in.massFraction(resolveComposition(*this, argumentText(species)));
}

double GasCatalog::CPIDT(std::int32_t id, double T) const { return speciesWithId(id).specificHeat(T); }
double GasCatalog::CVIDT(std::int32_t id, double T) const { return isochoricHeat(speciesWithId(id), T); }
double GasCatalog::HIDT(std::int32_t id, double T) const { return speciesWithId(id).enthalpy(T); }
double GasCatalog::UIDT(std::int32_t id, double T) const { return internalEnergy(speciesWithId(id), T); }
double GasCatalog::SIDT(std::int32_t id, double T) const { return speciesWithId(id).entropy(T); }
double GasCatalog::SIDPT(std::int32_t id, double p, double T) const { return entropyAt(speciesWithId(id), p, T); }
double GasCatalog::VIDT(std::int32_t id, double T) const {
    return volumeAt(speciesWithId(id), kReferenceStatePressure, T);
}
double GasCatalog::VIDPT(std::int32_t id, double p, double T) const { return volumeAt(speciesWithId(id), p, T); }
double GasCatalog::MMID(std::int32_t id) const { return speciesWithId(id).molarMass; }
double GasCatalog::GCID(std::int32_t id) const { return speciesWithId(id).gasConstant; }
double GasCatalog::TIDH(std::int32_t id, double h) const { return enthalpyInverse(speciesWithId(id), h); }
double GasCatalog::TIDS(std::int32_t id, double s) const { return entropyInverse(speciesWithId(id), s); }
double GasCatalog::TIDPS(std::int32_t id, double p, double s) const {
    return pressureEntropyInverse(speciesWithId(id), p, s);
}
double GasCatalog::PIDTS(std::int32_t id, double T, double s) const {
    return pressureFromEntropy(speciesWithId(id), T, s);
}

double GasCatalog::CPGST(const char* gs, double T) { return speciesOfText(gs).specificHeat(T); }
double GasCatalog::CVGST(const char* gs, double T) { return isochoricHeat(speciesOfText(gs), T); }
double GasCatalog::HGST(const char* gs, double T) { return speciesOfText(gs).enthalpy(T); }
double GasCatalog::UGST(const char* gs, double T) { return internalEnergy(speciesOfText(gs), T); }
double GasCatalog::SGST(const char* gs, double T) { return speciesOfText(gs).entropy(T); }
double GasCatalog::SGSPT(const char* gs, double p, double T) { return entropyAt(speciesOfText(gs), p, T); }
double GasCatalog::VGST(const char* gs, double T) { return volumeAt(speciesOfText(gs), kReferenceStatePressure, T); }
double GasCatalog::VGSPT(const char* gs, double p, double T) { return volumeAt(speciesOfText(gs), p, T); }
double GasCatalog::MMGS(const char* gs) { return speciesOfText(gs).molarMass; }
double GasCatalog::GCGS(const char* gs) { return speciesOfText(gs).gasConstant; }
double GasCatalog::TGSH(const char* gs, double h) { return enthalpyInverse(speciesOfText(gs), h); }
double GasCatalog::TGSS(const char* gs, double s) { return entropyInverse(speciesOfText(gs), s); }
double GasCatalog::TGSPS(const char* gs, double p, double s) {
    return pressureEntropyInverse(speciesOfText(gs), p, s);
}
double GasCatalog::PGSTS(const char* gs, double T, double s) { return pressureFromEntropy(speciesOfText(gs), T, s); }

}  // namespace tvl
