// One pass over the terms of a Gibbs free energy split into an ideal-gas part
// gamma0 = ln pi + sum n0 tau^J0 and a residual part gammar = sum n pi^I (tau - shift)^J,
// as regions 2 and 5 and the metastable-vapour equation have it.
#ifndef TAVLIB6_GIBBS_SUMS_H
#define TAVLIB6_GIBBS_SUMS_H

#include <cmath>
#include <cstddef>

#include "water/formulation/polynomial.h"
#include "water/formulation/water_model.h"

namespace tvl {

template <std::size_t N>
constexpr int reachOfJ0(const IdealTerm (&table)[N]) {
    int reach = 0;
    for (const IdealTerm& term : table)
        for (int d = 0; d <= 2; ++d) reach = magnitude(term.J0 - d) > reach ? magnitude(term.J0 - d) : reach;
    return reach;
}

// The sums of the ideal and the residual part at (pi, tau), with the residual part in powers of
// (tau - shift). The powers of pi and of (tau - shift) go into xPowers and yPowers; yPowers is
// then refilled with the powers of tau for the ideal part.
template <unsigned Wanted, const auto& Ideal, const auto& Residual>
GibbsSums idealResidualSums(double pi, double tau, double shift, PowerTable& xPowers, PowerTable& yPowers) {
    constexpr int kReachPi = reachOfI(Residual, 2);
    constexpr int kReachY = reachOfJ(Residual, 2);
    constexpr int kReachTau = reachOfJ0(Ideal);
    xPowers.fill(pi, kReachPi);
    yPowers.fill(tau - shift, kReachY);
    GibbsSums r;
    for (const PowerTerm& t : Residual) {
        const PowerTable& x = xPowers;
        const PowerTable& y = yPowers;
        if constexpr ((Wanted & kGamma) != 0) r.g += t.n * x(t.I) * y(t.J);
        if constexpr ((Wanted & kGammaPi) != 0) r.gPi += t.n * t.I * x(t.I - 1) * y(t.J);
        if constexpr ((Wanted & kGammaPiPi) != 0) r.gPiPi += t.n * t.I * (t.I - 1) * x(t.I - 2) * y(t.J);
        if constexpr ((Wanted & kGammaTau) != 0) r.gTau += t.n * t.J * x(t.I) * y(t.J - 1);
        if constexpr ((Wanted & kGammaTauTau) != 0) r.gTauTau += t.n * t.J * (t.J - 1) * x(t.I) * y(t.J - 2);
        if constexpr ((Wanted & kGammaPiTau) != 0) r.gPiTau += t.n * t.I * t.J * x(t.I - 1) * y(t.J - 1);
    }
    constexpr unsigned kIdealWanted = kGamma | kGammaTau | kGammaTauTau;
    if constexpr ((Wanted & kIdealWanted) != 0) {
        yPowers.fill(tau, kReachTau);
        const PowerTable& t = yPowers;
        for (const IdealTerm& term : Ideal) {
            if constexpr ((Wanted & kGamma) != 0) r.g += term.n0 * t(term.J0);
            if constexpr ((Wanted & kGammaTau) != 0) r.gTau += term.n0 * term.J0 * t(term.J0 - 1);
            if constexpr ((Wanted & kGammaTauTau) != 0) r.gTauTau += term.n0 * term.J0 * (term.J0 - 1) * t(term.J0 - 2);
        }
    }
    if constexpr ((Wanted & kGamma) != 0) r.g += std::log(pi);
    if constexpr ((Wanted & kGammaPi) != 0) r.gPi += 1.0 / pi;
    if constexpr ((Wanted & kGammaPiPi) != 0) r.gPiPi -= 1.0 / (pi * pi);
    return r;
}

}  // namespace tvl

#endif
