// The help: tavlib6.chm is looked for in seven places and opened in the HTML Help viewer, which
// is loaded at run time; if it is nowhere, a message box says so.
#include <windows.h>

#include <string>
#include <vector>

#include "desktop/desktop.h"
#include "desktop/product_texts.h"
#include "desktop/windows/resource_ids.h"
#include "desktop/windows/windows_support.h"

namespace tvl::desktop {

namespace {

const wchar_t kHelpFileName[] = L"" TVL_SYSAPP_NAME ".chm";
const wchar_t kInstallKey[] = L"SOFTWARE\\Corvane\\Tavelin\\6.5";
const wchar_t kInstallFolderKey[] = L"SOFTWARE\\Corvane\\Tavelin\\6.5\\Install";
const wchar_t kViewerServerKey[] = L"CLSID\\{ADB880A6-D8FF-11CF-9377-00AA003B7A11}\\InprocServer32";
constexpr UINT kDisplayTopic = 0;  // HH_DISPLAY_TOPIC

bool isSeparator(wchar_t c) { return c == L'\\' || c == L'/'; }

// The folder of a file path: the path without its last component. A path that is only a root
// ("C:\", "\", "\\?\", "\\?\C:\") has no folder.
std::wstring folderOf(const std::wstring& path) {
    std::wstring rest = path;
    if (rest.compare(0, 4, L"\\\\?\\") == 0) rest.erase(0, 4);
    if (rest.size() >= 2 && rest[1] == L':') rest.erase(0, 2);
    while (!rest.empty() && isSeparator(rest.back())) rest.pop_back();
    if (rest.empty()) return std::wstring();
    const std::size_t last = path.find_last_of(L"\\/");
    return last == std::wstring::npos ? std::wstring() : path.substr(0, last + 1);
}

std::wstring joinPath(const std::wstring& folder, const std::wstring& name) {
    if (folder.empty() || isSeparator(folder.back())) return folder + name;
    return folder + L'\\' + name;
}

bool pathExists(const std::wstring& path) {
    WIN32_FIND_DATAW found;
    const HANDLE search = FindFirstFileW(path.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return false;
    FindClose(search);
    return true;
}

// The default (unnamed) string value of a key; false if the key or value cannot be read.
bool readDefaultValue(HKEY hive, const wchar_t* key, REGSAM view, std::wstring& value) {
    HKEY opened = nullptr;
    if (RegOpenKeyExW(hive, key, 0, KEY_QUERY_VALUE | view, &opened) != ERROR_SUCCESS) return false;
    DWORD type = 0;
    DWORD bytes = 0;
    bool ok = RegQueryValueExW(opened, nullptr, nullptr, &type, nullptr, &bytes) == ERROR_SUCCESS &&
              (type == REG_SZ || type == REG_EXPAND_SZ);
    if (ok) {
        std::vector<wchar_t> text(bytes / sizeof(wchar_t) + 1, L'\0');
        ok = RegQueryValueExW(opened, nullptr, nullptr, &type, reinterpret_cast<BYTE*>(text.data()), &bytes) ==
             ERROR_SUCCESS;
        if (ok) value.assign(text.data());  // the stored value need not be terminated
        if (ok && type == REG_EXPAND_SZ) {
            std::vector<wchar_t> expanded(32768);
            if (ExpandEnvironmentStringsW(value.c_str(), expanded.data(), static_cast<DWORD>(expanded.size())) != 0)
                value.assign(expanded.data());
        }
    }
    RegCloseKey(opened);
    return ok;
}

// A folder named in the registry: the machine's entry, else the user's.
bool registryFolder(const wchar_t* key, REGSAM view, std::wstring& folder) {
    return readDefaultValue(HKEY_LOCAL_MACHINE, key, view, folder) ||
           readDefaultValue(HKEY_CURRENT_USER, key, view, folder);
}

// The full path of the help file, or empty if it is in none of the seven places.
std::wstring findHelpFile() {
    const std::wstring name = kHelpFileName;
    const auto tryFolder = [&](const std::wstring& folder, std::wstring& found) {
        found = joinPath(folder, name);
        return pathExists(found);
    };
    std::wstring found;
    if (tryFolder(folderOf(modulePath(nullptr)), found)) return found;
    if (tryFolder(folderOf(modulePath(resourceModule())), found)) return found;
    const struct {
        const wchar_t* key;
        REGSAM view;
    } registryPlaces[] = {{kInstallKey, KEY_WOW64_64KEY},
                          {kInstallKey, KEY_WOW64_32KEY},
                          {kInstallFolderKey, KEY_WOW64_64KEY},
                          {kInstallFolderKey, KEY_WOW64_32KEY}};
    for (const auto& place : registryPlaces) {
        std::wstring folder;
        if (registryFolder(place.key, place.view, folder) && tryFolder(folder, found)) return found;
    }
    if (!pathExists(name)) return std::wstring();
    // The viewer is given a full path, also for a file found in the current directory.
    std::vector<wchar_t> full(32768);
    const DWORD length = GetFullPathNameW(name.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
    return length > 0 && length < full.size() ? std::wstring(full.data(), length) : name;
}

using HtmlHelpFunction = HWND(WINAPI*)(HWND, LPCWSTR, UINT, DWORD_PTR);

// The viewer's entry, from the registered in-process server of its class and failing that by
// the plain file name. The viewer stays loaded: its windows outlive the call.
HtmlHelpFunction helpViewer() {
    static HtmlHelpFunction entry = nullptr;
    if (entry != nullptr) return entry;
    HMODULE viewer = nullptr;
    std::wstring server;
    if (readDefaultValue(HKEY_CLASSES_ROOT, kViewerServerKey, 0, server) && !server.empty())
        viewer = LoadLibraryW(server.c_str());
    if (viewer == nullptr) viewer = LoadLibraryW(L"hhctrl.ocx");
    if (viewer == nullptr) return nullptr;
    // FARPROC goes through the generic function pointer type to the viewer's signature.
    entry = reinterpret_cast<HtmlHelpFunction>(
        reinterpret_cast<void (*)()>(GetProcAddress(viewer, "HtmlHelpW")));
    return entry;
}

}  // namespace

void showHelp(void* parent) {
    const HWND owner = ownerWindow(parent);
    const std::wstring path = findHelpFile();
    if (!path.empty()) {
        if (const HtmlHelpFunction display = helpViewer()) display(owner, path.c_str(), kDisplayTopic, 0);
        return;
    }
    MessageBoxW(owner, productText(IDS_HELP_MISSING).c_str(), productText(IDS_TITLE).c_str(),
                MB_OK | MB_ICONEXCLAMATION);
}

}  // namespace tvl::desktop
