// The finiteness test and the stores of a block's values, compiled for AVX-512 and AVX2: a
// vector of values is tested and stored at once, and its codes too (zeros where every value is
// finite, the usual case). Only copies and comparisons, so the bits are those of the values.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "lanes/results_lanes.cpp"
#include <hwy/foreach_target.h>  // IWYU pragma: keep
#include <hwy/highway.h>

#include <cmath>
#include <cstddef>
#include <cstdint>

#include "frame/error_codes.h"
#include "lanes/kernels.h"
#include "lanes/results_lanes.h"

// Only the AVX2 and AVX-512 code is used; the baseline target compiles to nothing here.
#if HWY_TARGET == HWY_AVX2 || HWY_TARGET == HWY_AVX3
HWY_BEFORE_NAMESPACE();
namespace tvlx::lanes::HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

std::int64_t StoreResults(const double* value, double* results, std::int32_t* codes, std::size_t count) {
    const hn::ScalableTag<double> d;
    const hn::Rebind<std::int32_t, decltype(d)> d32;
    const std::size_t N = hn::Lanes(d);
    const auto failure = hn::Set(d, -1.0);
    std::int64_t failed = 0;
    std::size_t k = 0;
    for (; k + N <= count; k += N) {
        const auto v = hn::LoadU(d, value + k);
        const auto finite = hn::IsFinite(v);
        hn::StoreU(hn::IfThenElse(finite, v, failure), d, results + k);
        if (hn::AllTrue(d, finite)) {
            if (codes != nullptr) hn::StoreU(hn::Zero(d32), d32, codes + k);
            continue;
        }
        for (std::size_t j = k; j < k + N; ++j) {
            const bool ok = std::isfinite(value[j]);
            if (codes != nullptr) codes[j] = ok ? 0 : tvl::kBadParameters;
            failed += ok ? 0 : 1;
        }
    }
    for (; k < count; ++k) {
        const bool finite = std::isfinite(value[k]);
        results[k] = finite ? value[k] : -1.0;
        if (codes != nullptr) codes[k] = finite ? 0 : tvl::kBadParameters;
        failed += finite ? 0 : 1;
    }
    return failed;
}

}  // namespace tvlx::lanes::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();
#endif

#if HWY_ONCE
namespace tvlx::lanes {

ResultsStore resultsStoreFor(const KernelSet* set) {
#if HWY_TARGETS & HWY_AVX3
    if (set != nullptr && set == avx512Kernels()) return &N_AVX3::StoreResults;
#endif
#if HWY_TARGETS & HWY_AVX2
    if (set != nullptr && set == avx2Kernels()) return &N_AVX2::StoreResults;
#endif
    return nullptr;
}

}  // namespace tvlx::lanes
#endif
