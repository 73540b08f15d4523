// The areas of the library's fitted region 3 volume, RoughV3PT: which area a (p, T) point
// falls in, and the fit of one area, so that the split can be looked at on its own.
#ifndef TAVLIB6_REGION3_FIT_H
#define TAVLIB6_REGION3_FIT_H

namespace tvl {

class WaterModel;

enum class RoughV3Area { A, B, C, D, E, F, G };

// The area of (p, T); reads the saturation line below the critical pressure.
RoughV3Area roughV3Area(const WaterModel& water, double p, double T);

// The fitted specific volume of one area, m3/kg, at any (p, T).
double roughV3InArea(RoughV3Area area, double p, double T);

}  // namespace tvl

#endif
