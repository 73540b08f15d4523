// The entry point of the DLL. It keeps the module handle from its first call, which the error
// texts and the dialogs read their resources through, and does nothing else: the one global
// object is brought up by the runtime's own initialisers.
#include <windows.h>

#include "desktop/desktop.h"

namespace {

HINSTANCE keptModule = nullptr;

}  // namespace

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD, LPVOID) {
    if (keptModule == nullptr) keptModule = instance;
    return TRUE;
}

namespace tvl::desktop {

void* libraryModule() { return keptModule; }

}  // namespace tvl::desktop
