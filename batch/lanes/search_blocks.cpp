// The frames of the refined backward exports around their searches in lanes. A region export
// (T1PH ...) is its search and the frame's finiteness test. A dispatching export (TPH, TPS, PHS)
// runs, point by point, the argument test and the region selection of the plain call on a model
// object with the same settings; the points of each region then go through that region's
// search together, and the frame's test of the state found follows; a wet (p,h) or (p,s) point
// takes the saturation temperature the selection worked out. Wet (h,s) points, p(h,s) in region 3
// without refinement, a selection that throws, and a solved state below 273.15 K (where the
// melting curve decides) are left to the plain call.
#include "lanes/search_blocks.h"

#include <cmath>

#include "frame/property_facade.h"
#include "frame/validators.h"
#include "tavlib6.h"

namespace tvlx::lanes {

namespace {

constexpr int kBlock = 256;

SearchSettings kernelSettings(const tvl::ModelSettings& s) {
    return {s.tolerance, s.maxIterations, s.refining(), s.checksOn()};
}

// The frame after the model: a search that gave up, else the finiteness of the value.
void frameResult(double value, bool failed, double& out, int32_t& code) {
    const bool finite = std::isfinite(value);
    code = failed ? tvl::kRootNotFound : finite ? tvl::kNoError : tvl::kBadParameters;
    out = code == tvl::kNoError ? value : -1.0;
}

// ValidatePTResult on a solved state: 0 where it passes, kOutOfRange, or kByPlainCall below
// 273.15 K, where the melting curve is read.
int32_t solvedStateCode(double p, double T) {
    const tvl::PressureTemperatureLimits& limits = tvl::kSolvedStateLimits;
    if (T < limits.lowestTemperature) return kByPlainCall;
    if (T > limits.highestTemperature || p < 0.0 || p > limits.highestPressure) return tvl::kOutOfRange;
    if (T > limits.region5Temperature && p > limits.region5Pressure) return tvl::kOutOfRange;
    return tvl::kNoError;
}

// The frame's argument test and the selection of the plain call: the region of the point (1 to
// 5), 0 where the plain call decides; -1 where the argument test refuses it.
int selectPoint(int which, tvl::WaterModel& w, const tvl::ModelSettings& settings, double a, double b) {
    try {
        if (which == kTPH) {
            if (settings.checksOn()) tvl::requirePressureEnthalpy(a, b);
            return w.REGIONPH(a, b);
        }
        if (which == kTPS) {
            if (settings.checksOn()) tvl::requirePressureEntropy(w, settings.margin(), a, b);
            return w.REGIONPS(a, b);
        }
        if (settings.checksOn()) tvl::requireEnthalpyEntropy(a, b);
        // Left of the critical entropy REGIONHS answers 1 below 1553.9 kJ/kg whatever its
        // saturated-water fit says: the fit is skipped there.
        if (a < 1553900.0 && b <= tvl::kCriticalEntropy) return 1;
        return w.REGIONHS(a, b);
    } catch (int code) {
        return code == tvl::kOutOfRange ? -1 : 0;
    } catch (...) {
        return 0;
    }
}

// The dispatching export's frame after its search: the state test with checks on, then the
// finiteness of the value. p(h,s) of regions 1 and 2 without refinement publishes no
// temperature, which the state test refuses.
void dispatchedResult(int which, int region, const tvl::ModelSettings& settings, double a, double value, double T,
                      bool failed, double& out, int32_t& code) {
    if (!failed && settings.checksOn()) {
        int32_t stateCode = tvl::kNoError;
        if (which == kPHS)
            stateCode = settings.refining() || region == 5 ? solvedStateCode(value, T) : tvl::kBadParameters;
        else
            stateCode = solvedStateCode(a, value);
        if (stateCode != tvl::kNoError) {
            out = -1.0;
            code = stateCode;
            return;
        }
    }
    frameResult(value, failed, out, code);
}

void dispatchingBlock(const KernelSet& set, int which, const tvl::ModelSettings& settings, const double* a,
                      const double* b, double* value, int32_t* code, int count) {
    tvl::SolvedState solved;
    tvl::WaterModel w(settings, solved);
    int region[kBlock];
    for (int k = 0; k < count; ++k) {
        solved.clear();
        region[k] = selectPoint(which, w, settings, a[k], b[k]);
        const bool searched = region[k] == 1 || region[k] == 2 || region[k] == 5 ||
                              (region[k] == 3 && (which != kPHS || settings.refining()));
        code[k] = region[k] == -1 ? tvl::kOutOfRange : searched ? tvl::kNoError : kByPlainCall;
        value[k] = -1.0;
        // A wet (p,h) or (p,s) point's temperature is the Ts that the selection published.
        if (region[k] == 4 && which != kPHS && solved.temperatureSolved != 0) {
            const double Ts = solved.solvedTemperature;
            dispatchedResult(which, 4, settings, a[k], Ts, Ts, false, value[k], code[k]);
        }
    }
    const SearchSettings searchSettings = kernelSettings(settings);
    const int base = which == kTPH ? kT1PH : which == kTPS ? kT1PS : kP1HS;  // the region 1 search
    for (int r : {1, 2, 3, 5}) {
        double ra[kBlock], rb[kBlock], out[kBlock], T[kBlock];
        int index[kBlock], failed[kBlock];
        int n = 0;
        for (int k = 0; k < count; ++k) {
            ra[n] = a[k];
            rb[n] = b[k];
            index[n] = k;
            n += region[k] == r ? 1 : 0;
        }
        if (n == 0) continue;
        const int offset = r == 1 ? 0 : r == 2 ? kT2PH - kT1PH : kT5PH - kT1PH;
        const SearchKernel search = r == 3 ? set.region3Search[which - kTPH] : set.search[base + offset];
        search(ra, rb, out, T, failed, static_cast<std::size_t>(n), searchSettings);
        for (int j = 0; j < n; ++j)
            dispatchedResult(which, r, settings, ra[j], out[j], T[j], failed[j] != 0, value[index[j]], code[index[j]]);
    }
}

}  // namespace

tvl::ModelSettings searchSettingsOf(const tvl::PropertyFacade* facade) {
    if (facade != nullptr) return facade->settings;
    tvl::ModelSettings s;
    s.tolerance = tvlGETTOLERANCE();
    s.maxIterations = tvlGETMAXITERATION();
    s.checkRangeMode = tvlGETCHECKRANGEMODE();
    s.toleranceMode = tvlGETTOLERANCEMODE();
    return s;
}

void searchBlock(const KernelSet& set, int which, const tvl::ModelSettings& settings, const double* a, const double* b,
                 double* value, int32_t* code, int count) {
    if (which >= kTPH && which <= kPHS) {
        dispatchingBlock(set, which, settings, a, b, value, code, count);
        return;
    }
    double out[kBlock], T[kBlock];
    int failed[kBlock];
    const SearchKernel search = which < kSearchCount ? set.search[which] : set.region3Search[which - kT3PHExport];
    search(a, b, out, T, failed, static_cast<std::size_t>(count), kernelSettings(settings));
    for (int k = 0; k < count; ++k) frameResult(out[k], failed[k] != 0, value[k], code[k]);
}

}  // namespace tvlx::lanes
