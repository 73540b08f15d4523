/* tavlib6x: the exports of tavlib6 evaluated over arrays of inputs, one call for a whole batch.
 *
 * This is an addition of its own beside the flat interface of libtavlib6: a small library,
 * libtavlib6x, that calls the exports of libtavlib6 (and so shares its settings) once per
 * element. Each element is one ordinary call of the export with its own frame: the code that
 * tvlGETLASTERROR() reports right after it is written to errors[k], and results[k] holds the
 * export's value, the failure value -1.0 where the call failed.
 *
 * A batch of a water export with at least 8192 points is cut into slices evaluated on threads,
 * one model object per thread set up with the library's settings (tolerance, toleranceMode,
 * checkRangeMode, maxIterations) at the start of the batch; the values and codes are those of
 * the calls one by one, bit for bit. Gas exports and the settings run on the calling thread.
 * Like the plain exports, a batch needs one calling thread at a time.
 */
#ifndef TAVLIB6X_H
#define TAVLIB6X_H

#include <stdint.h>

#if defined(_WIN32)
#  if defined(TAVLIB6X_BUILDING)
#    define TVLX_API __declspec(dllexport)
#  else
#    define TVLX_API __declspec(dllimport)
#  endif
#else
#  if defined(TAVLIB6X_BUILDING)
#    define TVLX_API __attribute__((visibility("default")))
#  else
#    define TVLX_API
#  endif
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* Evaluates the export `name` (with or without the tvl prefix, any case) at `count` points.
 *
 * inputs[j]   the numbers of the j-th numeric argument (double or int32) in the order of the
 *             signature; element k is inputs[j][k * strides[j]], so a stride of 0 repeats one
 *             value for every point. An int32 argument is taken from a whole, finite double.
 * texts[j]    the j-th text argument (a composition text), the same for every point; NULL if the
 *             export takes none.
 * results     count values of the export (int32 results converted to double).
 * outputs[j]  count values of the j-th output cell, for exports with outputs; NULL if none.
 * errors      count error codes, 0 where the call succeeded; may be NULL.
 *
 * Returns the number of points that failed, or -1 when no export has that name or its
 * signature cannot be batched (window or word arguments, the error functions) or its result
 * is a text (found at the first point, which is then evaluated once).
 */
TVLX_API int64_t tvlxEVALUATE(const char* name, int64_t count, const double* const* inputs,
                              const int64_t* strides, const char* const* texts, double* results,
                              double* const* outputs, int32_t* errors);

/* 1 if tvlxEVALUATE takes the arguments of the export `name`, 0 if not. */
TVLX_API int32_t tvlxCANEVALUATE(const char* name);

/* The number of threads a large batch may use: 1 keeps every batch on the calling thread,
 * 0 (the start value) takes the processor count, up to 16. Values above 64 count as 64 and
 * negative ones as 0. Returns the value now in force. */
TVLX_API int32_t tvlxSETTHREADS(int32_t threads);

/* The instruction set of the vector kernels in force: "avx512", "avx2" or "scalar" (every point
 * by its plain call). Chosen at the first batch from what the processor has; the environment
 * variable TAVLIB6X_SIMD=avx512|avx2|scalar asks for a lower one. The values are the same on
 * every path. */
TVLX_API const char* tvlxSIMD(void);

#ifdef __cplusplus
}
#endif

#endif
