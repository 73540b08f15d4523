// GasCatalog: start-up and teardown, ids, and the catalogue operations behind the exports
// that create, find, extend and delete species.
#include "gas/gas_catalog.h"

#include <cstdlib>
#include <iterator>
#include <string_view>

#include "frame/error_codes.h"
#include "gas/air_mixtures.h"
#include "gas/composition.h"

namespace tvl {

namespace {

// Ids 0 to 12 are the rows, 13 and 14 the air mixtures; the third candidate of allocateId
// starts above them.
constexpr std::int32_t kFirstCountedId = 15;
constexpr std::int32_t kLastCountedId = 0x7FFFFFFE;

const char* requireName(const char* name) {
    if (name == nullptr) throw GasInternalFault{};
    return name;
}

}  // namespace

GasCatalog::GasCatalog(const ModelSettings& settings) : settings(settings) {
    speciesById.suspendRehash();
    speciesByName.suspendRehash();
    for (std::int32_t id = 0; id < kBuiltInGasCount; ++id) {
        const GasFitRow& row = kGasFitTable[id];
        GasSpecies* species = new GasSpecies(row, row.name, settings, *this);
        speciesByName.insert(species->name.get(), species);
        species->id = id;
        speciesById.insert(id, species);
    }
    addBuiltInMixture("AirMix", kAirMixId, kAirMix, static_cast<int>(std::size(kAirMix)));
    addBuiltInMixture("N2AirMix", kNitrogenAirMixId, kNitrogenAirMix, static_cast<int>(std::size(kNitrogenAirMix)));
    speciesByName.resumeRehash();
    speciesById.resumeRehash();
}

void GasCatalog::addBuiltInMixture(const char* mixtureName, std::int32_t id, const AirComponent* table, int count) {
    SpeciesHandle mixture(new GasSpecies(mixtureName, settings, *this));
    for (int k = 0; k < count; ++k) {
        GasSpecies* const* component = speciesByName.find(std::string_view(table[k].name));
        if (component == nullptr) throw kGasNotFound;
        const double x = table[k].fraction;
        mixture->addComponent(**component, x, x * (*component)->molarMass);
    }
    mixture->id = id;
    speciesById.insert(id, mixture.get());
    speciesByName.insert(mixture->name.get(), mixture.get());
    mixture.release();
}

// Every species gives back the reference of the id map, and every cache entry its own; a
// mixture still held by another goes with the last reference.
GasCatalog::~GasCatalog() {
    for (const auto& entry : speciesById) entry.value->release();
    compositionCache.removeIf([](const char*, GasSpecies* mixture) {
        mixture->release();
        return true;
    });
}

GasSpecies& GasCatalog::speciesWithId(std::int32_t id) const {
    GasSpecies* const* species = speciesById.find(id);
    if (species == nullptr) throw kGasNotFound;
    return **species;
}

GasSpecies& GasCatalog::speciesOfText(const char* text) {
    GasSpecies& species = resolveComposition(*this, argumentText(text));
    if (compositionCache.size() > kCompositionCacheLimit) pruneCompositionCache(species);
    return species;
}

// Keeps what the current call needs: the given species and everything it is made of.
// Mixtures registered under an id keep their own reference and live on.
void GasCatalog::pruneCompositionCache(const GasSpecies& species) {
    compositionCache.removeIf([&species](const char*, GasSpecies* mixture) {
        if (species.containsSpecies(*mixture)) return false;
        mixture->release();
        return true;
    });
}

// The first free one of: the low 32 bits of the record's address, the number of species, then
// 15, 16, 17 and so on. Ids are opaque on purpose; a caller must not count on small numbers.
std::int32_t GasCatalog::allocateId(GasSpecies& species) {
    std::int32_t id = static_cast<std::int32_t>(static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(&species)));
    if (speciesById.contains(id)) {
        id = static_cast<std::int32_t>(speciesById.size());
        if (speciesById.contains(id)) {
            id = kFirstCountedId;
            while (speciesById.contains(id)) {
                if (id == kLastCountedId) throw kOutOfMemory;
                ++id;
            }
        }
    }
    speciesById.insert(id, &species);
    species.id = id;
    return id;
}

void GasCatalog::forgetName(GasSpecies& species) {
    if (species.name == nullptr) return;
    GasSpecies* const* named = speciesByName.find(std::string_view(species.name.get()));
    if (named != nullptr && *named == &species) speciesByName.remove(std::string_view(species.name.get()));
}

std::int32_t GasCatalog::NEWID() {
    SpeciesHandle species(new GasSpecies(settings, *this));
    const std::int32_t id = allocateId(*species);
    species.release();
    return id;
}

// Enters a species under a new id and under its name; the reference of the handle goes to the
// id map.
std::int32_t GasCatalog::registerNamed(SpeciesHandle reference) {
    GasSpecies& species = *reference;
    const std::int32_t id = allocateId(species);
    try {
        speciesByName.insert(species.name.get(), &species);
    } catch (...) {
        speciesById.remove(id);
        throw;
    }
    reference.release();
    return id;
}

// Code 12 also means that the name is taken.
std::int32_t GasCatalog::NEWIDNAME(const char* name) {
    const std::string_view wanted(requireName(name));
    if (speciesByName.contains(wanted)) throw kGasNotFound;
    return registerNamed(SpeciesHandle(new GasSpecies(wanted, settings, *this)));
}

// Registers the mixture of a text under an id and its text as a name; it stays in the cache
// as well. A plain gas name, or a text registered before, is refused with code 12.
std::int32_t GasCatalog::NEWIDGS(const char* gs) {
    GasSpecies& species = speciesOfText(gs);
    if (species.name == nullptr) throw GasInternalFault{};
    if (speciesByName.contains(std::string_view(species.name.get()))) throw kGasNotFound;
    species.addReference();
    return registerNamed(SpeciesHandle(&species));
}

std::int32_t GasCatalog::IDNAME(const char* name) {
    GasSpecies* const* named = speciesByName.find(std::string_view(requireName(name)));
    if (named == nullptr) throw kGasNotFound;
    GasSpecies* species = *named;
    if (speciesById.contains(species->id)) return species->id;
    for (const auto& entry : speciesById)
        if (entry.value == species) return entry.key;
    throw kGasNotFound;
}

// The rows and "AirMix" are protected, and with them -1 to -13: |id| <= 13 is code 2. A
// deleted species lives on inside every mixture that holds it.
std::int32_t GasCatalog::DELETEGASID(std::int32_t id) {
    if (std::llabs(static_cast<long long>(id)) <= kAirMixId) throw kOutOfRange;
    GasSpecies* const* found = speciesById.find(id);
    if (found == nullptr) throw kGasNotFound;
    GasSpecies* species = *found;
    forgetName(*species);
    speciesById.remove(id);
    species->id = -1;
    species->release();
    return static_cast<std::int32_t>(speciesById.size());
}

// Everything but the 13 rows goes, "AirMix" and "N2AirMix" included, and the cache empties.
std::int32_t GasCatalog::DELETEGASES() {
    speciesByName.suspendRehash();
    speciesById.removeIf([this](std::int32_t id, GasSpecies* species) {
        if (id >= 0 && id < kBuiltInGasCount) return false;
        forgetName(*species);
        species->id = -1;
        species->release();
        return true;
    });
    speciesByName.resumeRehash();
    compositionCache.removeIf([](const char*, GasSpecies* mixture) {
        mixture->release();
        return true;
    });
    return static_cast<std::int32_t>(speciesById.size());
}

// The component is looked up before the mixture.
std::int32_t GasCatalog::ADDGASM(std::int32_t mixture, std::int32_t component, double mass) {
    GasSpecies& added = speciesWithId(component);
    GasSpecies& into = speciesWithId(mixture);
    into.addComponent(added, mass / added.molarMass, mass);
    return static_cast<std::int32_t>(into.components.size());
}

std::int32_t GasCatalog::ADDGASV(std::int32_t mixture, std::int32_t component, double volume) {
    GasSpecies& added = speciesWithId(component);
    GasSpecies& into = speciesWithId(mixture);
    into.addComponent(added, volume, added.molarMass * volume);
    return static_cast<std::int32_t>(into.components.size());
}

}  // namespace tvl
