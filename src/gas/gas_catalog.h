// GasCatalog: every gas and mixture of the library by id and by case-insensitive name, and the
// cache of mixtures built from composition texts. It owns the records by their reference
// counts; the exports of the gas families are its operations, named after them.
#ifndef TAVLIB6_GAS_CATALOG_H
#define TAVLIB6_GAS_CATALOG_H

#include <cstdint>
#include <string_view>

#include "frame/model_state.h"
#include "gas/gas_hash_map.h"
#include "gas/gas_record.h"

namespace tvl {

struct AirComponent;

// A fault of the caller that has no code of its own (a null name); the frame reports code 1.
struct GasInternalFault {};

// The cache falls back to what the current call needs once it holds more than this.
constexpr std::uint32_t kCompositionCacheLimit = 32768;
// A composition text that the library writes must be shorter than this.
constexpr std::size_t kCompositionTextLimit = 4667;

class GasCatalog {
public:
    // The 13 built-in gases, then "AirMix" (id 13) and "N2AirMix" (id 14).
    explicit GasCatalog(const ModelSettings& settings);
    ~GasCatalog();
    GasCatalog(const GasCatalog&) = delete;
    GasCatalog& operator=(const GasCatalog&) = delete;

    // ---- Look-ups (gas_catalog.cpp) ----
    GasSpecies& speciesWithId(std::int32_t id) const;  // code 12 on a miss
    // resolveComposition, then pruneCompositionCache once the cache is over its limit.
    GasSpecies& speciesOfText(const char* text);
    void pruneCompositionCache(const GasSpecies& species);
    // The text of a species flattened onto the 13 rows, in volume fractions, in textBuffer.
    const char* compositionToText(const GasSpecies& species);
    std::uint64_t nextWalkMark() { return ++walkMarks; }

    // ---- Catalogue (gas_catalog.cpp) ----
    std::int32_t NEWID();
    std::int32_t NEWIDNAME(const char* name);
    std::int32_t NEWIDGS(const char* gs);
    std::int32_t IDNAME(const char* name);
    std::int32_t DELETEGASID(std::int32_t id);
    std::int32_t DELETEGASES();
    std::int32_t GASESCOUNT() const { return static_cast<std::int32_t>(speciesById.size()); }
    std::int32_t ADDGASM(std::int32_t mixture, std::int32_t component, double mass);
    std::int32_t ADDGASV(std::int32_t mixture, std::int32_t component, double volume);
    const char* GSID(std::int32_t id);
    const char* GSGS(const char* gs);

    // ---- Fractions and properties (gas_properties.cpp) ----
    double VFIDID(std::int32_t mixture, std::int32_t species) const;
    double MFIDID(std::int32_t mixture, std::int32_t species) const;
    double VFGSGS(const char* mixture, const char* species);
    double MFGSGS(const char* mixture, const char* species);
    double CPIDT(std::int32_t id, double T) const;
    double CVIDT(std::int32_t id, double T) const;
    double HIDT(std::int32_t id, double T) const;
    double UIDT(std::int32_t id, double T) const;
    double SIDT(std::int32_t id, double T) const;
    double SIDPT(std::int32_t id, double p, double T) const;
    double VIDT(std::int32_t id, double T) const;
    double VIDPT(std::int32_t id, double p, double T) const;
    double MMID(std::int32_t id) const;
    double GCID(std::int32_t id) const;
    double TIDH(std::int32_t id, double h) const;
    double TIDS(std::int32_t id, double s) const;
    double TIDPS(std::int32_t id, double p, double s) const;
    double PIDTS(std::int32_t id, double T, double s) const;
    double CPGST(const char* gs, double T);
    double CVGST(const char* gs, double T);
    double HGST(const char* gs, double T);
    double UGST(const char* gs, double T);
    double SGST(const char* gs, double T);
    double SGSPT(const char* gs, double p, double T);
    double VGST(const char* gs, double T);
    double VGSPT(const char* gs, double p, double T);
    double MMGS(const char* gs);
    double GCGS(const char* gs);
    double TGSH(const char* gs, double h);
    double TGSS(const char* gs, double s);
    double TGSPS(const char* gs, double p, double s);
    double PGSTS(const char* gs, double T, double s);

    const ModelSettings& settings;
    GasHashMap<IdKey, GasSpecies*> speciesById;      // holds one reference of each
    GasHashMap<TextKey, GasSpecies*> speciesByName;  // holds none
    GasHashMap<TextKey, GasSpecies*> compositionCache;  // key: the mixture's name; one reference each

private:
    void addBuiltInMixture(const char* name, std::int32_t id, const AirComponent* table, int count);
    std::int32_t allocateId(GasSpecies& species);
    std::int32_t registerNamed(SpeciesHandle reference);
    void forgetName(GasSpecies& species);

    std::uint64_t walkMarks = 0;
    char textBuffer[kCompositionTextLimit] = {};  // the result of GSID and GSGS
};

}  // namespace tvl

#endif
