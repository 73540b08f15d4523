// Region 3 exports: the (density, T) equations, the (p,T) family through the density sequence,
// and the density search itself, in the frame alone with no range test in any mode.
#include "frame/property_facade.h"

namespace tvl {

double PropertyFacade::P3RT(double r, double T) noexcept {
    return run([&] { return water.P3RT(r, T); });
}
double PropertyFacade::U3RT(double r, double T) noexcept {
    return run([&] { return water.U3RT(r, T); });
}
double PropertyFacade::S3RT(double r, double T) noexcept {
    return run([&] { return water.S3RT(r, T); });
}
double PropertyFacade::H3RT(double r, double T) noexcept {
    return run([&] { return water.H3RT(r, T); });
}
double PropertyFacade::CP3RT(double r, double T) noexcept {
    return run([&] { return water.CP3RT(r, T); });
}
double PropertyFacade::CV3RT(double r, double T) noexcept {
    return run([&] { return water.CV3RT(r, T); });
}
double PropertyFacade::W3RT(double r, double T) noexcept {
    return run([&] { return water.W3RT(r, T); });
}
double PropertyFacade::JOULETHOMPSON3RT(double r, double T) noexcept {
    return run([&] { return water.JOULETHOMPSON3RT(r, T); });
}

double PropertyFacade::VUSHCVWDERPT3RT(double r, double T, const OutputCells& outputs) noexcept {
    return run([&] {
        outputs.requireAll();
        outputs.write(water.VUSHCVWDERPT3RT(r, T));
        return 1.0;
    });
}

// R3PT and D3PT are one function under two names.
double PropertyFacade::R3PT(double p, double T) noexcept {
    return run([&] { return water.R3PT(p, T); });
}
double PropertyFacade::D3PT(double p, double T) noexcept {
    return run([&] { return water.D3PT(p, T); });
}
double PropertyFacade::V3PT(double p, double T) noexcept {
    return run([&] { return water.V3PT(p, T); });
}
double PropertyFacade::U3PT(double p, double T) noexcept {
    return run([&] { return water.U3PT(p, T); });
}
double PropertyFacade::S3PT(double p, double T) noexcept {
    return run([&] { return water.S3PT(p, T); });
}
double PropertyFacade::H3PT(double p, double T) noexcept {
    return run([&] { return water.H3PT(p, T); });
}
double PropertyFacade::CP3PT(double p, double T) noexcept {
    return run([&] { return water.CP3PT(p, T); });
}
double PropertyFacade::CV3PT(double p, double T) noexcept {
    return run([&] { return water.CV3PT(p, T); });
}
double PropertyFacade::W3PT(double p, double T) noexcept {
    return run([&] { return water.W3PT(p, T); });
}
double PropertyFacade::JOULETHOMPSON3PT(double p, double T) noexcept {
    return run([&] { return water.JOULETHOMPSON3PT(p, T); });
}

double PropertyFacade::VUSHCVWDERPT3PT(double p, double T, const OutputCells& outputs) noexcept {
    return run([&] {
        outputs.requireAll();
        outputs.write(water.VUSHCVWDERPT3PT(p, T));
        return 1.0;
    });
}

// Iterates whatever toleranceMode says: the caller asked for the search.
double PropertyFacade::R3PTR0(double p, double T, double r0) noexcept {
    return run([&] { return water.R3PTR0(p, T, r0); });
}

}  // namespace tvl
