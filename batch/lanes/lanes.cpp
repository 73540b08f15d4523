// The driver of the vector kernels: which exports have one, which instruction set runs them, and
// a slice of a batch cut into blocks. A block of a region's own export goes through its kernel
// whole; a block of the (p,T) family is first sorted by region, point by point with the range
// test and the region selection of the plain call, and each region's points then go through
// that region's kernel together. Every point ends as the plain call ends: the value where it is
// finite, else the failure value -1.0 with code 1; a point refused by the range test -1.0 with
// code 2; a region 3 point whose density search runs out of iterations -1.0 with code 3; and
// points no kernel takes are evaluated by the plain call itself.
#include "lanes/lanes.h"

#include <cmath>
#include <cstdlib>
#include <cstring>

#include "frame/property_facade.h"
#include "frame/validators.h"
#include "lanes/kernels.h"
#include "lanes/results_lanes.h"
#include "lanes/search_blocks.h"
#include "tavlib6.h"
#include "tavlib6x.h"

#if defined(TAVLIB6X_LANES)
#include <hwy/targets.h>
#endif

namespace tvlx::lanes {

constexpr int kFamily = 0;  // Export::region of the (p,T) family
constexpr int kLine = -1;   // and of the saturation line
constexpr int kTransport = -2;  // the transport exports by (p,T)
constexpr int kWet = -3;        // the wet states by (T,x)
constexpr int kWetByPT = -4;    // and by (p,T,x)
constexpr int kSearching = -5;  // the refined backward exports (search_blocks.h)
constexpr int kSaturatedWater = -6;  // a saturated phase by T
constexpr int kSaturatedSteam = -7;
constexpr int kMetastable = -8;  // metastable vapour by (p,T)

// The exports of one argument, whose plain calls are plainLine and methodLine.
constexpr bool oneArgument(int region) {
    return region == kLine || region == kSaturatedWater || region == kSaturatedSteam;
}

struct Export {
    const char* name;
    int region;  // 1, 2, 3 or 5 for a region's own export, or one of the kinds above
    int kernel;  // the Property, on the line the Line, for kTransport, kWet, kWetByPT, the saturated phases and
                 // kMetastable a quantity of a phase, else the Search or DispatchingSearch
    double (*plain)(double, double);
    double (tvl::PropertyFacade::*method)(double, double) noexcept;
    // The saturation line: one argument, and the range that checkRangeMode holds it to.
    double (*plainLine)(double);
    double (tvl::PropertyFacade::*methodLine)(double) noexcept;
    double lowest;
    double highest;
    // The (p,T,x) family: three arguments.
    double (*plainWet)(double, double, double) = nullptr;
    double (tvl::PropertyFacade::*methodWet)(double, double, double) noexcept = nullptr;
};

namespace {

#define TVLX_EXPORT(name, region, property) \
    {#name, region, property, [](double p, double T) { return tvl##name(p, T); }, &tvl::PropertyFacade::name, \
     nullptr, nullptr, 0.0, 0.0}
#define TVLX_REGION_EXPORTS(r)                                                                            \
    TVLX_EXPORT(V##r##PT, r, kVolume), TVLX_EXPORT(D##r##PT, r, kDensity),                                \
        TVLX_EXPORT(U##r##PT, r, kInternalEnergy), TVLX_EXPORT(S##r##PT, r, kEntropy),                    \
        TVLX_EXPORT(H##r##PT, r, kEnthalpy), TVLX_EXPORT(CP##r##PT, r, kIsobaricHeat),                    \
        TVLX_EXPORT(CV##r##PT, r, kIsochoricHeat), TVLX_EXPORT(W##r##PT, r, kSpeedOfSound),               \
        TVLX_EXPORT(JOULETHOMPSON##r##PT, r, kJouleThomson)
#define TVLX_LINE_EXPORT(name, line, lowest, highest) \
    {#name, kLine, line, nullptr, nullptr, [](double x) { return tvl##name(x); }, &tvl::PropertyFacade::name, lowest, highest}
#define TVLX_SATURATED_EXPORT(name, phase, quantity)                                \
    {#name, phase, quantity, nullptr, nullptr, [](double T) { return tvl##name(T); }, \
     &tvl::PropertyFacade::name, tvl::kSaturationLowestTemperature, tvl::kSaturationHighestTemperature}
#define TVLX_SATURATED_EXPORTS(quantity, water, steam) \
    TVLX_SATURATED_EXPORT(water, kSaturatedWater, quantity), TVLX_SATURATED_EXPORT(steam, kSaturatedSteam, quantity)
#define TVLX_WET_PT_EXPORT(name, quantity)                                                         \
    {#name, kWetByPT, quantity, nullptr, nullptr, nullptr, nullptr, 0.0, 0.0,                      \
     [](double p, double T, double x) { return tvl##name(p, T, x); }, &tvl::PropertyFacade::name}

const Export kExports[] = {
    TVLX_REGION_EXPORTS(1),
    TVLX_REGION_EXPORTS(2),
    TVLX_REGION_EXPORTS(3),
    TVLX_REGION_EXPORTS(5),
    TVLX_EXPORT(VPT, kFamily, kVolume),
    TVLX_EXPORT(DPT, kFamily, kDensity),
    TVLX_EXPORT(UPT, kFamily, kInternalEnergy),
    TVLX_EXPORT(SPT, kFamily, kEntropy),
    TVLX_EXPORT(HPT, kFamily, kEnthalpy),
    TVLX_EXPORT(CPPT, kFamily, kIsobaricHeat),
    TVLX_EXPORT(CVPT, kFamily, kIsochoricHeat),
    TVLX_EXPORT(WPT, kFamily, kSpeedOfSound),
    TVLX_EXPORT(JOULETHOMPSONPT, kFamily, kJouleThomson),
    TVLX_LINE_EXPORT(PST, kSaturationPressure, tvl::kSaturationLowestTemperature, tvl::kSaturationHighestTemperature),
    TVLX_LINE_EXPORT(TSP, kSaturationTemperature, tvl::kSaturationLowestPressure,
                     tvl::kCriticalPressure * tvl::kOnePlusEps),
    TVLX_LINE_EXPORT(DPDTST, kSaturationSlope, tvl::kSaturationLowestTemperature, tvl::kSaturationHighestTemperature),
    TVLX_EXPORT(DYNVISPT, kTransport, kTransportQuantity + kViscosity),
    TVLX_EXPORT(KINVISPT, kTransport, kTransportQuantity + kKinematicViscosity),
    TVLX_EXPORT(THERMCONDPT, kTransport, kTransportQuantity + kConductivity),
    TVLX_EXPORT(PRANDTLEPT, kTransport, kPrandtlQuantity),
    TVLX_EXPORT(VSTX, kWet, kVolume),
    TVLX_EXPORT(DSTX, kWet, kDensity),
    TVLX_EXPORT(USTX, kWet, kInternalEnergy),
    TVLX_EXPORT(SSTX, kWet, kEntropy),
    TVLX_EXPORT(HSTX, kWet, kEnthalpy),
    TVLX_EXPORT(CPSTX, kWet, kIsobaricHeat),
    TVLX_EXPORT(JOULETHOMPSONSTX, kWet, kJouleThomson),
    TVLX_EXPORT(THERMCONDSTX, kWet, kTransportQuantity + kConductivity),
    TVLX_EXPORT(DYNVISSTX, kWet, kTransportQuantity + kViscosity),
    TVLX_EXPORT(KINVISSTX, kWet, kTransportQuantity + kKinematicViscosity),
    TVLX_EXPORT(PRANDTLESTX, kWet, kPrandtlQuantity),
    TVLX_WET_PT_EXPORT(VPTX, kVolume),
    TVLX_WET_PT_EXPORT(DPTX, kDensity),
    TVLX_WET_PT_EXPORT(UPTX, kInternalEnergy),
    TVLX_WET_PT_EXPORT(SPTX, kEntropy),
    TVLX_WET_PT_EXPORT(HPTX, kEnthalpy),
    TVLX_WET_PT_EXPORT(CPPTX, kIsobaricHeat),
    TVLX_WET_PT_EXPORT(CVPTX, kIsochoricHeat),
    TVLX_WET_PT_EXPORT(WPTX, kSpeedOfSound),
    TVLX_WET_PT_EXPORT(JOULETHOMPSONPTX, kJouleThomson),
    TVLX_WET_PT_EXPORT(THERMCONDPTX, kTransportQuantity + kConductivity),
    TVLX_WET_PT_EXPORT(DYNVISPTX, kTransportQuantity + kViscosity),
    TVLX_WET_PT_EXPORT(KINVISPTX, kTransportQuantity + kKinematicViscosity),
    TVLX_WET_PT_EXPORT(PRANDTLEPTX, kPrandtlQuantity),
    TVLX_EXPORT(T1PH, kSearching, kT1PH), TVLX_EXPORT(T1PS, kSearching, kT1PS), TVLX_EXPORT(P1HS, kSearching, kP1HS),
    TVLX_EXPORT(T2PH, kSearching, kT2PH), TVLX_EXPORT(T2PS, kSearching, kT2PS), TVLX_EXPORT(P2HS, kSearching, kP2HS),
    TVLX_EXPORT(T3PH, kSearching, kT3PHExport), TVLX_EXPORT(T3PS, kSearching, kT3PSExport),
    TVLX_EXPORT(P3HS, kSearching, kP3HSExport),
    TVLX_EXPORT(T5PH, kSearching, kT5PH), TVLX_EXPORT(T5PS, kSearching, kT5PS), TVLX_EXPORT(P5HS, kSearching, kP5HS),
    TVLX_EXPORT(TPH, kSearching, kTPH), TVLX_EXPORT(TPS, kSearching, kTPS), TVLX_EXPORT(PHS, kSearching, kPHS),
    TVLX_SATURATED_EXPORTS(kVolume, VSWT, VSST),
    TVLX_SATURATED_EXPORTS(kDensity, DSWT, DSST),
    TVLX_SATURATED_EXPORTS(kInternalEnergy, USWT, USST),
    TVLX_SATURATED_EXPORTS(kEntropy, SSWT, SSST),
    TVLX_SATURATED_EXPORTS(kEnthalpy, HSWT, HSST),
    TVLX_SATURATED_EXPORTS(kIsobaricHeat, CPSWT, CPSST),
    TVLX_SATURATED_EXPORTS(kIsochoricHeat, CVSWT, CVSST),
    TVLX_SATURATED_EXPORTS(kSpeedOfSound, WSWT, WSST),
    TVLX_SATURATED_EXPORTS(kJouleThomson, JOULETHOMPSONSWT, JOULETHOMPSONSST),
    TVLX_SATURATED_EXPORTS(kTransportQuantity + kConductivity, THERMCONDSWT, THERMCONDSST),
    TVLX_SATURATED_EXPORTS(kTransportQuantity + kViscosity, DYNVISSWT, DYNVISSST),
    TVLX_SATURATED_EXPORTS(kTransportQuantity + kKinematicViscosity, KINVISSWT, KINVISSST),
    TVLX_SATURATED_EXPORTS(kPrandtlQuantity, PRANDTLESWT, PRANDTLESST),
    TVLX_EXPORT(VMSPT, kMetastable, kVolume),
    TVLX_EXPORT(UMSPT, kMetastable, kInternalEnergy),
    TVLX_EXPORT(SMSPT, kMetastable, kEntropy),
    TVLX_EXPORT(HMSPT, kMetastable, kEnthalpy),
    TVLX_EXPORT(CPMSPT, kMetastable, kIsobaricHeat),
    TVLX_EXPORT(CVMSPT, kMetastable, kIsochoricHeat),
    TVLX_EXPORT(WMSPT, kMetastable, kSpeedOfSound),
    TVLX_EXPORT(THERMCONDMSPT, kMetastable, kTransportQuantity + kConductivity),
    TVLX_EXPORT(DYNVISMSPT, kMetastable, kTransportQuantity + kViscosity),
    TVLX_EXPORT(KINVISMSPT, kMetastable, kTransportQuantity + kKinematicViscosity),
    TVLX_EXPORT(PRANDTLEMSPT, kMetastable, kPrandtlQuantity),
};

#undef TVLX_WET_PT_EXPORT
#undef TVLX_SATURATED_EXPORTS
#undef TVLX_SATURATED_EXPORT
#undef TVLX_LINE_EXPORT
#undef TVLX_REGION_EXPORTS
#undef TVLX_EXPORT

#if defined(TAVLIB6X_LANES)
const KernelSet* chooseKernels() {
    const int64_t supported = hwy::SupportedTargets();
    const KernelSet* wide = (supported & HWY_AVX3) != 0 ? avx512Kernels() : nullptr;
    const KernelSet* narrow = (supported & HWY_AVX2) != 0 ? avx2Kernels() : nullptr;
    const char* asked = std::getenv("TAVLIB6X_SIMD");
    if (asked != nullptr && std::strcmp(asked, "scalar") == 0) return nullptr;
    if (asked != nullptr && std::strcmp(asked, "avx2") == 0) return narrow;
    return wide != nullptr ? wide : narrow;
}
#else
const KernelSet* chooseKernels() { return nullptr; }
#endif

const KernelSet* kernels() {
    static const KernelSet* const chosen = chooseKernels();
    return chosen;
}

#if defined(TAVLIB6X_LANES)
ResultsStore resultsStore() {
    static const ResultsStore store = resultsStoreFor(kernels());
    return store;
}
#else
ResultsStore resultsStore() { return nullptr; }  // never called: there is no kernel
#endif

// ---- The settings the (p,T) family reads ----

struct Settings {
    double tolerance;
    bool checks;
    bool known;  // false: the library object's tolerance is not finite, which its export cannot tell
    SearchSettings search;  // region 3
};

// What the export reads: the own exports of regions 1, 2, 5 nothing, the saturation line the
// range test, the others the range test and region 3's search settings, the (p,T), transport and
// metastable families the tolerance as well.
Settings settingsOf(const Export& e, const tvl::PropertyFacade* facade) {
    if (e.region > 0 && e.region != 3) return {0.0, false, true, {}};
    if (facade != nullptr) {
        const tvl::ModelSettings& s = facade->settings;
        return {s.tolerance, s.checksOn(), true, {s.tolerance, s.maxIterations, s.refining(), s.checksOn()}};
    }
    const bool checks = tvlGETCHECKRANGEMODE() != 0;
    if (e.region == kLine) return {0.0, checks, true, {}};
    const SearchSettings search{0.0, tvlGETMAXITERATION(), tvlGETTOLERANCEMODE() != 0, checks};
    const double tolerance = tvlGETTOLERANCE();
    return {tolerance, checks, tvlGETLASTERROR() == 0, {tolerance, search.maxIterations, search.refining, checks}};
}

// ---- A slice in blocks ----

constexpr int kBlock = 256;

class SliceRun {
public:
    SliceRun(const Export& e, const Slice& slice) : e(e), slice(slice) {}

    void point(int64_t element, double value, int32_t code) {
        slice.results[element] = value;
        if (slice.errors != nullptr) slice.errors[element] = code;
        if (code != 0) ++failed;
        if (element == slice.last - 1) lastCode = code;
    }

    // The frame's finiteness test on a kernel's values: out[j] belongs to the point
    // start + index[j], or start + j without an index; count is at most a block.
    void computed(int64_t start, const double* out, const int* index, int count) {
        if (count <= 0) return;
        if (index == nullptr) {
            if (start + count == slice.last) lastCode = std::isfinite(out[count - 1]) ? 0 : tvl::kBadParameters;
            int32_t* codes = slice.errors != nullptr ? slice.errors + start : nullptr;
            failed += resultsStore()(out, slice.results + start, codes, static_cast<std::size_t>(count));
            return;
        }
        // With an index: tested in lanes into a buffer, then stored point by point.
        double value[kBlock];
        int32_t code[kBlock];
        failed += resultsStore()(out, value, code, static_cast<std::size_t>(count));
        const int64_t lastAt = slice.last - 1 - start;
        for (int j = 0; j < count; ++j) {
            slice.results[start + index[j]] = value[j];
            lastCode = index[j] == lastAt ? code[j] : lastCode;
        }
        if (slice.errors != nullptr)
            for (int j = 0; j < count; ++j) slice.errors[start + index[j]] = code[j];
    }

    // The same after a search: the points whose search ran out of iterations (lost[j] != 0) get
    // code 3 instead. out and index are compacted in place.
    void searched(int64_t start, double* out, int* index, const double* lost, int count) {
        int n = 0;
        for (int j = 0; j < count; ++j) {
            if (lost[j] != 0.0) point(start + index[j], -1.0, tvl::kRootNotFound);
            out[n] = out[j];
            index[n] = index[j];
            n += lost[j] != 0.0 ? 0 : 1;
        }
        computed(start, out, index, n);
    }

    void byPlainCall(int64_t element, double p, double T) {
        tvl::PropertyFacade* facade = slice.facade;
        double value;
        if (oneArgument(e.region)) value = facade != nullptr ? (facade->*e.methodLine)(p) : e.plainLine(p);
        else value = facade != nullptr ? (facade->*e.method)(p, T) : e.plain(p, T);
        point(element, value, facade != nullptr ? facade->lastError : tvlGETLASTERROR());
    }

    // The last point's code stays as the model object's last error.
    void finish() {
        if (slice.last <= slice.first) return;
        if (slice.facade != nullptr) slice.facade->lastError = lastCode;
        else tvlSETLASTERROR(lastCode);
    }

    const Export& e;
    const Slice& slice;
    int64_t failed = 0;
    int32_t lastCode = 0;
};

// The kernel of a property of region 1, 2, 5 or of metastable vapour.
PointKernel kernelOf(const KernelSet& set, int region, int property) {
    if (region == kMetastable) return set.metastable[property];
    return region == 1 ? set.region1[property] : region == 2 ? set.region2[property] : set.region5[property];
}

// Region 3 points through the density search: those whose search runs out of iterations get
// code 3, the others the finiteness test.
void searchedPoints(SliceRun& run, const KernelSet& set, const Settings& settings, int64_t start, const double* p,
                    const double* T, const int* index, int count) {
    double out[kBlock], failed[kBlock];
    int found[kBlock];
    set.region3[run.e.kernel](p, T, out, failed, static_cast<std::size_t>(count), settings.search);
    for (int k = 0; k < count; ++k) found[k] = index != nullptr ? index[k] : k;
    run.searched(start, out, found, failed, count);
}

// A block of the (p,T) family: sorted by region in one pass, without branches (the regions of
// random states alternate), then each region's points through its kernel.
void familyBlock(SliceRun& run, const KernelSet& set, const Settings& settings, int64_t start, const double* p,
                 const double* T, int count) {
    double region[kBlock];
    set.classifyWithRegion3(p, T, region, static_cast<std::size_t>(count), settings.tolerance, settings.checks);
    constexpr int kRegions[] = {1, 2, 3, 5};
    constexpr int kListOf[] = {4, 4, 0, 1, 2, 4, 3};  // by region + 1; list 4 holds the points of no kernel
    int members[5][kBlock], size[5] = {};
    for (int k = 0; k < count; ++k) {
        if (region[k] == -1.0) run.point(start + k, -1.0, tvl::kOutOfRange);
        if (region[k] == 0.0) run.byPlainCall(start + k, p[k], T[k]);
        const int list = kListOf[static_cast<int>(region[k]) + 1];
        members[list][size[list]++] = k;
    }
    for (int list = 0; list < 4; ++list) {
        const int n = size[list], r = kRegions[list];
        if (n == 0) continue;
        double rp[kBlock], rT[kBlock], out[kBlock];
        for (int j = 0; j < n; ++j) {
            rp[j] = p[members[list][j]];
            rT[j] = T[members[list][j]];
        }
        if (r == 3) {
            searchedPoints(run, set, settings, start, rp, rT, members[list], n);
            continue;
        }
        kernelOf(set, r, run.e.kernel)(rp, rT, out, static_cast<std::size_t>(n));
        run.computed(start, out, members[list], n);
    }
}

// A block of the saturation line: the kernel over all points; those the range test refuses
// get code 2 instead of their values.
void lineBlock(SliceRun& run, const KernelSet& set, const Settings& settings, int64_t start, const double* x,
               int count) {
    double out[kBlock], accepted[kBlock];
    int index[kBlock];
    set.line[run.e.kernel](x, x, out, static_cast<std::size_t>(count));
    int n = 0;
    for (int k = 0; k < count; ++k) {
        const bool refused = settings.checks && (x[k] < run.e.lowest || x[k] > run.e.highest);
        if (refused) run.point(start + k, -1.0, tvl::kOutOfRange);
        accepted[n] = out[k];
        index[n] = k;
        n += refused ? 0 : 1;
    }
    run.computed(start, accepted, index, n);
}

#include "lanes/transport_wet_blocks.inc"
#include "lanes/phase_blocks.inc"

// The block's values of input j: in place where they are contiguous, else copied.
const double* column(const Slice& slice, int j, int64_t start, int count, double* copy) {
    if (slice.strides[j] == 1) return slice.inputs[j] + start;
    for (int k = 0; k < count; ++k) copy[k] = slice.inputs[j][(start + k) * slice.strides[j]];
    return copy;
}

}  // namespace

const Export* kernelFor(const char* name) {
    if (name == nullptr || kernels() == nullptr) return nullptr;
    for (const Export& e : kExports)
        if (std::strcmp(e.name, name) == 0) return &e;
    return nullptr;
}

int64_t evaluate(const Export& e, const Slice& slice) {
    const KernelSet& set = *kernels();
    SliceRun run(e, slice);
    if (slice.last <= slice.first) return 0;
    const Settings settings = settingsOf(e, slice.facade);
    const tvl::ModelSettings searchSettings =
        e.region == kSearching ? searchSettingsOf(slice.facade) : tvl::ModelSettings{};
    double pCopy[kBlock], TCopy[kBlock], out[kBlock];
    for (int64_t start = slice.first; start < slice.last; start += kBlock) {
        const int count = static_cast<int>(slice.last - start < kBlock ? slice.last - start : kBlock);
        const double* p = column(slice, 0, start, count, pCopy);
        const double* T = oneArgument(e.region) ? p : column(slice, 1, start, count, TCopy);
        if (e.region == kWetByPT) {
            double xCopy[kBlock];
            wetPTBlock(run, set, settings, start, p, T, column(slice, 2, start, count, xCopy), count);
            continue;
        }
        if (!settings.known) {
            for (int k = 0; k < count; ++k) run.byPlainCall(start + k, p[k], T[k]);
            continue;
        }
        if (e.region == kFamily) {
            familyBlock(run, set, settings, start, p, T, count);
            continue;
        }
        if (e.region == kLine) {
            lineBlock(run, set, settings, start, p, count);
            continue;
        }
        if (e.region == kTransport) {
            transportBlock(run, set, settings, start, p, T, count);
            continue;
        }
        if (e.region == kWet) {
            wetBlock(run, set, settings, start, p, T, count);
            continue;
        }
        if (e.region == kMetastable) {
            metastableBlock(run, set, settings, start, p, T, count);
            continue;
        }
        if (e.region == kSaturatedWater || e.region == kSaturatedSteam) {
            saturatedBlock(run, set, settings, start, p, count);
            continue;
        }
        if (e.region == kSearching) {
            int32_t code[kBlock];
            searchBlock(set, e.kernel, searchSettings, p, T, out, code, count);
            for (int k = 0; k < count; ++k)
                if (code[k] == kByPlainCall) run.byPlainCall(start + k, p[k], T[k]);
                else run.point(start + k, out[k], code[k]);
            continue;
        }
        if (e.region == 3) {
            searchedPoints(run, set, settings, start, p, T, nullptr, count);
            continue;
        }
        kernelOf(set, e.region, e.kernel)(p, T, out, static_cast<std::size_t>(count));
        run.computed(start, out, nullptr, count);
    }
    run.finish();
    return run.failed;
}

const char* pathName() {
    const KernelSet* set = kernels();
    return set != nullptr ? set->path : "scalar";
}

}  // namespace tvlx::lanes

extern "C" TVLX_API const char* tvlxSIMD(void) { return tvlx::lanes::pathName(); }
