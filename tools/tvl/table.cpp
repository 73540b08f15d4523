// tvl table: steam tables printed from the exports, as aligned text or as CSV.
//
//   tvl table saturation-T [T...]              saturated water and steam by temperature
//   tvl table saturation-p [p...]              the same by pressure
//   tvl table superheated p... [--T LIST]      isobars of superheated (or supercritical) steam
//   tvl table compressed p... [--T LIST]       isobars of compressed (or supercritical) water
//
// Arguments are SI (Pa, K) like every tvl call, or carry a unit (100C, 10bar); the table prints
// degrees Celsius, MPa, kJ/kg and kJ/(kg K) unless --si asks for K, Pa, J/kg and J/(kg K).
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "table_format.h"
#include "tavlib6.h"
#include "units.h"

namespace tvlcli {

double checked(double value) {
    return tvlGETLASTERROR() == 0 ? value : std::nan("");
}

// Reads "a,b,c" or "from:to:step", each with an optional unit of siUnit ("100C:300C:50C"); a
// step's unit counts as a difference (50C is 50 K).
bool parseQuantityList(const std::string& text, const char* siUnit, std::vector<double>& values) {
    std::string error;
    const auto read = [&](const std::string& word, double& value) {
        return readQuantity(word, siUnit, value, error) && std::isfinite(value);
    };
    const size_t colon = text.find(':');
    if (colon != std::string::npos) {
        const size_t second = text.find(':', colon + 1);
        double from = 0, to = 0, step = 0, zero = 0;
        if (second == std::string::npos || !read(text.substr(0, colon), from) ||
            !read(text.substr(colon + 1, second - colon - 1), to) || !read(text.substr(second + 1), step))
            return false;
        // The step's own unit at zero: the offset of degrees Celsius drops out.
        char* end = nullptr;
        std::strtod(text.c_str() + second + 1, &end);
        if (!read("0" + std::string(end), zero)) return false;
        step -= zero;
        if (!(step > 0) || to < from || (to - from) / step > 100000) return false;
        for (int k = 0; from + k * step <= to * (1 + 1e-12) + 1e-12; ++k) values.push_back(from + k * step);
        return true;
    }
    size_t start = 0;
    while (start <= text.size()) {
        const size_t comma = text.find(',', start);
        double value = 0;
        if (!read(text.substr(start, comma == std::string::npos ? std::string::npos : comma - start), value))
            return false;
        values.push_back(value);
        if (comma == std::string::npos) break;
        start = comma + 1;
    }
    return !values.empty();
}

bool parseNumberList(const std::string& text, std::vector<double>& values) {
    return parseQuantityList(text, "-", values);
}

namespace {

constexpr int kUsageError = 1;
constexpr double kCriticalPressure = 22.064e6;
constexpr double kCriticalTemperature = 647.096;


struct Column {
    const char* title;
    const char* unit;    // of the printed values
    const char* siUnit;  // with --si
    double scale;        // printed value = SI value * scale + offset (the SI value with --si)
    int decimals;        // in the text table
    double offset;
};

// Units of the default and of the --si tables.
constexpr Column kTemperature{"t", "\xC2\xB0" "C", "K", 1.0, 2, -273.15};
constexpr Column kPressure{"p", "MPa", "Pa", 1e-6, 6, 0.0};
constexpr Column kVolume{"v", "m3/kg", "m3/kg", 1.0, 7, 0.0};
constexpr Column kEnergy{"h", "kJ/kg", "J/kg", 1e-3, 2, 0.0};
constexpr Column kEntropy{"s", "kJ/(kg K)", "J/(kg K)", 1e-3, 4, 0.0};
constexpr Column kSpeed{"w", "m/s", "m/s", 1.0, 1, 0.0};

Column titled(Column column, const char* title) {
    column.title = title;
    return column;
}

class Table {
public:
    Table(bool csv, bool si) : csv(csv), si(si) {}

    void add(const Column& column) { columns.push_back(column); }

    void header() const {
        std::string line;
        for (size_t k = 0; k < columns.size(); ++k) {
            const Column& c = columns[k];
            const std::string title = std::string(si && c.offset != 0 ? "T" : c.title) + " [" + (si ? c.siUnit : c.unit) + "]";
            if (csv)
                line += (k ? "," : "") + title;
            else
                line += pad(title, width(k));
        }
        std::printf("%s\n", line.c_str());
    }

    // One row of SI values, NaN where a call failed.
    void row(const std::vector<double>& values) const {
        std::string line;
        char cell[64];
        for (size_t k = 0; k < columns.size(); ++k) {
            const Column& c = columns[k];
            const double value = si ? values[k] : values[k] * c.scale + c.offset;
            if (csv) {
                if (std::isnan(value))
                    cell[0] = '\0';
                else
                    std::snprintf(cell, sizeof cell, "%.12g", value);
                line += (k ? "," : "") + std::string(cell);
            } else {
                // SI units move the decimal point by the scale: MPa with 6 decimals is Pa with none.
                const int decimals = si ? std::max(0, c.decimals + static_cast<int>(std::lround(std::log10(c.scale))))
                                        : c.decimals;
                // A value that rounds to zero prints as 0, never as -0.
                const bool zero = std::fabs(value) < 0.5 * std::pow(10.0, -decimals);
                if (std::isnan(value))
                    std::snprintf(cell, sizeof cell, "-");
                else
                    std::snprintf(cell, sizeof cell, "%.*f", decimals, zero ? 0.0 : value);
                line += pad(cell, width(k));
            }
        }
        std::printf("%s\n", line.c_str());
    }

    void title(const std::string& text) const {
        if (!csv) std::printf("%s\n", text.c_str());
    }

    void gap() const {
        if (!csv) std::printf("\n");
    }

private:
    static std::string pad(const std::string& text, size_t width) {
        size_t shown = 0;  // characters on the screen: the degree sign is two bytes
        for (unsigned char c : text) shown += (c & 0xC0) != 0x80;
        return shown >= width ? " " + text : std::string(width - shown, ' ') + text;
    }
    size_t width(size_t k) const {
        const Column& c = columns[k];
        return std::max<size_t>(14, std::strlen(c.title) + std::strlen(si ? c.siUnit : c.unit) + 5);
    }

    bool csv;
    bool si;
    std::vector<Column> columns;
};

void saturationColumns(Table& table) {
    table.add(kTemperature);
    table.add(kPressure);
    table.add(titled(kVolume, "v'"));
    table.add(titled(kVolume, "v''"));
    table.add(titled(kEnergy, "u'"));
    table.add(titled(kEnergy, "u''"));
    table.add(titled(kEnergy, "h'"));
    table.add(titled(kEnergy, "h''"));
    table.add(titled(kEnergy, "r"));
    table.add(titled(kEntropy, "s'"));
    table.add(titled(kEntropy, "s''"));
}

std::vector<double> saturationRow(double T, double p) {
    return {T, p, checked(tvlVSWT(T)), checked(tvlVSST(T)), checked(tvlUSWT(T)), checked(tvlUSST(T)),
            checked(tvlHSWT(T)), checked(tvlHSST(T)),
            checked(tvlRST(T)), checked(tvlSSWT(T)), checked(tvlSSST(T))};
}

void isobarColumns(Table& table) {
    table.add(kPressure);
    table.add(kTemperature);
    table.add(kVolume);
    table.add(titled(kEnergy, "u"));
    table.add(kEnergy);
    table.add(titled(kEntropy, "s"));
    table.add(titled(kEntropy, "cp"));
    table.add(kSpeed);
}

void printUsage() {
    std::fprintf(stderr,
                 "usage: tvl table saturation-T [T...] [--csv] [--si]\n"
                 "       tvl table saturation-p [p...] [--csv] [--si]\n"
                 "       tvl table superheated p... [--T LIST] [--csv] [--si]\n"
                 "       tvl table compressed p... [--T LIST] [--csv] [--si]\n"
                 "Arguments in Pa and K, or with a unit: 100C, 10bar, 5MPa. A LIST is a,b,c or from:to:step\n"
                 "(100C:500C:50C). The tables print degrees Celsius, MPa, kJ/kg and kJ/(kg K), or SI units with\n"
                 "--si; --csv writes comma-separated values with a header line. A superheated table lists only\n"
                 "vapour above the saturation temperature (above the critical temperature from the critical\n"
                 "pressure up), a compressed table only liquid below it.\n");
}

// The temperature that separates the two kinds of isobar: saturation, or the critical one.
double dividingTemperature(double p) {
    return p < kCriticalPressure ? checked(tvlTSP(p)) : kCriticalTemperature;
}

int isobarTable(Table& table, bool csv, bool vapour, const std::vector<double>& pressures,
                const std::vector<double>& temperatures) {
    table.title(vapour ? "Superheated steam: the states above the saturation (or critical) temperature"
                       : "Compressed water: the states below the saturation (or critical) temperature");
    isobarColumns(table);
    bool first = true;
    for (double p : pressures) {
        const double dividing = dividingTemperature(p);
        if (!csv) {
            if (!first) table.gap();
            char line[128];
            if (p >= kCriticalPressure)
                std::snprintf(line, sizeof line, "p = %g MPa, above the critical pressure", p * 1e-6);
            else
                std::snprintf(line, sizeof line, "p = %g MPa, saturation temperature %.2f \xC2\xB0" "C", p * 1e-6,
                              dividing - 273.15);
            table.title(line);
        }
        if (!csv || first) table.header();
        first = false;
        if (std::isnan(dividing)) continue;
        for (double T : temperatures) {
            if (vapour ? T <= dividing : T >= dividing) continue;
            table.row({p, T, checked(tvlVPT(p, T)), checked(tvlUPT(p, T)), checked(tvlHPT(p, T)),
                       checked(tvlSPT(p, T)), checked(tvlCPPT(p, T)), checked(tvlWPT(p, T))});
        }
    }
    return 0;
}

}  // namespace

int runTable(int argc, char** argv) {
    bool csv = false, si = false;
    std::string kind, temperatureList;
    std::vector<double> values;
    for (int k = 0; k < argc; ++k) {
        const std::string word = argv[k];
        if (word == "--csv") {
            csv = true;
        } else if (word == "--si") {
            si = true;
        } else if (word == "--T" && k + 1 < argc) {
            temperatureList = argv[++k];
        } else if (word == "--help" || word == "-h") {
            printUsage();
            return 0;
        } else if (kind.empty()) {
            kind = word;
        } else if (!parseQuantityList(word, kind == "saturation-T" ? "K" : "Pa", values)) {
            std::fprintf(stderr, "tvl table: not a number or list: %s\n", word.c_str());
            return kUsageError;
        }
    }

    Table table(csv, si);
    if (kind == "saturation-T" || kind == "saturation-p") {
        const bool byTemperature = kind == "saturation-T";
        if (values.empty()) {
            if (byTemperature)
                values = {273.16, 283.15, 293.15, 303.15, 323.15, 343.15, 363.15, 373.15, 393.15, 413.15, 433.15,
                          453.15, 473.15, 493.15, 513.15, 533.15, 553.15, 573.15, 593.15, 613.15, 633.15, 643.15, 647.096};
            else
                values = {611.657, 1e3, 2e3, 5e3, 1e4, 2e4, 5e4, 1e5, 101325, 2e5, 5e5, 1e6, 2e6, 5e6, 1e7, 1.5e7, 2e7, 2.2e7};
        }
        table.title(byTemperature ? "Saturated water and steam by temperature" : "Saturated water and steam by pressure");
        saturationColumns(table);
        table.header();
        for (double given : values) {
            const double T = byTemperature ? given : checked(tvlTSP(given));
            const double p = byTemperature ? checked(tvlPST(given)) : given;
            table.row(saturationRow(T, p));
        }
        return 0;
    }
    if (kind == "superheated" || kind == "compressed") {
        const bool vapour = kind == "superheated";
        if (values.empty()) {
            std::fprintf(stderr, "tvl table %s: give one or more pressures (Pa, or 10bar, 5MPa)\n", kind.c_str());
            return kUsageError;
        }
        std::vector<double> temperatures;
        if (temperatureList.empty()) temperatureList = vapour ? "373.15:1073.15:50" : "273.15:643.15:25";
        if (!parseQuantityList(temperatureList, "K", temperatures)) {
            std::fprintf(stderr, "tvl table: not a list of temperatures: %s\n", temperatureList.c_str());
            return kUsageError;
        }
        return isobarTable(table, csv, vapour, values, temperatures);
    }
    printUsage();
    return kUsageError;
}

}  // namespace tvlcli
