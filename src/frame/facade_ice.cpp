// Melting and sublimation pressures, with their own temperature ranges.
#include "frame/property_facade.h"
#include "frame/validators.h"

namespace tvl {

double PropertyFacade::PMELTIT(double T) noexcept {
    return run([&] {
        if (checksOn()) requireWithin(T, 251.16499999999994, 273.1600000000001);
        return water.PMELTIT(T);
    });
}

double PropertyFacade::PSUBT(double T) noexcept {
    return run([&] {
        if (checksOn()) requireWithin(T, 49.999999999999986, 273.1600000000001);
        return water.PSUBT(T);
    });
}

}  // namespace tvl
