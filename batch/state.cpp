// States of water and steam by any pair, each property of the one state point, for hosts that
// want a state rather than an export: the Python module's Water, the tvl command.
//
// The exports of a pair keep their own region selection, which sends some wet states elsewhere
// (the (h,s) selection gives region 1 under the saturated-water curve, the (p,h) and (p,s) ones
// give region 1 or 2 on the saturation lines). Here the wet area is tested first, on the
// saturated states themselves, and only a state outside it goes to the refined backward
// functions. Every property is then taken at the one point found: (T, x) in the wet area,
// (p, T) in regions 1, 2 and 5, (rho, T) in region 3.
#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstdint>
#include <memory>
#include <strings.h>

#include "frame/property_facade.h"
#include "frame/validators.h"
#include "tavlib6x.h"

namespace {

using tvl::PropertyFacade;
using Method1 = double (PropertyFacade::*)(double);
using Method2 = double (PropertyFacade::*)(double, double);

enum class Pair { PT, PH, PS, HS, TX, PX };

constexpr double kCriticalTemperature = 647.096;
constexpr double kCriticalPressure = 22064000.0;
constexpr double kCriticalDensity = 322.0;
constexpr double kLowestSaturationTemperature = 273.15;
constexpr double kRegion3LowestTemperature = 623.15;
// s'(623.15 K) and s''(623.15 K): no liquid of greater entropy than the first lies in region 1,
// saturated steam of greater entropy than the second lies in region 2.
constexpr double kWaterEntropyRegion3 = 3778.2813395442477;
constexpr double kSteamEntropyRegion3 = 5210.88782493075;
// How far a single-phase result may lie inside the saturation line before it counts as wet:
// the refined searches stop at a relative 2e-12 by default, far inside this.
constexpr double kDomeMargin = 1e-9;

// A call that the state cannot do without failed with this code.
struct Failure {
    std::int32_t code;
};

// One state being filled: the facade that computes it and the values and codes so far.
class StateBuilder {
public:
    StateBuilder(PropertyFacade& facade, double* values, std::int32_t* codes)
        : f(facade), values(values), codes(codes) {}

    // A value the state needs: a failure ends the state with its code.
    double need(Method1 method, double a) { return checked((f.*method)(a)); }
    double need(Method2 method, double a, double b) { return checked((f.*method)(a, b)); }

    // A property: stored with the code of its call, -1.0 where that failed.
    void put(int k, Method1 method, double a) { store(k, (f.*method)(a)); }
    void put(int k, Method2 method, double a, double b) { store(k, (f.*method)(a, b)); }
    void set(int k, double value, std::int32_t code = 0) {
        values[k] = code == 0 ? value : -1.0;
        codes[k] = code;
    }
    double operator[](int k) const { return values[k]; }

    // The first failing code among properties, 0 if none.
    std::int32_t codeOf(std::initializer_list<int> properties) const {
        for (int k : properties)
            if (codes[k] != 0) return codes[k];
        return 0;
    }

    PropertyFacade& f;
    bool solved = false;  // the state was found by a search, not given by (p, T)

private:
    double checked(double value) {
        if (f.lastError != 0) throw Failure{f.lastError};
        return value;
    }
    void store(int k, double value) { set(k, value, f.lastError); }

    double* values;
    std::int32_t* codes;
};

// The code of the transport range at the state's (p, T), as the transport exports test it while
// checks are on: the range of their arguments for a given (p, T), the wider one of a solved state.
std::int32_t transportRangeCode(const StateBuilder& state, const tvl::TransportLimits& given,
                                const tvl::TransportLimits& solved) {
    if (!state.f.settings.checksOn()) return 0;
    try {
        tvl::requireTransportRange(state.solved ? solved : given, state[TVLX_P], state[TVLX_T]);
    } catch (int code) {
        return code;
    }
    return 0;
}

// The transport properties and those built on them, from eta and lambda at (rho, T).
void putTransport(StateBuilder& state, double rho, double T) {
    const std::int32_t viscosity = transportRangeCode(state, tvl::kViscosityArguments, tvl::kViscositySolved);
    const std::int32_t conductivity = transportRangeCode(state, tvl::kConductivityArguments, tvl::kConductivitySolved);
    if (viscosity == 0) state.put(TVLX_ETA, &PropertyFacade::DYNVISRT, rho, T);
    else state.set(TVLX_ETA, -1.0, viscosity);
    if (conductivity == 0) state.put(TVLX_LAMBDA, &PropertyFacade::THERMCONDRT, rho, T);
    else state.set(TVLX_LAMBDA, -1.0, conductivity);
    const std::int32_t prandtl = state.codeOf({TVLX_ETA, TVLX_CP, TVLX_LAMBDA});
    state.set(TVLX_PR, prandtl == 0 ? state[TVLX_ETA] * state[TVLX_CP] / state[TVLX_LAMBDA] : 0.0, prandtl);
    state.set(TVLX_NU, state[TVLX_ETA] * state[TVLX_V], state.codeOf({TVLX_ETA}));
}

void putKappa(StateBuilder& state) {
    const std::int32_t code = state.codeOf({TVLX_W});
    state.set(TVLX_KAPPA, code == 0 ? state[TVLX_W] * state[TVLX_W] / (state[TVLX_P] * state[TVLX_V]) : 0.0, code);
}

int phaseOf(int region, double p, double T, double rho) {
    if (p > kCriticalPressure && T > kCriticalTemperature) return 3;
    if (T > kCriticalTemperature) return 2;
    if (p > kCriticalPressure) return 1;
    if (region == 1) return 1;
    if (region == 3) return rho > kCriticalDensity ? 1 : 2;
    return 2;
}

void finishSinglePhase(StateBuilder& state, int region) {
    state.set(TVLX_REGION, region);
    state.set(TVLX_X, -1.0, TVLX_NOT_WET);
    state.set(TVLX_PHASE, phaseOf(region, state[TVLX_P], state[TVLX_T], state[TVLX_RHO]));
    putKappa(state);
}

// Which export gives which property: of regions 1, 2 and 5 by (p, T), of region 3 by (rho, T),
// of saturated water and steam by T, of the wet mixture by (T, x).
struct RegionEquation {
    int property;
    Method2 region1, region2, region5;
};
const RegionEquation kRegionEquations[] = {
    {TVLX_U, &PropertyFacade::U1PT, &PropertyFacade::U2PT, &PropertyFacade::U5PT},
    {TVLX_H, &PropertyFacade::H1PT, &PropertyFacade::H2PT, &PropertyFacade::H5PT},
    {TVLX_S, &PropertyFacade::S1PT, &PropertyFacade::S2PT, &PropertyFacade::S5PT},
    {TVLX_CP, &PropertyFacade::CP1PT, &PropertyFacade::CP2PT, &PropertyFacade::CP5PT},
    {TVLX_CV, &PropertyFacade::CV1PT, &PropertyFacade::CV2PT, &PropertyFacade::CV5PT},
    {TVLX_W, &PropertyFacade::W1PT, &PropertyFacade::W2PT, &PropertyFacade::W5PT},
    {TVLX_JT, &PropertyFacade::JOULETHOMPSON1PT, &PropertyFacade::JOULETHOMPSON2PT, &PropertyFacade::JOULETHOMPSON5PT},
};

struct Equation2 {
    int property;
    Method2 method;
};
const Equation2 kRegion3Equations[] = {
    {TVLX_U, &PropertyFacade::U3RT}, {TVLX_H, &PropertyFacade::H3RT}, {TVLX_S, &PropertyFacade::S3RT},
    {TVLX_CP, &PropertyFacade::CP3RT}, {TVLX_CV, &PropertyFacade::CV3RT}, {TVLX_W, &PropertyFacade::W3RT},
    {TVLX_JT, &PropertyFacade::JOULETHOMPSON3RT},
};
// The mixture has no cp and no transport properties: those are refused below.
const Equation2 kMixtureEquations[] = {
    {TVLX_V, &PropertyFacade::VSTX}, {TVLX_RHO, &PropertyFacade::DSTX}, {TVLX_U, &PropertyFacade::USTX},
    {TVLX_H, &PropertyFacade::HSTX}, {TVLX_S, &PropertyFacade::SSTX}, {TVLX_CV, &PropertyFacade::CVSTX},
    {TVLX_W, &PropertyFacade::WSTX}, {TVLX_KAPPA, &PropertyFacade::KSTX}, {TVLX_JT, &PropertyFacade::JOULETHOMPSONSTX},
};

struct SaturatedEquation {
    int property;
    Method1 water, steam;
};
const SaturatedEquation kSaturatedEquations[] = {
    {TVLX_V, &PropertyFacade::VSWT, &PropertyFacade::VSST},
    {TVLX_RHO, &PropertyFacade::DSWT, &PropertyFacade::DSST},
    {TVLX_U, &PropertyFacade::USWT, &PropertyFacade::USST},
    {TVLX_H, &PropertyFacade::HSWT, &PropertyFacade::HSST},
    {TVLX_S, &PropertyFacade::SSWT, &PropertyFacade::SSST},
    {TVLX_CP, &PropertyFacade::CPSWT, &PropertyFacade::CPSST},
    {TVLX_CV, &PropertyFacade::CVSWT, &PropertyFacade::CVSST},
    {TVLX_W, &PropertyFacade::WSWT, &PropertyFacade::WSST},
    {TVLX_JT, &PropertyFacade::JOULETHOMPSONSWT, &PropertyFacade::JOULETHOMPSONSST},
    {TVLX_ETA, &PropertyFacade::DYNVISSWT, &PropertyFacade::DYNVISSST},
    {TVLX_LAMBDA, &PropertyFacade::THERMCONDSWT, &PropertyFacade::THERMCONDSST},
    {TVLX_PR, &PropertyFacade::PRANDTLESWT, &PropertyFacade::PRANDTLESST},
    {TVLX_NU, &PropertyFacade::KINVISSWT, &PropertyFacade::KINVISSST},
    {TVLX_KAPPA, &PropertyFacade::KSWT, &PropertyFacade::KSST},
};

// Regions 1, 2 and 5 at (p, T), by the equations of the region.
void putRegionPT(StateBuilder& state, int region, double p, double T) {
    state.set(TVLX_T, T);
    state.set(TVLX_P, p);
    const double v = state.need(region == 1 ? &PropertyFacade::V1PT : region == 2 ? &PropertyFacade::V2PT
                                                                                  : &PropertyFacade::V5PT, p, T);
    state.set(TVLX_V, v);
    state.set(TVLX_RHO, 1.0 / v);
    for (const RegionEquation& e : kRegionEquations)
        state.put(e.property, region == 1 ? e.region1 : region == 2 ? e.region2 : e.region5, p, T);
    putTransport(state, 1.0 / v, T);
    finishSinglePhase(state, region);
}

// Region 3 at (rho, T).
void putRegion3(StateBuilder& state, double rho, double T) {
    state.set(TVLX_T, T);
    state.set(TVLX_RHO, rho);
    state.set(TVLX_V, 1.0 / rho);
    state.set(TVLX_P, state.need(&PropertyFacade::P3RT, rho, T));
    for (const Equation2& e : kRegion3Equations) state.put(e.property, e.method, rho, T);
    putTransport(state, rho, T);
    finishSinglePhase(state, 3);
}

// The wet area at (T, x), x in 0 to 1: on the saturation lines the saturated phase with all
// its properties, between them the mixture.
void putWet(StateBuilder& state, double T, double x) {
    state.set(TVLX_T, T);
    state.set(TVLX_X, x);
    state.set(TVLX_REGION, 4);
    state.set(TVLX_P, state.need(&PropertyFacade::PST, T));
    if (x == 0.0 || x == 1.0) {
        state.set(TVLX_PHASE, x == 0.0 ? 1 : 2);
        for (const SaturatedEquation& e : kSaturatedEquations) state.put(e.property, x == 0.0 ? e.water : e.steam, T);
        return;
    }
    state.set(TVLX_PHASE, 4);
    for (const Equation2& e : kMixtureEquations) state.put(e.property, e.method, T, x);
    for (int k : {TVLX_CP, TVLX_ETA, TVLX_LAMBDA, TVLX_PR, TVLX_NU}) state.set(k, -1.0, tvl::kOutOfRange);
}

// A root of a function in [a, b], where fa = f(a) and fb = f(b) differ in sign or one is 0:
// regula falsi with the Illinois halving, and a bisection every third step so that the bracket
// shrinks whatever the function's shape. Ends when the bracket is a few units of the last place
// wide and returns the end with the smaller residual.
template <class Function>
double bracketedRoot(Function f, double a, double b, double fa, double fb) {
    double weightA = fa, weightB = fb;
    int lastMoved = 0;
    for (int step = 0; step < 400 && fa != 0.0 && fb != 0.0; ++step) {
        if (b - a <= 4.0 * DBL_EPSILON * std::max(std::fabs(a), std::fabs(b))) break;
        double m = b - weightB * (b - a) / (weightB - weightA);
        if (step % 3 == 2 || !(m > a && m < b)) m = 0.5 * a + 0.5 * b;
        const double fm = f(m);
        if ((fm < 0.0) == (fa < 0.0) && fm != 0.0) {
            a = m, fa = weightA = fm;
            if (lastMoved == -1) weightB *= 0.5;
            lastMoved = -1;
        } else {
            b = m, fb = weightB = fm;
            if (lastMoved == 1) weightA *= 0.5;
            lastMoved = 1;
        }
    }
    return std::fabs(fa) < std::fabs(fb) ? a : b;
}

struct SaturatedPair {
    double hWater, hSteam, sWater, sSteam;
};

SaturatedPair saturatedAt(StateBuilder& state, double T) {
    return {state.need(&PropertyFacade::HSWT, T), state.need(&PropertyFacade::HSST, T),
            state.need(&PropertyFacade::SSWT, T), state.need(&PropertyFacade::SSST, T)};
}

// The wet state of (h, s), if it is one. Each isotherm of the wet area is a straight line in
// (s, h) from saturated water to saturated steam, and they do not cross: the point lies on the
// isotherm at which h - h' - x (h'' - h') is 0 with x = (s - s') / (s'' - s'), the same dryness
// fraction from h and from s. Along T, in 273.15 K up to the temperature at which s itself is
// saturated, that excess falls strictly (its derivative is -(v' dp/dT + s - s')), so the point
// is wet when it changes sign there.
bool findWetHS(StateBuilder& state, double h, double s, double& T, double& x) {
    const SaturatedPair lowest = saturatedAt(state, kLowestSaturationTemperature);
    const SaturatedPair critical = saturatedAt(state, kCriticalTemperature);
    if (!(s >= lowest.sWater && s <= lowest.sSteam)) return false;

    // The end of the isotherms through s: where s is that of saturated water, or of steam.
    const bool waterSide = s <= critical.sWater;
    const Method1 entropyLine = waterSide ? &PropertyFacade::SSWT : &PropertyFacade::SSST;
    const auto entropyAbove = [&](double t) { return state.need(entropyLine, t) - s; };
    const double lowEnd = (waterSide ? lowest.sWater : lowest.sSteam) - s;
    const double highEnd = critical.sWater - s;
    const double saturatedT = bracketedRoot(entropyAbove, kLowestSaturationTemperature, kCriticalTemperature,
                                            lowEnd, highEnd);

    const auto excess = [&](double t) {
        const SaturatedPair sat = saturatedAt(state, t);
        if (!(sat.sSteam > sat.sWater)) return sat.hWater - h;  // the critical point
        return sat.hWater + (s - sat.sWater) * ((sat.hSteam - sat.hWater) / (sat.sSteam - sat.sWater)) - h;
    };
    // A point on a saturation line, as its rounded h and s can give it, is a saturated state.
    const double onLine = state.f.settings.tolerance * (std::fabs(h) + 1e3);
    const double atLowest = excess(kLowestSaturationTemperature);
    const double atLine = excess(saturatedT);
    if (!(atLowest <= onLine && atLine >= -onLine)) return false;

    T = atLine <= onLine ? saturatedT : bracketedRoot(excess, kLowestSaturationTemperature, saturatedT, atLowest, atLine);
    if (T == saturatedT) {
        x = waterSide ? 0.0 : 1.0;
        return true;
    }
    const SaturatedPair sat = saturatedAt(state, T);
    x = sat.sSteam > sat.sWater ? std::clamp((s - sat.sWater) / (sat.sSteam - sat.sWater), 0.0, 1.0) : 0.0;
    return true;
}

// The dryness fraction of (p, value), value h or s, where p is a saturation pressure and the
// value lies between those of saturated water and steam. A value given as that of a saturated
// phase may differ from it in the last places, and TSP(p) holds the temperature only to the
// tolerance, which near the critical point moves the saturated values far more: a value within
// what that moves, plus the tolerance of the value itself, is on the saturation line.
bool findWetByPressure(StateBuilder& state, double p, double value, Method1 water, Method1 steam, double& T,
                       double& x, bool& nearWater) {
    T = state.f.TSP(p);
    if (state.f.lastError != 0) return false;
    const double tolerance = state.f.settings.tolerance;
    const double lower = state.need(water, T), upper = state.need(steam, T);
    const double shifted = T * (1.0 - tolerance), own = tolerance * (std::fabs(value) + 1e3);
    const double lowerMargin = std::fabs(state.need(water, shifted) - lower) + own;
    const double upperMargin = std::fabs(state.need(steam, shifted) - upper) + own;
    nearWater = value - lower < upper - value;
    if (!(upper > lower && value >= lower - lowerMargin && value <= upper + upperMargin)) return false;
    x = value <= lower + lowerMargin ? 0.0 : value >= upper - upperMargin ? 1.0 : (value - lower) / (upper - lower);
    return true;
}

// A single-phase state by (p, h) or (p, s); the selection of the pair gives the region and its
// refined backward function the temperature. Where the selection, by its own margins, still
// calls a point just outside the saturated values wet, the point is the saturated phase.
void solvePressurePair(StateBuilder& state, double p, double value, bool enthalpy) {
    double T = 0.0, x = 0.0;
    bool nearWater = false;
    const bool wet = findWetByPressure(state, p, value, enthalpy ? &PropertyFacade::HSWT : &PropertyFacade::SSWT,
                                       enthalpy ? &PropertyFacade::HSST : &PropertyFacade::SSST, T, x, nearWater);
    if (wet) return putWet(state, T, x);
    const double temperature = state.need(enthalpy ? &PropertyFacade::TPH : &PropertyFacade::TPS, p, value);
    const std::int32_t region =
        enthalpy ? state.f.WATERSTATEAREAPH(p, value) : state.f.WATERSTATEAREAPS(p, value);
    if (region == 4 && state.f.lastError == 0) return putWet(state, T, nearWater ? 0.0 : 1.0);
    if (region == 3) {
        const double v = state.need(enthalpy ? &PropertyFacade::VPH : &PropertyFacade::VPS, p, value);
        return putRegion3(state, 1.0 / v, temperature);
    }
    if (region != 1 && region != 2 && region != 5) throw Failure{tvl::kUnknownArea};
    putRegionPT(state, region, p, temperature);
}

// A single phase found by a backward function must lie outside the wet area.
void requireOutsideDome(StateBuilder& state, int region, double p, double T) {
    if (region == 3 || region == 5 || p >= kCriticalPressure) return;
    const double saturatedT = state.f.TSP(p);
    if (state.f.lastError != 0) return;  // below the triple-point pressure: no wet area there
    if ((region == 1 && T > saturatedT * (1.0 + kDomeMargin)) || (region == 2 && T < saturatedT * (1.0 - kDomeMargin)))
        throw Failure{tvl::kRootNotFound};
}

void solveHS(StateBuilder& state, double h, double s) {
    double T = 0.0, x = 0.0;
    if (findWetHS(state, h, s, T, x)) return putWet(state, T, x);

    double p = 0.0, r = 0.0;
    state.f.PTHS(h, s, &p, &T);  // the range tests of (h,s), and p and T outside region 3
    if (state.f.lastError != 0) throw Failure{state.f.lastError};
    // The selection tells single phases from wet ones by fits of the saturation curves: a point
    // just above the steam curve that it calls wet is steam of region 2 or 3, and liquid just
    // above the water curve beyond 623.15 K, which it calls region 1, is of region 3.
    const std::int32_t selected = state.f.WATERSTATEAREAHS(h, s);
    std::int32_t region = selected != 4 ? selected : s >= kSteamEntropyRegion3 ? 2 : 3;
    if (selected == 1 && s > kWaterEntropyRegion3) region = 3;
    if (region == 3) {
        state.f.RT3HS(h, s, &r, &T);
        if (state.f.lastError != 0) throw Failure{state.f.lastError};
        return putRegion3(state, r, T);
    }
    if (selected == 4) {
        state.f.PT2HS(h, s, &p, &T);
        if (state.f.lastError != 0) throw Failure{state.f.lastError};
    }
    if (region != 1 && region != 2 && region != 5) throw Failure{tvl::kUnknownArea};
    requireOutsideDome(state, region, p, T);
    putRegionPT(state, region, p, T);
}

void solvePT(StateBuilder& state, double p, double T) {
    state.need(&PropertyFacade::HPT, p, T);  // the range tests of (p,T)
    std::int32_t region = state.f.WATERSTATEAREA(p, T);
    if (state.f.lastError != 0) throw Failure{state.f.lastError};
    // On the saturation line (p,T) does not fix a wet state: the phase that the pressure holds.
    if (region == 4 && T <= kRegion3LowestTemperature) region = p >= state.need(&PropertyFacade::PST, T) ? 1 : 2;
    if (region == 3 || region == 4) return putRegion3(state, state.need(&PropertyFacade::DPT, p, T), T);
    putRegionPT(state, region, p, T);
}

void requireFraction(double x) {
    if (!(x >= 0.0 && x <= 1.0)) throw Failure{tvl::kOutOfRange};
}

void solve(StateBuilder& state, Pair pair, double a, double b) {
    // The margins of the wet tests scale with the values: a NaN or an infinity must not reach them.
    if (std::isnan(a) || std::isnan(b)) throw Failure{tvl::kBadParameters};
    if (std::isinf(a) || std::isinf(b)) throw Failure{tvl::kOutOfRange};
    state.solved = pair != Pair::PT;
    switch (pair) {
        case Pair::PT: solvePT(state, a, b); break;
        case Pair::PH: solvePressurePair(state, a, b, true); break;
        case Pair::PS: solvePressurePair(state, a, b, false); break;
        case Pair::HS: solveHS(state, a, b); break;
        case Pair::TX: requireFraction(b); putWet(state, a, b); break;
        case Pair::PX: requireFraction(b); putWet(state, state.need(&PropertyFacade::TSP, a), b); break;
    }
}

struct PairName {
    const char* name;
    Pair pair;
    int first, second;  // the properties that the two variables are
};

const PairName kPairs[] = {
    {"pT", Pair::PT, TVLX_P, TVLX_T}, {"ph", Pair::PH, TVLX_P, TVLX_H}, {"ps", Pair::PS, TVLX_P, TVLX_S},
    {"hs", Pair::HS, TVLX_H, TVLX_S}, {"Tx", Pair::TX, TVLX_T, TVLX_X}, {"px", Pair::PX, TVLX_P, TVLX_X},
};

const PairName* findPair(const char* name) {
    if (name == nullptr) return nullptr;
    for (const PairName& entry : kPairs)
        if (strcasecmp(entry.name, name) == 0) return &entry;
    return nullptr;
}

const char* const kPropertyNames[TVLX_STATE_COUNT] = {
    "T", "p", "rho", "v", "u", "h", "s", "cp", "cv", "w", "x", "region", "phase", "eta", "lambda", "Pr", "nu",
    "kappa", "JT"};

// The state's own model object, with the library object's settings of the moment: a state is
// many calls, and the last error of the library object then reports the state's code alone.
tvl::PropertyFacade& facadeWithSettings() {
    static std::unique_ptr<tvl::PropertyFacade> facade;
    if (!facade) facade = std::make_unique<tvl::PropertyFacade>();
    facade->settings.maxIterations = tvlGETMAXITERATION();
    facade->settings.tolerance = tvlGETTOLERANCE();
    facade->settings.checkRangeMode = tvlGETCHECKRANGEMODE();
    facade->settings.toleranceMode = tvlGETTOLERANCEMODE();
    return *facade;
}

std::int32_t solveState(tvl::PropertyFacade& facade, const PairName& pair, double a, double b, double* values,
                        std::int32_t* codes) {
    StateBuilder state(facade, values, codes);
    std::int32_t code = 0;
    try {
        solve(state, pair.pair, a, b);
    } catch (const Failure& failure) {
        code = failure.code;
    } catch (...) {
        code = tvl::kOutOfMemory;
    }
    if (code == 0) {
        state.set(pair.first, a);
        state.set(pair.second, b);
        return 0;
    }
    for (int k = 0; k < TVLX_STATE_COUNT; ++k) state.set(k, -1.0, code);
    return code;
}

}  // namespace

extern "C" TVLX_API int32_t tvlxSTATE(const char* pair, double a, double b, double* values, int32_t* codes) {
    const PairName* entry = findPair(pair);
    int32_t code = tvl::kBadParameters;
    if (values != nullptr && codes != nullptr) {
        if (entry != nullptr) {
            code = solveState(facadeWithSettings(), *entry, a, b, values, codes);
        } else {
            std::fill(values, values + TVLX_STATE_COUNT, -1.0);
            std::fill(codes, codes + TVLX_STATE_COUNT, code);
        }
    }
    tvlSETLASTERROR(code);
    return code;
}

extern "C" TVLX_API int64_t tvlxSTATES(const char* pair, int64_t count, const double* a, const double* b,
                                       double* values, int32_t* codes) {
    const PairName* entry = findPair(pair);
    if (entry == nullptr || count < 0 || (count > 0 && (a == nullptr || b == nullptr || values == nullptr || codes == nullptr)))
        return -1;
    tvl::PropertyFacade& facade = facadeWithSettings();
    int64_t failed = 0;
    int32_t code = 0;
    for (int64_t k = 0; k < count; ++k) {
        code = solveState(facade, *entry, a[k], b[k], values + k * TVLX_STATE_COUNT, codes + k * TVLX_STATE_COUNT);
        if (code != 0) ++failed;
    }
    tvlSETLASTERROR(code);
    return failed;
}

extern "C" TVLX_API const char* tvlxSTATENAME(int32_t k) {
    return k >= 0 && k < TVLX_STATE_COUNT ? kPropertyNames[k] : nullptr;
}

