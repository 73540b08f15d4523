// Composition texts: the small language by which a caller names a gas or a mixture.
//
//   text    = item { ";" item }
//   item    = species [ ":" amount ]
//   species = name of the catalogue | "{" text "}"
//   amount  = number [ unit ]      unit: V, %, M, KG, G in any case
//
// An item without an amount counts 1 by volume. A text is built into a mixture once and found
// in the composition cache by its trimmed text afterwards.
#ifndef TAVLIB6_COMPOSITION_H
#define TAVLIB6_COMPOSITION_H

#include <cstddef>
#include <string_view>

namespace tvl {

class GasCatalog;
class GasSpecies;

// The species of a text, owned by the catalogue (the caller takes no reference): the cached
// mixture of the trimmed text, the species of that name, or a new mixture entered in the cache.
// Braces nest as deep as memory allows. Raises 11 or 12, or the codes of addComponent.
GasSpecies& resolveComposition(GasCatalog& catalog, std::string_view text);

// The splitter: the item that starts at position, which moves on; an empty item with the
// position -1 at the end or at unbalanced braces. Semicolons skipped at the start of an item are
// counted twice, so that after ";;" the next item runs on past its own terminator by as many
// characters: "N2:1;;O2:1;Ar:1" gives "N2:1", then "O2:1;".
std::string_view nextItem(std::string_view text, std::ptrdiff_t& position);

struct CompositionItem {
    GasSpecies* species;
    double volume;  // volume (mole) amount
    double mass;    // kg
};

CompositionItem parseItem(GasCatalog& catalog, std::string_view item);

// A number of a composition text: "," taken as ".", leading blanks allowed, nothing left over,
// finite. Anything else is code 11.
double parseAmountNumber(std::string_view number);

}  // namespace tvl

#endif
