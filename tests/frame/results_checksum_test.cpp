// The exact bits of 10^5 results and error codes, hashed into one number: a change in any
// result bit of the calls below (arithmetic order, an iteration's start or stop, a region
// decision) changes the hash. Speed work must keep it; a deliberate change of results updates
// the recorded value in the same commit, with the reason.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <sstream>
#include <string>
#include <vector>

#include "export_table.h"
#include "tavlib6.h"

namespace {

using tvlcli::CallArgs;
using tvlcli::ExportEntry;
using tvlcli::kExportCount;
using tvlcli::kExports;

// The calls: every export of the table with a double result and one to three double arguments
// or a gas id and a double, in the table's order, but for the settings, the metastable and density-derivative
// families and three exports whose last argument has no draw of its own.
struct Row {
    const ExportEntry* entry;
    std::string kinds;  // one letter per argument: p T h s r x v, g a gas id, q another property
};

bool hashed(const ExportEntry& e) {
    for (const char* skipped : {"Settings and service", "Metastable steam by (p,T)", "Density derivatives"})
        if (std::strcmp(e.family, skipped) == 0) return false;
    for (const char* skipped : {"R3PTR0", "RIRTL", "RIPTL"})
        if (std::strcmp(e.name, skipped) == 0) return false;
    const std::string k = e.kinds;
    return e.result == 'd' && (k == "d" || k == "dd" || k == "ddd" || k == "id");
}

const std::vector<Row>& rows() {
    static const std::vector<Row> all = [] {
        std::vector<Row> found;
        for (int n = 0; n < kExportCount; ++n) {
            const ExportEntry& e = kExports[n];
            if (e.reportsErrors || !hashed(e)) continue;
            std::string kinds;
            std::istringstream names(e.argumentNames);
            for (std::string name; names >> name;) {
                const bool drawn = name.size() == 1 && std::strchr("pThsrxv", name[0]) != nullptr;
                kinds += name == "id" ? 'g' : drawn ? name[0] : 'q';
            }
            found.push_back({&e, kinds});
        }
        return found;
    }();
    return all;
}

// A generator whose numbers are the same on every build: 64-bit xorshift* mapped to [0, 1)
// by integer arithmetic and one exact scaling.
struct Draw {
    uint64_t state = 0x9E3779B97F4A7C15ull;
    double unit() {
        state ^= state >> 12;
        state ^= state << 25;
        state ^= state >> 27;
        return static_cast<double>((state * 2685821657736338717ull) >> 11) * 0x1.0p-53;
    }
    // An argument of the given kind; T beside r stays where densities are region 3's.
    double argument(char kind, bool besideDensity) {
        const double u = unit();
        switch (kind) {
            case 'p': return 500.0 + 1e8 * u * u;  // Pa
            case 'T':
                if (besideDensity) return 623.15 + 240.0 * u;
                return unit() < 0.8 ? 273.15 + 800.0 * u : 1073.15 + 1200.0 * u;
            case 'h': return -1e5 + 4.5e6 * u;  // J/kg
            case 's': return -500.0 + 12000.0 * u;  // J/(kg K)
            case 'r': return 1.0 + 1099.0 * u;
            case 'x': return -0.05 + 1.1 * u;
            case 'v': return 0.0009 + 20.0 * u * u;
            case 'g': return static_cast<double>(static_cast<int>(45.0 * u));
            default: return 3000.0 * u;
        }
    }
};

struct Hash {
    uint64_t value = 1469598103934665603ull;
    void add(uint64_t word) {
        for (int k = 0; k < 8; ++k) {
            value ^= (word >> (8 * k)) & 0xffu;
            value *= 1099511628211ull;
        }
    }
    void add(double d) {
        uint64_t bits;
        std::memcpy(&bits, &d, sizeof bits);
        add(bits);
    }
};

uint64_t checksum(int calls, int& failures) {
    failures = 0;
    Draw draw;
    Hash hash;
    const std::vector<Row>& all = rows();
    for (int n = 0; n < calls; ++n) {
        const Row& r = all[static_cast<size_t>(n) % all.size()];
        const bool besideDensity = r.kinds[0] == 'r';
        CallArgs args;
        int numbers = 0;
        for (const char kind : r.kinds) {
            const double a = draw.argument(kind, besideDensity);
            if (kind == 'g') args.integers[0] = static_cast<int32_t>(a);
            else args.numbers[numbers++] = a;
        }
        tvlSETLASTERROR(0);
        const double result = r.entry->call(args).number;
        hash.add(result);
        if (tvlGETLASTERROR() != 0) ++failures;
        hash.add(static_cast<uint64_t>(static_cast<uint32_t>(tvlGETLASTERROR())));
    }
    return hash.value;
}

TEST(ResultsChecksum, HundredThousandCallsKeepTheirBits) {
    int failures = 0;
    const uint64_t value = checksum(100000, failures);
    EXPECT_EQ(value, 0xb9471b2d06f323b8ull) << std::hex << value;
    // Most calls must reach a result, or the hash would mostly watch the error paths.
    EXPECT_LT(failures, 50000) << failures;
}

}  // namespace
