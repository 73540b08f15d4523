// Constants shared by the whole water formulation. They are literals, never computed at start-up;
// several are rounded products that differ in the last place from the plain number.
#ifndef TAVLIB6_WATER_CONSTANTS_H
#define TAVLIB6_WATER_CONSTANTS_H

namespace tvl {

constexpr double kGasConstant = 461.526;                 // R of IF97, J/(kg K)
constexpr double kCriticalTemperature = 647.096;         // K
constexpr double kCriticalPressure = 22064000.0;         // Pa
constexpr double kCriticalDensity = 322.0;               // kg/m3
constexpr double kCriticalVolume = 0.003105590062111801; // 1/322, m3/kg
constexpr double kCriticalEntropy = 4412.02148223476;    // J/(kg K)

constexpr double kLowestTemperature = 273.15;       // lower limit of the formulation
constexpr double kRegion13Temperature = 623.15;     // region 1/3 line
constexpr double kB23UpperTemperature = 863.15;     // above it only region 2 is possible
constexpr double kRegion25Temperature = 1073.15;    // region 2/5 line
constexpr double kHighestTemperature = 2273.15;     // upper limit
constexpr double kHighestPressure = 1e8;            // regions 1, 2, 3
constexpr double kRegion5HighestPressure = 5e7;
constexpr double kP623 = 16529164.252621602;        // B23 at 623.15 K
// The saturation pressure at 273.15 K, where the saturation line of the region selections ends.
constexpr double kIcePointSaturationPressure = 611.2126774443452;

// One rounding unit on either side of 1, the widening of every range limit.
constexpr double kOnePlusEps = 1.0000000000000002;
constexpr double kOneMinusEps = 0.9999999999999998;

// Region 1
constexpr double kRegion1Pressure = 16530000.000000002;  // 16.53e6 as rounded in double arithmetic
constexpr double kRegion1Temperature = 1386.0;
constexpr double kRegion1RT = 639675.036;                // R times 1386, J/kg

}  // namespace tvl

#endif
