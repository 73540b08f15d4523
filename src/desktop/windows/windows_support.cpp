#include "desktop/windows/windows_support.h"

#include <vector>

#include "desktop/desktop.h"
#include "desktop/product_texts.h"

namespace tvl::desktop {

HINSTANCE resourceModule() { return static_cast<HINSTANCE>(libraryModule()); }

HWND ownerWindow(void* parent) {
    HWND window = static_cast<HWND>(parent);
    return IsWindow(window) ? window : GetActiveWindow();
}

std::wstring modulePath(HMODULE module) {
    std::vector<wchar_t> path(MAX_PATH);
    for (;;) {
        const DWORD length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
        if (length == 0) return std::wstring();
        if (length < path.size()) return std::wstring(path.data(), length);
        if (path.size() >= 32768) return std::wstring();  // longer than any path Windows allows
        path.resize(path.size() * 2);
    }
}

std::wstring fileVersionText() {
    const std::wstring path = modulePath(resourceModule());
    DWORD ignored = 0;
    const DWORD size = path.empty() ? 0 : GetFileVersionInfoSizeW(path.c_str(), &ignored);
    if (size == 0) return std::wstring();
    std::vector<unsigned char> block(size);
    if (!GetFileVersionInfoW(path.c_str(), 0, size, block.data())) return std::wstring();
    VS_FIXEDFILEINFO* info = nullptr;
    UINT infoSize = 0;
    if (!VerQueryValueW(block.data(), L"\\", reinterpret_cast<void**>(&info), &infoSize) || info == nullptr ||
        infoSize < sizeof(VS_FIXEDFILEINFO))
        return std::wstring();
    const unsigned parts[4] = {HIWORD(info->dwFileVersionMS), LOWORD(info->dwFileVersionMS),
                               HIWORD(info->dwFileVersionLS), LOWORD(info->dwFileVersionLS)};
    std::wstring text;
    for (unsigned part : parts) {
        if (!text.empty()) text += L'.';
        text += std::to_wstring(part);
    }
    return text;
}

std::wstring productText(UINT id) {
    // A zero capacity asks for a pointer to the resource itself, which is not terminated.
    const wchar_t* resource = nullptr;
    const int length = LoadStringW(resourceModule(), id, reinterpret_cast<LPWSTR>(&resource), 0);
    if (length <= 0 || resource == nullptr) return std::wstring();
    return expandProductMacros(std::wstring(resource, static_cast<std::size_t>(length)), fileVersionText());
}

}  // namespace tvl::desktop
