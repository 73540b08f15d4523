// Properties by (p,T,x). The state area of (p,T), the selection that recognises the saturation
// line within the tolerance, decides; x counts only on the line, where the (T,x) rule takes the
// given temperature. Away from it the plain properties take the area's own equation, and the
// transport and derived ones their (p,T) form with its own selection.
#include "frame/error_codes.h"
#include "water/formulation/water_model.h"

namespace tvl {

namespace {

// The equations of the areas 1, 2, 3 (in density, T) and 5, and the wet rule of area 4.
struct AreaEquations {
    double (WaterModel::*region1)(double, double);
    double (WaterModel::*region2)(double, double);
    double (WaterModel::*region3)(double, double);
    double (WaterModel::*region5)(double, double);
    double (WaterModel::*wet)(double, double);
};

double byArea(WaterModel& model, const AreaEquations& e, double p, double T, double x) {
    switch (model.WATERSTATEAREA(p, T)) {
    case 1: return (model.*e.region1)(p, T);
    case 2: return (model.*e.region2)(p, T);
    case 3: return (model.*e.region3)(model.R3PT(p, T), T);
    case 4: return (model.*e.wet)(T, x);
    case 5: return (model.*e.region5)(p, T);
    default: throw kUnknownArea;
    }
}

using W = WaterModel;
constexpr AreaEquations kInternalEnergy = {&W::U1PT, &W::U2PT, &W::U3RT, &W::U5PT, &W::USTX};
constexpr AreaEquations kEntropy = {&W::S1PT, &W::S2PT, &W::S3RT, &W::S5PT, &W::SSTX};
constexpr AreaEquations kEnthalpy = {&W::H1PT, &W::H2PT, &W::H3RT, &W::H5PT, &W::HSTX};
constexpr AreaEquations kIsobaricHeatCapacity = {&W::CP1PT, &W::CP2PT, &W::CP3RT, &W::CP5PT, &W::CPSTX};
constexpr AreaEquations kIsochoricHeatCapacity = {&W::CV1PT, &W::CV2PT, &W::CV3RT, &W::CV5PT, &W::CVSTX};
constexpr AreaEquations kSpeedOfSound = {&W::W1PT, &W::W2PT, &W::W3RT, &W::W5PT, &W::WSTX};
constexpr AreaEquations kJouleThomson = {&W::JOULETHOMPSON1PT, &W::JOULETHOMPSON2PT, &W::JOULETHOMPSON3RT,
                                         &W::JOULETHOMPSON5PT, &W::JOULETHOMPSONSTX};

}  // namespace

// Volume and density take region 3's density as it stands, not through a (density, T) equation.
double WaterModel::VPTX(double p, double T, double x) {
    switch (WATERSTATEAREA(p, T)) {
    case 1: return V1PT(p, T);
    case 2: return V2PT(p, T);
    case 3: return 1.0 / R3PT(p, T);
    case 4: return VSTX(T, x);
    case 5: return V5PT(p, T);
    default: throw kUnknownArea;
    }
}

double WaterModel::DPTX(double p, double T, double x) {
    switch (WATERSTATEAREA(p, T)) {
    case 1: return D1PT(p, T);
    case 2: return D2PT(p, T);
    case 3: return R3PT(p, T);
    case 4: return DSTX(T, x);
    case 5: return D5PT(p, T);
    default: throw kUnknownArea;
    }
}

double WaterModel::UPTX(double p, double T, double x) { return byArea(*this, kInternalEnergy, p, T, x); }
double WaterModel::SPTX(double p, double T, double x) { return byArea(*this, kEntropy, p, T, x); }
double WaterModel::HPTX(double p, double T, double x) { return byArea(*this, kEnthalpy, p, T, x); }
double WaterModel::CPPTX(double p, double T, double x) { return byArea(*this, kIsobaricHeatCapacity, p, T, x); }
double WaterModel::CVPTX(double p, double T, double x) { return byArea(*this, kIsochoricHeatCapacity, p, T, x); }
double WaterModel::WPTX(double p, double T, double x) { return byArea(*this, kSpeedOfSound, p, T, x); }
double WaterModel::JOULETHOMPSONPTX(double p, double T, double x) { return byArea(*this, kJouleThomson, p, T, x); }

// Transport and derived properties: the wet rule on the line (which refuses cp and transport
// under checkRangeMode), the (p,T) form everywhere else.
double WaterModel::THERMCONDPTX(double p, double T, double x) {
    return WATERSTATEAREA(p, T) == 4 ? THERMCONDSTX(T, x) : THERMCONDPT(p, T);
}

double WaterModel::DYNVISPTX(double p, double T, double x) {
    return WATERSTATEAREA(p, T) == 4 ? DYNVISSTX(T, x) : DYNVISPT(p, T);
}

double WaterModel::PRANDTLEPTX(double p, double T, double x) {
    return WATERSTATEAREA(p, T) == 4 ? PRANDTLESTX(T, x) : PRANDTLEPT(p, T);
}

double WaterModel::KINVISPTX(double p, double T, double x) {
    return WATERSTATEAREA(p, T) == 4 ? KINVISSTX(T, x) : KINVISPT(p, T);
}

double WaterModel::KPTX(double p, double T, double x) {
    return WATERSTATEAREA(p, T) == 4 ? KSTX(T, x) : KPT(p, T);
}

}  // namespace tvl
