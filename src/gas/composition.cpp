// Composition texts: splitting, items, amounts and units, and the building of a mixture.
#include "gas/composition.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

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

namespace {

// An item with its amount read and its species still to be found: the name part, and the
// volume or the mass it gave.
struct ItemAmount {
    std::string_view namePart;
    double volume = 0.0;
    double mass = 0.0;
    bool byMass = false;
};

ItemAmount readAmount(std::string_view rawItem) {
    const std::string_view item = trimmed(rawItem);
    ItemAmount read;
    read.namePart = item;

    // A ":" inside braces belongs to the nested text, not to this item.
    const std::size_t colon = item.rfind(':');
    const std::size_t brace = item.rfind('}');
    if (colon == std::string_view::npos || (brace != std::string_view::npos && brace > colon)) {
        read.volume = 1.0;
    } else {
        const std::string_view amount = item.substr(colon + 1);
        if (amount.empty()) throw kSyntaxError;
        read.namePart = item.substr(0, colon);
        const std::size_t numberLength = std::min(amount.find_first_not_of(kNumberCharacters), amount.size());
        // A blank is a number character, so "0.7 KG" puts its blank into the number and fails.
        const double number = parseAmountNumber(amount.substr(0, numberLength));
        const std::string_view unit = trimmed(amount.substr(numberLength));
        if (unit.empty() || sameText(unit, "V")) {
            read.volume = number;
        } else if (sameText(unit, "%")) {
            read.volume = number * kPercent;
        } else if (sameText(unit, "M") || sameText(unit, "KG")) {
            read.mass = number;
            read.byMass = true;
        } else if (sameText(unit, "G")) {
            read.mass = number * kGram;
            read.byMass = true;
        } else {
            throw kSyntaxError;
        }
    }
    read.namePart = trimmed(read.namePart);
    return read;
}

// A nested text in braces, by plain byte comparisons; anything else is a name.
bool isNested(std::string_view namePart) {
    return namePart.size() >= 2 && namePart.front() == '{' && namePart.back() == '}';
}

std::string_view innerText(std::string_view namePart) { return namePart.substr(1, namePart.size() - 2); }

GasSpecies& speciesOfName(GasCatalog& catalog, std::string_view namePart) {
    GasSpecies* const* named = catalog.speciesByName.find(namePart);
    if (named == nullptr) throw kGasNotFound;
    return **named;
}

// A species that a text names without parsing: a cached mixture or a name of the catalogue.
GasSpecies* knownSpecies(GasCatalog& catalog, std::string_view key) {
    if (GasSpecies* const* cached = catalog.compositionCache.find(key)) return *cached;
    if (GasSpecies* const* named = catalog.speciesByName.find(key)) return *named;
    return nullptr;
}

CompositionItem itemOf(GasSpecies& species, const ItemAmount& read) {
    if (read.byMass) return {&species, read.mass / species.molarMass, read.mass};
    return {&species, read.volume, species.molarMass * read.volume};
}

// A mixture under construction: its text, where the splitter stands, the item whose nested
// mixture is being built below it, and whether a component went in.
struct MixtureInProgress {
    SpeciesHandle mixture;
    std::string_view text;
    std::ptrdiff_t position = 0;
    std::string_view item;
    ItemAmount waiting;
    bool blended = false;
};

MixtureInProgress startMixture(GasCatalog& catalog, std::string_view key) {
    MixtureInProgress started;
    started.mixture.reset(new GasSpecies(key, catalog.settings, catalog));
    started.text = key;
    started.item = nextItem(key, started.position);
    if (started.position == -1) throw kSyntaxError;
    return started;
}

void addItem(MixtureInProgress& building, const CompositionItem& item) {
    building.blended = building.mixture->blendComponent(*item.species, item.volume, item.mass) || building.blended;
    building.item = nextItem(building.text, building.position);
}

}  // namespace

CompositionItem parseItem(GasCatalog& catalog, std::string_view rawItem) {
    const ItemAmount read = readAmount(rawItem);
    if (isNested(read.namePart)) return itemOf(resolveComposition(catalog, innerText(read.namePart)), read);
    return itemOf(speciesOfName(catalog, read.namePart), read);
}

// Mixtures nested in braces are built innermost first, each finished one handed up to the
// item that named it. They wait on a stack on the heap, not on the call stack, so that braces
// nest as deep as memory allows. If a step fails, the mixtures not yet finished enter no map
// and go; nested mixtures finished before the failure stay in the cache.
GasSpecies& resolveComposition(GasCatalog& catalog, std::string_view text) {
    const std::string_view key = trimmed(text);
    if (GasSpecies* known = knownSpecies(catalog, key)) return *known;

    std::vector<MixtureInProgress> building;
    building.push_back(startMixture(catalog, key));
    for (;;) {
        MixtureInProgress& top = building.back();
        if (top.position != -1) {
            const ItemAmount read = readAmount(top.item);
            if (!isNested(read.namePart)) {
                addItem(top, itemOf(speciesOfName(catalog, read.namePart), read));
                continue;
            }
            const std::string_view inner = trimmed(innerText(read.namePart));
            if (GasSpecies* known = knownSpecies(catalog, inner)) {
                addItem(top, itemOf(*known, read));
                continue;
            }
            top.waiting = read;
            building.push_back(startMixture(catalog, inner));
            continue;
        }
        // The mixing entropy depends only on the final fractions: it is worked out once, after
        // the last component, rather than after each.
        if (top.blended) top.mixture->refreshMixingEntropy();
        catalog.compositionCache.insert(top.mixture->name.get(), top.mixture.get());
        GasSpecies& finished = *top.mixture.release();
        building.pop_back();
        if (building.empty()) return finished;
        MixtureInProgress& parent = building.back();
        addItem(parent, itemOf(finished, parent.waiting));
    }
}

}  // namespace tvl
