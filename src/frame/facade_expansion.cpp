// The end state of an adiabatic expansion. With checks on: the start state by ValidatePT (the
// dryness fraction first in the (p,T,x) branch) and p2 in 0 to 100 MPa before the model; after
// it, a test of the end state at p2 that depends on the property: the result itself as a
// temperature (A), the solved temperature in the range of the formulation (B), of the
// conductivity (C) or of the viscosity (D), or a dryness fraction in 0 to 1 and then B (E).
// With checks off nothing is tested, not even that a temperature was solved.
#include "frame/property_facade.h"
#include "frame/solved_state_checks.h"

namespace tvl {

namespace {

enum class EndTest { kResultTemperature, kFormulation, kConductivity, kViscosity, kDryness };

void requireEndState(PropertyFacade& lib, EndTest test, double p2, double result) {
    switch (test) {
    case EndTest::kResultTemperature: lib.ValidatePTResult(p2, result); return;
    case EndTest::kFormulation: requireSolvedState(lib, SolvedRange::kFormulation, p2); return;
    case EndTest::kConductivity: requireSolvedState(lib, SolvedRange::kConductivity, p2); return;
    case EndTest::kViscosity: requireSolvedState(lib, SolvedRange::kViscosity, p2); return;
    case EndTest::kDryness:
        requireDryness(result);
        requireSolvedState(lib, SolvedRange::kFormulation, p2);
        return;
    }
}

using FromPressureTemperature = double (WaterModel::*)(double p, double T, double p2, double eff);

double expansionFromPT(PropertyFacade& lib, FromPressureTemperature model, EndTest test, double p, double T,
                       double p2, double eff) {
    const bool checks = lib.settings.checksOn();
    if (checks) {
        lib.ValidatePT(p, T);
        requireWithin(p2, 0.0 * kOneMinusEps, kArgumentLimits.highestPressure);
    }
    const double result = (lib.water.*model)(p, T, p2, eff);
    if (checks) requireEndState(lib, test, p2, result);
    return result;
}

}  // namespace

double PropertyFacade::TEXPANSIONPTPEFF(double p, double T, double p2, double eff) noexcept {
    return run([&] {
        return expansionFromPT(*this, &WaterModel::TEXPANSIONPTPEFF, EndTest::kResultTemperature, p, T, p2, eff);
    });
}

double PropertyFacade::VEXPANSIONPTPEFF(double p, double T, double p2, double eff) noexcept {
    return run([&] {
        return expansionFromPT(*this, &WaterModel::VEXPANSIONPTPEFF, EndTest::kFormulation, p, T, p2, eff);
    });
}

double PropertyFacade::UEXPANSIONPTPEFF(double p, double T, double p2, double eff) noexcept {
    return run([&] {
        return expansionFromPT(*this, &WaterModel::UEXPANSIONPTPEFF, EndTest::kFormulation, p, T, p2, eff);
    });
}

double PropertyFacade::HEXPANSIONPTPEFF(double p, double T, double p2, double eff) noexcept {
    return run([&] {
        return expansionFromPT(*this, &WaterModel::HEXPANSIONPTPEFF, EndTest::kFormulation, p, T, p2, eff);
    });
}

double PropertyFacade::SEXPANSIONPTPEFF(double p, double T, double p2, double eff) noexcept {
    return run([&] {
        return expansionFromPT(*this, &WaterModel::SEXPANSIONPTPEFF, EndTest::kFormulation, p, T, p2, eff);
    });
}

double PropertyFacade::CPEXPANSIONPTPEFF(double p, double T, double p2, double eff) noexcept {
    return run([&] {
        return expansionFromPT(*this, &WaterModel::CPEXPANSIONPTPEFF, EndTest::kFormulation, p, T, p2, eff);
    });
}

double PropertyFacade::CVEXPANSIONPTPEFF(double p, double T, double p2, double eff) noexcept {
    return run([&] {
        return expansionFromPT(*this, &WaterModel::CVEXPANSIONPTPEFF, EndTest::kFormulation, p, T, p2, eff);
    });
}

double PropertyFacade::WEXPANSIONPTPEFF(double p, double T, double p2, double eff) noexcept {
    return run([&] {
        return expansionFromPT(*this, &WaterModel::WEXPANSIONPTPEFF, EndTest::kFormulation, p, T, p2, eff);
    });
}

double PropertyFacade::THERMCONDEXPANSIONPTPEFF(double p, double T, double p2, double eff) noexcept {
    return run([&] {
        return expansionFromPT(*this, &WaterModel::THERMCONDEXPANSIONPTPEFF, EndTest::kConductivity, p, T, p2, eff);
    });
}

double PropertyFacade::KINVISEXPANSIONPTPEFF(double p, double T, double p2, double eff) noexcept {
    return run([&] {
        return expansionFromPT(*this, &WaterModel::KINVISEXPANSIONPTPEFF, EndTest::kViscosity, p, T, p2, eff);
    });
}

double PropertyFacade::DYNVISEXPANSIONPTPEFF(double p, double T, double p2, double eff) noexcept {
    return run([&] {
        return expansionFromPT(*this, &WaterModel::DYNVISEXPANSIONPTPEFF, EndTest::kViscosity, p, T, p2, eff);
    });
}

double PropertyFacade::PRANDTLEEXPANSIONPTPEFF(double p, double T, double p2, double eff) noexcept {
    return run([&] {
        return expansionFromPT(*this, &WaterModel::PRANDTLEEXPANSIONPTPEFF, EndTest::kConductivity, p, T, p2, eff);
    });
}

double PropertyFacade::KEXPANSIONPTPEFF(double p, double T, double p2, double eff) noexcept {
    return run([&] {
        return expansionFromPT(*this, &WaterModel::KEXPANSIONPTPEFF, EndTest::kFormulation, p, T, p2, eff);
    });
}

double PropertyFacade::JOULETHOMPSONEXPANSIONPTPEFF(double p, double T, double p2, double eff) noexcept {
    return run([&] {
        return expansionFromPT(*this, &WaterModel::JOULETHOMPSONEXPANSIONPTPEFF, EndTest::kFormulation, p, T, p2, eff);
    });
}

double PropertyFacade::XEXPANSIONPTPEFF(double p, double T, double p2, double eff) noexcept {
    return run([&] {
        return expansionFromPT(*this, &WaterModel::XEXPANSIONPTPEFF, EndTest::kDryness, p, T, p2, eff);
    });
}

}  // namespace tvl
