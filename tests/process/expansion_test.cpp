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

}  // namespace
