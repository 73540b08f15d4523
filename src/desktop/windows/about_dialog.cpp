// The about box: a modal dialog from resource 103 with the product's texts, its icon (a click
// opens the product page) and a menu whose one item opens the help.
#include <windows.h>
#include <shellapi.h>

#include <exception>

#include "desktop/desktop.h"
#include "desktop/product_texts.h"
#include "desktop/windows/resource_ids.h"
#include "desktop/windows/windows_support.h"

namespace tvl::desktop {

namespace {

class AboutDialog {
public:
    // Runs the dialog to its end on the caller's thread.
    void run(HWND owner);

private:
    static INT_PTR CALLBACK dialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR handle(HWND window, UINT message, WPARAM wParam);
    void open(HWND window);

    std::exception_ptr failure;
};

// Dialogs under creation, by thread. A dialog's window procedure receives messages before the
// one that carries its creation parameter; it finds its object here and then keeps it in the
// window itself. Entries live only while the dialog is being created.
class PendingDialogs {
public:
    PendingDialogs() { InitializeCriticalSection(&guard); }
    ~PendingDialogs() { DeleteCriticalSection(&guard); }
    PendingDialogs(const PendingDialogs&) = delete;
    PendingDialogs& operator=(const PendingDialogs&) = delete;

    bool add(AboutDialog* dialog) {
        Lock lock(guard);
        for (Entry& entry : entries) {
            if (entry.dialog == nullptr) {
                entry = {GetCurrentThreadId(), dialog};
                return true;
            }
        }
        return false;
    }

    // Takes the calling thread's entry out of the table; null if it has none.
    AboutDialog* take() {
        Lock lock(guard);
        const DWORD thread = GetCurrentThreadId();
        for (Entry& entry : entries) {
            if (entry.dialog != nullptr && entry.thread == thread) {
                AboutDialog* dialog = entry.dialog;
                entry = {};
                return dialog;
            }
        }
        return nullptr;
    }

private:
    struct Entry {
        DWORD thread = 0;
        AboutDialog* dialog = nullptr;
    };
    struct Lock {
        explicit Lock(CRITICAL_SECTION& section) : section(section) { EnterCriticalSection(&section); }
        ~Lock() { LeaveCriticalSection(&section); }
        CRITICAL_SECTION& section;
    };

    CRITICAL_SECTION guard;
    Entry entries[16];
};

PendingDialogs& pendingDialogs() {
    static PendingDialogs table;
    return table;
}

// Centres the dialog over its owner, or over the work area of its monitor without one, and
// keeps it on that monitor.
void centreOverOwner(HWND window) {
    RECT dialog{};
    GetWindowRect(window, &dialog);
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
    RECT around = monitor.rcWork;
    HWND owner = GetWindow(window, GW_OWNER);
    if (owner != nullptr && IsWindowVisible(owner) && !IsIconic(owner)) GetWindowRect(owner, &around);
    const LONG width = dialog.right - dialog.left;
    const LONG height = dialog.bottom - dialog.top;
    LONG left = around.left + (around.right - around.left - width) / 2;
    LONG top = around.top + (around.bottom - around.top - height) / 2;
    if (left + width > monitor.rcWork.right) left = monitor.rcWork.right - width;
    if (top + height > monitor.rcWork.bottom) top = monitor.rcWork.bottom - height;
    if (left < monitor.rcWork.left) left = monitor.rcWork.left;
    if (top < monitor.rcWork.top) top = monitor.rcWork.top;
    SetWindowPos(window, nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void AboutDialog::run(HWND owner) {
    if (!pendingDialogs().add(this)) return;
    DialogBoxParamW(resourceModule(), MAKEINTRESOURCEW(IDD_ABOUT), owner, dialogProcedure,
                    reinterpret_cast<LPARAM>(this));
    pendingDialogs().take();  // still there if the dialog could not be created
    if (failure) std::rethrow_exception(failure);
}

INT_PTR CALLBACK AboutDialog::dialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM) {
    auto* dialog = reinterpret_cast<AboutDialog*>(GetWindowLongPtrW(window, DWLP_USER));
    if (dialog == nullptr) {
        dialog = pendingDialogs().take();
        if (dialog == nullptr) return FALSE;
        SetWindowLongPtrW(window, DWLP_USER, reinterpret_cast<LONG_PTR>(dialog));
    }
    // Nothing may unwind through the window manager: a failure ends the dialog and is
    // raised again once the dialog has returned.
    try {
        return dialog->handle(window, message, wParam);
    } catch (...) {
        dialog->failure = std::current_exception();
        EndDialog(window, IDCANCEL);
        return TRUE;
    }
}

INT_PTR AboutDialog::handle(HWND window, UINT message, WPARAM wParam) {
    switch (message) {
    case WM_INITDIALOG:
        open(window);
        return TRUE;
    case WM_COMMAND:
        switch (LOWORD(wParam)) {
        case IDOK:
        case IDCANCEL:
            EndDialog(window, LOWORD(wParam));
            return TRUE;
        case IDM_HELP:
            showHelp(window);
            return TRUE;
        case IDC_ABOUT_ICON:
            if (HIWORD(wParam) == STN_CLICKED)
                ShellExecuteW(window, L"open", L"" TVL_PRODUCT_PAGE, nullptr, nullptr, SW_SHOWNORMAL);
            return TRUE;
        }
        return FALSE;
    case WM_HELP:
        showHelp(window);
        return TRUE;
    case WM_CLOSE:
        EndDialog(window, IDCANCEL);
        return TRUE;
    }
    return FALSE;
}

void AboutDialog::open(HWND window) {
    centreOverOwner(window);
    SetWindowTextW(window, productText(IDS_TITLE).c_str());
    const struct {
        int control;
        UINT text;
    } texts[] = {{IDC_ABOUT_PRODUCT, IDS_PRODUCT},
                 {IDC_ABOUT_VERSION, IDS_VERSION},
                 {IDC_ABOUT_PURPOSE, IDS_PURPOSE},
                 {IDC_ABOUT_CREDITS, IDS_CREDITS}};
    for (const auto& item : texts) SetDlgItemTextW(window, item.control, productText(item.text).c_str());

    const HINSTANCE module = resourceModule();
    const auto icon = [&](int metricX, int metricY) {
        return static_cast<HICON>(LoadImageW(module, MAKEINTRESOURCEW(IDI_LIBRARY), IMAGE_ICON, GetSystemMetrics(metricX),
                                             GetSystemMetrics(metricY), LR_SHARED));
    };
    SendMessageW(window, WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(icon(SM_CXICON, SM_CYICON)));
    SendMessageW(window, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(icon(SM_CXSMICON, SM_CYSMICON)));
}

}  // namespace

void showAbout(void* parent) {
    AboutDialog dialog;
    dialog.run(ownerWindow(parent));
}

}  // namespace tvl::desktop
