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

struct RangeCase {
    const char* what;
    double (*call)(tvl::PropertyFacade&);
    int codeWithChecks;
    int codeWithoutChecks;
};

TEST_F(AuxiliaryProperties, ConductivityBranchAtTheReducingTemperature) {
    // At Tbar exactly 1 the supercritical branch S = 1/dT holds; both sides stay close.
    const double at = lib.THERMCONDRT(300.0, 647.26);
    const double below = lib.THERMCONDRT(300.0, std::nextafter(647.26, 0.0));
    EXPECT_TRUE(std::isfinite(at));
    EXPECT_NE(at, below);
    EXPECT_NEAR(at, below, 0.05 * at);
}

}  // namespace
