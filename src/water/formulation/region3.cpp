// Region 3, the dense fluid around the critical point: forward properties in (density, T) from
// the Helmholtz free energy, the Newton search of the density at given (p, T), and the (p,T)
// family, which takes its density from the library's fit, refined while toleranceMode is on.
#include <cmath>

#include "frame/error_codes.h"
#include "water/formulation/region3_helmholtz.h"
#include "water/formulation/water_model.h"

namespace tvl {

namespace {

using region3::R;

// delta, tau and the sums at one (density, T) point.
struct HelmholtzPoint {
    double delta;
    double tau;
    HelmholtzSums sums;
};

template <unsigned Wanted>
HelmholtzPoint helmholtzAt(WaterModel& w, double rho, double T) {
    const double delta = rho / region3::kDensity;
    const double tau = region3::kTemperature / T;
    w.xPowers.fill(delta, region3::kReachDelta);
    w.yPowers.fill(tau, region3::kReachTau);
    return {delta, tau, region3::sums<Wanted>(w.xPowers, w.yPowers, delta)};
}

}  // namespace

double WaterModel::P3RT(double rho, double T) {
    const auto [delta, tau, f] = helmholtzAt<kPhiDelta>(*this, rho, T);
    return rho * R * T * delta * f.phiDelta;
}

double WaterModel::U3RT(double rho, double T) {
    const auto [delta, tau, f] = helmholtzAt<kPhiTau>(*this, rho, T);
    return region3::kRTc * f.phiTau;
}

double WaterModel::S3RT(double rho, double T) {
    const auto [delta, tau, f] = helmholtzAt<kPhi | kPhiTau>(*this, rho, T);
    return (tau * f.phiTau - f.phi) * R;
}

double WaterModel::H3RT(double rho, double T) {
    const auto [delta, tau, f] = helmholtzAt<kPhiDelta | kPhiTau>(*this, rho, T);
    return (tau * f.phiTau + delta * f.phiDelta) * R * T;
}

// Each sum runs over the terms on its own, so these are the numbers of S3RT and H3RT.
EntropyEnthalpy WaterModel::entropyEnthalpy3RT(double rho, double T) {
    const auto [delta, tau, f] = helmholtzAt<kPhi | kPhiDelta | kPhiTau>(*this, rho, T);
    return {(tau * f.phiTau - f.phi) * R, (tau * f.phiTau + delta * f.phiDelta) * R * T};
}

double WaterModel::CP3RT(double rho, double T) {
    const auto [delta, tau, f] = helmholtzAt<kPhiDelta | kPhiDeltaDelta | kPhiTauTau | kPhiDeltaTau>(*this, rho, T);
    const double D = 2.0 * delta * f.phiDelta + delta * delta * f.phiDeltaDelta;
    const double E = delta * f.phiDelta - delta * tau * f.phiDeltaTau;
    return (E * E / D - tau * tau * f.phiTauTau) * R;
}

double WaterModel::CV3RT(double rho, double T) {
    const auto [delta, tau, f] = helmholtzAt<kPhiTauTau>(*this, rho, T);
    return -tau * tau * f.phiTauTau * R;
}

double WaterModel::W3RT(double rho, double T) {
    const auto [delta, tau, f] = helmholtzAt<kPhiDelta | kPhiDeltaDelta | kPhiTauTau | kPhiDeltaTau>(*this, rho, T);
    const double D = 2.0 * delta * f.phiDelta + delta * delta * f.phiDeltaDelta;
    const double E = delta * f.phiDelta - delta * tau * f.phiDeltaTau;
    return std::sqrt((D - E * E / (tau * tau * f.phiTauTau)) * R * T);
}

// (dT/dp) at constant h; the release does not list it.
double WaterModel::JOULETHOMPSON3RT(double rho, double T) {
    const auto [delta, tau, f] = helmholtzAt<kPhiDelta | kPhiDeltaDelta | kPhiTauTau | kPhiDeltaTau>(*this, rho, T);
    const double a = f.phiDelta - tau * f.phiDeltaTau;
    const double numerator = f.phiDelta + tau * f.phiDeltaTau + delta * f.phiDeltaDelta;
    const double denominator =
        (delta * a * a - (2.0 * f.phiDelta + delta * f.phiDeltaDelta) * tau * tau * f.phiTauTau) * R * rho;
    return -numerator / denominator;
}

StateProperties WaterModel::VUSHCVWDERPT3RT(double rho, double T) {
    const auto [delta, tau, f] = helmholtzAt<kAllHelmholtzTerms>(*this, rho, T);
    const double p = rho * R * T * delta * f.phiDelta;
    const double D = 2.0 * delta * f.phiDelta + delta * delta * f.phiDeltaDelta;
    const double E = delta * f.phiDelta - delta * tau * f.phiDeltaTau;
    const double dpdT = rho * R * delta * (f.phiDelta - tau * f.phiDeltaTau);
    const double tauTauPhi = tau * tau * f.phiTauTau;
    StateProperties out;
    out.w = std::sqrt((D - E * E / tauTauPhi) * R * T);
    out.v = 1.0 / rho;
    out.dvdp = -1.0 / (R * T * D * rho * rho);
    out.dvdT = -dpdT * out.dvdp;
    out.h = (tau * f.phiTau + delta * f.phiDelta) * R * T;
    out.dhdT = (E * E / D - tauTauPhi) * R;
    out.cv = -tauTauPhi * R;
    out.dhdp = out.v - T * out.dvdT;
    out.u = out.h - p * out.v;
    out.dudp = -T * out.dvdT - p * out.dvdp;
    out.dudT = out.dhdT - p * out.dvdT;
    out.s = (tau * f.phiTau - f.phi) * R;
    out.dsdp = -out.dvdT;
    out.dsdT = out.dhdT / T;
    return out;
}

// Newton on the density along the isotherm. The cap is tested before the convergence test, so
// the run that reaches it fails even on a good residual; the residual tested is the one before
// the step, and the step is always taken.
double WaterModel::R3PTR0(double p, double T, double rho0) {
    const double limit = p * settings.tolerance;
    const double tau = region3::kTemperature / T;
    yPowers.fill(tau, region3::kReachTau);
    double rho = rho0;
    for (int i = 1;; ++i) {
        const double delta = rho / region3::kDensity;
        xPowers.fill(delta, region3::kReachDelta);
        const HelmholtzSums f = region3::sums<kPhiDelta | kPhiDeltaDelta>(xPowers, yPowers, delta);
        const double residual = rho * R * T * delta * f.phiDelta - p;
        const double slope = (2.0 * f.phiDelta + delta * f.phiDeltaDelta) * delta * R * T;
        const double step = residual / slope;
        if (i >= settings.maxIterations) throw kRootNotFound;
        rho -= step;
        if (std::fabs(residual) > limit) continue;
        return rho;
    }
}

// ---- (p,T): the density sequence, then the (density, T) equation ----

double WaterModel::R3PT(double p, double T) {
    const double rho = 1.0 / RoughV3PT(p, T);
    return settings.refining() ? R3PTR0(p, T, rho) : rho;
}

double WaterModel::D3PT(double p, double T) { return R3PT(p, T); }
double WaterModel::V3PT(double p, double T) { return 1.0 / R3PT(p, T); }
double WaterModel::U3PT(double p, double T) { return U3RT(R3PT(p, T), T); }
double WaterModel::S3PT(double p, double T) { return S3RT(R3PT(p, T), T); }
double WaterModel::H3PT(double p, double T) { return H3RT(R3PT(p, T), T); }
double WaterModel::CP3PT(double p, double T) { return CP3RT(R3PT(p, T), T); }
double WaterModel::CV3PT(double p, double T) { return CV3RT(R3PT(p, T), T); }
double WaterModel::W3PT(double p, double T) { return W3RT(R3PT(p, T), T); }
double WaterModel::JOULETHOMPSON3PT(double p, double T) { return JOULETHOMPSON3RT(R3PT(p, T), T); }
StateProperties WaterModel::VUSHCVWDERPT3PT(double p, double T) { return VUSHCVWDERPT3RT(R3PT(p, T), T); }

}  // namespace tvl
