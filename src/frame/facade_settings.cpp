// Settings and service exports. A set-function stores its value without a test; a NaN
// tolerance is stored and then reported by the frame's finiteness test.
#include <cstdint>
#include <new>

#include "frame/internal_object.h"
#include "frame/property_facade.h"

namespace tvl {

namespace {

constexpr double kLibraryVersion = 6.5;
constexpr double kMolarGasConstant = 8.314472;  // J/(mol K), the one the gases use

}  // namespace

double PropertyFacade::SETTOLERANCE(double v) noexcept {
    return run([&] { return settings.tolerance = v; });
}

double PropertyFacade::GETTOLERANCE() noexcept {
    return run([&] { return settings.tolerance; });
}

std::int32_t PropertyFacade::SETTOLERANCEMODE(std::int32_t v) noexcept {
    return runInteger([&] { return settings.toleranceMode = v; });
}

std::int32_t PropertyFacade::GETTOLERANCEMODE() noexcept {
    return runInteger([&] { return settings.toleranceMode; });
}

std::int32_t PropertyFacade::SETCHECKRANGEMODE(std::int32_t v) noexcept {
    return runInteger([&] { return settings.checkRangeMode = v; });
}

std::int32_t PropertyFacade::GETCHECKRANGEMODE() noexcept {
    return runInteger([&] { return settings.checkRangeMode; });
}

std::int32_t PropertyFacade::SETMAXITERATION(std::int32_t v) noexcept {
    return runInteger([&] { return settings.maxIterations = v; });
}

std::int32_t PropertyFacade::GETMAXITERATION() noexcept {
    return runInteger([&] { return settings.maxIterations; });
}

// The eight settings of earlier versions: nothing stores them any more.
namespace {

double notImplemented() { throw kNotImplemented; }

}  // namespace

double PropertyFacade::SETDELTATS(double) noexcept { return run(notImplemented); }
double PropertyFacade::GETDELTATS() noexcept { return run(notImplemented); }
double PropertyFacade::SETDELTAPRESSURE(double) noexcept { return run(notImplemented); }
double PropertyFacade::GETDELTAPRESSURE() noexcept { return run(notImplemented); }
double PropertyFacade::SETINITWATERDENSITY(double) noexcept { return run(notImplemented); }
double PropertyFacade::GETINITWATERDENSITY() noexcept { return run(notImplemented); }
double PropertyFacade::SETINITSTEAMDENSITY(double) noexcept { return run(notImplemented); }
double PropertyFacade::GETINITSTEAMDENSITY() noexcept { return run(notImplemented); }

double PropertyFacade::GETTVLVERSION() noexcept {
    return run([] { return kLibraryVersion; });
}

double PropertyFacade::GETABSOLUTEGASCONSTANT() noexcept {
    return run([] { return kMolarGasConstant; });
}

// The result holds only the low 32 bits of the object's address: that truncation is the
// export's, and a host that needs the whole pointer must use a 32-bit process.
std::int32_t PropertyFacade::GETINTERNALOBJECT() noexcept {
    return runInteger([] {
        auto* object = new (std::nothrow) tvlInternalObject;
        return static_cast<std::int32_t>(static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(object)));
    });
}

}  // namespace tvl
