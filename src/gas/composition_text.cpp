// The text of a species in the library's own form: the built-in gases in the order of their
// ids, each with its volume fraction, as in "N2:0.7803;O2:0.2099;CO2:0.0003;Ar:0.0094;H2:0.0001;".
// Nested mixtures are flattened onto the 13 rows; "Air" and "N2Air" count as rows.
#include <cmath>
#include <cstdio>
#include <cstring>
#include <string>

#include "frame/error_codes.h"
#include "gas/gas_catalog.h"
#include "gas/gas_text.h"

namespace tvl {

namespace {

// 15 significant digits, trailing zeros dropped, exponent form only where the number needs it:
// what the classic gcvt writes. The point is "." whatever locale the host set.
void appendFraction(std::string& text, double x) {
    if (std::isnan(x)) {
        text += "nan";
        return;
    }
    char digits[40];
    std::snprintf(digits, sizeof digits, "%.15g", x);
    const char point = hostDecimalPoint();
    for (char* c = digits; *c != '\0'; ++c)
        if (*c == point) *c = '.';
    text += digits;
}

}  // namespace

const char* GasCatalog::compositionToText(const GasSpecies& species) {
    std::string text;
    for (std::int32_t id = 0; id < kBuiltInGasCount; ++id) {
        const GasSpecies& row = speciesWithId(id);
        const char* rowName = row.name != nullptr ? row.name.get() : "";
        if (&row == &species) {
            text = rowName;
            break;
        }
        const double x = species.volumeFraction(row);
        if (x == 0.0) continue;
        text += rowName;
        text += ':';
        appendFraction(text, x);
        text += ';';
    }
    if (text.size() >= kCompositionTextLimit) throw kOutOfMemory;
    std::memcpy(textBuffer, text.c_str(), text.size() + 1);
    return textBuffer;
}

const char* GasCatalog::GSID(std::int32_t id) { return compositionToText(speciesWithId(id)); }

const char* GasCatalog::GSGS(const char* gs) { return compositionToText(speciesOfText(gs)); }

}  // namespace tvl
