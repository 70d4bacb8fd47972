// The tooltips of one window: one tooltip control for all of its controls, made when the mouse first comes to
// one that has a tip, because most windows are opened and closed without that.
#pragma once

#include <windows.h>

#include <string>

#include "windows/controls/activation_context.h"

namespace win {

class Tooltips {
public:
    Tooltips(const ActivationContext& context, HWND owner) : context_(context), owner_(owner) {}
    Tooltips(const Tooltips&) = delete;
    Tooltips& operator=(const Tooltips&) = delete;
    ~Tooltips();

    /// An empty text takes the tip away.
    void set(HWND control, const std::wstring& text);
    /// A mouse message that the control got before it had its tip.
    void relay(HWND control, UINT message, WPARAM wParam, LPARAM lParam) const;

private:
    void create();

    const ActivationContext& context_;
    HWND owner_;
    HWND handle_ = nullptr;
};

}  // namespace win
