// Mixtures: blending a component into a mixture, and the fractions of a species in it, which
// descend through nested mixtures.
//
// A mixture's coefficients, molar mass, references and offsets are the mole-weighted means of
// its components'; its mixing entropy -sum x ln x is taken over the 13 built-in gases, so a
// nested mixture is seen through to the gases it is made of. The mixing arithmetic is paid
// here, once, and never in a property call.
#include <cmath>

#include "frame/error_codes.h"
#include "gas/gas_catalog.h"
#include "gas/gas_constants.h"
#include "gas/gas_record.h"

namespace tvl {

// Walks over the components of nested mixtures. A mixture reached by several branches is
// worked out once per walk (its mark and value are remembered), so that a walk costs one visit
// per record however the mixtures share their parts.
struct SpeciesWalk {
    std::uint64_t mark;

    // 1 if a is b, else sum over direct components c of fraction(c, b) times c's amount,
    // over a's total amount.
    double fraction(const GasSpecies& a, const GasSpecies& b, bool byMass) const {
        if (&a == &b) return 1.0;
        if (a.walkMark == mark) return a.walkValue;
        a.walkMark = mark;
        a.walkValue = 0.0;
        double sum = 0.0;
        for (const auto& component : a.components)
            sum += fraction(*component.key, b, byMass) * (byMass ? component.value.mass : component.value.volume);
        a.walkValue = sum / (byMass ? a.totalMass : a.totalVolume);
        return a.walkValue;
    }

    // fraction(a, row k, false) for the 13 rows at once, in one visit per record instead of 13
    // walks: the same products, summed in the same order, so the same bits.
    const double* builtInFractions(const GasSpecies& a, const GasSpecies* const (&rows)[kBuiltInGasCount]) const {
        if (a.walkMark == mark) return a.walkFractions;
        a.walkMark = mark;
        double sums[kBuiltInGasCount] = {};
        for (const auto& component : a.components) {
            const double* x = builtInFractions(*component.key, rows);
            for (int k = 0; k < kBuiltInGasCount; ++k) sums[k] += x[k] * component.value.volume;
        }
        for (int k = 0; k < kBuiltInGasCount; ++k) a.walkFractions[k] = &a == rows[k] ? 1.0 : sums[k] / a.totalVolume;
        return a.walkFractions;
    }

    // A record seen before in this walk did not contain b, or the walk would have ended there.
    bool contains(const GasSpecies& a, const GasSpecies& b) const {
        if (&a == &b) return true;
        if (a.walkMark == mark) return false;
        a.walkMark = mark;
        if (a.components.contains(&b)) return true;
        for (const auto& component : a.components)
            if (contains(*component.key, b)) return true;
        return false;
    }
};

double GasSpecies::volumeFraction(const GasSpecies& species) const {
    return SpeciesWalk{catalog.nextWalkMark()}.fraction(*this, species, false);
}

double GasSpecies::massFraction(const GasSpecies& species) const {
    return SpeciesWalk{catalog.nextWalkMark()}.fraction(*this, species, true);
}

bool GasSpecies::containsSpecies(const GasSpecies& species) const {
    return SpeciesWalk{catalog.nextWalkMark()}.contains(*this, species);
}

void GasSpecies::addComponent(GasSpecies& component, double volume, double mass) {
    if (blendComponent(component, volume, mass)) refreshMixingEntropy();
}

// Refuses before it changes anything: a negative amount, a component that would make the
// mixture contain itself or nest it deeper than kMaxMixtureDepth. A NaN amount passes these
// tests and blends as it is.
bool GasSpecies::blendComponent(GasSpecies& component, double volume, double mass) {
    if (volume < 0.0) throw kOutOfRange;
    if (volume == 0.0) return false;
    if (component.containsSpecies(*this)) throw kBadParameters;
    if (component.depth >= kMaxMixtureDepth) throw kBadParameters;

    if (GasComponentAmounts* amounts = components.find(&component)) {
        amounts->volume += volume;
        amounts->mass += mass;
    } else {
        components.insert(&component, GasComponentAmounts{volume, mass});
        component.addReference();
    }

    // The first component of an empty mixture has w = 0 and sets every field.
    const double w = totalVolume / (totalVolume + volume);
    const double u = 1.0 - w;
    const auto blend = [w, u](double& own, double theirs) { own = w * own + u * theirs; };
    for (int k = 0; k < kPositivePowerCount; ++k) blend(cpA[k], component.cpA[k]);
    for (int k = 0; k < kNegativePowerCount; ++k) blend(cpB[k], component.cpB[k]);
    blend(enthalpyRef, component.enthalpyRef);
    blend(molarMass, component.molarMass);
    blend(entropyRefPressure, component.entropyRefPressure);
    blend(entropyRef, component.entropyRef);
    blend(enthalpyRefTemperature, component.enthalpyRefTemperature);
    blend(entropyRefTemperature, component.entropyRefTemperature);
    blend(enthalpyOffset, component.enthalpyOffset);
    blend(entropyOffset, component.entropyOffset);

    totalVolume += volume;
    totalMass += mass;
    if (depth <= component.depth) depth = component.depth + 1;
    gasConstant = kMolarGasConstant / molarMass;
    return true;
}

// A component's own mixing entropy is not blended: the sum runs afresh over the built-in gases.
void GasSpecies::refreshMixingEntropy() {
    const GasSpecies* rows[kBuiltInGasCount];
    for (std::int32_t id = 0; id < kBuiltInGasCount; ++id) rows[id] = &catalog.speciesWithId(id);
    const double* fractions = SpeciesWalk{catalog.nextWalkMark()}.builtInFractions(*this, rows);
    double sum = 0.0;
    for (std::int32_t id = 0; id < kBuiltInGasCount; ++id) {
        const double x = fractions[id];
        if (x != 0.0) sum -= x * std::log(x);
    }
    mixingEntropy = sum;
    refreshRoughPolynomial();
}

}  // namespace tvl
