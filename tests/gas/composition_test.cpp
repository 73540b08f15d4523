// The composition language: every example and edge case of the grammar with the exact code it
// gives, the splitter with its doubled-semicolon overrun, items, units, nesting, and the cache.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "gas/composition.h"
#include "gas_fixture.h"

namespace {

using gastest::GasTest;
using tvltest::nearRelative;

struct TextCase {
    const char* text;
    int code;
    const char* flattened;  // what tvlgGSGS writes, or nullptr where another test looks closer
};

const TextCase kTexts[] = {
    // The examples of the language.
    {"N2", 0, "N2"},
    {"air", 0, "Air"},
    {"N2:79;O2:21", 0, "N2:0.79;O2:0.21;"},
    {"N2:79%;O2:21%", 0, "N2:0.79;O2:0.21;"},
    {"N2:0.7KG;O2:300g", 0, "N2:0.727170376565017;O2:0.272829623434983;"},
    {"{N2:79;O2:21}:0.5;CO2:0.5", 0, "N2:0.395;O2:0.105;CO2:0.5;"},
    {"H2O:1,5;Air:1e1", 0, "H2O:0.130434782608696;Air:0.869565217391304;"},
    // Empty and separator-only texts.
    {"", 11, nullptr},
    {"  ", 11, nullptr},
    {";", 11, nullptr},
    {";;", 11, nullptr},
    {" \t;\r\n", 11, nullptr},
    // Amounts without a number.
    {"N2:", 11, nullptr},
    {"N2:%", 11, nullptr},
    {"N2:KG", 11, nullptr},
    {"N2:g", 11, nullptr},
    {"{N2:1}:", 11, nullptr},
    // Numbers the conversion does not take to their end, or not at all.
    {"N2:1 000", 11, nullptr},
    {"N2:1,000.5", 11, nullptr},
    {"N2:50 %", 11, nullptr},
    {"N2:2e", 11, nullptr},
    {"N2:2e%", 11, nullptr},
    {"N2:--1", 11, nullptr},
    {"N2:1e999", 11, nullptr},
    {"N2:.", 11, nullptr},
    {"N2:nan", 11, nullptr},
    {"N2:inf", 11, nullptr},
    {"N2:0x10", 11, nullptr},
    // Units.
    {"N2:0.7 KG", 11, nullptr},
    {"N2:5 V", 11, nullptr},
    {"N2:1x", 11, nullptr},
    {"N2:1mol", 11, nullptr},
    {"N2:1kg ", 0, "N2:1;"},
    {"N2:79V;O2:21v", 0, "N2:0.79;O2:0.21;"},
    {"N2:1e2%", 0, "N2:1;"},
    {"N2:1m;O2:1M", 0, nullptr},
    {"N2:+1;O2:.5e0;CO2:5.e-1", 0, "N2:0.5;O2:0.25;CO2:0.25;"},
    {"N2: 5;O2: 5", 0, "N2:0.5;O2:0.5;"},
    {"N2 : 1 ; O2 : 1", 0, "N2:0.5;O2:0.5;"},
    // Separators: a trailing one ends the list, a leading one is cut off at the end of the text.
    {"N2:1;", 0, "N2:1;"},
    {";N2:1", 0, "N2:1;"},
    {"N2:1;;O2:1", 0, "N2:0.5;O2:0.5;"},
    {"N2:1;;O2:1;Ar:1", 11, nullptr},
    {"N2:1;O2:1;N2:2", 0, "N2:0.75;O2:0.25;"},
    // Braces.
    {"N2:1;O2:1}", 0, "N2:1;"},
    {"N2:1;{O2:1", 0, "N2:1;"},
    {"}N2:1", 11, nullptr},
    {"{N2", 11, nullptr},
    {"N2:1}", 11, nullptr},
    {"{}", 11, nullptr},
    {"{ }", 11, nullptr},
    {"{;}", 11, nullptr},
    {"{N2}", 0, "N2:1;"},
    {"{N2:1;O2:1}", 0, "N2:0.5;O2:0.5;"},
    {"{N2:1;O2:1}:2;{Ar}:1", 0, "N2:0.333333333333333;O2:0.333333333333333;Ar:0.333333333333333;"},
    {"{N2:1;O2:1}:1;{N2:1;O2:1}:1", 0, "N2:0.5;O2:0.5;"},
    {"{{N2:1;O2:1}:1;Ar:2}:3;H2O:1", 0, "N2:0.125;O2:0.125;H2O:0.25;Ar:0.5;"},
    {"{N2:1}x", 12, nullptr},
    // Names.
    {"Foo", 12, nullptr},
    {"{Foo}", 12, nullptr},
    {"N2:1;Foo:1", 12, nullptr},
    {"{N2:1;Foo}:1", 12, nullptr},
    {":5", 12, nullptr},
    {"N2:1:2", 12, nullptr},
    {"\xD1" "2", 12, nullptr},
    {"Foo:abc", 11, nullptr},
    {"Air:1;AirMix:1", 0, "N2:0.39015;O2:0.10495;CO2:0.00015;Air:0.5;Ar:0.0047;H2:5e-05;"},
    // Amounts of 0 and below.
    {"N2:-1", 2, nullptr},
    {"N2:1;O2:-0.5", 2, nullptr},
    {"N2:0", 0, nullptr},
    {"N2:-0", 0, nullptr},
};

TEST_F(GasTest, CompositionTextsGiveTheirCodes) {
    for (const TextCase& c : kTexts) {
        const char* flattened = lib.gGSGS(c.text);
        EXPECT_EQ(code(), c.code) << "\"" << c.text << "\"";
        if (c.code != 0) {
            EXPECT_EQ(flattened, nullptr) << "\"" << c.text << "\"";
            EXPECT_EQ(lib.gCPGST(c.text, 300.0), -1.0) << "\"" << c.text << "\"";
            EXPECT_EQ(code(), c.code) << "\"" << c.text << "\" by cp";
        } else if (c.flattened != nullptr) {
            EXPECT_EQ(text(flattened), c.flattened) << "\"" << c.text << "\"";
        }
    }
}

TEST_F(GasTest, MassAmountsCountByMolarMass) {
    EXPECT_TRUE(nearRelative(lib.gMFGSGS("N2:1kg;O2:1KG", "N2"), 0.5, 1e-15));
    EXPECT_TRUE(nearRelative(lib.gMFGSGS("N2:1kg;O2:1KG", "O2"), 0.5, 1e-15));
    const double n2 = lib.gVFGSGS("N2:1kg;O2:1KG", "N2"), o2 = lib.gVFGSGS("N2:1kg;O2:1KG", "O2");
    EXPECT_TRUE(nearRelative(n2 / o2, 0.0319988 / 0.0280134, 1e-14));
    EXPECT_EQ(lib.gMFGSGS("N2:1m;O2:1M", "N2"), lib.gMFGSGS("N2:1kg;O2:1KG", "N2"));
    EXPECT_TRUE(nearRelative(lib.gMFGSGS("N2:700g;O2:0.3kg", "N2"), 0.7, 1e-15));
    // A nested mixture weighs with its blended molar mass.
    EXPECT_TRUE(nearRelative(lib.gMFGSGS("{N2:1;O2:1}:1kg;Ar:1kg", "Ar"), 0.5, 1e-15));
    EXPECT_EQ(code(), 0);
}

TEST_F(GasTest, ItemsWithoutAmountCountOneByVolume) {
    EXPECT_EQ(lib.gVFGSGS("N2;O2;Ar;H2", "Ar"), 0.25);
    EXPECT_EQ(lib.gVFGSGS("N2;O2:3", "N2"), 0.25);
}

TEST_F(GasTest, AmountsOfZeroGiveAMixtureWithoutComponents) {
    EXPECT_EQ(lib.gMMGS("N2:0"), 0.0);
    EXPECT_EQ(lib.gCPGST("N2:0;O2:0", 300.0), 0.0);
    EXPECT_EQ(code(), 0);
    EXPECT_EQ(lib.gVFGSGS("N2:0", "N2"), -1.0) << "0/0";
    EXPECT_EQ(code(), 1);
    EXPECT_EQ(lib.gVFGSGS("N2:0", "N2:0"), 1.0);
    EXPECT_EQ(text(lib.gGSGS("N2:0")),
              "N2:nan;O2:nan;CO:nan;CO2:nan;H2O:nan;SO2:nan;Air:nan;N2Air:nan;NO:nan;NO2:nan;Ar:nan;Ne:nan;H2:nan;");
}

TEST_F(GasTest, NullTextIsTheEmptyText) {
    EXPECT_EQ(lib.gCPGST(nullptr, 300.0), -1.0);
    EXPECT_EQ(code(), 11);
    EXPECT_EQ(lib.gGSGS(nullptr), nullptr);
    EXPECT_EQ(code(), 11);
    EXPECT_EQ(lib.gVFGSGS("N2", nullptr), -1.0);
    EXPECT_EQ(code(), 11);
    EXPECT_EQ(lib.gNEWIDGS(nullptr), -1);
    EXPECT_EQ(code(), 11);
}

TEST_F(GasTest, SplitterCountsSkippedSemicolonsTwice) {
    const struct {
        const char* text;
        std::vector<std::string> items;
    } cases[] = {
        {"N2:1;;O2:1;Ar:1", {"N2:1", "O2:1;", "r:1"}},
        {"N2:1;;O2:1", {"N2:1", "O2:1"}},
        {";N2:1", {"N2:1"}},
        {"a;;;b", {"a", "b"}},
        {"a;;;bcdef;g", {"a", "bcdef;g"}},
        {"{a;b};c", {"{a;b}", "c"}},
        {"{a;{b;c}};d", {"{a;{b;c}}", "d"}},
        {"a;b}", {"a"}},
        {"a}", {}},
        {"}a{", {"}a{"}},
        {"", {}},
        {";;;", {}},
        {"N2:1;", {"N2:1"}},
    };
    for (const auto& c : cases) {
        std::vector<std::string> items;
        std::ptrdiff_t position = 0;
        for (std::string_view item = tvl::nextItem(c.text, position); position != -1;
             item = tvl::nextItem(c.text, position))
            items.emplace_back(item);
        EXPECT_EQ(items, c.items) << "\"" << c.text << "\"";
    }
}

TEST_F(GasTest, ItemsGiveSpeciesAndBothAmounts) {
    const tvl::CompositionItem byMass = tvl::parseItem(gases, " N2 : 2g ");
    EXPECT_EQ(byMass.species, &species(gastest::kN2));
    EXPECT_EQ(byMass.mass, 0.002);
    EXPECT_EQ(byMass.volume, 0.002 / 0.0280134);
    const tvl::CompositionItem plain = tvl::parseItem(gases, "O2");
    EXPECT_EQ(plain.volume, 1.0);
    EXPECT_EQ(plain.mass, 0.0319988);
    const tvl::CompositionItem percent = tvl::parseItem(gases, "{Ar}:50%");
    EXPECT_EQ(percent.species, &species(gastest::kAr)) << "{Ar} resolves to the row itself";
    EXPECT_EQ(percent.volume, 0.5);
    const tvl::CompositionItem nested = tvl::parseItem(gases, "{N2:1;O2:1}");
    EXPECT_EQ(nested.volume, 1.0) << "a ':' inside braces belongs to the nested text";
    EXPECT_DOUBLE_EQ(nested.species->molarMass, 0.0300061);
}

TEST_F(GasTest, NumbersOfTheLanguage) {
    EXPECT_EQ(tvl::parseAmountNumber("1,5"), 1.5);
    EXPECT_EQ(tvl::parseAmountNumber("  2.5e-3"), 2.5e-3);
    EXPECT_EQ(tvl::parseAmountNumber("+7"), 7.0);
    for (const char* bad : {"", " ", "1 ", "1.2.3", "e5", "1e400", "-1e400", "1e", "+-1"}) {
        EXPECT_THROW(tvl::parseAmountNumber(bad), int) << "\"" << bad << "\"";
    }
}

// Braces nest as deep as memory allows (every level is cached under its own text); only
// unbalanced braces fail, and only in the first item: a later one is dropped.
TEST_F(GasTest, BracesNestWithoutALimit) {
    const auto nested = [](int levels, const char* inner) {
        return std::string(levels, '{') + inner + std::string(levels, '}');
    };
    EXPECT_EQ(text(lib.gGSGS(nested(1000, "N2:1;O2:1").c_str())), "N2:0.5;O2:0.5;");
    EXPECT_EQ(text(lib.gGSGS(("N2:1;" + std::string(150, '{')).c_str())), "N2:1;");
    EXPECT_EQ(text(lib.gGSGS(("N2:1;" + std::string(100000, '{')).c_str())), "N2:1;");
    EXPECT_EQ(lib.gGSGS(std::string(100000, '{').c_str()), nullptr);
    EXPECT_EQ(code(), 11);
}

TEST_F(GasTest, LongTextsParseInOnePass) {
    std::string text;
    for (int k = 0; k < 100000; ++k) text += (k % 2 ? "O2:1;" : "N2:1;");
    EXPECT_EQ(lib.gVFGSGS(text.c_str(), "O2"), 0.5);
    std::string nested;
    for (int k = 1; k <= 3000; ++k) nested += "{N2:" + std::to_string(k) + ";Ar:1}:1;";
    EXPECT_TRUE(std::isfinite(lib.gSGST(nested.c_str(), 500.0)));
    EXPECT_EQ(code(), 0);
}

// The cache key is the trimmed text as it stands; case does not count.
TEST_F(GasTest, CacheKeepsOneMixturePerText) {
    const auto cached = [&] { return gases.compositionCache.size(); };
    EXPECT_EQ(cached(), 0u);
    lib.gCPGST("N2:50;O2:50", 300.0);
    lib.gCPGST("N2:1;O2:1", 300.0);
    EXPECT_EQ(cached(), 2u);
    EXPECT_EQ(lib.gCPGST("N2:50;O2:50", 700.0), lib.gCPGST("N2:1;O2:1", 700.0));
    lib.gCPGST("n2:1;o2:1", 300.0);
    lib.gCPGST(" \tN2:1;O2:1\n", 300.0);
    EXPECT_EQ(cached(), 2u);
    lib.gCPGST("N2:1; O2:1", 300.0);
    EXPECT_EQ(cached(), 3u);
    lib.gCPGST(" n2 ", 300.0);
    lib.gCPGST("{n2}", 300.0);
    EXPECT_EQ(cached(), 4u) << "a plain name never reaches the cache; a braced one is a mixture";
    lib.gCPGST("{N2:3;O2:1}:2;CO2:1", 300.0);
    EXPECT_EQ(cached(), 6u) << "the nested text is cached by itself";
    EXPECT_TRUE(gases.compositionCache.contains(std::string_view("N2:3;O2:1")));
    lib.gCPGST("{N2:4;O2:1}:1;Foo:1", 300.0);
    EXPECT_EQ(code(), 12);
    EXPECT_EQ(cached(), 7u) << "a nested mixture finished before the failure stays";
    EXPECT_FALSE(gases.compositionCache.contains(std::string_view("{N2:4;O2:1}:1;Foo:1")));
    const tvl::GasSpecies& mixture = tvl::resolveComposition(gases, "N2:1;O2:1");
    EXPECT_STREQ(mixture.name.get(), "N2:1;O2:1");
    EXPECT_EQ(mixture.id, 0) << "a cached mixture has no id";
    EXPECT_EQ(mixture.referenceCount, 1);
}

// A cached text stays bound to what it was built from, and a deleted name is gone for new texts.
TEST_F(GasTest, CachedTextOutlivesADeletedName) {
    const std::int32_t mine = lib.gNEWIDNAME("Mine");
    lib.gADDGASV(mine, gastest::kN2, 1.0);
    lib.gADDGASV(mine, gastest::kCO2, 1.0);
    const double before = lib.gHGST("Mine:1;O2:1", 900.0);
    EXPECT_EQ(lib.gDELETEGASID(mine), gastest::kStartUpCount);
    EXPECT_EQ(lib.gHGST("Mine:1;O2:1", 900.0), before);
    EXPECT_EQ(lib.gHGST("Mine:2;O2:1", 900.0), -1.0);
    EXPECT_EQ(code(), 12);
}

// A name with a ":" is found when it is the whole text; inside a list it is cut at its last ":".
TEST_F(GasTest, NameWithAColon) {
    const std::int32_t id = lib.gNEWIDNAME("my:gas");
    lib.gADDGASV(id, gastest::kAr, 1.0);
    EXPECT_EQ(lib.gCPGST("my:gas", 300.0), lib.gCPIDT(gastest::kAr, 300.0));
    EXPECT_EQ(lib.gCPGST("my:gas;N2:1", 300.0), -1.0);
    EXPECT_EQ(code(), 11) << "the amount \"gas\" has no number";
    EXPECT_EQ(lib.gVFGSGS("my:gas:1;N2:1", "Ar"), 0.5);
    EXPECT_EQ(code(), 0);
}

// Texts of the grammar's characters in random order: every one ends in a code or a value.
TEST_F(GasTest, RandomTextsNeverFailWithoutACode) {
    const std::string pieces[] = {"N2", "o2", "Ar", "AirMix", "{", "}", ";", ";;", ":", "1", "0", "2.5", ",", "e",
                                  "-", "+", "%", "kg", "G", "V", " ", "\t", "Foo", "1e308", "H2O", "."};
    std::mt19937 random(5);
    std::uniform_int_distribution<int> pick(0, static_cast<int>(std::size(pieces)) - 1);
    std::uniform_int_distribution<int> length(0, 14);
    for (int k = 0; k < 20000; ++k) {
        std::string text;
        for (int n = length(random); n > 0; --n) text += pieces[pick(random)];
        const double cp = lib.gCPGST(text.c_str(), 500.0);
        const int c = code();
        ASSERT_TRUE(c == 0 || c == 1 || c == 2 || c == 11 || c == 12) << "\"" << text << "\": " << c;
        ASSERT_TRUE(c != 0 || std::isfinite(cp)) << "\"" << text << "\"";
        ASSERT_TRUE(c == 0 || cp == -1.0) << "\"" << text << "\"";
    }
}

}  // namespace
