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

enum class EndTest { kTemperature, kFormulation, kConductivity, kViscosity, kDryness };

void requireEndState(PropertyFacade& lib, EndTest test, double p2, double result) {
    switch (test) {
    case EndTest::kTemperature: lib.ValidatePTResult(p2, result); return;
    case EndTest::kFormulation: requireSolvedState(lib, SolvedRange::kFormulation, p2); return;
    case EndTest::kConductivity: requireSolvedState(lib, SolvedRange::kConductivity, p2); return;
    case EndTest::kViscosity: requireSolvedState(lib, SolvedRange::kViscosity, p2); return;
    case EndTest::kDryness:
        requireDryness(result);
        requireSolvedState(lib, SolvedRange::kFormulation, p2);
        return;
    }
}

// The tests of the arguments, the model, then the test of the end state.
template <class Model>
double expand(PropertyFacade& lib, EndTest test, double p, double T, double p2, Model model) {
    const bool checks = lib.settings.checksOn();
    if (checks) {
        lib.ValidatePT(p, T);
        requireWithin(p2, 0.0 * kOneMinusEps, kArgumentLimits.highestPressure);
    }
    const double result = model();
    if (checks) requireEndState(lib, test, p2, result);
    return result;
}

using FromPT = double (WaterModel::*)(double p, double T, double p2, double eff);
using FromPTX = double (WaterModel::*)(double p, double T, double x, double p2, double eff);

double expandFromPT(PropertyFacade& lib, FromPT model, EndTest test, double p, double T, double p2, double eff) {
    return expand(lib, test, p, T, p2, [&] { return (lib.water.*model)(p, T, p2, eff); });
}

// The dryness fraction is tested before anything else.
double expandFromPTX(PropertyFacade& lib, FromPTX model, EndTest test, double p, double T, double x, double p2,
                     double eff) {
    if (lib.settings.checksOn()) requireDryness(x);
    return expand(lib, test, p, T, p2, [&] { return (lib.water.*model)(p, T, x, p2, eff); });
}

}  // namespace

double PropertyFacade::TEXPANSIONPTPEFF(double p, double T, double p2, double eff) noexcept {
    return run([&] {
        return expandFromPT(*this, &WaterModel::TEXPANSIONPTPEFF, EndTest::kTemperature, p, T, p2, eff);
    });
}

double PropertyFacade::VEXPANSIONPTPEFF(double p, double T, double p2, double eff) noexcept {
    return run([&] {
        return expandFromPT(*this, &WaterModel::VEXPANSIONPTPEFF, EndTest::kFormulation, p, T, p2, eff);
    });
}

double PropertyFacade::UEXPANSIONPTPEFF(double p, double T, double p2, double eff) noexcept {
    return run([&] {
        return expandFromPT(*this, &WaterModel::UEXPANSIONPTPEFF, EndTest::kFormulation, p, T, p2, eff);
    });
}

double PropertyFacade::HEXPANSIONPTPEFF(double p, double T, double p2, double eff) noexcept {
    return run([&] {
        return expandFromPT(*this, &WaterModel::HEXPANSIONPTPEFF, EndTest::kFormulation, p, T, p2, eff);
    });
}

double PropertyFacade::SEXPANSIONPTPEFF(double p, double T, double p2, double eff) noexcept {
    return run([&] {
        return expandFromPT(*this, &WaterModel::SEXPANSIONPTPEFF, EndTest::kFormulation, p, T, p2, eff);
    });
}

double PropertyFacade::CPEXPANSIONPTPEFF(double p, double T, double p2, double eff) noexcept {
    return run([&] {
        return expandFromPT(*this, &WaterModel::CPEXPANSIONPTPEFF, EndTest::kFormulation, p, T, p2, eff);
    });
}

double PropertyFacade::CVEXPANSIONPTPEFF(double p, double T, double p2, double eff) noexcept {
    return run([&] {
        return expandFromPT(*this, &WaterModel::CVEXPANSIONPTPEFF, EndTest::kFormulation, p, T, p2, eff);
    });
}

double PropertyFacade::WEXPANSIONPTPEFF(double p, double T, double p2, double eff) noexcept {
    return run([&] {
        return expandFromPT(*this, &WaterModel::WEXPANSIONPTPEFF, EndTest::kFormulation, p, T, p2, eff);
    });
}

double PropertyFacade::THERMCONDEXPANSIONPTPEFF(double p, double T, double p2, double eff) noexcept {
    return run([&] {
        return expandFromPT(*this, &WaterModel::THERMCONDEXPANSIONPTPEFF, EndTest::kConductivity, p, T, p2, eff);
    });
}

double PropertyFacade::KINVISEXPANSIONPTPEFF(double p, double T, double p2, double eff) noexcept {
    return run([&] {
        return expandFromPT(*this, &WaterModel::KINVISEXPANSIONPTPEFF, EndTest::kViscosity, p, T, p2, eff);
    });
}

double PropertyFacade::DYNVISEXPANSIONPTPEFF(double p, double T, double p2, double eff) noexcept {
    return run([&] {
        return expandFromPT(*this, &WaterModel::DYNVISEXPANSIONPTPEFF, EndTest::kViscosity, p, T, p2, eff);
    });
}

double PropertyFacade::PRANDTLEEXPANSIONPTPEFF(double p, double T, double p2, double eff) noexcept {
    return run([&] {
        return expandFromPT(*this, &WaterModel::PRANDTLEEXPANSIONPTPEFF, EndTest::kConductivity, p, T, p2, eff);
    });
}

double PropertyFacade::KEXPANSIONPTPEFF(double p, double T, double p2, double eff) noexcept {
    return run([&] {
        return expandFromPT(*this, &WaterModel::KEXPANSIONPTPEFF, EndTest::kFormulation, p, T, p2, eff);
    });
}

double PropertyFacade::JOULETHOMPSONEXPANSIONPTPEFF(double p, double T, double p2, double eff) noexcept {
    return run([&] {
        return expandFromPT(*this, &WaterModel::JOULETHOMPSONEXPANSIONPTPEFF, EndTest::kFormulation, p, T, p2, eff);
    });
}

double PropertyFacade::XEXPANSIONPTPEFF(double p, double T, double p2, double eff) noexcept {
    return run([&] {
        return expandFromPT(*this, &WaterModel::XEXPANSIONPTPEFF, EndTest::kDryness, p, T, p2, eff);
    });
}

double PropertyFacade::TEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff) noexcept {
    return run([&] {
        return expandFromPTX(*this, &WaterModel::TEXPANSIONPTXPEFF, EndTest::kTemperature, p, T, x, p2, eff);
    });
}

double PropertyFacade::VEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff) noexcept {
    return run([&] {
        return expandFromPTX(*this, &WaterModel::VEXPANSIONPTXPEFF, EndTest::kFormulation, p, T, x, p2, eff);
    });
}

double PropertyFacade::UEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff) noexcept {
    return run([&] {
        return expandFromPTX(*this, &WaterModel::UEXPANSIONPTXPEFF, EndTest::kFormulation, p, T, x, p2, eff);
    });
}

double PropertyFacade::HEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff) noexcept {
    return run([&] {
        return expandFromPTX(*this, &WaterModel::HEXPANSIONPTXPEFF, EndTest::kFormulation, p, T, x, p2, eff);
    });
}

double PropertyFacade::SEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff) noexcept {
    return run([&] {
        return expandFromPTX(*this, &WaterModel::SEXPANSIONPTXPEFF, EndTest::kFormulation, p, T, x, p2, eff);
    });
}

double PropertyFacade::CPEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff) noexcept {
    return run([&] {
        return expandFromPTX(*this, &WaterModel::CPEXPANSIONPTXPEFF, EndTest::kFormulation, p, T, x, p2, eff);
    });
}

double PropertyFacade::CVEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff) noexcept {
    return run([&] {
        return expandFromPTX(*this, &WaterModel::CVEXPANSIONPTXPEFF, EndTest::kFormulation, p, T, x, p2, eff);
    });
}

double PropertyFacade::WEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff) noexcept {
    return run([&] {
        return expandFromPTX(*this, &WaterModel::WEXPANSIONPTXPEFF, EndTest::kFormulation, p, T, x, p2, eff);
    });
}

double PropertyFacade::THERMCONDEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff) noexcept {
    return run([&] {
        return expandFromPTX(*this, &WaterModel::THERMCONDEXPANSIONPTXPEFF, EndTest::kConductivity, p, T, x, p2, eff);
    });
}

double PropertyFacade::KINVISEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff) noexcept {
    return run([&] {
        return expandFromPTX(*this, &WaterModel::KINVISEXPANSIONPTXPEFF, EndTest::kViscosity, p, T, x, p2, eff);
    });
}

double PropertyFacade::DYNVISEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff) noexcept {
    return run([&] {
        return expandFromPTX(*this, &WaterModel::DYNVISEXPANSIONPTXPEFF, EndTest::kViscosity, p, T, x, p2, eff);
    });
}

double PropertyFacade::PRANDTLEEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff) noexcept {
    return run([&] {
        return expandFromPTX(*this, &WaterModel::PRANDTLEEXPANSIONPTXPEFF, EndTest::kConductivity, p, T, x, p2, eff);
    });
}

double PropertyFacade::KEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff) noexcept {
    return run([&] {
        return expandFromPTX(*this, &WaterModel::KEXPANSIONPTXPEFF, EndTest::kFormulation, p, T, x, p2, eff);
    });
}

double PropertyFacade::JOULETHOMPSONEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff) noexcept {
    return run([&] {
        return expandFromPTX(*this, &WaterModel::JOULETHOMPSONEXPANSIONPTXPEFF, EndTest::kFormulation, p, T, x, p2,
                             eff);
    });
}

double PropertyFacade::XEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff) noexcept {
    return run([&] {
        return expandFromPTX(*this, &WaterModel::XEXPANSIONPTXPEFF, EndTest::kDryness, p, T, x, p2, eff);
    });
}

}  // namespace tvl
