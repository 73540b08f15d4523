// States of region 3 for the round trips: 623.15 K up to the B23 line, pressures from the B23
// (or saturation) pressure up to 100 MPa, kept half a megapascal off the saturation line, where
// two densities compete for one (p, T).
#ifndef TAVLIB6_TEST_REGION3_STATES_H
#define TAVLIB6_TEST_REGION3_STATES_H

#include <cmath>
#include <ostream>
#include <vector>

#include "water/formulation/water_model.h"

namespace tvltest {

struct Region3State {
    double p;
    double T;
    double rho;  // from the refined (p,T) density
};

inline std::ostream& operator<<(std::ostream& out, const Region3State& s) {
    return out << "p=" << s.p << " T=" << s.T << " rho=" << s.rho;
}

inline std::vector<Region3State> region3States(tvl::WaterModel& water) {
    std::vector<Region3State> states;
    for (double T : {623.15, 630.0, 640.0, 645.0, 650.0, 660.0, 680.0, 700.0, 725.0, 750.0, 775.0, 800.0, 830.0, 860.0}) {
        for (double pMPa : {17.0, 18.0, 19.0, 20.0, 21.0, 22.0, 23.0, 25.0, 30.0, 35.0, 40.0, 50.0, 60.0, 70.0, 80.0, 90.0, 100.0}) {
            const double p = pMPa * 1e6;
            if (p < water.P23T(T)) continue;
            if (T < 647.096 && std::fabs(p - water.PST(T)) < 0.5e6) continue;
            states.push_back({p, T, water.R3PT(p, T)});
        }
    }
    return states;
}

}  // namespace tvltest

#endif
