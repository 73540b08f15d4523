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

// Which argument is tested, and where: T before p, both before the species.
TEST_F(GasTest, RangeTestsAndTheirOrder) {
    struct Call {
        const char* name;
        double (*call)(tvl::PropertyFacade&);
        int code;
    };
    const Call calls[] = {
        {"CPIDT(0, 199)", [](tvl::PropertyFacade& l) { return l.gCPIDT(0, 199.0); }, 2},
        {"CPIDT(0, 200)", [](tvl::PropertyFacade& l) { return l.gCPIDT(0, 200.0); }, 0},
        {"CPIDT(0, 2500)", [](tvl::PropertyFacade& l) { return l.gCPIDT(0, 2500.0); }, 0},
        {"CPIDT(0, lower limit)", [](tvl::PropertyFacade& l) { return l.gCPIDT(0, 199.99999999999994); }, 0},
        {"CPIDT(0, below)", [](tvl::PropertyFacade& l) { return l.gCPIDT(0, std::nextafter(199.99999999999994, 0.0)); }, 2},
        {"CPIDT(0, upper limit)", [](tvl::PropertyFacade& l) { return l.gCPIDT(0, 2500.0000000000005); }, 0},
        {"CPIDT(0, above)", [](tvl::PropertyFacade& l) { return l.gCPIDT(0, std::nextafter(2500.0000000000005, 3e3)); }, 2},
        {"HGST(N2, 2600)", [](tvl::PropertyFacade& l) { return l.gHGST("N2", 2600.0); }, 2},
        {"SIDPT(0, 5e6, 300)", [](tvl::PropertyFacade& l) { return l.gSIDPT(0, 5e6, 300.0); }, 2},
        {"SIDPT(0, 0, 300)", [](tvl::PropertyFacade& l) { return l.gSIDPT(0, 0.0, 300.0); }, 2},
        {"VGSPT(N2, -1, 300)", [](tvl::PropertyFacade& l) { return l.gVGSPT("N2", -1.0, 300.0); }, 2},
        {"VIDPT(0, 4999999, 300)", [](tvl::PropertyFacade& l) { return l.gVIDPT(0, 4999999.0, 300.0); }, 0},
        {"VIDPT(0, 1e-300, 300)", [](tvl::PropertyFacade& l) { return l.gVIDPT(0, 1e-300, 300.0); }, 0},
        {"CPIDT(999, 100): T before the id", [](tvl::PropertyFacade& l) { return l.gCPIDT(999, 100.0); }, 2},
        {"CPGST(N2:, 100): T before the text", [](tvl::PropertyFacade& l) { return l.gCPGST("N2:", 100.0); }, 2},
        {"SIDPT(0, 0, 100): T before p", [](tvl::PropertyFacade& l) { return l.gSIDPT(0, 0.0, 100.0); }, 2},
        {"CPGST(Foo, 300)", [](tvl::PropertyFacade& l) { return l.gCPGST("Foo", 300.0); }, 12},
        {"CPIDT(999, 300)", [](tvl::PropertyFacade& l) { return l.gCPIDT(999, 300.0); }, 12},
        {"SIDPT(999, 0, 300): p before the id", [](tvl::PropertyFacade& l) { return l.gSIDPT(999, 0.0, 300.0); }, 2},
        {"TIDPS(999, 6e6, 7000): p before the id", [](tvl::PropertyFacade& l) { return l.gTIDPS(999, 6e6, 7000.0); }, 2},
        {"TGSPS(;, 0, 7000): p before the text", [](tvl::PropertyFacade& l) { return l.gTGSPS(";", 0.0, 7000.0); }, 2},
        {"PIDTS(999, 100, 7000): T before the id", [](tvl::PropertyFacade& l) { return l.gPIDTS(999, 100.0, 7000.0); }, 2},
        {"TIDS(999, 7000)", [](tvl::PropertyFacade& l) { return l.gTIDS(999, 7000.0); }, 12},
        {"MMID(999): no range test, just the id", [](tvl::PropertyFacade& l) { return l.gMMID(999); }, 12},
        {"GCGS(empty text)", [](tvl::PropertyFacade& l) { return l.gGCGS(""); }, 11},
        {"CPGST(null, 300)", [](tvl::PropertyFacade& l) { return l.gCPGST(nullptr, 300.0); }, 11},
        {"CPIDT(0, NaN)", [](tvl::PropertyFacade& l) { return l.gCPIDT(0, kNaN); }, 1},
        {"SIDPT(0, NaN, 300)", [](tvl::PropertyFacade& l) { return l.gSIDPT(0, kNaN, 300.0); }, 1},
        {"VIDPT(0, inf, 300)", [](tvl::PropertyFacade& l) { return l.gVIDPT(0, INFINITY, 300.0); }, 2},
        {"CPIDT(0, -inf)", [](tvl::PropertyFacade& l) { return l.gCPIDT(0, -INFINITY); }, 2},
        {"TIDH(0, NaN)", [](tvl::PropertyFacade& l) { return l.gTIDH(0, kNaN); }, 1},
        {"TIDH(0, inf)", [](tvl::PropertyFacade& l) { return l.gTIDH(0, INFINITY); }, 1},
        {"TIDS(0, -1e300)", [](tvl::PropertyFacade& l) { return l.gTIDS(0, -1e300); }, 1},
        {"PIDTS(0, 300, NaN)", [](tvl::PropertyFacade& l) { return l.gPIDTS(0, 300.0, kNaN); }, 1},
        {"PIDTS(0, 300, 0): p beyond 5e6", [](tvl::PropertyFacade& l) { return l.gPIDTS(0, 300.0, 0.0); }, 2},
        {"PIDTS(0, 300, 1e6): p of 0", [](tvl::PropertyFacade& l) { return l.gPIDTS(0, 300.0, 1e6); }, 2},
    };
    for (const Call& c : calls) {
        const double result = c.call(lib);
        EXPECT_EQ(code(), c.code) << c.name;
        if (c.code != 0) EXPECT_EQ(result, -1.0) << c.name;
        else EXPECT_TRUE(std::isfinite(result)) << c.name;
    }
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
