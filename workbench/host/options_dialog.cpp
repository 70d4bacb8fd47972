#include "workbench/host/options_dialog.h"

#include <commctrl.h>
#include <uxtheme.h>

#include <utility>

#include "workbench/shell/window.h"
#include "workbench/workbench.ids.h"

namespace workbench {
namespace {

constexpr int GENERAL_TAB = 0;
constexpr int PAGE_TAB = 1;
constexpr const wchar_t* TITLE_WITHOUT_CAPTION = L"Quillmark";

INT_PTR CALLBACK panelProcedure(HWND, UINT message, WPARAM, LPARAM) noexcept {
    return message == WM_INITDIALOG;
}

}  // namespace

OptionsDialog::OptionsDialog(HWND owner, com::Ptr<IUnknown> page, CallList& calls) : calls_(calls) {
    CreateDialogParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_options), owner, procedure,
                       reinterpret_cast<LPARAM>(this));
    setTab(TCM_INSERTITEMW, GENERAL_TAB, L"General");
    setTab(TCM_INSERTITEMW, PAGE_TAB, TITLE_WITHOUT_CAPTION);
    general_ = addPanel(IDD_general);
    pageArea_ = addPanel(IDD_pageArea);
    page_ = std::make_shared<HostedPage>(std::move(page), pageArea_, *this, calls);
    if (const std::wstring caption = page_->caption(); !caption.empty())
        setTab(TCM_SETITEMW, PAGE_TAB, caption);
    SendDlgItemMessageW(dialog_, IDC_tabs, TCM_SETCURSEL, PAGE_TAB, 0);
    showTab(PAGE_TAB);
    moveToTheRight();
    ShowWindow(dialog_, SW_SHOW);
    SetFocus(GetDlgItem(dialog_, IDC_tabs));
}

OptionsDialog::~OptionsDialog() {
    onClosed = nullptr;
    close();
}

void OptionsDialog::moveToTheRight() {
    // Beside the list of calls, so that both can be seen.
    RECT desk;
    RECT own;
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &desk, 0);
    GetWindowRect(dialog_, &own);
    const int margin = scaled(20);
    SetWindowPos(dialog_, nullptr, desk.right - (own.right - own.left) - margin, desk.top + margin, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void OptionsDialog::setTab(UINT message, int index, const std::wstring& title) {
    TCITEMW item{};
    std::wstring text = title;
    item.mask = TCIF_TEXT;
    item.pszText = text.data();
    SendDlgItemMessageW(dialog_, IDC_tabs, message, static_cast<WPARAM>(index),
                        reinterpret_cast<LPARAM>(&item));
}

HWND OptionsDialog::addPanel(int templateIdentifier) {
    const HWND panel = CreateDialogParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(templateIdentifier),
                                          dialog_, panelProcedure, 0);
    EnableThemeDialogTexture(panel, ETDT_ENABLETAB);
    RECT area;
    GetWindowRect(GetDlgItem(dialog_, IDC_tabs), &area);
    MapWindowPoints(nullptr, dialog_, reinterpret_cast<POINT*>(&area), 2);
    SendDlgItemMessageW(dialog_, IDC_tabs, TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&area));
    SetWindowPos(panel, HWND_TOP, area.left, area.top, area.right - area.left, area.bottom - area.top, 0);
    return panel;
}

void OptionsDialog::showTab(int index) {
    ShowWindow(general_, index == GENERAL_TAB ? SW_SHOW : SW_HIDE);
    ShowWindow(pageArea_, index == PAGE_TAB ? SW_SHOW : SW_HIDE);
    if (index != PAGE_TAB || std::exchange(shown_, true)) return;
    page_->show();
}

// --- What the user does -----------------------------------------------------------------------------------

void OptionsDialog::press(int button) {
    if (!page_) return;
    if (button == IDOK) {
        statusChanged();
        page_->apply();
        close();
    } else if (button == IDCANCEL) {
        close();
    } else if (button == IDC_apply) {
        apply();
    }
}

void OptionsDialog::apply() {
    page_->apply();
    statusChanged();
    // A button that is disabled while it has the focus would leave the keyboard nowhere.
    if (GetFocus() == nullptr || !IsWindowEnabled(GetFocus())) SetFocus(GetDlgItem(dialog_, IDOK));
}

void OptionsDialog::close() {
    if (const auto page = std::exchange(page_, nullptr)) calls_.note(side::hostToPage, L"Close");
    if (const HWND dialog = std::exchange(dialog_, nullptr)) {
        SetWindowLongPtrW(dialog, DWLP_USER, 0);
        DestroyWindow(dialog);
        if (onClosed) onClosed();
    }
}

void OptionsDialog::statusChanged() {
    if (page_) EnableWindow(GetDlgItem(dialog_, IDC_apply), page_->dirty());
}

// --- Messages ---------------------------------------------------------------------------------------------

bool OptionsDialog::leftoverKey(MSG& message) {
    return dialog_ != nullptr && IsDialogMessageW(dialog_, &message) != FALSE;
}

bool OptionsDialog::translate(MSG& message) {
    const auto page = page_;  // held: the message may close the dialog
    if (dialog_ == nullptr || (message.hwnd != dialog_ && !IsChild(dialog_, message.hwnd))) return false;
    return (page && page->translate(message)) || leftoverKey(message);
}

INT_PTR OptionsDialog::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_COMMAND && HIWORD(wParam) == BN_CLICKED) {
        press(LOWORD(wParam));
        return TRUE;
    }
    if (message == WM_CLOSE) {
        close();
        return TRUE;
    }
    if (message == WM_NOTIFY && reinterpret_cast<NMHDR*>(lParam)->code == TCN_SELCHANGE)
        showTab(static_cast<int>(SendDlgItemMessageW(dialog_, IDC_tabs, TCM_GETCURSEL, 0, 0)));
    return FALSE;
}

INT_PTR CALLBACK OptionsDialog::procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(dialog, DWLP_USER, lParam);
        reinterpret_cast<OptionsDialog*>(lParam)->dialog_ = dialog;
        return FALSE;  // the focus is set when the page is there
    }
    auto* self = reinterpret_cast<OptionsDialog*>(GetWindowLongPtrW(dialog, DWLP_USER));
    try {
        return self != nullptr ? self->onMessage(message, wParam, lParam) : FALSE;
    } catch (...) {
        return FALSE;
    }
}

}  // namespace workbench
