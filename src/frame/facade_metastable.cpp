// Metastable steam by (p,T). With checks on, every member first tests that (p,T) lies in the
// metastable-vapour area; with them off the equation is evaluated at any (p,T).
#include "frame/property_facade.h"
#include "frame/validators.h"

namespace tvl {

namespace {

double metastable(PropertyFacade& lib, double (WaterModel::*property)(double, double), double p, double T) {
    if (lib.settings.checksOn()) lib.ValidateMetastablePT(p, T);
    return (lib.water.*property)(p, T);
}

}  // namespace

double PropertyFacade::VMSPT(double p, double T) noexcept {
    return run([&] { return metastable(*this, &WaterModel::VMSPT, p, T); });
}
double PropertyFacade::UMSPT(double p, double T) noexcept {
    return run([&] { return metastable(*this, &WaterModel::UMSPT, p, T); });
}
double PropertyFacade::SMSPT(double p, double T) noexcept {
    return run([&] { return metastable(*this, &WaterModel::SMSPT, p, T); });
}
double PropertyFacade::HMSPT(double p, double T) noexcept {
    return run([&] { return metastable(*this, &WaterModel::HMSPT, p, T); });
}
double PropertyFacade::CPMSPT(double p, double T) noexcept {
    return run([&] { return metastable(*this, &WaterModel::CPMSPT, p, T); });
}
double PropertyFacade::CVMSPT(double p, double T) noexcept {
    return run([&] { return metastable(*this, &WaterModel::CVMSPT, p, T); });
}
double PropertyFacade::WMSPT(double p, double T) noexcept {
    return run([&] { return metastable(*this, &WaterModel::WMSPT, p, T); });
}
double PropertyFacade::THERMCONDMSPT(double p, double T) noexcept {
    return run([&] { return metastable(*this, &WaterModel::THERMCONDMSPT, p, T); });
}
double PropertyFacade::DYNVISMSPT(double p, double T) noexcept {
    return run([&] { return metastable(*this, &WaterModel::DYNVISMSPT, p, T); });
}
double PropertyFacade::PRANDTLEMSPT(double p, double T) noexcept {
    return run([&] { return metastable(*this, &WaterModel::PRANDTLEMSPT, p, T); });
}
double PropertyFacade::KINVISMSPT(double p, double T) noexcept {
    return run([&] { return metastable(*this, &WaterModel::KINVISMSPT, p, T); });
}
double PropertyFacade::KMSPT(double p, double T) noexcept {
    return run([&] { return metastable(*this, &WaterModel::KMSPT, p, T); });
}
double PropertyFacade::JOULETHOMPSONMSPT(double p, double T) noexcept {
    return run([&] { return metastable(*this, &WaterModel::JOULETHOMPSONMSPT, p, T); });
}

double PropertyFacade::VUSHCVWDERPTMSPT(double p, double T, const OutputCells& outputs) noexcept {
    return run([&] {
        outputs.requireAll();
        if (checksOn()) ValidateMetastablePT(p, T);
        outputs.write(water.VUSHCVWDERPTMSPT(p, T));
        return 1.0;
    });
}

}  // namespace tvl
