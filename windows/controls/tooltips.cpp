#include "windows/controls/tooltips.h"

#include <commctrl.h>

namespace win {

Tooltips::~Tooltips() {
    if (handle_ != nullptr) DestroyWindow(handle_);
}

void Tooltips::create() {
    const Activation themed(context_);
    handle_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr,
                              WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, CW_USEDEFAULT, CW_USEDEFAULT,
                              CW_USEDEFAULT, CW_USEDEFAULT, owner_, nullptr, nullptr, nullptr);
}

void Tooltips::set(HWND control, const std::wstring& text) {
    if (handle_ == nullptr) {
        if (text.empty()) return;
        create();
    }
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = owner_;
    tool.uId = reinterpret_cast<UINT_PTR>(control);
    tool.lpszText = const_cast<wchar_t*>(text.c_str());
    SendMessageW(handle_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    if (!text.empty()) SendMessageW(handle_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

void Tooltips::relay(HWND control, UINT message, WPARAM wParam, LPARAM lParam) const {
    MSG heard{control, message, wParam, lParam, 0, {}};
    SendMessageW(handle_, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&heard));
}

}  // namespace win
