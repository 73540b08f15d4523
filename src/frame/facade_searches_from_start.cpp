// The searches by (density, h) of regions 1, 2, 3 and 5, with no range test in any mode. Their
// start values are the frame's: they go into the caller's cells whatever those held, and the
// search works on them. Region 5's search runs in any toleranceMode; region 2's publishes the
// state it found.
#include "frame/property_facade.h"
#include "frame/validators.h"

namespace tvl {

namespace {

// T(density, h) of region 3 has no backward equation; its search starts here.
constexpr double kT3RHStartTemperature = 743.15;

}  // namespace

double PropertyFacade::PT1RH(double r, double h, double* p, double* T) noexcept {
    return run([&] {
        requireCells(p, T);
        *p = 1e7;
        *T = 400.0;
        water.SolveRegion1RH(r, h, *p, *T);
        return 1.0;
    });
}

double PropertyFacade::PT2RH(double r, double h, double* p, double* T) noexcept {
    return run([&] {
        requireCells(p, T);
        *p = 1e6;
        *T = 800.0;
        water.SolveRegion2RH(r, h, *p, *T);
        solved.PublishPressure(*p);
        solved.PublishTemperature(*T);
        return 1.0;
    });
}

double PropertyFacade::PT5RH(double r, double h, double* p, double* T) noexcept {
    return run([&] {
        requireCells(p, T);
        *p = 2.5e7;
        *T = 1773.15;
        water.PT5RH(r, h, *p, *T);
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
