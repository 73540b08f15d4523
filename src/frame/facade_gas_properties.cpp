// Ideal-gas property exports, by id and by composition text. The order of one call: the range
// tests of the arguments, then the species (a text may be parsed and cached here), the
// formula, and the range test of a temperature or pressure found by inversion. So a bad text
// with a temperature out of range is code 2, not 11.
#include "frame/property_facade.h"
#include "frame/validators.h"
#include "gas/gas_constants.h"

namespace tvl {

namespace {

void requireGasTemperature(double T) { requireWithin(T, kGasLowestTemperature, kGasHighestTemperature); }

// Both ends are excluded; a NaN passes and comes back as code 1.
void requireGasPressure(double p) {
    if (p <= 0.0 || p >= kGasHighestPressure) throw kOutOfRange;
}

}  // namespace

double PropertyFacade::gCPIDT(std::int32_t id, double T) noexcept {
    return run([&] {
        if (checksOn()) requireGasTemperature(T);
        return gases.CPIDT(id, T);
    });
}

double PropertyFacade::gHIDT(std::int32_t id, double T) noexcept {
    return run([&] {
        if (checksOn()) requireGasTemperature(T);
        return gases.HIDT(id, T);
    });
}

double PropertyFacade::gSIDT(std::int32_t id, double T) noexcept {
    return run([&] {
        if (checksOn()) requireGasTemperature(T);
        return gases.SIDT(id, T);
    });
}

double PropertyFacade::gCVIDT(std::int32_t id, double T) noexcept {
    return run([&] {
        if (checksOn()) requireGasTemperature(T);
        return gases.CVIDT(id, T);
    });
}

double PropertyFacade::gUIDT(std::int32_t id, double T) noexcept {
    return run([&] {
        if (checksOn()) requireGasTemperature(T);
        return gases.UIDT(id, T);
    });
}

double PropertyFacade::gVIDT(std::int32_t id, double T) noexcept {
    return run([&] {
        if (checksOn()) requireGasTemperature(T);
        return gases.VIDT(id, T);
    });
}

double PropertyFacade::gTIDH(std::int32_t id, double h) noexcept {
    return run([&] {
        const double T = gases.TIDH(id, h);
        if (checksOn()) requireGasTemperature(T);
        return T;
    });
}

double PropertyFacade::gTIDS(std::int32_t id, double s) noexcept {
    return run([&] {
        const double T = gases.TIDS(id, s);
        if (checksOn()) requireGasTemperature(T);
        return T;
    });
}

double PropertyFacade::gCPGST(const char* gs, double T) noexcept {
    return run([&] {
        if (checksOn()) requireGasTemperature(T);
        return gases.CPGST(gs, T);
    });
}

double PropertyFacade::gHGST(const char* gs, double T) noexcept {
    return run([&] {
        if (checksOn()) requireGasTemperature(T);
        return gases.HGST(gs, T);
    });
}

double PropertyFacade::gSGST(const char* gs, double T) noexcept {
    return run([&] {
        if (checksOn()) requireGasTemperature(T);
        return gases.SGST(gs, T);
    });
}

double PropertyFacade::gCVGST(const char* gs, double T) noexcept {
    return run([&] {
        if (checksOn()) requireGasTemperature(T);
        return gases.CVGST(gs, T);
    });
}

double PropertyFacade::gUGST(const char* gs, double T) noexcept {
    return run([&] {
        if (checksOn()) requireGasTemperature(T);
        return gases.UGST(gs, T);
    });
}

double PropertyFacade::gVGST(const char* gs, double T) noexcept {
    return run([&] {
        if (checksOn()) requireGasTemperature(T);
        return gases.VGST(gs, T);
    });
}

double PropertyFacade::gTGSH(const char* gs, double h) noexcept {
    return run([&] {
        const double T = gases.TGSH(gs, h);
        if (checksOn()) requireGasTemperature(T);
        return T;
    });
}

double PropertyFacade::gTGSS(const char* gs, double s) noexcept {
    return run([&] {
        const double T = gases.TGSS(gs, s);
        if (checksOn()) requireGasTemperature(T);
        return T;
    });
}

double PropertyFacade::gSIDPT(std::int32_t id, double p, double T) noexcept {
    return run([&] {
        if (checksOn()) {
            requireGasTemperature(T);
            requireGasPressure(p);
        }
        return gases.SIDPT(id, p, T);
    });
}

double PropertyFacade::gVIDPT(std::int32_t id, double p, double T) noexcept {
    return run([&] {
        if (checksOn()) {
            requireGasTemperature(T);
            requireGasPressure(p);
        }
        return gases.VIDPT(id, p, T);
    });
}

double PropertyFacade::gTIDPS(std::int32_t id, double p, double s) noexcept {
    return run([&] {
        if (checksOn()) requireGasPressure(p);
        const double T = gases.TIDPS(id, p, s);
        if (checksOn()) requireGasTemperature(T);
        return T;
    });
}

double PropertyFacade::gPIDTS(std::int32_t id, double T, double s) noexcept {
    return run([&] {
        if (checksOn()) requireGasTemperature(T);
        const double p = gases.PIDTS(id, T, s);
        if (checksOn()) requireGasPressure(p);
        return p;
    });
}

double PropertyFacade::gSGSPT(const char* gs, double p, double T) noexcept {
    return run([&] {
        if (checksOn()) {
            requireGasTemperature(T);
            requireGasPressure(p);
        }
        return gases.SGSPT(gs, p, T);
    });
}

double PropertyFacade::gVGSPT(const char* gs, double p, double T) noexcept {
    return run([&] {
        if (checksOn()) {
            requireGasTemperature(T);
            requireGasPressure(p);
        }
        return gases.VGSPT(gs, p, T);
    });
}

double PropertyFacade::gTGSPS(const char* gs, double p, double s) noexcept {
    return run([&] {
        if (checksOn()) requireGasPressure(p);
        const double T = gases.TGSPS(gs, p, s);
        if (checksOn()) requireGasTemperature(T);
        return T;
    });
}

double PropertyFacade::gPGSTS(const char* gs, double T, double s) noexcept {
    return run([&] {
        if (checksOn()) requireGasTemperature(T);
        const double p = gases.PGSTS(gs, T, s);
        if (checksOn()) requireGasPressure(p);
        return p;
    });
}

// Molar mass and gas constant have no range test.
double PropertyFacade::gMMID(std::int32_t id) noexcept {
    return run([&] { return gases.MMID(id); });
}

double PropertyFacade::gMMGS(const char* gs) noexcept {
    return run([&] { return gases.MMGS(gs); });
}

double PropertyFacade::gGCID(std::int32_t id) noexcept {
    return run([&] { return gases.GCID(id); });
}

double PropertyFacade::gGCGS(const char* gs) noexcept {
    return run([&] { return gases.GCGS(gs); });
}

}  // namespace tvl
