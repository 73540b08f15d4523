// A private library object per test, with its own gas catalogue, and what the gas tests share.
#ifndef TAVLIB6_TEST_GAS_FIXTURE_H
#define TAVLIB6_TEST_GAS_FIXTURE_H

#include <cstdint>
#include <string>

#include "gas/gas_catalog.h"
#include "support/facade_fixture.h"

namespace gastest {

// Ids of the start-up catalogue.
constexpr std::int32_t kN2 = 0;
constexpr std::int32_t kO2 = 1;
constexpr std::int32_t kCO2 = 3;
constexpr std::int32_t kH2O = 4;
constexpr std::int32_t kAir = 6;
constexpr std::int32_t kAr = 10;
constexpr std::int32_t kH2 = 12;
constexpr std::int32_t kAirMix = 13;
constexpr std::int32_t kN2AirMix = 14;
constexpr std::int32_t kStartUpCount = 15;

class GasTest : public tvltest::FacadeTest {
protected:
    tvl::GasCatalog& gases = library->gases;

    // The last error of the call before, as the exports report it.
    int code() { return lib.lastError; }
    std::string text(const char* result) { return result != nullptr ? std::string(result) : std::string("(null)"); }
    tvl::GasSpecies& species(std::int32_t id) { return gases.speciesWithId(id); }
};

}  // namespace gastest

#endif
