// Dispatch on (h,s): the area of a point by fixed enthalpies and entropies and the boundary fits,
// then the state by the region's backward functions and Newton searches, or in the wet area the
// saturation temperature and x of the bisection. A property is the region's equation at that
// state, or the (T, x) rule of the mixture; the one-phase evaluation is that of (p,h) and (p,s).
#include <cstddef>
#include <iterator>

#include "water/dispatch/ph_ps_evaluation.h"
#include "water/formulation/constants.h"
#include "water/formulation/tables/library_fits.h"

namespace tvl {

namespace {

// hb(s), the library's fit of the enthalpy where region 2 gives way to region 5 at 1073.15 K,
// from about 3.93e6 to 4.16e6 J/kg. The division by s^5 is taken as two, by s^4 and by s.
double regionBoundary25(double s) {
    double polynomial = kRegion25BoundaryHS[0];
    for (std::size_t k = 1; k < std::size(kRegion25BoundaryHS); ++k)
        polynomial = polynomial * s + kRegion25BoundaryHS[k];
    const double s2 = s * s;
    return polynomial / (s2 * s2) / s;
}

// The enthalpies (J/kg) and entropies (J/(kg K)) of the selection, each beside the point it
// stands for. Two are a hair inside their boundary ("in"): in that sliver the neighbouring
// region's equations serve, far inside their accuracy, and the values are those of the
// library's results.
constexpr double kOnlyRegion5 = 4160663.6900093425;     // H2PT(0 Pa, 1073.15 K), the top of region 2
constexpr double kRegion2At50MPa = 3925960.4095492493;  // H2PT(50 MPa, 1073.15 K) = ...2475, up
constexpr double kTopOfRegion3 = 2812942.0606003786;    // H2PT(100 MPa, 863.15 K) = ...0416, in
constexpr double kAboveWetArea = 9155.759395224399;     // S2PT(611.2126774443452 Pa, 273.15 K)
constexpr double kLowestEntropy = -0.15454959194427764; // S1PT(611.2126774443452 Pa, 273.15 K) = ...94303, down
constexpr double kOnlyRegion3BelowB23 = 5041.0;         // below S2PT(p, T23(p)): 5048.097 near 56.5 MPa
constexpr double kOnlyRegion2AboveB23 = 5269.0;         // above it: 5260.572 near 19.1 MPa
constexpr double kOnlyRegion1Below = 1553900.0;         // H1PT(100 MPa, 623.15 K) = 1553922.50, down
constexpr double kOnlyRegion3Above = 1670850.0;         // h' at 623.15 K = 1670858.218, in

// The state that an (h,s) pair names. p is the pressure that the region's search found; in
// region 3 the density is the search's and p is not formed; in the wet area (4) T is the
// saturation temperature and x the dryness fraction.
struct StateHS {
    backward::State state;
    double p = 0.0;
    double x = 0.0;
};

StateHS solveState(WaterModel& w, double h, double s) {
    StateHS found;
    double T = 0.0;
    const int area = w.REGIONHS(h, s);
    switch (area) {
    case 1: w.PT1HS(h, s, found.p, T); break;
    case 2: w.PT2HS(h, s, found.p, T); break;
    case 3: {
        double rho = 0.0;
        w.RT3HS(h, s, rho, T);
        found.state = {3, T, rho, 1.0 / rho};
        return found;
    }
    case 4: T = w.TSHS(h, s, found.x); break;
    case 5: w.PT5HS(h, s, found.p, T); break;
    default: throw kUnknownArea;
    }
    found.state = {area, T};
    return found;
}

// In the wet area the rule of the mixture at (T, x), which refuses, with checks on, what has no
// meaning there; elsewhere onePhase(state, p).
template <class OnePhase>
double evaluate(WaterModel& w, double h, double s, double (WaterModel::*wet)(double T, double x), OnePhase onePhase) {
    const StateHS found = solveState(w, h, s);
    if (found.state.area == 4) return (w.*wet)(found.state.T, found.x);
    return onePhase(found.state, found.p);
}

double regionProperty(WaterModel& w, const RegionEquations& e, double h, double s) {
    return evaluate(w, h, s, e.wet, [&](const backward::State& state, double p) {
        return backward::onePhase(w, e, p, state);
    });
}

double densityOf(WaterModel& w, const backward::State& state, double p) {
    return backward::density(backward::volume(w, p, state), state);
}

// The backward functions of p or of T by (h,s), one per one-phase region, and the result in the
// wet area from the saturation temperature that the bisection finds.
struct BackwardHS {
    double (WaterModel::*region1)(double h, double s);
    double (WaterModel::*region2)(double h, double s);
    double (WaterModel::*region3)(double h, double s);
    double (WaterModel::*region5)(double h, double s);
    double (*wet)(const WaterModel& w, double Ts);
};

constexpr BackwardHS kPressureHS = {&WaterModel::P1HS, &WaterModel::P2HS, &WaterModel::P3HS, &WaterModel::P5HS,
                                    [](const WaterModel& w, double Ts) { return w.PST(Ts); }};
constexpr BackwardHS kTemperatureHS = {&WaterModel::T1HS, &WaterModel::T2HS, &WaterModel::T3HS, &WaterModel::T5HS,
                                       [](const WaterModel&, double Ts) { return Ts; }};

double backwardHS(WaterModel& w, const BackwardHS& e, double h, double s) {
    switch (w.REGIONHS(h, s)) {
    case 1: return (w.*e.region1)(h, s);
    case 2: return (w.*e.region2)(h, s);
    case 3: return (w.*e.region3)(h, s);
    case 4: {
        double x;
        return e.wet(w, w.TSHS(h, s, x));
    }
    case 5: return (w.*e.region5)(h, s);
    default: throw kUnknownArea;
    }
}

}  // namespace

// No tolerance takes part: every test is on a fixed number or a fit. Left of the critical
// entropy a point under the saturated-water curve is region 1, not 4, as callers have it.
int WaterModel::REGIONHS(double h, double s) {
    if (h > kOnlyRegion5) return 5;
    if (h > kRegion2At50MPa) return h > regionBoundary25(s) ? 5 : 2;
    if (h > kTopOfRegion3 || s > kAboveWetArea) return 2;
    if (s < kLowestEntropy) return 1;
    if (s > kCriticalEntropy) {
        if (ROUGHHSSS(s) > h) return 4;
        if (s < kOnlyRegion3BelowB23) return 3;
        if (s > kOnlyRegion2AboveB23) return 2;
        const double p = PB23HS(h, s);
        const double T = TB23HS(h, s);
        return T23P(p) >= T ? 3 : 2;
    }
    if (ROUGHHSWS(s) > h) return 1;
    if (h < kOnlyRegion1Below) return 1;
    if (h > kOnlyRegion3Above) return 3;
    return h > HB13S(s) ? 3 : 1;
}

int WaterModel::WATERSTATEAREAHS(double h, double s) { return REGIONHS(h, s); }

double WaterModel::PHS(double h, double s) { return backwardHS(*this, kPressureHS, h, s); }

double WaterModel::THS(double h, double s) { return backwardHS(*this, kTemperatureHS, h, s); }

void WaterModel::PTHS(double h, double s, double& p, double& T) {
    switch (REGIONHS(h, s)) {
    case 1: PT1HS(h, s, p, T); return;
    case 2: PT2HS(h, s, p, T); return;
    case 3: PT3HS(h, s, p, T); return;
    case 4: {
        double x;
        T = TSHS(h, s, x);
        p = PST(T);
        solved.PublishPressure(p);
        return;
    }
    case 5: PT5HS(h, s, p, T); return;
    default: throw kUnknownArea;
    }
}

double WaterModel::VHS(double h, double s) {
    return evaluate(*this, h, s, &WaterModel::VSTX,
                    [&](const backward::State& state, double p) { return backward::volume(*this, p, state); });
}

// u, cp, cv and w: the region's equation or the mixture's rule, from the property's table.
#include "water/dispatch/generated/hs_dispatch.inc"

// Along the wet area an isenthalp crosses no isotherm at fixed p: the inverse slope of the
// saturation line, whatever x is.
double WaterModel::JOULETHOMPSONHS(double h, double s) {
    const StateHS found = solveState(*this, h, s);
    if (found.state.area == 4) return 1.0 / DPDTST(found.state.T);
    return backward::onePhase(*this, kJouleThomson, found.p, found.state);
}

double WaterModel::THERMCONDHS(double h, double s) {
    return evaluate(*this, h, s, &WaterModel::THERMCONDSTX, [&](const backward::State& state, double p) {
        return THERMCONDRT(densityOf(*this, state, p), state.T);
    });
}

double WaterModel::DYNVISHS(double h, double s) {
    return evaluate(*this, h, s, &WaterModel::DYNVISSTX, [&](const backward::State& state, double p) {
        return DYNVISRT(densityOf(*this, state, p), state.T);
    });
}

double WaterModel::KINVISHS(double h, double s) {
    return evaluate(*this, h, s, &WaterModel::KINVISSTX, [&](const backward::State& state, double p) {
        const double v = backward::volume(*this, p, state);
        return DYNVISRT(backward::density(v, state), state.T) * v;
    });
}

double WaterModel::PRANDTLEHS(double h, double s) {
    return evaluate(*this, h, s, &WaterModel::PRANDTLESTX, [&](const backward::State& state, double p) {
        const double rho = densityOf(*this, state, p);
        return backward::onePhase(*this, kIsobaricHeatCapacity, p, state) * DYNVISRT(rho, state.T) /
               THERMCONDRT(rho, state.T);
    });
}

// w^2 / (p v); region 3 has no pressure from its search and takes that of its state.
double WaterModel::KHS(double h, double s) {
    return evaluate(*this, h, s, &WaterModel::KSTX, [&](const backward::State& state, double p) {
        const double speed = backward::onePhase(*this, kSpeedOfSound, p, state);
        const double pressure = state.area == 3 ? P3RT(state.rho, state.T) : p;
        return speed * speed / (pressure * backward::volume(*this, p, state));
    });
}

// Only area 4 has a dryness fraction, whatever the checks: the wet states left of the critical
// entropy, which the selection calls region 1, are refused with the rest.
double WaterModel::XHS(double h, double s) {
    if (REGIONHS(h, s) != 4) throw kOutOfRange;
    double T;
    double x;
    TXSHS(h, s, T, x);
    return x;
}

}  // namespace tvl
