// Dispatch on (p,T): which region holds a point, and a property evaluated there. Two different
// selections live here and are kept different: the property family's, with the margin on the
// temperature side and no two-phase answer, and the state area's, which recognises the
// saturation line and puts the margin on the B23 pressure.
#include <cmath>

#include "frame/error_codes.h"
#include "water/formulation/constants.h"
#include "water/formulation/water_model.h"

namespace tvl {

// The margin favours steam: a point a relative tolerance below the saturation or the B23
// temperature is region 2, and one up to a tolerance above 1073.15 K stays out of region 5.
int WaterModel::REGIONPT(double p, double T) const {
    const double m = settings.margin();
    if (T > m * kRegion25Temperature) return 5;
    if (T >= kB23UpperTemperature) return 2;
    if (p <= kP623) {
        if (p < kLowestSaturationPressure) return 2;
        return atOrAboveSaturationTemperature(p, m * T) ? 2 : 1;
    }
    if (T <= kRegion13Temperature) return 1;
    return T23P(p) > m * T ? 3 : 2;
}

int WaterModel::WATERSTATEAREA(double p, double T) const {
    if (T > kRegion25Temperature) return 5;
    if (T >= kB23UpperTemperature || p < kLowestSaturationPressure) return 2;
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

double WaterModel::VPT(double p, double T) {
    switch (REGIONPT(p, T)) {
    case 1: return V1PT(p, T);
    case 2: return V2PT(p, T);
    case 3: return 1.0 / R3PT(p, T);
    case 5: return V5PT(p, T);
    default: throw kUnknownArea;
    }
}

double WaterModel::DPT(double p, double T) {
    switch (REGIONPT(p, T)) {
    case 1: return D1PT(p, T);
    case 2: return D2PT(p, T);
    case 3: return R3PT(p, T);
    case 5: return D5PT(p, T);
    default: throw kUnknownArea;
    }
}

double WaterModel::UPT(double p, double T) {
    switch (REGIONPT(p, T)) {
    case 1: return U1PT(p, T);
    case 2: return U2PT(p, T);
    case 3: return U3RT(R3PT(p, T), T);
    case 5: return U5PT(p, T);
    default: throw kUnknownArea;
    }
}

double WaterModel::SPT(double p, double T) {
    switch (REGIONPT(p, T)) {
    case 1: return S1PT(p, T);
    case 2: return S2PT(p, T);
    case 3: return S3RT(R3PT(p, T), T);
    case 5: return S5PT(p, T);
    default: throw kUnknownArea;
    }
}

double WaterModel::HPT(double p, double T) {
    switch (REGIONPT(p, T)) {
    case 1: return H1PT(p, T);
    case 2: return H2PT(p, T);
    case 3: return H3RT(R3PT(p, T), T);
    case 5: return H5PT(p, T);
    default: throw kUnknownArea;
    }
}

double WaterModel::CPPT(double p, double T) {
    switch (REGIONPT(p, T)) {
    case 1: return CP1PT(p, T);
    case 2: return CP2PT(p, T);
    case 3: return CP3RT(R3PT(p, T), T);
    case 5: return CP5PT(p, T);
    default: throw kUnknownArea;
    }
}

double WaterModel::CVPT(double p, double T) {
    switch (REGIONPT(p, T)) {
    case 1: return CV1PT(p, T);
    case 2: return CV2PT(p, T);
    case 3: return CV3RT(R3PT(p, T), T);
    case 5: return CV5PT(p, T);
    default: throw kUnknownArea;
    }
}

double WaterModel::WPT(double p, double T) {
    switch (REGIONPT(p, T)) {
    case 1: return W1PT(p, T);
    case 2: return W2PT(p, T);
    case 3: return W3RT(R3PT(p, T), T);
    case 5: return W5PT(p, T);
    default: throw kUnknownArea;
    }
}

double WaterModel::JOULETHOMPSONPT(double p, double T) {
    switch (REGIONPT(p, T)) {
    case 1: return JOULETHOMPSON1PT(p, T);
    case 2: return JOULETHOMPSON2PT(p, T);
    case 3: return JOULETHOMPSON3RT(R3PT(p, T), T);
    case 5: return JOULETHOMPSON5PT(p, T);
    default: throw kUnknownArea;
    }
}

StateProperties WaterModel::VUSHCVWDERPTPT(double p, double T) {
    switch (REGIONPT(p, T)) {
    case 1: return VUSHCVWDERPT1PT(p, T);
    case 2: return VUSHCVWDERPT2PT(p, T);
    case 3: return VUSHCVWDERPT3RT(R3PT(p, T), T);
    case 5: return VUSHCVWDERPT5PT(p, T);
    default: throw kUnknownArea;
    }
}

// Transport and derived properties by (p,T): the density by the dispatcher, worked out for each
// factor on its own.
double WaterModel::THERMCONDPT(double p, double T) { return THERMCONDRT(1.0 / VPT(p, T), T); }

double WaterModel::DYNVISPT(double p, double T) { return DYNVISRT(1.0 / VPT(p, T), T); }

double WaterModel::PRANDTLEPT(double p, double T) { return CPPT(p, T) * DYNVISPT(p, T) / THERMCONDPT(p, T); }

double WaterModel::KINVISPT(double p, double T) { return DYNVISPT(p, T) * VPT(p, T); }

// The exponent of the isentrope p v^K = constant, taken locally: w^2 / (p v), not cp/cv.
double WaterModel::KPT(double p, double T) {
    const double w = WPT(p, T);
    return w * w / (VPT(p, T) * p);
}

double WaterModel::DCPT(double p, double T) { return DCRT(DPT(p, T), T); }

double WaterModel::PKWPT(double p, double T) { return PKWRT(DPT(p, T), T); }

double WaterModel::RIPTL(double p, double T, double wavelength) { return RIRTL(DPT(p, T), T, wavelength); }

}  // namespace tvl
