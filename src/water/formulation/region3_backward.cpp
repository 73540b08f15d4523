// Region 3 backward functions: the releases' T(p,h), v(p,h), T(p,s), v(p,s) and p(h,s) of the
// subregions 3a and 3b, and the iterations on (density, T) that polish them against the basic
// equation while toleranceMode is on. T(density, h) has no equation and always iterates.
#include <cmath>

#include "frame/error_codes.h"
#include "water/formulation/polynomial.h"
#include "water/formulation/region3_helmholtz.h"
#include "water/formulation/tables/region3_coefficients.h"
#include "water/formulation/water_model.h"

namespace tvl {

namespace {

using region3::R;

// 3a on the boundary itself, in either test.
bool subregion3aByEnthalpy(const WaterModel& w, double p, double h) { return w.H3AB(p) >= h; }
bool subregion3aByEntropy(double s) { return kCriticalEntropy >= s; }

// A (density, T) point with the sums and the derivatives of p and u that every search needs.
struct Region3Point {
    double delta;
    double tau;
    HelmholtzSums f;
    double p;
    double h;
    double dpdT;    // at constant density
    double dpdrho;  // at constant T
    double cv;

    double entropy() const { return (tau * f.phiTau - f.phi) * R; }
};

template <unsigned Wanted>
Region3Point pointAt(WaterModel& w, double rho, double T) {
    Region3Point q;
    q.delta = rho / region3::kDensity;
    q.tau = region3::kTemperature / T;
    w.xPowers.fill(q.delta, region3::kReachDelta);
    w.yPowers.fill(q.tau, region3::kReachTau);
    q.f = region3::sums<Wanted>(w.xPowers, w.yPowers, q.delta);
    q.p = rho * R * T * q.delta * q.f.phiDelta;
    q.h = (q.tau * q.f.phiTau + q.delta * q.f.phiDelta) * R * T;
    q.dpdT = (q.f.phiDelta - q.tau * q.f.phiDeltaTau) * rho * R * q.delta;
    q.dpdrho = (q.delta * q.f.phiDeltaDelta + 2.0 * q.f.phiDelta) * q.delta * R * T;
    q.cv = -q.tau * q.tau * q.f.phiTauTau * R;
    return q;
}

constexpr unsigned kPressureEnthalpyTerms = kPhiDelta | kPhiDeltaDelta | kPhiTau | kPhiTauTau | kPhiDeltaTau;

// The residual of the second target and its row of the Jacobian.
struct SecondEquation {
    double residual;
    double byDensity;
    double byTemperature;
};

// Two-variable iteration on (density, T) for a target pressure and a second target. The stop
// test measures the steps against the start values, fixed before the first step; the residuals
// play no part in it.
template <unsigned Wanted, class Second>
void refineAtPressure(WaterModel& w, double p, double& rho, double& T, Second second) {
    const double tolerance = w.settings.tolerance;
    const double limitRho = tolerance * rho;
    const double limitT = tolerance * T;
    for (int i = 1;; ++i) {
        const Region3Point q = pointAt<Wanted>(w, rho, T);
        const double f = q.p - p;
        const SecondEquation g = second(q, rho, T);
        const double det = g.byDensity * q.dpdT - g.byTemperature * q.dpdrho;
        const double stepRho = -(g.residual * q.dpdT - f * g.byTemperature) / det;
        const double stepT = -(f * g.byDensity - g.residual * q.dpdrho) / det;
        rho += stepRho;
        T += stepT;
        if (i > w.settings.maxIterations) throw kRootNotFound;
        if (std::fabs(stepRho) >= limitRho || std::fabs(stepT) >= limitT) continue;
        if (i >= w.settings.maxIterations) throw kRootNotFound;
        w.solved.PublishTemperature(T);
        return;
    }
}

}  // namespace

// ---- Raw equations ----

double WaterModel::T3APH(double p, double h) {
    return kT3APHForm.result * evaluateReducedSum<kT3APH, kT3APHForm>(xPowers, yPowers, p, h);
}

double WaterModel::T3BPH(double p, double h) {
    return kT3BPHForm.result * evaluateReducedSum<kT3BPH, kT3BPHForm>(xPowers, yPowers, p, h);
}

double WaterModel::V3APH(double p, double h) {
    return kV3APHForm.result * evaluateReducedSum<kV3APH, kV3APHForm>(xPowers, yPowers, p, h);
}

double WaterModel::V3BPH(double p, double h) {
    return kV3BPHForm.result * evaluateReducedSum<kV3BPH, kV3BPHForm>(xPowers, yPowers, p, h);
}

double WaterModel::T3APS(double p, double s) {
    return kT3APSForm.result * evaluateReducedSum<kT3APS, kT3APSForm>(xPowers, yPowers, p, s);
}

double WaterModel::T3BPS(double p, double s) {
    return kT3BPSForm.result * evaluateReducedSum<kT3BPS, kT3BPSForm>(xPowers, yPowers, p, s);
}

double WaterModel::V3APS(double p, double s) {
    return kV3APSForm.result * evaluateReducedSum<kV3APS, kV3APSForm>(xPowers, yPowers, p, s);
}

double WaterModel::V3BPS(double p, double s) {
    return kV3BPSForm.result * evaluateReducedSum<kV3BPS, kV3BPSForm>(xPowers, yPowers, p, s);
}

double WaterModel::P3AHS(double h, double s) {
    return kP3AHSForm.result * evaluateReducedSum<kP3AHS, kP3AHSForm>(xPowers, yPowers, h, s);
}

double WaterModel::P3BHS(double h, double s) {
    return kP3BHSForm.result / evaluateReducedSum<kP3BHS, kP3BHSForm>(xPowers, yPowers, h, s);
}

// The 3a/3b boundary of the release, in J/kg.
double WaterModel::H3AB(double p) const {
    const double q = p / 1e6;
    return (((kH3AB[3] * q + kH3AB[2]) * q + kH3AB[1]) * q + kH3AB[0]) * 1000.0;
}

// ---- Refinements ----

// The entry for dh/dT at constant density is cv alone, not cv + dpdT/rho: a chord method that
// keeps the exact root but converges linearly. The step counts against maxIterations rest on it.
void WaterModel::SolveRegion3PH(double p, double h, double& rho, double& T) {
    refineAtPressure<kPressureEnthalpyTerms>(*this, p, rho, T, [h](const Region3Point& q, double density, double temperature) {
        const double dhdrho = q.dpdrho / density - temperature * q.dpdT / (density * density);
        return SecondEquation{q.h - h, dhdrho, q.cv};
    });
}

void WaterModel::SolveRegion3PS(double p, double s, double& rho, double& T) {
    refineAtPressure<kPressureEnthalpyTerms | kPhi>(*this, p, rho, T, [s](const Region3Point& q, double density, double temperature) {
        return SecondEquation{q.entropy() - s, -q.dpdT / (density * density), q.cv / temperature};
    });
}

// True Newton on (density, T) for targets h and s; the stop test measures the residuals before
// the step against the targets.
void WaterModel::SolveRegion3HS(double h, double s, double& rho, double& T) {
    const double tolerance = settings.tolerance;
    for (int i = 1;; ++i) {
        const Region3Point q = pointAt<kAllHelmholtzTerms>(*this, rho, T);
        const double dsdT = q.cv / T;
        const double dsdrho = -q.dpdT / (rho * rho);
        const double dhdT = q.dpdT / rho + q.cv;
        const double dhdrho = q.dpdrho / rho + T * dsdrho;
        const double f = q.h - h;
        const double g = q.entropy() - s;
        const double inverse = 1.0 / (dhdrho * dsdT - dhdT * dsdrho);
        rho += (g * dhdT - f * dsdT) * inverse;
        T += (f * dsdrho - g * dhdrho) * inverse;
        if (i > settings.maxIterations) throw kRootNotFound;
        if (std::fabs(f) >= tolerance * h) continue;
        if (std::fabs(g) >= tolerance * s) continue;
        if (i >= settings.maxIterations) throw kRootNotFound;
        solved.PublishTemperature(T);
        return;
    }
}

// ---- (p,h) and (p,s) ----

double WaterModel::T3PH(double p, double h) {
    const bool a = subregion3aByEnthalpy(*this, p, h);
    double rho = 1.0 / (a ? V3APH(p, h) : V3BPH(p, h));
    double T = a ? T3APH(p, h) : T3BPH(p, h);
    solved.PublishTemperature(T);
    if (settings.refining()) SolveRegion3PH(p, h, rho, T);
    solved.PublishTemperature(T);
    return T;
}

// With toleranceMode off the volume is the equation's and no temperature is published.
double WaterModel::V3PH(double p, double h) {
    const bool a = subregion3aByEnthalpy(*this, p, h);
    const double v = a ? V3APH(p, h) : V3BPH(p, h);
    if (!settings.refining()) return v;
    double T = a ? T3APH(p, h) : T3BPH(p, h);
    solved.PublishTemperature(T);
    double rho = 1.0 / v;
    SolveRegion3PH(p, h, rho, T);
    solved.PublishTemperature(T);
    return 1.0 / rho;
}

double WaterModel::T3PS(double p, double s) {
    const bool a = subregion3aByEntropy(s);
    double rho = 1.0 / (a ? V3APS(p, s) : V3BPS(p, s));
    double T = a ? T3APS(p, s) : T3BPS(p, s);
    solved.PublishTemperature(T);
    if (settings.refining()) SolveRegion3PS(p, s, rho, T);
    solved.PublishTemperature(T);
    return T;
}

double WaterModel::V3PS(double p, double s) {
    const bool a = subregion3aByEntropy(s);
    const double v = a ? V3APS(p, s) : V3BPS(p, s);
    if (!settings.refining()) return v;
    double T = a ? T3APS(p, s) : T3BPS(p, s);
    solved.PublishTemperature(T);
    double rho = 1.0 / v;
    SolveRegion3PS(p, s, rho, T);
    solved.PublishTemperature(T);
    return 1.0 / rho;
}

// ---- (h,s) ----
// Three steps from the equations: p from (h,s) by the entropy test, T from (p,h) by the
// enthalpy test at that p, v from (p,s) by the entropy test. The functions differ in their order
// and in what they publish afterwards, each as callers have come to rely on.

namespace {

double pressureStep(WaterModel& w, double h, double s) {
    return subregion3aByEntropy(s) ? w.P3AHS(h, s) : w.P3BHS(h, s);
}
double temperatureStep(WaterModel& w, double p, double h) {
    return subregion3aByEnthalpy(w, p, h) ? w.T3APH(p, h) : w.T3BPH(p, h);
}
double volumeStep(WaterModel& w, double p, double s) {
    return subregion3aByEntropy(s) ? w.V3APS(p, s) : w.V3BPS(p, s);
}

}  // namespace

double WaterModel::T3HSDirect(double h, double s) { return temperatureStep(*this, pressureStep(*this, h, s), h); }

double WaterModel::P3HS(double h, double s) {
    double p = pressureStep(*this, h, s);
    solved.PublishPressure(p);
    if (!settings.refining()) return p;
    double T = temperatureStep(*this, p, h);
    solved.PublishTemperature(T);
    double rho = 1.0 / volumeStep(*this, p, s);
    SolveRegion3HS(h, s, rho, T);
    p = P3RT(rho, T);
    solved.PublishPressure(p);
    solved.PublishTemperature(T);
    return p;
}

void WaterModel::PT3HS(double h, double s, double& p, double& T) {
    p = pressureStep(*this, h, s);
    T = temperatureStep(*this, p, h);
    if (settings.refining()) {
        double rho = 1.0 / volumeStep(*this, p, s);
        SolveRegion3HS(h, s, rho, T);
        p = P3RT(rho, T);
    }
    solved.PublishPressure(p);
    solved.PublishTemperature(T);
}

// The only one of the family that clamps the backward pressure to 100 MPa, from there to the
// end; the published pressure is recomputed from the refined state only under range checks.
double WaterModel::T3HS(double h, double s) {
    double p = pressureStep(*this, h, s);
    double T = temperatureStep(*this, p, h);
    if (settings.refining()) {
        if (p > kHighestPressure) p = kHighestPressure;
        double rho = 1.0 / volumeStep(*this, p, s);
        SolveRegion3HS(h, s, rho, T);
        if (settings.checksOn()) p = P3RT(rho, T);
    }
    solved.PublishPressure(p);
    solved.PublishTemperature(T);
    return T;
}

// Publishes the backward pressure, never the refined one.
double WaterModel::V3HS(double h, double s) {
    const double p = pressureStep(*this, h, s);
    double v = volumeStep(*this, p, s);
    if (settings.refining()) {
        double T = temperatureStep(*this, p, h);
        double rho = 1.0 / v;
        SolveRegion3HS(h, s, rho, T);
        v = 1.0 / rho;
        solved.PublishTemperature(T);
    }
    solved.PublishPressure(p);
    return v;
}

// Publishes the backward pressure, never the refined one.
void WaterModel::RT3HS(double h, double s, double& rho, double& T) {
    T = T3HSDirect(h, s);
    const double p = pressureStep(*this, h, s);
    rho = 1.0 / volumeStep(*this, p, s);
    if (settings.refining()) SolveRegion3HS(h, s, rho, T);
    solved.PublishPressure(p);
    solved.PublishTemperature(T);
}

// ---- (density, h) ----

// Newton on T along the isochore, with the exact dh/dT at constant density. As in R3PTR0 the
// cap is tested before the step and the residual tested is the one before it.
double WaterModel::T3RH(double rho, double h, double startTemperature) {
    const double limit = h * settings.tolerance;
    const double delta = rho / region3::kDensity;
    xPowers.fill(delta, region3::kReachDelta);
    double T = startTemperature;
    for (int i = 1;; ++i) {
        const double tau = region3::kTemperature / T;
        yPowers.fill(tau, region3::kReachTau);
        const HelmholtzSums f = region3::sums<kPhiDelta | kPhiTau | kPhiTauTau | kPhiDeltaTau>(xPowers, yPowers, delta);
        const double residual = (tau * f.phiTau + delta * f.phiDelta) * R * T - h;
        const double slope = (f.phiDelta - tau * f.phiDeltaTau) * delta * R - tau * tau * f.phiTauTau * R;
        const double step = residual / slope;
        if (i >= settings.maxIterations) throw kRootNotFound;
        T -= step;
        if (std::fabs(residual) > limit) continue;
        solved.PublishTemperature(T);
        return T;
    }
}

}  // namespace tvl
