// Region 2 exports: the raw equations, the subregion equations and the refined backward
// functions in the frame alone, with no range test in any mode.
#include "frame/property_facade.h"
#include "frame/validators.h"

namespace tvl {

double PropertyFacade::V2PT(double p, double T) noexcept {
    return run([&] { return water.V2PT(p, T); });
}
double PropertyFacade::D2PT(double p, double T) noexcept {
    return run([&] { return water.D2PT(p, T); });
}
double PropertyFacade::U2PT(double p, double T) noexcept {
    return run([&] { return water.U2PT(p, T); });
}
double PropertyFacade::S2PT(double p, double T) noexcept {
    return run([&] { return water.S2PT(p, T); });
}
double PropertyFacade::H2PT(double p, double T) noexcept {
    return run([&] { return water.H2PT(p, T); });
}
double PropertyFacade::CP2PT(double p, double T) noexcept {
    return run([&] { return water.CP2PT(p, T); });
}
double PropertyFacade::CV2PT(double p, double T) noexcept {
    return run([&] { return water.CV2PT(p, T); });
}
double PropertyFacade::W2PT(double p, double T) noexcept {
    return run([&] { return water.W2PT(p, T); });
}
double PropertyFacade::JOULETHOMPSON2PT(double p, double T) noexcept {
    return run([&] { return water.JOULETHOMPSON2PT(p, T); });
}

double PropertyFacade::VUSHCVWDERPT2PT(double p, double T, const OutputCells& outputs) noexcept {
    return run([&] {
        outputs.requireAll();
        outputs.write(water.VUSHCVWDERPT2PT(p, T));
        return 1.0;
    });
}

double PropertyFacade::T2APH(double p, double h) noexcept {
    return run([&] { return water.T2APH(p, h); });
}
double PropertyFacade::T2BPH(double p, double h) noexcept {
    return run([&] { return water.T2BPH(p, h); });
}
double PropertyFacade::T2CPH(double p, double h) noexcept {
    return run([&] { return water.T2CPH(p, h); });
}
double PropertyFacade::T2PH(double p, double h) noexcept {
    return run([&] { return water.T2PH(p, h); });
}
double PropertyFacade::T2APS(double p, double s) noexcept {
    return run([&] { return water.T2APS(p, s); });
}
double PropertyFacade::T2BPS(double p, double s) noexcept {
    return run([&] { return water.T2BPS(p, s); });
}
double PropertyFacade::T2CPS(double p, double s) noexcept {
    return run([&] { return water.T2CPS(p, s); });
}
double PropertyFacade::T2PS(double p, double s) noexcept {
    return run([&] { return water.T2PS(p, s); });
}
double PropertyFacade::P2HS(double h, double s) noexcept {
    return run([&] { return water.P2HS(h, s); });
}
double PropertyFacade::T2HS(double h, double s) noexcept {
    return run([&] { return water.T2HS(h, s); });
}

double PropertyFacade::PT2HS(double h, double s, double* p, double* T) noexcept {
    return run([&] {
        requireCells(p, T);
        water.PT2HS(h, s, *p, *T);
        return 1.0;
    });
}

// The start values go into the caller's cells whatever they held; the search works on them.
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

}  // namespace tvl
