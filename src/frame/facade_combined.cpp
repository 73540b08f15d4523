// Combined calls: fourteen outputs of one state from one evaluation.
#include "frame/property_facade.h"

namespace tvl {

double PropertyFacade::VUSHCVWDERPTPT(double p, double T, const OutputCells& outputs) noexcept {
    return run([&] {
        outputs.requireAll();
        if (checksOn()) ValidatePT(p, T);
        outputs.write(water.VUSHCVWDERPTPT(p, T));
        return 1.0;
    });
}

}  // namespace tvl
