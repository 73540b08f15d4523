// Boundary exports: raw curves in the frame alone, with no range test in any mode.
#include "frame/property_facade.h"

namespace tvl {

double PropertyFacade::P23T(double T) noexcept {
    return run([&] { return water.P23T(T); });
}
double PropertyFacade::T23P(double p) noexcept {
    return run([&] { return water.T23P(p); });
}
double PropertyFacade::P2B2CH(double h) noexcept {
    return run([&] { return water.P2B2CH(h); });
}
double PropertyFacade::H2B2CP(double p) noexcept {
    return run([&] { return water.H2B2CP(p); });
}
double PropertyFacade::HB13S(double s) noexcept {
    return run([&] { return water.HB13S(s); });
}
double PropertyFacade::TB23HS(double h, double s) noexcept {
    return run([&] { return water.TB23HS(h, s); });
}
double PropertyFacade::PB23HS(double h, double s) noexcept {
    return run([&] { return water.PB23HS(h, s); });
}
double PropertyFacade::ROUGHHSWS(double s) noexcept {
    return run([&] { return water.ROUGHHSWS(s); });
}
double PropertyFacade::ROUGHHSSS(double s) noexcept {
    return run([&] { return water.ROUGHHSSS(s); });
}

}  // namespace tvl
