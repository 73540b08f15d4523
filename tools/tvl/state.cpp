// tvl state: every property of one state of water and steam, from any pair of p, T, h, s, x
// given as NAME=VALUE with optional units: tvl state p=10MPa T=550C.
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "table_format.h"
#include "units.h"
#include "water_state.h"

namespace tvlcli {

namespace {

constexpr int kUsageError = 1;
constexpr int kCallFailed = 2;
constexpr double kCriticalPressure = 22.064e6;

struct Quantity {
    char name;
    const char* unit;
};
constexpr Quantity kInputs[] = {{'p', "Pa"}, {'T', "K"}, {'h', "J/kg"}, {'s', "J/(kg K)"}, {'x', "-"}};
// The pairs in the order their values are handed to findWaterState.
constexpr const char* kPairs[] = {"pT", "ph", "ps", "hs", "Tx", "px"};

const char* regionText(const WaterState& s) {
    switch (s.region) {
    case 1: return "1 (compressed liquid)";
    case 2: return s.p >= kCriticalPressure ? "2 (supercritical steam)" : "2 (superheated steam)";
    case 3: return "3 (near-critical fluid)";
    case 4: return "4 (wet steam)";
    case 5: return "5 (high-temperature steam)";
    }
    return "?";
}

const char* phaseText(const WaterState& s) {
    switch (s.phase) {
    case 1: return s.region == 4 ? "saturated liquid" : "liquid";
    case 2: return s.region == 4 ? "saturated vapour" : "vapour";
    case 3: return "supercritical fluid";
    case 4: return "liquid and vapour";
    }
    return "?";
}

// Pads to a width in characters on the screen: the degree and micro signs are two bytes.
std::string padded(const std::string& text, size_t width) {
    size_t shown = 0;
    for (unsigned char c : text) shown += (c & 0xC0) != 0x80;
    return text + std::string(shown < width ? width - shown : 1, ' ');
}

void printUsage(FILE* to) {
    std::fprintf(to,
                 "usage: tvl state NAME=VALUE NAME=VALUE [--units si|engineering] [-p DIGITS]\n"
                 "Prints every property of one state of water and steam, with its region and phase.\n"
                 "The two names are a pair of p, T, h, s, x: pT, ph, ps, hs, Tx, px. Values are SI unless\n"
                 "a unit follows them: p=10MPa, p=100bar, T=550C, h=2800kJ/kg, s=6.5kJ/kgK.\n"
                 "Output in MPa, degrees Celsius, kJ/kg, kJ/(kg K) (engineering, the default) or SI.\n");
}

}  // namespace

int runState(int argc, char** argv) {
    bool engineering = true;
    int digits = 7;
    std::vector<std::pair<char, double>> given;
    for (int k = 0; k < argc; ++k) {
        const std::string word = argv[k];
        if (word == "--help" || word == "-h") {
            printUsage(stdout);
            return 0;
        }
        if ((word == "--units" || word == "-p") && k + 1 < argc) {
            const std::string value = argv[++k];
            if (word == "-p") {
                digits = std::atoi(value.c_str());
                if (digits < 1 || digits > 17) {
                    std::fprintf(stderr, "tvl state: -p takes a number of digits from 1 to 17\n");
                    return kUsageError;
                }
            } else if (value == "si" || value == "engineering") {
                engineering = value == "engineering";
            } else {
                std::fprintf(stderr, "tvl state: --units takes si or engineering\n");
                return kUsageError;
            }
            continue;
        }
        const size_t equals = word.find('=');
        const Quantity* quantity = nullptr;
        for (const Quantity& q : kInputs)
            if (equals == 1 && (word[0] == q.name || (q.name == 'T' && word[0] == 't'))) quantity = &q;
        double value = 0;
        std::string error;
        if (quantity == nullptr || !readQuantity(word.substr(2), quantity->unit, value, error) || !std::isfinite(value)) {
            std::fprintf(stderr, "tvl state: cannot read %s%s%s\n", word.c_str(), error.empty() ? "" : ": ",
                         error.c_str());
            return kUsageError;
        }
        given.push_back({quantity->name, value});
    }
    const char* pair = nullptr;
    double first = 0, second = 0;
    for (const char* candidate : kPairs)
        for (int order = 0; given.size() == 2 && order < 2; ++order)
            if (given[order].first == candidate[0] && given[1 - order].first == candidate[1]) {
                pair = candidate;
                first = given[order].second;
                second = given[1 - order].second;
            }
    if (pair == nullptr) {
        printUsage(stderr);
        return kUsageError;
    }

    WaterState s{};
    std::string error;
    if (!findWaterState(pair, first, second, s, error)) {
        std::fprintf(stderr, "tvl state: %s\n", error.c_str());
        return kCallFailed;
    }
    std::printf("region  %s\nphase   %s\n", regionText(s), phaseText(s));
    const struct {
        const char* name;
        double value;
        const char* unit;
        const char* what;
    } rows[] = {{"p", s.p, "Pa", "pressure"},
                {"T", s.T, "K", "temperature"},
                {"x", s.x, "-", "dryness fraction"},
                {"v", s.v, "m3/kg", "specific volume"},
                {"rho", 1.0 / s.v, "kg/m3", "density"},
                {"h", s.h, "J/kg", "specific enthalpy"},
                {"u", s.u, "J/kg", "specific internal energy"},
                {"s", s.s, "J/(kg K)", "specific entropy"},
                {"cp", s.cp, "J/(kg K)", "isobaric heat capacity"},
                {"cv", s.cv, "J/(kg K)", "isochoric heat capacity"},
                {"w", s.w, "m/s", "speed of sound"},
                {"eta", s.eta, "Pa s", "dynamic viscosity"},
                {"lambda", s.lambda, "W/(m K)", "thermal conductivity"}};
    for (const auto& row : rows) {
        const Shown shown = engineering ? inEngineering(row.value, row.unit) : Shown{row.value, printedUnit(row.unit)};
        char value[64];
        if (std::isnan(row.value))
            std::snprintf(value, sizeof value, "-");
        else
            std::snprintf(value, sizeof value, "%.*g", digits, shown.value);
        std::printf("%-7s %-16s %s%s\n", row.name, value, padded(shown.unit, 11).c_str(), row.what);
    }
    return 0;
}

}  // namespace tvlcli
