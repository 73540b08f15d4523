// Properties by (p,T): ValidatePT, then the region's equation. The three area functions report
// the selection as it stands, without a range test.
#include "frame/property_facade.h"

namespace tvl {

double PropertyFacade::VPT(double p, double T) noexcept {
    return run([&] {
        if (checksOn()) ValidatePT(p, T);
        return water.VPT(p, T);
    });
}

double PropertyFacade::DPT(double p, double T) noexcept {
    return run([&] {
        if (checksOn()) ValidatePT(p, T);
        return water.DPT(p, T);
    });
}

double PropertyFacade::UPT(double p, double T) noexcept {
    return run([&] {
        if (checksOn()) ValidatePT(p, T);
        return water.UPT(p, T);
    });
}

double PropertyFacade::SPT(double p, double T) noexcept {
    return run([&] {
        if (checksOn()) ValidatePT(p, T);
        return water.SPT(p, T);
    });
}

double PropertyFacade::HPT(double p, double T) noexcept {
    return run([&] {
        if (checksOn()) ValidatePT(p, T);
        return water.HPT(p, T);
    });
}

double PropertyFacade::CPPT(double p, double T) noexcept {
    return run([&] {
        if (checksOn()) ValidatePT(p, T);
        return water.CPPT(p, T);
    });
}

double PropertyFacade::CVPT(double p, double T) noexcept {
    return run([&] {
        if (checksOn()) ValidatePT(p, T);
        return water.CVPT(p, T);
    });
}

double PropertyFacade::WPT(double p, double T) noexcept {
    return run([&] {
        if (checksOn()) ValidatePT(p, T);
        return water.WPT(p, T);
    });
}

double PropertyFacade::JOULETHOMPSONPT(double p, double T) noexcept {
    return run([&] {
        if (checksOn()) ValidatePT(p, T);
        return water.JOULETHOMPSONPT(p, T);
    });
}

double PropertyFacade::KPT(double p, double T) noexcept {
    return run([&] {
        if (checksOn()) ValidatePT(p, T);
        return water.KPT(p, T);
    });
}

std::int32_t PropertyFacade::WATERSTATEAREA(double p, double T) noexcept {
    return runInteger([&] { return water.WATERSTATEAREA(p, T); });
}

std::int32_t PropertyFacade::WATERSTATEAREA2(double p, double T) noexcept {
    return runInteger([&] { return water.WATERSTATEAREA2(p, T); });
}

std::int32_t PropertyFacade::PHASESTATEPT(double p, double T) noexcept {
    return runInteger([&] { return water.PHASESTATEPT(p, T); });
}

}  // namespace tvl
