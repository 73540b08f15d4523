// The tests that the frame runs, with checks on, after a family that searches for its state
// point: the model must have published a temperature (else kBadParameters), and the point
// (p, solvedTemperature) must lie in the range of the formulation or, for the transport
// properties, in that of their equations, each widened by 0.1 per cent (else kOutOfRange).
#ifndef TAVLIB6_SOLVED_STATE_CHECKS_H
#define TAVLIB6_SOLVED_STATE_CHECKS_H

#include "frame/property_facade.h"
#include "frame/validators.h"

namespace tvl {

enum class SolvedRange { kFormulation, kConductivity, kViscosity };

inline double requireSolvedTemperature(const SolvedState& solved) {
    if (solved.temperatureSolved == 0) throw kBadParameters;
    return solved.solvedTemperature;
}

inline double requireSolvedPressure(const SolvedState& solved) {
    if (solved.pressureSolved == 0) throw kBadParameters;
    return solved.solvedPressure;
}

inline void requireSolvedState(PropertyFacade& lib, SolvedRange range, double p) {
    const double T = requireSolvedTemperature(lib.solved);
    switch (range) {
    case SolvedRange::kFormulation: lib.ValidatePTResult(p, T); return;
    case SolvedRange::kConductivity: requireTransportRange(kConductivitySolved, p, T); return;
    case SolvedRange::kViscosity: requireTransportRange(kViscositySolved, p, T); return;
    }
}

}  // namespace tvl

#endif
