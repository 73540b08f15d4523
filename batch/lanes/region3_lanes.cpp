// Region 3 by (p,T) over several points at once, compiled for AVX-512 and AVX2: the density
// search of the plain call lane by lane (the library's fitted volume as the start, then Newton on
// the Helmholtz sums along the isotherm), then the property at the density found. Each lane runs
// the scalar count rule and stop test; a lane that has stopped keeps its density while the
// others go on, and the vector is done when every lane has stopped or run out of iterations.
// The start's area is chosen point by point by the scalar selection, and each area's fit then
// runs in lanes over its own points. Fits and searches take two vectors side by side, as their
// sums and power tables are serial chains that one vector alone leaves waiting. The sums are in
// region3_sums.h, which the backward searches (region3_search_lanes.cpp) share.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "lanes/region3_lanes.cpp"
#include <hwy/foreach_target.h>  // IWYU pragma: keep
#include <hwy/highway.h>

#include <cstddef>
#include <utility>

#include "lanes/kernels.h"
#include "lanes/lane_ops.h"
#include "lanes/region3_sums.h"
#include "water/formulation/constants.h"
#include "water/formulation/region3_fit.h"
#include "water/formulation/region3_helmholtz.h"
#include "water/formulation/tables/library_fits.h"
#include "water/formulation/tables/region3_coefficients.h"
#include "water/formulation/water_model.h"

#ifndef TAVLIB6X_REGION3_LANES_ONCE
#define TAVLIB6X_REGION3_LANES_ONCE
namespace tvlx::lanes::region3 {

// A model object of default settings for the start, whose fit reads the saturation line only.
inline const tvl::WaterModel& fitModel() {
    struct Holder {
        tvl::ModelSettings settings;
        tvl::SolvedState solved;
        tvl::WaterModel water{settings, solved};
    };
    static const Holder holder;
    return holder.water;
}

}  // namespace tvlx::lanes::region3
#endif

#if HWY_TARGET == HWY_AVX2 || HWY_TARGET == HWY_AVX3
HWY_BEFORE_NAMESPACE();
namespace tvlx::lanes::HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

// Two power tables of M points each filled side by side: the chains of multiplications are
// independent, so the processor overlaps them (where the tables are long, as in area G).
template <int M, int RA, int RB>
HWY_INLINE void fillSideBySide(D d, Powers<RA>* a, const V* aBase, Powers<RB>* b, const V* bBase) {
    for (int m = 0; m < M; ++m) a[m].up[0] = b[m].up[0] = hn::Set(d, 1.0);
    for (int k = 0; k < (RA > RB ? RA : RB); ++k)
        for (int m = 0; m < M; ++m) {
            if (k < RA) a[m].up[k + 1] = hn::Mul(a[m].up[k], aBase[m]);
            if (k < RB) b[m].up[k + 1] = hn::Mul(b[m].up[k], bBase[m]);
        }
}

// ---- The start: the library's fitted volume, area by area ----

// acc times base^E; a factor base^0 = 1 is left out, which changes no bits.
template <int E, int Reach>
HWY_INLINE V times(V acc, const Powers<Reach>& base) {
    if constexpr (E == 0) return acc;
    else return hn::Mul(acc, base.up[E]);
}

struct CriticalLanes {
    Powers<6> d, t, q2, q4, q8;
    V theta;
};

constexpr int thetaExponent(const tvl::FitTerm&) { return 0; }
constexpr int thetaExponent(const tvl::ThetaFitTerm& r) { return r.e1; }

// sum + c d^a t^b q2^e2 q4^e4 q8^e8 (theta^e1), multiplied left to right.
template <const auto& Rows, std::size_t K>
HWY_INLINE V criticalTerm(D d, V sum, const CriticalLanes& w) {
    constexpr auto r = Rows[K];
    V term = times<r.b>(times<r.a>(hn::Set(d, r.c), w.d), w.t);
    term = times<r.e8>(times<r.e4>(times<r.e2>(term, w.q2), w.q4), w.q8);
    if constexpr (thetaExponent(r) != 0) term = hn::Mul(term, w.theta);
    return hn::Add(sum, term);
}

// The root of |theta| with the sign of theta; zero counts as positive.
HWY_INLINE V signedRoot(D d, V x, V sign) { return hn::Mul(sign, hn::Sqrt(hn::Abs(x))); }

template <class Term, std::size_t N>
constexpr std::make_index_sequence<N> termsOf(const Term (&)[N]) {
    return {};
}

template <const auto& Rows, const tvl::ThetaShape& Shape, std::size_t... K>
HWY_INLINE V criticalFit(D d, V p, V T, std::index_sequence<K...>) {
    const auto c = [d](double value) { return hn::Set(d, value); };
    const V dv = hn::Div(hn::Sub(p, c(22064000.0)), c(1e6));
    const V tv = hn::Sub(T, c(647.096));
    CriticalLanes w;
    w.theta = hn::Add(hn::Add(hn::Add(hn::Mul(hn::Mul(c(Shape.d2), dv), dv), hn::Mul(c(Shape.d1), dv)),
                              hn::Mul(c(Shape.t1), tv)),
                      hn::Mul(hn::Mul(c(Shape.t2), tv), tv));
    const V sign = hn::IfThenElse(hn::Lt(w.theta, hn::Zero(d)), c(-1.0), c(1.0));
    const V root2 = signedRoot(d, w.theta, sign), root4 = signedRoot(d, root2, sign);
    w.d.fill(d, dv);
    w.t.fill(d, tv);
    w.q2.fill(d, root2);
    w.q4.fill(d, root4);
    w.q8.fill(d, signedRoot(d, root4, sign));
    V sum = hn::Zero(d);
    ((sum = criticalTerm<Rows, K>(d, sum, w)), ...);
    return hn::Add(c(tvl::kCriticalVolume), sum);
}

// Area G at M vectors of points; its powers reach 32 and 22.
template <int M, std::size_t... K>
HWY_INLINE void highPressureFit(D d, const V* p, const V* T, V* sum, std::index_sequence<K...>) {
    Powers<32> x[M];
    Powers<22> y[M];
    V xBase[M], yBase[M];
    for (int m = 0; m < M; ++m) {
        const V pressure = hn::Div(hn::Div(p[m], hn::Set(d, 1e6)), hn::Set(d, tvl::kRoughVolumeAreaGPressure));
        xBase[m] = hn::Sub(pressure, hn::Set(d, 1.0));
        yBase[m] = hn::Sub(hn::Div(T[m], hn::Set(d, tvl::kRoughVolumeAreaGTemperature)), hn::Set(d, 1.0));
        sum[m] = hn::Zero(d);
    }
    fillSideBySide<M>(d, x, xBase, y, yBase);
    const auto term = [&](auto k) {
        constexpr tvl::PlainFitTerm r = tvl::kRoughVolumeAreaG[decltype(k)::value];
        for (int m = 0; m < M; ++m) sum[m] = hn::Add(sum[m], times<r.b>(times<r.a>(hn::Set(d, r.c), x[m]), y[m]));
    };
    (term(std::integral_constant<std::size_t, K>()), ...);
}

template <const auto& Rows, const tvl::ThetaShape& Shape>
HWY_INLINE V criticalFit(D d, V p, V T) {
    return criticalFit<Rows, Shape>(d, p, T, termsOf(Rows));
}

// The fit of an area at M vectors of points.
template <tvl::RoughV3Area Area, int M>
HWY_INLINE void fitOfArea(D d, const V* p, const V* T, V* v) {
    using namespace tvl;
    using A = RoughV3Area;
    for (int m = 0; m < M && Area != A::G; ++m) {
        if constexpr (Area == A::A) v[m] = criticalFit<kRoughVolumeAreaA, kRoughVolumeThetaA>(d, p[m], T[m]);
        if constexpr (Area == A::B) v[m] = criticalFit<kRoughVolumeAreaB, kRoughVolumeThetaB>(d, p[m], T[m]);
        if constexpr (Area == A::C) v[m] = criticalFit<kRoughVolumeAreaC, kRoughVolumeThetaC>(d, p[m], T[m]);
        if constexpr (Area == A::D) v[m] = criticalFit<kRoughVolumeAreaD, kRoughVolumeThetaD>(d, p[m], T[m]);
        if constexpr (Area == A::E) v[m] = criticalFit<kRoughVolumeAreaE, kRoughVolumeThetaE>(d, p[m], T[m]);
        if constexpr (Area == A::F) v[m] = criticalFit<kRoughVolumeAreaF, kRoughVolumeThetaF>(d, p[m], T[m]);
    }
    if constexpr (Area == A::G) highPressureFit<M>(d, p, T, v, termsOf(kRoughVolumeAreaG));
}

// The fitted volume of each point: its area chosen as the plain fit chooses it, then each
// area's fit in lanes over the points of that area.
template <int... A>
HWY_NOINLINE void fittedVolumes(const double* p, const double* T, double* v, std::size_t count, std::integer_sequence<int, A...>) {
    const tvl::WaterModel& water = region3::fitModel();
    std::size_t members[sizeof...(A)][kChunk], size[sizeof...(A)] = {};
    for (std::size_t k = 0; k < count; ++k) {
        const int area = static_cast<int>(tvl::roughV3Area(water, p[k], T[k]));
        members[area][size[area]++] = k;
    }
    const auto one = [&](auto area) {
        const std::size_t n = size[area];
        if (n == 0) return;
        double ap[kChunk], aT[kChunk], av[kChunk];
        for (std::size_t j = 0; j < n; ++j) {
            ap[j] = p[members[area][j]];
            aT[j] = T[members[area][j]];
        }
        const double* const in[2] = {ap, aT};
        double* const out[1] = {av};
        inPairs(in, out, n, [](auto group, const auto& vin, auto& vout) {
            fitOfArea<static_cast<tvl::RoughV3Area>(decltype(area)::value), decltype(group)::value>(D(), vin[0], vin[1],
                                                                                                    vout[0]);
        });
        for (std::size_t j = 0; j < n; ++j) v[members[area][j]] = av[j];
    };
    (one(std::integral_constant<int, A>()), ...);
}

// Newton on the density along the isotherm, as the plain search: the cap tested before the
// convergence test, the residual tested the one before the step, the step always taken. On
// return failed[m] holds the lanes that ran out of iterations.
template <int M>
HWY_NOINLINE void densitySearch(D d, const V* p, const V* T, V* rho, hn::Mask<D>* failed, const SearchSettings& search) {
    HelmholtzGroup<M> g;
    V limit[M];
    hn::Mask<D> running[M];
    for (int m = 0; m < M; ++m) {
        limit[m] = hn::Mul(p[m], hn::Set(d, search.tolerance));
        g.tau[m] = reducedTemperature(d, T[m]);
        running[m] = hn::FirstN(d, hn::Lanes(d));
    }
    for (int m = 0; m < M; ++m) g.y[m].fill(d, g.tau[m]);
    const V r = hn::Set(d, R), two = hn::Set(d, 2.0);
    for (int i = 1;; ++i) {
        for (int m = 0; m < M; ++m) {
            g.delta[m] = reducedDensity(d, rho[m]);
            g.x[m].fill(d, g.delta[m]);
        }
        sumsAt<tvl::kPhiDelta | tvl::kPhiDeltaDelta>(d, g);
        bool stopped = true;
        for (int m = 0; m < M; ++m) {
            const Helmholtz& f = g.f[m];
            const V delta = g.delta[m];
            const V residual = hn::Sub(hn::Mul(hn::Mul(hn::Mul(hn::Mul(rho[m], r), T[m]), delta), f.phiDelta), p[m]);
            const V slope = hn::Mul(
                hn::Mul(hn::Mul(hn::Add(hn::Mul(two, f.phiDelta), hn::Mul(delta, f.phiDeltaDelta)), delta), r), T[m]);
            if (i >= search.maxIterations) {
                failed[m] = running[m];
                continue;
            }
            rho[m] = hn::IfThenElse(running[m], hn::Sub(rho[m], hn::Div(residual, slope)), rho[m]);
            running[m] = hn::And(running[m], hn::Gt(hn::Abs(residual), limit[m]));
            stopped = stopped && hn::AllFalse(d, running[m]);
        }
        if (stopped || i >= search.maxIterations) return;
    }
}

// The property of the (p,T) family at (rho, T), as the scalar (density, T) equations form it.
template <int Property>
constexpr unsigned kWanted = Property == kInternalEnergy ? tvl::kPhiTau
                             : Property == kEntropy      ? tvl::kPhi | tvl::kPhiTau
                             : Property == kEnthalpy     ? tvl::kPhiDelta | tvl::kPhiTau
                             : Property == kIsochoricHeat
                                 ? tvl::kPhiTauTau
                                 : tvl::kPhiDelta | tvl::kPhiDeltaDelta | tvl::kPhiTauTau | tvl::kPhiDeltaTau;

template <int Property>
HWY_INLINE V composed(D d, const Helmholtz& f, V delta, V tau, V rho, V T) {
    const auto c = [d](double value) { return hn::Set(d, value); };
    if constexpr (Property == kInternalEnergy) return hn::Mul(c(helmholtz::kRTc), f.phiTau);
    if constexpr (Property == kEntropy) return hn::Mul(hn::Sub(hn::Mul(tau, f.phiTau), f.phi), c(R));
    if constexpr (Property == kEnthalpy)
        return hn::Mul(hn::Mul(hn::Add(hn::Mul(tau, f.phiTau), hn::Mul(delta, f.phiDelta)), c(R)), T);
    if constexpr (Property == kIsochoricHeat) return hn::Mul(hn::Mul(hn::Mul(hn::Neg(tau), tau), f.phiTauTau), c(R));
    if constexpr (Property == kIsobaricHeat || Property == kSpeedOfSound) {
        const V D2 =
            hn::Add(hn::Mul(hn::Mul(c(2.0), delta), f.phiDelta), hn::Mul(hn::Mul(delta, delta), f.phiDeltaDelta));
        const V E = hn::Sub(hn::Mul(delta, f.phiDelta), hn::Mul(hn::Mul(delta, tau), f.phiDeltaTau));
        const V tauTauPhi = hn::Mul(hn::Mul(tau, tau), f.phiTauTau);
        if constexpr (Property == kIsobaricHeat) return hn::Mul(hn::Sub(hn::Div(hn::Mul(E, E), D2), tauTauPhi), c(R));
        else return hn::Sqrt(hn::Mul(hn::Mul(hn::Sub(D2, hn::Div(hn::Mul(E, E), tauTauPhi)), c(R)), T));
    }
    if constexpr (Property == kJouleThomson) {
        const V a = hn::Sub(f.phiDelta, hn::Mul(tau, f.phiDeltaTau));
        const V numerator = hn::Add(hn::Add(f.phiDelta, hn::Mul(tau, f.phiDeltaTau)), hn::Mul(delta, f.phiDeltaDelta));
        const V curvature = hn::Add(hn::Mul(c(2.0), f.phiDelta), hn::Mul(delta, f.phiDeltaDelta));
        const V denominator = hn::Mul(
            hn::Mul(hn::Sub(hn::Mul(hn::Mul(delta, a), a), hn::Mul(hn::Mul(hn::Mul(curvature, tau), tau), f.phiTauTau)),
                    c(R)),
            rho);
        return hn::Div(hn::Neg(numerator), denominator);
    }
}

template <int Property, int M>
HWY_INLINE void propertiesAt(D d, const V* rho, const V* T, V* out) {
    if constexpr (Property == kVolume || Property == kDensity) {
        for (int m = 0; m < M; ++m) out[m] = Property == kVolume ? hn::Div(hn::Set(d, 1.0), rho[m]) : rho[m];
    } else {
        HelmholtzGroup<M> g;
        g.fillAt(d, rho, T);
        // Once per point: the full sums, which need no test of the powers.
        helmholtzSums<kWanted<Property>, false>(d, g, std::make_index_sequence<helmholtz::kRows.size()>());
        for (int m = 0; m < M; ++m) out[m] = composed<Property>(d, g.f[m], g.delta[m], g.tau[m], rho[m], T[m]);
    }
}

// Each point's density from its start (a density, or where `FromVolume` a volume), searched where
// the settings ask, then the property there; failed[k] = 1.0 where the search ran out.
template <int Property, bool FromVolume>
void densityThenProperty(const double* p, const double* T, const double* start, double* out, double* failed,
                         std::size_t count, const SearchSettings& search) {
    const double* const in[3] = {p, T, start};
    double* const outputs[2] = {out, failed};
    inPairs(in, outputs, count, [&search](auto group, const auto& vin, auto& vout) {
        constexpr int M = decltype(group)::value;
        const D d;
        V rho[M];
        hn::Mask<D> stopped[M];
        for (int m = 0; m < M; ++m) {
            rho[m] = FromVolume ? hn::Div(hn::Set(d, 1.0), vin[2][m]) : vin[2][m];
            stopped[m] = hn::FirstN(d, 0);
        }
        if (search.refining) densitySearch<M>(d, vin[0], vin[1], rho, stopped, search);
        propertiesAt<Property, M>(d, rho, vin[1], vout[0]);
        for (int m = 0; m < M; ++m) vout[1][m] = hn::IfThenElseZero(stopped[m], hn::Set(d, 1.0));
    });
}

template <int Property>
void Region3Kernel(const double* p, const double* T, double* out, double* failed, std::size_t count,
                   const SearchSettings& search) {
    for (std::size_t k = 0; k < count; k += kChunk) {
        const std::size_t n = count - k < kChunk ? count - k : kChunk;
        double volume[kChunk];
        fittedVolumes(p + k, T + k, volume, n, std::make_integer_sequence<int, 7>());
        densityThenProperty<Property, true>(p + k, T + k, volume, out + k, failed + k, n, search);
    }
}

template <int Property>
void Region3FromStartKernel(const double* p, const double* T, const double* start, double* out, double* failed,
                            std::size_t count, const SearchSettings& search) {
    SearchSettings always = search;
    always.refining = true;
    densityThenProperty<Property, false>(p, T, start, out, failed, count, always);
}

extern const DensityKernel kRegion3Kernels[kPropertyCount];
const DensityKernel kRegion3Kernels[kPropertyCount] = {
    &Region3Kernel<kVolume>,        &Region3Kernel<kDensity>,      &Region3Kernel<kInternalEnergy>,
    &Region3Kernel<kEntropy>,       &Region3Kernel<kEnthalpy>,     &Region3Kernel<kIsobaricHeat>,
    &Region3Kernel<kIsochoricHeat>, &Region3Kernel<kSpeedOfSound>, &Region3Kernel<kJouleThomson>};

extern const StartedDensityKernel kRegion3FromStartKernels[kPropertyCount];
const StartedDensityKernel kRegion3FromStartKernels[kPropertyCount] = {
    &Region3FromStartKernel<kVolume>,        &Region3FromStartKernel<kDensity>,
    &Region3FromStartKernel<kInternalEnergy>, &Region3FromStartKernel<kEntropy>,
    &Region3FromStartKernel<kEnthalpy>,      &Region3FromStartKernel<kIsobaricHeat>,
    &Region3FromStartKernel<kIsochoricHeat>, &Region3FromStartKernel<kSpeedOfSound>,
    &Region3FromStartKernel<kJouleThomson>};

}  // namespace tvlx::lanes::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();
#endif
