// RoughV3PT: the library's own fit of the specific volume of region 3 in (p, T), which gives the
// density search its start without iteration. Seven areas: A to F around the critical point in
// a distance theta from a curve through it, G a plain polynomial for 40 MPa and above.
#include "water/formulation/region3_fit.h"

#include <cmath>
#include <cstddef>

#include "water/formulation/constants.h"
#include "water/formulation/tables/library_fits.h"
#include "water/formulation/water_model.h"

namespace tvl {

namespace {

// The line that splits the supercritical fit into its liquid-like side (above) and its
// gas-like side.
double areaLine(double T) { return 22064000.0 + kRoughVolumeLineSlope * (T - 647.096); }

// Powers of the variables of the critical areas, the exponents reaching 6 at most.
struct CriticalPowers {
    double d[7], t[7], q2[7], q4[7], q8[7], theta[2];

    CriticalPowers(double dValue, double tValue, double thetaValue) {
        // Roots by repeated square root that keep the sign of theta; zero counts as positive.
        // For negative theta q8 q8 is +|q4|, not q4: the three stay separate numbers.
        const double sign = thetaValue < 0.0 ? -1.0 : 1.0;
        const double root2 = sign * std::sqrt(std::fabs(thetaValue));
        const double root4 = sign * std::sqrt(std::fabs(root2));
        const double root8 = sign * std::sqrt(std::fabs(root4));
        fill(d, dValue);
        fill(t, tValue);
        fill(q2, root2);
        fill(q4, root4);
        fill(q8, root8);
        theta[0] = 1.0;
        theta[1] = thetaValue;
    }

    static void fill(double (&powers)[7], double base) {
        powers[0] = 1.0;
        for (int k = 1; k < 7; ++k) powers[k] = powers[k - 1] * base;
    }

    double of(const FitTerm& r) const { return r.c * d[r.a] * t[r.b] * q2[r.e2] * q4[r.e4] * q8[r.e8]; }
    double of(const ThetaFitTerm& r) const {
        return r.c * d[r.a] * t[r.b] * q2[r.e2] * q4[r.e4] * q8[r.e8] * theta[r.e1];
    }
};

template <class Term, std::size_t N>
double criticalFit(const Term (&rows)[N], const ThetaShape& shape, double p, double T) {
    const double d = (p - 22064000.0) / 1e6;
    const double t = T - 647.096;
    const double theta = shape.d2 * d * d + shape.d1 * d + shape.t1 * t + shape.t2 * t * t;
    const CriticalPowers powers(d, t, theta);
    double sum = 0.0;
    for (const Term& r : rows) sum += powers.of(r);
    return kCriticalVolume + sum;
}

double highPressureFit(double p, double T) {
    const double x = p / 1e6 / kRoughVolumeAreaGPressure - 1.0;
    const double y = T / kRoughVolumeAreaGTemperature - 1.0;
    double xPowers[33];
    double yPowers[23];
    xPowers[0] = 1.0;
    yPowers[0] = 1.0;
    for (int k = 1; k < 33; ++k) xPowers[k] = xPowers[k - 1] * x;
    for (int k = 1; k < 23; ++k) yPowers[k] = yPowers[k - 1] * y;
    double sum = 0.0;
    for (const PlainFitTerm& r : kRoughVolumeAreaG) sum += r.c * xPowers[r.a] * yPowers[r.b];
    return sum;
}

}  // namespace

// Plain comparisons in a fixed order; tolerance plays no part. Only the last branch reads the
// saturation line.
RoughV3Area roughV3Area(const WaterModel& water, double p, double T) {
    if (p >= 40000000.0) return RoughV3Area::G;
    if (p >= 24000000.0) {
        if (T < kRoughVolumeLineAt24MPa) return RoughV3Area::E;
        if (T > kRoughVolumeLineAt40MPa) return RoughV3Area::F;
        return p > areaLine(T) ? RoughV3Area::E : RoughV3Area::F;
    }
    if (p > 22064000.0) {
        if (T <= 647.096) return RoughV3Area::A;
        if (T >= kRoughVolumeLineAt24MPa) return RoughV3Area::C;
        return p > areaLine(T) ? RoughV3Area::B : RoughV3Area::C;
    }
    if (T > 647.096) return RoughV3Area::D;
    return p > water.PST(T) ? RoughV3Area::A : RoughV3Area::D;
}

double roughV3InArea(RoughV3Area area, double p, double T) {
    switch (area) {
        case RoughV3Area::A: return criticalFit(kRoughVolumeAreaA, kRoughVolumeThetaA, p, T);
        case RoughV3Area::B: return criticalFit(kRoughVolumeAreaB, kRoughVolumeThetaB, p, T);
        case RoughV3Area::C: return criticalFit(kRoughVolumeAreaC, kRoughVolumeThetaC, p, T);
        case RoughV3Area::D: return criticalFit(kRoughVolumeAreaD, kRoughVolumeThetaD, p, T);
        case RoughV3Area::E: return criticalFit(kRoughVolumeAreaE, kRoughVolumeThetaE, p, T);
        case RoughV3Area::F: return criticalFit(kRoughVolumeAreaF, kRoughVolumeThetaF, p, T);
        case RoughV3Area::G: break;
    }
    return highPressureFit(p, T);
}

// No failure of its own: outside region 3 it returns whatever its polynomial gives, negative
// volumes included.
double WaterModel::RoughV3PT(double p, double T) const { return roughV3InArea(roughV3Area(*this, p, T), p, T); }

}  // namespace tvl
