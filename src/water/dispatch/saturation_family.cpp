// Saturated water and steam as functions of temperature. Up to 623.15 K a saturated phase is the
// region 1 (water) or region 2 (steam) state at the saturation pressure; above it, the region 3
// state at the density that the search on the isotherm finds from the rough saturated density.
// That search runs whatever toleranceMode says: the rough density is a start, never a result.
#include "water/dispatch/two_phase_rules.h"
#include "water/formulation/constants.h"
#include "water/formulation/water_model.h"

namespace tvl {

namespace {

enum class Phase { water, steam };

// One equation per place where a saturated phase can lie: region 1 and region 2 in (p,T),
// region 3 in (density, T).
using Equation = double (*)(WaterModel&, double, double);

struct PhaseEquations {
    Equation water;
    Equation steam;
    Equation nearCritical;
};

template <double (WaterModel::*Member)(double, double)>
double call(WaterModel& model, double first, double T) {
    return (model.*Member)(first, T);
}

constexpr PhaseEquations kVolume = {call<&WaterModel::V1PT>, call<&WaterModel::V2PT>,
                                    [](WaterModel&, double rho, double) { return 1.0 / rho; }};
constexpr PhaseEquations kDensity = {call<&WaterModel::D1PT>, call<&WaterModel::D2PT>,
                                     [](WaterModel&, double rho, double) { return rho; }};
constexpr PhaseEquations kInternalEnergy = {call<&WaterModel::U1PT>, call<&WaterModel::U2PT>,
                                            call<&WaterModel::U3RT>};
constexpr PhaseEquations kEntropy = {call<&WaterModel::S1PT>, call<&WaterModel::S2PT>, call<&WaterModel::S3RT>};
constexpr PhaseEquations kEnthalpy = {call<&WaterModel::H1PT>, call<&WaterModel::H2PT>, call<&WaterModel::H3RT>};
constexpr PhaseEquations kIsobaricHeatCapacity = {call<&WaterModel::CP1PT>, call<&WaterModel::CP2PT>,
                                                  call<&WaterModel::CP3RT>};
constexpr PhaseEquations kIsochoricHeatCapacity = {call<&WaterModel::CV1PT>, call<&WaterModel::CV2PT>,
                                                   call<&WaterModel::CV3RT>};
constexpr PhaseEquations kSpeedOfSound = {call<&WaterModel::W1PT>, call<&WaterModel::W2PT>, call<&WaterModel::W3RT>};
constexpr PhaseEquations kJouleThomson = {call<&WaterModel::JOULETHOMPSON1PT>, call<&WaterModel::JOULETHOMPSON2PT>,
                                          call<&WaterModel::JOULETHOMPSON3RT>};

// Where a saturated phase at T is evaluated: at (p, T) of region 1 or 2, or at (rho, T) of
// region 3.
struct SaturatedPhase {
    double p;
    double rho;
    bool nearCritical;
};

template <Phase phase>
SaturatedPhase locate(WaterModel& model, double T) {
    const double p = model.PST(T);
    if (T > kRegion13Temperature) {
        const double start = phase == Phase::water ? model.ROUGHRSWT(T) : model.ROUGHRSST(T);
        return {p, model.R3PTR0(p, T, start), true};
    }
    return {p, 0.0, false};
}

template <Phase phase>
double evaluate(const PhaseEquations& equations, WaterModel& model, const SaturatedPhase& at, double T) {
    if (at.nearCritical) return equations.nearCritical(model, at.rho, T);
    return (phase == Phase::water ? equations.water : equations.steam)(model, at.p, T);
}

template <Phase phase>
double saturated(const PhaseEquations& equations, WaterModel& model, double T) {
    return evaluate<phase>(equations, model, locate<phase>(model, T), T);
}

// w^2 / (p v), the local exponent of the isentrope, of one saturated phase found once.
template <Phase phase>
double isentropicExponent(WaterModel& model, double T) {
    const SaturatedPhase at = locate<phase>(model, T);
    const double w = evaluate<phase>(kSpeedOfSound, model, at, T);
    return w * w / (at.p * evaluate<phase>(kVolume, model, at, T));
}

template <Phase phase>
EntropyEnthalpy entropyEnthalpy(WaterModel& model, double T) {
    const SaturatedPhase at = locate<phase>(model, T);
    if (at.nearCritical) return model.entropyEnthalpy3RT(at.rho, T);
    return phase == Phase::water ? model.entropyEnthalpy1PT(at.p, T) : model.entropyEnthalpy2PT(at.p, T);
}

}  // namespace

double WaterModel::VSWT(double T) { return saturated<Phase::water>(kVolume, *this, T); }
double WaterModel::VSST(double T) { return saturated<Phase::steam>(kVolume, *this, T); }
double WaterModel::DSWT(double T) { return saturated<Phase::water>(kDensity, *this, T); }
double WaterModel::DSST(double T) { return saturated<Phase::steam>(kDensity, *this, T); }
double WaterModel::USWT(double T) { return saturated<Phase::water>(kInternalEnergy, *this, T); }
double WaterModel::USST(double T) { return saturated<Phase::steam>(kInternalEnergy, *this, T); }
double WaterModel::SSWT(double T) { return saturated<Phase::water>(kEntropy, *this, T); }
double WaterModel::SSST(double T) { return saturated<Phase::steam>(kEntropy, *this, T); }
double WaterModel::HSWT(double T) { return saturated<Phase::water>(kEnthalpy, *this, T); }
double WaterModel::HSST(double T) { return saturated<Phase::steam>(kEnthalpy, *this, T); }
double WaterModel::CPSWT(double T) { return saturated<Phase::water>(kIsobaricHeatCapacity, *this, T); }
double WaterModel::CPSST(double T) { return saturated<Phase::steam>(kIsobaricHeatCapacity, *this, T); }
double WaterModel::CVSWT(double T) { return saturated<Phase::water>(kIsochoricHeatCapacity, *this, T); }
double WaterModel::CVSST(double T) { return saturated<Phase::steam>(kIsochoricHeatCapacity, *this, T); }
double WaterModel::WSWT(double T) { return saturated<Phase::water>(kSpeedOfSound, *this, T); }
double WaterModel::WSST(double T) { return saturated<Phase::steam>(kSpeedOfSound, *this, T); }
double WaterModel::JOULETHOMPSONSWT(double T) { return saturated<Phase::water>(kJouleThomson, *this, T); }
double WaterModel::JOULETHOMPSONSST(double T) { return saturated<Phase::steam>(kJouleThomson, *this, T); }
double WaterModel::KSWT(double T) { return isentropicExponent<Phase::water>(*this, T); }
double WaterModel::KSST(double T) { return isentropicExponent<Phase::steam>(*this, T); }

double WaterModel::RST(double T) { return HSST(T) - HSWT(T); }

EntropyEnthalpy WaterModel::waterEntropyEnthalpy(double T) { return entropyEnthalpy<Phase::water>(*this, T); }
EntropyEnthalpy WaterModel::steamEntropyEnthalpy(double T) { return entropyEnthalpy<Phase::steam>(*this, T); }

// ---- Transport and the properties composed from it, each phase at its own density ----

double WaterModel::THERMCONDSWT(double T) { return THERMCONDRT(1.0 / VSWT(T), T); }
double WaterModel::THERMCONDSST(double T) { return THERMCONDRT(1.0 / VSST(T), T); }
double WaterModel::DYNVISSWT(double T) { return DYNVISRT(1.0 / VSWT(T), T); }
double WaterModel::DYNVISSST(double T) { return DYNVISRT(1.0 / VSST(T), T); }
double WaterModel::KINVISSWT(double T) { return DYNVISSWT(T) * VSWT(T); }
double WaterModel::KINVISSST(double T) { return DYNVISSST(T) * VSST(T); }
double WaterModel::PRANDTLESWT(double T) { return DYNVISSWT(T) * CPSWT(T) / THERMCONDSWT(T); }
double WaterModel::PRANDTLESST(double T) { return DYNVISSST(T) * CPSST(T) / THERMCONDSST(T); }

// ---- The fourteen outputs of a saturated phase, and cv on its two-phase side ----

StateProperties WaterModel::VUSHCVWDERPTSWT(double T) {
    const SaturatedPhase at = locate<Phase::water>(*this, T);
    return at.nearCritical ? VUSHCVWDERPT3RT(at.rho, T) : VUSHCVWDERPT1PT(at.p, T);
}

StateProperties WaterModel::VUSHCVWDERPTSST(double T) {
    const SaturatedPhase at = locate<Phase::steam>(*this, T);
    return at.nearCritical ? VUSHCVWDERPT3RT(at.rho, T) : VUSHCVWDERPT2PT(at.p, T);
}

double WaterModel::CVDPSWT(double T) { return two_phase::twoPhaseSideCv(VUSHCVWDERPTSWT(T), T, DPDTST(T)); }
double WaterModel::CVDPSST(double T) { return two_phase::twoPhaseSideCv(VUSHCVWDERPTSST(T), T, DPDTST(T)); }

}  // namespace tvl
