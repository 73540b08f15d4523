// Unit conversion for tvl: a table of the units each SI unit of the library may be typed in.
#include "units.h"

#include <cerrno>
#include <cmath>
#include <cstdlib>

namespace tvlcli {

namespace {

// value in SI = typed value * scale + offset. The first row of each SI unit is the SI unit
// itself, the row marked engineering is what --units engineering prints.
struct Unit {
    const char* si;
    const char* name;  // normalised: no spaces, brackets or dots
    double scale;
    double offset;
    bool engineering;
    const char* shown;  // how the unit is printed
};

constexpr Unit kUnits[] = {
    {"Pa", "Pa", 1, 0, false, "Pa"},
    {"Pa", "kPa", 1e3, 0, false, "kPa"},
    {"Pa", "MPa", 1e6, 0, true, "MPa"},
    {"Pa", "GPa", 1e9, 0, false, "GPa"},
    {"Pa", "bar", 1e5, 0, false, "bar"},
    {"Pa", "mbar", 1e2, 0, false, "mbar"},
    {"Pa", "atm", 101325, 0, false, "atm"},
    {"K", "K", 1, 0, false, "K"},
    {"K", "C", 1, 273.15, true, "\xC2\xB0" "C"},
    {"J/kg", "J/kg", 1, 0, false, "J/kg"},
    {"J/kg", "kJ/kg", 1e3, 0, true, "kJ/kg"},
    {"J/kg", "MJ/kg", 1e6, 0, false, "MJ/kg"},
    {"J/(kg K)", "J/kgK", 1, 0, false, "J/(kg K)"},
    {"J/(kg K)", "kJ/kgK", 1e3, 0, true, "kJ/(kg K)"},
    {"m3/kg", "m3/kg", 1, 0, false, "m3/kg"},
    {"m3/kg", "dm3/kg", 1e-3, 0, false, "dm3/kg"},
    {"m3/kg", "l/kg", 1e-3, 0, false, "l/kg"},
    {"kg/m3", "kg/m3", 1, 0, false, "kg/m3"},
    {"kg/m3", "g/cm3", 1e3, 0, false, "g/cm3"},
    {"m/s", "m/s", 1, 0, false, "m/s"},
    {"Pa s", "Pas", 1, 0, false, "Pa s"},
    {"Pa s", "mPas", 1e-3, 0, false, "mPa s"},
    {"Pa s", "uPas", 1e-6, 0, true, "\xC2\xB5Pa s"},
    {"m2/s", "m2/s", 1, 0, false, "m2/s"},
    {"m2/s", "mm2/s", 1e-6, 0, true, "mm2/s"},
    {"W/(m K)", "W/mK", 1, 0, false, "W/(m K)"},
    {"W/(m K)", "mW/mK", 1e-3, 0, false, "mW/(m K)"},
    {"m", "m", 1, 0, false, "m"},
    {"m", "um", 1e-6, 0, false, "\xC2\xB5m"},
    {"m", "nm", 1e-9, 0, false, "nm"},
};

// "kJ/(kg K)", "kJ/kg/K", "kJ/kg·K" and "kJ/kgK" are one unit; "°C" and "degC" are "C"; µ is u.
std::string normalised(std::string unit) {
    const std::string replacements[][2] = {{"\xC2\xB0", ""}, {"deg", ""}, {"\xC2\xB5", "u"}, {"\xCE\xBC", "u"},
                                           {"\xC2\xB7", ""}, {"/kg/K", "/kgK"}, {"/m/K", "/mK"}};
    std::string plain;
    for (char c : unit)
        if (c != ' ' && c != '(' && c != ')' && c != '*' && c != '.') plain += c;
    for (const auto& r : replacements)
        for (size_t at = plain.find(r[0]); at != std::string::npos; at = plain.find(r[0]))
            plain.replace(at, r[0].size(), r[1]);
    return plain;
}

}  // namespace

bool readQuantity(const std::string& text, const std::string& siUnit, double& value, std::string& error) {
    char* end = nullptr;
    errno = 0;
    const double number = std::strtod(text.c_str(), &end);
    if (end == text.c_str()) {
        error = "not a number: " + text;
        return false;
    }
    const std::string unit = normalised(end);
    if (unit.empty()) {
        value = number;
        return true;
    }
    for (const Unit& u : kUnits) {
        if (siUnit == u.si && unit == u.name) {
            value = number * u.scale + u.offset;
            return true;
        }
    }
    const std::string accepted = acceptedUnits(siUnit);
    error = "unit " + std::string(end) + " does not fit here" +
            (accepted.empty() ? std::string(": give a plain number") : ", give " + accepted);
    return false;
}

std::string acceptedUnits(const std::string& siUnit) {
    std::string names;
    for (const Unit& u : kUnits)
        if (siUnit == u.si) names += (names.empty() ? "" : ", ") + std::string(u.shown);
    return names;
}

Shown inEngineering(double si, const std::string& siUnit) {
    for (const Unit& u : kUnits)
        if (siUnit == u.si && u.engineering) return {(si - u.offset) / u.scale, u.shown};
    return {si, printedUnit(siUnit)};
}

std::string printedUnit(const std::string& siUnit) {
    return siUnit == "-" || siUnit == "text" ? std::string() : siUnit;
}

}  // namespace tvlcli
