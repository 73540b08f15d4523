// Derivatives of the density for simulations in pressure and enthalpy: (d rho/dp) at constant h
// and (d rho/dh) at constant p. Regions 1, 2 and 5 have them in closed form from their Gibbs
// sums (region1.cpp, region2.cpp, region5.cpp), the wet area has a rule of its own, and region 3
// has none: there the state is found first, then the call ends in kNotImplemented.
#include "frame/error_codes.h"
#include "water/formulation/constants.h"
#include "water/formulation/water_model.h"

namespace tvl {

namespace {

// The two derivatives side by side, so that each dispatcher is written once.
struct DerivativeForms {
    double (WaterModel::*region1)(double p, double T);
    double (WaterModel::*region2)(double p, double T);
    double (WaterModel::*region5)(double p, double T);
    double (WaterModel::*wet)(double T, double x);
};

constexpr DerivativeForms kByPressure = {&WaterModel::DDDPH1, &WaterModel::DDDPH2, &WaterModel::DDDPH5,
                                         &WaterModel::DDDPHTX};
constexpr DerivativeForms kByEnthalpy = {&WaterModel::DDDHP1, &WaterModel::DDDHP2, &WaterModel::DDDHP5,
                                         &WaterModel::DDDHPTX};

double byPressureTemperature(WaterModel& w, const DerivativeForms& f, double p, double T) {
    switch (w.REGIONPT(p, T)) {
    case 1: return (w.*f.region1)(p, T);
    case 2: return (w.*f.region2)(p, T);
    case 3: return w.DDDPH3(p, T);
    case 5: return (w.*f.region5)(p, T);
    default: throw kUnknownArea;
    }
}

double byStateArea(WaterModel& w, const DerivativeForms& f, double p, double T, double x) {
    switch (w.WATERSTATEAREA(p, T)) {
    case 1: return (w.*f.region1)(p, T);
    case 2: return (w.*f.region2)(p, T);
    case 3: return w.DDDPH3(p, T);
    case 4: return (w.*f.wet)(T, x);
    case 5: return (w.*f.region5)(p, T);
    default: throw kUnknownArea;
    }
}

// By (p,h): the region's own temperature search, then the form at (p, T); in region 3 the
// state is searched as for any (p,h) property before the refusal.
double byPressureEnthalpy(WaterModel& w, const DerivativeForms& f, double p, double h) {
    switch (w.REGIONPH(p, h)) {
    case 1: return (w.*f.region1)(p, w.T1PH(p, h));
    case 2: return (w.*f.region2)(p, w.T2PH(p, h));
    case 3: w.T3PH(p, h); throw kNotImplemented;
    case 4: {
        const double T = w.TSP(p);
        const double hWater = w.HSWT(T);
        return (w.*f.wet)(T, (h - hWater) / (w.HSST(T) - hWater));
    }
    case 5: return (w.*f.region5)(p, w.T5PH(p, h));
    default: throw kUnknownArea;
    }
}

// On the saturation line: the phase's region at (ps, T) up to 623.15 K; above it the density is
// found in region 3, whatever toleranceMode says, before the refusal.
double saturated(WaterModel& w, double (WaterModel::*form)(double, double), double (WaterModel::*roughDensity)(double) const,
                 double T) {
    const double ps = w.PST(T);
    // Written so that a NaN takes the region form, whose NaN the frame reports as code 1.
    if (!(T > kRegion13Temperature)) return (w.*form)(ps, T);
    w.R3PTR0(ps, T, (w.*roughDensity)(T));
    throw kNotImplemented;
}

}  // namespace

// Region 3 has no form: with toleranceMode on the density is searched first, so that a search
// that fails shows as code 3.
double WaterModel::DDDPH3(double p, double T) {
    if (settings.refining()) R3PT(p, T);
    throw kNotImplemented;
}

// The wet rule at (T, x), for the mixture of density 1/v with v = (1 - x) v' + x v''.
namespace {

struct WetMixture {
    double rhoWater;
    double rhoSteam;
    double rho;
    double byEnthalpy;  // (d rho/dh) at constant p
};

WetMixture wetMixture(WaterModel& w, double T, double x) {
    WetMixture m;
    m.rhoWater = w.DSWT(T);
    m.rhoSteam = w.DSST(T);
    m.rho = m.rhoWater * m.rhoSteam / ((1.0 - x) * m.rhoSteam + x * m.rhoWater);
    m.byEnthalpy = -(m.rhoWater - m.rhoSteam) * m.rho * m.rho / ((w.HSST(T) - w.HSWT(T)) * m.rhoSteam * m.rhoWater);
    return m;
}

}  // namespace

double WaterModel::DDDHPTX(double T, double x) { return wetMixture(*this, T, x).byEnthalpy; }

double WaterModel::DDDPHTX(double T, double x) {
    const WetMixture m = wetMixture(*this, T, x);
    return -((x * CVDPSST(T) + (1.0 - x) * CVDPSWT(T)) / DPDTST(T) + 1.0 / m.rho) * m.byEnthalpy;
}

double WaterModel::DDDPHPT(double p, double T) { return byPressureTemperature(*this, kByPressure, p, T); }
double WaterModel::DDDHPPT(double p, double T) { return byPressureTemperature(*this, kByEnthalpy, p, T); }
double WaterModel::DDDPHPTX(double p, double T, double x) { return byStateArea(*this, kByPressure, p, T, x); }
double WaterModel::DDDHPPTX(double p, double T, double x) { return byStateArea(*this, kByEnthalpy, p, T, x); }
double WaterModel::DDDPHPH(double p, double h) { return byPressureEnthalpy(*this, kByPressure, p, h); }
double WaterModel::DDDHPPH(double p, double h) { return byPressureEnthalpy(*this, kByEnthalpy, p, h); }
double WaterModel::DDDPHSWT(double T) { return saturated(*this, &WaterModel::DDDPH1, &WaterModel::ROUGHRSWT, T); }
double WaterModel::DDDHPSWT(double T) { return saturated(*this, &WaterModel::DDDHP1, &WaterModel::ROUGHRSWT, T); }
double WaterModel::DDDPHSST(double T) { return saturated(*this, &WaterModel::DDDPH2, &WaterModel::ROUGHRSST, T); }
double WaterModel::DDDHPSST(double T) { return saturated(*this, &WaterModel::DDDHP2, &WaterModel::ROUGHRSST, T); }

}  // namespace tvl
