// The equations of a property in the one-phase regions, as one table: of (p, T) in regions 1, 2
// and 5, of (density, T) in region 3, and the mixture's rule at (T, x) for the selections that
// find wet states. The dispatchers by (p,T), (p,h), (p,s) and (h,s) select a region once and read
// the property's equation from its table.
#ifndef TAVLIB6_REGION_EQUATIONS_H
#define TAVLIB6_REGION_EQUATIONS_H

#include "frame/state_properties.h"
#include "water/formulation/water_model.h"

namespace tvl {

template <class Result>
struct RegionTable {
    Result (WaterModel::*region1)(double p, double T);
    Result (WaterModel::*region2)(double p, double T);
    Result (WaterModel::*region3)(double rho, double T);
    Result (WaterModel::*region5)(double p, double T);
    Result (WaterModel::*wet)(double T, double x) = nullptr;
};

using RegionEquations = RegionTable<double>;

inline constexpr RegionEquations kInternalEnergy = {&WaterModel::U1PT, &WaterModel::U2PT, &WaterModel::U3RT,
                                                    &WaterModel::U5PT, &WaterModel::USTX};
inline constexpr RegionEquations kEntropy = {&WaterModel::S1PT, &WaterModel::S2PT, &WaterModel::S3RT,
                                             &WaterModel::S5PT, &WaterModel::SSTX};
inline constexpr RegionEquations kEnthalpy = {&WaterModel::H1PT, &WaterModel::H2PT, &WaterModel::H3RT,
                                              &WaterModel::H5PT, &WaterModel::HSTX};
inline constexpr RegionEquations kIsobaricHeatCapacity = {&WaterModel::CP1PT, &WaterModel::CP2PT,
                                                          &WaterModel::CP3RT, &WaterModel::CP5PT,
                                                          &WaterModel::CPSTX};
inline constexpr RegionEquations kIsochoricHeatCapacity = {&WaterModel::CV1PT, &WaterModel::CV2PT,
                                                           &WaterModel::CV3RT, &WaterModel::CV5PT,
                                                           &WaterModel::CVSTX};
inline constexpr RegionEquations kSpeedOfSound = {&WaterModel::W1PT, &WaterModel::W2PT, &WaterModel::W3RT,
                                                  &WaterModel::W5PT, &WaterModel::WSTX};
inline constexpr RegionEquations kJouleThomson = {&WaterModel::JOULETHOMPSON1PT, &WaterModel::JOULETHOMPSON2PT,
                                                  &WaterModel::JOULETHOMPSON3RT, &WaterModel::JOULETHOMPSON5PT,
                                                  &WaterModel::JOULETHOMPSONSTX};

inline constexpr RegionTable<StateProperties> kStateProperties = {
    &WaterModel::VUSHCVWDERPT1PT, &WaterModel::VUSHCVWDERPT2PT, &WaterModel::VUSHCVWDERPT3RT,
    &WaterModel::VUSHCVWDERPT5PT};

}  // namespace tvl

#endif
