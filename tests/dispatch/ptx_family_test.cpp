// Properties by (p,T,x): the state area decides, x counts only within the tolerance of the
// saturation line, the wet rules of (T,x) apply there and the area's own equation elsewhere.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>

#include "support/facade_fixture.h"

namespace {

using tvltest::nearRelative;

class PTXFamily : public tvltest::FacadeTest {};

using Facade = tvl::PropertyFacade;

// Each export of the family with, for the wet area, the (T,x) rule it takes and, elsewhere, the
// value it must give.
struct PTXExport {
    const char* name;
    std::function<double(Facade&, double, double, double)> byPTX;
    std::function<double(Facade&, double, double)> wet;
    bool refusedWhenWet;  // cp and transport, under checkRangeMode
};

std::vector<PTXExport> allExports() {
    return {
        {"V", [](Facade& f, double p, double T, double x) { return f.VPTX(p, T, x); },
         [](Facade& f, double T, double x) { return f.VSTX(T, x); }, false},
        {"D", [](Facade& f, double p, double T, double x) { return f.DPTX(p, T, x); },
         [](Facade& f, double T, double x) { return f.DSTX(T, x); }, false},
        {"U", [](Facade& f, double p, double T, double x) { return f.UPTX(p, T, x); },
         [](Facade& f, double T, double x) { return f.USTX(T, x); }, false},
        {"S", [](Facade& f, double p, double T, double x) { return f.SPTX(p, T, x); },
         [](Facade& f, double T, double x) { return f.SSTX(T, x); }, false},
        {"H", [](Facade& f, double p, double T, double x) { return f.HPTX(p, T, x); },
         [](Facade& f, double T, double x) { return f.HSTX(T, x); }, false},
        {"CP", [](Facade& f, double p, double T, double x) { return f.CPPTX(p, T, x); },
         [](Facade& f, double T, double x) { return f.CPSTX(T, x); }, true},
        {"CV", [](Facade& f, double p, double T, double x) { return f.CVPTX(p, T, x); },
         [](Facade& f, double T, double x) { return f.CVSTX(T, x); }, false},
        {"W", [](Facade& f, double p, double T, double x) { return f.WPTX(p, T, x); },
         [](Facade& f, double T, double x) { return f.WSTX(T, x); }, false},
        {"JOULETHOMPSON", [](Facade& f, double p, double T, double x) { return f.JOULETHOMPSONPTX(p, T, x); },
         [](Facade& f, double T, double x) { return f.JOULETHOMPSONSTX(T, x); }, false},
        {"THERMCOND", [](Facade& f, double p, double T, double x) { return f.THERMCONDPTX(p, T, x); },
         [](Facade& f, double T, double x) { return f.THERMCONDSTX(T, x); }, true},
        {"DYNVIS", [](Facade& f, double p, double T, double x) { return f.DYNVISPTX(p, T, x); },
         [](Facade& f, double T, double x) { return f.DYNVISSTX(T, x); }, true},
        {"PRANDTLE", [](Facade& f, double p, double T, double x) { return f.PRANDTLEPTX(p, T, x); },
         [](Facade& f, double T, double x) { return f.PRANDTLESTX(T, x); }, true},
        {"KINVIS", [](Facade& f, double p, double T, double x) { return f.KINVISPTX(p, T, x); },
         [](Facade& f, double T, double x) { return f.KINVISSTX(T, x); }, true},
        {"K", [](Facade& f, double p, double T, double x) { return f.KPTX(p, T, x); },
         [](Facade& f, double T, double x) { return f.KSTX(T, x); }, false},
    };
}

// On the line (T = TSP(p), area 4) each export takes the (T,x) rule at the given T.
TEST_F(PTXFamily, OnTheLineTheWetRulesApply) {
    for (double p : {1e4, 1e5, 1e6, 1e7, 2e7}) {
        const double T = water.TSP(p);
        ASSERT_EQ(lib.WATERSTATEAREA(p, T), 4) << p;
        for (const PTXExport& e : allExports())
            for (double x : {0.0, 0.4, 1.0}) {
                for (int checks : {1, 0}) {
                    lib.SETCHECKRANGEMODE(checks);
                    const double wet = e.wet(lib, T, x);
                    const int wetCode = lastError();
                    EXPECT_EQ(e.byPTX(lib, p, T, x), wet) << e.name << "PTX(" << p << ", " << T << ", " << x << ")";
                    EXPECT_EQ(lastError(), wetCode) << e.name << "PTX(" << p << ", " << T << ", " << x << ")";
                    EXPECT_EQ(wetCode, e.refusedWhenWet && checks ? 2 : 0) << e.name << " " << p;
                }
                lib.SETCHECKRANGEMODE(1);
            }
    }
}

// A little further from the line than the tolerance, x is ignored: the state is liquid or steam.
TEST_F(PTXFamily, AwayFromTheLineXIsIgnored) {
    for (double p : {1e4, 1e5, 1e6, 1e7, 2e7}) {
        const double Ts = water.TSP(p);
        for (double T : {Ts * (1.0 - 1e-11), Ts * (1.0 + 1e-11), Ts - 10.0, Ts + 10.0}) {
            ASSERT_NE(lib.WATERSTATEAREA(p, T), 4) << p << " " << T;
            for (const PTXExport& e : allExports()) {
                const double atZero = e.byPTX(lib, p, T, 0.0);
                EXPECT_EQ(lastError(), 0) << e.name << " " << p << " " << T;
                EXPECT_EQ(e.byPTX(lib, p, T, 0.5), atZero) << e.name << "PTX(" << p << ", " << T << ")";
                EXPECT_EQ(e.byPTX(lib, p, T, 1.0), atZero) << e.name << "PTX(" << p << ", " << T << ")";
            }
        }
    }
}

// Away from the line the plain properties take the state area's equation, region 3 with its
// density as by (p,T); the transport and derived ones their (p,T) forms.
TEST_F(PTXFamily, AwayFromTheLineThePTValues) {
    const struct {
        double p;
        double T;
        int area;
    } states[] = {
        {1e5, 300.0, 1}, {1e5, 500.0, 2}, {3e7, 650.0, 3}, {2e7, 640.0, 3}, {1e6, 1500.0, 5}, {5e7, 900.0, 2},
    };
    tvl::WaterModel& w = water;
    for (auto s : states) {
        ASSERT_EQ(lib.WATERSTATEAREA(s.p, s.T), s.area) << s.p << " " << s.T;
        const double p = s.p;
        const double T = s.T;
        auto region = [&](double (tvl::WaterModel::*r1)(double, double), double (tvl::WaterModel::*r2)(double, double),
                          double (tvl::WaterModel::*r3)(double, double), double (tvl::WaterModel::*r5)(double, double)) {
            switch (s.area) {
            case 1: return (w.*r1)(p, T);
            case 2: return (w.*r2)(p, T);
            case 3: return (w.*r3)(w.R3PT(p, T), T);
            default: return (w.*r5)(p, T);
            }
        };
        using W = tvl::WaterModel;
        EXPECT_EQ(lib.HPTX(p, T, 0.3), region(&W::H1PT, &W::H2PT, &W::H3RT, &W::H5PT)) << p << " " << T;
        EXPECT_EQ(lib.SPTX(p, T, 0.3), region(&W::S1PT, &W::S2PT, &W::S3RT, &W::S5PT)) << p << " " << T;
        EXPECT_EQ(lib.UPTX(p, T, 0.3), region(&W::U1PT, &W::U2PT, &W::U3RT, &W::U5PT)) << p << " " << T;
        EXPECT_EQ(lib.CPPTX(p, T, 0.3), region(&W::CP1PT, &W::CP2PT, &W::CP3RT, &W::CP5PT)) << p << " " << T;
        EXPECT_EQ(lib.CVPTX(p, T, 0.3), region(&W::CV1PT, &W::CV2PT, &W::CV3RT, &W::CV5PT)) << p << " " << T;
        EXPECT_EQ(lib.WPTX(p, T, 0.3), region(&W::W1PT, &W::W2PT, &W::W3RT, &W::W5PT)) << p << " " << T;
        EXPECT_EQ(lib.JOULETHOMPSONPTX(p, T, 0.3),
                  region(&W::JOULETHOMPSON1PT, &W::JOULETHOMPSON2PT, &W::JOULETHOMPSON3RT, &W::JOULETHOMPSON5PT));
        EXPECT_EQ(lib.VPTX(p, T, 0.3), lib.VPT(p, T)) << p << " " << T;
        EXPECT_EQ(lib.DPTX(p, T, 0.3), lib.DPT(p, T)) << p << " " << T;
        EXPECT_EQ(lib.KPTX(p, T, 0.3), lib.KPT(p, T)) << p << " " << T;
        EXPECT_EQ(lastError(), 0) << p << " " << T;
        if (T <= 1073.15) {
            EXPECT_EQ(lib.THERMCONDPTX(p, T, 0.3), lib.THERMCONDPT(p, T)) << p << " " << T;
            EXPECT_EQ(lib.PRANDTLEPTX(p, T, 0.3), lib.PRANDTLEPT(p, T)) << p << " " << T;
        }
        if (T <= 1173.15) {
            EXPECT_EQ(lib.DYNVISPTX(p, T, 0.3), lib.DYNVISPT(p, T)) << p << " " << T;
            EXPECT_EQ(lib.KINVISPTX(p, T, 0.3), lib.KINVISPT(p, T)) << p << " " << T;
        }
    }
}

// x is tested first, before the pressure and temperature and before the state area.
TEST_F(PTXFamily, RangesOfTheFamily) {
    const double onePlusEps = 1.0000000000000002;
    for (const PTXExport& e : allExports()) {
        e.byPTX(lib, 1e5, 300.0, 1.5);
        EXPECT_EQ(lastError(), 2) << e.name << ": x over 1";
        e.byPTX(lib, 1e5, 300.0, -0.1);
        EXPECT_EQ(lastError(), 2) << e.name << ": negative x";
        e.byPTX(lib, 1e5, 300.0, onePlusEps);
        EXPECT_EQ(lastError(), 0) << e.name << ": x one rounding over 1";
        e.byPTX(lib, -1.0, 300.0, 0.5);
        EXPECT_EQ(lastError(), 2) << e.name << ": negative pressure";
        e.byPTX(lib, 1e5, 270.0, 0.5);
        EXPECT_EQ(lastError(), 2) << e.name << ": under the melting pressure or the transport range";
        lib.SETCHECKRANGEMODE(0);
        e.byPTX(lib, 1e5, 300.0, 1.5);
        EXPECT_EQ(lastError(), 0) << e.name << ": without checks x is ignored in the liquid";
        lib.SETCHECKRANGEMODE(1);
    }
    // The transport ranges, as by (p,T): conductivity ends at 1073.15 K and has its pressure
    // steps, viscosity runs to 1173.15 K.
    lib.THERMCONDPTX(75e6, 800.0, 0.5);
    EXPECT_EQ(lastError(), 2);
    lib.PRANDTLEPTX(75e6, 800.0, 0.5);
    EXPECT_EQ(lastError(), 2);
    lib.DYNVISPTX(75e6, 800.0, 0.5);
    EXPECT_EQ(lastError(), 0);
    lib.KINVISPTX(1e5, 1150.0, 0.5);
    EXPECT_EQ(lastError(), 0);
    lib.KINVISPTX(1e5, 1200.0, 0.5);
    EXPECT_EQ(lastError(), 2);
    lib.KPTX(1e5, 2000.0, 0.5);
    EXPECT_EQ(lastError(), 0) << "the exponent has the range of ValidatePT";
}

// Bad input reaches the caller as a code and -1.0, with checks on and off.
TEST_F(PTXFamily, BadInputEndsInACode) {
    const double inf = std::numeric_limits<double>::infinity();
    const double values[] = {std::nan(""), inf, -inf, 1e300, 0.0, -1.0, 400.0};
    for (int checks : {1, 0}) {
        lib.SETCHECKRANGEMODE(checks);
        for (const PTXExport& e : allExports())
            for (double p : values)
                for (double T : values)
                    for (double x : {0.5, std::nan(""), inf}) {
                        const double result = e.byPTX(lib, p, T, x);
                        EXPECT_TRUE(std::isfinite(result)) << e.name << " " << p << " " << T << " " << x;
                        EXPECT_TRUE(lastError() == 0 || result == -1.0) << e.name << " " << p << " " << T;
                    }
    }
}

}  // namespace
