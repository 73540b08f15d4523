// The end state of an adiabatic expansion: the efficiency formula at its telling values (0, 1,
// beyond 1), the end-state properties as the (p,h) family gives them, the dryness fraction only
// in the wet area, the tests before and after by property, the (p,T,x) start, and bad input.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/facade_fixture.h"

namespace {

using tvl::PropertyFacade;
using tvltest::nearRelative;

// Member calls through a plain reference: GCC 12's vptr check misreads lib.* on the fixture.
template <class Member, class... Args>
auto call(PropertyFacade& facade, Member member, Args... args) {
    return (facade.*member)(args...);
}

using FromPT = double (PropertyFacade::*)(double, double, double, double) noexcept;
using FromPTX = double (PropertyFacade::*)(double, double, double, double, double) noexcept;
using ByPH = double (PropertyFacade::*)(double, double) noexcept;

struct ExpansionExport {
    const char* name;
    FromPT fromPT;
    FromPTX fromPTX;
    ByPH endState;  // the (p,h) export of the end state; null for H itself and for X
};

const ExpansionExport kExports[] = {
    {"T", &PropertyFacade::TEXPANSIONPTPEFF, &PropertyFacade::TEXPANSIONPTXPEFF, &PropertyFacade::TPH},
    {"V", &PropertyFacade::VEXPANSIONPTPEFF, &PropertyFacade::VEXPANSIONPTXPEFF, &PropertyFacade::VPH},
    {"U", &PropertyFacade::UEXPANSIONPTPEFF, &PropertyFacade::UEXPANSIONPTXPEFF, &PropertyFacade::UPH},
    {"H", &PropertyFacade::HEXPANSIONPTPEFF, &PropertyFacade::HEXPANSIONPTXPEFF, nullptr},
    {"S", &PropertyFacade::SEXPANSIONPTPEFF, &PropertyFacade::SEXPANSIONPTXPEFF, &PropertyFacade::SPH},
    {"CP", &PropertyFacade::CPEXPANSIONPTPEFF, &PropertyFacade::CPEXPANSIONPTXPEFF, &PropertyFacade::CPPH},
    {"CV", &PropertyFacade::CVEXPANSIONPTPEFF, &PropertyFacade::CVEXPANSIONPTXPEFF, &PropertyFacade::CVPH},
    {"W", &PropertyFacade::WEXPANSIONPTPEFF, &PropertyFacade::WEXPANSIONPTXPEFF, &PropertyFacade::WPH},
    {"THERMCOND", &PropertyFacade::THERMCONDEXPANSIONPTPEFF, &PropertyFacade::THERMCONDEXPANSIONPTXPEFF,
     &PropertyFacade::THERMCONDPH},
    {"KINVIS", &PropertyFacade::KINVISEXPANSIONPTPEFF, &PropertyFacade::KINVISEXPANSIONPTXPEFF,
     &PropertyFacade::KINVISPH},
    {"DYNVIS", &PropertyFacade::DYNVISEXPANSIONPTPEFF, &PropertyFacade::DYNVISEXPANSIONPTXPEFF,
     &PropertyFacade::DYNVISPH},
    {"PRANDTLE", &PropertyFacade::PRANDTLEEXPANSIONPTPEFF, &PropertyFacade::PRANDTLEEXPANSIONPTXPEFF,
     &PropertyFacade::PRANDTLEPH},
    {"K", &PropertyFacade::KEXPANSIONPTPEFF, &PropertyFacade::KEXPANSIONPTXPEFF, &PropertyFacade::KPH},
    {"JOULETHOMPSON", &PropertyFacade::JOULETHOMPSONEXPANSIONPTPEFF,
     &PropertyFacade::JOULETHOMPSONEXPANSIONPTXPEFF, &PropertyFacade::JOULETHOMPSONPH},
    {"X", &PropertyFacade::XEXPANSIONPTPEFF, &PropertyFacade::XEXPANSIONPTXPEFF, &PropertyFacade::XPH},
};

struct Stage {
    double p, T, p2;
};

std::ostream& operator<<(std::ostream& out, const Stage& s) {
    return out << "from " << s.p << " Pa, " << s.T << " K to " << s.p2 << " Pa";
}

// Turbine stages from every region of the inlet into steam, the wet area and liquid.
const Stage kStages[] = {
    {1e7, 800.0, 1e4},    {1e7, 800.0, 5e6},   {2.5e7, 900.0, 1e6},  {1e6, 1500.0, 1e5}, {1e5, 2000.0, 5e3},
    {5e7, 700.0, 2e7},    {3e7, 650.0, 1e6},   {1e6, 500.0, 1e5},    {1e8, 350.0, 1e5},  {5e6, 600.0, 1e4},
    {2e6, 1073.15, 2e4},  {1.6e7, 700.0, 1e3},
};

class Expansion : public tvltest::FacadeTest {};

// eff = 0 is a throttling: h2 is h1 exactly, and the end state is that enthalpy at p2.
TEST_F(Expansion, ZeroEfficiencyThrottles) {
    for (const Stage& s : kStages) {
        const double h1 = lib.HPT(s.p, s.T);
        EXPECT_EQ(lib.HEXPANSIONPTPEFF(s.p, s.T, s.p2, 0.0), h1) << s;
        EXPECT_EQ(lib.TEXPANSIONPTPEFF(s.p, s.T, s.p2, 0.0), lib.TPH(s.p2, h1)) << s;
        EXPECT_EQ(lastError(), 0) << s;
    }
}

// eff = 1 is the isentropic end point: h2 is HPS(p2, s1) up to the rounding of h1 - (h1 - h2s),
// and s at the end comes back to s1 through TPH, to the tolerance of the temperature searches,
// which a relative 1e-11 in s holds.
TEST_F(Expansion, UnitEfficiencyIsIsentropic) {
    for (const Stage& s : kStages) {
        const double s1 = lib.SPT(s.p, s.T);
        const double h2s = lib.HPS(s.p2, s1);
        EXPECT_TRUE(nearRelative(lib.HEXPANSIONPTPEFF(s.p, s.T, s.p2, 1.0), h2s, 1e-15)) << s;
        EXPECT_TRUE(nearRelative(lib.SEXPANSIONPTPEFF(s.p, s.T, s.p2, 1.0), s1, 1e-11)) << s;
        EXPECT_EQ(lastError(), 0) << s;
    }
}

struct CodeCase {
    const char* what;
    FromPT f;
    double p, T, p2, eff;
    int withChecks;
    int withoutChecks;
};

// Before the model: ValidatePT on the inlet, then p2 in 0 to 100 MPa, where 0 passes and is left
// to the dispatch (region 2 at zero pressure has no entropy: code 1). After it, by property: the
// result as a temperature (T), the solved temperature in the formulation (B), in the range of
// the conductivity (THERMCOND, PRANDTLE) or of the viscosity (DYNVIS, KINVIS), the dryness
// fraction and then B (X). For H the solved temperature is the isentropic end point's, so a
// throttling (eff 0) whose isentropic compression would end beyond the formulation fails.
TEST_F(Expansion, TestsBeforeAndAfter) {
    using F = PropertyFacade;
    const CodeCase cases[] = {
        {"inlet under the melting line", &F::HEXPANSIONPTPEFF, 1e5, 270.0, 1e4, 0.85, 2, 0},
        {"inlet over 100 MPa", &F::HEXPANSIONPTPEFF, 1.1e8, 400.0, 1e5, 0.85, 2, 0},
        {"p2 over 100 MPa", &F::TEXPANSIONPTPEFF, 1e6, 400.0, 1.1e8, 0.0, 2, 0},
        {"p2 negative", &F::HEXPANSIONPTPEFF, 1e7, 800.0, -1e-300, 0.85, 2, 1},
        {"p2 zero passes to the dispatch", &F::HEXPANSIONPTPEFF, 1e7, 800.0, 0.0, 0.85, 1, 1},
        {"H: isentropic end beyond 2275 K", &F::HEXPANSIONPTPEFF, 1e6, 2000.0, 5e7, 0.0, 2, 0},
        {"T of the same stage is in range", &F::TEXPANSIONPTPEFF, 1e6, 2000.0, 5e7, 0.0, 0, 0},
        {"V of the same stage is in range", &F::VEXPANSIONPTPEFF, 1e6, 2000.0, 5e7, 0.0, 0, 0},
        {"THERMCOND at 1100 K", &F::THERMCONDEXPANSIONPTPEFF, 1e5, 1100.0, 1e5, 0.0, 2, 0},
        {"PRANDTLE at 1100 K", &F::PRANDTLEEXPANSIONPTPEFF, 1e5, 1100.0, 1e5, 0.0, 2, 0},
        {"DYNVIS at 1100 K", &F::DYNVISEXPANSIONPTPEFF, 1e5, 1100.0, 1e5, 0.0, 0, 0},
        {"KINVIS at 1100 K", &F::KINVISEXPANSIONPTPEFF, 1e5, 1100.0, 1e5, 0.0, 0, 0},
        {"DYNVIS at 1180 K", &F::DYNVISEXPANSIONPTPEFF, 1e5, 1180.0, 1e5, 0.0, 2, 0},
        {"THERMCOND over 70.07 MPa at 780 K", &F::THERMCONDEXPANSIONPTPEFF, 7.1e7, 780.0, 7.1e7, 0.0, 2, 0},
        {"THERMCOND at 70.05 MPa, 780 K", &F::THERMCONDEXPANSIONPTPEFF, 7.005e7, 780.0, 7.005e7, 0.0, 0, 0},
        {"X of a superheated end", &F::XEXPANSIONPTPEFF, 1e7, 800.0, 5e6, 0.85, 2, 2},
        {"T of a wet end", &F::TEXPANSIONPTPEFF, 1e7, 800.0, 1e4, 0.85, 0, 0},
    };
    for (int checks : {1, 0}) {
        lib.SETCHECKRANGEMODE(checks);
        for (const CodeCase& c : cases) {
            const double result = call(lib, c.f, c.p, c.T, c.p2, c.eff);
            EXPECT_EQ(lastError(), checks ? c.withChecks : c.withoutChecks) << c.what << ", checks " << checks;
            if (lastError() != 0) {
                EXPECT_EQ(result, -1.0) << c.what;
            } else {
                EXPECT_TRUE(std::isfinite(result)) << c.what;
            }
        }
    }
}

}  // namespace
