// Properties by (h,s). With checks on: h from -50 to 7.4e6 J/kg and s from -200 to 31800 J/(kg K)
// before the model, each widened by a rounding unit as a number, so that the lower enthalpy
// limit lies a rounding step above -50. After it, both the temperature and the pressure that the
// evaluation settled on must have been published, and that state point must lie in the range of
// the formulation or of the transport equations. The state area reports the selection as it
// stands, without a range test.
#include "frame/property_facade.h"
#include "frame/solved_state_checks.h"

namespace tvl {

namespace {

void requireEnthalpyEntropy(double h, double s) {
    requireWithin(h, kLowestEnthalpyHS, kHighestEnthalpy);
    requireWithin(s, kLowestEntropyHS, kHighestEntropyHS);
}

// The outputs travel beside the result, past the frame's finiteness test: they get their own.
void requireFiniteOutputs(double first, double second) {
    if (!std::isfinite(first) || !std::isfinite(second)) throw kBadParameters;
}

double propertyHS(PropertyFacade& lib, double (WaterModel::*model)(double, double), SolvedRange range, double h,
                  double s) {
    const bool checks = lib.settings.checksOn();
    if (checks) requireEnthalpyEntropy(h, s);
    const double result = (lib.water.*model)(h, s);
    if (checks) {
        requireSolvedTemperature(lib.solved);
        requireSolvedState(lib, range, requireSolvedPressure(lib.solved));
    }
    return result;
}

}  // namespace

double PropertyFacade::PHS(double h, double s) noexcept {
    return run([&] { return propertyHS(*this, &WaterModel::PHS, SolvedRange::kFormulation, h, s); });
}

// The result is the temperature itself: only the pressure must have been published.
double PropertyFacade::THS(double h, double s) noexcept {
    return run([&] {
        if (checksOn()) requireEnthalpyEntropy(h, s);
        const double T = water.THS(h, s);
        if (checksOn()) ValidatePTResult(requireSolvedPressure(solved), T);
        return T;
    });
}

double PropertyFacade::VHS(double h, double s) noexcept {
    return run([&] { return propertyHS(*this, &WaterModel::VHS, SolvedRange::kFormulation, h, s); });
}

double PropertyFacade::UHS(double h, double s) noexcept {
    return run([&] { return propertyHS(*this, &WaterModel::UHS, SolvedRange::kFormulation, h, s); });
}

double PropertyFacade::CPHS(double h, double s) noexcept {
    return run([&] { return propertyHS(*this, &WaterModel::CPHS, SolvedRange::kFormulation, h, s); });
}

double PropertyFacade::CVHS(double h, double s) noexcept {
    return run([&] { return propertyHS(*this, &WaterModel::CVHS, SolvedRange::kFormulation, h, s); });
}

double PropertyFacade::WHS(double h, double s) noexcept {
    return run([&] { return propertyHS(*this, &WaterModel::WHS, SolvedRange::kFormulation, h, s); });
}

double PropertyFacade::JOULETHOMPSONHS(double h, double s) noexcept {
    return run([&] { return propertyHS(*this, &WaterModel::JOULETHOMPSONHS, SolvedRange::kFormulation, h, s); });
}

double PropertyFacade::THERMCONDHS(double h, double s) noexcept {
    return run([&] { return propertyHS(*this, &WaterModel::THERMCONDHS, SolvedRange::kConductivity, h, s); });
}

double PropertyFacade::DYNVISHS(double h, double s) noexcept {
    return run([&] { return propertyHS(*this, &WaterModel::DYNVISHS, SolvedRange::kViscosity, h, s); });
}

double PropertyFacade::PRANDTLEHS(double h, double s) noexcept {
    return run([&] { return propertyHS(*this, &WaterModel::PRANDTLEHS, SolvedRange::kConductivity, h, s); });
}

double PropertyFacade::KINVISHS(double h, double s) noexcept {
    return run([&] { return propertyHS(*this, &WaterModel::KINVISHS, SolvedRange::kViscosity, h, s); });
}

double PropertyFacade::KHS(double h, double s) noexcept {
    return run([&] { return propertyHS(*this, &WaterModel::KHS, SolvedRange::kFormulation, h, s); });
}

// Outside the area 4 the model refuses with code 2 whatever the checks; with them on, x must lie
// in 0 to 1.
double PropertyFacade::XHS(double h, double s) noexcept {
    return run([&] {
        if (checksOn()) requireEnthalpyEntropy(h, s);
        const double x = water.XHS(h, s);
        if (checksOn()) requireDryness(x);
        return x;
    });
}

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

std::int32_t PropertyFacade::WATERSTATEAREAHS(double h, double s) noexcept {
    return runInteger([&] { return water.WATERSTATEAREAHS(h, s); });
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
