#include "windows/controls/text_box.h"

#include <utility>

namespace win {

void TextBox::onCommand(int code) {
    if (code == EN_CHANGE && !setting_) raise(onChange);
}

std::optional<LRESULT> TextBox::onMessage(UINT message, WPARAM, LPARAM) {
    // The system gives the box the focus first and places the caret then, which would undo the handler's
    // doing.
    if (message != WM_LBUTTONDOWN || !onGotFocus || isFocused()) return std::nullopt;
    SetFocus(window());
    return 0;
}

void TextBox::setText(const std::wstring& text) {
    if (text == windowText()) return;
    // Boxes of one line tell of a text that is set, boxes of several do not: here it is told once.
    const bool outer = std::exchange(setting_, true);
    SetWindowTextW(window(), text.c_str());
    setting_ = outer;
    raise(onChange);
}

int TextBox::selectionStart() const {
    DWORD start = 0;
    send(EM_GETSEL, reinterpret_cast<WPARAM>(&start));
    return static_cast<int>(start);
}

int TextBox::selectionLength() const {
    DWORD start = 0;
    DWORD end = 0;
    send(EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    return static_cast<int>(end - start);
}

void TextBox::select(int start, int length) { send(EM_SETSEL, static_cast<WPARAM>(start), start + length); }

}  // namespace win
