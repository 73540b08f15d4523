// The call frame, the error model and the settings, through the PropertyFacade methods that
// the exports forward to.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <string>

#include "frame/internal_object.h"
#include "support/facade_fixture.h"

namespace {

class Frame : public tvltest::FacadeTest {
protected:
    std::string wideDescription() {
        std::string text;
        for (const tvlWideChar* c = lib.GETLASTERRORDESCRIPTIONW(); *c != 0; ++c) text += static_cast<char>(*c);
        return text;
    }
};

TEST_F(Frame, DefaultsAfterConstruction) {
    EXPECT_EQ(lib.GETTOLERANCE(), 2e-12);
    EXPECT_EQ(lib.GETMAXITERATION(), 100);
    EXPECT_EQ(lib.GETTOLERANCEMODE(), 1);
    EXPECT_EQ(lib.GETCHECKRANGEMODE(), 1);
    EXPECT_EQ(lib.GETTVLVERSION(), 6.5);
    EXPECT_EQ(lib.GETABSOLUTEGASCONSTANT(), 8.314472);
    EXPECT_EQ(lib.GETLASTERROR(), 0);
    EXPECT_STREQ(lib.GETLASTERRORDESCRIPTION(), "0. No error occured.");
}

TEST_F(Frame, SetLastErrorStoresOnlyKnownRange) {
    const struct {
        int given;
        int stored;
    } cases[] = {{12, 12}, {1, 1}, {5, 5}, {13, 0}, {-1, 0}, {0, 0}};
    for (auto c : cases) {
        EXPECT_EQ(lib.SETLASTERROR(c.given), c.stored) << c.given;
        EXPECT_EQ(lib.GETLASTERROR(), c.stored) << c.given;
    }
}

TEST_F(Frame, ErrorTextsNarrowAndWide) {
    const struct {
        int code;
        const char* text;
    } cases[] = {
        {1, "1. Bad function parameters. It is error occured while calculating with given parameters."},
        {2, "2. Parameters are out of range."},
        {3, "3. Can't find root. Try to change value of iterations count."},
        {4, "4. Unknown area. Function is not defined for this parameters range."},
        {8, "8. Function is not implemented. This function can be obsolete or simply not implemented yet."},
        {9, "9. Unsufficient of memory. Try to close some applications."},
        {11, "11. Syntax error."},
        {12, "12. Gas not found."},
        {5, ""},
        {7, ""},
        {10, ""},
    };
    for (auto c : cases) {
        lib.SETLASTERROR(c.code);
        EXPECT_STREQ(lib.GETLASTERRORDESCRIPTION(), c.text) << c.code;
        EXPECT_EQ(wideDescription(), c.text) << c.code;
        EXPECT_EQ(lib.GETLASTERROR(), c.code) << "the description keeps the code";
    }
}

TEST_F(Frame, EveryOtherCallClearsTheLastError) {
    lib.PST(100.0);
    EXPECT_EQ(lib.GETLASTERROR(), 2);
    EXPECT_EQ(lib.GETLASTERROR(), 2);
    lib.GETTOLERANCE();
    EXPECT_EQ(lib.GETLASTERROR(), 0);
}

TEST_F(Frame, ReportingFunctionsClearTheSolvedFlags) {
    lib.T1PH(3e6, 500e3);
    EXPECT_EQ(lib.solved.temperatureSolved, 1);
    lib.GETLASTERROR();
    EXPECT_EQ(lib.solved.temperatureSolved, 0);
}

TEST_F(Frame, SettingsWithoutEffectReportNotImplemented) {
    using Call = double (*)(tvl::PropertyFacade&);
    const Call calls[] = {
        [](tvl::PropertyFacade& f) { return f.SETDELTATS(1.0); },
        [](tvl::PropertyFacade& f) { return f.GETDELTATS(); },
        [](tvl::PropertyFacade& f) { return f.SETDELTAPRESSURE(1.0); },
        [](tvl::PropertyFacade& f) { return f.GETDELTAPRESSURE(); },
        [](tvl::PropertyFacade& f) { return f.SETINITWATERDENSITY(1.0); },
        [](tvl::PropertyFacade& f) { return f.GETINITWATERDENSITY(); },
        [](tvl::PropertyFacade& f) { return f.SETINITSTEAMDENSITY(1.0); },
        [](tvl::PropertyFacade& f) { return f.GETINITSTEAMDENSITY(); },
    };
    for (Call call : calls) {
        EXPECT_EQ(call(lib), -1.0);
        EXPECT_EQ(lib.GETLASTERROR(), 8);
    }
    EXPECT_STREQ(lib.GETLASTERRORDESCRIPTION(),
                 "8. Function is not implemented. This function can be obsolete or simply not implemented yet.");
}

TEST_F(Frame, NonFiniteToleranceIsStoredAndReported) {
    EXPECT_EQ(lib.SETTOLERANCE(std::numeric_limits<double>::quiet_NaN()), -1.0);
    EXPECT_EQ(lib.GETLASTERROR(), 1);
    EXPECT_EQ(lib.GETTOLERANCE(), -1.0);
    EXPECT_EQ(lib.GETLASTERROR(), 1);
    EXPECT_EQ(lib.SETTOLERANCE(1e-10), 1e-10);
    EXPECT_EQ(lib.GETTOLERANCE(), 1e-10);
}

TEST_F(Frame, ModesKeepAnyValue) {
    EXPECT_EQ(lib.SETCHECKRANGEMODE(-5), -5);
    EXPECT_EQ(lib.GETCHECKRANGEMODE(), -5);
    lib.PST(100.0);
    EXPECT_EQ(lib.GETLASTERROR(), 2) << "any non-zero mode means checks on";
    EXPECT_EQ(lib.SETMAXITERATION(-3), -3);
    EXPECT_EQ(lib.GETMAXITERATION(), -3);
}

TEST_F(Frame, NanArgumentsEndInCodeOneNotTwo) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(lib.PST(nan), -1.0);
    EXPECT_EQ(lib.GETLASTERROR(), 1);
    EXPECT_EQ(lib.H1PT(nan, 300.0), -1.0);
    EXPECT_EQ(lib.GETLASTERROR(), 1);
    EXPECT_EQ(lib.T1PH(3e6, std::numeric_limits<double>::infinity()), -1.0);
    EXPECT_NE(lib.GETLASTERROR(), 0);
}

TEST_F(Frame, FailureValueIsExactlyMinusOne) {
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
    EXPECT_EQ(first.GETTOLERANCE(), 1e-9);
    double p = 0.0, T = 0.0;
    EXPECT_EQ(second.PT1HS(5e5, 1400.0, &p, &T), 1.0);
    EXPECT_GT(p, 0.0);
}

TEST(GlobalObject, GetInternalObjectGivesAnInstance) {
    EXPECT_NE(tvlGETINTERNALOBJECT(), 0);
    EXPECT_EQ(tvlGETLASTERROR(), 0);
}

}  // namespace
