// Every export called with hostile arguments under hostile settings, driven by the generated
// table of exports so that a new export is swept as soon as it is listed. A call must return
// (a watchdog bounds it), never give a non-finite number, give the failure value whenever it
// reports an error, and write no output cell beyond its own. `--long` runs the full product of
// settings and a much larger sample of argument tuples.
#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <cmath>
#include <cfloat>
#include <climits>
#include <cstdio>
#include <cstring>
#include <random>
#include <string>
#include <vector>
#include <unistd.h>

#include "export_table.h"
#include "tavlib6.h"

namespace {

using tvlcli::CallArgs;
using tvlcli::CallResult;
using tvlcli::kExportCount;
using tvlcli::kExports;

bool longMode = false;
constexpr double kSentinel = 1234567.875;
constexpr unsigned kCallSeconds = 20;  // a generous bound: the slowest search takes milliseconds
const char* currentExport = "";

void onAlarm(int) {
    char line[160];
    int n = std::snprintf(line, sizeof line, "call of tvl%s did not return\n", currentExport);
    if (n > 0) (void)!write(2, line, static_cast<size_t>(n));
    _exit(3);
}

// Range limits of the formulation with their neighbours one rounding step either side.
std::vector<double> limitsAndNeighbours() {
    const double limits[] = {273.15, 273.16, 251.165, 50.0,  623.15,  647.096, 773.15,  863.15,
                             1073.15, 1200.0, 2273.15, 611.212677, 611.657, 16.5292e6, 22.064e6,
                             50e6,  100e6,   -50.0,   7.4e6,   -200.0,  31800.0, 2e-7,    1.1e-6,
                             322.0, 0.0,     1.0,     1e-8,    4.41202148223476e3, 2.6e6};
    std::vector<double> out;
    for (double v : limits) {
        out.push_back(v);
        out.push_back(std::nextafter(v, -INFINITY));
        out.push_back(std::nextafter(v, INFINITY));
    }
    return out;
}

std::vector<double> hostileNumbers() {
    std::vector<double> v = {NAN, -NAN, INFINITY, -INFINITY, 0.0, -0.0, -1.0, 1e300, -1e300,
                             1e-300, -1e-300, 4.9e-324, -4.9e-324, DBL_MIN / 2, DBL_MAX, -DBL_MAX};
    // Ordinary values in every region: pressures, temperatures, enthalpies, entropies,
    // densities, qualities, efficiencies and wavelengths.
    const double regions[] = {1e3,   1e5,   3e6,     10e6,   25e6,   40e6,  80e6,   300.0, 400.0,
                              500.0, 640.0, 650.0,   700.0,  900.0,  1500.0, 2000.0, 1e5,  5e5,
                              1.5e6, 2.1e6, 2.8e6,   3.5e6,  4.5e6,  500.0, 2000.0, 4400.0,
                              6000.0, 8000.0, 11000.0, 0.5,  0.25,   0.999, 1.0,    5.0,
                              50.0,  322.0,  500.0,   1000.0, 5.89e-7};
    v.insert(v.end(), std::begin(regions), std::end(regions));
    std::vector<double> limits = limitsAndNeighbours();
    v.insert(v.end(), limits.begin(), limits.end());
    return v;
}

const std::vector<std::int32_t> kHostileIntegers = {0, 1, 2, 3, 5, 12, 13, 100, -1, -2,
                                                    INT_MAX, INT_MIN, 1000000, 7, 30};

std::vector<std::string> hostileTextStore() {
    std::vector<std::string> t = {"", " ", "N2", "O2", "CO2", "H2O", "AIR", "N2 0.79; O2 0.21",
                                  "N2:0.79,O2:0.21", "N2=0.5;O2=0.5", "(", ")", ";;;;", "=",
                                  "N2 NaN", "N2 -1", "N2 1e308; O2 1e308", "N2 0", "\xff\xfe",
                                  "N2 0.5; N2 0.5", "UNKNOWNGAS", "%s%n%s", "N2\t0.5\nO2 0.5",
                                  "1e-320", "N2 inf"};
    t.push_back(std::string(100000, 'N'));
    t.push_back(std::string(5000, '('));
    std::string many;
    for (int i = 0; i < 2000; ++i) many += "N2 0.001; ";
    t.push_back(many);
    return t;
}

struct Settings {
    int checkRange;
    int toleranceMode;
    int maxIterations;
    double tolerance;
};

std::vector<Settings> allSettings() {
    std::vector<Settings> all;
    const int iterations[] = {0, 1, 2, 100, 100000};
    const double tolerances[] = {2e-12, 0.0, -1.0, 1e-30, 1.0};
    for (int c = 0; c < 2; ++c)
        for (int m = 0; m < 2; ++m)
            for (int it : iterations)
                for (double tol : tolerances) all.push_back({c, m, it, tol});
    return all;
}

void apply(const Settings& s) {
    tvlSETCHECKRANGEMODE(s.checkRange);
    tvlSETTOLERANCEMODE(s.toleranceMode);
    tvlSETMAXITERATION(s.maxIterations);
    tvlSETTOLERANCE(s.tolerance);
}

// The desktop exports open windows; the sweep leaves them to their own test.
bool swept(const tvlcli::ExportEntry& e) { return std::strchr(e.kinds, 'w') == nullptr; }

struct Tally {
    long calls = 0;
    long failures = 0;
    long minusOneWithoutError = 0;
    std::string minusOneExports;  // where a result of -1.0 came without an error, for the log
    std::vector<std::string> faults;
    void fault(const std::string& what) {
        if (faults.size() < 40) faults.push_back(what);
    }
};

std::string describe(const tvlcli::ExportEntry& e, const CallArgs& a, const Settings& s) {
    std::string out = std::string("tvl") + e.name + "(";
    int n = 0, i = 0, t = 0;
    for (const char* k = e.kinds; *k; ++k) {
        char buf[64];
        if (*k == 'd') std::snprintf(buf, sizeof buf, "%.17g ", a.numbers[n++]);
        else if (*k == 'i') std::snprintf(buf, sizeof buf, "%d ", a.integers[i++]);
        else if (*k == 's') std::snprintf(buf, sizeof buf, "text%zu ", a.texts[t] ? std::strlen(a.texts[t]) : 0), ++t;
        else std::snprintf(buf, sizeof buf, "%c ", *k);
        out += buf;
    }
    char buf[96];
    std::snprintf(buf, sizeof buf, ") check %d tolmode %d iter %d tol %g", s.checkRange,
                  s.toleranceMode, s.maxIterations, s.tolerance);
    return out + buf;
}

void callAndCheck(const tvlcli::ExportEntry& e, CallArgs& a, const Settings& s, Tally& tally) {
    int outputs = 0;
    for (const char* k = e.kinds; *k; ++k) outputs += *k == 'o';
    for (double& cell : a.outputs) cell = kSentinel;
    currentExport = e.name;
    alarm(kCallSeconds);
    CallResult r = e.call(a);
    alarm(0);
    // The reporting exports keep the error of the call before them.
    const bool reporting = std::strcmp(e.family, "Error reporting") == 0;
    const int error = reporting ? 0 : tvlGETLASTERROR();
    ++tally.calls;
    tally.failures += error != 0;
    for (int c = outputs; c < tvlcli::kMaxArguments; ++c)
        if (a.outputs[c] != kSentinel) tally.fault(describe(e, a, s) + ": wrote a cell beyond its outputs");
    switch (r.kind) {
    case CallResult::kNumber:
        if (!std::isfinite(r.number)) tally.fault(describe(e, a, s) + ": non-finite return");
        if (error != 0 && r.number != -1.0) tally.fault(describe(e, a, s) + ": error without the failure value");
        if (error == 0 && r.number == -1.0) {
            ++tally.minusOneWithoutError;
            if (tally.minusOneExports.find(std::string(" ") + e.name + " ") == std::string::npos)
                tally.minusOneExports += std::string(" ") + e.name + " ";
        }
        break;
    case CallResult::kInteger:
        if (error != 0 && r.integer != -1) tally.fault(describe(e, a, s) + ": error without -1");
        break;
    case CallResult::kText:
        if (error != 0 && r.text != nullptr) tally.fault(describe(e, a, s) + ": error with a text");
        if (r.text && std::strlen(r.text) > 255) tally.fault(describe(e, a, s) + ": text overruns its buffer");
        break;
    case CallResult::kWideText:
        if (error != 0 && r.wide != nullptr) tally.fault(describe(e, a, s) + ": error with a text");
        break;
    }
    // Settings exports change the settings under test; put them back.
    apply(s);
}

class Sweep : public ::testing::Test {
protected:
    void SetUp() override { std::signal(SIGALRM, onAlarm); }
    void TearDown() override {
        apply({1, 1, 100, 2e-12});
        tvlgDELETEGASES();
    }
    void report(const Tally& tally) {
        std::printf("%ld calls, %ld failures, %ld results of -1.0 without an error\n", tally.calls,
                    tally.failures, tally.minusOneWithoutError);
        if (!tally.minusOneExports.empty()) std::printf("-1.0 without an error from:%s\n", tally.minusOneExports.c_str());
        for (const std::string& f : tally.faults) ADD_FAILURE() << f;
    }
};

// Fills the arguments of one call: each number, integer and text drawn from its hostile set.
void draw(const tvlcli::ExportEntry& e, CallArgs& a, std::mt19937& rng, const std::vector<double>& numbers,
          const std::vector<std::string>& texts, bool withNull) {
    int n = 0, i = 0, t = 0, w = 0;
    for (const char* k = e.kinds; *k; ++k) {
        if (*k == 'd') a.numbers[n++] = numbers[rng() % numbers.size()];
        else if (*k == 'i') a.integers[i++] = kHostileIntegers[rng() % kHostileIntegers.size()];
        else if (*k == 's') {
            std::size_t pick = rng() % (texts.size() + (withNull ? 1 : 0));
            a.texts[t++] = pick == texts.size() ? nullptr : texts[pick].c_str();
        } else if (*k == 'W') a.words[w++] = 0;
    }
}

TEST_F(Sweep, EveryExportUnderHostileArgumentsAndSettings) {
    const std::vector<double> numbers = hostileNumbers();
    const std::vector<std::string> texts = hostileTextStore();
    std::vector<Settings> settings = allSettings();
    std::mt19937 rng(20261123);
    if (!longMode) {
        // The defaults, both switches off, and a sample of the rest.
        std::vector<Settings> sample = {{1, 1, 100, 2e-12}, {0, 0, 100, 2e-12}, {1, 1, 0, 2e-12},
                                        {0, 1, 1, 1.0},     {1, 0, 100000, -1.0}, {1, 1, 2, 0.0},
                                        {0, 0, 100000, 1e-30}};
        settings = sample;
    }
    const int tuples = longMode ? 400 : 10;
    Tally tally;
    for (const Settings& s : settings) {
        apply(s);
        for (int x = 0; x < kExportCount; ++x) {
            const tvlcli::ExportEntry& e = kExports[x];
            if (!swept(e)) continue;
            CallArgs a;
            // Each hostile number in each numeric argument, the others drawn.
            const int arity = static_cast<int>(std::count(e.kinds, e.kinds + std::strlen(e.kinds), 'd'));
            if ((longMode || s.checkRange == 1) && s.maxIterations == 100) {
                for (int position = 0; position < arity; ++position)
                    for (double v : numbers) {
                        draw(e, a, rng, numbers, texts, true);
                        a.numbers[position] = v;
                        callAndCheck(e, a, s, tally);
                    }
            }
            for (int k = 0; k < tuples; ++k) {
                draw(e, a, rng, numbers, texts, true);
                callAndCheck(e, a, s, tally);
            }
        }
        if (longMode)
            std::printf("settings %d %d %d %g: %ld calls so far, %zu faults\n", s.checkRange, s.toleranceMode,
                        s.maxIterations, s.tolerance, tally.calls, tally.faults.size()), std::fflush(stdout);
    }
    report(tally);
}

// Gas calls on ids that exist, with catalogue changes between the calls.
TEST_F(Sweep, GasExportsOnLiveIdsAndMutatedCatalogue) {
    const std::vector<double> numbers = hostileNumbers();
    const std::vector<std::string> texts = hostileTextStore();
    std::mt19937 rng(7);
    Tally tally;
    const int rounds = longMode ? 400 : 20;
    Settings s{1, 1, 100, 2e-12};
    for (int round = 0; round < rounds; ++round) {
        apply(s);
        std::int32_t ids[4] = {tvlgNEWIDGS("N2 0.79; O2 0.21"), tvlgIDNAME("CO2"), tvlgNEWID(),
                               tvlgNEWIDNAME("H2O")};
        for (int x = 0; x < kExportCount; ++x) {
            const tvlcli::ExportEntry& e = kExports[x];
            if (e.name[0] != 'g' || !swept(e)) continue;
            for (int k = 0; k < 4; ++k) {
                CallArgs a;
                draw(e, a, rng, numbers, texts, false);
                for (std::int32_t& id : a.integers) id = ids[rng() % 4];
                callAndCheck(e, a, s, tally);
            }
        }
        if (round % 5 == 4) tvlgDELETEGASES();
    }
    report(tally);
}

}  // namespace

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    for (int i = 1; i < argc; ++i)
        if (std::strcmp(argv[i], "--long") == 0) longMode = true;
    return RUN_ALL_TESTS();
}
