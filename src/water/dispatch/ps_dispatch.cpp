// Dispatch on (p,s): the area of a point by a tree of fixed numbers, the same shape as that of
// (p,h) with entropies, then a property at the temperature that the region's backward function
// finds.
#include "water/dispatch/ph_ps_evaluation.h"
#include "water/formulation/pressure_buckets.h"
#include "water/formulation/constants.h"

namespace tvl {

namespace {

// The entropies of the selection, J/(kg K), as stored, each beside the boundary point it stands
// for. Most are rounded outward for the band that uses them. Four of them are rounded the
// other way by a few 1e-4 J/(kg K) or less ("in"): within that sliver, which is a few hundred
// pascals wide at the band's edge, a point takes the neighbouring region's equations, whose
// extrapolation there is far inside their accuracy. The values are those of the library's
// results and stay as they are. T23 is the B23 temperature T23P(p), pc = 22.064 MPa.

// Above 50 MPa.
constexpr double kOnlyRegion2Above50MPa = 5098.0;           // S2PT(100 MPa, T23) = 5097.969, up
constexpr double kOnlyRegion1Above50MPa = 3397.7;           // S1PT(100 MPa, 623.15 K) = 3397.783, down
constexpr double kRegion1At50MPa = 3542.992;                // S1PT(50 MPa, 623.15 K) = 3542.99172, up
constexpr double kOnlyRegion3Above50MPa = 5047.0;           // below S2PT(p, T23): 5051.220 at 50 MPa

// Above the critical pressure, up to 50 MPa.
constexpr double kOnlyRegion1AboveCritical = kRegion1At50MPa;  // the same point from above: in
constexpr double kOnlyRegion5AboveCritical = 7000.7;           // S2PT(pc, 1073.15 K) = 7000.636, up
constexpr double kRegion1AtCritical = 3706.79;                 // S1PT(pc, 623.15 K) = 3706.79042, in
constexpr double kOnlyRegion3AboveCritical = 5051.2;           // S2PT(50 MPa, T23) = 5051.220, down
constexpr double kB23AtCritical = 5240.347;                    // S2PT(pc, T23(pc)) = 5240.34726, in
constexpr double kOnlyRegion2AboveCritical = 6522.64;          // S2PT(50 MPa, 1073.15 K) = 6522.6423, down

// From the B23 pressure at 623.15 K up to the critical pressure.
constexpr double kOnlyRegion1BelowCritical = kRegion1AtCritical;  // S1PT(pc, 623.15 K), down
constexpr double kSaturatedWaterAt623 = 3778.281339543;           // s' at 623.15 K = 3778.281339543938, in
constexpr double kOnlyRegion5FromP623 = 7153.71;                  // S2PT(P623, 1073.15 K) = 7153.707, up
constexpr double kRegion5BelowCritical = 7000.63;                 // S2PT(pc, 1073.15 K) = 7000.636, down
constexpr double kOnlyRegion2FromP623 = 5261.0;                   // above S2PT(p, T23): 5240.347 at pc
constexpr double kSaturatedSteamAt623 = 5210.888;                 // s'' at 623.15 K = 5210.887825, up
// Near the entropy of the saturated states at the critical temperature (SSWT(647.096 K) =
// 4411.55970): above it the wet test's density search starts from the steam side.
constexpr double kRegion3SteamSideStart = 4411.559751434355;

// The bands above the critical pressure and from P623 up to it, in the order the selection reads.
constexpr backward::SupercriticalBand kSupercriticalBand = {
    kOnlyRegion1AboveCritical, kOnlyRegion5AboveCritical,
    kRegion1AtCritical,        kOnlyRegion3AboveCritical,
    kB23AtCritical,            kOnlyRegion2AboveCritical,
};
constexpr backward::NearCriticalBand kNearCriticalBand = {
    kOnlyRegion1BelowCritical, kOnlyRegion5FromP623,
    kSaturatedWaterAt623,      kRegion5BelowCritical,
    kOnlyRegion2FromP623,      kSaturatedSteamAt623,
};

// The entropy side of a (p,s) evaluation. On the 3a/3b boundary, the critical entropy, the point
// is 3a.
constexpr backward::BackwardEquations kByEntropy = {
    &WaterModel::REGIONPS, &WaterModel::T1PS, &WaterModel::T2PS, &WaterModel::T5PS,
    [](WaterModel&, double, double s) { return s <= kCriticalEntropy; },
    &WaterModel::V3APS, &WaterModel::V3BPS, &WaterModel::T3APS, &WaterModel::T3BPS,
    &WaterModel::SolveRegion3PS, &WaterModel::SSWT, &WaterModel::SSST};

// cp, cv and w by (p,s) take region 3 another way, which callers see in the last digits: T from
// T3PS, then the density of the (p,T) family at that temperature.
backward::State region3ByTemperature(WaterModel& w, double p, double s) {
    const double T = w.T3PS(p, s);
    const double rho = w.R3PT(p, T);
    return {3, T, rho, 1.0 / rho};
}

double propertyThroughT3PS(WaterModel& w, const RegionEquations& e, double p, double s) {
    return backward::regionProperty<kByEntropy>(w, e, p, s, &region3ByTemperature);
}

// Bounds per pressure bucket of the entropies that the selection compares s with: the saturated
// water and steam entropies below B23 at 623.15 K (s' rises with p, s'' falls), and the region
// 2/5 boundary entropy S2PT(p, 1073.15 K), which falls with p, up to the pressure limit of
// region 5. Widened by far more than the rounding of the equations.
struct SelectionEntropyBounds {
    static constexpr double kWidening = 1e-5;  // J/(kg K)

    explicit SelectionEntropyBounds(WaterModel& w)
        : saturatedWater(kIcePointSaturationPressure, kP623, kWidening, [&w](double p) { return w.S1PT(p, w.TSP(p)); }),
          saturatedSteam(kIcePointSaturationPressure, kP623, kWidening, [&w](double p) { return w.S2PT(p, w.TSP(p)); }),
          region5Start(kIcePointSaturationPressure, kRegion5HighestPressure, kWidening,
                       [&w](double p) { return w.S2PT(p, kRegion25Temperature); }) {}

    PressureBuckets saturatedWater;
    PressureBuckets saturatedSteam;
    PressureBuckets region5Start;
};

}  // namespace

// The written comparisons decide; the bounds only answer them ahead where the answer is sure.
// Below B23 at 623.15 K the saturation temperature is worked out where a comparison needs it or
// the point is wet: the wet area reads it, and every other area publishes its own temperature.
int WaterModel::REGIONPS(double p, double s) {
    static const SelectionEntropyBounds bounds(*this);  // filled on first use
    const double m = settings.margin();
    auto region1Or3 = [&] { return S1PT(p, kRegion13Temperature) * m >= s ? 1 : 3; };
    auto region2Or5 = [&] {
        const int side = bounds.region5Start.sideOfScaled(p, m, s);
        if (side != 0) return side < 0 ? 2 : 5;
        return S2PT(p, kRegion25Temperature) * m >= s ? 2 : 5;
    };
    auto region3Or2 = [&] { return S2PT(p, T23P(p)) > m * s ? 3 : 2; };
    auto wetOr3 = [&] { return backward::wetOrRegion3<&WaterModel::S3RT>(*this, p, s, kRegion3SteamSideStart); };

    // Above the pressure limit of region 5 the wet area is far away too.
    if (p > kRegion5HighestPressure) {
        if (s > kOnlyRegion2Above50MPa) return 2;
        if (s < kOnlyRegion1Above50MPa) return 1;
        if (s <= kRegion1At50MPa) return region1Or3();
        if (s < kOnlyRegion3Above50MPa) return 3;
        return region3Or2();
    }
    if (p > kCriticalPressure)
        return backward::selectSupercritical(kSupercriticalBand, s, region1Or3, region3Or2, region2Or5);
    if (p >= kP623)
        return backward::selectNearCritical(kNearCriticalBand, s, region1Or3, region2Or5, region3Or2, wetOr3);
    if (p < kIcePointSaturationPressure) return region2Or5();
    const int water = bounds.saturatedWater.side(p, s);
    if (water < 0) return 1;
    const int steam = bounds.saturatedSteam.side(p, s);
    if (water > 0 && steam > 0) return region2Or5();
    const double Ts = TSP(p);
    solved.PublishTemperature(Ts);
    if (water == 0 && S1PT(p, Ts) >= s) return 1;
    if (steam < 0 || (steam == 0 && S2PT(p, Ts) > s)) return 4;
    return region2Or5();
}

// The exported selection leaves Ts solved wherever the written tree works it out, also where the
// bounds decided without it.
int WaterModel::WATERSTATEAREAPS(double p, double s) {
    const int area = REGIONPS(p, s);
    if (!solved.temperatureSolved && p >= kIcePointSaturationPressure && p < kP623) solved.PublishTemperature(TSP(p));
    return area;
}

// Every property: the shared evaluation of (p,h) and (p,s) with the entropy as input, cp, cv and
// w with region 3 through T3PS.
#include "water/dispatch/generated/ps_dispatch.inc"

}  // namespace tvl
