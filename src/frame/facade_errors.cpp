// Error reporting: the four exports that do not clear lastError on entry.
#include "frame/property_facade.h"

namespace tvl {

namespace {

// The text of lastError in the buffer, which stays the library's; the code stays as it was.
template <class Character, int kCapacity>
const Character* describe(int code, Character (&buffer)[kCapacity]) noexcept {
    try {
        loadErrorText(code, buffer, kCapacity);
        return buffer;
    } catch (...) {
        return nullptr;
    }
}

}  // namespace

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
    return describe(lastError, descriptionBuffer);
}

const tvlWideChar* PropertyFacade::GETLASTERRORDESCRIPTIONW() noexcept {
    solved.clear();
    return describe(lastError, descriptionBufferW);
}

}  // namespace tvl
