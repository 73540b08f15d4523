// The (p,T) equations of regions 1, 2 and 5 over several points at once, compiled for each
// instruction set that Highway targets here (AVX-512, AVX2). Every lane performs the operations
// of the scalar region functions in their order: power tables by repeated multiplication,
// negative powers by one division, each sum in table order, then the same compositions. A
// multiplication and an addition stay two instructions (no fused multiply-add), so each lane
// rounds exactly as the plain call does.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "lanes/gibbs_lanes.cpp"
#include <hwy/foreach_target.h>  // IWYU pragma: keep
#include <hwy/highway.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <utility>

#include "lanes/kernels.h"
#include "lanes/lane_ops.h"
#include "frame/validators.h"
#include "water/formulation/constants.h"
#include "water/formulation/pressure_buckets.h"
#include "water/formulation/region2_gibbs.h"
#include "water/formulation/tables/region1_coefficients.h"
#include "water/formulation/tables/region2_coefficients.h"
#include "water/formulation/tables/metastable_coefficients.h"
#include "water/formulation/tables/region5_coefficients.h"
#include "water/formulation/tables/saturation_coefficients.h"
#include "water/formulation/water_model.h"

#ifndef TAVLIB6X_GIBBS_TERMS_ONCE
#define TAVLIB6X_GIBBS_TERMS_ONCE
namespace tvlx::lanes::terms {

// n x^I y^J with the products of coefficient and exponents that the derivatives read, formed as
// the scalar sums form them: n I (I-1) is (n I) (I-1).
struct Residual {
    int I;
    int J;
    double n, nI, nII, nJ, nJJ, nIJ;
};

struct Ideal {
    int J0;
    double n0, nJ, nJJ;
};

template <std::size_t N>
constexpr std::array<Residual, N> products(const tvl::PowerTerm (&table)[N]) {
    std::array<Residual, N> out{};
    for (std::size_t k = 0; k < N; ++k) {
        const tvl::PowerTerm& t = table[k];
        out[k] = {t.I, t.J, t.n, t.n * t.I, t.n * t.I * (t.I - 1), t.n * t.J, t.n * t.J * (t.J - 1), t.n * t.I * t.J};
    }
    return out;
}

template <std::size_t N>
constexpr std::array<Ideal, N> products(const tvl::IdealTerm (&table)[N]) {
    std::array<Ideal, N> out{};
    for (std::size_t k = 0; k < N; ++k) {
        const tvl::IdealTerm& t = table[k];
        out[k] = {t.J0, t.n0, t.n0 * t.J0, t.n0 * t.J0 * (t.J0 - 1)};
    }
    return out;
}

inline constexpr auto kRegion1 = products(tvl::kRegion1);
inline constexpr auto kRegion2Residual = products(tvl::kRegion2Residual);
inline constexpr auto kRegion2Ideal = products(tvl::kRegion2Ideal);
inline constexpr auto kRegion5Residual = products(tvl::kRegion5Residual);
inline constexpr auto kRegion5Ideal = products(tvl::kRegion5Ideal);
// Metastable vapour: region 2's form with tables of its own.
inline constexpr auto kMetastableResidual = products(tvl::kMetastableResidual);
inline constexpr auto kMetastableIdeal = products(tvl::kMetastableIdeal);

// The highest power a sum reads: an exponent column of the table lowered by up to two (second
// derivatives) and raised by up to `raise` (the region 5 Joule-Thomson form reads pi^(I+1)).
template <class Table, class Exponent>
constexpr int reach(const Table& table, Exponent exponent, int raise) {
    int highest = 0;
    for (const auto& t : table)
        for (int shift = -2; shift <= raise; ++shift) {
            const int e = exponent(t) + shift;
            highest = (e < 0 ? -e : e) > highest ? (e < 0 ? -e : e) : highest;
        }
    return highest;
}

constexpr auto columnI = [](const Residual& t) { return t.I; };
constexpr auto columnJ = [](const Residual& t) { return t.J; };
constexpr auto columnJ0 = [](const Ideal& t) { return t.J0; };

// The saturation temperature bounded per pressure bucket, as the region selection of the plain
// calls bounds it: a temperature above a bucket's upper bound is steam, below its lower bound
// liquid, and only in between is the saturation temperature computed. The bounds come from the
// model's own TSP, so the decisions, and the bits, are those of the plain calls.
inline const tvl::PressureBuckets& saturationBuckets() {
    static const tvl::PressureBuckets buckets = [] {
        const tvl::ModelSettings settings;
        tvl::SolvedState solved;
        const tvl::WaterModel water(settings, solved);
        return tvl::PressureBuckets(tvl::kIcePointSaturationPressure, tvl::kP623, 1e-6,
                                    [&water](double p) { return water.TSP(p); });
    }();
    return buckets;
}

// Which sums a property reads (the scalar region functions' choice).
enum Sum : unsigned { kG = 1u, kPi = 2u, kPiPi = 4u, kTau = 8u, kTauTau = 16u, kPiTau = 32u };

}  // namespace tvlx::lanes::terms
#endif

// Only the AVX2 and AVX-512 code is used; the baseline target compiles to nothing here.
#if HWY_TARGET == HWY_AVX2 || HWY_TARGET == HWY_AVX3
HWY_BEFORE_NAMESPACE();
namespace tvlx::lanes::HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;
using namespace tvlx::lanes::terms;

constexpr double R = tvl::kGasConstant;

struct Sums {
    V g, gPi, gPiPi, gTau, gTauTau, gPiTau;
    explicit Sums(D d) : g(hn::Zero(d)), gPi(g), gPiPi(g), gTau(g), gTauTau(g), gPiTau(g) {}
};

// One residual term into the wanted sums. Region 1 forms gamma_pi and gamma_pitau by subtracting
// n I ... (its pi runs backwards in x = 7.1 - pi); regions 2 and 5 add.
template <const auto& Table, std::size_t K, unsigned Wanted, bool Subtract, int RX, int RY>
HWY_INLINE void residualTerm(D d, Sums& s, const Powers<RX>& x, const Powers<RY>& y) {
    constexpr Residual t = Table[K];
    if constexpr ((Wanted & kG) != 0) s.g = plus(d, s.g, t.n, x.template at<t.I>(d), y.template at<t.J>(d));
    if constexpr ((Wanted & kPi) != 0) {
        const V xv = x.template at<t.I - 1>(d), yv = y.template at<t.J>(d);
        s.gPi = Subtract ? minus(d, s.gPi, t.nI, xv, yv) : plus(d, s.gPi, t.nI, xv, yv);
    }
    if constexpr ((Wanted & kPiPi) != 0)
        s.gPiPi = plus(d, s.gPiPi, t.nII, x.template at<t.I - 2>(d), y.template at<t.J>(d));
    if constexpr ((Wanted & kTau) != 0)
        s.gTau = plus(d, s.gTau, t.nJ, x.template at<t.I>(d), y.template at<t.J - 1>(d));
    if constexpr ((Wanted & kTauTau) != 0)
        s.gTauTau = plus(d, s.gTauTau, t.nJJ, x.template at<t.I>(d), y.template at<t.J - 2>(d));
    if constexpr ((Wanted & kPiTau) != 0) {
        const V xv = x.template at<t.I - 1>(d), yv = y.template at<t.J - 1>(d);
        s.gPiTau = Subtract ? minus(d, s.gPiTau, t.nIJ, xv, yv) : plus(d, s.gPiTau, t.nIJ, xv, yv);
    }
}

template <const auto& Table, unsigned Wanted, bool Subtract, int RX, int RY, std::size_t... K>
HWY_INLINE Sums residualSums(D d, const Powers<RX>& x, const Powers<RY>& y, std::index_sequence<K...>) {
    Sums s(d);
    (residualTerm<Table, K, Wanted, Subtract>(d, s, x, y), ...);  // in table order
    return s;
}

template <const auto& Table, std::size_t K, unsigned Wanted, int RT>
HWY_INLINE void idealTerm(D d, Sums& s, const Powers<RT>& tau) {
    constexpr Ideal t = Table[K];
    if constexpr ((Wanted & kG) != 0) s.g = plus(d, s.g, t.n0, tau.template at<t.J0>(d));
    if constexpr ((Wanted & kTau) != 0) s.gTau = plus(d, s.gTau, t.nJ, tau.template at<t.J0 - 1>(d));
    if constexpr ((Wanted & kTauTau) != 0) s.gTauTau = plus(d, s.gTauTau, t.nJJ, tau.template at<t.J0 - 2>(d));
}

template <const auto& Table, unsigned Wanted, int RT, std::size_t... K>
HWY_INLINE Sums idealSums(D d, const Powers<RT>& tau, std::index_sequence<K...>) {
    Sums s(d);
    (idealTerm<Table, K, Wanted>(d, s, tau), ...);
    return s;
}

// gamma = gamma0 + gammar; the ideal g holds the tau sum only, ln pi is added where g is wanted.
template <unsigned Wanted>
HWY_INLINE Sums combined(D d, V pi, const Sums& ideal, const Sums& residual, V logPi) {
    Sums s(d);
    const V one = hn::Set(d, 1.0);
    if constexpr ((Wanted & kG) != 0) s.g = hn::Add(hn::Add(logPi, ideal.g), residual.g);
    if constexpr ((Wanted & kPi) != 0) s.gPi = hn::Add(hn::Div(one, pi), residual.gPi);
    if constexpr ((Wanted & kPiPi) != 0) s.gPiPi = hn::Sub(residual.gPiPi, hn::Div(one, hn::Mul(pi, pi)));
    if constexpr ((Wanted & kTau) != 0) s.gTau = hn::Add(ideal.gTau, residual.gTau);
    if constexpr ((Wanted & kTauTau) != 0) s.gTauTau = hn::Add(ideal.gTauTau, residual.gTauTau);
    if constexpr ((Wanted & kPiTau) != 0) s.gPiTau = residual.gPiTau;
    return s;
}

struct Point {
    V pi, tau;
    Sums sums;
};

constexpr int kRegion1ReachX = reach(kRegion1, columnI, 1);
constexpr int kRegion1ReachY = reach(kRegion1, columnJ, 0);

template <unsigned Wanted>
HWY_INLINE Point region1(D d, V p, V T) {
    const V pi = hn::Div(p, hn::Set(d, tvl::kRegion1Pressure));
    const V tau = hn::Div(hn::Set(d, tvl::kRegion1Temperature), T);
    Powers<kRegion1ReachX> x;
    Powers<kRegion1ReachY> y;
    x.fill(d, hn::Sub(hn::Set(d, 7.1), hn::Div(p, hn::Set(d, tvl::kRegion1Pressure))));
    y.fill(d, hn::Sub(tau, hn::Set(d, 1.222)));
    return {pi, tau, residualSums<kRegion1, Wanted, true>(d, x, y, std::make_index_sequence<kRegion1.size()>())};
}

constexpr int kRegion2ReachPi = reach(kRegion2Residual, columnI, 1);
constexpr int kRegion2ReachY = reach(kRegion2Residual, columnJ, 0);
constexpr int kRegion2ReachTau = reach(kRegion2Ideal, columnJ0, 0);

// The residual sums of region 2 (or of the metastable-vapour equation, which has region 2's form)
// at (p, T), with pi and tau.
template <unsigned Wanted, const auto& Residual = kRegion2Residual>
HWY_INLINE Point region2Residual(D d, V p, V T) {
    const V pi = hn::Div(p, hn::Set(d, 1e6));
    const V tau = hn::Div(hn::Set(d, 540.0), T);
    Powers<reach(Residual, columnI, 1)> x;
    Powers<reach(Residual, columnJ, 0)> y;
    x.fill(d, pi);
    y.fill(d, hn::Sub(tau, hn::Set(d, 0.5)));
    return {pi, tau, residualSums<Residual, Wanted, false>(d, x, y, std::make_index_sequence<Residual.size()>())};
}

template <unsigned Wanted, const auto& Residual = kRegion2Residual, const auto& Ideal = kRegion2Ideal>
HWY_INLINE Point region2(D d, V p, V T) {
    const Point r = region2Residual<Wanted, Residual>(d, p, T);
    Powers<reach(Ideal, columnJ0, 0)> tau;
    tau.fill(d, r.tau);
    const Sums ideal = idealSums<Ideal, Wanted>(d, tau, std::make_index_sequence<Ideal.size()>());
    V logPi = hn::Zero(d);
    if constexpr ((Wanted & kG) != 0) logPi = logarithm(d, r.pi);
    return {r.pi, r.tau, combined<Wanted>(d, r.pi, ideal, r.sums, logPi)};
}

constexpr int kRegion5ReachPi = reach(kRegion5Residual, columnI, 1);
// Residual and ideal part both run in tau itself, so one table serves both.
constexpr int kRegion5ReachTau = reach(kRegion5Residual, columnJ, 0) > reach(kRegion5Ideal, columnJ0, 0)
                                     ? reach(kRegion5Residual, columnJ, 0)
                                     : reach(kRegion5Ideal, columnJ0, 0);

struct Region5Tables {
    V pi, tau;
    Powers<kRegion5ReachPi> x;
    Powers<kRegion5ReachTau> y;
};

HWY_INLINE void region5Tables(D d, V p, V T, Region5Tables& t) {
    t.pi = hn::Div(p, hn::Set(d, 1e6));
    t.tau = hn::Div(hn::Set(d, 1000.0), T);
    t.x.fill(d, t.pi);
    t.y.fill(d, t.tau);
}

template <unsigned Wanted>
HWY_INLINE Point region5(D d, V p, V T) {
    Region5Tables t;
    region5Tables(d, p, T, t);
    const Sums residual =
        residualSums<kRegion5Residual, Wanted, false>(d, t.x, t.y, std::make_index_sequence<kRegion5Residual.size()>());
    const Sums ideal = idealSums<kRegion5Ideal, Wanted>(d, t.y, std::make_index_sequence<kRegion5Ideal.size()>());
    V logPi = hn::Zero(d);
    if constexpr ((Wanted & kG) != 0) logPi = logarithm(d, t.pi);
    return {t.pi, t.tau, combined<Wanted>(d, t.pi, ideal, residual, logPi)};
}

// ---- Compositions, as the scalar ones: left to right, the same constants ----

HWY_INLINE V volume(D d, const Point& x, V T, double pStar) {
    return hn::Div(hn::Mul(hn::Mul(hn::Set(d, R), T), x.sums.gPi), hn::Set(d, pStar));
}
HWY_INLINE V internalEnergy(D d, const Point& x, V T) {
    return hn::Mul(hn::Mul(hn::Set(d, R), T), hn::Sub(hn::Mul(x.tau, x.sums.gTau), hn::Mul(x.pi, x.sums.gPi)));
}
HWY_INLINE V entropy(D d, const Point& x) {
    return hn::Mul(hn::Set(d, R), hn::Sub(hn::Mul(x.tau, x.sums.gTau), x.sums.g));
}
HWY_INLINE V enthalpy(D d, const Point& x, double RTstar) { return hn::Mul(hn::Set(d, RTstar), x.sums.gTau); }
HWY_INLINE V isobaricHeat(D d, const Point& x) {
    return hn::Mul(hn::Mul(hn::Mul(hn::Set(d, -R), x.tau), x.tau), x.sums.gTauTau);
}
HWY_INLINE V isochoricHeat(D d, const Point& x) {
    const V a = hn::Sub(x.sums.gPi, hn::Mul(x.tau, x.sums.gPiTau));
    return hn::Mul(hn::Set(d, R),
                   hn::Sub(hn::Div(hn::Mul(a, a), x.sums.gPiPi), hn::Mul(hn::Mul(x.tau, x.tau), x.sums.gTauTau)));
}
HWY_INLINE V speedOfSound(D d, const Point& x, V T) {
    const V a = hn::Sub(x.sums.gPi, hn::Mul(x.tau, x.sums.gPiTau));
    const V b = hn::Sub(hn::Div(hn::Mul(a, a), hn::Mul(hn::Mul(x.tau, x.tau), x.sums.gTauTau)), x.sums.gPiPi);
    return hn::Mul(x.sums.gPi, hn::Sqrt(hn::Div(hn::Mul(hn::Set(d, R), T), b)));
}
HWY_INLINE V jouleThomson(D d, const Point& x, V T, double pStar) {
    return hn::Div(hn::Mul(x.sums.gPiTau, T), hn::Mul(hn::Mul(hn::Set(d, pStar), x.tau), x.sums.gTauTau));
}

constexpr unsigned kCaloric = kPi | kPiPi | kTauTau | kPiTau;  // what cv and w read

// The property P of a region from its Gibbs point (regions 1, 2, 5 share these forms).
template <int Property, class PointAt>
HWY_INLINE V gibbsProperty(D d, V T, PointAt pointAt, double pStar, double RTstar) {
    if constexpr (Property == kVolume) return volume(d, pointAt(std::integral_constant<unsigned, kPi>()), T, pStar);
    if constexpr (Property == kInternalEnergy)
        return internalEnergy(d, pointAt(std::integral_constant<unsigned, kPi | kTau>()), T);
    if constexpr (Property == kEntropy) return entropy(d, pointAt(std::integral_constant<unsigned, kG | kTau>()));
    if constexpr (Property == kEnthalpy) return enthalpy(d, pointAt(std::integral_constant<unsigned, kTau>()), RTstar);
    if constexpr (Property == kIsobaricHeat) return isobaricHeat(d, pointAt(std::integral_constant<unsigned, kTauTau>()));
    if constexpr (Property == kIsochoricHeat)
        return isochoricHeat(d, pointAt(std::integral_constant<unsigned, kCaloric>()));
    if constexpr (Property == kSpeedOfSound)
        return speedOfSound(d, pointAt(std::integral_constant<unsigned, kCaloric>()), T);
    if constexpr (Property == kJouleThomson)
        return jouleThomson(d, pointAt(std::integral_constant<unsigned, kTauTau | kPiTau>()), T, pStar);
}

template <int Property>
HWY_INLINE V region1Property(D d, V p, V T) {
    if constexpr (Property == kDensity) {
        const Point x = region1<kPi>(d, p, T);
        return hn::Div(hn::Set(d, tvl::kRegion1Pressure), hn::Mul(hn::Mul(hn::Set(d, R), T), x.sums.gPi));
    } else {
        const auto at = [&](auto wanted) { return region1<decltype(wanted)::value>(d, p, T); };
        return gibbsProperty<Property>(d, T, at, tvl::kRegion1Pressure, tvl::kRegion1RT);
    }
}

// Density from the residual part alone: pi gamma_pi = 1 + pi gammar_pi.
template <int Property, const auto& Residual = kRegion2Residual, const auto& Ideal = kRegion2Ideal>
HWY_INLINE V region2Property(D d, V p, V T) {
    if constexpr (Property == kDensity) {
        const Point r = region2Residual<kPi, Residual>(d, p, T);
        const V piGammaPi = hn::Add(hn::Mul(r.pi, r.sums.gPi), hn::Set(d, 1.0));
        return hn::Div(p, hn::Mul(hn::Mul(hn::Set(d, R), T), piGammaPi));
    } else {
        const auto at = [&](auto wanted) { return region2<decltype(wanted)::value, Residual, Ideal>(d, p, T); };
        return gibbsProperty<Property>(d, T, at, 1e6, 249224.04);
    }
}

// The sums of the region 5 Joule-Thomson form: n I J pi^I tau^(J-1) and n J (J-1) pi^(I+1) tau^(J-2).
template <std::size_t... K>
HWY_INLINE void region5JouleThomsonTerms(D d, const Region5Tables& t, V& numerator, V& curvature,
                                         std::index_sequence<K...>) {
    const auto term = [&](auto k) {
        constexpr Residual r = kRegion5Residual[decltype(k)::value];
        numerator = plus(d, numerator, r.nIJ, t.x.template at<r.I>(d), t.y.template at<r.J - 1>(d));
        curvature = plus(d, curvature, r.nJJ, t.x.template at<r.I + 1>(d), t.y.template at<r.J - 2>(d));
    };
    (term(std::integral_constant<std::size_t, K>()), ...);
}

template <int Property>
HWY_INLINE V region5Property(D d, V p, V T) {
    if constexpr (Property == kDensity) {
        Region5Tables t;
        region5Tables(d, p, T, t);
        const Sums r =
            residualSums<kRegion5Residual, kPi, false>(d, t.x, t.y, std::make_index_sequence<kRegion5Residual.size()>());
        const V onePlus = hn::Add(hn::Set(d, 1.0), hn::Mul(t.pi, r.gPi));
        return hn::Div(p, hn::Mul(hn::Mul(onePlus, hn::Set(d, R)), T));
    } else if constexpr (Property == kJouleThomson) {
        // The library's own form: one more power of pi in the numerator and in the residual
        // part of the denominator.
        Region5Tables t;
        region5Tables(d, p, T, t);
        V numerator = hn::Zero(d), curvature = hn::Zero(d);
        region5JouleThomsonTerms(d, t, numerator, curvature, std::make_index_sequence<kRegion5Residual.size()>());
        const Sums ideal = idealSums<kRegion5Ideal, kTauTau>(d, t.y, std::make_index_sequence<kRegion5Ideal.size()>());
        return hn::Div(hn::Mul(numerator, T),
                       hn::Mul(hn::Mul(hn::Set(d, 1e6), t.tau), hn::Add(curvature, ideal.gTauTau)));
    } else {
        const auto at = [&](auto wanted) { return region5<decltype(wanted)::value>(d, p, T); };
        return gibbsProperty<Property>(d, T, at, 1e6, 461526.0);
    }
}

template <int Property>
void Region1Kernel(const double* p, const double* T, double* out, std::size_t count) {
    overArrays(p, T, out, count, [](D d, V pv, V Tv) { return region1Property<Property>(d, pv, Tv); });
}
template <int Property>
void Region2Kernel(const double* p, const double* T, double* out, std::size_t count) {
    overArrays(p, T, out, count, [](D d, V pv, V Tv) { return region2Property<Property>(d, pv, Tv); });
}
template <int Property>
void MetastableKernel(const double* p, const double* T, double* out, std::size_t count) {
    overArrays(p, T, out, count, [](D d, V pv, V Tv) {
        return region2Property<Property, kMetastableResidual, kMetastableIdeal>(d, pv, Tv);
    });
}
template <int Property>
void Region5Kernel(const double* p, const double* T, double* out, std::size_t count) {
    overArrays(p, T, out, count, [](D d, V pv, V Tv) { return region5Property<Property>(d, pv, Tv); });
}

// ---- Region selection of the (p,T) family, as the frame's range test and the dispatcher ----

HWY_INLINE V saturationTemperature(D d, V p) {
    constexpr const double* n = tvl::kRegion4;
    const auto c = [d](double value) { return hn::Set(d, value); };
    const V betaSquared = hn::Sqrt(hn::Div(p, c(1e6)));
    const V beta = hn::Sqrt(betaSquared);
    const V E = hn::Add(hn::Add(betaSquared, hn::Mul(c(n[2]), beta)), c(n[5]));
    const V F = hn::Add(hn::Add(hn::Mul(c(n[0]), betaSquared), hn::Mul(c(n[3]), beta)), c(n[6]));
    const V G = hn::Add(hn::Add(hn::Mul(c(n[1]), betaSquared), hn::Mul(c(n[4]), beta)), c(n[7]));
    const V root = hn::Sqrt(hn::Sub(hn::Mul(F, F), hn::Mul(hn::Mul(c(4.0), E), G)));
    const V Dv = hn::Div(hn::Mul(c(2.0), G), hn::Sub(hn::Neg(F), root));
    const V sum = hn::Add(c(n[9]), Dv);
    const V inner = hn::Mul(c(4.0), hn::Sub(hn::Mul(c(n[9]), Dv), c(0.23855557567849)));
    return hn::Mul(hn::Sub(sum, hn::Sqrt(hn::Sub(hn::Mul(sum, sum), inner))), c(0.5));
}

HWY_INLINE V b23Temperature(D d, V p) {
    const V reduced = hn::Div(hn::Sub(hn::Div(p, hn::Set(d, 1e6)), hn::Set(d, 13.91883977887)),
                              hn::Set(d, 0.0010192970039326));
    return hn::Add(hn::Sqrt(reduced), hn::Set(d, 572.54459862746));
}

// mT >= TSP(p) for p from the lowest saturation pressure to B23 at 623.15 K: decided by the
// bucket bounds, the saturation temperature computed only where a lane falls between them.
HWY_INLINE hn::Mask<D> atOrAboveSaturation(D d, V p, V mT) {
    using DI = hn::RebindToSigned<D>;
    const DI di;
    const hn::RebindToUnsigned<D> du;
    const tvl::PressureBuckets& buckets = saturationBuckets();
    const auto key = hn::BitCast(di, hn::ShiftRight<48>(hn::BitCast(du, p)));
    const auto k = hn::Sub(key, hn::Set(di, static_cast<std::int64_t>(buckets.firstKey())));
    const auto inTable =
        hn::And(hn::Gt(k, hn::Set(di, -1)), hn::Lt(k, hn::Set(di, static_cast<std::int64_t>(buckets.size()))));
    const auto index = hn::IfThenElseZero(inTable, k);
    const auto above = hn::Ge(mT, hn::GatherIndex(d, buckets.upperBounds(), index));
    const auto below = hn::Lt(mT, hn::GatherIndex(d, buckets.lowerBounds(), index));
    const auto decided = hn::And(hn::RebindMask(d, inTable), hn::Or(above, below));
    const auto onTheLine = hn::And(hn::Le(p, hn::Set(d, tvl::kP623)), hn::Ge(p, hn::Set(d, tvl::kIcePointSaturationPressure)));
    if (hn::AllFalse(d, hn::AndNot(decided, onTheLine))) return above;
    return hn::Or(hn::And(decided, above), hn::AndNot(decided, hn::Ge(mT, saturationTemperature(d, p))));
}

HWY_INLINE V classifyLanes(D d, V p, V T, double m, bool checks, double region3) {
    const auto c = [d](double value) { return hn::Set(d, value); };
    const V inf = c(HUGE_VAL);
    const V mT = hn::Mul(c(m), T);
    // REGIONPT from the inside out; B23 only where a lane lies above P623 and 623.15 K
    V b23Side = hn::IfThenElse(hn::Le(T, c(tvl::kRegion13Temperature)), c(1.0), c(2.0));
    if (!hn::AllFalse(d, hn::And(hn::Gt(p, c(tvl::kP623)), hn::Gt(T, c(tvl::kRegion13Temperature)))))
        b23Side = hn::IfThenElse(hn::Le(T, c(tvl::kRegion13Temperature)), c(1.0),
                                 hn::IfThenElse(hn::Gt(b23Temperature(d, p), mT), c(region3), c(2.0)));
    const V saturationSide = hn::IfThenElse(hn::Lt(p, c(tvl::kIcePointSaturationPressure)), c(2.0),
                                            hn::IfThenElse(atOrAboveSaturation(d, p, mT), c(2.0), c(1.0)));
    V region = hn::IfThenElse(hn::Le(p, c(tvl::kP623)), saturationSide, b23Side);
    region = hn::IfThenElse(hn::Ge(T, c(tvl::kB23UpperTemperature)), c(2.0), region);
    region = hn::IfThenElse(hn::Gt(T, c(m * tvl::kRegion25Temperature)), c(5.0), region);
    if (checks) {
        const tvl::PressureTemperatureLimits& limits = tvl::kArgumentLimits;
        const auto refused = hn::Or(hn::Or(hn::Gt(T, c(limits.highestTemperature)), hn::Lt(p, c(0.0))),
                                    hn::Or(hn::Gt(p, c(limits.highestPressure)),
                                           hn::And(hn::Gt(T, c(limits.region5Temperature)),
                                                   hn::Gt(p, c(limits.region5Pressure)))));
        region = hn::IfThenElse(refused, c(-1.0), region);
        region = hn::IfThenElse(hn::Lt(T, c(limits.lowestTemperature)), c(0.0), region);  // the melting curve
    }
    const auto finite = hn::And(hn::Lt(hn::Abs(p), inf), hn::Lt(hn::Abs(T), inf));
    return hn::IfThenElseZero(finite, region);
}

void Classify(const double* p, const double* T, double* region, std::size_t count, double tolerance, bool checks) {
    const double m = 1.0 + tolerance;
    overArrays(p, T, region, count, [m, checks](D d, V pv, V Tv) { return classifyLanes(d, pv, Tv, m, checks, 0.0); });
}

void ClassifyWithRegion3(const double* p, const double* T, double* region, std::size_t count, double tolerance,
                         bool checks) {
    const double m = 1.0 + tolerance;
    overArrays(p, T, region, count, [m, checks](D d, V pv, V Tv) { return classifyLanes(d, pv, Tv, m, checks, 3.0); });
}

// ---- The saturation line ----

constexpr double kThetaShift = 0.23855557567849;  // minus n9
constexpr double kThetaPole = 650.17534844798;    // n10

struct LineTerms {
    V theta, A, B, C;
};

HWY_INLINE LineTerms lineTerms(D d, V theta) {
    constexpr const double* n = tvl::kRegion4;
    const auto c = [d](double value) { return hn::Set(d, value); };
    const V A = hn::Add(hn::Add(hn::Mul(theta, theta), hn::Mul(c(n[0]), theta)), c(n[1]));
    const V B = hn::Add(hn::Add(hn::Mul(hn::Mul(c(n[2]), theta), theta), hn::Mul(c(n[3]), theta)), c(n[4]));
    const V C = hn::Add(hn::Add(hn::Mul(hn::Mul(c(n[5]), theta), theta), hn::Mul(c(n[6]), theta)), c(n[7]));
    return {theta, A, B, C};
}

HWY_INLINE V saturationPressure(D d, V T) {
    const auto c = [d](double value) { return hn::Set(d, value); };
    const LineTerms t = lineTerms(d, hn::Sub(T, hn::Div(c(kThetaShift), hn::Sub(T, c(kThetaPole)))));
    const V root = hn::Sqrt(hn::Sub(hn::Mul(t.B, t.B), hn::Mul(hn::Mul(c(4.0), t.A), t.C)));
    const V q = hn::Div(hn::Mul(c(2.0), t.C), hn::Sub(root, t.B));
    const V q2 = hn::Mul(q, q);
    return hn::Mul(hn::Mul(q2, q2), c(1e6));
}

// dp/dT along the line in closed form, the integer powers by repeated squaring.
HWY_INLINE V saturationSlope(D d, V T) {
    constexpr const double* n = tvl::kRegion4;
    const auto c = [d](double value) { return hn::Set(d, value); };
    const V pole = hn::Sub(T, c(kThetaPole));
    const LineTerms t = lineTerms(d, hn::Sub(T, hn::Div(c(kThetaShift), pole)));
    const V dTheta = hn::Add(c(1.0), hn::Div(c(kThetaShift), hn::Mul(pole, pole)));
    const V dA = hn::Mul(hn::Add(hn::Mul(c(2.0), t.theta), c(n[0])), dTheta);
    const V dB = hn::Mul(hn::Add(hn::Mul(c(-34.147693880184), t.theta), c(n[3])), dTheta);
    const V dC = hn::Mul(hn::Add(hn::Mul(c(29.83021722706), t.theta), c(n[6])), dTheta);
    const V root = hn::Sqrt(hn::Sub(hn::Mul(t.B, t.B), hn::Mul(hn::Mul(c(4.0), t.A), t.C)));
    const V Dv = hn::Sub(root, t.B);
    const V dRoot = hn::Div(hn::Sub(hn::Mul(hn::Mul(c(2.0), t.B), dB),
                                    hn::Mul(c(4.0), hn::Add(hn::Mul(dA, t.C), hn::Mul(t.A, dC)))),
                            hn::Mul(c(2.0), root));
    const V twoC = hn::Mul(c(2.0), t.C);
    const V twoCCubed = hn::Mul(hn::Mul(twoC, twoC), twoC);
    const V D2 = hn::Mul(Dv, Dv);
    const V D5 = hn::Mul(hn::Mul(D2, D2), Dv);
    const V bracket = hn::Sub(hn::Mul(hn::Mul(c(2.0), dC), Dv), hn::Mul(hn::Sub(dRoot, dB), twoC));
    return hn::Div(hn::Mul(hn::Mul(c(4e6), twoCCubed), bracket), D5);
}

void PressureKernel(const double* T, const double*, double* out, std::size_t count) {
    overArrays(T, T, out, count, [](D d, V Tv, V) { return saturationPressure(d, Tv); });
}
void TemperatureKernel(const double* p, const double*, double* out, std::size_t count) {
    overArrays(p, p, out, count, [](D d, V pv, V) { return saturationTemperature(d, pv); });
}
void SlopeKernel(const double* T, const double*, double* out, std::size_t count) {
    overArrays(T, T, out, count, [](D d, V Tv, V) { return saturationSlope(d, Tv); });
}

#include "lanes/backward_lanes-inl.h"

extern const DensityKernel kRegion3Kernels[kPropertyCount];  // region3_lanes.cpp
extern const StartedDensityKernel kRegion3FromStartKernels[kPropertyCount];  // region3_lanes.cpp
extern const SearchKernel kRegion3Searches[kRegion3SearchCount];  // region3_search_lanes.cpp
extern const PointKernel kTransportKernels[kTransportCount];   // transport_lanes.cpp

template <std::size_t... P>
constexpr KernelSet makeKernels(const char* path, std::index_sequence<P...>) {
    return {path,
            &Classify,
            &ClassifyWithRegion3,
            {&Region1Kernel<P>...},
            {&Region2Kernel<P>...},
            {&Region5Kernel<P>...},
            {&MetastableKernel<P>...},
            {&PressureKernel, &TemperatureKernel, &SlopeKernel},
            {&SearchKernelOf<kT1PH>, &SearchKernelOf<kT1PS>, &SearchKernelOf<kP1HS>, &SearchKernelOf<kT2PH>,
             &SearchKernelOf<kT2PS>, &SearchKernelOf<kP2HS>, &SearchKernelOf<kT5PH>, &SearchKernelOf<kT5PS>,
             &SearchKernelOf<kP5HS>},
            kRegion3Kernels,
            kRegion3FromStartKernels,
            kRegion3Searches,
            kTransportKernels};
}

const KernelSet* Kernels() {
#if HWY_TARGET == HWY_AVX3
    static constexpr KernelSet kSet = makeKernels("avx512", std::make_index_sequence<kPropertyCount>());
#else
    static constexpr KernelSet kSet = makeKernels("avx2", std::make_index_sequence<kPropertyCount>());
#endif
    return &kSet;
}

}  // namespace tvlx::lanes::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();
#endif

#if HWY_ONCE
namespace tvlx::lanes {

const KernelSet* avx512Kernels() {
#if HWY_TARGETS & HWY_AVX3
    return N_AVX3::Kernels();
#else
    return nullptr;
#endif
}

const KernelSet* avx2Kernels() {
#if HWY_TARGETS & HWY_AVX2
    return N_AVX2::Kernels();
#else
    return nullptr;
#endif
}

}  // namespace tvlx::lanes
#endif
