// Region 2 backward: the subregion equations 2a, 2b, 2c in (p,h), (p,s) and (h,s), the choice
// between them, and the Newton refinements on the forward equation that follow while
// toleranceMode is on. The (p,h) and (p,s) searches differ on purpose in their clamps and stop
// tests; each is written out as it stands.
#include <cmath>

#include "frame/error_codes.h"
#include "water/formulation/region2_gibbs.h"

namespace tvl {

namespace {

constexpr double R = kGasConstant;
using region2::kPressure;
using region2::kRT;

// Subregion 2a lies at and below this pressure in every selection that looks at p.
constexpr double kSubregion2APressure = 4e6;
// The 2b/2c line of the (p,s) and (h,s) selections, J/(kg K).
constexpr double kSubregion2CEntropy = 5850.0;
// Above this entropy PT2HS starts its search from a fixed point instead of the equations.
constexpr double kPT2HSFixedStartEntropy = 12000.0;

constexpr int kReachT2APSEntropy = [] {
    int reach = 0;
    for (const FractionalPowerTerm& term : kT2APS) reach = magnitude(term.J) > reach ? magnitude(term.J) : reach;
    return reach;
}();

// The starts of the (h,s) search, brought into the range of the formulation.
void clampRegion2Start(double& p, double& T) {
    if (p > kHighestPressure) p = kHighestPressure;
    if (p < 0.0) p = 0.0;
    T = region2::clampTemperature(T);
}

double fourthPowerTimes(double sum, double reducingPressure) {
    const double squared = sum * sum;
    return squared * squared * reducingPressure;
}

}  // namespace

// ---- Raw subregion equations: no publication, no refinement ----

double WaterModel::T2APH(double p, double h) {
    return evaluatePowerSum<kT2APH>(xPowers, yPowers, p / kT2APHForm.x.scale, reduce(h, kT2APHForm.y));
}

double WaterModel::T2BPH(double p, double h) {
    return evaluateReducedSum<kT2BPH, kT2BPHForm>(xPowers, yPowers, p, h);
}

double WaterModel::T2CPH(double p, double h) {
    return evaluateReducedSum<kT2CPH, kT2CPHForm>(xPowers, yPowers, p, h);
}

// The exponents of pi step by 0.25 here: one general power per term, the only one of region 2.
double WaterModel::T2APS(double p, double s) {
    const double x = p / kT2APSForm.x.scale;
    yPowers.fill(reduce(s, kT2APSForm.y), kReachT2APSEntropy);
    double T = 0.0;
    for (const FractionalPowerTerm& t : kT2APS) T += t.n * std::pow(x, t.I) * yPowers(t.J);
    return T;
}

double WaterModel::T2BPS(double p, double s) {
    const double y = kT2BPSForm.y.shift - s / kT2BPSForm.y.scale;  // written so by the release
    return evaluatePowerSum<kT2BPS>(xPowers, yPowers, p / kT2BPSForm.x.scale, y);
}

double WaterModel::T2CPS(double p, double s) {
    const double y = kT2CPSForm.y.shift - s / kT2CPSForm.y.scale;  // written so by the release
    return evaluatePowerSum<kT2CPS>(xPowers, yPowers, p / kT2CPSForm.x.scale, y);
}

double WaterModel::P2AHS(double h, double s) {
    return fourthPowerTimes(evaluateReducedSum<kP2AHS, kP2AHSForm>(xPowers, yPowers, h, s),
                            kP2AHSForm.result);
}

double WaterModel::P2BHS(double h, double s) {
    return fourthPowerTimes(evaluateReducedSum<kP2BHS, kP2BHSForm>(xPowers, yPowers, h, s),
                            kP2BHSForm.result);
}

double WaterModel::P2CHS(double h, double s) {
    return fourthPowerTimes(evaluateReducedSum<kP2CHS, kP2CHSForm>(xPowers, yPowers, h, s),
                            kP2CHSForm.result);
}

// ---- The subregion chosen ----

// Above 4 MPa the 2b/2c line pB2bc(h) decides; a point on the line belongs to 2b.
double WaterModel::T2PHEquation(double p, double h) {
    if (p <= kSubregion2APressure) return T2APH(p, h);
    const double boundaryPressure = P2B2CH(h);
    return boundaryPressure >= p ? T2BPH(p, h) : T2CPH(p, h);
}

// s = 5850 exactly belongs to 2c here but to 2a or 2b in P2HSEquation.
double WaterModel::T2PSEquation(double p, double s) {
    if (p <= kSubregion2APressure) return T2APS(p, s);
    return s > kSubregion2CEntropy ? T2BPS(p, s) : T2CPS(p, s);
}

double WaterModel::P2HSEquation(double h, double s) {
    if (s < kSubregion2CEntropy) return P2CHS(h, s);
    return h > H2AB(s) ? P2BHS(h, s) : P2AHS(h, s);
}

// ---- Refined ----

double WaterModel::T2PH(double p, double h) {
    double T = T2PHEquation(p, h);
    // Published at once, so that a failed search leaves the raw value behind.
    solved.PublishTemperature(T);
    if (!settings.refining()) return T;
    T = region2::clampTemperature(T);
    // The stop limit is fixed at the clamped start and never updated.
    const double limit = T * settings.tolerance;
    const double pi = p / kPressure;
    xPowers.fill(pi, region2::kReachPi);
    int count = 0;
    double step;
    do {
        ++count;
        const double tau = region2::kTemperature / T;
        const GibbsSums g = region2::sumsAt<kGammaTau | kGammaTauTau>(xPowers, yPowers, pi, tau, 0.0);
        const double enthalpy = kRT * g.gTau;
        const double cp = -R * tau * tau * g.gTauTau;
        step = -(enthalpy - h) / cp;
        T += step;
    } while (count <= settings.maxIterations && std::fabs(step) >= limit);
    // Reaching the cap counts as failure even on a converging last step.
    if (count >= settings.maxIterations) throw kRootNotFound;
    if (settings.checksOn()) T = region2::clampTemperature(T);
    solved.PublishTemperature(T);
    return T;
}

double WaterModel::T2PS(double p, double s) {
    double T = T2PSEquation(p, s);
    solved.PublishTemperature(T);
    if (settings.refining()) {
        T = region2::clampTemperature(T);
    } else {
        if (!(T < region2::kLowestTemperature)) return T;
        // A raw temperature below the formulation is searched for even with the mode off: the
        // one search of region 2 that toleranceMode does not switch off.
        T = region2::kLowestTemperature;
    }
    const double limit = T * settings.tolerance;
    const double pi = p / kPressure;
    const double logPi = std::log(pi);
    xPowers.fill(pi, region2::kReachPi);
    int count = 0;
    double step;
    do {
        ++count;
        const double tau = region2::kTemperature / T;
        const GibbsSums g = region2::sumsAt<kGamma | kGammaTau | kGammaTauTau>(xPowers, yPowers, pi, tau, logPi);
        const double entropy = R * (tau * g.gTau - g.g);
        const double cp = -R * tau * tau * g.gTauTau;
        step = -T * (entropy - s) / cp;
        T += step;
    } while (count <= settings.maxIterations && std::fabs(step) >= limit);
    if (count >= settings.maxIterations) throw kRootNotFound;
    if (settings.checksOn()) T = region2::clampTemperature(T);
    solved.PublishTemperature(T);
    return T;
}

double WaterModel::P2HS(double h, double s) {
    double p = P2HSEquation(h, s);
    solved.PublishPressure(p);
    if (!settings.refining()) return p;
    double T = T2PHEquation(p, h);
    solved.PublishTemperature(T);
    clampRegion2Start(p, T);
    SolveRegion2HS(h, s, p, T);
    solved.PublishPressure(p);
    solved.PublishTemperature(T);
    return p;
}

// Unlike P2HS, very high entropies skip the equations, which are far outside their range
// there, and search from a fixed start whatever toleranceMode says.
void WaterModel::PT2HS(double h, double s, double& p, double& T) {
    if (s > kPT2HSFixedStartEntropy) {
        p = 100.0;
        T = 400.0;
    } else {
        p = P2HSEquation(h, s);
        solved.PublishPressure(p);
        T = T2PHEquation(p, h);
        solved.PublishTemperature(T);
        if (!settings.refining()) return;
        clampRegion2Start(p, T);
    }
    SolveRegion2HS(h, s, p, T);
    solved.PublishPressure(p);
    solved.PublishTemperature(T);
}

double WaterModel::T2HS(double h, double s) {
    double p;
    double T;
    PT2HS(h, s, p, T);
    return T;
}

}  // namespace tvl
