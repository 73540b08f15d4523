// Batch evaluation: one export called once per element of arrays of inputs, each call with its
// own frame, its code read back at once. The export is looked up by name in the table that the
// tvl command uses, so every export of the list is reachable without a hand-kept list.
//
// A large batch of a water export is cut into one contiguous slice per thread; each thread
// calls the export's method on a PropertyFacade of its own, set up with the library object's
// settings, so the slices share nothing and every element gets the bits of a plain call.
#include "tavlib6x.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstring>
#include <memory>
#include <strings.h>
#if !defined(_WIN32)
#include <thread>
#endif
#include <vector>

#include "export_table.h"
#include "frame/property_facade.h"
#include "lanes/lanes.h"

namespace {

using tvlcli::CallArgs;
using tvlcli::CallResult;
using tvlcli::ExportEntry;

using tvl::kBadParameters;

bool sameName(const char* given, const char* name) {
    if (strncasecmp(given, "tvl", 3) == 0 && strcasecmp(given + 3, name) == 0) return true;
    return strcasecmp(given, name) == 0;
}

const ExportEntry* findBatchable(const char* name) {
    if (name == nullptr) return nullptr;
    for (int k = 0; k < tvlcli::kExportCount; ++k) {
        const ExportEntry& entry = tvlcli::kExports[k];
        if (!sameName(name, entry.name)) continue;
        if (entry.reportsErrors) return nullptr;  // a batch of error reports means nothing
        for (const char* kind = entry.kinds; *kind != '\0'; ++kind)
            if (*kind == 'w' || *kind == 'W') return nullptr;
        return &entry;
    }
    return nullptr;
}

// Where each argument of the signature goes: its slot among the CallArgs of its kind, and for
// numeric arguments the index of its input array.
struct Layout {
    char kind[tvlcli::kMaxArguments] = {};
    int slot[tvlcli::kMaxArguments] = {};
    int input[tvlcli::kMaxArguments] = {};
    int count = 0;
    int outputs = 0;
    int texts = 0;
};

Layout layoutOf(const ExportEntry& entry) {
    Layout layout;
    int counts[128] = {};
    int inputs = 0;
    for (const char* kind = entry.kinds; *kind != '\0' && layout.count < tvlcli::kMaxArguments; ++kind) {
        const int k = layout.count++;
        layout.kind[k] = *kind;
        layout.slot[k] = counts[static_cast<unsigned char>(*kind)]++;
        layout.input[k] = (*kind == 'd' || *kind == 'i') ? inputs++ : -1;
        if (*kind == 'o') ++layout.outputs;
        if (*kind == 's') ++layout.texts;
    }
    return layout;
}

// An int32 argument arrives as a double; only a whole number in range is that integer.
bool toInteger(double value, std::int32_t& integer) {
    if (!std::isfinite(value) || value != std::floor(value) || value < -2147483648.0 || value > 2147483647.0)
        return false;
    integer = static_cast<std::int32_t>(value);
    return true;
}

double valueOf(const CallResult& result) {
    return result.kind == CallResult::kInteger ? static_cast<double>(result.integer) : result.number;
}

// The exports a thread may call on a PropertyFacade of its own.
struct FacadeEntry {
    const char* name;
    CallResult (*call)(tvl::PropertyFacade&, CallArgs&);
};

const FacadeEntry kFacadeCalls[] = {
#include "facade_table.inc"
};

const FacadeEntry* findFacadeCall(const char* name) {
    for (const FacadeEntry& entry : kFacadeCalls)
        if (std::strcmp(entry.name, name) == 0) return &entry;
    return nullptr;
}

// Below this many points per thread, starting a thread and building its model object cost more
// than the thread saves.
constexpr std::int64_t kPointsPerThread = 4096;
constexpr int kMostThreads = 64;
constexpr unsigned kMostAutomaticThreads = 16;
std::atomic<int> requestedThreads{0};

#if !defined(_WIN32)
int threadsFor(std::int64_t count) {
    int threads = requestedThreads.load(std::memory_order_relaxed);
    if (threads <= 0) threads = static_cast<int>(std::min(std::thread::hardware_concurrency(), kMostAutomaticThreads));
    const std::int64_t useful = count / kPointsPerThread;
    return static_cast<int>(std::max<std::int64_t>(1, std::min<std::int64_t>(threads, useful)));
}
#endif

// What one call of the batch shares with every slice of it.
struct Job {
    const ExportEntry* entry;
    const FacadeEntry* facadeCall;  // null: the library object's exports, on one thread
    Layout layout;
    const double* const* inputs;
    const int64_t* strides;
    const char* const* texts;
    double* results;
    double* const* outputs;
    int32_t* errors;
};

// Evaluates the points [first, last): through the exports, or through `facade` when the job
// has a facade call. Returns the number that failed, or -1 when the result is a text.
int64_t evaluateSlice(const Job& job, std::int64_t first, std::int64_t last, tvl::PropertyFacade* facade) {
    // Exports with a vector kernel run several points side by side, with the bits of these calls.
    if (const tvlx::lanes::Export* kernel = tvlx::lanes::kernelFor(job.entry->name))
        return tvlx::lanes::evaluate(*kernel, {job.inputs, job.strides, job.results, job.errors, first, last, facade});
    const Layout& layout = job.layout;
    CallArgs args;
    for (int k = 0; k < layout.count; ++k)
        if (layout.kind[k] == 's') args.texts[layout.slot[k]] = job.texts[layout.slot[k]];

    int64_t failed = 0;
    for (int64_t element = first; element < last; ++element) {
        bool accepted = true;
        for (int k = 0; k < layout.count; ++k) {
            const int j = layout.input[k];
            if (j < 0) continue;
            const double value = job.inputs[j][element * job.strides[j]];
            if (layout.kind[k] == 'd')
                args.numbers[layout.slot[k]] = value;
            else
                accepted = accepted && toInteger(value, args.integers[layout.slot[k]]);
        }
        int32_t code = kBadParameters;
        double value = -1.0;
        if (accepted) {
            const CallResult result = facade ? job.facadeCall->call(*facade, args) : job.entry->call(args);
            // A text result has no place in an array of numbers; the table does not say which
            // exports give texts, so the first call tells.
            if (result.kind == CallResult::kText || result.kind == CallResult::kWideText) return -1;
            value = valueOf(result);
            code = facade ? facade->lastError : tvlGETLASTERROR();
        }
        job.results[element] = value;
        for (int j = 0; j < layout.outputs; ++j)
            if (job.outputs[j] != nullptr) job.outputs[j][element] = accepted ? args.outputs[j] : -1.0;
        if (job.errors != nullptr) job.errors[element] = code;
        if (code != 0) ++failed;
    }
    return failed;
}

#if !defined(_WIN32)
// The slices on `threads` threads (this one among them), each with a model object carrying the
// library object's settings. Returns the failures, or -1 if no model object could be made.
int64_t evaluateOnThreads(const Job& job, std::int64_t count, int threads) {
    tvl::ModelSettings settings;
    settings.maxIterations = tvlGETMAXITERATION();
    settings.tolerance = tvlGETTOLERANCE();
    if (tvlGETLASTERROR() != 0) return -1;  // a tolerance that is not finite reads back as -1.0: one thread
    settings.checkRangeMode = tvlGETCHECKRANGEMODE();
    settings.toleranceMode = tvlGETTOLERANCEMODE();

    std::vector<std::unique_ptr<tvl::PropertyFacade>> facades;
    std::vector<int64_t> failed(static_cast<std::size_t>(threads), 0);
    std::vector<std::thread> workers;
    try {
        for (int t = 0; t < threads; ++t) {
            facades.push_back(std::make_unique<tvl::PropertyFacade>());
            facades.back()->settings = settings;
        }
    } catch (...) {
        return -1;
    }
    const auto slice = [&](int t) {
        const std::int64_t first = count * t / threads, last = count * (t + 1) / threads;
        failed[static_cast<std::size_t>(t)] = evaluateSlice(job, first, last, facades[static_cast<std::size_t>(t)].get());
    };
    for (int t = 1; t < threads; ++t) {
        try {
            workers.emplace_back(slice, t);
        } catch (...) {
            slice(t);  // no thread to be had: this one takes the slice
        }
    }
    slice(0);
    for (std::thread& worker : workers) worker.join();

    int64_t total = 0;
    for (int64_t f : failed) total += f;
    // The library object reports the last point's code, as after the calls one by one.
    tvlSETLASTERROR(job.errors != nullptr ? job.errors[count - 1] : facades.back()->lastError);
    return total;
}
#endif

}  // namespace

extern "C" TVLX_API int32_t tvlxSETTHREADS(int32_t threads) {
    requestedThreads.store(std::clamp<int32_t>(threads, 0, kMostThreads), std::memory_order_relaxed);
    return requestedThreads.load(std::memory_order_relaxed);
}

extern "C" TVLX_API int32_t tvlxCANEVALUATE(const char* name) {
    return findBatchable(name) != nullptr ? 1 : 0;
}

extern "C" TVLX_API int64_t tvlxEVALUATE(const char* name, int64_t count, const double* const* inputs,
                                         const int64_t* strides, const char* const* texts, double* results,
                                         double* const* outputs, int32_t* errors) {
    // The whole batch, its threads and its own arithmetic, under the environment of a call; the
    // caller's comes back at the end.
    const tvl::FloatEnvironmentGuard guard;
    const ExportEntry* entry = findBatchable(name);
    if (entry == nullptr || count < 0 || results == nullptr) return -1;
    const Layout layout = layoutOf(*entry);
    bool numericArguments = false;
    for (int k = 0; k < layout.count; ++k) numericArguments |= layout.input[k] >= 0;
    if ((numericArguments && (inputs == nullptr || strides == nullptr)) || (layout.texts > 0 && texts == nullptr) ||
        (layout.outputs > 0 && outputs == nullptr))
        return -1;

    const Job job{entry, findFacadeCall(entry->name), layout, inputs, strides, texts, results, outputs, errors};
#if !defined(_WIN32)
    const int threads = threadsFor(count);
    if (job.facadeCall != nullptr && threads > 1) {
        const int64_t failed = evaluateOnThreads(job, count, threads);
        if (failed >= 0) return failed;
    }
#endif
    return evaluateSlice(job, 0, count, nullptr);
}
