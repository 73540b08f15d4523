// Properties by (p,h). With checks on: p from 0 to 100 MPa and h from -50 to 7.4e6 J/kg before
// the model, each widened by a rounding unit; after it, the temperature that the evaluation
// settled on, in the range of the formulation or of the transport equations. The state area
// reports the selection as it stands, without a range test.
#include "frame/property_facade.h"
#include "frame/solved_state_checks.h"

namespace tvl {

namespace {

double propertyPH(PropertyFacade& lib, double (WaterModel::*model)(double, double), SolvedRange range, double p,
                  double h) {
    return searchedProperty(lib, requirePressureEnthalpy, model, range, p, h);
}

}  // namespace

// The result is the temperature itself: no flag to require.
double PropertyFacade::TPH(double p, double h) noexcept {
    return run([&] {
        if (checksOn()) requirePressureEnthalpy(p, h);
        const double T = water.TPH(p, h);
        if (checksOn()) ValidatePTResult(p, T);
        return T;
    });
}

double PropertyFacade::VPH(double p, double h) noexcept {
    return run([&] { return propertyPH(*this, &WaterModel::VPH, SolvedRange::kFormulation, p, h); });
}

double PropertyFacade::UPH(double p, double h) noexcept {
    return run([&] { return propertyPH(*this, &WaterModel::UPH, SolvedRange::kFormulation, p, h); });
}

double PropertyFacade::SPH(double p, double h) noexcept {
    return run([&] { return propertyPH(*this, &WaterModel::SPH, SolvedRange::kFormulation, p, h); });
}

double PropertyFacade::CPPH(double p, double h) noexcept {
    return run([&] { return propertyPH(*this, &WaterModel::CPPH, SolvedRange::kFormulation, p, h); });
}

double PropertyFacade::CVPH(double p, double h) noexcept {
    return run([&] { return propertyPH(*this, &WaterModel::CVPH, SolvedRange::kFormulation, p, h); });
}

double PropertyFacade::WPH(double p, double h) noexcept {
    return run([&] { return propertyPH(*this, &WaterModel::WPH, SolvedRange::kFormulation, p, h); });
}

double PropertyFacade::JOULETHOMPSONPH(double p, double h) noexcept {
    return run([&] { return propertyPH(*this, &WaterModel::JOULETHOMPSONPH, SolvedRange::kFormulation, p, h); });
}

double PropertyFacade::THERMCONDPH(double p, double h) noexcept {
    return run([&] { return propertyPH(*this, &WaterModel::THERMCONDPH, SolvedRange::kConductivity, p, h); });
}

double PropertyFacade::DYNVISPH(double p, double h) noexcept {
    return run([&] { return propertyPH(*this, &WaterModel::DYNVISPH, SolvedRange::kViscosity, p, h); });
}

double PropertyFacade::KINVISPH(double p, double h) noexcept {
    return run([&] { return propertyPH(*this, &WaterModel::KINVISPH, SolvedRange::kViscosity, p, h); });
}

double PropertyFacade::PRANDTLEPH(double p, double h) noexcept {
    return run([&] { return propertyPH(*this, &WaterModel::PRANDTLEPH, SolvedRange::kConductivity, p, h); });
}

double PropertyFacade::KPH(double p, double h) noexcept {
    return run([&] { return propertyPH(*this, &WaterModel::KPH, SolvedRange::kFormulation, p, h); });
}

// Outside the wet area the model refuses with code 2 whatever the checks; with them on, x must
// lie in 0 to 1.
double PropertyFacade::XPH(double p, double h) noexcept {
    return run([&] {
        if (checksOn()) requirePressureEnthalpy(p, h);
        const double x = water.XPH(p, h);
        if (checksOn()) requireDryness(x);
        return x;
    });
}

std::int32_t PropertyFacade::WATERSTATEAREAPH(double p, double h) noexcept {
    return runInteger([&] { return water.WATERSTATEAREAPH(p, h); });
}

}  // namespace tvl
