// The ranges of validity of the export families, in one place. With checkRangeMode on, a
// family refuses arguments outside its range with code 2 before the model runs, and a family
// that searches for its state point tests the point it reached as well.
//
// Every limit is widened by one rounding unit (kOnePlusEps above, kOneMinusEps below, as
// numbers, whatever the sign), so that the exact limit passes; a state point that a search
// reached is tested on limits widened further by 1.001 above and 0.999 below. Every test is
// written so that an unordered comparison (a NaN) falls to the passing side; the frame's
// finiteness test then reports code 1.
#ifndef TAVLIB6_VALIDATORS_H
#define TAVLIB6_VALIDATORS_H

#include "frame/error_codes.h"
#include "gas/gas_constants.h"
#include "water/formulation/constants.h"

namespace tvl {

class WaterModel;

// Throws kOutOfRange when value lies outside [low, high].
inline void requireWithin(double value, double low, double high) {
    if (value < low || value > high) throw kOutOfRange;
}

// Output cells of an export are refused before anything is computed if one is null.
inline void requireCells(const double* first, const double* second) {
    if (first == nullptr || second == nullptr) throw kBadParameters;
}

// A dryness fraction: 0 to 1, one rounding unit over 1.
inline void requireDryness(double x) { requireWithin(x, 0.0, kOnePlusEps); }

// ---- (p,T): ValidatePT and, on a solved state, ValidatePTResult ----
struct PressureTemperatureLimits {
    double lowestTemperature;    // below it the melting curve bounds the pressure
    double highestTemperature;
    double highestPressure;
    double region5Temperature;   // above it the pressure is bounded by region 5's limit
    double region5Pressure;
    double lowestMeltingTemperature;  // where the melting curve reaches 100 MPa
    double meltingFurtherWidening;    // applied after kOneMinusEps, in that order
};

constexpr PressureTemperatureLimits kArgumentLimits = {
    273.15 * kOneMinusEps, 2273.15 * kOnePlusEps, 1e8 * kOnePlusEps, 1073.15 * kOnePlusEps,
    5e7 * kOnePlusEps,     264.2087462921212,     1.0,
};

constexpr PressureTemperatureLimits kSolvedStateLimits = {
    272.87684999999993, 2275.42315,         1e8 * kOnePlusEps * 1.001, 1074.2231500000003,
    5e7 * kOnePlusEps * 1.001, 263.94453754582906, 0.999,
};

// ---- The saturation line by temperature, and by pressure ----
constexpr double kSaturationLowestTemperature = 273.1499999999999;
constexpr double kSaturationHighestTemperature = 647.0960000000001;
// kIcePointSaturationPressure widened by one rounding unit (its product with kOneMinusEps).
constexpr double kSaturationLowestPressure = 611.2126774443451;

inline void requireSaturationTemperature(double T) {
    requireWithin(T, kSaturationLowestTemperature, kSaturationHighestTemperature);
}

inline void requireSaturationPressure(double p) {
    requireWithin(p, kSaturationLowestPressure, kCriticalPressure * kOnePlusEps);
}

// ---- (p,h) and (h,s) arguments ----
constexpr double kLowestEnthalpyPH = -50.0 * kOnePlusEps;  // a rounding step below -50
constexpr double kLowestEnthalpyHS = -50.0 * kOneMinusEps;  // a rounding step above -50: -50 fails
constexpr double kHighestEnthalpy = 7.4e6 * kOnePlusEps;
constexpr double kLowestEntropyHS = -200.0 * kOnePlusEps;
constexpr double kHighestEntropyHS = 31800.0 * kOnePlusEps;

// p from 0 to 100 MPa, h from -50 to 7.4e6 J/kg.
inline void requirePressureEnthalpy(double p, double h) {
    requireWithin(p, 0.0, kArgumentLimits.highestPressure);
    requireWithin(h, kLowestEnthalpyPH, kHighestEnthalpy);
}

// p from 0 to 100 MPa, s from that of water at 273.15 K to that of the highest temperature of
// the formulation at p, the entropy widened by the margin m of the tolerance.
void requirePressureEntropy(WaterModel& water, double m, double p, double s);

// h from -50 to 7.4e6 J/kg, s from -200 to 31800 J/(kg K).
inline void requireEnthalpyEntropy(double h, double s) {
    requireWithin(h, kLowestEnthalpyHS, kHighestEnthalpy);
    requireWithin(s, kLowestEntropyHS, kHighestEntropyHS);
}

// ---- Metastable vapour: 10 MPa itself is refused, as is a NaN pressure ----
constexpr double kMetastableHighestPressure = 1e7 * kOneMinusEps;
constexpr double kMetastableLeastDryness = 0.95;  // at most 5 per cent equilibrium moisture

// ---- Transport: conductivity and viscosity ranges, on arguments and on solved states ----
struct TransportLimits {
    double lowestTemperature;
    double highestTemperature;
    double highestPressure;
    double highPressureStep;       // above this pressure ...
    double highPressureTemperature;  // ... the temperature must stay below this one
    double middlePressureStep;
    double middlePressureTemperature;
    bool hasSteps;
};

constexpr TransportLimits kConductivityArguments = {
    273.15 * kOneMinusEps, 1073.15 * kOnePlusEps, 1e8 * kOnePlusEps, 7e7 * kOnePlusEps,
    773.15 * kOnePlusEps,  4e7 * kOnePlusEps,     923.15 * kOnePlusEps, true,
};
constexpr TransportLimits kViscosityArguments = {
    273.15 * kOneMinusEps, 1173.15 * kOnePlusEps, 1e8 * kOnePlusEps, 0.0, 0.0, 0.0, 0.0, false,
};
constexpr TransportLimits kConductivitySolved = {
    272.87684999999993, 1074.2231500000003, 1e8 * kOnePlusEps * 1.001, 70070000.0,
    773.9231500000001,  40040000.0,         924.07315,                 true,
};
constexpr TransportLimits kViscositySolved = {
    272.87684999999993, 1174.3231500000002, 1e8 * kOnePlusEps * 1.001, 0.0, 0.0, 0.0, 0.0, false,
};

inline void requireTransportRange(const TransportLimits& limits, double p, double T) {
    requireWithin(T, limits.lowestTemperature, limits.highestTemperature);
    requireWithin(p, 0.0, limits.highestPressure);
    if (limits.hasSteps) {
        if (p > limits.highPressureStep && T > limits.highPressureTemperature) throw kOutOfRange;
        if (p > limits.middlePressureStep && T > limits.middlePressureTemperature) throw kOutOfRange;
    }
}

// ---- Further water properties and ice ----
constexpr double kDielectricHighestTemperature = 1200.0 * kOnePlusEps;
constexpr double kIonizationHighestTemperature = 1073.15 * kOnePlusEps;
constexpr double kRefractiveHighestTemperature = 773.15 * kOnePlusEps;
constexpr double kShortestWavelength = 2e-7 * kOneMinusEps;
constexpr double kLongestWavelength = 1.1e-6 * kOnePlusEps;
constexpr double kMeltingLowestTemperature = 251.16499999999994;
constexpr double kIceHighestTemperature = 273.1600000000001;
constexpr double kSublimationLowestTemperature = 49.999999999999986;

// The (p,T) forms of the further properties: from 273.15 K to each equation's own highest
// temperature, and up to 100 MPa.
inline void requireFurtherPropertyRange(double p, double T, double highestTemperature) {
    requireWithin(T, kSaturationLowestTemperature, highestTemperature);
    requireWithin(p, 0.0, kHighestPressure * kOnePlusEps);
}

// ---- Ideal gases: the range of the fits, and a pressure with both ends excluded ----
inline void requireGasTemperature(double T) { requireWithin(T, kGasLowestTemperature, kGasHighestTemperature); }

// A NaN passes and comes back as code 1.
inline void requireGasPressure(double p) {
    if (p <= 0.0 || p >= kGasHighestPressure) throw kOutOfRange;
}

}  // namespace tvl

#endif
