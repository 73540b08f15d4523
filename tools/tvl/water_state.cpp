// tvl state's solver: the batch library's tvlxSTATE, which finds wet states as wet by every pair.
#include "water_state.h"

#include <cmath>

#include "tavlib6.h"
#include "tavlib6x.h"

namespace tvlcli {

bool findWaterState(const std::string& pair, double first, double second, WaterState& state, std::string& error) {
    double values[TVLX_STATE_COUNT];
    int32_t codes[TVLX_STATE_COUNT];
    const int32_t code = tvlxSTATE(pair.c_str(), first, second, values, codes);
    if (code != 0) {
        const char* text = tvlGETLASTERRORDESCRIPTION();
        error = "no state there: error " + std::to_string(code) + ": " + (text != nullptr ? text : "");
        return false;
    }
    const auto value = [&](int k) { return codes[k] == 0 ? values[k] : std::nan(""); };
    state = {value(TVLX_P),   value(TVLX_T),  value(TVLX_X),  static_cast<int>(values[TVLX_REGION]),
             static_cast<int>(values[TVLX_PHASE]), value(TVLX_V), value(TVLX_H), value(TVLX_U), value(TVLX_S),
             value(TVLX_CP),  value(TVLX_CV), value(TVLX_W),  value(TVLX_ETA), value(TVLX_LAMBDA)};
    return true;
}

}  // namespace tvlcli
