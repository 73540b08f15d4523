// PropertyFacade: the library object behind the exports. Each method is the call frame of the
// export of its name: it clears the error state, validates the arguments while checkRangeMode
// is on, calls the model, validates the state point that a search settled on, and turns a
// non-finite result or a thrown code into lastError and the failure value. It is the only
// place that catches anything.
#ifndef TAVLIB6_PROPERTY_FACADE_H
#define TAVLIB6_PROPERTY_FACADE_H

#include <cmath>
#include <cstdint>
#include <type_traits>

#include "frame/error_codes.h"
#include "frame/float_environment_guard.h"
#include "frame/model_state.h"
#include "frame/state_properties.h"
#include "gas/gas_catalog.h"
#include "tavlib6.h"
#include "water/formulation/water_model.h"

namespace tvl {

class PropertyFacade {
public:
    PropertyFacade();
    PropertyFacade(const PropertyFacade&) = delete;
    PropertyFacade& operator=(const PropertyFacade&) = delete;

#include "frame/facade_methods.inc"

    // Range validation of the (p,T), (p,s) and metastable families (validators.cpp); each throws
    // kOutOfRange.
    void ValidatePT(double p, double T);
    void ValidatePTResult(double p, double T);
    void ValidatePS(double p, double s);
    // The metastable-vapour area, up to but not including 10 MPa.
    void ValidateMetastablePT(double p, double T);

    std::int32_t lastError = kNoError;
    ModelSettings settings;
    std::int32_t reserved = 0;  // written at construction only; read by tvlgGETCALCDISSMODE
    char descriptionBuffer[256] = {};
    tvlWideChar descriptionBufferW[256] = {};
    SolvedState solved;
    WaterModel water;
    GasCatalog gases;

private:
    // Construction (the gas catalogue's arithmetic) under the guard that the argument holds.
    explicit PropertyFacade(const FloatEnvironmentGuard&);

    // The frame of a call. Body runs the checks and the model and returns the result; Result is
    // double, int32_t or a text pointer, whose failure values are -1.0, -1 and nullptr. The
    // whole call runs under the library's own floating-point environment.
    template <class Result, class Body>
    Result frame(Body&& body) noexcept {
        const FloatEnvironmentGuard guard;
        solved.clear();
        lastError = kNoError;
        try {
            const Result result = body();
            if (!isFinite(result)) {
                lastError = kBadParameters;
                return failureValue<Result>();
            }
            return result;
        } catch (int code) {
            recordThrownCode(code);
        } catch (...) {
            if (lastError == kNoError) lastError = kBadParameters;
        }
        return failureValue<Result>();
    }

    template <class Body>
    double run(Body&& body) noexcept {
        return frame<double>(static_cast<Body&&>(body));
    }
    template <class Body>
    std::int32_t runInteger(Body&& body) noexcept {
        return frame<std::int32_t>(static_cast<Body&&>(body));
    }
    template <class Body>
    const char* runText(Body&& body) noexcept {
        return frame<const char*>(static_cast<Body&&>(body));
    }

    // A thrown code is stored unless an earlier code of the same call stands; an integer
    // outside 1 to 12 leaves no error although the call fails.
    void recordThrownCode(int code) {
        if (lastError == kNoError && code != 0) lastError = (code >= 1 && code <= 12) ? code : kNoError;
    }

    static bool isFinite(double value) { return std::isfinite(value); }
    static bool isFinite(std::int32_t) { return true; }
    static bool isFinite(const char*) { return true; }

    template <class Result>
    static Result failureValue() {
        if constexpr (std::is_same_v<Result, double>) return -1.0;
        else if constexpr (std::is_same_v<Result, std::int32_t>) return -1;
        else return nullptr;
    }

    bool checksOn() const { return settings.checksOn(); }

};

// The one object that the exports act on, built by the library's one dynamic initialiser and
// destroyed at unload.
extern PropertyFacade theGlobalFacade;
inline PropertyFacade& globalFacade() { return theGlobalFacade; }

}  // namespace tvl

#endif
