// Transport exports. The (density, T) forms take any numbers: no range test in any mode.
#include "frame/property_facade.h"

namespace tvl {

double PropertyFacade::DYNVISRT(double r, double T) noexcept {
    return run([&] { return water.DYNVISRT(r, T); });
}

double PropertyFacade::THERMCONDRT(double r, double T) noexcept {
    return run([&] { return water.THERMCONDRT(r, T); });
}

}  // namespace tvl
