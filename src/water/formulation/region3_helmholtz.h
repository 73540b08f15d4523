// The basic equation of region 3, the Helmholtz free energy phi(delta, tau) with delta = rho/322
// and tau = 647.096/T: one pass over its 39 power terms that forms the wanted derivatives
// together, shared by the forward equations and the searches of region 3.
#ifndef TAVLIB6_REGION3_HELMHOLTZ_H
#define TAVLIB6_REGION3_HELMHOLTZ_H

#include <array>
#include <cmath>
#include <cstddef>
#include <utility>

#include "water/formulation/constants.h"
#include "water/formulation/polynomial.h"
#include "water/formulation/power_table.h"
#include "water/formulation/tables/region3_coefficients.h"

namespace tvl {

// phi and its derivatives by delta and tau.
struct HelmholtzSums {
    double phi = 0.0;
    double phiDelta = 0.0;
    double phiDeltaDelta = 0.0;
    double phiTau = 0.0;
    double phiTauTau = 0.0;
    double phiDeltaTau = 0.0;
};

// Which sums one pass forms.
enum HelmholtzTerm : unsigned {
    kPhi = 1u,
    kPhiDelta = 2u,
    kPhiDeltaDelta = 4u,
    kPhiTau = 8u,
    kPhiTauTau = 16u,
    kPhiDeltaTau = 32u,
    kAllHelmholtzTerms = 63u,
};

namespace region3 {

constexpr double R = kGasConstant;
constexpr double kDensity = kCriticalDensity;          // reducing density, kg/m3
constexpr double kTemperature = kCriticalTemperature;  // reducing temperature, K
constexpr double kRTc = 298651.628496;                 // R times 647.096, J/kg, for u

// The highest powers of delta and tau that a second derivative reads.
constexpr int kReachDelta = reachOfI(kRegion3, 2);
constexpr int kReachTau = reachOfJ(kRegion3, 2);

// A term with the products of its coefficient and exponents made ready once, at compile time.
struct HelmholtzRow {
    int I;
    int J;
    double n;
    double nI;       // n I
    double nII;      // n I (I-1)
    double nJ;       // n J
    double nJJ;      // n J (J-1)
    double nIJ;      // n I J
};

constexpr std::array<HelmholtzRow, 39> makeRows() {
    std::array<HelmholtzRow, 39> rows{};
    for (std::size_t k = 0; k < rows.size(); ++k) {
        const PowerTerm& t = kRegion3[k];
        rows[k] = {t.I, t.J, t.n, t.n * t.I, t.n * t.I * (t.I - 1), t.n * t.J, t.n * t.J * (t.J - 1), t.n * t.I * t.J};
    }
    return rows;
}

inline constexpr std::array<HelmholtzRow, 39> kRows = makeRows();

// One term's share of the wanted sums. The row is a compile-time constant, so every power read
// is a plain load, or the reciprocal of one for a negative exponent, which the compiler forms
// once for all the terms that read it.
template <unsigned Wanted, std::size_t K>
inline void addTerm(HelmholtzSums& s, const PowerTable& d, const PowerTable& t) {
    constexpr HelmholtzRow r = kRows[K];
    if constexpr ((Wanted & kPhi) != 0) s.phi += r.n * d(r.I) * t(r.J);
    if constexpr ((Wanted & kPhiDelta) != 0) s.phiDelta += r.nI * d(r.I - 1) * t(r.J);
    if constexpr ((Wanted & kPhiDeltaDelta) != 0) s.phiDeltaDelta += r.nII * d(r.I - 2) * t(r.J);
    if constexpr ((Wanted & kPhiTau) != 0) s.phiTau += r.nJ * d(r.I) * t(r.J - 1);
    if constexpr ((Wanted & kPhiTauTau) != 0) s.phiTauTau += r.nJJ * d(r.I) * t(r.J - 2);
    if constexpr ((Wanted & kPhiDeltaTau) != 0) s.phiDeltaTau += r.nIJ * d(r.I - 1) * t(r.J - 1);
}

template <unsigned Wanted, std::size_t... K>
inline void addTerms(HelmholtzSums& s, const PowerTable& d, const PowerTable& t, std::index_sequence<K...>) {
    (addTerm<Wanted, K>(s, d, t), ...);
}

// The 39 table terms in the release's order, from powers of delta in `d` and of tau in `t`, and
// the logarithm term added by hand. Terms whose exponent factor is zero still read the reciprocal
// power and multiply it by that zero.
template <unsigned Wanted>
HelmholtzSums sums(const PowerTable& d, const PowerTable& t, double delta) {
    HelmholtzSums s;
    addTerms<Wanted>(s, d, t, std::make_index_sequence<kRows.size()>());
    constexpr double n1 = kRegion3LogCoefficient;
    if constexpr ((Wanted & kPhi) != 0) s.phi += n1 * std::log(delta);
    if constexpr ((Wanted & kPhiDelta) != 0) s.phiDelta += n1 / delta;
    if constexpr ((Wanted & kPhiDeltaDelta) != 0) s.phiDeltaDelta -= n1 / (delta * delta);
    return s;
}

}  // namespace region3

}  // namespace tvl

#endif
