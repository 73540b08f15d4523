// Composition texts: splitting, items, amounts and units, and the building of a mixture.
#include "gas/composition.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>

#include "frame/error_codes.h"
#include "gas/gas_catalog.h"
#include "gas/gas_text.h"

namespace tvl {

namespace {

// What a number may hold. "0" stands twice, as the library has always had it.
constexpr std::string_view kNumberCharacters = "01234567890., eE-+";

constexpr double kPercent = 0.01;
constexpr double kGram = 0.001;

}  // namespace

std::string_view nextItem(std::string_view text, std::ptrdiff_t& position) {
    const std::ptrdiff_t end = static_cast<std::ptrdiff_t>(text.size());
    if (position < 0 || position >= end) {
        position = -1;
        return {};
    }
    const std::ptrdiff_t start = position;
    std::ptrdiff_t skip = 0;
    while (start + skip < end && text[start + skip] == ';') ++skip;
    if (start + skip >= end) {
        position = -1;
        return {};
    }
    std::ptrdiff_t stop = start + skip;
    std::ptrdiff_t depth = 0;
    for (; stop < end; ++stop) {
        const char c = text[stop];
        if (c == ';' && depth == 0) break;
        if (c == '{') ++depth;
        else if (c == '}') --depth;
    }
    if (stop == end && depth != 0) {
        position = -1;
        return {};
    }
    const std::ptrdiff_t length = stop - start;  // the skipped semicolons included
    position = start + skip + length + 1;
    return text.substr(static_cast<std::size_t>(start + skip), static_cast<std::size_t>(length));
}

// strtod on a copy. The text's point is always "."; where the host set a locale with another
// decimal point, the copy gets that one, so the text means the same everywhere.
double parseAmountNumber(std::string_view number) {
    if (number.empty()) throw kSyntaxError;
    std::string copy(number);
    const char point = hostDecimalPoint();
    for (char& c : copy) {
        if (c == ',' || c == '.') c = point;
    }
    char* stop = nullptr;
    const double value = std::strtod(copy.c_str(), &stop);
    if (stop != copy.c_str() + copy.size() || !std::isfinite(value)) throw kSyntaxError;
    return value;
}

CompositionItem parseItem(GasCatalog& catalog, std::string_view rawItem, int nesting) {
    const std::string_view item = trimmed(rawItem);
    double volume = 0.0;
    double mass = 0.0;
    bool byMass = false;
    std::string_view namePart = item;

    // A ":" inside braces belongs to the nested text, not to this item.
    const std::size_t colon = item.rfind(':');
    const std::size_t brace = item.rfind('}');
    if (colon == std::string_view::npos || (brace != std::string_view::npos && brace > colon)) {
        volume = 1.0;
    } else {
        const std::string_view amount = item.substr(colon + 1);
        if (amount.empty()) throw kSyntaxError;
        namePart = item.substr(0, colon);
        const std::size_t numberLength = std::min(amount.find_first_not_of(kNumberCharacters), amount.size());
        // A blank is a number character, so "0.7 KG" puts its blank into the number and fails.
        const double number = parseAmountNumber(amount.substr(0, numberLength));
        const std::string_view unit = trimmed(amount.substr(numberLength));
        if (unit.empty() || sameText(unit, "V")) {
            volume = number;
        } else if (sameText(unit, "%")) {
            volume = number * kPercent;
        } else if (sameText(unit, "M") || sameText(unit, "KG")) {
            mass = number;
            byMass = true;
        } else if (sameText(unit, "G")) {
            mass = number * kGram;
            byMass = true;
        } else {
            throw kSyntaxError;
        }
    }

    namePart = trimmed(namePart);
    GasSpecies* species = nullptr;
    if (namePart.size() >= 2 && namePart.front() == '{' && namePart.back() == '}') {
        species = &resolveComposition(catalog, namePart.substr(1, namePart.size() - 2), nesting + 1);
    } else {
        GasSpecies* const* named = catalog.speciesByName.find(namePart);
        if (named == nullptr) throw kGasNotFound;
        species = *named;
    }
    if (byMass) volume = mass / species->molarMass;
    else mass = species->molarMass * volume;
    return {species, volume, mass};
}

namespace {

std::ptrdiff_t deepestBrace(std::string_view text) {
    std::ptrdiff_t depth = 0;
    std::ptrdiff_t deepest = 0;
    for (const char c : text) {
        if (c == '{' && ++depth > deepest) deepest = depth;
        else if (c == '}') --depth;
    }
    return deepest;
}

}  // namespace

// If a step fails, the new mixture enters no map and goes; nested mixtures finished before the
// failure stay in the cache.
GasSpecies& resolveComposition(GasCatalog& catalog, std::string_view text, int nesting) {
    const std::string_view key = trimmed(text);
    if (GasSpecies* const* cached = catalog.compositionCache.find(key)) return **cached;
    if (GasSpecies* const* named = catalog.speciesByName.find(key)) return **named;
    // Each level of braces is one level of recursion: the depth is settled once, up front.
    if (nesting == 0 && deepestBrace(key) > kMaxCompositionNesting) throw kSyntaxError;

    SpeciesHandle mixture(new GasSpecies(key, catalog.settings, catalog));
    std::ptrdiff_t position = 0;
    std::string_view item = nextItem(key, position);
    if (position == -1) throw kSyntaxError;
    // The mixing entropy depends only on the final fractions: it is worked out once, after the
    // last component, rather than after each.
    bool blended = false;
    while (position != -1) {
        const CompositionItem parsed = parseItem(catalog, item, nesting);
        blended = mixture->blendComponent(*parsed.species, parsed.volume, parsed.mass) || blended;
        item = nextItem(key, position);
    }
    if (blended) mixture->refreshMixingEntropy();
    catalog.compositionCache.insert(mixture->name.get(), mixture.get());
    return *mixture.release();
}

}  // namespace tvl
