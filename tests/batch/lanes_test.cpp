// The vector kernels of libtavlib6x against the plain exports, on the path that TAVLIB6X_SIMD
// asks for (ctest runs this program once per path): every covered export ((p,T) of regions 1, 2,
// 3, 5, the (p,T) family, the saturation line, the refined T(p,h), T(p,s), p(h,s) of regions 1, 2, 5
// and their families, transport by (p,T), the wet states by (T,x) and (p,T,x)) over random states of every region, the region and range edges one
// rounding unit either side, wet states, non-finite and out-of-range arguments mixed in, under
// hostile settings; values, codes and the last error equal bit for bit.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "tavlib6.h"
#include "tavlib6x.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

// The arguments of an export: (p,T), the backward families' (p,h), (p,s), (h,s), wet (T,x), or
// metastable vapour's (p,T).
enum Arguments { kPT, kPH, kPS, kHS, kTX, kMS };

struct Covered {
    const char* name;
    double (*plain)(double, double);
    bool byTemperature = false;  // the saturation line by T takes the T column
    Arguments arguments = kPT;
    double (*plainByPTX)(double, double, double) = nullptr;  // by (p,T,x): x from kDryness
};

double PST(double T, double) { return tvlPST(T); }
double TSP(double p, double) { return tvlTSP(p); }
double DPDTST(double T, double) { return tvlDPDTST(T); }

#define COVERED(r)                                                                                          \
    {"V" #r "PT", tvlV##r##PT}, {"D" #r "PT", tvlD##r##PT}, {"U" #r "PT", tvlU##r##PT},                     \
        {"S" #r "PT", tvlS##r##PT}, {"H" #r "PT", tvlH##r##PT}, {"CP" #r "PT", tvlCP##r##PT},               \
        {"CV" #r "PT", tvlCV##r##PT}, {"W" #r "PT", tvlW##r##PT}, {"JOULETHOMPSON" #r "PT", tvlJOULETHOMPSON##r##PT}
#define SATURATED(q)                                                 \
    {#q "SWT", [](double T, double) { return tvl##q##SWT(T); }, true}, \
        {#q "SST", [](double T, double) { return tvl##q##SST(T); }, true}
#define WET(name) {#name, tvl##name, false, kTX}
#define METASTABLE(name) {#name "MSPT", tvl##name##MSPT, false, kMS}
#define WET_PT(name) {#name, nullptr, false, kPT, tvl##name}
const Covered kCovered[] = {COVERED(1), COVERED(2), COVERED(3), COVERED(5),
                            {"VPT", tvlVPT}, {"DPT", tvlDPT}, {"UPT", tvlUPT}, {"SPT", tvlSPT}, {"HPT", tvlHPT},
                            {"CPPT", tvlCPPT}, {"CVPT", tvlCVPT}, {"WPT", tvlWPT},
                            {"JOULETHOMPSONPT", tvlJOULETHOMPSONPT}, {"PST", PST, true}, {"TSP", TSP},
                            {"DPDTST", DPDTST, true},
                            {"T1PH", tvlT1PH, false, kPH}, {"T2PH", tvlT2PH, false, kPH}, {"T5PH", tvlT5PH, false, kPH},
                            {"TPH", tvlTPH, false, kPH}, {"T1PS", tvlT1PS, false, kPS}, {"T2PS", tvlT2PS, false, kPS},
                            {"T5PS", tvlT5PS, false, kPS}, {"TPS", tvlTPS, false, kPS}, {"P1HS", tvlP1HS, false, kHS},
                            {"P2HS", tvlP2HS, false, kHS}, {"P5HS", tvlP5HS, false, kHS}, {"PHS", tvlPHS, false, kHS},
                            {"T3PH", tvlT3PH, false, kPH}, {"T3PS", tvlT3PS, false, kPS},
                            {"P3HS", tvlP3HS, false, kHS},
                            SATURATED(V), SATURATED(D), SATURATED(U), SATURATED(S), SATURATED(H), SATURATED(CP),
                            SATURATED(CV), SATURATED(W), SATURATED(JOULETHOMPSON), SATURATED(THERMCOND),
                            SATURATED(DYNVIS), SATURATED(KINVIS), SATURATED(PRANDTLE),
                            METASTABLE(V), METASTABLE(U), METASTABLE(S), METASTABLE(H), METASTABLE(CP),
                            METASTABLE(CV), METASTABLE(W), METASTABLE(THERMCOND), METASTABLE(DYNVIS),
                            METASTABLE(KINVIS), METASTABLE(PRANDTLE),
                            {"DYNVISPT", tvlDYNVISPT}, {"KINVISPT", tvlKINVISPT},
                            {"THERMCONDPT", tvlTHERMCONDPT}, {"PRANDTLEPT", tvlPRANDTLEPT}, WET(VSTX), WET(DSTX),
                            WET(USTX), WET(SSTX), WET(HSTX), WET(CPSTX), WET(JOULETHOMPSONSTX), WET(THERMCONDSTX),
                            WET(DYNVISSTX), WET(KINVISSTX), WET(PRANDTLESTX), WET_PT(VPTX), WET_PT(DPTX),
                            WET_PT(UPTX), WET_PT(SPTX), WET_PT(HPTX), WET_PT(CPPTX), WET_PT(CVPTX), WET_PT(WPTX),
                            WET_PT(JOULETHOMPSONPTX), WET_PT(THERMCONDPTX), WET_PT(DYNVISPTX), WET_PT(KINVISPTX),
                            WET_PT(PRANDTLEPTX)};
#undef WET_PT
#undef SATURATED
#undef METASTABLE
#undef WET
#undef COVERED

struct Settings {
    int32_t checkRangeMode, toleranceMode, maxIterations;
    double tolerance;
};

// The defaults first; then each setting on its own, hostile tolerances included (the region
// tests widen by 1 + tolerance).
const Settings kSettings[] = {
    {1, 1, 100, 2e-12}, {0, 1, 100, 2e-12}, {1, 0, 100, 2e-12}, {1, 1, 1, 2e-12},  {1, 1, 100, 1e-3},
    {0, 1, 100, -0.5},  {1, 1, 100, kNaN},  {1, 1, 100, kInf},  {1, 1, 100, 0.0}, {0, 0, 0, -kInf},
    {1, 1, 4, 2e-12},  // region 3's density search: some lanes of a vector stop in time, others not
};

void apply(const Settings& s) {
    tvlSETCHECKRANGEMODE(s.checkRangeMode);
    tvlSETTOLERANCEMODE(s.toleranceMode);
    tvlSETMAXITERATION(s.maxIterations);
    tvlSETTOLERANCE(s.tolerance);
}

double up(double x) { return std::nextafter(x, kInf); }
double down(double x) { return std::nextafter(x, -kInf); }

// x of the k-th (p,T,x) point: in turn inside, at and beyond the ends, and hostile.
const double kDryness[] = {0.5, 0.0, 1.0, 1.0000000000000002, 1.0000000000000004, -5e-324, 0.25, kNaN, -0.0, kInf};

// Random states over the whole (p,T) plane and somewhat beyond, the edges of the regions and of
// the range one rounding unit either side, the saturation and B23 lines, and hostile values.
std::vector<std::pair<double, double>> statePoints() {
    std::vector<std::pair<double, double>> points;
    std::mt19937_64 random(16);
    std::uniform_real_distribution<double> logP(std::log(100.0), std::log(1.2e8)), T(250.0, 2400.0);
    for (int k = 0; k < 2000; ++k) points.push_back({std::exp(logP(random)), T(random)});
    const double pEdges[] = {611.2126774443452, 611.2126774443451, 16529164.252621602, 22064000.0,
                             22064000.0 * 1.0000000000000002, 5e7, 1e8, 4e6, 1e5, 4e7, 7e7, 2.4e7};
    const double TEdges[] = {273.15, 273.1499999999999, 623.15, 863.15, 1073.15, 1073.15 * (1 + 2e-12), 2273.15,
                             647.096, 647.0960000000001, 773.15, 923.15, 1173.15, 654.313191168,
                             713.959399168};
    for (double p : pEdges)
        for (double t : TEdges)
            for (double pp : {down(p), p, up(p)})
                for (double tt : {down(t), t, up(t)}) points.push_back({pp, tt});
    for (double p = 700.0; p < 2.3e7; p *= 1.37) {
        const double Ts = tvlTSP(p), Tb = tvlT23P(p);
        for (double t : {Ts, Tb, Ts * (1 + 2e-12), Tb * (1 + 2e-12)})
            for (double tt : {down(t), t, up(t)}) points.push_back({p, tt});
    }
    // Region 3: random states, the critical neighbourhood, and along B23 and the line that
    // splits region 3's fitted start, up to 100 MPa.
    std::uniform_real_distribution<double> p3(1.65e7, 1e8), T3(623.15, 870.0), pc(2.1e7, 2.4e7), Tc(640.0, 660.0);
    for (int k = 0; k < 300; ++k) points.push_back({p3(random), T3(random)});
    for (int k = 0; k < 300; ++k) points.push_back({pc(random), Tc(random)});
    for (double p = 1.66e7; p < 1.01e8; p *= 1.07) {
        const double Tb = tvlT23P(p), Tline = 647.096 + (p - 22064000.0) / 268248.402312516;
        for (double t : {Tb, Tb * (1 + 2e-12), Tline})
            for (double tt : {down(t), t, up(t)}) points.push_back({p, tt});
    }
    const double hostile[] = {kNaN, kInf, -kInf, -1.0, 0.0, -0.0, 1e300, 5e-324};
    for (double h : hostile) {
        points.push_back({h, 500.0});
        points.push_back({1e6, h});
        points.push_back({h, h});
    }
    points.push_back({1e7, 265.0});  // below 273.15 K the melting curve bounds the pressure
    points.push_back({3e8, 265.0});
    return points;
}

// Wet states (T, x): random ones from below the line's range to above the critical point, the
// range edges and 623.15 K one rounding unit either side with x at and beyond 0 and 1, and
// hostile values of either argument.
std::vector<std::pair<double, double>> wetPoints() {
    std::vector<std::pair<double, double>> points;
    std::mt19937_64 random(17);
    std::uniform_real_distribution<double> T(250.0, 700.0), x(-0.1, 1.1);
    for (int k = 0; k < 1500; ++k) points.push_back({T(random), x(random)});
    for (double t : {273.15, 273.1499999999999, 623.15, 647.096, 647.0960000000001, 400.0})
        for (double tt : {down(t), t, up(t)})
            for (double xx : {0.0, -0.0, down(0.0), 0.5, down(1.0), 1.0, up(1.0), up(up(1.0)), 2.0})
                points.push_back({tt, xx});
    const double hostile[] = {kNaN, kInf, -kInf, -1.0, 0.0, 1e300, 5e-324};
    for (double h : hostile) points.insert(points.end(), {{h, 0.5}, {400.0, h}, {h, h}});
    return points;
}

// Metastable vapour: random states a little above and well below the saturation temperature up
// to past 10 MPa, the line and its ends one rounding unit either side, and hostile values.
std::vector<std::pair<double, double>> metastablePoints() {
    std::vector<std::pair<double, double>> points;
    std::mt19937_64 random(18);
    std::uniform_real_distribution<double> logP(std::log(300.0), std::log(1.2e7)), below(0.8, 1.01);
    for (int k = 0; k < 1500; ++k) {
        const double p = std::exp(logP(random));
        points.push_back({p, tvlTSP(std::fmax(p, 611.3)) * below(random)});
    }
    for (double p : {611.2126774443452, 1e4, 1e6, 1e7, 1e7 * (1 - 2.2e-16), 1.0000000000000002e7})
        for (double pp : {down(p), p, up(p)}) points.push_back({pp, tvlTSP(std::fmin(pp, 2e7))});
    for (const auto& [p, T] : statePoints())  // the hostile pairs
        if (!(p > 1.0 && p < 1e9 && T > 1.0 && T < 1e4)) points.push_back({p, T});
    return points;
}

// The states above as (p,h), (p,s) or (h,s) by the plain forward exports (under the default
// settings), wet states at x = 0, 0.3, 1 one rounding unit either side, and hostile values.
std::vector<std::pair<double, double>> pointsBy(Arguments which) {
    const auto states = statePoints();
    if (which == kPT) return states;
    if (which == kTX) return wetPoints();
    if (which == kMS) return metastablePoints();
    const auto pair = [which](double p, double h, double s) {
        return which == kPH ? std::make_pair(p, h) : which == kPS ? std::make_pair(p, s) : std::make_pair(h, s);
    };
    std::vector<std::pair<double, double>> points;
    for (const auto& [p, T] : states) points.push_back(pair(p, tvlHPT(p, T), tvlSPT(p, T)));
    for (double T = 273.16; T < 647.0; T += 9.7)
        for (double x : {0.0, 0.3, 1.0}) {
            const double h = tvlHSWT(T) + x * (tvlHSST(T) - tvlHSWT(T)), s = tvlSSWT(T) + x * (tvlSSST(T) - tvlSSWT(T));
            const double y = which == kPS ? s : h;  // the one that is varied
            for (double v : {down(y), y, up(y)})
                points.push_back(which == kPS ? pair(tvlPST(T), h, v) : pair(tvlPST(T), v, s));
        }
    for (const auto& [a, b] : states)  // the hostile pairs as they stand
        if (!std::isfinite(a) || !std::isfinite(b) || a <= 0.0 || std::fabs(b) >= 1e300) points.push_back({a, b});
    return points;
}

class LanesTest : public ::testing::Test {
protected:
    void SetUp() override {
        const char* asked = std::getenv("TAVLIB6X_SIMD");
        if (asked != nullptr && std::string(asked) != tvlxSIMD())
            GTEST_SKIP() << "the " << asked << " path is not available here (" << tvlxSIMD() << " runs)";
    }
    void TearDown() override {
        apply(kSettings[0]);
        tvlxSETTHREADS(0);
    }

    // Every covered export over the points, as one batch, against its plain calls.
    static void expectPlainBits(const std::vector<std::pair<double, double>>& points, bool broadcastT,
                                const std::string& where, Arguments arguments = kPT) {
        std::vector<double> p, T, x;
        for (const auto& point : points) p.push_back(point.first), T.push_back(point.second);
        const size_t count = points.size();
        for (size_t k = 0; k < count; ++k) x.push_back(kDryness[k % std::size(kDryness)]);
        for (const Covered& e : kCovered) {
            if (e.arguments != arguments) continue;
            if (e.byTemperature) std::swap(p, T);
            const double* inputs[3] = {p.data(), T.data(), x.data()};
            const int64_t strides[3] = {e.byTemperature && broadcastT ? 0 : 1, broadcastT && !e.byTemperature ? 0 : 1, 1};
            std::vector<double> results(count, 7.0);
            std::vector<int32_t> errors(count, -7);
            const int64_t failed =
                tvlxEVALUATE(e.name, static_cast<int64_t>(count), inputs, strides, nullptr, results.data(), nullptr,
                             errors.data());
            const int32_t lastError = tvlGETLASTERROR();
            int64_t plainFailed = 0, mismatches = 0;
            int32_t code = 0;
            for (size_t k = 0; k < count; ++k) {
                const double value = e.plainByPTX != nullptr ? e.plainByPTX(p[k * strides[0]], T[k * strides[1]], x[k])
                                                             : e.plain(p[k * strides[0]], T[k * strides[1]]);
                code = tvlGETLASTERROR();
                plainFailed += code != 0;
                if (std::memcmp(&value, &results[k], sizeof value) != 0 || code != errors[k]) {
                    if (++mismatches <= 3)
                        ADD_FAILURE() << where << " " << e.name << "(" << p[k * strides[0]] << ", " << T[k * strides[1]]
                                      << "): batch " << results[k] << " code " << errors[k] << ", plain " << value
                                      << " code " << code;
                }
            }
            EXPECT_EQ(mismatches, 0) << where << " " << e.name;
            EXPECT_EQ(failed, plainFailed) << where << " " << e.name;
            EXPECT_EQ(lastError, code) << where << " " << e.name << ": last error after the batch";
            if (e.byTemperature) std::swap(p, T);
        }
    }
};

TEST_F(LanesTest, EveryCoveredExportHasThePlainBitsUnderEverySetting) {
    for (Arguments arguments : {kPT, kPH, kPS, kHS, kTX, kMS}) {
        const auto points = pointsBy(arguments);
        tvlxSETTHREADS(1);
        for (const Settings& s : kSettings) {
            apply(s);
            expectPlainBits(points, false,
                            "checks " + std::to_string(s.checkRangeMode) + " mode " + std::to_string(s.toleranceMode) +
                                " iterations " + std::to_string(s.maxIterations) + " tolerance " +
                                std::to_string(s.tolerance),
                            arguments);
        }
        apply(kSettings[0]);
    }
}

TEST_F(LanesTest, ThreadedSlicesAndRepeatedArgumentsHaveThePlainBits) {
    for (Arguments arguments : {kPT, kPH, kPS, kHS, kTX, kMS}) {
        auto points = pointsBy(arguments);
        const auto once = points;
        while (points.size() < 9000) points.insert(points.end(), once.begin(), once.end());
        tvlxSETTHREADS(2);
        for (const Settings& s : {kSettings[0], kSettings[6], kSettings[1]}) {  // a tolerance of NaN, checks off
            apply(s);
            expectPlainBits(points, false, "two threads, tolerance " + std::to_string(s.tolerance), arguments);
        }
        apply(kSettings[0]);
    }
    expectPlainBits({{1e3, 600.0}, {2e7, 600.0}, {4e7, 600.0}, {kNaN, 600.0}}, true, "T repeated");
}

// Without an errors array (it may be null) the values, the count of failures and the last error
// are those of the same batch with one.
TEST_F(LanesTest, NoErrorsArrayLeavesValuesFailuresAndLastError) {
    std::vector<double> p, T;
    for (const auto& [a, b] : pointsBy(kPT)) p.push_back(a), T.push_back(b);
    p.push_back(kNaN), T.push_back(500.0);  // the last point fails
    const double* inputs[2] = {p.data(), T.data()};
    const int64_t strides[2] = {1, 1}, count = static_cast<int64_t>(p.size());
    tvlxSETTHREADS(1);
    for (const char* name : {"H5PT", "S5PT", "HPT", "DYNVISPT", "PRANDTLEPT"}) {
        std::vector<double> with(p.size()), without(p.size());
        std::vector<int32_t> errors(p.size());
        const int64_t failed = tvlxEVALUATE(name, count, inputs, strides, nullptr, with.data(), nullptr, errors.data());
        EXPECT_EQ(tvlxEVALUATE(name, count, inputs, strides, nullptr, without.data(), nullptr, nullptr), failed) << name;
        EXPECT_EQ(tvlGETLASTERROR(), errors.back()) << name;
        EXPECT_NE(errors.back(), 0) << name;
        EXPECT_EQ(std::memcmp(with.data(), without.data(), with.size() * sizeof(double)), 0) << name;
    }
}

TEST_F(LanesTest, ThePathInForceIsNamed) {
    const std::string path = tvlxSIMD();
    EXPECT_TRUE(path == "avx512" || path == "avx2" || path == "scalar") << path;
}

}  // namespace
