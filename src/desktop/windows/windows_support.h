// What the about box and the help share on Windows: the owner window, string resources with
// their macros expanded, the version from the library file's version block, module paths.
#ifndef TAVLIB6_WINDOWS_SUPPORT_H
#define TAVLIB6_WINDOWS_SUPPORT_H

#include <windows.h>

#include <string>

namespace tvl::desktop {

HINSTANCE resourceModule();

// The window given by the caller, or the active window when that is no window.
HWND ownerWindow(void* parent);

// The full path of a module (null: the host program), of any length; empty on failure.
std::wstring modulePath(HMODULE module);

// "major.minor.build.revision" of the file version of the library's own version block, read
// from the file under the library's module path; empty if the block cannot be read.
std::wstring fileVersionText();

// The string resource id with "%%app%%", "%%sysapp%%" and "%%version%%" replaced.
std::wstring productText(UINT id);

}  // namespace tvl::desktop

#endif
