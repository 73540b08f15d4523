// tvl: call any export of tavlib6 by name from the command line.
//
//   tvl HPT 5e6 700          prints the value (arguments SI, or with units: tvl HPT 50bar 426.85C)
//   tvl PT1HS 1e5 300        prints the outputs, labelled (p=..., T=...)
//   tvl HPT --help           the arguments, units, range and failure codes of HPT
//   tvl --list               lists the exports with their arguments
//   tvl --about, --version   the texts of the about box, the version
//   tvl state p=10MPa T=550C every property of one state (state.cpp)
//   tvl table ...            steam tables (table.cpp)
//   tvl chart ...            h-s, T-s and p-h charts as SVG or PNG (chart.cpp)
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <algorithm>
#include <cctype>
#include <string>
#include <strings.h>

#include "export_help.h"
#include "export_table.h"
#include "product_texts.h"
#include "table_format.h"
#include "units.h"

namespace {

using tvlcli::CallArgs;
using tvlcli::CallResult;
using tvlcli::ExportEntry;
using tvlcli::ExportHelp;
using tvlcli::Parameter;
using tvlcli::Shown;
using tvlcli::findHelp;
using tvlcli::inEngineering;
using tvlcli::parameters;
using tvlcli::printExportHelp;
using tvlcli::readQuantity;

constexpr int kUsageError = 1;
constexpr int kCallFailed = 2;
constexpr int kDefaultDigits = 10;

void printHelp() {
    std::printf(
        "usage: tvl [-p DIGITS] [--units si|engineering] NAME [ARGUMENT...]\n"
        "       tvl NAME --help                 arguments, units, range and failure codes of NAME\n"
        "       tvl state p=10MPa T=550C        every property of one state (tvl state --help)\n"
        "       tvl table saturation-T | saturation-p | superheated | compressed ... (tvl table --help)\n"
        "       tvl chart hs | ts | ph --out FILE.svg|FILE.png ... (tvl chart --help)\n"
        "       tvl --list | --about | --version | --help\n\n"
        "Calls the export NAME of tavlib6 (with or without the tvl prefix, in any case) and prints its\n"
        "value with 10 significant digits, or DIGITS (1 to 17) with -p. Exports with output cells print\n"
        "each output as name=value. A number is SI (Pa, K, J/kg, J/(kg K), m3/kg) unless a unit follows\n"
        "it: 550C, 100bar, 10MPa, 2800kJ/kg, 6.5kJ/kgK. --units engineering prints results in MPa,\n"
        "degrees Celsius, kJ/kg and kJ/(kg K) with the unit behind the value. Text arguments are passed\n"
        "as they stand: quote them for the shell, as in tvl gCPGST \"N2:79;O2:21\" 300.\n\n"
        "On failure tvl prints \"error N: <text>\" to standard error and exits with status 2.\n");
}

void printList() {
    const char* family = "";
    for (int k = 0; k < tvlcli::kExportCount; ++k) {
        const ExportEntry& e = tvlcli::kExports[k];
        if (std::strcmp(family, e.family) != 0) {
            family = e.family;
            std::printf("%s%s\n", k == 0 ? "" : "\n", family);
        }
        std::printf("  %-34s %s\n", e.name, e.argumentNames);
    }
}

// The texts of the about box, as the Windows DLL shows them: name, version, purpose, credits.
void printAbout() {
    const auto print = [](const char* text) {
        std::string lines = tvl::expandProductMacros(std::string(text), std::string(TVL_VERSION_TEXT));
        lines.erase(std::remove(lines.begin(), lines.end(), '\r'), lines.end());
        std::printf("%s\n", lines.c_str());
    };
    print(TVL_TEXT_PRODUCT);
    print(TVL_TEXT_VERSION);
    std::printf("\n");
    print(TVL_TEXT_PURPOSE);
    std::printf("\n");
    print(TVL_TEXT_CREDITS);
}

bool sameName(const char* given, const char* name) {
    if (strncasecmp(given, "tvl", 3) == 0 && strcasecmp(given + 3, name) == 0) return true;
    return strcasecmp(given, name) == 0;
}

const ExportEntry* findExport(const char* given) {
    for (int k = 0; k < tvlcli::kExportCount; ++k)
        if (sameName(given, tvlcli::kExports[k].name)) return &tvlcli::kExports[k];
    return nullptr;
}

bool parseInteger(const char* text, long long& value) {
    char* end = nullptr;
    errno = 0;
    value = std::strtoll(text, &end, 0);
    return end != text && *end == '\0' && errno == 0;
}

std::string wideToNarrow(const tvlWideChar* wide) {
    std::string text;
    for (; *wide != 0; ++wide) text += *wide < 128 ? static_cast<char>(*wide) : '?';
    return text;
}

// Splits the argument names "p T" into their words.
std::string argumentName(const char* names, int index) {
    const char* word = names;
    for (int k = 0; k < index && word != nullptr; ++k) {
        word = std::strchr(word, ' ');
        if (word != nullptr) ++word;
    }
    if (word == nullptr) return "?";
    const char* end = std::strchr(word, ' ');
    return end ? std::string(word, end) : std::string(word);
}

// The SI unit of the argument or output at `index` of the signature, "-" where none is known.
std::string unitAt(const ExportHelp* help, int index) {
    if (help == nullptr) return "-";
    const std::vector<Parameter> list = parameters(*help);
    return index < static_cast<int>(list.size()) ? list[index].unit : "-";
}

void printNumber(double value, const std::string& siUnit, int digits, bool engineering, const std::string& label) {
    const Shown shown = engineering ? inEngineering(value, siUnit) : Shown{value, ""};
    std::printf("%s%.*g%s%s\n", label.empty() ? "" : (label + "=").c_str(), digits, shown.value,
                shown.unit.empty() ? "" : " ", shown.unit.c_str());
}

int callExport(const ExportEntry& entry, int argc, char** argv, int digits, bool engineering) {
    const ExportHelp* help = findHelp(entry.name);
    if (argc == 1 && (std::strcmp(argv[0], "--help") == 0 || std::strcmp(argv[0], "-h") == 0) && help != nullptr) {
        printExportHelp(*help);
        return 0;
    }
    const int inputs = static_cast<int>(std::strlen(entry.kinds)) -
                       static_cast<int>(std::count(entry.kinds, entry.kinds + std::strlen(entry.kinds), 'o'));
    if (argc != inputs) {
        std::fprintf(stderr, "tvl: %s takes %d argument%s (%s), %d given; see tvl %s --help\n", entry.name, inputs,
                     inputs == 1 ? "" : "s", entry.argumentNames, argc, entry.name);
        return kUsageError;
    }
    CallArgs args;
    int given = 0;
    int counts[128] = {};
    for (const char* kind = entry.kinds; *kind != '\0'; ++kind) {
        const int slot = counts[static_cast<unsigned char>(*kind)]++;
        if (*kind == 'o') continue;
        const char* text = argv[given];
        const std::string name = argumentName(entry.argumentNames, static_cast<int>(kind - entry.kinds));
        bool ok = true;
        std::string problem = "is not a number";
        if (*kind == 'd') {
            const int index = static_cast<int>(kind - entry.kinds);
            ok = readQuantity(text, unitAt(help, index), args.numbers[slot], problem);
            problem = "cannot be read (" + problem + ")";
        } else if (*kind == 'i' || *kind == 'W' || *kind == 'w') {
            long long value = 0;
            ok = parseInteger(text, value);
            if (*kind == 'i') args.integers[slot] = static_cast<std::int32_t>(value);
            if (*kind == 'W') args.words[slot] = static_cast<std::intptr_t>(value);
            if (*kind == 'w') args.windows[slot] = reinterpret_cast<void*>(static_cast<std::intptr_t>(value));
        } else if (*kind == 's') {
            args.texts[slot] = text;
        }
        if (!ok) {
            std::fprintf(stderr, "tvl: argument %s of %s %s: %s\n", name.c_str(), entry.name, problem.c_str(), text);
            return kUsageError;
        }
        ++given;
    }

    const CallResult result = entry.call(args);
    const bool reportsErrors = std::strncmp(entry.name, "GETLASTERROR", 12) != 0 && std::strcmp(entry.name, "SETLASTERROR") != 0;
    const int code = reportsErrors ? tvlGETLASTERROR() : 0;
    if (code != 0) {
        const char* text = tvlGETLASTERRORDESCRIPTION();
        std::fprintf(stderr, "error %d: %s\n", code, text != nullptr ? text : "");
        return kCallFailed;
    }

    bool hasOutputs = false;
    int outputIndex = 0;
    for (const char* kind = entry.kinds; *kind != '\0'; ++kind) {
        if (*kind != 'o') continue;
        hasOutputs = true;
        const std::string name = argumentName(entry.argumentNames, static_cast<int>(kind - entry.kinds));
        printNumber(args.outputs[outputIndex++], unitAt(help, static_cast<int>(kind - entry.kinds)), digits, engineering,
                    name);
    }
    if (hasOutputs) return 0;
    switch (result.kind) {
    case CallResult::kNumber: printNumber(result.number, help ? help->resultUnit : "-", digits, engineering, ""); break;
    case CallResult::kInteger: std::printf("%d\n", result.integer); break;
    case CallResult::kText: std::printf("%s\n", result.text != nullptr ? result.text : ""); break;
    case CallResult::kWideText: std::printf("%s\n", result.wide != nullptr ? wideToNarrow(result.wide).c_str() : ""); break;
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc > 1 && std::strcmp(argv[1], "table") == 0) return tvlcli::runTable(argc - 2, argv + 2);
    if (argc > 1 && std::strcmp(argv[1], "chart") == 0) return tvlcli::runChart(argc - 2, argv + 2);
    if (argc > 1 && std::strcmp(argv[1], "state") == 0) return tvlcli::runState(argc - 2, argv + 2);
    int digits = kDefaultDigits;
    bool engineering = false;
    int first = 1;
    while (first < argc && argv[first][0] == '-' && argv[first][1] != '\0' && !std::isdigit(static_cast<unsigned char>(argv[first][1]))) {
        const std::string option = argv[first];
        if (option == "--help" || option == "-h") {
            printHelp();
            return 0;
        }
        if (option == "--list") {
            printList();
            return 0;
        }
        if (option == "--about") {
            printAbout();
            return 0;
        }
        if (option == "--version") {
            std::printf("tvl %s (tavlib6 %g, IAPWS-IF97)\n", TVL_VERSION_TEXT, tvlGETTVLVERSION());
            return 0;
        }
        if (option == "--units" && first + 1 < argc &&
            (std::strcmp(argv[first + 1], "si") == 0 || std::strcmp(argv[first + 1], "engineering") == 0)) {
            engineering = std::strcmp(argv[first + 1], "engineering") == 0;
            first += 2;
            continue;
        }
        if (option == "-p" && first + 1 < argc) {
            long long value = 0;
            if (!parseInteger(argv[first + 1], value) || value < 1 || value > 17) {
                std::fprintf(stderr, "tvl: -p takes a number of digits from 1 to 17\n");
                return kUsageError;
            }
            digits = static_cast<int>(value);
            first += 2;
            continue;
        }
        std::fprintf(stderr, "tvl: unknown option %s (try tvl --help)\n", argv[first]);
        return kUsageError;
    }
    if (first >= argc) {
        printHelp();
        return kUsageError;
    }
    const ExportEntry* entry = findExport(argv[first]);
    if (entry == nullptr) {
        std::fprintf(stderr, "tvl: no export named %s (try tvl --list)\n", argv[first]);
        return kUsageError;
    }
    return callExport(*entry, argc - first - 1, argv + first + 1, digits, engineering);
}
