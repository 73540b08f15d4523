// The saturation line and the region boundaries: values, limits of the saturation exports,
// and how the raw curves fail outside their domain.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/facade_fixture.h"

namespace {

using tvltest::nearRelative;

class SaturationLine : public tvltest::FacadeTest {};

using SaturationExport = double (*)(tvl::PropertyFacade&, double);

struct LimitCase {
    const char* what;
    SaturationExport call;
    double argument;
    int code;
};

const SaturationExport kPST = [](tvl::PropertyFacade& f, double x) { return f.PST(x); };
const SaturationExport kTSP = [](tvl::PropertyFacade& f, double x) { return f.TSP(x); };
const SaturationExport kDPDTST = [](tvl::PropertyFacade& f, double x) { return f.DPDTST(x); };
const SaturationExport kROUGHRSWT = [](tvl::PropertyFacade& f, double x) { return f.ROUGHRSWT(x); };
const SaturationExport kROUGHRSST = [](tvl::PropertyFacade& f, double x) { return f.ROUGHRSST(x); };

class Boundaries : public tvltest::FacadeTest {};

TEST_F(Boundaries, ValuesOfTheLibrary) {
    EXPECT_NEAR(lib.P23T(623.15), 16529164.2526, 5e-5);
    EXPECT_NEAR(lib.T23P(16529164.2526), 623.15, 5e-9);
    EXPECT_NEAR(lib.H2B2CP(1e8), 3516004.323, 5e-4);
    EXPECT_NEAR(lib.P2B2CH(3516004.323), 1e8, 0.5);
    EXPECT_NEAR(lib.TB23HS(2600e3, 5100.0), 713.5259364, 5e-8);
    EXPECT_NEAR(lib.TB23HS(2800e3, 5200.0), 817.6202120, 5e-8);
    EXPECT_NEAR(lib.ROUGHHSSS(7000.0), 2723729.985, 5e-4);
    EXPECT_NEAR(lib.ROUGHHSSS(8000.0), 2599047.210, 5e-4);
    EXPECT_NEAR(lib.ROUGHHSWS(3800.0), 1685025.565, 5e-4);
    EXPECT_NEAR(lib.ROUGHHSWS(4200.0), 1949352.563, 5e-4);
    EXPECT_NEAR(lib.ROUGHHSWS(1000.0), 308551.089, 5e-4);
    EXPECT_EQ(lastError(), 0);
}

}  // namespace
