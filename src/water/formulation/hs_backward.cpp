// The wet state from enthalpy and entropy: the saturation temperature Tsat(h,s) of the release
// where it holds, right of the saturated-steam entropy at 623.15 K, and a bisection along the
// saturation line everywhere else and to refine the equation. The line's own saturated values
// decide: the mixture at the midpoint's x (from s) is compared with h.
#include <cmath>

#include "frame/error_codes.h"
#include "water/dispatch/two_phase_rules.h"
#include "water/formulation/constants.h"
#include "water/formulation/polynomial.h"
#include "water/formulation/tables/saturation_coefficients.h"
#include "water/formulation/water_model.h"

namespace tvl {

namespace {

// The equation serves right of the entropy of saturated steam at 623.15 K, from the triple point
// temperature up, not from the 273.15 K of the rest of the library.
constexpr double kTsatHSLowestEntropy = 5210.88782493073;
constexpr double kTsatHSLowestTemperature = 273.16;
// The equation is good to some millikelvin: the refinement searches a kelvin around it.
constexpr double kRefinementHalfWidth = 0.5;

}  // namespace

double WaterModel::T4HSEquation(double h, double s) {
    return kTsatHSForm.result * evaluateReducedSum<kTsatHS, kTsatHSForm>(xPowers, yPowers, h, s);
}

// The stop limit is a plain product with h, fixed once: a non-positive h leaves the loop to the
// cap or to the ends of the line. At those ends the saturated functions are not called.
double WaterModel::BisectSaturationHS(double h, double s, double lower, double upper, double& T, double& x) {
    const double limit = h * settings.tolerance;
    int count = 0;
    for (;;) {
        ++count;
        const double middle = 0.5 * lower + 0.5 * upper;
        T = middle;
        if (middle == kCriticalTemperature || middle == kLowestTemperature) break;
        // Each phase located and evaluated once for its s and h.
        const EntropyEnthalpy water = waterEntropyEnthalpy(middle);
        const EntropyEnthalpy steam = steamEntropyEnthalpy(middle);
        x = two_phase::fraction(water.s, steam.s, s);
        if (x < 0.0) x = 0.0;
        if (x > 1.0) x = 1.0;
        const double hm = two_phase::mix(water.h, steam.h, x);
        if (h > hm) lower = middle;
        else upper = middle;
        if (count > settings.maxIterations) break;
        if (!(std::fabs(hm - h) > limit)) break;
    }
    // An exhausted search whose bracket is narrow enough counts as success.
    if (count >= settings.maxIterations && std::fabs(upper - lower) > settings.tolerance * T) throw kRootNotFound;
    return 1.0;
}

// A non-finite h or s would stop the bisection at its first midpoint and pass for a state of the
// line: it is refused before.
double WaterModel::TXSHS(double h, double s, double& T, double& x) {
    if (!std::isfinite(h) || !std::isfinite(s)) throw kBadParameters;
    // The bisection runs here in any toleranceMode: there is no equation to fall back on.
    if (s <= kTsatHSLowestEntropy) return BisectSaturationHS(h, s, kLowestTemperature, kCriticalTemperature, T, x);
    T = T4HSEquation(h, s);
    if (T < kTsatHSLowestTemperature) T = kTsatHSLowestTemperature;
    // The bracket is not tested: a root outside it ends at its nearest edge.
    if (settings.refining()) BisectSaturationHS(h, s, T - kRefinementHalfWidth, T + kRefinementHalfWidth, T, x);
    x = two_phase::fraction(SSWT(T), SSST(T), s);
    return 1.0;
}

// The pressure is published for the frame's test of the state only while checks are on.
double WaterModel::TSHS(double h, double s, double& x) {
    double T;
    TXSHS(h, s, T, x);
    solved.PublishTemperature(T);
    if (settings.checksOn()) solved.PublishPressure(PST(T));
    return T;
}

}  // namespace tvl
