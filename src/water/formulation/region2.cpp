// Region 2, superheated steam: forward properties from gamma0 + gammar, and the two-variable
// searches from (h,s) and from (density,h) on the forward equation.
#include <cmath>

#include "frame/error_codes.h"
#include "water/formulation/gibbs_properties.h"
#include "water/formulation/region2_gibbs.h"

namespace tvl {

namespace {

constexpr double R = kGasConstant;
using region2::kPressure;
using region2::kRT;

}  // namespace

double WaterModel::V2PT(double p, double T) {
    return gibbs::volume(region2::pointAt<kGammaPi>(xPowers, yPowers, p, T), T, kPressure);
}

// Density from the residual part alone: pi gamma_pi = 1 + pi gammar_pi.
double WaterModel::D2PT(double p, double T) {
    const double pi = p / kPressure;
    xPowers.fill(pi, region2::kReachPi);
    yPowers.fill(region2::kTemperature / T - region2::kTauShift, region2::kReachY);
    const GibbsSums residual = residualSums<kGammaPi>(region2::kResidual, xPowers, yPowers);
    return p / (R * T * (pi * residual.gPi + 1.0));
}

double WaterModel::U2PT(double p, double T) {
    return gibbs::internalEnergy(region2::pointAt<kGammaPi | kGammaTau>(xPowers, yPowers, p, T), T);
}

double WaterModel::S2PT(double p, double T) {
    return gibbs::entropy(region2::pointAt<kGamma | kGammaTau>(xPowers, yPowers, p, T));
}

double WaterModel::H2PT(double p, double T) {
    return gibbs::enthalpy(region2::pointAt<kGammaTau>(xPowers, yPowers, p, T), kRT);
}

// Each sum runs over the terms on its own, so these are the numbers of S2PT and H2PT.
EntropyEnthalpy WaterModel::entropyEnthalpy2PT(double p, double T) {
    const GibbsPoint x = region2::pointAt<kGamma | kGammaTau>(xPowers, yPowers, p, T);
    return {gibbs::entropy(x), gibbs::enthalpy(x, kRT)};
}

double WaterModel::CP2PT(double p, double T) {
    return gibbs::isobaricHeatCapacity(region2::pointAt<kGammaTauTau>(xPowers, yPowers, p, T));
}

double WaterModel::CV2PT(double p, double T) {
    return gibbs::isochoricHeatCapacity(region2::pointAt<kGammaPi | kGammaPiPi | kGammaTauTau | kGammaPiTau>(xPowers, yPowers, p, T));
}

double WaterModel::W2PT(double p, double T) {
    return gibbs::speedOfSound(region2::pointAt<kGammaPi | kGammaPiPi | kGammaTauTau | kGammaPiTau>(xPowers, yPowers, p, T), T);
}

double WaterModel::JOULETHOMPSON2PT(double p, double T) {
    return gibbs::jouleThomson(region2::pointAt<kGammaTauTau | kGammaPiTau>(xPowers, yPowers, p, T), T, kPressure);
}

double WaterModel::DDDPH2(double p, double T) {
    return gibbs::densityByPressureAtEnthalpy(region2::pointAt<gibbs::kDensityDerivativeTerms>(xPowers, yPowers, p, T),
                                              T);
}

double WaterModel::DDDHP2(double p, double T) {
    return gibbs::densityByEnthalpyAtPressure(region2::pointAt<gibbs::kDensityDerivativeTerms>(xPowers, yPowers, p, T),
                                              p, kRT);
}

StateProperties WaterModel::VUSHCVWDERPT2PT(double p, double T) {
    return gibbs::stateProperties(region2::pointAt<kAllGibbsTerms>(xPowers, yPowers, p, T), p, T, kPressure, kRT);
}

// Newton on (p, T) for the given h and s. The stop limits are plain products with the targets:
// a negative h or s gives a negative limit that no residual can pass, and the search runs out.
void WaterModel::SolveRegion2HS(double h, double s, double& p, double& T) {
    const double limitH = settings.tolerance * h;
    const double limitS = settings.tolerance * s;
    for (int count = 1;; ++count) {
        if (p < region2::kSmallestPressure) p = region2::kSmallestPressure;
        const gibbs::NewtonStep step = gibbs::stepTowardsEnthalpyEntropy(
            region2::pointAt<gibbs::kEnthalpyEntropyTerms>(xPowers, yPowers, p, T), T, kPressure, kRT, h, s);
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

// Newton on (p, T) for the given density and h: the system in specific volume, the stop test in
// density. There is no backward equation behind it; it runs in any toleranceMode.
void WaterModel::SolveRegion2RH(double density, double h, double& p, double& T) {
    const double eps = settings.tolerance;
    const double limitH = std::fabs(h) > 1.0 ? std::fabs(eps * h) : eps * 10000.0;
    const double limitD = std::fabs(density) > 1.0 ? std::fabs(eps * density) : eps * 10000.0;
    int count = 0;
    for (;;) {
        ++count;
        const gibbs::NewtonStep step = gibbs::stepTowardsDensityEnthalpy(
            region2::pointAt<gibbs::kDensityEnthalpyTerms>(xPowers, yPowers, p, T), T, kPressure, kRT, density, h);
        p += step.dp;
        T += step.dT;
        if (p < 0.0) p = 1000.0;
        if (T < 0.0) T = 400.0;
        if (count > settings.maxIterations) break;
        if (!(std::fabs(step.residualH) >= limitH || std::fabs(step.residualOther) >= limitD)) break;
    }
    if (count >= settings.maxIterations) throw kRootNotFound;
    solved.PublishPressure(p);
    solved.PublishTemperature(T);
}

}  // namespace tvl
