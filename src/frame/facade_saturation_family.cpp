// Saturated water and steam by T: every export tests the temperature against the saturation
// line, 273.15 K to the critical temperature, and then reads the saturated phase.
#include "frame/property_facade.h"
#include "frame/validators.h"

namespace tvl {

double PropertyFacade::RST(double T) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        return water.RST(T);
    });
}

double PropertyFacade::VSST(double T) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        return water.VSST(T);
    });
}

double PropertyFacade::VSWT(double T) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        return water.VSWT(T);
    });
}

double PropertyFacade::DSST(double T) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        return water.DSST(T);
    });
}

double PropertyFacade::DSWT(double T) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        return water.DSWT(T);
    });
}

double PropertyFacade::USST(double T) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        return water.USST(T);
    });
}

double PropertyFacade::USWT(double T) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        return water.USWT(T);
    });
}

double PropertyFacade::SSST(double T) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        return water.SSST(T);
    });
}

double PropertyFacade::SSWT(double T) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        return water.SSWT(T);
    });
}

double PropertyFacade::HSST(double T) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        return water.HSST(T);
    });
}

double PropertyFacade::HSWT(double T) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        return water.HSWT(T);
    });
}

double PropertyFacade::CPSST(double T) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        return water.CPSST(T);
    });
}

double PropertyFacade::CPSWT(double T) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        return water.CPSWT(T);
    });
}

double PropertyFacade::CVSST(double T) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        return water.CVSST(T);
    });
}

double PropertyFacade::CVSWT(double T) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        return water.CVSWT(T);
    });
}

double PropertyFacade::CVDPSST(double T) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        return water.CVDPSST(T);
    });
}

double PropertyFacade::CVDPSWT(double T) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        return water.CVDPSWT(T);
    });
}

double PropertyFacade::WSST(double T) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        return water.WSST(T);
    });
}

double PropertyFacade::WSWT(double T) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        return water.WSWT(T);
    });
}

double PropertyFacade::JOULETHOMPSONSST(double T) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        return water.JOULETHOMPSONSST(T);
    });
}

double PropertyFacade::JOULETHOMPSONSWT(double T) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        return water.JOULETHOMPSONSWT(T);
    });
}

double PropertyFacade::THERMCONDSST(double T) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        return water.THERMCONDSST(T);
    });
}

double PropertyFacade::THERMCONDSWT(double T) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        return water.THERMCONDSWT(T);
    });
}

double PropertyFacade::DYNVISSST(double T) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        return water.DYNVISSST(T);
    });
}

double PropertyFacade::DYNVISSWT(double T) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        return water.DYNVISSWT(T);
    });
}

double PropertyFacade::PRANDTLESST(double T) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        return water.PRANDTLESST(T);
    });
}

double PropertyFacade::PRANDTLESWT(double T) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        return water.PRANDTLESWT(T);
    });
}

double PropertyFacade::KINVISSST(double T) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        return water.KINVISSST(T);
    });
}

double PropertyFacade::KINVISSWT(double T) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        return water.KINVISSWT(T);
    });
}

double PropertyFacade::KSST(double T) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        return water.KSST(T);
    });
}

double PropertyFacade::KSWT(double T) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        return water.KSWT(T);
    });
}

double PropertyFacade::VUSHCVWDERPTSWT(double T, const OutputCells& outputs) noexcept {
    return run([&] {
        outputs.requireAll();
        if (checksOn()) requireSaturationTemperature(T);
        outputs.write(water.VUSHCVWDERPTSWT(T));
        return 1.0;
    });
}

double PropertyFacade::VUSHCVWDERPTSST(double T, const OutputCells& outputs) noexcept {
    return run([&] {
        outputs.requireAll();
        if (checksOn()) requireSaturationTemperature(T);
        outputs.write(water.VUSHCVWDERPTSST(T));
        return 1.0;
    });
}

}  // namespace tvl
