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

}  // namespace tvl

#endif
