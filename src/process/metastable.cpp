// Metastable vapour: steam expanded past the saturation line that stays vapour for a while. The
// supplementary equation of IF97: the ideal part of region 2 with two readjusted coefficients,
// and a residual part of its own. No iteration, nothing published.
#include <cmath>

#include "water/formulation/constants.h"
#include "water/formulation/gibbs_properties.h"
#include "water/formulation/gibbs_terms.h"
#include "water/formulation/polynomial.h"
#include "water/formulation/tables/metastable_coefficients.h"
#include "water/formulation/water_model.h"

namespace tvl {

namespace {

constexpr double kPStar = 1e6;
constexpr double kTStar = 540.0;
constexpr double kRTStar = 249224.04;  // R times 540 K, J/kg
constexpr double kTauShift = 0.5;      // the residual part runs in tau - 0.5

inline constexpr auto kResidual = withProducts(kMetastableResidual);
inline constexpr auto kIdeal = withProducts(kMetastableIdeal);
constexpr int kReachPi = reachOfI(kMetastableResidual, 2);
constexpr int kReachY = reachOfJ(kMetastableResidual, 2);
constexpr int kReachTau = reachOfIdeal(kMetastableIdeal);

}  // namespace

template <unsigned Wanted>
GibbsPoint WaterModel::metastableAt(double p, double T) {
    const double pi = p / kPStar;
    const double tau = kTStar / T;
    xPowers.fill(pi, kReachPi);
    yPowers.fill(tau - kTauShift, kReachY);
    const GibbsSums residual = residualSums<Wanted>(kResidual, xPowers, yPowers);
    yPowers.fill(tau, kReachTau);
    const GibbsSums ideal = idealSums<Wanted>(kIdeal, yPowers);
    const double logPi = (Wanted & kGamma) != 0 ? std::log(pi) : 0.0;
    return {pi, tau, combinedSums<Wanted>(pi, ideal, residual, logPi)};
}

double WaterModel::VMSPT(double p, double T) {
    return gibbs::volume(metastableAt<kGammaPi>(p, T), T, kPStar);
}

double WaterModel::UMSPT(double p, double T) {
    return gibbs::internalEnergy(metastableAt<kGammaPi | kGammaTau>(p, T), T);
}

double WaterModel::SMSPT(double p, double T) {
    return gibbs::entropy(metastableAt<kGamma | kGammaTau>(p, T));
}

double WaterModel::HMSPT(double p, double T) {
    return gibbs::enthalpy(metastableAt<kGammaTau>(p, T), kRTStar);
}

double WaterModel::CPMSPT(double p, double T) {
    return gibbs::isobaricHeatCapacity(metastableAt<kGammaTauTau>(p, T));
}

double WaterModel::CVMSPT(double p, double T) {
    return gibbs::isochoricHeatCapacity(metastableAt<kGammaPi | kGammaPiPi | kGammaTauTau | kGammaPiTau>(p, T));
}

double WaterModel::WMSPT(double p, double T) {
    return gibbs::speedOfSound(metastableAt<kGammaPi | kGammaPiPi | kGammaTauTau | kGammaPiTau>(p, T), T);
}

// The ideal part has no mixed derivative, so only the residual sum enters the numerator.
double WaterModel::JOULETHOMPSONMSPT(double p, double T) {
    return gibbs::jouleThomson(metastableAt<kGammaTauTau | kGammaPiTau>(p, T), T, kPStar);
}

StateProperties WaterModel::VUSHCVWDERPTMSPT(double p, double T) {
    return gibbs::stateProperties(metastableAt<kAllGibbsTerms>(p, T), p, T, kPStar, kRTStar);
}

// Transport and derived properties at the density of the metastable equation, worked out for
// each factor on its own.
double WaterModel::THERMCONDMSPT(double p, double T) { return THERMCONDRT(1.0 / VMSPT(p, T), T); }

double WaterModel::DYNVISMSPT(double p, double T) { return DYNVISRT(1.0 / VMSPT(p, T), T); }

double WaterModel::PRANDTLEMSPT(double p, double T) {
    return CPMSPT(p, T) * DYNVISMSPT(p, T) / THERMCONDMSPT(p, T);
}

double WaterModel::KINVISMSPT(double p, double T) { return DYNVISMSPT(p, T) * VMSPT(p, T); }

// The local exponent of the isentrope p v^K = constant: w^2 / (p v).
double WaterModel::KMSPT(double p, double T) {
    const double w = WMSPT(p, T);
    return w * w / (VMSPT(p, T) * p);
}

}  // namespace tvl
