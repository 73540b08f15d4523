// Region 3 forward: the (density, T) equations against each other and against differences, the
// areas of the fitted volume, the density search and the (p,T) family built on them.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>

#include "region3_states.h"
#include "support/facade_fixture.h"
#include "water/formulation/region3_fit.h"

namespace {

using tvl::RoughV3Area;
using tvltest::nearRelative;

class Region3 : public tvltest::FacadeTest {
protected:
    // The smallest maxIterations with which call succeeds; the search then returned at the
    // step before it, since the step that reaches the cap fails.
    template <class Call>
    int stepsOf(Call call) {
        for (int cap = 1; cap <= 100; ++cap) {
            lib.settings.maxIterations = cap;
            call();
            if (lastError() == 0) {
                lib.settings.maxIterations = 100;
                return cap - 1;
            }
        }
        return -1;
    }
};

TEST_F(Region3, DensitySearchWithOneIterationAlwaysFails) {
    const double rho = lib.R3PT(25e6, 650.0);  // the root itself as the start
    lib.SETMAXITERATION(1);
    EXPECT_EQ(lib.R3PTR0(25e6, 650.0, rho), -1.0);
    EXPECT_EQ(lastError(), 3);
    EXPECT_EQ(lib.V3PT(25e6, 650.0), -1.0);
    EXPECT_EQ(lastError(), 3);
    lib.SETTOLERANCEMODE(0);
    EXPECT_EQ(lib.R3PTR0(25e6, 650.0, rho), -1.0);  // iterates whatever toleranceMode says
    EXPECT_EQ(lastError(), 3);
    EXPECT_GT(lib.R3PT(25e6, 650.0), 0.0);  // the fit alone
    EXPECT_EQ(lastError(), 0);
}

}  // namespace
