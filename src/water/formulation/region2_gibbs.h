// The Gibbs free energy of region 2, gamma0 + gammar, shared by the forward functions and the
// searches of region2.cpp and region2_backward.cpp.
#ifndef TAVLIB6_REGION2_GIBBS_H
#define TAVLIB6_REGION2_GIBBS_H

#include <cmath>

#include "water/formulation/constants.h"
#include "water/formulation/gibbs_terms.h"
#include "water/formulation/polynomial.h"
#include "water/formulation/tables/region2_coefficients.h"
#include "water/formulation/water_model.h"

namespace tvl::region2 {

constexpr double kPressure = 1e6;       // reducing pressure, Pa
constexpr double kTemperature = 540.0;  // reducing temperature, K
constexpr double kRT = 249224.04;       // R times 540, J/kg
constexpr double kTauShift = 0.5;       // the residual part runs in y = tau - 0.5

// The range into which the searches clamp their temperatures, and the pressure below which the
// (h,s) search does not go, so that ln pi stays defined.
constexpr double kLowestTemperature = tvl::kLowestTemperature;
constexpr double kHighestTemperature = kRegion25Temperature;
constexpr double kSmallestPressure = 2.220446049250313e-16;

inline constexpr auto kResidual = withProducts(kRegion2Residual);
inline constexpr auto kIdeal = withProducts(kRegion2Ideal);
constexpr int kReachPi = reachOfI(kRegion2Residual, 2);
constexpr int kReachY = reachOfJ(kRegion2Residual, 2);
constexpr int kReachTau = reachOfIdeal(kRegion2Ideal);

inline double clampTemperature(double T) {
    if (T < kLowestTemperature) return kLowestTemperature;
    if (T > kHighestTemperature) return kHighestTemperature;
    return T;
}

// The sums at tau with the powers of pi already in x. y first holds the powers of tau - 0.5 for
// the residual part and is then refilled with the powers of tau itself for the ideal part.
// logPi is read only where gamma itself is wanted.
template <unsigned Wanted>
GibbsSums sumsAt(const PowerTable& x, PowerTable& y, double pi, double tau, double logPi) {
    y.fill(tau - kTauShift, kReachY);
    const GibbsSums residual = residualSums<Wanted>(kResidual, x, y);
    y.fill(tau, kReachTau);
    const GibbsSums ideal = idealSums<Wanted>(kIdeal, y);
    return combinedSums<Wanted>(pi, ideal, residual, logPi);
}

// A whole evaluation at (p, T): both tables filled, the wanted sums formed.
template <unsigned Wanted>
GibbsPoint pointAt(PowerTable& x, PowerTable& y, double p, double T) {
    const double pi = p / kPressure;
    const double tau = kTemperature / T;
    x.fill(pi, kReachPi);
    double logPi = 0.0;
    if constexpr ((Wanted & kGamma) != 0) logPi = std::log(pi);
    return {pi, tau, sumsAt<Wanted>(x, y, pi, tau, logPi)};
}

}  // namespace tvl::region2

#endif
