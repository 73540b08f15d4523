// Dispatch on (p,s): the area of a point by a tree of fixed numbers, the same shape as that of
// (p,h) with entropies, then a property at the temperature that the region's backward function
// finds.
#include "water/dispatch/ph_ps_evaluation.h"
#include "water/formulation/pressure_buckets.h"
#include "water/formulation/constants.h"

namespace tvl {

namespace {

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

    // Above the pressure limit of region 5 the wet area is far away too.
    if (p > kRegion5HighestPressure) {
        if (s > 5098.0) return 2;
        if (s < 3397.7) return 1;
        if (s <= 3542.992) return region1Or3();
        if (s < 5047.0) return 3;
        return region3Or2();
    }
    if (p > kCriticalPressure) {
        if (s < 3542.992) return 1;
        if (s > 7000.7) return 5;
        if (s < 3706.79) return region1Or3();
        if (s < 5051.2) return 3;
        if (s < 5240.347) return region3Or2();
        if (s < 6522.64) return 2;
        return region2Or5();
    }
    if (p >= kP623) {
        if (s < 3706.79) return 1;
        if (s < 3778.281339543) return region1Or3();
        if (s > 7153.71) return 5;
        if (s > 7000.63) return region2Or5();
        if (s > 5261.0) return 2;
        if (s > 5210.888) return region3Or2();
        // Between the saturated states of region 3: the side of the critical entropy decides
        // which saturated density the search starts from.
        const double Ts = TSP(p);
        solved.PublishTemperature(Ts);
        if (s > 4411.559751434355) return S3RT(R3PTR0(p, Ts, ROUGHRSST(Ts)), Ts) > s ? 4 : 3;
        return S3RT(R3PTR0(p, Ts, ROUGHRSWT(Ts)), Ts) < s ? 4 : 3;
    }
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
