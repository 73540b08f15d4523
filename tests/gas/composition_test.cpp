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
    {"N2:50%;O2:0.5", 0, "N2:0.5;O2:0.5;"},
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

}  // namespace
