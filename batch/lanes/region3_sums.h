// Region 3's Helmholtz sums over groups of vectors of points, shared by the (p,T) kernels
// (region3_lanes.cpp) and the backward searches (region3_search_lanes.cpp); compiled once per
// instruction set like lane_ops.h. The sums are formed term by term in table order, as the
// scalar sums form them, the group's vectors side by side.
#if defined(TAVLIB6X_REGION3_SUMS_H_) == defined(HWY_TARGET_TOGGLE)
#ifdef TAVLIB6X_REGION3_SUMS_H_
#undef TAVLIB6X_REGION3_SUMS_H_
#else
#define TAVLIB6X_REGION3_SUMS_H_
#endif

#include <hwy/highway.h>

#include <cstddef>
#include <type_traits>
#include <utility>

#include "lanes/lane_ops.h"
#include "water/formulation/region3_helmholtz.h"

#if HWY_TARGET == HWY_AVX2 || HWY_TARGET == HWY_AVX3
HWY_BEFORE_NAMESPACE();
namespace tvlx::lanes::HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

namespace helmholtz = tvl::region3;
using helmholtz::R;
using DeltaPowers = Powers<helmholtz::kReachDelta>;
using TauPowers = Powers<helmholtz::kReachTau>;

// The kernels work through their points in chunks of this many.
constexpr std::size_t kChunk = 256;

// The points [at, at + M N) of the arrays `in` as M vectors each through evaluate(M, in, out),
// into the arrays `out`; lanes past `count` are padded by copies of point `at`.
template <int M, std::size_t In, std::size_t Out, class Evaluate>
HWY_INLINE void pointGroup(D d, const double* const (&in)[In], double* const (&out)[Out], std::size_t at,
                           std::size_t count, Evaluate evaluate) {
    const std::size_t N = hn::Lanes(d);
    HWY_ALIGN double buffer[In > Out ? In : Out][M * hn::MaxLanes(D())];
    for (std::size_t j = 0; j < M * N; ++j)
        for (std::size_t i = 0; i < In; ++i) buffer[i][j] = in[i][at + j < count ? at + j : at];
    V vin[In][M], vout[Out][M];
    for (std::size_t i = 0; i < In; ++i)
        for (int m = 0; m < M; ++m) vin[i][m] = hn::Load(d, buffer[i] + m * N);
    evaluate(std::integral_constant<int, M>(), vin, vout);
    for (std::size_t i = 0; i < Out; ++i)
        for (int m = 0; m < M; ++m) hn::Store(vout[i][m], d, buffer[i] + m * N);
    for (std::size_t j = 0; j < M * N && at + j < count; ++j)
        for (std::size_t i = 0; i < Out; ++i) out[i][at + j] = buffer[i][j];
}

// All `count` points, two vectors at a time so that their serial chains overlap; the last pair
// is padded. (One vector alone for the last few would compile every kernel twice.)
template <std::size_t In, std::size_t Out, class Evaluate>
HWY_INLINE void inPairs(const double* const (&in)[In], double* const (&out)[Out], std::size_t count,
                        Evaluate evaluate) {
    const D d;
    for (std::size_t k = 0; k < count; k += 2 * hn::Lanes(d)) pointGroup<2>(d, in, out, k, count, evaluate);
}

struct Helmholtz {
    V phi, phiDelta, phiDeltaDelta, phiTau, phiTauTau, phiDeltaTau;
};

HWY_INLINE V reducedDensity(D d, V rho) { return hn::Div(rho, hn::Set(d, helmholtz::kDensity)); }
HWY_INLINE V reducedTemperature(D d, V T) { return hn::Div(hn::Set(d, helmholtz::kTemperature), T); }

// The reduced variables and their powers at M points of a vector each.
template <int M>
struct HelmholtzGroup {
    V delta[M], tau[M];
    DeltaPowers x[M];
    TauPowers y[M];
    Helmholtz f[M];

    // The variables and powers of the states (rho[m], T[m]).
    HWY_INLINE void fillAt(D d, const V* rho, const V* T) {
        for (int m = 0; m < M; ++m) {
            delta[m] = reducedDensity(d, rho[m]);
            tau[m] = reducedTemperature(d, T[m]);
        }
        for (int m = 0; m < M; ++m) {
            x[m].fill(d, delta[m]);
            y[m].fill(d, tau[m]);
        }
    }
};

// acc + (c x^A) y^B, a factor x^0 = 1 left out. Lean leaves out a term of coefficient zero:
// it adds a zero to a sum that starts at +0 and so is never -0, which changes no bit as long as
// the powers it reads are finite (else the scalar term is NaN).
template <bool Lean, int A, int B>
HWY_INLINE V addTerm(D d, V acc, double c, const DeltaPowers& x, const TauPowers& y) {
    if (Lean && c == 0.0) return acc;
    V term = hn::Set(d, c);
    if constexpr (A != 0) term = hn::Mul(term, x.at<A>(d));
    if constexpr (B != 0) term = hn::Mul(term, y.at<B>(d));
    return hn::Add(acc, term);
}

// Term K of every point of the group: the M vectors' sums are independent chains of additions,
// which the processor overlaps.
template <unsigned Wanted, bool Lean, std::size_t K, int M>
HWY_INLINE void helmholtzTerm(D d, HelmholtzGroup<M>& g) {
    constexpr helmholtz::HelmholtzRow r = helmholtz::kRows[K];
    for (int m = 0; m < M; ++m) {
        Helmholtz& s = g.f[m];
        const DeltaPowers& x = g.x[m];
        const TauPowers& y = g.y[m];
        if constexpr ((Wanted & tvl::kPhi) != 0) s.phi = addTerm<Lean, r.I, r.J>(d, s.phi, r.n, x, y);
        if constexpr ((Wanted & tvl::kPhiDelta) != 0)
            s.phiDelta = addTerm<Lean, r.I - 1, r.J>(d, s.phiDelta, r.nI, x, y);
        if constexpr ((Wanted & tvl::kPhiDeltaDelta) != 0)
            s.phiDeltaDelta = addTerm<Lean, r.I - 2, r.J>(d, s.phiDeltaDelta, r.nII, x, y);
        if constexpr ((Wanted & tvl::kPhiTau) != 0) s.phiTau = addTerm<Lean, r.I, r.J - 1>(d, s.phiTau, r.nJ, x, y);
        if constexpr ((Wanted & tvl::kPhiTauTau) != 0)
            s.phiTauTau = addTerm<Lean, r.I, r.J - 2>(d, s.phiTauTau, r.nJJ, x, y);
        if constexpr ((Wanted & tvl::kPhiDeltaTau) != 0)
            s.phiDeltaTau = addTerm<Lean, r.I - 1, r.J - 1>(d, s.phiDeltaTau, r.nIJ, x, y);
    }
}

// The 39 terms in table order, then the logarithm term, as the scalar sums form them.
template <unsigned Wanted, bool Lean, int M, std::size_t... K>
HWY_INLINE void helmholtzSums(D d, HelmholtzGroup<M>& g, std::index_sequence<K...>) {
    for (int m = 0; m < M; ++m) g.f[m] = {hn::Zero(d), hn::Zero(d), hn::Zero(d), hn::Zero(d), hn::Zero(d), hn::Zero(d)};
    (helmholtzTerm<Wanted, Lean, K>(d, g), ...);
    const V n1 = hn::Set(d, tvl::kRegion3LogCoefficient);
    for (int m = 0; m < M; ++m) {
        Helmholtz& s = g.f[m];
        const V delta = g.delta[m];
        if constexpr ((Wanted & tvl::kPhi) != 0) s.phi = hn::Add(s.phi, hn::Mul(n1, logarithm(d, delta)));
        if constexpr ((Wanted & tvl::kPhiDelta) != 0) s.phiDelta = hn::Add(s.phiDelta, hn::Div(n1, delta));
        if constexpr ((Wanted & tvl::kPhiDeltaDelta) != 0)
            s.phiDeltaDelta = hn::Sub(s.phiDeltaDelta, hn::Div(n1, hn::Mul(delta, delta)));
    }
}

// Whether every power the sums read is finite in every lane: a finite base's powers up to the
// highest and down to the second reciprocal are finite when those three are.
template <int R>
HWY_INLINE hn::Mask<D> finitePowers(D d, const Powers<R>& x) {
    const auto reciprocals = hn::And(hn::IsFinite(x.template at<-1>(d)), hn::IsFinite(x.template at<-2>(d)));
    return hn::And(hn::IsFinite(x.up[R]), reciprocals);
}

template <unsigned Wanted, int M>
HWY_INLINE void sumsAt(D d, HelmholtzGroup<M>& g) {
    auto finite = hn::FirstN(d, hn::Lanes(d));
    for (int m = 0; m < M; ++m) finite = hn::And(finite, hn::And(finitePowers(d, g.x[m]), finitePowers(d, g.y[m])));
    if (hn::AllTrue(d, finite)) helmholtzSums<Wanted, true>(d, g, std::make_index_sequence<helmholtz::kRows.size()>());
    else helmholtzSums<Wanted, false>(d, g, std::make_index_sequence<helmholtz::kRows.size()>());
}


}  // namespace tvlx::lanes::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();
#endif

#endif
