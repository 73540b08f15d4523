// Properties by (p,T,x): x in 0 to 1 first, whatever the state, then the range of the property's
// (p,T) family: ValidatePT, or the conductivity or viscosity limits for transport.
#include "frame/property_facade.h"
#include "frame/validators.h"

namespace tvl {

double PropertyFacade::VPTX(double p, double T, double x) noexcept {
    return run([&] {
        if (checksOn()) {
            requireDryness(x);
            ValidatePT(p, T);
        }
        return water.VPTX(p, T, x);
    });
}

double PropertyFacade::DPTX(double p, double T, double x) noexcept {
    return run([&] {
        if (checksOn()) {
            requireDryness(x);
            ValidatePT(p, T);
        }
        return water.DPTX(p, T, x);
    });
}

double PropertyFacade::UPTX(double p, double T, double x) noexcept {
    return run([&] {
        if (checksOn()) {
            requireDryness(x);
            ValidatePT(p, T);
        }
        return water.UPTX(p, T, x);
    });
}

double PropertyFacade::SPTX(double p, double T, double x) noexcept {
    return run([&] {
        if (checksOn()) {
            requireDryness(x);
            ValidatePT(p, T);
        }
        return water.SPTX(p, T, x);
    });
}

double PropertyFacade::HPTX(double p, double T, double x) noexcept {
    return run([&] {
        if (checksOn()) {
            requireDryness(x);
            ValidatePT(p, T);
        }
        return water.HPTX(p, T, x);
    });
}

double PropertyFacade::CPPTX(double p, double T, double x) noexcept {
    return run([&] {
        if (checksOn()) {
            requireDryness(x);
            ValidatePT(p, T);
        }
        return water.CPPTX(p, T, x);
    });
}

double PropertyFacade::CVPTX(double p, double T, double x) noexcept {
    return run([&] {
        if (checksOn()) {
            requireDryness(x);
            ValidatePT(p, T);
        }
        return water.CVPTX(p, T, x);
    });
}

double PropertyFacade::WPTX(double p, double T, double x) noexcept {
    return run([&] {
        if (checksOn()) {
            requireDryness(x);
            ValidatePT(p, T);
        }
        return water.WPTX(p, T, x);
    });
}

double PropertyFacade::JOULETHOMPSONPTX(double p, double T, double x) noexcept {
    return run([&] {
        if (checksOn()) {
            requireDryness(x);
            ValidatePT(p, T);
        }
        return water.JOULETHOMPSONPTX(p, T, x);
    });
}

double PropertyFacade::THERMCONDPTX(double p, double T, double x) noexcept {
    return run([&] {
        if (checksOn()) {
            requireDryness(x);
            requireTransportRange(kConductivityArguments, p, T);
        }
        return water.THERMCONDPTX(p, T, x);
    });
}

double PropertyFacade::DYNVISPTX(double p, double T, double x) noexcept {
    return run([&] {
        if (checksOn()) {
            requireDryness(x);
            requireTransportRange(kViscosityArguments, p, T);
        }
        return water.DYNVISPTX(p, T, x);
    });
}

double PropertyFacade::PRANDTLEPTX(double p, double T, double x) noexcept {
    return run([&] {
        if (checksOn()) {
            requireDryness(x);
            requireTransportRange(kConductivityArguments, p, T);
        }
        return water.PRANDTLEPTX(p, T, x);
    });
}

double PropertyFacade::KINVISPTX(double p, double T, double x) noexcept {
    return run([&] {
        if (checksOn()) {
            requireDryness(x);
            requireTransportRange(kViscosityArguments, p, T);
        }
        return water.KINVISPTX(p, T, x);
    });
}

double PropertyFacade::KPTX(double p, double T, double x) noexcept {
    return run([&] {
        if (checksOn()) {
            requireDryness(x);
            ValidatePT(p, T);
        }
        return water.KPTX(p, T, x);
    });
}

}  // namespace tvl
