#include "frame/error_codes.h"

#if defined(_WIN32)
#include <windows.h>

#include "desktop/desktop.h"
#endif

namespace tvl {

const char* errorText(int code) {
    switch (code) {
    case kNoError: return "0. No error occured.";
    case kBadParameters:
        return "1. Bad function parameters. It is error occured while calculating with given parameters.";
    case kOutOfRange: return "2. Parameters are out of range.";
    case kRootNotFound: return "3. Can't find root. Try to change value of iterations count.";
    case kUnknownArea: return "4. Unknown area. Function is not defined for this parameters range.";
    case kNotImplemented:
        return "8. Function is not implemented. This function can be obsolete or simply not implemented yet.";
    case kOutOfMemory: return "9. Unsufficient of memory. Try to close some applications.";
    case kSyntaxError: return "11. Syntax error.";
    case kGasNotFound: return "12. Gas not found.";
    default: return nullptr;
    }
}

namespace {

// The texts are plain ASCII, so each byte is one UTF-16 code unit as well.
template <class Char>
void copyText(int code, Char* buffer, int capacity) {
    if (capacity <= 0) return;
    buffer[0] = 0;
    const char* text = errorText(code);
    if (text == nullptr) return;
    int k = 0;
    for (; k < capacity - 1 && text[k] != '\0'; ++k) buffer[k] = static_cast<Char>(text[k]);
    buffer[k] = 0;
}

#if defined(_WIN32)
// On Windows the texts are the DLL's string resources, id code + 115; the table above stands in
// where a resource cannot be loaded (a static build, a stripped DLL). Only codes with a text
// are looked up, so no other resource is ever read as an error text.
bool loadResourceText(int code, char* buffer, int capacity) {
    if (capacity <= 0 || errorText(code) == nullptr) return false;
    buffer[0] = 0;
    return LoadStringA(static_cast<HINSTANCE>(desktop::libraryModule()), code + 115, buffer, capacity) > 0;
}

bool loadResourceText(int code, std::uint16_t* buffer, int capacity) {
    if (capacity <= 0 || errorText(code) == nullptr) return false;
    buffer[0] = 0;
    return LoadStringW(static_cast<HINSTANCE>(desktop::libraryModule()), code + 115,
                       reinterpret_cast<wchar_t*>(buffer), capacity) > 0;
}
#else
template <class Char>
bool loadResourceText(int, Char*, int) {
    return false;
}
#endif

}  // namespace

void loadErrorText(int code, char* buffer, int capacity) {
    if (!loadResourceText(code, buffer, capacity)) copyText(code, buffer, capacity);
}

void loadErrorText(int code, std::uint16_t* buffer, int capacity) {
    if (!loadResourceText(code, buffer, capacity)) copyText(code, buffer, capacity);
}

}  // namespace tvl
