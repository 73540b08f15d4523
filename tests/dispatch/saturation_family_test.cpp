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
    tvl::PropertyFacade& f = lib;  // a local object for the member calls: GCC 12's vptr check misreads lib.*
    for (const SaturatedProperty& property : properties)
        for (double T : kLineTemperatures) {
            EXPECT_EQ((f.*property.water)(T), byHand(false, property.region1, property.region2, property.region3, T))
                << property.name << "SWT(" << T << ")";
            EXPECT_EQ((f.*property.steam)(T), byHand(true, property.region1, property.region2, property.region3, T))
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

// The members built on others, by their definitions.
TEST_F(SaturationFamily, ComposedMembers) {
    for (double T : kLineTemperatures) {
        const double p = water.PST(T);
        const double waterSpeed = lib.WSWT(T);
        const double steamSpeed = lib.WSST(T);
        EXPECT_EQ(lib.KSWT(T), waterSpeed * waterSpeed / (p * lib.VSWT(T))) << T;
        EXPECT_EQ(lib.KSST(T), steamSpeed * steamSpeed / (p * lib.VSST(T))) << T;
        EXPECT_EQ(lib.RST(T), lib.HSST(T) - lib.HSWT(T)) << T;
        const double waterViscosity = water.DYNVISRT(1.0 / lib.VSWT(T), T);
        const double steamViscosity = water.DYNVISRT(1.0 / lib.VSST(T), T);
        const double waterConductivity = water.THERMCONDRT(1.0 / lib.VSWT(T), T);
        const double steamConductivity = water.THERMCONDRT(1.0 / lib.VSST(T), T);
        EXPECT_EQ(lib.DYNVISSWT(T), waterViscosity) << T;
        EXPECT_EQ(lib.DYNVISSST(T), steamViscosity) << T;
        EXPECT_EQ(lib.THERMCONDSWT(T), waterConductivity) << T;
        EXPECT_EQ(lib.THERMCONDSST(T), steamConductivity) << T;
        EXPECT_EQ(lib.KINVISSWT(T), waterViscosity * lib.VSWT(T)) << T;
        EXPECT_EQ(lib.KINVISSST(T), steamViscosity * lib.VSST(T)) << T;
        EXPECT_EQ(lib.PRANDTLESWT(T), waterViscosity * lib.CPSWT(T) / waterConductivity) << T;
        EXPECT_EQ(lib.PRANDTLESST(T), steamViscosity * lib.CPSST(T) / steamConductivity) << T;
        EXPECT_EQ(lastError(), 0) << T;
    }
    // The latent heat falls to the critical point, and the two phases approach each other.
    EXPECT_GT(lib.RST(300.0), lib.RST(500.0));
    EXPECT_GT(lib.RST(500.0), lib.RST(640.0));
    EXPECT_LT(lib.RST(647.0), 0.1 * lib.RST(300.0));
}

// IF97 on the saturation line against the saturated densities of the IAPWS supplementary release
// on saturation properties, which rests on IAPWS-95: they agree to about 1e-4, the accuracy of
// IF97 there.
TEST_F(SaturationFamily, SaturatedDensitiesAgreeWithTheSupplementaryRelease) {
    const struct {
        double T;
        double liquid;
        double vapour;
    } rows[] = {{273.16, 999.789, 0.00485426}, {373.1243, 958.365, 0.597586}};
    for (auto row : rows) {
        EXPECT_TRUE(nearRelative(lib.DSWT(row.T), row.liquid, 1e-4)) << row.T;
        EXPECT_TRUE(nearRelative(lib.DSST(row.T), row.vapour, 1e-4)) << row.T;
    }
}

// The transport values at the saturated densities against the rounded values of saturation
// tables at 25 and 100 degrees Celsius. A sanity test only: the industrial conductivity equation
// differs from the scientific one by up to about 2 per cent near saturation, and the tables are
// rounded; the equations themselves are tested against their releases' check values.
TEST_F(SaturationFamily, TransportAtSaturationIsSensible) {
    EXPECT_TRUE(nearRelative(lib.DYNVISSWT(298.15), 890.0e-6, 0.01));
    EXPECT_TRUE(nearRelative(lib.THERMCONDSWT(298.15), 0.607, 0.01));
    EXPECT_TRUE(nearRelative(lib.DYNVISSWT(373.15), 282e-6, 0.01));
    EXPECT_TRUE(nearRelative(lib.THERMCONDSWT(373.15), 0.679, 0.01));
    EXPECT_TRUE(nearRelative(lib.DYNVISSST(373.15), 12.3e-6, 0.02));
    EXPECT_TRUE(nearRelative(lib.THERMCONDSST(373.15), 0.0251, 0.02));
    // Water is more viscous and more conductive than its steam; the Prandtl number of saturated
    // water at 100 degrees C is about 1.75.
    EXPECT_TRUE(nearRelative(lib.PRANDTLESWT(373.15), 1.75, 0.02));
}

// The combined calls give the saturated phase of the single exports: the same region and
// density, all fourteen outputs from one evaluation.
TEST_F(SaturationFamily, CombinedCallsAgreeWithTheSingleExports) {
    for (double T : kLineTemperatures) {
        for (bool steam : {false, true}) {
            double out[14];
            const tvl::OutputCells cells = {{&out[0], &out[1], &out[2], &out[3], &out[4], &out[5], &out[6], &out[7],
                                             &out[8], &out[9], &out[10], &out[11], &out[12], &out[13]}};
            ASSERT_EQ(steam ? lib.VUSHCVWDERPTSST(T, cells) : lib.VUSHCVWDERPTSWT(T, cells), 1.0) << T;
            const char* phase = steam ? " steam" : " water";
            // The combined outputs are composed by other arithmetic from the same sums.
            EXPECT_TRUE(nearRelative(out[0], steam ? lib.VSST(T) : lib.VSWT(T), 1e-14)) << T << phase;
            // u, s and h pass through zero at the triple point: absolute tolerances, rounding of
            // values of the order of 1e6 J/kg and 1e4 J/(kg K).
            EXPECT_NEAR(out[1], steam ? lib.USST(T) : lib.USWT(T), 1e-8) << T << phase;
            EXPECT_NEAR(out[2], steam ? lib.SSST(T) : lib.SSWT(T), 1e-10) << T << phase;
            EXPECT_NEAR(out[3], steam ? lib.HSST(T) : lib.HSWT(T), 1e-8) << T << phase;
            EXPECT_TRUE(nearRelative(out[4], steam ? lib.CVSST(T) : lib.CVSWT(T), 1e-13)) << T << phase;
            EXPECT_TRUE(nearRelative(out[5], steam ? lib.WSST(T) : lib.WSWT(T), 1e-13)) << T << phase;
            EXPECT_TRUE(nearRelative(out[13], steam ? lib.CPSST(T) : lib.CPSWT(T), 1e-13)) << T << phase;
            // And exactly the region's own combined operation at the saturated state.
            const double p = water.PST(T);
            tvl::WaterModel& w = water;
            const tvl::StateProperties expected =
                T > 623.15 ? w.VUSHCVWDERPT3RT(steam ? w.DSST(T) : w.DSWT(T), T)
                           : (steam ? w.VUSHCVWDERPT2PT(p, T) : w.VUSHCVWDERPT1PT(p, T));
            EXPECT_EQ(out[6], expected.dvdp) << T << phase;
            EXPECT_EQ(out[10], expected.dvdT) << T << phase;
            EXPECT_EQ(out[12], expected.dsdT) << T << phase;
        }
    }
}

TEST_F(SaturationFamily, CombinedCallsRefuseNullCellsAndTestTheTemperature) {
    double out[14] = {};
    tvl::OutputCells cells = {{&out[0], &out[1], &out[2], &out[3], &out[4], &out[5], &out[6], &out[7], &out[8],
                               &out[9], &out[10], &out[11], &out[12], &out[13]}};
    EXPECT_EQ(lib.VUSHCVWDERPTSWT(700.0, cells), -1.0);
    EXPECT_EQ(lastError(), 2);
    EXPECT_EQ(out[0], 0.0) << "nothing written on a failed range test";
    cells.cells[13] = nullptr;
    EXPECT_EQ(lib.VUSHCVWDERPTSST(400.0, cells), -1.0);
    EXPECT_EQ(lastError(), 1);
    EXPECT_EQ(out[0], 0.0) << "a null cell is refused before anything is computed";
}

// cv on the two-phase side by its formula, from the combined outputs and the slope of the line;
// it lies above the single-phase cv, since heating at constant volume also evaporates (or
// condenses) some of the fluid.
TEST_F(SaturationFamily, TwoPhaseSideCvByItsFormula) {
    for (double T : kLineTemperatures) {
        if (T >= 647.0) continue;
        const double g = water.DPDTST(T);
        for (bool steam : {false, true}) {
            const tvl::StateProperties s = steam ? water.VUSHCVWDERPTSST(T) : water.VUSHCVWDERPTSWT(T);
            const double a = s.dvdT;
            const double b = s.dvdp;
            const double expected = s.cv - T * (g + a / b) * (g * b + a);
            const double value = steam ? lib.CVDPSST(T) : lib.CVDPSWT(T);
            EXPECT_TRUE(nearRelative(value, expected, 1e-15)) << T << (steam ? " steam" : " water");
            EXPECT_GT(value, steam ? lib.CVSST(T) : lib.CVSWT(T)) << T;
            // The same in the cp form: cp - 2 T g (dv/dT)p - T g^2 (dv/dp)T.
            EXPECT_TRUE(nearRelative(value, s.dhdT - 2.0 * T * g * a - T * g * g * b, 1e-9)) << T;
        }
    }
}

// Every (T) export of the family with the saturation range: 273.15 K to 647.096 K, each widened by
// one rounding unit; nothing tested with checks off.
TEST_F(SaturationFamily, RangeOfEveryExport) {
    using F = tvl::PropertyFacade;
    const struct {
        const char* name;
        Export f;
    } exports[] = {
        {"RST", &F::RST},           {"VSST", &F::VSST},         {"VSWT", &F::VSWT},
        {"DSST", &F::DSST},         {"DSWT", &F::DSWT},         {"USST", &F::USST},
        {"USWT", &F::USWT},         {"SSST", &F::SSST},         {"SSWT", &F::SSWT},
        {"HSST", &F::HSST},         {"HSWT", &F::HSWT},         {"CPSST", &F::CPSST},
        {"CPSWT", &F::CPSWT},       {"CVSST", &F::CVSST},       {"CVSWT", &F::CVSWT},
        {"CVDPSST", &F::CVDPSST},   {"CVDPSWT", &F::CVDPSWT},   {"WSST", &F::WSST},
        {"WSWT", &F::WSWT},         {"JOULETHOMPSONSST", &F::JOULETHOMPSONSST},
        {"JOULETHOMPSONSWT", &F::JOULETHOMPSONSWT},             {"THERMCONDSST", &F::THERMCONDSST},
        {"THERMCONDSWT", &F::THERMCONDSWT},                     {"DYNVISSST", &F::DYNVISSST},
        {"DYNVISSWT", &F::DYNVISSWT},                           {"PRANDTLESST", &F::PRANDTLESST},
        {"PRANDTLESWT", &F::PRANDTLESWT},                       {"KINVISSST", &F::KINVISSST},
        {"KINVISSWT", &F::KINVISSWT},                           {"KSST", &F::KSST},
        {"KSWT", &F::KSWT},
    };
    const double lowest = 273.15 * 0.9999999999999998;
    const double highest = 647.096 * 1.0000000000000002;
    const struct {
        double T;
        bool refused;
    } cases[] = {
        {lowest, false}, {std::nextafter(lowest, 0.0), true}, {647.0, false}, {highest, false},
        {std::nextafter(highest, 1000.0), true}, {273.0, true}, {700.0, true}, {-1.0, true},
    };
    tvl::PropertyFacade& f = lib;  // a local object for the member calls: GCC 12's vptr check misreads lib.*
    for (const auto& e : exports) {
        for (auto c : cases) {
            const double value = (f.*e.f)(c.T);
            if (c.refused) {
                EXPECT_EQ(value, -1.0) << e.name << "(" << c.T << ")";
                EXPECT_EQ(lastError(), 2) << e.name << "(" << c.T << ")";
            } else {
                // At the critical point itself the density search may fail, but not the range.
                EXPECT_NE(lastError(), 2) << e.name << "(" << c.T << ")";
                if (c.T < 647.0) {
                    EXPECT_EQ(lastError(), 0) << e.name << "(" << c.T << ")";
                }
            }
        }
        // Without checks the equations extrapolate below the line; a NaN never escapes.
        f.SETCHECKRANGEMODE(0);
        const double below = (f.*e.f)(270.0);
        EXPECT_TRUE(lastError() == 0 || (below == -1.0 && lastError() == 1)) << e.name;
        for (double bad : {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
                           -std::numeric_limits<double>::infinity(), 1e300, 0.0, 700.0}) {
            const double value = (f.*e.f)(bad);
            EXPECT_TRUE(std::isfinite(value)) << e.name << "(" << bad << ")";
            EXPECT_TRUE(lastError() == 0 || value == -1.0) << e.name << "(" << bad << ")";
        }
        f.SETCHECKRANGEMODE(1);
        EXPECT_EQ((f.*e.f)(std::numeric_limits<double>::quiet_NaN()), -1.0) << e.name;
        EXPECT_EQ(lastError(), 1) << e.name << ": NaN passes the range test and ends in code 1";
    }
}

}  // namespace
