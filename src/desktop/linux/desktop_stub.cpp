// Desktop services where there is no windowing system of the library's own: both calls succeed
// and show nothing, so a host may call them unconditionally.
#include "desktop/desktop.h"

namespace tvl::desktop {

void showAbout(void*) {}

void showHelp(void*) {}

void* libraryModule() { return nullptr; }

}  // namespace tvl::desktop
