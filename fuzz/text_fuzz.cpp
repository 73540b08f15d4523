// Fuzz target for composition texts: the input is split at zero bytes into texts; the first
// byte of each picks the call, and catalogue changes (new ids, added components, deletions)
// come between the calls so the cache of resolved mixtures sees a changing catalogue.
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "tavlib6.h"

namespace {

void fail(const char* what) {
    (void)what;
    std::abort();
}

void checkNumber(double v) {
    if (!std::isfinite(v)) fail("non-finite return");
    if (tvlGETLASTERROR() != 0 && v != -1.0) fail("error without the failure value");
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

    std::int32_t lastId = 0;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const std::string& whole = texts[i];
        const unsigned op = whole.empty() ? 0 : static_cast<unsigned char>(whole[0]) % 10;
        const char* text = whole.empty() ? "" : whole.c_str() + 1;
        const char* other = i + 1 < texts.size() ? texts[i + 1].c_str() : "N2";
        switch (op) {
        case 0: checkNumber(tvlgCPGST(text, 300.0 + 10.0 * static_cast<double>(i))); break;
        case 1: {
            std::int32_t id = tvlgNEWIDGS(text);
            if (id != -1) lastId = id;
            break;
        }
        case 2: {
            const char* flat = tvlgGSGS(text);
            if (flat && std::strlen(flat) > (1u << 20)) fail("runaway text");
            if (flat) checkNumber(tvlgCPGST(flat, 500.0));
            break;
        }
        case 3: checkNumber(tvlgVFGSGS(text, other)); break;
        case 4: checkNumber(tvlgMFGSGS(text, other)); break;
        case 5: tvlgADDGASV(lastId, tvlgIDNAME(text), 0.5); break;
        case 6: tvlgADDGASM(lastId, tvlgNEWIDGS(text), 1.5); break;
        case 7: tvlgDELETEGASID(lastId); break;
        case 8: {
            std::int32_t id = tvlgNEWIDNAME(text);
            if (id != -1) lastId = id;
            checkNumber(tvlgHGST(text, 1000.0));
            break;
        }
        case 9: {
            const char* flat = tvlgGSID(lastId);
            if (flat) checkNumber(tvlgMMGS(flat));
            break;
        }
        }
    }
    // Clearing on every input would make the run rebuild the catalogue's tables; a bound keeps
    // the catalogue small instead.
    if (tvlgGASESCOUNT() > 64) tvlgDELETEGASES();
    return 0;
}
