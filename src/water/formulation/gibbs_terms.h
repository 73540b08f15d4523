// Sums of a Gibbs region split as gamma0 + gammar (regions 2 and 5): the residual terms and the
// ideal-gas terms with the products of coefficient and exponents made once at compile time, and
// one-pass sums over them from powers already in the scratch tables.
#ifndef TAVLIB6_GIBBS_TERMS_H
#define TAVLIB6_GIBBS_TERMS_H

#include <array>
#include <cstddef>

#include "water/formulation/power_table.h"
#include "water/formulation/tables/coefficient_types.h"
#include "water/formulation/water_model.h"

namespace tvl {

// n pi^I y^J with n I, n I (I-1), n J, n J (J-1) and n I J ready-made.
struct ResidualProductTerm {
    int I;
    int J;
    double n;
    double nI;
    double nII;
    double nJ;
    double nJJ;
    double nIJ;
};

// n0 tau^J0 with n0 J0 and n0 J0 (J0-1) ready-made.
struct IdealProductTerm {
    int J0;
    double n0;
    double nJ;
    double nJJ;
};

template <std::size_t N>
constexpr std::array<ResidualProductTerm, N> withProducts(const PowerTerm (&table)[N]) {
    std::array<ResidualProductTerm, N> out{};
    for (std::size_t k = 0; k < N; ++k) {
        const PowerTerm& t = table[k];
        out[k] = {t.I,           t.J,       t.n, t.n * t.I, t.n * t.I * (t.I - 1), t.n * t.J, t.n * t.J * (t.J - 1),
                  t.n * t.I * t.J};
    }
    return out;
}

template <std::size_t N>
constexpr std::array<IdealProductTerm, N> withProducts(const IdealTerm (&table)[N]) {
    std::array<IdealProductTerm, N> out{};
    for (std::size_t k = 0; k < N; ++k) {
        const IdealTerm& t = table[k];
        out[k] = {t.J0, t.n0, t.n0 * t.J0, t.n0 * t.J0 * (t.J0 - 1)};
    }
    return out;
}

// The highest power of tau that the ideal sums read: tau^J0, tau^(J0-1), tau^(J0-2).
template <std::size_t N>
constexpr int reachOfIdeal(const IdealTerm (&table)[N]) {
    int reach = 0;
    for (const IdealTerm& term : table)
        for (int d = 0; d <= 2; ++d) {
            const int k = term.J0 - d < 0 ? d - term.J0 : term.J0 - d;
            reach = k > reach ? k : reach;
        }
    return reach;
}

// The wanted sums of gammar = sum n x^I y^J, x and y already in the tables. Derivatives read
// x^(I-1), y^(J-2) and the like even where the exponent factor is zero: the term then multiplies
// its reciprocal power by that zero.
template <unsigned Wanted, std::size_t N>
GibbsSums residualSums(const std::array<ResidualProductTerm, N>& terms, const PowerTable& x, const PowerTable& y) {
    GibbsSums sums;
    for (const ResidualProductTerm& t : terms) {
        if constexpr ((Wanted & kGamma) != 0) sums.g += t.n * x(t.I) * y(t.J);
        if constexpr ((Wanted & kGammaPi) != 0) sums.gPi += t.nI * x(t.I - 1) * y(t.J);
        if constexpr ((Wanted & kGammaPiPi) != 0) sums.gPiPi += t.nII * x(t.I - 2) * y(t.J);
        if constexpr ((Wanted & kGammaTau) != 0) sums.gTau += t.nJ * x(t.I) * y(t.J - 1);
        if constexpr ((Wanted & kGammaTauTau) != 0) sums.gTauTau += t.nJJ * x(t.I) * y(t.J - 2);
        if constexpr ((Wanted & kGammaPiTau) != 0) sums.gPiTau += t.nIJ * x(t.I - 1) * y(t.J - 1);
    }
    return sums;
}

// The tau sums of gamma0 without its ln pi, tau already in the table: g = sum n0 tau^J0 and its
// first and second tau derivatives. The pi derivatives of gamma0 are 1/pi and -1/pi^2.
template <unsigned Wanted, std::size_t N>
GibbsSums idealSums(const std::array<IdealProductTerm, N>& terms, const PowerTable& tau) {
    GibbsSums sums;
    for (const IdealProductTerm& t : terms) {
        if constexpr ((Wanted & kGamma) != 0) sums.g += t.n0 * tau(t.J0);
        if constexpr ((Wanted & kGammaTau) != 0) sums.gTau += t.nJ * tau(t.J0 - 1);
        if constexpr ((Wanted & kGammaTauTau) != 0) sums.gTauTau += t.nJJ * tau(t.J0 - 2);
    }
    return sums;
}

// gamma = gamma0 + gammar and its derivatives. The ideal g holds the tau sum only: ln pi is added
// here, and only where gamma itself is wanted.
template <unsigned Wanted>
GibbsSums combinedSums(double pi, const GibbsSums& ideal, const GibbsSums& residual, double logPi) {
    GibbsSums sums;
    if constexpr ((Wanted & kGamma) != 0) sums.g = logPi + ideal.g + residual.g;
    if constexpr ((Wanted & kGammaPi) != 0) sums.gPi = 1.0 / pi + residual.gPi;
    if constexpr ((Wanted & kGammaPiPi) != 0) sums.gPiPi = residual.gPiPi - 1.0 / (pi * pi);
    if constexpr ((Wanted & kGammaTau) != 0) sums.gTau = ideal.gTau + residual.gTau;
    if constexpr ((Wanted & kGammaTauTau) != 0) sums.gTauTau = ideal.gTauTau + residual.gTauTau;
    if constexpr ((Wanted & kGammaPiTau) != 0) sums.gPiTau = residual.gPiTau;
    return sums;
}

}  // namespace tvl

#endif
