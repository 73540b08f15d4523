// Batch evaluation: one export called once per element of arrays of inputs, each call with its
// own frame, its code read back at once. The export is looked up by name in the table that the
// tvl command uses, so every export of the list is reachable without a hand-kept list.
#include "tavlib6x.h"

#include <cmath>
#include <cstring>
#include <strings.h>

#include "export_table.h"

namespace {

using tvlcli::CallArgs;
using tvlcli::CallResult;
using tvlcli::ExportEntry;

constexpr int kBadParameters = 1;

bool sameName(const char* given, const char* name) {
    if (strncasecmp(given, "tvl", 3) == 0 && strcasecmp(given + 3, name) == 0) return true;
    return strcasecmp(given, name) == 0;
}

// The error functions report the code of the call before them; a batch of them means nothing.
bool reportsErrors(const char* name) {
    return std::strncmp(name, "GETLASTERROR", 12) == 0 || std::strcmp(name, "SETLASTERROR") == 0;
}

const ExportEntry* findBatchable(const char* name) {
    if (name == nullptr) return nullptr;
    for (int k = 0; k < tvlcli::kExportCount; ++k) {
        const ExportEntry& entry = tvlcli::kExports[k];
        if (!sameName(name, entry.name)) continue;
        if (reportsErrors(entry.name)) return nullptr;
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

}  // namespace

extern "C" TVLX_API int32_t tvlxCANEVALUATE(const char* name) {
    return findBatchable(name) != nullptr ? 1 : 0;
}

extern "C" TVLX_API int64_t tvlxEVALUATE(const char* name, int64_t count, const double* const* inputs,
                                         const int64_t* strides, const char* const* texts, double* results,
                                         double* const* outputs, int32_t* errors) {
    const ExportEntry* entry = findBatchable(name);
    if (entry == nullptr || count < 0 || results == nullptr) return -1;
    const Layout layout = layoutOf(*entry);
    bool numericArguments = false;
    for (int k = 0; k < layout.count; ++k) numericArguments |= layout.input[k] >= 0;
    if ((numericArguments && (inputs == nullptr || strides == nullptr)) || (layout.texts > 0 && texts == nullptr) ||
        (layout.outputs > 0 && outputs == nullptr))
        return -1;

    CallArgs args;
    for (int k = 0; k < layout.count; ++k)
        if (layout.kind[k] == 's') args.texts[layout.slot[k]] = texts[layout.slot[k]];

    int64_t failed = 0;
    for (int64_t element = 0; element < count; ++element) {
        bool accepted = true;
        for (int k = 0; k < layout.count; ++k) {
            const int j = layout.input[k];
            if (j < 0) continue;
            const double value = inputs[j][element * strides[j]];
            if (layout.kind[k] == 'd')
                args.numbers[layout.slot[k]] = value;
            else
                accepted = accepted && toInteger(value, args.integers[layout.slot[k]]);
        }
        int32_t code = kBadParameters;
        double value = -1.0;
        if (accepted) {
            const CallResult result = entry->call(args);
            // A text result has no place in an array of numbers; the table does not say which
            // exports give texts, so the first call tells.
            if (result.kind == CallResult::kText || result.kind == CallResult::kWideText) return -1;
            value = valueOf(result);
            code = tvlGETLASTERROR();
        }
        results[element] = value;
        for (int j = 0; j < layout.outputs; ++j)
            if (outputs[j] != nullptr) outputs[j][element] = accepted ? args.outputs[j] : -1.0;
        if (errors != nullptr) errors[element] = code;
        if (code != 0) ++failed;
    }
    return failed;
}
