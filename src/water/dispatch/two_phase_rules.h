// The arithmetic of the wet area, shared by the saturated, (T,x), (T, property) and (p,T,x)
// families: the mass-weighted mixture, its inverse, and the heat capacity at constant volume on
// the two-phase side of a saturated state.
#ifndef TAVLIB6_TWO_PHASE_RULES_H
#define TAVLIB6_TWO_PHASE_RULES_H

#include "frame/state_properties.h"

namespace tvl::two_phase {

// Saturated water weighs 1 - x, saturated steam x.
inline double mix(double water, double steam, double x) { return (1.0 - x) * water + x * steam; }

// The dryness fraction at which the mixture of water and steam takes value.
inline double fraction(double water, double steam, double value) { return (value - water) / (steam - water); }

// Along the saturation line the pressure follows the temperature, so a saturated state heated at
// constant volume leaves the line into the wet area: cv - T (g + a/b) (g b + a), with
// a = (dv/dT)p, b = (dv/dp)T of the single phase and g = dps/dT.
inline double twoPhaseSideCv(const StateProperties& phase, double T, double slope) {
    const double a = phase.dvdT;
    const double b = phase.dvdp;
    return phase.cv - T * (slope + a / b) * (slope * b + a);
}

}  // namespace tvl::two_phase

#endif
