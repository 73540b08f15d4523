#include "frame/property_facade.h"

namespace tvl {

// The guard, a temporary of the delegating call, lives until the members are built.
PropertyFacade::PropertyFacade() : PropertyFacade(FloatEnvironmentGuard{}) {}

PropertyFacade::PropertyFacade(const FloatEnvironmentGuard&) : water(settings, solved), gases(settings) {}

PropertyFacade theGlobalFacade;

}  // namespace tvl
