// The wet area by (T, x) and the dryness fraction from (T, property): the temperature must lie
// on the saturation line. A given x must lie in 0 to 1; a found x must as well, which is tested
// after the model. The refusals of cp and transport in the wet area are the model's own.
#include "frame/property_facade.h"
#include "frame/validators.h"

namespace tvl {

double PropertyFacade::VSTX(double T, double x) noexcept {
    return run([&] {
        if (checksOn()) {
            requireSaturationTemperature(T);
            requireDryness(x);
        }
        return water.VSTX(T, x);
    });
}

double PropertyFacade::DSTX(double T, double x) noexcept {
    return run([&] {
        if (checksOn()) {
            requireSaturationTemperature(T);
            requireDryness(x);
        }
        return water.DSTX(T, x);
    });
}

double PropertyFacade::USTX(double T, double x) noexcept {
    return run([&] {
        if (checksOn()) {
            requireSaturationTemperature(T);
            requireDryness(x);
        }
        return water.USTX(T, x);
    });
}

double PropertyFacade::SSTX(double T, double x) noexcept {
    return run([&] {
        if (checksOn()) {
            requireSaturationTemperature(T);
            requireDryness(x);
        }
        return water.SSTX(T, x);
    });
}

double PropertyFacade::HSTX(double T, double x) noexcept {
    return run([&] {
        if (checksOn()) {
            requireSaturationTemperature(T);
            requireDryness(x);
        }
        return water.HSTX(T, x);
    });
}

double PropertyFacade::CPSTX(double T, double x) noexcept {
    return run([&] {
        if (checksOn()) {
            requireSaturationTemperature(T);
            requireDryness(x);
        }
        return water.CPSTX(T, x);
    });
}

double PropertyFacade::CVSTX(double T, double x) noexcept {
    return run([&] {
        if (checksOn()) {
            requireSaturationTemperature(T);
            requireDryness(x);
        }
        return water.CVSTX(T, x);
    });
}

double PropertyFacade::WSTX(double T, double x) noexcept {
    return run([&] {
        if (checksOn()) {
            requireSaturationTemperature(T);
            requireDryness(x);
        }
        return water.WSTX(T, x);
    });
}

double PropertyFacade::JOULETHOMPSONSTX(double T, double x) noexcept {
    return run([&] {
        if (checksOn()) {
            requireSaturationTemperature(T);
            requireDryness(x);
        }
        return water.JOULETHOMPSONSTX(T, x);
    });
}

double PropertyFacade::THERMCONDSTX(double T, double x) noexcept {
    return run([&] {
        if (checksOn()) {
            requireSaturationTemperature(T);
            requireDryness(x);
        }
        return water.THERMCONDSTX(T, x);
    });
}

double PropertyFacade::DYNVISSTX(double T, double x) noexcept {
    return run([&] {
        if (checksOn()) {
            requireSaturationTemperature(T);
            requireDryness(x);
        }
        return water.DYNVISSTX(T, x);
    });
}

double PropertyFacade::PRANDTLESTX(double T, double x) noexcept {
    return run([&] {
        if (checksOn()) {
            requireSaturationTemperature(T);
            requireDryness(x);
        }
        return water.PRANDTLESTX(T, x);
    });
}

double PropertyFacade::KINVISSTX(double T, double x) noexcept {
    return run([&] {
        if (checksOn()) {
            requireSaturationTemperature(T);
            requireDryness(x);
        }
        return water.KINVISSTX(T, x);
    });
}

double PropertyFacade::KSTX(double T, double x) noexcept {
    return run([&] {
        if (checksOn()) {
            requireSaturationTemperature(T);
            requireDryness(x);
        }
        return water.KSTX(T, x);
    });
}

double PropertyFacade::XSTV(double T, double v) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        const double x = water.XSTV(T, v);
        if (checksOn()) requireDryness(x);
        return x;
    });
}

double PropertyFacade::XSTD(double T, double r) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        const double x = water.XSTD(T, r);
        if (checksOn()) requireDryness(x);
        return x;
    });
}

double PropertyFacade::XSTU(double T, double u) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        const double x = water.XSTU(T, u);
        if (checksOn()) requireDryness(x);
        return x;
    });
}

double PropertyFacade::XSTS(double T, double s) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        const double x = water.XSTS(T, s);
        if (checksOn()) requireDryness(x);
        return x;
    });
}

double PropertyFacade::XSTH(double T, double h) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        const double x = water.XSTH(T, h);
        if (checksOn()) requireDryness(x);
        return x;
    });
}

double PropertyFacade::XSTCP(double T, double cp) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        const double x = water.XSTCP(T, cp);
        if (checksOn()) requireDryness(x);
        return x;
    });
}

double PropertyFacade::XSTCV(double T, double cv) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        const double x = water.XSTCV(T, cv);
        if (checksOn()) requireDryness(x);
        return x;
    });
}

double PropertyFacade::XSTW(double T, double w) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        const double x = water.XSTW(T, w);
        if (checksOn()) requireDryness(x);
        return x;
    });
}

double PropertyFacade::XSTJOULETHOMPSON(double T, double jt) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        const double x = water.XSTJOULETHOMPSON(T, jt);
        if (checksOn()) requireDryness(x);
        return x;
    });
}

double PropertyFacade::XSTTHERMCOND(double T, double tc) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        const double x = water.XSTTHERMCOND(T, tc);
        if (checksOn()) requireDryness(x);
        return x;
    });
}

double PropertyFacade::XSTDYNVIS(double T, double eta) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        const double x = water.XSTDYNVIS(T, eta);
        if (checksOn()) requireDryness(x);
        return x;
    });
}

double PropertyFacade::XSTKINVIS(double T, double nu) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        const double x = water.XSTKINVIS(T, nu);
        if (checksOn()) requireDryness(x);
        return x;
    });
}

double PropertyFacade::XSTPRANDTLE(double T, double pr) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        const double x = water.XSTPRANDTLE(T, pr);
        if (checksOn()) requireDryness(x);
        return x;
    });
}

double PropertyFacade::XSTK(double T, double k) noexcept {
    return run([&] {
        if (checksOn()) requireSaturationTemperature(T);
        const double x = water.XSTK(T, k);
        if (checksOn()) requireDryness(x);
        return x;
    });
}

}  // namespace tvl
