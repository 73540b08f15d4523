// Ideal-gas catalogue exports: ids and names, user mixtures, fractions, composition texts, and
// the two interfaces without a model (gas data, dissociation).
#include "frame/property_facade.h"

namespace tvl {

namespace {

double notImplemented() { throw kNotImplemented; }

}  // namespace

double PropertyFacade::gVFGSGS(const char* gs, const char* species) noexcept {
    return run([&] { return gases.VFGSGS(gs, species); });
}

double PropertyFacade::gMFGSGS(const char* gs, const char* species) noexcept {
    return run([&] { return gases.MFGSGS(gs, species); });
}

double PropertyFacade::gVFIDID(std::int32_t id, std::int32_t species) noexcept {
    return run([&] { return gases.VFIDID(id, species); });
}

double PropertyFacade::gMFIDID(std::int32_t id, std::int32_t species) noexcept {
    return run([&] { return gases.MFIDID(id, species); });
}

std::int32_t PropertyFacade::gIDNAME(const char* name) noexcept {
    return runInteger([&] { return gases.IDNAME(name); });
}

std::int32_t PropertyFacade::gNEWID() noexcept {
    return runInteger([&] { return gases.NEWID(); });
}

std::int32_t PropertyFacade::gNEWIDNAME(const char* name) noexcept {
    return runInteger([&] { return gases.NEWIDNAME(name); });
}

std::int32_t PropertyFacade::gNEWIDGS(const char* gs) noexcept {
    return runInteger([&] { return gases.NEWIDGS(gs); });
}

std::int32_t PropertyFacade::gDELETEGASID(std::int32_t id) noexcept {
    return runInteger([&] { return gases.DELETEGASID(id); });
}

std::int32_t PropertyFacade::gDELETEGASES() noexcept {
    return runInteger([&] { return gases.DELETEGASES(); });
}

std::int32_t PropertyFacade::gGASESCOUNT() noexcept {
    return runInteger([&] { return gases.GASESCOUNT(); });
}

std::int32_t PropertyFacade::gADDGASM(std::int32_t id, std::int32_t component, double mass) noexcept {
    return runInteger([&] { return gases.ADDGASM(id, component, mass); });
}

std::int32_t PropertyFacade::gADDGASV(std::int32_t id, std::int32_t component, double volume) noexcept {
    return runInteger([&] { return gases.ADDGASV(id, component, volume); });
}

const char* PropertyFacade::gGSID(std::int32_t id) noexcept {
    return runText([&] { return gases.GSID(id); });
}

const char* PropertyFacade::gGSGS(const char* gs) noexcept {
    return runText([&] { return gases.GSGS(gs); });
}

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
