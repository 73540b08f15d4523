// The wet area by (T, x), and the dryness fraction from T and one property. Volumes, energies,
// entropies and enthalpies mix linearly in x; density mixes through the volumes; cv, the
// isentropic exponent and the speed of sound take the two-phase side of the saturated states;
// the Joule-Thomson coefficient is the inverse slope of the line whatever x is. cp and the
// transport properties have no meaning in the wet area: with checkRangeMode on they are refused
// before anything is evaluated, so that every dispatcher that reaches a wet state through these
// rules refuses it alike; with checks off they give the plain mixture.
#include <cmath>

#include "frame/error_codes.h"
#include "water/dispatch/two_phase_rules.h"
#include "water/formulation/water_model.h"

namespace tvl {

namespace {

using two_phase::fraction;
using two_phase::mix;

void refuseUnderChecks(const ModelSettings& settings) {
    if (settings.checksOn()) throw kOutOfRange;
}

// A property of the two saturated phases by T, water's and steam's.
struct SaturatedPair {
    double (WaterModel::*water)(double T);
    double (WaterModel::*steam)(double T);
};

// The properties that mix linearly in x; cv is that of each phase's two-phase side.
constexpr SaturatedPair kVolume = {&WaterModel::VSWT, &WaterModel::VSST};
constexpr SaturatedPair kInternalEnergy = {&WaterModel::USWT, &WaterModel::USST};
constexpr SaturatedPair kEntropy = {&WaterModel::SSWT, &WaterModel::SSST};
constexpr SaturatedPair kEnthalpy = {&WaterModel::HSWT, &WaterModel::HSST};
constexpr SaturatedPair kIsochoricHeat = {&WaterModel::CVDPSWT, &WaterModel::CVDPSST};

// The properties that have no meaning for the wet mixture: refused with checks on; without them
// the phases' values are mixed, or x is worked out from them. The kinematic viscosities of the
// phases mix, and so do their Prandtl numbers: a mean of the phases' values, not the value of
// mean properties.
constexpr SaturatedPair kIsobaricHeat = {&WaterModel::CPSWT, &WaterModel::CPSST};
constexpr SaturatedPair kConductivity = {&WaterModel::THERMCONDSWT, &WaterModel::THERMCONDSST};
constexpr SaturatedPair kViscosity = {&WaterModel::DYNVISSWT, &WaterModel::DYNVISSST};
constexpr SaturatedPair kKinematicViscosity = {&WaterModel::KINVISSWT, &WaterModel::KINVISSST};
constexpr SaturatedPair kPrandtl = {&WaterModel::PRANDTLESWT, &WaterModel::PRANDTLESST};

double mixed(WaterModel& w, const SaturatedPair& pair, double T, double x) {
    return mix((w.*pair.water)(T), (w.*pair.steam)(T), x);
}

double fractionOf(WaterModel& w, const SaturatedPair& pair, double T, double y) {
    return fraction((w.*pair.water)(T), (w.*pair.steam)(T), y);
}

double refusedMix(WaterModel& w, const SaturatedPair& pair, double T, double x) {
    refuseUnderChecks(w.settings);
    return mixed(w, pair, T, x);
}

double refusedFraction(WaterModel& w, const SaturatedPair& pair, double T, double y) {
    refuseUnderChecks(w.settings);
    return fractionOf(w, pair, T, y);
}

// The equilibrium mixture along the line: with A = -cv / (T g^2) of each phase on its two-phase
// side, the exponent is K = -v / (((1 - x) A' + x A'') p), so that (1 - x) A' + x A'' plays the
// part of the mixture's (dv/dp) along an isentrope.
struct WetCompressibility {
    double p;
    double waterVolume;
    double steamVolume;
    double waterA;
    double steamA;
};

WetCompressibility wetCompressibility(WaterModel& model, double T) {
    const StateProperties water = model.VUSHCVWDERPTSWT(T);
    const StateProperties steam = model.VUSHCVWDERPTSST(T);
    const double g = model.DPDTST(T);
    const double scale = -1.0 / (T * g * g);
    return {model.PST(T), water.v, steam.v, two_phase::twoPhaseSideCv(water, T, g) * scale,
            two_phase::twoPhaseSideCv(steam, T, g) * scale};
}

double exponentOfMixture(const WetCompressibility& wet, double x) {
    return -mix(wet.waterVolume, wet.steamVolume, x) / (mix(wet.waterA, wet.steamA, x) * wet.p);
}

}  // namespace

// The mixtures and dryness fractions of the saturated pairs above.
#include "water/dispatch/generated/two_phase.inc"

// ---- Mixture by (T, x) ----

// The volumes mix, not the densities.
double WaterModel::DSTX(double T, double x) {
    const double water = DSWT(T);
    const double steam = DSST(T);
    return water * steam / mix(steam, water, x);
}

double WaterModel::KSTX(double T, double x) { return exponentOfMixture(wetCompressibility(*this, T), x); }

double WaterModel::WSTX(double T, double x) {
    const WetCompressibility wet = wetCompressibility(*this, T);
    const double v = mix(wet.waterVolume, wet.steamVolume, x);
    return std::sqrt(exponentOfMixture(wet, x) * wet.p * v);
}

// An isenthalp crosses the wet area along no isotherm at fixed p: the inverse slope of the line.
double WaterModel::JOULETHOMPSONSTX(double T, double) { return 1.0 / DPDTST(T); }

// ---- Dryness fraction from T and a property ----

double WaterModel::XSTD(double T, double rho) {
    const double water = DSWT(T);
    const double steam = DSST(T);
    return (water - rho) * (steam / rho) / (water - steam);
}

// The rule of KSTX solved for x: k p ((1 - x) A' + x A'') = -((1 - x) v' + x v'').
double WaterModel::XSTK(double T, double exponent) {
    const WetCompressibility wet = wetCompressibility(*this, T);
    const double kp = exponent * wet.p;
    return (wet.waterVolume + wet.waterA * kp) /
           ((wet.waterVolume - wet.steamVolume) + (wet.waterA - wet.steamA) * kp);
}

// The rule of WSTX squared, w^2 ((1 - x) A' + x A'') + ((1 - x) v' + x v'')^2 = 0, is a quadratic
// in x. The first root within 0 to 1 wins, the one with the plus sign tried first; none is a
// failure of the arguments.
double WaterModel::XSTW(double T, double w) {
    const WetCompressibility wet = wetCompressibility(*this, T);
    const double dv = wet.steamVolume - wet.waterVolume;
    const double w2 = w * w;
    const double B = (wet.steamA - wet.waterA) * w2 + 2.0 * wet.waterVolume * dv;
    const double C = wet.waterVolume * wet.waterVolume + wet.waterA * w2;
    const double S = std::sqrt(B * B - 4.0 * dv * dv * C);
    const double twoA = 2.0 * dv * dv;
    const double plus = (S - B) / twoA;
    if (plus >= 0.0 && plus <= 1.0) return plus;
    const double minus = (-B - S) / twoA;
    if (minus >= 0.0 && minus <= 1.0) return minus;
    throw kBadParameters;
}

// The coefficient does not depend on x: there is no fraction to find, only a value to confirm.
// The test is relative, by the value itself and without its sign, so that any negative value
// passes; it runs whatever checkRangeMode says, and a NaN never passes it.
double WaterModel::XSTJOULETHOMPSON(double T, double jouleThomson) {
    const double expected = 1.0 / DPDTST(T);
    const double deviation = std::fabs(expected - jouleThomson);
    const bool fits = jouleThomson == 0.0 ? deviation <= settings.tolerance
                                          : deviation / jouleThomson <= settings.tolerance;
    if (!fits) throw kOutOfRange;
    return 0.0;
}

}  // namespace tvl
