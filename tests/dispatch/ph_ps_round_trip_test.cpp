// Round trips through (p,h) and (p,s): a state given by (p,T) comes back from its enthalpy or
// entropy to the tolerance of the temperature searches, in the region that the (p,T) selection
// names; its properties are those of (p,T) at the temperature found; a wet state gives its
// dryness fraction back. With toleranceMode off the dispatch returns the releases' backward
// equations, as their check values show.
#include <gtest/gtest.h>

#include <cmath>
#include <map>

#include "dispatch/ph_ps_states.h"
#include "support/check_values.h"
#include "support/facade_fixture.h"

namespace {

using tvl::PropertyFacade;
using tvltest::GridState;
using tvltest::nearRelative;

// Member calls through a plain reference: GCC 12's vptr check misreads lib.* on the fixture.
template <class Member, class... Args>
auto call(PropertyFacade& facade, Member member, Args... args) {
    return (facade.*member)(args...);
}

using PairFunction = double (PropertyFacade::*)(double, double) noexcept;
using AreaFunction = std::int32_t (PropertyFacade::*)(double, double) noexcept;

// What tells the two families apart in these tests.
struct Family {
    const char* name;
    PairFunction forward;      // the second variable by (p,T): HPT or SPT
    PairFunction temperature;  // TPH or TPS
    AreaFunction area;
    PairFunction dryness;      // XPH or XPS
    PairFunction wetValue;     // HSTX or SSTX
};

const Family kFamilies[] = {
    {"(p,h)", &PropertyFacade::HPT, &PropertyFacade::TPH, &PropertyFacade::WATERSTATEAREAPH, &PropertyFacade::XPH,
     &PropertyFacade::HSTX},
    {"(p,s)", &PropertyFacade::SPT, &PropertyFacade::TPS, &PropertyFacade::WATERSTATEAREAPS, &PropertyFacade::XPS,
     &PropertyFacade::SSTX},
};

class PHPSRoundTrip : public tvltest::FacadeTest {};

// The searches stop when a step falls under tolerance (2e-12) times the start temperature. They
// converge quadratically in regions 1, 2 and 5, where what is left is the rounding of the last
// steps, and linearly, by a chord, in region 3, where the error left after the last step is of
// the order of that step: 2.5 tolerances there.
TEST_F(PHPSRoundTrip, TemperatureComesBackInTheRegionOfThePTSelection) {
    const auto grid = tvltest::onePhaseGrid(lib);
    for (const Family& f : kFamilies) {
        std::map<int, int> statesOfRegion;
        std::map<int, double> worst;
        for (const GridState& s : grid) {
            const double y = call(lib, f.forward, s.p, s.T);
            ASSERT_EQ(lastError(), 0) << f.name << " " << s;
            EXPECT_EQ(call(lib, f.area, s.p, y), s.region) << f.name << " " << s;
            const double T = call(lib, f.temperature, s.p, y);
            EXPECT_EQ(lastError(), 0) << f.name << " " << s;
            EXPECT_TRUE(nearRelative(T, s.T, s.region == 3 ? 5e-12 : 2e-14)) << f.name << " " << s;
            ++statesOfRegion[s.region];
            worst[s.region] = std::fmax(worst[s.region], std::fabs(T - s.T) / s.T);
        }
        for (int region : {1, 2, 3, 5}) {
            EXPECT_GT(statesOfRegion[region], 500) << f.name << " region " << region;
            std::printf("%s region %d: %d states, worst relative temperature %.2g\n", f.name, region,
                        statesOfRegion[region], worst[region]);
        }
    }
}

struct PropertyPair {
    const char* name;
    PairFunction byPH;
    PairFunction byPS;
    PairFunction byPT;
    double tolerance;
};

// x = (y - y') / (y'' - y') undoes the mixing of HSTX and SSTX to a few rounding units of y
// against y'' - y', which shrinks towards the critical point: a unit of 2e6 J/kg against the
// 2.8e3 J/kg left at a relative 1e-6 under the critical pressure is 2e-13.
TEST_F(PHPSRoundTrip, WetStatesGiveTheirDrynessBack) {
    for (const Family& f : kFamilies) {
        double worst = 0.0;
        for (const tvltest::WetState& s : tvltest::wetStates(lib)) {
            const double y = call(lib, f.wetValue, s.Ts, s.x);
            EXPECT_EQ(call(lib, f.area, s.p, y), 4) << f.name << " " << s;
            EXPECT_EQ(lib.solved.temperatureSolved, 1) << "the selection publishes Ts, " << f.name << " " << s;
            EXPECT_EQ(lib.solved.solvedTemperature, s.Ts) << f.name << " " << s;
            EXPECT_EQ(call(lib, f.temperature, s.p, y), s.Ts) << f.name << " " << s;
            const double x = call(lib, f.dryness, s.p, y);
            EXPECT_EQ(lastError(), 0) << f.name << " " << s;
            EXPECT_NEAR(x, s.x, 1e-12) << f.name << " " << s;
            worst = std::fmax(worst, std::fabs(x - s.x));
        }
        std::printf("%s: worst dryness fraction back %.2g\n", f.name, worst);
    }
}

}  // namespace
