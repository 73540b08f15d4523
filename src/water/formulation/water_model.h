// WaterModel: every water equation and dispatcher of the library, double in and double out.
// Operations carry the names of their exports without the prefix (V1PT for tvlV1PT); a raw
// equation behind a refined operation ends in Equation, the solvers of a pair are SolveRegion*.
// The model never touches the last error: it throws a code, and it publishes the state point
// that a search reached in SolvedState.
#ifndef TAVLIB6_WATER_MODEL_H
#define TAVLIB6_WATER_MODEL_H

#include "frame/model_state.h"
#include "frame/state_properties.h"
#include "water/formulation/power_table.h"

namespace tvl {

// The dimensionless Gibbs free energy of a (p,T) region and its derivatives.
struct GibbsSums {
    double g = 0.0;
    double gPi = 0.0;
    double gPiPi = 0.0;
    double gTau = 0.0;
    double gTauTau = 0.0;
    double gPiTau = 0.0;
};

// A (p,T) point of a Gibbs region: its reduced variables and the sums formed there.
struct GibbsPoint {
    double pi;
    double tau;
    GibbsSums sums;
};

// Entropy and enthalpy of one state, found together.
struct EntropyEnthalpy {
    double s;
    double h;
};

// Which sums one pass over the terms forms.
enum GibbsTerm : unsigned {
    kGamma = 1u,
    kGammaPi = 2u,
    kGammaPiPi = 4u,
    kGammaTau = 8u,
    kGammaTauTau = 16u,
    kGammaPiTau = 32u,
    kAllGibbsTerms = 63u,
};

class WaterModel {
public:
    WaterModel(const ModelSettings& settings, SolvedState& solved) : settings(settings), solved(solved) {}

    // ---- Saturation line (saturation.cpp) ----
    double PST(double T) const;
    double TSP(double p) const;
    // Whether mT >= TSP(p), for p from the lowest saturation pressure to B23 at 623.15 K: the
    // same answer as the comparison, with TSP evaluated only when mT lies near the line.
    bool atOrAboveSaturationTemperature(double p, double mT) const;
    // Whether H1PT(p, Ts) >= h with Ts = TSP(p), for p from the lowest saturation pressure to
    // B23 at 623.15 K: the same answer, with H1PT evaluated only when h lies near the line.
    bool atOrBelowSaturatedWaterEnthalpy(double p, double Ts, double h);
    double DPDTST(double T) const;
    double ROUGHRSWT(double T) const;
    double ROUGHRSST(double T) const;

    // ---- Region 1 (region1.cpp) ----
    double V1PT(double p, double T);
    double D1PT(double p, double T);
    double U1PT(double p, double T);
    double S1PT(double p, double T);
    double H1PT(double p, double T);
    EntropyEnthalpy entropyEnthalpy1PT(double p, double T);  // S1PT and H1PT from one pass
    double CP1PT(double p, double T);
    double CV1PT(double p, double T);
    double W1PT(double p, double T);
    double JOULETHOMPSON1PT(double p, double T);
    StateProperties VUSHCVWDERPT1PT(double p, double T);
    double T1PHEquation(double p, double h);
    double T1PSEquation(double p, double s);
    double P1HSEquation(double h, double s);
    double T1PH(double p, double h);
    double T1PS(double p, double s);
    double P1HS(double h, double s);
    double T1HS(double h, double s);
    void PT1HS(double h, double s, double& p, double& T);
    void SolveRegion1HS(double h, double s, double& p, double& T);
    void SolveRegion1RH(double density, double h, double& p, double& T);

    // ---- Region boundaries (boundaries.cpp) ----
    double P23T(double T) const;
    double T23P(double p) const;
    double P2B2CH(double h) const;
    double H2B2CP(double p) const;
    double H2AB(double s) const;
    double HB13S(double s);
    double TB23HS(double h, double s);
    double PB23HS(double h, double s);
    double ROUGHHSWS(double s);
    double ROUGHHSSS(double s);

    // ---- Region 2 (region2.cpp, region2_backward.cpp) ----
    double V2PT(double p, double T);
    double D2PT(double p, double T);
    double U2PT(double p, double T);
    double S2PT(double p, double T);
    double H2PT(double p, double T);
    EntropyEnthalpy entropyEnthalpy2PT(double p, double T);  // S2PT and H2PT from one pass
    double CP2PT(double p, double T);
    double CV2PT(double p, double T);
    double W2PT(double p, double T);
    double JOULETHOMPSON2PT(double p, double T);
    StateProperties VUSHCVWDERPT2PT(double p, double T);
    double T2APH(double p, double h);
    double T2BPH(double p, double h);
    double T2CPH(double p, double h);
    double T2APS(double p, double s);
    double T2BPS(double p, double s);
    double T2CPS(double p, double s);
    double P2AHS(double h, double s);
    double P2BHS(double h, double s);
    double P2CHS(double h, double s);
    double T2PHEquation(double p, double h);  // the subregion's equation, chosen, unrefined
    double T2PSEquation(double p, double s);
    double P2HSEquation(double h, double s);
    double T2PH(double p, double h);
    double T2PS(double p, double s);
    double P2HS(double h, double s);
    double T2HS(double h, double s);
    void PT2HS(double h, double s, double& p, double& T);
    void SolveRegion2HS(double h, double s, double& p, double& T);
    void SolveRegion2RH(double density, double h, double& p, double& T);

    // ---- Region 3 (region3.cpp, region3_fit.cpp) ----
    // Forward equations in (density, T) from the Helmholtz free energy phi(delta, tau).
    double P3RT(double rho, double T);
    double U3RT(double rho, double T);
    double S3RT(double rho, double T);
    double H3RT(double rho, double T);
    EntropyEnthalpy entropyEnthalpy3RT(double rho, double T);  // S3RT and H3RT from one pass
    double CP3RT(double rho, double T);
    double CV3RT(double rho, double T);
    double W3RT(double rho, double T);
    double JOULETHOMPSON3RT(double rho, double T);
    StateProperties VUSHCVWDERPT3RT(double rho, double T);
    // The library's fitted specific volume, and the Newton refinement of a density at fixed T.
    double RoughV3PT(double p, double T) const;
    double R3PTR0(double p, double T, double rho0);
    // (p,T): the density sequence (the fit, refined while toleranceMode is on), then (density, T).
    double R3PT(double p, double T);
    double D3PT(double p, double T);
    double V3PT(double p, double T);
    double U3PT(double p, double T);
    double S3PT(double p, double T);
    double H3PT(double p, double T);
    double CP3PT(double p, double T);
    double CV3PT(double p, double T);
    double W3PT(double p, double T);
    double JOULETHOMPSON3PT(double p, double T);
    StateProperties VUSHCVWDERPT3PT(double p, double T);

    // ---- Region 5 (region5.cpp) ----
    double V5PT(double p, double T);
    double D5PT(double p, double T);
    double U5PT(double p, double T);
    double S5PT(double p, double T);
    double H5PT(double p, double T);
    double CP5PT(double p, double T);
    double CV5PT(double p, double T);
    double W5PT(double p, double T);
    double JOULETHOMPSON5PT(double p, double T);
    StateProperties VUSHCVWDERPT5PT(double p, double T);
    double T5PH(double p, double h);
    double T5PS(double p, double s);
    double P5HS(double h, double s);
    double T5HS(double h, double s);
    void PT5HS(double h, double s, double& p, double& T);
    void SolveRegion5HS(double h, double s, double& p, double& T);
    void PT5RH(double density, double h, double& p, double& T);

    // ---- Region 3 backward functions (region3_backward.cpp) ----
    // Raw equations of the releases; they publish nothing.
    double T3APH(double p, double h);
    double T3BPH(double p, double h);
    double V3APH(double p, double h);
    double V3BPH(double p, double h);
    double T3APS(double p, double s);
    double T3BPS(double p, double s);
    double V3APS(double p, double s);
    double V3BPS(double p, double s);
    double P3AHS(double h, double s);
    double P3BHS(double h, double s);
    double H3AB(double p) const;
    // Refinements of (density, T) against the basic equation; rho and T hold the start.
    void SolveRegion3PH(double p, double h, double& rho, double& T);
    void SolveRegion3PS(double p, double s, double& rho, double& T);
    void SolveRegion3HS(double h, double s, double& rho, double& T);
    double T3PH(double p, double h);
    double V3PH(double p, double h);
    double T3PS(double p, double s);
    double V3PS(double p, double s);
    double T3HSDirect(double h, double s);
    double P3HS(double h, double s);
    double T3HS(double h, double s);
    double V3HS(double h, double s);
    void PT3HS(double h, double s, double& p, double& T);
    void RT3HS(double h, double s, double& rho, double& T);
    double T3RH(double rho, double h, double startTemperature);

    // ---- Backward equations in (h,s) and the two-phase area (hs_backward.cpp) ----
    // Tsat(h,s) of the release, raw; it publishes nothing.
    double T4HSEquation(double h, double s);
    // Bisection on T along the saturation line for the wet state of (h,s) between lower and
    // upper; T and x hold the last midpoint and its clamped dryness fraction. Returns 1.0.
    double BisectSaturationHS(double h, double s, double lower, double upper, double& T, double& x);
    // T and x of a wet state: the bisection over the whole line left of the equation's entropy
    // limit, the equation (refined while toleranceMode is on) right of it. Returns 1.0.
    double TXSHS(double h, double s, double& T, double& x);
    // TXSHS, with T published, and under range checks its saturation pressure as well.
    double TSHS(double h, double s, double& x);

    // ---- Dispatch on (p,T) (pt_dispatch.cpp) ----
    // The region of the property family (1, 2, 3 or 5); never 4.
    int REGIONPT(double p, double T) const;
    int WATERSTATEAREA(double p, double T) const;
    int WATERSTATEAREA2(double p, double T) const;
    int PHASESTATEPT(double p, double T) const;
    double VPT(double p, double T);
    double DPT(double p, double T);
    double UPT(double p, double T);
    double SPT(double p, double T);
    double HPT(double p, double T);
    double CPPT(double p, double T);
    double CVPT(double p, double T);
    double WPT(double p, double T);
    double JOULETHOMPSONPT(double p, double T);
    StateProperties VUSHCVWDERPTPT(double p, double T);
    double THERMCONDPT(double p, double T);
    double DYNVISPT(double p, double T);
    double PRANDTLEPT(double p, double T);
    double KINVISPT(double p, double T);
    double KPT(double p, double T);
    double DCPT(double p, double T);
    double PKWPT(double p, double T);
    double RIPTL(double p, double T, double wavelength);

    // ---- Saturation and two-phase families (two_phase.cpp) ----
    // Saturated water (SWT) and steam (SST) by T: regions 1 and 2 at the saturation pressure up
    // to 623.15 K, region 3 at the density searched on the line above (saturation_family.cpp).
    double VSWT(double T);
    double VSST(double T);
    double DSWT(double T);
    double DSST(double T);
    double USWT(double T);
    double USST(double T);
    double SSWT(double T);
    double SSST(double T);
    double HSWT(double T);
    double HSST(double T);
    double CPSWT(double T);
    double CPSST(double T);
    double CVSWT(double T);
    double CVSST(double T);
    double WSWT(double T);
    double WSST(double T);
    double JOULETHOMPSONSWT(double T);
    double JOULETHOMPSONSST(double T);
    double KSWT(double T);
    double KSST(double T);
    double THERMCONDSWT(double T);
    double THERMCONDSST(double T);
    double DYNVISSWT(double T);
    double DYNVISSST(double T);
    double PRANDTLESWT(double T);
    double PRANDTLESST(double T);
    double KINVISSWT(double T);
    double KINVISSST(double T);
    double RST(double T);  // latent heat
    // s and h of a saturated phase, located once: the values of SSWT and HSWT (SSST and HSST).
    EntropyEnthalpy waterEntropyEnthalpy(double T);
    EntropyEnthalpy steamEntropyEnthalpy(double T);
    // cv on the two-phase side of the saturated states, which the wet mixture takes.
    double CVDPSWT(double T);
    double CVDPSST(double T);
    StateProperties VUSHCVWDERPTSWT(double T);
    StateProperties VUSHCVWDERPTSST(double T);
    // The wet mixture by (T, x) (two_phase.cpp). CPSTX and the transport forms have no meaning
    // there: with checkRangeMode on they throw kOutOfRange before evaluating anything.
    double VSTX(double T, double x);
    double DSTX(double T, double x);
    double USTX(double T, double x);
    double SSTX(double T, double x);
    double HSTX(double T, double x);
    double CPSTX(double T, double x);
    double CVSTX(double T, double x);
    double WSTX(double T, double x);
    double JOULETHOMPSONSTX(double T, double x);
    double THERMCONDSTX(double T, double x);
    double DYNVISSTX(double T, double x);
    double PRANDTLESTX(double T, double x);
    double KINVISSTX(double T, double x);
    double KSTX(double T, double x);
    // The dryness fraction from T and one property of the mixture; the frame tests the range
    // of the result.
    double XSTV(double T, double v);
    double XSTD(double T, double rho);
    double XSTU(double T, double u);
    double XSTS(double T, double s);
    double XSTH(double T, double h);
    double XSTCP(double T, double cp);
    double XSTCV(double T, double cv);
    double XSTW(double T, double w);
    double XSTJOULETHOMPSON(double T, double jouleThomson);
    double XSTTHERMCOND(double T, double conductivity);
    double XSTDYNVIS(double T, double viscosity);
    double XSTKINVIS(double T, double kinematicViscosity);
    double XSTPRANDTLE(double T, double prandtl);
    double XSTK(double T, double exponent);
    // (p,T,x): the state area decides; x counts only on the saturation line (ptx_family.cpp).
    double VPTX(double p, double T, double x);
    double DPTX(double p, double T, double x);
    double UPTX(double p, double T, double x);
    double SPTX(double p, double T, double x);
    double HPTX(double p, double T, double x);
    double CPPTX(double p, double T, double x);
    double CVPTX(double p, double T, double x);
    double WPTX(double p, double T, double x);
    double JOULETHOMPSONPTX(double p, double T, double x);
    double THERMCONDPTX(double p, double T, double x);
    double DYNVISPTX(double p, double T, double x);
    double PRANDTLEPTX(double p, double T, double x);
    double KINVISPTX(double p, double T, double x);
    double KPTX(double p, double T, double x);

    // ---- Dispatch on (p,h) and (p,s) (ph_dispatch.cpp, ps_dispatch.cpp) ----
    // The area of a point, 1 to 5, by a tree of fixed numbers; a path that works out the
    // saturation temperature publishes it.
    int REGIONPH(double p, double h);
    int REGIONPS(double p, double s);
    int WATERSTATEAREAPH(double p, double h);
    int WATERSTATEAREAPS(double p, double s);
    double TPH(double p, double h);
    double VPH(double p, double h);
    double UPH(double p, double h);
    double SPH(double p, double h);
    double CPPH(double p, double h);
    double CVPH(double p, double h);
    double WPH(double p, double h);
    double JOULETHOMPSONPH(double p, double h);
    double THERMCONDPH(double p, double h);
    double DYNVISPH(double p, double h);
    double KINVISPH(double p, double h);
    double PRANDTLEPH(double p, double h);
    double KPH(double p, double h);
    double XPH(double p, double h);  // kOutOfRange outside the wet area, whatever the checks
    double TPS(double p, double s);
    double VPS(double p, double s);
    double UPS(double p, double s);
    double HPS(double p, double s);
    double CPPS(double p, double s);
    double CVPS(double p, double s);
    double WPS(double p, double s);
    double JOULETHOMPSONPS(double p, double s);
    double THERMCONDPS(double p, double s);
    double DYNVISPS(double p, double s);
    double KINVISPS(double p, double s);
    double PRANDTLEPS(double p, double s);
    double KPS(double p, double s);
    double XPS(double p, double s);
    // The end state of an adiabatic expansion from (p, T) to p2 with an efficiency
    // (process/expansion.cpp): the enthalpy h2 reached, then the (p,h) dispatch at (p2, h2).
    double HEXPANSIONPTPEFF(double p, double T, double p2, double eff);
    double TEXPANSIONPTPEFF(double p, double T, double p2, double eff);
    double VEXPANSIONPTPEFF(double p, double T, double p2, double eff);
    double UEXPANSIONPTPEFF(double p, double T, double p2, double eff);
    double SEXPANSIONPTPEFF(double p, double T, double p2, double eff);
    double CPEXPANSIONPTPEFF(double p, double T, double p2, double eff);
    double CVEXPANSIONPTPEFF(double p, double T, double p2, double eff);
    double WEXPANSIONPTPEFF(double p, double T, double p2, double eff);
    double THERMCONDEXPANSIONPTPEFF(double p, double T, double p2, double eff);
    double KINVISEXPANSIONPTPEFF(double p, double T, double p2, double eff);
    double DYNVISEXPANSIONPTPEFF(double p, double T, double p2, double eff);
    double PRANDTLEEXPANSIONPTPEFF(double p, double T, double p2, double eff);
    double KEXPANSIONPTPEFF(double p, double T, double p2, double eff);
    double JOULETHOMPSONEXPANSIONPTPEFF(double p, double T, double p2, double eff);
    double XEXPANSIONPTPEFF(double p, double T, double p2, double eff);
    // The same from a start state by (p, T, x).
    double HEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff);
    double TEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff);
    double VEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff);
    double UEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff);
    double SEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff);
    double CPEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff);
    double CVEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff);
    double WEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff);
    double THERMCONDEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff);
    double KINVISEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff);
    double DYNVISEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff);
    double PRANDTLEEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff);
    double KEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff);
    double JOULETHOMPSONEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff);
    double XEXPANSIONPTXPEFF(double p, double T, double x, double p2, double eff);

    // ---- Dispatch on (h,s) (hs_dispatch.cpp) ----
    // The area of a point, 1 to 5, by fixed numbers and boundary fits; a wet state left of the
    // critical entropy is reported as region 1.
    int REGIONHS(double h, double s);
    int WATERSTATEAREAHS(double h, double s);
    double PHS(double h, double s);
    double THS(double h, double s);
    void PTHS(double h, double s, double& p, double& T);
    double VHS(double h, double s);
    double UHS(double h, double s);
    double CPHS(double h, double s);
    double CVHS(double h, double s);
    double WHS(double h, double s);
    double JOULETHOMPSONHS(double h, double s);
    double THERMCONDHS(double h, double s);
    double DYNVISHS(double h, double s);
    double PRANDTLEHS(double h, double s);
    double KINVISHS(double h, double s);
    double KHS(double h, double s);
    double XHS(double h, double s);  // kOutOfRange outside the area 4, whatever the checks

    // ---- Transport and derived properties (transport.cpp, derived.cpp) ----
    double DYNVISRT(double density, double T) const;
    double THERMCONDRT(double density, double T) const;

    // ---- Further water properties and ice (auxiliary.cpp, ice.cpp) ----
    double SURFTENT(double T) const;
    double DCRT(double density, double T) const;
    double PKWRT(double density, double T) const;
    double RIRTL(double density, double T, double wavelength) const;
    double PMELTIT(double T) const;
    double PSUBT(double T) const;

    // ---- Density derivatives (density_derivatives.cpp; the closed forms in the region files) ----
    // DDDPH is (d rho/dp) at constant h, DDDHP (d rho/dh) at constant p. Region 3 has no form:
    // DDDPH3 serves both and ends in kNotImplemented once the state is found.
    double DDDPH1(double p, double T);
    double DDDHP1(double p, double T);
    double DDDPH2(double p, double T);
    double DDDHP2(double p, double T);
    double DDDPH5(double p, double T);
    double DDDHP5(double p, double T);
    [[noreturn]] double DDDPH3(double p, double T);
    double DDDPHTX(double T, double x);
    double DDDHPTX(double T, double x);
    double DDDPHPT(double p, double T);
    double DDDHPPT(double p, double T);
    double DDDPHPTX(double p, double T, double x);
    double DDDHPPTX(double p, double T, double x);
    double DDDPHPH(double p, double h);
    double DDDHPPH(double p, double h);
    double DDDPHSWT(double T);
    double DDDHPSWT(double T);
    double DDDPHSST(double T);
    double DDDHPSST(double T);

    // ---- Metastable steam (process/metastable.cpp) ----
    double VMSPT(double p, double T);
    double UMSPT(double p, double T);
    double SMSPT(double p, double T);
    double HMSPT(double p, double T);
    double CPMSPT(double p, double T);
    double CVMSPT(double p, double T);
    double WMSPT(double p, double T);
    double JOULETHOMPSONMSPT(double p, double T);
    StateProperties VUSHCVWDERPTMSPT(double p, double T);
    double THERMCONDMSPT(double p, double T);
    double DYNVISMSPT(double p, double T);
    double PRANDTLEMSPT(double p, double T);
    double KINVISMSPT(double p, double T);
    double KMSPT(double p, double T);

    const ModelSettings& settings;
    SolvedState& solved;

    // Scratch: powers of the variable that carries the exponents I, and of the one that carries J.
    PowerTable xPowers;
    PowerTable yPowers;

private:
    template <unsigned Wanted>
    GibbsSums region1Sums() const;
    template <unsigned Wanted>
    GibbsPoint region1At(double p, double T);
    template <unsigned Wanted>
    GibbsPoint metastableAt(double p, double T);
};

}  // namespace tvl

#endif
