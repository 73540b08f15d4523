// The curves between regions and between the subregions of the backward equations: B23 both
// ways, the 2b/2c line, h2ab(s), hB13(s), TB23(h,s), the library's own pB23(h,s), and the
// saturation curves in (h,s). Raw equations: they test nothing and extrapolate outside.
#include <cmath>

#include "water/formulation/polynomial.h"
#include "water/formulation/tables/boundary_coefficients.h"
#include "water/formulation/tables/library_fits.h"
#include "water/formulation/tables/region2_coefficients.h"
#include "water/formulation/water_model.h"

namespace tvl {

double WaterModel::P23T(double T) const {
    return (kB23[0] + T * kB23[1] + T * kB23[2] * T) * 1e6;
}

double WaterModel::T23P(double p) const {
    return std::sqrt((p / 1e6 - kB23[4]) / kB23[2]) + kB23[3];
}

double WaterModel::P2B2CH(double h) const {
    const double e = h / 1000.0;
    return (kB2BC[0] + e * kB2BC[1] + e * kB2BC[2] * e) * 1e6;
}

double WaterModel::H2B2CP(double p) const {
    return (std::sqrt((p / 1e6 - kB2BC[4]) / kB2BC[2]) + kB2BC[3]) * 1000.0;
}

double WaterModel::H2AB(double s) const {
    const double e = s / 1000.0;
    return (((kH2AB[3] * e + kH2AB[2]) * e + kH2AB[1]) * e + kH2AB[0]) * 1000.0;
}

double WaterModel::HB13S(double s) {
    return kHB13SForm.result * evaluateReducedSum<kHB13S, kHB13SForm>(xPowers, yPowers, s, s);
}

double WaterModel::TB23HS(double h, double s) {
    return kTB23HSForm.result * evaluateReducedSum<kTB23HS, kTB23HSForm>(xPowers, yPowers, h, s);
}

// pB23(h,s): no release behind it; the library's partner of TB23(h,s) in the (h,s) region test.
double WaterModel::PB23HS(double h, double s) {
    return kPB23HSPressure * evaluatePowerSum<kPB23HS>(xPowers, yPowers, h / kPB23HSEnthalpy - kPB23HSEnthalpyShift,
                                                       s / kPB23HSEntropy - kPB23HSEntropyShift);
}

// One saturated-liquid curve serves every entropy up to the critical one: the region 3
// equation h3a'(s).
double WaterModel::ROUGHHSWS(double s) {
    return kH3aLiquidSForm.result * evaluateReducedSum<kH3aLiquidS, kH3aLiquidSForm>(xPowers, yPowers, s, s);
}

// One saturated-vapour curve serves every entropy above the critical one: h2ab''(s).
double WaterModel::ROUGHHSSS(double s) {
    const double x = kH2abVapourSForm.x.scale / s + kH2abVapourSForm.x.shift;
    return kH2abVapourSForm.result *
           std::exp(evaluatePowerSum<kH2abVapourS>(xPowers, yPowers, x, reduce(s, kH2abVapourSForm.y)));
}

}  // namespace tvl
