// Saturation line exports: the raw line equations behind the saturation range test.
#include "frame/property_facade.h"
#include "frame/validators.h"

namespace tvl {

double PropertyFacade::PST(double T) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        return water.PST(T);
    });
}

double PropertyFacade::TSP(double p) noexcept {
    return run([&] {
        if (checksOn()) requireWithin(p, kSaturationLowestPressure, kCriticalPressure * kOnePlusEps);
        return water.TSP(p);
    });
}

double PropertyFacade::DPDTST(double T) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        return water.DPDTST(T);
    });
}

double PropertyFacade::ROUGHRSWT(double T) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        return water.ROUGHRSWT(T);
    });
}

double PropertyFacade::ROUGHRSST(double T) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        return water.ROUGHRSST(T);
    });
}

}  // namespace tvl
