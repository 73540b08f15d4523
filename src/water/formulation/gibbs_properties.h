// Properties of a state of a Gibbs region (1, 2, 5 and metastable vapour) composed from the
// dimensionless Gibbs free energy and its derivatives at that state. gPi is the derivative by
// the reduced pressure pi = p / pStar, gTau by tau = Tstar / T.
#ifndef TAVLIB6_GIBBS_PROPERTIES_H
#define TAVLIB6_GIBBS_PROPERTIES_H

#include <cmath>

#include "frame/state_properties.h"
#include "water/formulation/constants.h"
#include "water/formulation/water_model.h"

namespace tvl::gibbs {

constexpr double R = kGasConstant;

// m3/kg
inline double volume(const GibbsPoint& x, double T, double pStar) { return R * T * x.sums.gPi / pStar; }

// J/kg
inline double internalEnergy(const GibbsPoint& x, double T) {
    return R * T * (x.tau * x.sums.gTau - x.pi * x.sums.gPi);
}

// J/(kg K)
inline double entropy(const GibbsPoint& x) { return R * (x.tau * x.sums.gTau - x.sums.g); }

// J/kg; RTstar is R times the reducing temperature, stored ready-made
inline double enthalpy(const GibbsPoint& x, double RTstar) { return RTstar * x.sums.gTau; }

// J/(kg K)
inline double isobaricHeatCapacity(const GibbsPoint& x) { return -R * x.tau * x.tau * x.sums.gTauTau; }

inline double isochoricHeatCapacity(const GibbsPoint& x) {
    const double a = x.sums.gPi - x.tau * x.sums.gPiTau;
    return R * (a * a / x.sums.gPiPi - x.tau * x.tau * x.sums.gTauTau);
}

// m/s
inline double speedOfSound(const GibbsPoint& x, double T) {
    const double a = x.sums.gPi - x.tau * x.sums.gPiTau;
    return x.sums.gPi * std::sqrt(R * T / (a * a / (x.tau * x.tau * x.sums.gTauTau) - x.sums.gPiPi));
}

// (dT/dp) at constant h, K/Pa
inline double jouleThomson(const GibbsPoint& x, double T, double pStar) {
    return x.sums.gPiTau * T / (pStar * x.tau * x.sums.gTauTau);
}

// (d rho/dp) at constant h, kg/(m3 Pa); the reducing pressure cancels.
inline double densityByPressureAtEnthalpy(const GibbsPoint& x, double T) {
    const double a = x.sums.gPi, b = x.sums.gPiTau, c = x.sums.gPiPi, d = x.sums.gTauTau;
    return -(b * a - b * x.tau * b + c * x.tau * d) / (T * R * x.tau * d * a * a);
}

// (d rho/dh) at constant p, kg2/(m3 J); RTstar is R times the reducing temperature.
inline double densityByEnthalpyAtPressure(const GibbsPoint& x, double p, double RTstar) {
    const double a = x.sums.gPi;
    const double RTa = RTstar * a;
    return ((a - x.tau * x.sums.gPiTau) * p) / (x.sums.gTauTau * (RTa * RTa) * x.pi);
}

// The sums both density derivatives need.
constexpr unsigned kDensityDerivativeTerms = kGammaPi | kGammaPiPi | kGammaTauTau | kGammaPiTau;

// The fourteen outputs of a combined call from all six sums of one pass.
inline StateProperties stateProperties(const GibbsPoint& x, double p, double T, double pStar, double RTstar) {
    const double k = R / pStar;
    StateProperties out;
    out.v = k * x.sums.gPi * T;
    out.h = enthalpy(x, RTstar);
    out.u = out.h - p * out.v;
    out.s = entropy(x);
    out.cv = isochoricHeatCapacity(x);
    out.w = speedOfSound(x, T);
    out.dvdp = k * T * x.sums.gPiPi / pStar;
    out.dvdT = k * (x.sums.gPi - x.tau * x.sums.gPiTau);
    out.dhdT = isobaricHeatCapacity(x);
    out.dhdp = out.v - T * out.dvdT;
    out.dsdp = -out.dvdT;
    out.dudp = out.dhdp - (p * out.dvdp + out.v);
    out.dudT = out.dhdT - p * out.dvdT;
    out.dsdT = out.dhdT / T;
    return out;
}

// One Newton step on (p, T) of a search for a state, from the sums at the current (p, T), with
// the residuals it was taken from.
struct NewtonStep {
    double residualH;
    double residualOther;  // of the entropy, or of the density
    double dp;
    double dT;
};

// Towards a given enthalpy and entropy, by Cramer's rule on the 2 by 2 system.
inline NewtonStep stepTowardsEnthalpyEntropy(const GibbsPoint& x, double T, double pStar, double RTstar, double h,
                                             double s) {
    const double k = R / pStar;
    const double residualH = enthalpy(x, RTstar) - h;
    const double residualS = entropy(x) - s;
    const double dvdT = k * (x.sums.gPi - x.tau * x.sums.gPiTau);
    const double v = k * x.sums.gPi * T;
    const double dhdp = v - T * dvdT;
    const double dsdp = -dvdT;
    const double cp = isobaricHeatCapacity(x);
    const double det = (cp / T) * dhdp - cp * dsdp;
    return {residualH, residualS, (residualS * cp - residualH * cp / T) / det, (residualH * dsdp - residualS * dhdp) / det};
}

// Towards a given density and enthalpy: the system in specific volume, the residual reported in
// density, where the searches test it.
inline NewtonStep stepTowardsDensityEnthalpy(const GibbsPoint& x, double T, double pStar, double RTstar, double density,
                                             double h) {
    const double k = R / pStar;
    const double residualH = enthalpy(x, RTstar) - h;
    const double v = k * x.sums.gPi * T;
    const double residualV = v - 1.0 / density;
    const double dvdT = k * (x.sums.gPi - x.tau * x.sums.gPiTau);
    const double dvdp = T * k * x.sums.gPiPi / pStar;
    const double dhdp = v - T * dvdT;
    const double cp = isobaricHeatCapacity(x);
    const double det = dhdp * dvdT - cp * dvdp;
    return {residualH, 1.0 / v - density, (residualV * cp - residualH * dvdT) / det,
            (residualH * dvdp - residualV * dhdp) / det};
}

// The sums a Newton step needs.
constexpr unsigned kEnthalpyEntropyTerms = kGamma | kGammaPi | kGammaTau | kGammaTauTau | kGammaPiTau;
constexpr unsigned kDensityEnthalpyTerms = kGammaPi | kGammaPiPi | kGammaTau | kGammaTauTau | kGammaPiTau;

}  // namespace tvl::gibbs

#endif
