// Blocks of the refined backward exports in lanes: the region exports T1PH, T1PS, P1HS, T2PH,
// T2PS, P2HS, T3PH, T3PS, P3HS, T5PH, T5PS, P5HS, and the dispatching TPH, TPS, PHS, whose points are sorted by the
// plain selection and whose points of each region go through the region's search in lanes
// (wet (p,h) and (p,s) points take the selection's saturation temperature).
#ifndef TAVLIB6X_LANES_SEARCH_BLOCKS_H
#define TAVLIB6X_LANES_SEARCH_BLOCKS_H

#include <cstdint>

#include "frame/model_state.h"
#include "lanes/kernels.h"

namespace tvl {
class PropertyFacade;
}

namespace tvlx::lanes {

// The dispatching exports, after the region searches of enum Search, then region 3's own
// exports T3PH, T3PS, P3HS.
enum DispatchingSearch { kTPH = kSearchCount, kTPS, kPHS };
enum Region3Export { kT3PHExport = kPHS + 1, kT3PSExport, kP3HSExport };

// What a point's code is set to where the plain call must decide.
constexpr int32_t kByPlainCall = -1;

// The settings the plain calls read: those of `facade`, or of the library object.
tvl::ModelSettings searchSettingsOf(const tvl::PropertyFacade* facade);

// value[k] and code[k] for the points (a[k], b[k]), k < count (at most 256), of the export
// `which` (a Search, DispatchingSearch or Region3Export): as the plain call would leave them, or code
// kByPlainCall.
void searchBlock(const KernelSet& set, int which, const tvl::ModelSettings& settings, const double* a, const double* b,
                 double* value, int32_t* code, int count);

}  // namespace tvlx::lanes

#endif
