// Row types of the coefficient tables, one row per term in the release's order.
#ifndef TAVLIB6_COEFFICIENT_TYPES_H
#define TAVLIB6_COEFFICIENT_TYPES_H

namespace tvl {

// n x^I y^J
struct PowerTerm {
    int I;
    int J;
    double n;
};

// n x^I y^J with a fractional I (T2a(p,s) steps I by 0.25)
struct FractionalPowerTerm {
    double I;
    int J;
    double n;
};

// n0 tau^J0 of an ideal-gas part
struct IdealTerm {
    int J0;
    double n0;
};

// coefficient of theta^(tNum/tDen) of a saturated density curve
struct SaturationDensityTerm {
    int tNum;
    int tDen;
    double coefficient;
};

// H_ij (1/Tbar - 1)^i (rhobar - 1)^j
struct ViscosityTerm {
    int i;
    int j;
    double H;
};

// N delta^i tau^j of the Harris-Alder g
struct DielectricTerm {
    int i;
    double j;
    double N;
};

// How an equation of the releases reduces its two arguments and scales its sum, in SI units.
// An argument a enters as a/scale + shift (some equations write shift - a/scale or scale/a +
// shift; the generated comment beside each form says which); the result is the sum times
// result (or result over the sum, result times its fourth power, result times e to the sum).
struct ReducedArgument {
    double scale, shift;
};

struct ReducedForm {
    ReducedArgument x, y;
    double result;
};

// The usual way in: a/scale + shift.
constexpr double reduce(double a, const ReducedArgument& r) { return a / r.scale + r.shift; }

// The library's own fit of the region 3 volume: c d^a t^b q2^e2 q4^e4 q8^e8 (areas A-E) ...
struct FitTerm {
    double c;
    int a, b, e2, e4, e8;
};

// ... with a further factor theta^e1 (area F) ...
struct ThetaFitTerm {
    double c;
    int a, b, e2, e4, e8, e1;
};

// ... and c x^a y^b (area G).
struct PlainFitTerm {
    double c;
    int a, b;
};

// theta = d2 d^2 + d1 d + t1 t + t2 t^2, the distance from a curve through the critical point.
struct ThetaShape {
    double d2, d1, t1, t2;
};

}  // namespace tvl

#endif
