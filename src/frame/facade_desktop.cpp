// About box and help: both return 1.0 in every ordinary case, also when nothing could be shown;
// only an exhausted memory reaches the caller, as code 1.
#include "desktop/desktop.h"
#include "frame/property_facade.h"

namespace tvl {

double PropertyFacade::SHOWTVLHELP(void* parent) noexcept {
    return run([&] {
        desktop::showHelp(parent);
        return 1.0;
    });
}

double PropertyFacade::SHOWABOUT(void* parent) noexcept {
    return run([&] {
        desktop::showAbout(parent);
        return 1.0;
    });
}

}  // namespace tvl
