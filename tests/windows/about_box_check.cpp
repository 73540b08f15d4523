// tavlib6_about_check: opens the about box and the help of tavlib6.dll as a host would and checks
// what appears, from a second thread, while the first waits in the modal dialog.
//
//   tavlib6_about_check [FOLDER [HELPFILE]]
//
// With HELPFILE (a real tavlib6.chm), the help is also opened with that file beside the library
// and the viewer's window is checked and photographed as "help-viewer". With FOLDER, each window that is to be photographed is announced by a file FOLDER/NAME.ready
// and left standing until FOLDER/NAME.taken appears (or 60 s pass), so that a script can take
// a screenshot of the screen in between. Prints each check and "N passed, N failed".
#include <windows.h>
#include <commctrl.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "tavlib6.h"

namespace {

int passed = 0;
int failed = 0;
std::wstring handshakeFolder;
std::wstring helpSource;

void check(bool ok, const char* what) {
    std::printf("%s: %s\n", ok ? "ok" : "FAILED", what);
    std::fflush(stdout);
    ++(ok ? passed : failed);
}

std::string narrow(const std::wstring& wide) {
    std::string text;
    for (wchar_t c : wide) text += c < 128 ? static_cast<char>(c) : '?';
    return text;
}

std::wstring windowText(HWND window) {
    wchar_t text[1024] = {};
    GetWindowTextW(window, text, 1024);
    return text;
}

std::wstring controlText(HWND dialog, int id) {
    wchar_t text[1024] = {};
    GetDlgItemTextW(dialog, id, text, 1024);
    return text;
}

bool fileExists(const std::wstring& path) { return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES; }

// Announces a window to the screenshot script and waits until it has taken its picture.
void photograph(const wchar_t* name) {
    if (handshakeFolder.empty()) return;
    const std::wstring ready = handshakeFolder + L"\\" + name + L".ready";
    const std::wstring taken = handshakeFolder + L"\\" + name + L".taken";
    HANDLE file = CreateFileW(ready.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file != INVALID_HANDLE_VALUE) CloseHandle(file);
    for (int k = 0; k < 600 && !fileExists(taken); ++k) Sleep(100);
    check(fileExists(taken), "screenshot taken");
}

// A visible top-level dialog-class window with this title and owner (any owner when owner is
// INVALID_HANDLE_VALUE), other than `except`; waits up to 20 s.
struct Search {
    const wchar_t* title;
    HWND owner;
    HWND except;
    HWND found;
};

BOOL CALLBACK visitWindow(HWND window, LPARAM parameter) {
    auto* search = reinterpret_cast<Search*>(parameter);
    wchar_t className[64] = {};
    GetClassNameW(window, className, 64);
    if (window == search->except || !IsWindowVisible(window) || std::wstring(className) != L"#32770") return TRUE;
    if (search->owner != INVALID_HANDLE_VALUE && GetWindow(window, GW_OWNER) != search->owner) return TRUE;
    if (windowText(window) != search->title) return TRUE;
    search->found = window;
    return FALSE;
}

HWND waitForDialog(const wchar_t* title, HWND owner, HWND except = nullptr) {
    for (int k = 0; k < 200; ++k) {
        Search search{title, owner, except, nullptr};
        EnumWindows(visitWindow, reinterpret_cast<LPARAM>(&search));
        if (search.found != nullptr) {
            Sleep(300);  // let it paint
            return search.found;
        }
        Sleep(100);
    }
    return nullptr;
}

bool waitUntilGone(HWND window) {
    for (int k = 0; k < 100 && IsWindow(window); ++k) Sleep(100);
    return !IsWindow(window);
}

const std::wstring kHelpMissingStart =
    L"Tavelin can't locate its help file (named \"tavlib6.chm\").\r\nTry to reinstall the Tavelin.";

struct Scenario {
    HWND owner;
};

// Runs on the second thread while the first is inside tvlSHOWABOUT(owner).
DWORD WINAPI inspectAboutBox(LPVOID parameter) {
    const HWND owner = static_cast<Scenario*>(parameter)->owner;
    const HWND dialog = waitForDialog(L"Tavelin 6.5", owner);
    check(dialog != nullptr, "the about box opens, titled \"Tavelin 6.5\" and owned by the host window");
    if (dialog == nullptr) return 0;

    check(controlText(dialog, 1011) == L"Tavelin (tm)", "text 139 reads \"Tavelin (tm)\"");
    check(controlText(dialog, 1023) == L"Version: 6.5.0.64", "the version line reads \"Version: 6.5.0.64\"");
    check(controlText(dialog, 1012) ==
              L"Tavelin is a program for calculating properties of some substances\r\n"
              L"(including water/steam, some gases and its mixtures).",
          "text 140, macros replaced");
    check(controlText(dialog, 1013).rfind(L"Tavelin authors:\r\n", 0) == 0, "the credits begin \"Tavelin authors:\"");
    check(controlText(dialog, IDOK) == L"OK", "an OK button");
    check(SendMessageW(dialog, WM_GETICON, ICON_BIG, 0) != 0 && SendMessageW(dialog, WM_GETICON, ICON_SMALL, 0) != 0,
          "big and small window icons set");
    check(SendDlgItemMessageW(dialog, 1017, STM_GETICON, 0, 0) != 0, "the icon control shows icon 106");

    HMENU menu = GetMenu(dialog);
    wchar_t item[64] = {};
    HMENU popup = menu != nullptr ? GetSubMenu(menu, 0) : nullptr;
    if (menu != nullptr) GetMenuStringW(menu, 0, item, 64, MF_BYPOSITION);
    wchar_t helpItem[64] = {};
    if (popup != nullptr) GetMenuStringW(popup, 40006, helpItem, 64, MF_BYCOMMAND);
    check(menu != nullptr && GetMenuItemCount(menu) == 1 && std::wstring(item) == L"&?" &&
              std::wstring(helpItem) == L"&Help...",
          "a menu \"&?\" with the item \"&Help...\" (command 40006)");

    RECT box{};
    RECT host{};
    GetWindowRect(dialog, &box);
    GetWindowRect(owner, &host);
    const long dx = (box.left + box.right) / 2 - (host.left + host.right) / 2;
    const long dy = (box.top + box.bottom) / 2 - (host.top + host.bottom) / 2;
    check(labs(dx) <= 2 && labs(dy) <= 2, "centred over the host window");
    photograph(L"about");

    // The menu's help item: no help file anywhere, so a message box over the dialog.
    PostMessageW(dialog, WM_COMMAND, 40006, 0);
    const HWND message = waitForDialog(L"Tavelin 6.5", dialog, dialog);
    check(message != nullptr, "Help... without a help file brings a message box captioned \"Tavelin 6.5\"");
    if (message != nullptr) {
        const std::wstring text = controlText(message, 0xFFFF);
        std::printf("  message box text: %s\n", narrow(text).c_str());
        check(text.rfind(kHelpMissingStart, 0) == 0, "the message names tavlib6.chm and says to reinstall");
        photograph(L"help-missing");
        PostMessageW(message, WM_COMMAND, IDOK, 0);
        check(waitUntilGone(message), "the message box closes with OK");
    }
    check(IsWindow(dialog) != FALSE, "the about box stays open after the help");

    PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    check(waitUntilGone(dialog), "OK ends the dialog");
    return 0;
}

// Closes the first message box or dialog with this title, for the calls made with no window.
DWORD WINAPI closeWhenSeen(LPVOID title) {
    const HWND window = waitForDialog(static_cast<const wchar_t*>(title), static_cast<HWND>(INVALID_HANDLE_VALUE));
    check(window != nullptr, "a window appears for a call without a parent");
    if (window != nullptr) {
        const std::wstring text = controlText(window, 0xFFFF);
        if (!text.empty()) check(text.rfind(kHelpMissingStart, 0) == 0, "it is the help-missing message");
        PostMessageW(window, WM_COMMAND, IDOK, 0);
        check(waitUntilGone(window), "it closes with OK");
    }
    return 0;
}

// Watches for 4 s that no message box comes up while the help is shown, and closes what the
// help viewer opens.
DWORD WINAPI watchHelpViewer(LPVOID) {
    bool messageBox = false;
    for (int k = 0; k < 40; ++k) {
        Search search{L"Tavelin 6.5", static_cast<HWND>(INVALID_HANDLE_VALUE), nullptr, nullptr};
        EnumWindows(visitWindow, reinterpret_cast<LPARAM>(&search));
        if (search.found != nullptr) {
            messageBox = true;
            PostMessageW(search.found, WM_COMMAND, IDOK, 0);
        }
        if (HWND viewer = FindWindowW(L"HH Parent", nullptr)) PostMessageW(viewer, WM_CLOSE, 0, 0);
        Sleep(100);
    }
    check(!messageBox, "no message box: the help file beside the library is found");
    return 0;
}

// With a real help file: the HTML help viewer's window comes up, titled after the file, with its
// table of contents; it is photographed and closed. No message box meanwhile.
DWORD WINAPI inspectHelpViewer(LPVOID) {
    HWND viewer = nullptr;
    for (int k = 0; k < 200 && viewer == nullptr; ++k, Sleep(100)) viewer = FindWindowW(L"HH Parent", nullptr);
    check(viewer != nullptr && IsWindowVisible(viewer), "the help viewer's window opens");
    if (viewer == nullptr) return 0;
    Sleep(500);
    std::printf("  help viewer title: %s\n", narrow(windowText(viewer)).c_str());
    check(windowText(viewer) == L"tavlib6 reference", "titled after the help file");
    HWND tree = nullptr;  // the table of contents, a tree view somewhere among the viewer's windows
    EnumChildWindows(viewer, [](HWND child, LPARAM found) {
        wchar_t className[64] = {};
        GetClassNameW(child, className, 64);
        if (std::wstring(className) != WC_TREEVIEWW) return TRUE;
        *reinterpret_cast<HWND*>(found) = child;
        return FALSE;
    }, reinterpret_cast<LPARAM>(&tree));
    const auto root = reinterpret_cast<HTREEITEM>(tree ? SendMessageW(tree, TVM_GETNEXTITEM, TVGN_ROOT, 0) : 0);
    if (root != nullptr) SendMessageW(tree, TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(root));
    int pages = 0;
    for (auto item = reinterpret_cast<HTREEITEM>(SendMessageW(tree, TVM_GETNEXTITEM, TVGN_CHILD, reinterpret_cast<LPARAM>(root)));
         root != nullptr && item != nullptr;
         item = reinterpret_cast<HTREEITEM>(SendMessageW(tree, TVM_GETNEXTITEM, TVGN_NEXT, reinterpret_cast<LPARAM>(item))))
        ++pages;
    std::printf("  contents: %d pages under the first entry\n", pages);
    check(pages > 20, "the table of contents lists the pages");
    Search search{L"Tavelin 6.5", static_cast<HWND>(INVALID_HANDLE_VALUE), nullptr, nullptr};
    EnumWindows(visitWindow, reinterpret_cast<LPARAM>(&search));
    check(search.found == nullptr, "no message box: the help file beside the library is found");
    photograph(L"help-viewer");
    PostMessageW(viewer, WM_CLOSE, 0, 0);
    check(waitUntilGone(viewer), "the viewer closes");
    return 0;
}

// The folder of the loaded tavlib6.dll, with a trailing separator.
std::wstring libraryFolder() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(GetModuleHandleW(L"tavlib6.dll"), path, MAX_PATH);
    std::wstring folder = path;
    return folder.substr(0, folder.find_last_of(L"\\/") + 1);
}

HWND makeHostWindow() {
    HWND host = CreateWindowExW(0, L"STATIC", L"Spreadsheet host", WS_OVERLAPPEDWINDOW | WS_VISIBLE | SS_CENTER, 40, 30,
                                820, 560, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    UpdateWindow(host);
    return host;
}

void pumpMessages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc > 1) {
        wchar_t folder[MAX_PATH] = {};
        MultiByteToWideChar(CP_UTF8, 0, argv[1], -1, folder, MAX_PATH);
        handshakeFolder = folder;
    }
    if (argc > 2) {
        wchar_t path[MAX_PATH] = {};
        MultiByteToWideChar(CP_UTF8, 0, argv[2], -1, path, MAX_PATH);
        helpSource = path;
    }

    // The about box over a host window, inspected from a second thread.
    Scenario scenario{makeHostWindow()};
    pumpMessages();
    HANDLE inspector = CreateThread(nullptr, 0, inspectAboutBox, &scenario, 0, nullptr);
    const double about = tvlSHOWABOUT(scenario.owner);
    WaitForSingleObject(inspector, INFINITE);
    CloseHandle(inspector);
    check(about == 1.0 && tvlGETLASTERROR() == 0, "tvlSHOWABOUT returns 1.0 with no error");
    DestroyWindow(scenario.owner);
    pumpMessages();

    // A parent that is no window stands for the active window.
    HANDLE closer = CreateThread(nullptr, 0, closeWhenSeen, const_cast<wchar_t*>(L"Tavelin 6.5"), 0, nullptr);
    const double bogusParent = tvlSHOWABOUT(reinterpret_cast<void*>(static_cast<INT_PTR>(0x1234)));
    WaitForSingleObject(closer, INFINITE);
    CloseHandle(closer);
    check(bogusParent == 1.0 && tvlGETLASTERROR() == 0, "tvlSHOWABOUT with a parent that is no window returns 1.0");

    // The help with no help file anywhere: a message box, and still 1.0.
    closer = CreateThread(nullptr, 0, closeWhenSeen, const_cast<wchar_t*>(L"Tavelin 6.5"), 0, nullptr);
    const double help = tvlSHOWTVLHELP(nullptr);
    WaitForSingleObject(closer, INFINITE);
    CloseHandle(closer);
    check(help == 1.0 && tvlGETLASTERROR() == 0, "tvlSHOWTVLHELP without a help file returns 1.0 with no error");

    // A help file beside the library, which stands in another folder than the host program:
    // the second place of the search finds it and the viewer is asked to show it.
    const std::wstring helpFile = libraryFolder() + L"tavlib6.chm";
    wchar_t program[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    if (libraryFolder() != std::wstring(program).substr(0, std::wstring(program).find_last_of(L"\\/") + 1)) {
        if (helpSource.empty()) {
            HANDLE file = CreateFileW(helpFile.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
            check(file != INVALID_HANDLE_VALUE, "a tavlib6.chm written beside the library");
            if (file != INVALID_HANDLE_VALUE) CloseHandle(file);
        } else {
            check(CopyFileW(helpSource.c_str(), helpFile.c_str(), FALSE) != FALSE, "the help file copied beside the library");
        }
        check(GetModuleHandleW(L"hhctrl.ocx") == nullptr, "the help viewer is not loaded before it is needed");
        HANDLE watcher = CreateThread(nullptr, 0, helpSource.empty() ? watchHelpViewer : inspectHelpViewer, nullptr, 0, nullptr);
        const double found = tvlSHOWTVLHELP(nullptr);
        check(GetModuleHandleW(L"hhctrl.ocx") != nullptr, "hhctrl.ocx is loaded at run time to show the help");
        // The viewer's window belongs to this thread: keep it painted and answering.
        while (MsgWaitForMultipleObjects(1, &watcher, FALSE, INFINITE, QS_ALLINPUT) != WAIT_OBJECT_0) pumpMessages();
        CloseHandle(watcher);
        check(found == 1.0 && tvlGETLASTERROR() == 0, "tvlSHOWTVLHELP with the help file returns 1.0 with no error");
        DeleteFileW(helpFile.c_str());
    }

    std::printf("%d passed, %d failed\n", passed, failed);
    return failed == 0 ? 0 : 1;
}
