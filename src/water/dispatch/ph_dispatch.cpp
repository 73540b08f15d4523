// Dispatch on (p,h): the area of a point by a tree of fixed numbers, then a property at the
// temperature that the region's backward function finds. The numbers order the regions by
// their known extent in enthalpy, band by band in pressure; an equation is called only close
// to a boundary, and the saturation line only where the wet area is possible.
#include "water/dispatch/ph_ps_evaluation.h"
#include "water/formulation/pressure_buckets.h"
#include "water/formulation/constants.h"

namespace tvl {

namespace {

// The enthalpies of the selection, J/kg, as stored. Most are an enthalpy of a boundary point
// rounded outward for the band that uses it: a pair that reads like one number rounded twice
// bounds the same point from above for one band and from below for the next, and a test on the
// boundary's equation decides between them. T23 is the B23 temperature T23P(p), pc = 22.064 MPa.

// Above 50 MPa.
constexpr double kOnlyRegion2Above50MPa = 2813000.0;   // H2PT(100 MPa, 863.15 K) = 2812942.06, up
constexpr double kOnlyRegion1Above50MPa = 1553900.0;   // H1PT(100 MPa, 623.15 K) = 1553922.50, down
constexpr double kRegion3From50MPa = 1576000.0;        // H1PT(50 MPa, 623.15 K) = 1575983.24, up
constexpr double kB23Below50MPa = 2626880.0;           // H2PT(50 MPa, T23) = 2626885.09, down

// Above the critical pressure, up to 50 MPa.
constexpr double kOnlyRegion1AboveCritical = 1575980.0;   // H1PT(50 MPa, 623.15 K), down
constexpr double kOnlyRegion5AboveCritical = 4057944.11;  // H2PT(pc, 1073.15 K) = 4057944.109, up
constexpr double kRegion1AtCritical = 1635608.804;        // H1PT(pc, 623.15 K) = 1635608.8039, up
constexpr double kOnlyRegion3AboveCritical = 2605000.0;   // below H2PT(p, T23) throughout: 2626375.4 at pc
constexpr double kB23Above50MPa = 2626890.0;              // H2PT(50 MPa, T23) = 2626885.09, up
constexpr double kOnlyRegion2AboveCritical = 3925960.4;   // H2PT(50 MPa, 1073.15 K) = 3925960.4095, down

// From the B23 pressure at 623.15 K up to the critical pressure.
constexpr double kOnlyRegion1BelowCritical = 1635608.8;         // H1PT(pc, 623.15 K), down
constexpr double kOnlyRegion5FromP623 = 4084125.034;            // H2PT(P623, 1073.15 K) = 4084125.0337, up
constexpr double kSaturatedWaterAt623 = 1670858.2182744227;     // h' at 623.15 K, the region 1 corner
constexpr double kRegion5BelowCritical = 4057900.0;             // H2PT(pc, 1073.15 K), down
constexpr double kB23AtCritical = 2626375.4454356735;           // H2PT(pc, T23(pc))
constexpr double kSaturatedSteamAt623 = 2563592.0038884096;     // h'' at 623.15 K, the region 2 corner
constexpr double kRegion3SteamSideStart = 2087248.060963254;    // above it the wet test starts from steam

// The bands above the critical pressure and from P623 up to it, in the order the selection reads.
constexpr backward::SupercriticalBand kSupercriticalBand = {
    kOnlyRegion1AboveCritical, kOnlyRegion5AboveCritical,
    kRegion1AtCritical,        kOnlyRegion3AboveCritical,
    kB23Above50MPa,            kOnlyRegion2AboveCritical,
};
constexpr backward::NearCriticalBand kNearCriticalBand = {
    kOnlyRegion1BelowCritical, kOnlyRegion5FromP623,
    kSaturatedWaterAt623,      kRegion5BelowCritical,
    kB23AtCritical,            kSaturatedSteamAt623,
};

// Below the B23 pressure at 623.15 K.
constexpr double kOnlyRegion2BelowP623 = 4084125.0;       // H2PT(P623, 1073.15 K), down
constexpr double kOnlyRegion5BelowP623 = 4160660.93;      // H2PT(611.2 Pa, 1073.15 K) = 4160660.928, up
constexpr double kAboveSaturatedSteam = 2803300.0;        // the greatest h'' (2803.26 kJ/kg near 510 K), up
constexpr double kAboveSaturatedWaterAt623 = 1670858.22;  // h' at 623.15 K, up
constexpr double kSaturatedSteamAtIcePoint = 2500892.617817171;  // h'' at 273.15 K: below it, wet

// The enthalpy side of a (p,h) evaluation. On the 3a/3b boundary itself the point is 3a.
constexpr backward::BackwardEquations kByEnthalpy = {
    &WaterModel::REGIONPH, &WaterModel::T1PH, &WaterModel::T2PH, &WaterModel::T5PH,
    [](WaterModel& w, double p, double h) { return h <= w.H3AB(p); },
    &WaterModel::V3APH, &WaterModel::V3BPH, &WaterModel::T3APH, &WaterModel::T3BPH,
    &WaterModel::SolveRegion3PH, &WaterModel::HSWT, &WaterModel::HSST};

// Far more than the rounding of H1PT(p, TSP(p)), the saturated water enthalpy.
constexpr double kSaturatedWaterEnthalpyWidening = 1e-3;  // J/kg

}  // namespace

bool WaterModel::atOrBelowSaturatedWaterEnthalpy(double p, double Ts, double h) {
    // Bounds of the saturated water enthalpy, which rises with p; filled on first use.
    static const PressureBuckets buckets(kIcePointSaturationPressure, kP623, kSaturatedWaterEnthalpyWidening,
                                         [this](double q) { return H1PT(q, TSP(q)); });
    const int side = buckets.side(p, h);
    if (side != 0) return side < 0;
    return H1PT(p, Ts) >= h;
}

// The sub-tests compare with the margin m on the region's equation at a boundary temperature;
// "at least" where the region 1 test leans the other way.
int WaterModel::REGIONPH(double p, double h) {
    const double m = settings.margin();
    auto region1Or3 = [&] { return H1PT(p, kRegion13Temperature) * m > h ? 1 : 3; };
    auto region3OrAtLeast1 = [&] { return H1PT(p, kRegion13Temperature) * m < h ? 3 : 1; };
    auto region2Or5 = [&] { return H2PT(p, kRegion25Temperature) * m >= h ? 2 : 5; };
    auto region3Or2 = [&] { return H2PT(p, T23P(p)) > m * h ? 3 : 2; };
    auto wetOr3 = [&] { return backward::wetOrRegion3<&WaterModel::H3RT>(*this, p, h, kRegion3SteamSideStart); };

    // Above the pressure limit of region 5 the wet area is far away too.
    if (p > kRegion5HighestPressure) {
        if (h > kOnlyRegion2Above50MPa) return 2;
        if (h < kOnlyRegion1Above50MPa) return 1;
        if (h > kRegion3From50MPa) return h < kB23Below50MPa ? 3 : region3Or2();
        return region1Or3();
    }
    if (p > kCriticalPressure)
        return backward::selectSupercritical(kSupercriticalBand, h, region3OrAtLeast1, region3Or2, region2Or5);
    if (p >= kP623)
        return backward::selectNearCritical(kNearCriticalBand, h, region3OrAtLeast1, region2Or5, region3Or2, wetOr3);
    if (p < kIcePointSaturationPressure) return region2Or5();
    if (h > kAboveSaturatedSteam) {
        if (h < kOnlyRegion2BelowP623) return 2;
        if (h > kOnlyRegion5BelowP623) return 5;
        return region2Or5();
    }
    const double Ts = TSP(p);
    solved.PublishTemperature(Ts);
    if (h < kAboveSaturatedWaterAt623) return atOrBelowSaturatedWaterEnthalpy(p, Ts, h) ? 1 : 4;
    if (h < kSaturatedSteamAtIcePoint) return 4;
    return H2PT(p, Ts) > h ? 4 : 2;
}

int WaterModel::WATERSTATEAREAPH(double p, double h) { return REGIONPH(p, h); }

// Every property: the shared evaluation of (p,h) and (p,s) with the enthalpy as input.
#include "water/dispatch/generated/ph_dispatch.inc"

}  // namespace tvl
