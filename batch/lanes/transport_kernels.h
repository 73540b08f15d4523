// The transport kernels (transport_lanes.cpp) and the quantities of one phase that the transport
// and wet-state exports read from the region kernels.
#ifndef TAVLIB6X_LANES_TRANSPORT_KERNELS_H
#define TAVLIB6X_LANES_TRANSPORT_KERNELS_H

#include "lanes/kernels.h"

namespace tvlx::lanes {

// out[k] = the property of the state of volume v[k] at T[k]: its density is 1 / v[k], as the
// (p,T) and the saturated-state families form it from the volume of their region.
enum Transport { kViscosity, kKinematicViscosity, kConductivity, kTransportCount };

struct TransportKernels {
    PointKernel of[kTransportCount];
};

// The kernels of one instruction set, or null where it was not compiled.
const TransportKernels* avx512TransportKernels();
const TransportKernels* avx2TransportKernels();

// A quantity of one phase: a Property, a Transport from kTransportQuantity on, or the Prandtl
// number (cp times the viscosity over the conductivity).
constexpr int kTransportQuantity = kPropertyCount;
constexpr int kPrandtlQuantity = kTransportQuantity + kTransportCount;

}  // namespace tvlx::lanes

#endif
