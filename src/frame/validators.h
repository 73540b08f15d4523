// Range tests of the frame. Every test is written so that an unordered comparison (a NaN
// argument) falls to the passing side; the frame's finiteness test then reports code 1.
#ifndef TAVLIB6_VALIDATORS_H
#define TAVLIB6_VALIDATORS_H

#include "frame/error_codes.h"
#include "water/formulation/constants.h"

namespace tvl {

// Throws kOutOfRange when value lies outside [low, high].
inline void requireWithin(double value, double low, double high) {
    if (value < low || value > high) throw kOutOfRange;
}

// Output cells of an export are refused before anything is computed if one is null.
inline void requireCells(const double* first, const double* second) {
    if (first == nullptr || second == nullptr) throw kBadParameters;
}

// The saturation line by temperature: 273.15 K to 647.096 K, each widened by one rounding unit.
constexpr double kSaturationLowestTemperature = 273.1499999999999;
constexpr double kSaturationHighestTemperature = 647.0960000000001;
constexpr double kSaturationLowestPressure = 611.2126774443451;

inline void requireSaturationTemperature(double T) {
    requireWithin(T, kSaturationLowestTemperature, kSaturationHighestTemperature);
}

}  // namespace tvl

#endif
