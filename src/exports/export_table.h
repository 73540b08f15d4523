// The table of every export, generated from the list of exports (export_table.inc): what the
// tvl command, the batch library libtavlib6x and the tests call the library through. Header
// only, so that each program takes it in without a source file of its own.
#ifndef TVL_EXPORT_TABLE_H
#define TVL_EXPORT_TABLE_H

#include <cstdint>

#include "tavlib6.h"

namespace tvlcli {

constexpr int kMaxArguments = 24;

// The arguments of one call, by kind, in the order they appear in the signature.
struct CallArgs {
    double numbers[kMaxArguments] = {};
    std::int32_t integers[kMaxArguments] = {};
    const char* texts[kMaxArguments] = {};
    double outputs[kMaxArguments] = {};
    void* windows[kMaxArguments] = {};
    std::intptr_t words[kMaxArguments] = {};
};

struct CallResult {
    enum Kind { kNumber, kInteger, kText, kWideText } kind;
    double number = 0.0;
    std::int32_t integer = 0;
    const char* text = nullptr;
    const tvlWideChar* wide = nullptr;

    static CallResult fromNumber(double v) {
        CallResult r{kNumber};
        r.number = v;
        return r;
    }
    static CallResult fromInteger(std::int32_t v) {
        CallResult r{kInteger};
        r.integer = v;
        return r;
    }
    static CallResult fromText(const char* v) {
        CallResult r{kText};
        r.text = v;
        return r;
    }
    static CallResult fromWide(const tvlWideChar* v) {
        CallResult r{kWideText};
        r.wide = v;
        return r;
    }
};

// kinds: one letter per argument: d double, i int32, s text, o output (double*), w window, W word;
// result: d double, i int32, s text, S wide text.
// reportsErrors: the export reports the error state of the call before it (tvlGETLASTERROR and
// its like), so a batch or a sweep of it means nothing.
struct ExportEntry {
    const char* name;
    const char* argumentNames;
    const char* kinds;
    char result;
    const char* family;
    bool reportsErrors;
    CallResult (*call)(CallArgs&);
};

inline const ExportEntry kExports[] = {
#include "export_table.inc"
};

inline const int kExportCount = sizeof kExports / sizeof kExports[0];

}  // namespace tvlcli

#endif
