// Region 5, high-temperature steam: forward properties from gamma0 + gammar, and, as the release
// has no backward equations here, Newton searches from the library's own rough start fits for
// (p,h), (p,s), (h,s) and (density,h).
#include <cmath>

#include "frame/error_codes.h"
#include "water/formulation/gibbs_properties.h"
#include "water/formulation/constants.h"
#include "water/formulation/gibbs_terms.h"
#include "water/formulation/polynomial.h"
#include "water/formulation/tables/library_fits.h"
#include "water/formulation/tables/region5_coefficients.h"
#include "water/formulation/water_model.h"

namespace tvl {

namespace {

constexpr double R = kGasConstant;
constexpr double kPressure = 1e6;        // reducing pressure, Pa
constexpr double kTemperature = 1000.0;  // reducing temperature, K
constexpr double kRT = 461526.0;         // R times 1000, J/kg

inline constexpr auto kResidual = withProducts(kRegion5Residual);
inline constexpr auto kIdeal = withProducts(kRegion5Ideal);
// pi up to I + 1: the Joule-Thomson form reads one power more than the Gibbs sums.
constexpr int kReachPi = reachOfI(kRegion5Residual, 2) + 1;
// Residual and ideal part both run in tau itself, so one table serves both.
constexpr int kReachTau = reachOfJ(kRegion5Residual, 2) > reachOfIdeal(kRegion5Ideal)
                              ? reachOfJ(kRegion5Residual, 2)
                              : reachOfIdeal(kRegion5Ideal);

// The library's start fits: temperature from enthalpy and from entropy, and the start pressure
// of the (h,s) search as an ideal-gas isotherm through 611 Pa.
double startTemperatureFromEnthalpy(double h) {
    return kRegion5StartEnthalpySlope * h - kRegion5StartEnthalpyOffset;
}
double startTemperatureFromEntropy(double s) { return kRegion5StartEntropySlope * s - kRegion5StartEntropyOffset; }

// The sums at tau with the powers of pi already in x.
template <unsigned Wanted>
GibbsSums region5SumsAt(const PowerTable& x, PowerTable& y, double pi, double tau, double logPi) {
    y.fill(tau, kReachTau);
    const GibbsSums residual = residualSums<Wanted>(kResidual, x, y);
    const GibbsSums ideal = idealSums<Wanted>(kIdeal, y);
    return combinedSums<Wanted>(pi, ideal, residual, logPi);
}

template <unsigned Wanted>
GibbsPoint region5At(PowerTable& x, PowerTable& y, double p, double T) {
    const double pi = p / kPressure;
    const double tau = kTemperature / T;
    x.fill(pi, kReachPi);
    double logPi = 0.0;
    if constexpr ((Wanted & kGamma) != 0) logPi = std::log(pi);
    return {pi, tau, region5SumsAt<Wanted>(x, y, pi, tau, logPi)};
}

}  // namespace

double WaterModel::V5PT(double p, double T) {
    return gibbs::volume(region5At<kGammaPi>(xPowers, yPowers, p, T), T, kPressure);
}

// Density from the residual part alone: pi gamma_pi = 1 + pi gammar_pi.
double WaterModel::D5PT(double p, double T) {
    const double pi = p / kPressure;
    xPowers.fill(pi, kReachPi);
    yPowers.fill(kTemperature / T, kReachTau);
    const GibbsSums residual = residualSums<kGammaPi>(kResidual, xPowers, yPowers);
    return p / ((1.0 + pi * residual.gPi) * R * T);
}

double WaterModel::U5PT(double p, double T) {
    return gibbs::internalEnergy(region5At<kGammaPi | kGammaTau>(xPowers, yPowers, p, T), T);
}

double WaterModel::S5PT(double p, double T) {
    return gibbs::entropy(region5At<kGamma | kGammaTau>(xPowers, yPowers, p, T));
}

double WaterModel::H5PT(double p, double T) {
    return gibbs::enthalpy(region5At<kGammaTau>(xPowers, yPowers, p, T), kRT);
}

double WaterModel::CP5PT(double p, double T) {
    return gibbs::isobaricHeatCapacity(region5At<kGammaTauTau>(xPowers, yPowers, p, T));
}

double WaterModel::CV5PT(double p, double T) {
    return gibbs::isochoricHeatCapacity(region5At<kGammaPi | kGammaPiPi | kGammaTauTau | kGammaPiTau>(xPowers, yPowers, p, T));
}

double WaterModel::W5PT(double p, double T) {
    return gibbs::speedOfSound(region5At<kGammaPi | kGammaPiPi | kGammaTauTau | kGammaPiTau>(xPowers, yPowers, p, T), T);
}

// Not the isenthalpic slope T gamma_pitau / (p* tau gamma_tautau): the residual sums carry one
// more power of pi, in the numerator and in the residual part of the denominator. This form is
// the library's region 5 Joule-Thomson coefficient and is kept as it stands.
double WaterModel::JOULETHOMPSON5PT(double p, double T) {
    const double pi = p / kPressure;
    const double tau = kTemperature / T;
    xPowers.fill(pi, kReachPi);
    yPowers.fill(tau, kReachTau);
    double numerator = 0.0;
    double residualCurvature = 0.0;
    for (const ResidualProductTerm& t : kResidual) {
        numerator += t.nIJ * xPowers(t.I) * yPowers(t.J - 1);
        residualCurvature += t.nJJ * xPowers(t.I + 1) * yPowers(t.J - 2);
    }
    const GibbsSums ideal = idealSums<kGammaTauTau>(kIdeal, yPowers);
    return numerator * T / (kPressure * tau * (residualCurvature + ideal.gTauTau));
}

double WaterModel::DDDPH5(double p, double T) {
    return gibbs::densityByPressureAtEnthalpy(region5At<gibbs::kDensityDerivativeTerms>(xPowers, yPowers, p, T), T);
}

double WaterModel::DDDHP5(double p, double T) {
    return gibbs::densityByEnthalpyAtPressure(region5At<gibbs::kDensityDerivativeTerms>(xPowers, yPowers, p, T), p,
                                              kRT);
}

StateProperties WaterModel::VUSHCVWDERPT5PT(double p, double T) {
    return gibbs::stateProperties(region5At<kAllGibbsTerms>(xPowers, yPowers, p, T), p, T, kPressure, kRT);
}

// ---- Searches: there is no backward equation, so these run in any toleranceMode ----

namespace {

// A root just above the upper limit, within the stop limit, is taken as the limit itself, so that
// a state on the limit does not fail the range test by rounding.
double snapToHighestTemperature(const ModelSettings& settings, double T, double limit) {
    if (settings.checksOn() && std::fabs(kHighestTemperature - T) <= limit && T > kHighestTemperature)
        return kHighestTemperature;
    return T;
}

}  // namespace

double WaterModel::T5PH(double p, double h) {
    const double pi = p / kPressure;
    xPowers.fill(pi, kReachPi);
    double T = startTemperatureFromEnthalpy(h);
    // The limit is fixed at the start value's scale.
    const double limit = T * settings.tolerance;
    int count = 1;
    for (;; ++count) {
        const double tau = kTemperature / T;
        const GibbsSums g = region5SumsAt<kGammaTau | kGammaTauTau>(xPowers, yPowers, pi, tau, 0.0);
        const double enthalpy = kRT * g.gTau;
        const double cp = -R * tau * tau * g.gTauTau;
        const double step = -(enthalpy - h) / cp;
        T += step;
        if (count > settings.maxIterations) throw kRootNotFound;
        if (!(std::fabs(step) >= limit)) break;
    }
    if (count >= settings.maxIterations) throw kRootNotFound;
    T = snapToHighestTemperature(settings, T, limit);
    solved.PublishTemperature(T);
    return T;
}

double WaterModel::T5PS(double p, double s) {
    const double pi = p / kPressure;
    const double logPi = std::log(pi);
    xPowers.fill(pi, kReachPi);
    double T = startTemperatureFromEntropy(s);
    const double limit = T * settings.tolerance;
    int count = 1;
    for (;; ++count) {
        const double tau = kTemperature / T;
        const GibbsSums g = region5SumsAt<kGamma | kGammaTau | kGammaTauTau>(xPowers, yPowers, pi, tau, logPi);
        const double entropy = R * (tau * g.gTau - g.g);
        const double cp = -R * tau * tau * g.gTauTau;
        const double step = -(entropy - s) * T / cp;
        T += step;
        if (count > settings.maxIterations) throw kRootNotFound;
        if (!(std::fabs(step) >= limit)) break;
    }
    if (count >= settings.maxIterations) throw kRootNotFound;
    T = snapToHighestTemperature(settings, T, limit);
    solved.PublishTemperature(T);
    return T;
}

// The start is a crude fit, good to a few per cent: with toleranceMode off it is the answer.
void WaterModel::PT5HS(double h, double s, double& p, double& T) {
    T = startTemperatureFromEnthalpy(h);
    const double startEntropy = S5PT(kRegion5StartReferencePressure, T);
    p = std::exp(std::log(kRegion5StartReferencePressure) + (startEntropy - s) * kRegion5StartLogPressurePerEntropy);
    solved.PublishPressure(p);
    solved.PublishTemperature(T);
    if (settings.refining()) SolveRegion5HS(h, s, p, T);
    solved.PublishPressure(p);
    solved.PublishTemperature(T);
}

double WaterModel::P5HS(double h, double s) {
    double p;
    double T;
    PT5HS(h, s, p, T);
    return p;
}

double WaterModel::T5HS(double h, double s) {
    double p;
    double T;
    PT5HS(h, s, p, T);
    return T;
}

// Newton on (p, T) for the given h and s; the stop limits scale with the targets, without an
// absolute value.
void WaterModel::SolveRegion5HS(double h, double s, double& p, double& T) {
    const double limitH = settings.tolerance * h;
    const double limitS = settings.tolerance * s;
    for (int count = 1;; ++count) {
        const gibbs::NewtonStep step = gibbs::stepTowardsEnthalpyEntropy(
            region5At<gibbs::kEnthalpyEntropyTerms>(xPowers, yPowers, p, T), T, kPressure, kRT, h, s);
        p += step.dp;
        T += step.dT;
        if (count > settings.maxIterations) throw kRootNotFound;
        // The residuals are those before this turn's step.
        if (std::fabs(step.residualH) >= limitH || std::fabs(step.residualOther) >= limitS) continue;
        if (count >= settings.maxIterations) throw kRootNotFound;
        break;
    }
    solved.PublishPressure(p);
    solved.PublishTemperature(T);
}

// Newton on (p, T) for the given density and enthalpy from the start in p and T, which the
// caller sets. The density limit is the one absolute scale of the water model: below 1 kg/m3,
// common here, the density is held to 1e4 times the tolerance.
void WaterModel::PT5RH(double density, double h, double& p, double& T) {
    const double eps = settings.tolerance;
    const double limitH = std::fabs(h) > 1.0 ? eps * h : eps * 10000.0;
    const double limitD = std::fabs(density) > 1.0 ? eps * density : eps * 10000.0;
    int count = 0;
    for (;;) {
        ++count;
        const gibbs::NewtonStep step = gibbs::stepTowardsDensityEnthalpy(
            region5At<gibbs::kDensityEnthalpyTerms>(xPowers, yPowers, p, T), T, kPressure, kRT, density, h);
        p += step.dp;
        T += step.dT;
        if (p < 0.0) p = 1000.0;
        if (T < 0.0) T = 1300.0;
        if (count > settings.maxIterations) break;
        if (!(std::fabs(step.residualH) >= limitH || std::fabs(step.residualOther) >= limitD)) break;
    }
    if (count >= settings.maxIterations) throw kRootNotFound;
    solved.PublishPressure(p);
    solved.PublishTemperature(T);
}

}  // namespace tvl
