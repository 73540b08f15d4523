// Mixtures: blending a component into a mixture, and the fractions of a species in it, which
// descend through nested mixtures.
//
// A mixture's coefficients, molar mass, references and offsets are the mole-weighted means of
// its components'; its mixing entropy -sum x ln x is taken over the 13 built-in gases, so a
// nested mixture is seen through to the gases it is made of. The mixing arithmetic is paid
// here, once, and never in a property call.
#include <cmath>
#include <vector>

#include "frame/error_codes.h"
#include "gas/gas_catalog.h"
#include "gas/gas_constants.h"
#include "gas/gas_record.h"

namespace tvl {

// Walks over the components of nested mixtures. A mixture reached by several branches is
// worked out once per walk (its mark and value are remembered), so that a walk costs one visit
// per record however the mixtures share their parts. The levels of a walk stand on a stack of
// their own on the heap, so that mixtures nest as deep as memory allows: the depth of the
// nesting never meets the depth of the call stack.
struct SpeciesWalk {
    std::uint64_t mark;

    // A mixture whose components are being summed: the next component, and the sums so far.
    template <int Sums>
    struct Level {
        const GasSpecies* species;
        GasComponentMap::Iterator next;
        double sums[Sums];
    };

    // Visits a's components depth first and sums over each record's direct components, in
    // their order, value(component) times amount(component); finish(record, sums) then gives
    // the record's value. known(record) gives the value of a record that needs no visit, or
    // null. The arithmetic is that of the plain recursion, step for step.
    template <int Sums, class Known, class Amount, class Finish>
    const double* sumUp(const GasSpecies& a, Known known, Amount amount, Finish finish) const {
        std::vector<Level<Sums>> stack;
        const auto enter = [&](const GasSpecies& species) {
            species.walkMark = mark;
            stack.push_back(Level<Sums>{&species, species.components.begin(), {}});
        };
        enter(a);
        const auto add = [](Level<Sums>& level, const double* value, double weight) {
            for (int k = 0; k < Sums; ++k) level.sums[k] += value[k] * weight;
            ++level.next;
        };
        for (;;) {
            Level<Sums>& top = stack.back();
            if (top.next != GasComponentMap::Iterator()) {
                const GasComponentMap::Node& component = *top.next;
                const double* value = known(*component.key);
                if (value == nullptr) enter(*component.key);
                else add(top, value, amount(component));
                continue;
            }
            const double* value = finish(*top.species, top.sums);
            stack.pop_back();
            if (stack.empty()) return value;
            add(stack.back(), value, amount(*stack.back().next));
        }
    }

    // 1 if a is b, else sum over direct components c of fraction(c, b) times c's amount,
    // over a's total amount.
    double fraction(const GasSpecies& a, const GasSpecies& b, bool byMass) const {
        static constexpr double kOne = 1.0;
        if (&a == &b) return 1.0;
        if (a.walkMark == mark) return a.walkValue;
        a.walkValue = 0.0;
        const auto known = [&](const GasSpecies& c) -> const double* {
            if (&c == &b) return &kOne;
            if (c.walkMark == mark) return &c.walkValue;
            c.walkValue = 0.0;
            return nullptr;
        };
        const auto amount = [byMass](const GasComponentMap::Node& c) { return byMass ? c.value.mass : c.value.volume; };
        const auto finish = [byMass](const GasSpecies& c, const double* sums) -> const double* {
            c.walkValue = sums[0] / (byMass ? c.totalMass : c.totalVolume);
            return &c.walkValue;
        };
        return *sumUp<1>(a, known, amount, finish);
    }

    // fraction(a, row k, false) for the 13 rows at once, in one visit per record instead of 13
    // walks: the same products, summed in the same order, so the same bits.
    const double* builtInFractions(const GasSpecies& a, const GasSpecies* const (&rows)[kBuiltInGasCount]) const {
        if (a.walkMark == mark) return a.walkFractions;
        const auto known = [&](const GasSpecies& c) -> const double* {
            return c.walkMark == mark ? c.walkFractions : nullptr;
        };
        const auto amount = [](const GasComponentMap::Node& c) { return c.value.volume; };
        const auto finish = [&rows](const GasSpecies& c, const double* sums) -> const double* {
            for (int k = 0; k < kBuiltInGasCount; ++k) c.walkFractions[k] = &c == rows[k] ? 1.0 : sums[k] / c.totalVolume;
            return c.walkFractions;
        };
        return sumUp<kBuiltInGasCount>(a, known, amount, finish);
    }

    // Whether b is a or lies anywhere below it. A record seen before in this walk did not hold
    // b, or the walk would have ended there.
    bool contains(const GasSpecies& a, const GasSpecies& b) const {
        std::vector<const GasSpecies*> pending{&a};
        while (!pending.empty()) {
            const GasSpecies& species = *pending.back();
            pending.pop_back();
            if (&species == &b) return true;
            if (species.walkMark == mark) continue;
            species.walkMark = mark;
            if (species.components.contains(&b)) return true;
            for (const auto& component : species.components) pending.push_back(component.key);
        }
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
// mixture contain itself. A NaN amount passes these tests and blends as it is.
bool GasSpecies::blendComponent(GasSpecies& component, double volume, double mass) {
    if (volume < 0.0) throw kOutOfRange;
    if (volume == 0.0) return false;
    if (component.containsSpecies(*this)) throw kBadParameters;

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
