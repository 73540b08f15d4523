// The interface between the driver (lanes.cpp) and the code compiled once per instruction set
// (gibbs_lanes.cpp): kernels over contiguous arrays of points.
#ifndef TAVLIB6X_LANES_KERNELS_H
#define TAVLIB6X_LANES_KERNELS_H

#include <cstddef>

namespace tvlx::lanes {

// The (p,T) properties of a Gibbs region, in the order of the (p,T) family.
enum Property { kVolume, kDensity, kInternalEnergy, kEntropy, kEnthalpy, kIsobaricHeat, kIsochoricHeat,
                kSpeedOfSound, kJouleThomson, kPropertyCount };

// The equations of the saturation line, of one argument (T, or p for the temperature).
enum Line { kSaturationPressure, kSaturationTemperature, kSaturationSlope, kLineCount };

// out[k] = the raw region equation at (p[k], T[k]) for k < count, non-finite results included.
using PointKernel = void (*)(const double* p, const double* T, double* out, std::size_t count);

// The range test and the region selection of the (p,T) family for each point: region[k] = 1, 2
// or 5; 0 where the plain call decides (region 3, non-finite arguments, below 273.15 K with the
// range test on); -1 where the range test refuses the point.
using Classifier = void (*)(const double* p, const double* T, double* region, std::size_t count, double tolerance,
                            bool checks);

// The refined backward searches of regions 1, 2 and 5 (backward_lanes-inl.h), three per region,
// and the settings they read.
enum Search { kT1PH, kT1PS, kP1HS, kT2PH, kT2PS, kP2HS, kT5PH, kT5PS, kP5HS, kSearchCount };

struct SearchSettings {
    double tolerance;
    int maxIterations;
    bool refining;
    bool checks;
};

// value[k] = the region's function at (a[k], b[k]) before the frame's tests: a temperature, or
// for p(h,s) the pressure with the temperature its search published last in temperature[k]
// (HUGE_VAL where regions 1 and 2 publish none); failed[k] = 1 where the search gave up at the cap.
using SearchKernel = void (*)(const double* a, const double* b, double* value, double* temperature, int* failed,
                              std::size_t count, const SearchSettings& settings);

// The region 3 searches of the dispatching families (region3_search_lanes.cpp), as
// SearchKernels: the temperature by (p,h) and by (p,s), and by (h,s) the pressure with its
// temperature.
enum Region3Search { kT3PH, kT3PS, kP3HS, kRegion3SearchCount };

// Region 3 by (p,T): out[k] = the property at the density that the plain call's search finds at
// (p[k], T[k]), and failed[k] = 1.0 where that search runs out of iterations (else 0.0). The
// search reads tolerance, maxIterations and refining of the settings.
using DensityKernel = void (*)(const double* p, const double* T, double* out, double* failed, std::size_t count,
                               const SearchSettings& settings);

// Region 3 at (p[k], T[k]) from the start density start[k], the search run whatever toleranceMode
// says (R3PTR0): out[k] = the property at the density found, failed[k] as for a DensityKernel.
using StartedDensityKernel = void (*)(const double* p, const double* T, const double* start, double* out,
                                      double* failed, std::size_t count, const SearchSettings& settings);

// out[k] = the transport property of the state of volume v[k] at T[k] (the PointKernel's p is v):
// its density is 1 / v[k], as the (p,T) and the saturated-state families form it.
enum Transport { kViscosity, kKinematicViscosity, kConductivity, kTransportCount };

// A quantity of one phase that the transport and wet-state exports read: a Property, a Transport
// from kTransportQuantity on, or the Prandtl number (cp times the viscosity over the conductivity).
constexpr int kTransportQuantity = kPropertyCount;
constexpr int kPrandtlQuantity = kTransportQuantity + kTransportCount;

struct KernelSet {
    const char* path;
    Classifier classify;
    Classifier classifyWithRegion3;  // as classify, but region 3 named 3 instead of 0
    PointKernel region1[kPropertyCount];
    PointKernel region2[kPropertyCount];
    PointKernel region5[kPropertyCount];
    PointKernel metastable[kPropertyCount];  // the metastable-vapour equation; its density is not an export
    PointKernel line[kLineCount];  // reads p (or T) only; the second array is not read
    SearchKernel search[kSearchCount];
    const DensityKernel* region3;  // one per Property
    const StartedDensityKernel* region3FromStart;  // one per Property
    const SearchKernel* region3Search;  // one per Region3Search
    const PointKernel* transport;  // one per Transport
};

// The kernels of one instruction set, or null where it was not compiled.
const KernelSet* avx512Kernels();
const KernelSet* avx2Kernels();

}  // namespace tvlx::lanes

#endif
