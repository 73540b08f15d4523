// The call frame, the error model and the settings, through the PropertyFacade methods that
// the exports forward to.
#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <string>

#include "frame/internal_object.h"
#include "support/facade_fixture.h"

namespace {

using Frame = tvltest::FacadeTest;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST_F(Frame, LastErrorItsRangeItsTextsAndWhoClearsIt) {
    const int cases[][2] = {{12, 12}, {1, 1}, {5, 5}, {13, 0}, {-1, 0}, {0, 0}};
    for (auto c : cases) {
        EXPECT_EQ(lib.SETLASTERROR(c[0]), c[1]) << c[0];
        EXPECT_EQ(lib.GETLASTERROR(), c[1]) << c[0];
    }
    lib.SETLASTERROR(2);
    EXPECT_STREQ(lib.GETLASTERRORDESCRIPTION(), "2. Parameters are out of range.");
    std::string wide;
    for (const tvlWideChar* c = lib.GETLASTERRORDESCRIPTIONW(); *c != 0; ++c) wide += static_cast<char>(*c);
    EXPECT_EQ(wide, "2. Parameters are out of range.");
    lib.SETLASTERROR(5);
    EXPECT_STREQ(lib.GETLASTERRORDESCRIPTION(), "") << "a code without a text";

    lib.PST(100.0);
    EXPECT_EQ(lib.GETLASTERROR(), 2);
    EXPECT_EQ(lib.GETLASTERROR(), 2) << "reading does not clear";
    lib.GETTOLERANCE();
    EXPECT_EQ(lib.GETLASTERROR(), 0) << "every other call does";
}

TEST_F(Frame, SettingsWithoutEffectReportNotImplemented) {
    using Call = double (*)(tvl::PropertyFacade&);
    const Call calls[] = {
        [](tvl::PropertyFacade& f) { return f.SETDELTATS(1.0); },
        [](tvl::PropertyFacade& f) { return f.GETDELTAPRESSURE(); },
        [](tvl::PropertyFacade& f) { return f.SETINITWATERDENSITY(1.0); },
        [](tvl::PropertyFacade& f) { return f.GETINITSTEAMDENSITY(); },
    };
    for (Call call : calls) {
        EXPECT_EQ(call(lib), -1.0);
        EXPECT_EQ(lib.GETLASTERROR(), 8);
    }
}

TEST_F(Frame, NonFiniteValuesEndInCodeOne) {
    EXPECT_EQ(lib.SETTOLERANCE(kNaN), -1.0);
    EXPECT_EQ(lib.GETLASTERROR(), 1) << "a NaN tolerance is stored and reported";
    EXPECT_EQ(lib.GETTOLERANCE(), -1.0);
    lib.SETTOLERANCE(2e-12);
    EXPECT_EQ(lib.SETCHECKRANGEMODE(-5), -5);
    lib.PST(100.0);
    EXPECT_EQ(lib.GETLASTERROR(), 2) << "any non-zero mode means checks on";
    lib.SETCHECKRANGEMODE(1);
    // A NaN passes the range tests and fails the finiteness test: code 1, not 2.
    EXPECT_EQ(lib.PST(kNaN), -1.0);
    EXPECT_EQ(lib.GETLASTERROR(), 1);
    EXPECT_EQ(lib.H1PT(kNaN, 300.0), -1.0);
    EXPECT_EQ(lib.GETLASTERROR(), 1);
    const double failed = lib.PST(100.0);
    std::uint64_t bits = 0;
    std::memcpy(&bits, &failed, sizeof bits);
    EXPECT_EQ(bits, 0xBFF0000000000000ull);
}

TEST(InternalObject, HasItsOwnSettingsAndErrors) {
    tvlInternalObject first;
    tvlInternalObject second;
    first.SETTOLERANCE(1e-9);
    first.PST(100.0);
    EXPECT_EQ(first.GETLASTERROR(), 2);
    EXPECT_EQ(second.GETLASTERROR(), 0);
    EXPECT_EQ(second.GETTOLERANCE(), 2e-12);
    double p = 0.0, T = 0.0;
    EXPECT_EQ(second.PT1HS(5e5, 1400.0, &p, &T), 1.0);
    EXPECT_GT(p, 0.0);
    EXPECT_NE(tvlGETINTERNALOBJECT(), 0);
}

}  // namespace
