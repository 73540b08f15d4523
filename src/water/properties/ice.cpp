// Pressure along the melting curve of ice Ih and along the sublimation curve, from the triple
// point 273.16 K, 611.657 Pa.
#include <cmath>

#include "water/formulation/water_model.h"

namespace tvl {

namespace {

constexpr double kTriplePointTemperature = 273.16;
constexpr double kTriplePointPressure = 611.657;

}  // namespace

double WaterModel::PMELTIT(double T) const {
    const double theta = T / kTriplePointTemperature;
    return kTriplePointPressure * (1.0 + 1195393.37 * (1.0 - std::pow(theta, 3.0)) +
                                   80818.3159 * (1.0 - std::pow(theta, 25.75)) +
                                   3338.2686 * (1.0 - std::pow(theta, 103.75)));
}

// The exponents are the release's rounded decimals, not the fractions they approximate.
double WaterModel::PSUBT(double T) const {
    const double theta = T / kTriplePointTemperature;
    return kTriplePointPressure * std::exp((1.0 / theta) * (27.3203819 * std::pow(theta, 1.20666667) -
                                                            21.2144006 * std::pow(theta, 0.00333333333) -
                                                            6.1059813 * std::pow(theta, 1.70333333)));
}

}  // namespace tvl
