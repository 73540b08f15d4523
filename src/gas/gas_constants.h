// Constants of the ideal-gas functions: the molar gas constant, the reference pressure of the
// functions that take no pressure, and the range of the fits with its test limits.
#ifndef TAVLIB6_GAS_CONSTANTS_H
#define TAVLIB6_GAS_CONSTANTS_H

namespace tvl {

constexpr double kMolarGasConstant = 8.314472;  // J/(mol K)

constexpr double kReferenceStatePressure = 100000.0;           // Pa
constexpr double kLogReferenceStatePressure = 11.512925464970229;  // ln 100000, as std::log gives it

constexpr double kMinSpeciesTemperature = 200.0;   // K, lower end of the fits
constexpr double kMaxSpeciesTemperature = 2500.0;  // K, upper end of the fits
// The ends of the fits widened by one rounding unit: 200 kOneMinusEps and 2500 kOnePlusEps.
constexpr double kGasLowestTemperature = 199.99999999999994;
constexpr double kGasHighestTemperature = 2500.0000000000005;
constexpr double kGasHighestPressure = 5000000.0;  // Pa, exclusive; the lower end 0 is exclusive too

constexpr double kEnthalpyInversionStart = 1000.0;  // K, start of T(h) for every gas

}  // namespace tvl

#endif
