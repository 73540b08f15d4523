// The saturation line of region 4: pressure from temperature, temperature from pressure, the
// slope dp/dT in closed form, and the rough saturated densities that start the region 3
// density search on the line. Closed-form arithmetic only, no state, no clamping.
#include <cmath>

#include "water/formulation/constants.h"
#include "water/formulation/pressure_buckets.h"
#include "water/formulation/tables/saturation_coefficients.h"
#include "water/formulation/water_model.h"

namespace tvl {

namespace {

constexpr const double* n = kRegion4;  // n[0] is n1 of the release
constexpr double kThetaShift = -n[8];  // minus n9
constexpr double kThetaPole = n[9];     // n10
constexpr double kTwiceN3 = 2.0 * n[2];
constexpr double kTwiceN6 = 2.0 * n[5];
// Far more than the rounding of the closed form, far less than the width of a bucket.
constexpr double kSaturationTemperatureWidening = 1e-6;  // K

double saturationTemperature(double p) {
    // beta by two square roots, never a general power
    const double betaSquared = std::sqrt(p / 1e6);
    const double beta = std::sqrt(betaSquared);
    const double E = betaSquared + n[2] * beta + n[5];
    const double F = n[0] * betaSquared + n[3] * beta + n[6];
    const double G = n[1] * betaSquared + n[4] * beta + n[7];
    const double D = 2.0 * G / (-F - std::sqrt(F * F - 4.0 * E * G));
    const double sum = n[9] + D;
    return (sum - std::sqrt(sum * sum - 4.0 * (n[9] * D - kThetaShift))) * 0.5;
}

}  // namespace

double WaterModel::PST(double T) const {
    const double theta = T - kThetaShift / (T - kThetaPole);
    const double A = theta * theta + n[0] * theta + n[1];
    const double B = n[2] * theta * theta + n[3] * theta + n[4];
    const double C = n[5] * theta * theta + n[6] * theta + n[7];
    const double q = 2.0 * C / (std::sqrt(B * B - 4.0 * A * C) - B);
    const double q2 = q * q;
    return q2 * q2 * 1e6;
}

double WaterModel::TSP(double p) const { return saturationTemperature(p); }

// Whether mT >= TSP(p) for p in [kIcePointSaturationPressure, kP623]: TSP bounded per pressure
// bucket, computed only for temperatures too close to the line to tell.
bool WaterModel::atOrAboveSaturationTemperature(double p, double mT) const {
    static const PressureBuckets buckets(kIcePointSaturationPressure, kP623, kSaturationTemperatureWidening,
                                         saturationTemperature);  // filled on first use, whatever the load order
    const int side = buckets.side(p, mT);
    if (side != 0) return side > 0;
    return mT >= saturationTemperature(p);
}

double WaterModel::DPDTST(double T) const {
    const double pole = T - kThetaPole;
    const double theta = T - kThetaShift / pole;
    const double dTheta = 1.0 + kThetaShift / (pole * pole);
    const double A = theta * theta + n[0] * theta + n[1];
    const double B = n[2] * theta * theta + n[3] * theta + n[4];
    const double C = n[5] * theta * theta + n[6] * theta + n[7];
    const double dA = (2.0 * theta + n[0]) * dTheta;
    const double dB = (kTwiceN3 * theta + n[3]) * dTheta;
    const double dC = (kTwiceN6 * theta + n[6]) * dTheta;
    const double root = std::sqrt(B * B - 4.0 * A * C);
    const double D = root - B;
    const double dRoot = (2.0 * B * dB - 4.0 * (dA * C + A * dC)) / (2.0 * root);
    const double twoC = 2.0 * C;
    const double twoCCubed = twoC * twoC * twoC;
    const double D2 = D * D;
    const double D5 = D2 * D2 * D;
    return 4e6 * twoCCubed * (2.0 * dC * D - (dRoot - dB) * twoC) / D5;
}

namespace {

// u^k by repeated squaring of the base.
double integerPower(double u, int k) {
    double result = 1.0;
    for (double base = u; k > 0; k >>= 1, base *= base)
        if (k & 1) result *= base;
    return result;
}

}  // namespace

double WaterModel::ROUGHRSWT(double T) const {
    const double u = std::pow(1.0 - T / kCriticalTemperature, 0.3333333333333333);
    double sum = 1.0;
    for (const SaturationDensityTerm& term : kSaturatedLiquidDensity)
        sum += term.coefficient * integerPower(u, term.tNum);
    return kCriticalDensity * sum;
}

double WaterModel::ROUGHRSST(double T) const {
    const double u = std::pow(1.0 - T / kCriticalTemperature, 0.16666666666666666);
    double sum = 0.0;
    for (const SaturationDensityTerm& term : kSaturatedVapourDensity)
        sum += term.coefficient * integerPower(u, term.tNum);
    return kCriticalDensity * std::exp(sum);
}

}  // namespace tvl
