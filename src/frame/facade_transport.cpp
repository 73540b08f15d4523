// Transport exports and the derived properties built on them. The (density, T) forms take any
// numbers; the (p,T) forms have the published ranges of the two equations, which differ.
#include "frame/property_facade.h"
#include "frame/validators.h"

namespace tvl {

double PropertyFacade::DYNVISRT(double r, double T) noexcept {
    return run([&] { return water.DYNVISRT(r, T); });
}

double PropertyFacade::THERMCONDRT(double r, double T) noexcept {
    return run([&] { return water.THERMCONDRT(r, T); });
}

double PropertyFacade::THERMCONDPT(double p, double T) noexcept {
    return run([&] {
        if (checksOn()) requireTransportRange(kConductivityArguments, p, T);
        return water.THERMCONDPT(p, T);
    });
}

double PropertyFacade::DYNVISPT(double p, double T) noexcept {
    return run([&] {
        if (checksOn()) requireTransportRange(kViscosityArguments, p, T);
        return water.DYNVISPT(p, T);
    });
}

double PropertyFacade::PRANDTLEPT(double p, double T) noexcept {
    return run([&] {
        if (checksOn()) requireTransportRange(kConductivityArguments, p, T);
        return water.PRANDTLEPT(p, T);
    });
}

double PropertyFacade::KINVISPT(double p, double T) noexcept {
    return run([&] {
        if (checksOn()) requireTransportRange(kViscosityArguments, p, T);
        return water.KINVISPT(p, T);
    });
}

}  // namespace tvl
