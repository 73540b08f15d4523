// One state of water and steam with every property tvl state prints, found from any pair of
// p, T, h, s, x by the batch library's state solver (water_state.cpp).
#ifndef TVL_WATER_STATE_H
#define TVL_WATER_STATE_H

#include <string>

namespace tvlcli {

struct WaterState {
    double p, T, x;  // x is NaN outside the wet area
    int region;      // 1, 2, 3, 5, or 4 for the wet area
    int phase;       // 1 liquid, 2 vapour, 3 supercritical, 4 wet mixture
    double v, h, u, s, cp, cv, w, eta, lambda;  // SI; NaN where the state has no value
};

// pair is one of "pT", "ph", "ps", "hs", "Tx", "px", with first and second in that order, SI.
// False with a message in error when the library has no such state.
bool findWaterState(const std::string& pair, double first, double second, WaterState& state, std::string& error);

}  // namespace tvlcli

#endif
