// The two gas inversions. The stop test looks at the residual of the T before the last update,
// so the T returned has had one step more than the residual that passed. There is no bracket
// and no limit on a step: the fits are evaluated wherever the iteration goes, and only the
// final T is tested, by the frame.
#include "gas/gas_inversion.h"

#include <cmath>

#include "frame/error_codes.h"
#include "gas/gas_constants.h"
#include "gas/gas_record.h"

namespace tvl {

namespace {

// The bound is relative to the target and fixed before the first step; a target of 0 gives a
// bound of 0 that no residual passes, so that search ends in code 3. A NaN residual leaves the
// loop and reaches the frame as code 1. Success needs a count below maxIterations: with the
// default of 100 the 99th pass is the last that can succeed.
template <class Step>
double newtonOnTemperature(const GasSpecies& species, double target, double start, Step step) {
    const ModelSettings& settings = species.settings;
    const double bound = std::fabs(target * settings.tolerance);
    double T = start;
    std::int32_t count = 0;
    double residual;
    do {
        ++count;
        residual = step(T, target);
        if (count > settings.maxIterations) throw kRootNotFound;
    } while (std::fabs(residual) >= bound);
    if (count >= settings.maxIterations) throw kRootNotFound;

    // A result a hair outside the fits is put on their end; here the tolerance counts as kelvins.
    if (settings.checksOn()) {
        if (T < kMinSpeciesTemperature && T > kMinSpeciesTemperature - settings.tolerance) T = kMinSpeciesTemperature;
        if (T > kMaxSpeciesTemperature && T < kMaxSpeciesTemperature + settings.tolerance) T = kMaxSpeciesTemperature;
    }
    return T;
}

}  // namespace

double temperatureFromEnthalpy(const GasSpecies& species, double target, double start) {
    return newtonOnTemperature(species, target, start, [&species](double& T, double h) {
        double cp;
        const double residual = species.enthalpy(T, cp) - h;
        T -= residual / cp;
        return residual;
    });
}

double temperatureFromEntropy(const GasSpecies& species, double target, double start) {
    return newtonOnTemperature(species, target, start, [&species](double& T, double s) {
        double cp;
        const double residual = species.entropy(T, cp) - s;
        T -= residual * T / cp;
        return residual;
    });
}

}  // namespace tvl
