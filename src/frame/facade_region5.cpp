// Region 5 exports: the raw equations and the searches from the library's start fits in the
// frame alone, with no range test in any mode.
#include "frame/property_facade.h"
#include "frame/validators.h"

namespace tvl {

double PropertyFacade::V5PT(double p, double T) noexcept {
    return run([&] { return water.V5PT(p, T); });
}
double PropertyFacade::D5PT(double p, double T) noexcept {
    return run([&] { return water.D5PT(p, T); });
}
double PropertyFacade::U5PT(double p, double T) noexcept {
    return run([&] { return water.U5PT(p, T); });
}
double PropertyFacade::S5PT(double p, double T) noexcept {
    return run([&] { return water.S5PT(p, T); });
}
double PropertyFacade::H5PT(double p, double T) noexcept {
    return run([&] { return water.H5PT(p, T); });
}
double PropertyFacade::CP5PT(double p, double T) noexcept {
    return run([&] { return water.CP5PT(p, T); });
}
double PropertyFacade::CV5PT(double p, double T) noexcept {
    return run([&] { return water.CV5PT(p, T); });
}
double PropertyFacade::W5PT(double p, double T) noexcept {
    return run([&] { return water.W5PT(p, T); });
}
double PropertyFacade::JOULETHOMPSON5PT(double p, double T) noexcept {
    return run([&] { return water.JOULETHOMPSON5PT(p, T); });
}

double PropertyFacade::VUSHCVWDERPT5PT(double p, double T, const OutputCells& outputs) noexcept {
    return run([&] {
        outputs.requireAll();
        outputs.write(water.VUSHCVWDERPT5PT(p, T));
        return 1.0;
    });
}

double PropertyFacade::T5PH(double p, double h) noexcept {
    return run([&] { return water.T5PH(p, h); });
}
double PropertyFacade::T5PS(double p, double s) noexcept {
    return run([&] { return water.T5PS(p, s); });
}
double PropertyFacade::P5HS(double h, double s) noexcept {
    return run([&] { return water.P5HS(h, s); });
}
double PropertyFacade::T5HS(double h, double s) noexcept {
    return run([&] { return water.T5HS(h, s); });
}

double PropertyFacade::PT5HS(double h, double s, double* p, double* T) noexcept {
    return run([&] {
        requireCells(p, T);
        water.PT5HS(h, s, *p, *T);
        return 1.0;
    });
}

// The start values go into the caller's cells whatever they held; the search, which runs in any
// toleranceMode, works on them.
double PropertyFacade::PT5RH(double r, double h, double* p, double* T) noexcept {
    return run([&] {
        requireCells(p, T);
        *p = 2.5e7;
        *T = 1773.15;
        water.PT5RH(r, h, *p, *T);
        return 1.0;
    });
}

}  // namespace tvl
