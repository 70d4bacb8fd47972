// The system's message box and colour chooser.
#include <windows.h>

#include <commdlg.h>

#include <stdexcept>
#include <utility>

#include "windows/controls/screen.h"
#include "windows/controls/window.h"

namespace win {
namespace {

constexpr ui::Colour COLOUR_BITS = 0x00FFFFFF;

/// The top-level window that a question is modal over. A page that is not shown yet has none to speak of.
HWND questionOwner(const ui::Window* asker) {
    const HWND window = handleOf(asker);
    const HWND root = window ? GetAncestor(window, GA_ROOT) : nullptr;
    return IsWindowVisible(root) ? root : GetActiveWindow();
}

UINT styleOf(const ui::Message& message) {
    UINT style = message.buttons == ui::MessageButtons::yesNo ? MB_YESNO : MB_OK;
    if (message.defaultAnswer == ui::MessageAnswer::no) style |= MB_DEFBUTTON2;
    switch (message.icon) {
        case ui::MessageIcon::exclamation: style |= MB_ICONEXCLAMATION; break;
        case ui::MessageIcon::question: style |= MB_ICONQUESTION; break;
        case ui::MessageIcon::information: style |= MB_ICONINFORMATION; break;
        case ui::MessageIcon::none: break;
    }
    return style;
}

/// The user's own colours of the chooser, kept while the process lives.
COLORREF* customColours() {
    static COLORREF colours[16] = {0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF,
                                   0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF,
                                   0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF};
    return colours;
}

bool isDialogBox(HWND window) {
    return GetClassLongPtrW(window, GCW_ATOM) == reinterpret_cast<ULONG_PTR>(WC_DIALOG);
}

/// Tells a modal loop which window its question is: the next dialog box that the thread makes. The host may
/// have boxes of its own on the same owner, so looking for it later could find the wrong one.
class NextDialogBox {
public:
    explicit NextDialogBox(Screen::Modal& question)
        : outer_(std::exchange(awaiting, &question)),
          hook_(SetWindowsHookExW(WH_CBT, heard, nullptr, GetCurrentThreadId())) {}
    NextDialogBox(const NextDialogBox&) = delete;
    NextDialogBox& operator=(const NextDialogBox&) = delete;
    ~NextDialogBox() {
        UnhookWindowsHookEx(hook_);
        awaiting = outer_;
    }

private:
    static LRESULT CALLBACK heard(int code, WPARAM wParam, LPARAM lParam) noexcept {
        const auto window = reinterpret_cast<HWND>(wParam);
        if (code == HCBT_CREATEWND && awaiting != nullptr && isDialogBox(window))
            if (!std::exchange(awaiting, nullptr)->opens(window)) return 1;  // it is not made at all
        return CallNextHookEx(nullptr, code, wParam, lParam);
    }
    static inline Screen::Modal* awaiting = nullptr;

    Screen::Modal* outer_;
    HHOOK hook_;
};

/// Gives the chooser its title; everything else is left to it.
UINT_PTR CALLBACK chooserHook(HWND chooser, UINT message, WPARAM, LPARAM lParam) noexcept {
    if (message == WM_INITDIALOG) {
        const auto* question = reinterpret_cast<const CHOOSECOLORW*>(lParam);
        const auto& title = *reinterpret_cast<const std::wstring*>(question->lCustData);
        if (!title.empty()) SetWindowTextW(chooser, title.c_str());
    }
    return 0;
}

}  // namespace

ui::MessageAnswer Screen::showMessage(ui::Window* owner, const ui::Message& message) {
    const bool yesNo = message.buttons == ui::MessageButtons::yesNo;
    if (closing_) return yesNo ? ui::MessageAnswer::no : ui::MessageAnswer::ok;

    const HWND parent = questionOwner(owner);
    // Without an owner nothing else would keep the user from the host's windows.
    const UINT modality = parent != nullptr ? MB_APPLMODAL : MB_TASKMODAL;
    Modal running(*this, dynamic_cast<Window*>(owner), yesNo ? IDNO : IDOK);
    const NextDialogBox box(running);
    const int answer =
        MessageBoxW(parent, message.text.c_str(), message.title.c_str(), styleOf(message) | modality);
    if (!yesNo) return ui::MessageAnswer::ok;
    return answer == IDYES ? ui::MessageAnswer::yes : ui::MessageAnswer::no;
}

std::optional<ui::Colour> Screen::chooseColour(ui::Window& owner, ui::Colour initial,
                                               const std::wstring& title) {
    if (closing_) return std::nullopt;

    CHOOSECOLORW question{};
    question.lStructSize = sizeof question;
    question.hwndOwner = questionOwner(&owner);
    question.rgbResult = static_cast<COLORREF>(initial & COLOUR_BITS);
    question.lpCustColors = customColours();
    question.Flags = CC_RGBINIT | CC_FULLOPEN | CC_ANYCOLOR | CC_ENABLEHOOK;
    question.lCustData = reinterpret_cast<LPARAM>(&title);
    question.lpfnHook = chooserHook;
    Modal running(*this, dynamic_cast<Window*>(&owner), IDCANCEL);
    const NextDialogBox box(running);
    if (ChooseColorW(&question)) return static_cast<ui::Colour>(question.rgbResult);
    if (closing_) return std::nullopt;  // the chooser may not even have come up
    if (const DWORD error = CommDlgExtendedError(); error != 0)
        throw std::runtime_error("the colour chooser failed: " + std::to_string(error));
    return std::nullopt;
}

}  // namespace win
