// The property exports by id and by text: printed values, range tests and the order of the
// steps of a call, the inversions with their count rule and snaps, round trips.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "gas_fixture.h"

namespace {

using gastest::GasTest;
using tvltest::nearRelative;

const double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST_F(GasTest, PrintedValuesOfAirMix) {
    EXPECT_TRUE(nearRelative(lib.gCPIDT(gastest::kAirMix, 298.15), 1004.75651, 5e-9));
    EXPECT_TRUE(nearRelative(lib.gHIDT(gastest::kAirMix, 1000.0), 1046493.33, 5e-9));
    EXPECT_TRUE(nearRelative(lib.gSIDT(gastest::kAirMix, 1000.0), 8137.00431, 5e-10));
    EXPECT_DOUBLE_EQ(lib.gGCID(gastest::kAirMix), 287.0591141165502);
    EXPECT_DOUBLE_EQ(lib.gGCID(gastest::kN2), 296.8033869505308);
    EXPECT_EQ(code(), 0);
}

// T back from h, s and (p, s), and p back from (T, s), over the whole range of the fits. The
// stop test bounds the residual by tolerance times the target, and one Newton step more follows
// it, so the temperature comes back to the rounding of the fits (a few 1e-12 K, where their
// terms cancel); 2e-12 relative is the library's tolerance. The pressure goes through exp of an
// entropy difference over R, which magnifies the rounding of s by 1/R; 1e-11 holds with room.
//
// The two ends are taken with range checks off: the rounding of the fits may put the T found a
// few units of the last place beyond 2500 K, where the snap window of tolerance kelvins (2e-12,
// four units there) does not reach, and the range test then refuses it.
void expectRoundTrips(tvl::PropertyFacade& lib, const char* text, std::int32_t id) {
    const std::string name = text != nullptr ? text : "id " + std::to_string(id);
    for (double T = 200.0; T <= 2500.0; T += 11.5) {
        lib.SETCHECKRANGEMODE(T == 200.0 || T == 2500.0 ? 0 : 1);
        for (double p : {1000.0, 1e5, 4.5e6}) {
            const double h = text ? lib.gHGST(text, T) : lib.gHIDT(id, T);
            const double s0 = text ? lib.gSGST(text, T) : lib.gSIDT(id, T);
            const double s = text ? lib.gSGSPT(text, p, T) : lib.gSIDPT(id, p, T);
            const double fromH = text ? lib.gTGSH(text, h) : lib.gTIDH(id, h);
            ASSERT_EQ(lib.lastError, 0) << name << " T(h) at " << T;
            const double fromS = text ? lib.gTGSS(text, s0) : lib.gTIDS(id, s0);
            ASSERT_EQ(lib.lastError, 0) << name << " T(s) at " << T;
            const double fromPS = text ? lib.gTGSPS(text, p, s) : lib.gTIDPS(id, p, s);
            ASSERT_EQ(lib.lastError, 0) << name << " T(p, s) at " << T << ", " << p;
            const double pressure = text ? lib.gPGSTS(text, T, s) : lib.gPIDTS(id, T, s);
            ASSERT_EQ(lib.lastError, 0) << name << " p(T, s) at " << T << ", " << p;
            EXPECT_TRUE(nearRelative(fromH, T, 2e-12)) << name << " T(h) at " << T;
            EXPECT_TRUE(nearRelative(fromS, T, 2e-12)) << name << " T(s) at " << T;
            EXPECT_TRUE(nearRelative(fromPS, T, 2e-12)) << name << " T(p, s) at " << T << ", " << p;
            EXPECT_TRUE(nearRelative(pressure, p, 1e-11)) << name << " p(T, s) at " << T << ", " << p;
        }
    }
    lib.SETCHECKRANGEMODE(1);
}

TEST_F(GasTest, RoundTripsForEveryStartUpSpecies) {
    for (std::int32_t id = 0; id < gastest::kStartUpCount; ++id) expectRoundTrips(lib, nullptr, id);
}

TEST_F(GasTest, InversionBeyondTheFitsIsRefusedAfterwards) {
    lib.SETCHECKRANGEMODE(0);
    const double h = lib.gHIDT(gastest::kN2, 2600.0);
    lib.SETCHECKRANGEMODE(1);
    EXPECT_EQ(lib.gTIDH(gastest::kN2, h), -1.0);
    EXPECT_EQ(code(), 2);
    lib.SETCHECKRANGEMODE(0);
    EXPECT_TRUE(nearRelative(lib.gTIDH(gastest::kN2, h), 2600.0, 2e-12));
    EXPECT_EQ(code(), 0);
}

// A search that needs n passes succeeds exactly when n < maxIterations.
TEST_F(GasTest, IterationCountRule) {
    const double h = lib.gHIDT(gastest::kCO2, 1777.0);
    const double expected = lib.gTIDH(gastest::kCO2, h);
    int smallestCap = 0;
    for (int cap = 0; cap <= 100 && smallestCap == 0; ++cap) {
        lib.SETMAXITERATION(cap);
        const double T = lib.gTIDH(gastest::kCO2, h);
        if (code() == 0) {
            smallestCap = cap;
            EXPECT_EQ(T, expected) << "the same path as with the default cap";
        } else {
            EXPECT_EQ(code(), 3) << cap;
        }
    }
    EXPECT_GE(smallestCap, 3) << "one pass cannot succeed, whatever its residual";
    EXPECT_LT(smallestCap, 20);

    for (int cap : {-5, 0, 1}) {
        lib.SETMAXITERATION(cap);
        EXPECT_EQ(lib.gTIDS(gastest::kN2, lib.gSIDT(gastest::kN2, 300.0)), -1.0) << cap;
        EXPECT_EQ(code(), 3) << cap;
    }
}

// With checks on, a result within tolerance (as kelvins) outside an end of the fits is put on
// that end; a loose tolerance makes the window wide enough to hit.
TEST_F(GasTest, ResultsAHairOutsideTheFitsSnapToTheirEnds) {
    lib.SETTOLERANCE(1e-3);
    lib.SETCHECKRANGEMODE(0);
    const double hLow = lib.gHIDT(gastest::kN2, 199.9995);
    const double hHigh = lib.gHIDT(gastest::kN2, 2500.0005);
    const double sLow = lib.gSIDT(gastest::kN2, 199.9995);
    const double unsnapped = lib.gTIDH(gastest::kN2, hLow);
    EXPECT_LT(unsnapped, 200.0);
    lib.SETCHECKRANGEMODE(1);
    EXPECT_EQ(lib.gTIDH(gastest::kN2, hLow), 200.0);
    EXPECT_EQ(lib.gTIDH(gastest::kN2, hHigh), 2500.0);
    EXPECT_EQ(lib.gTIDS(gastest::kN2, sLow), 200.0);
    EXPECT_EQ(code(), 0);

    lib.SETTOLERANCE(2e-12);
    EXPECT_EQ(lib.gTIDH(gastest::kN2, lib.gHIDT(gastest::kN2, 200.0) - 1e-3), -1.0) << "outside the window";
    EXPECT_EQ(code(), 2);
}

}  // namespace
