// The end state of an adiabatic expansion with an internal efficiency, as in a turbine stage:
// the isentropic end enthalpy by (p2, s1), the real one by the efficiency, and a property of
// the state (p2, h2) by the (p,h) dispatch. Neither the efficiency nor p2 against p is tested:
// an efficiency of 0 is a throttling, one above 1 or a p2 above p is put into the formula.
#include "water/formulation/water_model.h"

namespace tvl {

namespace {

// h2 = h1 - (h1 - h2s) eff, with h2s at the end pressure and the entropy of the start.
double endEnthalpy(WaterModel& w, double h1, double s1, double p2, double eff) {
    const double isentropic = w.HPS(p2, s1);
    return h1 - (h1 - isentropic) * eff;
}

}  // namespace

double WaterModel::HEXPANSIONPTPEFF(double p, double T, double p2, double eff) {
    const double h1 = HPT(p, T);
    const double s1 = SPT(p, T);
    return endEnthalpy(*this, h1, s1, p2, eff);
}

double WaterModel::TEXPANSIONPTPEFF(double p, double T, double p2, double eff) {
    return TPH(p2, HEXPANSIONPTPEFF(p, T, p2, eff));
}

double WaterModel::VEXPANSIONPTPEFF(double p, double T, double p2, double eff) {
    return VPH(p2, HEXPANSIONPTPEFF(p, T, p2, eff));
}

double WaterModel::UEXPANSIONPTPEFF(double p, double T, double p2, double eff) {
    return UPH(p2, HEXPANSIONPTPEFF(p, T, p2, eff));
}

double WaterModel::SEXPANSIONPTPEFF(double p, double T, double p2, double eff) {
    return SPH(p2, HEXPANSIONPTPEFF(p, T, p2, eff));
}

double WaterModel::CPEXPANSIONPTPEFF(double p, double T, double p2, double eff) {
    return CPPH(p2, HEXPANSIONPTPEFF(p, T, p2, eff));
}

double WaterModel::CVEXPANSIONPTPEFF(double p, double T, double p2, double eff) {
    return CVPH(p2, HEXPANSIONPTPEFF(p, T, p2, eff));
}

double WaterModel::WEXPANSIONPTPEFF(double p, double T, double p2, double eff) {
    return WPH(p2, HEXPANSIONPTPEFF(p, T, p2, eff));
}

double WaterModel::THERMCONDEXPANSIONPTPEFF(double p, double T, double p2, double eff) {
    return THERMCONDPH(p2, HEXPANSIONPTPEFF(p, T, p2, eff));
}

double WaterModel::KINVISEXPANSIONPTPEFF(double p, double T, double p2, double eff) {
    return KINVISPH(p2, HEXPANSIONPTPEFF(p, T, p2, eff));
}

double WaterModel::DYNVISEXPANSIONPTPEFF(double p, double T, double p2, double eff) {
    return DYNVISPH(p2, HEXPANSIONPTPEFF(p, T, p2, eff));
}

double WaterModel::PRANDTLEEXPANSIONPTPEFF(double p, double T, double p2, double eff) {
    return PRANDTLEPH(p2, HEXPANSIONPTPEFF(p, T, p2, eff));
}

double WaterModel::KEXPANSIONPTPEFF(double p, double T, double p2, double eff) {
    return KPH(p2, HEXPANSIONPTPEFF(p, T, p2, eff));
}

double WaterModel::JOULETHOMPSONEXPANSIONPTPEFF(double p, double T, double p2, double eff) {
    return JOULETHOMPSONPH(p2, HEXPANSIONPTPEFF(p, T, p2, eff));
}

// Only an end state in the wet area has a dryness fraction.
double WaterModel::XEXPANSIONPTPEFF(double p, double T, double p2, double eff) {
    return XPH(p2, HEXPANSIONPTPEFF(p, T, p2, eff));
}

// ---- From a start state by (p, T, x): x counts only on the saturation line ----

double WaterModel::HEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff) {
    const double h1 = HPTX(p, T, x);
    const double s1 = SPTX(p, T, x);
    return endEnthalpy(*this, h1, s1, p2, eff);
}

double WaterModel::TEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff) {
    return TPH(p2, HEXPANSIONPTXPEFF(p, T, x, p2, eff));
}

double WaterModel::VEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff) {
    return VPH(p2, HEXPANSIONPTXPEFF(p, T, x, p2, eff));
}

double WaterModel::UEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff) {
    return UPH(p2, HEXPANSIONPTXPEFF(p, T, x, p2, eff));
}

double WaterModel::SEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff) {
    return SPH(p2, HEXPANSIONPTXPEFF(p, T, x, p2, eff));
}

double WaterModel::CPEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff) {
    return CPPH(p2, HEXPANSIONPTXPEFF(p, T, x, p2, eff));
}

double WaterModel::CVEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff) {
    return CVPH(p2, HEXPANSIONPTXPEFF(p, T, x, p2, eff));
}

double WaterModel::WEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff) {
    return WPH(p2, HEXPANSIONPTXPEFF(p, T, x, p2, eff));
}

double WaterModel::THERMCONDEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff) {
    return THERMCONDPH(p2, HEXPANSIONPTXPEFF(p, T, x, p2, eff));
}

double WaterModel::KINVISEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff) {
    return KINVISPH(p2, HEXPANSIONPTXPEFF(p, T, x, p2, eff));
}

double WaterModel::DYNVISEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff) {
    return DYNVISPH(p2, HEXPANSIONPTXPEFF(p, T, x, p2, eff));
}

double WaterModel::PRANDTLEEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff) {
    return PRANDTLEPH(p2, HEXPANSIONPTXPEFF(p, T, x, p2, eff));
}

double WaterModel::KEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff) {
    return KPH(p2, HEXPANSIONPTXPEFF(p, T, x, p2, eff));
}

double WaterModel::JOULETHOMPSONEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff) {
    return JOULETHOMPSONPH(p2, HEXPANSIONPTXPEFF(p, T, x, p2, eff));
}

double WaterModel::XEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff) {
    return XPH(p2, HEXPANSIONPTXPEFF(p, T, x, p2, eff));
}

}  // namespace tvl
