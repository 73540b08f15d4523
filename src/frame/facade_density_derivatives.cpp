// Density derivatives. With checks on, each family tests its arguments as the properties of the
// same arguments do; no test follows on the state found.
#include "frame/property_facade.h"
#include "frame/validators.h"

namespace tvl {

double PropertyFacade::DDDPHPT(double p, double T) noexcept {
    return run([&] {
        if (checksOn()) ValidatePT(p, T);
        return water.DDDPHPT(p, T);
    });
}
double PropertyFacade::DDDHPPT(double p, double T) noexcept {
    return run([&] {
        if (checksOn()) ValidatePT(p, T);
        return water.DDDHPPT(p, T);
    });
}

double PropertyFacade::DDDPHPTX(double p, double T, double x) noexcept {
    return run([&] {
        if (checksOn()) {
            requireDryness(x);
            ValidatePT(p, T);
        }
        return water.DDDPHPTX(p, T, x);
    });
}
double PropertyFacade::DDDHPPTX(double p, double T, double x) noexcept {
    return run([&] {
        if (checksOn()) {
            requireDryness(x);
            ValidatePT(p, T);
        }
        return water.DDDHPPTX(p, T, x);
    });
}

double PropertyFacade::DDDPHPH(double p, double h) noexcept {
    return run([&] {
        if (checksOn()) requirePressureEnthalpy(p, h);
        return water.DDDPHPH(p, h);
    });
}
double PropertyFacade::DDDHPPH(double p, double h) noexcept {
    return run([&] {
        if (checksOn()) requirePressureEnthalpy(p, h);
        return water.DDDHPPH(p, h);
    });
}

double PropertyFacade::DDDPHSWT(double T) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        return water.DDDPHSWT(T);
    });
}
double PropertyFacade::DDDHPSWT(double T) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        return water.DDDHPSWT(T);
    });
}
double PropertyFacade::DDDPHSST(double T) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        return water.DDDPHSST(T);
    });
}
double PropertyFacade::DDDHPSST(double T) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        return water.DDDHPSST(T);
    });
}

}  // namespace tvl
