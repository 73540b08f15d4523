// Surface tension, static dielectric constant, ionization constant and refractive index: small
// closed equations of IAPWS's property releases, each by (density, T) or by T alone.
#include <cmath>

#include "frame/error_codes.h"
#include "water/formulation/constants.h"
#include "water/formulation/tables/transport_coefficients.h"
#include "water/formulation/water_model.h"

namespace tvl {

double WaterModel::SURFTENT(double T) const {
    const double t = 1.0 - T / kCriticalTemperature;
    return 0.2358 * std::pow(t, 1.256) * (1.0 - 0.625 * t);  // N/m: the release's mN/m moved by 1000
}

double WaterModel::DCRT(double density, double T) const {
    const double tau = kCriticalTemperature / T;
    const double delta = density / kCriticalDensity;
    const double molarDensity = density / 0.018015268;  // mol/m3
    double g = 1.0;
    for (int k = 0; k < 11; ++k) {
        const DielectricTerm& term = kDielectricG[k];
        g += term.N * std::pow(delta, term.i) * std::pow(tau, term.j);
    }
    // The twelfth term runs in (T/228 K - 1), not in tau.
    g += kDielectricG[11].N * std::pow(delta, kDielectricG[11].i) * std::pow(T / 228.0 - 1.0, kDielectricG[11].j);
    // N_A mu^2, epsilon0 k, N_A alpha and 3 epsilon0 as the library stores them (its epsilon0 is
    // 8.854187815e-12).
    const double A = g * molarDensity * 2.268842651465148e-35 / (T * 1.222460524028227e-34);
    const double B = molarDensity * 9.852215641199999e-17 / 2.6562563445e-11;
    return (1.0 + A + 5.0 * B + std::sqrt(9.0 + 2.0 * A + 18.0 * B + A * A + 10.0 * A * B + 9.0 * B * B)) /
           (4.0 - 4.0 * B);
}

double WaterModel::PKWRT(double density, double T) const {
    if (settings.checksOn() && density < 0.0) throw kOutOfRange;
    const double r = density / 1000.0;  // g/cm3
    const double it = 1.0 / T;
    const double q = std::exp(-0.864671 + 8659.19 * it - 22786.2 * it * it * std::pow(r, 2.0 / 3.0));
    const double Q = q * r;
    const double pKG = 0.61415 + 48251.33 * it - 67707.93 * it * it + 10102100.0 * it * it * it;
    return pKG + 2.0 * std::log10(0.018015268) -
           12.0 * (std::log10(1.0 + Q) - (Q / (1.0 + Q)) * r * (0.642044 - 56.8534 * it - 0.375754 * r));
}

double WaterModel::RIRTL(double density, double T, double wavelength) const {
    const double d = density / 1000.0;
    const double Tb = T / 273.15;
    const double reduced = wavelength / 5.89e-07;  // the sodium D line
    const double L = reduced * reduced;
    // 0.052533556804 and 29.516804445969: squares of the reduced resonance wavelengths.
    const double A = d * (0.244257733 + 0.00974634476 * d - 0.00373234996 * Tb + 0.000268678472 * L * Tb +
                          0.0015892057 / L + 0.00245934259 / (L - 0.052533556804) +
                          0.90070492 / (L - 29.516804445969) - 0.0166626219 * d * d);
    return std::sqrt((2.0 * A + 1.0) / (1.0 - A));
}

}  // namespace tvl
