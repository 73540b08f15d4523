// Units on the command line: values typed with a unit ("550C", "10MPa", "2800kJ/kg") and
// results shown in the units an engineer reads (MPa, degrees Celsius, kJ/kg, kJ/(kg K)).
#ifndef TVL_UNITS_H
#define TVL_UNITS_H

#include <string>

namespace tvlcli {

// Reads a number with an optional unit into the SI unit siUnit, as the docs spell it ("Pa", "K",
// "J/kg", "J/(kg K)", ...). A plain number is taken as SI. False, with a message in error, when
// the text is no number or its unit does not measure what siUnit measures.
bool readQuantity(const std::string& text, const std::string& siUnit, double& value, std::string& error);

// The units readQuantity takes for siUnit, for help texts ("Pa, kPa, MPa, bar, ...").
std::string acceptedUnits(const std::string& siUnit);

struct Shown {
    double value;
    std::string unit;  // empty for a number without unit
};

// An SI value in the engineering unit of its quantity; quantities without one stay SI.
Shown inEngineering(double si, const std::string& siUnit);

// The unit as it is printed after a value: "" for "-" and "text".
std::string printedUnit(const std::string& siUnit);

}  // namespace tvlcli

#endif
