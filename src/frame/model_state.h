// The settings that steer the models and the state point a search settled on. Both are fields
// of PropertyFacade; the models reach them through pointers and read them at the moment of use.
#ifndef TAVLIB6_MODEL_STATE_H
#define TAVLIB6_MODEL_STATE_H

#include <cstdint>

namespace tvl {

struct ModelSettings {
    std::int32_t maxIterations = 100;
    double tolerance = 2e-12;
    std::int32_t checkRangeMode = 1;
    std::int32_t toleranceMode = 1;

    bool checksOn() const { return checkRangeMode != 0; }
    bool refining() const { return toleranceMode != 0; }
    // TemperatureMargin: the relative margin of the region tests, read afresh on every call.
    double margin() const { return 1.0 + tolerance; }
};

// What a backward function found, for the frame to validate after the model returns. The
// frame clears the flags on entry to every call; nothing outlives the call.
struct SolvedState {
    double solvedTemperature = 0.0;
    double solvedPressure = 0.0;
    std::int32_t temperatureSolved = 0;
    std::int32_t pressureSolved = 0;

    void clear() {
        temperatureSolved = 0;
        pressureSolved = 0;
    }
    void PublishTemperature(double T) {
        solvedTemperature = T;
        temperatureSolved = 1;
    }
    void PublishPressure(double p) {
        solvedPressure = p;
        pressureSolved = 1;
    }
};

}  // namespace tvl

#endif
