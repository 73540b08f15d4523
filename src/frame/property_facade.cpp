#include "frame/property_facade.h"

namespace tvl {

PropertyFacade::PropertyFacade() : water(settings, solved), gases(settings) {}

PropertyFacade theGlobalFacade;

}  // namespace tvl
