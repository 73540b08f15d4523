// Fuzz target for composition texts: the input is split at zero bytes into texts; the first
// byte of each picks the call, and catalogue changes (new ids, added components, deletions)
// come between the calls so the cache of resolved mixtures sees a changing catalogue.
//
// Each input gets a library object of its own, as a host's instance would be: an input then
// behaves the same alone as in a long run, and mixtures grown by earlier inputs (the built-in
// records accept components too) do not slow every later input down.
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "frame/property_facade.h"

namespace {

void fail(const char* what) {
    (void)what;
    std::abort();
}

void checkNumber(const tvl::PropertyFacade& library, double v) {
    if (!std::isfinite(v)) fail("non-finite return");
    if (library.lastError != 0 && v != -1.0) fail("error without the failure value");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::vector<std::string> texts;
    std::string current;
    for (std::size_t i = 0; i < size; ++i) {
        if (data[i] == 0) {
            texts.push_back(current);
            current.clear();
        } else {
            current += static_cast<char>(data[i]);
        }
    }
    texts.push_back(current);

    const auto owned = std::make_unique<tvl::PropertyFacade>();
    tvl::PropertyFacade& library = *owned;
    std::int32_t lastId = 0;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const std::string& whole = texts[i];
        const unsigned op = whole.empty() ? 0 : static_cast<unsigned char>(whole[0]) % 10;
        const char* text = whole.empty() ? "" : whole.c_str() + 1;
        const char* other = i + 1 < texts.size() ? texts[i + 1].c_str() : "N2";
        switch (op) {
        case 0: checkNumber(library, library.gCPGST(text, 300.0 + 10.0 * static_cast<double>(i))); break;
        case 1: {
            std::int32_t id = library.gNEWIDGS(text);
            if (id != -1) lastId = id;
            break;
        }
        case 2: {
            const char* flat = library.gGSGS(text);
            if (flat && std::strlen(flat) > (1u << 20)) fail("runaway text");
            if (flat) checkNumber(library, library.gCPGST(flat, 500.0));
            break;
        }
        case 3: checkNumber(library, library.gVFGSGS(text, other)); break;
        case 4: checkNumber(library, library.gMFGSGS(text, other)); break;
        case 5: library.gADDGASV(lastId, library.gIDNAME(text), 0.5); break;
        case 6: library.gADDGASM(lastId, library.gNEWIDGS(text), 1.5); break;
        case 7: library.gDELETEGASID(lastId); break;
        case 8: {
            std::int32_t id = library.gNEWIDNAME(text);
            if (id != -1) lastId = id;
            checkNumber(library, library.gHGST(text, 1000.0));
            break;
        }
        case 9: {
            const char* flat = library.gGSID(lastId);
            if (flat) checkNumber(library, library.gMMGS(flat));
            break;
        }
        }
    }
    return 0;
}
