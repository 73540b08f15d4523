// tvl state's solver on the plain exports: the wet area is found by the saturation line itself
// (the (h,s) selection of the library takes wet states left of the critical entropy for region 1).
#include "water_state.h"

#include <cmath>

#include "tavlib6.h"

namespace tvlcli {

namespace {

const double kNaN = std::nan("");
constexpr double kCriticalPressure = 22.064e6;

double checked(double value, bool& ok) {
    if (tvlGETLASTERROR() != 0) ok = false;
    return value;
}

// Optional values: NaN where the library refuses (cp and transport in the wet area).
double optional(double value) {
    return tvlGETLASTERROR() == 0 ? value : kNaN;
}

// (T, x) of a wet state by (h,s), or false for a state outside the wet area.
bool wetByHS(double h, double s, double& T, double& x) {
    if (tvlTXSHS(h, s, &T, &x) != 1.0 || tvlGETLASTERROR() != 0 || !(x >= 0 && x <= 1)) return false;
    const double again = tvlHSTX(T, x);
    return tvlGETLASTERROR() == 0 && std::fabs(again - h) <= 1e-7 * std::fabs(h) + 1e-3;
}

// The dryness of (p, a) where a is h or s, the wet area found by the saturation values.
bool wetByP(double p, double a, bool enthalpy, double& T, double& x) {
    if (!(p < kCriticalPressure)) return false;
    T = tvlTSP(p);
    if (tvlGETLASTERROR() != 0) return false;
    const double liquid = enthalpy ? tvlHSWT(T) : tvlSSWT(T);
    const double vapour = enthalpy ? tvlHSST(T) : tvlSSST(T);
    x = (a - liquid) / (vapour - liquid);
    return x >= 0 && x <= 1;
}

}  // namespace

bool findWaterState(const std::string& pair, double first, double second, WaterState& state, std::string& error) {
    bool ok = true;
    double p = kNaN, T = kNaN, x = kNaN;
    if (pair == "pT") {
        p = first;
        T = second;
    } else if (pair == "Tx" || pair == "px") {
        x = second;
        T = pair == "Tx" ? first : checked(tvlTSP(first), ok);
        ok = ok && x >= 0 && x <= 1;
    } else if (pair == "ph" || pair == "ps") {
        p = first;
        if (!wetByP(p, second, pair == "ph", T, x)) {
            x = kNaN;
            T = checked(pair == "ph" ? tvlTPH(p, second) : tvlTPS(p, second), ok);
        }
    } else if (pair == "hs") {
        if (!wetByHS(first, second, T, x)) {
            x = kNaN;
            ok = tvlPTHS(first, second, &p, &T) == 1.0 && tvlGETLASTERROR() == 0;
        }
    } else {
        error = "no state by " + pair;
        return false;
    }
    if (ok && !std::isnan(x)) p = checked(tvlPST(T), ok);
    if (!ok) {
        error = "no state of water and steam there";
        return false;
    }

    state.p = p;
    state.T = T;
    state.x = x;
    if (!std::isnan(x)) {
        state.region = 4;
        state.v = checked(tvlVSTX(T, x), ok);
        state.h = checked(tvlHSTX(T, x), ok);
        state.u = checked(tvlUSTX(T, x), ok);
        state.s = checked(tvlSSTX(T, x), ok);
        state.cv = checked(tvlCVSTX(T, x), ok);
        state.w = checked(tvlWSTX(T, x), ok);
        state.cp = state.eta = state.lambda = kNaN;
    } else {
        state.region = checked(tvlWATERSTATEAREA(p, T), ok);
        state.v = checked(tvlVPT(p, T), ok);
        state.h = checked(tvlHPT(p, T), ok);
        state.u = checked(tvlUPT(p, T), ok);
        state.s = checked(tvlSPT(p, T), ok);
        state.cv = checked(tvlCVPT(p, T), ok);
        state.w = checked(tvlWPT(p, T), ok);
        state.cp = optional(tvlCPPT(p, T));
        state.eta = optional(tvlDYNVISPT(p, T));
        state.lambda = optional(tvlTHERMCONDPT(p, T));
    }
    if (!ok) error = "no state of water and steam there";
    return ok;
}

}  // namespace tvlcli
