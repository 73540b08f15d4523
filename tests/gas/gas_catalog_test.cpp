// The catalogue: start-up, ids and names, reference counts, user mixtures and their fractions,
// deletion, composition texts, the pruning of the cache, and teardown.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "gas/air_mixtures.h"
#include "gas/composition.h"
#include "gas/gas_constants.h"
#include "gas_fixture.h"

namespace {

using gastest::GasTest;
using tvltest::nearRelative;

TEST_F(GasTest, DeletionRules) {
    const struct {
        std::int32_t id;
        std::int32_t result;
        int code;
    } cases[] = {{13, -1, 2}, {-5, -1, 2}, {-13, -1, 2}, {0, -1, 2}, {12, -1, 2}, {-14, -1, 12},
                 {INT32_MIN, -1, 12}, {INT32_MAX, -1, 12}, {14, 14, 0}, {14, -1, 12}};
    for (auto c : cases) {
        EXPECT_EQ(lib.gDELETEGASID(c.id), c.result) << c.id;
        EXPECT_EQ(code(), c.code) << c.id;
    }
    EXPECT_EQ(lib.gIDNAME("N2AirMix"), -1);
    EXPECT_EQ(code(), 12);
    EXPECT_EQ(lib.gGSID(14), nullptr);
    EXPECT_EQ(code(), 12);
    EXPECT_EQ(lib.gCPGST("N2AirMix", 300.0), -1.0);
    EXPECT_EQ(code(), 12);
}

TEST_F(GasTest, NamesAndTextsAreRegisteredOnce) {
    EXPECT_EQ(lib.gNEWIDNAME("n2"), -1);
    EXPECT_EQ(code(), 12) << "code 12 also means the name is taken";
    EXPECT_EQ(lib.gNEWIDGS("N2"), -1);
    EXPECT_EQ(code(), 12);
    const std::int32_t id = lib.gNEWIDGS("N2:1");
    EXPECT_EQ(code(), 0);
    EXPECT_EQ(lib.gGASESCOUNT(), 16);
    EXPECT_EQ(lib.gNEWIDGS("N2:1"), -1);
    EXPECT_EQ(code(), 12);
    EXPECT_EQ(lib.gNEWIDGS(" n2:1 "), -1) << "the cache finds the same mixture by its trimmed text";
    EXPECT_EQ(code(), 12);
    EXPECT_EQ(lib.gIDNAME("N2:1"), id);
    EXPECT_EQ(species(id).referenceCount, 2) << "the cache and the id map";
    EXPECT_EQ(lib.gNEWIDGS("N2:"), -1);
    EXPECT_EQ(code(), 11);

    const std::int32_t named = lib.gNEWIDNAME("Flue");
    EXPECT_EQ(lib.gIDNAME("FLUE"), named);
    EXPECT_EQ(lib.gNEWIDNAME("flue"), -1);
    EXPECT_EQ(code(), 12);
    EXPECT_EQ(lib.gNEWIDNAME(nullptr), -1);
    EXPECT_EQ(code(), 1);
    EXPECT_EQ(lib.gIDNAME(nullptr), -1);
    EXPECT_EQ(code(), 1);
    EXPECT_EQ(lib.gIDNAME("nothing"), -1);
    EXPECT_EQ(code(), 12);
    EXPECT_EQ(lib.gIDNAME("N2:3;O2:1"), -1) << "a mixture that only the cache holds has no name entry";
    EXPECT_EQ(code(), 12);
}

TEST_F(GasTest, MixingByVolume) {
    const std::int32_t m = lib.gNEWID();
    EXPECT_EQ(lib.gADDGASV(m, gastest::kN2, 1.0), 1);
    EXPECT_EQ(lib.gADDGASV(m, gastest::kO2, 1.0), 2);
    EXPECT_EQ(lib.gVFIDID(m, gastest::kN2), 0.5);
    EXPECT_EQ(lib.gVFIDID(m, gastest::kO2), 0.5);
    EXPECT_DOUBLE_EQ(lib.gMMID(m), 0.0300061);
    EXPECT_TRUE(nearRelative(species(m).mixingEntropy, std::log(2.0), 1e-15));
    EXPECT_EQ(species(gastest::kN2).referenceCount, 4) << "the id map, the two air mixtures and m";
    EXPECT_EQ(text(lib.gGSID(m)), "N2:0.5;O2:0.5;");
    EXPECT_EQ(code(), 0);
}

TEST_F(GasTest, AmountsThatAddNothingOrAreRefused) {
    const std::int32_t m = lib.gNEWID();
    EXPECT_EQ(lib.gADDGASV(m, gastest::kN2, 0.0), 0) << "an amount of 0 changes nothing";
    EXPECT_EQ(lib.gADDGASV(m, m, 1.0), -1);
    EXPECT_EQ(code(), 1) << "a mixture cannot contain itself";
    lib.gADDGASV(m, gastest::kN2, 1.0);
    const double molarMass = lib.gMMID(m);
    EXPECT_EQ(lib.gADDGASV(m, gastest::kO2, -1.0), -1);
    EXPECT_EQ(code(), 2);
    EXPECT_EQ(lib.gADDGASM(m, gastest::kO2, -1.0), -1);
    EXPECT_EQ(code(), 2);
    EXPECT_EQ(lib.gADDGASV(m, gastest::kO2, 0.0), 1);
    EXPECT_EQ(lib.gMMID(m), molarMass);
    EXPECT_EQ(lib.gADDGASV(999, gastest::kO2, 1.0), -1);
    EXPECT_EQ(code(), 12);
    EXPECT_EQ(lib.gADDGASV(m, 999, 1.0), -1);
    EXPECT_EQ(code(), 12);
    EXPECT_EQ(species(m).components.size(), 1u);

    const std::int32_t outer = lib.gNEWID();
    lib.gADDGASV(outer, m, 1.0);
    EXPECT_EQ(lib.gADDGASV(m, outer, 1.0), -1);
    EXPECT_EQ(code(), 1) << "nor anything that contains it";
    EXPECT_EQ(lib.gADDGASV(gastest::kN2, gastest::kAirMix, 1.0), -1);
    EXPECT_EQ(code(), 1);
}

// Mixtures nest without a limit: adding, fractions, the text and the release of the whole
// chain take no recursion as deep as the nesting. The chain is linked from the outside in, so
// that each addition walks one empty mixture, and N2 goes in last, at the bottom.
TEST_F(GasTest, MixturesNestWithoutALimit) {
    std::vector<std::int32_t> chain(30000);
    for (std::int32_t& id : chain) id = lib.gNEWID();
    for (std::size_t level = 0; level + 1 < chain.size(); ++level)
        ASSERT_EQ(lib.gADDGASV(chain[level], chain[level + 1], 1.0), 1) << level;
    ASSERT_EQ(lib.gADDGASV(chain.back(), gastest::kN2, 1.0), 1);
    EXPECT_EQ(lib.gVFIDID(chain.front(), gastest::kN2), 1.0);
    EXPECT_EQ(text(lib.gGSID(chain.front())), "N2:1;");
    EXPECT_EQ(lib.gADDGASV(chain.back(), chain.front(), 1.0), -1) << "it would contain itself";
    EXPECT_EQ(code(), 1);
    EXPECT_EQ(lib.gDELETEGASES(), 13);
}

}  // namespace
