// The evaluation that the (p,h) and (p,s) families share. The selection gives the area, the
// region's backward function the temperature (in region 3 with the density), and a property is
// then the region's equation at that state, or in the wet area the (T, x) rule of the mixture at
// the saturation temperature. The two families differ only in the table of their input
// (BackwardEquations): the selection, the backward functions, the 3a/3b test and the saturated
// values that give x.
#ifndef TAVLIB6_PH_PS_EVALUATION_H
#define TAVLIB6_PH_PS_EVALUATION_H

#include "frame/error_codes.h"
#include "water/dispatch/region_equations.h"
#include "water/formulation/water_model.h"

namespace tvl::backward {

// Above the critical pressure, up to 50 MPa, the selections by (p,h) and by (p,s) order the
// regions alike along y (h or s): the bounds below which only region 1, above which only
// region 5 lies, then the 1/3 boundary test, only region 3, the B23 test, only region 2 and the
// 2/5 test. The thresholds are each selection's own.
struct SupercriticalBand {
    double onlyRegion1, onlyRegion5, region1Boundary, onlyRegion3, b23Boundary, onlyRegion2;
};

template <class Test13, class Test32, class Test25>
int selectSupercritical(const SupercriticalBand& band, double y, Test13 region1Or3, Test32 region3Or2,
                        Test25 region2Or5) {
    if (y < band.onlyRegion1) return 1;
    if (y > band.onlyRegion5) return 5;
    if (y < band.region1Boundary) return region1Or3();
    if (y < band.onlyRegion3) return 3;
    if (y < band.b23Boundary) return region3Or2();
    if (y < band.onlyRegion2) return 2;
    return region2Or5();
}

// Between the saturated states of region 3 below the critical pressure: wet (4) or region 3, by
// the property y of region 3 at the saturation temperature, its density search starting from the
// saturated density of the side of y that steamSideStart marks. Publishes the temperature.
template <double (WaterModel::*Property)(double, double)>
int wetOrRegion3(WaterModel& w, double p, double y, double steamSideStart) {
    const double Ts = w.TSP(p);
    w.solved.PublishTemperature(Ts);
    if (y > steamSideStart) return (w.*Property)(w.R3PTR0(p, Ts, w.ROUGHRSST(Ts)), Ts) > y ? 4 : 3;
    return (w.*Property)(w.R3PTR0(p, Ts, w.ROUGHRSWT(Ts)), Ts) < y ? 4 : 3;
}

// From the B23 pressure at 623.15 K up to the critical pressure, likewise: only region 1, only
// region 5, the 1/3 test up to the saturated water at 623.15 K, the 2/5 test, only region 2, the
// B23 test down to the saturated steam at 623.15 K, and between those the wet area or region 3.
struct NearCriticalBand {
    double onlyRegion1, onlyRegion5, saturatedWater, region5Boundary, onlyRegion2, saturatedSteam;
};

template <class Test13, class Test25, class Test32, class TestWet>
int selectNearCritical(const NearCriticalBand& band, double y, Test13 region1Or3, Test25 region2Or5,
                       Test32 region3Or2, TestWet wetOr3) {
    if (y < band.onlyRegion1) return 1;
    if (y > band.onlyRegion5) return 5;
    if (y < band.saturatedWater) return region1Or3();
    if (y > band.region5Boundary) return region2Or5();
    if (y > band.onlyRegion2) return 2;
    if (y > band.saturatedSteam) return region3Or2();
    return wetOr3();
}

// The equations that a (p,h) or (p,s) evaluation reads, y being h or s: the selection, the
// backward functions of regions 1, 2 and 5, the subregion test of region 3 and the subregions'
// backward functions, the refinement on region 3's basic equation, and the saturated values that
// give the dryness fraction.
struct BackwardEquations {
    int (WaterModel::*area)(double p, double y);
    double (WaterModel::*region1)(double p, double y);
    double (WaterModel::*region2)(double p, double y);
    double (WaterModel::*region5)(double p, double y);
    bool (*subregion3a)(WaterModel& w, double p, double y);
    double (WaterModel::*volume3a)(double p, double y);
    double (WaterModel::*volume3b)(double p, double y);
    double (WaterModel::*temperature3a)(double p, double y);
    double (WaterModel::*temperature3b)(double p, double y);
    void (WaterModel::*refine3)(double p, double y, double& rho, double& T);
    double (WaterModel::*saturatedWater)(double Ts);
    double (WaterModel::*saturatedSteam)(double Ts);
};

// The state that a (p,h) or (p,s) pair names. In region 3 it carries the density and the volume
// as the backward equation or the refinement left them; in the wet area (4) T is the saturation
// temperature.
struct State {
    int area;
    double T;
    double rho = 0.0;
    double v = 0.0;
};

// Region 3 from the backward equations of the subregion, refined on the basic equation while
// toleranceMode is on. T is published before and after the refinement, so that a failed search
// leaves the start behind.
template <const BackwardEquations& Input>
State region3State(WaterModel& w, double p, double y) {
    const bool a = Input.subregion3a(w, p, y);
    double v = a ? (w.*Input.volume3a)(p, y) : (w.*Input.volume3b)(p, y);
    double rho = 1.0 / v;
    double T = a ? (w.*Input.temperature3a)(p, y) : (w.*Input.temperature3b)(p, y);
    w.solved.PublishTemperature(T);
    if (w.settings.refining()) {
        (w.*Input.refine3)(p, y, rho, T);
        v = 1.0 / rho;
    }
    w.solved.PublishTemperature(T);
    return {3, T, rho, v};
}

using Region3Solver = State (*)(WaterModel&, double, double);

// Every path of the selections that answers 4 has worked out and published Ts = TSP(p).
inline double saturationTemperatureOfTheSelection(const WaterModel& w) { return w.solved.solvedTemperature; }

template <const BackwardEquations& Input>
State solveState(WaterModel& w, double p, double y, Region3Solver region3 = &region3State<Input>) {
    switch ((w.*Input.area)(p, y)) {
    case 1: return {1, (w.*Input.region1)(p, y)};
    case 2: return {2, (w.*Input.region2)(p, y)};
    case 3: return region3(w, p, y);
    case 4: return {4, saturationTemperatureOfTheSelection(w)};
    case 5: return {5, (w.*Input.region5)(p, y)};
    default: throw kUnknownArea;
    }
}

// The dryness fraction of a wet state, from the saturated values at Ts.
template <const BackwardEquations& Input>
double dryness(WaterModel& w, double y, double Ts) {
    const double water = (w.*Input.saturatedWater)(Ts);
    return (y - water) / ((w.*Input.saturatedSteam)(Ts) - water);
}

// ---- One phase ----

inline double onePhase(WaterModel& w, const RegionEquations& e, double p, const State& s) {
    switch (s.area) {
    case 1: return (w.*e.region1)(p, s.T);
    case 2: return (w.*e.region2)(p, s.T);
    case 3: return (w.*e.region3)(s.rho, s.T);
    default: return (w.*e.region5)(p, s.T);
    }
}

inline double volume(WaterModel& w, double p, const State& s) {
    switch (s.area) {
    case 1: return w.V1PT(p, s.T);
    case 2: return w.V2PT(p, s.T);
    case 3: return s.v;
    default: return w.V5PT(p, s.T);
    }
}

// Region 3 keeps its density as found; elsewhere it is the reciprocal of the region's volume.
inline double density(double v, const State& s) { return s.area == 3 ? s.rho : 1.0 / v; }

// ---- The families' properties ----

// In the wet area, the rule of the mixture at (Ts, x); it refuses, with checks on, what has no
// meaning there. Elsewhere, onePhase(state).
template <const BackwardEquations& Input, class OnePhase>
double evaluate(WaterModel& w, double p, double y, double (WaterModel::*wet)(double T, double x), OnePhase onePhase,
                Region3Solver region3 = &region3State<Input>) {
    const State s = solveState<Input>(w, p, y, region3);
    if (s.area == 4) return (w.*wet)(s.T, dryness<Input>(w, y, s.T));
    return onePhase(s);
}

template <const BackwardEquations& Input>
double temperature(WaterModel& w, double p, double y) {
    return solveState<Input>(w, p, y).T;
}

// A property that has an equation in each region, and its rule in the wet area.
template <const BackwardEquations& Input>
double regionProperty(WaterModel& w, const RegionEquations& e, double p, double y,
                      Region3Solver region3 = &region3State<Input>) {
    return evaluate<Input>(w, p, y, e.wet, [&](const State& s) { return onePhase(w, e, p, s); }, region3);
}

template <const BackwardEquations& Input>
double specificVolume(WaterModel& w, double p, double y) {
    return evaluate<Input>(w, p, y, &WaterModel::VSTX, [&](const State& s) { return volume(w, p, s); });
}

// Along the wet area an isenthalp crosses no isotherm at fixed p: the coefficient is the
// inverse slope of the saturation line, whatever x is.
template <const BackwardEquations& Input>
double jouleThomson(WaterModel& w, double p, double y) {
    const State s = solveState<Input>(w, p, y);
    if (s.area == 4) return 1.0 / w.DPDTST(s.T);
    return onePhase(w, kJouleThomson, p, s);
}

template <const BackwardEquations& Input>
double conductivity(WaterModel& w, double p, double y) {
    return evaluate<Input>(w, p, y, &WaterModel::THERMCONDSTX, [&](const State& s) {
        return w.THERMCONDRT(density(volume(w, p, s), s), s.T);
    });
}

template <const BackwardEquations& Input>
double viscosity(WaterModel& w, double p, double y) {
    return evaluate<Input>(w, p, y, &WaterModel::DYNVISSTX, [&](const State& s) {
        return w.DYNVISRT(density(volume(w, p, s), s), s.T);
    });
}

template <const BackwardEquations& Input>
double kinematicViscosity(WaterModel& w, double p, double y) {
    return evaluate<Input>(w, p, y, &WaterModel::KINVISSTX, [&](const State& s) {
        const double v = volume(w, p, s);
        return w.DYNVISRT(density(v, s), s.T) * v;
    });
}

template <const BackwardEquations& Input>
double prandtl(WaterModel& w, double p, double y) {
    return evaluate<Input>(w, p, y, &WaterModel::PRANDTLESTX, [&](const State& s) {
        const double rho = density(volume(w, p, s), s);
        return onePhase(w, kIsobaricHeatCapacity, p, s) * w.DYNVISRT(rho, s.T) / w.THERMCONDRT(rho, s.T);
    });
}

// The exponent of the isentrope p v^K = constant, taken locally: w^2 / (p v), not cp/cv.
template <const BackwardEquations& Input>
double isentropicExponent(WaterModel& w, double p, double y) {
    return evaluate<Input>(w, p, y, &WaterModel::KSTX, [&](const State& s) {
        const double speed = onePhase(w, kSpeedOfSound, p, s);
        return speed * speed / (volume(w, p, s) * p);
    });
}

// Only a wet state has a dryness fraction: anything else is out of range, with or without
// checks.
template <const BackwardEquations& Input>
double drynessFraction(WaterModel& w, double p, double y) {
    if ((w.*Input.area)(p, y) != 4) throw kOutOfRange;
    return dryness<Input>(w, y, saturationTemperatureOfTheSelection(w));
}

}  // namespace tvl::backward

#endif
