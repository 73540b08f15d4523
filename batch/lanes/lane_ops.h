// The arithmetic that every vector kernel shares, compiled once per instruction set (included
// by the kernel files under Highway's foreach_target): power tables by repeated
// multiplication, one term of a sum rounded as the scalar term is, the scalar logarithm lane by
// lane, and the loop of a kernel over arrays.
#if defined(TAVLIB6X_LANE_OPS_H_) == defined(HWY_TARGET_TOGGLE)
#ifdef TAVLIB6X_LANE_OPS_H_
#undef TAVLIB6X_LANE_OPS_H_
#else
#define TAVLIB6X_LANE_OPS_H_
#endif

#include <hwy/highway.h>

#include <cmath>
#include <cstddef>
#include <iterator>

#include "water/formulation/tables/coefficient_types.h"

#if HWY_TARGET == HWY_AVX2 || HWY_TARGET == HWY_AVX3
HWY_BEFORE_NAMESPACE();
namespace tvlx::lanes::HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

using D = hn::ScalableTag<double>;
using V = hn::Vec<D>;

// base^k for k = 0 .. Reach, each the previous times base; base^-k as 1 / base^k, divided where
// a term reads it (the compiler keeps one division per exponent).
template <int Reach>
struct Powers {
    V up[Reach + 1];

    HWY_INLINE void fill(D d, V base) {
        up[0] = hn::Set(d, 1.0);
        for (int k = 0; k < Reach; ++k) up[k + 1] = hn::Mul(up[k], base);
    }

    template <int E>
    HWY_INLINE V at(D d) const {
        static_assert(E <= Reach && -E <= Reach, "power beyond the table");
        if constexpr (E >= 0) return up[E];
        else return hn::Div(hn::Set(d, 1.0), up[-E]);
    }
};

// acc + (c x) y, or acc - (c x) y: one term of a sum, rounded as c * x(..) * y(..) is.
HWY_INLINE V plus(D d, V acc, double c, V x, V y) { return hn::Add(acc, hn::Mul(hn::Mul(hn::Set(d, c), x), y)); }
HWY_INLINE V plus(D d, V acc, double c, V x) { return hn::Add(acc, hn::Mul(hn::Set(d, c), x)); }
HWY_INLINE V minus(D d, V acc, double c, V x, V y) { return hn::Sub(acc, hn::Mul(hn::Mul(hn::Set(d, c), x), y)); }

// ln pi lane by lane, by the scalar logarithm of the plain call.
HWY_INLINE V logarithm(D d, V pi) {
    HWY_ALIGN double lanes[hn::MaxLanes(d)];
    hn::Store(pi, d, lanes);
    for (std::size_t k = 0; k < hn::Lanes(d); ++k) lanes[k] = std::log(lanes[k]);
    return hn::Load(d, lanes);
}

// The highest power of a variable that a backward table reads.
template <class Table, class Exponent>
constexpr int extent(const Table& table, Exponent exponent) {
    int highest = 0;
    for (const auto& t : table) {
        const int e = exponent(t) < 0 ? -exponent(t) : exponent(t);
        highest = e > highest ? e : highest;
    }
    return highest;
}
constexpr auto termI = [](const tvl::PowerTerm& t) { return t.I; };
constexpr auto termJ = [](const auto& t) { return t.J; };

template <const auto& Table, int RX, int RY, std::size_t... K>
HWY_INLINE V powerSum(D d, const Powers<RX>& x, const Powers<RY>& y, std::index_sequence<K...>) {
    V sum = hn::Zero(d);
    ((sum = plus(d, sum, Table[K].n, x.template at<Table[K].I>(d), y.template at<Table[K].J>(d))), ...);
    return sum;
}

// sum n x^I y^J over a backward table, both power tables filled as far as the table reaches.
template <const auto& Table>
HWY_INLINE V backwardSum(D d, V xv, V yv) {
    Powers<extent(Table, termI)> x;
    Powers<extent(Table, termJ)> y;
    x.fill(d, xv);
    y.fill(d, yv);
    return powerSum<Table>(d, x, y, std::make_index_sequence<std::size(Table)>());
}

// x / scale + shift, as the plain equations reduce their arguments.
HWY_INLINE V reduced(D d, V x, const tvl::ReducedArgument& r) {
    return hn::Add(hn::Div(x, hn::Set(d, r.scale)), hn::Set(d, r.shift));
}

// A backward equation's sum at its reduced arguments, the result's scale left to the caller.
template <const auto& Table, const tvl::ReducedForm& Form>
HWY_INLINE V reducedSum(D d, V a, V b) {
    return backwardSum<Table>(d, reduced(d, a, Form.x), reduced(d, b, Form.y));
}

// Each subregion's sum only where a lane needs it.
template <class Sum>
HWY_INLINE V where(D, hn::Mask<D> chosen, V sofar, Sum sum) {
    return hn::AllFalse(D(), chosen) ? sofar : hn::IfThenElse(chosen, sum(), sofar);
}

// A kernel over contiguous arrays; the last partial vector runs on a padded copy.
template <class Evaluate>
HWY_INLINE void overArrays(const double* p, const double* T, double* out, std::size_t count, Evaluate evaluate) {
    const D d;
    const std::size_t N = hn::Lanes(d);
    std::size_t k = 0;
    for (; k + N <= count; k += N) hn::StoreU(evaluate(d, hn::LoadU(d, p + k), hn::LoadU(d, T + k)), d, out + k);
    if (k == count) return;
    HWY_ALIGN double pp[hn::MaxLanes(d)], tt[hn::MaxLanes(d)], oo[hn::MaxLanes(d)];
    for (std::size_t j = 0; j < N; ++j) {
        pp[j] = k + j < count ? p[k + j] : p[k];
        tt[j] = k + j < count ? T[k + j] : T[k];
    }
    hn::Store(evaluate(d, hn::Load(d, pp), hn::Load(d, tt)), d, oo);
    for (std::size_t j = 0; k + j < count; ++j) out[k + j] = oo[j];
}

}  // namespace tvlx::lanes::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();
#endif

#endif
