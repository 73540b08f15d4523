// The last step of a block in lanes: a kernel's values into the batch's result and code arrays,
// with the frame's finiteness test, several points at once.
#ifndef TAVLIB6X_LANES_RESULTS_LANES_H
#define TAVLIB6X_LANES_RESULTS_LANES_H

#include <cstddef>
#include <cstdint>

namespace tvlx::lanes {

struct KernelSet;

// results[k] = value[k] and codes[k] = 0 where value[k] is finite, else -1.0 and code 1, for
// k < count; codes may be null, value and results do not overlap. Returns how many values were
// not finite.
using ResultsStore = std::int64_t (*)(const double* value, double* results, std::int32_t* codes, std::size_t count);

// The store of the instruction set of `set` (one of avx512Kernels(), avx2Kernels()).
ResultsStore resultsStoreFor(const KernelSet* set);

}  // namespace tvlx::lanes

#endif
