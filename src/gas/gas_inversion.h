// Temperature of a gas from its enthalpy or its entropy, by Newton's method on the fits.
#ifndef TAVLIB6_GAS_INVERSION_H
#define TAVLIB6_GAS_INVERSION_H

namespace tvl {

class GasSpecies;

// Newton on h(T) with cp as the slope, from start. Code 3 when the count reaches maxIterations.
double temperatureFromEnthalpy(const GasSpecies& species, double target, double start);
// The same on s(T) at 100000 Pa, whose slope is cp/T.
double temperatureFromEntropy(const GasSpecies& species, double target, double start);

}  // namespace tvl

#endif
