// Region 1, compressed liquid: forward properties from the Gibbs free energy gamma(pi, tau),
// the backward equations T(p,h), T(p,s), p(h,s), and the Newton refinements that make a
// backward result satisfy the forward equation to `tolerance` while toleranceMode is on.
#include <cmath>

#include "frame/error_codes.h"
#include "water/formulation/constants.h"
#include "water/formulation/gibbs_properties.h"
#include "water/formulation/polynomial.h"
#include "water/formulation/tables/region1_coefficients.h"
#include "water/formulation/water_model.h"

namespace tvl {

namespace {

constexpr double R = kGasConstant;
constexpr double kPStar = kRegion1Pressure;
constexpr int kReachX = reachOfI(kRegion1, 2);
constexpr int kReachY = reachOfJ(kRegion1, 2);

double reducedPressureShift(double p) { return 7.1 - p / kPStar; }
double reducedTemperatureShift(double tau) { return tau - 1.222; }

}  // namespace

// One pass over the 34 terms, forming the wanted sums from powers already in the tables.
// Derivatives read x^(I-1), x^(I-2) and the like even where I or J is zero: the term then
// multiplies its reciprocal power by that zero factor.
template <unsigned Wanted>
GibbsSums WaterModel::region1Sums() const {
    GibbsSums sums;
    const PowerTable& x = xPowers;
    const PowerTable& y = yPowers;
    for (const PowerTerm& t : kRegion1) {
        if constexpr ((Wanted & kGamma) != 0) sums.g += t.n * x(t.I) * y(t.J);
        if constexpr ((Wanted & kGammaPi) != 0) sums.gPi -= t.n * t.I * x(t.I - 1) * y(t.J);
        if constexpr ((Wanted & kGammaPiPi) != 0) sums.gPiPi += t.n * t.I * (t.I - 1) * x(t.I - 2) * y(t.J);
        if constexpr ((Wanted & kGammaTau) != 0) sums.gTau += t.n * t.J * x(t.I) * y(t.J - 1);
        if constexpr ((Wanted & kGammaTauTau) != 0) sums.gTauTau += t.n * t.J * (t.J - 1) * x(t.I) * y(t.J - 2);
        if constexpr ((Wanted & kGammaPiTau) != 0) sums.gPiTau -= t.n * t.I * t.J * x(t.I - 1) * y(t.J - 1);
    }
    return sums;
}

template <unsigned Wanted>
GibbsPoint WaterModel::region1At(double p, double T) {
    const double pi = p / kPStar;
    const double tau = kRegion1Temperature / T;
    xPowers.fill(reducedPressureShift(p), kReachX);
    yPowers.fill(reducedTemperatureShift(tau), kReachY);
    return {pi, tau, region1Sums<Wanted>()};
}

double WaterModel::V1PT(double p, double T) {
    return gibbs::volume(region1At<kGammaPi>(p, T), T, kPStar);
}

// Density is its own function, not the reciprocal of V1PT.
double WaterModel::D1PT(double p, double T) {
    const GibbsPoint x = region1At<kGammaPi>(p, T);
    return kPStar / (R * T * x.sums.gPi);
}

double WaterModel::U1PT(double p, double T) {
    return gibbs::internalEnergy(region1At<kGammaPi | kGammaTau>(p, T), T);
}

double WaterModel::S1PT(double p, double T) {
    return gibbs::entropy(region1At<kGamma | kGammaTau>(p, T));
}

double WaterModel::H1PT(double p, double T) {
    return gibbs::enthalpy(region1At<kGammaTau>(p, T), kRegion1RT);
}

// Each sum runs over the terms on its own, so these are the numbers of S1PT and H1PT.
EntropyEnthalpy WaterModel::entropyEnthalpy1PT(double p, double T) {
    const GibbsPoint x = region1At<kGamma | kGammaTau>(p, T);
    return {gibbs::entropy(x), gibbs::enthalpy(x, kRegion1RT)};
}

double WaterModel::CP1PT(double p, double T) {
    return gibbs::isobaricHeatCapacity(region1At<kGammaTauTau>(p, T));
}

double WaterModel::CV1PT(double p, double T) {
    return gibbs::isochoricHeatCapacity(region1At<kGammaPi | kGammaPiPi | kGammaTauTau | kGammaPiTau>(p, T));
}

double WaterModel::W1PT(double p, double T) {
    return gibbs::speedOfSound(region1At<kGammaPi | kGammaPiPi | kGammaTauTau | kGammaPiTau>(p, T), T);
}

double WaterModel::JOULETHOMPSON1PT(double p, double T) {
    return gibbs::jouleThomson(region1At<kGammaTauTau | kGammaPiTau>(p, T), T, kPStar);
}

double WaterModel::DDDPH1(double p, double T) {
    return gibbs::densityByPressureAtEnthalpy(region1At<gibbs::kDensityDerivativeTerms>(p, T), T);
}

double WaterModel::DDDHP1(double p, double T) {
    return gibbs::densityByEnthalpyAtPressure(region1At<gibbs::kDensityDerivativeTerms>(p, T), p, kRegion1RT);
}

StateProperties WaterModel::VUSHCVWDERPT1PT(double p, double T) {
    return gibbs::stateProperties(region1At<kAllGibbsTerms>(p, T), p, T, kPStar, kRegion1RT);
}

// ---- Backward equations ----

double WaterModel::T1PHEquation(double p, double h) {
    const double T = evaluatePowerSum<kT1PH>(xPowers, yPowers, p / kT1PHForm.x.scale, reduce(h, kT1PHForm.y));
    solved.PublishTemperature(T);
    return T;
}

double WaterModel::T1PSEquation(double p, double s) {
    const double T = evaluatePowerSum<kT1PS>(xPowers, yPowers, p / kT1PSForm.x.scale, reduce(s, kT1PSForm.y));
    solved.PublishTemperature(T);
    return T;
}

double WaterModel::P1HSEquation(double h, double s) {
    const double p = kP1HSForm.result * evaluateReducedSum<kP1HS, kP1HSForm>(xPowers, yPowers, h, s);
    solved.PublishPressure(p);
    return p;
}

double WaterModel::T1PH(double p, double h) {
    double T = T1PHEquation(p, h);
    if (!settings.refining()) return T;
    // The stop limit is fixed at the raw temperature and never updated.
    const double limit = T * settings.tolerance;
    xPowers.fill(reducedPressureShift(p), kReachX);
    int count = 0;
    double step;
    do {
        ++count;
        const double tau = kRegion1Temperature / T;
        yPowers.fill(reducedTemperatureShift(tau), kReachY);
        const GibbsSums g = region1Sums<kGammaTau | kGammaTauTau>();
        step = -(kRegion1RT * g.gTau - h) / (-R * tau * tau * g.gTauTau);
        T += step;
    } while (count <= settings.maxIterations && std::fabs(step) > limit);
    // Reaching the cap counts as failure even on a converging last step.
    if (count >= settings.maxIterations) throw kRootNotFound;
    if (settings.checksOn() && T < kLowestTemperature) T = kLowestTemperature;
    solved.PublishTemperature(T);
    return T;
}

double WaterModel::T1PS(double p, double s) {
    double T = T1PSEquation(p, s);
    if (!settings.refining()) return T;
    // Unlike T1PH the start is clamped to the lowest temperature, and the stop test is >=.
    if (T < kLowestTemperature) T = kLowestTemperature;
    const double limit = T * settings.tolerance;
    xPowers.fill(reducedPressureShift(p), kReachX);
    int count = 0;
    double step;
    do {
        ++count;
        const double tau = kRegion1Temperature / T;
        yPowers.fill(reducedTemperatureShift(tau), kReachY);
        const GibbsSums g = region1Sums<kGamma | kGammaTau | kGammaTauTau>();
        const double entropy = R * (tau * g.gTau - g.g);
        const double cp = -R * tau * tau * g.gTauTau;
        step = -T * (entropy - s) / cp;
        T += step;
    } while (count <= settings.maxIterations && std::fabs(step) >= limit);
    if (count >= settings.maxIterations) throw kRootNotFound;
    if (settings.checksOn() && T < kLowestTemperature) T = kLowestTemperature;
    solved.PublishTemperature(T);
    return T;
}

namespace {

void clampRegion1Start(double& p, double& T) {
    if (p > kHighestPressure) p = kHighestPressure;
    if (p < 0.0) p = 0.0;
    if (T < kLowestTemperature) T = kLowestTemperature;
}

}  // namespace

double WaterModel::P1HS(double h, double s) {
    double p = P1HSEquation(h, s);
    if (!settings.refining()) return p;
    double T = T1PHEquation(p, h);
    clampRegion1Start(p, T);
    SolveRegion1HS(h, s, p, T);
    solved.PublishPressure(p);
    solved.PublishTemperature(T);
    return p;
}

void WaterModel::PT1HS(double h, double s, double& p, double& T) {
    p = P1HSEquation(h, s);
    T = T1PHEquation(p, h);
    if (settings.refining()) {
        clampRegion1Start(p, T);
        SolveRegion1HS(h, s, p, T);
    }
    solved.PublishPressure(p);
    solved.PublishTemperature(T);
}

double WaterModel::T1HS(double h, double s) {
    double p;
    double T;
    PT1HS(h, s, p, T);
    return T;
}

void WaterModel::SolveRegion1HS(double h, double s, double& p, double& T) {
    const double eps = settings.tolerance;
    // The floors are deliberately not on the scale of their thresholds.
    const double limitH = std::fabs(h) > 10000.0 ? std::fabs(eps * h) : eps * 10000.0;
    const double limitS = std::fabs(s) > 10.0 ? std::fabs(eps * s) : eps * 10000.0;
    for (int count = 1;; ++count) {
        const gibbs::NewtonStep step = gibbs::stepTowardsEnthalpyEntropy(
            region1At<gibbs::kEnthalpyEntropyTerms>(p, T), T, kPStar, kRegion1RT, h, s);
        p += step.dp;
        T += step.dT;
        if (count > settings.maxIterations) throw kRootNotFound;
        // The residuals are those before this turn's step: the step is kept untested.
        if (std::fabs(step.residualH) >= limitH || std::fabs(step.residualOther) >= limitS) continue;
        if (count < settings.maxIterations) break;
        throw kRootNotFound;
    }
    solved.PublishPressure(p);
    solved.PublishTemperature(T);
}

void WaterModel::SolveRegion1RH(double density, double h, double& p, double& T) {
    const double eps = settings.tolerance;
    const double limitH = std::fabs(h) > 1.0 ? std::fabs(eps * h) : eps * 10000.0;
    const double limitD = std::fabs(density) > 1.0 ? std::fabs(eps * density) : eps * 10000.0;
    int count = 0;
    for (;;) {
        ++count;
        const gibbs::NewtonStep step = gibbs::stepTowardsDensityEnthalpy(
            region1At<gibbs::kDensityEnthalpyTerms>(p, T), T, kPStar, kRegion1RT, density, h);
        p += step.dp;
        T += step.dT;
        if (p < 0.0) p = 1000.0;
        if (T < 0.0) T = 300.0;
        if (count > settings.maxIterations) break;
        if (!(std::fabs(step.residualH) >= limitH || std::fabs(step.residualOther) >= limitD)) break;
    }
    if (count >= settings.maxIterations) throw kRootNotFound;
    solved.PublishPressure(p);
    solved.PublishTemperature(T);
}

}  // namespace tvl
