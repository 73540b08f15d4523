// Dynamic viscosity (the 2008 formulation in its industrial form, without the critical
// enhancement) and thermal conductivity (the 1985 equation for industrial use). Both are
// functions of (density, T) alone: the families find the density first.
#include <cmath>

#include "water/formulation/constants.h"
#include "water/formulation/tables/transport_coefficients.h"
#include "water/formulation/water_model.h"

namespace tvl {

double WaterModel::DYNVISRT(double density, double T) const {
    const double tau = kCriticalTemperature / T;
    const double rhobar = density / kCriticalDensity;
    // 0.0001 is the release's 100 with the unit moved from microPa s to Pa s.
    const double mu0 = std::sqrt(1.0 / tau) * 0.0001 /
                       (kViscosityH0[0] + kViscosityH0[1] * tau + kViscosityH0[2] * tau * tau +
                        kViscosityH0[3] * tau * tau * tau);
    // Powers of (tau - 1) up to 5 and of (rhobar - 1) up to 6 by multiplication.
    double b[6];
    double a[7];
    b[0] = 1.0;
    a[0] = 1.0;
    for (int k = 1; k < 6; ++k) b[k] = b[k - 1] * (tau - 1.0);
    for (int k = 1; k < 7; ++k) a[k] = a[k - 1] * (rhobar - 1.0);
    double sum = 0.0;
    for (const ViscosityTerm& term : kViscosityH1) sum += term.H * b[term.i] * a[term.j];
    return mu0 * std::exp(rhobar * sum);
}

double WaterModel::THERMCONDRT(double density, double T) const {
    // The 1985 equation has reducing constants of its own, not the critical point of IF97.
    const double Tbar = T / 647.26;
    const double rbar = density / 317.7;
    const double lambda0 = 0.0102811 * std::pow(Tbar, 0.5) + 0.0299621 * std::pow(Tbar, 1.5) +
                           0.0156146 * std::pow(Tbar, 2.5) - 0.00422464 * std::pow(Tbar, 3.5);
    const double shifted = rbar + 2.39219;
    const double lambda1 = -0.39707 + 0.400302 * rbar + 1.06 * std::exp(-0.171587 * shifted * shifted);
    const double dT = std::fabs(Tbar - 1.0) + 0.00308976;
    const double dT06 = std::pow(dT, 0.6);
    const double Q = 2.0 + 0.0822994 / dT06;
    const double S = Tbar < 1.0 ? 10.0932 / dT06 : 1.0 / dT;
    const double Tbar2 = Tbar * Tbar;
    const double Tbar10 = Tbar2 * Tbar2 * Tbar2 * Tbar2 * Tbar2;
    const double rbar2 = rbar * rbar;
    const double lambda2 =
        (0.0701309 / Tbar10 + 0.011852) * std::pow(rbar, 1.8) * std::exp(0.642857 * (1.0 - std::pow(rbar, 2.8))) +
        0.00169937 * S * std::pow(rbar, Q) * std::exp(Q * (1.0 - std::pow(rbar, Q + 1.0)) / (Q + 1.0)) -
        1.02 * std::exp(-4.11717 * std::pow(Tbar, 1.5) - 6.17937 / (rbar2 * rbar2 * rbar));
    return lambda0 + lambda1 + lambda2;
}

}  // namespace tvl
