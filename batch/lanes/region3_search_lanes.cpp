// The refined region 3 searches of the (p,h), (p,s) and (h,s) families over several points at
// once, compiled for AVX-512 and AVX2. Each lane takes the start of its plain call (the
// subregion's backward equations, chosen per lane), then the plain call's iteration on
// (density, T) over the Helmholtz sums: the chord steps towards p and h or s, whose stop test
// measures the steps, or the Newton steps towards h and s, whose stop test measures the
// residuals before the step. The count rule is the plain call's; a lane that has stopped keeps
// its state while the others go on.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "lanes/region3_search_lanes.cpp"
#include <hwy/foreach_target.h>  // IWYU pragma: keep
#include <hwy/highway.h>

#include <cmath>
#include <cstddef>

#include "lanes/kernels.h"
#include "lanes/lane_ops.h"
#include "lanes/region3_sums.h"
#include "water/formulation/constants.h"
#include "water/formulation/region3_helmholtz.h"
#include "water/formulation/tables/region3_coefficients.h"

#if HWY_TARGET == HWY_AVX2 || HWY_TARGET == HWY_AVX3
HWY_BEFORE_NAMESPACE();
namespace tvlx::lanes::HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

using Mask = hn::Mask<D>;

// The result of a backward equation: its scale times the sum, or over it where `Reciprocal`.
template <const auto& Table, const tvl::ReducedForm& Form, bool Reciprocal = false>
HWY_INLINE V backwardEquation(D d, V a, V b) {
    const V scale = hn::Set(d, Form.result);
    const V sum = reducedSum<Table, Form>(d, a, b);
    return Reciprocal ? hn::Div(scale, sum) : hn::Mul(scale, sum);
}

// The 3a/3b boundary h3ab(p); 3a on the boundary itself.
HWY_INLINE Mask subregion3aByEnthalpy(D d, V p, V h) {
    const auto c = [d](double value) { return hn::Set(d, value); };
    const V q = hn::Div(p, c(1e6));
    const V cubic = hn::Add(hn::Mul(hn::Add(hn::Mul(c(tvl::kH3AB[3]), q), c(tvl::kH3AB[2])), q), c(tvl::kH3AB[1]));
    const V boundary = hn::Mul(hn::Add(hn::Mul(cubic, q), c(tvl::kH3AB[0])), c(1000.0));
    return hn::Le(h, boundary);
}

HWY_INLINE Mask subregion3aByEntropy(D d, V s) { return hn::Le(s, hn::Set(d, tvl::kCriticalEntropy)); }

// The 3a equation in the lanes of `a`, the 3b one in the others, each formed only where a lane
// needs it.
template <const auto& A, const tvl::ReducedForm& FormA, const auto& B, const tvl::ReducedForm& FormB,
          bool ReciprocalB = false>
HWY_INLINE V bySubregion(D d, Mask a, V x, V y) {
    const V sofar = where(d, a, hn::Zero(d), [&] { return backwardEquation<A, FormA>(d, x, y); });
    return where(d, hn::Not(a), sofar, [&] { return backwardEquation<B, FormB, ReciprocalB>(d, x, y); });
}

HWY_INLINE V temperatureByEnthalpy(D d, Mask a, V p, V h) {
    return bySubregion<tvl::kT3APH, tvl::kT3APHForm, tvl::kT3BPH, tvl::kT3BPHForm>(d, a, p, h);
}
HWY_INLINE V volumeByEnthalpy(D d, Mask a, V p, V h) {
    return bySubregion<tvl::kV3APH, tvl::kV3APHForm, tvl::kV3BPH, tvl::kV3BPHForm>(d, a, p, h);
}
HWY_INLINE V temperatureByEntropy(D d, Mask a, V p, V s) {
    return bySubregion<tvl::kT3APS, tvl::kT3APSForm, tvl::kT3BPS, tvl::kT3BPSForm>(d, a, p, s);
}
HWY_INLINE V volumeByEntropy(D d, Mask a, V p, V s) {
    return bySubregion<tvl::kV3APS, tvl::kV3APSForm, tvl::kV3BPS, tvl::kV3BPSForm>(d, a, p, s);
}
HWY_INLINE V pressureByEnthalpyEntropy(D d, Mask a, V h, V s) {  // p3b(h,s) is the scale over the sum
    return bySubregion<tvl::kP3AHS, tvl::kP3AHSForm, tvl::kP3BHS, tvl::kP3BHSForm, true>(d, a, h, s);
}

// A (density, T) state with p, h, s and the derivatives the searches read, as the plain
// iteration forms them.
struct StateLanes {
    V p, h, s, dpdT, dpdrho, cv;
};

template <unsigned Wanted>
HWY_INLINE StateLanes stateOf(D d, const Helmholtz& f, V delta, V tau, V rho, V T) {
    const V r = hn::Set(d, R);
    StateLanes q;
    q.p = hn::Mul(hn::Mul(hn::Mul(hn::Mul(rho, r), T), delta), f.phiDelta);
    q.h = hn::Mul(hn::Mul(hn::Add(hn::Mul(tau, f.phiTau), hn::Mul(delta, f.phiDelta)), r), T);
    q.s = (Wanted & tvl::kPhi) != 0 ? hn::Mul(hn::Sub(hn::Mul(tau, f.phiTau), f.phi), r) : hn::Zero(d);
    q.dpdT = hn::Mul(hn::Mul(hn::Mul(hn::Sub(f.phiDelta, hn::Mul(tau, f.phiDeltaTau)), rho), r), delta);
    const V curvature = hn::Add(hn::Mul(delta, f.phiDeltaDelta), hn::Mul(hn::Set(d, 2.0), f.phiDelta));
    q.dpdrho = hn::Mul(hn::Mul(hn::Mul(curvature, delta), r), T);
    q.cv = hn::Mul(hn::Mul(hn::Mul(hn::Neg(tau), tau), f.phiTauTau), r);
    return q;
}

// The sums at the M states (rho, T).
template <unsigned Wanted, int M>
HWY_INLINE void sumsAtStates(D d, HelmholtzGroup<M>& g, const V* rho, const V* T) {
    g.fillAt(d, rho, T);
    sumsAt<Wanted>(d, g);
}

// The count rule of the plain searches: past maxIterations every running lane has failed; on
// it, a lane that would stop has failed too.
HWY_INLINE void countStep(D d, int i, int maxIterations, Mask going, Mask& running, Mask& failed) {
    if (i > maxIterations) going = hn::FirstN(d, 0);
    if (i >= maxIterations) failed = hn::Or(failed, hn::AndNot(going, running));
    running = hn::And(running, going);
}

// The chord iteration towards p and h (or s) from (rho, T); its limits are fixed at the start.
template <bool ByEntropy, int M>
HWY_NOINLINE void chordSearch(D d, const V* p, const V* y, V* rho, V* T, Mask* failed, const SearchSettings& s) {
    constexpr unsigned kWantedTerms = tvl::kPhiDelta | tvl::kPhiDeltaDelta | tvl::kPhiTau | tvl::kPhiTauTau |
                                      tvl::kPhiDeltaTau | (ByEntropy ? tvl::kPhi : 0u);
    HelmholtzGroup<M> g;
    V limitRho[M], limitT[M];
    Mask running[M];
    for (int m = 0; m < M; ++m) {
        limitRho[m] = hn::Mul(hn::Set(d, s.tolerance), rho[m]);
        limitT[m] = hn::Mul(hn::Set(d, s.tolerance), T[m]);
        running[m] = hn::FirstN(d, hn::Lanes(d));
        failed[m] = hn::FirstN(d, 0);
    }
    for (int i = 1;; ++i) {
        sumsAtStates<kWantedTerms>(d, g, rho, T);
        bool stopped = true;
        for (int m = 0; m < M; ++m) {
            const StateLanes q = stateOf<kWantedTerms>(d, g.f[m], g.delta[m], g.tau[m], rho[m], T[m]);
            const V f = hn::Sub(q.p, p[m]);
            const V squared = hn::Mul(rho[m], rho[m]);
            V residual, byDensity, byTemperature;
            if constexpr (ByEntropy) {
                residual = hn::Sub(q.s, y[m]);
                byDensity = hn::Div(hn::Neg(q.dpdT), squared);
                byTemperature = hn::Div(q.cv, T[m]);
            } else {
                residual = hn::Sub(q.h, y[m]);
                byDensity = hn::Sub(hn::Div(q.dpdrho, rho[m]), hn::Div(hn::Mul(T[m], q.dpdT), squared));
                byTemperature = q.cv;
            }
            const V det = hn::Sub(hn::Mul(byDensity, q.dpdT), hn::Mul(byTemperature, q.dpdrho));
            const V stepRho = hn::Div(hn::Neg(hn::Sub(hn::Mul(residual, q.dpdT), hn::Mul(f, byTemperature))), det);
            const V stepT = hn::Div(hn::Neg(hn::Sub(hn::Mul(f, byDensity), hn::Mul(residual, q.dpdrho))), det);
            rho[m] = hn::IfThenElse(running[m], hn::Add(rho[m], stepRho), rho[m]);
            T[m] = hn::IfThenElse(running[m], hn::Add(T[m], stepT), T[m]);
            const Mask going = hn::Or(hn::Ge(hn::Abs(stepRho), limitRho[m]), hn::Ge(hn::Abs(stepT), limitT[m]));
            countStep(d, i, s.maxIterations, going, running[m], failed[m]);
            stopped = stopped && hn::AllFalse(d, running[m]);
        }
        if (stopped) return;
    }
}

// Newton towards h and s from (rho, T), the residuals before each step tested against the targets.
template <int M>
HWY_NOINLINE void densityTemperatureSearch(D d, const V* h, const V* s, V* rho, V* T, Mask* failed,
                                        const SearchSettings& settings) {
    HelmholtzGroup<M> g;
    Mask running[M];
    for (int m = 0; m < M; ++m) {
        running[m] = hn::FirstN(d, hn::Lanes(d));
        failed[m] = hn::FirstN(d, 0);
    }
    const V tolerance = hn::Set(d, settings.tolerance);
    for (int i = 1;; ++i) {
        sumsAtStates<tvl::kAllHelmholtzTerms>(d, g, rho, T);
        bool stopped = true;
        for (int m = 0; m < M; ++m) {
            const StateLanes q = stateOf<tvl::kAllHelmholtzTerms>(d, g.f[m], g.delta[m], g.tau[m], rho[m], T[m]);
            const V dsdT = hn::Div(q.cv, T[m]);
            const V dsdrho = hn::Div(hn::Neg(q.dpdT), hn::Mul(rho[m], rho[m]));
            const V dhdT = hn::Add(hn::Div(q.dpdT, rho[m]), q.cv);
            const V dhdrho = hn::Add(hn::Div(q.dpdrho, rho[m]), hn::Mul(T[m], dsdrho));
            const V f = hn::Sub(q.h, h[m]);
            const V e = hn::Sub(q.s, s[m]);
            const V inverse =
                hn::Div(hn::Set(d, 1.0), hn::Sub(hn::Mul(dhdrho, dsdT), hn::Mul(dhdT, dsdrho)));
            const V stepRho = hn::Mul(hn::Sub(hn::Mul(e, dhdT), hn::Mul(f, dsdT)), inverse);
            const V stepT = hn::Mul(hn::Sub(hn::Mul(f, dsdrho), hn::Mul(e, dhdrho)), inverse);
            rho[m] = hn::IfThenElse(running[m], hn::Add(rho[m], stepRho), rho[m]);
            T[m] = hn::IfThenElse(running[m], hn::Add(T[m], stepT), T[m]);
            const Mask going = hn::Or(hn::Ge(hn::Abs(f), hn::Mul(tolerance, h[m])),
                                      hn::Ge(hn::Abs(e), hn::Mul(tolerance, s[m])));
            countStep(d, i, settings.maxIterations, going, running[m], failed[m]);
            stopped = stopped && hn::AllFalse(d, running[m]);
        }
        if (stopped) return;
    }
}

// The pressure of the states (rho, T).
template <int M>
HWY_INLINE void pressuresAt(D d, const V* rho, const V* T, V* p) {
    HelmholtzGroup<M> g;
    sumsAtStates<tvl::kPhiDelta>(d, g, rho, T);
    for (int m = 0; m < M; ++m) p[m] = stateOf<tvl::kPhiDelta>(d, g.f[m], g.delta[m], g.tau[m], rho[m], T[m]).p;
}

// M vectors of points of one search: the start, the iteration while toleranceMode is on, and
// value, temperature and failure (1.0 or 0.0) as the plain call leaves them. Without the
// iteration p(h,s) publishes no temperature (HUGE_VAL).
template <int Which, int M>
HWY_INLINE void region3Searched(D d, const V* a, const V* b, V* value, V* temperature, V* lost,
                                const SearchSettings& settings) {
    V rho[M], T[M];
    Mask failed[M];
    for (int m = 0; m < M; ++m) {
        failed[m] = hn::FirstN(d, 0);
        if constexpr (Which == kT3PH) {
            const Mask sub = subregion3aByEnthalpy(d, a[m], b[m]);
            rho[m] = hn::Div(hn::Set(d, 1.0), volumeByEnthalpy(d, sub, a[m], b[m]));
            T[m] = temperatureByEnthalpy(d, sub, a[m], b[m]);
        } else if constexpr (Which == kT3PS) {
            const Mask sub = subregion3aByEntropy(d, b[m]);
            rho[m] = hn::Div(hn::Set(d, 1.0), volumeByEntropy(d, sub, a[m], b[m]));
            T[m] = temperatureByEntropy(d, sub, a[m], b[m]);
        } else {
            const Mask sub = subregion3aByEntropy(d, b[m]);
            value[m] = pressureByEnthalpyEntropy(d, sub, a[m], b[m]);
            T[m] = temperatureByEnthalpy(d, subregion3aByEnthalpy(d, value[m], a[m]), value[m], a[m]);
            rho[m] = hn::Div(hn::Set(d, 1.0), volumeByEntropy(d, sub, value[m], b[m]));
        }
    }
    if (settings.refining) {
        if constexpr (Which == kP3HS) {
            densityTemperatureSearch<M>(d, a, b, rho, T, failed, settings);
            pressuresAt<M>(d, rho, T, value);
        } else {
            chordSearch<Which == kT3PS, M>(d, a, b, rho, T, failed, settings);
        }
    }
    for (int m = 0; m < M; ++m) {
        if constexpr (Which != kP3HS) value[m] = T[m];
        temperature[m] = Which == kP3HS && !settings.refining ? hn::Set(d, HUGE_VAL) : T[m];
        lost[m] = hn::IfThenElseZero(failed[m], hn::Set(d, 1.0));
    }
}

template <int Which>
void Region3SearchKernel(const double* a, const double* b, double* value, double* temperature, int* failed,
                         std::size_t count, const SearchSettings& settings) {
    for (std::size_t k = 0; k < count; k += kChunk) {
        const std::size_t n = count - k < kChunk ? count - k : kChunk;
        double lost[kChunk];
        const double* const in[2] = {a + k, b + k};
        double* const out[3] = {value + k, temperature + k, lost};
        inPairs(in, out, n, [&settings](auto group, const auto& vin, auto& vout) {
            region3Searched<Which, decltype(group)::value>(D(), vin[0], vin[1], vout[0], vout[1], vout[2], settings);
        });
        for (std::size_t j = 0; j < n; ++j) failed[k + j] = lost[j] != 0.0 ? 1 : 0;
    }
}

extern const SearchKernel kRegion3Searches[kRegion3SearchCount];
const SearchKernel kRegion3Searches[kRegion3SearchCount] = {&Region3SearchKernel<kT3PH>, &Region3SearchKernel<kT3PS>,
                                                             &Region3SearchKernel<kP3HS>};

}  // namespace tvlx::lanes::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();
#endif
