// The dielectric constant, ionization constant and refractive index by (p,T): each has a
// temperature range of its own. The density forms and the surface tension are generated; the
// ionization constant refuses a negative density in its equation.
#include "frame/property_facade.h"
#include "frame/validators.h"

namespace tvl {

double PropertyFacade::DCPT(double p, double T) noexcept {
    return run([&] {
        if (checksOn()) {
            requireWithin(T, kSaturationLowestTemperature, kDielectricHighestTemperature);
            requireWithin(p, 0.0, kHighestPressure * kOnePlusEps);
        }
        return water.DCPT(p, T);
    });
}

double PropertyFacade::PKWPT(double p, double T) noexcept {
    return run([&] {
        if (checksOn()) {
            requireWithin(T, kSaturationLowestTemperature, kIonizationHighestTemperature);
            requireWithin(p, 0.0, kHighestPressure * kOnePlusEps);
        }
        return water.PKWPT(p, T);
    });
}

// The wavelength is in metres: 5.89e-07 is the sodium D line.
double PropertyFacade::RIPTL(double p, double T, double L) noexcept {
    return run([&] {
        if (checksOn()) {
            requireWithin(T, kSaturationLowestTemperature, kRefractiveHighestTemperature);
            requireWithin(p, 0.0, kHighestPressure * kOnePlusEps);
            requireWithin(L, kShortestWavelength, kLongestWavelength);
        }
        return water.RIPTL(p, T, L);
    });
}

}  // namespace tvl
