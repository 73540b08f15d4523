// Region 2: the forward equation against itself (combined call, derivatives), round trips of the
// refined backward functions over all three subregions, the subregion choice at its edges, and
// what toleranceMode, maxIterations and checkRangeMode change.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "support/facade_fixture.h"
#include "water/formulation/constants.h"

namespace {

using tvltest::nearRelative;

struct State {
    double p;
    double T;
};

class Region2 : public tvltest::FacadeTest {
protected:
    // Region 2 from 1 kPa to 100 MPa: from the saturation line (or B23 above 16.53 MPa, or 273.15 K
    // below the triple-point pressure) a kelvin upwards, to 1073.15 K.
    std::vector<State> grid() {
        std::vector<State> states;
        for (double p : {1e3, 1e4, 1e5, 5e5, 1e6, 2.5e6, 4e6, 4.5e6, 6e6, 1e7, 1.6e7, 2e7, 3e7, 5e7, 7e7, 1e8}) {
            double lowest = tvl::kLowestTemperature;
            if (p > tvl::kP623) lowest = water.T23P(p);
            else if (p > tvl::kIcePointSaturationPressure) lowest = water.TSP(p);
            for (double T = tvl::kRegion25Temperature; T > lowest + 1.0; T -= 23.0) states.push_back({p, T});
            states.push_back({p, lowest + 1.0});
        }
        return states;
    }

    // 'a', 'b' or 'c': the subregion of the (p,h) equations that the state falls in.
    char subregion(const State& s) {
        if (s.p <= 4e6) return 'a';
        return water.P2B2CH(water.H2PT(s.p, s.T)) >= s.p ? 'b' : 'c';
    }
};

TEST_F(Region2, GridCoversAllThreeSubregions) {
    int count[3] = {0, 0, 0};
    for (const State& s : grid()) ++count[subregion(s) - 'a'];
    EXPECT_GT(count[0], 50);
    EXPECT_GT(count[1], 50);
    EXPECT_GT(count[2], 10);
}

// ---- The subregion choice ----

struct EdgeCase {
    const char* what;
    double (tvl::PropertyFacade::*selecting)(double, double) noexcept;
    double (tvl::PropertyFacade::*expected)(double, double) noexcept;
    double a;
    double b;
};

// ---- Settings ----

enum class Search { Refinement, Always };

struct Call {
    const char* name;
    Search search;
    double (*run)(tvl::PropertyFacade&);
};

struct SettingsCase {
    const char* what;
    int toleranceMode;
    int maxIterations;
    double tolerance;
    int codeOfRefinement;  // the searches behind a backward equation
    int codeOfAlways;      // the searches that run in any mode
};

}  // namespace
