// States for the (p,h) and (p,s) tests: a dense (p,T) grid over every region of the formulation,
// and the wet states of the saturation dome.
//
// Where two regions meet, their equations disagree by up to some tens of J/kg in h and some
// hundredths of J/(kg K) in s (the consistency of IF97 at its boundaries). A (p,T) point a few
// millikelvin on one side of such a boundary can therefore have the h or s of the other region,
// where the (p,h) and (p,s) selections rightly put it. The grid keeps off these bands, measured
// over the whole boundary with a margin of two or three:
//   region 1/3 at 623.15 K: under 5 mK, kept 0.02 K off;
//   region 2/5 at 1073.15 K: under 60 mK, kept 0.2 K off;
//   region 2/3 on the B23 line: under 20 mK, kept 0.05 K off;
//   the saturation line: within a relative tolerance of it the (p,T) selection says steam and
//   the (p,h) one may say wet; kept 1e-6 K off, and probed on its own.
#ifndef TAVLIB6_TEST_PH_PS_STATES_H
#define TAVLIB6_TEST_PH_PS_STATES_H

#include <cmath>
#include <ostream>
#include <vector>

#include "frame/property_facade.h"
#include "water/formulation/constants.h"

namespace tvltest {

struct GridState {
    double p;
    double T;
    int region;  // the (p,T) selection
};

inline std::ostream& operator<<(std::ostream& out, const GridState& s) {
    return out << "p=" << s.p << " T=" << s.T << " (region " << s.region << ")";
}

inline bool nearARegionBoundary(tvl::WaterModel& water, double p, double T) {
    if (std::fabs(T - tvl::kRegion25Temperature) < 0.2) return true;
    if (p > tvl::kP623 && std::fabs(T - tvl::kRegion13Temperature) < 0.02) return true;
    if (p > tvl::kP623 && T < tvl::kB23UpperTemperature + 0.05 && std::fabs(T - water.T23P(p)) < 0.05) return true;
    if (p >= tvl::kIcePointSaturationPressure && p <= tvl::kCriticalPressure && std::fabs(T - water.TSP(p)) < 1e-6)
        return true;
    return false;
}

// pressures spaced by logarithm from 10 Pa to 100 MPa with the band limits of the selections
// added, temperatures every 2.5 K from 273.15 K to 2273.15 K with the boundaries added; kept
// where ValidatePT passes and off the boundary bands.
inline std::vector<GridState> onePhaseGrid(tvl::PropertyFacade& lib, int pressures = 120) {
    std::vector<double> ps = {611.2126774443452, tvl::kP623, 22064000.0, 5e7, 1e8};
    for (int i = 0; i < pressures; ++i) ps.push_back(10.0 * std::pow(1e7, i / (pressures - 1.0)));
    std::vector<double> Ts = {623.15, 647.096, 863.15, 1073.15};
    for (double T = 273.15; T <= 2273.15; T += 2.5) Ts.push_back(T);
    std::vector<GridState> states;
    for (double p : ps)
        for (double T : Ts) {
            if (T > tvl::kRegion25Temperature && p > tvl::kRegion5HighestPressure) continue;
            if (nearARegionBoundary(lib.water, p, T)) continue;
            states.push_back({p, T, lib.water.WATERSTATEAREA2(p, T)});
        }
    return states;
}

struct WetState {
    double p;
    double Ts;
    double x;
};

inline std::ostream& operator<<(std::ostream& out, const WetState& s) {
    return out << "p=" << s.p << " x=" << s.x;
}

// Inside the dome, from the lowest saturation pressure to a relative 1e-6 under the critical
// pressure. Closer to it the two saturated densities that the search finds no longer separate
// reliably, and a state there may be taken for region 3.
//
// The dryness fractions keep 1e-4 off the ends. Where the saturation temperature lies above
// 623.15 K, at P623 already by rounding, the saturated states come from region 3 while the
// selection's tests on the way can use region 1 or 2 at the boundary: their disagreement, some
// tens of J/kg, makes a state within about 4e-5 of x = 0 or 1 one-phase there.
inline std::vector<WetState> wetStates(tvl::PropertyFacade& lib) {
    std::vector<double> ps = {611.2126774443452, tvl::kP623, std::nextafter(tvl::kP623, 0.0), 22064000.0 * (1 - 1e-6)};
    for (int i = 0; i < 80; ++i) ps.push_back(611.2126774443452 * std::pow(22064000.0 * (1 - 1e-6) / 611.2126774443452, i / 79.0));
    std::vector<WetState> states;
    for (double p : ps)
        for (double x : {1e-4, 0.01, 0.1, 0.25, 0.5, 0.75, 0.9, 0.99, 0.9999})
            states.push_back({p, lib.water.TSP(p), x});
    return states;
}

// Wet states a hair off the saturation lines, where regions 1 and 2 give the saturated states
// and the selection tests the same equations.
inline std::vector<WetState> wetStatesAtTheEnds(tvl::PropertyFacade& lib) {
    std::vector<WetState> states;
    for (double p : {611.2126774443452, 1e3, 1e4, 1e5, 1e6, 5e6, 1e7, 1.5e7, 1.65e7})
        for (double x : {1e-9, 1e-12, 1 - 1e-9, 1 - 1e-12}) states.push_back({p, lib.water.TSP(p), x});
    return states;
}

}  // namespace tvltest

#endif
