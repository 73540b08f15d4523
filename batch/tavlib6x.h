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

/* States of water and steam: every property of the state that a pair of variables fixes.
 *
 * pair        "pT" (Pa, K), "ph" (Pa, J/kg), "ps" (Pa, J/(kg K)), "hs" (J/kg, J/(kg K)),
 *             "Tx" (K, -), "px" (Pa, -); any case. a and b are the two variables in that order.
 * values[k]   the property k of the list below, -1.0 where it has no value.
 * codes[k]    0 where values[k] holds the property, else the library's error code that says why
 *             not (2: not defined for this state, such as cp or the transport properties of a
 *             wet mixture, or eta and lambda outside the range of their equations while checks
 *             are on), or TVLX_NOT_WET for x of a state outside the wet area.
 *
 * A wet state is found as one whatever the pair: (p,h) and (p,s) by the saturated states at
 * TSP(p); (h,s) by a bracketing search along the saturation line for the temperature at which
 * the dryness fractions from h and from s agree, on either side of the critical entropy and up
 * to the critical point. Such a state has region 4 and x from 0 (saturated water) to 1
 * (saturated steam); on the saturation lines every property is that of the saturated phase,
 * and a pair within the tolerance of a saturated phase (its values rounded, or p from PST(T))
 * is that phase, x exactly 0 or 1.
 * A state outside the wet area comes from the refined backward functions of its region and
 * has region 1, 2, 3 or 5. Given values are returned as given. The library's settings hold
 * (tolerance, toleranceMode, checkRangeMode, maxIterations), read at each call.
 *
 * Returns 0 when the state was found, else its error code (1 for an unknown pair or a null
 * pointer, 2 out of range, 3 no convergence), which every code then holds; the code is also
 * left as the library's last error. Nothing is kept between calls; like the plain exports,
 * states need one calling thread at a time.
 */
enum {
    TVLX_T,       /* temperature, K */
    TVLX_P,       /* pressure, Pa */
    TVLX_RHO,     /* density, kg/m3 */
    TVLX_V,       /* specific volume, m3/kg */
    TVLX_U,       /* specific internal energy, J/kg */
    TVLX_H,       /* specific enthalpy, J/kg */
    TVLX_S,       /* specific entropy, J/(kg K) */
    TVLX_CP,      /* isobaric heat capacity, J/(kg K); none in the wet area */
    TVLX_CV,      /* isochoric heat capacity, J/(kg K); in the wet area that of the mixture */
    TVLX_W,       /* speed of sound, m/s */
    TVLX_X,       /* dryness fraction, 0 to 1 in the wet area; TVLX_NOT_WET elsewhere */
    TVLX_REGION,  /* 1, 2, 3, 5 or 4 for the wet area (the saturation lines included) */
    TVLX_PHASE,   /* 1 liquid, 2 vapour, 3 supercritical (p and T above the critical ones),
                     4 wet mixture (0 < x < 1) */
    TVLX_ETA,     /* dynamic viscosity, Pa s; none in the wet area */
    TVLX_LAMBDA,  /* thermal conductivity, W/(m K); none in the wet area */
    TVLX_PR,      /* Prandtl number; none in the wet area */
    TVLX_NU,      /* kinematic viscosity, m2/s; none in the wet area */
    TVLX_KAPPA,   /* isentropic exponent w^2 / (p v) */
    TVLX_JT,      /* Joule-Thomson coefficient, K/Pa */
    TVLX_STATE_COUNT
};
#define TVLX_NOT_WET (-1)

TVLX_API int32_t tvlxSTATE(const char* pair, double a, double b, double* values, int32_t* codes);

/* tvlxSTATE at `count` points: a[k], b[k] give the values and codes of point k at
 * values[k * TVLX_STATE_COUNT] and codes[k * TVLX_STATE_COUNT]. Returns the number of points
 * whose state was not found, or -1 for an unknown pair or null pointers. */
TVLX_API int64_t tvlxSTATES(const char* pair, int64_t count, const double* a, const double* b, double* values,
                            int32_t* codes);

/* The name of property k of a state ("T", "p", "rho", ... "JT"), NULL outside 0 to
 * TVLX_STATE_COUNT - 1. */
TVLX_API const char* tvlxSTATENAME(int32_t k);

/* The instruction set of the vector kernels in force: "avx512", "avx2" or "scalar" (every point
 * by its plain call). Chosen at the first batch from what the processor has; the environment
 * variable TAVLIB6X_SIMD=avx512|avx2|scalar asks for a lower one. The values are the same on
 * every path. */
TVLX_API const char* tvlxSIMD(void);

#ifdef __cplusplus
}
#endif

#endif
