// The (p,T) range of the formulation, on arguments and on the state point a search reached, the
// (p,s) range of arguments, and the area of metastable vapour.
#include "frame/validators.h"

#include "frame/property_facade.h"
#include "water/formulation/pressure_buckets.h"

namespace tvl {

namespace {

// 273.15 K to 2273.15 K and up to 100 MPa, 50 MPa above 1073.15 K; below the freezing point
// the melting curve of ice Ih bounds the pressure from below, and nothing bounds it above.
void validatePressureTemperature(const WaterModel& water, const PressureTemperatureLimits& limits, double p,
                                 double T) {
    if (T < limits.lowestTemperature) {
        if (T < limits.lowestMeltingTemperature) throw kOutOfRange;
        // Two roundings, left to right: folding kOneMinusEps * 0.999 into one constant moves
        // the limit by a rounding unit at about a quarter of the temperatures. Times 1.0 is exact.
        if (water.PMELTIT(T) * kOneMinusEps * limits.meltingFurtherWidening > p) throw kOutOfRange;
        return;
    }
    if (T > limits.highestTemperature || p < 0.0 || p > limits.highestPressure) throw kOutOfRange;
    if (T > limits.region5Temperature && p > limits.region5Pressure) throw kOutOfRange;
}

}  // namespace

void PropertyFacade::ValidatePT(double p, double T) { validatePressureTemperature(water, kArgumentLimits, p, T); }

void PropertyFacade::ValidatePTResult(double p, double T) {
    validatePressureTemperature(water, kSolvedStateLimits, p, T);
}

// The entropies of the isobar from the ice point to the top of the formulation: region 2 at
// 1073.15 K above 50 MPa, region 5 at 2273.15 K below. The pressure split is the plain value.
//
// Both tests are answered ahead where the answer is sure, without changing it. S1PT(p, 273.15 K)
// peaks at 0.4752 J/(kg K) near 19 MPa (water is densest near 4 C, so its entropy first rises
// with pressure), well below the ceiling; an entropy above the ceiling passes the lower test.
// The highest entropy falls with pressure, by a step down at 50 MPa too, so its bounds per
// pressure bucket decide the upper test for all but the entropies close to it.
namespace {

constexpr double kIcePointEntropyCeiling = 1.0;  // J/(kg K)

double highestEntropy(WaterModel& water, double p) {
    return p > kRegion5HighestPressure ? water.S2PT(p, kRegion25Temperature) : water.S5PT(p, kHighestTemperature);
}

}  // namespace

void requirePressureEntropy(WaterModel& water, double m, double p, double s) {
    if (p < 0.0 || p > kArgumentLimits.highestPressure) throw kOutOfRange;
    static const PressureBuckets highestBounds(kIcePointSaturationPressure, kArgumentLimits.highestPressure, 1e-5,
                                               [&water](double q) { return highestEntropy(water, q); });
    const double widened = s > 0.0 ? s * m : s / m;
    if (!(widened > kIcePointEntropyCeiling) && water.S1PT(p, kLowestTemperature) > widened) throw kOutOfRange;
    const int side = highestBounds.sideOfScaled(p, m, s);
    if (side > 0 || (side == 0 && s > highestEntropy(water, p) * m)) throw kOutOfRange;
}

void PropertyFacade::ValidatePS(double p, double s) { requirePressureEntropy(water, settings.margin(), p, s); }

// Metastable vapour lies below the saturation temperature, by at most the tolerance above it, and
// down to 5 per cent equilibrium moisture, judged with the saturated enthalpies at the widened
// temperature. The pressure tests are written so that a NaN fails.
void PropertyFacade::ValidateMetastablePT(double p, double T) {
    if (!(p >= 0.0) || !(p <= kMetastableHighestPressure)) throw kOutOfRange;
    const double m = settings.margin();
    const double widenedTemperature = water.TSP(p) * m;
    if (T > widenedTemperature) throw kOutOfRange;
    const double hWater = water.HSWT(widenedTemperature);
    const double x = (water.HMSPT(p, T) - hWater) / (water.HSST(widenedTemperature) - hWater);
    if (kMetastableLeastDryness * m > x) throw kOutOfRange;
}

}  // namespace tvl
