// Saturated water and steam by T: which equation each phase comes from on either side of
// 623.15 K, the members composed from others, the combined call, cv on the two-phase side,
// transport at the saturated densities, and the range of the family.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/facade_fixture.h"

namespace {

using tvltest::nearRelative;

using Export = double (tvl::PropertyFacade::*)(double) noexcept;
using Equation = double (tvl::WaterModel::*)(double, double);

// Temperatures along the whole line, 623.15 K and the double above it included.
const double kLineTemperatures[] = {273.15, 273.16, 300.0, 373.15, 400.0, 450.0, 500.0, 550.0, 600.0,
                                    623.15, 623.1500000000001, 630.0, 640.0, 645.0, 647.0};

class SaturationFamily : public tvltest::FacadeTest {
protected:
    // The saturated phase by hand: regions 1 and 2 at (ps, T) up to 623.15 K, region 3 at the
    // density searched on the line above.
    double byHand(bool steam, Equation gibbs1, Equation gibbs2, Equation helmholtz3, double T) {
        tvl::WaterModel& w = water;
        const double p = w.PST(T);
        if (T > 623.15) return (w.*helmholtz3)(w.R3PTR0(p, T, steam ? w.ROUGHRSST(T) : w.ROUGHRSWT(T)), T);
        return steam ? (w.*gibbs2)(p, T) : (w.*gibbs1)(p, T);
    }
    double densityByHand(bool steam, double T) {
        tvl::WaterModel& w = water;
        const double p = w.PST(T);
        if (T > 623.15) return w.R3PTR0(p, T, steam ? w.ROUGHRSST(T) : w.ROUGHRSWT(T));
        return steam ? w.D2PT(p, T) : w.D1PT(p, T);
    }
};

struct SaturatedProperty {
    const char* name;
    Export water;
    Export steam;
    Equation region1;
    Equation region2;
    Equation region3;
};

TEST_F(SaturationFamily, EachPhaseIsItsRegionsStateOnTheLine) {
    using F = tvl::PropertyFacade;
    using W = tvl::WaterModel;
    const SaturatedProperty properties[] = {
        {"U", &F::USWT, &F::USST, &W::U1PT, &W::U2PT, &W::U3RT},
        {"S", &F::SSWT, &F::SSST, &W::S1PT, &W::S2PT, &W::S3RT},
        {"H", &F::HSWT, &F::HSST, &W::H1PT, &W::H2PT, &W::H3RT},
        {"CP", &F::CPSWT, &F::CPSST, &W::CP1PT, &W::CP2PT, &W::CP3RT},
        {"CV", &F::CVSWT, &F::CVSST, &W::CV1PT, &W::CV2PT, &W::CV3RT},
        {"W", &F::WSWT, &F::WSST, &W::W1PT, &W::W2PT, &W::W3RT},
        {"JOULETHOMPSON", &F::JOULETHOMPSONSWT, &F::JOULETHOMPSONSST, &W::JOULETHOMPSON1PT,
         &W::JOULETHOMPSON2PT, &W::JOULETHOMPSON3RT},
    };
    for (const SaturatedProperty& property : properties)
        for (double T : kLineTemperatures) {
            EXPECT_EQ((lib.*property.water)(T), byHand(false, property.region1, property.region2, property.region3, T))
                << property.name << "SWT(" << T << ")";
            EXPECT_EQ((lib.*property.steam)(T), byHand(true, property.region1, property.region2, property.region3, T))
                << property.name << "SST(" << T << ")";
            EXPECT_EQ(lastError(), 0);
        }
    for (double T : kLineTemperatures) {
        EXPECT_EQ(lib.DSWT(T), densityByHand(false, T)) << T;
        EXPECT_EQ(lib.DSST(T), densityByHand(true, T)) << T;
        // Volume and density come from the same sums by different arithmetic: a few roundings.
        EXPECT_TRUE(nearRelative(lib.VSWT(T) * lib.DSWT(T), 1.0, 1e-15)) << T;
        EXPECT_TRUE(nearRelative(lib.VSST(T) * lib.DSST(T), 1.0, 1e-15)) << T;
    }
}

// At 623.15 K the phases come from regions 1 and 2, at the next double from region 3: the two
// sides differ by the inconsistency of the equations at the region boundaries, small but far
// above rounding.
TEST_F(SaturationFamily, RegionChangeAt623K) {
    const double below = 623.15;
    const double above = std::nextafter(below, 1000.0);
    const double p = water.PST(below);
    EXPECT_EQ(lib.HSWT(below), water.H1PT(p, below));
    EXPECT_EQ(lib.HSST(below), water.H2PT(p, below));
    EXPECT_NE(lib.HSWT(above), water.H1PT(p, above));
    EXPECT_NE(lib.HSST(above), water.H2PT(p, above));
    // The consistency of IF97 at the region 1/3 and 2/3 boundaries: a few parts in 1e5 in
    // enthalpy, about 1e-4 in volume.
    EXPECT_TRUE(nearRelative(lib.HSWT(above), lib.HSWT(below), 5e-5));
    EXPECT_TRUE(nearRelative(lib.HSST(above), lib.HSST(below), 5e-5));
    EXPECT_TRUE(nearRelative(lib.VSWT(above), lib.VSWT(below), 2e-4));
    EXPECT_TRUE(nearRelative(lib.VSST(above), lib.VSST(below), 2e-4));
}

// The density search on the line runs even with toleranceMode off, so the values stay.
TEST_F(SaturationFamily, NearCriticalSearchIgnoresToleranceMode) {
    const double refined = lib.HSWT(640.0);
    lib.SETTOLERANCEMODE(0);
    EXPECT_EQ(lib.HSWT(640.0), refined);
    EXPECT_EQ(lib.HSWT(400.0), water.H1PT(water.PST(400.0), 400.0));
    lib.SETTOLERANCEMODE(1);
    lib.SETMAXITERATION(1);
    EXPECT_EQ(lib.HSST(640.0), -1.0);
    EXPECT_EQ(lastError(), 3) << "the search still counts its iterations";
    EXPECT_NE(lib.HSST(400.0), -1.0) << "regions 1 and 2 do not search";
}

}  // namespace
