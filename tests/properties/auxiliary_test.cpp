// Transport by (density, T), surface tension, dielectric constant, ionization constant,
// refractive index and the ice curves: the releases' values, the library's stated values, and
// the ranges of the exports.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/check_values.h"
#include "support/facade_fixture.h"

namespace {

using tvltest::CheckValue;

class AuxiliaryProperties : public tvltest::FacadeTest {};

TEST_F(AuxiliaryProperties, ReleaseCheckValues) {
    auto rT = [](auto f) { return [f](const CheckValue& r) { return f(r.inputs.at("rho"), r.inputs.at("T")); }; };
    const tvltest::EvaluatorTable table = {
        {{"viscosity", "mu"}, rT([&](double rho, double T) { return lib.DYNVISRT(rho, T); })},
        // The release's values are printed for its densities rounded in mol/dm3 and with its own
        // epsilon0; the tolerance of each row holds both effects.
        {{"static dielectric constant", "epsilon"}, rT([&](double rho, double T) { return lib.DCRT(rho, T); })},
        {{"static dielectric constant (stored products)", "epsilon"},
         rT([&](double rho, double T) { return lib.DCRT(rho, T); })},
    };
    EXPECT_EQ(tvltest::expectCheckValues(table), 22);
}

// Values the library states, each to the digits printed.
struct StatedValue {
    const char* what;
    double value;
    double expected;
    double tolerance;
};

TEST_F(AuxiliaryProperties, StatedValues) {
    const StatedValue cases[] = {
        {"surface tension at 300 K", lib.SURFTENT(300.0), 0.0716859625, 5e-11},
        {"surface tension at 373.15 K", lib.SURFTENT(373.15), 0.0589118686, 5e-11},
        {"surface tension at the critical point", lib.SURFTENT(647.096), 0.0, 0.0},
        {"pKw 1000 kg/m3, 300 K", lib.PKWRT(1000.0, 300.0), 13.9065645, 5e-8},
        {"pKw 700 kg/m3, 600 K", lib.PKWRT(700.0, 600.0), 11.2031531, 5e-8},
        {"pKw 70 kg/m3, 600 K", lib.PKWRT(70.0, 600.0), 21.0488738, 5e-8},
        {"pKw 200 kg/m3, 800 K", lib.PKWRT(200.0, 800.0), 15.0897650, 5e-8},
        {"pKw 1200 kg/m3, 800 K", lib.PKWRT(1200.0, 800.0), 6.4383296, 5e-8},
        {"dielectric constant 997.047 kg/m3, 298.15 K", lib.DCRT(997.047, 298.15), 78.4084296, 5e-8},
        {"dielectric constant 1000 kg/m3, 300 K", lib.DCRT(1000.0, 300.0), 78.0331782, 5e-8},
        {"refractive index, sodium D line", lib.RIRTL(997.047, 298.15, 5.89e-07), 1.33286736, 5e-9},
        {"melting pressure at 260 K", lib.PMELTIT(260.0), 138268113.0, 0.5},
        {"melting pressure at 251.165 K", lib.PMELTIT(251.165), 208566566.0, 0.5},
        {"sublimation pressure at 230 K", lib.PSUBT(230.0), 8.94735274, 5e-9},
        {"sublimation pressure at 50 K", lib.PSUBT(50.0), 1.93495849e-40, 5e-49},
        {"melting curve at the triple point", lib.PMELTIT(273.16), 611.657, 1e-9},
        {"sublimation curve at the triple point", lib.PSUBT(273.16), 611.657, 1e-9},
    };
    for (const StatedValue& c : cases) EXPECT_NEAR(c.value, c.expected, c.tolerance) << c.what;
}

struct RangeCase {
    const char* what;
    double (*call)(tvl::PropertyFacade&);
    int codeWithChecks;
    int codeWithoutChecks;
};

TEST_F(AuxiliaryProperties, RangesOfTheExports) {
    const RangeCase cases[] = {
        {"surface tension below 273.15 K", [](tvl::PropertyFacade& f) { return f.SURFTENT(273.14); }, 2, 0},
        {"surface tension above the critical point", [](tvl::PropertyFacade& f) { return f.SURFTENT(650.0); }, 2, 1},
        {"melting pressure at 250 K", [](tvl::PropertyFacade& f) { return f.PMELTIT(250.0); }, 2, 0},
        {"melting pressure at 251.165 K", [](tvl::PropertyFacade& f) { return f.PMELTIT(251.165); }, 0, 0},
        {"sublimation pressure at 274 K", [](tvl::PropertyFacade& f) { return f.PSUBT(274.0); }, 2, 0},
        {"sublimation pressure at -1 K", [](tvl::PropertyFacade& f) { return f.PSUBT(-1.0); }, 2, 1},
        {"negative density of pKw", [](tvl::PropertyFacade& f) { return f.PKWRT(-1.0, 300.0); }, 2, 1},
        {"pKw at zero density", [](tvl::PropertyFacade& f) { return f.PKWRT(0.0, 300.0); }, 0, 0},
        {"dielectric constant below 228 K", [](tvl::PropertyFacade& f) { return f.DCRT(1000.0, 200.0); }, 1, 1},
        {"refractive index at a resonance", [](tvl::PropertyFacade& f) {
             return f.RIRTL(1000.0, 300.0, 5.89e-07 * std::sqrt(0.052533556804)); }, 1, 1},
        {"viscosity takes any numbers", [](tvl::PropertyFacade& f) { return f.DYNVISRT(1500.0, 250.0); }, 0, 0},
        {"conductivity at zero density", [](tvl::PropertyFacade& f) { return f.THERMCONDRT(0.0, 500.0); }, 0, 0},
        {"conductivity at a negative density", [](tvl::PropertyFacade& f) { return f.THERMCONDRT(-1.0, 500.0); }, 1, 1},
    };
    for (const RangeCase& c : cases) {
        lib.SETCHECKRANGEMODE(1);
        c.call(lib);
        EXPECT_EQ(lastError(), c.codeWithChecks) << c.what << ", checks on";
        lib.SETCHECKRANGEMODE(0);
        c.call(lib);
        EXPECT_EQ(lastError(), c.codeWithoutChecks) << c.what << ", checks off";
    }
}

TEST_F(AuxiliaryProperties, ConductivityBranchAtTheReducingTemperature) {
    // At Tbar exactly 1 the supercritical branch S = 1/dT holds; both sides stay close.
    const double at = lib.THERMCONDRT(300.0, 647.26);
    const double below = lib.THERMCONDRT(300.0, std::nextafter(647.26, 0.0));
    EXPECT_TRUE(std::isfinite(at));
    EXPECT_NE(at, below);
    EXPECT_NEAR(at, below, 0.05 * at);
}

}  // namespace
