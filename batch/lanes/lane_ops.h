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
