// GasCatalog: every gas and mixture of the library by id and by name. (Built by the gas
// subsystem; until then an empty catalogue.)
#ifndef TAVLIB6_GAS_CATALOG_H
#define TAVLIB6_GAS_CATALOG_H

#include "frame/model_state.h"

namespace tvl {

class GasCatalog {
public:
    explicit GasCatalog(const ModelSettings& settings) : settings(settings) {}

    const ModelSettings& settings;
};

}  // namespace tvl

#endif
