// Fuzz target for the numeric exports: the bytes pick an export of the generated table, the
// settings (range checks, tolerance mode, iteration cap, tolerance) and the raw doubles and
// integers of its arguments. Every export listed is reachable, new ones included.
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "export_table.h"
#include "tavlib6.h"

namespace {

struct Reader {
    const std::uint8_t* data;
    std::size_t size;
    std::size_t at = 0;
    template <typename T>
    T take() {
        T v{};
        unsigned char bytes[sizeof(T)] = {};
        for (std::size_t i = 0; i < sizeof(T) && at < size; ++i) bytes[i] = data[at++];
        std::memcpy(&v, bytes, sizeof(T));
        return v;
    }
};

const char* const kTexts[] = {"N2", "air", "N2:79;O2:21", "{N2:1;O2:1}:1kg;Ar:1kg", "", "x;;",
                              "CO2:1e308;H2O:1e308", "H2O:1,5;Air:1e1"};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 4) return 0;
    Reader in{data, size};
    const std::uint16_t pick = in.take<std::uint16_t>();
    const tvlcli::ExportEntry& e = tvlcli::kExports[pick % tvlcli::kExportCount];
    if (std::strchr(e.kinds, 'w')) return 0;  // the desktop exports open windows
    const std::uint8_t flags = in.take<std::uint8_t>();
    const std::int32_t iterations[] = {0, 1, 2, 100, 100000};
    const double tolerances[] = {2e-12, 0.0, -1.0, 1e-30, 1.0};
    tvlSETCHECKRANGEMODE(flags & 1);
    tvlSETTOLERANCEMODE((flags >> 1) & 1);
    tvlSETMAXITERATION(iterations[(flags >> 2) % 5]);
    tvlSETTOLERANCE(tolerances[(flags >> 5) % 5]);

    tvlcli::CallArgs a;
    int n = 0, i = 0, t = 0;
    for (const char* k = e.kinds; *k; ++k) {
        if (*k == 'd') a.numbers[n++] = in.take<double>();
        else if (*k == 'i') a.integers[i++] = in.take<std::int32_t>();
        else if (*k == 's') a.texts[t++] = kTexts[in.take<std::uint8_t>() % 8];
    }
    for (double& cell : a.outputs) cell = 0.5;
    tvlcli::CallResult r = e.call(a);
    const bool reporting = std::strcmp(e.family, "Error reporting") == 0;
    const int error = reporting ? 0 : tvlGETLASTERROR();
    if (r.kind == tvlcli::CallResult::kNumber) {
        if (!std::isfinite(r.number)) std::abort();
        if (error != 0 && r.number != -1.0) std::abort();
    } else if (r.kind == tvlcli::CallResult::kInteger && error != 0 && r.integer != -1) {
        std::abort();
    }
    tvlSETCHECKRANGEMODE(1);
    tvlSETTOLERANCEMODE(1);
    tvlSETMAXITERATION(100);
    tvlSETTOLERANCE(2e-12);
    return 0;
}
