// tavlib6_call_check: the same calls on two builds of the library, compared.
//
//   tavlib6_call_check write FILE      runs every case and writes the results to FILE
//   tavlib6_call_check compare FILE    runs every case and compares with the results in FILE
//   tavlib6_call_check traps FILE      compare, with the invalid, zero-divide and overflow traps
//                                      unmasked as some hosts run (Windows only)
//
// The cases come from the table of every export (the one the tvl command uses), so each family
// that is listed takes part: for each export a few argument sets from typical values of its
// arguments by name, then NaN, infinite and huge arguments. Each case records the result, the
// output cells and the error code; the error texts of the codes -1 to 13 follow, narrow and
// wide. The Linux build writes the file and the Windows DLL, run under Wine, is compared with it.
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

#if defined(_WIN32)
#include <float.h>
#include <windows.h>
#endif

#include "export_table.h"

namespace {

using tvlcli::CallArgs;
using tvlcli::CallResult;
using tvlcli::ExportEntry;

// Two builds run the same algorithms through different compilers and mathematical libraries,
// which may round exp, log and pow differently in the last place (seen: a few 1e-15). A search
// that stops on a step below the tolerance, 2e-12, may take one step more on one build than
// on the other, so a result may move by about that much; five times it is still far below
// any real fault.
constexpr double kRelativeTolerance = 1e-11;
// Cases per export drawn from the typical values (all of them when the product is smaller).
constexpr int kCasesPerExport = 24;

const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kInfinity = std::numeric_limits<double>::infinity();

// Typical values of the arguments by their names in the list of exports, chosen to land in
// every region and in the failing areas between them.
struct NumberValues {
    const char* name;
    std::vector<double> values;
};

const std::vector<NumberValues>& numberValues() {
    static const std::vector<NumberValues> table = {
        {"p", {1e5, 3e6, 1.5e7, 2.5e7, 6e7, 611.0}},
        {"T", {300.0, 450.0, 640.0, 700.0, 1200.0, 1800.0, 273.15}},
        {"h", {1e5, 5e5, 1.5e6, 2.1e6, 2.8e6, 3.5e6, 5e6}},
        {"s", {500.0, 2000.0, 4000.0, 5000.0, 6000.0, 7500.0}},
        {"r", {1000.0, 800.0, 500.0, 322.0, 200.0, 50.0}},
        {"r0", {600.0, 300.0, 100.0}},
        {"x", {0.0, 0.3, 1.0}},
        {"L", {5.893e-7, 2.265e-7, 1.1e-6}},
        {"eff", {0.85, 1.0, 0.5}},
        {"p2", {1e5, 5e4, 3e6}},
        {"v", {1e-10, 2e-12, 1e-6}},
    };
    return table;
}

const std::vector<std::int32_t> kIntegerValues = {1, 0, 50, 2, -1};
const std::vector<std::int32_t> kCodeValues = {-1, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13};
const std::vector<std::int32_t> kIdValues = {0, 6, 12, 13, 14, 15, 99, -3};
const std::vector<const char*> kTextValues = {"N2",       "Air",    "N2:79;O2:21", "AirMix", "CO2:1%;N2:99%",
                                              "{N2:1;O2:1}:2;Ar:1", "bad;;", "",  "NoSuchGas"};
const std::vector<double> kOtherNumbers = {1.0, 300.0, 1e5};

// Exports whose result is an address or an opaque handle: only their error code is compared.
bool resultIsOpaque(const char* name) {
    return std::strcmp(name, "GETINTERNALOBJECT") == 0 || std::strncmp(name, "gNEWID", 6) == 0;
}

std::vector<std::string> words(const char* text) {
    std::vector<std::string> out;
    std::string word;
    for (const char* c = text;; ++c) {
        if (*c == ' ' || *c == '\0') {
            if (!word.empty()) out.push_back(word);
            word.clear();
            if (*c == '\0') break;
        } else {
            word += *c;
        }
    }
    return out;
}

// One argument of one case, by kind: d number, i integer, s text, w window, W word.
struct Argument {
    char kind;
    double number = 0.0;
    std::int32_t integer = 0;
    const char* text = nullptr;
};

std::size_t valueCount(char kind, const std::string& name) {
    if (kind == 'd') {
        for (const auto& row : numberValues())
            if (name == row.name) return row.values.size();
        return kOtherNumbers.size();
    }
    if (kind == 'i') return name == "code" ? kCodeValues.size() : name == "id" ? kIdValues.size() : kIntegerValues.size();
    if (kind == 's') return kTextValues.size();
    return 1;
}

Argument typicalArgument(char kind, const std::string& name, std::size_t index) {
    Argument a{kind};
    if (kind == 'd') {
        const std::vector<double>* values = &kOtherNumbers;
        for (const auto& row : numberValues())
            if (name == row.name) values = &row.values;
        a.number = (*values)[index];
    } else if (kind == 'i') {
        const auto& values = name == "code" ? kCodeValues : name == "id" ? kIdValues : kIntegerValues;
        a.integer = values[index];
    } else if (kind == 's') {
        a.text = kTextValues[index];
    }
    return a;
}

// Bad input of three sorts: 0 NaN, 1 infinity, 2 a huge negative number (texts stay typical).
Argument badArgument(char kind, int sort) {
    Argument a{kind};
    const double numbers[] = {kNaN, kInfinity, -1e300};
    const std::int32_t integers[] = {std::numeric_limits<std::int32_t>::min(), -1, std::numeric_limits<std::int32_t>::max()};
    a.number = numbers[sort];
    a.integer = integers[sort];
    a.text = kTextValues[static_cast<std::size_t>(sort)];
    return a;
}

struct Case {
    const ExportEntry* entry;
    std::vector<Argument> arguments;
};

// The inputs of an export as (kind, name) pairs; the output cells are not inputs.
std::vector<std::pair<char, std::string>> inputsOf(const ExportEntry& entry) {
    const std::vector<std::string> names = words(entry.argumentNames);
    std::vector<std::pair<char, std::string>> inputs;
    for (std::size_t k = 0; entry.kinds[k] != '\0'; ++k)
        if (entry.kinds[k] != 'o') inputs.emplace_back(entry.kinds[k], k < names.size() ? names[k] : std::string());
    return inputs;
}

std::vector<Case> allCases() {
    std::vector<Case> cases;
    for (int e = 0; e < tvlcli::kExportCount; ++e) {
        const ExportEntry& entry = tvlcli::kExports[e];
        // The desktop functions open windows: the about-box check runs them on its own.
        if (std::strchr(entry.kinds, 'w') != nullptr) continue;
        const auto inputs = inputsOf(entry);
        std::size_t product = 1;
        for (const auto& input : inputs) product *= valueCount(input.first, input.second);
        const std::size_t count = product < kCasesPerExport ? product : kCasesPerExport;
        for (std::size_t t = 0; t < count; ++t) {
            Case c{&entry, {}};
            std::size_t rest = t;
            for (std::size_t i = 0; i < inputs.size(); ++i) {
                const std::size_t n = valueCount(inputs[i].first, inputs[i].second);
                // Every combination while they are few; otherwise a spread that moves each
                // argument at its own pace.
                const std::size_t index = product <= kCasesPerExport ? rest % n : (t * (2 * i + 1) + i) % n;
                rest /= n;
                c.arguments.push_back(typicalArgument(inputs[i].first, inputs[i].second, index));
            }
            cases.push_back(c);
        }
        if (inputs.empty()) continue;
        for (int sort = 0; sort < 3; ++sort) {
            Case c{&entry, {}};
            for (const auto& input : inputs) c.arguments.push_back(badArgument(input.first, sort));
            cases.push_back(c);
        }
    }
    return cases;
}

const ExportEntry* findEntry(const char* name) {
    for (int k = 0; k < tvlcli::kExportCount; ++k)
        if (std::strcmp(tvlcli::kExports[k].name, name) == 0) return &tvlcli::kExports[k];
    return nullptr;
}

CallResult callEntry(const ExportEntry& entry, CallArgs& args) { return entry.call(args); }

// Settings go back to their defaults after every case, so that a case that changes one does
// not steer the ones after it.
void restoreSettings() {
    CallArgs args;
    if (const ExportEntry* set = findEntry("SETTOLERANCE")) {
        args.numbers[0] = 2e-12;
        callEntry(*set, args);
    }
    const struct {
        const char* name;
        std::int32_t value;
    } integers[] = {{"SETTOLERANCEMODE", 1}, {"SETCHECKRANGEMODE", 1}, {"SETMAXITERATION", 100}};
    for (const auto& setting : integers) {
        if (const ExportEntry* set = findEntry(setting.name)) {
            args.integers[0] = setting.value;
            callEntry(*set, args);
        }
    }
}

std::string formatNumber(double value) {
    char text[64];
    std::snprintf(text, sizeof text, "%.17g", value);
    return text;
}

std::string narrowOf(const tvlWideChar* wide) {
    if (wide == nullptr) return "(null)";
    std::string text;
    for (; *wide != 0; ++wide) text += *wide < 128 ? static_cast<char>(*wide) : '?';
    return text;
}

// One line of results: name, arguments, error code, result, output cells, tab-separated.
#if defined(_WIN32)
// Under `traps`: the control word that every call must leave as it found it, and the export
// being called, named if a floating-point exception reaches the host.
unsigned int hostControlWord = 0;
bool watchingControlWord = false;
int changedControlWords = 0;
const char* exportInCall = "";

void noteControlWord(const char* name) {
    if (watchingControlWord && _controlfp(0, 0) != hostControlWord && changedControlWords++ < 10)
        std::printf("tvl%s changed the control word to %#x\n", name, _controlfp(0, 0));
    exportInCall = name;
}

LONG WINAPI onException(EXCEPTION_POINTERS* info) {
    const DWORD code = info->ExceptionRecord->ExceptionCode;
    // The x87 codes, and the two that SSE raises (multiple faults, multiple traps).
    const bool floating = (code >= STATUS_FLOAT_DENORMAL_OPERAND && code <= STATUS_FLOAT_UNDERFLOW) ||
                          code == 0xC00002B4 || code == 0xC00002B5;
    if (!floating) return EXCEPTION_CONTINUE_SEARCH;
    std::printf("floating-point exception %#lx after tvl%s\n", code, exportInCall);
    std::fflush(stdout);
    ExitProcess(3);
}

int compare(const char* path);

// The comparison's own arithmetic (differences of infinities) runs with the traps masked again.
unsigned int maskedControlWord = 0;
void stopTrapping() {
    if (watchingControlWord) _controlfp(maskedControlWord, _MCW_EM);
}

int compareUnderTraps(const char* path) {
    AddVectoredExceptionHandler(1, onException);
    _clearfp();
    maskedControlWord = _controlfp(0, 0);
    _controlfp(maskedControlWord & ~(_EM_INVALID | _EM_ZERODIVIDE | _EM_OVERFLOW), _MCW_EM);
    hostControlWord = _controlfp(0, 0);
    watchingControlWord = true;
    const int failed = compare(path);
    std::printf("with traps unmasked: no exception, %d calls changed the control word\n", changedControlWords);
    return failed != 0 || changedControlWords != 0 ? 1 : 0;
}
#else
void noteControlWord(const char*) {}
void stopTrapping() {}
int compareUnderTraps(const char*) { return 2; }
#endif

std::string runCase(const Case& c) {
    CallArgs args;
    int counts[128] = {};
    std::size_t next = 0;
    std::string argumentText;
    for (const char* kind = c.entry->kinds; *kind != '\0'; ++kind) {
        const int slot = counts[static_cast<unsigned char>(*kind)]++;
        if (*kind == 'o') continue;
        const Argument& a = c.arguments[next++];
        if (!argumentText.empty()) argumentText += ' ';
        switch (*kind) {
        case 'd': args.numbers[slot] = a.number; argumentText += formatNumber(a.number); break;
        case 'i': args.integers[slot] = a.integer; argumentText += std::to_string(a.integer); break;
        case 's': args.texts[slot] = a.text; argumentText += std::string("'") + a.text + "'"; break;
        default: argumentText += '0'; break;
        }
    }
    const CallResult result = callEntry(*c.entry, args);
    noteControlWord(c.entry->name);
    const std::int32_t code = tvlGETLASTERROR();
    std::string line = std::string(c.entry->name) + '\t' + argumentText + '\t' + std::to_string(code) + '\t';
    if (resultIsOpaque(c.entry->name)) {
        line += "opaque";
    } else {
        switch (result.kind) {
        case CallResult::kNumber: line += "d " + formatNumber(result.number); break;
        case CallResult::kInteger: line += "i " + std::to_string(result.integer); break;
        case CallResult::kText: line += std::string("s ") + (result.text != nullptr ? result.text : "(null)"); break;
        case CallResult::kWideText: line += "s " + narrowOf(result.wide); break;
        }
    }
    line += '\t';
    for (int k = 0; k < counts[static_cast<unsigned char>('o')]; ++k) line += (k ? " " : "") + formatNumber(args.outputs[k]);
    restoreSettings();
    return line;
}

// The texts of the codes -1 to 13 as the description functions give them.
std::vector<std::string> errorTextLines() {
    std::vector<std::string> lines;
    for (std::int32_t code = -1; code <= 13; ++code) {
        tvlSETLASTERROR(code);
        const char* narrow = tvlGETLASTERRORDESCRIPTION();
        const std::string wide = narrowOf(tvlGETLASTERRORDESCRIPTIONW());
        lines.push_back("TEXT\t" + std::to_string(code) + '\t' + std::to_string(tvlGETLASTERROR()) + '\t' +
                        (narrow != nullptr ? narrow : "(null)") + '\t' + wide);
    }
    tvlSETLASTERROR(0);
    return lines;
}

std::vector<std::string> splitTabs(const std::string& line) {
    std::vector<std::string> fields;
    std::size_t start = 0;
    for (std::size_t at; (at = line.find('\t', start)) != std::string::npos; start = at + 1)
        fields.push_back(line.substr(start, at - start));
    fields.push_back(line.substr(start));
    return fields;
}

// Relative difference of two numbers written by formatNumber; 0 for equal texts, infinity
// when only one of them is a number.
double numberDifference(const std::string& a, const std::string& b) {
    if (a == b) return 0.0;
    char* endA = nullptr;
    char* endB = nullptr;
    const double x = std::strtod(a.c_str(), &endA);
    const double y = std::strtod(b.c_str(), &endB);
    if (*endA != '\0' || *endB != '\0') return kInfinity;
    // Output cells that a failed call left half-written may hold NaN, spelled "nan" or "-nan".
    if (std::isnan(x) && std::isnan(y)) return 0.0;
    if (!std::isfinite(x) || !std::isfinite(y)) return x == y ? 0.0 : kInfinity;
    const double scale = std::fmax(std::fabs(x), std::fabs(y));
    return scale == 0.0 ? 0.0 : std::fabs(x - y) / scale;
}

// Compares a result field ("d 1.5", "i 3", "s text") or an output list number by number.
double fieldDifference(const std::string& expected, const std::string& actual, bool numbers) {
    if (!numbers) {
        if (expected.compare(0, 2, "d ") != 0 || actual.compare(0, 2, "d ") != 0) return expected == actual ? 0.0 : kInfinity;
        return numberDifference(expected.substr(2), actual.substr(2));
    }
    const std::vector<std::string> e = words(expected.c_str());
    const std::vector<std::string> a = words(actual.c_str());
    if (e.size() != a.size()) return kInfinity;
    double worst = 0.0;
    for (std::size_t k = 0; k < e.size(); ++k) worst = std::fmax(worst, numberDifference(e[k], a[k]));
    return worst;
}

std::vector<std::string> readLines(const char* path) {
    std::vector<std::string> lines;
    FILE* file = std::fopen(path, "rb");
    if (file == nullptr) return lines;
    std::string line;
    for (int c; (c = std::fgetc(file)) != EOF;) {
        if (c == '\n') {
            lines.push_back(line);
            line.clear();
        } else if (c != '\r') {
            line += static_cast<char>(c);
        }
    }
    if (!line.empty()) lines.push_back(line);
    std::fclose(file);
    return lines;
}

#if defined(_WIN32)
// The description functions read the DLL's string resources: compare them with the resource
// texts read here directly, so that a silent fall-back to the built-in texts shows.
int checkResourceTexts() {
    HMODULE library = GetModuleHandleW(L"tavlib6.dll");
    if (library == nullptr) {
        std::printf("tavlib6.dll is not loaded\n");
        return 1;
    }
    int failures = 0;
    const int codes[] = {0, 1, 2, 3, 4, 8, 9, 11, 12};
    for (int code : codes) {
        char resource[256] = {};
        wchar_t resourceW[256] = {};
        LoadStringA(library, static_cast<UINT>(code + 115), resource, 256);
        LoadStringW(library, static_cast<UINT>(code + 115), resourceW, 256);
        tvlSETLASTERROR(code);
        const std::string narrow = tvlGETLASTERRORDESCRIPTION();
        const std::string wide = narrowOf(tvlGETLASTERRORDESCRIPTIONW());
        std::string resourceWide;
        for (const wchar_t* c = resourceW; *c != 0; ++c) resourceWide += static_cast<char>(*c);
        if (resource[0] == '\0' || narrow != resource || wide != resourceWide) {
            std::printf("code %d: resource text \"%s\", description \"%s\"\n", code, resource, narrow.c_str());
            ++failures;
        }
    }
    tvlSETLASTERROR(0);
    std::printf("error texts from the DLL's string resources 115 to 127: %s\n", failures == 0 ? "ok" : "DIFFERENT");
    return failures;
}
#else
int checkResourceTexts() { return 0; }
#endif

int write(const char* path) {
    FILE* file = std::fopen(path, "wb");
    if (file == nullptr) {
        std::fprintf(stderr, "cannot write %s\n", path);
        return 1;
    }
    const std::vector<Case> cases = allCases();
    for (const Case& c : cases) std::fprintf(file, "%s\n", runCase(c).c_str());
    for (const std::string& line : errorTextLines()) std::fprintf(file, "%s\n", line.c_str());
    std::fclose(file);
    std::printf("%zu calls of %d exports written to %s\n", cases.size(), tvlcli::kExportCount, path);
    return 0;
}

int compare(const char* path) {
    const std::vector<std::string> expected = readLines(path);
    if (expected.empty()) {
        std::fprintf(stderr, "no results in %s\n", path);
        return 1;
    }
    std::vector<std::string> actual;
    const std::vector<Case> cases = allCases();
    for (const Case& c : cases) actual.push_back(runCase(c));
    for (const std::string& line : errorTextLines()) actual.push_back(line);
    stopTrapping();

    int passed = 0;
    int failed = 0;
    int identical = 0;
    double worst = 0.0;
    std::string worstCase;
    if (expected.size() != actual.size()) {
        std::printf("%zu results expected, %zu computed: the two builds list different exports\n", expected.size(),
                    actual.size());
        ++failed;
    }
    const std::size_t n = expected.size() < actual.size() ? expected.size() : actual.size();
    for (std::size_t k = 0; k < n; ++k) {
        const std::vector<std::string> e = splitTabs(expected[k]);
        const std::vector<std::string> a = splitTabs(actual[k]);
        bool same = e.size() == a.size() && e.size() == 5 && e[0] == a[0] && e[2] == a[2];
        if (same && e[0] == "TEXT") same = e[3] == a[3] && e[4] == a[4];
        double difference = 0.0;
        if (same && e[0] != "TEXT") {
            difference = std::fmax(fieldDifference(e[3], a[3], false), fieldDifference(e[4], a[4], true));
            same = difference <= kRelativeTolerance;
            if (difference > worst && same) {
                worst = difference;
                worstCase = a[0] + "(" + a[1] + ")";
            }
        }
        if (expected[k] == actual[k]) ++identical;
        if (same) {
            ++passed;
        } else {
            ++failed;
            if (failed <= 30) std::printf("differs:\n  expected %s\n  computed %s\n", expected[k].c_str(), actual[k].c_str());
        }
    }
    failed += checkResourceTexts();
    std::printf("%zu calls of %d exports and the error texts: %d identical to the last digit; largest relative "
                "difference %.3g in %s\n",
                cases.size(), tvlcli::kExportCount, identical, worst, worstCase.empty() ? "none" : worstCase.c_str());
    std::printf("%d passed, %d failed\n", passed, failed);
    return failed == 0 ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc == 3 && std::strcmp(argv[1], "write") == 0) return write(argv[2]);
    if (argc == 3 && std::strcmp(argv[1], "compare") == 0) return compare(argv[2]);
    if (argc == 3 && std::strcmp(argv[1], "traps") == 0) return compareUnderTraps(argv[2]);
    std::fprintf(stderr, "usage: tavlib6_call_check write|compare|traps FILE\n");
    return 2;
}
