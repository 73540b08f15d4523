// Region 3 by (p,T) over several points at once, compiled for AVX-512 and AVX2: the density
// search of the plain call lane by lane (the library's fitted volume as the start, then Newton on
// the Helmholtz sums along the isotherm), then the property at the density found. Each lane runs
// the scalar count rule and stop test; a lane that has stopped keeps its density while the
// others go on, and the vector is done when every lane has stopped or run out of iterations.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "lanes/region3_lanes.cpp"
#include <hwy/foreach_target.h>  // IWYU pragma: keep
#include <hwy/highway.h>

#include <cstddef>
#include <utility>

#include "lanes/kernels.h"
#include "lanes/lane_ops.h"
#include "water/formulation/region3_helmholtz.h"
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

namespace helmholtz = tvl::region3;
using helmholtz::R;
using DeltaPowers = Powers<helmholtz::kReachDelta>;
using TauPowers = Powers<helmholtz::kReachTau>;

struct Helmholtz {
    V phi, phiDelta, phiDeltaDelta, phiTau, phiTauTau, phiDeltaTau;
    explicit Helmholtz(D d) : phi(hn::Zero(d)), phiDelta(phi), phiDeltaDelta(phi), phiTau(phi), phiTauTau(phi),
                              phiDeltaTau(phi) {}
};

template <unsigned Wanted, std::size_t K>
HWY_INLINE void helmholtzTerm(D d, Helmholtz& s, const DeltaPowers& x, const TauPowers& y) {
    constexpr helmholtz::HelmholtzRow r = helmholtz::kRows[K];
    if constexpr ((Wanted & tvl::kPhi) != 0) s.phi = plus(d, s.phi, r.n, x.at<r.I>(d), y.at<r.J>(d));
    if constexpr ((Wanted & tvl::kPhiDelta) != 0)
        s.phiDelta = plus(d, s.phiDelta, r.nI, x.at<r.I - 1>(d), y.at<r.J>(d));
    if constexpr ((Wanted & tvl::kPhiDeltaDelta) != 0)
        s.phiDeltaDelta = plus(d, s.phiDeltaDelta, r.nII, x.at<r.I - 2>(d), y.at<r.J>(d));
    if constexpr ((Wanted & tvl::kPhiTau) != 0) s.phiTau = plus(d, s.phiTau, r.nJ, x.at<r.I>(d), y.at<r.J - 1>(d));
    if constexpr ((Wanted & tvl::kPhiTauTau) != 0)
        s.phiTauTau = plus(d, s.phiTauTau, r.nJJ, x.at<r.I>(d), y.at<r.J - 2>(d));
    if constexpr ((Wanted & tvl::kPhiDeltaTau) != 0)
        s.phiDeltaTau = plus(d, s.phiDeltaTau, r.nIJ, x.at<r.I - 1>(d), y.at<r.J - 1>(d));
}

// The 39 terms in table order, then the logarithm term, as the scalar sums form them.
template <unsigned Wanted, std::size_t... K>
HWY_INLINE Helmholtz helmholtzSums(D d, const DeltaPowers& x, const TauPowers& y, V delta, std::index_sequence<K...>) {
    Helmholtz s(d);
    (helmholtzTerm<Wanted, K>(d, s, x, y), ...);
    const V n1 = hn::Set(d, tvl::kRegion3LogCoefficient);
    if constexpr ((Wanted & tvl::kPhi) != 0) s.phi = hn::Add(s.phi, hn::Mul(n1, logarithm(d, delta)));
    if constexpr ((Wanted & tvl::kPhiDelta) != 0) s.phiDelta = hn::Add(s.phiDelta, hn::Div(n1, delta));
    if constexpr ((Wanted & tvl::kPhiDeltaDelta) != 0)
        s.phiDeltaDelta = hn::Sub(s.phiDeltaDelta, hn::Div(n1, hn::Mul(delta, delta)));
    return s;
}

template <unsigned Wanted>
HWY_INLINE Helmholtz sumsAt(D d, const DeltaPowers& x, const TauPowers& y, V delta) {
    return helmholtzSums<Wanted>(d, x, y, delta, std::make_index_sequence<helmholtz::kRows.size()>());
}

HWY_INLINE V reducedDensity(D d, V rho) { return hn::Div(rho, hn::Set(d, helmholtz::kDensity)); }
HWY_INLINE V reducedTemperature(D d, V T) { return hn::Div(hn::Set(d, helmholtz::kTemperature), T); }

// The start: the fitted volume of each lane's area, inverted.
HWY_INLINE V startDensity(D d, const double* p, const double* T) {
    HWY_ALIGN double volume[hn::MaxLanes(d)];
    const tvl::WaterModel& water = region3::fitModel();
    for (std::size_t k = 0; k < hn::Lanes(d); ++k) volume[k] = water.RoughV3PT(p[k], T[k]);
    return hn::Div(hn::Set(d, 1.0), hn::Load(d, volume));
}

struct Found {
    V rho;
    hn::Mask<D> failed;
};

// Newton on the density along the isotherm, as the plain search: the cap tested before the
// convergence test, the residual tested the one before the step, the step always taken.
HWY_INLINE Found densitySearch(D d, V p, V T, V rho, const Search& search) {
    const V limit = hn::Mul(p, hn::Set(d, search.tolerance));
    TauPowers y;
    y.fill(d, reducedTemperature(d, T));
    const V r = hn::Set(d, R), two = hn::Set(d, 2.0);
    auto running = hn::FirstN(d, hn::Lanes(d));
    for (int i = 1;; ++i) {
        const V delta = reducedDensity(d, rho);
        DeltaPowers x;
        x.fill(d, delta);
        const Helmholtz f = sumsAt<tvl::kPhiDelta | tvl::kPhiDeltaDelta>(d, x, y, delta);
        const V residual = hn::Sub(hn::Mul(hn::Mul(hn::Mul(hn::Mul(rho, r), T), delta), f.phiDelta), p);
        const V slope =
            hn::Mul(hn::Mul(hn::Mul(hn::Add(hn::Mul(two, f.phiDelta), hn::Mul(delta, f.phiDeltaDelta)), delta), r), T);
        if (i >= search.maxIterations) return {rho, running};
        rho = hn::IfThenElse(running, hn::Sub(rho, hn::Div(residual, slope)), rho);
        running = hn::And(running, hn::Gt(hn::Abs(residual), limit));
        if (hn::AllFalse(d, running)) return {rho, running};
    }
}

// The property of the (p,T) family at (rho, T), as the scalar (density, T) equations form it.
template <int Property>
HWY_INLINE V propertyAt(D d, V rho, V T) {
    using namespace tvl;
    if constexpr (Property == kVolume) return hn::Div(hn::Set(d, 1.0), rho);
    if constexpr (Property == kDensity) return rho;
    const auto c = [d](double value) { return hn::Set(d, value); };
    const V delta = reducedDensity(d, rho), tau = reducedTemperature(d, T);
    DeltaPowers x;
    TauPowers y;
    x.fill(d, delta);
    y.fill(d, tau);
    constexpr unsigned kCaloric = kPhiDelta | kPhiDeltaDelta | kPhiTauTau | kPhiDeltaTau;
    if constexpr (Property == kInternalEnergy)
        return hn::Mul(c(helmholtz::kRTc), sumsAt<kPhiTau>(d, x, y, delta).phiTau);
    if constexpr (Property == kEntropy) {
        const Helmholtz f = sumsAt<kPhi | kPhiTau>(d, x, y, delta);
        return hn::Mul(hn::Sub(hn::Mul(tau, f.phiTau), f.phi), c(R));
    }
    if constexpr (Property == kEnthalpy) {
        const Helmholtz f = sumsAt<kPhiDelta | kPhiTau>(d, x, y, delta);
        return hn::Mul(hn::Mul(hn::Add(hn::Mul(tau, f.phiTau), hn::Mul(delta, f.phiDelta)), c(R)), T);
    }
    if constexpr (Property == kIsochoricHeat) {
        const Helmholtz f = sumsAt<kPhiTauTau>(d, x, y, delta);
        return hn::Mul(hn::Mul(hn::Mul(hn::Neg(tau), tau), f.phiTauTau), c(R));
    }
    if constexpr (Property == kIsobaricHeat || Property == kSpeedOfSound) {
        const Helmholtz f = sumsAt<kCaloric>(d, x, y, delta);
        const V D2 = hn::Add(hn::Mul(hn::Mul(c(2.0), delta), f.phiDelta), hn::Mul(hn::Mul(delta, delta), f.phiDeltaDelta));
        const V E = hn::Sub(hn::Mul(delta, f.phiDelta), hn::Mul(hn::Mul(delta, tau), f.phiDeltaTau));
        const V tauTauPhi = hn::Mul(hn::Mul(tau, tau), f.phiTauTau);
        if constexpr (Property == kIsobaricHeat) return hn::Mul(hn::Sub(hn::Div(hn::Mul(E, E), D2), tauTauPhi), c(R));
        else return hn::Sqrt(hn::Mul(hn::Mul(hn::Sub(D2, hn::Div(hn::Mul(E, E), tauTauPhi)), c(R)), T));
    }
    if constexpr (Property == kJouleThomson) {
        const Helmholtz f = sumsAt<kCaloric>(d, x, y, delta);
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

// The tail of the arrays runs with its lanes padded by copies of its first point.
template <int Property>
void Region3Kernel(const double* p, const double* T, double* out, double* failed, std::size_t count,
                   const Search& search) {
    const D d;
    const std::size_t N = hn::Lanes(d);
    HWY_ALIGN double pp[hn::MaxLanes(d)], tt[hn::MaxLanes(d)], oo[hn::MaxLanes(d)], ff[hn::MaxLanes(d)];
    for (std::size_t k = 0; k < count; k += N) {
        for (std::size_t j = 0; j < N; ++j) {
            pp[j] = k + j < count ? p[k + j] : p[k];
            tt[j] = k + j < count ? T[k + j] : T[k];
        }
        const V pv = hn::Load(d, pp), Tv = hn::Load(d, tt);
        Found found{startDensity(d, pp, tt), hn::FirstN(d, 0)};
        if (search.refining) found = densitySearch(d, pv, Tv, found.rho, search);
        hn::Store(propertyAt<Property>(d, found.rho, Tv), d, oo);
        hn::Store(hn::IfThenElseZero(found.failed, hn::Set(d, 1.0)), d, ff);
        for (std::size_t j = 0; j < N && k + j < count; ++j) {
            out[k + j] = oo[j];
            failed[k + j] = ff[j];
        }
    }
}

extern const SearchKernel kRegion3Kernels[kPropertyCount];
const SearchKernel kRegion3Kernels[kPropertyCount] = {
    &Region3Kernel<kVolume>,        &Region3Kernel<kDensity>,      &Region3Kernel<kInternalEnergy>,
    &Region3Kernel<kEntropy>,       &Region3Kernel<kEnthalpy>,     &Region3Kernel<kIsobaricHeat>,
    &Region3Kernel<kIsochoricHeat>, &Region3Kernel<kSpeedOfSound>, &Region3Kernel<kJouleThomson>};

}  // namespace tvlx::lanes::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();
#endif
