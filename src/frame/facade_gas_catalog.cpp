// Ideal-gas catalogue exports: ids and names, user mixtures, fractions, composition texts, and
// the two interfaces without a model (gas data, dissociation).
#include "frame/property_facade.h"

namespace tvl {

namespace {

double notImplemented() { throw kNotImplemented; }

}  // namespace

// Kept for hosts of earlier versions; every call is code 8.
double PropertyFacade::gGETGASDATA(std::intptr_t, std::intptr_t, std::intptr_t, std::intptr_t, std::intptr_t,
                                   std::intptr_t, std::intptr_t, std::intptr_t, std::intptr_t, std::intptr_t,
                                   std::intptr_t, std::intptr_t, std::intptr_t, std::intptr_t, std::intptr_t,
                                   std::intptr_t, std::intptr_t, std::intptr_t, std::intptr_t, std::intptr_t,
                                   std::intptr_t, std::intptr_t, std::intptr_t, std::intptr_t) noexcept {
    return run(notImplemented);
}

// There is no dissociation model: every gas is a fixed mixture whatever the temperature. The
// mode reads the reserved field, which nothing writes after construction.
std::int32_t PropertyFacade::gSETCALCDISSMODE(std::int32_t) noexcept {
    return runInteger([]() -> std::int32_t { throw kNotImplemented; });
}

std::int32_t PropertyFacade::gGETCALCDISSMODE() noexcept {
    return runInteger([&] { return reserved; });
}

}  // namespace tvl
