// Viscosity and thermal conductivity of states given by volume and temperature, several points at
// once (AVX-512, AVX2). Every lane performs the operations of DYNVISRT and THERMCONDRT at the
// density 1 / v in their order, a multiplication and an addition always two instructions, and
// takes exp and pow from the C library lane by lane, so each lane rounds as the plain call does.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "lanes/transport_lanes.cpp"
#include <hwy/foreach_target.h>  // IWYU pragma: keep
#include <hwy/highway.h>

#include <cmath>
#include <cstddef>
#include <iterator>
#include <utility>

#include "lanes/lane_ops.h"
#include "lanes/kernels.h"
#include "water/formulation/constants.h"
#include "water/formulation/tables/transport_coefficients.h"

// Only the AVX2 and AVX-512 code is used; the baseline target compiles to nothing here.
#if HWY_TARGET == HWY_AVX2 || HWY_TARGET == HWY_AVX3
HWY_BEFORE_NAMESPACE();
namespace tvlx::lanes::HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

namespace {  // apart from the region kernels' helpers of the same names

// f(x, y) of each lane by the C library function that the scalar code calls.
template <class F>
HWY_INLINE V eachLane(D d, F f, V x, V y) {
    HWY_ALIGN double xs[hn::MaxLanes(d)], ys[hn::MaxLanes(d)];
    hn::Store(x, d, xs);
    hn::Store(y, d, ys);
    for (std::size_t k = 0; k < hn::Lanes(d); ++k) xs[k] = f(xs[k], ys[k]);
    return hn::Load(d, xs);
}

HWY_INLINE V exp(D d, V x) {
    return eachLane(d, [](double a, double) { return std::exp(a); }, x, x);
}
HWY_INLINE V pow(D d, V x, V y) {
    return eachLane(d, [](double a, double b) { return std::pow(a, b); }, x, y);
}

// The sum of the viscosity terms in table order, unrolled so that the powers stay in registers.
template <std::size_t... K>
HWY_INLINE V viscositySum(D d, const V* b, const V* a, std::index_sequence<K...>) {
    V sum = hn::Zero(d);
    ((sum = hn::Add(sum, hn::Mul(hn::Mul(hn::Set(d, tvl::kViscosityH1[K].H), b[tvl::kViscosityH1[K].i]),
                                 a[tvl::kViscosityH1[K].j]))),
     ...);
    return sum;
}

// DYNVISRT: mu0 from tau, then the sum of H_ij (tau - 1)^i (rhobar - 1)^j in table order, the
// powers by repeated multiplication.
HWY_INLINE V viscosity(D d, V rho, V T) {
    const auto c = [d](double value) { return hn::Set(d, value); };
    constexpr const double* H0 = tvl::kViscosityH0;
    const V tau = hn::Div(c(tvl::kCriticalTemperature), T);
    const V rhobar = hn::Div(rho, c(tvl::kCriticalDensity));
    const V denominator = hn::Add(hn::Add(hn::Add(c(H0[0]), hn::Mul(c(H0[1]), tau)), hn::Mul(hn::Mul(c(H0[2]), tau), tau)),
                                  hn::Mul(hn::Mul(hn::Mul(c(H0[3]), tau), tau), tau));
    const V mu0 = hn::Div(hn::Mul(hn::Sqrt(hn::Div(c(1.0), tau)), c(0.0001)), denominator);
    V b[6], a[7];
    b[0] = c(1.0);
    a[0] = c(1.0);
    for (int k = 1; k < 6; ++k) b[k] = hn::Mul(b[k - 1], hn::Sub(tau, c(1.0)));
    for (int k = 1; k < 7; ++k) a[k] = hn::Mul(a[k - 1], hn::Sub(rhobar, c(1.0)));
    const V sum = viscositySum(d, b, a, std::make_index_sequence<std::size(tvl::kViscosityH1)>());
    return hn::Mul(mu0, exp(d, hn::Mul(rhobar, sum)));
}

// THERMCONDRT: the 1985 equation, term by term as the scalar code writes it.
HWY_INLINE V conductivity(D d, V rho, V T) {
    const auto c = [d](double value) { return hn::Set(d, value); };
    const V Tbar = hn::Div(T, c(647.26));
    const V rbar = hn::Div(rho, c(317.7));
    const V TbarRoot = pow(d, Tbar, c(0.5));
    const V Tbar15 = pow(d, Tbar, c(1.5));
    const V lambda0 = hn::Sub(hn::Add(hn::Add(hn::Mul(c(0.0102811), TbarRoot), hn::Mul(c(0.0299621), Tbar15)),
                                      hn::Mul(c(0.0156146), pow(d, Tbar, c(2.5)))),
                              hn::Mul(c(0.00422464), pow(d, Tbar, c(3.5))));
    const V shifted = hn::Add(rbar, c(2.39219));
    const V lambda1 = hn::Add(hn::Add(c(-0.39707), hn::Mul(c(0.400302), rbar)),
                              hn::Mul(c(1.06), exp(d, hn::Mul(hn::Mul(c(-0.171587), shifted), shifted))));
    const V dT = hn::Add(hn::Abs(hn::Sub(Tbar, c(1.0))), c(0.00308976));
    const V dT06 = pow(d, dT, c(0.6));
    const V Q = hn::Add(c(2.0), hn::Div(c(0.0822994), dT06));
    const V S = hn::IfThenElse(hn::Lt(Tbar, c(1.0)), hn::Div(c(10.0932), dT06), hn::Div(c(1.0), dT));
    const V Tbar2 = hn::Mul(Tbar, Tbar);
    const V Tbar10 = hn::Mul(hn::Mul(hn::Mul(hn::Mul(Tbar2, Tbar2), Tbar2), Tbar2), Tbar2);
    const V rbar2 = hn::Mul(rbar, rbar);
    const V QPlusOne = hn::Add(Q, c(1.0));
    const V first = hn::Mul(hn::Mul(hn::Add(hn::Div(c(0.0701309), Tbar10), c(0.011852)), pow(d, rbar, c(1.8))),
                            exp(d, hn::Mul(c(0.642857), hn::Sub(c(1.0), pow(d, rbar, c(2.8))))));
    const V second = hn::Mul(hn::Mul(hn::Mul(c(0.00169937), S), pow(d, rbar, Q)),
                             exp(d, hn::Div(hn::Mul(Q, hn::Sub(c(1.0), pow(d, rbar, QPlusOne))), QPlusOne)));
    const V third = hn::Mul(c(1.02), exp(d, hn::Sub(hn::Mul(c(-4.11717), Tbar15),
                                                    hn::Div(c(6.17937), hn::Mul(hn::Mul(rbar2, rbar2), rbar)))));
    return hn::Add(hn::Add(lambda0, lambda1), hn::Sub(hn::Add(first, second), third));
}

// The density is 1 / v; the kinematic viscosity is the viscosity times v.
template <int Which>
void TransportKernel(const double* v, const double* T, double* out, std::size_t count) {
    overArrays(v, T, out, count, [](D d, V vv, V Tv) {
        const V rho = hn::Div(hn::Set(d, 1.0), vv);
        if constexpr (Which == kViscosity) return viscosity(d, rho, Tv);
        else if constexpr (Which == kKinematicViscosity) return hn::Mul(viscosity(d, rho, Tv), vv);
        else return conductivity(d, rho, Tv);
    });
}

}  // namespace

extern const PointKernel kTransportKernels[kTransportCount];
const PointKernel kTransportKernels[kTransportCount] = {&TransportKernel<kViscosity>,
                                                        &TransportKernel<kKinematicViscosity>,
                                                        &TransportKernel<kConductivity>};

}  // namespace tvlx::lanes::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();
#endif
