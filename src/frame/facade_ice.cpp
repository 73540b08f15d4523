// Melting and sublimation pressures, with their own temperature ranges.
#include "frame/property_facade.h"
#include "frame/validators.h"

namespace tvl {

double PropertyFacade::PMELTIT(double T) noexcept {
    return run([&] {
        if (checksOn()) requireWithin(T, kMeltingLowestTemperature, kIceHighestTemperature);
        return water.PMELTIT(T);
    });
}

double PropertyFacade::PSUBT(double T) noexcept {
    return run([&] {
        if (checksOn()) requireWithin(T, kSublimationLowestTemperature, kIceHighestTemperature);
        return water.PSUBT(T);
    });
}

}  // namespace tvl
