// The (h,s) exports whose frames are not regular: the saturation temperature of a wet state, and
// the two with output cells, which test the state found in the cells. The others are generated
// (src/frame/generated/hs_dispatch.cpp).
#include "frame/property_facade.h"
#include "frame/solved_state_checks.h"

namespace tvl {

namespace {

// The outputs travel beside the result, past the frame's finiteness test: they get their own.
void requireFiniteOutputs(double first, double second) {
    if (!std::isfinite(first) || !std::isfinite(second)) throw kBadParameters;
}

}  // namespace

// Runs the wet-state search whether or not the point is wet; the result must lie on the line.
double PropertyFacade::TSHS(double h, double s) noexcept {
    return run([&] {
        if (checksOn()) requireEnthalpyEntropy(h, s);
        double x;
        const double T = water.TSHS(h, s, x);
        if (checksOn()) requireSaturationTemperature(T);
        return T;
    });
}

double PropertyFacade::PTHS(double h, double s, double* p, double* T) noexcept {
    return run([&] {
        requireCells(p, T);
        if (checksOn()) requireEnthalpyEntropy(h, s);
        water.PTHS(h, s, *p, *T);
        if (checksOn()) ValidatePTResult(*p, *T);
        requireFiniteOutputs(*p, *T);
        return 1.0;
    });
}

double PropertyFacade::TXSHS(double h, double s, double* T, double* x) noexcept {
    return run([&] {
        requireCells(T, x);
        if (checksOn()) requireEnthalpyEntropy(h, s);
        water.TXSHS(h, s, *T, *x);
        if (checksOn()) {
            requireSaturationTemperature(*T);
            requireDryness(*x);
        }
        requireFiniteOutputs(*T, *x);
        return 1.0;
    });
}

}  // namespace tvl
