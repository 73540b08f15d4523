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

// No test touches the efficiency: 1.5 puts the end below the isentropic end point, with less
// entropy than at the start.
TEST_F(Expansion, EfficiencyBeyondOneIsAccepted) {
    for (const Stage& s : {Stage{1e7, 800.0, 1e5}, Stage{1e6, 500.0, 1e5}}) {
        const double h1 = lib.HPT(s.p, s.T);
        const double h2s = lib.HPS(s.p2, lib.SPT(s.p, s.T));
        const double h2 = lib.HEXPANSIONPTPEFF(s.p, s.T, s.p2, 1.5);
        EXPECT_EQ(lastError(), 0) << s;
        EXPECT_EQ(h2, h1 - (h1 - h2s) * 1.5) << s;
        EXPECT_LT(h2, h2s) << s;
        EXPECT_LT(lib.SEXPANSIONPTPEFF(s.p, s.T, s.p2, 1.5), lib.SPT(s.p, s.T)) << s;
        EXPECT_EQ(lastError(), 0) << s;
    }
    // Nor is p2 compared with p: a compression by the same formula.
    EXPECT_GT(lib.HEXPANSIONPTPEFF(1e5, 400.0, 1e6, 0.8), lib.HPT(1e5, 400.0));
    EXPECT_EQ(lastError(), 0);
}

// Every property of the end state is the (p,h) family's at (p2, h2).
TEST_F(Expansion, EndStatePropertiesAreThoseByPH) {
    for (const Stage& s : kStages)
        for (double eff : {0.0, 0.7, 0.85, 1.0}) {
            const double h2 = lib.HEXPANSIONPTPEFF(s.p, s.T, s.p2, eff);
            ASSERT_EQ(lastError(), 0) << s << " eff " << eff;
            for (const ExpansionExport& e : kExports) {
                if (e.endState == nullptr) continue;
                const double expected = call(lib, e.endState, s.p2, h2);
                const int expectedCode = lastError();
                EXPECT_EQ(call(lib, e.fromPT, s.p, s.T, s.p2, eff), expected) << e.name << " " << s << " eff " << eff;
                // The tests after differ only for H (the isentropic point) and X (also B).
                if (expectedCode == 0) {
                    EXPECT_EQ(lastError(), 0) << e.name << " " << s << " eff " << eff;
                }
            }
        }
}

// The dryness fraction only in the wet area, with checks on or off; there it is x of h2.
TEST_F(Expansion, DrynessFractionOnlyInTheWetArea) {
    for (int checks : {1, 0}) {
        lib.SETCHECKRANGEMODE(checks);
        EXPECT_EQ(lib.XEXPANSIONPTPEFF(1e7, 800.0, 5e6, 0.85), -1.0) << "superheated end, checks " << checks;
        EXPECT_EQ(lastError(), 2);
        EXPECT_EQ(lib.XEXPANSIONPTPEFF(1e8, 350.0, 1e5, 0.85), -1.0) << "liquid end, checks " << checks;
        EXPECT_EQ(lastError(), 2);
        const double h2 = lib.HEXPANSIONPTPEFF(1e7, 800.0, 1e4, 0.85);
        const double Ts = lib.TSP(1e4);
        const double x = lib.XEXPANSIONPTPEFF(1e7, 800.0, 1e4, 0.85);
        EXPECT_EQ(lastError(), 0);
        EXPECT_NEAR(x, (h2 - lib.HSWT(Ts)) / (lib.HSST(Ts) - lib.HSWT(Ts)), 1e-15);
        EXPECT_GT(x, 0.8);
        EXPECT_LT(x, 1.0);
    }
}

// The turbine stage of the steam table: 10 MPa and 800 K to 10 kPa at 0.85. The end state is
// wet, at the saturation temperature of 10 kPa; its entropy lies above that of the inlet.
TEST_F(Expansion, TurbineStage) {
    const double h1 = lib.HPT(1e7, 800.0);
    const double h2s = lib.HPS(1e4, lib.SPT(1e7, 800.0));
    const double h2 = lib.HEXPANSIONPTPEFF(1e7, 800.0, 1e4, 0.85);
    EXPECT_TRUE(nearRelative(h1 - h2, 0.85 * (h1 - h2s), 1e-14));
    EXPECT_EQ(lib.TEXPANSIONPTPEFF(1e7, 800.0, 1e4, 0.85), lib.TSP(1e4));
    EXPECT_GT(lib.SEXPANSIONPTPEFF(1e7, 800.0, 1e4, 0.85), lib.SPT(1e7, 800.0));
    EXPECT_EQ(lib.CPEXPANSIONPTPEFF(1e7, 800.0, 1e4, 0.85), -1.0) << "cp has no meaning in the wet area";
    EXPECT_EQ(lastError(), 2);
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

// From (p, T, x): x counts only on the saturation line, where the start is the wet mixture;
// elsewhere the branch is that of (p, T). x is tested first, with checks on.
TEST_F(Expansion, StartFromPressureTemperatureDryness) {
    const double T = 450.0;
    const double p = lib.PST(T);
    for (double x : {0.0, 0.3, 1.0}) {
        EXPECT_EQ(lib.HEXPANSIONPTXPEFF(p, T, x, 1e4, 0.0), lib.HSTX(T, x)) << x;
        EXPECT_TRUE(nearRelative(lib.SEXPANSIONPTXPEFF(p, T, x, 1e4, 1.0), lib.SSTX(T, x), 1e-11)) << x;
        EXPECT_EQ(lastError(), 0) << x;
    }
    for (const Stage& s : kStages)
        for (const ExpansionExport& e : kExports) {
            const double expected = call(lib, e.fromPT, s.p, s.T, s.p2, 0.85);
            const int code = lastError();
            EXPECT_EQ(call(lib, e.fromPTX, s.p, s.T, 0.5, s.p2, 0.85), expected) << e.name << " " << s;
            EXPECT_EQ(lastError(), code) << e.name << " " << s;
        }
    EXPECT_EQ(lib.HEXPANSIONPTXPEFF(p, T, 1.5, 1e4, 0.85), -1.0);
    EXPECT_EQ(lastError(), 2);
    EXPECT_EQ(lib.HEXPANSIONPTXPEFF(p, T, -0.1, 1e4, 0.85), -1.0);
    EXPECT_EQ(lastError(), 2);
    EXPECT_EQ(lib.HEXPANSIONPTXPEFF(1e5, 270.0, 0.5, 1e4, 0.85), -1.0);
    EXPECT_EQ(lastError(), 2);
    lib.SETCHECKRANGEMODE(0);
    lib.HEXPANSIONPTXPEFF(1e6, 500.0, 1.5, 1e4, 0.85);
    EXPECT_EQ(lastError(), 0) << "off the line x is not looked at";
}

// NaN, infinities and huge numbers with checks on and off: a finite value with code 0, or -1
// with a code, and no hang.
TEST_F(Expansion, BadInputEndsInACode) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    const double values[] = {nan, inf, -1e300, 0.0, 1e5, 800.0};
    for (int checks : {1, 0}) {
        lib.SETCHECKRANGEMODE(checks);
        for (const ExpansionExport& e : kExports)
            for (double a : values)
                for (double b : values)
                    for (double eff : {nan, 0.85, 1e300}) {
                        const double r1 = call(lib, e.fromPT, a, b, 1e4, eff);
                        EXPECT_TRUE(std::isfinite(r1)) << e.name;
                        if (lastError() != 0) {
                            EXPECT_EQ(r1, -1.0) << e.name;
                        }
                        const double r2 = call(lib, e.fromPTX, 1e6, a, b, 1e4, eff);
                        EXPECT_TRUE(std::isfinite(r2)) << e.name;
                        if (lastError() != 0) {
                            EXPECT_EQ(r2, -1.0) << e.name;
                        }
                    }
    }
}

}  // namespace
