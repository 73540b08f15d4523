// Properties by (p,s). With checks on: ValidatePS before the model; after it, the temperature
// that the evaluation settled on, in the range of the formulation or of the transport
// equations. The state area reports the selection as it stands, without a range test.
#include "frame/property_facade.h"
#include "frame/solved_state_checks.h"

namespace tvl {

namespace {

double propertyPS(PropertyFacade& lib, double (WaterModel::*model)(double, double), SolvedRange range, double p,
                  double s) {
    return searchedProperty(
        lib, [&lib](double pressure, double entropy) { lib.ValidatePS(pressure, entropy); }, model, range, p, s);
}

}  // namespace

// The result is the temperature itself: no flag to require.
double PropertyFacade::TPS(double p, double s) noexcept {
    return run([&] {
        if (checksOn()) ValidatePS(p, s);
        const double T = water.TPS(p, s);
        if (checksOn()) ValidatePTResult(p, T);
        return T;
    });
}

double PropertyFacade::VPS(double p, double s) noexcept {
    return run([&] { return propertyPS(*this, &WaterModel::VPS, SolvedRange::kFormulation, p, s); });
}

double PropertyFacade::UPS(double p, double s) noexcept {
    return run([&] { return propertyPS(*this, &WaterModel::UPS, SolvedRange::kFormulation, p, s); });
}

double PropertyFacade::HPS(double p, double s) noexcept {
    return run([&] { return propertyPS(*this, &WaterModel::HPS, SolvedRange::kFormulation, p, s); });
}

double PropertyFacade::CPPS(double p, double s) noexcept {
    return run([&] { return propertyPS(*this, &WaterModel::CPPS, SolvedRange::kFormulation, p, s); });
}

double PropertyFacade::CVPS(double p, double s) noexcept {
    return run([&] { return propertyPS(*this, &WaterModel::CVPS, SolvedRange::kFormulation, p, s); });
}

double PropertyFacade::WPS(double p, double s) noexcept {
    return run([&] { return propertyPS(*this, &WaterModel::WPS, SolvedRange::kFormulation, p, s); });
}

double PropertyFacade::JOULETHOMPSONPS(double p, double s) noexcept {
    return run([&] { return propertyPS(*this, &WaterModel::JOULETHOMPSONPS, SolvedRange::kFormulation, p, s); });
}

double PropertyFacade::THERMCONDPS(double p, double s) noexcept {
    return run([&] { return propertyPS(*this, &WaterModel::THERMCONDPS, SolvedRange::kConductivity, p, s); });
}

double PropertyFacade::DYNVISPS(double p, double s) noexcept {
    return run([&] { return propertyPS(*this, &WaterModel::DYNVISPS, SolvedRange::kViscosity, p, s); });
}

double PropertyFacade::KINVISPS(double p, double s) noexcept {
    return run([&] { return propertyPS(*this, &WaterModel::KINVISPS, SolvedRange::kViscosity, p, s); });
}

double PropertyFacade::PRANDTLEPS(double p, double s) noexcept {
    return run([&] { return propertyPS(*this, &WaterModel::PRANDTLEPS, SolvedRange::kConductivity, p, s); });
}

double PropertyFacade::KPS(double p, double s) noexcept {
    return run([&] { return propertyPS(*this, &WaterModel::KPS, SolvedRange::kFormulation, p, s); });
}

// Outside the wet area the model refuses with code 2 whatever the checks; with them on, x must
// lie in 0 to 1.
double PropertyFacade::XPS(double p, double s) noexcept {
    return run([&] {
        if (checksOn()) ValidatePS(p, s);
        const double x = water.XPS(p, s);
        if (checksOn()) requireDryness(x);
        return x;
    });
}

std::int32_t PropertyFacade::WATERSTATEAREAPS(double p, double s) noexcept {
    return runInteger([&] { return water.WATERSTATEAREAPS(p, s); });
}

}  // namespace tvl
