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

TEST_F(GasTest, StartUpCatalogue) {
    EXPECT_EQ(lib.gGASESCOUNT(), gastest::kStartUpCount);
    EXPECT_EQ(lib.gIDNAME("air"), gastest::kAir);
    EXPECT_EQ(lib.gIDNAME("AIRMIX"), gastest::kAirMix);
    EXPECT_EQ(lib.gIDNAME("n2airmix"), gastest::kN2AirMix);
    EXPECT_EQ(lib.gIDNAME("H2"), gastest::kH2);
    EXPECT_EQ(text(lib.gGSID(gastest::kAirMix)), "N2:0.7803;O2:0.2099;CO2:0.0003;Ar:0.0094;H2:0.0001;");
    EXPECT_EQ(text(lib.gGSID(gastest::kN2AirMix)), "N2:0.9876;CO2:0.0004;Ar:0.0119;H2:0.0001;");
    EXPECT_EQ(text(lib.gGSID(gastest::kAir)), "Air");
    EXPECT_EQ(text(lib.gGSGS("airmix")), "N2:0.7803;O2:0.2099;CO2:0.0003;Ar:0.0094;H2:0.0001;");
    EXPECT_EQ(code(), 0);
    EXPECT_EQ(gases.compositionCache.size(), 0u);
    EXPECT_EQ(gases.speciesById.bucketCount(), 23u) << "one rehash after the start-up: 15 elements";
    EXPECT_EQ(gases.speciesByName.bucketCount(), 23u);
}

// The id map holds one reference of each, and each start-up mixture one of its components.
TEST_F(GasTest, StartUpReferenceCounts) {
    for (std::int32_t id = 0; id < gastest::kStartUpCount; ++id) {
        int holders = 1;
        for (const tvl::AirComponent& c : tvl::kAirMix) holders += species(id).name.get() == std::string(c.name);
        for (const tvl::AirComponent& c : tvl::kNitrogenAirMix) holders += species(id).name.get() == std::string(c.name);
        EXPECT_EQ(species(id).referenceCount, holders) << species(id).name.get();
    }
}

TEST_F(GasTest, AirMixFractionsAndConstants) {
    EXPECT_TRUE(nearRelative(lib.gVFIDID(gastest::kAirMix, gastest::kO2), 0.2099, 1e-15));
    EXPECT_EQ(lib.gVFIDID(gastest::kAir, gastest::kO2), 0.0);
    EXPECT_TRUE(nearRelative(lib.gMFIDID(gastest::kAirMix, gastest::kN2), 0.7803 * 0.0280134 / 0.02896431986, 1e-12));
    EXPECT_TRUE(nearRelative(lib.gMMID(gastest::kAirMix), 0.02896431986, 1e-12));
    EXPECT_TRUE(nearRelative(lib.gMMID(gastest::kN2AirMix), 0.02815922054, 1e-12));
    EXPECT_EQ(lib.gVFIDID(gastest::kAirMix, gastest::kAirMix), 1.0);
    EXPECT_EQ(lib.gVFIDID(gastest::kAirMix, 999), -1.0);
    EXPECT_EQ(code(), 12);
    // The mixing term of "AirMix" is the one the row "Air" carries in its entropy reference.
    EXPECT_TRUE(nearRelative(species(gastest::kAirMix).mixingEntropy * tvl::kMolarGasConstant, 4.72660323135, 1e-11));
    EXPECT_TRUE(nearRelative(species(gastest::kN2AirMix).mixingEntropy * tvl::kMolarGasConstant, 0.57457103502, 1e-10));
}

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

TEST_F(GasTest, DeleteAllKeepsOnlyTheRows) {
    const std::int32_t mine = lib.gNEWIDNAME("Mine");
    lib.gADDGASV(mine, gastest::kAirMix, 1.0);
    const std::int32_t registered = lib.gNEWIDGS("N2:1;Ar:1");
    lib.gCPGST("CO2:1;H2O:2", 300.0);
    ASSERT_EQ(lib.gGASESCOUNT(), 17);
    EXPECT_EQ(lib.gDELETEGASES(), 13);
    EXPECT_EQ(lib.gGASESCOUNT(), 13);
    EXPECT_EQ(gases.compositionCache.size(), 0u);
    EXPECT_EQ(gases.speciesByName.size(), 13u);
    for (const char* name : {"AirMix", "N2AirMix", "Mine", "N2:1;Ar:1"}) {
        EXPECT_EQ(lib.gIDNAME(name), -1) << name;
        EXPECT_EQ(code(), 12) << name;
    }
    EXPECT_EQ(lib.gCPIDT(registered, 300.0), -1.0);
    EXPECT_EQ(lib.gCPGST("AirMix", 300.0), -1.0);
    EXPECT_EQ(code(), 12);
    for (std::int32_t id = 0; id < 13; ++id) EXPECT_EQ(species(id).referenceCount, 1) << "only the id map holds the rows";
    EXPECT_EQ(lib.gIDNAME("air"), gastest::kAir);
    EXPECT_EQ(lib.gCPGST("N2:1;Ar:1", 300.0), lib.gCPGST("Ar:1;N2:1", 300.0)) << "texts build afresh";
    EXPECT_EQ(lib.gDELETEGASES(), 13);
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

// Deleting a registered text drops its id and name; the mixture stays in the cache.
TEST_F(GasTest, RegisteredTextLivesOnInTheCache) {
    const std::int32_t id = lib.gNEWIDGS("CO2:1;N2:4");
    tvl::GasSpecies* mixture = &species(id);
    EXPECT_EQ(lib.gDELETEGASID(id), gastest::kStartUpCount);
    EXPECT_EQ(mixture->id, -1);
    EXPECT_EQ(mixture->referenceCount, 1);
    EXPECT_EQ(&tvl::resolveComposition(gases, "CO2:1;N2:4"), mixture);
    const std::int32_t again = lib.gNEWIDGS("CO2:1;N2:4");
    EXPECT_EQ(code(), 0);
    EXPECT_EQ(mixture->id, again);
}

// Ids are opaque: the first candidate is the low half of the record's address.
TEST_F(GasTest, IdsComeFromTheRecordAddressFirst) {
    std::vector<std::int32_t> ids;
    for (int k = 0; k < 50; ++k) {
        const std::int32_t id = lib.gNEWID();
        ASSERT_EQ(code(), 0);
        const auto address = reinterpret_cast<std::uintptr_t>(&species(id));
        EXPECT_EQ(id, static_cast<std::int32_t>(static_cast<std::uint32_t>(address)));
        EXPECT_EQ(species(id).id, id);
        EXPECT_EQ(species(id).name, nullptr);
        ids.push_back(id);
    }
    EXPECT_EQ(lib.gGASESCOUNT(), gastest::kStartUpCount + 50);
    for (std::int32_t id : ids) lib.gDELETEGASID(id);
    EXPECT_EQ(lib.gGASESCOUNT(), gastest::kStartUpCount);
}

// If the stored id of a named species is not a key, the id map is searched for the species.
TEST_F(GasTest, IdOfANameFallsBackToASearch) {
    const std::int32_t id = lib.gNEWIDNAME("Scan");
    species(id).id = 777;
    EXPECT_EQ(lib.gIDNAME("Scan"), id);
    species(id).id = id;
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

TEST_F(GasTest, SameComponentTwiceMergesIntoOneEntry) {
    const std::int32_t m = lib.gNEWID();
    EXPECT_EQ(lib.gADDGASV(m, gastest::kN2, 1.0), 1);
    EXPECT_EQ(lib.gADDGASV(m, gastest::kN2, 2.0), 1);
    EXPECT_EQ(lib.gADDGASV(m, gastest::kCO2, 1.0), 2);
    EXPECT_EQ(lib.gVFIDID(m, gastest::kN2), 0.75);
    EXPECT_EQ(species(gastest::kN2).referenceCount, 4) << "one reference for the merged entry";
    EXPECT_TRUE(nearRelative(lib.gCPIDT(m, 900.0), lib.gCPGST("N2:3;CO2:1", 900.0), 1e-14));
}

// The text parser blends the same way and works the mixing entropy out once at the end: the
// same numbers, to the last bit, as the same steps through the exports.
TEST_F(GasTest, TextAndExportsBuildTheSameMixture) {
    const std::int32_t m = lib.gNEWID();
    lib.gADDGASM(m, gastest::kN2, 0.7);
    lib.gADDGASV(m, gastest::kO2, 0.25);
    lib.gADDGASM(m, gastest::kH2O, 0.05);
    const char* text = "N2:0.7kg;O2:0.25;H2O:50g";
    EXPECT_TRUE(nearRelative(lib.gMFIDID(m, gastest::kN2), 0.7 / species(m).totalMass, 1e-15));
    for (double T : {250.0, 1000.0, 2400.0}) {
        EXPECT_EQ(lib.gCPIDT(m, T), lib.gCPGST(text, T)) << T;
        EXPECT_EQ(lib.gHIDT(m, T), lib.gHGST(text, T)) << T;
        EXPECT_EQ(lib.gSIDT(m, T), lib.gSGST(text, T)) << T;
        EXPECT_EQ(lib.gTIDS(m, 7000.0), lib.gTGSS(text, 7000.0)) << "same rough polynomial";
    }
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

TEST_F(GasTest, FractionsOfAnEmptyMixture) {
    const std::int32_t empty = lib.gNEWID();
    EXPECT_EQ(lib.gVFIDID(empty, empty), 1.0);
    EXPECT_EQ(lib.gMFIDID(empty, empty), 1.0);
    EXPECT_EQ(lib.gVFIDID(empty, gastest::kN2), -1.0);
    EXPECT_EQ(code(), 1);
    EXPECT_EQ(lib.gMFIDID(empty, gastest::kN2), -1.0);
    EXPECT_EQ(code(), 1);
    EXPECT_EQ(lib.gVFIDID(gastest::kN2, gastest::kO2), 0.0) << "a row and another species: 0 / 1";
}

// A component deleted by the caller lives on inside the mixtures that hold it.
TEST_F(GasTest, DeletedComponentLivesOnInsideAMixture) {
    const std::int32_t part = lib.gNEWIDNAME("Part");
    lib.gADDGASV(part, gastest::kN2, 3.0);
    lib.gADDGASV(part, gastest::kCO2, 1.0);
    const std::int32_t whole = lib.gNEWID();
    lib.gADDGASV(whole, part, 1.0);
    lib.gADDGASV(whole, gastest::kO2, 1.0);
    tvl::GasSpecies* partRecord = &species(part);
    EXPECT_EQ(partRecord->referenceCount, 2);
    const double h = lib.gHIDT(whole, 1300.0);
    const std::string flattened = text(lib.gGSID(whole));

    EXPECT_EQ(lib.gDELETEGASID(part), gastest::kStartUpCount + 1);
    EXPECT_EQ(partRecord->id, -1);
    EXPECT_EQ(partRecord->referenceCount, 1);
    EXPECT_EQ(lib.gCPIDT(part, 300.0), -1.0);
    EXPECT_EQ(code(), 12);
    EXPECT_EQ(lib.gIDNAME("Part"), -1);
    EXPECT_EQ(lib.gHIDT(whole, 1300.0), h);
    EXPECT_EQ(text(lib.gGSID(whole)), flattened);
    EXPECT_EQ(lib.gVFIDID(whole, gastest::kN2), 0.375);
    EXPECT_EQ(flattened, "N2:0.375;O2:0.5;CO2:0.125;");
}

// A row passed as a mixture is blended like any other, from its total volume of 1.
TEST_F(GasTest, RowAsAMixture) {
    EXPECT_EQ(lib.gADDGASV(gastest::kAr, gastest::kO2, 1.0), 1);
    EXPECT_EQ(lib.gVFIDID(gastest::kAr, gastest::kO2), 0.5);
    EXPECT_EQ(text(lib.gGSID(gastest::kAr)), "Ar") << "the text of a row is its name";
    EXPECT_DOUBLE_EQ(lib.gMMID(gastest::kAr), (0.039948 + 0.0319988) / 2);
}

// The mixing entropy comes from one walk for all built-in gases; right after each blend it must
// equal -sum x ln x of the fractions that gVFIDID's walk gives, bit for bit, however the
// mixtures nest and share their parts.
TEST_F(GasTest, MixingEntropyIsThatOfTheVolumeFractions) {
    const auto entropyOfFractions = [this](std::int32_t id) {
        double sum = 0.0;
        for (std::int32_t row = 0; row < 13; ++row) {
            const double x = species(id).volumeFraction(species(row));
            if (x != 0.0) sum -= x * std::log(x);
        }
        return sum;
    };
    std::mt19937 rng(5);
    std::vector<std::int32_t> mixtures;
    int blends = 0;
    for (int round = 0; round < 400; ++round) {
        const bool fresh = mixtures.size() < 3 || rng() % 4 == 0;
        if (fresh) mixtures.push_back(lib.gNEWID());
        const std::int32_t into = fresh ? mixtures.back()
                                  : rng() % 8 == 0 ? static_cast<std::int32_t>(rng() % 13)
                                                   : mixtures[rng() % mixtures.size()];
        const std::int32_t component = fresh || rng() % 2 == 0 ? static_cast<std::int32_t>(rng() % 13)
                                                               : mixtures[rng() % mixtures.size()];
        const double amount = (1.0 + rng() % 100) / 7.0;
        // A mixture into itself or into a part of it is refused and changes nothing.
        if ((rng() % 2 == 0 ? lib.gADDGASV(into, component, amount) : lib.gADDGASM(into, component, amount)) == -1)
            continue;
        ++blends;
        const double actual = species(into).mixingEntropy, expected = entropyOfFractions(into);
        ASSERT_EQ(std::memcmp(&actual, &expected, sizeof(double)), 0) << round << ": " << actual << " vs " << expected;
    }
    EXPECT_GT(blends, 300);
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

TEST_F(GasTest, TextResultsBelongToTheirLibraryObject) {
    tvl::PropertyFacade other;
    const char* mine = lib.gGSID(gastest::kAirMix);
    const char* theirs = other.gGSID(gastest::kAir);
    EXPECT_NE(mine, theirs);
    EXPECT_EQ(text(mine), "N2:0.7803;O2:0.2099;CO2:0.0003;Ar:0.0094;H2:0.0001;");
    EXPECT_EQ(text(theirs), "Air");
    EXPECT_EQ(lib.gGSGS("N2:1"), mine) << "the next text call overwrites the same buffer";
    EXPECT_EQ(text(mine), "N2:1;");
    other.gDELETEGASES();
    EXPECT_EQ(lib.gGASESCOUNT(), gastest::kStartUpCount) << "catalogues share nothing";
}

std::string numbered(const char* format, int k) {
    char text[64];
    std::snprintf(text, sizeof text, format, k);
    return text;
}

// 40000 distinct texts: the cache falls back to what the current call needs when it passes
// 32768 entries, and mixtures registered under an id survive through their own reference.
TEST_F(GasTest, CacheIsPrunedPastItsLimit) {
    const std::int32_t registered = lib.gNEWIDGS("N2:1;O2:3");
    const double registeredCp = lib.gCPIDT(registered, 600.0);
    ASSERT_EQ(gases.compositionCache.size(), 1u);
    for (int k = 1; k <= 32766; ++k) lib.gCPGST(numbered("N2:%d;Ar:1", k).c_str(), 300.0);
    ASSERT_EQ(gases.compositionCache.size(), 32767u);
    const double nested = lib.gCPGST("{N2:1;Ne:1}:1;Ar:2", 300.0);
    EXPECT_EQ(code(), 0);
    EXPECT_EQ(gases.compositionCache.size(), 2u) << "the text and its nested part are kept";
    EXPECT_TRUE(gases.compositionCache.contains(std::string_view("N2:1;Ne:1")));
    EXPECT_EQ(lib.gCPGST("{N2:1;Ne:1}:1;Ar:2", 300.0), nested);
    for (int k = 1; k <= 7233; ++k) lib.gHGST(numbered("CO2:%d;H2O:1", k).c_str(), 300.0);
    EXPECT_EQ(gases.compositionCache.size(), 7235u);
    EXPECT_EQ(lib.gCPIDT(registered, 600.0), registeredCp);
    EXPECT_EQ(lib.gIDNAME("N2:1;O2:3"), registered);
    EXPECT_EQ(lib.gCPGST("n2:1;o2:3", 600.0), registeredCp) << "found by its name now";
    EXPECT_EQ(gases.compositionCache.size(), 7235u);
}

// The fraction functions do not prune; tvlgGSGS and tvlgNEWIDGS do.
TEST_F(GasTest, WhoPrunesTheCache) {
    for (int k = 1; k <= 32768; ++k) lib.gMMGS(numbered("O2:%d;Ar:1", k).c_str());
    ASSERT_EQ(gases.compositionCache.size(), 32768u);
    lib.gVFGSGS("O2:1;CO2:1", "O2");
    EXPECT_EQ(gases.compositionCache.size(), 32769u);
    lib.gGSGS("Ar");
    EXPECT_EQ(gases.compositionCache.size(), 0u) << "a row keeps nothing";
    for (int k = 2; k <= 32769; ++k) lib.gMMGS(numbered("O2:%d;Ar:1", k).c_str());
    ASSERT_EQ(gases.compositionCache.size(), 32768u);
    const std::int32_t id = lib.gNEWIDGS("O2:1;Ar:1");
    EXPECT_EQ(code(), 0);
    EXPECT_EQ(gases.compositionCache.size(), 1u);
    EXPECT_EQ(species(id).referenceCount, 2);
}

// Build, register, nest, delete and tear down over and over; the sanitizer build checks that
// no record leaks and none is freed twice.
TEST(GasLifeCycle, CatalogueSurvivesManyBuildAndDeleteCycles) {
    for (int round = 0; round < 20; ++round) {
        auto lib = std::make_unique<tvl::PropertyFacade>();
        std::vector<std::int32_t> ids;
        for (int k = 0; k < 30; ++k) {
            const std::int32_t m = (k % 3 == 0) ? lib->gNEWIDNAME(numbered("Mix%d", k).c_str()) : lib->gNEWID();
            lib->gADDGASV(m, k % 13, 1.0 + k);
            if (!ids.empty()) lib->gADDGASM(m, ids.back(), 0.5);
            lib->gADDGASV(m, gastest::kAirMix, 2.0);
            ids.push_back(m);
            const std::string text = numbered("{N2:%d;O2:1}:1;Mix0:1", k);
            lib->gCPGST(text.c_str(), 500.0);
            if (k % 4 == 0) lib->gNEWIDGS(numbered("H2O:%d;CO2:1", k).c_str());
            if (k % 5 == 4) {
                lib->gDELETEGASID(ids[ids.size() - 2]);
                lib->gDELETEGASID(gastest::kN2AirMix);
            }
            ASSERT_TRUE(lib->gCPIDT(m, 700.0) > 0.0) << round << ", " << k;
        }
        for (std::int32_t id : ids) EXPECT_TRUE(std::isfinite(lib->gSIDT(id, 1200.0)) || lib->lastError == 12);
        if (round % 2 == 0) {
            EXPECT_EQ(lib->gDELETEGASES(), 13);
        }
        if (round % 4 == 0) {
            lib->gNEWIDGS("AirMix:1;N2:1");
            lib->gDELETEGASES();
            lib->gDELETEGASES();
        }
    }
}

}  // namespace
