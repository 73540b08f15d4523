// Error reporting: the four exports that do not clear lastError on entry.
#include "frame/property_facade.h"

namespace tvl {

std::int32_t PropertyFacade::GETLASTERROR() noexcept {
    solved.clear();
    return lastError;
}

std::int32_t PropertyFacade::SETLASTERROR(std::int32_t code) noexcept {
    solved.clear();
    lastError = (code >= 1 && code <= 12) ? code : kNoError;
    return lastError;
}

const char* PropertyFacade::GETLASTERRORDESCRIPTION() noexcept {
    solved.clear();
    try {
        loadErrorText(lastError, descriptionBuffer, 256);
        return descriptionBuffer;
    } catch (...) {
        return nullptr;
    }
}

const tvlWideChar* PropertyFacade::GETLASTERRORDESCRIPTIONW() noexcept {
    solved.clear();
    try {
        loadErrorText(lastError, descriptionBufferW, 256);
        return descriptionBufferW;
    } catch (...) {
        return nullptr;
    }
}

}  // namespace tvl
