// Dispatch on (p,T): which region holds a point, and a property evaluated there. Two different
// selections live here and are kept different: the property family's, with the margin on the
// temperature side and no two-phase answer, and the state area's, which recognises the
// saturation line and puts the margin on the B23 pressure.
#include <cmath>

#include "frame/error_codes.h"
#include "water/dispatch/region_equations.h"
#include "water/formulation/constants.h"
#include "water/formulation/water_model.h"

namespace tvl {

namespace {

// A point by the property family's selection: its region and, in region 3, the density that the
// search found there. Every property of the point is read from these two, so that a property
// built of several (Prandtl's number) selects and searches once.
struct PointPT {
    int region;
    double rho;  // region 3 only
};

PointPT selectPT(WaterModel& w, double p, double T) {
    switch (const int region = w.REGIONPT(p, T)) {
    case 1:
    case 2:
    case 5: return {region, 0.0};
    case 3: return {3, w.R3PT(p, T)};
    default: throw kUnknownArea;
    }
}

template <class Result>
Result onePhase(WaterModel& w, const RegionTable<Result>& e, double p, double T, const PointPT& at) {
    switch (at.region) {
    case 1: return (w.*e.region1)(p, T);
    case 2: return (w.*e.region2)(p, T);
    case 3: return (w.*e.region3)(at.rho, T);
    default: return (w.*e.region5)(p, T);
    }
}

// In region 3 volume and density come from the density found, not from an equation.
constexpr RegionEquations kVolume = {&WaterModel::V1PT, &WaterModel::V2PT, nullptr, &WaterModel::V5PT};
constexpr RegionEquations kDensity = {&WaterModel::D1PT, &WaterModel::D2PT, nullptr, &WaterModel::D5PT};

double volume(WaterModel& w, double p, double T, const PointPT& at) {
    return at.region == 3 ? 1.0 / at.rho : onePhase(w, kVolume, p, T, at);
}

double density(WaterModel& w, double p, double T, const PointPT& at) {
    return at.region == 3 ? at.rho : onePhase(w, kDensity, p, T, at);
}

template <class Result>
Result propertyPT(WaterModel& w, const RegionTable<Result>& e, double p, double T) {
    return onePhase(w, e, p, T, selectPT(w, p, T));
}

}  // namespace

// The margin favours steam: a point a relative tolerance below the saturation or the B23
// temperature is region 2, and one up to a tolerance above 1073.15 K stays out of region 5.
int WaterModel::REGIONPT(double p, double T) const {
    const double m = settings.margin();
    if (T > m * kRegion25Temperature) return 5;
    if (T >= kB23UpperTemperature) return 2;
    if (p <= kP623) {
        if (p < kIcePointSaturationPressure) return 2;
        return atOrAboveSaturationTemperature(p, m * T) ? 2 : 1;
    }
    if (T <= kRegion13Temperature) return 1;
    return T23P(p) > m * T ? 3 : 2;
}

int WaterModel::WATERSTATEAREA(double p, double T) const {
    if (T > kRegion25Temperature) return 5;
    if (T >= kB23UpperTemperature || p < kIcePointSaturationPressure) return 2;
    if (p <= kCriticalPressure) {
        const double Ts = TSP(p);
        if (settings.tolerance > std::fabs(Ts - T) / T) return 4;
        if (p <= kP623) return Ts > T ? 1 : 2;
    }
    if (T <= kRegion13Temperature) return 1;
    return p > P23T(T) * settings.margin() ? 3 : 2;
}

int WaterModel::WATERSTATEAREA2(double p, double T) const { return REGIONPT(p, T); }

// Reads the saturation pressure, not the saturation temperature, and has no margin: a point
// exactly on the line is vapour.
int WaterModel::PHASESTATEPT(double p, double T) const {
    if (p > kCriticalPressure || T > kCriticalTemperature) return 3;
    if (p < 0.0 || T < kLowestTemperature) throw kOutOfRange;
    return p > PST(T) ? 1 : 2;
}

// u, s, h, cp, cv, w and the Joule-Thomson coefficient: propertyPT with the property's table.
#include "water/dispatch/generated/pt_dispatch.inc"

double WaterModel::VPT(double p, double T) { return volume(*this, p, T, selectPT(*this, p, T)); }
double WaterModel::DPT(double p, double T) { return density(*this, p, T, selectPT(*this, p, T)); }
StateProperties WaterModel::VUSHCVWDERPTPT(double p, double T) { return propertyPT(*this, kStateProperties, p, T); }

// Transport and derived properties by (p,T): the density is the reciprocal of the volume.
double WaterModel::THERMCONDPT(double p, double T) {
    return THERMCONDRT(1.0 / volume(*this, p, T, selectPT(*this, p, T)), T);
}

double WaterModel::DYNVISPT(double p, double T) {
    return DYNVISRT(1.0 / volume(*this, p, T, selectPT(*this, p, T)), T);
}

double WaterModel::PRANDTLEPT(double p, double T) {
    const PointPT at = selectPT(*this, p, T);
    const double v = volume(*this, p, T, at);
    return onePhase(*this, kIsobaricHeatCapacity, p, T, at) * DYNVISRT(1.0 / v, T) / THERMCONDRT(1.0 / v, T);
}

double WaterModel::KINVISPT(double p, double T) {
    const double v = volume(*this, p, T, selectPT(*this, p, T));
    return DYNVISRT(1.0 / v, T) * v;
}

// The exponent of the isentrope p v^K = constant, taken locally: w^2 / (p v), not cp/cv.
double WaterModel::KPT(double p, double T) {
    const PointPT at = selectPT(*this, p, T);
    const double w = onePhase(*this, kSpeedOfSound, p, T, at);
    return w * w / (volume(*this, p, T, at) * p);
}

double WaterModel::DCPT(double p, double T) { return DCRT(DPT(p, T), T); }

double WaterModel::PKWPT(double p, double T) { return PKWRT(DPT(p, T), T); }

double WaterModel::RIPTL(double p, double T, double wavelength) { return RIRTL(DPT(p, T), T, wavelength); }

}  // namespace tvl
