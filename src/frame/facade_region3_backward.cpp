// Region 3 backward exports: (p,h), (p,s), (h,s) and (density,h), in the frame alone with no
// range test in any mode.
#include "frame/property_facade.h"
#include "frame/validators.h"

namespace tvl {

namespace {

// T(density, h) has no backward equation; its search starts here.
constexpr double kT3RHStartTemperature = 743.15;

}  // namespace

double PropertyFacade::T3PH(double p, double h) noexcept {
    return run([&] { return water.T3PH(p, h); });
}
double PropertyFacade::V3PH(double p, double h) noexcept {
    return run([&] { return water.V3PH(p, h); });
}
double PropertyFacade::T3PS(double p, double s) noexcept {
    return run([&] { return water.T3PS(p, s); });
}
double PropertyFacade::V3PS(double p, double s) noexcept {
    return run([&] { return water.V3PS(p, s); });
}
double PropertyFacade::P3HS(double h, double s) noexcept {
    return run([&] { return water.P3HS(h, s); });
}
double PropertyFacade::T3HS(double h, double s) noexcept {
    return run([&] { return water.T3HS(h, s); });
}
double PropertyFacade::V3HS(double h, double s) noexcept {
    return run([&] { return water.V3HS(h, s); });
}

double PropertyFacade::PT3HS(double h, double s, double* p, double* T) noexcept {
    return run([&] {
        requireCells(p, T);
        water.PT3HS(h, s, *p, *T);
        return 1.0;
    });
}

double PropertyFacade::RT3HS(double h, double s, double* r, double* T) noexcept {
    return run([&] {
        requireCells(r, T);
        water.RT3HS(h, s, *r, *T);
        return 1.0;
    });
}

double PropertyFacade::T3RH(double r, double h) noexcept {
    return run([&] {
        const double T = water.T3RH(r, h, kT3RHStartTemperature);
        solved.PublishTemperature(T);
        return T;
    });
}

}  // namespace tvl
