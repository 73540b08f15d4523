// Region 1 exports: the raw equations in the frame alone, with no range test in any mode.
#include "frame/property_facade.h"
#include "frame/validators.h"

namespace tvl {

double PropertyFacade::V1PT(double p, double T) noexcept {
    return run([&] { return water.V1PT(p, T); });
}
double PropertyFacade::D1PT(double p, double T) noexcept {
    return run([&] { return water.D1PT(p, T); });
}
double PropertyFacade::U1PT(double p, double T) noexcept {
    return run([&] { return water.U1PT(p, T); });
}
double PropertyFacade::S1PT(double p, double T) noexcept {
    return run([&] { return water.S1PT(p, T); });
}
double PropertyFacade::H1PT(double p, double T) noexcept {
    return run([&] { return water.H1PT(p, T); });
}
double PropertyFacade::CP1PT(double p, double T) noexcept {
    return run([&] { return water.CP1PT(p, T); });
}
double PropertyFacade::CV1PT(double p, double T) noexcept {
    return run([&] { return water.CV1PT(p, T); });
}
double PropertyFacade::W1PT(double p, double T) noexcept {
    return run([&] { return water.W1PT(p, T); });
}
double PropertyFacade::JOULETHOMPSON1PT(double p, double T) noexcept {
    return run([&] { return water.JOULETHOMPSON1PT(p, T); });
}

double PropertyFacade::VUSHCVWDERPT1PT(double p, double T, const OutputCells& outputs) noexcept {
    return run([&] {
        outputs.requireAll();
        outputs.write(water.VUSHCVWDERPT1PT(p, T));
        return 1.0;
    });
}

double PropertyFacade::T1PH(double p, double h) noexcept {
    return run([&] { return water.T1PH(p, h); });
}
double PropertyFacade::T1PS(double p, double s) noexcept {
    return run([&] { return water.T1PS(p, s); });
}
double PropertyFacade::P1HS(double h, double s) noexcept {
    return run([&] { return water.P1HS(h, s); });
}
double PropertyFacade::T1HS(double h, double s) noexcept {
    return run([&] { return water.T1HS(h, s); });
}

double PropertyFacade::PT1HS(double h, double s, double* p, double* T) noexcept {
    return run([&] {
        requireCells(p, T);
        water.PT1HS(h, s, *p, *T);
        return 1.0;
    });
}

// The start values go into the caller's cells whatever they held; the search works on them.
double PropertyFacade::PT1RH(double r, double h, double* p, double* T) noexcept {
    return run([&] {
        requireCells(p, T);
        *p = 1e7;
        *T = 400.0;
        water.SolveRegion1RH(r, h, *p, *T);
        return 1.0;
    });
}

}  // namespace tvl
