// Vector kernels of the batch library: the exports that have one are evaluated several points
// side by side (4 on AVX2, 8 on AVX-512), each point with the very operations of its plain call
// in the same order, so that every value, code and output cell equals the plain call's bit for
// bit. Points a kernel does not handle (non-finite arguments, the melting-curve edge) are
// evaluated by the plain call.
#ifndef TAVLIB6X_LANES_H
#define TAVLIB6X_LANES_H

#include <cstdint>

namespace tvl {
class PropertyFacade;
}

namespace tvlx::lanes {

struct Export;

// One slice of a batch: the points [first, last) of the arrays of tvlxEVALUATE. `facade` is the
// thread's own model object, or null for the library object behind the exports.
struct Slice {
    const double* const* inputs;
    const int64_t* strides;
    double* results;
    int32_t* errors;
    int64_t first;
    int64_t last;
    tvl::PropertyFacade* facade;
};

// The kernel of the export `name` (as spelt in the export table, without prefix), or null where
// there is none or the scalar path is in force.
const Export* kernelFor(const char* name);

// Evaluates the slice; returns the number of points that failed. Leaves the last point's code
// as the last error of the model object, as the calls one by one would.
int64_t evaluate(const Export& kernel, const Slice& slice);

// The path in force: "avx512", "avx2" or "scalar". Chosen once, at the first batch, from what
// the processor has; the environment variable TAVLIB6X_SIMD (avx512, avx2, scalar) may ask for
// a lower one.
const char* pathName();

}  // namespace tvlx::lanes

#endif
