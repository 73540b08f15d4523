// RoughV3PT: the library's own fit of the specific volume of region 3 in (p, T), which gives the
// density search its start without iteration. Seven areas: A to F around the critical point in
// a distance theta from a curve through it, G a plain polynomial for 40 MPa and above.
#include "water/formulation/region3_fit.h"

#include <cmath>
#include <cstddef>

#include "water/formulation/constants.h"
#include "water/formulation/water_model.h"

namespace tvl {

namespace {

// c d^a t^b q2^e2 q4^e4 q8^e8
struct FitTerm {
    double c;
    int a, b, e2, e4, e8;
};

// The same with a further factor theta^e1 (area F).
struct ThetaFitTerm {
    double c;
    int a, b, e2, e4, e8, e1;
};

// c x^a y^b (area G)
struct PlainFitTerm {
    double c;
    int a, b;
};

// ---- The areas' terms, as fitted ----

constexpr FitTerm kAreaA[18] = {
    {0.0074887444872508, 0, 1, 0, 0, 0},
    {0.000348351238844209, 0, 2, 0, 0, 0},
    {-0.000118427102787648, 0, 0, 0, 0, 1},
    {-0.0332156380721166, 0, 1, 0, 0, 1},
    {-0.000797144480049465, 0, 2, 0, 0, 1},
    {0.0608359392259313, 0, 1, 0, 0, 2},
    {0.000617493752916276, 0, 2, 0, 0, 2},
    {-0.0564778221803544, 0, 1, 0, 0, 3},
    {-0.000161628813019544, 0, 2, 0, 0, 3},
    {0.0263271308078056, 0, 1, 0, 0, 4},
    {-0.00490643103428227, 0, 1, 0, 0, 5},
    {-0.00876842774061156, 0, 0, 1, 0, 0},
    {0.0172887471616688, 0, 0, 1, 0, 1},
    {-0.0106812857513379, 0, 0, 1, 0, 2},
    {-3.83218936572771e-09, 0, 3, 1, 0, 4},
    {0.00153431224177324, 0, 0, 1, 1, 2},
    {-2.51644090693395e-12, 0, 4, 2, 0, 4},
    {-4.55907876060086e-05, 0, 0, 2, 1, 2},
};

constexpr FitTerm kAreaB[27] = {
    {-0.0487687959756292, 0, 2, 0, 0, 0},
    {0.00135336193587336, 1, 2, 0, 0, 0},
    {0.413013399556249, 2, 0, 0, 0, 0},
    {0.122945704230431, 0, 2, 0, 0, 1},
    {-0.000141140213612559, 0, 3, 0, 0, 1},
    {0.0178357790645547, 1, 0, 0, 0, 1},
    {3.95174104863528e-08, 1, 5, 0, 0, 1},
    {-0.585398228522495, 2, 0, 0, 0, 1},
    {5.94938907295817e-05, 4, 1, 0, 0, 1},
    {-0.119057019174713, 0, 2, 0, 0, 2},
    {-0.00194570794816001, 0, 0, 0, 0, 3},
    {0.0427529172119353, 0, 2, 0, 0, 3},
    {-0.0760561375637742, 1, 0, 0, 0, 3},
    {0.299546836134716, 2, 0, 0, 0, 3},
    {0.013939165722125, 0, 1, 0, 0, 4},
    {-0.0278468126229603, 1, 1, 0, 0, 5},
    {0.00195041855369227, 0, 0, 0, 0, 6},
    {3.75831122504734e-05, 2, 2, 0, 1, 6},
    {0.000125685384163741, 3, 0, 0, 1, 6},
    {-0.00762583183784896, 0, 1, 0, 2, 6},
    {-9.38937201479048e-07, 5, 2, 0, 2, 6},
    {0.0134876477124427, 0, 0, 0, 3, 6},
    {0.00634557820845727, 0, 1, 0, 3, 6},
    {-0.0291792573898258, 1, 0, 0, 3, 6},
    {-1.36017045350123e-06, 2, 3, 0, 3, 6},
    {4.54845318075243e-08, 6, 3, 0, 3, 6},
    {-2.39512088942747e-10, 6, 5, 0, 3, 6},
};

constexpr FitTerm kAreaC[31] = {
    {-0.0151226672652382, 0, 2, 0, 0, 0},
    {0.000219075237766159, 0, 3, 0, 0, 0},
    {1.14144924756274e-05, 0, 4, 0, 0, 0},
    {-0.00470815410341398, 1, 0, 0, 0, 0},
    {0.000105510662596481, 1, 3, 0, 0, 0},
    {0.487932009131791, 2, 0, 0, 0, 0},
    {0.000424198281757227, 4, 0, 0, 0, 0},
    {0.0305426466180436, 0, 2, 0, 0, 1},
    {-1.74690467895005e-05, 0, 4, 0, 0, 1},
    {5.09486478795057e-07, 0, 5, 0, 0, 1},
    {-1.4370899198291, 2, 0, 0, 0, 1},
    {-5.26750160303121e-05, 1, 3, 0, 0, 2},
    {1.22116000890535, 2, 0, 0, 0, 2},
    {1.04163340234817e-07, 2, 4, 0, 0, 2},
    {0.00218460997189951, 0, 0, 0, 0, 3},
    {-0.0152017319222412, 0, 2, 0, 0, 3},
    {-0.0294106550573793, 1, 0, 0, 0, 3},
    {0.0165284534427183, 1, 1, 0, 0, 3},
    {-0.335234582911578, 2, 0, 0, 0, 3},
    {-0.00212663865441498, 3, 0, 0, 0, 3},
    {0.0753543651141502, 0, 1, 0, 1, 3},
    {-0.0769927079971342, 0, 1, 0, 1, 4},
    {-0.0247039860992736, 1, 0, 0, 1, 4},
    {-0.00223745526548978, 2, 0, 0, 2, 4},
    {-0.0113782324304171, 0, 0, 0, 3, 4},
    {0.0122241653100711, 0, 1, 0, 3, 4},
    {-1.63238458626065e-07, 0, 4, 0, 3, 4},
    {5.80172883857322e-10, 0, 5, 0, 4, 4},
    {-4.19492118766324e-12, 0, 6, 0, 4, 4},
    {-6.60478916724586e-07, 2, 2, 0, 4, 4},
    {-1.1941903809545e-06, 3, 1, 0, 4, 4},
};

constexpr FitTerm kAreaD[18] = {
    {0.0664933791260178, 0, 1, 0, 0, 0},
    {5.71985898251817e-07, 0, 3, 0, 0, 0},
    {-0.274711031859796, 1, 0, 0, 0, 0},
    {-0.252680942664202, 0, 1, 0, 0, 1},
    {-3.92289014485859e-07, 0, 3, 0, 0, 1},
    {2.56374705633001e-11, 0, 5, 0, 0, 1},
    {1.04023037508896, 1, 0, 0, 0, 1},
    {0.389907326497054, 0, 1, 0, 0, 2},
    {-1.60832918484839, 1, 0, 0, 0, 2},
    {-0.303433314767063, 0, 1, 0, 0, 3},
    {1.25833184484538, 1, 0, 0, 0, 3},
    {0.118639803204261, 0, 1, 0, 0, 4},
    {-0.496046407723234, 1, 0, 0, 0, 4},
    {-0.0185997001981635, 0, 1, 0, 0, 5},
    {0.0785791469799311, 1, 0, 0, 0, 5},
    {0.000643907516287541, 0, 0, 0, 1, 0},
    {0.000713823865906627, 0, 0, 0, 1, 1},
    {-7.92816174523651e-05, 0, 0, 0, 1, 2},
};

constexpr FitTerm kAreaE[41] = {
    {0.0301448430808593, 0, 1, 0, 0, 0},
    {-0.000335916193888413, 0, 2, 0, 0, 0},
    {-0.112702460700323, 1, 0, 0, 0, 0},
    {-8.77499173794533e-21, 5, 6, 0, 0, 0},
    {0.00018715253091771, 0, 2, 0, 0, 1},
    {0.00356911241995526, 1, 0, 0, 0, 2},
    {-4.18986486825425e-12, 5, 2, 0, 0, 2},
    {3.2272667481884e-07, 0, 3, 0, 0, 3},
    {-1.20527379090314e-11, 0, 5, 0, 0, 3},
    {-8.1713295796082e-14, 3, 4, 0, 0, 3},
    {-2.89296115834392e-08, 4, 1, 0, 0, 3},
    {-1.94260348835721e-07, 0, 3, 0, 0, 4},
    {-8.13610292866497e-10, 0, 4, 0, 0, 4},
    {3.91792707971363e-14, 0, 6, 0, 0, 4},
    {-5.19162117274822e-08, 5, 0, 0, 0, 4},
    {-5.38255397523665e-07, 4, 0, 0, 0, 5},
    {2.00848495263495e-08, 4, 1, 0, 0, 5},
    {-0.00721941889977446, 0, 0, 0, 0, 6},
    {-0.00313609300142694, 0, 1, 0, 0, 6},
    {2.60485012629641e-05, 0, 2, 0, 0, 6},
    {-0.000370031971083042, 1, 1, 0, 0, 6},
    {7.59164825488741e-08, 2, 2, 0, 0, 6},
    {-1.69209023050985e-10, 5, 1, 0, 0, 6},
    {0.0396910783770869, 0, 0, 0, 1, 6},
    {0.0127931680641201, 1, 0, 0, 1, 6},
    {1.91456960283807e-07, 1, 2, 0, 1, 6},
    {0.0007664258159241, 2, 0, 0, 1, 6},
    {-4.3128288517517e-06, 2, 1, 0, 1, 6},
    {2.25545818343096e-05, 3, 0, 0, 1, 6},
    {4.88412051812406e-08, 3, 1, 0, 1, 6},
    {-3.56918730340587e-10, 3, 2, 0, 1, 6},
    {0.000303625591962761, 0, 1, 0, 2, 6},
    {1.2453606765958e-13, 0, 5, 0, 2, 6},
    {-0.00550701260682904, 1, 0, 0, 2, 6},
    {2.52719052207758e-12, 4, 2, 0, 2, 6},
    {1.3349192675752e-13, 6, 1, 0, 2, 6},
    {-0.00607043036830454, 0, 0, 0, 3, 6},
    {2.87671539256386e-06, 1, 1, 0, 3, 6},
    {-9.58920650759504e-05, 2, 0, 0, 3, 6},
    {1.02650393925122e-08, 4, 0, 0, 3, 6},
    {-1.55995837253683e-16, 6, 2, 0, 3, 6},
};

constexpr ThetaFitTerm kAreaF[17] = {
    {3.29890852403526e-05, 0, 1, 0, 0, 0, 0},
    {3.7978195570912e-05, 0, 2, 0, 0, 0, 0},
    {2.52360667718127e-07, 0, 3, 0, 0, 0, 0},
    {-0.000407113420864393, 0, 1, 0, 1, 0, 0},
    {-3.57933830043717e-05, 0, 2, 0, 1, 0, 0},
    {-0.000245865969502991, 0, 1, 0, 2, 0, 0},
    {0.000439053317238974, 0, 1, 0, 3, 0, 0},
    {5.25013249033141e-10, 0, 4, 1, 0, 0, 0},
    {0.00321621088787326, 0, 0, 1, 1, 0, 0},
    {-5.87768799763869e-08, 0, 3, 1, 1, 0, 0},
    {2.62763491213355e-06, 0, 2, 1, 2, 0, 0},
    {-6.35909964040088e-05, 0, 1, 1, 3, 0, 0},
    {1.84266268449228e-11, 3, 1, 1, 4, 0, 0},
    {-0.00214747822942469, 0, 0, 2, 1, 0, 0},
    {-1.15529419916092e-07, 2, 0, 2, 1, 0, 0},
    {0.000785448130272979, 0, 0, 2, 2, 0, 0},
    {-2.59174703895765e-16, 2, 4, 1, 0, 0, 1},
};

constexpr PlainFitTerm kAreaG[20] = {
    {0.00125537070183712, 0, 0},
    {0.00130245527248376, 0, 1},
    {0.010336719420718, 0, 3},
    {-0.0254795720214314, 0, 6},
    {-0.000185955960512067, 1, 0},
    {-0.00960082399513164, 1, 2},
    {0.474944869074855, 2, 5},
    {-0.00503420527214133, 3, 1},
    {-0.687909934564732, 3, 4},
    {30.7310678953686, 3, 8},
    {-0.000168658389645091, 5, 0},
    {654.223452156635, 8, 6},
    {-320317.604761443, 10, 10},
    {197.974246206705, 14, 4},
    {11416042249924.4, 16, 22},
    {-9156698413.1259, 24, 10},
    {2783392577409.6, 26, 12},
    {-281900719117892.0, 28, 14},
    {1.19502836257688e+16, 30, 16},
    {-1.83657231751509e+17, 32, 18},
};
// theta = d2 d^2 + d1 d + t1 t + t2 t^2; the coefficient 3.727888 is the reciprocal of the
// slope of the area line in K/MPa.
struct ThetaShape {
    double d2, d1, t1, t2;
};

constexpr ThetaShape kThetaA = {0.05, 3.727888, -1.0, 0.05};
constexpr ThetaShape kThetaB = {0.02, 3.727888, -1.0, 0.02};
constexpr ThetaShape kThetaC = {0.2, -3.727888, 1.0, 0.02};
constexpr ThetaShape kThetaD = {0.5, -3.727888, 1.0, 0.01};
constexpr ThetaShape kThetaE = {0.02, 3.727888, -1.0, 0.005};
constexpr ThetaShape kThetaF = {0.1, -3.727888, 1.0, 0.002};

// The line that splits the supercritical fit into its liquid-like side (above) and its
// gas-like side; it reaches 24 MPa at 654.313191168 K and 40 MPa at 713.959399168 K.
double areaLine(double T) { return 22064000.0 + 268248.402312516 * (T - 647.096); }
constexpr double kLineAt24MPa = 654.313191168;
constexpr double kLineAt40MPa = 713.959399168;

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
    const double x = p / 1e6 / 103.0 - 1.0;
    const double y = T / 600.0 - 1.0;
    double xPowers[33];
    double yPowers[23];
    xPowers[0] = 1.0;
    yPowers[0] = 1.0;
    for (int k = 1; k < 33; ++k) xPowers[k] = xPowers[k - 1] * x;
    for (int k = 1; k < 23; ++k) yPowers[k] = yPowers[k - 1] * y;
    double sum = 0.0;
    for (const PlainFitTerm& r : kAreaG) sum += r.c * xPowers[r.a] * yPowers[r.b];
    return sum;
}

}  // namespace

// Plain comparisons in a fixed order; tolerance plays no part. Only the last branch reads the
// saturation line.
RoughV3Area roughV3Area(const WaterModel& water, double p, double T) {
    if (p >= 40000000.0) return RoughV3Area::G;
    if (p >= 24000000.0) {
        if (T < kLineAt24MPa) return RoughV3Area::E;
        if (T > kLineAt40MPa) return RoughV3Area::F;
        return p > areaLine(T) ? RoughV3Area::E : RoughV3Area::F;
    }
    if (p > 22064000.0) {
        if (T <= 647.096) return RoughV3Area::A;
        if (T >= kLineAt24MPa) return RoughV3Area::C;
        return p > areaLine(T) ? RoughV3Area::B : RoughV3Area::C;
    }
    if (T > 647.096) return RoughV3Area::D;
    return p > water.PST(T) ? RoughV3Area::A : RoughV3Area::D;
}

double roughV3InArea(RoughV3Area area, double p, double T) {
    switch (area) {
        case RoughV3Area::A: return criticalFit(kAreaA, kThetaA, p, T);
        case RoughV3Area::B: return criticalFit(kAreaB, kThetaB, p, T);
        case RoughV3Area::C: return criticalFit(kAreaC, kThetaC, p, T);
        case RoughV3Area::D: return criticalFit(kAreaD, kThetaD, p, T);
        case RoughV3Area::E: return criticalFit(kAreaE, kThetaE, p, T);
        case RoughV3Area::F: return criticalFit(kAreaF, kThetaF, p, T);
        case RoughV3Area::G: break;
    }
    return highPressureFit(p, T);
}

// No failure of its own: outside region 3 it returns whatever its polynomial gives, negative
// volumes included.
double WaterModel::RoughV3PT(double p, double T) const { return roughV3InArea(roughV3Area(*this, p, T), p, T); }

}  // namespace tvl
