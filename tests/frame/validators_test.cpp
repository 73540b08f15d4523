// The (p,T) range on arguments and on solved states: the limits, their widening by one rounding
// unit, the melting-curve branch and NaN falling to the passing side.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "frame/validators.h"
#include "support/facade_fixture.h"

namespace {

class Validators : public tvltest::FacadeTest {
protected:
    bool argumentsPass(double p, double T) { return passes([&] { lib.ValidatePT(p, T); }); }
    bool solvedStatePasses(double p, double T) { return passes([&] { lib.ValidatePTResult(p, T); }); }

    template <class F>
    static bool passes(F f) {
        try {
            f();
            return true;
        } catch (int code) {
            EXPECT_EQ(code, tvl::kOutOfRange);
            return false;
        }
    }
};

struct RangeCase {
    const char* what;
    double p;
    double T;
    bool argumentPasses;
    bool solvedPasses;
};

TEST_F(Validators, PressureTemperatureRange) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const RangeCase cases[] = {
        {"100 MPa at 273.15 K", 1e8, 273.15, true, true},
        {"100 MPa at 1073.15 K", 1e8, 1073.15, true, true},
        {"50 MPa at 2273.15 K", 5e7, 2273.15, true, true},
        {"60 MPa at 1074 K", 6e7, 1074.0, false, true},
        {"60 MPa at 1075 K", 6e7, 1075.0, false, false},
        {"100 MPa, one step above", std::nextafter(1e8 * tvl::kOnePlusEps, 2e8), 300.0, false, true},
        {"100.1 MPa", 1.001e8 * 1.0000001, 300.0, false, false},
        {"negative pressure", -1.0, 300.0, false, false},
        {"zero pressure", 0.0, 300.0, true, true},
        {"2273.15 K, one step above the widened limit", 1e5, std::nextafter(2273.15 * tvl::kOnePlusEps, 3000.0), false, true},
        {"2276 K", 1e5, 2276.0, false, false},
        {"270 K at 0.1 MPa, under the melting pressure", 1e5, 270.0, false, false},
        {"270 K at 50 MPa", 5e7, 270.0, true, true},
        {"270 K at 500 MPa: no upper pressure below freezing", 5e8, 270.0, true, true},
        {"264 K, below the melting curve's 100 MPa point", 5e8, 264.0, false, true},
        {"263.9 K", 5e8, 263.9, false, false},
        {"273 K at 0.1 MPa: the solved-state limit is 272.877 K", 1e5, 273.0, false, true},
        {"NaN temperature", 1e5, nan, true, true},
        {"NaN pressure", nan, 300.0, true, true},
        {"NaN pressure at 1500 K", nan, 1500.0, true, true},
    };
    for (const RangeCase& c : cases) {
        EXPECT_EQ(argumentsPass(c.p, c.T), c.argumentPasses) << c.what;
        EXPECT_EQ(solvedStatePasses(c.p, c.T), c.solvedPasses) << c.what;
    }
}

// The melting branch of a solved state rounds twice, pm(T) times kOneMinusEps, then times
// 0.999; a folded constant differs by a rounding unit at these two states, seen through (h,s).
TEST_F(Validators, SolvedMeltingLimitRoundsTwice) {
    const struct {
        double h, s;
        int code;
    } cases[] = {{52816.75628520537, -113.80797406021425, tvl::kOutOfRange}, {33369.869124293524, -63.29568790200332, 0}};
    for (const auto& c : cases) {
        double p = 0.0, T = 0.0;
        lib.PTHS(c.h, c.s, &p, &T);
        EXPECT_EQ(lib.lastError, c.code) << c.h << " " << c.s << ": p " << p << ", T " << T;
    }
}

TEST(TransportLimits, ConductivityStepsAndViscosityRange) {
    auto passes = [](const tvl::TransportLimits& limits, double p, double T) {
        try {
            tvl::requireTransportRange(limits, p, T);
            return true;
        } catch (int) {
            return false;
        }
    };
    EXPECT_FALSE(passes(tvl::kConductivityArguments, 75e6, 800.0));
    EXPECT_TRUE(passes(tvl::kConductivityArguments, 65e6, 800.0));
    EXPECT_TRUE(passes(tvl::kViscosityArguments, 75e6, 800.0));
    EXPECT_FALSE(passes(tvl::kConductivityArguments, 45e6, 930.0));
    EXPECT_TRUE(passes(tvl::kViscosityArguments, 1e5, 1173.15));
    EXPECT_FALSE(passes(tvl::kConductivityArguments, 1e5, 1173.15));
    // A solved state at 1074 K passes the conductivity's wider after-test.
    EXPECT_TRUE(passes(tvl::kConductivitySolved, 1e5, 1074.0));
    EXPECT_FALSE(passes(tvl::kConductivityArguments, 1e5, 1074.0));
}

}  // namespace
